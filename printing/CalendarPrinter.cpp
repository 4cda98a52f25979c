#include "printing/CalendarPrinter.h"

#include "core/DateMath.h"
#include "printing/CalendarSource.h"
#include "printing/PageBuilders.h"
#include "views/daygrid/MonthViewCtrl.h"
#include "views/daygrid/WeekViewCtrl.h"
#include "views/daygrid/YearViewCtrl.h"
#include "views/timegrid/DayViewCtrl.h"
#include "views/timegrid/WeekDayViewCtrl.h"

#include <afxext.h>

#include <algorithm>

using namespace dayvane;

namespace {

constexpr int kUnitsPerInch = 254;
constexpr int kWeekdays = 7;
constexpr int kAroundTheMonth = 7 + kWeekdays; // days that a month's page may show before and after

std::unique_ptr<CalendarPrinting> MakePrinterFor(CCalendarCtrl& ctrl)
{
    if (ctrl.IsKindOf(RUNTIME_CLASS(CDayViewCtrl))) {
        return std::make_unique<CDailyPrinter>(&ctrl);
    }
    if (ctrl.IsKindOf(RUNTIME_CLASS(CWeekDayViewCtrl))) {
        return std::make_unique<CWeekdayPrinter>(&ctrl);
    }
    if (ctrl.IsKindOf(RUNTIME_CLASS(CWeekViewCtrl))) {
        return std::make_unique<CWeeklyPrinter>(&ctrl);
    }
    if (ctrl.IsKindOf(RUNTIME_CLASS(CMonthViewCtrl))) {
        return std::make_unique<CMonthlyPrinter>(&ctrl);
    }
    if (ctrl.IsKindOf(RUNTIME_CLASS(CYearViewCtrl))) {
        return std::make_unique<CYearlyPrinter>(&ctrl);
    }
    return nullptr;
}

const bool s_isRegistered = (static_cast<void>(SetCalendarPrinting(&MakePrinterFor)), true);

int UnitsOf(int pixels, int dpi)
{
    return ::MulDiv(pixels, kUnitsPerInch, std::max(dpi, 1));
}

// The shown days as day numbers; the day of `date` where the view has no range.
PrintRange RangeOfView(CCalendarCtrl& ctrl, PageKind kind)
{
    COleDateTime first, last;
    ctrl.GetViewRange(first, last);
    const bool isRange = IsValid(first) && IsValid(last);
    const int current = DayNumberOf(ctrl.GetCurrentDate());
    return {kind, isRange ? DayNumberOf(first) : current, isRange ? DayNumberOf(last) : current};
}

// Millimetres of a margin that has to clear a strip of so many units.
int Clear(int margin, int strip)
{
    return std::max(margin, (strip + kUnitsPerMillimetre - 1) / kUnitsPerMillimetre);
}

} // namespace

CCalendarPrinter* CCalendarPrinter::Of(CCalendarCtrl& ctrl)
{
    return dynamic_cast<CCalendarPrinter*>(ctrl.GetPrinter());
}

PageFaces CCalendarPrinter::GetFaces() const
{
    PageFaces faces;
    LOGFONT look = {};
    if (m_pCtrl->GetFont(0)->GetLogFont(&look)) {
        faces.text = look.lfFaceName;
        faces.textCharSet = look.lfCharSet;
    }
    CDayGridCtrl* boxes = DYNAMIC_DOWNCAST(CDayGridCtrl, m_pCtrl);
    CFont* latin = boxes ? boxes->GetSmallLatinFont() : nullptr;
    if (latin && latin->GetSafeHandle() && latin->GetLogFont(&look)) {
        faces.latin = look.lfFaceName;
    }
    return faces;
}

std::u16string CCalendarPrinter::WideText(const CString& text) const
{
    return dayvane::WideText(*m_pCtrl, text);
}

// ---- Paper

CCalendarPrinter::Sheet CCalendarPrinter::SheetOf(CDC* pDC, const CPrintInfo* pInfo)
{
    Sheet sheet;
    sheet.view.dpiX = std::max(pDC->GetDeviceCaps(LOGPIXELSX), 1);
    sheet.view.dpiY = std::max(pDC->GetDeviceCaps(LOGPIXELSY), 1);
    const CRect reachable(0, 0, pDC->GetDeviceCaps(HORZRES), pDC->GetDeviceCaps(VERTRES));
    CRect given = pInfo ? pInfo->m_rectDraw : CRect(0, 0, 0, 0);
    pDC->LPtoDP(&given);
    given.NormalizeRect();
    CSize pixels(pDC->GetDeviceCaps(PHYSICALWIDTH), pDC->GetDeviceCaps(PHYSICALHEIGHT));
    sheet.unreachable.SetRectEmpty();
    if (!given.IsRectEmpty() && given != reachable) {
        sheet.view.origin = given.TopLeft();
        pixels = given.Size();
    } else if (pixels.cx > 0 && pixels.cy > 0) {
        const CPoint offset(pDC->GetDeviceCaps(PHYSICALOFFSETX), pDC->GetDeviceCaps(PHYSICALOFFSETY));
        sheet.view.origin = CPoint(-offset.x, -offset.y);
        sheet.unreachable.SetRect(UnitsOf(offset.x, sheet.view.dpiX), UnitsOf(offset.y, sheet.view.dpiY),
                                  UnitsOf(pixels.cx - offset.x - reachable.Width(), sheet.view.dpiX),
                                  UnitsOf(pixels.cy - offset.y - reachable.Height(), sheet.view.dpiY));
    } else {
        pixels = reachable.Size();
    }
    sheet.paper = CSize(UnitsOf(pixels.cx, sheet.view.dpiX), UnitsOf(pixels.cy, sheet.view.dpiY));
    return sheet;
}

// ---- Pages

std::vector<Page> CCalendarPrinter::MakePages(CSize paper)
{
    Sheet sheet;
    sheet.paper = paper;
    sheet.unreachable.SetRectEmpty();
    return MakePages(sheet);
}

std::vector<Page> CCalendarPrinter::MakePages(const Sheet& sheet)
{
    const PrintRange range = GetRange();
    PrintOptions options = m_options;
    options.marginLeft = Clear(options.marginLeft, sheet.unreachable.left);
    options.marginTop = Clear(options.marginTop, sheet.unreachable.top);
    options.marginRight = Clear(options.marginRight, sheet.unreachable.right);
    options.marginBottom = Clear(options.marginBottom, sheet.unreachable.bottom);
    int first = range.firstDay;
    int last = range.lastDay;
    if (range.kind == PageKind::Month) {
        first = FirstOfMonth(range.firstDay) - kAroundTheMonth;
        last = FirstOfMonthAfter(range.firstDay, 1) + kAroundTheMonth;
    } else if (range.kind == PageKind::Year) {
        last = FirstOfMonthAfter(range.firstDay, kMonthsPerYear);
    }
    PrintSource source = SourceOf(*m_pCtrl, first, last, m_placeOf);
    source.title = m_title.empty() ? WideText(GetTitle()) : m_title;
    const DcTextMeasurer measurer(GetFaces());
    return BuildPages(source, range, options, sheet.paper, measurer);
}

void CCalendarPrinter::DrawPage(CDC* pDC, const Page& page, const PageView& view)
{
    dayvane::DrawPage(pDC, page, view, GetFaces(), m_pCtrl->GetImageList());
}

int CCalendarPrinter::Begin(CDC* pDC, CPrintInfo* pInfo)
{
    End();
    if (!pDC || !pDC->m_hDC) {
        return 0;
    }
    const Sheet sheet = SheetOf(pDC, pInfo);
    m_pages = MakePages(sheet);
    m_paper = sheet.paper;
    m_isOpen = true;
    if (pInfo) {
        pInfo->SetMinPage(1);
        pInfo->SetMaxPage(static_cast<UINT>(m_pages.size()));
    }
    return static_cast<int>(m_pages.size());
}

int CCalendarPrinter::Print(CDC* pDC, CPrintInfo* pInfo)
{
    if (!pDC || !pDC->m_hDC) {
        return 0;
    }
    const Sheet sheet = SheetOf(pDC, pInfo);
    // Without a Begin, or when the host has changed the sheet for this page, the pages are made for it alone.
    const bool isKept = m_isOpen && m_paper == sheet.paper;
    const std::vector<Page> made = isKept ? std::vector<Page>() : MakePages(sheet);
    const std::vector<Page>& pages = isKept ? m_pages : made;
    if (pInfo && !isKept) {
        pInfo->SetMinPage(1);
        pInfo->SetMaxPage(static_cast<UINT>(pages.size()));
    }
    const UINT number = pInfo ? pInfo->m_nCurPage : 1;
    if (number < 1 || number > pages.size()) {
        return 0;
    }
    DrawPage(pDC, pages[number - 1], sheet.view);
    return 1;
}

void CCalendarPrinter::End()
{
    m_isOpen = false;
    m_pages = {};
}

// ---- The views

PrintRange CDailyPrinter::GetRange() const
{
    const int day = DayNumberOf(m_pCtrl->GetCurrentDate());
    return {PageKind::Day, day, day};
}

PrintRange CWeekdayPrinter::GetRange() const
{
    return RangeOfView(*m_pCtrl, PageKind::Days);
}

PrintRange CWeeklyPrinter::GetRange() const
{
    PrintRange range = RangeOfView(*m_pCtrl, PageKind::Week);
    range.lastDay = range.firstDay + kWeekdays - 1;
    return range;
}

CString CWeeklyPrinter::GetTitle() const
{
    return static_cast<CBoxViewCtrl*>(m_pCtrl)->GetTitle();
}

PrintRange CMonthlyPrinter::GetRange() const
{
    const int first = FirstOfMonth(DayNumberOf(m_pCtrl->GetCurrentDate()));
    return {PageKind::Month, first, FirstOfMonthAfter(first, 1) - 1};
}

CString CMonthlyPrinter::GetTitle() const
{
    return static_cast<CMonthViewCtrl*>(m_pCtrl)->GetTitle();
}

PrintRange CYearlyPrinter::GetRange() const
{
    COleDateTime first, last;
    m_pCtrl->GetViewRange(first, last);
    const int day = DayNumberOf(IsValid(first) ? first : m_pCtrl->GetCurrentDate());
    return {PageKind::Year, day, FirstOfMonthAfter(day, kMonthsPerYear) - 1};
}

CString CYearlyPrinter::GetTitle() const
{
    return static_cast<CBoxViewCtrl*>(m_pCtrl)->GetTitle();
}

PrintRange CListPrinter::GetRange() const
{
    PrintRange range = RangeOfView(*m_pCtrl, PageKind::List);
    if (m_pCtrl->IsKindOf(RUNTIME_CLASS(CMonthViewCtrl))) {
        range.firstDay = FirstOfMonth(DayNumberOf(m_pCtrl->GetCurrentDate()));
        range.lastDay = FirstOfMonthAfter(range.firstDay, 1) - 1;
    }
    return range;
}
