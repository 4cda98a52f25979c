// A parent window that writes down what its controls report: every WM_NOTIFY with a copy of its record, and the plain
// messages of the year-month picker. Tests compare the list of lines.
#pragma once

#include "core/CalendarNotify.h"

#include <afxwin.h>
#include <commctrl.h>

#include <functional>
#include <string>
#include <vector>

namespace testsupport {

struct Notification
{
    enum class Record
    {
        Plain,     // only hdr
        Item,      // NMCALENDARITEM
        Dates,     // NMCALENDARDATES
        Edit,      // NMCALENDARITEMEDIT, its text in editText
        Selection, // NMSELCHANGE
        Range,     // NMCALENDARSELECTION
        Message,   // no WM_NOTIFY: message, wParam, lParam
    };

    Record record = Record::Plain;
    NMHDR hdr = {};
    NMCALENDARITEM item = {};
    NMCALENDARDATES dates = {};
    NMCALENDAREDIT edit = {}; // lpszText is null: the text lives in editText
    int editedItem = -1;
    LPARAM editedData = 0;
    bool hasEditText = false;
    std::string editText;
    NMSELCHANGE selection = {};
    NMCALENDARSELECTION range = {};
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;

    int Code() const { return record == Record::Message ? static_cast<int>(message) : static_cast<int>(hdr.code); }
    // "CCN_ITEMCLICK", "MCN_SELECT", "YMN_DROPDOWN"; the number for others.
    std::string Name() const;
    // The name and the fields that matter, without the point, for example
    // "CCN_ITEMCLICK item=0 lParam=7 time=2017-04-25 10:00:00 hit=2 sub=1".
    std::string Line() const;
};

class RecordingParent : public CWnd
{
public:
    // Called after a notification has been written down; may do anything, also destroy windows. Its answer is the
    // result of the message.
    using Hook = std::function<LRESULT(const Notification&)>;

    RecordingParent() = default;
    ~RecordingParent() override;

    // A visible top-level window with a client area of that size, at a fixed place on the screen.
    bool Create(int clientWidth, int clientHeight);

    // Notifications with this code are not written down, and the hook is not called for them.
    void Ignore(int code) { m_ignored.push_back(code); }
    void SetHook(Hook hook) { m_hook = std::move(hook); }
    // From now on keys go through IsDialogMessage first, as in a dialog.
    void ActAsDialog() { m_isDialog = true; }

    const std::vector<Notification>& Log() const { return m_log; }
    void ClearLog() { m_log.clear(); }
    int Count(int code) const;
    std::vector<std::string> Names() const;
    std::vector<std::string> Lines() const;

protected:
    BOOL PreTranslateMessage(MSG* pMsg) override { return m_isDialog && ::IsDialogMessage(m_hWnd, pMsg); }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    LRESULT Write(Notification notification, LRESULT result);

    std::vector<Notification> m_log;
    std::vector<int> m_ignored;
    Hook m_hook;
    bool m_isDialog = false;
};

// "2017-04-25 10:00:00", or "none" for a record that is all zero.
std::string TimeText(const SYSTEMTIME& time);

} // namespace testsupport
