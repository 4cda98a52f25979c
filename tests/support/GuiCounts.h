// How many drawing and window objects this process holds: tests compare the counts before and after.
#pragma once

#include <afxwin.h>

#include <string>

namespace testsupport {

struct GuiCounts
{
    int gdiObjects = 0;  // pens, brushes, fonts, bitmaps, regions, device contexts
    int userObjects = 0; // windows, menus, icons and cursors

    static GuiCounts Now();
    std::string Text() const; // "GDI 40, USER 12"
};

inline bool operator==(const GuiCounts& a, const GuiCounts& b)
{
    return a.gdiObjects == b.gdiObjects && a.userObjects == b.userObjects;
}

// Fails the running test when the counts at its end differ from those at its beginning. Let the code under test run
// once before: first uses fill caches of the system.
class GuiLeakCheck
{
public:
    GuiLeakCheck() : m_before(GuiCounts::Now()) {}
    ~GuiLeakCheck();
    GuiLeakCheck(const GuiLeakCheck&) = delete;
    GuiLeakCheck& operator=(const GuiLeakCheck&) = delete;

private:
    GuiCounts m_before;
};

} // namespace testsupport
