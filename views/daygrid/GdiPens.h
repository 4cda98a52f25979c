// Pens that live as long as their control instead of one paint.
#pragma once

#include <afxwin.h>

#include <memory>
#include <vector>

namespace dayvane
{

class PenSet
{
public:
    // A solid pen; width in pixels. It may be selected until Clear.
    CPen* Solid(int width, COLORREF color);
    // Frees all pens; none may be selected any more.
    void Clear() { m_pens.clear(); }

private:
    struct Entry
    {
        int width;
        COLORREF color;
        std::unique_ptr<CPen> pen;
    };
    std::vector<Entry> m_pens;
};

} // namespace dayvane
