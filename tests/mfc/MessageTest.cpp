// The way of messages: message maps, commands, notifications, reflection to the child, colours and owner drawing.
#include "WindowTesting.h"

namespace {

const UINT FirstRegistered = ::RegisterWindowMessage("dayvane test first");
const UINT SecondRegistered = ::RegisterWindowMessage("dayvane test second");
constexpr UINT kChildId = 7;
constexpr UINT kOtherId = 8;
constexpr UINT kNotifyCode = static_cast<UINT>(-2080);

using Log = std::vector<std::string>;

std::string Words(const char* format, ...)
{
    CString text;
    va_list arguments;
    va_start(arguments, format);
    text.FormatV(format, arguments);
    va_end(arguments);
    return std::string(text);
}

// A parent with handlers of every kind; a child's notifications reach it unless the child keeps them.
class ParentWnd : public CWnd
{
public:
    Log m_log;
    BOOL m_takes = TRUE;

protected:
    afx_msg void OnSize(UINT nType, int cx, int cy) { m_log.push_back(Words("size %u %d %d", nType, cx, cy)); }
    afx_msg void OnMove(int x, int y) { m_log.push_back(Words("move %d %d", x, y)); }
    afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
    {
        m_log.push_back(Words("vscroll %u %u %d", nSBCode, nPos, pScrollBar != nullptr));
    }
    afx_msg void OnMouseMove(UINT nFlags, CPoint point)
    {
        m_log.push_back(Words("mouse %u %d %d", nFlags, int(point.x), int(point.y)));
    }
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint)
    {
        m_log.push_back(Words("wheel %u %d", nFlags, zDelta));
        return m_takes || CWnd::OnMouseWheel(nFlags, zDelta, CPoint());
    }
    afx_msg BOOL OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message)
    {
        m_log.push_back(Words("cursor %d %u %u", pWnd == this, nHitTest, message));
        return m_takes;
    }
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
    {
        m_log.push_back(Words("key %u %u %u", nChar, nRepCnt, nFlags));
    }
    afx_msg UINT OnGetDlgCode() { return DLGC_WANTARROWS; }
    afx_msg LRESULT OnFirst(WPARAM wParam, LPARAM) { return static_cast<LRESULT>(wParam) + 1; }
    afx_msg LRESULT OnSecond(WPARAM wParam, LPARAM) { return static_cast<LRESULT>(wParam) + 2; }
    afx_msg void OnPress() { m_log.push_back("pressed"); }
    afx_msg void OnRange(UINT nID) { m_log.push_back(Words("range %u", nID)); }
    afx_msg BOOL OnPerhaps(UINT nID)
    {
        m_log.push_back(Words("perhaps %u", nID));
        return m_takes;
    }
    afx_msg void OnNever(CCmdUI* pCmdUI) { pCmdUI->Enable(FALSE); }
    afx_msg void OnChange() { m_log.push_back("changed"); }
    afx_msg void OnChildNotification(NMHDR* pNMHDR, LRESULT* pResult)
    {
        m_log.push_back(Words("notified %d", static_cast<int>(pNMHDR->code)));
        *pResult = 99;
    }
    afx_msg void OnAnyNotification(UINT nID, NMHDR*, LRESULT*) { m_log.push_back(Words("any %u", nID)); }
    DECLARE_MESSAGE_MAP()
};

constexpr UINT kCommandPress = 0x8101;
constexpr UINT kCommandRange = 0x8110;
constexpr UINT kCommandRangeLast = 0x8114;
constexpr UINT kCommandPerhaps = 0x8120;
constexpr UINT kCommandNever = 0x8130;

BEGIN_MESSAGE_MAP(ParentWnd, CWnd)
ON_WM_SIZE()
ON_WM_MOVE()
ON_WM_VSCROLL()
ON_WM_MOUSEMOVE()
ON_WM_MOUSEWHEEL()
ON_WM_SETCURSOR()
ON_WM_KEYDOWN()
ON_WM_GETDLGCODE()
ON_REGISTERED_MESSAGE(FirstRegistered, &ParentWnd::OnFirst)
ON_REGISTERED_MESSAGE(SecondRegistered, &ParentWnd::OnSecond)
ON_COMMAND(kCommandPress, &ParentWnd::OnPress)
ON_COMMAND_RANGE(kCommandRange, kCommandRangeLast, &ParentWnd::OnRange)
ON_COMMAND_EX(kCommandPerhaps, &ParentWnd::OnPerhaps)
ON_COMMAND(kCommandNever, &ParentWnd::OnPress)
ON_UPDATE_COMMAND_UI(kCommandNever, &ParentWnd::OnNever)
ON_EN_CHANGE(kChildId, &ParentWnd::OnChange)
ON_NOTIFY(kNotifyCode, kChildId, &ParentWnd::OnChildNotification)
ON_NOTIFY_RANGE(kNotifyCode - 1, 0, kOtherId, &ParentWnd::OnAnyNotification)
END_MESSAGE_MAP()

// Overrides one handler and adds one; everything else comes from the base class's map.
class DerivedParentWnd : public ParentWnd
{
protected:
    afx_msg void OnDerivedPress()
    {
        m_log.push_back("derived");
        OnPress();
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(DerivedParentWnd, ParentWnd)
ON_COMMAND(kCommandPress, &DerivedParentWnd::OnDerivedPress)
END_MESSAGE_MAP()

LPCTSTR PlainClass()
{
    return AfxRegisterWndClass(0);
}

LPARAM PointParam(int x, int y)
{
    return MAKELPARAM(static_cast<short>(x), static_cast<short>(y));
}

class MessageTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(parent.CreateEx(0, PlainClass(), "", WS_POPUP, CRect(0, 0, 100, 80), nullptr, 0));
        parent.m_log.clear();
    }
    void TearDown() override { parent.DestroyWindow(); }

    LRESULT Notify(const CWnd& child, UINT code)
    {
        NMHDR header = {child.m_hWnd, 12345, code};
        return parent.SendMessage(WM_NOTIFY, 12345, reinterpret_cast<LPARAM>(&header));
    }

    DerivedParentWnd parent;
};

TEST_F(MessageTest, UnpacksParametersAndAnswers)
{
    struct Case
    {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
        LRESULT result;
        const char* logged;
    };
    const Case cases[] = {
        {WM_SIZE, SIZE_MAXIMIZED, MAKELPARAM(640, 40000), 0, "size 2 640 40000"},
        {WM_MOVE, 0, PointParam(-5, 7), 0, "move -5 7"},
        {WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 50000), 0, 0, "vscroll 5 50000 0"},
        {WM_MOUSEMOVE, MK_LBUTTON, PointParam(-3, -4), 0, "mouse 1 -3 -4"},
        {WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, static_cast<WORD>(-120)), 0, 1, "wheel 8 -120"},
        {WM_SETCURSOR, 0, MAKELPARAM(HTCLIENT, WM_MOUSEMOVE), 1, "cursor 0 1 512"},
        {WM_KEYDOWN, VK_RIGHT, MAKELPARAM(2, 0x14D), 0, "key 39 2 333"},
        {WM_GETDLGCODE, 0, 0, DLGC_WANTARROWS, ""},
        {FirstRegistered, 10, 0, 11, ""},
        {SecondRegistered, 10, 0, 12, ""},
        {WM_APP + 99, 10, 0, 0, ""},
        {WM_GETTEXTLENGTH, 0, 0, 0, ""},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.message);
        parent.m_log.clear();
        EXPECT_EQ(parent.SendMessage(row.message, row.wParam, row.lParam), row.result);
        EXPECT_EQ(parent.m_log, row.logged[0] != 0 ? Log{row.logged} : Log{});
    }
}

TEST_F(MessageTest, DeclinedWheelReachesTheParentOnce)
{
    ParentWnd child;
    ASSERT_TRUE(child.CreateEx(0, PlainClass(), "", WS_CHILD, CRect(0, 0, 9, 9), &parent, kChildId));
    child.m_takes = parent.m_takes = FALSE; // each calls the default itself before it declines
    child.m_log.clear();
    parent.m_log.clear();
    child.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, 120));
    EXPECT_EQ(child.m_log, Log{"wheel 0 120"});
    EXPECT_EQ(parent.m_log, Log{"wheel 0 120"});
}

TEST_F(MessageTest, RoutesCommands)
{
    struct Case
    {
        const char* name;
        WPARAM wParam;
        BOOL takes;
        LRESULT result;
        Log logged;
    };
    const Case cases[] = {
        {"most derived first", kCommandPress, TRUE, 1, {"derived", "pressed"}},
        {"from an accelerator", MAKEWPARAM(kCommandPress, 1), TRUE, 1, {"derived", "pressed"}},
        {"first of a range", kCommandRange, TRUE, 1, {"range 33040"}},
        {"last of a range", kCommandRangeLast, TRUE, 1, {"range 33044"}},
        {"beyond a range", kCommandRangeLast + 1, TRUE, 0, {}},
        {"taken", kCommandPerhaps, TRUE, 1, {"perhaps 33056"}},
        {"declined", kCommandPerhaps, FALSE, 0, {"perhaps 33056"}},
        {"disabled meanwhile", kCommandNever, TRUE, 1, {}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        parent.m_log.clear();
        parent.m_takes = row.takes;
        EXPECT_EQ(parent.SendMessage(WM_COMMAND, row.wParam), row.result);
        EXPECT_EQ(parent.m_log, row.logged);
    }
}

TEST_F(MessageTest, UpdatesAMenu)
{
    CMenu menu;
    menu.CreatePopupMenu();
    const UINT commands[] = {kCommandPress, kCommandNever, 0x8fff};
    const UINT expected[] = {MF_ENABLED, MF_GRAYED | MF_DISABLED, MF_GRAYED | MF_DISABLED};
    for (UINT i = 0; i < 3; ++i) {
        menu.AppendMenu(MF_STRING, commands[i], "text");
        CCmdUI state;
        state.m_nIndex = i;
        state.m_nID = commands[i];
        state.m_pMenu = &menu;
        state.DoUpdate(&parent, TRUE);
        EXPECT_EQ(menu.GetMenuState(i, MF_BYPOSITION) & (MF_GRAYED | MF_DISABLED), expected[i]) << i;
    }
    CCmdUI state;
    state.m_nID = kCommandPress;
    state.m_pMenu = &menu;
    state.SetCheck(1);
    state.SetText("other");
    CString text;
    menu.GetMenuString(kCommandPress, text, MF_BYCOMMAND);
    EXPECT_EQ(text, "other");
    EXPECT_EQ(menu.GetMenuState(0, MF_BYPOSITION) & MF_CHECKED, static_cast<UINT>(MF_CHECKED));
}

// A child that may keep its own notifications, and chooses its colours
class KeepingEdit : public CEdit
{
public:
    Log m_log;
    BOOL m_keeps = FALSE;
    CBrush m_brush;
    bool m_ends = false;

protected:
    afx_msg BOOL OnOwnChange()
    {
        m_log.push_back("own change");
        return m_keeps;
    }
    afx_msg BOOL OnOwnNotification(NMHDR*, LRESULT* pResult)
    {
        m_log.push_back("own notification");
        *pResult = 77;
        if (m_ends) {
            DestroyWindow();
        }
        return m_keeps;
    }
    afx_msg HBRUSH CtlColor(CDC* pDC, UINT nCtlColor)
    {
        EXPECT_EQ(nCtlColor, static_cast<UINT>(CTLCOLOR_EDIT));
        pDC->SetTextColor(RGB(1, 2, 3));
        return m_brush;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(KeepingEdit, CEdit)
ON_CONTROL_REFLECT_EX(EN_CHANGE, &KeepingEdit::OnOwnChange)
ON_NOTIFY_REFLECT_EX(kNotifyCode, &KeepingEdit::OnOwnNotification)
ON_WM_CTLCOLOR_REFLECT()
END_MESSAGE_MAP()

class ReflectionTest : public MessageTest
{
protected:
    void SetUp() override
    {
        MessageTest::SetUp();
        ASSERT_TRUE(edit.Create(WS_CHILD, CRect(0, 0, 30, 20), &parent, kChildId));
        parent.m_log.clear();
    }

    KeepingEdit edit;
};

TEST_F(ReflectionTest, ChildSeesItsNotificationsFirst)
{
    edit.SetWindowText("a");
    EXPECT_EQ(edit.m_log, Log{"own change"});
    EXPECT_EQ(parent.m_log, Log{"changed"});
    // The identifier is the window's own, whatever the record says.
    EXPECT_EQ(Notify(edit, kNotifyCode), 99);
    EXPECT_EQ(edit.m_log.back(), "own notification");
    EXPECT_EQ(parent.m_log.back(), "notified -2080");

    edit.m_keeps = TRUE;
    parent.m_log.clear();
    edit.SetWindowText("b");
    EXPECT_EQ(Notify(edit, kNotifyCode), 77);
    EXPECT_EQ(parent.m_log, Log{});
    EXPECT_EQ(Notify(edit, kNotifyCode - 1), 0) << "another code passes by the child";
    EXPECT_EQ(parent.m_log, Log{"any 7"});
    EXPECT_EQ(Notify(edit, kNotifyCode - 2), 0);
    EXPECT_EQ(parent.m_log.size(), 1u);
}

TEST_F(ReflectionTest, ChildMayEndInItsNotification)
{
    edit.m_ends = true;
    edit.m_keeps = TRUE;
    EXPECT_EQ(Notify(edit, kNotifyCode), 77);
    EXPECT_EQ(edit.m_hWnd, nullptr);
}

TEST_F(ReflectionTest, ChildChoosesItsColours)
{
    CClientDC dc(&edit);
    const auto ask = [&] {
        return reinterpret_cast<HBRUSH>(parent.SendMessage(WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(dc.m_hDC),
                                                           reinterpret_cast<LPARAM>(edit.m_hWnd)));
    };
    const HBRUSH systems = ask();
    EXPECT_NE(systems, nullptr) << "without a brush of the child's the system chooses";
    edit.m_brush.CreateSolidBrush(RGB(9, 8, 7));
    EXPECT_EQ(ask(), static_cast<HBRUSH>(edit.m_brush));
    EXPECT_EQ(dc.GetTextColor(), RGB(1, 2, 3));
}

} // namespace
