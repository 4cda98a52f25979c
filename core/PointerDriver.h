// Carries out what the mouse does to a calendar: gives events to the tracker and takes its effects, in their order, to
// the control. Knows no window; a control shows itself as a PointerTarget.
#pragma once

#include "PointerTracker.h"

namespace dayvane {

// What the driver asks of a control. An operation may run the host's code, and that code may end the control and with
// it the driver: from then on IsAlive is false, and nothing else is called. The target itself outlives the event.
class PointerTarget
{
public:
    virtual bool IsAlive() const = 0;

    virtual int CurrentItem() const = 0;                             // -1 none
    virtual bool GetItemTimes(int item, ItemTimes& times) const = 0; // false: there is no such item
    virtual void PutItemTimes(int item, const ItemTimes& times) = 0; // nothing when there is no such item
    virtual void SelectItem(int item) = 0;                           // -1 none
    virtual void BeginSelection(const ItemTimes& times, bool fullday) = 0;
    virtual void ExtendSelection(const COleDateTime& end) = 0;
    virtual void MarkDate(const COleDateTime& date) = 0; // while an item is dragged
    virtual void RepaintSelection() = 0;
    virtual void RestoreSelection() = 0; // that was there before the press
    virtual void NotifyMoved() = 0;

    virtual void ShowDragCursor(ItemEdge edge) = 0;
    virtual void ShowArrowCursor() = 0;
    virtual void TakeCapture() = 0;
    virtual void ReleaseCapture() = 0;                 // nothing when another window has it
    virtual void RunScrollTimer(int milliseconds) = 0; // again and again; 0: not any more

protected:
    ~PointerTarget() = default;
};

// What becomes of an item that is let go.
enum class Drop
{
    REPORT,
    REPORT_CHANGE, // reported when its times are others than before the drag
    TAKE_BACK,
};

class PointerDriver
{
public:
    void Press(PointerTarget& target, const PointerHit& hit, const PressedItem& pressed)
    {
        Apply(target, m_tracker.Press(hit, pressed));
    }
    void Sweep(PointerTarget& target, const PointerHit& hit) { Apply(target, m_tracker.Sweep(hit)); }
    void Drag(PointerTarget& target, const PointerHit& hit);
    void DragExtended(PointerTarget& target, const PointerHit& hit, int stepMinutes, bool wholeDayByDrag);
    // Keys take the current item up and carry it; see PointerTracker.
    void Lift(const PointerTarget& target);
    void Carry(PointerTarget& target, const ItemTimes& times, const COleDateTime& mark);
    void Release(PointerTarget& target, const PointerHit& hit, Drop drop = Drop::REPORT);
    // The one way out of a press, sweep or drag that does not end with its release.
    void Cancel(PointerTarget& target);
    // The capture has gone to another window; the driver's own release of it counts as no loss.
    void CaptureLost(PointerTarget& target);
    // Runs the timer of the auto-scroll while the captured pointer of a sweep or drag that is under way is at an edge
    // of the content: beyond it the first step comes at once, inside it after a pause, for a pointer may just pass.
    void WatchScrollEdge(PointerTarget& target, bool hasCapture, const CRect& content, const CPoint& point);
    // The timer has come to a step; the next ones come at that interval.
    void ScrollStepDone(PointerTarget& target, int milliseconds);
    // Shift and an arrow key end a pending drag.
    void ForgetPendingDrag() { m_tracker.ForgetPendingDrag(); }

    void SetScale(const ViewScale& scale)
    {
        m_scale = scale;
        m_tracker.SetScale(scale);
    }
    const PointerTracker& Tracker() const { return m_tracker; }

private:
    void Apply(PointerTarget& target, const PointerEffects& effects);
    void Perform(PointerTarget& target, const PointerEffect& effect);
    void ShowDragChange(PointerTarget& target, bool wasDragging);
    void Stop(PointerTarget& target);
    void SetScrollTimer(PointerTarget& target, int milliseconds);
    bool HasLastPutTimes(const PointerTarget& target, int item) const;
    bool FollowItem(const PointerTarget& target);
    bool GetHeldTimes(const PointerTarget& target, ItemTimes& times);

    PointerTracker m_tracker;
    ViewScale m_scale;
    bool m_releasing = false; // the capture is being given back
    ScrollPlace m_scrollPlace;
    int m_scrollTimer = 0;       // milliseconds that it runs for, 0: not at all
    bool m_awaitsScroll = false; // the first step has not come yet
};

} // namespace dayvane
