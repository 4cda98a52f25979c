#include "planner/PlannerFrame.h"

#include <afxpriv.h>

#include "core/CalendarClock.h"
#include "core/DateMath.h"
#include "core/WindowHelpers.h"
#include "planner/AgendaView.h"
#include "planner/CalendarLanguage.h"
#include "planner/FindDialog.h"
#include "planner/ItemBridge.h"
#include "planner/PlannerDialog.h"
#include "planner/ReminderDialog.h"
#include "planner/WideText.h"
#include "planner/Words.h"
#include "planner/resource.h"
#include "views/timegrid/TimeGridCtrl.h"

IMPLEMENT_DYNCREATE(CPlannerFrame, CFrameWnd)

namespace {
constexpr planner::LocalTime kEarlyHour = 6 * planner::kHourSeconds;
constexpr planner::LocalTime kFirstHour = 8 * planner::kHourSeconds;
constexpr UINT kSecond = 1000; // milliseconds
constexpr UINT kReminderMilliseconds = 20 * kSecond;
constexpr int kOfficeOpens = 9; // hours, on work days
constexpr int kOfficeCloses = 18;
const UINT g_taskBarMade = TrayIcon::TaskBarMade();
} // namespace

CPlannerFrame::Start CPlannerFrame::s_start;

BEGIN_MESSAGE_MAP(CPlannerFrame, CFrameWnd)
ON_WM_CREATE()
ON_WM_CLOSE()
ON_WM_ENABLE()
ON_WM_QUERYENDSESSION()
ON_WM_TIMER()
ON_WM_DROPFILES()
ON_MESSAGE(WM_SETMESSAGESTRING, &CPlannerFrame::OnSetMessageString)
ON_MESSAGE(WM_PLANNER_CALENDAR, &CPlannerFrame::OnCalendarAction)
ON_WM_INITMENUPOPUP()
ON_WM_DESTROY()
ON_WM_SIZE()
ON_MESSAGE(WM_PLANNER_TRAY, &CPlannerFrame::OnTrayMessage)
ON_REGISTERED_MESSAGE(g_taskBarMade, &CPlannerFrame::OnTaskBarMade)
ON_COMMAND(ID_VIEW_TRAY, &CPlannerFrame::OnTray)
ON_UPDATE_COMMAND_UI(ID_VIEW_TRAY, &CPlannerFrame::OnUpdateTray)
ON_COMMAND(ID_FILE_OPEN_FURTHER, &CPlannerFrame::OnOpenFurther)
ON_COMMAND(ID_FILE_SAVE_WORKSPACE, &CPlannerFrame::OnSaveWorkspace)
ON_COMMAND_RANGE(ID_CATEGORY_ALL, ID_CATEGORY_LAST, &CPlannerFrame::OnCategory)
ON_UPDATE_COMMAND_UI_RANGE(ID_CATEGORY_ALL, ID_CATEGORY_LAST, &CPlannerFrame::OnUpdateCategory)
ON_MESSAGE(WM_PLANNER_LOADED, &CPlannerFrame::OnLoaded)
ON_MESSAGE(WM_PLANNER_CHOSEN, &CPlannerFrame::OnAgendaChosen)
ON_MESSAGE(YMN_SELENDOK, &CPlannerFrame::OnPicked)
ON_NOTIFY(CCN_ITEMRCLICK, AFX_IDW_PANE_FIRST, &CPlannerFrame::OnRightPress)
ON_NOTIFY(CCN_ITEMDBLCLICK, AFX_IDW_PANE_FIRST, &CPlannerFrame::OnItemOpen)
ON_NOTIFY(CCN_RENAME, AFX_IDW_PANE_FIRST, &CPlannerFrame::OnTextAsked)
ON_NOTIFY(CCN_CONTEXTMENU, AFX_IDW_PANE_FIRST, &CPlannerFrame::OnItemMenu)
ON_NOTIFY(CCN_ITEMMOVED, AFX_IDW_PANE_FIRST, &CPlannerFrame::OnItemMoved)
ON_NOTIFY(CCN_IPE_ENDEDITITEM, AFX_IDW_PANE_FIRST, &CPlannerFrame::OnEditEnded)
ON_NOTIFY(CCN_VIEWRANGECHANGE, AFX_IDW_PANE_FIRST, &CPlannerFrame::OnRangeChanged)
ON_NOTIFY(MCN_SELECT, IDC_MINI_CALENDAR, &CPlannerFrame::OnDaySelected)
ON_COMMAND(ID_EDIT_UNDO, &CPlannerFrame::OnUndo)
ON_COMMAND(ID_EDIT_REDO, &CPlannerFrame::OnRedo)
ON_COMMAND(ID_EDIT_NEW_ITEM, &CPlannerFrame::OnNewItem)
ON_COMMAND(ID_EDIT_DETAILS, &CPlannerFrame::OnDetails)
ON_COMMAND(ID_EDIT_NEW_DETAILS, &CPlannerFrame::OnNewDetails)
ON_COMMAND(ID_EDIT_FIND, &CPlannerFrame::OnFind)
ON_COMMAND(ID_EDIT_GO_TO, &CPlannerFrame::OnGoTo)
ON_COMMAND_RANGE(ID_EDIT_COPY, ID_EDIT_CUT, &CPlannerFrame::OnCopy)
ON_COMMAND(ID_EDIT_PASTE, &CPlannerFrame::OnPaste)
ON_COMMAND(ID_FILE_IMPORT, &CPlannerFrame::OnImport)
ON_COMMAND(ID_FILE_EXPORT_ITEMS, &CPlannerFrame::OnExportItems)
ON_COMMAND(ID_VIEW_REMINDERS, &CPlannerFrame::OnReminders)
ON_COMMAND_RANGE(ID_LANGUAGE_SYSTEM, ID_LANGUAGE_JAPANESE, &CPlannerFrame::OnLanguage)
ON_COMMAND_RANGE(ID_RECENT_FIRST, ID_RECENT_LAST, &CPlannerFrame::OnRecentFile)
ON_COMMAND_RANGE(ID_EDIT_RENAME, ID_EDIT_RENAME_SERIES, &CPlannerFrame::OnRename)
ON_COMMAND_RANGE(ID_EDIT_CLEAR, ID_EDIT_CLEAR, &CPlannerFrame::OnDelete)
ON_COMMAND_RANGE(ID_EDIT_DELETE_SERIES, ID_EDIT_DELETE_SERIES, &CPlannerFrame::OnDelete)
ON_COMMAND_RANGE(ID_VIEW_DAY, ID_VIEW_LAST, &CPlannerFrame::OnView)
ON_COMMAND_RANGE(ID_DAYS_FIRST, ID_DAYS_LAST, &CPlannerFrame::OnDays)
ON_COMMAND(ID_VIEW_TODAY, &CPlannerFrame::OnToday)
ON_COMMAND_RANGE(ID_VIEW_PREVIOUS, ID_VIEW_NEXT, &CPlannerFrame::OnStep)
ON_COMMAND_RANGE(ID_SCALE_AUTOMATIC, ID_SCALE_COARSER, &CPlannerFrame::OnScale)
ON_COMMAND_RANGE(ID_DAYS_SHOWN_FIRST, ID_DAYS_SHOWN_LAST, &CPlannerFrame::OnDayChoice)
ON_COMMAND_RANGE(ID_ZONE_FIRST, ID_ZONE_LAST, &CPlannerFrame::OnZone)
ON_COMMAND(ID_HOLIDAYS_LOAD, &CPlannerFrame::OnLoadHolidays)
ON_COMMAND(ID_HOLIDAYS_BY_LAW, &CPlannerFrame::OnHolidaysByLaw)
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
ON_UPDATE_COMMAND_UI(ID_EDIT_DETAILS, &CPlannerFrame::OnUpdateDetails)
ON_UPDATE_COMMAND_UI(ID_EDIT_PASTE, &CPlannerFrame::OnUpdatePaste)
ON_UPDATE_COMMAND_UI(ID_EDIT_COPY, &CPlannerFrame::OnUpdateDetails)
ON_UPDATE_COMMAND_UI(ID_EDIT_CUT, &CPlannerFrame::OnUpdateDetails)
ON_UPDATE_COMMAND_UI(ID_FILE_EXPORT_ITEMS, &CPlannerFrame::OnUpdateExport)
ON_UPDATE_COMMAND_UI(ID_VIEW_REMINDERS, &CPlannerFrame::OnUpdateReminders)
ON_UPDATE_COMMAND_UI_RANGE(ID_LANGUAGE_SYSTEM, ID_LANGUAGE_JAPANESE, &CPlannerFrame::OnUpdateLanguage)
ON_UPDATE_COMMAND_UI(ID_RECENT_FIRST, &CPlannerFrame::OnUpdateRecent)
ON_UPDATE_COMMAND_UI(ID_EDIT_CLEAR, &CPlannerFrame::OnUpdateOfItem)
ON_UPDATE_COMMAND_UI_RANGE(ID_EDIT_RENAME, ID_EDIT_DELETE_SERIES, &CPlannerFrame::OnUpdateOfItem)
ON_UPDATE_COMMAND_UI_RANGE(ID_VIEW_DAY, ID_VIEW_LAST, &CPlannerFrame::OnUpdateView)
ON_UPDATE_COMMAND_UI_RANGE(ID_DAYS_FIRST, ID_DAYS_LAST, &CPlannerFrame::OnUpdateDays)
ON_UPDATE_COMMAND_UI_RANGE(ID_SCALE_AUTOMATIC, ID_SCALE_COARSER, &CPlannerFrame::OnUpdateScale)
ON_UPDATE_COMMAND_UI_RANGE(ID_DAYS_SHOWN_FIRST, ID_DAYS_SHOWN_LAST, &CPlannerFrame::OnUpdateDayChoice)
ON_UPDATE_COMMAND_UI_RANGE(ID_ZONE_FIRST, ID_ZONE_LAST, &CPlannerFrame::OnUpdateZone)
ON_UPDATE_COMMAND_UI(ID_HOLIDAYS_BY_LAW, &CPlannerFrame::OnUpdateHolidaysByLaw)
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
    BeginDayChoices();
}

CPlannerFrame::~CPlannerFrame() = default;

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
    const UINT panes[] = {ID_SEPARATOR, ID_SEPARATOR, ID_SEPARATOR};
    m_statusBar.SetIndicators(panes, sizeof(panes) / sizeof(panes[0]));
    m_statusBar.SetPaneInfo(kCountPane, 0, 0, kCountPaneWidth);
    m_dpi = m_dpi != 0 ? m_dpi : dayvane::DpiOfWindow(m_hWnd);
    m_themeWatch.Follow(true);
    TakeSettings();
    MakeMenu();
    ApplyScale();
    RecalcLayout();
    ::GetCursorPos(&m_pointerBefore);
    DragAcceptFiles();
    BeginDrops();
    SetTimer(kReminderTimer, kReminderMilliseconds, nullptr);
    SetTimer(kCopyTimer, s_start.copySeconds * kSecond, nullptr);
    return 0;
}

CPlannerDoc* CPlannerFrame::Document()
{
    // Any view of it: while a preview is shown, which has no document, the calendar's view is not the first pane.
    for (HWND child = ::GetWindow(m_hWnd, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
        CView* view = DYNAMIC_DOWNCAST(CView, CWnd::FromHandlePermanent(child));
        if (view && view->GetDocument()) {
            return static_cast<CPlannerDoc*>(view->GetDocument());
        }
    }
    return nullptr;
}

// A command ends an edit that is open, so that it works on what is on the screen.
BOOL CPlannerFrame::OnCommand(WPARAM wParam, LPARAM lParam)
{
    m_editor.Commit();
    return !IsReadyToPrint(LOWORD(wParam)) || CFrameWnd::OnCommand(wParam, lParam);
}

planner::CalendarSet* CPlannerFrame::CalendarOf(LPARAM lFrame)
{
    CPlannerDoc* document = reinterpret_cast<CPlannerFrame*>(lFrame)->Document();
    return document ? &document->Calendars() : nullptr;
}

BOOL CPlannerFrame::PreTranslateMessage(MSG* pMsg)
{
    if (pMsg->message >= WM_MOUSEFIRST && pMsg->message <= WM_MOUSELAST) {
        if (DragsOut(*pMsg)) {
            return TRUE;
        }
        FollowPointer(*pMsg);
    }
    const bool isKeyUp = pMsg->message == WM_SYSKEYUP || pMsg->message == WM_KEYUP;
    if (isKeyUp && pMsg->wParam == VK_MENU && m_altTaken) {
        m_altTaken = false;
        return TRUE; // Alt was the half of a command: letting it go must not open the menu bar
    }
    if (pMsg->message == WM_MOUSEWHEEL && (LOWORD(pMsg->wParam) & MK_CONTROL) != 0) {
        Zoom(static_cast<short>(HIWORD(pMsg->wParam)) > 0 ? 1 : -1);
        return TRUE;
    }
    const BOOL taken = CFrameWnd::PreTranslateMessage(pMsg);
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
    const std::string title =
        (document->Calendars().IsModified() ? "*" : "") + document->Name() + " - " + planner::Tr("Planner");
    if (title != m_title) {
        m_title = title;
        planner::SetWindowUtf8(m_hWnd, title);
    }
}

CAgendaView* CPlannerFrame::Agenda()
{
    return DYNAMIC_DOWNCAST(CAgendaView, GetDlgItem(AFX_IDW_PANE_FIRST));
}

LRESULT CPlannerFrame::OnAgendaChosen(WPARAM wParam, LPARAM)
{
    m_items.KeepListed(Agenda()->Chosen());
    ShowCurrent();
    if (wParam != 0 && m_items.Current()) {
        OnDetails();
    }
    return 0;
}

// ---- Views

// The view is there; it gets its settings, its date and its items.
void CPlannerFrame::SetUpView()
{
    CCalendarView* view = DYNAMIC_DOWNCAST(CCalendarView, GetDlgItem(AFX_IDW_PANE_FIRST));
    CCalendarCtrl* ctrl = view ? view->GetCalendarCtrl() : nullptr;
    m_items.Attach(ctrl);
    if (!ctrl) {
        ApplyTexts();
        ApplyTheme();
        ApplyScale();
        GoTo(m_day);
        return;
    }
    planner::SetUpControl(m_view, *ctrl, m_mondayFirst);
    ApplySettings(*ctrl);
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
    m_tip.Destroy();
    m_tipText.clear();

    CCreateContext context;
    context.m_pNewViewClass = view.row->viewClass;
    context.m_pCurrentDoc = document;
    context.m_pLastView = old;
    context.m_pCurrentFrame = this;
    old->SetDlgCtrlID(AFX_IDW_PANE_FIRST + 1);
    CView* fresh = static_cast<CView*>(CreateView(&context, AFX_IDW_PANE_FIRST));
    if (!fresh) {
        old->SetDlgCtrlID(AFX_IDW_PANE_FIRST);
        ShowProblem(planner::Tr("This view could not be opened."));
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
    if (const CAgendaView* agenda = Agenda()) {
        return planner::DateOfLocal(agenda->TopDay() * planner::kDaySeconds);
    }
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
    if (!dayvane::IsValid(day)) {
        return;
    }
    m_day = day;
    if (CAgendaView* agenda = Agenda()) {
        agenda->GoTo(planner::DayOfTime(planner::LocalOfDate(day)));
        Follow();
    }
    if (!ctrl) {
        return;
    }
    if (m_view.row->hasTimes) { // the selected row is one that is in sight
        ctrl->SetCurrentDate(dayvane::AddMinutes(day, kFirstHour / planner::kMinuteSeconds));
    } else {
        ctrl->SetCurrentDate(day);
        ctrl->SetSelRange(day, day);
    }
    m_items.LoadIfMoved(Calendars());
    ctrl->Refresh();
    Follow();
}

// A time grid comes to the morning, or to an early item; what lies in the night is not waited for.
void CPlannerFrame::ShowFirstHours()
{
    CTimeGridCtrl* grid = DYNAMIC_DOWNCAST(CTimeGridCtrl, m_items.Ctrl());
    if (grid) {
        const COleDateTime hour = planner::DateOfLocal(m_items.EarliestStart(kEarlyHour, kFirstHour));
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
    ShowDayNotes(day); // changes the widths of the panes, which takes the texts away that the framework does not know
    const int items = m_items.CountInView();
    const CPlannerDoc* document = Document();
    const bool isFiltered = document && document->IsFiltered();
    const char* const text = isFiltered ? "%1 items (filter)" : items == 1 ? "%1 item" : "%1 items";
    const std::wstring count = planner::Wide(Agenda() ? std::string() : planner::Tr(text, std::to_string(items)));
    ::SendMessageW(m_statusBar, SB_SETTEXTW, kCountPane, reinterpret_cast<LPARAM>(count.c_str()));
}

void CPlannerFrame::Idle()
{
    if (m_items.Ctrl() && !m_items.Ctrl()->IsDragging()) {
        m_items.LoadIfMoved(Calendars());
        if (ShownDay() != m_followed) {
            Follow();
        }
    }
    const planner::Occurrence* current = m_items.Current();
    const planner::OccurrenceId id = current ? current->id : planner::OccurrenceId();
    if (id != m_statusItem) {
        ShowCurrent();
    }
}

void CPlannerFrame::ApplyTheme()
{
    const CalendarTheme theme = planner::ThemeOf(m_theme);
    if (m_items.Ctrl()) {
        planner::ShowTheme(*m_items.Ctrl(), m_theme);
    }
    if (!(planner::TheDialogLook().theme == theme)) {
        planner::TheDialogLook().theme = theme;
        ForgetDialogs();
    }
    if (CAgendaView* agenda = Agenda()) {
        agenda->SetTheme(theme);
    }
    m_tip.SetTheme(theme);
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
    if (planner::TheDialogLook().dpi != m_dpi) {
        planner::TheDialogLook().dpi = m_dpi;
        ForgetDialogs();
    }
    if (CAgendaView* agenda = Agenda()) {
        agenda->SetScale(m_dpi * m_zoom / percent);
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
    ctrl.SetFonts(CalendarFonts::Modern());
    ctrl.SetScale(m_dpi * m_zoom / 100);
    ctrl.ShowHoliday(m_holidays);
    ctrl.Show24Setuki(m_solarTerms);
    ctrl.SetTexts(planner::CalendarTextsOf(planner::CurrentLanguage() == planner::Language::Japanese));
    ApplyTexts();
    ApplyDays(ctrl);
}

// Of what stands beside every view.
void CPlannerFrame::ApplyTexts()
{
    const CalendarTexts texts = planner::CalendarTextsOf(planner::CurrentLanguage() == planner::Language::Japanese);
    m_sidePane.SetTexts(texts);
    m_toolBar.SetTexts(texts);
    m_sidePane.Calendar().ShowEraTitles(m_days.lines.eraTitles);
    m_sidePane.SetFirstDayOfWeek(m_mondayFirst ? dayvane::kMonday : dayvane::kSunday);
    // Weeks from Monday are those of ISO 8601; from Sunday the first is the one with 1 January.
    m_days.lines.weekRule = m_mondayFirst ? dayvane::WeekRule::FirstFourDayWeek : dayvane::WeekRule::WithFirstDay;
}

// ---- The outcome of edits

void CPlannerFrame::Finish(const planner::EditResult& result)
{
    CPlannerDoc* document = Document();
    m_items.Load(document->Calendars());
    if (CAgendaView* agenda = Agenda()) {
        agenda->Reload();
        m_items.KeepListed(agenda->Chosen());
    }
    if (result.isDone) {
        Reveal(result.id);
    } else {
        ShowProblem(planner::Tr(result.problem));
    }
    document->UpdateFrameCounts();
    m_sidePane.DocumentChanged();
    RefreshFound();
    Follow();
}

void CPlannerFrame::RefreshFound()
{
    if (m_find) {
        m_find->Refresh();
    }
}

// Makes the item current, in view.
void CPlannerFrame::Reveal(const planner::OccurrenceId& id)
{
    const auto occurrence = id.event != planner::kNoEvent ? Calendars().Find(id) : std::nullopt;
    if (!occurrence) {
        return;
    }
    if (CAgendaView* agenda = Agenda()) {
        if (!agenda->Choose(id)) {
            agenda->GoTo(planner::DayOfTime(occurrence->times.start));
            agenda->Choose(id);
        }
        agenda->Invalidate(FALSE);
        m_items.KeepListed(occurrence);
        ShowCurrent();
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
    m_statusItem = current ? current->id : planner::OccurrenceId();
    ShowStatus(current ? planner::DetailsOf(*current) : std::string());
}

void CPlannerFrame::ShowProblem(const std::string& problem)
{
    ::MessageBeep(MB_ICONWARNING);
    ShowStatus(problem);
}

void CPlannerFrame::ShowStatus(const std::string& text)
{
    m_statusText = text;
    SetMessageText("");
}

// A command's line in the user's language. When a menu closes, the status bar says again what it said before.
LRESULT CPlannerFrame::OnSetMessageString(WPARAM wParam, LPARAM lParam)
{
    std::string text = m_statusText;
    if (wParam != AFX_IDS_IDLEMESSAGE && lParam == 0) {
        CString all, line;
        all.LoadString(static_cast<UINT>(wParam));
        AfxExtractSubString(line, all, 0);
        text = planner::Tr(line.GetString());
    }
    const std::wstring wide = planner::Wide(text);
    ::SendMessageW(m_statusBar, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(wide.c_str()));
    return 0;
}

// ---- Notifications

// The view passes on what its control reports. The usual way of notifications would ask the active view first, which
// would pass it on again.
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

void CPlannerFrame::OnRangeChanged(NMHDR*, LRESULT* pResult)
{
    if (m_items.Ctrl()) {
        m_items.LoadIfMoved(Calendars());
        m_followed.SetStatus(COleDateTime::null); // when the scrolling is over
    }
    *pResult = 0;
}

void CPlannerFrame::OnDaySelected(NMHDR* pHeader, LRESULT* pResult)
{
    GoTo(dayvane::StartOfDay(COleDateTime(reinterpret_cast<const NMSELCHANGE*>(pHeader)->stSelStart)));
    *pResult = 0;
}
