// Draws the month, week and year views: title band, weekday row, lines, boxes and item bars. Takes what is to be seen
// as values; changes nothing but the picture.
#pragma once

#include "../../core/CalendarColors.h"
#include "../../core/ClipArea.h"
#include "../../core/ThemePaint.h"
#include "BoxParts.h"
#include "BoxTexts.h"
#include "DayGridParts.h"
#include "DayLook.h"

#include <string>
#include <vector>

namespace dayvane {

// Title bands: a number that catches the eye and a text beside it.
struct CaptionLook
{
    TitleBandColors band;
    int numberHeight; // of its font, pixels
    UINT textAlign;   // DT_...
    UINT cut = 0;     // DT_END_ELLIPSIS where texts that are too long end in one
};
struct CaptionTexts
{
    std::u16string number;
    std::u16string text;
};

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
constexpr DayFrameColors kTodayFrame = {0x216FF1, 2, 0xAAD9FF, 0x6FBCFF, 0x3FABFF, 0x7AE0FE, 0x216FF1, 2};
// The frames of the present and of a selected day.
DayFrameColors TodayFrameOf(const CalendarTheme& theme);
DayFrameColors SelectedFrameOf(const CalendarTheme& theme);

constexpr DayFrameColors kSelectedDayFrame = {0xFF7700, 1, 0xFFD1AB, 0xFFAB61, 0xFFB06B, 0xFFCEA4, 0xEAB990, 1};

// One paint of a view into a device context, which must outlive it, as must parts, colours and theme.
class BoxPainter
{
public:
    BoxPainter(CDC& dc, DayGridParts& parts, const CalendarColors& colors, const CalendarTheme& theme = kClassicTheme,
               const ViewScale& scale = {});

    bool IsVisible(const CRect& rect) const; // some of it is to be painted

    void DrawCaption(const CRect& band, const CaptionLook& look, const CaptionTexts& texts,
                     const LOGFONT& itemFont) const;
    void DrawWeekdays(const CRect& band, const MonthCellArray& headerCells, const BoxDayArray& days,
                      const CalendarTexts& texts) const;

    // The border of the calendar, and lines between the boxes at their left edges and tops.
    void DrawLines(const CRect& calendar, const std::vector<int>& lefts, const std::vector<int>& tops) const;
    void DrawBackground(const CRect& box, COLORREF color) const;
    void DrawDayFrame(const DayFrameParts& parts, const DayFrameColors& colors) const;
    void DrawStripTexts(const CRect& strip, const StripTexts& texts) const;
    void DrawDayTexts(const CRect& box, const DayLook& look) const;
    // Whether they show all of their texts.
    bool FitsStripTexts(const CRect& strip, const StripTexts& texts) const;
    bool FitsDayTexts(const CRect& box, const DayLook& look) const;

    void DrawBar(const tagCALENDAR_ITEM& item, const BarParts& parts) const;
    // Centred, or from the left; cut with an ellipsis where it does not fit.
    void DrawBarText(CFont* pFont, const std::u16string& text, const CRect& content, bool centered) const;
    void DrawBarSelection(const CRect& frame) const; // along its edges, the right and bottom ones too
    void DrawMoreMark(const CRect& mark) const;
    void DrawMoreIcon(HICON icon, const CRect& mark) const;
    // One pixel wide, along the inner edges of the rectangle.
    void DrawOutline(const CRect& rect, COLORREF color) const;

private:
    void Fill(const CRect& rect, COLORREF color) const;
    void DrawLinesBySystem(const CRect& calendar, const std::vector<int>& lefts, const std::vector<int>& tops) const;
    // As TextCache::Draw, in that font.
    void DrawLineOfText(CFont* pFont, const std::u16string& text, const CRect& rect, UINT format) const;
    void DrawArrow(int tip, int middle, int direction) const;
    TextWidth WidthIn(CFont* pFont) const;
    StripTextPlaces PlacesOf(const CRect& strip, const StripTexts& texts) const;
    DayTextPlaces PlacesOf(const CRect& box, const DayLook& look) const;

    CDC& m_dc;
    DayGridParts& m_parts;
    const CalendarColors& m_colors;
    const CalendarTheme& m_theme;
    ViewScale m_scale;
    std::shared_ptr<const ClipArea> m_clip;
};

} // namespace dayvane
