#include "core/TimeIndex.h"

#include "core/DateMath.h"

#include <algorithm>
#include <climits>

namespace dayvane {
namespace {

constexpr int kAlwaysAside = 1024; // so many changed items may stand aside, and one of so many of the store
constexpr int kAsideShare = 32;
constexpr int kMostFound = 4; // an answer of more than one of so many items is no answer: all are looked at then

} // namespace

struct TimeIndex::Question
{
    int first; // days
    int last;
    size_t most;
    const std::vector<char>& isAside;
    std::vector<int>& found;

    bool IsFull() const { return found.size() > most; }
    bool IsMetBy(const Entry& entry) const { return entry.first <= last && entry.last >= first; }
};

void TimeIndex::Clear()
{
    *this = TimeIndex();
}

bool TimeIndex::DaysOf(const tagCALENDAR_ITEM& item, Entry& entry)
{
    if (!IsValid(item.dtStart)) {
        return false;
    }
    const int start = DayNumberOf(item.dtStart);
    const int end = IsValid(item.dtEnd) ? DayNumberOf(item.dtEnd) : start;
    entry.first = std::min(start, end);
    entry.last = std::max(start, end);
    return true;
}

void TimeIndex::Set(const ItemArray& items, int index)
{
    if (!m_built) {
        return;
    }
    const size_t most = kAlwaysAside + m_isAside.size() / kAsideShare;
    if (index > static_cast<int>(m_isAside.size()) || m_aside.size() >= most) {
        Clear();
        return;
    }
    Entry entry = {INT_MAX, INT_MIN, 0, index}; // overlaps no day
    DaysOf(items[index], entry);
    if (index == static_cast<int>(m_isAside.size())) {
        m_isAside.push_back(0);
    }
    if (!m_isAside[index]) {
        m_isAside[index] = 1;
        m_aside.push_back(entry);
        return;
    }
    const auto isIt = [index](const Entry& each) { return each.item == index; };
    *std::find_if(m_aside.rbegin(), m_aside.rend(), isIt) = entry;
}

void TimeIndex::Remove(int index)
{
    if (!m_built || index >= static_cast<int>(m_isAside.size())) {
        Clear();
        return;
    }
    for (std::vector<Entry>* entries : {&m_entries, &m_aside}) {
        for (Entry& entry : *entries) {
            entry.item = entry.item == index ? -1 : entry.item > index ? entry.item - 1 : entry.item;
        }
    }
    m_aside.erase(std::remove_if(m_aside.begin(), m_aside.end(), [](const Entry& each) { return each.item == -1; }),
                  m_aside.end());
    m_isAside.erase(m_isAside.begin() + index);
}

// Sorted by counting how many items begin on each day: two passes.
void TimeIndex::Build(const ItemArray& items)
{
    const int count = static_cast<int>(items.GetSize());
    const tagCALENDAR_ITEM* data = items.GetData();
    Clear();
    m_built = true;
    m_isAside.assign(count, 0);
    m_entries.reserve(count);
    int earliest = INT_MAX;
    int latest = INT_MIN;
    for (int i = 0; i < count; ++i) {
        Entry entry = {0, 0, 0, i};
        if (DaysOf(data[i], entry)) {
            m_entries.push_back(entry);
            earliest = std::min(earliest, entry.first);
            latest = std::max(latest, entry.first);
        }
    }
    const auto isEarlier = [](const Entry& a, const Entry& b) { return a.first < b.first; };
    if (!std::is_sorted(m_entries.begin(), m_entries.end(), isEarlier)) {
        std::vector<int> begin(static_cast<size_t>(latest - earliest) + 2, 0);
        for (const Entry& entry : m_entries) {
            ++begin[entry.first - earliest + 1];
        }
        for (size_t day = 1; day < begin.size(); ++day) {
            begin[day] += begin[day - 1];
        }
        std::vector<Entry> sorted(m_entries.size());
        for (const Entry& entry : m_entries) {
            sorted[begin[entry.first - earliest]++] = entry;
        }
        m_entries.swap(sorted);
    }
    FillLatest(0, static_cast<int>(m_entries.size()));
}

int TimeIndex::FillLatest(int begin, int end)
{
    if (begin >= end) {
        return INT_MIN;
    }
    const int middle = begin + (end - begin) / 2;
    const int below = std::max(FillLatest(begin, middle), FillLatest(middle + 1, end));
    return m_entries[middle].latest = std::max(m_entries[middle].last, below);
}

void TimeIndex::Ask(const Question& question, int begin, int end) const
{
    while (begin < end && !question.IsFull()) {
        const int middle = begin + (end - begin) / 2;
        const Entry& entry = m_entries[middle];
        if (entry.latest < question.first) {
            return;
        }
        Ask(question, begin, middle);
        if (entry.first > question.last) {
            return;
        }
        if (question.IsMetBy(entry) && entry.item != -1 && !question.isAside[entry.item]) {
            question.found.push_back(entry.item);
        }
        begin = middle + 1;
    }
}

bool TimeIndex::Find(const ItemArray& items, int firstDay, int lastDay, std::vector<int>& found)
{
    found.clear();
    if (items.GetSize() < kLeastItems) {
        if (m_built) {
            Clear();
        }
        return false;
    }
    if (!m_built || static_cast<INT_PTR>(m_isAside.size()) != items.GetSize()) {
        Build(items);
    }
    const Question question = {firstDay, lastDay, m_isAside.size() / kMostFound, m_isAside, found};
    Ask(question, 0, static_cast<int>(m_entries.size()));
    for (const Entry& entry : m_aside) {
        if (question.IsMetBy(entry)) {
            found.push_back(entry.item);
        }
    }
    if (question.IsFull()) {
        found.clear();
        return false;
    }
    std::sort(found.begin(), found.end());
    return true;
}

} // namespace dayvane
