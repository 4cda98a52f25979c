// Windows and their objects: creation, messages, destruction, take-over and exceptions, with real windows.
#include "WindowTesting.h"

#include <algorithm>

namespace {

// What happens to one window, as words
class LoggedWnd : public CWnd
{
public:
    explicit LoggedWnd(std::vector<std::string>& log, bool deletesItself = false)
        : m_log(log), m_deletesItself(deletesItself)
    {
    }
    ~LoggedWnd() override { m_log.push_back("gone"); }

    std::function<void(LoggedWnd&)> m_onCreate;
    std::function<void(LoggedWnd&)> m_onCommand;
    int m_createResult = 0;

    void PreSubclassWindow() override { m_log.push_back("PreSubclassWindow"); }
    BOOL PreCreateWindow(CREATESTRUCT& cs) override
    {
        m_log.push_back("PreCreateWindow");
        return CWnd::PreCreateWindow(cs);
    }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_NCCREATE) {
            m_log.push_back("WM_NCCREATE");
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
    void PostNcDestroy() override
    {
        m_log.push_back("PostNcDestroy");
        if (m_deletesItself) {
            delete this;
        }
    }
    afx_msg int OnCreate(LPCREATESTRUCT)
    {
        m_log.push_back("OnCreate");
        if (m_onCreate) {
            m_onCreate(*this);
        }
        return m_createResult;
    }
    afx_msg void OnDestroy()
    {
        m_log.push_back("OnDestroy");
        CWnd::OnDestroy();
    }
    afx_msg LRESULT OnUser(WPARAM wParam, LPARAM lParam)
    {
        if (m_onCommand) {
            m_onCommand(*this);
        }
        return static_cast<LRESULT>(wParam) + lParam;
    }
    DECLARE_MESSAGE_MAP()

private:
    std::vector<std::string>& m_log;
    bool m_deletesItself;
};

constexpr UINT kUserMessage = WM_APP + 1;

BEGIN_MESSAGE_MAP(LoggedWnd, CWnd)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_MESSAGE(kUserMessage, &LoggedWnd::OnUser)
END_MESSAGE_MAP()

using Log = std::vector<std::string>;

// A class whose windows serve themselves until an object takes them over, as those of the library's controls
LPCTSTR PlainClass()
{
    return AfxRegisterWndClass(CS_DBLCLKS);
}

BOOL CreatePlain(CWnd& wnd, CWnd* parent = nullptr)
{
    const bool child = parent != nullptr;
    return wnd.CreateEx(0, PlainClass(), "", child ? WS_CHILD : WS_POPUP, CRect(0, 0, 50, 40), parent, child ? 7 : 0);
}

class WindowTest : public testing::Test
{
protected:
    Log log;
};

TEST_F(WindowTest, LivesInOrder)
{
    {
        LoggedWnd wnd(log);
        ASSERT_TRUE(wnd.CreateEx(0, PlainClass(), "", WS_POPUP, CRect(10, 20, 60, 100), nullptr, 0));
        EXPECT_EQ(CWnd::FromHandlePermanent(wnd.m_hWnd), &wnd);
        CRect rect;
        wnd.GetWindowRect(&rect);
        EXPECT_EQ(rect, CRect(10, 20, 60, 100));
        EXPECT_EQ(wnd.SendMessage(kUserMessage, 40, 2), 42);
        const HWND hWnd = wnd.m_hWnd;
        EXPECT_TRUE(wnd.DestroyWindow());
        EXPECT_FALSE(::IsWindow(hWnd));
        EXPECT_EQ(wnd.m_hWnd, nullptr);
        EXPECT_EQ(CWnd::FromHandlePermanent(hWnd), nullptr);
        EXPECT_FALSE(wnd.DestroyWindow());
    }
    EXPECT_EQ(log, (Log{"PreCreateWindow", "PreSubclassWindow", "WM_NCCREATE", "OnCreate", "OnDestroy", "PostNcDestroy",
                        "gone"}));
}

TEST_F(WindowTest, OneObjectServesOneWindowAfterAnother)
{
    LoggedWnd wnd(log);
    for (LPCTSTR className : {static_cast<LPCTSTR>("EDIT"), PlainClass(), static_cast<LPCTSTR>("BUTTON")}) {
        SCOPED_TRACE(className);
        ASSERT_TRUE(wnd.CreateEx(0, className, "", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0));
        EXPECT_EQ((wnd.SendMessage(WM_GETDLGCODE) & DLGC_HASSETSEL) != 0, ::lstrcmp(className, "EDIT") == 0);
        wnd.DestroyWindow();
    }
}

TEST_F(WindowTest, FailedCreationEndsWithPostNcDestroyOnce)
{
    struct Case
    {
        const char* name;
        LPCTSTR className;
        int createResult;
        Log expected;
    };
    const Case cases[] = {
        {"unknown class", "no such class", 0, {"PreCreateWindow", "PostNcDestroy"}},
        {"no class for a popup", nullptr, 0, {"PreCreateWindow", "PostNcDestroy"}},
        {"refused",
         PlainClass(),
         -1,
         {"PreCreateWindow", "PreSubclassWindow", "WM_NCCREATE", "OnCreate", "PostNcDestroy"}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        LoggedWnd wnd(log);
        log.clear();
        wnd.m_createResult = row.createResult;
        EXPECT_FALSE(wnd.CreateEx(0, row.className, "", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0));
        log.erase(std::remove(log.begin(), log.end(), "OnDestroy"), log.end()); // some systems send it here too
        EXPECT_EQ(log, row.expected);
        EXPECT_EQ(wnd.m_hWnd, nullptr);
    }
}

TEST_F(WindowTest, ChildrenAreCreatedInsideOnCreate)
{
    LoggedWnd parent(log);
    CEdit edit;
    parent.m_onCreate = [&](LoggedWnd& wnd) { edit.Create(WS_VISIBLE, CRect(0, 0, 20, 20), &wnd, 5); };
    ASSERT_TRUE(CreatePlain(parent));
    EXPECT_EQ(CWnd::FromHandlePermanent(edit.m_hWnd), &edit);
    EXPECT_EQ(edit.GetParent(), &parent);
    EXPECT_EQ(parent.GetDlgItem(5), &edit);
    EXPECT_TRUE((edit.GetStyle() & WS_CHILD) != 0);
    parent.DestroyWindow();
    EXPECT_EQ(edit.m_hWnd, nullptr); // the child went with its parent
}

TEST_F(WindowTest, HandlerMayEndItsOwnWindowAndObject)
{
    struct Case
    {
        const char* name;
        bool deletesItself;
        std::function<void(LoggedWnd&)> act;
        Log expected;
    };
    const Case cases[] = {
        {"destroys", true, [](LoggedWnd& wnd) { wnd.DestroyWindow(); }, {"OnDestroy", "PostNcDestroy", "gone"}},
        {"destroys by handle",
         true,
         [](LoggedWnd& wnd) { ::DestroyWindow(wnd.m_hWnd); },
         {"OnDestroy", "PostNcDestroy", "gone"}},
        // The destructor destroys the window; by then only the base class serves it.
        {"deletes", false, [](LoggedWnd& wnd) { delete &wnd; }, {"gone"}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        LoggedWnd* wnd = new LoggedWnd(log, row.deletesItself);
        ASSERT_TRUE(CreatePlain(*wnd));
        wnd->m_onCommand = row.act;
        const HWND hWnd = wnd->m_hWnd;
        log.clear();
        EXPECT_EQ(::SendMessage(hWnd, kUserMessage, 2, 3), 5);
        EXPECT_FALSE(::IsWindow(hWnd));
        EXPECT_EQ(CWnd::FromHandlePermanent(hWnd), nullptr);
        EXPECT_EQ(log, row.expected);
    }
}

TEST_F(WindowTest, DefaultAfterTheWindowIsGoneDoesNothing)
{
    class Closing : public CWnd
    {
    public:
        LRESULT m_default = -1;

    protected:
        BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override
        {
            if (message == WM_LBUTTONDOWN) {
                DestroyWindow();
                m_default = Default();
                return TRUE;
            }
            return CWnd::OnWndMsg(message, wParam, lParam, pResult);
        }
    } wnd;
    ASSERT_TRUE(CreatePlain(wnd));
    wnd.SendMessage(WM_LBUTTONDOWN);
    EXPECT_EQ(wnd.m_default, 0);
    EXPECT_EQ(wnd.m_hWnd, nullptr);
}

TEST_F(WindowTest, TakesOverAndGivesBack)
{
    const HWND hEdit = ::CreateWindow("EDIT", "abc", WS_POPUP, 0, 0, 50, 20, nullptr, nullptr, nullptr, nullptr);
    const LONG_PTR procedure = ::GetWindowLongPtr(hEdit, GWLP_WNDPROC);
    LoggedWnd wnd(log);
    ASSERT_TRUE(wnd.SubclassWindow(hEdit));
    CWnd other;
    EXPECT_FALSE(other.SubclassWindow(hEdit)) << "a window has one object";
    EXPECT_FALSE(other.SubclassWindow(nullptr));
    EXPECT_EQ(::SendMessage(hEdit, kUserMessage, 1, 1), 2);
    CString text;
    wnd.GetWindowText(text); // the edit box still does its work
    EXPECT_EQ(text, "abc");
    EXPECT_EQ(wnd.UnsubclassWindow(), hEdit);
    EXPECT_EQ(::GetWindowLongPtr(hEdit, GWLP_WNDPROC), procedure);
    EXPECT_EQ(::SendMessage(hEdit, kUserMessage, 1, 1), 0);
    ASSERT_TRUE(wnd.SubclassWindow(hEdit)) << "again";
    ::DestroyWindow(hEdit);
    EXPECT_EQ(wnd.m_hWnd, nullptr);
    EXPECT_EQ(log, (Log{"PreSubclassWindow", "PreSubclassWindow", "OnDestroy", "PostNcDestroy"}));
}

TEST_F(WindowTest, TemporaryObjectsEndWithTheLastLock)
{
    const HWND hWnd = ::CreateWindow("STATIC", "", WS_POPUP, 0, 0, 5, 5, nullptr, nullptr, nullptr, nullptr);
    AfxLockTempMaps();
    CWnd* temporary = CWnd::FromHandle(hWnd);
    EXPECT_EQ(temporary->m_hWnd, hWnd);
    EXPECT_EQ(CWnd::FromHandle(hWnd), temporary);
    EXPECT_EQ(CWnd::FromHandlePermanent(hWnd), nullptr);
    EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
    AfxLockTempMaps();
    EXPECT_TRUE(AfxUnlockTempMaps());
    EXPECT_EQ(CWnd::FromHandle(hWnd), temporary) << "one lock is left";
    EXPECT_FALSE(AfxUnlockTempMaps());
    EXPECT_TRUE(::IsWindow(hWnd)) << "the end of a temporary object is not the end of its window";
    {
        CWnd owner;
        owner.Attach(hWnd);
        EXPECT_EQ(CWnd::FromHandle(hWnd), &owner) << "an attached object comes first";
        owner.DestroyWindow();
        EXPECT_EQ(owner.m_hWnd, nullptr) << "though it never saw a message";
    }
    EXPECT_FALSE(::IsWindow(hWnd)) << "an attached object ends its window";
}

TEST_F(WindowTest, HandlerMayDeleteTheObjectAndDecline)
{
    class Deleting : public CWnd
    {
    protected:
        BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override
        {
            if (message == WM_MOUSEWHEEL) {
                delete this;
                return FALSE;
            }
            return CWnd::OnWndMsg(message, wParam, lParam, pResult);
        }
        // Called on a deleted object, this fails the test.
        LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            EXPECT_NE(message, static_cast<UINT>(WM_MOUSEWHEEL));
            return CWnd::DefWindowProc(message, wParam, lParam);
        }
    };
    Deleting* wnd = new Deleting;
    ASSERT_TRUE(CreatePlain(*wnd));
    const HWND hWnd = wnd->m_hWnd;
    EXPECT_EQ(::SendMessage(hWnd, WM_MOUSEWHEEL, 0, 0), 0);
    EXPECT_FALSE(::IsWindow(hWnd));
}

// Exceptions

std::vector<std::pair<UINT, std::string>> reported;

void Record(CException* e, const MSG* msg)
{
    reported.emplace_back(msg->message, e ? e->GetRuntimeClass()->m_lpszClassName : "other");
}

class ThrowingWnd : public CWnd
{
public:
    UINT m_thrower = 0;
    std::function<void()> m_throw;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == m_thrower) {
            m_throw();
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

TEST_F(WindowTest, ExceptionsEndAtTheWindowProcedure)
{
    struct Case
    {
        const char* name;
        UINT message;
        std::function<void()> thrown;
        const char* kind;
    };
    const Case cases[] = {
        {"framework's", kUserMessage, [] { AfxThrowInvalidArgException(); }, "CInvalidArgException"},
        {"on the heap", kUserMessage, [] { AfxThrowFileException(CFileException::fileNotFound); }, "CFileException"},
        {"standard", kUserMessage, [] { throw std::bad_alloc(); }, "other"},
        {"anything", kUserMessage, [] { throw 1; }, "other"},
        {"paint", WM_PAINT, [] { AfxThrowMemoryException(); }, "CMemoryException"},
        {"destroy", WM_DESTROY, [] { AfxThrowUserException(); }, "CUserException"},
        {"last message", WM_NCDESTROY, [] { AfxThrowUserException(); }, "CUserException"},
    };
    const AFX_EXCEPTION_REPORTER before = AfxSetExceptionReporter(&Record);
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        reported.clear();
        ThrowingWnd wnd;
        ASSERT_TRUE(CreatePlain(wnd));
        wnd.ShowWindow(SW_SHOWNOACTIVATE);
        wnd.UpdateWindow();
        wnd.m_thrower = row.message;
        wnd.m_throw = row.thrown;
        EXPECT_EQ(wnd.SendMessage(kUserMessage, 5, 5), 0);
        wnd.Invalidate();
        wnd.UpdateWindow();
        EXPECT_FALSE(::GetUpdateRect(wnd.m_hWnd, nullptr, FALSE)) << "a failed paint must not be asked for again";
        EXPECT_TRUE(::DestroyWindow(wnd.m_hWnd));
        EXPECT_EQ(wnd.m_hWnd, nullptr);
        ASSERT_EQ(reported.size(), 1u);
        EXPECT_EQ(reported[0], (std::pair<UINT, std::string>(row.message, row.kind)));
    }
    reported.clear();
    LoggedWnd failing(log);
    failing.m_onCreate = [](LoggedWnd&) { AfxThrowResourceException(); };
    EXPECT_FALSE(CreatePlain(failing));
    EXPECT_EQ(failing.m_hWnd, nullptr);
    EXPECT_EQ(reported.size(), 1u);
    AfxSetExceptionReporter(before);
}

TEST_F(WindowTest, NestedMessagesKeepTheirOwn)
{
    class Nesting : public CWnd
    {
    public:
        std::vector<UINT> m_seen;

    protected:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            if (message == kUserMessage) {
                m_seen.push_back(GetCurrentMessage()->message);
                SendMessage(kUserMessage + 1);
                m_seen.push_back(GetCurrentMessage()->message);
                return 0;
            }
            if (message == kUserMessage + 1) {
                m_seen.push_back(GetCurrentMessage()->message);
                AfxThrowUserException();
            }
            return CWnd::WindowProc(message, wParam, lParam);
        }
    } wnd;
    const AFX_EXCEPTION_REPORTER before = AfxSetExceptionReporter(&Record);
    ASSERT_TRUE(CreatePlain(wnd));
    wnd.SendMessage(kUserMessage);
    AfxSetExceptionReporter(before);
    EXPECT_EQ(wnd.m_seen, (std::vector<UINT>{kUserMessage, kUserMessage + 1, kUserMessage}));
}

// Messages about to be dispatched

TEST_F(WindowTest, OffersAMessageFromTheWindowUp)
{
    class Translating : public CWnd
    {
    public:
        Translating(Log& log, const char* name) : m_log(log), m_name(name) {}
        bool m_takes = false;

        BOOL PreTranslateMessage(MSG* pMsg) override
        {
            if (pMsg->message == kUserMessage) {
                m_log.push_back(m_name);
                return m_takes;
            }
            return CWnd::PreTranslateMessage(pMsg);
        }

    private:
        Log& m_log;
        std::string m_name;
    };
    Translating parent(log, "parent");
    Translating child(log, "child");
    ASSERT_TRUE(CreatePlain(parent));
    ASSERT_TRUE(CreatePlain(child, &parent));
    MSG msg = {child.m_hWnd, kUserMessage, 0, 0, 0, {0, 0}};
    EXPECT_FALSE(AfxPreTranslateMessage(&msg));
    parent.m_takes = true;
    EXPECT_TRUE(AfxPreTranslateMessage(&msg));
    child.m_takes = true;
    EXPECT_TRUE(AfxPreTranslateMessage(&msg));
    EXPECT_EQ(log, (Log{"child", "parent", "child", "parent", "child"}));
    log.clear();
    child.m_takes = false;
    EXPECT_FALSE(CWnd::WalkPreTranslateTree(child.m_hWnd, &msg)) << "up to the given window only";
    EXPECT_EQ(log, Log{"child"});
    child.PostMessage(kUserMessage);
    EXPECT_TRUE(AfxPumpMessage());
}

} // namespace
