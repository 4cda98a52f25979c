#include "ical/ComponentText.h"

#include "ical/Text.h"

#include <algorithm>

namespace dayvane::ical {

namespace {

// Follows BEGIN and END lines; an END closes everything down to its BEGIN, one without BEGIN nothing.
class DepthCounter
{
public:
    // The depth of the line, which for BEGIN and END is that of the component around.
    int Enter(const Property& property)
    {
        if (property.name == "BEGIN" && m_open.size() < kMaxOpenComponents) {
            m_open.push_back(UpperText(TrimBlanks(property.Value())));
            return static_cast<int>(m_open.size()) - 1;
        }
        if (property.name == "END") {
            const auto found = std::find(m_open.rbegin(), m_open.rend(), UpperText(TrimBlanks(property.Value())));
            if (found != m_open.rend()) {
                m_open.erase(found.base() - 1, m_open.end());
            }
        }
        return static_cast<int>(m_open.size());
    }
    int Depth() const { return static_cast<int>(m_open.size()); }

private:
    std::vector<std::string> m_open;
};

} // namespace

void ComponentText::Assign(std::string_view raw, int firstLine)
{
    DepthCounter counter;
    LineReader reader(raw, firstLine);
    RawLine rawLine;
    std::size_t count = 0;
    m_ending.clear();
    while (reader.Next(rawLine)) {
        if (count == m_lines.size()) {
            m_lines.emplace_back();
        }
        Line& line = m_lines[count++];
        line.raw = rawLine.raw;
        line.number = rawLine.number;
        if (!line.property) {
            line.property.emplace();
        }
        if (!ParseProperty(rawLine, *line.property)) {
            line.property.reset();
        }
        line.depth = line.property ? counter.Enter(*line.property) : counter.Depth();
        if (m_ending.empty()) {
            m_ending = EndingOf(rawLine.raw);
        }
    }
    m_lines.resize(count);
    if (m_ending.empty()) {
        m_ending = "\r\n";
    }
}

std::string ComponentText::Text() const
{
    std::string text;
    for (const Line& line : m_lines) {
        text += line.raw;
    }
    return text;
}

std::size_t ComponentText::Find(std::string_view name) const
{
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        if (m_lines[i].depth == kOwnDepth && m_lines[i].property && m_lines[i].property->name == name) {
            return i;
        }
    }
    return kNone;
}

std::size_t ComponentText::FindLast(std::string_view name) const
{
    for (std::size_t i = m_lines.size(); i-- > 0;) {
        if (m_lines[i].depth == kOwnDepth && m_lines[i].property && m_lines[i].property->name == name) {
            return i;
        }
    }
    return kNone;
}

void ComponentText::Replace(std::size_t index, const std::string& text)
{
    Line& line = m_lines[index];
    line.property = ParseProperty(text);
    const bool isCutOff = EndingOf(line.raw).empty(); // the last line of a file that lacks its line ending
    line.raw = Fold(text, m_ending);
    if (isCutOff) {
        line.raw.resize(line.raw.size() - m_ending.size());
    }
}

void ComponentText::InsertAfter(std::size_t index, const std::string& text)
{
    Line& before = m_lines[index];
    Line line;
    line.number = before.number;
    line.depth = kOwnDepth;
    line.property = ParseProperty(text);
    line.raw = Fold(text, m_ending);
    if (EndingOf(before.raw).empty()) {
        before.raw += m_ending;
    }
    m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(index) + 1, std::move(line));
}

void ComponentText::Remove(std::size_t index)
{
    m_lines.erase(m_lines.begin() + static_cast<std::ptrdiff_t>(index));
}

void ComponentText::RemoveAll(std::string_view name)
{
    const auto isRemoved = [&](const Line& line) {
        return line.depth == kOwnDepth && line.property && line.property->name == name;
    };
    m_lines.erase(std::remove_if(m_lines.begin(), m_lines.end(), isRemoved), m_lines.end());
}

std::string WithValue(const Property& property, const std::vector<std::string_view>& removed, std::string_view added,
                      std::string_view value)
{
    std::string text = property.text.substr(0, property.valueBegin - 1);
    for (auto parameter = property.parameters.rbegin(); parameter != property.parameters.rend(); ++parameter) {
        if (std::find(removed.begin(), removed.end(), parameter->name) != removed.end()) {
            text.erase(parameter->begin, parameter->end - parameter->begin);
        }
    }
    text += added;
    text += ':';
    text += value;
    return text;
}

} // namespace dayvane::ical
