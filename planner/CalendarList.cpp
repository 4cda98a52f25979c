#include "planner/CalendarList.h"

#include "core/DrawingHelpers.h"
#include "core/ThemeColors.h"
#include "planner/ItemBridge.h"
#include "planner/WideText.h"
#include "planner/Words.h"

namespace {

// Pixels at 96 dpi
constexpr int kLineHeight = 20;
constexpr int kBoxSize = 13;
constexpr int kGap = 5;
constexpr int kTickWidth = 2;

} // namespace

BEGIN_MESSAGE_MAP(CCalendarList, CListBox)
ON_WM_KEYDOWN()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_WM_CONTEXTMENU()
ON_WM_CTLCOLOR_REFLECT()
END_MESSAGE_MAP()

BOOL CCalendarList::Create(CWnd* pParent, UINT nID)
{
    const DWORD style = WS_CHILD | WS_TABSTOP | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT;
    if (!CListBox::Create(style, CRect(0, 0, 0, 0), pParent, nID)) {
        return FALSE;
    }
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(::GetStockObject(DEFAULT_GUI_FONT)));
    SendMessage(LB_SETITEMHEIGHT, 0, LineHeight());
    return TRUE;
}

int CCalendarList::LineHeight() const
{
    return m_scale.Of(kLineHeight);
}

int CCalendarList::Height() const
{
    return LineHeight() * static_cast<int>(m_members.size());
}

void CCalendarList::Show(const planner::CalendarSet& calendars)
{
    const int current = std::max(GetCurSel(), 0);
    m_members = calendars.Members();
    m_target = calendars.Target();
    ResetContent();
    for (const planner::CalendarSet::Member& member : m_members) { // for programs that read aloud
        AddString(planner::SystemOf(member.name));
    }
    SetCurSel(std::min<int>(current, GetCount() - 1));
    Invalidate();
}

void CCalendarList::SetTheme(const CalendarTheme& theme)
{
    m_theme = theme;
    m_ground.DeleteObject();
    m_ground.CreateSolidBrush(planner::ListColors(theme).ground);
    Invalidate();
}

void CCalendarList::SetScale(int dpi)
{
    m_scale.dpi = dpi;
    m_font.Show(*this, dpi);
    SendMessage(LB_SETITEMHEIGHT, 0, LineHeight());
}

CRect CCalendarList::BoxOf(const CRect& line) const
{
    const int size = m_scale.Of(kBoxSize), top = line.top + (line.Height() - size) / 2;
    return CRect(CPoint(line.left + m_scale.Of(kGap), top), CSize(size, size));
}

// ---- Paint

void CCalendarList::DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct)
{
    const std::size_t index = lpDrawItemStruct->itemID;
    if (index >= m_members.size()) {
        return;
    }
    CDC& dc = *CDC::FromHandle(lpDrawItemStruct->hDC);
    const dayvane::SaveDcScope saved(&dc);
    const planner::CalendarSet::Member& member = m_members[index];
    const CRect line(lpDrawItemStruct->rcItem);
    const planner::PaneColors colors = planner::ListColors(m_theme);
    const bool isCurrent = (lpDrawItemStruct->itemState & ODS_SELECTED) != 0 && ::GetFocus() == m_hWnd;
    const COLORREF ground =
        isCurrent ? dayvane::ThemeOr(m_theme.selection, ::GetSysColor(COLOR_HIGHLIGHT)) : colors.ground;
    dc.FillSolidRect(&line, ground);
    const CRect box = BoxOf(line);
    const planner::ItemColors& own = planner::PaletteColors(member.color);
    dc.FillSolidRect(&box, member.color == planner::CalendarSet::kByCategory ? colors.text : own.outline);
    CRect inner(box);
    inner.DeflateRect(m_scale.Of(1), m_scale.Of(1));
    dc.FillSolidRect(&inner, own.back);
    if (member.isShown) {
        CPen pen(PS_SOLID, m_scale.Of(kTickWidth), own.text);
        const dayvane::SelectGdi selectPen(&dc, &pen);
        dc.MoveTo(inner.left + inner.Width() / 5, inner.top + inner.Height() / 2);
        dc.LineTo(inner.left + 2 * inner.Width() / 5, inner.bottom - inner.Height() / 4);
        dc.LineTo(inner.right - inner.Width() / 6, inner.top + inner.Height() / 5);
    }
    CRect text(line);
    text.left = box.right + m_scale.Of(kGap);
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(isCurrent ? dayvane::ThemeOr(m_theme.selectionText, ::GetSysColor(COLOR_HIGHLIGHTTEXT))
                              : colors.text);
    const std::string name = (index == m_target ? "+ " : "") + member.name;
    ::DrawTextW(dc, planner::Wide(name).c_str(), -1, &text, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    if (isCurrent) {
        dc.DrawFocusRect(&line);
    }
}

HBRUSH CCalendarList::CtlColor(CDC*, UINT)
{
    return static_cast<HBRUSH>(m_ground.GetSafeHandle());
}

// ---- Input

void CCalendarList::Request(CalendarAction action, int index)
{
    if (index >= 0) {
        GetParentFrame()->SendMessage(WM_PLANNER_CALENDAR, static_cast<WPARAM>(action), index);
    }
}

int CCalendarList::LineAt(CPoint point) const
{
    const int line = point.y / std::max(LineHeight(), 1) + GetTopIndex();
    return point.y >= 0 && line < GetCount() ? line : -1;
}

void CCalendarList::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    switch (nChar) {
    case VK_SPACE:
        Request(CalendarAction::Toggle, GetCurSel());
        break;
    case VK_RETURN:
        Request(CalendarAction::Target, GetCurSel());
        break;
    case VK_DELETE:
        Request(CalendarAction::Close, GetCurSel());
        break;
    default:
        CListBox::OnKeyDown(nChar, nRepCnt, nFlags);
        break;
    }
}

void CCalendarList::OnLButtonDown(UINT nFlags, CPoint point)
{
    CListBox::OnLButtonDown(nFlags, point);
    const int line = LineAt(point);
    if (line >= 0 && point.x < m_scale.Of(kBoxSize + 2 * kGap)) {
        Request(CalendarAction::Toggle, line);
    }
}

void CCalendarList::OnLButtonDblClk(UINT nFlags, CPoint point)
{
    const int line = LineAt(point);
    if (point.x < m_scale.Of(kBoxSize + 2 * kGap)) {
        OnLButtonDown(nFlags, point);
    } else {
        Request(CalendarAction::Target, line);
    }
}

void CCalendarList::OnContextMenu(CWnd*, CPoint point)
{
    CPoint place(point);
    ScreenToClient(&place);
    const int line = point.x == -1 && point.y == -1 ? GetCurSel() : LineAt(place);
    if (line >= 0) {
        SetCurSel(line);
        Request(CalendarAction::Menu, line);
    }
}
