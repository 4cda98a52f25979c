#include "views/timegrid/TidyColumns.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <numeric>
#include <queue>

namespace dayvane {
namespace {

int EndOf(const TimeSpan& span)
{
    return std::max(span.end, span.start + 1);
}

std::vector<int> OrderOfTime(const std::vector<TimeSpan>& spans)
{
    std::vector<int> order(spans.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        return spans[a].start != spans[b].start ? spans[a].start < spans[b].start : EndOf(spans[a]) > EndOf(spans[b]);
    });
    return order;
}

// The columns of the group that is growing.
class Group
{
public:
    explicit Group(std::vector<TidyColumn>& places) : m_places(places) {}

    bool IsEmpty() const { return m_taken.empty(); }

    // Items that have ended by then give their columns back.
    void LeaveUntil(int time)
    {
        while (!m_ends.empty() && m_ends.top().end <= time) {
            const int column = m_ends.top().column;
            m_ends.pop();
            m_taken.erase(column);
            m_free.push(column);
        }
    }

    // Of the items that are under way, only the neighbours need a look: those further away are bounded by nearer ones.
    void Enter(int item, int end, int group)
    {
        int column = static_cast<int>(m_taken.size());
        if (!m_free.empty()) {
            column = m_free.top();
            m_free.pop();
        }
        const auto right = m_taken.upper_bound(column);
        m_places[item] = {group, column, right == m_taken.end() ? kNoBound : right->first, 0};
        if (right != m_taken.begin()) {
            int& bound = m_places[std::prev(right)->second].freeTo;
            bound = std::min(bound, column);
        }
        m_taken.emplace(column, item);
        m_ends.push({end, column});
        m_members.push_back(item);
        m_columns = std::max(m_columns, column + 1);
    }

    void Close()
    {
        for (const int item : m_members) {
            m_places[item].columns = m_columns;
            m_places[item].freeTo = std::min(m_places[item].freeTo, m_columns);
        }
        m_members.clear();
        m_free = {};
        m_columns = 0;
    }

private:
    static constexpr int kNoBound = 0x7FFFFFFF;

    struct End
    {
        int end;
        int column;
        bool operator>(const End& other) const { return end > other.end; }
    };

    std::vector<TidyColumn>& m_places;
    std::map<int, int> m_taken; // column: the item that is under way there
    std::priority_queue<End, std::vector<End>, std::greater<>> m_ends;
    std::priority_queue<int, std::vector<int>, std::greater<>> m_free; // columns left of the rightmost one taken
    std::vector<int> m_members;
    int m_columns = 0;
};

// How a group's columns lie.
struct Grid
{
    int width;   // of all columns
    int columns; // that are shown
    int LeftOf(int column) const { return static_cast<int>(static_cast<long long>(width) * column / columns); }
};

Grid GridOf(int groupColumns, const TidyRule& rule)
{
    const int minimum = std::max(rule.minimumWidth, 1);
    if (groupColumns <= std::max(rule.usableWidth / minimum, 1)) {
        return {rule.usableWidth, groupColumns};
    }
    const int room = std::max(rule.usableWidth - rule.moreWidth, std::min(minimum, rule.usableWidth));
    return {room, std::max(room / minimum, 1)};
}

void CountHidden(const std::vector<TimeSpan>& spans, const TidyRule& rule, TidyPlaces& places)
{
    for (const int item : OrderOfTime(spans)) {
        if (!places.boxes[item].hidden) {
            continue;
        }
        if (places.more.empty() || places.more.back().end < spans[item].start) {
            const int left = places.boxes[item].left;
            places.more.push_back({spans[item].start, 0, 0, left, rule.usableWidth - left});
        }
        TidyMore& more = places.more.back();
        more.end = std::max(more.end, EndOf(spans[item]));
        ++more.count;
    }
}

} // namespace

std::vector<TidyColumn> AssignColumns(const std::vector<TimeSpan>& spans)
{
    std::vector<TidyColumn> places(spans.size());
    Group group(places);
    int groups = 0;
    for (const int item : OrderOfTime(spans)) {
        group.LeaveUntil(spans[item].start);
        if (group.IsEmpty()) {
            group.Close();
            ++groups;
        }
        group.Enter(item, EndOf(spans[item]), groups - 1);
    }
    group.Close();
    return places;
}

TidyPlaces PlaceTidily(const std::vector<TimeSpan>& spans, const TidyRule& rule)
{
    TidyPlaces places;
    places.boxes.reserve(spans.size());
    bool isComplete = true;
    for (const TidyColumn& place : AssignColumns(spans)) {
        const Grid grid = GridOf(place.columns, rule);
        if (place.column >= grid.columns) {
            places.boxes.push_back({grid.width, 0, true});
            isComplete = false;
        } else {
            const int left = grid.LeftOf(place.column);
            places.boxes.push_back({left, grid.LeftOf(std::min(place.freeTo, grid.columns)) - left, false});
        }
    }
    if (!isComplete) {
        CountHidden(spans, rule, places);
    }
    return places;
}

} // namespace dayvane
