// How many drawing objects and window objects are alive, for tests that something leaves none behind. Wine answers 0
// for GetGuiResources, so the numbers are taken from where the handles come from.
#pragma once

#include <windows.h>
#include <winternl.h>

#include <algorithm>
#include <vector>

namespace dayvane_test {

// Drawing objects of this process: the used entries of the handle table that the process block points to.
inline int CountGdiObjects()
{
    if (const DWORD counted = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS)) {
        return static_cast<int>(counted);
    }
    struct Entry
    {
        ULONGLONG object;
        ULONG owner;
        USHORT unique;
        BYTE type; // 0: free
        BYTE flags;
        ULONGLONG user;
    };
    constexpr int tableSize = 0x4000;
    constexpr int tableOffset = sizeof(void*) == 4 ? 0x94 : 0xF8; // of the table's address in the process block
    const char* block = reinterpret_cast<const char*>(NtCurrentTeb()->ProcessEnvironmentBlock);
    const Entry* table = *reinterpret_cast<const Entry* const*>(block + tableOffset);
    return static_cast<int>(std::count_if(table, table + tableSize, [](const Entry& e) { return e.type != 0; }));
}

// Windows, menus, cursors and icons. New handles fill the free places before the table grows; once none is free, the
// highest place less the number of handles added is the number in use (plus a constant).
inline int CountUserObjects()
{
    if (const DWORD counted = ::GetGuiResources(::GetCurrentProcess(), GR_USEROBJECTS)) {
        return static_cast<int>(counted);
    }
    constexpr int added = 1000;
    std::vector<HMENU> menus(added);
    int highest = 0;
    for (HMENU& menu : menus) {
        menu = ::CreateMenu();
        highest = std::max<int>(highest, LOWORD(reinterpret_cast<UINT_PTR>(menu)) / 2); // places are even numbers
    }
    for (HMENU menu : menus) {
        ::DestroyMenu(menu);
    }
    return highest - added;
}

// By how many objects the world has grown after `action`: the least of a few rounds, for the first may fill caches and
// other programs share the table of windows.
struct ObjectGrowth
{
    int gdi;
    int user;
};

template <class Action>
ObjectGrowth LeastGrowth(Action action, int rounds = 3)
{
    ObjectGrowth least = {1 << 30, 1 << 30};
    for (int round = 0; round < rounds; ++round) {
        const ObjectGrowth before = {CountGdiObjects(), CountUserObjects()};
        action();
        least.gdi = std::min(least.gdi, CountGdiObjects() - before.gdi);
        least.user = std::min(least.user, CountUserObjects() - before.user);
    }
    return least;
}

} // namespace dayvane_test
