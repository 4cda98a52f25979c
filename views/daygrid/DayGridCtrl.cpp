#include "views/daygrid/DayGridCtrl.h"

#include "core/DateMath.h"
#include "core/DrawingHelpers.h"
#include "core/ItemStore.h"
#include "core/PaintedState.h"
#include "core/ThemeColors.h"
#include "core/WindowHelpers.h"
#include "views/daygrid/BoxPainter.h"
#include "views/daygrid/BoxRange.h"

#include <algorithm>

using namespace dayvane;

namespace {

constexpr UINT kMoreMarkBitmap = 18007;
constexpr COLORREF kTransparent = RGB(255, 0, 255);
constexpr int kMarkGap = 1;    // pixels after a mark of an item
constexpr int kTextGap = 2;    // and more before the text
constexpr int kCellMargin = 2; // pixels around a box that its frame may touch

} // namespace

IMPLEMENT_DYNAMIC(CDayGridCtrl, CMoreListCtrl)

BEGIN_MESSAGE_MAP(CDayGridCtrl, CMoreListCtrl)
ON_WM_DESTROY()
ON_WM_SIZE()
END_MESSAGE_MAP()

// ---- Lifetime

CDayGridCtrl::CDayGridCtrl() : m_parts(std::make_unique<DayGridParts>())
{
}

CFont* CDayGridCtrl::GetSmallLatinFont()
{
    return m_hWnd ? m_parts->fonts.SmallLatin() : nullptr;
}

CDayGridCtrl::~CDayGridCtrl()
{
    DestroyWindow();
    if (m_hMoreMark) {
        ::DestroyIcon(m_hMoreMark);
    }
}

void CDayGridCtrl::OnDestroy()
{
    CCalendarCtrl::OnDestroy();
    m_parts->Clear();
}

void CDayGridCtrl::OnSize(UINT nType, int cx, int cy)
{
    CMoreListCtrl::OnSize(nType, cx, cy);
    Layout(cx, cy);
    ResetScrollBar();
}

void CDayGridCtrl::PreSubclassWindow()
{
    CMoreListCtrl::PreSubclassWindow();
    PreparePainting();
    const CSize size = ClientRectOf(*this).Size(); // of a window that was there before the object
    if (size != CSize(0, 0)) {
        Layout(size.cx, size.cy);
        ResetScrollBar();
    }
}

void CDayGridCtrl::PreparePainting()
{
    if (m_hMoreMark) {
        return;
    }
    CBitmap bitmap;
    CImageList images;
    if (bitmap.LoadBitmap(kMoreMarkBitmap) &&
        images.Create(kMoreMarkWidth, kMoreMarkHeight, ILC_COLOR24 | ILC_MASK, 1, 1) &&
        images.Add(&bitmap, kTransparent) == 0) {
        m_hMoreMark = images.ExtractIcon(0);
    }
}

// ---- Items

void CDayGridCtrl::DeleteAllItems()
{
    ScreenItemsChanged();
    ClearMoreMarks();
    CCalendarCtrl::DeleteAllItems();
}

std::u16string CDayGridCtrl::GetBarText(const tagCALENDAR_ITEM& item, BOOL bFullday)
{
    return BarText(item, bFullday != FALSE, m_nItemDisplayMode, m_texts);
}

const std::vector<int>& CDayGridCtrl::GetShownItems()
{
    if (!m_bShownValid || m_nShownOf != m_arScreenItem.GetSize()) {
        m_shown.clear();
        m_nShownOf = m_arScreenItem.GetSize();
        const tagCALENDAR_ITEM* item = m_arScreenItem.GetData();
        for (int i = 0; i < static_cast<int>(m_nShownOf); ++i, ++item) {
            if (IsShown(*item)) {
                m_shown.push_back(i);
            }
        }
        m_bShownValid = TRUE;
    }
    return m_shown;
}

int CDayGridCtrl::ScreenItemAt(CPoint point, int* pCount)
{
    int found = -1;
    int count = 0;
    for (int i : GetShownItems()) {
        if (IsShown(m_arScreenItem[i]) && m_arScreenItem[i].rcItem.PtInRect(point)) {
            found = found == -1 || m_options.hitWhatIsSeen ? i : found;
            ++count;
        }
    }
    if (pCount) {
        *pCount = count;
    }
    return found;
}

CRect CDayGridCtrl::GetPaintedBox(const tagCALENDAR_ITEM& screenItem)
{
    CRect box = CMoreListCtrl::GetPaintedBox(screenItem);
    box.bottom = std::max<int>(box.bottom, box.top + GetMarksHeight(screenItem));
    return box;
}

void CDayGridCtrl::GetPaintedState(PaintedState& state)
{
    const CRect client = ClientRectOf(*this);
    state.frame = {m_rcCaption, m_rcRuler, m_rcContent};
    if (state.wantsPieces) {
        for (int i : GetShownItems()) {
            const CRect box = GetPaintedBox(m_arScreenItem[i]);
            CRect seen;
            if (seen.IntersectRect(&box, &client)) {
                state.pieces.push_back({box, m_arScreenItem[i]});
            }
        }
    }
    for (int i = 0; i < GetBoxCount(); ++i) {
        if (HasMoreMark(i)) {
            state.marks.push_back({GetMarkBox(i), 1});
        }
    }
}

// ---- Boxes

void CDayGridCtrl::SetDayProperty(COleDateTime date, const tagCALENDAR_DAY_PROPERTY& property)
{
    BoxDayArray* days = GetDays();
    const int box = days ? Range().BoxOf(date) : -1;
    if (box != -1) {
        (*days)[box].m_dayProperty = property;
    }
}

void CDayGridCtrl::ClearDayProperty()
{
    if (BoxDayArray* days = GetDays()) {
        ClearDayProperties(*days);
    }
}

int CDayGridCtrl::GetDayColor(int nBox)
{
    BoxDayArray* days = GetDays();
    return days ? (*days)[nBox].m_dayProperty.nDayColor : 0;
}

int CDayGridCtrl::GetBoxCount() const
{
    return Range().Count();
}

int CDayGridCtrl::BoxAt(CPoint point)
{
    return BoxUnder(
        GetBoxCount(), [this](int i) { return GetBoxRect(i); }, point);
}

int CDayGridCtrl::HitBoxes(tagCCHITTESTINFO& info, CPoint point)
{
    info.nItem = info.nScreenItem = -1;
    info.nHitCode = CCHT_NOWHERE;
    const int box = BoxAt(point);
    if (box == -1) {
        return -1;
    }
    ToSystemTime(Range().DateOfBox(box), info.time);
    info.nScreenItem = ScreenItemAt(point);
    if (info.nScreenItem != -1) {
        info.nItem = static_cast<int>(m_arScreenItem[info.nScreenItem].nSource);
    }
    if (point.y < GetBoxRect(box).top + GetHitStripHeight()) {
        info.nHitCode = CCHT_ONDAYCAPTION;
    } else {
        info.nHitCode = info.nItem != -1 ? CCHT_ONITEM : CCHT_ONCELL;
    }
    return info.nItem;
}

void CDayGridCtrl::InvalidateCellRect(COleDateTime date)
{
    const int box = Range().BoxOf(date);
    if (box == -1 || !m_hWnd) {
        return;
    }
    CRect rect = GetBoxRect(box);
    rect.InflateRect(m_scale.Of(kCellMargin), m_scale.Of(kCellMargin));
    InvalidateRect(&rect, FALSE);
}

// The boxes of the selection, and those that it is just leaving.
void CDayGridCtrl::InvalidateCellRectRange()
{
    COleDateTime begin;
    COleDateTime end;
    if (!m_hWnd || !GetSelRange(begin, end)) {
        return;
    }
    const BoxRange range = Range();
    int first = range.PositionOf(begin);
    int last = range.PositionOf(end);
    if (IsValid(m_dtPrevSelEnd)) {
        first = std::min(first, range.PositionOf(m_dtPrevSelEnd));
        last = std::max(last, range.PositionOf(m_dtPrevSelEnd));
    }
    for (int i = std::max(first, 0); i <= std::min(last, range.Count() - 1); ++i) {
        const CRect rect = GetBoxRect(i);
        InvalidateRect(&rect, FALSE);
    }
}

void CDayGridCtrl::GetCurCellRect(CRect& rect, int& bFound)
{
    const int box = Range().BoxOf(m_dtSelBegin);
    bFound = box != -1 ? 1 : 0;
    rect = bFound ? GetBoxRect(box) : CRect(-1, -1, -1, -1);
}

// ---- Selection

BOOL CDayGridCtrl::MoveSelectionEnd(int nBoxes, UINT nFlags)
{
    const BoxRange range = Range();
    const COleDateTime end = range.Neighbour(m_dtSelEnd, nBoxes);
    if (!IsValid(end)) {
        return FALSE;
    }
    m_dtSelEnd = end;
    if (!(nFlags & kExtendSelection)) {
        m_dtSelBegin = end;
    }
    if (!m_hWnd) {
        return FALSE;
    }
    const int position = range.PositionOf(end);
    if (nBoxes < 0 ? position < 0 : position >= range.Count()) {
        return TRUE;
    }
    InvalidateRect(&m_rcContent, FALSE);
    return FALSE;
}

void CDayGridCtrl::ResetScrollBar()
{
    if (!m_hWnd) {
        return;
    }
    const ScrollBarRange bar = Range().ScrollBar();
    SetVertScrollBar(*this, bar.min, bar.max, bar.position);
}

void CDayGridCtrl::NotifySelDateChange(const COleDateTime& date)
{
    SYSTEMTIME time = {};
    ToSystemTime(date, time);
    Notify(CCN_SELDATECHANGE, -1, 0, CPoint(-1, -1), time, CCHT_ONCELL);
}

void CDayGridCtrl::NotifyViewRangeChange(const COleDateTime& date, int nValue)
{
    COleDateTime first;
    COleDateTime last;
    GetViewRange(first, last);
    Notify(CCN_VIEWRANGECHANGE, date, first, last, nValue);
}

// ---- Paint

void CDayGridCtrl::ScaleChanged(const ViewScale& before)
{
    m_parts->Clear();
    m_parts->fonts.SetScale(m_scale);
    m_parts->fonts.SetText(GetTextFont());
    m_parts->lines.Forget(); // measured in another font
    CMoreListCtrl::ScaleChanged(before);
}

void CDayGridCtrl::ForgetDrawn()
{
    m_parts->drawn.Clear();
}

DayLookInput CDayGridCtrl::LookOfDays()
{
    DayLookInput input = {
        GetDayColors(), m_colors.highlightText, m_bShowHoliday != FALSE, m_bShow24Setuki != FALSE, false, 0, 0, true,
        m_texts};
    input.nameBeside = !m_dayLines.names;
    input.termBeside = !m_dayLines.terms && !m_dayLines.seasonalDays;
    input.redFirsts = m_theme.redFirsts;
    return input;
}

BOOL CDayGridCtrl::DrawsOwnMark() const
{
    return m_theme.mark != CalendarTheme::kOwn || m_scale.dpi != kBaseDpi;
}

BoxPainter CDayGridCtrl::PainterOn(CDC* pDC)
{
    return BoxPainter(*pDC, *m_parts, m_colors, m_theme, m_scale);
}

void CDayGridCtrl::DrawBoxLines(CDC* pDC, const CRect& rcCalendar)
{
    const int columns = Range().Columns();
    std::vector<int> lefts;
    std::vector<int> tops;
    for (int i = 0; i < GetBoxCount(); ++i) {
        const CRect box = GetBoxRect(i);
        if (i < columns) {
            lefts.push_back(box.left);
        }
        if (i % columns == 0) {
            tops.push_back(box.top);
        }
    }
    PainterOn(pDC).DrawLines(rcCalendar, lefts, tops);
}

void CDayGridCtrl::DrawItem(CDC* pDC, CRect, CItemArray& items)
{
    const BoxPainter painter = PainterOn(pDC);
    const auto draw = [&](const tagCALENDAR_ITEM& item) {
        CRect bar = item.rcItem;
        bar.bottom = std::max<int>(bar.bottom, bar.top + GetMarksHeight(item));
        if (IsShown(item) && painter.IsVisible(bar)) {
            DrawItemBox(*pDC, {item, item.rcItem, m_rcContent, true, item.nSource == m_nCurSel});
        }
    };
    if (&items == &m_arScreenItem) {
        for (int i : GetShownItems()) {
            draw(items[i]);
        }
    } else {
        for (int i = 0; i < static_cast<int>(items.GetSize()); ++i) {
            draw(items[i]);
        }
    }
}

void CDayGridCtrl::DrawItemBox(CDC& dc, const ItemBox& box)
{
    const BoxPainter painter = PainterOn(&dc);
    if (ChangesItems(m_theme)) {
        tagCALENDAR_ITEM themed = box.item;
        ThemeItem(themed, m_theme, ItemGround::WhiteIsNone);
        DrawThemedBar(&dc, painter, themed, box.isCurrent);
    } else {
        DrawThemedBar(&dc, painter, box.item, box.isCurrent);
    }
}

void CDayGridCtrl::DrawThemedBar(CDC* pDC, const BoxPainter& painter, const tagCALENDAR_ITEM& item, bool isCurrent)
{
    const BarParts parts = PartsOfBar(item, m_scale);
    painter.DrawBar(item, parts);
    CRect content = parts.content;
    if (const int marks = DrawItemMarks(pDC, item, content, TRUE, m_scale.Of(kMarkGap), TRUE)) {
        content.left += marks + m_scale.Of(kTextGap);
    }

    const BOOL fullday = dayvane::IsFulldayItem(item);
    pDC->SetTextColor(item.crColor5);
    painter.DrawBarText(GetFont(item.nReserved), GetBarText(item, fullday), content,
                        IsBarTextCentered(fullday) != FALSE);
    if (isCurrent) {
        painter.DrawBarSelection(parts.bar);
    }
}

BOOL CDayGridCtrl::IsBarTextCut(const tagCALENDAR_ITEM& item, const std::u16string& strText)
{
    CRect content = PartsOfBar(item, m_scale).content;
    if (const int marks = GetItemMarksWidth(item, content, TRUE, m_scale.Of(kMarkGap), TRUE)) {
        content.left += marks + m_scale.Of(kTextGap);
    }
    CClientDC dc(this);
    CFont* font = GetFont(item.nReserved);
    const SelectGdi selectFont(&dc, font);
    return m_parts->texts.WidthOf(&dc, font, strText) > content.Width();
}

void CDayGridCtrl::DrawMoreMark(CDC* pDC, const CRect& box)
{
    const BoxPainter painter = PainterOn(pDC);
    const CRect mark = MoreMarkOf(box);
    if (!painter.IsVisible(mark)) {
        return;
    }
    if (DrawsOwnMark()) {
        painter.DrawMoreMark(mark);
    } else if (m_hMoreMark) {
        painter.DrawMoreIcon(m_hMoreMark,
                             CRect(box.right - kMoreMarkWidth, box.bottom - kMoreMarkHeight, box.right, box.bottom));
    }
}
