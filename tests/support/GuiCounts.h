// How many drawing and window objects this process holds: tests compare the counts before and after.
#pragma once

#include <afxwin.h>

#include <functional>
#include <map>
#include <string>

namespace testsupport {

struct GuiCounts
{
    int gdiObjects = 0;           // pens, brushes, fonts, bitmaps, regions, device contexts
    int userObjects = 0;          // windows, menus, icons and cursors
    std::map<int, int> gdiByType; // of the system's type numbers; empty where only the sum can be asked for

    static GuiCounts Now();
    std::string Text() const; // "GDI 40, USER 12; 8 fonts; ..."
};

inline bool operator==(const GuiCounts& a, const GuiCounts& b)
{
    return a.gdiObjects == b.gdiObjects && a.userObjects == b.userObjects;
}

// Fails the running test when each of several uses leaves objects behind. The first uses may: they fill caches of the
// system; what is lost is lost every time.
void ExpectNothingLeftBy(const std::function<void()>& use);

} // namespace testsupport
