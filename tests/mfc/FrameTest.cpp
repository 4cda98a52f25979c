// Frames, views and documents: a program of one document, from opening to closing, with real windows.
#include "WindowTesting.h"

#include <afxext.h>

#include <algorithm>
#include <functional>
#include <set>
#include <string>

namespace {

using Log = std::vector<std::string>;

constexpr UINT kCommandView = 0x8201;
constexpr UINT kCommandDocument = 0x8202;
constexpr UINT kCommandFrame = 0x8203;
constexpr UINT kCommandApp = 0x8204;
constexpr UINT kCommandNobody = 0x8205;

Log* theLog = nullptr;

void Note(const std::string& word)
{
    if (theLog) {
        theLog->push_back(word);
    }
}

class TestDocument : public CDocument
{
    DECLARE_DYNCREATE(TestDocument)
public:
    ~TestDocument() override { Note("document gone"); }
    int m_value = 0;

    void Serialize(CArchive& ar) override
    {
        if (ar.IsStoring()) {
            ar << m_value;
        } else {
            ar >> m_value;
        }
    }
    void DeleteContents() override { m_value = 0; }

protected:
    afx_msg void OnDocumentCommand() { Note("document command"); }
    DECLARE_MESSAGE_MAP()
};

IMPLEMENT_DYNCREATE(TestDocument, CDocument)
BEGIN_MESSAGE_MAP(TestDocument, CDocument)
ON_COMMAND(kCommandDocument, &TestDocument::OnDocumentCommand)
END_MESSAGE_MAP()

class TestView : public CView
{
    DECLARE_DYNCREATE(TestView)
public:
    ~TestView() override { Note("view gone"); }
    UINT m_lastPage = 0xFFFF; // to print; 0xffff: not known
    WORD m_from = 0;          // the range that the user chose; 0: all
    WORD m_to = 0;
    HDC m_hReal = nullptr; // of the printer whose context a test has taken away
    std::function<void(CDC*, UINT)> m_onPage;

    void OnInitialUpdate() override { Note("initial update"); }

protected:
    void OnDraw(CDC* pDC) override
    {
        if (!pDC->IsPrinting()) {
            Note("draw");
        }
    }
    void OnUpdate(CView* pSender, LPARAM lHint, CObject*) override
    {
        Note("update " + std::to_string(lHint) + (pSender ? " from a view" : ""));
    }
    BOOL OnPreparePrinting(CPrintInfo* pInfo) override
    {
        pInfo->m_pPD->m_pd.hDC = ::CreateEnhMetaFile(nullptr, nullptr, nullptr, nullptr);
        pInfo->SetMaxPage(m_lastPage);
        if (m_from != 0) {
            pInfo->m_pPD->m_pd.Flags |= PD_PAGENUMS;
            pInfo->m_pPD->m_pd.nFromPage = m_from;
            pInfo->m_pPD->m_pd.nToPage = m_to;
        }
        pInfo->m_bDirect = TRUE;
        return DoPreparePrinting(pInfo);
    }
    void OnBeginPrinting(CDC* pDC, CPrintInfo*) override { Note(pDC->IsPrinting() ? "begin" : "begin?"); }
    void OnPrint(CDC* pDC, CPrintInfo* pInfo) override
    {
        Note("page " + std::to_string(pInfo->m_nCurPage) + (pInfo->m_rectDraw.IsRectEmpty() ? " nowhere" : ""));
        if (m_onPage) {
            m_onPage(pDC, pInfo->m_nCurPage);
        }
    }
    void OnEndPrinting(CDC* pDC, CPrintInfo*) override
    {
        Note("end");
        pDC->m_hDC = m_hReal ? m_hReal : pDC->m_hDC;
    }
    afx_msg void OnViewCommand() { Note("view command"); }
    DECLARE_MESSAGE_MAP()
};

IMPLEMENT_DYNCREATE(TestView, CView)
BEGIN_MESSAGE_MAP(TestView, CView)
ON_COMMAND(kCommandView, &TestView::OnViewCommand)
ON_COMMAND(ID_FILE_PRINT, &CView::OnFilePrint)
END_MESSAGE_MAP()

constexpr UINT kIndicators[] = {ID_SEPARATOR, kCommandFrame};
constexpr UINT kButtons[] = {kCommandView, ID_SEPARATOR, kCommandFrame, kCommandNobody};

class TestFrame : public CFrameWnd
{
    DECLARE_DYNCREATE(TestFrame)
public:
    ~TestFrame() override { Note("frame gone"); }
    CToolBar m_toolBar;
    CStatusBar m_statusBar;

protected:
    afx_msg int OnCreate(LPCREATESTRUCT lpcs)
    {
        if (CFrameWnd::OnCreate(lpcs) == -1 || !m_toolBar.Create(this) || !m_toolBar.SetButtons(kButtons, 4) ||
            !m_statusBar.Create(this) || !m_statusBar.SetIndicators(kIndicators, 2)) {
            return -1;
        }
        return 0;
    }
    afx_msg void OnFrameCommand() { Note("frame command"); }
    afx_msg void OnUpdateFrameCommand(CCmdUI* pCmdUI)
    {
        pCmdUI->SetCheck(1);
        pCmdUI->SetText("frame text");
    }
    DECLARE_MESSAGE_MAP()
};

IMPLEMENT_DYNCREATE(TestFrame, CFrameWnd)
BEGIN_MESSAGE_MAP(TestFrame, CFrameWnd)
ON_WM_CREATE()
ON_COMMAND(kCommandFrame, &TestFrame::OnFrameCommand)
ON_UPDATE_COMMAND_UI(kCommandFrame, &TestFrame::OnUpdateFrameCommand)
END_MESSAGE_MAP()

class TestApp : public CWinApp
{
public:
    TestApp() : CWinApp("Program") {}
    int m_answer = IDCANCEL; // to every box

    int DoMessageBox(LPCTSTR lpszPrompt, UINT, UINT) override
    {
        Note(std::string("box ") + lpszPrompt);
        return m_answer;
    }

protected:
    afx_msg void OnAppCommand() { Note("app command"); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(TestApp, CWinApp)
ON_COMMAND(kCommandApp, &TestApp::OnAppCommand)
ON_COMMAND(ID_FILE_NEW, &CWinApp::OnFileNew)
END_MESSAGE_MAP()

class FrameTest : public testing::Test
{
protected:
    void SetUp() override
    {
        theLog = &log;
        app.AddDocTemplate(
            new CSingleDocTemplate(1, RUNTIME_CLASS(TestDocument), RUNTIME_CLASS(TestFrame), RUNTIME_CLASS(TestView)));
        document = static_cast<TestDocument*>(app.OpenDocumentFile(nullptr));
        ASSERT_NE(document, nullptr);
        frame = static_cast<TestFrame*>(app.m_pMainWnd);
        ASSERT_NE(frame, nullptr);
        view = static_cast<TestView*>(frame->GetActiveView());
        ASSERT_NE(view, nullptr);
    }
    void TearDown() override
    {
        if (app.m_pMainWnd) {
            document->SetModifiedFlag(FALSE);
            app.m_pMainWnd->DestroyWindow();
        }
        MSG msg;
        while (::PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE)) {
        }
        theLog = nullptr;
    }
    void ForgetPaints() { log.erase(std::remove(log.begin(), log.end(), "draw"), log.end()); }
    int Count(const char* word) const { return static_cast<int>(std::count(log.begin(), log.end(), word)); }

    Log log;
    TestApp app;
    TestDocument* document = nullptr;
    TestFrame* frame = nullptr;
    TestView* view = nullptr;
};

TEST_F(FrameTest, OpensOneDocumentInItsFrame)
{
    EXPECT_EQ(view->GetDocument(), document);
    EXPECT_EQ(Count("initial update"), 1);
    CString title;
    frame->GetWindowText(title);
    EXPECT_EQ(title, "Untitled - Program");
    EXPECT_EQ(view->GetParentFrame(), frame);
    EXPECT_TRUE(frame->IsWindowVisible());
    // The view fills what the bars leave.
    CRect client;
    CRect top;
    CRect bottom;
    CRect middle;
    frame->GetClientRect(&client);
    for (const auto& [wnd, rect] :
         {std::pair<CWnd*, CRect*>{&frame->m_toolBar, &top}, {&frame->m_statusBar, &bottom}, {view, &middle}}) {
        wnd->GetWindowRect(rect);
        frame->ScreenToClient(rect);
        EXPECT_EQ(rect->left, client.left);
        EXPECT_EQ(rect->right, client.right);
        EXPECT_GT(rect->Height(), 0);
    }
    EXPECT_EQ(top.top, client.top);
    EXPECT_EQ(middle.top, top.bottom);
    EXPECT_EQ(middle.bottom, bottom.top);
    EXPECT_EQ(bottom.bottom, client.bottom);
    frame->SendMessage(WM_COMMAND, ID_VIEW_TOOLBAR);
    view->GetWindowRect(&middle);
    frame->ScreenToClient(&middle);
    EXPECT_EQ(middle.top, client.top) << "the tool bar is hidden";
}

TEST_F(FrameTest, RoutesCommandsFromTheViewOut)
{
    const struct
    {
        UINT command;
        const char* logged;
    } cases[] = {
        {kCommandView, "view command"},
        {kCommandDocument, "document command"},
        {kCommandFrame, "frame command"},
        {kCommandApp, "app command"},
    };
    for (const auto& row : cases) {
        log.clear();
        EXPECT_EQ(frame->SendMessage(WM_COMMAND, row.command), 1);
        EXPECT_EQ(log, Log{row.logged});
    }
    EXPECT_EQ(frame->SendMessage(WM_COMMAND, kCommandNobody), 0);
}

TEST_F(FrameTest, OffersMessagesToTheMainWindow)
{
    ACCEL key = {FVIRTKEY | FCONTROL, 'T', kCommandApp};
    frame->m_hAccelTable = ::CreateAcceleratorTable(&key, 1);
    log.clear();
    BYTE state[256] = {};
    ::GetKeyboardState(state);
    state[VK_CONTROL] = 0x80;
    ::SetKeyboardState(state);
    for (HWND target : {view->m_hWnd, frame->m_toolBar.m_hWnd}) {
        MSG msg = {target, WM_KEYDOWN, 'T', 0, 0, {0, 0}};
        EXPECT_TRUE(AfxPreTranslateMessage(&msg));
    }
    state[VK_CONTROL] = 0;
    ::SetKeyboardState(state);
    EXPECT_EQ(log, (Log{"app command", "app command"}));
    ::DestroyAcceleratorTable(frame->m_hAccelTable);
    frame->m_hAccelTable = nullptr;
    MSG toNobody = {nullptr, WM_APP, 0, 0, 0, {0, 0}};
    EXPECT_FALSE(AfxPreTranslateMessage(&toNobody));
}

TEST_F(FrameTest, BringsMenusAndBarsUpToDate)
{
    CMenu menu;
    menu.CreatePopupMenu();
    const UINT commands[] = {kCommandView, kCommandFrame, kCommandNobody, SC_CLOSE};
    const UINT states[] = {MF_ENABLED, MF_CHECKED, MF_GRAYED | MF_DISABLED, MF_ENABLED};
    for (UINT command : commands) {
        menu.AppendMenu(MF_STRING, command, "text");
    }
    frame->SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu.m_hMenu), 0);
    for (UINT i = 0; i < 4; ++i) {
        EXPECT_EQ(menu.GetMenuState(i, MF_BYPOSITION) & (MF_GRAYED | MF_DISABLED | MF_CHECKED), states[i]) << i;
    }
    app.OnIdle(0);
    const CToolBarCtrl& bar = frame->m_toolBar.GetToolBarCtrl();
    EXPECT_TRUE(bar.IsButtonEnabled(kCommandView));
    EXPECT_FALSE(bar.IsButtonEnabled(kCommandNobody));
    EXPECT_TRUE(bar.IsButtonChecked(kCommandFrame));
    EXPECT_EQ(frame->m_statusBar.GetPaneText(1), "frame text");
    frame->SetMessageText("hello");
    EXPECT_EQ(frame->m_statusBar.GetPaneText(0), "hello");
    EXPECT_EQ(frame->m_statusBar.SendMessage(SB_GETTEXTLENGTH, 0), 5);
}

TEST_F(FrameTest, UpdatesAllViewsButTheSender)
{
    CCreateContext context;
    context.m_pNewViewClass = RUNTIME_CLASS(TestView);
    context.m_pCurrentDoc = document;
    CView* second = static_cast<CView*>(frame->CreateView(&context, AFX_IDW_PANE_FIRST + 1));
    ASSERT_NE(second, nullptr);
    POSITION position = document->GetFirstViewPosition();
    EXPECT_EQ(document->GetNextView(position), view);
    EXPECT_EQ(document->GetNextView(position), second);
    EXPECT_EQ(position, nullptr);
    log.clear();
    document->UpdateAllViews(nullptr, 3);
    EXPECT_EQ(log, (Log{"update 3", "update 3"}));
    log.clear();
    document->UpdateAllViews(view, 4);
    EXPECT_EQ(log, Log{"update 4 from a view"});
    frame->SetActiveView(second);
    EXPECT_TRUE(second == CWnd::GetFocus());
    log.clear();
    second->DestroyWindow();
    EXPECT_EQ(log, Log{"view gone"}) << "a document with another view stays";
    EXPECT_EQ(frame->GetActiveView(), nullptr);
    EXPECT_EQ(frame->SendMessage(WM_COMMAND, kCommandFrame), 1);
}

TEST_F(FrameTest, LastViewTakesTheDocumentAlong)
{
    log.clear();
    frame->SendMessage(WM_CLOSE);
    std::sort(log.begin(), log.end());
    EXPECT_EQ(log, (Log{"document gone", "frame gone", "view gone"}));
    EXPECT_EQ(app.m_pMainWnd, nullptr);
    EXPECT_TRUE(app.SaveAllModified()) << "the template has no document any more";
    MSG msg;
    bool quit = false;
    while (::PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE)) {
        quit = quit || msg.message == WM_QUIT;
    }
    EXPECT_TRUE(quit) << "the program ends with its main window";
}

TEST_F(FrameTest, AsksBeforeChangesAreLost)
{
    document->m_value = 5;
    document->SetModifiedFlag();
    frame->SendMessage(WM_CLOSE);
    ASSERT_EQ(app.m_pMainWnd, frame) << "cancelled";
    EXPECT_EQ(log.back(), "box Save changes to Untitled?");
    frame->SendMessage(WM_COMMAND, ID_FILE_NEW);
    EXPECT_EQ(document->m_value, 5) << "cancelled";
    app.m_answer = IDNO;
    frame->SendMessage(WM_COMMAND, ID_FILE_NEW);
    EXPECT_EQ(app.m_pMainWnd, frame) << "the frame stays for the new document";
    EXPECT_EQ(document->m_value, 0);
    EXPECT_FALSE(document->IsModified());
}

TEST_F(FrameTest, SavesAndOpensFiles)
{
    char folder[MAX_PATH];
    ::GetTempPath(sizeof(folder), folder);
    const CString path = CString(folder) + "frame_test.bin";
    document->m_value = 77;
    document->SetModifiedFlag();
    EXPECT_TRUE(document->DoSave(path));
    EXPECT_FALSE(document->IsModified());
    CString title;
    frame->GetWindowText(title);
    EXPECT_EQ(title, "frame_test.bin - Program");
    document->m_value = 0;
    EXPECT_EQ(app.OpenDocumentFile(path), document);
    EXPECT_EQ(document->m_value, 77);

    log.clear();
    document->m_value = 78;
    document->SetModifiedFlag();
    app.m_answer = IDNO; // does not want to save
    EXPECT_EQ(app.OpenDocumentFile(path + ".none"), nullptr);
    EXPECT_EQ(document->m_value, 78) << "a file that is not there takes nothing away";
    EXPECT_TRUE(document->IsModified());
    EXPECT_EQ(log.back(), std::string("box ") + static_cast<LPCTSTR>(path) + ".none was not found.");
    EXPECT_FALSE(document->OnSaveDocument(CString(folder) + "no such folder\\x"));
    const HANDLE handle = ::CreateFile(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    ::CloseHandle(handle);
    EXPECT_FALSE(document->OnOpenDocument(path)) << "an empty file";
    EXPECT_EQ(Count((std::string("box ") + static_cast<LPCTSTR>(path) +
                     " cannot be read. Its contents are not what was expected.")
                        .c_str()),
              1);
    ::DeleteFile(path);
}

TEST_F(FrameTest, SavingTouchesNoOtherFile)
{
    char temporary[MAX_PATH];
    ::GetTempPath(sizeof(temporary), temporary);
    CString folder;
    folder.Format("%sframe_test_%lu\\", temporary, ::GetCurrentProcessId());
    ASSERT_TRUE(::CreateDirectory(folder, nullptr));
    const CString path = folder + "a.ics";
    const CString neighbour = folder + "a.ics.new"; // somebody else's
    ::CloseHandle(::CreateFile(neighbour, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    EXPECT_TRUE(document->DoSave(path));
    const HANDLE lock = ::CreateFile(path, GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    document->SetModifiedFlag();
    EXPECT_FALSE(document->OnSaveDocument(path)) << "another program has the file open";
    ::CloseHandle(lock);
    std::set<std::string> left;
    WIN32_FIND_DATA found;
    const HANDLE search = ::FindFirstFile(folder + "*.*", &found);
    do {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            left.insert(found.cFileName);
            ::DeleteFile(folder + found.cFileName);
        }
    } while (::FindNextFile(search, &found));
    ::FindClose(search);
    ::RemoveDirectory(folder);
    EXPECT_EQ(left, (std::set<std::string>{"a.ics", "a.ics.new"}));
}

TEST_F(FrameTest, PrintsPages)
{
    const struct
    {
        UINT lastPage;
        WORD from;
        WORD to;
        Log expected;
    } cases[] = {
        {0xFFFF, 0, 0, {"begin", "page 1", "end"}}, // the last page not being known, one is printed
        {1, 0, 0, {"begin", "page 1", "end"}},           {3, 0, 0, {"begin", "page 1", "page 2", "page 3", "end"}},
        {3, 2, 3, {"begin", "page 2", "page 3", "end"}}, {3, 2, 9, {"begin", "page 2", "page 3", "end"}},
        {3, 2, 1, {"begin", "page 2", "page 1", "end"}}, // backwards
    };
    for (const auto& row : cases) {
        log.clear();
        view->m_lastPage = row.lastPage;
        view->m_from = row.from;
        view->m_to = row.to;
        EXPECT_EQ(frame->SendMessage(WM_COMMAND, ID_FILE_PRINT), 1);
        ForgetPaints();
        EXPECT_EQ(log, row.expected) << row.lastPage << ": " << row.from << "-" << row.to;
    }
}

TEST_F(FrameTest, APrintJobThatIsCancelledOrFailsEndsInOrder)
{
    const auto window = [] { return ::FindWindow(nullptr, "Printing"); };
    const HDC dead = ::CreateCompatibleDC(nullptr);
    ::DeleteDC(dead);
    const std::string failure = "box The printer stopped at page 2. This page and those after it are not printed.";
    const struct
    {
        const char* name;
        std::function<void(CDC*, UINT)> onPage;
        Log expected;
    } cases[] = {
        {"button", [&](CDC*, UINT) { ::PostMessage(window(), WM_COMMAND, IDCANCEL, 0); }, {"begin", "page 1", "end"}},
        {"key", [&](CDC*, UINT) { ::PostMessage(window(), WM_KEYDOWN, VK_ESCAPE, 0); }, {"begin", "page 1", "end"}},
        {"the printer goes away",
         [&](CDC* pDC, UINT page) {
             view->m_hReal = pDC->m_hDC;
             pDC->m_hDC = page == 2 ? dead : pDC->m_hDC;
         },
         {"begin", "page 1", "page 2", "end", failure}},
        // The view and all that belongs to it is gone when the next page is due.
        {"the window is closed",
         [&](CDC*, UINT) { ::PostMessage(app.m_pMainWnd->m_hWnd, WM_CLOSE, 0, 0); },
         {"begin", "page 1", "frame gone", "view gone", "document gone"}},
    };
    for (const auto& row : cases) {
        log.clear();
        view->m_lastPage = 3;
        view->m_onPage = [&](CDC* pDC, UINT page) {
            EXPECT_TRUE(::IsWindowVisible(window())) << row.name;
            EXPECT_FALSE(frame->IsWindowEnabled()) << row.name << ": a second job could begin";
            row.onPage(pDC, page);
        };
        frame->SendMessage(WM_COMMAND, ID_FILE_PRINT);
        ForgetPaints();
        std::sort(log.begin() + 2, log.end());
        Log expected = row.expected;
        std::sort(expected.begin() + 2, expected.end());
        EXPECT_EQ(log, expected) << row.name;
        EXPECT_EQ(window(), nullptr) << row.name;
        EXPECT_TRUE(!app.m_pMainWnd || frame->IsWindowEnabled()) << row.name;
    }
    EXPECT_EQ(app.m_pMainWnd, nullptr);
}

} // namespace
