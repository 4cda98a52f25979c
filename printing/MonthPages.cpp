// The month: a row a week, as high as its content needs; bars over several days; later sheets for what a row cannot
// hold.
#include "core/DateMath.h"
#include "mfc/base/civil.h"
#include "printing/BoxFill.h"
#include "printing/PageBuilders.h"
#include "views/timegrid/TidyColumns.h"

#include <algorithm>
#include <numeric>

namespace dayvane {
namespace {

constexpr int kWeekdays = 7;
constexpr int kFewestRows = 5;
// How small the items may be written and how many lines their words may take, tried from the left until all of the
// month fits on the sheet.
struct Density
{
    int fontPercent;
    int lines; // 0: as many as it takes
};
constexpr Density kDensities[] = {{100, 0}, {100, 3}, {90, 0}, {90, 3}, {90, 2}, {80, 0}, {80, 3}, {80, 2}, {80, 1}};
constexpr Density kCrowded = {90, 2}; // when not even that helps: what is there shall be readable

struct Bar
{
    ItemPiece piece;
    int lane;
};

struct Cell
{
    int day = 0;
    bool isShown = true; // false: a day of another month that is left out
    std::vector<int> items;
    std::vector<Entry> entries; // of the items
};

struct Row
{
    std::vector<Bar> bars;
    Cell cells[kWeekdays];
    int lanes = 0;

    // Lanes down to the lowest of the first `shown` that covers the day.
    int LanesOver(int day, int shown) const
    {
        int lowest = 0;
        for (const Bar& bar : bars) {
            if (bar.lane < shown && bar.piece.firstDay <= day && day <= bar.piece.lastDay) {
                lowest = std::max(lowest, bar.lane + 1);
            }
        }
        return lowest;
    }
};

class MonthSheet
{
public:
    MonthSheet(PageWriter& writer, const PageContext& context, int firstOfMonth)
        : m_writer(writer), m_sheet(context), m_context(context), m_style(m_context.style), m_later(writer, context),
          m_firstOfMonth(firstOfMonth), m_lastOfMonth(FirstOfMonthAfter(firstOfMonth, 1) - 1)
    {
    }

    void Build()
    {
        SheetHeading heading;
        heading.title = m_context.texts.Month(m_firstOfMonth);
        heading.firstDay = m_firstOfMonth;
        heading.lastDay = m_lastOfMonth;
        heading.months = {FirstOfMonthAfter(m_firstOfMonth, -1), FirstOfMonthAfter(m_firstOfMonth, 1)};
        m_body = m_writer.BeginSheet(heading);
        if (m_context.source.weekOf) {
            m_body.left += m_context.WidthOf(m_style.small, u"00") + m_style.pad;
        }
        DrawWeekdays();
        MakeRows();
        const std::vector<int> heights = ChooseHeights();
        int top = m_body.top;
        DrawGrid(heights);
        for (std::size_t i = 0; i < m_rows.size(); ++i) {
            DrawRow(m_rows[i], top, top + heights[i]);
            top += heights[i];
        }
        heading.months.clear();
        m_later.Print(heading, [&](int day) { return SectionOf(m_context, day); });
    }

private:
    int Left(int column) const { return m_body.left + m_body.Width() * column / kWeekdays; }
    int HeaderHeight() const
    {
        const int notes = m_context.source.hasSky ? 2 * m_style.dayNote.LineHeight() : 0;
        return std::max(m_style.dayNumber.LineHeight(), notes);
    }
    int EntryWidth() const { return m_body.Width() / kWeekdays - m_style.pad; }

    EntryLook Look(int lines) const
    {
        EntryLook look;
        look.font = m_style.body;
        look.timeFont = m_style.bodyTime;
        look.mostLines = lines;
        return look;
    }

    void DrawWeekdays()
    {
        const int height = m_style.columnHeading.LineHeight();
        for (int column = 0; column < kWeekdays; ++column) {
            const int weekday = (m_context.source.firstDayOfWeek - 1 + column) % kWeekdays + 1;
            m_writer.Text({CRect(Left(column), m_body.top, Left(column + 1), m_body.top + height),
                           m_style.columnHeading, m_style.DayColor(weekday, false), PageRole::ColumnHeading,
                           PageAlign::Center},
                          m_context.texts.Weekday(weekday));
        }
        m_body.top += height + m_style.pad / 2;
    }

    void MakeRows()
    {
        const int gridFirst = WeekStartOf(m_firstOfMonth, m_context.source.firstDayOfWeek);
        const int weeks = std::max(kFewestRows, (m_lastOfMonth - gridFirst) / kWeekdays + 1);
        const bool leavesOut = m_context.options.otherDays == PrintOptions::OtherDays::LeftOut;
        const int from = leavesOut ? m_firstOfMonth : std::max(gridFirst, civil::kFirstDay);
        const int to = leavesOut ? m_lastOfMonth : std::min(gridFirst + weeks * kWeekdays - 1, civil::kLastDay);
        m_rows.resize(static_cast<std::size_t>(weeks));
        const std::vector<int> items = ItemsOf(m_context.source, from, to);
        for (int week = 0; week < weeks; ++week) {
            Row& row = m_rows[static_cast<std::size_t>(week)];
            const int first = gridFirst + week * kWeekdays;
            for (int column = 0; column < kWeekdays; ++column) {
                row.cells[column].day = first + column;
                row.cells[column].isShown = first + column >= from && first + column <= to;
            }
            AddBars(row, items, std::max(first, from), std::min(first + kWeekdays - 1, to));
        }
        for (const int i : items) {
            const PrintItem& item = m_context.source.items[i];
            if (!item.IsLong()) {
                Cell& cell = m_rows[static_cast<std::size_t>((item.firstDay - gridFirst) / kWeekdays)]
                                 .cells[(item.firstDay - gridFirst) % kWeekdays];
                cell.items.push_back(i);
            }
        }
    }

    void AddBars(Row& row, const std::vector<int>& items, int first, int last)
    {
        std::vector<TimeSpan> spans;
        for (const int i : items) {
            const PrintItem& item = m_context.source.items[i];
            if (first <= last && item.IsLong() && item.Overlaps(first, last)) {
                const ItemPiece piece = {i, std::max(item.firstDay, first), std::min(item.lastDay, last)};
                row.bars.push_back({piece, 0});
                spans.push_back({piece.firstDay, piece.lastDay + 1});
            }
        }
        const std::vector<TidyColumn> lanes = AssignColumns(spans);
        for (std::size_t i = 0; i < lanes.size(); ++i) {
            row.bars[i].lane = lanes[i].column;
            row.lanes = std::max(row.lanes, lanes[i].column + 1);
        }
    }

    // Words in entries that were laid out without a limit.
    static int WordLines(const Entry& entry)
    {
        int lines = 0;
        for (const EntryRun& run : entry.runs) {
            lines += run.role == PageRole::ItemText ? 1 : 0;
        }
        return lines;
    }

    int NeedOf(const Row& row, int limit) const
    {
        int need = HeaderHeight() + row.lanes * LaneStep(m_style);
        for (const Cell& cell : row.cells) {
            int height = HeaderHeight() + row.LanesOver(cell.day, row.lanes) * LaneStep(m_style);
            for (const Entry& entry : cell.entries) {
                const int lines = limit > 0 ? std::max(WordLines(entry) - limit, 0) : 0;
                height += StepOf(entry, m_style) - lines * m_style.body.LineHeight();
            }
            need = std::max(need, height);
        }
        return need + m_style.pad;
    }

    void WriteItems(int fontPercent)
    {
        m_style.body.size = m_sheet.style.body.size * fontPercent / 100;
        m_style.bodyTime.size = m_sheet.style.bodyTime.size * fontPercent / 100;
        for (Row& row : m_rows) {
            for (Cell& cell : row.cells) {
                cell.entries.clear();
                for (const int i : cell.items) {
                    cell.entries.push_back(LayOutEntry(m_context, {i, cell.day, cell.day}, EntryWidth(), Look(0)));
                }
            }
        }
    }

    void LimitLines(int lines)
    {
        for (Row& row : m_rows) {
            for (Cell& cell : row.cells) {
                for (Entry& entry : cell.entries) {
                    if (lines > 0 && WordLines(entry) > lines) {
                        entry = LayOutEntry(m_context, entry.piece, EntryWidth(), Look(lines));
                    }
                }
            }
        }
    }

    std::vector<int> NeedsOf(int lines) const
    {
        std::vector<int> needs;
        for (const Row& row : m_rows) {
            needs.push_back(NeedOf(row, lines));
        }
        return needs;
    }

    // Writes the items as large as all of them fit.
    std::vector<int> ChooseHeights()
    {
        int written = 0;
        for (const Density& density : kDensities) {
            if (density.fontPercent != written) {
                written = density.fontPercent;
                WriteItems(written);
            }
            const std::vector<int> needs = NeedsOf(density.lines);
            if (std::accumulate(needs.begin(), needs.end(), 0LL) <= m_body.Height()) {
                LimitLines(density.lines);
                return ShareHeight(needs, m_body.Height());
            }
        }
        WriteItems(kCrowded.fontPercent);
        LimitLines(kCrowded.lines);
        return ShareHeight(NeedsOf(kCrowded.lines), m_body.Height());
    }

    bool IsOtherMonth(int day) const { return day < m_firstOfMonth || day > m_lastOfMonth; }

    void DrawGrid(const std::vector<int>& heights)
    {
        int top = m_body.top;
        std::vector<int> tops;
        for (std::size_t i = 0; i < m_rows.size(); ++i) {
            tops.push_back(top);
            for (int column = 0; column < kWeekdays; ++column) {
                const Cell& cell = m_rows[i].cells[column];
                const int weekday = civil::DayOfWeek(cell.day);
                const bool isFree = weekday == 1 || weekday == kWeekdays ||
                                    (m_context.options.showHolidays && m_context.source.FactsOf(cell.day).isDayOff);
                if (m_context.options.shadeWeekends && isFree && cell.isShown && !IsOtherMonth(cell.day)) {
                    m_writer.Fill(CRect(Left(column), top, Left(column + 1), top + heights[i]), m_style.weekendFill);
                }
            }
            top += heights[i];
        }
        for (int column = 1; column < kWeekdays; ++column) {
            m_writer.VertLine(Left(column), m_body.top, top, m_style.line, m_style.hairline);
        }
        for (std::size_t i = 1; i < tops.size(); ++i) {
            m_writer.HorzLine(m_body.left, m_body.right, tops[i], m_style.line, m_style.thinLine);
        }
        m_writer.HorzLine(m_body.left, m_body.right, m_body.top, m_style.rule, m_style.strongLine);
        m_writer.HorzLine(m_body.left, m_body.right, top, m_style.rule, m_style.thinLine);
    }

    void DrawRow(const Row& row, int top, int bottom)
    {
        const int laneTop = top + HeaderHeight();
        const int room = bottom - m_style.pad - laneTop;
        int lanes = row.lanes;
        if (lanes * LaneStep(m_style) > room) {
            lanes = std::max(0, (room - MarkHeight(m_style)) / LaneStep(m_style));
        }
        bool hasRest[kWeekdays] = {};
        for (const Bar& bar : row.bars) {
            const int column = bar.piece.firstDay - row.cells[0].day;
            if (bar.lane < lanes) {
                const int barTop = laneTop + bar.lane * LaneStep(m_style);
                const int endColumn = column + bar.piece.lastDay - bar.piece.firstDay + 1;
                DrawBar(m_writer, m_context, bar.piece,
                        CRect(Left(column) + m_style.pad / 2, barTop, Left(endColumn) - m_style.pad / 2,
                              barTop + BarHeight(m_style)));
            } else {
                m_later.Add(bar.piece.firstDay, bar.piece);
                hasRest[column] = true;
            }
        }
        DrawWeekNumber(row, top);
        for (int column = 0; column < kWeekdays; ++column) {
            const Cell& cell = row.cells[column];
            if (!cell.isShown) {
                continue;
            }
            DrawDayNumber(cell, CRect(Left(column), top, Left(column + 1), laneTop));
            const CRect area(Left(column) + m_style.pad / 2,
                             laneTop + row.LanesOver(cell.day, lanes) * LaneStep(m_style),
                             Left(column) + m_style.pad / 2 + EntryWidth(), bottom - m_style.pad);
            FillBox(m_writer, m_context, area, cell.entries, cell.day, hasRest[column], m_later);
        }
    }

    // Before the row, in the room that Build has left for it.
    void DrawWeekNumber(const Row& row, int top)
    {
        const auto shown =
            std::find_if(std::begin(row.cells), std::end(row.cells), [](const Cell& c) { return c.isShown; });
        if (!m_context.source.weekOf || shown == std::end(row.cells)) {
            return;
        }
        const int width = m_context.WidthOf(m_style.small, u"00");
        const int left = m_body.left - m_style.pad - width;
        m_writer.Text({CRect(left, top, left + width, top + m_style.dayNumber.LineHeight()), m_style.small,
                       m_style.muted, PageRole::Label, PageAlign::Right},
                      PrintTexts::Number(m_context.source.weekOf(shown->day)));
    }

    void DrawDayNumber(const Cell& cell, CRect line)
    {
        line.DeflateRect(m_style.pad, 0);
        const PrintDay facts = m_context.source.FactsOf(cell.day);
        const bool isDayOff = m_context.options.showHolidays && facts.isDayOff;
        const bool isOther = IsOtherMonth(cell.day);
        TextSpot spot;
        spot.room = line;
        spot.font = m_style.dayNumber;
        spot.font.bold = !isOther;
        spot.color = isOther ? m_style.faded : m_style.DayColor(civil::DayOfWeek(cell.day), isDayOff);
        spot.role = PageRole::DayHeading;
        spot.day = cell.day;
        const bool namesMonth = isOther && (cell.day == FirstOfMonth(cell.day) || cell.day == m_rows[0].cells[0].day);
        const std::u16string number =
            namesMonth ? m_context.texts.ShortDate(cell.day) : PrintTexts::DayOfMonth(cell.day);
        m_writer.Text(spot, number);
        line.left += m_context.WidthOf(spot.font, number) + m_style.pad;
        spot.font = m_style.dayNote;
        spot.role = PageRole::DayNote;
        spot.align = PageAlign::Right;
        spot.room = line;
        const DaySection section = SectionOf(m_context, cell.day);
        if (m_context.source.hasSky) {
            spot.room.bottom = spot.room.top + m_style.dayNote.LineHeight();
        }
        m_writer.Text(spot, section.note);
        spot.room += CPoint(0, m_style.dayNote.LineHeight());
        spot.color = isOther ? m_style.faded : m_style.muted;
        m_writer.Sky(spot, section.sky, section.moon);
    }

    PageWriter& m_writer;
    const PageContext& m_sheet; // with the fonts that were chosen
    PageContext m_context;      // with those in which all items fit
    PageStyle& m_style;
    LaterSheets m_later;
    int m_firstOfMonth;
    int m_lastOfMonth;
    CRect m_body = CRect(0, 0, 0, 0);
    std::vector<Row> m_rows;
};

} // namespace

void BuildMonth(PageWriter& writer, const PageContext& context, const PrintRange& range)
{
    MonthSheet(writer, context, FirstOfMonth(range.firstDay)).Build();
}

} // namespace dayvane
