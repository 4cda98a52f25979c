// What a control keeps of its item source: which days it has asked for, and the answer that has come.
#pragma once

#include "ItemSource.h"

#include <functional>
#include <limits>

namespace dayvane {

class ItemFeed
{
public:
    // wake: called when an answer has come, by whatever thread gives it, until the feed ends. At the end of the feed
    // the source is not called any more: it may be gone.
    ItemFeed(ItemSource& source, std::function<void()> wake);
    ~ItemFeed();
    ItemFeed(const ItemFeed&) = delete;
    ItemFeed& operator=(const ItemFeed&) = delete;

    // In place of a day number: the day before or after all that are dates.
    static constexpr int kBeforeDates = std::numeric_limits<int>::min();
    static constexpr int kAfterDates = std::numeric_limits<int>::max();

    // These days (day numbers) are shown: asks for them, unless they lie within those asked for last. The source may
    // end the feed; nothing of it is touched afterwards.
    void Show(int firstDay, int lastDay);
    void AskAgain() { m_hasAsked = false; } // with the next Show
    bool IsLoading() const;                 // a question waits for its answer
    // Takes the answer that has come. False: none has.
    bool Take(std::vector<tagCC_ITEM>& items);

private:
    ItemSource& m_source;
    std::shared_ptr<ItemMailbox> m_mailbox;
    ItemRequest m_request; // the last one
    unsigned m_number = 0;
    bool m_hasAsked = false;
    int m_firstDay = 0; // asked for
    int m_lastDay = 0;
};

} // namespace dayvane
