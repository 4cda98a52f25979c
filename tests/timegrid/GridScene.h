// A time grid in a real window under a recording parent, at a fixed present time.
#pragma once

#include "core/DateMath.h"
#include "support/Input.h"
#include "support/RecordingParent.h"
#include "timegrid/GridItems.h"
#include "views/timegrid/DayViewCtrl.h"
#include "views/timegrid/WeekDayViewCtrl.h"

#include <string>

namespace gridtest {

inline COleDateTime g_now = kDay;
inline COleDateTime Now()
{
    return g_now;
}

// What the tests see of a view besides its public side.
template <class View>
class Open : public View
{
public:
    using View::DrawCtrl;
    using View::GetCurCellRect;
    using View::m_arScreenItem;
    using View::m_dtSelBegin;
    using View::m_dtSelEnd;
    using View::m_rcContent;
    using View::MoveBackward;
    using View::MoveForward;
    using View::MoveLeftward;
    using View::MoveRightward;
};

template <class View>
class Scene
{
public:
    testsupport::RecordingParent parent;
    Open<View>* view; // on the heap: hosts delete it in the middle of things

    explicit Scene(int width = 500, int height = 500, const COleDateTime& now = At(0, 0), DWORD style = WS_VSCROLL)
    {
        g_now = now;
        SetCalendarClock(&Now);
        view = new Open<View>;
        view->SetFirstDayOfWeek(2);
        view->SetCurrentDate(At(9, 0));
        parent.Create(width, height);
        view->Create(WS_CHILD | WS_VISIBLE | style, CRect(0, 0, width, height), &parent, 7);
        testsupport::PumpMessages();
        parent.ClearLog();
    }
    ~Scene()
    {
        delete view;
        SetCalendarClock(nullptr);
    }

    int Add(const COleDateTime& start, const COleDateTime& end, int fullday = 0, COLORREF fill = 0xE0FFE0)
    {
        tagCC_ITEM item;
        item.dtStart = start;
        item.dtEnd = end;
        item.nFullday = fullday;
        item.crColor2 = fill;
        item.strText = "text";
        view->AddItem(&item);
        return view->GetItemCount() - 1;
    }

    void Scroll(UINT code, int thumb = 0) { view->SendMessage(WM_VSCROLL, MAKEWPARAM(code, thumb), 0); }
    int Offset() const { return view->GetVertScrollOffset(); }
    int Position() const { return view->GetScrollPos(SB_VERT); }
    std::string Selection() const
    {
        return (view->m_dtSelBegin.Format("%d %H:%M - ") + view->m_dtSelEnd.Format("%d %H:%M")).GetString();
    }
    std::string Range() const
    {
        COleDateTime first;
        COleDateTime last;
        view->GetViewRange(first, last);
        return (first.Format("%m-%d %H:%M:%S - ") + last.Format("%m-%d %H:%M:%S")).GetString();
    }
};

} // namespace gridtest
