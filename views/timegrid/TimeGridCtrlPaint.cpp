// The shared painting of the time grids: the order of the layers, and what each is painted from.
#include "views/timegrid/TimeGridCtrl.h"

#include "core/DateMath.h"
#include "core/ThemeColors.h"
#include "views/timegrid/OverlapColumns.h"
#include "views/timegrid/TimeGridHit.h"
#include "views/timegrid/TimeGridParts.h"

#include <algorithm>

using namespace dayvane;

namespace {
constexpr int kMarkGap = 2;      // pixels after a mark of an item
constexpr int kFrameMargin = 2;  // pixels around a bar that the frame of the current item may touch
constexpr int kMarkedWidth = 40; // columns of many days: a narrower box keeps its room for the text

// The icon belongs to the beginning of an item.
bool HasIcon(bool isBar, const tagCALENDAR_ITEM& item)
{
    return !isBar || !BeganEarlier(item);
}
} // namespace

const std::vector<ShownDay>& CTimeGridCtrl::GetShownDays()
{
    std::vector<ShownDay>& days = m_pParts->shownDays;
    const DayRange range = GetShownRange();
    if (static_cast<int>(days.size()) != range.days || !days[0].IsFor(range.first)) {
        days.clear();
        for (int i = 0; i < range.days; ++i) {
            days.push_back(ShownDay::Of(range.DayOf(i), GetDayProvider()));
            FillDayPieces(days.back());
        }
    }
    return days;
}

void CTimeGridCtrl::DayProviderChanged()
{
    m_pParts->shownDays.clear();
}

DayTone CTimeGridCtrl::ToneOfColumn(int nColumn)
{
    const ShownDay& day = GetShownDays()[nColumn];
    const int hostColor = GetDayColor(nColumn);
    const bool hasProvidedColor = day.note.colorRow > 0 && day.note.colorRow <= m_arDayColors.GetSize();
    return ToneOfDay(day, m_bShowHoliday != FALSE, hostColor == 0 && hasProvidedColor ? day.note.colorRow : hostColor);
}

// Bands come after the grid and its items: what is scrolled up never shows over them.
void CTimeGridCtrl::DrawCtrl(CDC* pDC)
{
    const SaveDcScope saved(pDC);
    const PaintClip::Paint paint(m_pParts->tools.clip, *pDC, UpdatesByParts() != FALSE);
    pDC->SetBkMode(TRANSPARENT);
    CPen gridPen(PS_SOLID, 1, m_colors.grid);
    const SelectGdi selectPen(pDC, &gridPen);
    Painter(pDC).DrawRulerEdge();
    DrawRuler(pDC, m_rcRuler);
    DrawFulldayRuler(pDC, m_rcFulldayRuler);
    DrawGrid(pDC, m_rcContent);
    DrawItem(pDC, m_rcContent, m_arScreenItem);
    DrawNowLine(pDC);
    DrawCaption(pDC, m_rcCaption);
    DrawHeader(pDC, m_pParts->frame.header);
    DrawFulldayContent(pDC, m_rcFulldayContent);
    DrawFulldayItem(pDC, m_rcFulldayContent, m_arScreenItem);
    DrawMoreMarks(pDC);
    m_pParts->tools.blocks.Note(*pDC);
}

void CTimeGridCtrl::DrawRuler(CDC* pDC, CRect rcRuler)
{
    const TimeGridPainter painter = Painter(pDC);
    const ZoneColumns columns = SplitRuler(rcRuler, GetZoneRulerWidth());
    painter.DrawRuler(columns.own, m_pParts->fonts.Hours(m_lfFonts[FONT_CAPTION]), m_pParts->fonts.Zeros(), m_texts);
    if (m_pParts->zones && painter.IsVisible(rcRuler)) {
        painter.DrawZoneHours(columns, ZoneHoursOf(GetRulerDay(), *m_pParts->zones), m_pParts->fonts.Label());
    }
}

void CTimeGridCtrl::DrawFulldayRuler(CDC* pDC, CRect rcBand)
{
    const TimeGridPainter painter = Painter(pDC);
    painter.DrawFulldayRuler(rcBand, m_pParts->fonts, GetTexts().wholeDay);
    if (m_pParts->zones && m_pParts->zones->showOther) {
        painter.DrawZoneLabels(SplitRuler(rcBand, GetZoneRulerWidth()), *m_pParts->zones, m_pParts->fonts.Label());
    }
}

// Without names of days there are only the lines under them.
void CTimeGridCtrl::DrawHeader(CDC* pDC, CRect rcHeader)
{
    const TimeGridPainter painter = Painter(pDC);
    if (m_pParts->dayLines > 0 && painter.IsVisible(rcHeader)) {
        painter.DrawHeaderBackground(rcHeader);
        DrawDayLines(pDC, 0);
    }
}

void CTimeGridCtrl::DrawRows(CDC* pDC, int nColumn)
{
    const TimeGridState state = State();
    const TimeGridPainter painter = Painter(pDC);
    const CRect& column = state.frame.columns[nColumn];
    if (!painter.IsVisible(column)) {
        return;
    }
    const DayTone tone = ToneOfColumn(nColumn);
    if (tone.colorRow < 0 || tone.colorRow >= m_arDayColors.GetSize()) {
        return; // the table lacks the colour of this day
    }
    // A selection of whole days shows in the band.
    RowRange selected;
    if (IsSelectionDrawn() && !m_bFulldaySelection) {
        selected = SelectedRows(state, nColumn, m_dtSelBegin, m_dtSelEnd);
    }
    const RowLookInput input = {state.scale, GetDayColors()[tone.colorRow], m_colors.highlight, GetWorkBegin(nColumn)};
    const RowRange rows = painter.VisibleRows();
    std::vector<RowLook> looks;
    for (int row = rows.first; row < rows.end; ++row) {
        looks.push_back(LookOfRow(row, IsWorkRow(nColumn, row) != FALSE, selected.Holds(row), input));
    }
    painter.DrawRows(column, rows, looks);
}

void CTimeGridCtrl::DrawNowLine(CDC* pDC)
{
    const COleDateTime now = Now();
    const int column = m_options.nowLine ? GetShownRange().ColumnOf(now) : -1;
    if (column != -1) {
        Painter(pDC).DrawNowLine(m_pParts->frame.columns[column], ClockTimeOf(now));
    }
}

// ---- Items

// Items that the theme shows in other colours than they have are drawn from a copy.
template <class Draw>
void CTimeGridCtrl::DrawInTheme(const tagCALENDAR_ITEM& item, Draw draw)
{
    if (ChangesItems(m_theme)) {
        tagCALENDAR_ITEM themed = item;
        ThemeItem(themed, m_theme, ItemGround::Filled);
        draw(themed);
    } else {
        draw(item);
    }
}

void CTimeGridCtrl::DrawTimedItem(CDC* pDC, const tagCALENDAR_ITEM& item, int nColumnRight)
{
    DrawTimedItem(pDC, State(), item, nColumnRight);
}

void CTimeGridCtrl::DrawTimedItem(CDC* pDC, const TimeGridState& state, const tagCALENDAR_ITEM& item, int nColumnRight)
{
    CRect area = m_rcContent;
    area.right = nColumnRight;
    DrawItemBox(*pDC, {item, PaintedTimedBox(state, item, nColumnRight).box, area, false, item.nSource == m_nCurSel});
}

// Whether anything but its ground and its edges shows in the box of an item in the rows.
bool CTimeGridCtrl::HasPlaceForText(const tagCALENDAR_ITEM& item) const
{
    const int width = PaintedTimedBox(State(), item, item.rcItem.right).content.Width();
    return HasMarks(FALSE, width) || TimeGridPainter::IsWideEnoughForText(width, m_scale);
}

// A narrow box of many days keeps its room for the text.
BOOL CTimeGridCtrl::HasMarks(BOOL bBar, int nWidth) const
{
    return bBar || GetShownRange().days == 1 || nWidth >= m_scale.Of(kMarkedWidth);
}

void CTimeGridCtrl::DrawItemBox(CDC& dc, const ItemBox& box)
{
    if (box.isBar) {
        DrawBar(&dc, box, BandItemText(box.item, m_texts));
    } else {
        const TimeGridPainter painter = Painter(&dc);
        DrawInTheme(box.item, [&](const tagCALENDAR_ITEM& themed) { DrawTimedBox(&dc, painter, themed, box); });
    }
}

void CTimeGridCtrl::DrawTimedBox(CDC* pDC, const TimeGridPainter& painter, const tagCALENDAR_ITEM& item,
                                 const ItemBox& box)
{
    const TimeGridState& state = painter.State();
    PaintedBox painted = PaintedTimedBox(state, item, static_cast<int>(box.area.right));
    painter.DrawTimedBox(item, painted, box.isCurrent);
    if (HasMarks(FALSE, painted.content.Width())) {
        painted.content.left += DrawItemMarks(pDC, item, painted.content, FALSE, m_scale.Of(kMarkGap), TRUE);
    }
    painter.DrawTimedText(item, GetFont(item.nReserved), painted.content, state.range.days > 1, m_texts);
}

void CTimeGridCtrl::DrawFulldayContent(CDC* pDC, CRect rcBand)
{
    std::vector<CRect> selected;
    COleDateTime begin;
    COleDateTime end;
    if (m_bFulldaySelection && IsSelectionDrawn() && CCalendarCtrl::GetSelRange(begin, end)) {
        selected = BandOfDays(State(), rcBand, begin, end);
    }
    Painter(pDC).DrawFulldayContent(rcBand, selected);
}

void CTimeGridCtrl::DrawFulldayItem(CDC* pDC, CRect rcBand, CItemArray& screenItems)
{
    const TimeGridPainter painter = Painter(pDC);
    if (!painter.IsVisible(rcBand)) {
        return;
    }
    for (INT_PTR i = 0; i < screenItems.GetSize(); ++i) {
        const tagCALENDAR_ITEM& item = screenItems[i];
        CRect bar = item.rcItem;
        bar.bottom = std::max<int>(bar.bottom, bar.top + GetMarksHeight(item));
        bar.InflateRect(m_scale.Of(kFrameMargin), m_scale.Of(kFrameMargin));
        if (item.rcItem.top == -1 || !painter.IsVisible(bar) || !IsBandItem(item)) {
            continue;
        }
        DrawItemBox(*pDC, {item, item.rcItem, rcBand, true, item.nSource == m_nCurSel});
    }
}

void CTimeGridCtrl::DrawBar(CDC* pDC, const ItemBox& box, const std::u16string& text)
{
    DrawInTheme(box.item, [&](const tagCALENDAR_ITEM& themed) { DrawThemedBar(pDC, box, themed, text); });
}

void CTimeGridCtrl::DrawThemedBar(CDC* pDC, const ItemBox& box, const tagCALENDAR_ITEM& item,
                                  const std::u16string& text)
{
    const TimeGridPainter painter = Painter(pDC);
    PaintedBox bar = PaintedBandBar(box.area, item, Scale().metrics);
    painter.DrawBandBar(item, bar, box.isCurrent);
    bar.content.left += DrawItemMarks(pDC, item, bar.content, TRUE, m_scale.Of(kMarkGap), HasIcon(true, item));
    painter.DrawBandText(item, GetFont(item.nReserved), text, bar.content);
}

// Whether an item's box or bar shows all of its text.
BOOL CTimeGridCtrl::FitsText(const tagCALENDAR_ITEM& item)
{
    const TimeGridState state = State();
    const BOOL isBar = IsBandItem(item);
    const int column = state.range.days > 1 ? state.range.ColumnOf(item.dtStart) : -1;
    const int right = column != -1 ? state.frame.columns[column].right : item.rcItem.right;
    CRect content =
        (isBar ? PaintedBandBar(m_rcFulldayContent, item, Scale().metrics) : PaintedTimedBox(state, item, right))
            .content;
    if (HasMarks(isBar, content.Width())) {
        content.left += GetItemMarksWidth(item, content, isBar, m_scale.Of(kMarkGap), HasIcon(isBar, item));
    }
    CClientDC dc(this);
    const SelectGdi selectFont(&dc, GetFont(item.nReserved));
    const std::u16string text = isBar ? BandItemText(item, m_texts) : TimedItemText(item, m_texts);
    CRect needed(0, 0, content.Width(), 0);
    ::DrawTextW(dc.m_hDC, reinterpret_cast<const wchar_t*>(text.c_str()), static_cast<int>(text.size()), &needed,
                (isBar ? DT_SINGLELINE : DT_WORDBREAK | DT_EDITCONTROL) | DT_NOPREFIX | DT_CALCRECT);
    return needed.Width() <= content.Width() && needed.Height() <= content.Height();
}
