// The commands of the planner's window and their state in menus and tool bar.
#include "core/CalendarClock.h"
#include "core/DateMath.h"
#include "planner/PlannerFrame.h"
#include "planner/WideText.h"
#include "planner/Words.h"
#include "planner/resource.h"
#include "views/timegrid/TimeGridCtrl.h"

#include <algorithm>
#include <iterator>

// ---- Editing

void CPlannerFrame::OnUndo()
{
    Finish(Calendars().Undo());
}

void CPlannerFrame::OnRedo()
{
    Finish(Calendars().Redo());
}

void CPlannerFrame::OnUpdateUndo(CCmdUI* pCmdUI)
{
    pCmdUI->Enable(Calendars().CanUndo());
}

void CPlannerFrame::OnUpdateRedo(CCmdUI* pCmdUI)
{
    pCmdUI->Enable(Calendars().CanRedo());
}

// ---- Views

void CPlannerFrame::OnView(UINT nID)
{
    if (const planner::ViewRow* row = planner::FindView(nID)) {
        ShowView({row, m_view.days});
    }
}

void CPlannerFrame::OnDays(UINT nID)
{
    ShowView({planner::FindView(ID_VIEW_DAYS), static_cast<int>(nID - ID_DAYS_FIRST) + planner::kFewestDays});
}

void CPlannerFrame::OnToday()
{
    GoTo(dayvane::StartOfDay(dayvane::Now()));
}

void CPlannerFrame::OnStep(UINT nID)
{
    GoTo(planner::DateAfterSteps(m_view, ShownDay(), nID == ID_VIEW_NEXT ? 1 : -1));
}

void CPlannerFrame::OnUpdateView(CCmdUI* pCmdUI)
{
    pCmdUI->SetRadio(pCmdUI->m_nID == m_view.row->command);
}

void CPlannerFrame::OnUpdateDays(CCmdUI* pCmdUI)
{
    const bool chosen = m_view.row->dateScale == planner::kVariableScale;
    pCmdUI->SetRadio(chosen && pCmdUI->m_nID == static_cast<UINT>(m_view.days - planner::kFewestDays + ID_DAYS_FIRST));
}

// ---- The rows of the time grids

namespace {

const std::vector<int>& TimeScales()
{
    static const std::vector<int> rowsPerHour = {1, 2, 4, 6, 12};
    return rowsPerHour;
}

// Offered where nobody chooses: rows of an hour are too coarse to drag in, rows of five minutes take too much room.
const std::vector<int>& AutomaticScales()
{
    static const std::vector<int> rowsPerHour = {2, 4, 6};
    return rowsPerHour;
}

} // namespace

// In a tall window a day would end above its lower edge: then more rows an hour.
void CPlannerFrame::FillHeight(CTimeGridCtrl& grid)
{
    for (const int scale : TimeScales()) {
        SCROLLINFO rows = {};
        rows.cbSize = sizeof(rows);
        rows.fMask = SIF_RANGE | SIF_PAGE;
        const bool fits = grid.GetScrollInfo(SB_VERT, &rows) && rows.nMax <= rows.nMin;
        if (fits && scale > grid.GetTimeScale()) {
            grid.SetTimeScale(scale);
            grid.Refresh();
        }
    }
}

void CPlannerFrame::ApplyTimeScale()
{
    CTimeGridCtrl* grid = DYNAMIC_DOWNCAST(CTimeGridCtrl, m_items.Ctrl());
    if (grid) {
        grid->SetTimeScale(m_rowsPerHour != 0 ? m_rowsPerHour : m_items.FittingScale(AutomaticScales()));
        grid->Refresh();
        if (m_rowsPerHour == 0) {
            FillHeight(*grid);
        }
    }
}

void CPlannerFrame::OnScale(UINT nID)
{
    const std::vector<int>& scales = TimeScales();
    if (nID == ID_SCALE_FINER || nID == ID_SCALE_COARSER) {
        const int now = m_items.Ctrl() ? m_items.Ctrl()->GetTimeScale() : scales.front();
        const int at = static_cast<int>(std::lower_bound(scales.begin(), scales.end(), now) - scales.begin());
        const int last = static_cast<int>(scales.size()) - 1;
        m_rowsPerHour = scales[std::clamp(at + (nID == ID_SCALE_FINER ? 1 : -1), 0, last)];
    } else {
        m_rowsPerHour = nID == ID_SCALE_AUTOMATIC ? 0 : scales[nID - ID_SCALE_FIRST];
    }
    ApplyTimeScale();
    ShowFirstHours();
}

void CPlannerFrame::OnUpdateScale(CCmdUI* pCmdUI)
{
    const UINT id = pCmdUI->m_nID;
    pCmdUI->Enable(m_view.row->hasTimes);
    if (id == ID_SCALE_AUTOMATIC) {
        pCmdUI->SetRadio(m_rowsPerHour == 0);
    } else if (id <= ID_SCALE_LAST) {
        pCmdUI->SetRadio(m_rowsPerHour == TimeScales()[id - ID_SCALE_FIRST]);
    }
}

// ---- Settings and panes

BOOL* CPlannerFrame::SettingOf(UINT nID)
{
    return nID == ID_VIEW_HOLIDAYS ? &m_holidays : nID == ID_VIEW_SOLAR_TERMS ? &m_solarTerms : &m_mondayFirst;
}

void CPlannerFrame::OnSetting(UINT nID)
{
    BOOL& setting = *SettingOf(nID);
    setting = !setting;
    m_day = ShownDay();
    SetUpView();
}

void CPlannerFrame::OnUpdateSetting(CCmdUI* pCmdUI)
{
    pCmdUI->SetCheck(*SettingOf(pCmdUI->m_nID));
}

void CPlannerFrame::Zoom(int steps)
{
    static const int percents[] = {50, 75, 90, 100, 110, 125, 150, 175, 200, 250, 300};
    constexpr int normal = 3; // position of 100
    const int* at = steps == 0 ? percents + normal : std::lower_bound(std::begin(percents), std::end(percents), m_zoom);
    const std::ptrdiff_t last = std::size(percents) - 1;
    m_zoom = percents[std::clamp<std::ptrdiff_t>(at - percents + steps, 0, last)];
    ApplyScale();
}

void CPlannerFrame::OnZoom(UINT nID)
{
    Zoom(nID == ID_ZOOM_IN ? 1 : nID == ID_ZOOM_OUT ? -1 : 0);
}

// The window moves to where the system wants it on its new screen.
LRESULT CPlannerFrame::OnDpiChanged(WPARAM wParam, LPARAM lParam)
{
    m_dpi = LOWORD(wParam);
    if (lParam != 0) {
        const RECT& place = *reinterpret_cast<const RECT*>(lParam);
        SetWindowPos(nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }
    ApplyScale();
    return 0;
}

void CPlannerFrame::OnTheme(UINT nID)
{
    m_theme = static_cast<planner::ThemeChoice>(nID - ID_THEME_FIRST);
    ApplyTheme();
}

void CPlannerFrame::OnUpdateTheme(CCmdUI* pCmdUI)
{
    pCmdUI->SetRadio(pCmdUI->m_nID - ID_THEME_FIRST == static_cast<UINT>(m_theme));
}

CWnd* CPlannerFrame::PaneOf(UINT nID)
{
    return nID == ID_VIEW_SIDE_PANE ? static_cast<CWnd*>(&m_sidePane) : &m_messagePane;
}

void CPlannerFrame::OnPane(UINT nID)
{
    CWnd* pane = PaneOf(nID);
    pane->ShowWindow(pane->IsWindowVisible() ? SW_HIDE : SW_SHOWNA);
    RecalcLayout();
}

void CPlannerFrame::OnUpdatePane(CCmdUI* pCmdUI)
{
    pCmdUI->SetCheck((PaneOf(pCmdUI->m_nID)->GetStyle() & WS_VISIBLE) != 0);
}

void CPlannerFrame::OnNextPane()
{
    CWnd* const stops[] = {GetActiveView(), &m_sidePane.Calendar(), &m_sidePane.List(), &m_messagePane};
    constexpr int count = sizeof(stops) / sizeof(stops[0]);
    int at = 0;
    for (int i = 0; i < count; ++i) {
        const HWND focus = ::GetFocus();
        if (stops[i] && (stops[i]->m_hWnd == focus || ::IsChild(stops[i]->m_hWnd, focus))) {
            at = i;
        }
    }
    const auto isInReach = [&](const CWnd* stop) {
        return stop && stop->IsWindowVisible() && (stop->GetParent() != &m_sidePane || m_sidePane.IsInSight());
    };
    do {
        at = (at + 1) % count;
    } while (!isInReach(stops[at]));
    stops[at]->SetFocus();
}

void CPlannerFrame::OnAbout()
{
    planner::Ask(this, planner::Tr("Planner\n\nShows and edits calendar files with the controls of Dayvane."),
                 MB_OK | MB_ICONINFORMATION);
}
