#include "core/PointerDriver.h"

namespace dayvane {
namespace {
// Milliseconds to the first step of an auto-scroll.
constexpr int kPauseInside = 400;
constexpr int kPauseOutside = 1;
} // namespace

void PointerDriver::Drag(PointerTarget& target, const PointerHit& hit)
{
    ItemTimes times;
    const bool wasDragging = m_tracker.IsDragging();
    Apply(target, m_tracker.Drag(hit, GetHeldTimes(target, times) ? &times : nullptr));
    ShowDragChange(target, wasDragging);
}

void PointerDriver::DragExtended(PointerTarget& target, const PointerHit& hit, int stepMinutes, bool wholeDayByDrag)
{
    ItemTimes times;
    const bool wasDragging = m_tracker.IsDragging();
    const ItemTimes* held = GetHeldTimes(target, times) ? &times : nullptr;
    Apply(target, m_tracker.DragExtended(hit, held, stepMinutes, wholeDayByDrag));
    ShowDragChange(target, wasDragging);
}

// The time grids mark the rows under a dragged item.
void PointerDriver::ShowDragChange(PointerTarget& target, bool wasDragging)
{
    if (target.IsAlive() && wasDragging != m_tracker.IsDragging()) {
        target.RepaintSelection();
    }
}

void PointerDriver::Release(PointerTarget& target, const PointerHit& hit, Drop drop)
{
    if (drop == Drop::TAKE_BACK && m_tracker.IsDragging()) {
        Cancel(target);
    } else {
        Apply(target, m_tracker.Release(hit, drop == Drop::REPORT));
    }
}

void PointerDriver::Lift(const PointerTarget& target)
{
    ItemTimes times;
    if (target.GetItemTimes(target.CurrentItem(), times)) {
        m_tracker.Lift(target.CurrentItem(), times);
    }
}

void PointerDriver::Carry(PointerTarget& target, const ItemTimes& times, const COleDateTime& mark)
{
    ItemTimes held;
    Apply(target, GetHeldTimes(target, held) ? m_tracker.Carry(times, mark) : m_tracker.Cancel());
}

void PointerDriver::Cancel(PointerTarget& target)
{
    if (m_tracker.IsBusy()) {
        const bool wasDragging = m_tracker.IsDragging();
        FollowItem(target);
        Apply(target, m_tracker.Cancel());
        ShowDragChange(target, wasDragging);
    }
}

void PointerDriver::CaptureLost(PointerTarget& target)
{
    if (!m_releasing) {
        Cancel(target);
    }
}

void PointerDriver::WatchScrollEdge(PointerTarget& target, bool hasCapture, const CRect& content, const CPoint& point)
{
    const int stepBefore = m_scrollPlace.step;
    m_scrollPlace = m_tracker.IsUnderWay() && hasCapture ? ScrollPlaceAt(content, point, m_scale) : ScrollPlace();
    const bool isNew = m_scrollPlace.step != stepBefore;
    m_awaitsScroll = m_scrollPlace.step != 0 && (isNew || m_awaitsScroll);
    if (m_scrollPlace.step == 0) {
        SetScrollTimer(target, 0);
    } else if (m_awaitsScroll && (isNew || m_scrollPlace.isOutside)) {
        SetScrollTimer(target, m_scrollPlace.isOutside ? kPauseOutside : kPauseInside);
    }
}

void PointerDriver::ScrollStepDone(PointerTarget& target, int milliseconds)
{
    m_awaitsScroll = false;
    if (m_scrollTimer != 0) {
        SetScrollTimer(target, milliseconds);
    }
}

void PointerDriver::SetScrollTimer(PointerTarget& target, int milliseconds)
{
    if (milliseconds != m_scrollTimer) {
        m_scrollTimer = milliseconds;
        target.RunScrollTimer(milliseconds);
    }
}

// ---- Effects

void PointerDriver::Apply(PointerTarget& target, const PointerEffects& effects)
{
    for (const PointerEffect& effect : effects) {
        Perform(target, effect);
        if (!target.IsAlive()) {
            return;
        }
    }
}

void PointerDriver::Perform(PointerTarget& target, const PointerEffect& effect)
{
    switch (effect.kind) {
    case PointerEffect::SELECT_ITEM:
        return target.SelectItem(effect.item);
    case PointerEffect::CLEAR_ITEM:
        return target.SelectItem(-1);
    case PointerEffect::BEGIN_SELECTION:
        return target.BeginSelection(effect.times, effect.fullday);
    case PointerEffect::EXTEND_SELECTION:
        return target.ExtendSelection(effect.times.end);
    case PointerEffect::MARK_DATE:
        return target.MarkDate(effect.times.start);
    case PointerEffect::TAKE_CAPTURE:
        return target.TakeCapture();
    case PointerEffect::RELEASE_CAPTURE:
        return Stop(target);
    case PointerEffect::DRAG_CURSOR:
        return target.ShowDragCursor(m_tracker.Edge());
    case PointerEffect::ARROW_CURSOR:
        return target.ShowArrowCursor();
    case PointerEffect::PUT_ITEM:
        return target.PutItemTimes(effect.item, effect.times);
    case PointerEffect::PUT_BACK:
        if (HasLastPutTimes(target, effect.item)) {
            target.PutItemTimes(effect.item, effect.times);
        }
        return;
    case PointerEffect::RESTORE_SELECTION:
        return target.RestoreSelection();
    case PointerEffect::NOTIFY_MOVED:
        return target.NotifyMoved();
    }
}

// The tracker has forgotten its press, or is about to.
void PointerDriver::Stop(PointerTarget& target)
{
    if (m_tracker.IsDragging()) {
        target.RepaintSelection(); // the time grids mark the rows under a dragged item
    }
    if (target.IsAlive()) {
        m_tracker.Released();
        m_scrollPlace = ScrollPlace();
        SetScrollTimer(target, 0);
    }
    if (target.IsAlive()) {
        m_releasing = true;
        target.ReleaseCapture();
    }
    if (target.IsAlive()) {
        m_releasing = false;
    }
}

// ---- The held item

bool PointerDriver::HasLastPutTimes(const PointerTarget& target, int item) const
{
    ItemTimes times;
    const ItemTimes& put = m_tracker.LastPut();
    return target.GetItemTimes(item, times) && times.start == put.start && times.end == put.end &&
           times.fullday == put.fullday;
}

// Deleting or inserting items may have given the held item another index: the drag goes on with that item, as long as
// the host keeps it current, and never with another.
bool PointerDriver::FollowItem(const PointerTarget& target)
{
    const int current = target.CurrentItem();
    if (current != m_tracker.Item()) {
        if (!HasLastPutTimes(target, current)) {
            return false;
        }
        m_tracker.FollowItem(current);
    }
    return true;
}

bool PointerDriver::GetHeldTimes(const PointerTarget& target, ItemTimes& times)
{
    return FollowItem(target) && target.GetItemTimes(target.CurrentItem(), times);
}

} // namespace dayvane
