#pragma once

#include "ContentLine.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dayvane::ical {

// How deep components may stand in each other; a BEGIN beyond counts as an ordinary line. Calendars need three.
constexpr std::size_t kMaxOpenComponents = 50;

// The text of one component (BEGIN:VEVENT to END:VEVENT) taken apart into lines, to read it and to change single
// properties of it: every line that is not replaced keeps its bytes, folds and ending.
class ComponentText
{
public:
    struct Line
    {
        std::string raw;
        int number = 0;                   // of the file
        std::optional<Property> property; // nothing: the line is no content line, or is blank
        int depth = 0; // 0: BEGIN and END of the component, 1: its own lines, 2 and more: components inside it
    };
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    static constexpr int kOwnDepth = 1;

    explicit ComponentText(std::string_view raw, int firstLine = 1) { Assign(raw, firstLine); }
    // Another text in the place of this one; the memory of its lines is used again.
    void Assign(std::string_view raw, int firstLine = 1);

    const std::vector<Line>& Lines() const { return m_lines; }
    std::string Text() const;

    // The component's own property of that name: index of the first or last line, None if there is none.
    std::size_t Find(std::string_view name) const;
    std::size_t FindLast(std::string_view name) const;

    // `text` is an unfolded line without ending. New lines end like the lines of the component.
    void Replace(std::size_t index, const std::string& text);
    void InsertAfter(std::size_t index, const std::string& text);
    void Remove(std::size_t index);
    void RemoveAll(std::string_view name);

private:
    std::string m_ending; // of the lines that are added
    std::vector<Line> m_lines;
};

// The property's line with another value and with the named parameters taken out of it; `added` (such as
// ";VALUE=DATE", may be empty) stands last of the parameters that are left.
std::string WithValue(const Property& property, const std::vector<std::string_view>& removed, std::string_view added,
                      std::string_view value);

} // namespace dayvane::ical
