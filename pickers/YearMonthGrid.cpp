#include "pickers/YearMonthGrid.h"

#include "core/DateMath.h"

#include <algorithm>
#include <initializer_list>

namespace dayvane {
namespace {
constexpr int kMonthCharacters = 2; // of a month in a cell, counted as the width grows
constexpr int kFirstYear = kFirstMonthNumber / kMonthsPerYear;
constexpr int kLastYear = kLastMonthNumber / kMonthsPerYear;
constexpr int kArrowParts = 4;   // an arrow reaches a quarter of the header's height up and down
constexpr int kThumbPerEdge = 5; // the drop arrow is at least five edges wide

// The share of a length, the indivisible rest added to every share.
int Share(int length, int parts)
{
    return length / parts + length % parts;
}

YearMonth OfMonthNumber(int monthNumber)
{
    const int clamped = ClampMonthNumber(monthNumber);
    return {clamped / kMonthsPerYear, clamped % kMonthsPerYear};
}
} // namespace

int ArrowReach(const CRect& header)
{
    return header.Height() / kArrowParts;
}

YearMonthMetrics YearMonthMetrics::At(const ViewScale& scale) const
{
    YearMonthMetrics scaled = *this;
    scaled.popup = {scale.Of(popup.cx), scale.Of(popup.cy)};
    for (int YearMonthMetrics::*length :
         {&YearMonthMetrics::headerHeight, &YearMonthMetrics::gridTop, &YearMonthMetrics::gridBottom,
          &YearMonthMetrics::footerHeight, &YearMonthMetrics::leftArrowInset, &YearMonthMetrics::rightArrowInset,
          &YearMonthMetrics::arrowMargin}) {
        scaled.*length = scale.Of(this->*length);
    }
    // Each line is higher by the growth of the text, and each column wider by that of its few characters.
    const int growth = scale.textGrowth;
    for (int YearMonthMetrics::*length : {&YearMonthMetrics::headerHeight, &YearMonthMetrics::gridTop,
                                          &YearMonthMetrics::gridBottom, &YearMonthMetrics::footerHeight}) {
        scaled.*length += growth;
    }
    scaled.popup.cx += gridColumns * kMonthCharacters * growth;
    scaled.popup.cy += (gridRows + 2) * growth;
    return scaled;
}

YearMonthLayout CalcYearMonthLayout(const CRect& client, const YearMonthMetrics& metrics)
{
    YearMonthLayout layout;
    layout.metrics = metrics;
    layout.client = client;
    layout.header = CRect(client.left, client.top, client.right, client.top + metrics.headerHeight);
    layout.grid = CRect(client.left, client.top + metrics.gridTop, client.right, client.bottom - metrics.gridBottom);
    layout.footer = CRect(client.left, client.bottom - metrics.footerHeight, client.right, client.bottom);

    const int width = Share(layout.grid.Width(), metrics.gridColumns);
    const int height = Share(layout.grid.Height(), metrics.gridRows);
    for (int month = 0; month < kMonthsPerYear; ++month) {
        const int left = layout.grid.left + month % metrics.gridColumns * width;
        const int top = layout.grid.top + month / metrics.gridColumns * height;
        layout.months[month] = CRect(left, top, left + width, top + height);
    }

    const CRect& header = layout.header;
    const int middle = (header.top + header.bottom) / 2;
    const int reach = ArrowReach(header);
    const int margin = metrics.arrowMargin;
    layout.previousYear = CRect(header.left + 1, middle - reach - margin,
                                header.left + metrics.leftArrowInset + reach + margin, middle + reach + margin);
    layout.nextYear = CRect(header.right - metrics.rightArrowInset - reach - margin, middle - reach - margin,
                            header.right - margin, middle + reach + margin);
    return layout;
}

YearMonthHit HitTestYearMonth(const YearMonthLayout& layout, CPoint point)
{
    YearMonthHit hit;
    for (int month = 0; month < kMonthsPerYear && hit.month < 0; ++month) {
        if (layout.months[month].PtInRect(point)) {
            hit.month = month;
        }
    }
    if (layout.previousYear.PtInRect(point)) {
        hit.code = YearMonthCode::PreviousYear;
    }
    if (layout.nextYear.PtInRect(point)) {
        hit.code = YearMonthCode::NextYear;
    }
    if (layout.footer.PtInRect(point)) {
        hit.code = YearMonthCode::Footer;
    }
    return hit;
}

CRect RectOfHit(const YearMonthLayout& layout, const YearMonthHit& hit)
{
    switch (hit.code) {
    case YearMonthCode::PreviousYear:
        return layout.previousYear;
    case YearMonthCode::NextYear:
        return layout.nextYear;
    case YearMonthCode::Footer:
        return layout.footer;
    default:
        return hit.month >= 0 ? layout.months[hit.month] : CRect(0, 0, 0, 0);
    }
}

YearMonth YearMonth::WithYearMoved(int years) const
{
    return {std::clamp(year + years, kFirstYear, kLastYear), month};
}

YearMonth MakeYearMonth(int year, int month, const COleDateTime& now)
{
    const bool hasNow = IsValid(now);
    const int nowNumber = hasNow ? MonthNumberOf(now) : kFirstMonthNumber;
    const int chosenYear = year == -1 ? YearOfMonthNumber(nowNumber) : year;
    const int chosenMonth = month == -1 ? MonthOfMonthNumber(nowNumber) : month;
    return {std::clamp(chosenYear, kFirstYear, kLastYear), std::clamp(chosenMonth, 1, kMonthsPerYear) - 1};
}

COleDateTime DateOfPacked(int packed)
{
    return COleDateTime(packed / kPackedPerYear, packed % kPackedPerYear, 1, 0, 0, 0);
}

YearMonth MoveYearMonth(YearMonth from, PickerKey key)
{
    const int number = from.year * kMonthsPerYear + from.month;
    switch (key) {
    case PickerKey::Left:
        return OfMonthNumber(number - 1);
    case PickerKey::Right:
        return OfMonthNumber(number + 1);
    case PickerKey::Up:
        return OfMonthNumber(number - kYearMonthMetrics.gridColumns);
    case PickerKey::Down:
        return OfMonthNumber(number + kYearMonthMetrics.gridColumns);
    case PickerKey::PageUp:
        return from.WithYearMoved(-1);
    case PickerKey::PageDown:
        return from.WithYearMoved(1);
    case PickerKey::Home:
        return {from.year, 0};
    case PickerKey::End:
        return {from.year, kMonthsPerYear - 1};
    default:
        return from;
    }
}

bool IsDateChange(const COleDateTime& from, const COleDateTime& to)
{
    if (from.GetStatus() != to.GetStatus()) {
        return true;
    }
    return IsValid(to) && from.m_dt != to.m_dt;
}

PickerButtonMetrics CalcPickerButton(const PickerSystemMetrics& system)
{
    PickerButtonMetrics metrics;
    metrics.edgeWidth = system.edgeWidth;
    metrics.edgeHeight = system.edgeHeight;
    metrics.arrowWidth = std::max(std::max(system.thumbWidth, kThumbPerEdge * system.edgeWidth),
                                  std::max(system.thumbHeight, kThumbPerEdge * system.edgeHeight));
    metrics.minWidth = 2 * (metrics.arrowWidth + system.edgeWidth);
    metrics.height = metrics.arrowWidth + 2 * system.edgeHeight;
    return metrics;
}

CRect PickerArrowRect(const PickerButtonMetrics& metrics, const CRect& client)
{
    return CRect(client.right - metrics.arrowWidth - metrics.edgeWidth, client.top + metrics.edgeHeight,
                 client.right - metrics.edgeWidth, client.bottom - metrics.edgeHeight);
}

} // namespace dayvane
