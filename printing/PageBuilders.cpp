#include "printing/PageBuilders.h"

#include "mfc/base/civil.h"
#include "printing/SectionFlow.h"
#include "printing/TextLines.h"

#include <algorithm>

namespace dayvane {
namespace {

// Smaller sheets are laid out at this size and then made smaller as a whole: fonts have a least size, sheets have none.
constexpr int kLeastPaper = 1200;

int Scaled(int value, int numerator, int denominator)
{
    return static_cast<int>(static_cast<long long>(value) * numerator / denominator);
}

void Scale(CRect& rect, int numerator, int denominator)
{
    rect.SetRect(Scaled(rect.left, numerator, denominator), Scaled(rect.top, numerator, denominator),
                 Scaled(rect.right, numerator, denominator), Scaled(rect.bottom, numerator, denominator));
}

void Scale(Page& page, int numerator, int denominator)
{
    for (PageShape& shape : page.shapes) {
        Scale(shape.rect, numerator, denominator);
        shape.pen = std::max(Scaled(shape.pen, numerator, denominator), 1);
    }
    for (PageImage& image : page.images) {
        Scale(image.rect, numerator, denominator);
    }
    for (PageText& text : page.texts) {
        Scale(text.box, numerator, denominator);
        text.font.size = std::max(Scaled(text.font.size, numerator, denominator), 1);
    }
}

PrintSource Cleaned(const PrintSource& source)
{
    PrintSource cleaned = source;
    for (PrintItem& item : cleaned.items) {
        item.text = OneLine(item.text);
        item.place = OneLine(item.place);
        if (item.text.empty()) {
            item.text.push_back(u'–'); // an item without words is an item all the same
        }
    }
    return cleaned;
}

} // namespace

std::vector<Page> BuildPages(const PrintSource& source, const PrintRange& range, const PrintOptions& options,
                             CSize paper, const TextMeasurer& measurer)
{
    const int shorter = std::max(1, static_cast<int>(std::min(paper.cx, paper.cy)));
    const int least = std::max(shorter, kLeastPaper);
    const CSize layoutPaper(Scaled(std::max<int>(paper.cx, 1), least, shorter),
                            Scaled(std::max<int>(paper.cy, 1), least, shorter));
    const PrintSource cleaned = Cleaned(source);
    const PageContext context(cleaned, options, measurer, layoutPaper);
    PrintRange days = range;
    days.firstDay = std::clamp(range.firstDay, civil::kFirstDay, civil::kLastDay);
    days.lastDay = std::clamp(range.lastDay, days.firstDay, civil::kLastDay);
    PageWriter writer(context);
    switch (range.kind) {
    case PageKind::Day:
    case PageKind::Days:
        BuildDays(writer, context, days);
        break;
    case PageKind::Week:
        BuildWeek(writer, context, days);
        break;
    case PageKind::Month:
        BuildMonth(writer, context, days);
        break;
    case PageKind::Year:
        BuildYear(writer, context, days);
        break;
    case PageKind::List:
        BuildList(writer, context, days);
        break;
    }
    std::vector<Page> pages = writer.Finish();
    if (least > shorter) {
        for (Page& page : pages) {
            Scale(page, shorter, least);
            page.size = paper;
        }
    }
    return pages;
}

void BuildList(PageWriter& writer, const PageContext& context, const PrintRange& range)
{
    std::vector<DaySection> sections;
    const std::vector<int> items = ItemsOf(context.source, range.firstDay, range.lastDay);
    // Days between which nothing is are passed over by the items' own days.
    std::vector<std::vector<int>> itemsOn(static_cast<std::size_t>(range.lastDay - range.firstDay + 1));
    for (const int i : items) {
        const PrintItem& item = context.source.items[i];
        for (int day = std::max(item.firstDay, range.firstDay); day <= std::min(item.lastDay, range.lastDay); ++day) {
            itemsOn[static_cast<std::size_t>(day - range.firstDay)].push_back(i);
        }
    }
    for (int day = range.firstDay; day <= range.lastDay; ++day) {
        const std::vector<int>& here = itemsOn[static_cast<std::size_t>(day - range.firstDay)];
        if (here.empty() && !context.options.emptyDays) {
            continue;
        }
        sections.push_back(SectionOf(context, day));
        sections.back().pieces = PiecesOfDay(context.source, here, day);
        if (here.empty()) {
            sections.back().emptyText = context.texts.NoItems();
        }
    }
    FlowLook look;
    look.columns = ColumnsFor(context, context.paper.cx);
    look.heading.title = context.texts.DateSpan(range.firstDay, range.lastDay);
    if (FirstOfMonth(range.firstDay) == FirstOfMonth(range.lastDay) &&
        FirstOfMonthAfter(range.firstDay, 1) == range.lastDay + 1 && FirstOfMonth(range.firstDay) == range.firstDay) {
        look.heading.title = context.texts.Month(range.firstDay);
    }
    look.heading.firstDay = range.firstDay;
    look.heading.lastDay = range.lastDay;
    look.heading.months = {FirstOfMonth(range.firstDay), FirstOfMonthAfter(range.firstDay, 1)};
    look.laterTitle = look.heading.title;
    look.laterTitle += context.texts.Continued();
    if (sections.empty()) {
        const CRect body = writer.BeginSheet(look.heading);
        writer.Text({CRect(body.left, body.top, body.right, body.top + context.style.body.LineHeight()),
                     context.style.body, context.style.muted},
                    context.texts.NoItems());
        return;
    }
    FlowSections(writer, context, look, sections);
}

} // namespace dayvane
