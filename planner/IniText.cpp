#include "planner/IniText.h"

#include "ical/Text.h"
#include "planner/Calendar.h"

#include <algorithm>
#include <cstdlib>

namespace planner {

namespace {

// What of a value would break its line.
std::string OneLine(std::string_view value)
{
    std::string line(value);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return line;
}

} // namespace

IniText::IniText(std::string_view text)
{
    constexpr std::string_view mark = "\xEF\xBB\xBF"; // that some editors write
    text.remove_prefix(text.substr(0, mark.size()) == mark ? mark.size() : 0);
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        line.remove_suffix(!line.empty() && line.back() == '\r' ? 1 : 0);
        m_lines.emplace_back(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

std::size_t IniText::Find(std::string_view section, std::string_view key, bool& isThere) const
{
    isThere = false;
    bool isInside = false;
    std::size_t place = m_lines.size();
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        const std::string_view line = TrimBlanks(m_lines[i]);
        if (!line.empty() && line.front() == '[') {
            isInside = line.size() > 1 && SameWord(line.substr(1, line.size() - 2), section);
        }
        const std::size_t equals = line.find('=');
        if (isInside && equals != std::string_view::npos && SameWord(TrimBlanks(line.substr(0, equals)), key)) {
            isThere = true;
            return i;
        }
        place = isInside && !line.empty() ? i + 1 : place;
    }
    return place;
}

std::string IniText::Get(std::string_view section, std::string_view key, std::string_view fallback) const
{
    bool isThere = false;
    const std::size_t line = Find(section, key, isThere);
    if (!isThere) {
        return std::string(fallback);
    }
    const std::string_view text = m_lines[line];
    return std::string(TrimBlanks(text.substr(text.find('=') + 1)));
}

int IniText::GetNumber(std::string_view section, std::string_view key, int fallback) const
{
    const std::string value = Get(section, key);
    char* end = nullptr;
    const long number = std::strtol(value.c_str(), &end, 10);
    return value.empty() || *end != '\0' ? fallback : static_cast<int>(number);
}

void IniText::Set(std::string_view section, std::string_view key, std::string_view value)
{
    const std::string line = std::string(key) + "=" + OneLine(value);
    bool isThere = false;
    const std::size_t place = Find(section, key, isThere);
    if (isThere) {
        m_lines[place] = line;
        return;
    }
    const std::string head = "[" + std::string(section) + "]";
    const bool hasSection = std::any_of(m_lines.begin(), m_lines.end(),
                                        [&](const std::string& each) { return SameWord(TrimBlanks(each), head); });
    if (!hasSection) {
        if (!m_lines.empty() && !m_lines.back().empty()) {
            m_lines.emplace_back();
        }
        m_lines.push_back(head);
        m_lines.push_back(line);
    } else {
        m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(place), line);
    }
}

void IniText::Set(std::string_view section, std::string_view key, int value)
{
    Set(section, key, std::to_string(value));
}

std::vector<std::string> IniText::GetList(std::string_view section, std::string_view key) const
{
    std::vector<std::string> values;
    for (int i = 1;; ++i) {
        std::string value = Get(section, std::string(key) + std::to_string(i));
        if (value.empty()) {
            return values;
        }
        values.push_back(std::move(value));
    }
}

void IniText::SetList(std::string_view section, std::string_view key, const std::vector<std::string>& values)
{
    const std::size_t before = GetList(section, key).size();
    for (std::size_t i = 0; i < std::max(before, values.size()); ++i) {
        Set(section, std::string(key) + std::to_string(i + 1), i < values.size() ? values[i] : "");
    }
}

std::string IniText::Text() const
{
    std::string text;
    for (const std::string& line : m_lines) {
        text += line + "\r\n";
    }
    return text;
}

} // namespace planner
