// A time grid in a real window under a recording parent, at a fixed present time.
#pragma once

#include "core/DateMath.h"
#include "support/ViewScene.h"
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

template <class View>
using Open = testsupport::OpenView<View>;

template <class View>
class Scene : public testsupport::ViewScene<Open<View>>
{
    using Base = testsupport::ViewScene<Open<View>>;

public:
    using Base::view;

    explicit Scene(int width = 500, int height = 500, const COleDateTime& now = At(0, 0), DWORD style = WS_VSCROLL)
        : Base((g_now = now, &Now), CSize(width, height), style, [](Open<View>& made) {
              made.SetFirstDayOfWeek(2);
              made.SetCurrentDate(At(9, 0));
          })
    {
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
