#include "pickers/PickerPaint.h"

#include "core/DrawingHelpers.h"
#include "core/WideText.h"

#include <initializer_list>

namespace dayvane {
namespace {
constexpr UINT kCentred = DT_CENTER | DT_VCENTER | DT_SINGLELINE;
constexpr int kRoundCorner = 3; // pixels
constexpr int kWhole = 100;     // per cent
} // namespace

namespace {

PickerPalette SystemPalette()
{
    PickerPalette palette = {};
    palette.window = ::GetSysColor(COLOR_WINDOW);
    palette.text = palette.faceText = ::GetSysColor(COLOR_WINDOWTEXT);
    palette.disabledText = ::GetSysColor(COLOR_GRAYTEXT);
    palette.face = ::GetSysColor(COLOR_BTNFACE);
    return palette;
}

void Put(COLORREF role, std::initializer_list<COLORREF*> colors)
{
    for (COLORREF* color : colors) {
        *color = ThemeOr(role, *color);
    }
}

void PutTheme(const CalendarTheme& theme, PickerPalette& palette)
{
    Put(theme.page, {&palette.window});
    Put(theme.pageText, {&palette.text});
    Put(theme.header, {&palette.face});
    Put(theme.headerText, {&palette.faceText});
    Put(theme.otherMonthText,
        {&palette.disabledText, &palette.paleText, &palette.paleHoliday, &palette.paleSaturday, &palette.weekNumber});
    Put(theme.holiday.text, {&palette.holiday});
    Put(theme.saturday.text, {&palette.saturday});
    Put(theme.border, {&palette.frame, &palette.hotFrame});
    Put(theme.title, {&palette.bandFrom, &palette.bandTo});
    Put(theme.titleText, {&palette.bandText, &palette.arrow});
    Put(theme.hot, {&palette.bandHot, &palette.bandPressed, &palette.hot});
    Put(theme.selection, {&palette.selected, &palette.paleSelected});
    Put(theme.selectionText, {&palette.selectedText});
    Put(theme.selectionFrame, {&palette.selectedFrame});
    Put(theme.today, {&palette.today});
}

} // namespace

PickerPalette PickerPaletteOf(const CalendarTheme& theme, bool isEnabled)
{
    PickerPalette palette = SystemPalette();
    PutTheme(theme, palette);
    if (isEnabled) {
        return palette;
    }
    const COLORREF gray = palette.disabledText;
    palette.text = palette.holiday = palette.saturday = palette.today = palette.weekNumber = gray;
    palette.faceText = gray;
    palette.paleHoliday = palette.paleSaturday = palette.paleText;
    palette.bandFrom = palette.bandTo = ThemeOr(theme.title, gray);
    palette.bandText = theme.title == CalendarTheme::kOwn ? palette.bandText : gray;
    palette.selected = palette.paleSelected = palette.face;
    palette.selectedText = CalendarTheme::kOwn;
    palette.selectedFrame = palette.frame;
    return palette;
}

void PickerFonts::Show(const ViewScale& scale, const std::optional<LOGFONT>& font)
{
    m_scale = scale;
    m_hostFont = font;
}

CFont* PickerFonts::Get(bool bold)
{
    if (m_hostFont) {
        LOGFONT description = Scaled(*m_hostFont, m_scale);
        description.lfHeight = MulDiv(description.lfHeight, m_hostShare, kWhole);
        description.lfWeight = bold ? FW_BOLD : description.lfWeight;
        return m_cache.Get(description);
    }
    FontSpec spec = m_spec;
    spec.weight = bold ? FW_BOLD : spec.weight;
    return m_cache.Get(ScaledText(spec, m_scale));
}

void DrawCentredText(CDC* pDC, const CRect& rect, const std::u16string& text, CFont* pFont, COLORREF color)
{
    const SelectGdi font(pDC, pFont);
    pDC->SetBkMode(TRANSPARENT);
    pDC->SetTextColor(color);
    DrawWideText(*pDC, text, rect, kCentred);
}

std::u16string FittingFooter(CDC* pDC, CFont* pFont, int width, CellUnit unit, const COleDateTime& now,
                             const CalendarTexts& texts)
{
    const SelectGdi font(pDC, pFont);
    const std::u16string text = FooterText(unit, now, texts);
    return WideTextExtent(*pDC, text).cx <= width ? text : FooterText(unit, now, texts, true);
}

void DrawArrow(CDC* pDC, CPoint tip, int reach, bool pointsLeft, COLORREF color)
{
    for (int i = 0; i <= reach; ++i) {
        const int x = pointsLeft ? tip.x + i : tip.x - i;
        pDC->FillSolidRect(x, tip.y - i, 1, 2 * i + 1, color);
    }
}

void DrawDownArrow(CDC* pDC, CPoint middle, int reach, COLORREF color)
{
    for (int i = 0; i <= reach; ++i) {
        pDC->FillSolidRect(middle.x - i, middle.y + reach / 2 - i, 2 * i + 1, 1, color);
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

} // namespace dayvane
