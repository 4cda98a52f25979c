// Lets a failed comparison show rectangles and dates.
#pragma once

#include <afxdisp.h>
#include <atltypes.h>

#include <ostream>

inline std::ostream& operator<<(std::ostream& out, const CRect& rect)
{
    return out << '(' << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom << ')';
}

inline std::ostream& operator<<(std::ostream& out, const COleDateTime& date)
{
    return out << date.Format("%Y-%m-%d %H:%M:%S").GetString();
}
