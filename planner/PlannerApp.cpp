// The planner: shows and edits iCalendar files with every view of the library.
#include <afxext.h>
#include <afxpriv.h>
#include <afxwin.h>

#include "planner/CommandLine.h"
#include "planner/PlannerFrame.h"
#include "planner/Settings.h"
#include "planner/SystemText.h"
#include "planner/WideText.h"
#include "planner/WindowPicture.h"
#include "planner/resource.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <shellapi.h>

namespace {
constexpr char kListPage[] = "list"; // on the command line: the month as a list, which is a page but no view
} // namespace

class CPlannerApp : public CWinApp
{
public:
    CPlannerApp() : CWinApp("Planner") {}
    BOOL InitInstance() override;
    BOOL OnIdle(LONG lCount) override;
    int ExitInstance() override
    {
        dayvane::SetDefaultDayProvider(nullptr);
        return m_failed ? EXIT_FAILURE : CWinApp::ExitInstance();
    }

protected:
    afx_msg void OnFileOpen();
    DECLARE_MESSAGE_MAP()

private:
    void TakeSettings(CPlannerFrame::Start& start);
    void TakeLine(CPlannerFrame::Start& start);
    void ReportMessages(CPlannerFrame& frame);
    void PrintPages(CPlannerFrame& frame);

    planner::CommandLine m_line;
    bool m_failed = false;
};

BEGIN_MESSAGE_MAP(CPlannerApp, CWinApp)
ON_COMMAND(ID_FILE_NEW, &CWinApp::OnFileNew)
ON_COMMAND(ID_FILE_OPEN, &CPlannerApp::OnFileOpen)
ON_COMMAND(ID_FILE_PRINT_SETUP, &CWinApp::OnFilePrintSetup)
END_MESSAGE_MAP()

CPlannerApp theApp;

// Those of the system in UTF-8: the narrow ones have lost the letters that its code page lacks.
static std::vector<std::string> Arguments()
{
    int count = 0;
    wchar_t** const all = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; all && i < count; ++i) {
        arguments.push_back(planner::Utf8Of(all[i]));
    }
    ::LocalFree(all);
    return arguments;
}

void CPlannerApp::OnFileOpen()
{
    std::string path;
    if (planner::PromptFile(m_pMainWnd, planner::FilePrompt::Open, planner::CalendarFilter(), "ics", path)) {
        OpenDocumentFile(path.c_str());
    }
}

BOOL CPlannerApp::InitInstance()
{
    dayvane::SetDefaultDayProvider(&planner::TheDays()); // today's law and the exact sky, in every view
    AfxSetTranslator([](LPCTSTR english) { return planner::Wide(planner::Tr(english)); });
    m_line = planner::ParseCommandLine(Arguments());
    CPlannerFrame::Start& start = CPlannerFrame::s_start;
    planner::Settings& settings = planner::TheSettings();
    if (!m_line.settings.empty()) {
        settings.Open(planner::SystemPath(m_line.settings));
    } else if (m_line.shot.empty() && m_line.pages.empty()) {
        settings.Open(planner::Settings::UsualFile());
    }
    TakeSettings(start);
    TakeLine(start);
    AddDocTemplate(new CSingleDocTemplate(IDR_MAINFRAME, RUNTIME_CLASS(CPlannerDoc), RUNTIME_CLASS(CPlannerFrame),
                                          planner::DefaultView().row->viewClass));
    if (!m_line.file.empty() && !OpenDocumentFile(m_line.file.c_str())) {
        m_failed = !m_line.shot.empty() || !m_line.pages.empty();
    }
    if (m_failed || (!m_pMainWnd && !OpenDocumentFile(nullptr))) {
        return FALSE;
    }
    CPlannerFrame& frame = static_cast<CPlannerFrame&>(*m_pMainWnd);
    if (!m_line.problem.empty()) {
        std::fprintf(stderr, "planner: %s\n", m_line.problem.c_str());
        frame.ShowProblem(m_line.problem);
    }
    ReportMessages(frame);
    const std::string list = settings.Text().Get("Days", "holidays");
    const std::string holidays = m_line.holidays.empty() ? list : m_line.holidays;
    if (!holidays.empty()) {
        frame.ShowHolidaysOf(holidays);
    }
    if (!m_line.dialog.empty() && !frame.OpenDialog(m_line.dialog)) {
        frame.ShowProblem("There is no dialog '" + m_line.dialog + "'.");
    }
    return TRUE;
}

// What the command line asks for; m_line.problem says which of it there is not.
void CPlannerApp::TakeLine(CPlannerFrame::Start& start)
{
    const bool asList = m_line.view == kListPage && !m_line.pages.empty();
    start.asList = asList;
    start.view = asList ? planner::DefaultView() : m_line.view.empty() ? start.view : planner::FindView(m_line.view);
    if (!start.view.row) {
        m_line.problem = "There is no view '" + m_line.view + "'; there are " + planner::ViewNames() + ".";
    }
    if (!m_line.theme.empty()) {
        const std::optional<planner::ThemeChoice> theme = planner::FindTheme(m_line.theme);
        start.theme = theme.value_or(start.theme);
        m_line.problem = theme ? m_line.problem : "There is no theme '" + m_line.theme + "'.";
    }
    if (!start.days.Take(m_line.days)) {
        m_line.problem = "--days does not take '" + m_line.days + "'.";
    }
    start.days.secondClock = m_line.zone.empty() ? start.days.secondClock : m_line.zone;
    start.day.SetStatus(COleDateTime::null);
    if (m_line.date) {
        start.day = COleDateTime(m_line.date->year, m_line.date->month, m_line.date->day, 0, 0, 0);
    }
    if (m_line.scale) {
        constexpr int percent = 100;
        start.dpi = dayvane::kBaseDpi * *m_line.scale / percent;
    }
    if (m_line.size) {
        start.size = CSize(m_line.size->width, m_line.size->height);
    }
}

// What the last start has left; the command line goes before it.
void CPlannerApp::TakeSettings(CPlannerFrame::Start& start)
{
    planner::Settings& settings = planner::TheSettings();
    const planner::IniText& ini = settings.Text();
    planner::SetLanguage(planner::LanguageOf(m_line.language.empty() ? settings.LanguageName() : m_line.language));
    start.view = planner::FindView(ini.Get("View", "view", planner::DefaultView().row->name));
    if (!start.view.row) {
        start.view = planner::DefaultView();
    }
    start.view.days =
        std::clamp(ini.GetNumber("View", "days", start.view.days), planner::kFewestDays, planner::kMostDays);
    start.theme = planner::FindTheme(ini.Get("View", "theme")).value_or(start.theme);
    m_nCmdShow = ini.GetNumber("Window", "maximized", 0) != 0 ? SW_SHOWMAXIMIZED : m_nCmdShow;
    constexpr int least = 200, most = 20000; // pixels
    start.size.cx = std::clamp<int>(ini.GetNumber("Window", "width", start.size.cx), least, most);
    start.size.cy = std::clamp<int>(ini.GetNumber("Window", "height", start.size.cy), least, most);
    start.days.Take(ini.Get("Days", "shown"));
    start.days.secondClock = ini.Get("Days", "secondClock");
    if (m_line.copySeconds > 0) {
        start.copySeconds = static_cast<UINT>(m_line.copySeconds);
    }
    const std::wstring folder = planner::Settings::UsualFile();
    if (settings.IsKept() && m_line.settings.empty()) {
        const std::wstring own = folder.substr(0, folder.find_last_of(L'\\') + 1) + L"Untitled.ics";
        CPlannerDoc::s_untitled = planner::Utf8Of(own);
    }
}

// A program started from a console reports there, too, what it could not read.
void CPlannerApp::ReportMessages(CPlannerFrame& frame)
{
    for (const planner::Message& message : frame.Document()->Messages()) {
        std::fprintf(stderr, "line %d: %s\n", message.line, planner::SystemText(planner::Tr(message)).GetString());
    }
    std::fflush(stderr);
}

void CPlannerApp::PrintPages(CPlannerFrame& frame)
{
    const std::string file = planner::SystemOf(m_line.pages).GetString();
    m_line.pages.clear();
    CString problem;
    const int pages = frame.PrintTo(file.c_str(), m_line.paper, problem);
    m_failed = pages == 0;
    std::fprintf(m_failed ? stderr : stdout, "%s\n",
                 m_failed ? problem.GetString() : (std::to_string(pages) + (pages == 1 ? " page" : " pages")).c_str());
    std::fflush(stdout);
    frame.DestroyWindow();
}

// The picture is taken when nothing is left to be done or painted.
BOOL CPlannerApp::OnIdle(LONG lCount)
{
    const BOOL more = CWinApp::OnIdle(lCount);
    if (lCount == 0 && m_pMainWnd) {
        static_cast<CPlannerFrame*>(m_pMainWnd)->Idle();
    }
    if (!more && !m_line.pages.empty() && m_pMainWnd) {
        PrintPages(*static_cast<CPlannerFrame*>(m_pMainWnd));
    } else if (!more && !m_line.shot.empty() && m_pMainWnd) {
        m_pMainWnd->RedrawWindow(nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        m_failed = !planner::SaveWindowPicture(*m_pMainWnd, planner::SystemOf(m_line.shot));
        m_line.shot.clear();
        m_pMainWnd->DestroyWindow();
    }
    return more;
}
