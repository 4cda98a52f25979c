// Random views for comparisons: window sizes down to a pixel, every first weekday, and items of every shape.
#pragma once

#include "DayGridTesting.h"

#include "views/daygrid/BoxRange.h"
#include "views/daygrid/MonthLayout.h"

#include <random>

class RandomItems
{
public:
    explicit RandomItems(unsigned seed) : m_random(seed) {}

    // Items around that many days, also over rows, weeks and years, backwards and without dates.
    void AddItems(int count, int days)
    {
        for (int i = 0; i < count; ++i) {
            dayvane::tagCALENDAR_ITEM item;
            const int day = Below(days + 8) - 4;
            int length = Below(3) ? 0 : Below(5) ? Below(5) : Below(2 * days);
            if (Below(8) == 0) {
                length = Below(2) ? -Below(4) : Below(3000) - 1500;
            }
            item.dtStart = At(day);
            item.dtEnd = At(day + length);
            if (Below(40) == 0) {
                (Below(2) ? item.dtStart : item.dtEnd).SetStatus(COleDateTime::invalid);
            }
            item.bNoFocus = Below(2);
            items.Add(item);
        }
    }

    int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

    CRect Client()
    {
        static const int sizes[] = {1, 2, 5, 7, 8, 13, 20, 29, 31, 40, 47, 90, 300, 640, 1200};
        const int width = sizes[Below(15)] + Below(7);
        return CRect(0, 0, width, sizes[Below(15)] + Below(27)); // a bar may end exactly at its box
    }

    COleDateTime Date()
    {
        static const int years[] = {1899, 1900, 2017, 2024, 9998};
        return Day(years[Below(5)], 1 + Below(12), 1 + Below(28));
    }

    COleDateTime firstDay; // of the view
    dayvane::ItemArray items;

private:
    COleDateTime At(int day)
    {
        static const int seconds[] = {0, 1, 9 * 3600, 12 * 3600 + 1800, 86399};
        return dayvane::AddSeconds(dayvane::AddDays(firstDay, day), seconds[Below(5)]);
    }

    std::mt19937 m_random;
};

class RandomMonth : public RandomItems
{
public:
    explicit RandomMonth(unsigned seed) : RandomItems(seed)
    {
        const dayvane::MonthBands bands = dayvane::CalcMonthBands(Client(), Below(4) != 0);
        SetCells(bands.header, bands.calendar);
        firstDayOfWeek = 1 + Below(7);
        range = dayvane::BoxRange(dayvane::RangeKind::Month, Date(), firstDayOfWeek);
        firstDay = range.FirstDate();
        dates.SetSize(dayvane::kMonthCells);
        for (int i = 0; i < dayvane::kMonthCells; ++i) {
            dates[i].m_date = dayvane::AddDays(firstDay, i);
        }
    }

    void SetCells(const CRect& header, const CRect& calendar)
    {
        dayvane::MonthCellArray headerCells;
        dayvane::FillMonthCells(header, calendar, dayvane::CalcMonthCellSize(calendar), headerCells, cells);
    }

    dayvane::BoxRange range{dayvane::RangeKind::Month};
    dayvane::MonthCellArray cells;
    dayvane::BoxDayArray dates;
    int firstDayOfWeek = 1;
};
