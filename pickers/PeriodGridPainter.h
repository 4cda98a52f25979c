// Paints a mini calendar, and the list that opens over its titles, from layout and state; changes neither.
#pragma once

#include "PeriodGridModel.h"
#include "PeriodRun.h"
#include "PickerPaint.h"

#include <vector>

namespace dayvane {

// What is known about a cell besides its date; asked once per layout, not per paint.
struct CellMark
{
    bool isHoliday = false;
    bool isBold = false;
    COLORREF dot = CLR_NONE; // under the number
};

typedef std::vector<std::vector<CellMark>> CellMarks; // of each block's cells

struct PeriodGridPicture
{
    const PeriodGridModel& model;
    const PeriodGridLayout& layout;
    const CellMarks& marks;
    COleDateTime now;
    bool isFocused;
    bool isEnabled;
    PickerFonts& textFonts;
    PickerFonts& numberFonts;
    const CalendarTheme& theme = kClassicTheme;
    ViewScale scale = {};
    const CalendarTexts& texts = *RequiredTexts();
    bool eraTitles = false;
};

class PeriodGridPainter
{
public:
    PeriodGridPainter(CDC* pDC, const PeriodGridPicture& picture);

    void DrawHeader() const;      // title bands, titles, arrows
    void DrawWeekdays() const;    // nothing without weekday names
    void DrawWeekNumbers() const; // nothing without week numbers
    void DrawCells() const;       // days or months, selection, today, the keyboard's place
    void DrawFooter() const;

private:
    enum class PartState
    {
        Normal,
        Hot,
        Pressed
    };
    PartState StateOf(const GridHit& hit) const;
    void DrawTitle(int block) const;
    void DrawPageArrow(const GridHit& hit, const CRect& rect, bool pointsLeft) const;
    void DrawBandState(PartState state, const CRect& rect) const;
    void DrawCell(const GridHit& hit, const PeriodCell& cell, bool isToday) const;
    void DrawCorner(const CRect& cell, COLORREF color) const;
    void DrawCellBack(const GridHit& hit, const PeriodCell& cell) const;
    COLORREF CellColor(const PeriodCell& cell, const CellMark& mark, int column) const;
    COLORREF DayColor(int weekday, bool isHoliday, bool inPeriod) const;
    CalendarTexts::Weekdays FittingWeekdays(int width) const; // pixels
    std::u16string CellText(const PeriodCell& cell) const;
    std::u16string FittingTitle(const PeriodBlock& block) const;
    int Px(int pixels) const { return m_picture.scale.Of(pixels); } // from those at 96 dpi

    CDC* m_pDC;
    PeriodGridPicture m_picture;
    PickerPalette m_palette;
};

struct PeriodRunPicture
{
    const PeriodPolicy& policy;
    const PeriodRun& run;
    PickerFonts& fonts;
    const CalendarTheme& theme = kClassicTheme;
    const CalendarTexts& texts = *RequiredTexts();
    bool eraTitles = false;
};

class PeriodRunPainter
{
public:
    PeriodRunPainter(CDC* pDC, const PeriodRunPicture& picture);
    void Draw() const; // the given period is bold, the chosen row shaded

private:
    void DrawRow(int row) const;

    CDC* m_pDC;
    PeriodRunPicture m_picture;
    PickerPalette m_palette;
};

} // namespace dayvane
