#include "planner/ItemClipboard.h"

#include "ical/Text.h"
#include "planner/ItemBridge.h"
#include "planner/WideText.h"

namespace planner {

namespace {

constexpr std::size_t kLongestTitle = 500; // bytes
constexpr std::string_view kCalendarBegin = "BEGIN:VCALENDAR";

bool IsCalendarText(std::string_view text)
{
    const std::size_t at = text.find_first_not_of(" \r\n\t\xEF\xBB\xBF");
    return at != std::string_view::npos && SameWord(text.substr(at, kCalendarBegin.size()), kCalendarBegin);
}

} // namespace

UINT CalendarFormat()
{
    static const UINT format = ::RegisterClipboardFormat("text/calendar");
    return format;
}

std::string PlainTextOf(const CalendarSet& calendars, const std::vector<OccurrenceId>& ids)
{
    std::string text;
    for (const OccurrenceId& id : ids) {
        if (const auto occurrence = calendars.Find(id)) {
            text += (text.empty() ? "" : "\r\n") + DetailsOf(*occurrence);
        }
    }
    return text;
}

HGLOBAL GlobalOf(const void* bytes, std::size_t size)
{
    const HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, size + sizeof(wchar_t));
    if (block) {
        std::copy_n(static_cast<const char*>(bytes), size, static_cast<char*>(::GlobalLock(block)));
        ::GlobalUnlock(block);
    }
    return block;
}

std::string BytesOfGlobal(HGLOBAL block)
{
    std::string bytes;
    if (const char* data = static_cast<const char*>(::GlobalLock(block))) {
        const std::size_t size = ::GlobalSize(block);
        bytes.assign(data, strnlen(data, size));
        ::GlobalUnlock(block);
    }
    return bytes;
}

std::string WideTextOfGlobal(HGLOBAL block)
{
    std::string text;
    if (const wchar_t* data = static_cast<const wchar_t*>(::GlobalLock(block))) {
        text = Utf8Of(std::wstring_view(data, wcsnlen(data, ::GlobalSize(block) / sizeof(wchar_t))));
        ::GlobalUnlock(block);
    }
    return text;
}

bool PutOnClipboard(CWnd& owner, const std::string& calendar, const std::string& text)
{
    if (!::OpenClipboard(owner.m_hWnd)) {
        return false;
    }
    ::EmptyClipboard();
    const std::wstring wide = Wide(text);
    ::SetClipboardData(CalendarFormat(), GlobalOf(calendar.data(), calendar.size()));
    ::SetClipboardData(CF_UNICODETEXT, GlobalOf(wide.data(), wide.size() * sizeof(wchar_t)));
    ::CloseClipboard();
    return true;
}

std::optional<PastedText> TakeFromClipboard(CWnd& owner)
{
    if (!::OpenClipboard(owner.m_hWnd)) {
        return std::nullopt;
    }
    PastedText pasted;
    if (const HANDLE calendar = ::GetClipboardData(CalendarFormat())) {
        pasted.text = BytesOfGlobal(calendar);
    } else if (const HANDLE text = ::GetClipboardData(CF_UNICODETEXT)) {
        pasted.text = WideTextOfGlobal(text);
    }
    ::CloseClipboard();
    pasted.isCalendar = IsCalendarText(pasted.text);
    return pasted.text.empty() ? std::nullopt : std::optional(pasted);
}

bool IsPasteable()
{
    return ::IsClipboardFormatAvailable(CalendarFormat()) || ::IsClipboardFormatAvailable(CF_UNICODETEXT);
}

MergeReport PasteText(CalendarSet& calendars, const PastedText& pasted, const EventTimes& place)
{
    if (pasted.isCalendar || IsCalendarText(pasted.text)) {
        return calendars.Paste(pasted.text, place.start);
    }
    EventChanges all;
    const std::string_view text = TrimBlanks(pasted.text);
    const std::size_t end = std::min({text.find('\r'), text.find('\n'), text.size(), kLongestTitle});
    all.summary = RepairUtf8(text.substr(0, end));
    if (end < text.size()) {
        std::string notes;
        for (const char c : text.substr(end)) {
            if (c != '\r' && (!notes.empty() || c != '\n')) {
                notes += c;
            }
        }
        all.description = RepairUtf8(notes);
    }
    MergeReport report;
    report.edit = calendars.Create(place, all);
    report.added = report.edit.isDone ? 1 : 0;
    return report;
}

} // namespace planner
