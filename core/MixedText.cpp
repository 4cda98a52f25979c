#include "core/MixedText.h"

#include <algorithm>
#include <unordered_map>

namespace dayvane {
namespace {

constexpr char16_t kLastAscii = 0x7F;
constexpr char32_t kEndOfBasicPlane = 0x10000;

// Tried first, in this order, then every face that is installed.
const wchar_t* const kUsualFaces[] = {
    L"MS UI Gothic", L"Yu Gothic UI", L"Malgun Gothic", L"Microsoft YaHei UI", L"Microsoft JhengHei UI",
    L"Segoe UI",     L"Tahoma",       L"Arial",         L"Segoe UI Symbol",    L"DejaVu Sans"};

// Whether the selected face has the character, of the basic plane.
bool HasGlyph(HDC hDC, char32_t character)
{
    constexpr WORD kNone = 0xFFFF;
    const wchar_t unit = static_cast<wchar_t>(character);
    WORD glyph = kNone;
    return ::GetGlyphIndicesW(hDC, &unit, 1, &glyph, GGI_MARK_NONEXISTING_GLYPHS) == GDI_ERROR || glyph != kNone;
}

int CALLBACK AddFamily(const LOGFONTW* look, const TEXTMETRICW*, DWORD type, LPARAM lFaces)
{
    if ((type & RASTER_FONTTYPE) == 0 && look->lfFaceName[0] != L'@') {
        reinterpret_cast<std::vector<std::wstring>*>(lFaces)->push_back(look->lfFaceName);
    }
    return 1;
}

// What is known about the faces of the system; of the thread of the user interface.
class Faces
{
public:
    static Faces& Get()
    {
        static thread_local Faces faces;
        return faces;
    }

    // From 1; 0: no face has the character.
    int FaceFor(char32_t character)
    {
        const auto known = m_faceOf.find(character);
        if (known != m_faceOf.end()) {
            return known->second;
        }
        EnumerateOnce();
        int found = 0;
        for (size_t i = 0; i < m_names.size() && found == 0; ++i) {
            found = Has(m_names[i], character) ? static_cast<int>(i) + 1 : 0;
        }
        return m_faceOf[character] = found;
    }
    const std::wstring& NameOf(int face) const { return m_names[static_cast<size_t>(face - 1)]; }

private:
    void EnumerateOnce()
    {
        if (!m_names.empty()) {
            return;
        }
        m_names.assign(std::begin(kUsualFaces), std::end(kUsualFaces));
        const HDC hDC = ::CreateCompatibleDC(nullptr);
        LOGFONTW all = {};
        all.lfCharSet = DEFAULT_CHARSET;
        ::EnumFontFamiliesExW(hDC, &all, &AddFamily, reinterpret_cast<LPARAM>(&m_names), 0);
        ::DeleteDC(hDC);
    }
    static bool Has(const std::wstring& name, char32_t character)
    {
        LOGFONTW look = {};
        look.lfCharSet = DEFAULT_CHARSET;
        ::lstrcpynW(look.lfFaceName, name.c_str(), LF_FACESIZE);
        const HDC hDC = ::CreateCompatibleDC(nullptr);
        const HFONT font = ::CreateFontIndirectW(&look);
        const HGDIOBJ old = ::SelectObject(hDC, font);
        const bool has = HasGlyph(hDC, character);
        ::SelectObject(hDC, old);
        ::DeleteObject(font);
        ::DeleteDC(hDC);
        return has;
    }

    std::vector<std::wstring> m_names;
    std::unordered_map<char32_t, int> m_faceOf;
};

// For private use: what it means is the selected face's own affair.
bool IsPrivate(char32_t character)
{
    return character >= 0xE000 && character < 0xF900;
}

const wchar_t* WideOf(const std::u16string& text, size_t from)
{
    return reinterpret_cast<const wchar_t*>(text.data()) + from;
}

} // namespace

int FallbackFace(HDC hDC, char32_t character)
{
    const bool isOwn =
        character <= kLastAscii || character >= kEndOfBasicPlane || IsPrivate(character) || HasGlyph(hDC, character);
    return isOwn ? 0 : Faces::Get().FaceFor(character);
}

const std::wstring& FallbackFaceName(int face)
{
    return Faces::Get().NameOf(face);
}

bool IsMixedText(HDC hDC, const std::u16string& text)
{
    if (std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit <= kLastAscii; })) {
        return false;
    }
    for (const TextRun& run : SplitRuns(text, [hDC](char32_t character) { return FallbackFace(hDC, character); })) {
        if (run.face != 0) {
            return true;
        }
    }
    return false;
}

MixedText::MixedText(HDC hDC, const std::u16string& text) : m_hDC(hDC), m_text(text), m_ends(text.size())
{
    TEXTMETRICW metrics = {};
    ::GetTextMetricsW(hDC, &metrics);
    m_height = metrics.tmHeight;
    m_ascent = metrics.tmAscent;
    m_runs = SplitRuns(m_text, [hDC](char32_t character) { return FallbackFace(hDC, character); });
    int width = 0;
    for (const TextRun& run : m_runs) {
        m_fonts.push_back(FontOf(run.face));
        const HGDIOBJ old = m_fonts.back() ? ::SelectObject(hDC, m_fonts.back()) : nullptr;
        SIZE size = {};
        ::GetTextExtentExPointW(hDC, WideOf(m_text, run.from), static_cast<int>(run.to - run.from), 0, nullptr,
                                &m_ends[run.from], &size);
        for (size_t i = run.from; i < run.to; ++i) {
            m_ends[i] += width;
        }
        width = m_ends[run.to - 1];
        if (old) {
            ::SelectObject(hDC, old);
        }
    }
}

MixedText::~MixedText()
{
    for (const HFONT font : m_fonts) {
        if (font) {
            ::DeleteObject(font);
        }
    }
}

// As high, bold, slanted and struck as the selected font.
HFONT MixedText::FontOf(int face)
{
    LOGFONTW look = {};
    if (face == 0 || ::GetObjectW(::GetCurrentObject(m_hDC, OBJ_FONT), sizeof(look), &look) == 0) {
        return nullptr;
    }
    look.lfCharSet = DEFAULT_CHARSET;
    ::lstrcpynW(look.lfFaceName, Faces::Get().NameOf(face).c_str(), LF_FACESIZE);
    return ::CreateFontIndirectW(&look);
}

void MixedText::Draw(int x, int y, const CRect& clip, std::size_t from, std::size_t to) const
{
    const UINT align = ::SetTextAlign(m_hDC, TA_LEFT | TA_BASELINE | TA_NOUPDATECP);
    const int start = from > 0 ? m_ends[from - 1] : 0;
    for (size_t i = 0; i < m_runs.size(); ++i) {
        const size_t first = std::max(m_runs[i].from, from);
        const size_t end = std::min(m_runs[i].to, to);
        if (first >= end) {
            continue;
        }
        const HGDIOBJ old = m_fonts[i] ? ::SelectObject(m_hDC, m_fonts[i]) : nullptr;
        ::ExtTextOutW(m_hDC, x + (first > 0 ? m_ends[first - 1] : 0) - start, y + m_ascent, ETO_CLIPPED, &clip,
                      WideOf(m_text, first), static_cast<UINT>(end - first), nullptr);
        if (old) {
            ::SelectObject(m_hDC, old);
        }
    }
    ::SetTextAlign(m_hDC, align);
}

} // namespace dayvane
