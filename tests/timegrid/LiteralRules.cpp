#include "LiteralRules.h"

#include "core/ItemStore.h"

namespace literal {
using dayvane::IsFulldayItem;
using dayvane::ItemArray;
using dayvane::RowLayoutArray;
using dayvane::tagCALENDAR_ITEM;

namespace {
bool SameDay(const COleDateTime& a, const COleDateTime& b)
{
    return a.GetYear() == b.GetYear() && a.GetMonth() == b.GetMonth() && a.GetDay() == b.GetDay();
}

tagCALENDAR_ITEM& Listed(RowLayoutArray& layout, int row, int position)
{
    return *static_cast<tagCALENDAR_ITEM*>(layout[row][position]);
}

int Length(RowLayoutArray& layout, int row)
{
    return static_cast<int>(layout[row].GetSize());
}

bool IsListed(RowLayoutArray& layout, const tagCALENDAR_ITEM& item)
{
    for (int r = 0; r < layout.GetSize(); ++r) {
        for (int i = 0; i < Length(layout, r); ++i) {
            if (&Listed(layout, r, i) == &item) {
                return true;
            }
        }
    }
    return false;
}

void SideBySide(RowLayoutArray& layout, int gridRight)
{
    for (int r = 0; r < layout.GetSize(); ++r) {
        for (int i = 0; i < Length(layout, r); ++i) {
            for (int j = 0; j < Length(layout, r); ++j) {
                if (i == j) {
                    continue;
                }
                const CRect& a = Listed(layout, r, i).rcItem;
                CRect& b = Listed(layout, r, j).rcItem;
                CRect common;
                if (common.IntersectRect(&a, &b)) {
                    b.OffsetRect(b.right + a.Width() > gridRight ? common.Width() : a.Width(), 0);
                }
            }
        }
    }
}

void CopySameIdentifiers(ItemArray& screen, RowLayoutArray& layout)
{
    for (int r = 0; r < layout.GetSize(); ++r) {
        for (int i = 0; i < Length(layout, r); ++i) {
            for (int k = 0; k < screen.GetSize(); ++k) {
                if (screen[k].nSource == Listed(layout, r, i).nSource) {
                    screen[k] = tagCALENDAR_ITEM(Listed(layout, r, i));
                }
            }
        }
    }
}

void InsetTimed(ItemArray& screen)
{
    for (int i = 0; i < screen.GetSize(); ++i) {
        if (!IsFulldayItem(screen[i])) {
            screen[i].rcItem.left += 2;
            screen[i].rcItem.right -= 2;
        }
    }
}
} // namespace

void ListRows(ItemArray& screen, int scale, RowLayoutArray& layout, const COleDateTime* onlyOn)
{
    layout.SetSize(scale * 24);
    for (int i = 0; i < screen.GetSize(); ++i) {
        tagCALENDAR_ITEM& item = screen[i];
        if (IsFulldayItem(item) || (onlyOn && !SameDay(item.dtStart, *onlyOn))) {
            continue;
        }
        const int start = scale * item.dtStart.GetHour() + item.dtStart.GetMinute() / (60 / scale);
        const int end = scale * item.dtEnd.GetHour() + item.dtEnd.GetMinute() / (60 / scale);
        for (int r = start; r < end; ++r) {
            layout[r].Add(&item);
            for (int k = 0; k < Length(layout, r); ++k) {
                if (Listed(layout, r, k).nParallel < Length(layout, r)) {
                    Listed(layout, r, k).nParallel = Length(layout, r);
                }
            }
        }
    }
}

CRect ItemBox(const tagCALENDAR_ITEM& item, const CRect& grid, const COleDateTime& day, int scale)
{
    if (!SameDay(item.dtStart, day)) {
        return CRect(-1, -1, -1, -1);
    }
    if (item.nFullday == 1 || item.nPiece == 2) {
        return CRect(grid.left, grid.top, grid.right, grid.top + scale * 20 * 230);
    }
    const int perRow = 60 / scale;
    int top = 0;
    if (item.dtStart.GetStatus() == COleDateTime::valid && item.nPiece != 4) {
        top = item.dtStart.GetHour() * scale * 20 + item.dtStart.GetMinute() / perRow * 20;
    }
    int bottom = 23 * scale * 20 + scale * 20;
    if (item.dtEnd.GetStatus() == COleDateTime::valid && item.nPiece != 1) {
        bottom = item.dtEnd.GetHour() * scale * 20 +
                 (item.dtEnd.GetMinute() / perRow + (item.dtEnd.GetMinute() % perRow > 0 ? 1 : 0)) * 20;
    }
    return CRect(grid.left, grid.top + top, grid.right, grid.top + bottom);
}

void DayItemRects(ItemArray& screen, const CRect& grid, const COleDateTime& day, int scale)
{
    for (int i = 0; i < screen.GetSize(); ++i) {
        if (!IsFulldayItem(screen[i])) {
            screen[i].rcItem = ItemBox(screen[i], grid, day, scale);
        }
    }
    RowLayoutArray layout;
    ListRows(screen, scale, layout);
    const int width = grid.Width() - 20;
    for (int r = 0; r < layout.GetSize(); ++r) {
        for (int i = 0; i < Length(layout, r); ++i) {
            tagCALENDAR_ITEM& item = Listed(layout, r, i);
            item.rcItem.right = item.rcItem.left + width / item.nParallel + width % item.nParallel;
        }
    }
    SideBySide(layout, grid.right);
    CopySameIdentifiers(screen, layout);
    InsetTimed(screen);
}

void ManyDayItemRects(ItemArray& screen, const std::vector<CRect>& columns, const COleDateTime& firstDay, int scale)
{
    for (int i = 0; i < screen.GetSize(); ++i) {
        if (!IsFulldayItem(screen[i])) {
            screen[i].rcItem = CRect(-1, -1, -1, -1);
        }
    }
    for (size_t c = 0; c < columns.size(); ++c) {
        const COleDateTime day = firstDay + COleDateTimeSpan(static_cast<double>(c));
        for (int i = 0; i < screen.GetSize(); ++i) {
            if (!IsFulldayItem(screen[i]) && SameDay(screen[i].dtStart, day)) {
                screen[i].rcItem = ItemBox(screen[i], columns[c], day, scale);
            }
        }
        RowLayoutArray layout;
        ListRows(screen, scale, layout, &day);
        const int width = columns[c].Width() - 5;
        for (int r = 0; r < layout.GetSize(); ++r) {
            for (int i = 0; i < Length(layout, r); ++i) {
                tagCALENDAR_ITEM& item = Listed(layout, r, i);
                item.rcItem.right = item.rcItem.left + width / item.nParallel;
            }
        }
        SideBySide(layout, columns[c].right);
        for (int i = 0; i < screen.GetSize(); ++i) {
            tagCALENDAR_ITEM& item = screen[i];
            const int share = item.nParallel > 0 ? width / item.nParallel : 0;
            if (IsListed(layout, item) && item.rcItem.left == columns[c].left + (item.nParallel - 1) * share) {
                item.rcItem.right += width % item.nParallel;
            }
        }
        CopySameIdentifiers(screen, layout);
    }
    InsetTimed(screen);
}

void DayLanes(ItemArray& screen, const CRect& band)
{
    int k = 0;
    for (int i = 0; i < screen.GetSize(); ++i) {
        if (IsFulldayItem(screen[i])) {
            screen[i].rcItem = CRect(band.left + 5, band.top + 5 + 25 * k, band.right - 5, band.top + 25 + 25 * k);
            ++k;
        }
    }
}

void ManyDayLanes(ItemArray& screen, const CRect& band, const std::vector<CRect>& columns, const COleDateTime& firstDay)
{
    const int days = static_cast<int>(columns.size());
    for (int i = 0; i < screen.GetSize(); ++i) {
        if (!IsFulldayItem(screen[i])) {
            continue;
        }
        int column[2];
        const COleDateTime times[2] = {screen[i].dtStart, screen[i].dtEnd};
        for (int k = 0; k < 2; ++k) {
            column[k] = static_cast<int>(static_cast<double>(times[k] - firstDay) + 5.787037e-6);
            column[k] = column[k] < 0 ? 0 : column[k] > days - 1 ? days - 1 : column[k];
        }
        screen[i].rcItem =
            CRect(columns[column[0]].left + 5, band.top + 5, columns[column[1]].right - 5, band.top + 25);
    }
    for (int pass = 0; pass < 2; ++pass) {
        for (int i = 0; i < screen.GetSize(); ++i) {
            for (int j = i + 1; j < screen.GetSize(); ++j) {
                CRect common;
                if (IsFulldayItem(screen[i]) && IsFulldayItem(screen[j]) &&
                    common.IntersectRect(&screen[i].rcItem, &screen[j].rcItem)) {
                    screen[j].rcItem.OffsetRect(0, 25);
                }
            }
        }
    }
}

int ManyDayScreenItems(const ItemArray& store, const COleDateTime& firstDay, int days, ItemArray& screen)
{
    screen.RemoveAll();
    const COleDateTime viewEnd = firstDay + COleDateTimeSpan(days - 1, 23, 59, 59);
    int lanes = 0;
    for (int i = 0; i < store.GetSize(); ++i) {
        tagCALENDAR_ITEM item = store[i];
        if (item.dtStart.GetStatus() != COleDateTime::valid || item.dtEnd.GetStatus() != COleDateTime::valid) {
            continue;
        }
        const bool oneDay = SameDay(item.dtStart, item.dtEnd);
        if (item.dtStart > viewEnd || (oneDay ? item.dtStart : item.dtEnd) < firstDay) {
            continue;
        }
        if (!oneDay && item.dtEnd < item.dtStart) {
            continue;
        }
        item.nSource = i;
        item.rcItem.NormalizeRect();
        if (!oneDay) {
            const bool before = item.dtStart < firstDay;
            const bool after = item.dtEnd > viewEnd;
            item.nPiece = !before && after ? 1 : before && after ? 2 : before ? 4 : 8;
            if (before) {
                item.dtStart = firstDay;
            }
            if (after) {
                item.dtEnd = viewEnd;
            }
        }
        lanes += !oneDay || item.nFullday == 1;
        screen.Add(item);
    }
    return lanes;
}

int DayScreenItems(const ItemArray& store, const COleDateTime& day, ItemArray& screen)
{
    return ManyDayScreenItems(store, COleDateTime(day.GetYear(), day.GetMonth(), day.GetDay(), 0, 0, 0), 1, screen);
}

} // namespace literal
