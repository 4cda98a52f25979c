#include "core/MixedText.h"

#include "core/CharacterMap.h"
#include "core/DrawingHelpers.h"
#include "core/WideText.h"

#include <usp10.h>

#include <algorithm>
#include <set>
#include <unordered_map>

namespace dayvane {
namespace {

constexpr char16_t kLastAscii = 0x7F;
constexpr char32_t kEndOfBasicPlane = 0x10000;

// Tried first, in this order, then every face that is installed.
const wchar_t* const kUsualFaces[] = {
    L"MS UI Gothic",          L"Yu Gothic UI",    L"Malgun Gothic", L"Microsoft YaHei UI",
    L"Microsoft JhengHei UI", L"Segoe UI",        L"Tahoma",        L"Arial",
    L"Segoe UI Emoji",        L"Segoe UI Symbol", L"DejaVu Sans"};

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

std::vector<CharacterRange> RangesOf(HDC hDC)
{
    constexpr DWORD kTable = 'c' | 'm' << 8 | 'a' << 16 | 'p' << 24;
    const DWORD size = ::GetFontData(hDC, kTable, 0, nullptr, 0);
    std::string table(size == GDI_ERROR ? 0 : size, '\0');
    ::GetFontData(hDC, kTable, 0, &table[0], static_cast<DWORD>(table.size()));
    return RangesBeyondBasicPlane(table);
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
        for (int face = 1; face <= static_cast<int>(m_names.size()) && found == 0; ++face) {
            found = Has(face, character) ? face : 0;
        }
        return m_faceOf[character] = found;
    }
    // The selected face.
    int Selected(HDC hDC)
    {
        EnumerateOnce();
        wchar_t name[LF_FACESIZE] = L"";
        ::GetTextFaceW(hDC, LF_FACESIZE, name);
        const auto found = std::find(m_names.begin(), m_names.end(), name);
        if (found != m_names.end()) {
            return static_cast<int>(found - m_names.begin()) + 1;
        }
        m_names.push_back(name);
        return static_cast<int>(m_names.size());
    }
    bool Has(int face, char32_t character)
    {
        const std::uint64_t key = static_cast<std::uint64_t>(face) << 32 | character;
        const auto known = m_has.find(key);
        return known != m_has.end() ? known->second : (m_has[key] = Asked(face, character));
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
    bool Asked(int face, char32_t character)
    {
        LOGFONTW look = {};
        look.lfCharSet = DEFAULT_CHARSET;
        ::lstrcpynW(look.lfFaceName, NameOf(face).c_str(), LF_FACESIZE);
        const HDC hDC = ::CreateCompatibleDC(nullptr);
        const HFONT font = ::CreateFontIndirectW(&look);
        const HGDIOBJ old = ::SelectObject(hDC, font);
        bool has = false;
        if (character < kEndOfBasicPlane) {
            has = HasGlyph(hDC, character);
        } else {
            if (m_beyond.find(face) == m_beyond.end()) {
                m_beyond[face] = RangesOf(hDC);
            }
            has = HasCharacter(m_beyond[face], character);
        }
        ::SelectObject(hDC, old);
        ::DeleteObject(font);
        ::DeleteDC(hDC);
        return has;
    }

    std::vector<std::wstring> m_names;
    std::unordered_map<char32_t, int> m_faceOf;
    std::unordered_map<std::uint64_t, bool> m_has;                 // by face and character
    std::unordered_map<int, std::vector<CharacterRange>> m_beyond; // the basic plane, by face
};

// For private use: what it means is the selected face's own affair.
bool IsPrivate(char32_t character)
{
    return character >= 0xE000 && character < 0xF900;
}

// Whether the selected face has the character.
bool IsOwn(HDC hDC, char32_t character)
{
    return character <= kLastAscii || IsPrivate(character) ||
           (character < kEndOfBasicPlane ? HasGlyph(hDC, character)
                                         : Faces::Get().Has(Faces::Get().Selected(hDC), character));
}

// As high, bold, slanted and struck as the selected font.
HFONT NewFontOf(HDC hDC, int face)
{
    LOGFONTW look = {};
    if (face == 0 || ::GetObjectW(::GetCurrentObject(hDC, OBJ_FONT), sizeof(look), &look) == 0) {
        return nullptr;
    }
    look.lfCharSet = DEFAULT_CHARSET;
    ::lstrcpynW(look.lfFaceName, Faces::Get().NameOf(face).c_str(), LF_FACESIZE);
    return ::CreateFontIndirectW(&look);
}

// Characters that not every face has.
std::set<char32_t> UncommonOf(const std::u16string& text)
{
    std::set<char32_t> found;
    SplitRuns(text, [&](char32_t character) {
        if (character > kLastAscii && !IsPrivate(character)) {
            found.insert(character);
        }
        return 0;
    });
    return found;
}

// What is more than one glyph after the other for each unit: characters beyond the basic plane, and scripts whose
// letters join or run from right to left. The plain calls of some systems do not put them together.
class ShapedText
{
public:
    ShapedText(HDC hDC, const std::u16string& text, std::size_t from, std::size_t to)
    {
        const int length = static_cast<int>(to - from);
        ::ScriptStringAnalyse(hDC, WideOf(text) + from, length, length * 3 / 2 + 16, -1, SSA_GLYPHS | SSA_FALLBACK, 0,
                              nullptr, nullptr, nullptr, nullptr, nullptr, &m_text);
    }
    ~ShapedText()
    {
        if (m_text) {
            ::ScriptStringFree(&m_text);
        }
    }
    ShapedText(const ShapedText&) = delete;
    ShapedText& operator=(const ShapedText&) = delete;

    void Measure(int* ends, std::size_t count) const
    {
        if (!m_text || FAILED(::ScriptStringGetLogicalWidths(m_text, ends))) {
            return;
        }
        for (std::size_t i = 1; i < count; ++i) {
            ends[i] += ends[i - 1];
        }
    }
    void Draw(int x, int y, const CRect& clip) const
    {
        if (m_text) {
            ::ScriptStringOut(m_text, x, y, ETO_CLIPPED, &clip, 0, 0, FALSE);
        }
    }

private:
    SCRIPT_STRING_ANALYSIS m_text = nullptr;
};

bool NeedsShaping(const std::u16string& text, std::size_t from, std::size_t to)
{
    const auto first = text.begin() + static_cast<std::ptrdiff_t>(from);
    const auto end = text.begin() + static_cast<std::ptrdiff_t>(to);
    return std::any_of(first, end, [](char16_t unit) { return IS_HIGH_SURROGATE(unit); }) ||
           ::ScriptIsComplex(WideOf(text) + from, static_cast<int>(to - from), SIC_COMPLEX) == S_OK;
}

} // namespace

int FallbackFace(HDC hDC, char32_t character)
{
    if (!IsOwn(hDC, character)) {
        return Faces::Get().FaceFor(character);
    }
    return character < kEndOfBasicPlane ? 0 : Faces::Get().Selected(hDC);
}

const std::wstring& FallbackFaceName(int face)
{
    return Faces::Get().NameOf(face);
}

HFONT NewFontForText(HDC hDC, const std::u16string& text)
{
    const std::set<char32_t> wanted = UncommonOf(text);
    Faces& faces = Faces::Get();
    const auto countOf = [&](int face) {
        return std::count_if(wanted.begin(), wanted.end(),
                             [&](char32_t character) { return faces.Has(face, character); });
    };
    std::set<int> candidates;
    for (const char32_t character : wanted) {
        candidates.insert(faces.FaceFor(character));
    }
    candidates.erase(0);
    for (int face = 1; face <= static_cast<int>(std::size(kUsualFaces)) && !candidates.empty(); ++face) {
        candidates.insert(face);
    }
    int best = 0;
    auto most = std::count_if(wanted.begin(), wanted.end(), [&](char32_t character) { return IsOwn(hDC, character); });
    for (const int face : candidates) {
        const auto count = most < static_cast<std::ptrdiff_t>(wanted.size()) ? countOf(face) : 0;
        best = count > most ? face : best;
        most = std::max(count, most);
    }
    return NewFontOf(hDC, best);
}

bool IsMixedText(HDC hDC, const std::u16string& text)
{
    if (std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit <= kLastAscii; })) {
        return false;
    }
    const auto runs = SplitRuns(text, [hDC](char32_t character) { return FallbackFace(hDC, character); });
    return std::any_of(runs.begin(), runs.end(), [](const TextRun& run) { return run.face != 0; });
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
        m_fonts.push_back(NewFontOf(hDC, run.face));
        const SelectGdi selectFont(hDC, m_fonts.back());
        Measure(run);
        for (size_t i = run.from; i < run.to; ++i) {
            m_ends[i] += width;
        }
        width = m_ends[run.to - 1];
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

// Of the selected face.
void MixedText::Measure(const TextRun& run)
{
    if (NeedsShaping(m_text, run.from, run.to)) {
        ShapedText(m_hDC, m_text, run.from, run.to).Measure(&m_ends[run.from], run.to - run.from);
        return;
    }
    SIZE size = {};
    ::GetTextExtentExPointW(m_hDC, WideOf(m_text) + run.from, static_cast<int>(run.to - run.from), 0, nullptr,
                            &m_ends[run.from], &size);
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
        const SelectGdi selectFont(m_hDC, m_fonts[i]);
        DrawRun(x + (first > 0 ? m_ends[first - 1] : 0) - start, y, clip, first, end);
    }
    ::SetTextAlign(m_hDC, align);
}

// In the selected face; y is the top of the line.
void MixedText::DrawRun(int x, int y, const CRect& clip, std::size_t from, std::size_t to) const
{
    if (!NeedsShaping(m_text, from, to)) {
        ::ExtTextOutW(m_hDC, x, y + m_ascent, ETO_CLIPPED, &clip, WideOf(m_text) + from, static_cast<UINT>(to - from),
                      nullptr);
        return;
    }
    TEXTMETRICW metrics = {};
    ::GetTextMetricsW(m_hDC, &metrics);
    const UINT align = ::SetTextAlign(m_hDC, TA_LEFT | TA_TOP | TA_NOUPDATECP);
    ShapedText(m_hDC, m_text, from, to).Draw(x, y + m_ascent - metrics.tmAscent, clip);
    ::SetTextAlign(m_hDC, align);
}

} // namespace dayvane
