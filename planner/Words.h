// What the planner says, in the language of its user. Sources and resources hold English; JapaneseWords.cpp has the
// Japanese for each of those texts, and a test asks that none is missing.
#pragma once

#include "planner/Calendar.h"

#include <string>
#include <string_view>

namespace planner {

enum class Language
{
    English,
    Japanese
};

void SetLanguage(Language language);
Language CurrentLanguage();

// The text in the current language, UTF-8; a text that nobody has translated stays as it is.
std::string Tr(std::string_view english);
// The same with each "%1", "%2" replaced.
std::string Tr(std::string_view english, const std::string& first, const std::string& second = "");

// What a calendar's reader reports, in the current language.
std::string Tr(const Message& message);

// The Japanese for an English text; empty: there is none.
std::string_view JapaneseFor(std::string_view english);

} // namespace planner
