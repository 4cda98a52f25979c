// What the window tests of the date selectors share: a clock that stands still and a parent whose log is made of short
// texts.
#pragma once

#include "core/CalendarClock.h"
#include "tests/pickers/PickerDates.h"
#include "tests/support/GuiCounts.h"
#include "tests/support/Input.h"
#include "tests/support/MemoryDc.h"
#include "tests/support/RecordingParent.h"

#include <memory>
#include <vector>

typedef std::vector<std::string> Reports;

namespace messages = testsupport::messages;
namespace hardware = testsupport::hardware;
using testsupport::PumpMessages;
using testsupport::PumpUntil;

constexpr UINT kSelectorId = 77; // of the one selector in a parent

// Colours as they are seen, 0x00BBGGRR
constexpr COLORREF kFrameBlue = 0xB99D7F;       // frames, separators, arrows
constexpr COLORREF kBandTop = 0xD6865A;         // first line of a title band
constexpr COLORREF kSelectedGround = 0x94D3FF;  // of a selected day or month
constexpr COLORREF kSelectedOutline = 0x5292FF; // of a selected month
constexpr COLORREF kHolidayRed = 0x2138EF;      // holidays, Sundays, today's frame
constexpr COLORREF kUnpainted = 0x123456;

// The moment of the clock of all tests here.
inline COleDateTime g_now;

class PickerParent : public testsupport::RecordingParent
{
public:
    PickerParent()
    {
        g_now = Day(2010, 1, 15, 9);
        SetCalendarClock([] { return g_now; });
        Create(600, 500);
        SetForegroundWindow();
        ::SetCursorPos(2, 2); // away from the selectors, which would get its moves while they hold the capture
        PumpMessages();
    }
    ~PickerParent() override { SetCalendarClock(nullptr); }

    // The notifications since the last call: "MCN_SELECT 2010/1/8 - 2010/1/10", "YMN_CLOSEUP 201005".
    Reports Take()
    {
        Reports log;
        for (const testsupport::Notification& entry : Log()) {
            log.push_back(entry.Name());
            const bool isMessage = entry.record == testsupport::Notification::Record::Message;
            EXPECT_EQ(kSelectorId, isMessage ? static_cast<UINT>(entry.lParam) : entry.hdr.idFrom);
            if (entry.record == testsupport::Notification::Record::Selection) {
                const NMSELCHANGE& record = entry.selection;
                log.back() += " " + Text(COleDateTime(record.stSelStart)) + " - " + Text(COleDateTime(record.stSelEnd));
            } else if (isMessage) {
                log.back() += " " + std::to_string(entry.wParam);
            }
        }
        ClearLog();
        return log;
    }
    // The host acts within its n-th message from now on (1: the next).
    void ActAt(int n, std::function<void()> act)
    {
        SetHook([=, left = std::make_shared<int>(n)](const testsupport::Notification&) -> LRESULT {
            if (--*left == 0) {
                act();
            }
            return 0;
        });
    }
};

typedef std::vector<COLORREF> Pixels;
inline Pixels PixelsOf(const testsupport::MemoryDc& dc)
{
    Pixels pixels;
    for (int i = 0; i < dc.Width() * dc.Height(); ++i) {
        pixels.push_back(dc.Pixel(i % dc.Width(), i / dc.Width()));
    }
    return pixels;
}

template <class Control, class Made = Control>
std::unique_ptr<Control> Make()
{
    return std::make_unique<Made>();
}

// One selector in a parent, made once the parent has set the clock.
template <class Control>
struct Scene
{
    typedef std::unique_ptr<Control> (*Maker)();
    explicit Scene(Maker make) : control(make()) {}
    void Key(UINT key) { ::SendMessage(control->m_hWnd, WM_KEYDOWN, key, 0); }
    // What a window shows, and what it paints when asked to print itself.
    static Pixels Seen(const CWnd& window)
    {
        ::UpdateWindow(window.m_hWnd);
        CRect client;
        window.GetClientRect(&client);
        const HDC hDC = ::GetDC(window.m_hWnd);
        testsupport::MemoryDc copy(client.Width(), client.Height());
        ::BitBlt(copy.Dc().m_hDC, 0, 0, client.Width(), client.Height(), hDC, 0, 0, SRCCOPY);
        ::ReleaseDC(window.m_hWnd, hDC);
        return PixelsOf(copy);
    }
    static Pixels Printed(const CWnd& window)
    {
        CRect client;
        window.GetClientRect(&client);
        testsupport::MemoryDc page(client.Width(), client.Height(), kUnpainted);
        ::SendMessage(window.m_hWnd, WM_PRINT, reinterpret_cast<WPARAM>(page.Dc().m_hDC), PRF_CLIENT);
        return PixelsOf(page);
    }

    PickerParent parent;
    std::unique_ptr<Control> control;
};

// A selector with the system's state of focus cues, which Wine does not keep: hidden at first, as before the first key.
template <class Control>
class Cued : public Control
{
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_QUERYUISTATE) {
            return m_isHidden ? UISF_HIDEFOCUS : 0;
        }
        if (message == WM_CHANGEUISTATE && wParam == MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS)) {
            m_isHidden = false;
            return this->SendMessage(WM_UPDATEUISTATE, wParam);
        }
        return Control::WindowProc(message, wParam, lParam);
    }
    bool m_isHidden = true;
};
