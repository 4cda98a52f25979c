#include "printing/BoxFill.h"

#include <algorithm>
#include <numeric>

namespace dayvane {

void LaterSheets::Add(int key, const ItemPiece& piece)
{
    const auto part =
        std::find_if(m_parts.begin(), m_parts.end(), [&](const Part& candidate) { return candidate.key == key; });
    if (part == m_parts.end()) {
        m_parts.push_back({key, {piece}});
    } else {
        part->pieces.push_back(piece);
    }
}

void LaterSheets::Mark(int key, const CRect& area)
{
    const PageStyle& style = m_context.style;
    CRect line = area;
    line.top = std::max<int>(line.bottom - MarkHeight(style), line.top);
    TextSpot spot = {line, style.small, style.text, PageRole::Continued, PageAlign::Right};
    m_marks.push_back({key, m_writer.TextLater(spot)});
}

void LaterSheets::Print(const SheetHeading& heading, const std::function<DaySection(int)>& sectionOf)
{
    if (m_parts.empty()) {
        return;
    }
    std::stable_sort(m_parts.begin(), m_parts.end(), [](const Part& a, const Part& b) { return a.key < b.key; });
    std::vector<DaySection> sections;
    for (const Part& part : m_parts) {
        sections.push_back(sectionOf(part.key));
        sections.back().pieces = part.pieces;
    }
    FlowLook look;
    look.columns = ColumnsFor(m_context, m_context.paper.cx);
    look.heading = heading;
    look.heading.title += m_context.texts.Continued();
    look.laterTitle = look.heading.title;
    FlowSections(m_writer, m_context, look, sections);
    for (const auto& mark : m_marks) {
        for (std::size_t i = 0; i < m_parts.size(); ++i) {
            if (m_parts[i].key == mark.first) {
                m_writer.SetLater(mark.second, m_context.texts.ContinuedOn(sections[i].sheet));
            }
        }
    }
}

int MarkHeight(const PageStyle& style)
{
    return style.small.LineHeight();
}

int StepOf(const Entry& entry, const PageStyle& style)
{
    return entry.height + style.pad / 2;
}

void FillBox(PageWriter& writer, const PageContext& context, const CRect& area, const std::vector<Entry>& entries,
             int key, bool hasRest, LaterSheets& later)
{
    const auto countIn = [&](int height) {
        std::size_t count = 0;
        int used = 0;
        while (count < entries.size() && used + entries[count].height <= height) {
            used += StepOf(entries[count++], context.style);
        }
        return count;
    };
    std::size_t shown = countIn(area.Height());
    if (hasRest || shown < entries.size()) {
        shown = countIn(area.Height() - MarkHeight(context.style));
        later.Mark(key, area);
    }
    int top = area.top;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (i < shown) {
            DrawEntry(writer, context, entries[i], CPoint(area.left, top), area.Width());
            top += StepOf(entries[i], context.style);
        } else {
            later.Add(key, entries[i].piece);
        }
    }
}

std::vector<int> ShareHeight(const std::vector<int>& needs, int height)
{
    const long long needed = std::accumulate(needs.begin(), needs.end(), 0LL);
    const bool isEnough = needed <= height;
    const auto with = [&](int level) {
        std::vector<int> heights;
        for (const int need : needs) {
            heights.push_back(isEnough ? std::max(need, level) : std::min(need, level));
        }
        return heights;
    };
    // The highest level whose sum still fits.
    int low = 0;
    int high = height + 1;
    while (high - low > 1) {
        const int level = low + (high - low) / 2;
        const std::vector<int> heights = with(level);
        (std::accumulate(heights.begin(), heights.end(), 0LL) <= height ? low : high) = level;
    }
    std::vector<int> heights = with(low);
    if (!heights.empty()) {
        const int rest = height - static_cast<int>(std::accumulate(heights.begin(), heights.end(), 0LL));
        *std::max_element(heights.begin(), heights.end()) += rest;
    }
    return heights;
}

} // namespace dayvane
