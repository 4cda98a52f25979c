#include "CtlMessages.h"

#include "core/DateMath.h"

#include <new>
#include <type_traits>

namespace dayvane::ctl {

namespace {

struct MessageRow
{
    UINT message;
    unsigned kinds;
    bool hasPointer;
    UINT recordSize; // of a record that begins with its size; 0: does not
    LRESULT (*handler)(CtlWindow& control, WPARAM wParam, LPARAM lParam);
};

template <class Record, class = void>
struct SizeField
{
    static constexpr UINT kSize = 0;
};

template <class Record>
struct SizeField<Record, std::void_t<decltype(Record::cbSize)>>
{
    static constexpr UINT kSize = sizeof(Record);
};

constexpr MessageRow kMessages[] = {
#define DV_MESSAGE(number, handler, controls, record)                                                                  \
    {number, kinds::controls, !std::is_void_v<record>, SizeField<record>::kSize, &On##handler},
#include "Messages.inc"
#undef DV_MESSAGE
};

const MessageRow* Find(UINT message)
{
    for (const MessageRow& row : kMessages) {
        if (row.message == message) {
            return &row;
        }
    }
    return nullptr;
}

// Windows never maps the first 64 KB of a process.
constexpr ULONG_PTR kLowestPointer = 0x10000;

LRESULT AnswerException(CException* exception)
{
    LRESULT answer = DVE_FAILED;
    if (exception->IsKindOf(RUNTIME_CLASS(CMemoryException))) {
        answer = DVE_MEMORY;
    } else if (exception->IsKindOf(RUNTIME_CLASS(CInvalidArgException))) {
        answer = DVE_VALUE;
    }
    exception->Delete();
    return answer;
}

} // namespace

LRESULT AnswerMessage(CtlWindow& control, UINT message, WPARAM wParam, LPARAM lParam)
{
    const MessageRow* row = Find(message);
    if (!row) {
        return DVE_UNKNOWN;
    }
    if ((row->kinds & control.kind) == 0) {
        return DVE_KIND;
    }
    if (row->hasPointer && !IsPointer(lParam)) {
        return DVE_POINTER;
    }
    if (row->recordSize != 0 && *reinterpret_cast<const UINT*>(lParam) != row->recordSize) {
        return DVE_SIZE;
    }
    try {
        return row->handler(control, wParam, lParam);
    } catch (CException* exception) {
        return AnswerException(exception);
    } catch (const std::bad_alloc&) {
        return DVE_MEMORY;
    } catch (...) {
        return DVE_FAILED;
    }
}

bool IsPointer(LPARAM value)
{
    return static_cast<ULONG_PTR>(value) >= kLowestPointer;
}

bool ToDate(const SYSTEMTIME& time, COleDateTime& date)
{
    date = COleDateTime(time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond);
    return dayvane::IsValid(date);
}

SYSTEMTIME FromDate(const COleDateTime& date)
{
    SYSTEMTIME time = {};
    if (dayvane::IsValid(date)) {
        ToSystemTime(date, time);
    }
    return time;
}

bool IsItem(const CtlWindow& control, int index)
{
    return index >= 0 && index < control.view->GetItemCount();
}

void Refresh(CtlWindow& control)
{
    if (control.view) {
        control.view->Refresh();
    } else if (control.grid) {
        control.grid->Refresh();
    } else {
        control.picker->Invalidate(FALSE);
    }
}

} // namespace dayvane::ctl
