// A view in a real window under a recording parent, while the clock says what the test wants.
#pragma once

#include "core/CalendarClock.h"
#include "support/Input.h"
#include "support/RecordingParent.h"

#include <functional>

namespace testsupport {

// What tests see of every view besides its public side.
template <class View>
class OpenView : public View
{
public:
    using View::DrawCtrl;
    using View::FindTip;
    using View::GetCurCellRect;
    using View::GetFocusBox;
    using View::InvalidateCellRect;
    using View::InvalidateCellRectRange;
    using View::m_arItem;
    using View::m_arScreenItem;
    using View::m_dtSelBegin;
    using View::m_dtSelEnd;
    using View::m_nHorzScroll;
    using View::m_nVertScroll;
    using View::m_rcCaption;
    using View::m_rcContent;
    using View::MoveBackward;
    using View::MoveForward;
    using View::MoveLeftward;
    using View::MoveRightward;
};

template <class Opened>
class ViewScene
{
public:
    RecordingParent parent;
    Opened* view = new Opened; // on the heap: hosts delete it in the middle of things

    // prepare: what is set before the window is there.
    ViewScene(COleDateTime (*now)(), CSize size, DWORD style, const std::function<void(Opened&)>& prepare)
    {
        SetCalendarClock(now);
        prepare(*view);
        parent.Create(size.cx, size.cy);
        view->Create(WS_CHILD | WS_VISIBLE | style, CRect(CPoint(0, 0), size), &parent, 7);
        PumpMessages();
        parent.ClearLog();
    }
    ~ViewScene()
    {
        delete view;
        SetCalendarClock(nullptr);
    }

    void Scroll(UINT code, int thumb = 0) { view->SendMessage(WM_VSCROLL, MAKEWPARAM(code, thumb)); }
};

} // namespace testsupport
