// Finding events by words.
#pragma once

#include "planner/CalendarSet.h"

#include <string>
#include <string_view>
#include <vector>

namespace planner {

// The text for comparing: small letters, full-width forms as plain ones, katakana as hiragana.
std::u16string Folded(std::string_view utf8);

// Whether title, place, notes or categories have every word of the query. An empty query fits nothing.
bool Fits(const Event& event, std::string_view query);

// One occurrence of each event that fits: of series the first one from `now` on, else the last one; by start.
std::vector<Occurrence> Search(const CalendarSet& calendars, std::string_view query, LocalTime now);

} // namespace planner
