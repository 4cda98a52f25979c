// One day, or up to fourteen in columns: bars of whole days, the hours with boxes side by side, and a list of what lies
// outside the hours or has no room among them. More than seven days continue on a second sheet.
#include "mfc/base/civil.h"
#include "printing/BoxFill.h"
#include "printing/HourGrid.h"
#include "printing/PageBuilders.h"
#include "views/timegrid/TidyColumns.h"

#include <algorithm>

namespace dayvane {
namespace {

constexpr int kMostDaysOnSheet = 7;
constexpr int kPanelPercent = 34;       // of the body of a single day: the list and the notes beside the hours
constexpr int kNarrowPanelPercent = 20; // where many items lie side by side
constexpr int kManyColumns = 5;
constexpr int kLargestBandPercent = 30; // of the body
constexpr int kLargestListPercent = 35; // of the columns of several days, below their hours

class DaysSheet
{
public:
    DaysSheet(PageWriter& writer, const PageContext& context, LaterSheets& later, int firstDay, int lastDay)
        : m_writer(writer), m_context(context), m_style(context.style), m_later(later), m_firstDay(firstDay),
          m_days(lastDay - firstDay + 1), m_items(ItemsOf(context.source, firstDay, lastDay))
    {
    }

    void Build(const SheetHeading& heading)
    {
        m_body = m_writer.BeginSheet(heading);
        m_hours = HourGrid::HoursFor(m_context, m_items);
        const int ruler = HourGrid::RulerWidth(m_context);
        m_panel = m_body;
        m_columns = m_body;
        m_columns.left += ruler;
        if (IsSingle()) {
            m_columns.right = m_body.right - m_body.Width() * PanelPercent() / 100;
            m_panel.left = m_columns.right + m_style.gap;
        } else {
            DrawHeadings();
        }
        DrawBand();
        PlaceTimedItems();
        if (IsSingle()) {
            DrawGrid(m_columns.bottom);
            DrawPanel();
        } else {
            DrawListsAndGrid();
        }
    }

private:
    bool IsSingle() const { return m_days == 1; }
    int LastDay() const { return m_firstDay + m_days - 1; }
    int Left(int column) const { return m_columns.left + m_columns.Width() * column / m_days; }

    int PanelPercent() const
    {
        std::vector<TimeSpan> spans;
        for (const int i : m_items) {
            const PrintItem& item = m_context.source.items[i];
            if (!item.IsBand() && m_hours.Shows(item)) {
                spans.push_back({item.startMinute, std::max(item.endMinute, item.startMinute + 1)});
            }
        }
        int columns = 0;
        for (const TidyColumn& place : AssignColumns(spans)) {
            columns = std::max(columns, place.column + 1);
        }
        return columns >= kManyColumns ? kNarrowPanelPercent : kPanelPercent;
    }

    void DrawHeadings()
    {
        const int dateHeight = m_style.columnHeading.LineHeight();
        const int noteHeight = m_style.dayNote.LineHeight();
        const int skyHeight = m_context.source.hasSky ? noteHeight : 0;
        for (int i = 0; i < m_days; ++i) {
            const DaySection section = SectionOf(m_context, m_firstDay + i);
            TextSpot spot;
            spot.room = CRect(Left(i), m_columns.top, Left(i + 1), m_columns.top + dateHeight);
            spot.font = m_style.columnHeading;
            spot.color = section.color;
            spot.role = PageRole::ColumnHeading;
            spot.align = PageAlign::Center;
            spot.day = section.day;
            m_writer.Text(spot, m_context.texts.ShortDate(section.day) + u" " +
                                    m_context.texts.ShortWeekday(civil::DayOfWeek(section.day)));
            spot.room.top = spot.room.bottom;
            spot.room.bottom += noteHeight;
            spot.font = m_style.dayNote;
            spot.role = PageRole::DayNote;
            m_writer.Text(spot, section.note);
            spot.room.top = spot.room.bottom;
            spot.room.bottom += skyHeight;
            spot.color = m_style.muted;
            m_writer.Sky(spot, section.sky, section.moon);
        }
        m_columns.top += dateHeight + noteHeight + skyHeight + m_style.pad / 2;
    }

    // Whole-day items in lanes; those of lanes without room go to the later sheets.
    void DrawBand()
    {
        std::vector<ItemPiece> pieces;
        std::vector<TimeSpan> spans;
        for (const int i : m_items) {
            const PrintItem& item = m_context.source.items[i];
            if (item.IsBand()) {
                pieces.push_back({i, std::max(item.firstDay, m_firstDay), std::min(item.lastDay, LastDay())});
                spans.push_back({pieces.back().firstDay, pieces.back().lastDay + 1});
            }
        }
        m_writer.HorzLine(m_body.left, m_columns.right, m_columns.top, m_style.rule, m_style.strongLine);
        const std::vector<TidyColumn> places = AssignColumns(spans);
        int lanes = 0;
        for (const TidyColumn& place : places) {
            lanes = std::max(lanes, place.column + 1);
        }
        const int step = LaneStep(m_style);
        const int most = m_body.Height() * kLargestBandPercent / 100;
        const bool hasRest = lanes * step > most;
        const int shown = hasRest ? std::max(0, (most - MarkHeight(m_style)) / step) : lanes;
        int top = m_columns.top + m_style.pad / 2;
        std::vector<bool> isMarked(static_cast<std::size_t>(m_days), false);
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            const int column = pieces[i].firstDay - m_firstDay;
            if (places[i].column < shown) {
                const int barTop = top + places[i].column * step;
                DrawBar(m_writer, m_context, pieces[i],
                        CRect(Left(column) + m_style.pad / 2, barTop,
                              Left(pieces[i].lastDay - m_firstDay + 1) - m_style.pad / 2, barTop + BarHeight(m_style)));
                continue;
            }
            m_later.Add(pieces[i].firstDay, pieces[i]);
            if (!isMarked[column]) {
                isMarked[column] = true;
                m_later.Mark(pieces[i].firstDay, CRect(Left(column), top, Left(column + 1) - m_style.pad / 2,
                                                       top + shown * step + MarkHeight(m_style)));
            }
        }
        if (lanes > 0) {
            top += shown * step + (hasRest ? MarkHeight(m_style) : 0) + m_style.pad / 2;
            m_columns.top = top;
            m_hasBand = true;
        }
    }

    // What the hours can show is placed; the rest waits for the lists.
    void PlaceTimedItems()
    {
        m_lists.resize(static_cast<std::size_t>(m_days));
        m_timed.resize(static_cast<std::size_t>(m_days));
        for (int column = 0; column < m_days; ++column) {
            std::vector<ItemPiece> here;
            for (const ItemPiece& piece : PiecesOfDay(m_context.source, m_items, m_firstDay + column)) {
                const PrintItem& item = m_context.source.items[piece.item];
                if (item.IsBand()) {
                    continue;
                }
                (m_hours.Shows(item) ? here : m_lists[column]).push_back(piece);
            }
            m_timed[column] = std::move(here);
        }
    }

    void DrawListsAndGrid()
    {
        // The hours take what the lists leave, and the boxes that do not fit side by side depend on the columns' width
        // alone: so the lists are complete before the height of the hours is known.
        std::vector<HourGrid> grids = MakeGrids();
        int height = 0;
        std::vector<std::vector<Entry>> entries(static_cast<std::size_t>(m_days));
        for (int column = 0; column < m_days; ++column) {
            entries[column] = EntriesOf(m_lists[column], Left(column + 1) - Left(column) - m_style.pad);
            int need = 0;
            for (const Entry& entry : entries[column]) {
                need += StepOf(entry, m_style);
            }
            height = std::max(height, need);
        }
        const int heading = m_style.small.LineHeight();
        if (height > 0) {
            height = std::min<int>(height + heading + 2 * m_style.pad, m_columns.Height() * kLargestListPercent / 100);
        }
        const int gridBottom = m_columns.bottom - height;
        DrawGrids(grids, gridBottom);
        if (height > 0) {
            m_writer.HorzLine(m_body.left, m_columns.right, gridBottom, m_style.rule, m_style.thinLine);
            m_writer.Text({CRect(m_columns.left, gridBottom, m_columns.right, gridBottom + heading + m_style.pad),
                           m_style.small, m_style.muted},
                          m_context.texts.OtherItems());
            for (int column = 0; column < m_days; ++column) {
                const CRect area(Left(column) + m_style.pad / 2, gridBottom + heading + m_style.pad,
                                 Left(column + 1) - m_style.pad / 2, m_columns.bottom - m_style.pad / 2);
                FillBox(m_writer, m_context, area, entries[column], m_firstDay + column, false, m_later);
            }
        }
        m_writer.HorzLine(m_body.left, m_columns.right, m_columns.bottom, m_style.rule, m_style.thinLine);
    }

    void DrawGrid(int bottom)
    {
        std::vector<HourGrid> grids = MakeGrids();
        DrawGrids(grids, bottom);
        m_writer.HorzLine(m_body.left, m_columns.right, bottom, m_style.rule, m_style.thinLine);
    }

    // Boxes for which a column is too narrow join its list.
    std::vector<HourGrid> MakeGrids()
    {
        std::vector<HourGrid> grids;
        for (int column = 0; column < m_days; ++column) {
            grids.emplace_back(m_context, m_hours, m_timed[column]);
            const CRect area(Left(column), m_columns.top, Left(column + 1), m_columns.bottom);
            for (const ItemPiece& piece : grids.back().Place(area)) {
                m_lists[column].push_back(piece);
            }
            std::stable_sort(
                m_lists[column].begin(), m_lists[column].end(), [&](const ItemPiece& a, const ItemPiece& b) {
                    return m_context.source.items[a.item].startMinute < m_context.source.items[b.item].startMinute;
                });
        }
        return grids;
    }

    void DrawGrids(std::vector<HourGrid>& grids, int bottom)
    {
        for (int column = 0; column < m_days; ++column) {
            const DaySection section = SectionOf(m_context, m_firstDay + column);
            if (!IsSingle() && m_context.options.shadeWeekends && section.color != m_style.text) {
                m_writer.Fill(CRect(Left(column), m_columns.top, Left(column + 1), bottom), m_style.weekendFill);
            }
        }
        m_writer.HorzLine(m_body.left, m_columns.right, m_columns.top, m_style.rule,
                          m_hasBand ? m_style.thinLine : m_style.strongLine);
        HourGrid::DrawRuler(m_writer, m_context, m_hours, CRect(m_body.left, m_columns.top, m_columns.right, bottom),
                            m_columns.left);
        for (int column = 0; column <= m_days; ++column) {
            m_writer.VertLine(Left(column), m_columns.top, bottom, m_style.line, m_style.hairline);
        }
        for (int column = 0; column < m_days; ++column) {
            grids[column].Draw(m_writer, CRect(Left(column), m_columns.top, Left(column + 1), bottom));
        }
    }

    std::vector<Entry> EntriesOf(const std::vector<ItemPiece>& pieces, int width) const
    {
        EntryLook look;
        look.font = m_style.body;
        look.timeFont = m_style.bodyTime;
        look.withEndTime = true;
        look.withPlace = IsSingle();
        std::vector<Entry> entries;
        for (const ItemPiece& piece : pieces) {
            entries.push_back(LayOutEntry(m_context, piece, width, look));
        }
        return entries;
    }

    // Beside the hours of a single day: the list, and below it lines to write on.
    void DrawPanel()
    {
        CRect area = m_panel;
        const std::vector<Entry> entries = EntriesOf(m_lists[0], area.Width());
        if (!entries.empty()) {
            area.top = DrawPanelHeading(area, m_context.texts.OtherItems());
            int need = 0;
            for (const Entry& entry : entries) {
                need += StepOf(entry, m_style);
            }
            CRect list = area;
            list.bottom = std::min<int>(list.bottom, list.top + need);
            FillBox(m_writer, m_context, list, entries, m_firstDay, false, m_later);
            area.top = list.bottom + m_style.gap;
        }
        if (!m_context.options.noteLines || area.Height() < 2 * m_style.noteSpacing) {
            return;
        }
        area.top = DrawPanelHeading(area, m_context.texts.Notes());
        for (int y = area.top + m_style.noteSpacing; y <= area.bottom; y += m_style.noteSpacing) {
            m_writer.HorzLine(area.left, area.right, y, m_style.fineLine, m_style.thinLine);
        }
    }

    // Returns what is below it.
    int DrawPanelHeading(const CRect& area, const std::u16string& text)
    {
        m_writer.HorzLine(area.left, area.right, area.top, m_style.rule, m_style.strongLine);
        const int bottom = area.top + m_style.dayHeading.LineHeight() + m_style.pad;
        m_writer.Text({CRect(area.left, area.top, area.right, bottom), m_style.dayHeading, m_style.muted}, text);
        return bottom + m_style.pad / 2;
    }

    PageWriter& m_writer;
    const PageContext& m_context;
    const PageStyle& m_style;
    LaterSheets& m_later;
    int m_firstDay;
    int m_days;
    std::vector<int> m_items;
    HourRange m_hours;
    bool m_hasBand = false;
    CRect m_body = CRect(0, 0, 0, 0);
    CRect m_columns = CRect(0, 0, 0, 0); // of the days, without the ruler
    CRect m_panel = CRect(0, 0, 0, 0);
    std::vector<std::vector<ItemPiece>> m_timed; // by column
    std::vector<std::vector<ItemPiece>> m_lists;
};

SheetHeading HeadingOf(const PageContext& context, int first, int last)
{
    SheetHeading heading;
    heading.title = context.texts.DateSpan(first, last);
    heading.firstDay = first;
    heading.lastDay = last;
    heading.months = {FirstOfMonth(first), FirstOfMonthAfter(first, 1)};
    if (first == last) {
        const DaySection section = SectionOf(context, first);
        heading.months.insert(heading.months.begin(), FirstOfMonthAfter(first, -1));
        heading.subtitle = context.texts.Weekday(civil::DayOfWeek(first));
        heading.subtitleColor = section.color;
        const PrintDay facts = context.source.FactsOf(first);
        std::u16string lunar;
        if (context.options.showLunarDates && facts.lunarMonth != 0) {
            lunar = context.texts.LunarDate(facts.lunarMonth, facts.lunarDay, facts.isLeapMonth);
        }
        for (const std::u16string& note : {section.note, lunar, section.sky}) {
            heading.subtitle += note.empty() ? note : u"　" + note;
        }
    }
    return heading;
}

} // namespace

void BuildDays(PageWriter& writer, const PageContext& context, const PrintRange& range)
{
    LaterSheets later(writer, context);
    const int last = range.kind == PageKind::Day ? range.firstDay : range.lastDay;
    const int days = last - range.firstDay + 1;
    const int sheets = (days + kMostDaysOnSheet - 1) / kMostDaysOnSheet;
    for (int sheet = 0; sheet < sheets; ++sheet) {
        const int from = range.firstDay + static_cast<int>(static_cast<long long>(days) * sheet / sheets);
        const int to = range.firstDay + static_cast<int>(static_cast<long long>(days) * (sheet + 1) / sheets) - 1;
        DaysSheet(writer, context, later, from, to).Build(HeadingOf(context, from, to));
    }
    SheetHeading heading = HeadingOf(context, range.firstDay, last);
    heading.months.clear();
    later.Print(heading, [&](int day) { return SectionOf(context, day); });
}

} // namespace dayvane
