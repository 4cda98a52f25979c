// Times, items and readable rectangles for the tests of the time grids.
#pragma once

#include "core/CalendarRecords.h"

#include <ostream>

inline std::ostream& operator<<(std::ostream& out, const CRect& rect)
{
    return out << '(' << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom << ')';
}

inline std::ostream& operator<<(std::ostream& out, const COleDateTime& date)
{
    return out << date.Format("%Y-%m-%d %H:%M:%S").GetString();
}

namespace gridtest {

inline const COleDateTime kDay(2017, 4, 26, 0, 0, 0); // a Wednesday

inline COleDateTime At(int hour, int minute, int day = 26)
{
    return COleDateTime(2017, 4, day, hour, minute, 0);
}

inline COleDateTime Invalid()
{
    COleDateTime date;
    date.SetStatus(COleDateTime::invalid);
    return date;
}

inline dayvane::tagCALENDAR_ITEM Item(const COleDateTime& start, const COleDateTime& end, int piece = 0,
                                      int fullday = 0)
{
    dayvane::tagCALENDAR_ITEM item;
    item.dtStart = start;
    item.dtEnd = end;
    item.nPiece = piece;
    item.nFullday = fullday;
    return item;
}

} // namespace gridtest
