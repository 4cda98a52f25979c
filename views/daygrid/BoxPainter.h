// Draws the month view: title band, weekday row, grid and day cells. Takes what is to be seen as values; changes
// nothing but the picture.
#pragma once

#include "../../core/DrawingHelpers.h"
#include "GdiPens.h"
#include "DayLook.h"
#include "TextCache.h"

namespace dayvane {

// Title bands: the month view and its variant.
constexpr TitleBandColors kMonthBand = {0x7BDBFF, 0x1096FF, 0x216DEF};
constexpr TitleBandColors kMonthBand2 = {0x4A79E7, 0x3149D6, 0x1522CD};

// The frame around a marked day and the strips under its number.
struct DayFrameColors
{
    COLORREF outline;
    int outlineWidth; // pixels
    COLORREF upperFrom, upperTo;
    COLORREF lowerFrom, lowerTo;
    COLORREF bottomLine;
    int bottomLineWidth; // pixels
};

// Heights of the strips, pixels; together with the outline and the bottom line they fill the top of the box.
struct DayFrameStrips
{
    int upper;
    int lower;
};
constexpr DayFrameStrips kMonthStrips = {5, 9};

constexpr DayFrameColors kTodayFrame = {0x216FF1, 2, 0xAAD9FF, 0x6FBCFF, 0x3FABFF, 0x7AE0FE, 0x216FF1, 2};
constexpr DayFrameColors kSelectedDayFrame = {0xFF7700, 1, 0xFFD1AB, 0xFFAB61, 0xFFB06B, 0xFFCEA4, 0xEAB990, 1};

// The fonts of the view; they live as long as its window.
class BoxFonts
{
public:
    explicit BoxFonts(int captionNumberHeight = 32) : m_captionNumberHeight(captionNumberHeight) {}

    // Creates what is missing.
    void Create();
    void Delete();

    CFont weekday; // weekday names
    CFont dayNumber;
    CFont smallLatin; // for the printer
    CFont annotation; // holidays, solar terms, the host's text for a day
    TextCache texts;  // in these fonts

    // The fonts of the title band are made from the item font: its face, character set and style.
    CFont* CaptionNumber(const LOGFONT& itemFont);
    CFont* CaptionText(const LOGFONT& itemFont);

private:
    void FollowItemFont(const LOGFONT& itemFont);

    int m_captionNumberHeight;
    LOGFONT m_captionBase = {};
    CFont m_captionNumber;
    CFont m_captionText;
};

void DrawMonthCaption(CDC* pDC, const CRect& band, const COleDateTime& date, const TitleBandColors& colors,
                      COLORREF textColor, const LOGFONT& itemFont, BoxFonts& fonts);

// A title band with a number that catches the eye and a text beside it.
struct CaptionTexts
{
    CString number;
    CString text;
    UINT textAlign; // DT_...
};
void DrawCaptionBand(CDC* pDC, const CRect& band, const CaptionTexts& texts, const TitleBandColors& colors,
                     COLORREF textColor, const LOGFONT& itemFont, BoxFonts& fonts);

void DrawWeekdayHeader(CDC* pDC, const CRect& band, const MonthCellArray& headerCells, const DayInfoArray& dates,
                       CFont* font);

// The border of the calendar and the lines between the cells.
void DrawMonthGrid(CDC* pDC, const CRect& calendar, CSize cellSize, CPen* pen);
void DrawBoxGrid(CDC* pDC, const CRect& calendar, CSize boxSize, int columns, int rows, CPen* pen);

void DrawCellBackground(CDC* pDC, const CRect& cell, COLORREF color);
void DrawDayFrame(CDC* pDC, const CRect& cell, const DayFrameColors& colors, PenSet& pens,
                  const DayFrameStrips& strips = kMonthStrips);

// The texts in the strip on top of a day's or month's box: number and suffix at the left, annotation at the right. A
// number that is too wide loses its month; what follows it is left out where it does not fit.
struct StripTexts
{
    CString number;
    CString suffix;
    COLORREF color;
    CString annotation;
    COLORREF annotationColor;
};
void DrawStripTexts(CDC* pDC, const CRect& strip, const StripTexts& texts, BoxFonts& fonts);

// Day number at the right, annotation to the left of it. A number that is too wide loses its year, then its month.
void DrawCellTexts(CDC* pDC, const CRect& cell, const DayLook& look, BoxFonts& fonts);

} // namespace dayvane
