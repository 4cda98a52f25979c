#include "pickers/PickerPaint.h"

#include "core/DrawingHelpers.h"

namespace dayvane {
namespace {
constexpr UINT kCentred = DT_CENTER | DT_VCENTER | DT_SINGLELINE;
constexpr int kRoundCorner = 3; // pixels
} // namespace

PickerPalette SystemPickerPalette()
{
    PickerPalette palette = {};
    palette.window = ::GetSysColor(COLOR_WINDOW);
    palette.text = ::GetSysColor(COLOR_WINDOWTEXT);
    palette.disabledText = ::GetSysColor(COLOR_GRAYTEXT);
    palette.face = ::GetSysColor(COLOR_BTNFACE);
    return palette;
}

PickerPalette DisabledPickerPalette()
{
    PickerPalette palette = SystemPickerPalette();
    const COLORREF gray = palette.disabledText;
    palette.text = palette.holiday = palette.saturday = palette.today = palette.weekNumber = gray;
    palette.paleHoliday = palette.paleSaturday = palette.paleText;
    palette.bandFrom = palette.bandTo = gray;
    palette.selected = palette.paleSelected = palette.face;
    palette.selectedFrame = palette.frame;
    return palette;
}

CFont* PickerFonts::Get(bool bold)
{
    FontSpec spec = m_spec;
    spec.weight = bold ? FW_BOLD : spec.weight;
    return m_cache.Get(spec);
}

void DrawCentredText(CDC* pDC, const CRect& rect, const CString& text, CFont* pFont, COLORREF color)
{
    const SelectGdi font(pDC, pFont);
    pDC->SetBkMode(TRANSPARENT);
    pDC->SetTextColor(color);
    CRect place = rect;
    pDC->DrawText(text, &place, kCentred);
}

void DrawArrow(CDC* pDC, CPoint tip, int reach, bool pointsLeft, COLORREF color)
{
    for (int i = 0; i <= reach; ++i) {
        const int x = pointsLeft ? tip.x + i : tip.x - i;
        pDC->FillSolidRect(x, tip.y - i, 1, 2 * i + 1, color);
    }
}

void DrawRoundBox(CDC* pDC, const CRect& rect, COLORREF fill, COLORREF frame)
{
    CPen pen(PS_SOLID, 1, frame);
    CBrush brush(fill);
    const SelectGdi selectPen(pDC, &pen);
    const SelectGdi selectBrush(pDC, &brush);
    pDC->RoundRect(rect, CPoint(kRoundCorner, kRoundCorner));
}

void DrawFrame(CDC* pDC, const CRect& rect, COLORREF color)
{
    pDC->Draw3dRect(rect, color, color);
}

void DrawHorizontalLine(CDC* pDC, int left, int right, int y, COLORREF color)
{
    pDC->FillSolidRect(left, y, right - left, 1, color);
}

void DrawFocusFrame(CDC* pDC, const CRect& rect)
{
    // The dots are mixed from these two colours.
    pDC->SetTextColor(RGB(0, 0, 0));
    pDC->SetBkColor(RGB(255, 255, 255));
    pDC->DrawFocusRect(rect);
}

} // namespace dayvane
