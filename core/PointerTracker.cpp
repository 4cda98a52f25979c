#include "core/PointerTracker.h"

#include "core/DateMath.h"

#include <algorithm>
#include <cstdlib>

namespace dayvane {
namespace {

constexpr int kDragSlop = 5; // pixels at 96 dpi in each direction before a press becomes a drag, or a sweep not a click

bool AreValid(const ItemTimes& times)
{
    return IsValid(times.start) && IsValid(times.end);
}

bool IsItemCode(int code)
{
    return code == CCHT_ONITEM || code == CCHT_ONFULLDAYITEM;
}

bool IsBandCode(int code)
{
    return code == CCHT_ONFULLDAY || code == CCHT_ONFULLDAYITEM;
}

int EdgeStrip(int size, const ViewScale& scale)
{
    return std::min(scale.Of(kEdgeReach), size / 4);
}

PointerEffect Plain(PointerEffect::Kind kind, int item = -1)
{
    PointerEffect effect = {};
    effect.kind = kind;
    effect.item = item;
    return effect;
}

bool IsBeyondSlop(const CPoint& from, const CPoint& point, int slop)
{
    return std::abs(point.x - from.x) > slop || std::abs(point.y - from.y) > slop;
}

PointerEffect WithTimes(PointerEffect::Kind kind, const ItemTimes& times, int item = -1)
{
    PointerEffect effect = Plain(kind, item);
    effect.times = times;
    return effect;
}

ItemTimes Shifted(const ItemTimes& times, long long seconds)
{
    return {AddSeconds(times.start, seconds), AddSeconds(times.end, seconds), times.fullday};
}

} // namespace

ItemEdge EdgeAt(const CRect& box, const CPoint& point, int pullableEdges, const ViewScale& scale)
{
    if (!box.PtInRect(point)) {
        return EDGE_NONE;
    }
    if ((pullableEdges & EDGE_BOTTOM) && point.y >= box.bottom - EdgeStrip(box.Height(), scale)) {
        return EDGE_BOTTOM;
    }
    if ((pullableEdges & EDGE_RIGHT) && point.x >= box.right - EdgeStrip(box.Width(), scale)) {
        return EDGE_RIGHT;
    }
    return EDGE_NONE;
}

ScrollPlace ScrollPlaceAt(const CRect& content, const CPoint& point, const ViewScale& scale)
{
    const int reach = scale.Of(kScrollReach);
    // Where both strips would overlap there is no room to scroll.
    if (content.Height() <= 2 * reach) {
        return {};
    }
    if (point.y < content.top + reach) {
        return {-1, point.y < content.top};
    }
    return point.y >= content.bottom - reach ? ScrollPlace{1, point.y >= content.bottom} : ScrollPlace{};
}

PointerEffects PointerTracker::Press(const PointerHit& hit, const PressedItem& pressed)
{
    PointerEffects effects;
    if (hit.code == CCHT_NOWHERE) {
        return effects;
    }
    m_dragging = m_carried = m_dropping = false;
    if (IsItemCode(hit.code)) {
        m_selecting = false;
        m_pending = pressed.movable;
        m_pressPoint = hit.point;
        m_item = hit.item;
        m_edge = pressed.edge;
        m_pressInBand = IsBandCode(hit.code);
        m_pressTime = hit.time;
        m_origin = m_lastPut = pressed.times;
        effects.push_back(Plain(PointerEffect::SELECT_ITEM, hit.item));
    } else {
        m_selecting = IsValid(hit.time);
        m_pending = false;
        if (!m_selecting) { // beside the days, as on a ruler: there is no date to begin at
            effects.push_back(Plain(PointerEffect::CLEAR_ITEM));
            return effects;
        }
        m_sweepBegin = hit.time;
        m_swept = false;
        m_pressPoint = hit.point;
        PointerEffect begin = WithTimes(PointerEffect::BEGIN_SELECTION, {hit.time, hit.time});
        begin.fullday = hit.code == CCHT_ONFULLDAY;
        effects.push_back(begin);
        effects.push_back(Plain(PointerEffect::CLEAR_ITEM));
    }
    effects.push_back(Plain(PointerEffect::TAKE_CAPTURE));
    return effects;
}

PointerEffects PointerTracker::Sweep(const PointerHit& hit)
{
    PointerEffects effects;
    m_swept = m_swept || (m_selecting && IsBeyondSlop(m_pressPoint, hit.point, m_scale.Of(kDragSlop)));
    if (m_selecting && hit.code != CCHT_NOWHERE && IsValid(hit.time)) {
        effects.push_back(WithTimes(PointerEffect::EXTEND_SELECTION, {m_sweepBegin, hit.time}));
    }
    return effects;
}

PointerEffects PointerTracker::StartDragOutsideSlop(const PointerHit& hit)
{
    PointerEffects effects;
    if (!m_pending || !IsBeyondSlop(m_pressPoint, hit.point, m_scale.Of(kDragSlop))) {
        return effects;
    }
    m_dragging = true;
    effects.push_back(Plain(PointerEffect::DRAG_CURSOR));
    return effects;
}

void PointerTracker::PutItem(PointerEffects& effects, const PointerHit& hit, const ItemTimes& times)
{
    if (!AreValid(times)) {
        return;
    }
    m_lastPut = times;
    effects.push_back(WithTimes(PointerEffect::MARK_DATE, {hit.time, hit.time}));
    effects.push_back(WithTimes(PointerEffect::PUT_ITEM, times, m_item));
}

bool PointerTracker::DragStep(const PointerHit& hit, const ItemTimes* current, PointerEffects& effects)
{
    if (m_carried) {
        return false;
    }
    if (!m_dragging) {
        effects = StartDragOutsideSlop(hit);
        return false;
    }
    m_pending = false;
    effects = current ? PointerEffects{Plain(PointerEffect::DRAG_CURSOR)} : Cancel();
    return current && hit.code != CCHT_NOWHERE && IsValid(hit.time);
}

PointerEffects PointerTracker::Drag(const PointerHit& hit, const ItemTimes* current)
{
    PointerEffects effects;
    if (DragStep(hit, current, effects) && AreValid(*current)) {
        PutItem(effects, hit,
                {hit.time, AddSeconds(hit.time, SecondsBetween(current->start, current->end)), current->fullday});
    }
    return effects;
}

PointerEffects PointerTracker::DragExtended(const PointerHit& hit, const ItemTimes* current, int stepMinutes,
                                            bool wholeDayByDrag)
{
    PointerEffects effects;
    if (!DragStep(hit, current, effects) || !IsValid(m_pressTime) || !AreValid(m_origin)) {
        return effects;
    }
    if (m_edge != EDGE_NONE) {
        PutItem(effects, hit, Pulled(hit, stepMinutes));
        return effects;
    }
    const bool isAcross = IsBandCode(hit.code) != m_pressInBand;
    PutItem(effects, hit,
            isAcross ? MovedAcross(hit, wholeDayByDrag) : Shifted(m_origin, SecondsBetween(m_pressTime, hit.time)));
    return effects;
}

// Between the full-day band and the rows; a band has no times.
ItemTimes PointerTracker::MovedAcross(const PointerHit& hit, bool wholeDayByDrag) const
{
    const int days = DayNumberOf(hit.time) - DayNumberOf(m_pressTime);
    if (wholeDayByDrag && IsBandCode(hit.code)) {
        return {StartOfDay(AddDays(m_origin.start, days)), EndOfDay(AddDays(m_origin.end, days)), 1};
    }
    if (wholeDayByDrag && m_origin.fullday == 1) {
        return {hit.time, AddSeconds(hit.time, static_cast<long long>(kMinutesPerHour) * kSecondsPerMinute), 0};
    }
    return Shifted(m_origin, days * kSecondsPerDay);
}

ItemTimes PointerTracker::Pulled(const PointerHit& hit, int stepMinutes) const
{
    ItemTimes times = m_origin;
    if (m_edge == EDGE_RIGHT) {
        const int days = DayNumberOf(hit.time) - DayNumberOf(m_origin.end);
        times.end = AddDays(m_origin.end, days);
        if (IsValid(times.end) && times.end < times.start) {
            times.end = IsSameDay(times.start, m_origin.end) ? m_origin.end : EndOfDay(times.start);
        }
        return times;
    }
    // The lower edge: to the end of the row under the pointer, on the item's own day and not beyond it.
    const long long step = static_cast<long long>(stepMinutes) * kSecondsPerMinute;
    const COleDateTime day = StartOfDay(m_origin.start);
    const long long rowEnd = SecondsBetween(StartOfDay(hit.time), hit.time) + step;
    const long long least = SecondsBetween(day, m_origin.start) + step;
    const long long lastSecond = kSecondsPerDay - 1;
    times.end = AddSeconds(day, std::min(std::max(rowEnd, least), lastSecond));
    return times;
}

void PointerTracker::Lift(int item, const ItemTimes& times)
{
    m_selecting = m_pending = m_dropping = false;
    m_dragging = m_carried = true;
    m_item = item;
    m_edge = EDGE_NONE;
    m_origin = m_lastPut = times;
}

PointerEffects PointerTracker::Carry(const ItemTimes& times, const COleDateTime& mark)
{
    PointerEffects effects;
    if (m_carried) {
        PointerHit at;
        at.time = mark;
        PutItem(effects, at, times);
    }
    return effects;
}

PointerEffects PointerTracker::Release(const PointerHit& hit, bool reportsAlways)
{
    PointerEffects effects;
    if (m_selecting && hit.code != CCHT_NOWHERE) {
        effects = Sweep(hit);
        m_selecting = false;
    }
    const bool hasChanged =
        m_lastPut.start != m_origin.start || m_lastPut.end != m_origin.end || m_lastPut.fullday != m_origin.fullday;
    if (m_dragging && !m_pending && (hasChanged || reportsAlways)) {
        m_dropping = true;
        effects.push_back(Plain(PointerEffect::NOTIFY_MOVED, m_item));
    }
    if (!m_carried) {
        effects.push_back(Plain(PointerEffect::ARROW_CURSOR));
    }
    effects.push_back(Plain(PointerEffect::RELEASE_CAPTURE));
    return effects;
}

void PointerTracker::Released()
{
    m_dragging = m_carried = m_pending = m_dropping = false;
    m_edge = EDGE_NONE;
}

PointerEffects PointerTracker::Cancel()
{
    PointerEffects effects;
    if (m_dragging && !m_pending && !m_dropping) {
        effects.push_back(WithTimes(PointerEffect::PUT_BACK, m_origin, m_item));
        effects.push_back(Plain(PointerEffect::RESTORE_SELECTION));
    }
    if (IsBusy()) {
        effects.push_back(Plain(PointerEffect::ARROW_CURSOR));
        effects.push_back(Plain(PointerEffect::RELEASE_CAPTURE));
    }
    m_selecting = false;
    Released();
    return effects;
}
} // namespace dayvane
