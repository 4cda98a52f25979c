#include "printing/DcTextMeasurer.h"

#include "core/MixedText.h"
#include "core/Utf16.h"

#include <algorithm>

namespace dayvane {
namespace {

constexpr int kReferenceEm = 1000; // pixels
constexpr int kUnitsPerInch = 254;
constexpr int kPointTenthsPerInch = 720;
constexpr char32_t kLastAscii = 0x7F;

} // namespace

HFONT CreatePageFont(const PageFont& font, const PageFaces& faces, int emHeight, int fallback)
{
    LOGFONTW look = {};
    look.lfHeight = -std::max(emHeight, 1);
    look.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
    look.lfItalic = font.italic;
    look.lfStrikeOut = font.italic;
    look.lfOutPrecision = OUT_TT_PRECIS; // a font that printers and metafiles can take along
    const bool isText = font.face == PageFace::Text;
    look.lfCharSet = isText ? faces.textCharSet : static_cast<BYTE>(ANSI_CHARSET);
    if (fallback != 0) {
        look.lfCharSet = DEFAULT_CHARSET;
        ::lstrcpynW(look.lfFaceName, FallbackFaceName(fallback).c_str(), LF_FACESIZE);
    } else {
        ::MultiByteToWideChar(CP_ACP, 0, (isText ? faces.text : faces.latin).c_str(), -1, look.lfFaceName,
                              LF_FACESIZE - 1);
    }
    return ::CreateFontIndirectW(&look);
}

// ---- Faces

FaceFinder::FaceFinder(const PageFaces& faces) : m_dc(::CreateCompatibleDC(nullptr))
{
    for (const PageFace face : {PageFace::Text, PageFace::Latin}) {
        m_own[static_cast<int>(face)].font = CreatePageFont({face, 0, false, false}, faces, kReferenceEm);
    }
}

FaceFinder::~FaceFinder()
{
    ::DeleteDC(m_dc); // lets go of the font that is still selected
    for (const Own& own : m_own) {
        ::DeleteObject(own.font);
    }
}

int FaceFinder::FallbackFor(PageFace face, char32_t character) const
{
    if (character <= kLastAscii) {
        return 0;
    }
    Own& own = m_own[static_cast<int>(face)];
    const auto known = own.known.find(character);
    if (known != own.known.end()) {
        return known->second;
    }
    ::SelectObject(m_dc, own.font);
    return own.known[character] = FallbackFace(m_dc, character);
}

// ---- Widths

DcTextMeasurer::DcTextMeasurer(const PageFaces& faces)
    : m_faces(faces), m_finder(faces), m_dc(::CreateCompatibleDC(nullptr))
{
}

DcTextMeasurer::~DcTextMeasurer()
{
    ::DeleteDC(m_dc); // lets go of the font that is still selected
    for (const auto& style : m_styles) {
        for (const auto& font : style.second.fonts) {
            ::DeleteObject(font.second);
        }
    }
}

DcTextMeasurer::Style& DcTextMeasurer::StyleOf(const PageFont& font) const
{
    const int key = static_cast<int>(font.face) * 4 + font.bold * 2 + font.italic;
    return m_styles[key];
}

int DcTextMeasurer::WidthOf(const PageFont& font, Style& style, const char16_t* character, int length) const
{
    const unsigned key = length == 1 ? character[0] : static_cast<unsigned>(character[0]) << 16 | character[1];
    const auto known = style.widths.find(key);
    if (known != style.widths.end()) {
        return known->second;
    }
    const int fallback = length == 1 ? m_finder.FallbackFor(font.face, character[0]) : 0;
    HFONT& measured = style.fonts[fallback];
    if (!measured) {
        measured = CreatePageFont(font, m_faces, kReferenceEm, fallback);
    }
    ::SelectObject(m_dc, measured);
    SIZE size = {};
    ::GetTextExtentPoint32W(m_dc, reinterpret_cast<LPCWSTR>(character), length, &size);
    style.widths[key] = size.cx;
    return size.cx;
}

void DcTextMeasurer::Measure(const PageFont& font, const std::u16string& text, std::vector<int>& ends) const
{
    Style& style = StyleOf(font);
    ends.resize(text.size());
    long long width = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (i == 0 || !IsTrail(text[i])) {
            width += WidthOf(font, style, &text[i], IsLead(text[i]) && i + 1 < text.size() ? 2 : 1);
        }
        constexpr long long kDivisor = static_cast<long long>(kReferenceEm) * kPointTenthsPerInch;
        ends[i] = static_cast<int>((width * font.size * kUnitsPerInch + kDivisor - 1) / kDivisor);
    }
}

} // namespace dayvane
