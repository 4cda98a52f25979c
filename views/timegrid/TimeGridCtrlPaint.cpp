// The shared painting of the time grids: the order of the layers, and what each is painted from.
#include "views/timegrid/TimeGridCtrl.h"

#include "core/DateMath.h"

using namespace dayvane;

namespace {
constexpr int kMarkGap = 2;      // pixels after a mark of an item
constexpr int kMarkedWidth = 40; // columns of many days: a narrower box keeps its room for the text
constexpr int kHourFont = 0;     // templates in m_lfFonts
} // namespace

const std::vector<ShownDay>& CTimeGridCtrl::GetShownDays()
{
    const COleDateTime first = StartOfDay(GetFirstShownDay());
    const int count = GetColumnCount();
    if (static_cast<int>(m_shownDays.size()) != count || !m_shownDays[0].IsFor(first)) {
        m_shownDays.clear();
        for (int i = 0; i < count; ++i) {
            m_shownDays.push_back(ShownDay::Of(AddDays(first, i)));
        }
    }
    return m_shownDays;
}

DayKind CTimeGridCtrl::KindOfColumn(int nColumn)
{
    return KindOfDay(GetShownDays()[nColumn], m_bShowHoliday != FALSE, GetDayColor(nColumn));
}

// Bands come after the grid and its items: what is scrolled up never shows over them.
void CTimeGridCtrl::DrawCtrl(CDC* pDC)
{
    const SaveDcScope saved(pDC);
    pDC->SetBkMode(TRANSPARENT);
    CPen gridPen(PS_SOLID, 1, m_colors.grid);
    const SelectGdi selectPen(pDC, &gridPen);
    const TimeGridState state = State();
    TimeGridPainter(pDC, state, m_colors).DrawRulerEdge();
    DrawRuler(pDC, m_rcRuler);
    DrawFulldayRuler(pDC, m_rcFulldayRuler);
    DrawGrid(pDC, m_rcContent);
    DrawItem(pDC, m_rcContent, m_arScreenItem);
    DrawNowLine(pDC);
    DrawCaption(pDC, m_rcCaption);
    DrawHeader(pDC, GetHeaderBox());
    DrawFulldayContent(pDC, m_rcFulldayContent);
    DrawFulldayItem(pDC, m_rcFulldayContent, m_arScreenItem);
}

void CTimeGridCtrl::DrawRuler(CDC* pDC, CRect rcRuler)
{
    const TimeGridState state = State();
    TimeGridPainter(pDC, state, m_colors).DrawRuler(rcRuler, m_fonts.Hours(m_lfFonts[kHourFont]), m_fonts.Zeros());
}

void CTimeGridCtrl::DrawFulldayRuler(CDC* pDC, CRect rcBand)
{
    const TimeGridState state = State();
    TimeGridPainter(pDC, state, m_colors).DrawFulldayRuler(rcBand, m_fonts.Label());
}

void CTimeGridCtrl::DrawHeader(CDC*, CRect)
{
}

void CTimeGridCtrl::DrawRows(CDC* pDC, int nColumn)
{
    const TimeGridState state = State();
    TimeGridPainter painter(pDC, state, m_colors);
    const CRect& column = state.frame.columns[nColumn];
    if (!painter.IsVisible(column)) {
        return;
    }
    const DayKind kind = KindOfColumn(nColumn);
    const bool worksOnDay =
        IsWorkDayOfWeek(GetShownDays()[nColumn].date) && (!kind.isDayOff || IsColumnUseMyWorkTime(nColumn));
    // A selection of whole days shows in the band.
    RowRange selected;
    if (IsSelectionDrawn() && !m_bFulldaySelection) {
        selected = GetSelectedRows(nColumn, m_dtSelBegin, m_dtSelEnd);
    }
    const RowLookInput input = {state.scale, m_arDayColors[kind.colorRow], m_colors.highlight,
                                m_workTime.dtStart.GetHour()};
    const RowRange rows = painter.VisibleRows(state.frame.grid);
    std::vector<RowLook> looks;
    for (int row = rows.first; row < rows.end; ++row) {
        looks.push_back(LookOfRow(row, worksOnDay && IsColumnWorkTime(nColumn, row), selected.Holds(row), input));
    }
    painter.DrawRows(column, rows, looks);
}

void CTimeGridCtrl::DrawNowLine(CDC* pDC)
{
    if (!m_bNowLine) {
        return;
    }
    const COleDateTime now = Now();
    const TimeGridState state = State();
    const int column = ColumnOfDay(state, now);
    if (column != -1) {
        TimeGridPainter(pDC, state, m_colors).DrawNowLine(state.frame.columns[column], ClockTimeOf(now));
    }
}

// ---- Items

// Returns how far the marks push the text.
int CTimeGridCtrl::DrawMarks(CDC* pDC, const tagCALENDAR_ITEM& item, CRect content, BOOL bBand)
{
    const int left = content.left;
    pDC->SetTextColor(item.crColor1);
    if (item.bAlarm) {
        content.left += DrawAlarmMark(pDC, content, bBand) + kMarkGap;
    }
    if (item.bRecurrent) {
        content.left += DrawRecurrentMark(pDC, content, bBand) + kMarkGap;
    }
    // The icon belongs to the beginning of an item.
    const bool began = item.nPiece == PIECE_TAIL || item.nPiece == PIECE_MIDDLE;
    if (item.nImage != -1 && !(bBand && began)) {
        content.left += DrawImageIcon(pDC, item.nImage, content);
    }
    return content.left - left;
}

void CTimeGridCtrl::DrawTimedItem(CDC* pDC, const TimeGridState& state, const tagCALENDAR_ITEM& item, int nEnd)
{
    TimeGridPainter painter(pDC, state, m_colors);
    CRect content = painter.DrawTimedBox(item, painter.ScrolledBox(item), nEnd, item.nSource == m_nCurSel);
    if (GetColumnCount() == 1 || content.Width() >= kMarkedWidth) {
        content.left += DrawMarks(pDC, item, content, FALSE);
    }
    const SelectGdi selectFont(pDC, GetFont(item.nReserved));
    painter.DrawTimedText(item, content, GetColumnCount() > 1);
}

void CTimeGridCtrl::DrawFulldayContent(CDC* pDC, CRect rcBand)
{
    const TimeGridState state = State();
    std::vector<CRect> selected;
    COleDateTime begin;
    COleDateTime end;
    if (m_bFulldaySelection && IsSelectionDrawn() && CCalendarCtrl::GetSelRange(begin, end)) {
        const int first = DayNumberOf(begin);
        const int last = DayNumberOf(end);
        for (int i = 0; i < GetColumnCount(); ++i) {
            const int day = DayNumberOf(GetShownDays()[i].date);
            if (day >= first && day <= last) {
                selected.push_back(state.frame.columns[i]);
            }
        }
    }
    TimeGridPainter(pDC, state, m_colors).DrawFulldayContent(rcBand, selected);
}

void CTimeGridCtrl::DrawFulldayItem(CDC* pDC, CRect rcBand, CItemArray& screenItems)
{
    const TimeGridState state = State();
    TimeGridPainter painter(pDC, state, m_colors);
    if (!painter.IsVisible(rcBand)) {
        return;
    }
    for (INT_PTR i = 0; i < screenItems.GetSize(); ++i) {
        const tagCALENDAR_ITEM& item = screenItems[i];
        if (item.rcItem.top == -1 || !painter.IsVisible(item.rcItem) || !IsBandItem(item)) {
            continue;
        }
        CRect content = painter.DrawBandBar(item, rcBand, item.nSource == m_nCurSel);
        content.left += DrawMarks(pDC, item, content, TRUE);
        const SelectGdi selectFont(pDC, GetFont(item.nReserved));
        painter.DrawBandText(item, content);
    }
}
