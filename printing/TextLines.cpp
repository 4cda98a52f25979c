#include "printing/TextLines.h"

#include "core/Utf16.h"

#include <algorithm>
#include <cstddef>

namespace dayvane {
namespace {

constexpr char16_t kEllipsis = u'\u2026';
// Characters that no line begins with, and that no line ends with (the common part of JIS X 4051).
constexpr char16_t kNotFirst[] =
    u"、。，．・：；？！゛゜ヽヾゝゞ々ー）〕］｝〉》」』】ぁぃぅぇぉっゃゅょゎァィゥェォッャュョヮヵヶ,.:;?!)]}…％";
constexpr char16_t kNotLast[] = u"（〔［｛〈《「『【([{￥＄";

bool IsOneOf(char16_t c, const char16_t* set)
{
    return std::char_traits<char16_t>::find(set, std::char_traits<char16_t>::length(set), c) != nullptr;
}

bool IsDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

// From the CJK symbols on every character is a word of its own.
bool IsWide(char16_t c)
{
    return c >= 0x2E80;
}

bool MayBreakBefore(const std::u16string& text, std::size_t at)
{
    const char16_t before = text[at - 1];
    const char16_t after = text[at];
    if (IsTrail(after) || after == u' ') {
        return false;
    }
    if (before == u' ') {
        return true;
    }
    if (!IsWide(before) && !IsWide(after)) {
        const bool isInNumber = at > 1 && IsDigit(text[at - 2]) && IsDigit(after); // a date, a range
        return (before == u'-' || before == u'/') && !isInNumber;
    }
    return !IsOneOf(after, kNotFirst) && !IsOneOf(before, kNotLast);
}

// One text with its extents.
class Breaker
{
public:
    Breaker(const std::u16string& text, const PageFont& font, const TextMeasurer& measurer) : m_text(text)
    {
        measurer.Measure(font, text, m_ends);
    }

    int WidthOf(std::size_t from, std::size_t to) const
    {
        return to > from ? m_ends[to - 1] - (from > 0 ? m_ends[from - 1] : 0) + kRounding : 0;
    }

    // Where the line that begins at `from` ends.
    std::size_t EndOfLine(std::size_t from, int room, bool mayStayEmpty, bool& isBroken) const
    {
        isBroken = false;
        std::size_t fit = from;
        while (fit < m_text.size() && WidthOf(from, fit + 1) <= room) {
            ++fit;
        }
        if (fit == m_text.size() || m_text[fit] == u' ') {
            return fit;
        }
        std::size_t end = fit;
        while (end > from && !(end < m_text.size() && MayBreakBefore(m_text, end))) {
            --end;
        }
        if (end > from) {
            return end;
        }
        if (mayStayEmpty) {
            return from;
        }
        isBroken = true;
        fit = std::max(fit, from + 1);
        return fit < m_text.size() && IsTrail(m_text[fit]) ? (fit > from + 1 ? fit - 1 : fit + 1) : fit;
    }

    TextLine Line(std::size_t from, std::size_t to) const
    {
        while (to > from && m_text[to - 1] == u' ') {
            --to;
        }
        return {m_text.substr(from, to - from), WidthOf(from, to), false};
    }

private:
    static constexpr int kRounding = 1; // each extent is rounded up: a difference may be one too small

    const std::u16string& m_text;
    std::vector<int> m_ends;
};

} // namespace

std::vector<TextLine> BreakText(const std::u16string& text, const PageFont& font, const LineRoom& room,
                                const TextMeasurer& measurer)
{
    std::vector<TextLine> lines;
    const Breaker breaker(text, font, measurer);
    std::size_t from = 0;
    while (from < text.size()) {
        const bool isFirst = lines.empty();
        const int width = isFirst ? room.first : room.next;
        if (room.most > 0 && static_cast<int>(lines.size()) == room.most - 1) {
            lines.push_back(CutText(text.substr(from), font, width, measurer));
            break;
        }
        bool isBroken = false;
        const std::size_t end = breaker.EndOfLine(from, width, isFirst && room.next > room.first, isBroken);
        lines.push_back(breaker.Line(from, end));
        lines.back().isCut = isBroken;
        from = end;
        while (from < text.size() && text[from] == u' ') {
            ++from;
        }
    }
    return lines;
}

TextLine CutText(const std::u16string& text, const PageFont& font, int width, const TextMeasurer& measurer)
{
    std::vector<int> ends;
    measurer.Measure(font, text, ends);
    if (ends.empty() || ends.back() <= width) {
        return {text, ends.empty() ? 0 : ends.back(), false};
    }
    const int room = width - measurer.WidthOf(font, std::u16string(1, kEllipsis));
    std::size_t length = static_cast<std::size_t>(std::upper_bound(ends.begin(), ends.end(), room) - ends.begin());
    while (length > 0 && (IsTrail(text[length]) || text[length - 1] == u' ')) {
        --length;
    }
    if (room < 0) {
        return {std::u16string(), 0, true};
    }
    return {text.substr(0, length) + kEllipsis, width, true};
}

std::u16string OneLine(const std::u16string& text)
{
    std::u16string line;
    for (const char16_t c : text) {
        const bool isBlank = c <= u' ' || c == 0x7F;
        if (!isBlank) {
            line += c;
        } else if (!line.empty() && line.back() != u' ') {
            line += u' ';
        }
    }
    while (!line.empty() && line.back() == u' ') {
        line.pop_back();
    }
    return line;
}

} // namespace dayvane
