// Items on demand: a host that has very many items, or works them out, gives a control a source instead of copies of
// all of them (CCalendarCtrl::SetItemSource). The control asks it for the items of the shown days with a margin.
#pragma once

#include "CalendarRecords.h"

#include <memory>
#include <vector>

namespace dayvane {

class ItemMailbox;

// A question for items. It can be copied, kept, and taken to another thread.
class ItemRequest
{
public:
    ItemRequest() = default;
    ItemRequest(unsigned number, const COleDateTime& first, const COleDateTime& last,
                std::shared_ptr<ItemMailbox> mailbox)
        : m_number(number), m_first(first), m_last(last), m_mailbox(std::move(mailbox))
    {
    }

    unsigned Number() const { return m_number; } // of each control's questions: 1, 2, ...
    // 00:00 of the first and of the last day whose items are wanted: all items that touch a day from one to the other.
    const COleDateTime& First() const { return m_first; }
    const COleDateTime& Last() const { return m_last; }

    // Hands over the items, in the order in which the control shall keep them; those that touch none of the days are
    // left out. At once or later, from any thread, also when the control has gone. False: nobody wants them any more,
    // because other days are shown by now or the question was answered before.
    bool Answer(std::vector<tagCC_ITEM> items) const;
    bool IsWanted() const;

private:
    unsigned m_number = 0;
    COleDateTime m_first;
    COleDateTime m_last;
    std::shared_ptr<ItemMailbox> m_mailbox;
};

// Called by the thread of the control. It may do anything meanwhile, also end the control.
class ItemSource
{
public:
    virtual ~ItemSource() = default;
    virtual void AskItems(const ItemRequest& request) = 0;
    virtual void CancelItems(const ItemRequest& /*request*/) {} // its answer is not wanted any more
};

} // namespace dayvane
