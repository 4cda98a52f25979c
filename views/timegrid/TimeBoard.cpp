#include "views/timegrid/TimeBoard.h"

#include "views/timegrid/OverlapColumns.h"
#include "views/timegrid/TidyColumns.h"

#include <algorithm>
#include <numeric>

namespace dayvane {
namespace {
constexpr int kNoColumn = -1;
const CRect kNowhere(-1, -1, -1, -1);

// As IsSameDay, without breaking valid dates into fields.
bool FallsOn(const ClockTime& time, const ClockTime& day)
{
    return time.isValid && day.isValid ? time.day == day.day : time.isValid == day.isValid;
}

// An item's times, broken once.
struct ItemClock
{
    explicit ItemClock(const tagCALENDAR_ITEM& item) : start(ClockTimeOf(item.dtStart)), end(ClockTimeOf(item.dtEnd)) {}

    ClockTime start, end;
};

CRect BoxAt(const tagCALENDAR_ITEM& item, const ItemClock& times, const CRect& column, const ClockTime& day,
            const TimeScale& scale)
{
    if (!FallsOn(times.start, day)) {
        return CRect(-1, -1, -1, -1);
    }
    if (item.nFullday == 1 || (item.nPiece & PIECE_MIDDLE)) {
        return CRect(column.left, column.top, column.right,
                     column.top + scale.metrics.endlessHours * scale.HourHeight());
    }
    const bool fromAbove = !times.start.isValid || item.nPiece == PIECE_TAIL;
    const bool toBelow = !times.end.isValid || item.nPiece == PIECE_HEAD;
    return CRect(column.left, column.top + (fromAbove ? 0 : scale.TopOfTime(times.start)), column.right,
                 column.top + (toBelow ? scale.DayHeight() : scale.BottomOfTime(times.end)));
}

// A box that covers no row, or is the wrong way round: at least one row high. Returns the rows.
RowSpan GiveRowHeight(tagCALENDAR_ITEM& item, int index, int columnTop, const TimeScale& scale)
{
    const int upper = std::min(item.rcItem.top, item.rcItem.bottom) - columnTop;
    const int lower = std::max(item.rcItem.top, item.rcItem.bottom) - columnTop;
    RowSpan rows{index, std::clamp(upper / scale.metrics.rowHeight, 0, scale.RowsPerDay() - 1), 0};
    rows.end =
        std::clamp((lower + scale.metrics.rowHeight - 1) / scale.metrics.rowHeight, rows.first + 1, scale.RowsPerDay());
    item.rcItem.top = columnTop + scale.TopOfRow(rows.first);
    item.rcItem.bottom = columnTop + scale.TopOfRow(rows.end);
    return rows;
}

// Takes the hidden items' boxes and counts them in marks.
std::vector<MoreMark> CountHidden(ItemArray& items, const std::vector<int>& shown, const TidyPlaces& places,
                                  const CRect& column, const TimeScale& scale)
{
    std::vector<MoreMark> marks;
    for (const TidyMore& more : places.more) {
        // Beside the least box in a column too narrow for both, the mark keeps half of its width.
        const int width = std::max(more.width, scale.metrics.moreWidth / 2);
        const int right = column.left + more.left + more.width;
        MoreMark mark;
        mark.box = CRect(right - width, more.start, right, more.start + scale.metrics.moreHeight);
        marks.push_back(mark);
    }
    for (size_t i = 0; i < shown.size(); ++i) {
        tagCALENDAR_ITEM& item = items[shown[i]];
        item.bNoFocus = places.boxes[i].hidden;
        if (!item.bNoFocus) {
            continue;
        }
        size_t mark = 0;
        while (mark + 1 < places.more.size() && places.more[mark].end < item.rcItem.top) {
            ++mark;
        }
        marks[mark].items.push_back(static_cast<int>(item.nSource));
        item.rcItem = CRect(-1, -1, -1, -1);
    }
    return marks;
}

// By what is seen: boxes that would share pixels share the width.
std::vector<MoreMark> PlaceColumnTidily(ItemArray& items, const std::vector<int>& timed, const CRect& column,
                                        int usableWidth, const TimeScale& scale)
{
    std::vector<int> shown;
    std::vector<TimeSpan> spans;
    for (const int i : timed) {
        const CRect& box = items[i].rcItem;
        if (box.top != -1) {
            shown.push_back(i);
            spans.push_back(
                {static_cast<int>(std::min(box.top, box.bottom)), static_cast<int>(std::max(box.top, box.bottom))});
        }
    }
    const int least = scale.metrics.tidyWidth + 2 * scale.metrics.boxInset;
    const TidyPlaces places = PlaceTidily(spans, TidyRule{std::max(usableWidth, 1), least, scale.metrics.moreWidth});
    for (size_t i = 0; i < shown.size(); ++i) {
        CRect& box = items[shown[i]].rcItem;
        box.left = column.left + places.boxes[i].left;
        box.right = box.left + places.boxes[i].width;
    }
    return CountHidden(items, shown, places, column, scale);
}

void Inset(tagCALENDAR_ITEM& item, const TimeScale& scale)
{
    item.rcItem.DeflateRect(scale.metrics.boxInset, 0);
}

bool HaveOwnSources(const ItemArray& items)
{
    const tagCALENDAR_ITEM* item = items.GetData();
    for (INT_PTR i = 1; i < items.GetSize(); ++i, ++item) {
        if (item[0].nSource >= item[1].nSource) {
            return false;
        }
    }
    return true;
}
} // namespace

CRect BoxInColumn(const tagCALENDAR_ITEM& item, const CRect& column, const COleDateTime& day, const TimeScale& scale)
{
    return BoxAt(item, ItemClock(item), column, ClockTimeOf(day), scale);
}

std::vector<MoreMark> PlaceTimedItems(ItemArray& items, const std::vector<CRect>& columns, const DayRange& range,
                                      const TimeScale& scale, const CalendarOptions& options)
{
    return TimeBoard().LayOut(items, {columns, range, scale, options.visibleShortItems, options.tidyColumns});
}

// An only column takes all items, also those of other days, which have no box in it.
int TimeBoard::ColumnFor(const tagCALENDAR_ITEM& item) const
{
    const int days = static_cast<int>(m_places.columns.size());
    const int column = days > 1 ? ClockTimeOf(item.dtStart).day - m_places.range.FirstDay() : 0;
    return column >= 0 && column < days ? column : kNoColumn;
}

void TimeBoard::PlaceColumn(int column, ItemArray& items, bool ownSources)
{
    const CRect& place = m_places.columns[column];
    const TimeScale& scale = m_places.scale;
    const std::vector<int>& timed = m_timed[column];
    ClockTime day = ClockTimeOf(m_places.range.first);
    day.day += column;
    std::vector<RowSpan> spans;
    for (const int i : timed) {
        tagCALENDAR_ITEM& item = items[i];
        const ItemClock times(item);
        item.rcItem = BoxAt(item, times, place, day, scale);
        const size_t before = spans.size();
        AddRowSpan(spans, i, times.start, times.end, scale);
        if (m_places.visibleShortItems && spans.size() == before && item.rcItem.top != kNowhere.top) {
            spans.push_back(GiveRowHeight(item, i, place.top, scale));
        }
    }
    const bool oneDay = m_places.columns.size() == 1;
    const int freeBeside = oneDay ? scale.metrics.freeBesideOneDay : scale.metrics.freeBesideManyDays;
    m_marks[column].clear();
    if (m_places.tidyColumns) {
        m_marks[column] = PlaceColumnTidily(items, timed, place, place.Width() - freeBeside, scale);
        for (MoreMark& mark : m_marks[column]) {
            mark.column = column;
        }
        return;
    }
    PlaceSideBySide(items, spans, scale, OverlapRule{place.left, place.right, place.Width() - freeBeside, oneDay});
    if (!ownSources) {
        std::vector<int> all(oneDay ? items.GetSize() : 0);
        std::iota(all.begin(), all.end(), 0);
        UnifySameSource(items, oneDay ? all : timed, spans);
    }
}

std::vector<MoreMark> TimeBoard::LayOut(ItemArray& items, const TimedPlaces& places)
{
    Clear();
    m_places = places;
    m_columnOf.assign(items.GetSize(), kNoColumn);
    m_timed.resize(places.columns.size());
    m_marks.resize(places.columns.size());
    for (int i = 0; i < static_cast<int>(items.GetSize()); ++i) {
        if (IsBandItem(items[i])) {
            continue;
        }
        m_columnOf[i] = ColumnFor(items[i]);
        if (m_columnOf[i] == kNoColumn) {
            items[i].rcItem = kNowhere;
        } else {
            m_timed[m_columnOf[i]].push_back(i);
        }
    }
    for (int column = 0; column < static_cast<int>(m_timed.size()); ++column) {
        PlaceColumn(column, items, false);
    }
    for (INT_PTR i = 0; i < items.GetSize(); ++i) {
        if (!IsBandItem(items[i])) {
            Inset(items[i], places.scale);
        }
    }
    m_isKnown = HaveOwnSources(items);
    return Marks();
}

std::vector<MoreMark> TimeBoard::Marks() const
{
    std::vector<MoreMark> all;
    for (const std::vector<MoreMark>& marks : m_marks) {
        all.insert(all.end(), marks.begin(), marks.end());
    }
    return all;
}

bool TimeBoard::Knows(const TimedPlaces& places, int itemCount) const
{
    return m_isKnown && itemCount == static_cast<int>(m_columnOf.size()) && places.columns == m_places.columns &&
           places.range.FirstDay() == m_places.range.FirstDay() && places.range.days == m_places.range.days &&
           places.scale.rowsPerHour == m_places.scale.rowsPerHour &&
           places.scale.metrics.scale == m_places.scale.metrics.scale &&
           places.visibleShortItems == m_places.visibleShortItems && places.tidyColumns == m_places.tidyColumns;
}

bool TimeBoard::LayOutAgain(const std::vector<int>& changed, ItemArray& items, std::vector<PieceMove>& moved)
{
    for (const int i : changed) {
        if (m_columnOf[i] == kNoColumn || IsBandItem(items[i]) || ColumnFor(items[i]) == kNoColumn) {
            return false;
        }
    }
    m_isKnown = false; // should a time lead out of the day
    std::vector<int> columns;
    for (const int i : changed) {
        std::vector<int>& left = m_timed[m_columnOf[i]];
        columns.push_back(m_columnOf[i]);
        left.erase(std::lower_bound(left.begin(), left.end(), i));
        m_columnOf[i] = ColumnFor(items[i]);
        std::vector<int>& taken = m_timed[m_columnOf[i]];
        columns.push_back(m_columnOf[i]);
        taken.insert(std::lower_bound(taken.begin(), taken.end(), i), i);
    }
    std::sort(columns.begin(), columns.end());
    columns.erase(std::unique(columns.begin(), columns.end()), columns.end());
    for (const int column : columns) {
        PlaceAgain(column, items, moved);
    }
    m_isKnown = true;
    return true;
}

void TimeBoard::PlaceAgain(int column, ItemArray& items, std::vector<PieceMove>& moved)
{
    std::vector<PieceMove> before;
    for (const int i : m_timed[column]) {
        tagCALENDAR_ITEM& item = items[i];
        before.push_back({i, item.rcItem, item.bNoFocus != FALSE});
        item.nParallel = 0; // as a new screen item
        item.bNoFocus = FALSE;
    }
    PlaceColumn(column, items, true);
    for (const PieceMove& piece : before) {
        tagCALENDAR_ITEM& item = items[piece.position];
        Inset(item, m_places.scale);
        if (item.rcItem != piece.box || (item.bNoFocus != FALSE) != piece.wasHidden) {
            moved.push_back(piece);
        }
    }
}

} // namespace dayvane
