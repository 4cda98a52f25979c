#include "StressHost.h"

#include "core/DateMath.h"
#include "core/ItemSource.h"
#include "support/Input.h"
#include "views/daygrid/MonthViewCtrl.h"
#include "views/daygrid/WeekViewCtrl.h"
#include "views/daygrid/YearViewCtrl.h"
#include "views/timegrid/DayViewCtrl.h"
#include "views/timegrid/WeekDayViewCtrl.h"

#include <stdexcept>
#include <thread>

namespace stress {
namespace {

constexpr int kHostileActs = 9;
constexpr int kMaxItems = 120; // more would make one event slow without finding more

template <class View>
class MirroredView : public View
{
public:
    explicit MirroredView(Model& model) : m_model(model) {}

    int AddItem(tagCC_ITEM* pItem, int bUpdate, int bRedraw) override
    {
        m_model.items.push_back(*pItem);
        return View::AddItem(pItem, bUpdate, bRedraw);
    }
    int InsertItem(int nIndex, tagCC_ITEM* pItem, int bUpdate, int bRedraw) override
    {
        const int result = View::InsertItem(nIndex, pItem, bUpdate, bRedraw);
        if (nIndex >= static_cast<int>(m_model.items.size())) {
            m_model.items.resize(nIndex + 1);
        }
        m_model.items[nIndex] = *pItem;
        return result;
    }
    int SetItem(int nIndex, tagCC_ITEM* pItem, int bUpdate, int bRedraw) override
    {
        const int result = View::SetItem(nIndex, pItem, bUpdate, bRedraw);
        if (result) {
            m_model.items[nIndex] = *pItem;
        }
        return result;
    }
    int DeleteItem(int nIndex, int bUpdate, int bRedraw) override
    {
        const int result = View::DeleteItem(nIndex, bUpdate, bRedraw);
        if (result) {
            m_model.items.erase(m_model.items.begin() + nIndex);
        }
        return result;
    }
    void DeleteAllItems() override
    {
        m_model.items.clear();
        View::DeleteAllItems();
    }

private:
    Model& m_model;
};

template <class View>
class SubjectOf : public Subject
{
public:
    SubjectOf() : m_view(model) {}
    CCalendarCtrl& Ctrl() override { return m_view; }
    bool Create(CWnd* parent, const CRect& rect) override
    {
        return m_view.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, rect, parent, 9) != FALSE;
    }

private:
    MirroredView<View> m_view;
};

tagCC_ITEM ItemOf(int number);

// A source that answers at once, late, twice, from a thread, wrongly or never, by the number of the question.
class WilfulSource : public dayvane::ItemSource
{
public:
    ~WilfulSource() override
    {
        for (std::thread& thread : m_threads) {
            thread.join();
        }
    }
    void AskItems(const dayvane::ItemRequest& request) override
    {
        switch (request.Number() % 6) {
        case 0:
            request.Answer(Items(request, 0));
            break;
        case 1:
            m_late.push_back(request);
            break;
        case 2:
            request.Answer(Items(request, 0));
            request.Answer(Items(request, 1));
            break;
        case 3:
            m_threads.emplace_back([request, items = Items(request, 0)] { request.Answer(items); });
            break;
        case 4:
            request.Answer(Items(request, 4000)); // of other days
            break;
        default:
            break;
        }
    }
    void AnswerLate()
    {
        if (m_late.size() > 2) {
            m_late.front().Answer(Items(m_late.front(), 0));
            m_late.erase(m_late.begin());
        }
        while (m_threads.size() > 3) {
            m_threads.front().join();
            m_threads.erase(m_threads.begin());
        }
    }

private:
    static std::vector<tagCC_ITEM> Items(const dayvane::ItemRequest& request, int daysAway)
    {
        std::vector<tagCC_ITEM> items;
        for (int i = 0; i < static_cast<int>(request.Number() * 7 % 40); ++i) {
            items.push_back(ItemOf(i * 31));
            items.back().dtStart = dayvane::AddDays(request.First(), i % 30 + daysAway);
            items.back().dtEnd = dayvane::AddMinutes(items.back().dtStart, i * 100);
        }
        return items;
    }

    std::vector<dayvane::ItemRequest> m_late;
    std::vector<std::thread> m_threads;
};

template <class View>
class FedSubjectOf : public Subject
{
public:
    CCalendarCtrl& Ctrl() override { return m_view; }
    bool Create(CWnd* parent, const CRect& rect) override
    {
        m_view.SetItemSource(&m_source);
        return m_view.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, rect, parent, 9) != FALSE;
    }
    void Step() override
    {
        m_source.AnswerLate();
        if (++m_steps % kReloadEvery == 0) {
            m_view.ReloadItems();
        }
    }
    bool HasSource() const override { return true; }

private:
    static constexpr int kReloadEvery = 50;

    WilfulSource m_source;
    View m_view; // ends before its source
    int m_steps = 0;
};

template <class View>
std::unique_ptr<Subject> MakeFed()
{
    return std::make_unique<FedSubjectOf<View>>();
}

template <class View>
std::unique_ptr<Subject> Make()
{
    return std::make_unique<SubjectOf<View>>();
}

struct ViewRow
{
    const char* name;
    std::unique_ptr<Subject> (*make)();
};
const ViewRow kViews[] = {
    {"month", Make<CMonthViewCtrl>},
    {"month2", Make<CMonthViewCtrl2>},
    {"week", Make<CWeekViewCtrl>},
    {"year", Make<CYearViewCtrl>},
    {"day", Make<CDayViewCtrl>},
    {"weekday", Make<CWeekDayViewCtrl>},
    {"month-fed", MakeFed<CMonthViewCtrl>},
    {"weekday-fed", MakeFed<CWeekDayViewCtrl>},
};

COleDateTime Today()
{
    return COleDateTime(2017, 4, 26, 13, 20, 0);
}

// Mostly around today, sometimes the ends of time or no date at all.
COleDateTime DateOf(int number)
{
    const unsigned mixed = static_cast<unsigned>(number) * 2654435761u;
    switch (mixed >> 26) {
    case 0:
        return COleDateTime(100, 1, 1 + number % 3, 0, 0, 0);
    case 1:
        return COleDateTime(9999, 12, 31 - number % 3, 0, 0, 0);
    case 2: {
        COleDateTime none;
        none.SetStatus(COleDateTime::invalid);
        return none;
    }
    default:
        return Today() + COleDateTimeSpan((mixed % 120000) / 1000.0 - 60.0);
    }
}

tagCC_ITEM ItemOf(int number)
{
    tagCC_ITEM item;
    item.dtStart = DateOf(number);
    const int form = number % 7;
    if (item.dtStart.GetStatus() == COleDateTime::valid) {
        item.dtEnd = form == 0 ? DateOf(number + 1) : dayvane::AddMinutes(item.dtStart, form * form * 90 - 60);
    }
    item.nFullday = number % 5 == 0;
    item.strText.Format("item %d \x89\xEF", number); // ends in a double-byte character
    item.lParam = number;
    item.bMovable = number % 9 != 0;
    item.bAlarm = number % 3 == 0;
    item.bRecurrent = number % 4 == 0;
    item.crColor2 = number % 2 ? 0xFFFFFF : 0xC0E0FF;
    item.nReserved = number & 1; // bold; italic fonts are kept to the end of the process and would count as lost
    return item;
}

void CALLBACK CloseMessageBox(HWND, UINT, UINT_PTR id, DWORD)
{
    if (const HWND dialog = ::FindWindow("#32770", "stress")) {
        ::KillTimer(nullptr, id);
        ::PostMessage(dialog, WM_COMMAND, IDOK, 0);
    }
}

bool SameItem(const tagCC_ITEM& a, const tagCC_ITEM& b)
{
    return a.dtStart.GetStatus() == b.dtStart.GetStatus() && a.dtStart.m_dt == b.dtStart.m_dt &&
           a.dtEnd.GetStatus() == b.dtEnd.GetStatus() && a.dtEnd.m_dt == b.dtEnd.m_dt && a.strText == b.strText &&
           a.lParam == b.lParam && a.nFullday == b.nFullday && a.bMovable == b.bMovable && a.nReserved == b.nReserved;
}

template <class Call>
void WithoutInvalidArguments(Call call)
{
    try {
        call();
    } catch (CInvalidArgException* error) {
        error->Delete(); // the answer to a wrong index
    }
}

} // namespace

std::unique_ptr<Subject> MakeSubject(const std::string& view)
{
    for (const ViewRow& row : kViews) {
        if (view == row.name) {
            return row.make();
        }
    }
    return nullptr;
}

const std::vector<std::string>& ViewNames()
{
    static const std::vector<std::string> names = [] {
        std::vector<std::string> all;
        for (const ViewRow& row : kViews) {
            all.push_back(row.name);
        }
        return all;
    }();
    return names;
}

StressHost::StressHost(const std::string& view) : m_view(view)
{
    SetCalendarClock(Today);
    m_parent.Create(900, 700);
    m_parent.SetHook([this](const testsupport::Notification& report) { return OnNotification(report); });
    Recreate();
}

StressHost::~StressHost()
{
    m_parent.SetHook(nullptr);
    m_subject.reset();
    m_buried.clear();
    SetCalendarClock(nullptr);
}

void StressHost::Recreate()
{
    m_subject = MakeSubject(m_view);
    m_subject->Create(&m_parent, CRect(0, 0, 700, 500));
    m_subject->Ctrl().SetCurrentDate(Today());
    m_subject->Ctrl().Refresh();
}

LRESULT StressHost::OnNotification(const testsupport::Notification&)
{
    if (m_acting || m_hostile < 0 || !m_subject) {
        return 0;
    }
    m_acting = true;
    ActHostile();
    m_hostile = -1;
    m_acting = false;
    return 0;
}

void StressHost::ActHostile()
{
    CCalendarCtrl& ctrl = m_subject->Ctrl();
    switch (m_hostile) {
    case 0:
        ctrl.DeleteAllItems();
        break;
    case 1:
        if (ctrl.GetItemCount() > 0) {
            ctrl.DeleteItem(ctrl.GetItemCount() - 1);
        }
        break;
    case 2: {
        tagCC_ITEM item = ItemOf(4711);
        ctrl.AddItem(&item);
        break;
    }
    case 3:
        ctrl.SetCurrentDate(Today() + COleDateTimeSpan(200.0));
        ctrl.Refresh();
        break;
    case 4:
        ctrl.DestroyWindow();
        break;
    case 5:
        m_subject.reset(); // deletes the C++ object
        break;
    case 6:
        ctrl.BeginEditItem("hostile");
        break;
    case 7:
        ctrl.MoveWindow(0, 0, 50, 40);
        break;
    case 8:
        ::SetTimer(nullptr, 0, 10, CloseMessageBox);
        ::MessageBox(m_parent.m_hWnd, "text", "stress", MB_OK);
        break;
    }
}

void StressHost::Mouse(UINT message, const Event& event, WPARAM keys)
{
    ::SendMessage(Window(), message, keys, MAKELPARAM(event.a, event.b));
}

void StressHost::ItemEvent(const Event& event)
{
    CCalendarCtrl& ctrl = m_subject->Ctrl();
    tagCC_ITEM item = ItemOf(event.a);
    const int flags = event.a % 3; // neither, update, both
    switch (event.kind) {
    case EventKind::AddItem:
        if (ctrl.GetItemCount() < kMaxItems) {
            ctrl.AddItem(&item, flags > 0, flags > 1);
        }
        break;
    case EventKind::InsertItem:
        ctrl.InsertItem(event.b, &item, flags > 0, flags > 1);
        break;
    case EventKind::SetItem:
        ctrl.SetItem(event.b, &item, flags > 0, flags > 1);
        break;
    case EventKind::DeleteItem:
        ctrl.DeleteItem(event.b, flags > 0, flags > 1);
        break;
    default:
        ctrl.SetCurSel(event.b);
        break;
    }
}

void StressHost::Option(const Event& event)
{
    CCalendarCtrl& ctrl = m_subject->Ctrl();
    const BOOL on = event.c;
    switch (event.a % 8) {
    case 0:
        ctrl.ShowCaption(on);
        break;
    case 1:
        ctrl.ShowHoliday(on);
        break;
    case 2:
        ctrl.SetItemDisplayMode(on ? 8 : 0);
        break;
    case 3:
        ctrl.ShowSelectionWithItem(on);
        break;
    case 4:
        if (event.b % 2) {
            ctrl.EnableExtendedMove(on);
        } else {
            ctrl.SetOptions(on ? CalendarOptions::Modern() : CalendarOptions());
        }
        break;
    case 5:
        ctrl.EnableMouseHoverEvent(on);
        break;
    case 6:
        ctrl.SetDayColor(DateOf(event.b), (event.b + 40) % 8);
        break;
    default:
        WithoutInvalidArguments([&] { ctrl.SetTimeScale((event.b + 40) % 13); });
        break;
    }
}

void StressHost::Run(const Event& event)
{
    m_parent.ClearLog();
    if (!m_subject || !m_subject->Ctrl().m_hWnd) {
        Recreate();
    }
    m_subject->Step();
    if (!Input(event)) {
        Call(event);
    }
    testsupport::PumpMessages();
}

// What the user and the system do; false for another event.
bool StressHost::Input(const Event& event)
{
    const HWND edit = ::GetDlgItem(Window(), 1);
    switch (event.kind) {
    case EventKind::Key: {
        const testsupport::KeyState keys = event.b == 1   ? testsupport::KeyState({VK_SHIFT})
                                           : event.b == 2 ? testsupport::KeyState({VK_CONTROL})
                                           : event.b == 3 ? testsupport::KeyState({VK_CONTROL, VK_SHIFT})
                                                          : testsupport::KeyState({});
        ::SendMessage(Window(), WM_KEYDOWN, event.a, 0);
        if (Window()) {
            ::SendMessage(Window(), WM_KEYUP, event.a, 0);
        }
        break;
    }
    case EventKind::MouseMove:
        Mouse(WM_MOUSEMOVE, event, event.c ? MK_LBUTTON : 0);
        break;
    case EventKind::LeftDown:
        Mouse(WM_LBUTTONDOWN, event, MK_LBUTTON);
        break;
    case EventKind::LeftUp:
        Mouse(WM_LBUTTONUP, event, event.c ? MK_CONTROL : 0);
        break;
    case EventKind::DoubleClick:
        Mouse(WM_LBUTTONDBLCLK, event, MK_LBUTTON);
        break;
    case EventKind::RightDown:
        Mouse(WM_RBUTTONDOWN, event, MK_RBUTTON);
        break;
    case EventKind::Wheel:
        ::SendMessage(Window(), WM_MOUSEWHEEL, MAKEWPARAM(0, event.a), 0);
        break;
    case EventKind::ScrollCode:
        ::SendMessage(Window(), WM_VSCROLL, MAKEWPARAM(event.a, event.b), 0);
        break;
    case EventKind::EndEdit:
        ::SendMessage(edit ? edit : Window(), WM_KEYDOWN, event.a, 0);
        break;
    case EventKind::Type:
        ::SendMessage(edit ? edit : Window(), WM_CHAR, 'a' + (event.a + 40) % 26, 0);
        break;
    case EventKind::CancelMode:
        ::SendMessage(Window(), WM_CANCELMODE, 0, 0);
        break;
    case EventKind::Timer:
        ::SendMessage(Window(), WM_TIMER, 0x4441, 0);
        break;
    case EventKind::ContextMenu:
        ::SendMessage(Window(), WM_CONTEXTMENU, 0, event.c ? MAKELPARAM(-1, -1) : MAKELPARAM(event.a, event.b));
        break;
    case EventKind::Sort:
        ::SendMessage(Window(), WM_KEYDOWN, VK_TAB, 0);
        break;
    default:
        return false;
    }
    return true;
}

// What the host does.
void StressHost::Call(const Event& event)
{
    CCalendarCtrl& ctrl = m_subject->Ctrl();
    switch (event.kind) {
    case EventKind::Size:
        ctrl.MoveWindow(0, 0, event.a, event.b);
        break;
    case EventKind::AddItem:
    case EventKind::InsertItem:
    case EventKind::SetItem:
    case EventKind::DeleteItem:
    case EventKind::SetCurSel:
        WithoutInvalidArguments([&] { ItemEvent(event); });
        break;
    case EventKind::DeleteAll:
        ctrl.DeleteAllItems();
        break;
    case EventKind::SetDate:
        ctrl.SetCurrentDate(DateOf(event.a));
        break;
    case EventKind::FirstDay:
        WithoutInvalidArguments([&] { ctrl.SetFirstDayOfWeek((event.a + 40) % 9); });
        break;
    case EventKind::Option:
        Option(event);
        break;
    case EventKind::BeginEdit:
        ctrl.BeginEditItem("text");
        break;
    case EventKind::Hostile:
        m_hostile = event.c && event.b % 20 ? (event.a + 40) % (kHostileActs - 1) : event.b % 8;
        break;
    case EventKind::LoseCapture:
        ::SetCapture(m_parent.m_hWnd);
        ::ReleaseCapture();
        break;
    case EventKind::Focus:
        ::SetFocus(event.c ? Window() : m_parent.m_hWnd);
        break;
    case EventKind::Refresh:
        ctrl.Refresh();
        break;
    case EventKind::Paint:
        ctrl.UpdateWindow();
        break;
    case EventKind::Recreate:
        Recreate();
        break;
    case EventKind::Client:
        m_client.Ask(Window(), event.a, event.b);
        break;
    default:
        throw std::logic_error("nothing handles this kind of event");
    }
}

std::string StressHost::Difference()
{
    if (!m_subject) {
        return "";
    }
    CCalendarCtrl& ctrl = m_subject->Ctrl();
    if (m_subject->HasSource()) {
        return "";
    }
    const std::vector<tagCC_ITEM>& items = m_subject->model.items;
    if (ctrl.GetItemCount() != static_cast<int>(items.size())) {
        return "the store has " + std::to_string(ctrl.GetItemCount()) + " items, the model " +
               std::to_string(items.size());
    }
    for (int i = 0; i < static_cast<int>(items.size()); ++i) {
        tagCC_ITEM item;
        ctrl.GetItem(i, item);
        if (!SameItem(item, items[i])) {
            return "item " + std::to_string(i) + " differs";
        }
    }
    for (int i = 0; i < ctrl.GetScreenItems().GetSize(); ++i) {
        const LPARAM source = ctrl.GetScreenItems()[i].nSource;
        if (source < 0) {
            return "screen item " + std::to_string(i) + " has no source";
        }
    }
    return "";
}

} // namespace stress
