// What the tests of the day grids share.
#pragma once

#include "core/DateMath.h"

#include <afx.h>

#include <string>

inline COleDateTime Day(int year, int month, int day)
{
    return COleDateTime(year, month, day, 0, 0, 0);
}

// "2026-04-15", with the time unless it is 00:00; "none" for a date that is not valid.
inline std::string Text(const COleDateTime& date)
{
    if (!dayvane::IsValid(date)) {
        return "none";
    }
    return date.Format(date == dayvane::StartOfDay(date) ? "%Y-%m-%d" : "%Y-%m-%d %H:%M:%S").GetString();
}

inline std::string Text(const CRect& rect)
{
    CString text;
    text.Format("(%d, %d, %d, %d)", static_cast<int>(rect.left), static_cast<int>(rect.top),
                static_cast<int>(rect.right), static_cast<int>(rect.bottom));
    return text.GetString();
}

template <class Call>
bool RaisesInvalidArgument(Call call)
{
    try {
        call();
    } catch (CInvalidArgException* e) {
        e->Delete();
        return true;
    }
    return false;
}
