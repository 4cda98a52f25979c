#include "access/CalendarWindowAccess.h"

#include "calc/DayProvider.h"
#include "core/DateMath.h"
#include "core/DayLines.h"
#include "core/Interaction.h"
#include "core/KeyMoves.h"
#include "core/MoreListCtrl.h"
#include "core/TextCodec.h"

namespace dayvane {
namespace {

constexpr DWORD kLiveRegionChanged = 0x8019; // EVENT_OBJECT_LIVEREGIONCHANGED of Windows 8 and later
constexpr LPARAM kFirstRepeat = 1;           // of a posted key

bool IsOfCell(AccessPart part)
{
    return part == AccessPart::Cell || part == AccessPart::WholeDay || part == AccessPart::Row;
}

} // namespace

// ---- Texts

std::string Utf8OfItemText(const CCalendarCtrl& ctrl, const CString& text)
{
    return EncodeText(DecodeText(text, ctrl.GetTextCodePage()), kUtf8CodePage);
}

std::string NamesOfDay(const DayProvider* days, const COleDateTime& day, const CalendarTexts& words,
                       const AccessTexts& texts, bool showNames)
{
    if (!IsValid(day)) {
        return std::string();
    }
    const DayInfo info = (days ? days : &StandardDayProvider())->InfoOf(CivilDateOf(day));
    const std::string names = showNames ? NamesText(info) : std::string();
    if (names.empty()) {
        return info.isDayOff ? texts.dayOff : std::string();
    }
    return EncodeText(DayNamesText(words, DecodeText(std::string_view(names), kUtf8CodePage)), kUtf8CodePage);
}

// ---- The tree

std::vector<long long> CalendarWindowAccess::Contents()
{
    const CRect client = ClientRect();
    const CWnd* child = m_pCtrl->GetWindow(GW_CHILD);
    return {static_cast<long long>(m_pCtrl->m_nItemVersion),
            static_cast<long long>(m_pCtrl->m_nLayoutVersion),
            m_pCtrl->m_nVertScroll,
            client.Width(),
            client.Height(),
            m_pCtrl->m_bShowCaption,
            m_announcements,
            reinterpret_cast<INT_PTR>(child ? child->m_hWnd : nullptr)};
}

AccessTree CalendarWindowAccess::MakeTree()
{
    m_itemNames.clear();
    m_parts = ViewParts();
    m_parts.client = ClientRect();
    m_pCtrl->DescribeParts(m_parts);
    AccessTree tree = MakeViewTree(m_parts);
    AddChildWindows(tree);
    if (!m_announcement.empty()) {
        AccessNode node;
        node.id.part = AccessPart::Announcement;
        node.box = m_parts.title;
        node.layer = -1; // under everything: it has no place of its own
        tree.Add(0, node);
    }
    return tree;
}

void CalendarWindowAccess::AddChildWindows(AccessTree& tree) const
{
    for (HWND child = ::GetWindow(Handle(), GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
        if ((::GetWindowLong(child, GWL_STYLE) & WS_VISIBLE) == 0) {
            continue;
        }
        CRect box;
        ::GetWindowRect(child, &box);
        ::MapWindowPoints(nullptr, Handle(), reinterpret_cast<POINT*>(&box), 2);
        AccessNode node;
        node.id = {AccessPart::Child, 0, static_cast<int>(reinterpret_cast<INT_PTR>(child))};
        node.box = box;
        node.layer = 1;
        tree.Add(0, node);
    }
}

// Of a day its names, what the sky says of it where that is shown, and the host's text; of a month its days off where
// they are shown.
std::string CalendarWindowAccess::DescriptionOf(const COleDateTime& first)
{
    const DayProvider* days = m_pCtrl->m_pDayProvider ? m_pCtrl->m_pDayProvider : DefaultDayProvider();
    const DayLines& lines = m_pCtrl->m_dayLines;
    const bool isMonth = m_parts.kind == ViewKind::Year;
    std::vector<DayPiece> pieces;
    std::vector<std::string> said;
    if (isMonth) {
        pieces = lines.HasLines() ? DaysOffOfMonth(first, days, lines) : pieces;
    } else {
        said.push_back(NamesOfDay(days, first, m_pCtrl->GetTexts(), Texts(), m_pCtrl->m_bShowHoliday != FALSE));
        pieces = lines.HasSky() ? PiecesOfDay(first, days, lines) : pieces;
    }
    for (const DayPiece& piece : pieces) {
        if (isMonth || piece.kind == DayPiece::Kind::Sky) {
            said.push_back(EncodeText(piece.text, kUtf8CodePage));
        }
    }
    const int cell = CellOfDate(m_parts, first);
    said.push_back(cell == -1 ? std::string() : EncodeText(m_parts.cells[cell].hostText, kUtf8CodePage));
    return Joined(said, Texts().between);
}

ViewSpeech CalendarWindowAccess::Speech()
{
    const CCalendarCtrl* ctrl = m_pCtrl;
    return {Texts(),
            m_parts,
            LastTree(),
            ctrl->m_arItem,
            m_itemNames,
            Now(),
            [ctrl](const CString& text) { return Utf8OfItemText(*ctrl, text); },
            [this](const COleDateTime& first) { return DescriptionOf(first); },
            m_announcement};
}

AccessWords CalendarWindowAccess::WordsOf(int node)
{
    if (LastTree().At(node).id.part == AccessPart::Child) {
        AccessWords words;
        wchar_t text[128] = L"";
        const HWND child = reinterpret_cast<HWND>(static_cast<INT_PTR>(LastTree().At(node).id.index));
        ::GetClassNameW(child, text, 128);
        words.name = Utf8FromWide(text);
        return words;
    }
    return Speech().WordsOf(node);
}

long CalendarWindowAccess::StateOf(int node)
{
    const AccessNode each = LastTree().At(node);
    long state = AccessWindow::StateOf(node);
    if (each.id.part == AccessPart::Root) {
        state |= STATE_SYSTEM_EXTSELECTABLE | STATE_SYSTEM_MULTISELECTABLE;
    }
    if (each.id.part == AccessPart::Item && m_pCtrl->IsItemMovable(each.id.index) == 1) {
        state |= STATE_SYSTEM_MOVEABLE;
    }
    if (each.id.part == AccessPart::Title || each.id.part == AccessPart::ColumnHeader) {
        state |= STATE_SYSTEM_READONLY;
    }
    if (each.id.part == AccessPart::Mark) {
        state |= STATE_SYSTEM_HASPOPUP;
    }
    if ((each.id.part == AccessPart::Mark || each.id.part == AccessPart::Title) && m_pCtrl->m_options.keyboardMoves) {
        state |= STATE_SYSTEM_FOCUSABLE;
    }
    return state;
}

// ---- Focus and selection

// An item of several days has the focus where the selection ends, else where it begins.
AccessId CalendarWindowAccess::Focus()
{
    const AccessTree& tree = Tree();
    const ViewPlace place = m_pCtrl->m_interaction->place;
    const int mark = m_pCtrl->m_interaction->mark;
    if (place == ViewPlace::Title && tree.Find({AccessPart::Title, 0, 0}) != kNoNode) {
        return {AccessPart::Title, 0, 0};
    }
    if (place == ViewPlace::Mark && mark < static_cast<int>(m_parts.marks.size())) {
        return {AccessPart::Mark, KeyOfCell(m_parts, m_parts.marks[mark].cell), mark};
    }
    const AccessId cursor = PartOfSelection(m_parts, m_pCtrl->m_dtSelEnd, m_pCtrl->m_bFulldaySelection != FALSE);
    const int item = m_pCtrl->GetCurSel();
    if (item < 0 || item >= m_pCtrl->GetItemCount()) {
        return cursor;
    }
    if (cursor.part != AccessPart::Root && tree.Find({AccessPart::Item, cursor.key, item}) != kNoNode) {
        return {AccessPart::Item, cursor.key, item};
    }
    for (int cell = 0; cell < static_cast<int>(m_parts.cells.size()); ++cell) {
        const AccessId id = {AccessPart::Item, KeyOfCell(m_parts, cell), item};
        if (tree.Find(id) != kNoNode) {
            return id;
        }
    }
    return cursor;
}

std::vector<AccessId> CalendarWindowAccess::Selection()
{
    const AccessId focus = Focus();
    if (focus.part == AccessPart::Item) {
        return {focus};
    }
    if (m_pCtrl->m_dtSelBegin.m_dt == 0.0 || m_pCtrl->m_dtSelEnd.m_dt == 0.0) {
        return {};
    }
    return SelectedParts(m_parts, m_pCtrl->m_dtSelBegin, m_pCtrl->m_dtSelEnd, m_pCtrl->m_bFulldaySelection != FALSE);
}

// ---- Actions

// What the hit test would give for the part, also where another part lies over it.
tagCCHITTESTINFO CalendarWindowAccess::HitOf(int node)
{
    const AccessNode& each = LastTree().At(node);
    tagCCHITTESTINFO hit;
    hit.pt = each.box.CenterPoint();
    COleDateTime time = DateOfPart(m_parts, each.id);
    hit.nHitCode = each.id.part == AccessPart::WholeDay ? CCHT_ONFULLDAY : CCHT_ONCELL;
    if (each.id.part == AccessPart::Item) {
        const tagCALENDAR_ITEM& item = m_pCtrl->m_arItem[each.id.index];
        const bool isTimed = m_parts.rows != 0 && !m_pCtrl->IsFulldayItem(item);
        hit.nItem = each.id.index;
        hit.nHitCode = m_parts.rows == 0 || isTimed ? CCHT_ONITEM : CCHT_ONFULLDAYITEM;
        time = isTimed ? item.dtStart : time;
    }
    ToSystemTime(time, hit.time);
    return hit;
}

HRESULT CalendarWindowAccess::Click(int node, long flags)
{
    const AccessId id = LastTree().At(node).id;
    if (!IsOfCell(id.part) && id.part != AccessPart::Item) {
        return DISP_E_MEMBERNOTFOUND;
    }
    if (!::IsWindowEnabled(Handle())) {
        return E_ACCESSDENIED;
    }
    const tagCCHITTESTINFO hit = HitOf(node);
    tagCCHITTESTINFO from = hit;
    if ((flags & SELFLAG_EXTENDSELECTION) && IsOfCell(id.part)) {
        ToSystemTime(m_pCtrl->m_dtSelBegin, from.time);
    }
    return m_pCtrl->ClickAt(from, hit) ? S_OK : E_ACCESSDENIED;
}

HRESULT CalendarWindowAccess::Select(int node, long flags)
{
    const long known = SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION | SELFLAG_EXTENDSELECTION;
    return flags == 0 || (flags & ~known) ? E_INVALIDARG : Click(node, flags);
}

// As Enter on the part: posted, for the host may open a dialog, and the program that asks would wait for its end.
HRESULT CalendarWindowAccess::Act(int node)
{
    const AccessNode each = LastTree().At(node);
    if (each.id.part == AccessPart::Mark) {
        CMoreListCtrl* list = dynamic_cast<CMoreListCtrl*>(m_pCtrl);
        return list && !each.isHidden && list->OpenMoreListAt(each.box.CenterPoint()) ? S_OK : S_FALSE;
    }
    const HWND window = Handle();
    const HRESULT clicked = Click(node, SELFLAG_TAKESELECTION);
    if (clicked == S_OK) {
        ::PostMessage(window, WM_KEYDOWN, VK_RETURN, kFirstRepeat);
    }
    return clicked;
}

HRESULT CalendarWindowAccess::SetValue(int node, const std::wstring& text)
{
    const AccessId id = LastTree().At(node).id;
    if (!HoldsText(std::u16string(text.begin(), text.end()), m_pCtrl->GetTextCodePage())) {
        return E_INVALIDARG;
    }
    const HRESULT clicked = Click(node, SELFLAG_TAKESELECTION);
    if (clicked != S_OK) {
        return clicked;
    }
    // The host has been notified of the click and may have done anything.
    if (!m_pCtrl || (id.part == AccessPart::Item && m_pCtrl->GetCurSel() != id.index)) {
        return E_ACCESSDENIED;
    }
    return m_pCtrl->SetCurrentText(text.c_str()) ? S_OK : E_ACCESSDENIED;
}

// ---- Announcements

void CalendarWindowAccess::Announce(const std::string& text)
{
    m_announcement = text;
    ++m_announcements;
    Tree();
    const AccessId id = {AccessPart::Announcement, 0, 0};
    Notify(EVENT_OBJECT_NAMECHANGE, id);
    Notify(kLiveRegionChanged, id);
    Notify(EVENT_SYSTEM_ALERT, id);
}

void CalendarWindowAccess::ItemMoved(const ItemTimes& times, bool isWholeItem)
{
    Tree();
    Announce(Speech().Moved(times.start, times.end, times.fullday == 1, isWholeItem));
}

void CalendarWindowAccess::CannotMove()
{
    Announce(Texts().cannotMove);
}

} // namespace dayvane
