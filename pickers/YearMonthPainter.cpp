#include "pickers/YearMonthPainter.h"

#include "core/DrawingHelpers.h"

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

void PaintMonths(CDC* pDC, const YearMonthPicture& picture, const PickerPalette& palette)
{
    for (int month = 0; month < kMonthsPerYear; ++month) {
        const CRect& cell = picture.layout.months[month];
        CRect box = cell;
        box.DeflateRect(kMetrics.monthInset, kMetrics.monthInset);
        const bool isHot = picture.hot.code == YearMonthCode::None && picture.hot.month == month;
        if (month == picture.selected.month) {
            DrawRoundBox(pDC, box, palette.selected, palette.selectedFrame);
        } else if (isHot) {
            DrawRoundBox(pDC, box, picture.isPressed ? palette.paleSelected : palette.hot, palette.hotFrame);
        }
        CString text;
        text.Format("%d月", month + 1);
        DrawCentredText(pDC, cell, text, picture.fonts.text.Get(false), palette.text);
    }
}

void PaintHeader(CDC* pDC, const YearMonthPicture& picture, const PickerPalette& palette)
{
    const CRect& header = picture.layout.header;
    DrawGradient(pDC, header, palette.bandFrom, palette.bandTo, FALSE, FALSE);
    CString text;
    text.Format("%d", picture.selected.year);
    DrawCentredText(pDC, header, text, picture.fonts.year.Get(true), palette.bandText);

    const auto colorOf = [&](YearMonthCode code) {
        if (picture.hot.code != code) {
            return palette.frame;
        }
        return picture.isPressed ? palette.selected : palette.bandText;
    };
    const int middle = header.CenterPoint().y;
    const int reach = ArrowReach(header);
    DrawArrow(pDC, CPoint(header.left + kYearMonthMetrics.leftArrowInset, middle), reach, true,
              colorOf(YearMonthCode::PreviousYear));
    DrawArrow(pDC, CPoint(header.right - kYearMonthMetrics.rightArrowInset, middle), reach, false,
              colorOf(YearMonthCode::NextYear));
}

void PaintFooter(CDC* pDC, const YearMonthPicture& picture, const PickerPalette& palette)
{
    const CRect& footer = picture.layout.footer;
    if (picture.hot.code == YearMonthCode::Footer) {
        CRect box = footer;
        box.DeflateRect(kMetrics.lineInset, kMetrics.monthInset + 1);
        DrawRoundBox(pDC, box, picture.isPressed ? palette.paleSelected : palette.hot, palette.hotFrame);
    }
    DrawHorizontalLine(pDC, footer.left + kMetrics.lineInset, footer.right - kMetrics.lineInset, footer.top,
                       palette.frame);
    DrawCentredText(pDC, footer, FooterText(CellUnit::Month, picture.now), picture.fonts.text.Get(true), palette.text);
}

// The middle of the face, unless the text would then run under the arrow.
CRect TextPlace(CDC* pDC, const PickerFacePicture& picture, const CRect& face, const CRect& besideArrow)
{
    const SelectGdi font(pDC, picture.fonts.Get(false));
    const int width = pDC->GetTextExtent(picture.text).cx;
    return face.CenterPoint().x + width / 2 < besideArrow.right ? face : besideArrow;
}
} // namespace

void PaintYearMonthPopup(CDC* pDC, const YearMonthPicture& picture)
{
    const PickerPalette palette = SystemPickerPalette();
    pDC->FillSolidRect(picture.layout.client, palette.window);
    DrawFrame(pDC, picture.layout.client, palette.frame);
    PaintMonths(pDC, picture, palette);
    PaintHeader(pDC, picture, palette);
    PaintFooter(pDC, picture, palette);
}

void PaintPickerFace(CDC* pDC, const PickerFacePicture& picture)
{
    const PickerPalette palette = picture.isDisabled ? DisabledPickerPalette() : SystemPickerPalette();
    DrawFrame(pDC, picture.client, picture.isHot ? palette.selectedFrame : palette.frame);
    CRect face = picture.client;
    face.DeflateRect(kMetrics.faceInset, kMetrics.faceInset);
    pDC->FillSolidRect(face, palette.face);

    CRect arrow = picture.arrow;
    pDC->DrawFrameControl(&arrow, DFC_SCROLL,
                          DFCS_SCROLLCOMBOBOX | (picture.isDropped ? DFCS_PUSHED : 0) | (picture.isHot ? DFCS_HOT : 0) |
                              (picture.isDisabled ? DFCS_INACTIVE : 0));

    const CRect besideArrow(face.left, face.top, picture.arrow.left, face.bottom);
    CRect place = TextPlace(pDC, picture, face, besideArrow);
    if (picture.isDropped) {
        place.OffsetRect(kMetrics.droppedShift, kMetrics.droppedShift);
    }
    DrawCentredText(pDC, place, picture.text, picture.fonts.Get(false), palette.text);
    if (picture.isFocused) {
        CRect focus = besideArrow;
        focus.DeflateRect(kMetrics.focusInset, kMetrics.focusInset);
        DrawFocusFrame(pDC, focus);
    }
}

} // namespace dayvane
