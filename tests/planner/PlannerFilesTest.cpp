// The planner's window with several calendars, files of any name, files that take long, and drops from other programs.
#include "PlannerTesting.h"

#include "planner/DragDrop.h"
#include "planner/ProgressDialog.h"
#include "planner/Settings.h"
#include "planner/Words.h"

#include <fstream>
#include <map>

namespace {

using namespace plannertesting;

const std::string kHome =
    planner::Joined({"BEGIN:VCALENDAR", "BEGIN:VEVENT", "UID:h", "DTSTART:20260416T180000", "DTEND:20260416T190000",
                     "CATEGORIES:Sport", "SUMMARY:Training", "END:VEVENT", "END:VCALENDAR"});

class PlannerFiles : public PlannerWindow
{
protected:
    void SetUp() override
    {
        PlannerWindow::SetUp();
        m_folder = m_path.substr(0, m_path.find_last_of('\\') + 1) + "dv" + std::to_string(::GetCurrentProcessId());
        ::CreateDirectoryA(m_folder.c_str(), nullptr);
        planner::SetAnswerer([this](const std::string& question, UINT) {
            m_questions.push_back(question);
            return m_answer;
        });
    }
    void TearDown() override
    {
        PlannerWindow::TearDown();
        for (auto file = m_made.rbegin(); file != m_made.rend(); ++file) {
            ::DeleteFileW(planner::SystemPath(*file).c_str());
            ::RemoveDirectoryW(planner::SystemPath(*file).c_str());
        }
        ::RemoveDirectoryA(m_folder.c_str());
    }
    // UTF-8 path of a file of the test's own folder.
    std::string Make(const std::string& name, const std::string& bytes)
    {
        m_made.push_back(m_folder + "\\" + name);
        EXPECT_EQ(planner::WriteWholeFile(m_made.back(), bytes), 0u);
        return m_made.back();
    }
    void Command(UINT id) { m_frame->SendMessage(WM_COMMAND, id); }
    void Calendar(CalendarAction action, int index)
    {
        m_frame->SendMessage(WM_PLANNER_CALENDAR, static_cast<WPARAM>(action), index);
    }
    int ItemCount() { return m_frame->Items().CountInView(); }

    std::string m_folder;
    std::vector<std::string> m_made;
    int m_answer = IDCANCEL;
    std::vector<std::string> m_questions;
};

TEST_F(PlannerFiles, CalendarsBesideEachOtherAreShownEditedSavedAndKeptAsAWorkspace)
{
    const int before = ItemCount();
    const std::string home = Make("home.ics", kHome);
    ASSERT_TRUE(m_document->OpenFurther(home));
    EXPECT_FALSE(m_document->OpenFurther(home)) << "it is open";
    EXPECT_EQ(ItemCount(), before + 1);
    Calendar(CalendarAction::Toggle, 0);
    EXPECT_EQ(ItemCount(), 1) << "the first one is hidden";
    messages::Drag(Ctrl(), PointOf("Training"), CellOf(10));
    EXPECT_EQ(m_document->Calendars().IsModified(), true);
    EXPECT_FALSE(m_document->IsModified()) << "not this file";
    Calendar(CalendarAction::Target, 1);
    messages::Click(Ctrl(), CellOf(9));
    Key(VK_INSERT);
    TypeAndEnter("Match");
    Command(ID_FILE_SAVE);
    EXPECT_EQ(Bytes(), kFile);
    const std::string saved = planner::ReadWholeFile(home).value_or("");
    EXPECT_NE(saved.find("DTSTART:20260410T180000"), std::string::npos);
    EXPECT_NE(saved.find("SUMMARY:Match"), std::string::npos);
    Command(ID_EDIT_UNDO);
    Command(ID_EDIT_UNDO);
    Command(ID_FILE_SAVE);
    EXPECT_EQ(planner::ReadWholeFile(home), kHome);

    const std::string workspace = Make("all.planner", "");
    ASSERT_TRUE(m_document->SaveWorkspace(workspace));
    ASSERT_TRUE(m_template->OpenDocumentFile(m_path.c_str()));
    EXPECT_EQ(m_document->Calendars().Members().size(), 1u) << "a file that is opened stands alone";
    ASSERT_TRUE(m_template->OpenDocumentFile(workspace.c_str()));
    const auto& members = m_document->Calendars().Members();
    ASSERT_EQ(members.size(), 2u);
    EXPECT_FALSE(members[0].isShown);
    EXPECT_EQ(m_document->Calendars().Target(), 1u);
    EXPECT_EQ(m_document->Path(), m_path);
    EXPECT_EQ(planner::WindowUtf8(m_frame->m_hWnd), "all.planner - Planner");

    m_document->Calendars().SetText(m_document->Calendars().OccurrencesIn(At("20260401"), At("20260501"))[0].id,
                                    planner::TextField::Summary, "Changed", planner::Scope::ThisOccurrence);
    Calendar(CalendarAction::Close, 1);
    EXPECT_EQ(m_questions.size(), 1u) << "changes are asked about";
    EXPECT_EQ(members.size(), 2u);
    m_answer = IDNO;
    Calendar(CalendarAction::Close, 1);
    EXPECT_EQ(members.size(), 1u);
    EXPECT_EQ(planner::ReadWholeFile(home), kHome);
}

TEST_F(PlannerFiles, NamesInAnyScriptAndLongPathsAreOpenedAndSaved)
{
    const std::string script = "\xE4\xBA\x88\xE5\xAE\x9A \xD0\xBF\xD0\xBB\xD0\xB0\xD0\xBD \xF0\x9F\x93\x85.ics";
    const std::string deep(120, 'd'), folder = m_folder + "\\" + deep;
    for (const std::string& each : {folder, folder + "\\" + deep}) {
        m_made.push_back(each);
        ASSERT_TRUE(::CreateDirectoryW(planner::SystemPath(each).c_str(), nullptr));
    }
    for (const std::string& name : {script, deep + "\\" + deep + "\\" + script}) {
        const std::string path = Make(name, kFile);
        ASSERT_TRUE(m_template->OpenDocumentFile(path.c_str())) << path;
        EXPECT_EQ(planner::WindowUtf8(m_frame->m_hWnd), script + " - Planner");
        messages::Drag(Ctrl(), PointOf("Meeting"), CellOf(17));
        m_document->KeepCopy();
        EXPECT_TRUE(planner::ReadWholeFile(path + ".autosave"));
        Command(ID_FILE_SAVE);
        EXPECT_EQ(planner::ReadWholeFile(path), Bytes());
        EXPECT_NE(Bytes(), kFile);
        EXPECT_FALSE(planner::ReadWholeFile(path + ".autosave"));
        EXPECT_TRUE(m_questions.empty()) << m_questions.front();
    }
}

TEST_F(PlannerFiles, WhatCannotBeWrittenIsSaidAndNothingIsLost)
{
    const std::string neighbour = m_path + ".new"; // a file of the user, with a name that is easily taken for a copy
    std::ofstream(neighbour) << "theirs";
    messages::Drag(Ctrl(), PointOf("Meeting"), CellOf(17));
    const std::string moved = Bytes();
    EXPECT_FALSE(m_document->DoSave((m_folder + "\\gone\\x.ics").c_str()));
    ASSERT_EQ(m_questions.size(), 1u);
    EXPECT_EQ(m_questions[0], "The folder or the drive of " + m_folder + "\\gone\\x.ics is not there.");
    EXPECT_EQ(m_document->Path(), m_path);
    EXPECT_TRUE(m_document->IsModified());

    const HANDLE held = ::CreateFileA(m_path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_FALSE(m_document->DoFileSave()) << "somebody else holds it";
    ::CloseHandle(held);
    EXPECT_EQ(m_questions.size(), 2u);
    EXPECT_EQ(planner::ReadWholeFile(m_path), kFile);
    WIN32_FIND_DATAA left;
    const HANDLE search =
        ::FindFirstFileA((m_path.substr(0, m_path.find_last_of('\\')) + "\\~planner*").c_str(), &left);
    EXPECT_EQ(search, INVALID_HANDLE_VALUE) << "no half file is left";
    EXPECT_TRUE(m_document->DoFileSave());
    EXPECT_EQ(planner::ReadWholeFile(m_path), moved);
    EXPECT_EQ(planner::ReadWholeFile(neighbour), "theirs");
    ::DeleteFileA(neighbour.c_str());
}

bool g_wasShown;

// Presses the button of the dialog, from within the work that it reports.
void CALLBACK EndProgress(HWND, UINT, UINT_PTR, DWORD)
{
    if (const HWND box = ::FindWindow("#32770", nullptr)) {
        g_wasShown = true;
        ::PostMessage(box, WM_COMMAND, IDCANCEL, 0);
    }
}

TEST_F(PlannerFiles, ALongLoadCanBeEndedAndLeavesWhatWasThere)
{
    std::string many = "BEGIN:VCALENDAR\r\n";
    for (int i = 0; i < 20000; ++i) {
        many += "BEGIN:VEVENT\r\nUID:" + std::to_string(i) + "\r\nDTSTART:20260415T093000\r\nEND:VEVENT\r\n";
    }
    const std::string path = Make("many.ics", many + "END:VCALENDAR\r\n");
    const DWORD patience = CProgressDialog::s_patience;
    CProgressDialog::s_patience = 0;
    g_wasShown = false;
    const UINT_PTR timer = ::SetTimer(nullptr, 0, 10, &EndProgress);
    EXPECT_FALSE(m_document->OnOpenDocument(path.c_str()));
    ::KillTimer(nullptr, timer);
    CProgressDialog::s_patience = patience;
    EXPECT_TRUE(g_wasShown);
    EXPECT_EQ(Bytes(), kFile);
    EXPECT_EQ(m_document->Path(), m_path);
    EXPECT_TRUE(m_frame->IsWindowEnabled());
}

// What closes or ends a window under a dialog would take away what the dialog works on.
TEST_F(PlannerFiles, UnderADialogTheWindowStaysAndTheEndOfTheSystemLosesNothing)
{
    Command(ID_EDIT_FIND);
    const HWND find = ::GetLastActivePopup(m_frame->m_hWnd);
    ASSERT_NE(find, m_frame->m_hWnd);
    messages::Drag(Ctrl(), PointOf("Meeting"), CellOf(17));
    const std::string path = m_path, copy = m_path + ".autosave", moved = Bytes();
    m_frame->EnableWindow(FALSE);
    EXPECT_FALSE(::IsWindowEnabled(find)) << "it would change the calendar under the dialog";
    m_frame->SendMessage(WM_CLOSE);
    ASSERT_TRUE(::IsWindow(Ctrl().m_hWnd));
    EXPECT_TRUE(m_frame->SendMessage(WM_QUERYENDSESSION));
    EXPECT_EQ(planner::ReadWholeFile(copy), moved);
    EXPECT_TRUE(m_questions.empty()) << m_questions.front();
    m_frame->EnableWindow(TRUE);
    EXPECT_TRUE(::IsWindowEnabled(find));

    m_document->DeleteContents();
    m_made.push_back(m_folder + "\\gone");
    ASSERT_TRUE(::CreateDirectoryA(m_made.back().c_str(), nullptr));
    const std::string lost = m_made.back() + "\\x.ics";
    planner::WriteWholeFile(lost, kFile);
    ASSERT_TRUE(m_template->OpenDocumentFile(lost.c_str()));
    messages::Drag(Ctrl(), PointOf("Meeting"), CellOf(17));
    ::DeleteFileA(lost.c_str());
    ::RemoveDirectoryA(m_made.back().c_str());
    EXPECT_FALSE(m_frame->SendMessage(WM_QUERYENDSESSION)) << "where no copy can lie, the user is asked";
    EXPECT_EQ(m_questions.size(), 1u);
    m_document->SetModifiedFlag(FALSE);
}

TEST_F(PlannerFiles, ThemeZoomAndPlaceOfTheWindowAreThoseOfTheLastTime)
{
    planner::Settings& settings = planner::TheSettings();
    settings.Open(planner::SystemPath(Make("planner.ini", "")));
    Command(ID_THEME_FIRST + 3);
    Command(ID_ZOOM_IN);
    m_frame->SetWindowPos(nullptr, 40, 60, 900, 700, SWP_NOZORDER);
    const int scale = Ctrl().GetScale();
    const auto again = [this] {
        m_frame->SendMessage(WM_QUERYENDSESSION);
        PlannerWindow::TearDown();
        PlannerWindow::SetUp();
        CRect place;
        m_frame->GetWindowRect(&place);
        return place.TopLeft();
    };
    EXPECT_EQ(again(), CPoint(40, 60));
    EXPECT_EQ(Ctrl().GetScale(), scale);
    EXPECT_EQ(settings.Text().Get("View", "theme"), "dark");
    m_frame->SetWindowPos(nullptr, 20000, 60, 900, 700, SWP_NOZORDER);
    EXPECT_LT(again().x, 20000) << "that screen is gone";
    settings = planner::Settings();
}

TEST_F(PlannerFiles, DropsOfOtherProgramsBecomeItemsWhereTheyFall)
{
    const auto drop = [this](IDataObject* data, CPoint point) {
        Ctrl().ClientToScreen(&point);
        DWORD effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
        m_frame->DropTarget()->DragEnter(data, MK_LBUTTON, {point.x, point.y}, &effect);
        EXPECT_EQ(effect, static_cast<DWORD>(DROPEFFECT_COPY));
        m_frame->DropTarget()->Drop(data, 0, {point.x, point.y}, &effect);
        data->Release();
    };
    drop(planner::NewItemData(kHome, ""), CellOf(8));
    EXPECT_NE(Bytes().find("DTSTART:20260408T180000"), std::string::npos) << "at its own hour";
    EXPECT_NE(Bytes().find("SUMMARY:Training"), std::string::npos);
    Command(ID_EDIT_UNDO);
    EXPECT_EQ(Bytes(), kFile);

    // What leaves the window is both: a calendar for programs that know some, a line of text for others.
    messages::Click(Ctrl(), PointOf("Meeting"));
    const planner::OccurrenceId id = m_frame->Items().Current()->id;
    IDataObject* data = planner::NewItemData(m_document->Calendars().Excerpt({id}, planner::ExcerptForm::Occurrences),
                                             planner::PlainTextOf(m_document->Calendars(), {id}));
    FORMATETC text = {CF_UNICODETEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    STGMEDIUM medium = {};
    ASSERT_EQ(data->GetData(&text, &medium), S_OK);
    EXPECT_EQ(planner::WideTextOfGlobal(medium.hGlobal), "2026-04-15 9:30 - 10:30   Meeting");
    ::ReleaseStgMedium(&medium);
    IEnumFORMATETC* formats = nullptr;
    ASSERT_EQ(data->EnumFormatEtc(DATADIR_GET, &formats), S_OK);
    FORMATETC first = {};
    EXPECT_EQ(formats->Next(1, &first, nullptr), S_OK);
    EXPECT_EQ(first.cfFormat, planner::CalendarFormat());
    formats->Release();
    drop(data, CellOf(22));
    EXPECT_NE(Bytes().find("DTSTART:20260422T093000"), std::string::npos);
}

} // namespace
