#include "planner/PlannerFrame.h"

#include <afxpriv.h>

#include "core/CalendarClock.h"
#include "core/DateMath.h"
#include "core/WindowHelpers.h"
#include "planner/ItemBridge.h"
#include "planner/SystemText.h"
#include "planner/resource.h"
#include "views/timegrid/TimeGridCtrl.h"

IMPLEMENT_DYNCREATE(CPlannerFrame, CFrameWnd)

namespace {
constexpr int kCountPane = 1;
constexpr int kCountPaneWidth = 110; // pixels
constexpr planner::LocalTime kFirstHour = 8 * planner::kHourSeconds;
constexpr int kOfficeOpens = 9; // hours, on work days
constexpr int kOfficeCloses = 18;
} // namespace

CPlannerFrame::Start CPlannerFrame::s_start;

BEGIN_MESSAGE_MAP(CPlannerFrame, CFrameWnd)
ON_WM_CREATE()
ON_WM_CLOSE()
ON_MESSAGE(WM_SETMESSAGESTRING, &CPlannerFrame::OnSetMessageString)
ON_MESSAGE(WM_PLANNER_LOADED, &CPlannerFrame::OnLoaded)
ON_MESSAGE(YMN_SELENDOK, &CPlannerFrame::OnPicked)
ON_NOTIFY(CCN_ITEMDBLCLICK, AFX_IDW_PANE_FIRST, &CPlannerFrame::OnItemOpen)
ON_NOTIFY(CCN_CONTEXTMENU, AFX_IDW_PANE_FIRST, &CPlannerFrame::OnItemMenu)
ON_NOTIFY(CCN_ITEMMOVED, AFX_IDW_PANE_FIRST, &CPlannerFrame::OnItemMoved)
ON_NOTIFY(CCN_IPE_ENDEDITITEM, AFX_IDW_PANE_FIRST, &CPlannerFrame::OnEditEnded)
ON_NOTIFY(CCN_VIEWRANGECHANGE, AFX_IDW_PANE_FIRST, &CPlannerFrame::OnRangeChanged)
ON_NOTIFY(MCN_SELECT, IDC_MINI_CALENDAR, &CPlannerFrame::OnDaySelected)
ON_COMMAND(ID_EDIT_UNDO, &CPlannerFrame::OnUndo)
ON_COMMAND(ID_EDIT_REDO, &CPlannerFrame::OnRedo)
ON_COMMAND(ID_EDIT_NEW_ITEM, &CPlannerFrame::OnNewItem)
ON_COMMAND_RANGE(ID_EDIT_RENAME, ID_EDIT_RENAME_SERIES, &CPlannerFrame::OnRename)
ON_COMMAND_RANGE(ID_EDIT_CLEAR, ID_EDIT_CLEAR, &CPlannerFrame::OnDelete)
ON_COMMAND_RANGE(ID_EDIT_DELETE_SERIES, ID_EDIT_DELETE_SERIES, &CPlannerFrame::OnDelete)
ON_COMMAND_RANGE(ID_VIEW_DAY, ID_VIEW_LAST, &CPlannerFrame::OnView)
ON_COMMAND_RANGE(ID_DAYS_FIRST, ID_DAYS_LAST, &CPlannerFrame::OnDays)
ON_COMMAND(ID_VIEW_TODAY, &CPlannerFrame::OnToday)
ON_COMMAND_RANGE(ID_VIEW_PREVIOUS, ID_VIEW_NEXT, &CPlannerFrame::OnStep)
ON_COMMAND_RANGE(ID_SCALE_AUTOMATIC, ID_SCALE_COARSER, &CPlannerFrame::OnScale)
ON_COMMAND_RANGE(ID_VIEW_HOLIDAYS, ID_VIEW_MONDAY_FIRST, &CPlannerFrame::OnSetting)
ON_COMMAND_RANGE(ID_VIEW_SIDE_PANE, ID_VIEW_MESSAGES, &CPlannerFrame::OnPane)
ON_COMMAND_RANGE(ID_ZOOM_IN, ID_ZOOM_RESET, &CPlannerFrame::OnZoom)
ON_MESSAGE(dayvane::kDpiChanged, &CPlannerFrame::OnDpiChanged)
ON_COMMAND_RANGE(ID_THEME_FIRST, ID_THEME_LAST, &CPlannerFrame::OnTheme)
ON_COMMAND(ID_VIEW_NEXT_PANE, &CPlannerFrame::OnNextPane)
ON_COMMAND(ID_FILE_PAGE_SETUP, &CPlannerFrame::OnPageSetup)
ON_COMMAND(ID_FILE_EXPORT_PAGES, &CPlannerFrame::OnExportPages)
ON_COMMAND(ID_APP_ABOUT, &CPlannerFrame::OnAbout)
ON_UPDATE_COMMAND_UI(ID_EDIT_UNDO, &CPlannerFrame::OnUpdateUndo)
ON_UPDATE_COMMAND_UI(ID_EDIT_REDO, &CPlannerFrame::OnUpdateRedo)
ON_UPDATE_COMMAND_UI(ID_EDIT_CLEAR, &CPlannerFrame::OnUpdateOfItem)
ON_UPDATE_COMMAND_UI_RANGE(ID_EDIT_RENAME, ID_EDIT_DELETE_SERIES, &CPlannerFrame::OnUpdateOfItem)
ON_UPDATE_COMMAND_UI_RANGE(ID_VIEW_DAY, ID_VIEW_LAST, &CPlannerFrame::OnUpdateView)
ON_UPDATE_COMMAND_UI_RANGE(ID_DAYS_FIRST, ID_DAYS_LAST, &CPlannerFrame::OnUpdateDays)
ON_UPDATE_COMMAND_UI_RANGE(ID_SCALE_AUTOMATIC, ID_SCALE_COARSER, &CPlannerFrame::OnUpdateScale)
ON_UPDATE_COMMAND_UI_RANGE(ID_VIEW_HOLIDAYS, ID_VIEW_MONDAY_FIRST, &CPlannerFrame::OnUpdateSetting)
ON_UPDATE_COMMAND_UI_RANGE(ID_THEME_FIRST, ID_THEME_LAST, &CPlannerFrame::OnUpdateTheme)
ON_UPDATE_COMMAND_UI_RANGE(ID_VIEW_SIDE_PANE, ID_VIEW_MESSAGES, &CPlannerFrame::OnUpdatePane)
END_MESSAGE_MAP()

CPlannerFrame::CPlannerFrame()
    : m_view(s_start.view.row ? s_start.view : planner::DefaultView()), m_day(s_start.day), m_editor(m_items),
      m_sidePane(&CPlannerFrame::CalendarOf, reinterpret_cast<LPARAM>(this)), m_theme(s_start.theme),
      m_dpi(s_start.dpi), m_themeWatch([this] { ApplyTheme(); })
{
    m_pages.asList = s_start.asList;
}

// ---- Lifetime

BOOL CPlannerFrame::PreCreateWindow(CREATESTRUCT& cs)
{
    cs.cx = s_start.size.cx;
    cs.cy = s_start.size.cy;
    return CFrameWnd::PreCreateWindow(cs);
}

BOOL CPlannerFrame::OnCreateClient(LPCREATESTRUCT lpcs, CCreateContext* pContext)
{
    pContext->m_pNewViewClass = m_view.row->viewClass;
    return CFrameWnd::OnCreateClient(lpcs, pContext);
}

int CPlannerFrame::OnCreate(LPCREATESTRUCT lpcs)
{
    if (CFrameWnd::OnCreate(lpcs) == -1 || !m_toolBar.Create(this) || !m_statusBar.Create(this) ||
        !m_messagePane.Create(this, IDW_MESSAGE_PANE) || !m_sidePane.Create(this, IDW_SIDE_PANE)) {
        return -1;
    }
    const UINT panes[] = {ID_SEPARATOR, ID_SEPARATOR};
    m_statusBar.SetIndicators(panes, sizeof(panes) / sizeof(panes[0]));
    m_statusBar.SetPaneInfo(kCountPane, 0, 0, kCountPaneWidth);
    m_dpi = m_dpi != 0 ? m_dpi : dayvane::DpiOfWindow(m_hWnd);
    m_themeWatch.Follow(true);
    ApplyScale();
    RecalcLayout();
    return 0;
}

CPlannerDoc* CPlannerFrame::Document()
{
    CView* view = static_cast<CView*>(GetDlgItem(AFX_IDW_PANE_FIRST));
    return view ? static_cast<CPlannerDoc*>(view->GetDocument()) : nullptr;
}

void CPlannerFrame::OnClose()
{
    m_editor.Commit();
    CFrameWnd::OnClose();
}

// A command ends an edit that is open, so that it meets what is on the screen.
BOOL CPlannerFrame::OnCommand(WPARAM wParam, LPARAM lParam)
{
    m_editor.Commit();
    return !IsReadyToPrint(LOWORD(wParam)) || CFrameWnd::OnCommand(wParam, lParam);
}

planner::Document* CPlannerFrame::CalendarOf(LPARAM lFrame)
{
    CPlannerDoc* document = reinterpret_cast<CPlannerFrame*>(lFrame)->Document();
    return document ? &document->Calendar() : nullptr;
}

// Keys that are typed into an edit box are no commands, but for those that no edit box knows.
BOOL CPlannerFrame::PreTranslateMessage(MSG* pMsg)
{
    const bool isKeyUp = pMsg->message == WM_SYSKEYUP || pMsg->message == WM_KEYUP;
    if (isKeyUp && pMsg->wParam == VK_MENU && m_altTaken) {
        m_altTaken = false;
        return TRUE; // Alt was the half of a command: letting it go must not open the menu bar
    }
    if (pMsg->message == WM_MOUSEWHEEL && (LOWORD(pMsg->wParam) & MK_CONTROL) != 0) {
        Zoom(static_cast<short>(HIWORD(pMsg->wParam)) > 0 ? 1 : -1);
        return TRUE;
    }
    TCHAR name[16] = "";
    ::GetClassName(pMsg->hwnd, name, sizeof(name) / sizeof(name[0]));
    const bool typed = lstrcmpi(name, "Edit") == 0 && pMsg->message >= WM_KEYFIRST && pMsg->message <= WM_KEYLAST;
    const BOOL taken = typed ? CWnd::PreTranslateMessage(pMsg) : CFrameWnd::PreTranslateMessage(pMsg);
    if (pMsg->message == WM_SYSKEYDOWN) {
        m_altTaken = taken != FALSE;
    }
    return taken;
}

void CPlannerFrame::OnUpdateFrameTitle(BOOL)
{
    CPlannerDoc* document = Document();
    if (!document) {
        return;
    }
    const CString title = CString(document->IsModified() ? "*" : "") + document->GetTitle() + " - " + m_strTitle;
    CString shown;
    GetWindowText(shown);
    if (shown != title) {
        SetWindowText(title);
    }
}

LRESULT CPlannerFrame::OnLoaded(WPARAM, LPARAM)
{
    const std::vector<planner::Message>& messages = Document()->Calendar().Messages();
    m_messagePane.Show(messages);
    m_messagePane.ShowWindow(messages.empty() ? SW_HIDE : SW_SHOWNA);
    RecalcLayout();
    if (m_day.GetStatus() != COleDateTime::valid) {
        m_day = FirstDay();
    }
    m_items.Attach(nullptr);
    SetUpView();
    m_sidePane.DocumentChanged();
    CString told;
    if (!messages.empty()) {
        told.Format(messages.size() == 1 ? "One thing of the file is not shown or not understood: see above"
                                         : "%d things of the file are not shown or not understood: see above",
                    static_cast<int>(messages.size()));
    }
    Tell(told);
    return 0;
}

// Today; when the file has nothing in the months around it, the day of its last item before or its first behind.
COleDateTime CPlannerFrame::FirstDay()
{
    constexpr planner::LocalTime around = 60 * planner::kDaySeconds;
    const COleDateTime today = dayvane::StartOfDay(dayvane::Now());
    const planner::LocalTime now = planner::LocalOfDate(today);
    const planner::Document& calendar = Document()->Calendar();
    if (!calendar.OccurrencesIn(now - around, now + around).empty()) {
        return today;
    }
    const auto behind = calendar.OccurrencesIn(now, planner::kEndOfTime);
    const auto before = behind.empty() ? calendar.OccurrencesIn(planner::kEarliestTime, now) : behind;
    if (before.empty()) {
        return today;
    }
    const planner::Occurrence& shown = behind.empty() ? before.back() : behind.front();
    return dayvane::StartOfDay(planner::DateOfLocal(shown.times.start));
}

// ---- Views

// The view is there; it gets its settings, its date and its items.
void CPlannerFrame::SetUpView()
{
    CCalendarView* view = DYNAMIC_DOWNCAST(CCalendarView, GetDlgItem(AFX_IDW_PANE_FIRST));
    CCalendarCtrl* ctrl = view ? view->GetCalendarCtrl() : nullptr;
    m_items.Attach(ctrl);
    if (!ctrl) {
        return;
    }
    planner::SetUpControl(m_view, *ctrl, m_mondayFirst);
    ApplySettings(*ctrl);
    SetUpPrinter();
    GoTo(m_day);
    ApplyTimeScale();
    ShowFirstHours();
}

void CPlannerFrame::ShowView(const planner::ChosenView& view)
{
    CPlannerDoc* document = Document();
    m_editor.Commit();
    CView* old = static_cast<CView*>(GetDlgItem(AFX_IDW_PANE_FIRST));
    m_day = ShownDay();
    const planner::Occurrence* current = m_items.Current();
    const planner::OccurrenceId id = current ? current->id : planner::OccurrenceId();
    m_view = view;
    m_items.Attach(nullptr);

    CCreateContext context;
    context.m_pNewViewClass = view.row->viewClass;
    context.m_pCurrentDoc = document;
    context.m_pLastView = old;
    context.m_pCurrentFrame = this;
    old->SetDlgCtrlID(AFX_IDW_PANE_FIRST + 1);
    CView* fresh = static_cast<CView*>(CreateView(&context, AFX_IDW_PANE_FIRST));
    if (!fresh) {
        old->SetDlgCtrlID(AFX_IDW_PANE_FIRST);
        ShowProblem("This view could not be opened.");
        return;
    }
    SetActiveView(fresh);
    old->DestroyWindow();
    RecalcLayout();
    SetUpView();
    m_items.Select(id);
    fresh->SetFocus();
}

COleDateTime CPlannerFrame::ShownDay()
{
    CCalendarCtrl* ctrl = m_items.Ctrl();
    if (!ctrl) {
        return m_day;
    }
    COleDateTime begin, end, first, last;
    ctrl->GetViewRange(first, last);
    const int selected = ctrl->GetSelRange(begin, end);
    return dayvane::StartOfDay(selected && begin >= first && begin <= last ? begin : ctrl->GetCurrentDate());
}

void CPlannerFrame::GoTo(const COleDateTime& day)
{
    CCalendarCtrl* ctrl = m_items.Ctrl();
    if (!ctrl || day.GetStatus() != COleDateTime::valid) {
        return;
    }
    m_day = day;
    if (m_view.row->hasTimes) { // the selected row is one that is in sight
        ctrl->SetCurrentDate(dayvane::AddMinutes(day, kFirstHour / planner::kMinuteSeconds));
    } else {
        ctrl->SetCurrentDate(day);
        ctrl->SetSelRange(day, day);
    }
    m_items.LoadIfMoved(Document()->Calendar());
    ctrl->Refresh();
    Follow();
}

// A time grid comes to the morning, or to an item that is earlier.
void CPlannerFrame::ShowFirstHours()
{
    CTimeGridCtrl* grid = DYNAMIC_DOWNCAST(CTimeGridCtrl, m_items.Ctrl());
    if (grid) {
        const COleDateTime hour = planner::DateOfLocal(m_items.EarliestStart(kFirstHour));
        grid->PostMessage(WM_VSCROLL, SB_TOP);
        grid->SyncToPresent(&hour);
    }
}

// Bars and panes show what the view shows.
void CPlannerFrame::Follow()
{
    const COleDateTime day = ShownDay();
    m_followed = day;
    m_items.DropHidden();
    m_toolBar.Follow(day);
    m_sidePane.Follow(day);
    CString count;
    const int items = m_items.CountInView();
    count.Format(items == 1 ? "%d item" : "%d items", items);
    m_statusBar.SetPaneText(kCountPane, count);
}

void CPlannerFrame::Idle()
{
    if (m_items.Ctrl() && !m_items.Ctrl()->IsDragging() && ShownDay() != m_followed) {
        Follow();
    }
    const planner::Occurrence* current = m_items.Current();
    const planner::OccurrenceId id = current ? current->id : planner::OccurrenceId();
    if (id != m_toldItem) {
        ShowCurrent();
    }
}

void CPlannerFrame::ApplyTheme()
{
    const CalendarTheme theme = planner::ThemeOf(m_theme);
    if (m_items.Ctrl()) {
        planner::ShowTheme(*m_items.Ctrl(), m_theme);
    }
    m_toolBar.SetTheme(m_theme);
    m_sidePane.SetTheme(m_theme);
    m_messagePane.SetTheme(theme);
    m_statusBar.SetTheme(theme);
    planner::ShowTitleInTheme(m_hWnd, theme);
}

// The zoom is the view's alone.
void CPlannerFrame::ApplyScale()
{
    constexpr int percent = 100;
    if (m_items.Ctrl()) {
        m_items.Ctrl()->SetScale(m_dpi * m_zoom / percent);
    }
    m_toolBar.SetScale(m_dpi);
    m_sidePane.SetScale(m_dpi);
    m_messagePane.SetScale(m_dpi);
    m_statusBar.SetScale(m_dpi);
    m_statusBar.SetPaneInfo(kCountPane, 0, 0, MulDiv(kCountPaneWidth, m_dpi, dayvane::kBaseDpi));
    RecalcLayout();
}

void CPlannerFrame::ApplySettings(CCalendarCtrl& ctrl)
{
    tagCALENDAR_WORK_TIME hours;
    hours.dtStart.SetTime(kOfficeOpens, 0, 0);
    hours.dtEnd.SetTime(kOfficeCloses, 0, 0);
    ctrl.SetWorkTime(hours);
    planner::ShowTheme(ctrl, m_theme);
    ctrl.SetScale(m_dpi * m_zoom / 100);
    ctrl.ShowHoliday(m_holidays);
    ctrl.Show24Setuki(m_solarTerms);
    m_sidePane.SetFirstDayOfWeek(m_mondayFirst ? dayvane::kMonday : dayvane::kSunday);
}

// ---- The outcome of edits

void CPlannerFrame::Finish(const planner::EditResult& result)
{
    CPlannerDoc* document = Document();
    m_items.Load(document->Calendar());
    if (result.isDone) {
        Reveal(result.id);
    } else {
        ShowProblem(result.problem.c_str());
    }
    document->UpdateFrameCounts();
    m_sidePane.DocumentChanged();
    Follow();
}

// Makes the item current, in view.
void CPlannerFrame::Reveal(const planner::OccurrenceId& id)
{
    const auto occurrence = id.event != planner::kNoEvent ? Document()->Calendar().Find(id) : std::nullopt;
    if (!occurrence) {
        return;
    }
    COleDateTime first, last;
    m_items.Ctrl()->GetViewRange(first, last);
    const COleDateTime start = planner::DateOfLocal(occurrence->times.start);
    const COleDateTime end = planner::DateOfLocal(occurrence->LastDay() * planner::kDaySeconds);
    if (start > last || dayvane::EndOfDay(end) < first) {
        GoTo(dayvane::StartOfDay(start));
    }
    m_items.Select(id);
    ShowCurrent();
}

void CPlannerFrame::ShowCurrent()
{
    const planner::Occurrence* current = m_items.Current();
    m_toldItem = current ? current->id : planner::OccurrenceId();
    Tell(current ? planner::SystemText(planner::DetailsOf(*current)) : CString());
}

void CPlannerFrame::ShowProblem(const CString& problem)
{
    ::MessageBeep(MB_ICONWARNING);
    Tell(problem);
}

void CPlannerFrame::Tell(const CString& text)
{
    m_told = text;
    SetMessageText(text);
}

// When a menu closes, the status bar says again what it said before.
LRESULT CPlannerFrame::OnSetMessageString(WPARAM wParam, LPARAM lParam)
{
    const bool idle = wParam == AFX_IDS_IDLEMESSAGE && lParam == 0;
    return CFrameWnd::OnSetMessageString(wParam, idle ? reinterpret_cast<LPARAM>(m_told.GetString()) : lParam);
}

// ---- Notifications

// The view hands on what its control tells. The usual way of notifications would ask the active view first, which would
// hand it on again.
BOOL CPlannerFrame::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (wParam != AFX_IDW_PANE_FIRST) {
        return CFrameWnd::OnNotify(wParam, lParam, pResult);
    }
    NMHDR* header = reinterpret_cast<NMHDR*>(lParam);
    AFX_NOTIFY notify = {pResult, header};
    return CCmdTarget::OnCmdMsg(AFX_IDW_PANE_FIRST, MAKELONG(header->code, WM_NOTIFY), &notify, nullptr);
}

LRESULT CPlannerFrame::OnPicked(WPARAM wParam, LPARAM)
{
    constexpr int yearFactor = 100; // of the picker's numbers
    const int year = static_cast<int>(wParam) / yearFactor;
    const int month = static_cast<int>(wParam) % yearFactor;
    GoTo(COleDateTime(year, month, 1, 0, 0, 0));
    return 0;
}

void CPlannerFrame::OnItemOpen(NMHDR* pHeader, LRESULT* pResult)
{
    *pResult = 0;
    if (reinterpret_cast<const NMCALENDARITEM*>(pHeader)->nItem >= 0) {
        m_editor.BeginRename(planner::Scope::ThisOccurrence);
    } else {
        OnNewItem();
    }
}

void CPlannerFrame::OnItemMenu(NMHDR* pHeader, LRESULT* pResult)
{
    constexpr int editMenu = 1; // position in the menu bar
    CPoint point(reinterpret_cast<const NMCALENDARITEM*>(pHeader)->pt);
    ::ClientToScreen(pHeader->hwndFrom, &point);
    const planner::Occurrence* pressed = m_items.At(reinterpret_cast<const NMCALENDARITEM*>(pHeader)->nItem);
    const planner::OccurrenceId id = pressed ? pressed->id : planner::OccurrenceId();
    m_editor.Commit();
    m_items.Select(id);
    ::TrackPopupMenu(::GetSubMenu(::GetMenu(m_hWnd), editMenu), TPM_LEFTALIGN | TPM_RIGHTBUTTON, point.x, point.y, 0,
                     m_hWnd, nullptr);
    *pResult = 0;
}

void CPlannerFrame::OnItemMoved(NMHDR* pHeader, LRESULT* pResult)
{
    Finish(m_editor.Moved(Document()->Calendar(), *reinterpret_cast<const NMCALENDARITEM*>(pHeader)));
    *pResult = 0;
}

void CPlannerFrame::OnEditEnded(NMHDR* pHeader, LRESULT* pResult)
{
    Finish(m_editor.EndEdit(Document()->Calendar(), *reinterpret_cast<const NMCALENDAREDIT*>(pHeader)));
    *pResult = 0;
}

void CPlannerFrame::OnRangeChanged(NMHDR*, LRESULT* pResult)
{
    if (m_items.Ctrl()) {
        m_items.LoadIfMoved(Document()->Calendar());
        m_followed.SetStatus(COleDateTime::null); // when the scrolling is over
    }
    *pResult = 0;
}

void CPlannerFrame::OnDaySelected(NMHDR* pHeader, LRESULT* pResult)
{
    GoTo(dayvane::StartOfDay(COleDateTime(reinterpret_cast<const NMSELCHANGE*>(pHeader)->stSelStart)));
    *pResult = 0;
}
