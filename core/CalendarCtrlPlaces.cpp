// The base control's keys between the parts of a view, option keyboardMoves: title band, whole-day band, grid, marks.
#include "core/CalendarCtrl.h"

#include "core/DateMath.h"
#include "core/Interaction.h"
#include "core/ViewParts.h"

#include <algorithm>

using namespace dayvane;

namespace {

constexpr int kPlaces = 4;

bool IsSeen(const ViewMark& mark)
{
    return !mark.box.IsRectEmpty();
}

bool HasPlace(const ViewParts& parts, ViewPlace place)
{
    switch (place) {
    case ViewPlace::Title:
        return !parts.title.IsRectEmpty();
    case ViewPlace::Band:
        return std::any_of(parts.cells.begin(), parts.cells.end(),
                           [](const ViewCell& cell) { return !cell.band.IsRectEmpty(); });
    case ViewPlace::Mark:
        return std::any_of(parts.marks.begin(), parts.marks.end(), IsSeen);
    default:
        return true;
    }
}

// The position of the next seen mark in that direction, beginning at one; -1: there is none.
int SeenMarkFrom(const ViewParts& parts, int position, int step)
{
    const int count = static_cast<int>(parts.marks.size());
    while (position >= 0 && position < count && !IsSeen(parts.marks[position])) {
        position += step;
    }
    return position >= 0 && position < count ? position : -1;
}

// The first seen mark in a cell that ends at the date or later, else the last one.
int MarkAfter(const ViewParts& parts, const COleDateTime& date)
{
    int last = 0;
    for (int i = SeenMarkFrom(parts, 0, 1); i != -1; i = SeenMarkFrom(parts, i + 1, 1)) {
        last = i;
        const COleDateTime& end = parts.cells[parts.marks[i].cell].last;
        if (IsValid(end) && end >= date) {
            break;
        }
    }
    return last;
}

// The days that a time grid shows turn to the next or previous ones, which the caller reports to the host. FALSE: there
// are none. A working week leaves out days, so that a step may lead to the same one.
bool TurnDays(CCalendarCtrl& ctrl, bool isBack)
{
    COleDateTime first, last, now;
    ctrl.GetViewRange(first, now);
    const COleDateTime from = ctrl.GetCurrentDate();
    const int days = DayNumberOf(now) - DayNumberOf(first) + 1;
    for (int more = 0; more < kDaysPerWeek; ++more) {
        const COleDateTime to = AddDays(from, isBack ? -days - more : days + more);
        if (!IsValid(to)) {
            return false;
        }
        ctrl.SetCurrentDate(to);
        ctrl.GetViewRange(first, last);
        if (DayNumberOf(last) != DayNumberOf(now)) {
            ctrl.Refresh();
            return true;
        }
    }
    return false;
}

void FocusChildIn(const CWnd& window, const CRect& title)
{
    for (HWND child = ::GetWindow(window, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
        CRect box;
        ::GetWindowRect(child, &box);
        ::MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&box), 2);
        CRect shared;
        if (::IsWindowVisible(child) && shared.IntersectRect(&box, &title)) {
            ::SetFocus(child);
            return;
        }
    }
}

} // namespace

// A window in the title, such as the year view's combo box, takes the focus itself.
void CCalendarCtrl::StepPlace(BOOL bBack)
{
    ViewParts parts;
    GetClientRect(&parts.client);
    DescribeParts(parts);
    const bool hasBand = HasPlace(parts, ViewPlace::Band);
    const bool isInBand = hasBand && m_bFulldaySelection && m_interaction->place == ViewPlace::Grid;
    int step = static_cast<int>(isInBand ? ViewPlace::Band : m_interaction->place);
    do {
        step = (step + (bBack ? kPlaces - 1 : 1)) % kPlaces;
    } while (!HasPlace(parts, static_cast<ViewPlace>(step)));
    const ViewPlace place = static_cast<ViewPlace>(step);
    m_interaction->place = place == ViewPlace::Band ? ViewPlace::Grid : place;
    InvalidateClient();
    if (place == ViewPlace::Mark) {
        m_interaction->mark = MarkAfter(parts, m_dtSelEnd);
    } else if (place == ViewPlace::Title) {
        FocusChildIn(*this, parts.title);
    } else if (place == ViewPlace::Band && !m_bFulldaySelection && IsValid(m_dtSelEnd)) {
        m_interaction->beforeBand = Selected();
        const COleDateTime day = StartOfDay(m_dtSelEnd);
        SetCurSel(-1);
        SetSelRange(day, day, TRUE);
        SelectionMoved();
    } else if (place == ViewPlace::Grid && m_bFulldaySelection && hasBand) {
        const SelectedRange before = m_interaction->beforeBand;
        const bool isSameDay = IsValid(before.end) && IsSameDay(before.end, m_dtSelEnd);
        SetSelRange(isSameDay ? before.begin : m_dtSelBegin, isSameDay ? before.end : m_dtSelEnd, FALSE);
        SelectionMoved();
    }
}

// Whether the key belongs to the title or to a mark. Escape and every other key lead back to the grid.
BOOL CCalendarCtrl::TakePlaceKey(WPARAM nKey)
{
    const ViewPlace place = m_interaction->place;
    if (place == ViewPlace::Grid) {
        return FALSE;
    }
    const bool isBack = nKey == VK_LEFT || nKey == VK_UP;
    const bool isArrow = isBack || nKey == VK_RIGHT || nKey == VK_DOWN;
    const bool opens = nKey == VK_RETURN || nKey == VK_SPACE || nKey == VK_F4;
    if (!isArrow && !opens) {
        m_interaction->place = ViewPlace::Grid;
        InvalidateClient();
        return nKey == VK_ESCAPE;
    }
    ViewParts parts;
    GetClientRect(&parts.client);
    DescribeParts(parts);
    if (place == ViewPlace::Title) {
        if (isArrow && parts.rows == 0) {
            SendMessage(WM_VSCROLL, isBack ? SB_PAGEUP : SB_PAGEDOWN);
        } else if (isArrow) {
            const WindowAlive alive(this, m_life); // an edit may have ended
            if (TurnDays(*this, isBack) && alive) {
                COleDateTime first, last;
                GetViewRange(first, last);
                Notify(CCN_VIEWRANGECHANGE, m_dtCurrentDate, first, last, CRV_TIMEGRID);
            }
        } else {
            const tagCCHITTESTINFO hit = KeyboardHit();
            Notify(CCN_GOTODATE, hit.nItem, 0, hit.pt, hit.time, hit.nHitCode);
        }
        return TRUE;
    }
    if (!isArrow) {
        OpenMoreListAt(GetPlaceBox().CenterPoint());
        return TRUE;
    }
    const int next = SeenMarkFrom(parts, m_interaction->mark + (isBack ? -1 : 1), isBack ? -1 : 1);
    m_interaction->mark = next != -1 ? next : m_interaction->mark;
    InvalidateClient();
    return TRUE;
}

// Where the title or the mark with the focus is, empty when the focus is in the grid.
CRect CCalendarCtrl::GetPlaceBox()
{
    if (m_interaction->place == ViewPlace::Grid) {
        return CRect(0, 0, 0, 0);
    }
    ViewParts parts;
    GetClientRect(&parts.client);
    DescribeParts(parts);
    if (m_interaction->place == ViewPlace::Title) {
        return parts.title;
    }
    return m_interaction->mark < static_cast<int>(parts.marks.size()) ? parts.marks[m_interaction->mark].box
                                                                      : CRect(0, 0, 0, 0);
}
