// Random months for comparisons: window sizes down to a pixel, every first weekday, and items of every shape.
#pragma once

#include "core/DateMath.h"
#include "views/daygrid/MonthLayout.h"

#include <random>

class RandomMonth
{
public:
    // What items may look like.
    enum Shape {
        PIECES,  // cut to the week rows, as the view shows them
        UNCUT    // as a host stores them: over rows, weeks and years, backwards, without dates
    };

    explicit RandomMonth(unsigned seed) : m_random(seed)
    {
        static const int sizes[] = {1, 2, 5, 7, 8, 13, 20, 40, 47, 90, 300, 640, 1200};
        const auto anySize = [this] { return sizes[Below(sizeof(sizes) / sizeof(sizes[0]))] + Below(7); };
        const CRect client(0, 0, anySize(), anySize());
        const dayvane::MonthBands bands = dayvane::CalcMonthBands(client, Below(4) != 0);
        dayvane::MonthCellArray headerCells;
        dayvane::FillMonthCells(bands.header, bands.calendar, dayvane::CalcMonthCellSize(bands.calendar), headerCells,
                                cells);

        firstDayOfWeek = 1 + Below(7);
        static const int years[] = {1899, 1900, 2017, 2024, 2026};
        const COleDateTime current(years[Below(5)], 1 + Below(12), 1 + Below(28), 0, 0, 0);
        firstDay = dayvane::FirstDayOfMonthGrid(current, firstDayOfWeek);
        dates.SetSize(dayvane::kMonthCells);
        for (int i = 0; i < dayvane::kMonthCells; ++i)
            dates[i].m_date = dayvane::DateOfDayNumber(firstDay + i);
    }

    void AddItems(int count, Shape shape)
    {
        for (int i = 0; i < count; ++i) {
            dayvane::tagCALENDAR_ITEM item;
            int day = Below(48) - 3;
            int length = Below(3) ? 0 : Below(5) ? Below(5) : Below(60);
            if (shape == UNCUT && Below(8) == 0)
                length = Below(2) ? -Below(4) : Below(3000) - 1500;
            item.dtStart = At(day);
            item.dtEnd = At(day + length);
            if (Below(40) == 0)
                (Below(2) ? item.dtStart : item.dtEnd).SetStatus(COleDateTime::invalid);
            item.bNoFocus = Below(2);
            items.Add(item);
        }
    }

    int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

    dayvane::MonthCellArray cells;
    dayvane::MonthCellDateArray dates;
    int firstDayOfWeek = 1;
    int firstDay = 0;
    dayvane::ItemArray items;

private:
    COleDateTime At(int day)
    {
        static const int seconds[] = {0, 1, 9 * 3600, 12 * 3600 + 1800, 86399};
        return dayvane::AddSeconds(dayvane::DateOfDayNumber(firstDay + day), seconds[Below(5)]);
    }

    std::mt19937 m_random;
};
