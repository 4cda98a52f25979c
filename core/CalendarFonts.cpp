#include "core/CalendarFonts.h"

#include "core/Fonts.h"
#include "core/WindowHelpers.h"

using namespace dayvane;

namespace {

constexpr UINT kJapanesePage = 932;
constexpr const char* kJapaneseFaces[] = {"Yu Gothic UI", "Meiryo UI", "Meiryo"};

// Characters without the space above them, pixels at 96 dpi.
constexpr LONG kHoursHeight = -19;
constexpr LONG kCaptionHeight = -24;

bool HasJapanese(const char* face)
{
    CClientDC screen(nullptr);
    return IsFaceInstalled(screen.GetSafeHdc(), face, SHIFTJIS_CHARSET);
}

LOGFONT MessageFont()
{
    NONCLIENTMETRICSA metrics = {};
    metrics.cbSize = sizeof(metrics);
    ::SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
    LOGFONT font = metrics.lfMessageFont;
    font.lfHeight = MulDiv(font.lfHeight, kBaseDpi, ScreenDpi());
    return font;
}

} // namespace

CalendarFonts CalendarFonts::Modern()
{
    CalendarFonts fonts = {};
    fonts.text = MessageFont();
    if (::GetACP() == kJapanesePage && !HasJapanese(fonts.text.lfFaceName)) {
        for (const char* face : kJapaneseFaces) {
            if (HasJapanese(face)) {
                lstrcpyn(fonts.text.lfFaceName, face, LF_FACESIZE);
                fonts.text.lfCharSet = SHIFTJIS_CHARSET;
                break;
            }
        }
    }
    fonts.hours = Resized(fonts.text, kHoursHeight, FW_NORMAL);
    fonts.caption = Resized(fonts.text, kCaptionHeight, FW_NORMAL);
    return fonts;
}
