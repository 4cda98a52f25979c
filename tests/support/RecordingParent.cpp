#include "tests/support/RecordingParent.h"

#include "tests/support/Input.h"

#include <algorithm>
#include <sstream>

namespace testsupport {
namespace {

constexpr UINT kFirstPickerMessage = 6025;
constexpr UINT kLastPickerMessage = 6029;
constexpr int kWindowLeft = 40;
constexpr int kWindowTop = 40;

struct CodeName
{
    int code;
    const char* name;
    Notification::Record record;
};

constexpr CodeName kCodeNames[] = {
    // code               name                   record
    {CCN_ITEMCLICK, "CCN_ITEMCLICK", Notification::Record::Item},
    {CCN_ITEMDBLCLICK, "CCN_ITEMDBLCLICK", Notification::Record::Item},
    {CCN_ITEMRCLICK, "CCN_ITEMRCLICK", Notification::Record::Item},
    {CCN_CONTEXTMENU, "CCN_CONTEXTMENU", Notification::Record::Item},
    {CCN_SELDATECHANGE, "CCN_SELDATECHANGE", Notification::Record::Item},
    {CCN_VIEWRANGECHANGE, "CCN_VIEWRANGECHANGE", Notification::Record::Dates},
    {CCN_ITEMMOVED, "CCN_ITEMMOVED", Notification::Record::Item},
    {CCN_IPE_ENDEDITITEM, "CCN_IPE_ENDEDITITEM", Notification::Record::Edit},
    {CCN_COMBOSELCHANGE, "CCN_COMBOSELCHANGE", Notification::Record::Item},
    {CCN_MOUSEHOVER, "CCN_MOUSEHOVER", Notification::Record::Item},
    {CCN_SELCHANGED, "CCN_SELCHANGED", Notification::Record::Range},
    {CCN_COPY, "CCN_COPY", Notification::Record::Item},
    {CCN_CUT, "CCN_CUT", Notification::Record::Item},
    {CCN_PASTE, "CCN_PASTE", Notification::Record::Item},
    {CCN_DUPLICATE, "CCN_DUPLICATE", Notification::Record::Item},
    {CCN_RENAME, "CCN_RENAME", Notification::Record::Item},
    {CCN_DELETE, "CCN_DELETE", Notification::Record::Item},
    {CCN_GOTODATE, "CCN_GOTODATE", Notification::Record::Item},
    {CCN_BEGINMOVE, "CCN_BEGINMOVE", Notification::Record::Item},
    {static_cast<int>(MCN_SELECT), "MCN_SELECT", Notification::Record::Selection},
    {static_cast<int>(NM_DBLCLK), "NM_DBLCLK", Notification::Record::Plain},
    {6025, "YMN_DATECHANGE", Notification::Record::Message},
    {6026, "YMN_DROPDOWN", Notification::Record::Message},
    {6027, "YMN_CLOSEUP", Notification::Record::Message},
    {6028, "YMN_SELENDOK", Notification::Record::Message},
    {6029, "YMN_SELENDCANCEL", Notification::Record::Message},
};

const CodeName* FindCode(int code)
{
    const auto* found = std::find_if(std::begin(kCodeNames), std::end(kCodeNames),
                                     [code](const CodeName& row) { return row.code == code; });
    return found != std::end(kCodeNames) ? found : nullptr;
}

Notification CopyOf(const NMHDR* header)
{
    Notification copy;
    copy.hdr = *header;
    const CodeName* known = FindCode(static_cast<int>(header->code));
    copy.record = known ? known->record : Notification::Record::Plain;
    switch (copy.record) {
    case Notification::Record::Item:
        copy.item = *reinterpret_cast<const NMCALENDARITEM*>(header);
        break;
    case Notification::Record::Dates:
        copy.dates = *reinterpret_cast<const NMCALENDARDATES*>(header);
        break;
    case Notification::Record::Edit:
        copy.edit = *reinterpret_cast<const NMCALENDAREDIT*>(header);
        copy.editedItem = reinterpret_cast<const NMCALENDARITEMEDIT*>(header)->nItem;
        copy.editedData = reinterpret_cast<const NMCALENDARITEMEDIT*>(header)->lParam;
        copy.hasEditText = copy.edit.lpszText != nullptr;
        copy.editText = copy.hasEditText ? copy.edit.lpszText : "";
        copy.edit.lpszText = nullptr;
        break;
    case Notification::Record::Selection:
        copy.selection = *reinterpret_cast<const NMSELCHANGE*>(header);
        break;
    case Notification::Record::Range:
        copy.range = *reinterpret_cast<const NMCALENDARSELECTION*>(header);
        break;
    default:
        break;
    }
    return copy;
}

} // namespace

std::string TimeText(const SYSTEMTIME& time)
{
    if (time.wYear == 0 && time.wMonth == 0 && time.wDay == 0) {
        return "none";
    }
    char text[40];
    snprintf(text, sizeof(text), "%04d-%02d-%02d %02d:%02d:%02d", time.wYear, time.wMonth, time.wDay, time.wHour,
             time.wMinute, time.wSecond);
    return text;
}

std::string Notification::Name() const
{
    const CodeName* known = FindCode(Code());
    return known ? known->name : std::to_string(Code());
}

std::string Notification::Line() const
{
    std::ostringstream line;
    line << Name();
    switch (record) {
    case Record::Item:
        line << " item=" << item.nItem << " lParam=" << static_cast<long long>(item.lParam)
             << " time=" << TimeText(item.time) << " hit=" << item.nFlags << " sub=" << item.nSubValue;
        break;
    case Record::Dates:
        line << " date=" << TimeText(dates.stDate) << " first=" << TimeText(dates.stFirst)
             << " last=" << TimeText(dates.stLast) << " value=" << dates.nValue;
        break;
    case Record::Edit:
        line << " text=" << (hasEditText ? "\"" + editText + "\"" : "null") << " length=" << edit.nLength
             << " start=" << TimeText(edit.stStart) << " end=" << TimeText(edit.stEnd) << " mode=" << edit.nMode;
        break;
    case Record::Selection:
        line << " start=" << TimeText(selection.stSelStart) << " end=" << TimeText(selection.stSelEnd);
        break;
    case Record::Range:
        line << " begin=" << TimeText(range.stBegin) << " end=" << TimeText(range.stEnd)
             << (range.bWholeDays ? " days" : "") << " cause=" << range.nCause;
        break;
    case Record::Message:
        line << " wParam=" << static_cast<unsigned long long>(wParam) << " lParam=" << static_cast<long long>(lParam);
        break;
    case Record::Plain:
        break;
    }
    return line.str();
}

RecordingParent::~RecordingParent()
{
    m_hook = nullptr;
    DestroyWindow();
}

// The pointer rests in the far corner until a test moves it: over the window it would send moves of its own into the
// middle of a test that sends messages.
static void ParkPointer()
{
    ::SetCursorPos(::GetSystemMetrics(SM_CXSCREEN) - 1, ::GetSystemMetrics(SM_CYSCREEN) - 1);
    PumpMessages();
}

bool RecordingParent::Create(int clientWidth, int clientHeight)
{
    ParkPointer();
    CRect frame(0, 0, clientWidth, clientHeight);
    ::AdjustWindowRect(&frame, WS_OVERLAPPEDWINDOW, FALSE);
    frame.MoveToXY(kWindowLeft, kWindowTop);
    const LPCTSTR windowClass =
        AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursor(nullptr, IDC_ARROW), reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1));
    const bool created = CreateEx(0, windowClass, "Recording parent",
                                  WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN | WS_VISIBLE, frame, nullptr, 0) != FALSE;
    PumpMessages();
    return created;
}

int RecordingParent::Count(int code) const
{
    return static_cast<int>(
        std::count_if(m_log.begin(), m_log.end(), [code](const Notification& entry) { return entry.Code() == code; }));
}

std::vector<std::string> RecordingParent::Names() const
{
    std::vector<std::string> names;
    for (const Notification& entry : m_log) {
        names.push_back(entry.Name());
    }
    return names;
}

std::vector<std::string> RecordingParent::Lines() const
{
    std::vector<std::string> lines;
    for (const Notification& entry : m_log) {
        lines.push_back(entry.Line());
    }
    return lines;
}

LRESULT RecordingParent::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NOTIFY) {
        // The record is copied first: what serves the message may free it.
        Notification copy = CopyOf(reinterpret_cast<const NMHDR*>(lParam));
        const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
        return Write(std::move(copy), result);
    }
    if (message >= kFirstPickerMessage && message <= kLastPickerMessage) {
        Notification copy;
        copy.record = Notification::Record::Message;
        copy.message = message;
        copy.wParam = wParam;
        copy.lParam = lParam;
        return Write(std::move(copy), 0);
    }
    return CWnd::WindowProc(message, wParam, lParam);
}

LRESULT RecordingParent::Write(Notification notification, LRESULT result)
{
    if (std::find(m_ignored.begin(), m_ignored.end(), notification.Code()) != m_ignored.end()) {
        return result;
    }
    m_log.push_back(notification);
    // A hook may set another hook, so it is called through a copy.
    const Hook hook = m_hook;
    return hook ? hook(notification) : result;
}

} // namespace testsupport
