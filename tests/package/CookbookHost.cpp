// What docs/cookbook.md shows, in one program that does each of it.
#include "HostMain.h"

#include <cstdio>
#include <vector>

namespace {

constexpr LPARAM kUrgent = 7;
constexpr COLORREF kUrgentColor = RGB(200, 0, 0);

// A program's own store: appointments of any length of time.
struct Appointment
{
    LPARAM id;
    COleDateTime start;
    COleDateTime end;
};

COleDateTime At(int day, int hour)
{
    return COleDateTime(2026, 11, day, hour, 0, 0);
}

std::vector<Appointment> g_store = {
    {kUrgent, At(16, 9), At(16, 10)}, {8, At(18, 9), At(18, 12)}, {9, At(30, 9), At(30, 10)}};

std::vector<Appointment> Find(const COleDateTime& first, const COleDateTime& last)
{
    std::vector<Appointment> found;
    for (const Appointment& one : g_store) {
        if (one.start <= last && one.end >= first) {
            found.push_back(one);
        }
    }
    return found;
}

// snippet drawing
class CUrgentDaysCtrl : public CWeekDayViewCtrl
{
protected:
    void DrawItemBox(CDC& dc, const dayvane::ItemBox& box) override
    {
        CWeekDayViewCtrl::DrawItemBox(dc, box);
        if (GetItemData(static_cast<int>(box.item.nSource)) == kUrgent) {
            dc.FillSolidRect(CRect(box.rect.left, box.rect.top, box.rect.left + 4, box.rect.bottom), kUrgentColor);
        }
    }
};
// end of snippet

class CDiaryWnd : public CWnd
{
public:
    CUrgentDaysCtrl m_days;

    // snippet load
    void LoadShownDays()
    {
        COleDateTime first, last;
        m_days.GetViewRange(first, last);
        m_days.BeginUpdate();
        m_days.DeleteAllItems();
        m_days.SetCurSel(-1);
        for (const Appointment& one : Find(first, last)) { // of your own store
            tagCC_ITEM item;
            item.dtStart = one.start;
            item.dtEnd = one.end;
            item.lParam = one.id;
            m_days.AddItem(&item);
        }
        m_days.EndUpdate(); // lays out and repaints once
    }

    afx_msg void OnRangeChanged(NMHDR*, LRESULT* result)
    {
        LoadShownDays();
        *result = 0;
    }
    // end of snippet

    // snippet undo
    struct Step
    {
        LPARAM item;
        COleDateTime start;
        COleDateTime end;
    };
    std::vector<Step> m_undo;

    afx_msg void OnItemMoved(NMHDR* header, LRESULT* result)
    {
        Step step = {reinterpret_cast<const NMCALENDARITEM*>(header)->lParam};
        if (m_days.GetDragOrigin(step.start, step.end)) {
            m_undo.push_back(step);
        }
        *result = 0;
    }

    void Undo()
    {
        if (m_undo.empty()) {
            return;
        }
        const Step step = m_undo.back();
        m_undo.pop_back();
        for (int i = 0; i < m_days.GetItemCount(); ++i) {
            tagCC_ITEM item;
            m_days.GetItem(i, item);
            if (item.lParam == step.item) {
                item.dtStart = step.start;
                item.dtEnd = step.end;
                m_days.SetItem(i, &item);
            }
        }
    }
    // end of snippet

    // snippet state
    struct State
    {
        COleDateTime date;
        int dateScale;
        int rowsAnHour;
        int scrolled; // pixels
    };

    State GetState()
    {
        return {m_days.GetCurrentDate(), m_days.GetDateScale(), m_days.GetTimeScale(), m_days.GetVertScrollOffset()};
    }

    void SetState(const State& state)
    {
        m_days.SetDateScale(state.dateScale);
        m_days.SetTimeScale(state.rowsAnHour);
        m_days.SetRange(state.date);
        m_days.SetCurrentDate(state.date);
        m_days.Refresh();
        m_days.SetVertScrollOffset(state.scrolled);
    }
    // end of snippet

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CDiaryWnd, CWnd)
ON_NOTIFY(CCN_VIEWRANGECHANGE, 100, &CDiaryWnd::OnRangeChanged)
ON_NOTIFY(CCN_ITEMMOVED, 100, &CDiaryWnd::OnItemMoved)
END_MESSAGE_MAP()

// snippet rooms
// Two rooms side by side, each a day view with a caption of its own, scrolled as one.
class CRoomsWnd : public CWnd
{
public:
    CDayViewCtrl m_rooms[2];

    void CreateRooms()
    {
        CRect client;
        GetClientRect(&client);
        const int width = client.Width() / 2;
        for (int i = 0; i < 2; ++i) {
            m_rooms[i].Create(WS_CHILD | WS_VISIBLE, CRect(i * width, 0, (i + 1) * width, client.bottom), this,
                              200 + i);
        }
    }

    void Show(const COleDateTime& date)
    {
        for (CDayViewCtrl& room : m_rooms) {
            room.SetCurrentDate(date);
            room.Refresh();
            room.ScrollToTime(date);
        }
    }
};
// end of snippet

// The colour of the mark at the left edge of the urgent item.
bool DrawsTheMark(CDiaryWnd& window)
{
    CClientDC dc(&window.m_days);
    CRect client;
    window.m_days.GetClientRect(&client);
    window.m_days.UpdateWindow();
    for (int y = 0; y < client.bottom; ++y) {
        for (int x = 0; x < client.right; ++x) {
            if (dc.GetPixel(x, y) == kUrgentColor) {
                return true;
            }
        }
    }
    return false;
}

COleDateTime StartOf(CDiaryWnd& window, LPARAM id)
{
    for (int i = 0; i < window.m_days.GetItemCount(); ++i) {
        tagCC_ITEM item;
        window.m_days.GetItem(i, item);
        if (item.lParam == id) {
            return item.dtStart;
        }
    }
    return COleDateTime();
}

bool Expect(bool condition, const char* what)
{
    if (!condition) {
        printf("not so: %s\n", what);
    }
    return condition;
}

bool TryDiary()
{
    CDiaryWnd window;
    window.CreateEx(0, AfxRegisterWndClass(CS_DBLCLKS), "Cookbook", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                    CRect(0, 0, 820, 640), nullptr, 0);
    CRect client;
    window.GetClientRect(&client);
    window.m_days.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, client, &window, 100);
    window.SetState({At(16, 9), CWD_WEEK, 2, 0});
    window.m_days.ScrollToTime(At(16, 8));
    window.LoadShownDays();
    bool good = Expect(window.m_days.GetItemCount() == 2, "the week's items are loaded");
    good &= Expect(DrawsTheMark(window), "the urgent item has its mark");

    const dayvane::tagCALENDAR_ITEM& shown = window.m_days.GetScreenItems()[0];
    CPoint at = shown.rcItem.CenterPoint();
    at.y -= window.m_days.GetVertScrollOffset();
    Drag(window.m_days, at, at + CSize(window.m_days.GetColumnRect(1).Width(), 0));
    good &= Expect(StartOf(window, kUrgent) == At(17, 9), "the item was dragged by a day");
    window.Undo();
    good &= Expect(StartOf(window, kUrgent) == At(16, 9), "the move is undone");

    const CDiaryWnd::State state = window.GetState();
    window.SetState({At(3, 9), 1, 4, 0});
    window.SetState(state);
    const CDiaryWnd::State again = window.GetState();
    good &= Expect(again.date == state.date && again.dateScale == state.dateScale &&
                       again.rowsAnHour == state.rowsAnHour && again.scrolled == state.scrolled,
                   "the state comes back");
    window.DestroyWindow();
    return good;
}

bool TryRooms()
{
    CRoomsWnd window;
    window.CreateEx(0, AfxRegisterWndClass(0), "Rooms", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 640, 400),
                    nullptr, 0);
    window.CreateRooms();
    window.Show(At(20, 9));
    const bool good =
        Expect(window.m_rooms[0].GetVertScrollOffset() == window.m_rooms[1].GetVertScrollOffset() &&
                   window.m_rooms[0].GetVertScrollOffset() > 0 && window.m_rooms[1].GetCurrentDate().GetDay() == 20,
               "both rooms show the same hours of the day");
    window.DestroyWindow();
    return good;
}

} // namespace

int main()
{
    return RunHost([] { return TryDiary() && TryRooms() ? 0 : 1; });
}
