#include "core/ItemFeed.h"

#include "core/DateMath.h"

#include <algorithm>
#include <mutex>
#include <utility>

namespace dayvane {
namespace {

// Of a view of weeks a line or a page of scrolling stays within what was asked for, of a longer one a line. Days.
constexpr int kLeastMargin = 7;
constexpr int kMostMargin = 42;

bool Touches(const tagCC_ITEM& item, int firstDay, int lastDay)
{
    if (!IsValid(item.dtStart) || !IsValid(item.dtEnd)) {
        return false;
    }
    const int start = DayNumberOf(item.dtStart);
    const int end = DayNumberOf(item.dtEnd);
    return std::min(start, end) <= lastDay && std::max(start, end) >= firstDay;
}

} // namespace

// Where answers arrive, from any thread. It outlives the feed as long as a request does.
class ItemMailbox
{
public:
    explicit ItemMailbox(std::function<void()> wake) : m_wake(std::move(wake)) {}

    void Want(unsigned number)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_wanted = number;
        m_items.clear();
        m_hasItems = false;
    }
    void Close()
    {
        Want(0);
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_wake = nullptr;
    }
    bool IsWanted(unsigned number)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return number != 0 && number == m_wanted;
    }
    bool Put(unsigned number, std::vector<tagCC_ITEM> items)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (number == 0 || number != m_wanted) {
            return false;
        }
        m_wanted = 0;
        m_items = std::move(items);
        m_hasItems = true;
        if (m_wake) {
            m_wake();
        }
        return true;
    }
    bool Take(std::vector<tagCC_ITEM>& items)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (!m_hasItems) {
            return false;
        }
        m_hasItems = false;
        items = std::move(m_items);
        m_items.clear();
        return true;
    }

private:
    std::mutex m_mutex;
    std::function<void()> m_wake; // posts a message: it does not wait
    unsigned m_wanted = 0;        // number of the request whose answer is awaited, 0 none
    bool m_hasItems = false;
    std::vector<tagCC_ITEM> m_items;
};

bool ItemRequest::Answer(std::vector<tagCC_ITEM> items) const
{
    return m_mailbox && m_mailbox->Put(m_number, std::move(items));
}

bool ItemRequest::IsWanted() const
{
    return m_mailbox && m_mailbox->IsWanted(m_number);
}

ItemFeed::ItemFeed(ItemSource& source, std::function<void()> wake)
    : m_source(source), m_mailbox(std::make_shared<ItemMailbox>(std::move(wake)))
{
}

ItemFeed::~ItemFeed()
{
    m_mailbox->Close();
}

bool ItemFeed::IsLoading() const
{
    return m_request.IsWanted();
}

void ItemFeed::Show(int firstDay, int lastDay)
{
    static const int first = DayNumberOf(COleDateTime(100, 1, 1, 0, 0, 0));
    static const int last = DayNumberOf(COleDateTime(9999, 12, 31, 0, 0, 0));
    firstDay = std::max(firstDay, first);
    lastDay = std::min(lastDay, last);
    if (m_hasAsked && firstDay >= m_firstDay && lastDay <= m_lastDay) {
        return;
    }
    const int margin = std::clamp(lastDay - firstDay + 1, kLeastMargin, kMostMargin);
    m_hasAsked = true;
    m_firstDay = std::max(firstDay - margin, first);
    m_lastDay = std::min(lastDay + margin, last);
    const ItemRequest before = m_request;
    const bool wasWanted = before.IsWanted();
    const ItemRequest request(++m_number, DateOfDayNumber(m_firstDay), DateOfDayNumber(m_lastDay), m_mailbox);
    m_request = request;
    m_mailbox->Want(request.Number());
    ItemSource& source = m_source;
    if (wasWanted) {
        source.CancelItems(before);
    }
    if (request.IsWanted()) { // unless the source has ended the feed just now
        source.AskItems(request);
    }
}

bool ItemFeed::Take(std::vector<tagCC_ITEM>& items)
{
    if (!m_mailbox->Take(items)) {
        return false;
    }
    const auto isElsewhere = [this](const tagCC_ITEM& item) { return !Touches(item, m_firstDay, m_lastDay); };
    items.erase(std::remove_if(items.begin(), items.end(), isElsewhere), items.end());
    return true;
}

} // namespace dayvane
