// What the window tests of the date selectors share: a clock that stands still and a parent whose log reads shortly.
#pragma once

#include "core/CalendarClock.h"
#include "core/DateMath.h"
#include "tests/support/GuiCounts.h"
#include "tests/support/Input.h"
#include "tests/support/RecordingParent.h"

#include <gtest/gtest.h>

typedef std::vector<std::string> Told;

namespace messages = testsupport::messages;
namespace hardware = testsupport::hardware;
using testsupport::PumpMessages;
using testsupport::PumpUntil;

inline COleDateTime Day(int year, int month, int day)
{
    return COleDateTime(year, month, day, 0, 0, 0);
}

constexpr UINT kSelectorId = 77; // of the one selector in a parent

class PickerParent : public testsupport::RecordingParent
{
public:
    PickerParent()
    {
        SetCalendarClock([] { return COleDateTime(2010, 1, 15, 9, 0, 0); });
        Create(600, 500);
        SetForegroundWindow();
        ::SetCursorPos(2, 2); // away from the selectors, whose captured mouse would hear of it
        PumpMessages();
    }
    ~PickerParent() override { SetCalendarClock(nullptr); }

    // What has been told since the last call: "MCN_SELECT 2010/1/8 - 2010/1/10", "YMN_CLOSEUP 201005".
    Told Take()
    {
        Told log;
        for (const testsupport::Notification& entry : Log()) {
            log.push_back(entry.Name());
            const bool isMessage = entry.record == testsupport::Notification::Record::Message;
            EXPECT_EQ(kSelectorId, isMessage ? static_cast<UINT>(entry.lParam) : entry.hdr.idFrom);
            if (entry.record == testsupport::Notification::Record::Selection) {
                log.back() += " " + Text(entry.selection.stSelStart) + " - " + Text(entry.selection.stSelEnd);
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

private:
    static std::string Text(const SYSTEMTIME& time)
    {
        const COleDateTime date(time);
        if (date.GetStatus() != COleDateTime::valid) {
            return "none";
        }
        const dayvane::DateFields fields = dayvane::FieldsOf(date);
        const std::string day =
            std::to_string(fields.year) + "/" + std::to_string(fields.month) + "/" + std::to_string(fields.day);
        return time.wHour == 0 ? day : day + "+" + std::to_string(time.wHour) + "h";
    }
};
