#include "views/timegrid/OverlapColumns.h"

#include "core/ItemStore.h"
#include "views/timegrid/RowClusters.h"

#include <algorithm>

namespace dayvane {
namespace {
// For each row the spans that cover it, in order, one row's list after the other's.
class RowLists
{
public:
    RowLists(const std::vector<RowSpan>& spans, int rows) : m_begin(rows + 1, 0)
    {
        for (const RowSpan& span : spans) {
            for (int row = span.first; row < span.end; ++row) {
                ++m_begin[row + 1];
            }
        }
        for (int row = 0; row < rows; ++row) {
            m_begin[row + 1] += m_begin[row];
        }
        m_spans.resize(m_begin[rows]);
        std::vector<int> filled(m_begin);
        for (int i = 0; i < static_cast<int>(spans.size()); ++i) {
            for (int row = spans[i].first; row < spans[i].end; ++row) {
                m_spans[filled[row]++] = i;
            }
        }
    }

    int Length(int row) const { return m_begin[row + 1] - m_begin[row]; }
    int Last(int row) const { return m_spans[m_begin[row + 1] - 1]; } // the row must not be empty
    const int* Begin(int row) const { return m_spans.data() + m_begin[row]; }
    const int* End(int row) const { return m_spans.data() + m_begin[row + 1]; }
    bool IsSameAsAbove(int row) const
    {
        return row > 0 && Length(row) == Length(row - 1) && std::equal(Begin(row), End(row), Begin(row - 1));
    }

private:
    std::vector<int> m_begin;
    std::vector<int> m_spans;
};

int LongestList(const RowSpan& span, const RowLists& lists)
{
    int longest = 0;
    for (int row = span.first; row < span.end; ++row) {
        longest = std::max(longest, lists.Length(row));
    }
    return longest;
}

int Share(const tagCALENDAR_ITEM& item, const OverlapRule& rule)
{
    return rule.usableWidth / item.nParallel;
}

int Remainder(const tagCALENDAR_ITEM& item, const OverlapRule& rule)
{
    return rule.usableWidth % item.nParallel;
}
} // namespace

bool IsBandItem(const tagCALENDAR_ITEM& item)
{
    if (item.nPiece != PIECE_WHOLE || item.nFullday == 1) {
        return true;
    }
    const ClockTime start = ClockTimeOf(item.dtStart);
    const ClockTime end = ClockTimeOf(item.dtEnd);
    return !(start.isValid && end.isValid && start.day == end.day) && IsFulldayItem(item);
}

void AddRowSpan(std::vector<RowSpan>& spans, int item, const ClockTime& start, const ClockTime& end,
                const TimeScale& scale)
{
    const RowSpan span{item, scale.RowOfTime(start), scale.RowOfTime(end)};
    if (span.first >= span.end) {
        return;
    }
    if (span.first < 0 || span.end > scale.RowsPerDay()) {
        AfxThrowInvalidArgException();
    }
    spans.push_back(span);
}

void ListRows(ItemArray& items, const std::vector<RowSpan>& spans, const TimeScale& scale, RowLayoutArray& layout)
{
    layout.SetSize(scale.RowsPerDay());
    for (const RowSpan& span : spans) {
        for (int row = span.first; row < span.end; ++row) {
            layout[row].Add(&items[span.item]);
        }
    }
    // Growing the counts entry by entry would come to the same: each listed item ends at the length of the list.
    for (int row = 0; row < scale.RowsPerDay(); ++row) {
        const int length = static_cast<int>(layout[row].GetSize());
        for (int i = 0; i < length; ++i) {
            tagCALENDAR_ITEM& item = *static_cast<tagCALENDAR_ITEM*>(layout[row][i]);
            item.nParallel = std::max(item.nParallel, length);
        }
    }
}

void PlaceSideBySide(ItemArray& items, const std::vector<RowSpan>& spans, const TimeScale& scale,
                     const OverlapRule& rule)
{
    const RowLists lists(spans, scale.RowsPerDay());
    std::vector<RowBox> boxes(spans.size());
    for (int i = 0; i < static_cast<int>(spans.size()); ++i) {
        tagCALENDAR_ITEM& item = items[spans[i].item];
        item.nParallel = std::max(item.nParallel, LongestList(spans[i], lists));
        const int share = Share(item, rule) + (rule.remainderToEach ? Remainder(item, rule) : 0);
        item.rcItem.right = item.rcItem.left + share;
        boxes[i] = RowBox{item.rcItem.left, item.rcItem.Height() > 0 ? share : 0};
    }
    RowClusters clusters;
    bool atRest = false; // no box was pushed in the row above
    for (int row = 0; row < scale.RowsPerDay(); ++row) {
        if (!atRest || !lists.IsSameAsAbove(row)) {
            atRest = !clusters.Spread(boxes, lists.Begin(row), lists.End(row), rule.right);
        }
    }
    for (size_t i = 0; i < spans.size(); ++i) {
        tagCALENDAR_ITEM& item = items[spans[i].item];
        item.rcItem.MoveToX(boxes[i].left);
        if (!rule.remainderToEach && boxes[i].left == rule.left + (item.nParallel - 1) * Share(item, rule)) {
            item.rcItem.right += Remainder(item, rule);
        }
    }
}

void UnifySameSource(ItemArray& items, const std::vector<int>& candidates, const std::vector<RowSpan>& spans)
{
    const auto isBefore = [&items](int a, int b) { return items[a].nSource < items[b].nSource; };
    // As the views make them, screen items come in the order of the store, each source once.
    const auto isNotBefore = [&isBefore](int a, int b) { return !isBefore(a, b); };
    if (std::adjacent_find(candidates.begin(), candidates.end(), isNotBefore) == candidates.end()) {
        return;
    }
    std::vector<int> bySource(candidates);
    std::stable_sort(bySource.begin(), bySource.end(), isBefore);
    // Of one source, the first in the first row that lists any comes first; all others are copies of it from then on.
    std::vector<RowSpan> byRow(spans);
    std::stable_sort(byRow.begin(), byRow.end(), [](const RowSpan& a, const RowSpan& b) { return a.first < b.first; });
    std::vector<char> done(items.GetSize(), 0);
    for (const RowSpan& span : byRow) {
        if (done[span.item]) {
            continue;
        }
        const auto same = std::equal_range(bySource.begin(), bySource.end(), span.item, isBefore);
        for (auto it = same.first; it != same.second; ++it) {
            done[*it] = 1;
            if (*it != span.item) {
                items[*it] = items[span.item];
            }
        }
    }
}

int CountOverlayed(const ItemArray& items)
{
    std::vector<CRect> boxes;
    for (INT_PTR i = 0; i < items.GetSize(); ++i) {
        if (!IsBandItem(items[i])) {
            boxes.push_back(items[i].rcItem);
        }
    }
    int largest = 1;
    for (size_t a = 0; a < boxes.size(); ++a) {
        int count = 1;
        for (size_t b = 0; b < boxes.size(); ++b) {
            CRect common;
            if (a != b && common.IntersectRect(&boxes[a], &boxes[b])) {
                ++count;
            }
        }
        largest = std::max(largest, count);
    }
    return largest;
}

} // namespace dayvane
