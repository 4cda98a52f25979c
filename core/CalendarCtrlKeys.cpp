// The base control's keys of the options keyboardMoves and typeToEdit. Items move through the pointer's tracker: a key
// lifts the item, further keys carry it, a pause or Ctrl+Enter drops it.
#include "core/CalendarCtrl.h"

#include "core/DateMath.h"
#include "core/InPlaceEdit.h"
#include "core/Interaction.h"
#include "core/KeyMoves.h"
#include "core/PointerDriver.h"

#include <imm.h>

#include <algorithm>
#include <iterator>

using namespace dayvane;

namespace {

constexpr UINT kCarryMilliseconds = 800; // without a key: the item is where it is meant to be
constexpr UINT kFirstCharacter = ' ' + 1;
constexpr UINT kDeleteCharacter = 0x7F; // that Ctrl+Backspace makes

bool IsDown(int key)
{
    return ::GetKeyState(key) < 0;
}

bool ArrowOf(WPARAM key, KeyArrow& arrow)
{
    arrow = static_cast<KeyArrow>(key - VK_LEFT); // in the order of the keys
    return key >= VK_LEFT && key <= VK_DOWN;
}

bool IsModifier(WPARAM key)
{
    return key == VK_SHIFT || key == VK_CONTROL || key == VK_MENU || key == VK_CAPITAL || key == VK_NUMLOCK ||
           key == VK_LWIN || key == VK_RWIN;
}

bool IsTypedCharacter(UINT character)
{
    return character >= kFirstCharacter && character != kDeleteCharacter && !IsDown(VK_MENU) && !IsDown(VK_CONTROL);
}

bool IsWholeDayTimes(CCalendarCtrl& ctrl, const ItemTimes& times)
{
    tagCALENDAR_ITEM item;
    item.dtStart = times.start;
    item.dtEnd = times.end;
    item.nFullday = times.fullday;
    return ctrl.IsFulldayItem(item) != FALSE;
}

struct RequestKey
{
    WPARAM key;
    bool control;
    bool shift;
    int request;
};
constexpr RequestKey kRequestKeys[] = {
    {'C', true, false, CCN_COPY},          {VK_INSERT, true, false, CCN_COPY}, {'X', true, false, CCN_CUT},
    {VK_DELETE, false, true, CCN_CUT},     {'V', true, false, CCN_PASTE},      {VK_INSERT, false, true, CCN_PASTE},
    {'D', true, false, CCN_DUPLICATE},     {'G', true, false, CCN_GOTODATE},   {VK_F2, false, false, CCN_RENAME},
    {VK_DELETE, false, false, CCN_DELETE},
};

} // namespace

// ---- Moves

BOOL CCalendarCtrl::IsCarrying() const
{
    return m_pointer->Tracker().IsCarried();
}

KeyStep CCalendarCtrl::GetKeyStep(KeyArrow arrow, bool)
{
    constexpr int kDays[] = {-1, -kDaysPerWeek, 1, kDaysPerWeek}; // by KeyArrow
    return {KeyStep::DAYS, kDays[static_cast<int>(arrow)]};
}

void CCalendarCtrl::RefuseMove()
{
    ::MessageBeep(MB_OK);
    if (const std::shared_ptr<WindowAccess> access = m_access.Get()) {
        access->CannotMove();
    }
}

// A drag by the mouse that is under way keeps the item.
BOOL CCalendarCtrl::BeginCarry()
{
    if (IsCarrying()) {
        return !m_pointer->Tracker().IsDropping();
    }
    if (m_pointer->Tracker().IsBusy()) {
        return FALSE;
    }
    const WindowAlive alive(this, m_life);
    const int item = m_nCurSel;
    const unsigned version = m_nItemVersion;
    const tagCCHITTESTINFO hit = KeyboardHit();
    const bool isAllowed =
        IsItemMovable(item) == 1 && Notify(CCN_BEGINMOVE, item, 0, hit.pt, hit.time, hit.nHitCode) == 0;
    if (!alive) {
        return FALSE;
    }
    if (!isAllowed || item != m_nCurSel || version != m_nItemVersion) {
        RefuseMove();
        return FALSE;
    }
    LiftCurrentItem();
    return TRUE;
}

void CCalendarCtrl::MoveItemByKey(KeyArrow arrow, KeyEdge edge)
{
    const WindowAlive alive(this, m_life);
    if (!BeginCarry() || !alive) {
        return;
    }
    const ItemTimes from = m_pointer->Tracker().LastPut();
    ItemTimes to;
    if (!dayvane::MoveByKey(from, GetKeyStep(arrow, IsWholeDayTimes(*this, from)), edge, GetMoveStepMinutes(), to)) {
        RefuseMove();
    } else {
        const COleDateTime shown = edge == KeyEdge::End ? to.end : to.start;
        CarryItem(to, shown);
        if (!alive || !IsCarrying()) {
            return;
        }
        ShowMoved(shown, IsWholeDayTimes(*this, to));
        const std::shared_ptr<WindowAccess> access = alive ? m_access.Get() : nullptr;
        if (access) {
            access->ItemMoved(to, edge == KeyEdge::Whole);
        }
    }
    if (alive && m_hWnd && IsCarrying()) {
        SetTimer(kCarryTimer, kCarryMilliseconds, nullptr);
    }
}

// ---- Keys

// Whether the key is one of the options'; the window may be gone then.
BOOL CCalendarCtrl::TakeOptionKey(WPARAM nKey)
{
    if (IsModifier(nKey)) {
        return FALSE;
    }
    const bool control = IsDown(VK_CONTROL);
    const bool shift = IsDown(VK_SHIFT);
    const bool alt = IsDown(VK_MENU);
    KeyArrow arrow;
    if (ArrowOf(nKey, arrow) && m_nCurSel >= 0 && m_nCurSel < GetItemCount() && (control != alt) &&
        (control || shift)) {
        MoveItemByKey(arrow, alt ? KeyEdge::Start : shift ? KeyEdge::End : KeyEdge::Whole);
        return TRUE;
    }
    if (IsCarrying()) {
        if (nKey == VK_ESCAPE) {
            CancelTracking();
            return TRUE;
        }
        const WindowAlive alive(this, m_life);
        DropCarriedItem();
        if (!alive || (nKey == VK_RETURN && control)) {
            return TRUE;
        }
    }
    if (!alt && (nKey == VK_F6 || (nKey == VK_TAB && control))) {
        StepPlace(shift);
        return TRUE;
    }
    if (!control && !shift && !alt && TakePlaceKey(nKey)) {
        return TRUE;
    }
    if (nKey == VK_F10 && shift && !control && !alt) {
        SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(m_hWnd), -1);
        return TRUE;
    }
    return !alt && TakeRequestKey(nKey, control, shift);
}

BOOL CCalendarCtrl::TakeRequestKey(WPARAM nKey, BOOL bControl, BOOL bShift)
{
    const auto found = std::find_if(std::begin(kRequestKeys), std::end(kRequestKeys), [&](const RequestKey& row) {
        return row.key == nKey && row.control == (bControl != FALSE) && row.shift == (bShift != FALSE);
    });
    if (found == std::end(kRequestKeys) || (found->request == CCN_DELETE && m_nCurSel == -1)) {
        return FALSE;
    }
    const tagCCHITTESTINFO hit = KeyboardHit();
    Notify(found->request, hit.nItem, 0, hit.pt, hit.time, hit.nHitCode);
    return TRUE;
}

// ---- Typing

// Opens the edit box for what is typed next. A host that opens one itself, for it keeps what is edited, comes first.
BOOL CCalendarCtrl::BeginTyping(UINT nChar)
{
    if (m_pEdit || m_pointer->Tracker().IsBusy()) {
        return m_pEdit != nullptr;
    }
    const WindowAlive alive(this, m_life);
    const tagCCHITTESTINFO hit = KeyboardHit();
    const LRESULT refused = Notify(CCN_RENAME, hit.nItem, static_cast<int>(nChar), hit.pt, hit.time, hit.nHitCode);
    if (!alive || (refused && !m_pEdit)) {
        return FALSE;
    }
    if (!m_pEdit) {
        BeginEditItem("");
    }
    if (!alive || !m_pEdit) {
        return FALSE;
    }
    m_pEdit->SetSel(0, -1); // what is typed takes the place of the old text
    return TRUE;
}

// While keys carry an item its keys come before the host's accelerators; any other key ends that before it becomes a
// command. TRUE: the key is handled.
BOOL CCalendarCtrl::TakeCarryKey(const MSG& msg)
{
    const bool isKey = msg.message == WM_KEYDOWN || msg.message == WM_SYSKEYDOWN;
    if (!isKey || msg.hwnd != m_hWnd || !IsCarrying() || IsModifier(msg.wParam)) {
        return FALSE;
    }
    const WindowAlive alive(this, m_life);
    KeyArrow arrow;
    if (ArrowOf(msg.wParam, arrow) || msg.wParam == VK_RETURN || msg.wParam == VK_ESCAPE) {
        SendMessage(msg.message, msg.wParam, msg.lParam);
        return TRUE;
    }
    DropCarriedItem();
    return !alive;
}

// Typing is taken before the key is translated, so that the composition begins in the edit box and not in this window.
BOOL CCalendarCtrl::PreTranslateMessage(MSG* pMsg)
{
    if (m_options.keyboardMoves && TakeCarryKey(*pMsg)) {
        return TRUE;
    }
    const bool isPlaceKey = pMsg->wParam == VK_F6 || (pMsg->wParam == VK_TAB && IsDown(VK_CONTROL));
    if (m_options.keyboardMoves && pMsg->hwnd != m_hWnd && pMsg->message == WM_KEYDOWN && isPlaceKey && !m_pEdit) {
        m_interaction->place = ViewPlace::Title; // it came from a window in the title
        SetFocus();
        StepPlace(IsDown(VK_SHIFT));
        return TRUE;
    }
    if (m_options.typeToEdit && pMsg->hwnd == m_hWnd && pMsg->message == WM_KEYDOWN && pMsg->wParam == VK_PROCESSKEY &&
        BeginTyping(VK_PROCESSKEY)) {
        pMsg->hwnd = m_pEdit->m_hWnd;
        return FALSE;
    }
    return CWnd::PreTranslateMessage(pMsg);
}

// For message loops that do not ask PreTranslateMessage: what the input method sends goes on to the box.
BOOL CCalendarCtrl::ForwardTyping(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    switch (message) {
    case WM_CHAR:
        if (!m_pEdit && !IsTypedCharacter(static_cast<UINT>(wParam))) {
            return FALSE;
        }
        break;
    case WM_KEYDOWN:
        if (wParam != VK_PROCESSKEY) {
            return FALSE;
        }
        result = 0; // the composition opens the box
        return TRUE;
    case WM_IME_STARTCOMPOSITION:
    case WM_IME_CHAR:
        break;
    case WM_IME_COMPOSITION:
    case WM_IME_ENDCOMPOSITION:
        if (!m_pEdit) {
            return FALSE;
        }
        break;
    default:
        return FALSE;
    }
    const WindowAlive alive(this, m_life);
    const bool isOpen = BeginTyping(static_cast<UINT>(wParam)) != FALSE;
    result = 0;
    if (alive && isOpen) {
        result = m_pEdit->SendMessage(message, wParam, lParam);
    }
    return TRUE;
}

// ---- What programs that read aloud do, as the mouse would

BOOL CCalendarCtrl::ClickAt(const tagCCHITTESTINFO& from, const tagCCHITTESTINFO& to)
{
    const WindowAlive alive(this, m_life);
    if (m_pointer->Tracker().IsBusy() && !IsCarrying()) {
        return FALSE; // the mouse holds something
    }
    SetFocus(); // may end an edit, and so run the host's code
    if (!alive) {
        return FALSE;
    }
    const unsigned version = m_nItemVersion;
    Notify(CCN_ITEMCLICK, from.nItem, 0, from.pt, from.time, from.nHitCode);
    if (!alive || version != m_nItemVersion) {
        return FALSE;
    }
    Press(from, 0);
    if (!alive) {
        return FALSE;
    }
    ReleaseAt(to);
    return static_cast<bool>(alive);
}

BOOL CCalendarCtrl::SetCurrentText(const wchar_t* text)
{
    const WindowAlive alive(this, m_life);
    if (!BeginTyping(0) || !alive) {
        return FALSE;
    }
    ::SetWindowTextW(*m_pEdit, text);
    FinishEdit(TRUE);
    return TRUE;
}
