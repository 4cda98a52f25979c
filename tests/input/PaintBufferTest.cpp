// The bitmap that a view keeps to paint in: whatever was painted before, wherever and how large, the window shows the
// picture that WM_PRINT gives, and the memory goes when nothing is painted any more.
#include "core/Interaction.h"
#include "support/MemoryDc.h"
#include "support/ViewScene.h"
#include "views/daygrid/MonthViewCtrl.h"
#include "views/timegrid/WeekDayViewCtrl.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace testsupport;

namespace {

const CSize kRoom(600, 420);

COleDateTime Now()
{
    return COleDateTime(2026, 4, 30, 8, 0, 0);
}

template <class View>
class Painted : public OpenView<View>
{
public:
    bool paintsAgain = false; // while it paints
    bool KeepsBuffer() const { return this->m_interaction->buffer.IsKept(); }

protected:
    void DrawCaption(CDC* pDC, CRect rcCaption) override
    {
        View::DrawCaption(pDC, rcCaption);
        if (paintsAgain) {
            paintsAgain = false;
            this->Invalidate(FALSE);
            this->UpdateWindow();
        }
    }
};

template <class View>
class PaintBuffers : public testing::Test
{
protected:
    ViewScene<Painted<View>> scene{&Now, kRoom, WS_VSCROLL, [](Painted<View>& view) { view.SetCurrentDate(Now()); }};
    Painted<View>& view = *scene.view;

    PaintBuffers()
    {
        tagCC_ITEM item;
        item.dtStart = COleDateTime(2026, 4, 29, 9, 0, 0);
        item.dtEnd = COleDateTime(2026, 5, 1, 11, 0, 0);
        item.strText = "three days";
        view.AddItem(&item);
        view.Refresh();
    }

    static void ExpectPicture(CWnd& window, const char* when)
    {
        window.UpdateWindow();
        CRect client;
        window.GetClientRect(&client);
        MemoryDc shown(std::max(1, client.Width()), std::max(1, client.Height()));
        MemoryDc printed(shown.Width(), shown.Height());
        CClientDC dc(&window);
        shown.Dc().BitBlt(0, 0, client.Width(), client.Height(), &dc, 0, 0, SRCCOPY);
        window.SendMessage(WM_PRINT, reinterpret_cast<WPARAM>(printed.Dc().m_hDC), PRF_CLIENT);
        EXPECT_TRUE(shown.SameAs(printed)) << when;
    }
    void InvalidateParts()
    {
        for (const CRect& part : {CRect(20, 30, 90, 60), CRect(200, 100, 203, 300), CRect(10, 200, 500, 201)}) {
            view.InvalidateRect(&part, FALSE);
        }
    }
};
using TwoKinds = testing::Types<CMonthViewCtrl, CWeekDayViewCtrl>;
TYPED_TEST_SUITE(PaintBuffers, TwoKinds);

TYPED_TEST(PaintBuffers, FollowTheSizeAndOtherWindows)
{
    this->ExpectPicture(this->view, "first");
    Painted<TypeParam> other;
    other.SetCurrentDate(COleDateTime(2026, 8, 1, 0, 0, 0));
    other.Create(WS_CHILD | WS_VISIBLE, CRect(0, 300, 400, 420), &this->scene.parent, 8);
    for (const CSize size : {CSize(600, 300), CSize(250, 290), CSize(1, 1), CSize(0, 0), CSize(3, 280), CSize(7, 30000),
                             CSize(30000, 400), CSize(20000, 20000), CSize(598, 299)}) {
        this->view.MoveWindow(CRect(CPoint(0, 0), size));
        this->view.UpdateWindow();
        this->InvalidateParts();
        this->view.UpdateWindow();
        if (size.cy <= 300) { // neither covers the other
            this->ExpectPicture(this->view, "resized");
            this->ExpectPicture(other, "of the other");
        }
    }
    this->view.paintsAgain = true;
    this->view.Invalidate(FALSE);
    this->ExpectPicture(this->view, "painted while it painted");
    other.DestroyWindow();
}

TYPED_TEST(PaintBuffers, AreFreedWhenNothingIsPainted)
{
    const auto wait = [this] { this->view.SendMessage(WM_TIMER, dayvane::kBufferTimer); };
    this->view.Invalidate(FALSE);
    this->ExpectPicture(this->view, "first");
    wait();
    EXPECT_TRUE(this->view.KeepsBuffer()) << "something was painted meanwhile";
    wait();
    EXPECT_FALSE(this->view.KeepsBuffer());
    this->InvalidateParts();
    this->ExpectPicture(this->view, "in a new one");
    EXPECT_TRUE(this->view.KeepsBuffer());
    this->view.ShowWindow(SW_HIDE);
    EXPECT_FALSE(this->view.KeepsBuffer());
    this->view.ShowWindow(SW_SHOW);
    this->ExpectPicture(this->view, "shown again");
    this->view.DestroyWindow();
    EXPECT_FALSE(this->view.KeepsBuffer());
}

} // namespace
