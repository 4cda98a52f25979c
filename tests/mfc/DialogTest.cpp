// Dialog boxes from templates in memory, with what the system's controls in them need.
#include "WindowTesting.h"

#include <afxdlgs.h>

#include <string>

namespace {

constexpr int kEditId = 101;
constexpr int kChosenResult = 7;

// A template of one control, of the given class
class DialogTemplate
{
public:
    explicit DialogTemplate(const wchar_t* controlClass)
    {
        Add32(WS_POPUP | WS_CAPTION | WS_SYSMENU);
        Add32(0);
        m_words.push_back(1); // controls
        Add({0, 0, 120, 40}); // dialog units
        Add({0, 0});          // no menu, the standard class
        AddText(L"Title");
        if (m_words.size() % 2 != 0) {
            m_words.push_back(0); // each control begins at a multiple of four bytes
        }
        Add32(WS_CHILD | WS_VISIBLE | WS_TABSTOP);
        Add32(0);
        Add({4, 4, 60, 12, kEditId});
        AddText(controlClass);
        AddText(L"text");
        m_words.push_back(0);
    }
    LPCDLGTEMPLATE Get() const { return reinterpret_cast<LPCDLGTEMPLATE>(m_words.data()); }

private:
    void Add(std::initializer_list<int> values)
    {
        for (int value : values) {
            m_words.push_back(static_cast<WORD>(value));
        }
    }
    void Add32(DWORD value) { Add({LOWORD(value), HIWORD(value)}); }
    void AddText(const wchar_t* text)
    {
        do {
            m_words.push_back(static_cast<WORD>(*text));
        } while (*text++ != 0);
    }
    alignas(4) std::vector<WORD> m_words;
};

// Keeps the Escape key to itself when asked to, as an edit box inside a control does.
class KeyEdit : public CEdit
{
public:
    bool m_keeps = false;
    int m_seen = 0;

    BOOL PreTranslateMessage(MSG* pMsg) override
    {
        if (pMsg->message == WM_KEYDOWN && pMsg->wParam == VK_ESCAPE) {
            ++m_seen;
            if (m_keeps) {
                GetParent()->PostMessage(WM_COMMAND, IDOK);
                return TRUE;
            }
        }
        return CEdit::PreTranslateMessage(pMsg);
    }
};

class TestDialog : public CDialog
{
public:
    TestDialog(LPCDLGTEMPLATE dialogTemplate, CWnd* parent) : CDialog() { InitModalIndirect(dialogTemplate, parent); }
    std::function<void(TestDialog&)> m_onInit;
    KeyEdit m_edit;
    bool m_wasVisible = false;
    BOOL m_ownerEnabled = TRUE;

    BOOL OnInitDialog() override
    {
        CDialog::OnInitDialog();
        EXPECT_TRUE(m_edit.SubclassDlgItem(kEditId, this));
        m_ownerEnabled = m_pParentWnd->IsWindowEnabled();
        if (m_onInit) {
            m_onInit(*this);
        }
        return TRUE;
    }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        m_wasVisible = m_wasVisible || message == WM_SHOWWINDOW;
        return CDialog::WindowProc(message, wParam, lParam);
    }
};

class DialogTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(owner.CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP, CRect(0, 0, 90, 90), nullptr, 0));
        owner.ShowWindow(SW_SHOWNOACTIVATE);
    }

    CWnd owner;
    DialogTemplate plain = DialogTemplate(L"EDIT");
};

TEST_F(DialogTest, EndsWithItsResult)
{
    struct Case
    {
        const char* name;
        std::function<void(TestDialog&)> onInit;
        INT_PTR result;
        bool shown;
    };
    const Case cases[] = {
        {"ended at once", [](TestDialog& d) { d.EndDialog(kChosenResult); }, kChosenResult, false},
        {"OK", [](TestDialog& d) { d.PostMessage(WM_COMMAND, IDOK); }, IDOK, true},
        {"closed", [](TestDialog& d) { d.PostMessage(WM_CLOSE); }, IDCANCEL, true},
        {"Escape", [](TestDialog& d) { d.m_edit.PostMessage(WM_KEYDOWN, VK_ESCAPE); }, IDCANCEL, true},
        {"Escape kept by a child",
         [](TestDialog& d) {
             d.m_edit.m_keeps = true;
             d.m_edit.PostMessage(WM_KEYDOWN, VK_ESCAPE);
         },
         IDOK, true},
        {"destroyed at once", [](TestDialog& d) { d.DestroyWindow(); }, -1, false},
        {"another one inside",
         [this](TestDialog& d) {
             TestDialog inner(plain.Get(), &d);
             inner.m_onInit = [](TestDialog& i) { i.PostMessage(WM_COMMAND, IDCANCEL); };
             EXPECT_EQ(inner.DoModal(), IDCANCEL);
             d.EndDialog(kChosenResult);
         },
         kChosenResult, false},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        TestDialog dialog(plain.Get(), &owner);
        dialog.m_onInit = row.onInit;
        EXPECT_EQ(dialog.DoModal(), row.result);
        EXPECT_EQ(dialog.m_wasVisible, row.shown);
        EXPECT_FALSE(dialog.m_ownerEnabled);
        EXPECT_TRUE(owner.IsWindowEnabled());
        EXPECT_EQ(dialog.m_hWnd, nullptr);
        EXPECT_EQ(dialog.m_edit.m_hWnd, nullptr);
    }
}

TEST_F(DialogTest, FailsWithoutWhatItNeeds)
{
    const DialogTemplate unknown(L"no such class");
    TestDialog dialog(unknown.Get(), &owner);
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_TRUE(owner.IsWindowEnabled());
    CDialog missing(12345, &owner);
    EXPECT_EQ(missing.DoModal(), -1);
}

TEST_F(DialogTest, LeavesTheEndOfTheProgramToTheOuterLoop)
{
    TestDialog dialog(plain.Get(), &owner);
    dialog.m_onInit = [](TestDialog&) { ::PostQuitMessage(3); };
    EXPECT_EQ(dialog.DoModal(), -1);
    MSG msg = {};
    while (::GetMessage(&msg, nullptr, 0, 0) > 0) {
    }
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_QUIT));
}

TEST_F(DialogTest, ModelessLivesOn)
{
    TestDialog dialog(nullptr, &owner);
    ASSERT_TRUE(dialog.CreateIndirect(plain.Get(), &owner));
    EXPECT_TRUE(owner.IsWindowEnabled());
    CString text;
    EXPECT_EQ(dialog.GetDlgItemText(kEditId, text), 4);
    EXPECT_EQ(text, "text");
    EXPECT_EQ(dialog.GetDlgItem(kEditId), &dialog.m_edit);
    MSG msg = {dialog.m_edit.m_hWnd, WM_KEYDOWN, VK_ESCAPE, 0, 0, {0, 0}};
    EXPECT_TRUE(AfxPreTranslateMessage(&msg));
    EXPECT_EQ(dialog.m_edit.m_seen, 1);
    dialog.DestroyWindow();
    EXPECT_EQ(dialog.m_edit.m_hWnd, nullptr);
}

TEST_F(DialogTest, ListsGiveTheirTexts)
{
    CComboBox box;
    ASSERT_TRUE(box.Create(WS_CHILD | CBS_DROPDOWNLIST, CRect(0, 0, 80, 100), &owner, 5));
    CListBox list;
    ASSERT_TRUE(list.Create(WS_CHILD, CRect(0, 0, 80, 100), &owner, 6));
    CString text;
    for (const char* item : {"one", "twenty-two"}) {
        box.SetItemData(box.AddString(item), 9);
        list.AddString(item);
        box.GetLBText(box.GetCount() - 1, text);
        EXPECT_EQ(text, item);
        list.GetText(list.GetCount() - 1, text);
        EXPECT_EQ(text, item);
    }
    EXPECT_EQ(box.GetItemData(1), 9u);
    EXPECT_EQ(box.FindStringExact(-1, "twenty-two"), 1);
    try {
        box.GetLBText(2, text);
        FAIL() << "there is no third item";
    } catch (CInvalidArgException* e) {
        e->Delete();
    }
}

} // namespace

TEST(FileDialog, TheBarsOfItsFilterEndTheNames)
{
    const CFileDialog dialog(TRUE, "ics", nullptr, 0, "Calendars (*.ics)|*.ics|All|*.*||");
    const char expected[] = "Calendars (*.ics)\0*.ics\0All\0*.*\0";
    EXPECT_EQ(std::string(dialog.m_ofn.lpstrFilter, sizeof(expected)), std::string(expected, sizeof(expected)));
    if (::GetACP() == 932) { // there the second byte of "ポ" is that of a bar
        EXPECT_STREQ(CFileDialog(TRUE, nullptr, nullptr, 0, "レポート|*.ics||").m_ofn.lpstrFilter, "レポート");
    }
    EXPECT_FALSE(CFileDialog(FALSE).m_ofn.lpstrFilter);
}
