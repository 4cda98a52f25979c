#include "core/TextCache.h"

#include "core/DrawingHelpers.h"
#include "core/MixedText.h"
#include "core/WideText.h"

#include <climits>
#include <utility>
#include <vector>

namespace dayvane {
namespace {

constexpr size_t kMaxBytes = 1 << 20; // a few screens full of texts
constexpr size_t kBytesOfLine = 96;   // besides its two texts
constexpr wchar_t kEllipsis[] = L"...";
constexpr int kEllipsisLength = 3;

std::u16string OneLine(std::u16string text)
{
    for (char16_t& unit : text) {
        if (unit < u' ') {
            unit = u' ';
        }
    }
    return text;
}

std::wstring CopyOf(const std::u16string& text)
{
    return std::wstring(WideOf(text), text.size());
}

// So many units that the ellipsis fits after them, no half of a character among them.
int CutBefore(const std::u16string& line, const std::vector<int>& ends, int fitting, int room)
{
    while (fitting > 0 && (ends[fitting - 1] > room || IS_HIGH_SURROGATE(line[fitting - 1]))) {
        --fitting;
    }
    return fitting;
}

} // namespace

size_t TextCache::KeyHash::operator()(const Key& key) const
{
    constexpr unsigned kPrime = 16777619u; // FNV-1a
    unsigned hash = 2166136261u ^ static_cast<unsigned>(key.room);
    for (const char16_t unit : key.text) {
        hash = (hash ^ unit) * kPrime;
    }
    return hash ^ static_cast<unsigned>(reinterpret_cast<UINT_PTR>(key.font));
}

void TextCache::Clear()
{
    m_fonts.clear();
    m_lines.clear();
    m_bytes = 0;
}

const TextCache::FontFacts& TextCache::FactsOf(CDC* pDC, CFont* pFont)
{
    const HGDIOBJ handle = pFont->GetSafeHandle();
    const auto found = m_fonts.find(handle);
    if (found != m_fonts.end()) {
        return found->second;
    }
    const SelectGdi selectFont(pDC, pFont);
    const HDC hDC = pDC->GetSafeHdc();
    TEXTMETRICW metrics = {};
    ::GetTextMetricsW(hDC, &metrics);
    SIZE size = {};
    ::GetTextExtentPoint32W(hDC, kEllipsis, kEllipsisLength, &size);
    return m_fonts[handle] = {static_cast<int>(metrics.tmHeight), static_cast<int>(size.cx)};
}

TextCache::Line TextCache::MakeLine(CDC* pDC, const FontFacts& font, const std::u16string& text, int room)
{
    const std::u16string plain = OneLine(text);
    if (IsMixedText(pDC->GetSafeHdc(), plain)) {
        return MakeMixedLine(pDC, font, plain, room);
    }
    Line line = {CopyOf(plain), 0, false};
    const int length = static_cast<int>(line.text.size());
    std::vector<int> ends(length + 1, 0); // the width up to and with each character
    SIZE size = {};
    int fitting = 0;
    ::GetTextExtentExPointW(pDC->GetSafeHdc(), line.text.c_str(), length, room, &fitting, ends.data(), &size);
    line.width = size.cx;
    if (size.cx <= room) {
        return line;
    }
    fitting = CutBefore(plain, ends, fitting, room - font.ellipsisWidth);
    line.text = line.text.substr(0, fitting) + kEllipsis;
    line.width = (fitting > 0 ? ends[fitting - 1] : 0) + font.ellipsisWidth;
    return line;
}

TextCache::Line TextCache::MakeMixedLine(CDC* pDC, const FontFacts& font, const std::u16string& line, int room)
{
    const MixedText whole(pDC->GetSafeHdc(), line);
    if (whole.Width() <= room) {
        return {CopyOf(line), whole.Width(), true};
    }
    const int fitting = CutBefore(line, whole.Ends(), static_cast<int>(line.size()), room - font.ellipsisWidth);
    return {CopyOf(line.substr(0, fitting)) + kEllipsis,
            (fitting > 0 ? whole.Ends()[fitting - 1] : 0) + font.ellipsisWidth, true};
}

const TextCache::Line& TextCache::LineFor(CDC* pDC, CFont* pFont, const std::u16string& text, int room)
{
    const Key key = {pFont->GetSafeHandle(), room, text};
    const auto found = m_lines.find(key);
    if (found != m_lines.end()) {
        return found->second;
    }
    const SelectGdi selectFont(pDC, pFont);
    Line line = MakeLine(pDC, FactsOf(pDC, pFont), text, room);
    const size_t bytes = kBytesOfLine + text.size() * sizeof(char16_t) + line.text.size() * sizeof(wchar_t);
    if (m_bytes + bytes > kMaxBytes) {
        m_lines.clear();
        m_bytes = 0;
    }
    m_bytes += bytes;
    return m_lines.emplace(key, std::move(line)).first->second;
}

int TextCache::WidthOf(CDC* pDC, CFont* pFont, const std::u16string& text)
{
    return LineFor(pDC, pFont, text, INT_MAX).width;
}

void TextCache::Draw(CDC* pDC, CFont* pSelectedFont, const std::u16string& text, const CRect& rect, UINT format)
{
    if (text.empty() || rect.IsRectEmpty()) {
        return;
    }
    const int height = FactsOf(pDC, pSelectedFont).height;
    const Line& line = LineFor(pDC, pSelectedFont, text, (format & DT_END_ELLIPSIS) ? rect.Width() : INT_MAX);
    int x = rect.left;
    if (format & DT_CENTER) {
        x += (rect.Width() - line.width) / 2;
    } else if (format & DT_RIGHT) {
        x += rect.Width() - line.width;
    }
    const int y = (format & DT_VCENTER) ? rect.top + (rect.Height() - height) / 2 : rect.top;
    if (line.isMixed) {
        const MixedText mixed(pDC->GetSafeHdc(), std::u16string(line.text.begin(), line.text.end()));
        mixed.Draw(x, y, rect, 0, line.text.size());
        return;
    }
    const bool fits = line.width <= rect.Width() && height <= rect.Height();
    ::ExtTextOutW(pDC->GetSafeHdc(), x, y, fits ? 0 : ETO_CLIPPED, &rect, line.text.c_str(),
                  static_cast<UINT>(line.text.size()), nullptr);
}

} // namespace dayvane
