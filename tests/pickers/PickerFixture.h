// What the window tests of the date selectors share: a clock that stands still and a parent whose log is made of short
// texts.
#pragma once

#include "core/CalendarClock.h"
#include "tests/pickers/PickerDates.h"
#include "tests/support/GuiCounts.h"
#include "tests/support/Input.h"
#include "tests/support/RecordingParent.h"

#include <memory>

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

class PickerParent : public testsupport::RecordingParent
{
public:
    PickerParent()
    {
        SetCalendarClock([] { return Day(2010, 1, 15, 9); });
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

// One selector in a parent.
template <class Control>
struct Scene
{
    void Key(UINT key) { ::SendMessage(control->m_hWnd, WM_KEYDOWN, key, 0); }

    PickerParent parent;
    std::unique_ptr<Control> control = std::make_unique<Control>();
};
