#include "printing/SectionFlow.h"

#include "mfc/base/civil.h"

#include <algorithm>

namespace dayvane {
namespace {

constexpr int kLeastColumnLines = 30; // width of a column, in heights of a body line
constexpr int kMostColumns = 4;
constexpr int kPlaceColumnLines = 34; // from this width on the place has a column of its own
constexpr int kPlaceSharePercent = 30;

class Flow
{
public:
    Flow(PageWriter& writer, const PageContext& context, const FlowLook& look)
        : m_writer(writer), m_context(context), m_style(context.style), m_look(look)
    {
    }

    void Place(DaySection& section)
    {
        const int headingHeight = HeadingHeight();
        bool hasHeading = false;
        for (const ItemPiece& piece : section.pieces) {
            EntryLook look = Look();
            if (section.namesDates) {
                look.dateText = m_context.texts.ShortDates(piece.firstDay, piece.lastDay);
            }
            const Entry entry = LayOutEntry(m_context, piece, ColumnWidth(), look);
            const bool isTall = m_isOpen && headingHeight + entry.height > m_body.Height();
            const int needed = isTall ? entry.runs.front().font.LineHeight() : entry.height;
            if (!m_isOpen || m_y + needed + m_style.pad + (hasHeading ? 0 : headingHeight) > m_body.bottom) {
                if (!(m_isOpen && IsAtTop())) {
                    NextColumn();
                    hasHeading = false;
                }
            }
            if (!hasHeading) {
                DrawHeading(section, section.sheet != 0);
                hasHeading = true;
            }
            PlaceEntry(section, entry);
        }
        if (section.pieces.empty()) {
            PlaceEmpty(section);
        }
        m_y += m_style.pad;
    }

private:
    int HeadingHeight() const { return m_style.dayHeading.LineHeight() + 2 * m_style.pad; }
    bool IsAtTop() const { return m_y == m_body.top; }
    int ColumnWidth()
    {
        if (!m_isOpen) {
            NextColumn();
        }
        return (m_body.Width() - (m_look.columns - 1) * m_style.gap) / m_look.columns;
    }
    int Left() { return m_body.left + m_column * (ColumnWidth() + m_style.gap); }

    EntryLook Look()
    {
        EntryLook look;
        look.font = m_style.body;
        look.timeFont = m_style.bodyTime;
        look.timeWidth = m_context.WidthOf(look.timeFont, m_context.texts.WidestSpan()) + 2 * m_style.pad;
        look.withEndTime = true;
        look.withPlace = true;
        const int width = ColumnWidth();
        if (width >= kPlaceColumnLines * m_style.body.LineHeight()) {
            look.placeWidth = width * kPlaceSharePercent / 100;
        }
        if (look.timeWidth * 2 > width) {
            look.timeWidth = 0;
        }
        return look;
    }

    void NextColumn()
    {
        if (m_isOpen && m_column + 1 < m_look.columns) {
            ++m_column;
        } else {
            SheetHeading heading = m_look.heading;
            if (m_isOpen) {
                heading.title = m_look.laterTitle;
            }
            m_body = m_writer.BeginSheet(heading);
            m_column = 0;
            m_isOpen = true;
        }
        m_y = m_body.top;
    }

    void DrawHeading(DaySection& section, bool isContinued)
    {
        if (section.sheet == 0) {
            section.sheet = m_writer.PageCount();
        }
        const int left = Left();
        const CRect band(left, m_y, left + ColumnWidth(), m_y + m_style.dayHeading.LineHeight() + m_style.pad);
        m_writer.Fill(band, m_style.headingFill);
        m_writer.HorzLine(band.left, band.right, band.bottom, m_style.rule, m_style.thinLine);
        CRect room = band;
        room.DeflateRect(m_style.pad, 0);
        std::u16string heading = section.heading;
        if (isContinued) {
            heading += m_context.texts.Continued();
        }
        TextSpot spot = {room, m_style.dayHeading, section.color, PageRole::DayHeading};
        spot.day = section.day;
        m_writer.Text(spot, heading);
        room.left += std::min<int>(m_context.WidthOf(m_style.dayHeading, heading), room.Width()) + m_style.gap / 2;
        m_writer.Sky({room, m_style.small, section.color, PageRole::DayNote, PageAlign::Right}, section.AllNotes(),
                     section.moon);
        m_y += HeadingHeight();
    }

    void PlaceEntry(DaySection& section, const Entry& entry)
    {
        if (m_y + entry.height <= m_body.bottom) {
            Draw(entry);
            return;
        }
        // Taller than a column: line by line.
        std::size_t from = 0;
        while (from < entry.runs.size()) {
            const int top = entry.runs[from].at.y;
            std::size_t to = from;
            while (to < entry.runs.size() &&
                   m_y + entry.runs[to].at.y - top + entry.runs[to].font.LineHeight() <= m_body.bottom) {
                ++to;
            }
            // Runs of one line stay together; one line goes even where it does not fit, so that there is an end.
            if (to == from) {
                to = from + 1;
            }
            while (to < entry.runs.size() && entry.runs[to].at.y == entry.runs[to - 1].at.y) {
                ++to;
            }
            Draw(PartOf(entry, from, to));
            from = to;
            if (from < entry.runs.size()) {
                NextColumn();
                DrawHeading(section, true);
            }
        }
    }

    void Draw(const Entry& entry)
    {
        const int left = Left();
        DrawEntry(m_writer, m_context, entry, CPoint(left, m_y), ColumnWidth());
        m_y += entry.height + m_style.pad / 2;
        m_writer.HorzLine(left, left + ColumnWidth(), std::min<int>(m_y, m_body.bottom), m_style.fineLine,
                          m_style.hairline);
        m_y += m_style.pad / 2;
    }

    void PlaceEmpty(DaySection& section)
    {
        const int line = section.emptyText.empty() ? 0 : m_style.body.LineHeight();
        if (!m_isOpen || (m_y + HeadingHeight() + line > m_body.bottom && !IsAtTop())) {
            NextColumn();
        }
        DrawHeading(section, false);
        m_writer.Text(
            {CRect(Left() + m_style.pad, m_y, Left() + ColumnWidth(), m_y + line), m_style.body, m_style.muted},
            section.emptyText);
        m_y += line;
    }

    PageWriter& m_writer;
    const PageContext& m_context;
    const PageStyle& m_style;
    const FlowLook& m_look;
    CRect m_body = CRect(0, 0, 0, 0);
    bool m_isOpen = false; // there is a sheet
    int m_column = 0;
    int m_y = 0;
};

} // namespace

DaySection SectionOf(const PageContext& context, int day)
{
    DaySection section;
    section.day = day;
    section.heading = context.texts.DayHeading(day);
    const PrintDay facts = context.source.FactsOf(day);
    if (context.options.showHolidays) {
        section.note = facts.holiday;
    }
    if (context.options.showSolarTerms && !facts.solarTerm.empty()) {
        section.note += (section.note.empty() ? u"" : u"　") + facts.solarTerm;
    }
    if (!facts.note.empty()) {
        section.note += (section.note.empty() ? u"" : u"　") + facts.note;
    }
    section.sky = facts.sky;
    section.moon = facts.moon;
    section.color = context.style.DayColor(civil::DayOfWeek(day), context.options.showHolidays && facts.isDayOff);
    return section;
}

void FlowSections(PageWriter& writer, const PageContext& context, const FlowLook& look,
                  std::vector<DaySection>& sections)
{
    Flow flow(writer, context, look);
    for (DaySection& section : sections) {
        flow.Place(section);
    }
}

int ColumnsFor(const PageContext& context, int width)
{
    return std::clamp(width / (kLeastColumnLines * context.style.body.LineHeight()), 1, kMostColumns);
}

} // namespace dayvane
