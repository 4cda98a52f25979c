#include "pickers/PeriodGridPainter.h"

#include "core/DrawingHelpers.h"
#include "core/WideText.h"

#include <algorithm>

namespace dayvane {
namespace {
// Weekdays with a colour of their own: Sunday, as the holidays, and Saturday.
constexpr int kRedWeekday = 1;
constexpr int kBlueWeekday = 7;

struct GridPaintMetrics // pixels
{
    int arrowReach;   // of a page arrow, up and down from its middle
    int pressedShift; // of an arrow that is held down
    int lineInset;    // of the separators from the sides
    int weekdayGap;   // from the weekday names' box to the line below them
    SIZE cellInset;   // of selection and frames within a month's cell
    int hotInset;     // of the shade under a hot title or arrow
    SIZE dot;         // of a host's mark, at the middle of the cell's bottom
    int corner;       // side of the mark of a day off
};
constexpr GridPaintMetrics kMetrics{5, 1, 4, 2, {1, 1}, 1, {6, 2}, 4};
constexpr int kRunShadeInset = 1; // pixels, of the chosen row's shade in a list

// What all names begin with tells no day from another, as in Chinese.
void DropCommonBeginning(CalendarTexts::Weekdays& names)
{
    const auto beginAlike = [&names] {
        return std::all_of(names.begin(), names.end(),
                           [&names](const std::u16string& name) { return name.size() > 1 && name[0] == names[0][0]; });
    };
    while (beginAlike()) {
        for (std::u16string& name : names) {
            name.erase(0, 1);
        }
    }
}
} // namespace

PeriodGridPainter::PeriodGridPainter(CDC* pDC, const PeriodGridPicture& picture)
    : m_pDC(pDC), m_picture(picture), m_palette(PickerPaletteOf(picture.theme, picture.isEnabled))
{
}

PeriodGridPainter::PartState PeriodGridPainter::StateOf(const GridHit& hit) const
{
    const PeriodGridModel& model = m_picture.model;
    if (!m_picture.isEnabled) {
        return PartState::Normal;
    }
    if (model.Pressed() == hit) {
        return PartState::Pressed;
    }
    return model.GetMode() == PeriodGridModel::Mode::Idle && model.Hot() == hit ? PartState::Hot : PartState::Normal;
}

void PeriodGridPainter::DrawHeader() const
{
    for (size_t i = 0; i < m_picture.layout.blocks.size(); ++i) {
        DrawTitle(static_cast<int>(i));
    }
    DrawPageArrow({GridPart::LeftArrow}, m_picture.layout.leftArrow, true);
    DrawPageArrow({GridPart::RightArrow}, m_picture.layout.rightArrow, false);
}

void PeriodGridPainter::DrawTitle(int index) const
{
    const PeriodBlock& block = m_picture.layout.blocks[index];
    DrawGradient(m_pDC, block.band, m_palette.bandFrom, m_palette.bandTo, FALSE, FALSE);
    DrawBandState(StateOf({GridPart::Title, index}), block.title);
    DrawCentredText(m_pDC, block.band, FittingTitle(block), m_picture.textFonts.Get(true), m_palette.bandText);
}

// A long name goes a little beyond the part that answers to clicks; before it reaches an arrow the month becomes short.
std::u16string PeriodGridPainter::FittingTitle(const PeriodBlock& block) const
{
    const PeriodPolicy& policy = m_picture.model.Policy();
    const std::u16string title = PeriodTitle(policy, block.period, m_picture.texts, m_picture.eraTitles);
    const int arrowWidth = block.title.left - block.band.left;
    const SelectGdi selectFont(m_pDC, m_picture.textFonts.Get(true));
    if (WideTextExtent(*m_pDC, title).cx <= block.band.Width() - arrowWidth - 2 * Px(kMetrics.arrowReach)) {
        return title;
    }
    CalendarTexts shorter = m_picture.texts;
    shorter.months = shorter.shortMonths;
    return PeriodTitle(policy, block.period, shorter, m_picture.eraTitles);
}

void PeriodGridPainter::DrawBandState(PartState state, const CRect& rect) const
{
    if (state == PartState::Normal) {
        return;
    }
    CRect shade = rect;
    shade.DeflateRect(Px(kMetrics.hotInset), Px(kMetrics.hotInset));
    const bool isPressed = state == PartState::Pressed;
    DrawGradient(m_pDC, shade, isPressed ? m_palette.bandPressed : m_palette.bandHot,
                 isPressed ? m_palette.bandTo : m_palette.bandFrom, FALSE, FALSE);
}

void PeriodGridPainter::DrawPageArrow(const GridHit& hit, const CRect& rect, bool pointsLeft) const
{
    const PartState state = StateOf(hit);
    DrawBandState(state, rect);
    const int reach = Px(kMetrics.arrowReach);
    const int shift = state == PartState::Pressed ? Px(kMetrics.pressedShift) : 0;
    const int halfWidth = reach / 2;
    CPoint tip = rect.CenterPoint();
    tip.Offset((pointsLeft ? -halfWidth - 1 : halfWidth) + shift, shift - 1);
    DrawArrow(m_pDC, tip, reach, pointsLeft, m_palette.bandText);
}

// The names for cells, or the short ones, cut to as many characters as fit over every column.
CalendarTexts::Weekdays PeriodGridPainter::FittingWeekdays(int width) const
{
    const bool hasOwn = !m_picture.texts.cellWeekdays[0].empty();
    CalendarTexts::Weekdays names = hasOwn ? m_picture.texts.cellWeekdays : m_picture.texts.shortWeekdays;
    const SelectGdi selectFont(m_pDC, m_picture.textFonts.Get(false));
    const auto isTooWide = [&](const std::u16string& name) { return WideTextExtent(*m_pDC, name).cx > width; };
    if (std::any_of(names.begin(), names.end(), isTooWide)) {
        DropCommonBeginning(names);
    }
    for (size_t length = 2; length > 0 && std::any_of(names.begin(), names.end(), isTooWide); --length) {
        for (std::u16string& name : names) {
            name.resize(std::min(name.size(), length));
        }
    }
    return names;
}

void PeriodGridPainter::DrawWeekdays() const
{
    const PeriodPolicy& policy = m_picture.model.Policy();
    const CalendarTexts::Weekdays names = FittingWeekdays(policy.metrics.cell.cx - 1);
    for (const PeriodBlock& block : m_picture.layout.blocks) {
        if (block.weekdays.IsRectEmpty()) {
            return;
        }
        for (int column = 0; column < policy.cellColumns; ++column) {
            const int weekday = WeekdayOfColumn(m_picture.model.FirstDayOfWeek(), column);
            const int width = policy.metrics.cell.cx;
            const int left = block.weekdays.left + column * width;
            const CRect rect(left, block.weekdays.top, left + width, block.weekdays.bottom - Px(kMetrics.weekdayGap));
            DrawCentredText(m_pDC, rect, names[static_cast<size_t>(weekday - 1)], m_picture.textFonts.Get(false),
                            DayColor(weekday, false, true));
        }
        DrawHorizontalLine(m_pDC, block.weekdays.left + Px(kMetrics.lineInset),
                           block.weekdays.right - Px(kMetrics.lineInset), block.weekdays.bottom - 1, m_palette.frame);
    }
}

void PeriodGridPainter::DrawWeekNumbers() const
{
    for (const PeriodBlock& block : m_picture.layout.blocks) {
        for (const PeriodWeek& week : block.weeks) {
            if (week.number > 0) {
                CString text;
                text.Format("%d", week.number);
                DrawCentredText(m_pDC, week.rect, OwnText(text), m_picture.numberFonts.Get(false),
                                m_palette.weekNumber);
            }
            m_pDC->FillSolidRect(week.rect.right - 1, week.rect.top, 1, week.rect.Height(), m_palette.frame);
        }
    }
}

void PeriodGridPainter::DrawCells() const
{
    const PeriodPolicy& policy = m_picture.model.Policy();
    const GridHit today = CellOfDate(policy, m_picture.layout, CellDateOf(policy.unit, m_picture.now));
    for (size_t i = 0; i < m_picture.layout.blocks.size(); ++i) {
        const PeriodBlock& block = m_picture.layout.blocks[i];
        for (size_t k = 0; k < block.cells.size(); ++k) {
            const GridHit hit{GridPart::Cell, static_cast<int>(i), static_cast<int>(k)};
            DrawCell(hit, block.cells[k], hit == today);
        }
    }
    if (m_picture.isFocused) {
        const GridHit caret = CellOfDate(policy, m_picture.layout, m_picture.model.Caret(m_picture.now));
        // Out of sight after paging it still shows that the keyboard is here, in the first title.
        const bool isShown = caret.part == GridPart::Cell;
        CRect frame = RectOfPart(m_picture.layout, isShown ? caret : GridHit{GridPart::Title, 0});
        if (caret == today || !isShown) {
            frame.DeflateRect(Px(kMetrics.cellInset.cx),
                              Px(kMetrics.cellInset.cy)); // within the frame of today or of a hot title
        }
        DrawFocusFrame(m_pDC, frame);
    }
}

void PeriodGridPainter::DrawCell(const GridHit& hit, const PeriodCell& cell, bool isToday) const
{
    if (!IsValid(cell.date)) {
        return;
    }
    DrawCellBack(hit, cell);
    const CellMark& mark = m_picture.marks[hit.block][hit.cell];
    const bool isDay = m_picture.model.Policy().unit == CellUnit::Day;
    PickerFonts& fonts = isDay ? m_picture.numberFonts : m_picture.textFonts;
    const int column = hit.cell % m_picture.model.Policy().cellColumns;
    DrawCentredText(m_pDC, cell.rect, CellText(cell), fonts.Get(mark.isBold && cell.inPeriod),
                    CellColor(cell, mark, column));
    if (mark.isHoliday && m_picture.theme.dayOffMark) {
        DrawCorner(cell.rect, CellColor(cell, mark, column));
    }
    if (mark.dot != CLR_NONE) {
        m_pDC->FillSolidRect(cell.rect.CenterPoint().x - Px(kMetrics.dot.cx) / 2,
                             cell.rect.bottom - Px(kMetrics.dot.cy), Px(kMetrics.dot.cx), Px(kMetrics.dot.cy),
                             mark.dot);
    }
    if (isToday) {
        DrawFrame(m_pDC, cell.rect, m_palette.today);
    }
}

// At the upper right, within the frames of today and of selections.
void PeriodGridPainter::DrawCorner(const CRect& cell, COLORREF color) const
{
    const int side = Px(kMetrics.corner);
    const int right = cell.right - Px(kMetrics.cellInset.cx);
    for (int i = 0; i < side; ++i) {
        m_pDC->FillSolidRect(right - side + i, cell.top + Px(kMetrics.cellInset.cy) + i, side - i, 1, color);
    }
}

void PeriodGridPainter::DrawCellBack(const GridHit& hit, const PeriodCell& cell) const
{
    const bool isDay = m_picture.model.Policy().unit == CellUnit::Day;
    CRect inner = cell.rect;
    inner.DeflateRect(Px(kMetrics.cellInset.cx), Px(kMetrics.cellInset.cy));
    if (m_picture.model.IsCellSelected(cell.date)) {
        if (isDay) {
            m_pDC->FillSolidRect(cell.rect, cell.inPeriod ? m_palette.selected : m_palette.paleSelected);
        } else {
            DrawRoundBox(m_pDC, inner, m_palette.selected, m_palette.selectedFrame);
        }
    }
    if (StateOf(hit) == PartState::Hot) {
        if (m_picture.model.IsCellSelected(cell.date)) {
            DrawFrame(m_pDC, inner, m_palette.selectedFrame);
        } else {
            DrawRoundBox(m_pDC, inner, m_palette.hot, m_palette.hotFrame);
        }
    }
}

COLORREF PeriodGridPainter::CellColor(const PeriodCell& cell, const CellMark& mark, int column) const
{
    if (m_palette.selectedText != CalendarTheme::kOwn && m_picture.model.IsCellSelected(cell.date)) {
        return m_palette.selectedText;
    }
    if (m_picture.model.Policy().unit != CellUnit::Day) {
        return m_palette.text;
    }
    const int weekday = WeekdayOfColumn(m_picture.model.FirstDayOfWeek(), column);
    return DayColor(weekday, mark.isHoliday, cell.inPeriod);
}

COLORREF PeriodGridPainter::DayColor(int weekday, bool isHoliday, bool inPeriod) const
{
    if (isHoliday || weekday == kRedWeekday) {
        return inPeriod ? m_palette.holiday : m_palette.paleHoliday;
    }
    if (weekday == kBlueWeekday) {
        return inPeriod ? m_palette.saturday : m_palette.paleSaturday;
    }
    return inPeriod ? m_palette.text : m_palette.paleText;
}

std::u16string PeriodGridPainter::CellText(const PeriodCell& cell) const
{
    const CivilDate fields = CivilDateOf(cell.date);
    if (m_picture.model.Policy().unit == CellUnit::Month) {
        return MonthText(fields.month, m_picture.texts);
    }
    CString text;
    text.Format("%d", fields.day);
    return OwnText(text);
}

void PeriodGridPainter::DrawFooter() const
{
    const CRect& footer = m_picture.layout.footer;
    const PartState state = StateOf({GridPart::Footer});
    CRect box = footer;
    box.DeflateRect(Px(kMetrics.lineInset), Px(2), Px(kMetrics.lineInset), 1);
    if (state != PartState::Normal) {
        DrawRoundBox(m_pDC, box, state == PartState::Hot ? m_palette.hot : m_palette.selected, m_palette.hotFrame);
    }
    DrawHorizontalLine(m_pDC, footer.left + Px(kMetrics.lineInset), footer.right - Px(kMetrics.lineInset), footer.top,
                       m_palette.frame);
    CFont* font = m_picture.textFonts.Get(false);
    DrawCentredText(
        m_pDC, box,
        FittingFooter(m_pDC, font, box.Width(), m_picture.model.Policy().unit, m_picture.now, m_picture.texts), font,
        m_palette.text);
}

// ---- The list over a title

PeriodRunPainter::PeriodRunPainter(CDC* pDC, const PeriodRunPicture& picture)
    : m_pDC(pDC), m_picture(picture), m_palette(PickerPaletteOf(picture.theme))
{
}

void PeriodRunPainter::Draw() const
{
    m_pDC->FillSolidRect(CRect(CPoint(0, 0), m_picture.run.Size()), m_palette.window);
    for (int row = 0; row < kPeriodRunMetrics.RowCount(); ++row) {
        if (m_picture.run.HasPeriod(row)) {
            DrawRow(row);
        }
    }
}

void PeriodRunPainter::DrawRow(int row) const
{
    const CRect rect = m_picture.run.RowRect(row);
    const int period = m_picture.run.PeriodOfRow(row);
    COLORREF color = m_palette.text;
    if (row == m_picture.run.HotRow()) {
        color = ThemeOr(m_palette.selectedText, color);
        CRect shade = rect;
        shade.DeflateRect(kRunShadeInset, kRunShadeInset);
        DrawRoundBox(m_pDC, shade, m_palette.selected, m_palette.selectedFrame);
    }
    DrawCentredText(m_pDC, rect, PeriodTitle(m_picture.policy, period, m_picture.texts, m_picture.eraTitles),
                    m_picture.fonts.Get(period == m_picture.run.Given()), color);
}

} // namespace dayvane
