// What a time grid shows of its days beyond the required: lines under the day's name, several work periods, the clock
// of another zone.
#include "views/timegrid/TimeGridCtrl.h"

#include "core/DateMath.h"
#include "core/DayLinePainter.h"
#include "core/DrawingHelpers.h"
#include "core/ThemeColors.h"
#include "core/WideText.h"
#include "views/timegrid/TimeGridParts.h"

#include <algorithm>

using namespace dayvane;

namespace {
constexpr COLORREF kChangedHour = 0xA0E0FF; // of the ruler, where the clock is changed
constexpr int kDateTop = 1;                 // from the hour's line to the date beside it, pixels
constexpr int kLabelInset = 2;
constexpr int kLinesBottom = 3; // free below the lines, for the frame of the current day
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

void CTimeGridCtrl::DrawZoneRuler(CDC* pDC, const CRect& rcRuler)
{
    const TimeGridPainter painter = Painter(pDC);
    if (!m_pParts->zones || !painter.IsVisible(rcRuler)) {
        return;
    }
    CRect own = rcRuler;
    own.left += GetZoneRulerWidth();
    const CRect other(rcRuler.left, rcRuler.top, own.left, rcRuler.bottom);
    pDC->FillSolidRect(&other, m_colors.ruler);
    const SelectGdi selectFont(pDC, m_pParts->fonts.Label());
    const std::vector<ZoneHour> hours = ZoneHoursOf(GetRulerDay(), *m_pParts->zones);
    const int height = Scale().HourHeight();
    for (int i = 0; i < static_cast<int>(hours.size()); ++i) {
        const int top = rcRuler.top - m_nVertScroll + i * height;
        if (painter.IsVisible(CRect(rcRuler.left, top, rcRuler.right, top + height))) {
            DrawZoneHour(pDC, hours[i], CRect(other.left, top, other.right, top + height), own);
        }
    }
}

void CTimeGridCtrl::DrawZoneHour(CDC* pDC, const ZoneHour& hour, const CRect& rcHour, const CRect& rcOwn)
{
    constexpr UINT format = DT_SINGLELINE | DT_NOPREFIX;
    const int lineHeight = DayLineMetrics::For(m_scale).lineHeight;
    const COLORREF alert = DayLineColors::Of(m_theme).dayOff;
    pDC->SetTextColor(m_colors.rulerText);
    if (!rcHour.IsRectEmpty()) {
        pDC->FillSolidRect(rcHour.left + kLabelInset, rcHour.top, rcHour.Width() - 2 * kLabelInset, 1,
                           m_colors.rulerText);
        CRect place(rcHour.left, rcHour.top, rcHour.right - kLabelInset, rcHour.bottom);
        DrawWideText(*pDC, OwnText(hour.other), place, format | DT_VCENTER | DT_RIGHT);
        if (!hour.otherDate.IsEmpty()) {
            const CRect date(rcHour.left, rcHour.top + 1, rcHour.right, rcHour.top + lineHeight);
            place = date;
            place.OffsetRect(kLabelInset, kDateTop);
            pDC->SetTextColor(alert);
            DrawWideText(*pDC, OwnText(hour.otherDate), place, format | DT_LEFT);
        }
    }
    if (!hour.change.IsEmpty()) {
        CRect place(rcOwn.left, rcHour.bottom - lineHeight, rcOwn.right, rcHour.bottom);
        pDC->FillSolidRect(&place, ThemeOr(m_theme.selection, kChangedHour));
        pDC->SetTextColor(alert);
        DrawWideText(*pDC, OwnText(hour.change), place, format | DT_VCENTER | DT_CENTER);
    }
}

// The names of the zones stand over their rulers, where the band is.
void CTimeGridCtrl::DrawZoneLabels(CDC* pDC, const CRect& rcBand)
{
    if (!m_pParts->zones || !m_pParts->zones->showOther) {
        return;
    }
    constexpr UINT format = DT_SINGLELINE | DT_NOPREFIX | DT_CENTER | DT_BOTTOM | DT_END_ELLIPSIS;
    const ZoneRuler& zones = *m_pParts->zones;
    const SelectGdi selectFont(pDC, m_pParts->fonts.Label());
    pDC->SetTextColor(m_colors.rulerText);
    const int middle = rcBand.left + GetZoneRulerWidth();
    CRect place(rcBand.left, rcBand.top, middle, rcBand.bottom);
    DrawWideText(*pDC, OwnText(zones.otherLabel), place, format);
    place.SetRect(middle, rcBand.top, rcBand.right, rcBand.bottom);
    DrawWideText(*pDC, OwnText(zones.ownLabel), place, format);
}
