// What the mouse does to a calendar, without a window: events in, effects out.
//
// A press either begins a sweep over dates, or makes an item current and may begin a drag. Every event comes with what
// the hit test found; the effects are carried out in their order (PointerDriver). All decisions that do not depend on a
// view are here.
#pragma once

#include "CalendarRecords.h"
#include "ViewScale.h"

#include <vector>

namespace dayvane {

// The pullable edge under the point: a strip of kEdgeReach pixels inside the box, at most a quarter of its size, so
// that a small box can still be moved. In the corner the bottom edge takes precedence.
ItemEdge EdgeAt(const CRect& box, const CPoint& point, int pullableEdges, const ViewScale& scale = {});
constexpr int kEdgeReach = 4; // at 96 dpi

// Where a sweep or a drag scrolls the content by itself: above and below it, and in strips inside its edges.
struct ScrollPlace
{
    int step = 0; // -1 up, +1 down, 0 nowhere
    bool isOutside = false;
};
ScrollPlace ScrollPlaceAt(const CRect& content, const CPoint& point, const ViewScale& scale = {});
constexpr int kScrollReach = 8; // pixels at 96 dpi within the content's upper and lower edge

struct ItemTimes
{
    COleDateTime start;
    COleDateTime end;
    int fullday = 0; // exactly 1: all day
};

// What lies under the pointer.
struct PointerHit
{
    CPoint point;
    int code = CCHT_NOWHERE;
    int item = -1;
    COleDateTime time; // of the cell or row under the point; not valid when there is none
};

// The item under a press.
struct PressedItem
{
    bool movable = false;
    ItemTimes times;
    ItemEdge edge = EDGE_NONE;
};

struct PointerEffect
{
    enum Kind
    {
        SELECT_ITEM, // item
        CLEAR_ITEM,
        BEGIN_SELECTION,  // times.start: both bounds; fullday
        EXTEND_SELECTION, // times.end: the moving bound
        MARK_DATE,        // times.start: both bounds, while an item is dragged
        TAKE_CAPTURE,
        RELEASE_CAPTURE,
        DRAG_CURSOR,
        ARROW_CURSOR,
        PUT_ITEM,          // the current item gets the times
        PUT_BACK,          // item gets the times, if it still has those that were last put
        RESTORE_SELECTION, // the one that there was before the press
        NOTIFY_MOVED,
    };
    Kind kind;
    int item = -1;
    ItemTimes times;
    bool fullday = false;
};
using PointerEffects = std::vector<PointerEffect>;

class PointerTracker
{
public:
    void SetScale(const ViewScale& scale) { m_scale = scale; } // of the slop before a drag
    PointerEffects Press(const PointerHit& hit, const PressedItem& pressed);
    // A move while a sweep runs; nothing otherwise, nor where there is no date.
    PointerEffects Sweep(const PointerHit& hit);
    // A move while an item is held. `current`: the current item's times now, null when it is gone.
    // Plain: the item begins at the date and time under the pointer and keeps its length.
    PointerEffects Drag(const PointerHit& hit, const ItemTimes* current);
    // Extended: the item keeps its distance from the pointer, and a press on an edge pulls that edge.
    // stepMinutes: the length of a row, the least length of an item that is pulled by its lower edge. wholeDayByDrag:
    // in the full-day band a timed item becomes an all-day item; in the rows an all-day item one of an hour that begins
    // there. Otherwise, between the two, only the day counts.
    PointerEffects DragExtended(const PointerHit& hit, const ItemTimes* current, int stepMinutes,
                                bool wholeDayByDrag = false);
    // A key takes the item up: it is dragged at once, and the pointer does nothing until it is released or cancelled.
    void Lift(int item, const ItemTimes& times);
    // A key gives the lifted item times; `mark`: the date to be marked meanwhile. Nothing when they are not valid.
    PointerEffects Carry(const ItemTimes& times, const COleDateTime& mark);
    // reportsAlways: also a drop where the item was before the drag.
    PointerEffects Release(const PointerHit& hit, bool reportsAlways = true);
    // After the effects of Release.
    void Released();
    // Escape, a lost capture, a destroyed window: puts a dragged item back and ends everything.
    PointerEffects Cancel();
    // Shift and an arrow key end a pending drag.
    void ForgetPendingDrag() { m_pending = false; }
    // The item that is held has another index now.
    void FollowItem(int item) { m_item = item; }

    bool IsSelecting() const { return m_selecting; }
    bool IsDragPending() const { return m_pending; }
    bool IsDragging() const { return m_dragging; }
    bool IsCarried() const { return m_carried; }   // dragged by keys
    bool IsDropping() const { return m_dropping; } // the drop is being reported
    bool IsBusy() const { return m_selecting || m_pending || m_dragging; }
    // A drag, or a sweep that has left the place of its press: no click any more.
    bool IsUnderWay() const { return (m_selecting && m_swept) || m_dragging; }
    ItemEdge Edge() const { return m_edge; }
    int Item() const { return m_item; }
    COleDateTime SweepBegin() const { return m_sweepBegin; }
    // The times that the dragged item had before the drag.
    const ItemTimes& Origin() const { return m_origin; }
    // The times that the drag last gave it.
    const ItemTimes& LastPut() const { return m_lastPut; }

private:
    ViewScale m_scale;
    PointerEffects StartDragOutsideSlop(const PointerHit& hit);
    // What both drags do first. Returns whether the item goes to the pointer now.
    bool DragStep(const PointerHit& hit, const ItemTimes* current, PointerEffects& effects);
    ItemTimes Pulled(const PointerHit& hit, int stepMinutes) const;
    ItemTimes MovedAcross(const PointerHit& hit, bool wholeDayByDrag) const;
    void PutItem(PointerEffects& effects, const PointerHit& hit, const ItemTimes& times);

    bool m_selecting = false;
    bool m_swept = false; // the pointer has left the place of the press
    bool m_pending = false;
    bool m_dragging = false;
    bool m_carried = false;
    bool m_dropping = false; // the drop is being reported: no way back
    CPoint m_pressPoint = CPoint(-1, -1);
    int m_item = -1;
    ItemEdge m_edge = EDGE_NONE;
    bool m_pressInBand = false; // the press was in the full-day band
    COleDateTime m_pressTime;
    COleDateTime m_sweepBegin;
    ItemTimes m_origin;
    ItemTimes m_lastPut;
};

} // namespace dayvane
