// What the view shows of the document: the occurrences in and around the view's range as items of its control, which
// asks for them. Series are expanded no further.
#pragma once

#include "core/CalendarCtrl.h"
#include "core/ItemSource.h"
#include "planner/CalendarSet.h"

#include <optional>
#include <vector>

namespace planner {

class ShownItems : private dayvane::ItemSource
{
public:
    ShownItems() = default;
    ShownItems(const ShownItems&) = delete;
    ShownItems& operator=(const ShownItems&) = delete;

    // The control of the view; nullptr: none. Another one has no items until they are loaded. The one before must still
    // be there.
    void Attach(CCalendarCtrl* ctrl);
    CCalendarCtrl* Ctrl() const { return m_ctrl; }

    // Gives the control its items anew. The current item stays current as far as it is still there.
    void Load(const CalendarSet& calendars);
    // Loads only when the control has asked for other days. Not while an item is dragged: the drag would end.
    void LoadIfMoved(const CalendarSet& calendars);

    // nullptr: there is no such item.
    const Occurrence* At(int item) const;
    const Occurrence* Current() const;
    // The current item of a view without a control.
    void KeepListed(const std::optional<Occurrence>& occurrence) { m_listed = occurrence; }
    // Makes the item current; false when it is not shown.
    bool Select(const OccurrenceId& id);
    // No item that is out of sight stays current: the Delete key must not delete it.
    void DropHidden();
    int CountInView() const;
    std::vector<OccurrenceId> IdsInView() const;
    // The earliest time of day, in seconds, of the timed items in view that begin between two times of day; the later
    // one when there is none.
    LocalTime EarliestStart(LocalTime from, LocalTime to) const;
    // See FittingTimeScale; of what is in view.
    int FittingScale(const std::vector<int>& offered) const;

private:
    struct Range
    {
        LocalTime from = 0, to = 0; // exclusive
    };
    // The answer waits for the next LoadIfMoved: until the control takes it, At must tell of the items that it has.
    void AskItems(const dayvane::ItemRequest& request) override { m_request = request; }
    void ConnectTo(const CalendarSet& calendars);
    void Answer();
    Range ViewRange() const;
    static bool IsInView(const Occurrence& occurrence, const Range& view);

    CCalendarCtrl* m_ctrl = nullptr;
    const CalendarSet* m_calendars = nullptr; // of the items that the control asks for
    dayvane::ItemRequest m_request;
    std::vector<Occurrence> m_occurrences; // lParam of an item is its position here
    std::optional<Occurrence> m_listed;
};

} // namespace planner
