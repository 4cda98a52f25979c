#include "views/daygrid/BoxFonts.h"

#include <cstring>

namespace dayvane {
namespace {

constexpr int kCaptionTextHeight = 18; // pixels

struct FontForm
{
    int height; // pixels
    int weight;
    BYTE charSet;
    const char* face;
};
constexpr FontForm kWeekday = {12, FW_DONTCARE, SHIFTJIS_CHARSET, "MS UI Gothic"};
constexpr FontForm kDayNumber = {16, FW_BOLD, ANSI_CHARSET, "Arial"};
constexpr FontForm kSmallLatin = {12, FW_DONTCARE, ANSI_CHARSET, "Arial"};
constexpr FontForm kAnnotation = {12, FW_DONTCARE, SHIFTJIS_CHARSET, "MS UI Gothic"};

void CreateFont(CFont& font, const FontForm& form)
{
    if (font.GetSafeHandle()) {
        return;
    }
    LOGFONT lf = {};
    lf.lfHeight = form.height;
    lf.lfWeight = form.weight;
    lf.lfCharSet = form.charSet;
    lstrcpyn(lf.lfFaceName, form.face, LF_FACESIZE);
    font.CreateFontIndirect(&lf);
}

} // namespace

void BoxFonts::Create()
{
    CreateFont(weekday, kWeekday);
    CreateFont(dayNumber, kDayNumber);
    CreateFont(smallLatin, kSmallLatin);
    CreateFont(annotation, kAnnotation);
}

void BoxFonts::Clear()
{
    for (CFont* font : {&weekday, &dayNumber, &smallLatin, &annotation, &m_captionNumber.font, &m_captionText.font}) {
        font->DeleteObject();
    }
}

CFont* BoxFonts::CaptionNumber(const LOGFONT& itemFont, int height)
{
    LOGFONT lf = itemFont;
    lf.lfHeight = height;
    lf.lfWeight = FW_BOLD;
    return m_captionNumber.Get(lf);
}

CFont* BoxFonts::CaptionText(const LOGFONT& itemFont)
{
    LOGFONT lf = itemFont;
    lf.lfHeight = kCaptionTextHeight;
    return m_captionText.Get(lf);
}

CFont* BoxFonts::Slot::Get(const LOGFONT& lf)
{
    if (!font.GetSafeHandle() || std::memcmp(&made, &lf, sizeof(lf)) != 0) {
        made = lf;
        font.DeleteObject();
        font.CreateFontIndirect(&lf);
    }
    return &font;
}

} // namespace dayvane
