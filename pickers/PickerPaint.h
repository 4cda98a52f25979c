// What the painters of all date selectors share: colours, fonts, arrows, centred texts.
#pragma once

#include "../core/Fonts.h"
#include "../core/TextSettings.h"
#include "../core/ThemeColors.h"
#include "PeriodPolicy.h"

#include <afxwin.h>

#include <optional>
#include <string>

namespace dayvane {

struct PickerPalette
{
    // From the system's settings
    COLORREF window;
    COLORREF text;
    COLORREF disabledText;
    COLORREF face;
    COLORREF faceText;
    // Own colours, 0x00BBGGRR
    COLORREF paleText = 0xB8B0A8; // days of neighbour months
    COLORREF holiday = 0x2138EF;  // holidays and Sundays
    COLORREF saturday = 0xC8642D;
    COLORREF paleHoliday = 0xC4CBF7;
    COLORREF paleSaturday = 0xE8CDB9;
    COLORREF frame = 0xB99D7F;    // frames and separators
    COLORREF bandFrom = 0xD6865A; // title bands, from the top
    COLORREF bandTo = 0x9C3408;   // to the bottom
    COLORREF bandText = 0xFFFFFF;
    COLORREF bandHot = 0xE8B48C; // ground of a hot arrow or title
    COLORREF bandPressed = 0x6B2405;
    COLORREF selected = 0x94D3FF;
    COLORREF selectedFrame = 0x5292FF;
    COLORREF paleSelected = 0xDBEFFF; // a selected day of a neighbour month
    COLORREF hot = 0xFBEADB;
    COLORREF hotFrame = 0xE6C8A5;
    COLORREF today = 0x2138EF;
    COLORREF weekNumber = 0xA07050;
    COLORREF arrow = 0xB99D7F;                   // in the year-month popup's band, at rest
    COLORREF selectedText = CalendarTheme::kOwn; // kOwn: selected texts keep their colours
};

// A control that cannot be used has all its texts in the colour that says so.
PickerPalette PickerPaletteOf(const CalendarTheme& theme, bool isEnabled = true);

constexpr FontSpec kTextFont{12, FW_NORMAL, SHIFTJIS_CHARSET, "MS UI Gothic"};
constexpr FontSpec kNumberFont{14, FW_NORMAL, ANSI_CHARSET, "Westminster"};
constexpr FontSpec kYearFont{18, FW_BOLD, ANSI_CHARSET, "Westminster"};

// A font and the same in bold: the selectors' own, or one of the host's face.
class PickerFonts
{
public:
    // hostShare: height of the host's font that is taken, per cent.
    explicit PickerFonts(const FontSpec& spec, int hostShare = 100) : m_spec(spec), m_hostShare(hostShare) {}
    CFont* Get(bool bold);
    // font: the host's, for 96 dpi; none: the own one.
    void Show(const ViewScale& scale, const std::optional<LOGFONT>& font);

private:
    FontSpec m_spec;
    int m_hostShare;
    std::optional<LOGFONT> m_hostFont;
    ViewScale m_scale;
    FontCache m_cache;
};

// One line of text in the middle of a rectangle, without background.
void DrawCentredText(CDC* pDC, const CRect& rect, const std::u16string& text, CFont* pFont, COLORREF color);

// A filled triangle of `reach` + 1 lines: its tip at (tip.x, tip.y), its foot `reach` pixels to the right of the tip
// for a left-pointing one, to the left otherwise, and `reach` pixels up and down.
void DrawArrow(CDC* pDC, CPoint tip, int reach, bool pointsLeft, COLORREF color);

// The same pointing down, with its middle at a point.
void DrawDownArrow(CDC* pDC, CPoint middle, int reach, COLORREF color);

// FooterText, without the words before the date where they do not fit.
std::u16string FittingFooter(CDC* pDC, CFont* pFont, int width, CellUnit unit, const COleDateTime& now,
                             const CalendarTexts& texts);
// A rounded box: corners of 3 pixels, a frame of one.
void DrawRoundBox(CDC* pDC, const CRect& rect, COLORREF fill, COLORREF frame);
// The inside edge of a rectangle, one pixel wide.
void DrawFrame(CDC* pDC, const CRect& rect, COLORREF color);
void DrawHorizontalLine(CDC* pDC, int left, int right, int y, COLORREF color);

} // namespace dayvane
