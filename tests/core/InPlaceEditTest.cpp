// Typing into a cell: what commits, what cancels, what is reported, and which characters may enter.
#include "PlainCalendar.h"

#include "core/InPlaceEdit.h"
#include "support/GuiCounts.h"
#include "support/Input.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <vector>

using namespace coretest;
using namespace testsupport;
using Lines = std::vector<std::string>;

namespace {

class EditScene : public CalendarScene
{
public:
    HWND Begin(const char* text = "old")
    {
        calendar->SetSelRange(At(9), At(10));
        Reports();
        calendar->BeginEditItem(text);
        return Box();
    }
    HWND Box() const { return ::GetDlgItem(window, 1); }
    std::string Text() const
    {
        char text[200] = "";
        ::GetWindowTextA(Box(), text, sizeof(text));
        return text;
    }
};

Lines Ended(const std::string& text)
{
    return {"CCN_IPE_ENDEDITITEM text=\"" + text + "\" length=" + std::to_string(text.size()) +
            " start=2017-04-25 09:00:00 end=2017-04-25 10:00:00 mode=17"};
}

TEST(InPlaceEdit, OpensOverTheCellWithTheText)
{
    EditScene scene;
    scene.calendar->hasCell = false;
    EXPECT_EQ(scene.Begin(), nullptr);
    EXPECT_FALSE(scene.calendar->IsEditing());
    scene.calendar->hasCell = true;
    const HWND box = scene.Begin();
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(scene.calendar->IsEditing());
    EXPECT_EQ(::GetFocus(), box);
    EXPECT_EQ(scene.Text(), "old");
    CRect rect;
    ::GetWindowRect(box, &rect);
    scene.calendar->ScreenToClient(&rect);
    EXPECT_EQ(rect, CRect(10, 40, 200, 64));
    scene.calendar->cellHeight = 5;
    ::GetWindowRect(scene.Begin(), &rect);
    scene.calendar->ScreenToClient(&rect);
    EXPECT_EQ(rect.TopLeft(), CPoint(10, 40));
    EXPECT_GT(rect.Height(), 12) << "a line of text has room in a low cell";
    for (const int height : {50, 12}) {
        scene.calendar->MoveWindow(0, 0, kWidth, height);
        CRect low;
        ::GetWindowRect(scene.Begin(), &low);
        scene.calendar->ScreenToClient(&low);
        EXPECT_EQ(low.top, std::max(height - rect.Height(), 0)) << "at the bottom, but not above a low window";
    }
}

TEST(InPlaceEdit, WhatEndsItAndWhatIsReported)
{
    struct Row
    {
        const char* what;
        std::function<void(EditScene&)> act;
        bool commits;
    };
    const Row rows[] = {
        {"Enter without PreTranslateMessage", [](EditScene& s) { ::SendMessage(s.Box(), WM_KEYDOWN, VK_RETURN, 0); },
         true},
        {"scrolling", [](EditScene& s) { s.calendar->SendMessage(WM_VSCROLL, SB_LINEDOWN); }, true},
        {"sizing", [](EditScene& s) { s.calendar->MoveWindow(0, 0, 200, 200); }, true},
        {"another edit",
         [](EditScene& s) {
             s.calendar->BeginEditItem("next");
             ::SendMessage(s.Box(), WM_KEYDOWN, VK_ESCAPE, 0);
         },
         true},
        {"the control's end", [](EditScene& s) { s.calendar->DestroyWindow(); }, false},
    };
    ExpectNothingLeftBy([&rows] {
        for (const Row& row : rows) {
            EditScene scene;
            scene.Begin();
            messages::Type(scene.Box(), "new ");
            scene.parent.Ignore(CCN_ITEMCLICK);
            row.act(scene);
            PumpMessages();
            EXPECT_EQ(scene.Reports(), row.commits ? Ended("new old") : Lines()) << row.what;
            EXPECT_EQ(::IsWindow(scene.window) ? scene.Box() : nullptr, nullptr) << row.what;
        }
    });
}

// A window around the control that has commands on keys, as a frame does.
class Commands : public CWnd
{
public:
    std::string received;

    explicit Commands(std::initializer_list<WORD> keys)
    {
        CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP | WS_VISIBLE, CRect(0, 0, kWidth, kHeight), nullptr, 0);
        std::vector<ACCEL> table;
        for (const WORD key : keys) {
            table.push_back({FVIRTKEY, key, key});
            table.push_back({FVIRTKEY | FCONTROL, key, key});
        }
        m_keys = ::CreateAcceleratorTable(table.data(), static_cast<int>(table.size()));
    }
    ~Commands() override
    {
        DestroyWindow();
        ::DestroyAcceleratorTable(m_keys);
    }

protected:
    BOOL PreTranslateMessage(MSG* message) override { return ::TranslateAccelerator(m_hWnd, m_keys, message); }
    BOOL OnCommand(WPARAM wParam, LPARAM) override
    {
        received += static_cast<char>(LOWORD(wParam) == VK_DELETE ? 'D'
                                      : LOWORD(wParam) == VK_F5   ? '5'
                                                                  : LOWORD(wParam));
        return TRUE;
    }

private:
    HACCEL m_keys;
};

TEST(InPlaceEdit, KeepsItsKeysFromTheCommandsOfAHost)
{
    Commands host({VK_DELETE, 'A', 'Z', 'S', 'Q', VK_F5});
    EditScene scene;
    scene.calendar->SetParent(&host);
    ASSERT_TRUE(scene.Begin("old"));
    EXPECT_EQ(scene.calendar->GetInPlaceEdit()->m_hWnd, scene.Box());
    ::SendMessage(scene.Box(), EM_SETSEL, 0, 1);
    messages::Key(scene.Box(), VK_DELETE);
    EXPECT_EQ(scene.Text(), "ld");
    for (const int key : {'A', 'Q'}) {
        messages::Key(scene.Box(), key);
    }
    {
        const KeyState control({VK_CONTROL});
        messages::Key(scene.Box(), 'A');
        messages::Key(scene.Box(), 'Z');
        EXPECT_EQ(host.received, "");
        messages::Key(scene.Box(), 'S');
    }
    messages::Key(scene.Box(), VK_F5);
    EXPECT_EQ(host.received, "S5") << "no edit box knows these";
    messages::Key(scene.Box(), VK_ESCAPE);
    EXPECT_FALSE(scene.calendar->GetInPlaceEdit());
    messages::Key(scene.window, VK_DELETE);
    EXPECT_EQ(host.received, "S5D");
}

TEST(InPlaceEdit, SaysWhichItemItBelongsTo)
{
    EditScene scene;
    const auto edited = [&](const std::function<void()>& meanwhile) {
        scene.Begin();
        meanwhile();
        messages::Key(scene.Box(), VK_RETURN);
        const Notification& sent = scene.parent.Log().back();
        return std::to_string(sent.editedItem) + "/" + std::to_string(sent.editedData);
    };
    EXPECT_EQ(edited([] {}), "-1/0");
    scene.calendar->SetCurSel(1);
    EXPECT_EQ(edited([] {}), "1/71");
    EXPECT_EQ(edited([&] { scene.calendar->SetCurSel(0); }), "1/71") << "that of the beginning";
    scene.calendar->SetCurSel(1);
    EXPECT_EQ(edited([&] { scene.calendar->DeleteItem(0); }), "-1/71") << "its index is not known any more";
}

TEST(InPlaceEdit, EmptyTextIsReportedAndEscapeLeavesTheFlag)
{
    EditScene scene;
    scene.Begin("");
    messages::Key(scene.Box(), VK_ESCAPE);
    EXPECT_TRUE(scene.calendar->IsEditing()) << "as documented: until an edit ends with a text";
    scene.Begin("");
    messages::Key(scene.Box(), VK_RETURN);
    EXPECT_EQ(scene.Reports(), Ended(""));
    EXPECT_FALSE(scene.calendar->IsEditing());
    EXPECT_EQ(::GetFocus(), scene.window);
}

TEST(InPlaceEdit, KeysOfAConversionAreNotOurs)
{
    EditScene scene;
    const HWND box = scene.Begin();
    ::SendMessage(box, WM_IME_STARTCOMPOSITION, 0, 0);
    for (int key : {VK_RETURN, VK_ESCAPE, VK_TAB}) {
        messages::Key(box, key);
        EXPECT_EQ(scene.Box(), box) << key;
    }
    ::SendMessage(box, WM_IME_ENDCOMPOSITION, 0, 0);
    EXPECT_TRUE(scene.Reports().empty());
    messages::Key(box, VK_RETURN);
    EXPECT_EQ(scene.Reports().size(), 1u);
}

TEST(InPlaceEdit, TypedCharactersAreWholeOrRefused)
{
    const bool japanese = ::GetACP() == 932;
    const WORD kMeeting = 0x4F1A; // a character of the bytes 89 EF
    const struct
    {
        const char* what;
        std::function<void(HWND)> act;
        const char* on932;
        const char* on1252;
    } rows[] = {
        {"two bytes", [](HWND box) { messages::Type(box, "\x89\xEF"); }, "\x89\xEF", "\x89\xEF"},
        {"an input method's", [](HWND box) { ::PostMessage(box, WM_IME_CHAR, 0x89EF, 0); }, "\x89\xEF", nullptr},
        {"sent by a program",
         [kMeeting](HWND) {
             INPUT key = {};
             key.type = INPUT_KEYBOARD;
             key.ki.wScan = kMeeting;
             key.ki.dwFlags = KEYEVENTF_UNICODE;
             ::SendInput(1, &key, sizeof(key));
             key.ki.dwFlags |= KEYEVENTF_KEYUP;
             ::SendInput(1, &key, sizeof(key));
         },
         "\x89\xEF", ""},
        {"a question", [](HWND box) { messages::Type(box, "?"); }, "?", "?"},
    };
    for (const auto& row : rows) {
        const char* expected = japanese ? row.on932 : row.on1252;
        EditScene scene;
        ASSERT_TRUE(hardware::Focus(scene.window));
        row.act(scene.Begin(""));
        PumpUntil([&] { return scene.Text() != ""; }, expected && *expected ? 5000 : 50);
        if (expected) {
            EXPECT_EQ(scene.Text(), expected) << row.what;
        }
    }
}

TEST(InPlaceEdit, PastedTextIsWholeOrRefused)
{
    const wchar_t pasted[] = {0x4F1A, 0x8B70, 0}; // "meeting" in two Japanese characters
    EditScene scene;
    const HWND box = scene.Begin("x");
    ASSERT_TRUE(::OpenClipboard(box));
    ::EmptyClipboard();
    const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, sizeof(pasted));
    std::memcpy(::GlobalLock(memory), pasted, sizeof(pasted));
    ::GlobalUnlock(memory);
    ::SetClipboardData(CF_UNICODETEXT, memory);
    ::CloseClipboard();
    ::SendMessage(box, EM_SETSEL, 1, 1);
    ::SendMessage(box, WM_PASTE, 0, 0);
    const std::string whole = ::GetACP() == 932 ? "x\x89\xEF\x8B\x63" : "x";
    EXPECT_EQ(scene.Text(), whole);
    ::SendMessage(box, WM_CHAR, 0x16, 0); // Ctrl+V
    EXPECT_EQ(scene.Text().find('?'), std::string::npos);
    messages::Key(box, VK_RETURN);
    const std::string text = scene.parent.Log().back().editText;
    EXPECT_EQ(text.compare(0, whole.size(), whole), 0) << "double bytes survive";
}

// Whether the font has a glyph for each of the characters.
bool Shows(HFONT font, const std::wstring& text)
{
    CClientDC dc(nullptr);
    const HGDIOBJ before = ::SelectObject(dc, font);
    std::vector<WORD> glyphs(text.size());
    ::GetGlyphIndicesW(dc, text.c_str(), static_cast<int>(text.size()), glyphs.data(), GGI_MARK_NONEXISTING_GLYPHS);
    ::SelectObject(dc, before);
    return std::count(glyphs.begin(), glyphs.end(), static_cast<WORD>(0xFFFF)) == 0;
}

HFONT FontOf(HWND box)
{
    return reinterpret_cast<HFONT>(::SendMessage(box, WM_GETFONT, 0, 0));
}

TEST(InPlaceEdit, HasAFontForItsText)
{
    const std::wstring japanese = L"\x4F1A\x8B70";
    ExpectNothingLeftBy([&] {
        EditScene scene;
        scene.calendar->SetTextCodePage(CP_UTF8);
        LOGFONT latin = {};
        latin.lfHeight = -14;
        lstrcpyn(latin.lfFaceName, "Liberation Serif", LF_FACESIZE); // no Japanese in it
        scene.calendar->SetTextFont(latin);
        const HWND box = scene.Begin("plain");
        const HFONT own = FontOf(box);
        ASSERT_FALSE(Shows(own, japanese));
        ::SendMessage(box, EM_SETSEL, 2, 3);
        for (const wchar_t unit : japanese) {
            ::SendMessageW(box, WM_CHAR, unit, 1);
        }
        EXPECT_TRUE(Shows(FontOf(box), L"plin" + japanese));
        EXPECT_EQ(::SendMessage(box, EM_GETSEL, 0, 0), MAKELONG(4, 4)) << "after what was typed";
        ::SendMessage(box, EM_SETSEL, 2, 4);
        ::SendMessage(box, WM_IME_STARTCOMPOSITION, 0, 0);
        ::SendMessage(box, WM_CLEAR, 0, 0);
        EXPECT_NE(FontOf(box), own) << "an input method keeps the font that it began with";
        ::SendMessage(box, WM_IME_ENDCOMPOSITION, 0, 0);
        EXPECT_EQ(FontOf(box), own);
        ::SetWindowTextW(box, japanese.c_str());
        EXPECT_TRUE(Shows(FontOf(box), japanese));
        ::SetWindowTextW(box, L"plain again");
        EXPECT_EQ(FontOf(box), own);
        messages::Key(box, VK_ESCAPE);
    });
}

} // namespace
