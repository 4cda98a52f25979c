// Paints the year-month picker's popup and its button.
#pragma once

#include "PickerPaint.h"
#include "YearMonthGrid.h"

namespace dayvane {

struct YearMonthFonts
{
    PickerFonts text{kTextFont}; // months plain, footer bold
    PickerFonts year{kYearFont};
};

struct YearMonthPicture
{
    const YearMonthLayout& layout;
    YearMonth selected;
    YearMonthHit hot;
    bool isPressed; // the button is held on the hot part
    COleDateTime now;
    YearMonthFonts& fonts;
};

void PaintYearMonthPopup(CDC* pDC, const YearMonthPicture& picture);

struct PickerFacePicture
{
    CRect client;
    CRect arrow;
    CString text;
    bool isDropped;
    bool isHot;
    bool isDisabled;
    bool isFocused;
    PickerFonts& fonts;
};

void PaintPickerFace(CDC* pDC, const PickerFacePicture& picture);

} // namespace dayvane
