// Paints the year-month picker's popup and its button.
#pragma once

#include "PickerPaint.h"
#include "YearMonthGrid.h"

namespace dayvane {

constexpr int kYearShare = 150; // of the host's font, per cent

struct YearMonthFonts
{
    PickerFonts text{kTextFont}; // months plain, footer bold
    PickerFonts year{kYearFont, kYearShare};
};

struct YearMonthPicture
{
    const YearMonthLayout& layout;
    YearMonth selected;
    YearMonthHit hot;
    bool isPressed; // the button is held on the hot part
    COleDateTime now;
    YearMonthFonts& fonts;
    const CalendarTheme& theme = kClassicTheme;
    const CalendarTexts& texts = *RequiredTexts();
    bool eraTitles = false;
};

class YearMonthPainter
{
public:
    YearMonthPainter(CDC* pDC, const YearMonthPicture& picture);
    void Draw() const;

private:
    void DrawMonths() const;
    void DrawHeader() const;
    void DrawFooter() const;
    // The box of the hot month or footer.
    void DrawHotBox(const CRect& box) const;
    COLORREF ArrowColor(YearMonthCode code) const;

    CDC* m_pDC;
    YearMonthPicture m_picture;
    PickerPalette m_palette;
};

struct PickerFacePicture
{
    CRect client;
    CRect arrow;
    std::u16string text;
    bool isDropped;
    bool isHot;
    bool isDisabled;
    bool isFocused;
    PickerFonts& fonts;
    const CalendarTheme& theme = kClassicTheme;
};

class PickerFacePainter
{
public:
    PickerFacePainter(CDC* pDC, const PickerFacePicture& picture);
    void Draw() const;

private:
    void DrawDropArrow() const;
    // The middle of the face, unless the text would then reach the arrow.
    CRect TextPlace(const CRect& face, const CRect& besideArrow) const;

    CDC* m_pDC;
    PickerFacePicture m_picture;
    PickerPalette m_palette;
};

} // namespace dayvane
