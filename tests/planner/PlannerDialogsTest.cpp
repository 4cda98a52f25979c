// The planner's dialogs, in both languages, and what its window does with files that change under it.
#include "PlannerTesting.h"

#include "core/DrawingHelpers.h"
#include "core/ThemeColors.h"
#include "planner/EventDialog.h"
#include "planner/ItemClipboard.h"
#include "planner/Words.h"

#include <algorithm>
#include <fstream>
#include <set>

namespace {

using namespace plannertesting;
using planner::JapaneseFor;

std::string ReadFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

void WriteFile(const std::string& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

// ---- Languages

void CollectMenu(HMENU menu, std::set<std::string>& texts)
{
    for (int i = 0; i < ::GetMenuItemCount(menu); ++i) {
        char text[256] = "";
        ::GetMenuString(menu, static_cast<UINT>(i), text, sizeof(text), MF_BYPOSITION);
        const std::string whole = text;
        texts.insert(whole.substr(0, whole.find('\t')));
        if (const HMENU inner = ::GetSubMenu(menu, i)) {
            CollectMenu(inner, texts);
        }
    }
}

TEST(PlannerLanguage, EveryTextOfMenusAndDialogsHasJapanese)
{
    planner::SetLanguage(planner::Language::English);
    std::set<std::string> texts;
    const HMENU menu = ::LoadMenu(::GetModuleHandle(nullptr), MAKEINTRESOURCE(IDR_MAINFRAME));
    CollectMenu(menu, texts);
    ::DestroyMenu(menu);
    for (const UINT id :
         {IDD_PAGES, IDD_SCOPE, IDD_EVENT, IDD_GO_TO, IDD_FIND, IDD_REMINDERS, IDD_CHANGED, IDD_PROGRESS, IDD_ASK}) {
        CDialog dialog;
        ASSERT_TRUE(dialog.Create(id, CWnd::FromHandle(::GetDesktopWindow()))) << id;
        texts.insert(planner::WindowUtf8(dialog));
        for (HWND child = ::GetWindow(dialog, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
            char name[16] = "";
            ::GetClassName(child, name, sizeof(name));
            if (::lstrcmpi(name, "Button") == 0 || ::lstrcmpi(name, "Static") == 0) {
                texts.insert(planner::WindowUtf8(child));
            }
        }
        dialog.DestroyWindow();
    }
    for (UINT id = 1; id <= 0xFFFF; ++id) {
        CString all, line;
        if (id != IDR_MAINFRAME && all.LoadString(id) && AfxExtractSubString(line, all, 0)) {
            texts.insert(line.GetString());
        }
    }
    for (const std::string_view form : planner::MessageForms()) {
        texts.emplace(form);
    }
    texts.erase("");
    texts.erase("%1");
    texts.erase(" ");
    texts.erase("-");
    EXPECT_GT(texts.size(), 100u);
    for (const std::string& text : texts) {
        EXPECT_FALSE(JapaneseFor(text).empty()) << text << ": to be added to JapaneseWords.cpp";
    }
}

class PlannerDialogs : public PlannerWindow
{
protected:
    void SetUp() override
    {
        PlannerWindow::SetUp();
        planner::SetAnswerer([this](const std::string& question, UINT) {
            m_questions.push_back(question);
            return m_answer;
        });
    }
    void TearDown() override
    {
        planner::SetLanguage(planner::Language::English);
        ::SetFileAttributes(m_path.c_str(), FILE_ATTRIBUTE_NORMAL);
        PlannerWindow::TearDown();
    }
    // A dialog of this thread that is shown, by its title.
    static HWND DialogNamed(const char* title)
    {
        DialogSearch search = {title, nullptr};
        ::EnumThreadWindows(::GetCurrentThreadId(), &PlannerDialogs::Look, reinterpret_cast<LPARAM>(&search));
        return search.found;
    }
    planner::Occurrence At15() { return m_document->Calendar().OccurrencesIn(At("20260415"), At("20260416")).front(); }

    struct DialogSearch
    {
        std::string title;
        HWND found;
    };
    static BOOL CALLBACK Look(HWND window, LPARAM data)
    {
        DialogSearch& wanted = *reinterpret_cast<DialogSearch*>(data);
        if (::IsWindowVisible(window) && planner::WindowUtf8(window) == wanted.title) {
            wanted.found = window;
        }
        return TRUE;
    }

    int m_answer = IDCANCEL;
    std::vector<std::string> m_questions;
};

TEST_F(PlannerDialogs, TheWindowChangesItsLanguageAtOnce)
{
    const auto fileMenu = [&] {
        wchar_t text[64] = L"";
        ::GetMenuStringW(::GetMenu(m_frame->m_hWnd), 0, text, 64, MF_BYPOSITION);
        return planner::Utf8Of(text);
    };
    const auto todayTool = [&] {
        wchar_t text[64] = L"";
        TBBUTTONINFOW info = {};
        info.cbSize = sizeof(info);
        info.dwMask = TBIF_TEXT;
        info.pszText = text;
        info.cchText = 64;
        ::SendMessageW(m_frame->GetDlgItem(AFX_IDW_TOOLBAR)->m_hWnd, TB_GETBUTTONINFOW, ID_VIEW_TODAY,
                       reinterpret_cast<LPARAM>(&info));
        return planner::Utf8Of(text);
    };
    m_frame->SpeakLanguage(planner::Language::Japanese);
    EXPECT_EQ(fileMenu(), u8"ファイル(&F)") << "whatever the system's code page";
    EXPECT_EQ(todayTool(), u8"今日");
    m_frame->SpeakLanguage(planner::Language::English);
    EXPECT_EQ(fileMenu() + todayTool(), "&FileToday");
}

// ---- Themes

// Colours of the control: in the middle of its left and of its upper edge, and near its upper right corner, where it
// has no scroll bar, which is the system's; those of them that lie on the screen.
std::vector<COLORREF> LooksOf(HWND control)
{
    ::RedrawWindow(control, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_UPDATENOW | RDW_ALLCHILDREN);
    CRect all;
    ::GetWindowRect(control, &all);
    CWindowDC dc(CWnd::FromHandle(control));
    constexpr int inside = 5; // pixels
    const bool hasBar =
        (::GetWindowLong(control, GWL_STYLE) & (ES_MULTILINE | WS_VSCROLL)) == (ES_MULTILINE | WS_VSCROLL);
    std::vector<COLORREF> looks = {dc.GetPixel(0, all.Height() / 2), dc.GetPixel(all.Width() / 2, 0),
                                   dc.GetPixel(hasBar ? inside : all.Width() - inside, inside)};
    looks.erase(std::remove(looks.begin(), looks.end(), CLR_INVALID), looks.end());
    return looks;
}

// Edges, buttons and arrows too, which the system would paint light.
constexpr double kLight = 12; // a contrast to black; the edge of what has the focus is below it
TEST_F(PlannerDialogs, NothingOfADialogIsLightInTheDarkTheme)
{
    const planner::DialogLook before = planner::TheDialogLook();
    planner::TheDialogLook() = {144, CalendarTheme::Dark()};
    CEventDialog::Choices choices;
    choices.zones = {""};
    CEventDialog dialog(planner::FormOf(At15()), choices, m_frame);
    ASSERT_TRUE(dialog.Create(IDD_EVENT, m_frame));
    dialog.ShowWindow(SW_SHOW);
    PumpMessages();
    int looked = 0;
    for (HWND child = ::GetWindow(dialog, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
        char name[32] = "";
        ::GetClassName(child, name, sizeof(name));
        for (const COLORREF color : ::IsWindowVisible(child) ? LooksOf(child) : std::vector<COLORREF>()) {
            EXPECT_LT(dayvane::ContrastOf(color, RGB(0, 0, 0)), kLight)
                << name << " " << planner::WindowUtf8(child) << std::hex << " " << color;
            ++looked;
        }
    }
    EXPECT_GT(looked, 60);
    dialog.DestroyWindow();
    planner::TheDialogLook() = before;
}

// ---- The event dialog

bool HasGlyph(CWnd* field, wchar_t character)
{
    CClientDC dc(field);
    const dayvane::SelectGdi font(&dc, field->GetFont());
    WORD glyph = 0;
    ::GetGlyphIndicesW(dc, &character, 1, &glyph, GGI_MARK_NONEXISTING_GLYPHS);
    return glyph != 0xFFFF;
}

TEST_F(PlannerDialogs, TheEventDialogSaysWhatIsWrongBesideTheField)
{
    planner::SetLanguage(planner::Language::Japanese);
    const planner::EventForm form = planner::FormOf(At15());
    CEventDialog::Choices choices;
    choices.zones = {""};
    CEventDialog dialog(form, choices, m_frame);
    ASSERT_TRUE(dialog.Create(IDD_EVENT, m_frame));
    const auto type = [&](int field, const char* text) { planner::SetItemUtf8(dialog, field, text); };
    const auto said = [&](int label) { return planner::ItemUtf8(dialog, label); };
    EXPECT_EQ(planner::WindowUtf8(dialog), u8"予定");

    const std::string title = u8"会議 한국어"; // beyond every code page
    type(IDC_TITLE, title.c_str());
    EXPECT_TRUE(HasGlyph(dialog.GetDlgItem(IDC_TITLE), L'\x4F1A')) << "also where the dialog's font has no Japanese";
    type(IDC_START_DATE, "17.4");
    EXPECT_EQ(said(IDC_END_DATE), "2026-04-17") << "the end keeps its distance";
    EXPECT_EQ(said(IDC_START_PROBLEM) + said(IDC_END_PROBLEM), "");
    type(IDC_END_DATE, "16.4");
    EXPECT_EQ(said(IDC_END_PROBLEM), u8"終了が開始より前です");
    dialog.SendMessage(WM_COMMAND, IDOK);
    EXPECT_EQ(::GetFocus(), ::GetDlgItem(dialog, IDC_END_DATE)) << "it stays open and goes to the field";
    type(IDC_END_DATE, u8"4月18日");
    EXPECT_EQ(said(IDC_END_PROBLEM), "");
    EXPECT_EQ(said(IDC_RULE_SENTENCE), u8"繰り返しなし");
    ::SendDlgItemMessage(dialog, IDC_RULE_KIND, CB_SETCURSEL, 2, 0); // weekly
    dialog.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_RULE_KIND, CBN_SELCHANGE),
                       reinterpret_cast<LPARAM>(::GetDlgItem(dialog, IDC_RULE_KIND)));
    PumpMessages();
    EXPECT_EQ(said(IDC_RULE_SENTENCE), u8"毎週 金曜日");
    dialog.SendMessage(WM_COMMAND, IDC_ADD_REMINDER);
    dialog.SendMessage(WM_COMMAND, IDOK);
    EXPECT_EQ(dialog.Form().title, title);
    EXPECT_EQ(dialog.Form().reminders, std::vector<std::int64_t>{600});
    const planner::EventChanges changes = planner::ChangesOf(form, dialog.Form(), nullptr);
    EXPECT_EQ(*changes.rule, "FREQ=WEEKLY;BYDAY=FR");
    EXPECT_EQ(planner::Shown(changes.times->end), "20260418T1030");
    dialog.DestroyWindow();
}

// ---- Beside the window

TEST_F(PlannerDialogs, FindGoesToWhatIsChosen)
{
    m_frame->GoTo(COleDateTime(2026, 9, 1, 0, 0, 0));
    m_frame->SendMessage(WM_COMMAND, ID_EDIT_FIND);
    const HWND find = DialogNamed("Find");
    ASSERT_TRUE(find);
    planner::SetWindowUtf8(::GetDlgItem(find, IDC_FIND_WORDS), "TRI");
    EXPECT_EQ(::SendDlgItemMessage(find, IDC_FIND_LIST, LB_GETCOUNT, 0, 0), 1);
    ::SendMessage(find, WM_COMMAND, IDOK, 0);
    ASSERT_TRUE(m_frame->Items().Current());
    EXPECT_EQ(m_frame->Items().Current()->event->summary, "Trip");
    EXPECT_TRUE(::IsWindowVisible(find)) << "for the next one";
    ::SendMessage(find, WM_COMMAND, IDCANCEL, 0);
    EXPECT_FALSE(::IsWindowVisible(find));
}

class PlannerReminders : public PlannerDialogs
{
protected:
    std::string FileText() override
    {
        return planner::CalendarWith({"UID:r", "DTSTART:20260415T093000Z", "SUMMARY:Call", "BEGIN:VALARM",
                                      "ACTION:DISPLAY", "TRIGGER:-PT15M", "END:VALARM"});
    }
};

TEST_F(PlannerReminders, RemindersComeUpAndAreDismissedInTheFile)
{
    const planner::PresentTime before = {At("20260415T0914"), 0}, due = {At("20260415T0916"), 0};
    m_frame->CheckReminders(before);
    EXPECT_FALSE(DialogNamed("Reminders"));
    m_frame->CheckReminders(due);
    const HWND box = DialogNamed("Reminders");
    ASSERT_TRUE(box);
    EXPECT_EQ(::SendDlgItemMessage(box, IDC_REMINDER_LIST, LB_GETCOUNT, 0, 0), 1);
    ::SendMessage(box, WM_COMMAND, IDC_DISMISS, 0);
    EXPECT_FALSE(::IsWindowVisible(box));
    EXPECT_NE(Bytes().find("ACKNOWLEDGED:"), std::string::npos);
    m_frame->CheckReminders(due);
    EXPECT_FALSE(DialogNamed("Reminders"));
    m_frame->SendMessage(WM_COMMAND, ID_EDIT_UNDO);
    EXPECT_EQ(Bytes(), FileText());
}

// ---- Files

TEST_F(PlannerDialogs, AFileThatAnotherProgramChangedIsMerged)
{
    messages::Drag(Ctrl(), PointOf("Meeting"), CellOf(17));
    const std::string theirs = Replaced(kFile, "SUMMARY:Trip", "SUMMARY:Journey");
    WriteFile(m_path, theirs);
    m_frame->SendMessage(WM_COMMAND, ID_FILE_SAVE);
    EXPECT_EQ(ReadFile(m_path), theirs) << "cancelled: nothing is written";
    m_answer = IDC_CHANGED_MERGE;
    m_frame->SendMessage(WM_COMMAND, ID_FILE_SAVE);
    const std::string both =
        Replaced(Replaced(theirs, "20260415T093000", "20260417T093000"), "20260415T103000", "20260417T103000");
    EXPECT_EQ(ReadFile(m_path), both);
    EXPECT_FALSE(m_document->IsModified());
    EXPECT_EQ(m_questions.size(), 2u);
    m_frame->SendMessage(WM_COMMAND, ID_FILE_SAVE);
    EXPECT_EQ(m_questions.size(), 2u) << "its own file is no surprise";

    messages::Drag(Ctrl(), PointOf("Journey"), CellOf(10));
    WriteFile(m_path, kFile);
    m_answer = IDC_CHANGED_RELOAD;
    m_frame->SendMessage(WM_COMMAND, ID_FILE_SAVE);
    EXPECT_EQ(Bytes(), kFile);
    EXPECT_FALSE(m_document->IsModified());
}

TEST_F(PlannerDialogs, AVanishedOrReadOnlyFileIsSaidBeforeAnythingIsWritten)
{
    messages::Drag(Ctrl(), PointOf("Meeting"), CellOf(17));
    ::SetFileAttributes(m_path.c_str(), FILE_ATTRIBUTE_READONLY);
    m_frame->SendMessage(WM_COMMAND, ID_FILE_SAVE);
    EXPECT_EQ(m_questions.size(), 1u);
    EXPECT_EQ(ReadFile(m_path), kFile);
    ::SetFileAttributes(m_path.c_str(), FILE_ATTRIBUTE_HIDDEN);
    m_frame->SendMessage(WM_COMMAND, ID_FILE_SAVE);
    EXPECT_EQ(ReadFile(m_path), Bytes());
    EXPECT_TRUE(::GetFileAttributes(m_path.c_str()) & FILE_ATTRIBUTE_HIDDEN) << "attributes stay";
    std::remove(m_path.c_str());
    m_frame->SendMessage(WM_COMMAND, ID_FILE_SAVE);
    EXPECT_EQ(m_questions.size(), 2u);
    EXPECT_EQ(ReadFile(m_path), "");
    m_answer = IDOK;
    m_frame->SendMessage(WM_COMMAND, ID_FILE_SAVE);
    EXPECT_EQ(ReadFile(m_path), Bytes());
}

TEST_F(PlannerDialogs, UnsavedChangesAreKeptBesideTheFileAndOffered)
{
    const std::string copy = m_path + ".autosave";
    m_document->KeepCopy();
    EXPECT_EQ(ReadFile(copy), "") << "nothing is changed";
    messages::Drag(Ctrl(), PointOf("Meeting"), CellOf(17));
    const std::string moved = Bytes();
    m_document->KeepCopy();
    EXPECT_EQ(ReadFile(copy), moved);
    EXPECT_FALSE(planner::AutoSave::LeftFor(m_path.c_str())) << "while its planner lives nobody else takes it";
    m_frame->SendMessage(WM_COMMAND, ID_FILE_SAVE);
    EXPECT_EQ(::GetFileAttributes(copy.c_str()), INVALID_FILE_ATTRIBUTES) << "removed on save";

    WriteFile(copy, kFile); // as after a crash
    m_answer = IDYES;
    m_document->OnOpenDocument(m_path.c_str());
    EXPECT_EQ(Bytes(), kFile);
    EXPECT_TRUE(m_document->IsModified());
    EXPECT_EQ(m_questions.size(), 1u);
    m_document->SetModifiedFlag(FALSE);
    m_document->KeepCopy();
    WriteFile(copy, kFile);
    m_answer = IDNO;
    m_document->OnOpenDocument(m_path.c_str());
    EXPECT_EQ(Bytes(), moved);
    EXPECT_EQ(::GetFileAttributes(copy.c_str()), INVALID_FILE_ATTRIBUTES);
}

// ---- The clipboard

TEST_F(PlannerDialogs, WhatIsCopiedIsPastedAtTheSelection)
{
    messages::Click(Ctrl(), PointOf("Meeting"));
    m_frame->SendMessage(WM_COMMAND, ID_EDIT_COPY);
    messages::Click(Ctrl(), CellOf(8));
    m_frame->SendMessage(WM_COMMAND, ID_EDIT_PASTE);
    EXPECT_EQ(planner::Shown(m_document->Calendar().OccurrencesIn(At("20260401"), At("20260416"))),
              "20260408T0930/20260408T1030 20260415T0930/20260415T1030");
    m_frame->SendMessage(WM_COMMAND, ID_EDIT_UNDO);
    EXPECT_EQ(Bytes(), kFile);
    const auto text = planner::TakeFromClipboard(*m_frame);
    ASSERT_TRUE(text && text->isCalendar);

    ASSERT_TRUE(planner::PutOnClipboard(*m_frame, "", "Dentist\r\nBring the card"));
    planner::PastedText plain;
    plain.text = "Dentist\r\nBring the card";
    const planner::MergeReport report =
        planner::PasteText(m_document->Calendars(), plain, {At("20260409"), At("20260410"), true});
    const auto made = m_document->Calendar().Find(report.edit.id);
    ASSERT_TRUE(made);
    EXPECT_EQ(made->event->summary + "|" + made->event->description, "Dentist|Bring the card");
}

} // namespace
