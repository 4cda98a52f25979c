// The pages of a range. BuildPages is what printers and tests call.
#pragma once

#include "PageWriter.h"

#include <vector>

namespace dayvane {

// The pages on sheets of the given size (units of a page, at least 1 each way). Every item of the range is there: once
// for each day it is listed on, once for each row of a bar; what has no room goes on on later sheets, and the place
// that it left names the sheet. Nothing is drawn outside the sheet. At least one page.
std::vector<Page> BuildPages(const PrintSource& source, const PrintRange& range, const PrintOptions& options,
                             CSize paper, const TextMeasurer& measurer);

// One builder for each kind; they add sheets to the writer.
void BuildMonth(PageWriter& writer, const PageContext& context, const PrintRange& range);
void BuildWeek(PageWriter& writer, const PageContext& context, const PrintRange& range);
void BuildYear(PageWriter& writer, const PageContext& context, const PrintRange& range);
void BuildList(PageWriter& writer, const PageContext& context, const PrintRange& range);
void BuildDays(PageWriter& writer, const PageContext& context, const PrintRange& range); // one day too

} // namespace dayvane
