// The commands about several calendars, and about which items are shown.
#include "planner/PlannerFrame.h"

#include "core/CalendarClock.h"
#include "core/DateMath.h"
#include "planner/AgendaView.h"
#include "planner/ItemBridge.h"
#include "planner/WideText.h"
#include "planner/Words.h"
#include "planner/resource.h"

#include <algorithm>

namespace {

// Around the shown day: events this far away are asked for their categories.
constexpr planner::LocalTime kAround = 400 * planner::kDaySeconds;

std::string ForMenu(const std::string& name)
{
    std::string text;
    for (const char c : name) {
        text += c == '&' ? "&&" : std::string(1, c);
    }
    return text;
}

void AddItem(HMENU menu, UINT command, const std::string& text, bool isChecked)
{
    ::AppendMenuW(menu, MF_STRING | (isChecked ? MF_CHECKED : 0), command, planner::Wide(text).c_str());
}

} // namespace

planner::CalendarSet& CPlannerFrame::Calendars()
{
    return Document()->Calendars();
}

// ---- What is opened

LRESULT CPlannerFrame::OnLoaded(WPARAM, LPARAM)
{
    const std::vector<planner::Message> messages = Document()->Messages();
    ShowMessages({});
    if (!dayvane::IsValid(m_day)) {
        m_day = FirstDay();
    }
    m_items.Attach(nullptr);
    m_reminders.Forget();
    SetUpView();
    m_sidePane.ShowCalendars(Calendars());
    m_sidePane.DocumentChanged();
    RefreshFound();
    RememberFile();
    ShowStatus(messages.empty()       ? std::string()
               : messages.size() == 1 ? planner::Tr("One thing of the file is not shown or not understood: see above")
                                      : planner::Tr("%1 things of the file are not shown or not understood: see above",
                                                    std::to_string(messages.size())));
    return 0;
}

// Those of the calendars, then others.
void CPlannerFrame::ShowMessages(const std::vector<planner::Message>& others)
{
    std::vector<planner::Message> messages = Document()->Messages();
    messages.insert(messages.end(), others.begin(), others.end());
    m_messagePane.Show(messages);
    m_messagePane.ShowWindow(messages.empty() ? SW_HIDE : SW_SHOWNA);
    RecalcLayout();
}

// Today; when the file has nothing in the months around it, the day of its last item before or its first after.
COleDateTime CPlannerFrame::FirstDay()
{
    // Further and further: series would be expanded as far as one asks.
    constexpr planner::LocalTime reaches[] = {60 * planner::kDaySeconds, 800 * planner::kDaySeconds,
                                              20000 * planner::kDaySeconds, planner::kEndOfTime};
    const COleDateTime today = dayvane::StartOfDay(dayvane::Now());
    const planner::LocalTime now = planner::LocalOfDate(today);
    const planner::CalendarSet& calendar = Calendars();
    if (!calendar.OccurrencesIn(now - reaches[0], now + reaches[0]).empty()) {
        return today;
    }
    for (const planner::LocalTime reach : reaches) {
        const auto after = calendar.OccurrencesIn(now, std::min(now + reach, planner::kEndOfTime));
        if (!after.empty()) {
            return dayvane::StartOfDay(planner::DateOfLocal(after.front().times.start));
        }
    }
    for (const planner::LocalTime reach : reaches) {
        const auto before = calendar.OccurrencesIn(std::max(now - reach, planner::kEarliestTime), now);
        if (!before.empty()) {
            return dayvane::StartOfDay(planner::DateOfLocal(before.back().times.start));
        }
    }
    return today;
}

// What is shown of the calendars is another choice of them.
void CPlannerFrame::ShowCalendars()
{
    m_sidePane.ShowCalendars(Calendars());
    m_items.Load(Calendars());
    if (CAgendaView* agenda = Agenda()) {
        agenda->Reload();
        m_items.KeepListed(agenda->Chosen());
    }
    m_sidePane.DocumentChanged();
    RefreshFound();
    Follow();
}

void CPlannerFrame::OnOpenFurther()
{
    std::string path;
    if (planner::PromptFile(this, planner::FilePrompt::Open, planner::CalendarFilter(), "ics", path)) {
        Document()->OpenFurther(path);
    }
}

void CPlannerFrame::OnSaveWorkspace()
{
    if (Document()->Path().empty() && !Document()->DoFileSave()) {
        return; // a calendar without a file cannot be found again
    }
    std::string path = Document()->WorkspacePath();
    const std::string filter = planner::Tr("Workspaces (*.planner)") + "|*.planner|";
    if (planner::PromptFile(this, planner::FilePrompt::Save, filter, "planner", path) &&
        Document()->SaveWorkspace(path)) {
        RememberFile();
    }
}

// ---- The list in the side pane

LRESULT CPlannerFrame::OnCalendarAction(WPARAM wParam, LPARAM lParam)
{
    const std::size_t index = static_cast<std::size_t>(lParam);
    if (index >= Calendars().Members().size()) {
        return 0;
    }
    m_editor.Commit();
    m_menuCalendar = index;
    switch (static_cast<CalendarAction>(wParam)) {
    case CalendarAction::Toggle:
        OnCalendarCommand(ID_CALENDAR_SHOW);
        break;
    case CalendarAction::Target:
        OnCalendarCommand(ID_CALENDAR_TARGET);
        break;
    case CalendarAction::Close:
        OnCalendarCommand(ID_CALENDAR_CLOSE);
        break;
    case CalendarAction::Menu:
        OpenCalendarMenu();
        break;
    }
    return 0;
}

void CPlannerFrame::OpenCalendarMenu()
{
    const planner::CalendarSet::Member& member = Calendars().Members()[m_menuCalendar];
    const HMENU menu = ::CreatePopupMenu(), colors = ::CreatePopupMenu();
    AddItem(menu, ID_CALENDAR_SHOW, planner::Tr("&Show"), member.isShown);
    AddItem(menu, ID_CALENDAR_TARGET, planner::Tr("&New items go here"), Calendars().Target() == m_menuCalendar);
    AddItem(colors, ID_CALENDAR_COLOR_FIRST, planner::Tr("By &category"),
            member.color == planner::CalendarSet::kByCategory);
    for (int i = 0; i < planner::kPaletteColors; ++i) {
        AddItem(colors, ID_CALENDAR_COLOR_FIRST + 1 + static_cast<UINT>(i), planner::Tr(planner::PaletteName(i)),
                member.color == i);
    }
    ::AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(colors), planner::Wide(planner::Tr("C&olour")).c_str());
    if (m_menuCalendar != 0) {
        ::AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        AddItem(menu, ID_CALENDAR_CLOSE, planner::Tr("&Close this calendar"), false);
    }
    CPoint point;
    ::GetCursorPos(&point);
    const UINT chosen = static_cast<UINT>(
        ::TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON, point.x, point.y, 0, m_hWnd, nullptr));
    ::DestroyMenu(menu);
    if (chosen != 0) {
        OnCalendarCommand(chosen);
    }
}

void CPlannerFrame::OnCalendarCommand(UINT nID)
{
    planner::CalendarSet& calendars = Calendars();
    switch (nID) {
    case ID_CALENDAR_SHOW:
        calendars.Show(m_menuCalendar, !calendars.Members()[m_menuCalendar].isShown);
        break;
    case ID_CALENDAR_TARGET:
        calendars.SetTarget(m_menuCalendar);
        calendars.Show(m_menuCalendar, true); // a new item must not vanish
        break;
    case ID_CALENDAR_CLOSE:
        Document()->CloseFurther(m_menuCalendar);
        break;
    default:
        calendars.SetColor(m_menuCalendar, static_cast<int>(nID) - ID_CALENDAR_COLOR_FIRST - 1);
        break;
    }
    ShowCalendars();
}

// ---- Categories

// The submenu is made when it opens, of the categories that there are around the shown day and those that are hidden.
void CPlannerFrame::OnInitMenuPopup(CMenu* pPopupMenu, UINT nIndex, BOOL bSysMenu)
{
    const HMENU menu = pPopupMenu ? pPopupMenu->m_hMenu : nullptr;
    if (menu && !bSysMenu && ::GetMenuItemID(menu, 0) == ID_CATEGORY_ALL) {
        const planner::LocalTime day = planner::LocalOfDate(ShownDay());
        std::set<std::string> names = Calendars().CategoriesIn(day - kAround, day + kAround);
        names.insert(Calendars().HiddenCategories().begin(), Calendars().HiddenCategories().end());
        names.erase("");
        m_categories.assign(1, "");
        m_categories.insert(m_categories.end(), names.begin(), names.end());
        m_categories.resize(std::min<std::size_t>(m_categories.size(), ID_CATEGORY_LAST - ID_CATEGORY_FIRST + 1));
        while (::DeleteMenu(menu, 1, MF_BYPOSITION)) {
        }
        ::AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        for (std::size_t i = 0; i < m_categories.size(); ++i) {
            const std::string name = i == 0 ? planner::Tr("&Without a category") : ForMenu(m_categories[i]);
            AddItem(menu, ID_CATEGORY_FIRST + static_cast<UINT>(i), name, false);
        }
    }
    CFrameWnd::OnInitMenuPopup(pPopupMenu, nIndex, bSysMenu);
}

void CPlannerFrame::OnCategory(UINT nID)
{
    std::set<std::string> hidden = Calendars().HiddenCategories();
    const std::size_t index = nID - ID_CATEGORY_FIRST;
    if (nID == ID_CATEGORY_ALL) {
        hidden.clear();
    } else if (index < m_categories.size() && hidden.erase(m_categories[index]) == 0) {
        hidden.insert(m_categories[index]);
    }
    Calendars().HideCategories(hidden);
    ShowCalendars();
}

void CPlannerFrame::OnUpdateCategory(CCmdUI* pCmdUI)
{
    const std::set<std::string>& hidden = Calendars().HiddenCategories();
    const std::size_t index = pCmdUI->m_nID - ID_CATEGORY_FIRST;
    pCmdUI->Enable(TRUE);
    pCmdUI->SetCheck(pCmdUI->m_nID == ID_CATEGORY_ALL
                         ? hidden.empty()
                         : index < m_categories.size() && hidden.count(m_categories[index]) == 0);
}
