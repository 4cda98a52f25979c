#include "views/daygrid/BoxPainter.h"

#include "core/DateMath.h"

#include <cstring>

namespace dayvane {
namespace {

// Pixels.
struct MonthPaintMetrics
{
    int captionInset = 5;
    int captionTextHeight = 18; // font
    int frameInset = 1;         // from the cell to the frame of a marked day
    int numberRight = 5;        // from the day number to the cell's right edge
    int numberTop = 1;
    int annotationTop = 3; // from the cell's top
    int annotationHeight = 13;
    int annotationLeft = 4;
    int annotationGap = 4;       // to the day number
    int annotationMinWidth = 20; // a narrower one would be nothing but an ellipsis
    int stripInset = 5;          // from the sides of a box's strip to its texts
    int suffixGap = 2;           // between number and suffix
};
constexpr MonthPaintMetrics kPaintMetrics;

struct WeekdayLook
{
    const char* name;
    COLORREF color;
};
constexpr int kCharacterLength = 2; // bytes
constexpr int kNameLength = 3 * kCharacterLength;
constexpr WeekdayLook kWeekdays[kMonthColumns] = {
    // name, text colour
    {"日曜日", 0x0049DC}, {"月曜日", 0x000000}, {"火曜日", 0x000000}, {"水曜日", 0x000000},
    {"木曜日", 0x000000}, {"金曜日", 0x000000}, {"土曜日", 0xDC4900},
};

struct FontForm
{
    int height;
    int weight;
    BYTE charSet;
    const char* face;
};
constexpr FontForm kWeekdayFont = {12, FW_DONTCARE, SHIFTJIS_CHARSET, "MS UI Gothic"};
constexpr FontForm kDayNumberFont = {16, FW_BOLD, ANSI_CHARSET, "Arial"};
constexpr FontForm kSmallLatinFont = {12, FW_DONTCARE, ANSI_CHARSET, "Arial"};
constexpr FontForm kAnnotationFont = {12, FW_DONTCARE, SHIFTJIS_CHARSET, "MS UI Gothic"};

void CreateFont(CFont& font, const FontForm& form)
{
    if (font.GetSafeHandle()) {
        return;
    }
    LOGFONT lf = {};
    lf.lfHeight = form.height;
    lf.lfWeight = form.weight;
    lf.lfCharSet = form.charSet;
    lstrcpyn(lf.lfFaceName, form.face, LF_FACESIZE);
    font.CreateFontIndirect(&lf);
}

// In a narrow cell the year goes first and then the month: a number whose front is cut off tells another date.
CString FittingDayNumber(CDC* pDC, BoxFonts& fonts, CString text, int width)
{
    int slash = text.Find('/');
    while (slash != -1 && fonts.texts.WidthOf(pDC, &fonts.dayNumber, text) > width) {
        text = text.Mid(slash + 1);
        slash = text.Find('/');
    }
    return text;
}

} // namespace

// ---- Fonts

void BoxFonts::Create()
{
    CreateFont(weekday, kWeekdayFont);
    CreateFont(dayNumber, kDayNumberFont);
    CreateFont(smallLatin, kSmallLatinFont);
    CreateFont(annotation, kAnnotationFont);
}

void BoxFonts::Delete()
{
    for (CFont* font : {&weekday, &dayNumber, &smallLatin, &annotation, &m_captionNumber, &m_captionText}) {
        font->DeleteObject();
    }
    texts.Clear();
}

CFont* BoxFonts::CaptionNumber(const LOGFONT& itemFont)
{
    FollowItemFont(itemFont);
    return &m_captionNumber;
}

CFont* BoxFonts::CaptionText(const LOGFONT& itemFont)
{
    FollowItemFont(itemFont);
    return &m_captionText;
}

void BoxFonts::FollowItemFont(const LOGFONT& itemFont)
{
    if (m_captionNumber.GetSafeHandle() && std::memcmp(&m_captionBase, &itemFont, sizeof(itemFont)) == 0) {
        return;
    }
    m_captionBase = itemFont;
    m_captionNumber.DeleteObject();
    m_captionText.DeleteObject();
    LOGFONT lf = itemFont;
    lf.lfHeight = kPaintMetrics.captionTextHeight;
    m_captionText.CreateFontIndirect(&lf);
    lf.lfHeight = m_captionNumberHeight;
    lf.lfWeight = FW_BOLD;
    m_captionNumber.CreateFontIndirect(&lf);
}

// ---- Bands

void DrawMonthCaption(CDC* pDC, const CRect& band, const COleDateTime& date, const TitleBandColors& colors,
                      COLORREF textColor, const LOGFONT& itemFont, BoxFonts& fonts)
{
    CaptionTexts texts = {"", "", DT_BOTTOM};
    if (IsValid(date)) {
        texts.number.Format("%d", date.GetMonth());
        texts.text = " " + date.Format("%B, %Y") + " ";
    }
    DrawCaptionBand(pDC, band, texts, colors, textColor, itemFont, fonts);
}

void DrawCaptionBand(CDC* pDC, const CRect& band, const CaptionTexts& texts, const TitleBandColors& colors,
                     COLORREF textColor, const LOGFONT& itemFont, BoxFonts& fonts)
{
    DrawTitleBand(pDC, band, colors);
    if (band.IsRectEmpty()) {
        return;
    }
    pDC->SetTextColor(textColor);
    CRect text = band;
    text.DeflateRect(kPaintMetrics.captionInset, kPaintMetrics.captionInset);
    {
        const SelectGdi selectFont(pDC, fonts.CaptionNumber(itemFont));
        pDC->DrawText(texts.number, &text, DT_SINGLELINE | DT_VCENTER | DT_NOCLIP | DT_NOPREFIX);
        text.left += pDC->GetTextExtent(texts.number).cx;
    }
    const SelectGdi selectFont(pDC, fonts.CaptionText(itemFont));
    pDC->DrawText(texts.text, &text, DT_SINGLELINE | DT_NOPREFIX | texts.textAlign);
}

void DrawWeekdayHeader(CDC* pDC, const CRect& band, const MonthCellArray& headerCells, const DayInfoArray& dates,
                       CFont* font)
{
    DrawHeaderBand(pDC, band, kHeaderBand);
    const SelectGdi selectFont(pDC, font);
    // All names are of one width; where they do not fit, the first character tells the day.
    const bool isShort = headerCells[0].m_rect.Width() < pDC->GetTextExtent(kWeekdays[0].name, kNameLength).cx;
    for (int column = 0; column < kMonthColumns; ++column) {
        const int dayOfWeek = dates[column].m_date.GetDayOfWeek();
        if (dayOfWeek < 1) {
            continue;
        }
        const WeekdayLook& weekday = kWeekdays[dayOfWeek - 1];
        CRect box = headerCells[column].m_rect;
        pDC->SetTextColor(weekday.color);
        pDC->DrawText(weekday.name, isShort ? kCharacterLength : kNameLength, &box,
                      DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    }
}

// ---- Grid and cells

void DrawMonthGrid(CDC* pDC, const CRect& calendar, CSize cellSize, CPen* pen)
{
    DrawBoxGrid(pDC, calendar, cellSize, kMonthColumns, kMonthRows, pen);
}

void DrawBoxGrid(CDC* pDC, const CRect& calendar, CSize boxSize, int columns, int rows, CPen* pen)
{
    const SelectGdi selectPen(pDC, pen);
    pDC->Rectangle(&calendar);
    for (int column = 0; column < columns; ++column) {
        const int x = column * boxSize.cx;
        pDC->MoveTo(x, calendar.top);
        pDC->LineTo(x, calendar.bottom);
    }
    for (int row = 0; row < rows; ++row) {
        const int y = calendar.top + row * boxSize.cy;
        pDC->MoveTo(calendar.left, y);
        pDC->LineTo(calendar.right, y);
    }
}

void DrawCellBackground(CDC* pDC, const CRect& cell, COLORREF color)
{
    const CRect inner(cell.left + 1, cell.top + 1, cell.right, cell.bottom);
    if (!inner.IsRectEmpty()) {
        pDC->FillSolidRect(&inner, color);
    }
}

void DrawDayFrame(CDC* pDC, const CRect& cell, const DayFrameColors& colors, PenSet& pens, const DayFrameStrips& strips)
{
    CRect frame = cell;
    frame.DeflateRect(kPaintMetrics.frameInset, kPaintMetrics.frameInset);
    if (frame.IsRectEmpty()) {
        return;
    }
    CRect upper(frame.left + 1, frame.top + 1, frame.right, frame.top + 1 + strips.upper);
    CRect lower(upper.left, upper.bottom, upper.right, upper.bottom + strips.lower);
    const int lineY = lower.bottom;
    if (upper.IntersectRect(&upper, &frame)) {
        DrawGradient(pDC, upper, colors.upperFrom, colors.upperTo, FALSE, TRUE);
    }
    if (lower.IntersectRect(&lower, &frame)) {
        DrawGradient(pDC, lower, colors.lowerFrom, colors.lowerTo, FALSE, TRUE);
    }
    if (lineY < frame.bottom) {
        const SelectGdi selectPen(pDC, pens.Solid(colors.bottomLineWidth, colors.bottomLine));
        pDC->MoveTo(frame.left, lineY);
        pDC->LineTo(frame.right, lineY);
    }
    const SelectGdi selectPen(pDC, pens.Solid(colors.outlineWidth, colors.outline));
    pDC->MoveTo(frame.left, frame.top);
    pDC->LineTo(frame.left, frame.bottom);
    pDC->LineTo(frame.right, frame.bottom);
    pDC->LineTo(frame.right, frame.top);
    pDC->LineTo(frame.left, frame.top);
}

void DrawStripTexts(CDC* pDC, const CRect& strip, const StripTexts& texts, BoxFonts& fonts)
{
    TextCache& cache = fonts.texts;
    CRect rest = strip;
    rest.DeflateRect(kPaintMetrics.stripInset, 0);
    pDC->SetTextColor(texts.color);
    {
        const SelectGdi selectNumber(pDC, &fonts.dayNumber);
        const CString number = FittingDayNumber(pDC, fonts, texts.number, rest.Width());
        const int numberWidth = cache.WidthOf(pDC, &fonts.dayNumber, number);
        if (numberWidth > rest.Width()) {
            rest = strip; // "10" would lose a digit
        }
        cache.Draw(pDC, &fonts.dayNumber, number, rest, DT_LEFT | DT_VCENTER);
        rest.left += numberWidth + kPaintMetrics.suffixGap;
    }
    const SelectGdi selectFont(pDC, &fonts.annotation);
    const int suffixWidth = cache.WidthOf(pDC, &fonts.annotation, texts.suffix);
    if (suffixWidth > rest.Width()) {
        return;
    }
    cache.Draw(pDC, &fonts.annotation, texts.suffix, rest, DT_LEFT | DT_VCENTER);
    rest.left += suffixWidth + kPaintMetrics.annotationGap;
    if (rest.Width() < kPaintMetrics.annotationMinWidth) {
        return;
    }
    pDC->SetTextColor(texts.annotationColor);
    cache.Draw(pDC, &fonts.annotation, texts.annotation, rest, DT_RIGHT | DT_VCENTER | DT_END_ELLIPSIS);
}

void DrawCellTexts(CDC* pDC, const CRect& cell, const DayLook& look, BoxFonts& fonts)
{
    TextCache& cache = fonts.texts;
    CRect number = cell;
    number.top += kPaintMetrics.numberTop;
    number.right -= kPaintMetrics.numberRight;
    const SelectGdi selectNumber(pDC, &fonts.dayNumber);
    pDC->SetTextColor(look.dayNumberColor);
    const CString dayNumber = FittingDayNumber(pDC, fonts, look.dayNumber, number.Width());
    cache.Draw(pDC, &fonts.dayNumber, dayNumber, number, DT_RIGHT | DT_TOP);
    if (look.annotation.IsEmpty()) {
        return;
    }
    CRect annotation = cell;
    annotation.left += kPaintMetrics.annotationLeft;
    annotation.top += kPaintMetrics.annotationTop;
    annotation.bottom = annotation.top + kPaintMetrics.annotationHeight;
    annotation.right = number.right - cache.WidthOf(pDC, &fonts.dayNumber, dayNumber) - kPaintMetrics.annotationGap;
    if (annotation.Width() < kPaintMetrics.annotationMinWidth) {
        return;
    }
    const SelectGdi selectFont(pDC, &fonts.annotation);
    pDC->SetTextColor(look.annotationColor);
    cache.Draw(pDC, &fonts.annotation, look.annotation, annotation, DT_LEFT | DT_TOP | DT_END_ELLIPSIS);
}

} // namespace dayvane
