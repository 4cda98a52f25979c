#include "tests/support/GuiCounts.h"

#include "tests/support/Input.h"

#include <gtest/gtest.h>

namespace testsupport {
namespace {

// Wine answers 0 to GetGuiResources, so its own tables are counted there: the drawing objects in the table that the
// process environment block points to, the window objects by asking for each handle.
constexpr int kHandleSlots = 0x10000;
constexpr UINT_PTR kFirstUserHandle = 0x20;

struct GdiTableEntry // as in the system's own table, the same in 32-bit and 64-bit processes
{
    ULONGLONG object;
    ULONG owner;
    USHORT unique;
    UCHAR type; // 0: free
    UCHAR flags;
    ULONGLONG userPointer;
};

template <typename T>
T Field(const char* block, int offset)
{
    return *reinterpret_cast<T const*>(block + offset);
}

const GdiTableEntry* GdiTable()
{
// The compiler takes a read through a segment register for one of the null page.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Warray-bounds"
    const char* teb = reinterpret_cast<const char*>(::NtCurrentTeb());
#pragma GCC diagnostic pop
    constexpr int kPebOfTeb64 = 0x60;
    constexpr int kTableOfPeb64 = 0xF8;
#ifdef _WIN64
    return Field<GdiTableEntry*>(Field<const char*>(teb, kPebOfTeb64), kTableOfPeb64);
#else
    constexpr int kPebOfTeb = 0x30;
    constexpr int kTableOfPeb = 0x94;
    constexpr int kTeb64OfTeb = 0xF70;
    // In a prefix that also runs 64-bit programs the table hangs on the 64-bit blocks.
    if (const char* teb64 = Field<const char*>(teb, kTeb64OfTeb)) {
        return Field<GdiTableEntry*>(Field<const char*>(teb64, kPebOfTeb64), kTableOfPeb64);
    }
    return Field<GdiTableEntry*>(Field<const char*>(teb, kPebOfTeb), kTableOfPeb);
#endif
}

int CountGdiTable(std::map<int, int>& byType)
{
    const GdiTableEntry* table = GdiTable();
    int count = 0;
    for (int slot = 0; table && slot < kHandleSlots; ++slot) {
        if (table[slot].type != 0) {
            ++byType[table[slot].type];
            ++count;
        }
    }
    return count;
}

const char* NameOfType(int type)
{
    switch (type) {
    case 0x01:
        return "device contexts";
    case 0x04:
        return "regions";
    case 0x05:
        return "bitmaps";
    case 0x0a:
        return "fonts";
    case 0x10:
        return "brushes";
    case 0x30:
        return "pens";
    default:
        return "others";
    }
}

BOOL CALLBACK CountWindow(HWND, LPARAM count)
{
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

BOOL CALLBACK CountWindowAndChildren(HWND window, LPARAM count)
{
    CountWindow(window, count);
    ::EnumChildWindows(window, CountWindow, count);
    return TRUE;
}

int CountWindows()
{
    int count = 0;
    ::EnumThreadWindows(::GetCurrentThreadId(), CountWindowAndChildren, reinterpret_cast<LPARAM>(&count));
    HWND window = nullptr;
    while ((window = ::FindWindowEx(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr) {
        count += ::GetWindowThreadProcessId(window, nullptr) == ::GetCurrentThreadId();
    }
    return count;
}

bool IsIcon(UINT_PTR handle)
{
    ICONINFO info;
    if (!::GetIconInfo(reinterpret_cast<HICON>(handle), &info)) {
        return false;
    }
    ::DeleteObject(info.hbmColor);
    ::DeleteObject(info.hbmMask);
    return true;
}

int CountMenusAndIcons()
{
    int count = 0;
    for (UINT_PTR handle = kFirstUserHandle; handle < kHandleSlots; handle += 2) {
        count += ::IsMenu(reinterpret_cast<HMENU>(handle)) || IsIcon(handle);
    }
    return count;
}

} // namespace

GuiCounts GuiCounts::Now()
{
    PumpMessages(); // destructions that wait in the queue have happened
    GuiCounts counts;
    counts.gdiObjects = static_cast<int>(::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS));
    counts.userObjects = static_cast<int>(::GetGuiResources(::GetCurrentProcess(), GR_USEROBJECTS));
    if (counts.gdiObjects == 0) {
        counts.gdiObjects = CountGdiTable(counts.gdiByType);
        counts.userObjects = CountWindows() + CountMenusAndIcons();
    }
    return counts;
}

std::string GuiCounts::Text() const
{
    std::string text = "GDI " + std::to_string(gdiObjects) + ", USER " + std::to_string(userObjects);
    for (const auto& [type, count] : gdiByType) {
        text += "; " + std::to_string(count) + " " + NameOfType(type);
    }
    return text;
}

void ExpectNothingLeftBy(const std::function<void()>& use)
{
    constexpr int kUses = 5;
    GuiCounts before = GuiCounts::Now();
    std::string counts;
    for (int i = 0; i < kUses; ++i) {
        use();
        const GuiCounts after = GuiCounts::Now();
        if (after == before) {
            return;
        }
        counts += "\n  before: " + before.Text() + "\n  after:  " + after.Text();
        before = after;
    }
    ADD_FAILURE() << "Objects left behind by each use:" << counts;
}

} // namespace testsupport
