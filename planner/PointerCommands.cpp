// What the pointer does beyond the view's own ways: tips over items, items dragged to and from other programs, and the
// icon beside the clock.
#include "planner/PlannerFrame.h"

#include "core/DateMath.h"
#include "core/TextCodec.h"
#include "planner/AgendaView.h"
#include "planner/ItemBridge.h"
#include "planner/WideText.h"
#include "planner/Words.h"
#include "planner/resource.h"

// ---- Tips

// The item at a point of the view, and where it is seen; nullptr: none, or several over each other, of which the view
// reports by itself.
const planner::Occurrence* CPlannerFrame::ItemAt(CPoint client, CRect& part)
{
    tagCCHITTESTINFO hit;
    hit.pt = client;
    const auto& pieces = m_items.Ctrl()->GetScreenItems();
    m_items.Ctrl()->HitTest(hit);
    if (hit.nItem < 0 || hit.nScreenItem < 0 || hit.nScreenItem >= pieces.GetSize()) {
        return nullptr;
    }
    part = pieces[hit.nScreenItem].rcItem;
    part.OffsetRect(0, part.PtInRect(client) ? 0 : client.y - part.CenterPoint().y); // a scrolled piece
    return m_items.At(hit.nItem);
}

void CPlannerFrame::FollowPointer(const MSG& message)
{
    CCalendarCtrl* ctrl = m_items.Ctrl();
    POINT pointer;
    ::GetCursorPos(&pointer);
    const bool hasMoved = pointer.x != m_pointerBefore.x || pointer.y != m_pointerBefore.y;
    if (!ctrl || message.hwnd != ctrl->m_hWnd || !hasMoved) { // a window that opens under the pointer says nothing
        return;
    }
    m_pointerBefore = CPoint(-1, -1);
    if (message.message == WM_MOUSEMOVE && !ctrl->IsDragging()) {
        CRect part(0, 0, 0, 0);
        const CPoint point(static_cast<short>(LOWORD(message.lParam)), static_cast<short>(HIWORD(message.lParam)));
        const planner::Occurrence* occurrence = ItemAt(point, part);
        const std::string text = occurrence ? planner::TipOf(*occurrence) : std::string();
        if (text != m_tipText || part != m_tipPart) {
            m_tipText = text;
            m_tipPart = part;
            m_tip.SetPart(*ctrl, part, dayvane::DecodeText(text, dayvane::kUtf8CodePage));
        }
    }
    m_tip.Relay(*ctrl, message.message, message.wParam, message.lParam);
}

// ---- Drags to other programs

// An item that leaves the window is no longer moved in the view: other programs may take it, and this one, too.
bool CPlannerFrame::DragsOut(const MSG& message)
{
    CCalendarCtrl* ctrl = m_items.Ctrl();
    if (message.message != WM_MOUSEMOVE || !ctrl || message.hwnd != ctrl->m_hWnd || !ctrl->IsDragging()) {
        return false;
    }
    CRect window;
    GetWindowRect(&window);
    CPoint point;
    ::GetCursorPos(&point);
    const planner::Occurrence* current = m_items.Current();
    if (window.PtInRect(point) || !current) {
        return false;
    }
    const planner::OccurrenceId id = current->id;
    ctrl->SendMessage(WM_CANCELMODE);
    m_items.Load(Calendars());
    m_items.Select(id);
    m_dragged = id;
    planner::DragItems(Calendars().Excerpt({id}, planner::ExcerptForm::Occurrences),
                       planner::PlainTextOf(Calendars(), {id}));
    m_dragged = planner::OccurrenceId();
    return true;
}

// ---- Drops from other programs

// Where the point of the screen lies in the calendar; nothing: nowhere.
std::optional<planner::EventTimes> CPlannerFrame::PlaceAt(CPoint screen)
{
    COleDateTime day;
    day.SetStatus(COleDateTime::null);
    if (m_sidePane.DayAt(screen, day)) {
        const planner::LocalTime start = planner::LocalOfDate(day);
        return planner::EventTimes{start, start + planner::kDaySeconds, true};
    }
    CCalendarCtrl* ctrl = m_items.Ctrl();
    CRect view;
    if (ctrl) {
        ctrl->GetWindowRect(&view);
    }
    if (!ctrl || !view.PtInRect(screen)) {
        return std::nullopt;
    }
    CPoint client(screen);
    ctrl->ScreenToClient(&client);
    tagCCHITTESTINFO hit;
    hit.pt = client;
    ctrl->HitTest(hit);
    const COleDateTime time(hit.time);
    if (hit.time.wYear == 0 || !dayvane::IsValid(time)) {
        return std::nullopt;
    }
    const planner::LocalTime at = planner::LocalOfDate(time);
    const bool isDay = !m_view.row->hasTimes || (hit.nHitCode & (CCHT_ONCELL | CCHT_ONITEM)) == 0;
    if (isDay) {
        const planner::LocalTime start = planner::DayOfTime(at) * planner::kDaySeconds;
        return planner::EventTimes{start, start + planner::kDaySeconds, true};
    }
    return planner::EventTimes{at, at + planner::kHourSeconds, false};
}

void CPlannerFrame::TakeDrop(const planner::DroppedData& data, CPoint screen)
{
    m_editor.Commit();
    if (!data.files.empty()) {
        OpenOrImport(data.files);
        return;
    }
    const auto place = PlaceAt(screen);
    if (!place) {
        return;
    }
    const auto own = Calendars().Find(m_dragged);
    if (!own) {
        FinishMerge(planner::PasteText(Calendars(), data.text, *place));
        return;
    }
    // Out of the window and back: a move, to the day, or to the hour where the view has some
    const bool keepsClock = place->isAllDay || own->times.isAllDay;
    const planner::DayNumber days = planner::DayOfTime(place->start) - planner::DayOfTime(own->times.start);
    const planner::LocalTime shift = keepsClock ? days * planner::kDaySeconds : place->start - own->times.start;
    const planner::EventTimes times = {own->times.start + shift, own->times.end + shift, own->times.isAllDay};
    ChangeItem(own->id, planner::Tr("Which occurrences of this series are to be moved?"),
               [&](planner::Scope scope) { return Calendars().Move(own->id, times, scope); });
}

void CPlannerFrame::BeginDrops()
{
    m_drops = std::make_unique<planner::DropPlace>(
        m_hWnd, [this](CPoint) { return IsWindowEnabled() != FALSE; },
        [this](const planner::DroppedData& data, CPoint screen) { TakeDrop(data, screen); });
}

void CPlannerFrame::OnDestroy()
{
    m_drops.reset();
    m_tip.Destroy();
    m_tray.Hide();
    CFrameWnd::OnDestroy();
}

// ---- The icon beside the clock

void CPlannerFrame::ShowTray(bool isShown)
{
    m_tray.Hide();
    if (isShown) {
        const HICON icon = ::LoadIcon(AfxGetResourceHandle(), MAKEINTRESOURCE(IDR_MAINFRAME));
        m_tray.Show(m_hWnd, icon, planner::Wide(planner::Tr("Planner")).c_str());
    } else if (!IsWindowVisible()) {
        ShowWindow(SW_RESTORE);
    }
}

void CPlannerFrame::OnTray()
{
    m_usesTray = !m_usesTray;
    ShowTray(m_usesTray != FALSE);
}

void CPlannerFrame::OnUpdateTray(CCmdUI* pCmdUI)
{
    pCmdUI->SetCheck(m_usesTray);
}

LRESULT CPlannerFrame::OnTaskBarMade(WPARAM, LPARAM)
{
    ShowTray(m_usesTray != FALSE);
    return 0;
}

void CPlannerFrame::OnSize(UINT nType, int cx, int cy)
{
    CFrameWnd::OnSize(nType, cx, cy);
    if (nType == SIZE_MINIMIZED && m_tray.IsShown()) {
        ShowWindow(SW_HIDE);                                         // off the task bar; the icon brings it back
    } else if (m_statusBar.m_hWnd && dayvane::IsValid(m_followed)) { // the panes have lost their texts
        Follow();
        ShowStatus(m_statusText);
    }
}

LRESULT CPlannerFrame::OnTrayMessage(WPARAM, LPARAM lParam)
{
    if (lParam == WM_LBUTTONUP || lParam == WM_LBUTTONDBLCLK) {
        ShowWindow(SW_RESTORE);
        SetForegroundWindow();
    } else if (lParam == WM_RBUTTONUP) {
        const HMENU menu = ::CreatePopupMenu();
        ::AppendMenuW(menu, MF_STRING, ID_TRAY_OPEN, planner::Wide(planner::Tr("&Open the planner")).c_str());
        ::AppendMenuW(menu, MF_STRING, ID_APP_EXIT, planner::Wide(planner::Tr("E&xit")).c_str());
        CPoint point;
        ::GetCursorPos(&point);
        SetForegroundWindow(); // else the menu stays when the user presses elsewhere
        const int chosen = ::TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY, point.x, point.y, 0, m_hWnd, nullptr);
        ::DestroyMenu(menu);
        if (chosen == ID_TRAY_OPEN) {
            ShowWindow(SW_RESTORE);
        } else if (chosen != 0) {
            PostMessage(WM_COMMAND, static_cast<WPARAM>(chosen));
        }
    }
    return 0;
}
