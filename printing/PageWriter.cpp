#include "printing/PageWriter.h"

#include "core/DateMath.h"
#include "mfc/base/civil.h"
#include "printing/TextLines.h"

#include <algorithm>

namespace dayvane {
namespace {

constexpr int kWeekdays = 7;
constexpr int kWeeksOfMonth = 6;
constexpr int kSmallMonthRows = kWeeksOfMonth + 2; // name and weekdays
constexpr int kFewDays = 15;
constexpr int kLargestMarginShare = 8;        // a margin takes at most this part of the sheet
constexpr int kLargestHeaderShare = 5;        // the small months at most this part of the height
constexpr int kSmallMonthWidthPercent = 1050; // of a number's line height
constexpr int kMoonPercent = 72;              // of a line's height
constexpr char16_t kWideBlank = u'\x3000';    // between the parts of a subtitle
constexpr int kDotShare = 7;                  // of a cell's height

} // namespace

int FirstOfMonth(int day)
{
    return FirstOfMonthAfter(day, 0);
}

int FirstOfMonthAfter(int day, int months)
{
    int year = 0, month = 0, dayOfMonth = 0;
    civil::FromDayNumber(day, year, month, dayOfMonth);
    const int count = year * kMonthsPerYear + month - 1 + months;
    const int result = civil::DayNumber(YearOfMonthNumber(count), MonthOfMonthNumber(count), 1);
    return std::clamp(result, civil::kFirstDay, civil::kLastDay);
}

PageContext::PageContext(const PrintSource& source_, const PrintOptions& options_, const TextMeasurer& measurer_,
                         CSize paper_)
    : source(source_), options(options_), measurer(measurer_), texts(TextsFor(options_, source_.texts)), paper(paper_),
      style(StyleFor(options_, paper_))
{
}

// ---- Sheets

CRect PageWriter::Content() const
{
    const PrintOptions& options = m_context.options;
    const CSize paper = m_context.paper;
    const auto margin = [](int millimetres, int extent) {
        return std::clamp(millimetres * kUnitsPerMillimetre, 0, extent / kLargestMarginShare);
    };
    return CRect(margin(options.marginLeft, paper.cx), margin(options.marginTop, paper.cy),
                 paper.cx - margin(options.marginRight, paper.cx), paper.cy - margin(options.marginBottom, paper.cy));
}

int PageWriter::FooterHeight() const
{
    const PrintOptions& options = m_context.options;
    const bool hasFooter = options.pageNumbers || options.datePrinted || !options.footerText.empty();
    return hasFooter ? m_context.style.footer.LineHeight() + m_context.style.pad : 0;
}

CRect PageWriter::BeginSheet(const SheetHeading& heading)
{
    const PageStyle& style = m_context.style;
    m_pages.emplace_back();
    Current().size = m_context.paper;
    CRect body = Content();
    body.bottom -= FooterHeight();
    const int titleHeight = style.title.LineHeight() + style.subtitle.LineHeight();
    int header = m_context.options.showTitle ? titleHeight : 0;
    const int monthsHeight = kSmallMonthRows * style.mini.LineHeight();
    const bool showsMonths = m_context.options.headerMonths > 0 && !heading.months.empty() &&
                             monthsHeight <= body.Height() / kLargestHeaderShare;
    CRect area = body;
    if (showsMonths) {
        header = std::max(header, monthsHeight);
        area.right = DrawSmallMonths(area, heading) - style.gap;
    }
    area.bottom = area.top + header;
    if (m_context.options.showTitle) {
        DrawTitle(area, heading);
    }
    body.top += header > 0 ? header + style.pad * 2 : 0;
    return body;
}

// What stands below the title: one line, or two where all of it does not fit and the header has the room. Lines break
// between the parts, which wide blanks separate.
std::vector<std::u16string> PageWriter::SubtitleLines(const CRect& area, const SheetHeading& heading) const
{
    const PageStyle& style = m_context.style;
    const PrintSource& source = m_context.source;
    std::u16string all = heading.subtitle;
    const bool hasDays = source.titleNote && heading.lastDay >= heading.firstDay && heading.lastDay != 0;
    for (const std::u16string& part :
         {hasDays ? source.titleNote(heading.firstDay, heading.lastDay) : std::u16string(), source.title}) {
        if (!part.empty()) {
            all += all.empty() ? std::u16string() : std::u16string(1, kWideBlank);
            all += part;
        }
    }
    const bool hasRoom = area.Height() >= style.title.LineHeight() + 2 * style.subtitle.LineHeight();
    if (!hasRoom || m_context.WidthOf(style.subtitle, all) <= area.Width()) {
        return {all};
    }
    std::size_t end = all.rfind(kWideBlank);
    while (end != std::u16string::npos && end > 0 &&
           m_context.WidthOf(style.subtitle, all.substr(0, end)) > area.Width()) {
        end = all.rfind(kWideBlank, end - 1);
    }
    if (end == std::u16string::npos || end == 0) {
        return {all};
    }
    return {all.substr(0, end), all.substr(end + 1)};
}

void PageWriter::DrawTitle(const CRect& area, const SheetHeading& heading)
{
    const PageStyle& style = m_context.style;
    const std::vector<std::u16string> subtitles = SubtitleLines(area, heading);
    CRect line = area;
    line.top =
        area.bottom - style.title.LineHeight() - static_cast<int>(subtitles.size()) * style.subtitle.LineHeight();
    line.bottom = line.top + style.title.LineHeight();
    // A title that is too wide becomes smaller rather than cut.
    PageFont font = style.title;
    const int width = m_context.WidthOf(font, heading.title);
    if (width > line.Width()) {
        font.size = std::max(font.size * line.Width() / (width + 1), style.body.size);
    }
    Text({line, font, style.text, PageRole::Title}, heading.title);
    for (const std::u16string& subtitle : subtitles) {
        line.top = line.bottom;
        line.bottom = line.top + style.subtitle.LineHeight();
        Text({line, style.subtitle, heading.subtitleColor, PageRole::Title}, subtitle);
    }
}

// At the right of the area; returns where they begin.
int PageWriter::DrawSmallMonths(const CRect& area, const SheetHeading& heading)
{
    const PageStyle& style = m_context.style;
    const int width = style.mini.LineHeight() * kSmallMonthWidthPercent / 100;
    const int titleRoom = m_context.options.showTitle ? m_context.WidthOf(style.title, heading.title) : 0;
    const int offered = static_cast<int>(heading.months.size());
    int count = std::clamp(m_context.options.headerMonths, 1, offered);
    while (count > 0 && titleRoom + count * (width + style.gap) > area.Width()) {
        --count;
    }
    const PageFont name = {PageFace::Text, style.mini.size, true, false};
    // The days that the sheet shows, but for whole months.
    const bool marksDays = heading.firstDay != 0 && heading.lastDay - heading.firstDay < kFewDays;
    const auto markOf = [&](int day) {
        return DayMark{marksDays && day >= heading.firstDay && day <= heading.lastDay, style.headingFill, false};
    };
    int left = area.right - count * width - std::max(count - 1, 0) * style.gap;
    const int result = left;
    for (int i = 0; i < count; ++i, left += width + style.gap) {
        SmallMonth(CRect(left, area.top, left + width, area.top + kSmallMonthRows * style.mini.LineHeight()),
                   heading.months[offered - count + i], {name, style.mini, markOf});
    }
    return result;
}

std::vector<Page> PageWriter::Finish()
{
    const PageStyle& style = m_context.style;
    const PrintOptions& options = m_context.options;
    const int pages = PageCount();
    std::vector<Page> all;
    all.swap(m_pages);
    if (FooterHeight() == 0) {
        return all;
    }
    for (int number = 1; number <= pages; ++number) {
        m_pages.push_back(std::move(all[number - 1])); // so that it is the current one
        CRect line = Content();
        line.top = line.bottom - style.footer.LineHeight();
        const int third = line.Width() / 3;
        const TextSpot spot = {line, style.footer, style.muted, PageRole::Footer};
        TextSpot left = spot, middle = spot, right = spot;
        left.room.right = left.room.left + third;
        middle.room.left = left.room.right;
        middle.room.right = right.room.left = line.right - third;
        middle.align = PageAlign::Center;
        right.align = PageAlign::Right;
        Text(left, options.footerText);
        Text(middle, options.pageNumbers ? m_context.texts.PageOf(number, pages) : std::u16string());
        Text(right, options.datePrinted && m_context.source.today != 0 ? m_context.texts.Printed(m_context.source.today)
                                                                       : std::u16string());
    }
    all.swap(m_pages);
    m_pages.clear();
    return all;
}

// ---- Drawing

void PageWriter::Fill(const CRect& rect, COLORREF color)
{
    Current().shapes.push_back({PageShape::Fill, rect, Ink(color), 0, 0});
}

void PageWriter::Frame(const CRect& rect, COLORREF color, int pen)
{
    Current().shapes.push_back({PageShape::Frame, rect, Ink(color), pen, 0});
}

void PageWriter::HorzLine(int left, int right, int y, COLORREF color, int pen)
{
    Current().shapes.push_back({PageShape::Line, CRect(left, y, right, y), Ink(color), pen, 0});
}

void PageWriter::VertLine(int x, int top, int bottom, COLORREF color, int pen)
{
    Current().shapes.push_back({PageShape::Line, CRect(x, top, x, bottom), Ink(color), pen, 0});
}

void PageWriter::Symbol(PageShape::Kind kind, const CRect& rect, COLORREF color)
{
    Current().shapes.push_back({kind, rect, Ink(color), m_context.style.thinLine, 0});
}

void PageWriter::Image(const CRect& rect, int image, COLORREF background)
{
    Current().images.push_back({rect, image, Ink(background)});
}

void PageWriter::Text(const TextSpot& spot, const std::u16string& text)
{
    if (text.empty() || spot.room.Width() <= 0) {
        return;
    }
    const TextLine line = CutText(text, spot.font, spot.room.Width(), m_context.measurer);
    if (line.text.empty()) {
        return;
    }
    CRect box = spot.room;
    box.top += (spot.room.Height() - spot.font.LineHeight()) / 2;
    box.bottom = box.top + spot.font.LineHeight();
    Current().texts.push_back({box, line.text, spot.font, spot.align, Ink(spot.color), spot.role, spot.item, spot.day});
}

void PageWriter::Sky(const TextSpot& spot, const std::u16string& text, double moon)
{
    const int size = spot.font.LineHeight() * kMoonPercent / 100;
    const int before = size + size / 2;
    if (moon < 0 || spot.room.Width() < before) {
        Text(spot, text);
        return;
    }
    TextSpot words = spot;
    const int width = std::min<int>(m_context.WidthOf(spot.font, text), spot.room.Width() - before);
    const int free = spot.room.Width() - before - width;
    words.room.left += before + (spot.align == PageAlign::Right    ? free
                                 : spot.align == PageAlign::Center ? free / 2
                                                                   : 0);
    words.room.right = words.room.left + width;
    words.align = PageAlign::Left;
    CRect disc(CPoint(words.room.left - before, (spot.room.top + spot.room.bottom - size) / 2), CSize(size, size));
    if (text.empty()) {
        disc += CPoint(spot.align == PageAlign::Right ? size / 2 : 0, 0);
    }
    Symbol(PageShape::Moon, disc, spot.color);
    Current().shapes.back().phase = static_cast<int>(moon + 0.5);
    Text(words, text);
}

void PageWriter::Line(CPoint at, int width, const TextSpot& spot, const std::u16string& text)
{
    const CRect box(at.x, at.y, at.x + width, at.y + spot.font.LineHeight());
    Current().texts.push_back({box, text, spot.font, spot.align, Ink(spot.color), spot.role, spot.item, spot.day});
}

PageWriter::Later PageWriter::TextLater(const TextSpot& spot)
{
    Text(spot, u" ");
    return {PageCount() - 1, Current().texts.size() - 1};
}

void PageWriter::SetLater(const Later& later, const std::u16string& text)
{
    PageText& run = m_pages[later.page].texts[later.text];
    run.text = CutText(text, run.font, run.box.Width(), m_context.measurer).text;
}

// ---- Small months

void PageWriter::SmallMonth(const CRect& rect, int firstDay, const SmallMonthLook& look)
{
    const PageStyle& style = m_context.style;
    const PrintTexts& texts = m_context.texts;
    const auto rowTop = [&](int row) { return rect.top + rect.Height() * row / kSmallMonthRows; };
    const auto columnLeft = [&](int column) { return rect.left + rect.Width() * column / kWeekdays; };
    const auto cell = [&](int row, int column) {
        return CRect(columnLeft(column), rowTop(row), columnLeft(column + 1), rowTop(row + 1));
    };
    Text({CRect(rect.left, rect.top, rect.right, rowTop(1)), look.name, style.text, PageRole::Label, PageAlign::Center},
         texts.Month(firstDay));
    const int firstWeekday = m_context.source.firstDayOfWeek;
    PageFont weekdayFont = look.name;
    weekdayFont.bold = false;
    for (int column = 0; column < kWeekdays; ++column) {
        const int weekday = (firstWeekday - 1 + column) % kWeekdays + 1;
        Text({cell(1, column), weekdayFont, style.DayColor(weekday, false), PageRole::Label, PageAlign::Center},
             texts.TinyWeekday(weekday));
    }
    const int days = FirstOfMonthAfter(firstDay, 1) - firstDay;
    const int offset = (civil::DayOfWeek(firstDay) - firstWeekday + kWeekdays) % kWeekdays;
    for (int i = 0; i < days; ++i) {
        const int number = firstDay + i;
        const CRect box = cell(2 + (offset + i) / kWeekdays, (offset + i) % kWeekdays);
        const DayMark mark = look.markOf ? look.markOf(number) : DayMark();
        if (mark.isFilled) {
            Fill(box, mark.fill);
        }
        if (mark.hasDot) {
            const int size = std::max<int>(box.Height() / kDotShare, 1);
            const int left = (box.left + box.right - size) / 2;
            Fill(CRect(left, box.bottom - size, left + size, box.bottom), style.rule);
        }
        const bool isDayOff = m_context.options.showHolidays && m_context.source.FactsOf(number).isDayOff;
        TextSpot spot = {box, look.number, style.DayColor(civil::DayOfWeek(number), isDayOff), PageRole::Label,
                         PageAlign::Center};
        Text(spot, PrintTexts::Number(i + 1));
    }
}

} // namespace dayvane
