// What the planner's window remembers, the language that it speaks, and the files opened before.
#include "planner/PlannerFrame.h"

#include "planner/FindDialog.h"
#include "planner/ReminderDialog.h"
#include "planner/Settings.h"
#include "planner/WideText.h"
#include "planner/Words.h"
#include "planner/resource.h"

#include <algorithm>
#include <climits>

namespace {

// The keys of the settings file.
constexpr char kView[] = "View";
constexpr char kWindow[] = "Window";

constexpr int kLeastZoom = 50; // per cent
constexpr int kMostZoom = 300;

} // namespace

// ---- From one start to the next

void CPlannerFrame::TakeSettings()
{
    const planner::IniText& ini = planner::TheSettings().Text();
    m_mondayFirst = ini.GetNumber(kView, "mondayFirst", m_mondayFirst);
    m_holidays = ini.GetNumber(kView, "holidays", m_holidays);
    m_solarTerms = ini.GetNumber(kView, "solarTerms", m_solarTerms);
    m_remind = ini.GetNumber(kView, "reminders", m_remind);
    m_rowsPerHour = ini.GetNumber(kView, "rowsPerHour", m_rowsPerHour);
    m_zoom = std::clamp(ini.GetNumber(kView, "zoom", m_zoom), kLeastZoom, kMostZoom);
    m_usesTray = ini.GetNumber(kWindow, "tray", m_usesTray);
    TakePlace(ini);
    ShowTray(m_usesTray != FALSE);
    planner::TakePages(ini, m_pages);
    const auto show = [&](const char* key, CWnd& pane) {
        pane.ShowWindow(ini.GetNumber(kWindow, key, TRUE) != 0 ? SW_SHOWNA : SW_HIDE);
    };
    show("sidePane", m_sidePane);
    show("toolBar", m_toolBar);
    show("statusBar", m_statusBar);
}

// Where the window was, as long as there is still a screen.
void CPlannerFrame::TakePlace(const planner::IniText& ini)
{
    constexpr int none = INT_MIN;
    const CPoint at(ini.GetNumber(kWindow, "left", none), ini.GetNumber(kWindow, "top", none));
    if (at.x == none || at.y == none) {
        return;
    }
    CRect place;
    GetWindowRect(&place);
    place.OffsetRect(at - place.TopLeft());
    if (::MonitorFromRect(&place, MONITOR_DEFAULTTONULL)) {
        SetWindowPos(nullptr, at.x, at.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

void CPlannerFrame::KeepSettings()
{
    planner::Settings& settings = planner::TheSettings();
    planner::IniText& ini = settings.Text();
    if (!settings.IsKept()) {
        return;
    }
    ini.Set(kView, "view", m_view.row->name);
    ini.Set(kView, "days", m_view.days);
    ini.Set(kView, "mondayFirst", m_mondayFirst);
    ini.Set(kView, "holidays", m_holidays);
    ini.Set(kView, "solarTerms", m_solarTerms);
    ini.Set(kView, "reminders", m_remind);
    ini.Set(kView, "rowsPerHour", m_rowsPerHour);
    ini.Set(kView, "theme", planner::NameOf(m_theme));
    ini.Set(kView, "zoom", m_zoom);
    KeepDays();
    ini.Set(kWindow, "tray", m_usesTray);
    planner::KeepPages(ini, m_pages);
    ini.Set(kWindow, "sidePane", (m_sidePane.GetStyle() & WS_VISIBLE) != 0);
    ini.Set(kWindow, "toolBar", (m_toolBar.GetStyle() & WS_VISIBLE) != 0);
    ini.Set(kWindow, "statusBar", (m_statusBar.GetStyle() & WS_VISIBLE) != 0);
    ini.Set(kWindow, "maximized", IsZoomed() != FALSE);
    if (!IsIconic() && !IsZoomed()) {
        CRect place;
        GetWindowRect(&place);
        ini.Set(kWindow, "left", static_cast<int>(place.left));
        ini.Set(kWindow, "top", static_cast<int>(place.top));
        ini.Set(kWindow, "width", place.Width());
        ini.Set(kWindow, "height", place.Height());
    }
    settings.Save();
}

// ---- The language

void CPlannerFrame::OnLanguage(UINT nID)
{
    const char* const name = nID == ID_LANGUAGE_ENGLISH ? "en" : nID == ID_LANGUAGE_JAPANESE ? "ja" : "system";
    planner::TheSettings().Text().Set(kView, "language", name);
    SpeakLanguage(planner::LanguageOf(name));
}

void CPlannerFrame::OnUpdateLanguage(CCmdUI* pCmdUI)
{
    const std::string name = planner::TheSettings().LanguageName();
    const UINT chosen = name == "en" ? ID_LANGUAGE_ENGLISH : name == "ja" ? ID_LANGUAGE_JAPANESE : ID_LANGUAGE_SYSTEM;
    pCmdUI->SetRadio(pCmdUI->m_nID == chosen);
}

// Those that stay when they are closed: they take language, theme and scale when they open.
void CPlannerFrame::ForgetDialogs()
{
    m_find.reset();
    m_reminderBox.reset();
}

// Menus and bars take the words at once, dialogs when they open next.
void CPlannerFrame::SpeakLanguage(planner::Language language)
{
    planner::SetLanguage(language);
    ForgetDialogs();
    SpeakOfDays();
    MakeMenu();
    m_toolBar.ShowTexts();
    RecalcLayout();
    m_day = ShownDay();
    SetUpView();
    ShowCurrent();
    Follow();
}

void CPlannerFrame::MakeMenu()
{
    const HMENU menu = ::LoadMenu(AfxGetResourceHandle(), MAKEINTRESOURCE(IDR_MAINFRAME));
    planner::TranslateMenu(menu);
    const HMENU recent = ::GetSubMenu(::GetSubMenu(menu, 0), 2);
    const std::vector<std::string> files = planner::TheSettings().RecentFiles();
    for (std::size_t i = 0; i < files.size(); ++i) {
        std::string name;
        for (const char c : files[i]) {
            name += c == '&' ? "&&" : std::string(1, c);
        }
        const std::wstring text = planner::Wide("&" + std::to_string(i + 1) + "  " + name);
        ::AppendMenuW(recent, MF_STRING, ID_RECENT_FIRST + i, text.c_str());
    }
    if (!files.empty()) {
        ::DeleteMenu(recent, 0, MF_BYPOSITION); // the line that stands for none
    }
    ::SetMenu(m_hWnd, menu);
    if (m_menu) { // the first one of all is the frame's own
        ::DestroyMenu(m_menu);
    }
    m_menu = menu;
    ::DrawMenuBar(m_hWnd);
}

// ---- Files opened before

void CPlannerFrame::OnRecentFile(UINT nID)
{
    const std::vector<std::string> files = planner::TheSettings().RecentFiles();
    const std::size_t index = nID - ID_RECENT_FIRST;
    if (index < files.size() && nID <= ID_RECENT_LAST) {
        AfxGetApp()->OpenDocumentFile(files[index].c_str());
    }
}

void CPlannerFrame::OnUpdateRecent(CCmdUI* pCmdUI)
{
    pCmdUI->Enable(!planner::TheSettings().RecentFiles().empty());
}

void CPlannerFrame::RememberFile()
{
    CPlannerDoc* document = Document();
    if (document && !document->Path().empty()) {
        const std::string path = document->WorkspacePath().empty() ? document->Path() : document->WorkspacePath();
        const std::vector<std::string> files = planner::TheSettings().RecentFiles();
        if (files.empty() || files.front() != path) {
            planner::TheSettings().AddRecentFile(path);
            MakeMenu();
        }
    }
}
