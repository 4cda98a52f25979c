#include "access/AccessWindow.h"

#include "access/AccessObject.h"
#include "access/AutomationObject.h"

#include <algorithm>
#include <utility>

namespace dayvane {
namespace {

constexpr LONG kAutomationRoot = -25;  // UiaRootObjectId
constexpr size_t kMostChildIds = 4096; // deeper parts that events have named; clients ask at once

long RoleOfPart(AccessPart part)
{
    switch (part) {
    case AccessPart::Root:
    case AccessPart::Period:
        return ROLE_SYSTEM_TABLE;
    case AccessPart::Announcement:
        return ROLE_SYSTEM_ALERT;
    case AccessPart::ColumnHeader:
        return ROLE_SYSTEM_COLUMNHEADER;
    case AccessPart::Cell:
    case AccessPart::WholeDay:
    case AccessPart::Row:
        return ROLE_SYSTEM_CELL;
    case AccessPart::Item:
    case AccessPart::Entry:
        return ROLE_SYSTEM_LISTITEM;
    case AccessPart::Mark:
    case AccessPart::Previous:
    case AccessPart::Next:
    case AccessPart::Now:
        return ROLE_SYSTEM_PUSHBUTTON;
    case AccessPart::Child:
        return ROLE_SYSTEM_WINDOW;
    default:
        return ROLE_SYSTEM_STATICTEXT;
    }
}

bool CanBeSelected(AccessPart part)
{
    return part == AccessPart::Cell || part == AccessPart::WholeDay || part == AccessPart::Row ||
           part == AccessPart::Item || part == AccessPart::Entry;
}

} // namespace

// COM stays on for the thread: a program may hold objects as long as it likes, and the end of this window may come
// while the system serves one of their calls.
AccessWindow::AccessWindow(CWnd& window) : m_hWnd(window.m_hWnd)
{
    static thread_local const HRESULT begun = ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    (void)begun;
}

bool AccessWindow::IsQuestion(UINT message, LPARAM lParam)
{
    // Object identifiers are 32 bits wide, also in a 64-bit parameter.
    const LONG object = static_cast<LONG>(lParam);
    return message == WM_GETOBJECT && (object == OBJID_CLIENT || object == kAutomationRoot);
}

void AccessWindow::Disconnect()
{
    m_hWnd = nullptr;
    Gone();
}

LRESULT AccessWindow::GetObject(WPARAM wParam, LPARAM lParam)
{
    if (m_announced.contents.empty()) {
        m_announced = LookAround(); // what is so now is no news
    }
    if (static_cast<LONG>(lParam) != OBJID_CLIENT) {
        m_isAutomated = true;
        return AnswerWithAutomation(shared_from_this(), wParam, lParam);
    }
    return AnswerWithObject(shared_from_this(), wParam);
}

CRect AccessWindow::ClientRect() const
{
    CRect client(0, 0, 0, 0);
    ::GetClientRect(m_hWnd, &client);
    return client;
}

const AccessTree& AccessWindow::Tree()
{
    std::vector<long long> contents = Contents();
    if (!m_tree || contents != m_treeContents) {
        m_tree = std::make_unique<AccessTree>(MakeTree());
        m_treeContents = std::move(contents);
    }
    return *m_tree;
}

long AccessWindow::RoleOf(int node)
{
    return RoleOfPart(LastTree().At(node).id.part);
}

bool AccessWindow::HasFocus() const
{
    return IsPopup() || ::GetFocus() == m_hWnd;
}

long AccessWindow::StateOf(int node)
{
    const AccessNode each = LastTree().At(node);
    long state = 0;
    if (!::IsWindowEnabled(m_hWnd)) {
        state |= STATE_SYSTEM_UNAVAILABLE;
    }
    if (each.isHidden) {
        state |= STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE;
    }
    if (each.id.part == AccessPart::Root) {
        state |= STATE_SYSTEM_FOCUSABLE;
    }
    if (CanBeSelected(each.id.part)) {
        state |= STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_FOCUSABLE;
        const std::vector<AccessId> selection = Selection();
        if (std::find(selection.begin(), selection.end(), each.id) != selection.end()) {
            state |= STATE_SYSTEM_SELECTED;
        }
    }
    if (HasFocus() && Focus() == each.id) {
        state |= STATE_SYSTEM_FOCUSED;
    }
    return state;
}

HRESULT AccessWindow::Select(int, long)
{
    return DISP_E_MEMBERNOTFOUND;
}

HRESULT AccessWindow::Act(int)
{
    return DISP_E_MEMBERNOTFOUND;
}

HRESULT AccessWindow::SetValue(int, const std::wstring&)
{
    return DISP_E_MEMBERNOTFOUND;
}

HRESULT AccessWindow::ClickCentre(int node)
{
    const AccessNode& each = LastTree().At(node);
    if (each.isHidden) {
        return S_FALSE;
    }
    if (!::IsWindowEnabled(m_hWnd)) {
        return E_ACCESSDENIED;
    }
    const CPoint centre = each.box.CenterPoint();
    const HWND window = m_hWnd;
    ::SendMessage(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(centre.x, centre.y));
    if (m_hWnd == window) {
        ::SendMessage(window, WM_LBUTTONUP, 0, MAKELPARAM(centre.x, centre.y));
    }
    return S_OK;
}

// ---- Numbers of parts

long AccessWindow::ChildIdOf(const AccessId& id)
{
    const AccessTree& tree = Tree();
    const int node = tree.Find(id);
    if (node == 0 || node == kNoNode) {
        return CHILDID_SELF;
    }
    if (tree.At(node).parent == 0) {
        return tree.At(node).position + 1;
    }
    const auto known = m_childIds.find(id);
    if (known != m_childIds.end()) {
        return known->second;
    }
    if (m_childParts.size() >= kMostChildIds) {
        m_childParts.clear();
        m_childIds.clear();
    }
    m_childParts.push_back(id);
    const long child = -static_cast<long>(m_childParts.size());
    m_childIds.emplace(id, child);
    return child;
}

bool AccessWindow::IdOfChild(long child, AccessId& id) const
{
    const size_t index = static_cast<size_t>(-child - 1);
    if (child >= 0 || index >= m_childParts.size()) {
        return false;
    }
    id = m_childParts[index];
    return true;
}

// ---- Events

void AccessWindow::Notify(DWORD event, const AccessId& id)
{
    if (m_hWnd) {
        ::NotifyWinEvent(event, m_hWnd, OBJID_CLIENT, ChildIdOf(id));
    }
    if (m_hWnd && m_isAutomated) {
        RaiseAutomation(shared_from_this(), event, id);
    }
}

AccessWindow::Announced AccessWindow::LookAround()
{
    Announced now;
    now.hasFocus = HasFocus();
    const AccessTree& tree = Tree();
    now.contents = m_treeContents;
    now.focus = Focus();
    now.selection = Selection();
    now.name = WordsOf(0).name;
    const int node = tree.Find(now.focus);
    if (node > 0) {
        const AccessWords words = WordsOf(node);
        now.focusName = words.name;
        now.focusValue = words.value;
        now.focusBox = tree.At(node).box;
    }
    return now;
}

void AccessWindow::NotifyFocus(const Announced& before, const Announced& now)
{
    if (now.hasFocus && (!before.hasFocus || now.focus != before.focus)) {
        Notify(EVENT_OBJECT_FOCUS, now.focus);
    } else if (now.focus == before.focus) {
        if (now.focusName != before.focusName) {
            Notify(EVENT_OBJECT_NAMECHANGE, now.focus);
        }
        if (now.focusValue != before.focusValue) {
            Notify(EVENT_OBJECT_VALUECHANGE, now.focus);
        }
        if (now.focusBox != before.focusBox) {
            Notify(EVENT_OBJECT_LOCATIONCHANGE, now.focus);
        }
    }
    if (now.selection != before.selection) {
        const bool isOne = now.selection.size() == 1;
        Notify(isOne ? EVENT_OBJECT_SELECTION : EVENT_OBJECT_SELECTIONWITHIN, isOne ? now.selection[0] : AccessId());
    }
}

void AccessWindow::Follow()
{
    if (!m_hWnd || m_isFollowing || m_announced.contents.empty()) {
        return;
    }
    if (m_announced.hasFocus == HasFocus() && m_announced.contents == Contents() && m_announced.focus == Focus() &&
        m_announced.selection == Selection()) {
        return;
    }
    m_isFollowing = true;
    const Announced before = std::exchange(m_announced, LookAround());
    const Announced now = m_announced;
    if (now.contents != before.contents) {
        Notify(EVENT_OBJECT_REORDER, AccessId());
    }
    if (now.name != before.name) {
        Notify(EVENT_OBJECT_NAMECHANGE, AccessId());
    }
    NotifyFocus(before, now);
    m_isFollowing = false;
}

// ---- Texts

const AccessTexts& AccessWindow::Texts()
{
    if (const AccessTexts* texts = ChosenAccessTexts()) {
        return *texts;
    }
    static const CalendarTexts required = CalendarTexts::Required();
    const CalendarTexts& words = Words() ? *Words() : required;
    if (!m_texts || m_words.weekdays != words.weekdays || m_words.months != words.months ||
        m_words.englishDayNames != words.englishDayNames) {
        m_words = words;
        const bool isJapanese = PRIMARYLANGID(::GetUserDefaultUILanguage()) == LANG_JAPANESE;
        m_texts = std::make_unique<AccessTexts>(AccessTextsFor(words, isJapanese));
    }
    return *m_texts;
}

std::wstring WideFromUtf8(const std::string& utf8)
{
    const int length = static_cast<int>(utf8.size());
    std::wstring wide(static_cast<size_t>(::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, nullptr, 0)), L'\0');
    ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, &wide[0], static_cast<int>(wide.size()));
    return wide;
}

std::string Utf8FromWide(const std::wstring& wide)
{
    const int length = static_cast<int>(wide.size());
    std::string utf8(
        static_cast<size_t>(::WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, nullptr, 0, nullptr, nullptr)),
        '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, &utf8[0], static_cast<int>(utf8.size()), nullptr, nullptr);
    return utf8;
}

} // namespace dayvane
