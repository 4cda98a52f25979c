// Draws the time grids: one painter for one day column and for many. Takes what is to be seen as values; changes
// nothing but the picture, and costs nothing for what lies outside the clip region.
#pragma once

#include "../../core/CalendarColors.h"
#include "../../core/ClipArea.h"
#include "../../core/DrawnTexts.h"
#include "../../core/GdiPens.h"
#include "../../core/TextBlocks.h"
#include "../../core/TextCache.h"
#include "../../core/ThemePaint.h"
#include "../../core/Fonts.h"
#include "GridTexts.h"
#include "TimeGridHit.h"
#include "TimeGridLook.h"
#include "ZoneRuler.h"

#include <vector>

namespace dayvane {

// The colours that no setting of the control changes.
struct TimeGridPalette
{
    TitleBandColors dayCaption = {0x8FE8FB, 0x00CFFF, 0x21CBEF};
    COLORREF sunday = 0x0000FF;
    COLORREF saturday = 0xFF0000;
    COLORREF holiday = 0x2138EF;
    COLORREF headerText = 0x330000;
    COLORREF todayFrame = 0x216FF1;
    COLORREF focusFrame = 0xFF7700;
    COLORREF nowLine = 0x2A2AE0;
    COLORREF changedHour = 0xA0E0FF;   // ground in the ruler where the clock is changed
    COLORREF captionShadow = 0x0070B0; // under the light texts of the day view's title band
};
constexpr TimeGridPalette kTimeGridPalette{};

constexpr FontSpec kZerosFont = {15, FW_DONTCARE, ANSI_CHARSET, "Westminster"};
constexpr FontSpec kLabelFont = {12, FW_DONTCARE, SHIFTJIS_CHARSET, "MS UI Gothic"};
constexpr FontSpec kCaptionTextFont = {15, FW_DONTCARE, SHIFTJIS_CHARSET, "MS UI Gothic"};

// Of a title band.
struct CaptionFonts
{
    CFont* date;
    CFont* text;
};

// The fonts of a time grid. They are made when first asked for and live as long as their window; Clear frees them.
class TimeGridFonts
{
public:
    // The hours: the control's own description. The zeros beside them; small texts; the date of the title band, from
    // the control's description for captions.
    CFont* Hours(const LOGFONT& lf) { return m_cache.Get(Scaled(lf, m_scale)); }
    CFont* Zeros() { return m_cache.Get(Scaled(LogFontOf(kZerosFont), m_scale)); }
    CFont* Label() { return m_cache.Get(LabelDescription()); }
    // The same, smaller by what a text of that width goes beyond the room; pixels.
    CFont* LabelWithin(int room, int width);
    CaptionFonts Caption(const LOGFONT& lf);
    void SetScale(const ViewScale& scale) { m_scale = scale; }
    // For labels, for 96 dpi; nullptr: their own.
    void SetText(const LOGFONT* pFont)
    {
        m_hasText = pFont != nullptr;
        m_text = pFont ? *pFont : LOGFONT();
    }
    void Clear() { m_cache.Clear(); }

private:
    LOGFONT LabelDescription() const { return m_hasText ? Scaled(m_text, m_scale) : ScaledText(kLabelFont, m_scale); }

    ViewScale m_scale;
    LOGFONT m_text = {};
    bool m_hasText = false;
    FontCache m_cache;
};

// What a time grid keeps for its painting; everything goes with its window.
struct TimeGridTools
{
    PaintClip clip;
    PenSet pens;
    TextCache texts; // in the fonts of the grid and in those of the items
    TextBlocks blocks;
    DrawnTexts drawn;

    void Clear()
    {
        pens.Clear();
        texts.Clear();
        blocks.Clear();
        drawn.Clear();
    }
};

// One paint of a time grid into a device context, which must outlive it, as must tools, frame, colours and theme.
class TimeGridPainter
{
public:
    TimeGridPainter(CDC& dc, TimeGridTools& tools, const TimeGridState& state, const CalendarColors& colors,
                    const CalendarTheme& theme = kClassicTheme);

    const TimeGridState& State() const { return m_state; }
    bool IsVisible(const CRect& rect) const;
    // Some of the item, or of its marks and icon, which reach so far down, is to be painted.
    bool ShowsTimedItem(const tagCALENDAR_ITEM& item, int marksHeight) const;

    // The line between ruler and grid, which belongs to neither, beside the band and the rows.
    void DrawRulerEdge() const;
    void DrawRuler(const CRect& ruler, CFont* hours, CFont* zeros, const TextSettings& texts) const;
    void DrawFulldayRuler(const CRect& band, TimeGridFonts& fonts, const std::u16string& text) const; // smaller to fit
    // The other zone's clock and date, and the changes of the own clock, over the ruler as it is.
    void DrawZoneHours(const ZoneColumns& columns, const std::vector<ZoneHour>& hours, CFont* label) const;
    void DrawZoneLabels(const ZoneColumns& columns, const ZoneRuler& zones, CFont* label) const;
    // Background, outline, and what is selected of it.
    void DrawFulldayContent(const CRect& band, const std::vector<CRect>& selected) const;

    void DrawGridBackground(const CRect& grid) const;
    // The rows that the clip box shows; a look for each row of VisibleRows, from its first on.
    RowRange VisibleRows() const;
    void DrawRows(const CRect& column, const RowRange& rows, const std::vector<RowLook>& looks) const;
    void DrawSeparators(const CRect& area) const;
    void DrawNowLine(const CRect& column, const ClockTime& now) const;

    void DrawTimedBox(const tagCALENDAR_ITEM& item, const PaintedBox& painted, bool isCurrent) const;
    void DrawBandBar(const tagCALENDAR_ITEM& item, const PaintedBox& painted, bool isCurrent) const;
    // Texts in that font; none where not even a letter has room.
    // A box too narrow for both times, or one line high and too narrow for times and text, shows the text alone when
    // `timesWhereTheyFit` says so.
    void DrawTimedText(const tagCALENDAR_ITEM& item, CFont* font, const CRect& content, bool timesWhereTheyFit,
                       const TextSettings& texts) const;
    void DrawBandText(const tagCALENDAR_ITEM& item, CFont* font, const std::u16string& text,
                      const CRect& content) const;
    bool HasRoomForText(const CRect& content) const; // and it is to be painted
    static bool IsWideEnoughForText(int width, const ViewScale& scale);
    void DrawMoreMark(const CRect& box, const std::u16string& text, CFont* font) const;

    void DrawDayCaption(const CRect& caption, const GridCaptionTexts& texts, int dayOfWeek,
                        const CaptionFonts& fonts) const;
    void DrawDaysCaption(const CRect& caption, const GridCaptionTexts& texts, const CaptionFonts& fonts) const;

    void DrawHeaderBackground(const CRect& header) const;
    void DrawHeaderFrame(const CRect& box, COLORREF frame) const;
    void DrawTodayHeader(const CRect& box, COLORREF todayColor) const;
    void DrawHeaderText(const CRect& box, const HeaderTexts& texts, int form, const ShownDay& day, bool isDayOff,
                        CFont* font) const;

    // Where the texts of a title band and of a header stand.
    GridCaption PlaceCaption(const CRect& caption, const GridCaptionTexts& texts, const CaptionFonts& fonts) const;
    int HeaderForm(const CRect& box, const HeaderTexts& texts, CFont* font) const;
    HeaderPlaces PlaceHeader(const CRect& box, const HeaderTexts& texts, int form, CFont* font) const;

private:
    void HorizontalLine(int left, int right, int y, COLORREF color) const;
    void VerticalLine(int x, int top, int bottom, COLORREF color) const;
    void DrawBoxEdges(const CRect& box, COLORREF color, int thickness, bool left, bool right) const;
    void DrawStripe(const CRect& box, COLORREF color) const;
    void DrawFilledBox(const tagCALENDAR_ITEM& item, const PaintedBox& painted, bool hasStripe, bool isCurrent) const;
    int Px(int pixels) const { return m_state.scale.metrics.scale.Of(pixels); } // from those at 96 dpi
    COLORREF HeaderColor(int dayOfWeek, COLORREF ordinary) const;
    void DrawCaptionPart(const CRect& place, const std::u16string& text, COLORREF color, COLORREF shadow = CLR_NONE,
                         UINT cut = DT_END_ELLIPSIS) const;

    void Fill(CRect rect, COLORREF color) const;     // also of a rectangle the wrong way round
    void FillNext(CRect rect, COLORREF color) const; // right after another one
    void FillBySystem(const CRect& rect, COLORREF color) const;
    // As DrawWideText, in that font; clipped.
    void DrawLineOfText(CFont* font, const std::u16string& text, const CRect& rect, UINT format) const;
    // As TextBlocks::Draw.
    void DrawBlockOfText(CFont* font, const std::u16string& text, const CRect& rect, UINT format) const;

    CDC& m_dc;
    TimeGridTools& m_tools;
    TimeGridState m_state;
    const CalendarColors& m_colors;
    const CalendarTheme& m_theme;
    std::shared_ptr<const ClipArea> m_clip;
};

} // namespace dayvane
