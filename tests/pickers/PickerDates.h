// Dates as the tests of the date selectors write and print them.
#pragma once

#include "core/DateMath.h"

#include <gtest/gtest.h>

#include <string>

inline COleDateTime Day(int year, int month, int day, int hour = 0)
{
    return COleDateTime(year, month, day, hour, 0, 0);
}

// "2010/1/8", "2010/1/8+9h", "none"
inline std::string Text(const COleDateTime& date)
{
    if (date.GetStatus() != COleDateTime::valid) {
        return "none";
    }
    const dayvane::CivilDate fields = dayvane::CivilDateOf(date);
    const std::string hour = date.GetHour() == 0 ? "" : "+" + std::to_string(date.GetHour()) + "h";
    return std::to_string(fields.year) + "/" + std::to_string(fields.month) + "/" + std::to_string(fields.day) + hour;
}
