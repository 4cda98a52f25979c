// Makes the sheets of one print job: title and small months on top, footer, and between them the body that a page
// builder fills.
#pragma once

#include "Page.h"
#include "PageStyle.h"
#include "PrintSource.h"
#include "PrintTexts.h"

#include <vector>

namespace dayvane {

// What every page builder works with.
struct PageContext
{
    PageContext(const PrintSource& source, const PrintOptions& options, const TextMeasurer& measurer, CSize paper);

    int WidthOf(const PageFont& font, const std::u16string& text) const { return measurer.WidthOf(font, text); }

    const PrintSource& source;
    const PrintOptions& options;
    const TextMeasurer& measurer;
    PrintTexts texts;
    CSize paper;
    PageStyle style;
};

struct SheetHeading
{
    std::u16string title;
    std::u16string subtitle;
    COLORREF subtitleColor = 0x505050;
    int firstDay = 0; // what the sheet shows
    int lastDay = 0;
    std::vector<int> months; // small months, each by its first day; where there is less room the first ones go
};

// A text's place and look but for its words.
struct TextSpot
{
    CRect room; // the line is centred in its height; what is too wide is cut with an ellipsis
    PageFont font;
    COLORREF color = 0;
    PageRole role = PageRole::Label;
    PageAlign align = PageAlign::Left;
    int item = -1;
    int day = 0;
};

class PageWriter
{
public:
    explicit PageWriter(const PageContext& context) : m_context(context) {}

    // Adds a sheet; what follows is drawn on it. Returns the area that is left for the body.
    CRect BeginSheet(const SheetHeading& heading);
    int PageCount() const { return static_cast<int>(m_pages.size()); }

    void Fill(const CRect& rect, COLORREF color);
    void Frame(const CRect& rect, COLORREF color, int pen);
    void HorzLine(int left, int right, int y, COLORREF color, int pen);
    void VertLine(int x, int top, int bottom, COLORREF color, int pen);
    void Symbol(PageShape::Kind kind, const CRect& rect, COLORREF color);
    void Image(const CRect& rect, int image, COLORREF background);
    void Text(const TextSpot& spot, const std::u16string& text);
    // The same with a moon before the text, by its elongation in degrees; negative: none.
    void Sky(const TextSpot& spot, const std::u16string& text, double moon);
    // A line that is known to fit, with its top left corner.
    void Line(CPoint at, int width, const TextSpot& spot, const std::u16string& text);

    // A text whose words are known only later (the number of the sheet on which something goes on).
    struct Later
    {
        int page;
        std::size_t text;
    };
    Later TextLater(const TextSpot& spot);
    void SetLater(const Later& later, const std::u16string& text);

    // A small month in the rectangle: name, weekdays, six weeks.
    struct DayMark
    {
        bool isFilled = false;
        COLORREF fill = 0;
        bool hasDot = false;
    };
    struct SmallMonthLook
    {
        PageFont name;
        PageFont number;
        std::function<DayMark(int)> markOf; // none: no marks
    };
    void SmallMonth(const CRect& rect, int firstDay, const SmallMonthLook& look);

    // Writes the footers and hands over the sheets.
    std::vector<Page> Finish();

private:
    CRect Content() const;
    std::vector<std::u16string> SubtitleLines(const CRect& area, const SheetHeading& heading) const;
    void DrawTitle(const CRect& area, const SheetHeading& heading);
    int DrawSmallMonths(const CRect& area, const SheetHeading& heading);
    int FooterHeight() const;
    Page& Current() { return m_pages.back(); }
    COLORREF Ink(COLORREF color) const { return m_context.options.inColor ? color : GreyOf(color); }

    const PageContext& m_context;
    std::vector<Page> m_pages;
};

// The first day of the month that the day lies in, and of the month so many months later (both day numbers).
int FirstOfMonth(int day);
int FirstOfMonthAfter(int day, int months);

} // namespace dayvane
