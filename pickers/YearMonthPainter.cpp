#include "pickers/YearMonthPainter.h"

#include "core/DrawingHelpers.h"
#include "core/EraTitles.h"
#include "core/WideText.h"

namespace dayvane {
namespace {
struct YearMonthPaintMetrics // pixels
{
    int lineInset;    // of the footer's separator from the sides
    int monthInset;   // of the box round a month
    int faceInset;    // of the button's face within its frame
    int focusInset;   // of the focus frame within the face
    int droppedShift; // of the button's text while the popup is open
};
constexpr YearMonthPaintMetrics kMetrics{5, 1, 2, 1, 1};
constexpr int kDropArrowShare = 5; // the drop arrow reaches a fifth of its button to each side

} // namespace

YearMonthPainter::YearMonthPainter(CDC* pDC, const YearMonthPicture& picture)
    : m_pDC(pDC), m_picture(picture), m_palette(PickerPaletteOf(picture.theme))
{
}

void YearMonthPainter::Draw() const
{
    m_pDC->FillSolidRect(m_picture.layout.client, m_palette.window);
    DrawFrame(m_pDC, m_picture.layout.client, m_palette.frame);
    DrawMonths();
    DrawHeader();
    DrawFooter();
}

void YearMonthPainter::DrawMonths() const
{
    for (int month = 0; month < kMonthsPerYear; ++month) {
        const CRect& cell = m_picture.layout.months[month];
        CRect box = cell;
        box.DeflateRect(kMetrics.monthInset, kMetrics.monthInset);
        COLORREF color = m_palette.text;
        if (month == m_picture.selected.month) {
            color = ThemeOr(m_palette.selectedText, color);
            DrawRoundBox(m_pDC, box, m_palette.selected, m_palette.selectedFrame);
        } else if (m_picture.hot.code == YearMonthCode::None && m_picture.hot.month == month) {
            DrawHotBox(box);
        }
        DrawCentredText(m_pDC, cell, MonthText(month + 1, m_picture.texts), m_picture.fonts.text.Get(false), color);
    }
}

void YearMonthPainter::DrawHotBox(const CRect& box) const
{
    DrawRoundBox(m_pDC, box, m_picture.isPressed ? m_palette.paleSelected : m_palette.hot, m_palette.hotFrame);
}

COLORREF YearMonthPainter::ArrowColor(YearMonthCode code) const
{
    if (m_picture.hot.code != code) {
        return m_palette.arrow;
    }
    return m_picture.isPressed ? m_palette.selected : m_palette.bandText;
}

void YearMonthPainter::DrawHeader() const
{
    const CRect& header = m_picture.layout.header;
    DrawGradient(m_pDC, header, m_palette.bandFrom, m_palette.bandTo, FALSE, FALSE);
    CString text;
    text.Format("%d", m_picture.selected.year);
    const COleDateTime first = DateOfPacked(m_picture.selected.Packed());
    const CString era = m_picture.eraTitles ? EraTitle(first, first, TitleUnit::Year) : CString();
    CFont* const font = era.IsEmpty() ? m_picture.fonts.year.Get(true) : m_picture.fonts.text.Get(true);
    DrawCentredText(m_pDC, header, OwnText(era.IsEmpty() ? text : era), font, m_palette.bandText);

    const int middle = header.CenterPoint().y;
    const int reach = ArrowReach(header);
    DrawArrow(m_pDC, CPoint(header.left + m_picture.layout.metrics.leftArrowInset, middle), reach, true,
              ArrowColor(YearMonthCode::PreviousYear));
    DrawArrow(m_pDC, CPoint(header.right - m_picture.layout.metrics.rightArrowInset, middle), reach, false,
              ArrowColor(YearMonthCode::NextYear));
}

void YearMonthPainter::DrawFooter() const
{
    const CRect& footer = m_picture.layout.footer;
    if (m_picture.hot.code == YearMonthCode::Footer) {
        CRect box = footer;
        box.DeflateRect(kMetrics.lineInset, kMetrics.monthInset + 1);
        DrawHotBox(box);
    }
    DrawHorizontalLine(m_pDC, footer.left + kMetrics.lineInset, footer.right - kMetrics.lineInset, footer.top,
                       m_palette.frame);
    CFont* font = m_picture.fonts.text.Get(true);
    DrawCentredText(m_pDC, footer,
                    FittingFooter(m_pDC, font, footer.Width(), CellUnit::Month, m_picture.now, m_picture.texts), font,
                    m_palette.text);
}

PickerFacePainter::PickerFacePainter(CDC* pDC, const PickerFacePicture& picture)
    : m_pDC(pDC), m_picture(picture), m_palette(PickerPaletteOf(picture.theme, !picture.isDisabled))
{
}

void PickerFacePainter::Draw() const
{
    DrawFrame(m_pDC, m_picture.client, m_picture.isHot ? m_palette.selectedFrame : m_palette.frame);
    CRect face = m_picture.client;
    face.DeflateRect(kMetrics.faceInset, kMetrics.faceInset);
    m_pDC->FillSolidRect(face, m_palette.face);
    DrawDropArrow();

    const CRect besideArrow(face.left, face.top, m_picture.arrow.left, face.bottom);
    CRect place = TextPlace(face, besideArrow);
    if (m_picture.isDropped) {
        place.OffsetRect(kMetrics.droppedShift, kMetrics.droppedShift);
    }
    DrawCentredText(m_pDC, place, m_picture.text, m_picture.fonts.Get(false), m_palette.faceText);
    if (m_picture.isFocused) {
        CRect focus = besideArrow;
        focus.DeflateRect(kMetrics.focusInset, kMetrics.focusInset);
        DrawFocusFrame(m_pDC, focus);
    }
}

void PickerFacePainter::DrawDropArrow() const
{
    CRect arrow = m_picture.arrow;
    if (m_picture.theme.header != CalendarTheme::kOwn) {
        m_pDC->FillSolidRect(&arrow, m_picture.isHot ? m_palette.hot : m_palette.face);
        DrawDownArrow(m_pDC, arrow.CenterPoint(), arrow.Width() / kDropArrowShare, m_palette.faceText);
        return;
    }
    const UINT state = (m_picture.isDropped ? DFCS_PUSHED : 0) | (m_picture.isHot ? DFCS_HOT : 0) |
                       (m_picture.isDisabled ? DFCS_INACTIVE : 0);
    m_pDC->DrawFrameControl(&arrow, DFC_SCROLL, DFCS_SCROLLCOMBOBOX | state);
}

CRect PickerFacePainter::TextPlace(const CRect& face, const CRect& besideArrow) const
{
    const SelectGdi font(m_pDC, m_picture.fonts.Get(false));
    const int width = WideTextExtent(*m_pDC, m_picture.text).cx;
    return face.CenterPoint().x + width / 2 < besideArrow.right ? face : besideArrow;
}

} // namespace dayvane
