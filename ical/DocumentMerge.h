#pragma once

#include "DocumentState.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Events that go from one calendar file into another.
namespace dayvane::ical {

MergeReport MergeInto(DocumentState& state, std::string_view other, std::optional<std::string_view> base);
MergeReport PasteInto(DocumentState& state, std::string_view other, std::optional<LocalTime> start);
std::string ExcerptOf(const DocumentState& state, const std::vector<OccurrenceId>& ids, ExcerptForm form);

} // namespace dayvane::ical
