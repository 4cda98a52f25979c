// What a time grid shows of its days beyond the required: lines under the day's name, several work periods, the clock
// of another zone.
#include "views/timegrid/TimeGridCtrl.h"

#include "core/DateMath.h"
#include "core/DayLinePainter.h"
#include "views/timegrid/TimeGridParts.h"

#include <algorithm>

using namespace dayvane;

namespace {
constexpr int kLinesBottom = 3; // pixels free below the lines, for the frame of the current day
} // namespace

// ---- Lines under the name of a day

int CTimeGridCtrl::CalcLinesHeight(const CRect& client)
{
    TimeGridParts& parts = *m_pParts;
    parts.dayLines = 0;
    if (!m_dayLines.HasLines() && !parts.zones) {
        return 0;
    }
    const DayLineMetrics metrics = DayLineMetrics::For(m_scale);
    const DayRange range = GetShownRange();
    const int width = (client.Width() - FrameMetrics().gridLeft) / range.days;
    for (const ShownDay& day : GetShownDays()) {
        parts.dayLines = std::max(parts.dayLines, LinesFor(day.pieces, width, kMostDayLines, metrics));
    }
    return parts.dayLines > 0 ? parts.dayLines * metrics.lineHeight + m_scale.Of(kLinesBottom) : 0;
}

void CTimeGridCtrl::FillDayPieces(ShownDay& day)
{
    const TimeGridParts& parts = *m_pParts;
    if (!m_dayLines.HasLines() && !parts.zones) {
        return;
    }
    day.pieces = PiecesOfDay(day.date, GetDayProvider(), m_dayLines);
    if (parts.zones) {
        const std::vector<DayPiece> changes = ZonePiecesOf(day.date, *parts.zones);
        day.pieces.insert(day.pieces.begin(), changes.begin(), changes.end());
    }
    CDC screen;
    screen.CreateCompatibleDC(nullptr);
    MeasurePieces(screen, m_pParts->fonts.Label(), day.pieces);
}

CRect CTimeGridCtrl::GetLinesArea(int nColumn)
{
    CRect area = m_pParts->frame.HeaderBox(nColumn);
    area.bottom -= m_scale.Of(kLinesBottom);
    area.top = area.bottom - m_pParts->dayLines * DayLineMetrics::For(m_scale).lineHeight;
    return area;
}

void CTimeGridCtrl::DrawDayLines(CDC* pDC, int nColumn)
{
    const int lines = m_pParts->dayLines;
    if (lines == 0) {
        return;
    }
    const DayLineMetrics metrics = DayLineMetrics::For(m_scale);
    const std::vector<DayPiece>& pieces = GetShownDays()[nColumn].pieces;
    DrawPieces(*pDC, m_pParts->fonts.Label(), pieces, PlacePieces(pieces, GetLinesArea(nColumn), lines, metrics),
               metrics, DayLineColors::Of(m_theme));
}

// ---- Work hours

void CTimeGridCtrl::SetWorkHours(const WorkHours& hours)
{
    m_pParts->workHours = std::make_unique<WorkHours>(hours);
    InvalidateGrid();
}

void CTimeGridCtrl::ClearWorkHours()
{
    m_pParts->workHours.reset();
    InvalidateGrid();
}

BOOL CTimeGridCtrl::IsWorkRow(int nColumn, int nRow)
{
    const WorkHours* hours = m_pParts->workHours.get();
    const COleDateTime& date = GetShownDays()[nColumn].date;
    const bool isDayOff = ToneOfColumn(nColumn).isDayOff;
    if (hours && !IsColumnUseMyWorkTime(nColumn)) {
        return hours->IsWorkTime(CivilDateOf(date), nRow * kMinutesPerHour / m_nTimeScale, isDayOff);
    }
    return IsWorkDayOfWeek(date) && (!isDayOff || IsColumnUseMyWorkTime(nColumn)) && IsColumnWorkTime(nColumn, nRow);
}

int CTimeGridCtrl::GetWorkBegin(int nColumn)
{
    const WorkHours* hours = m_pParts->workHours.get();
    if (!hours) {
        return m_workTime.dtStart.GetHour();
    }
    const CivilDate date = CivilDateOf(GetShownDays()[nColumn].date);
    const WorkPeriods& periods = hours->PeriodsOf(date, ToneOfColumn(nColumn).isDayOff);
    return periods.empty() ? -1 : periods.front().begin / kMinutesPerHour;
}

// ---- Another zone

void CTimeGridCtrl::SetZoneRuler(const ZoneRuler& ruler)
{
    m_pParts->zones = std::make_unique<ZoneRuler>(ruler);
    m_pParts->shownDays.clear();
    if (m_hWnd) {
        Refresh();
    }
}

void CTimeGridCtrl::ClearZoneRuler()
{
    m_pParts->zones.reset();
    m_pParts->shownDays.clear();
    if (m_hWnd) {
        Refresh();
    }
}

int CTimeGridCtrl::GetZoneRulerWidth() const
{
    return m_pParts->zones && m_pParts->zones->showOther ? m_scale.Of(kZoneRulerWidth) : 0;
}

TimeGridMetrics CTimeGridCtrl::FrameMetrics() const
{
    TimeGridMetrics metrics = Scale().metrics;
    metrics.rulerRight += GetZoneRulerWidth();
    metrics.gridLeft += GetZoneRulerWidth();
    return metrics;
}

// The day by which the rulers go: the current one, when it is shown.
COleDateTime CTimeGridCtrl::GetRulerDay() const
{
    const DayRange range = GetShownRange();
    return range.Holds(m_dtCurrentDate) ? m_dtCurrentDate : range.first;
}
