// Random items for the tests of the time grids: clusters, odd minutes, items without rows, over midnight, the wrong way
// round, without valid dates.
#pragma once

#include "core/CalendarRecords.h"

#include <random>

class RandomItems
{
public:
    explicit RandomItems(unsigned seed) : m_random(seed) {}

    int Below(int n) { return static_cast<int>(m_random() % static_cast<unsigned>(n)); }

    // Between 0 and `most` items on the days from firstDay - 1 to firstDay + days.
    void Fill(dayvane::ItemArray& items, int most, const COleDateTime& firstDay, int days)
    {
        const int count = Below(most + 1);
        const int clusterHour = Below(24);
        const int step = 1 << Below(6);
        for (int i = 0; i < count; ++i) {
            dayvane::tagCALENDAR_ITEM item;
            const int hour = Below(3) ? clusterHour : Below(24);
            const int minute = Below(60) / step * step;
            const COleDateTime day = firstDay + COleDateTimeSpan(Below(days + 2) - 1.0);
            item.dtStart = COleDateTime(day.GetYear(), day.GetMonth(), day.GetDay(), hour, minute, 0);
            item.dtEnd = item.dtStart + COleDateTimeSpan(0, 0, Below(6) * 30 + Below(2) * Below(90) - Below(2) * 5, 0);
            if (Below(20) == 0) {
                item.dtEnd = item.dtStart + COleDateTimeSpan(Below(days + 4) - 2.0);
            }
            if (Below(40) == 0) {
                item.dtStart.SetStatus(COleDateTime::invalid);
            }
            if (Below(40) == 0) {
                item.dtEnd.SetStatus(COleDateTime::null);
            }
            item.nFullday = Below(12) == 0 ? 1 + Below(2) : 0;
            item.nSource = i;
            items.Add(item);
        }
    }

private:
    std::mt19937 m_random;
};
