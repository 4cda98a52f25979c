// The year: twelve small months with their marked days and a legend of what lasts whole days, or twelve boxes with
// their items.
#include "mfc/base/civil.h"
#include "printing/BoxFill.h"
#include "printing/PageBuilders.h"

#include <algorithm>

namespace dayvane {
namespace {

constexpr int kMonths = 12;
constexpr int kLongerSide = 4; // months along the longer side of the sheet, and along the shorter one
constexpr int kShorterSide = 3;
constexpr int kMonthsPercent = 68; // of the body for the months, the rest is the legend
constexpr int kMonthRows = 8;
constexpr int kMonthColumns = 7;
constexpr int kLegendColumnLines = 16;          // width of a column of the legend, in heights of a line
constexpr int kLargestNumberPercent = 62;       // of a small month's row
constexpr int kTenthsPerUnit = 720 * 100 / 254; // font size of a unit, in hundredths of a tenth of a point

class YearSheet
{
public:
    YearSheet(PageWriter& writer, const PageContext& context, int firstDay)
        : m_writer(writer), m_context(context), m_style(context.style), m_later(writer, context)
    {
        int month = 0, day = 0;
        civil::FromDayNumber(firstDay, m_year, month, day);
        m_first = civil::DayNumber(m_year, 1, 1);
        m_last = civil::DayNumber(m_year, kMonths, civil::DaysInMonth(m_year, kMonths));
        m_items = ItemsOf(context.source, m_first, m_last);
    }

    void Build()
    {
        SheetHeading heading;
        heading.title = m_context.texts.Year(m_first);
        heading.firstDay = m_first;
        heading.lastDay = m_last;
        m_body = m_writer.BeginSheet(heading);
        m_isWide = m_body.Width() > m_body.Height();
        if (m_context.options.yearForm == PrintOptions::YearForm::Boxes) {
            DrawBoxes();
        } else {
            DrawCalendar();
        }
        m_later.Print(heading, [&](int firstOfMonth) {
            DaySection section;
            section.day = firstOfMonth;
            section.heading = m_context.texts.Month(firstOfMonth);
            section.namesDates = true;
            return section;
        });
    }

private:
    int Columns() const { return m_isWide ? kLongerSide : kShorterSide; }
    int Rows() const { return kMonths / Columns(); }
    CRect BoxOf(int month, const CRect& area) const
    {
        const int column = month % Columns();
        const int row = month / Columns();
        return CRect(area.left + area.Width() * column / Columns(), area.top + area.Height() * row / Rows(),
                     area.left + area.Width() * (column + 1) / Columns(),
                     area.top + area.Height() * (row + 1) / Rows());
    }
    int FirstOf(int month) const { return FirstOfMonthAfter(m_first, month); }
    int LastOf(int month) const { return month + 1 < kMonths ? FirstOf(month + 1) - 1 : m_last; }

    // ---- Small months and legend

    int LengthOf(int item) const
    {
        return m_context.source.items[item].lastDay - m_context.source.items[item].firstDay;
    }

    void MarkDays()
    {
        const int days = m_last - m_first + 1;
        m_marks.resize(static_cast<std::size_t>(days));
        // Of several the shortest shows: a deadline within a project.
        std::vector<int> items = m_items;
        std::stable_sort(items.begin(), items.end(), [&](int a, int b) { return LengthOf(a) < LengthOf(b); });
        for (const int i : items) {
            const PrintItem& item = m_context.source.items[i];
            for (int day = std::max(item.firstDay, m_first); day <= std::min(item.lastDay, m_last); ++day) {
                PageWriter::DayMark& mark = m_marks[static_cast<std::size_t>(day - m_first)];
                if (!item.IsBand()) {
                    mark.hasDot = true;
                } else if (!mark.isFilled) {
                    mark.isFilled = true;
                    mark.fill = PaleFill(item.fill == kWhite ? item.edge : item.fill);
                }
            }
        }
    }

    void DrawCalendar()
    {
        MarkDays();
        DrawDotNote();
        const bool hasLegend =
            std::any_of(m_items.begin(), m_items.end(), [&](int i) { return m_context.source.items[i].IsBand(); });
        CRect months = m_body;
        CRect legend = m_body;
        if (hasLegend && m_isWide) {
            months.right = months.left + months.Width() * kMonthsPercent / 100;
            legend.left = months.right + m_style.gap;
        } else if (hasLegend) {
            months.bottom = months.top + months.Height() * kMonthsPercent / 100;
            legend.top = months.bottom + m_style.gap;
        }
        for (int month = 0; month < kMonths; ++month) {
            CRect box = BoxOf(month, months);
            box.DeflateRect(m_style.gap / 2, m_style.gap / 3);
            const int row = std::min<int>(box.Height() / kMonthRows, box.Width() / kMonthColumns);
            const int size = row * kLargestNumberPercent * kTenthsPerUnit / (100 * 100);
            const PageFont number = {PageFace::Latin, std::max(size, 1), false, false};
            const PageFont name = {PageFace::Text, std::max(size, 1), true, false};
            m_writer.SmallMonth(box, FirstOf(month), {name, number, [&](int day) {
                                                          return m_marks[static_cast<std::size_t>(day - m_first)];
                                                      }});
        }
        if (hasLegend) {
            DrawLegend(legend);
        }
    }

    // What lasts whole days, in the order of the first days. Items of one text and look, such as the pay days of a
    // year, are one entry with all their dates.
    std::vector<std::vector<ItemPiece>> LegendGroups() const
    {
        std::vector<std::vector<ItemPiece>> groups;
        for (const int i : m_items) {
            const PrintItem& item = m_context.source.items[i];
            if (!item.IsBand()) {
                continue;
            }
            const auto isLike = [&](const std::vector<ItemPiece>& group) {
                const PrintItem& other = m_context.source.items[group.front().item];
                return other.text == item.text && other.fill == item.fill && other.edge == item.edge &&
                       other.isStruck == item.isStruck;
            };
            const ItemPiece piece = {i, std::max(item.firstDay, m_first), std::min(item.lastDay, m_last)};
            const auto group = std::find_if(groups.begin(), groups.end(), isLike);
            if (group != groups.end()) {
                group->push_back(piece);
            } else {
                groups.push_back({piece});
            }
        }
        return groups;
    }

    Entry LegendEntry(const std::vector<ItemPiece>& group, int width) const
    {
        EntryLook look;
        look.font = m_style.body;
        look.timeFont = m_style.bodyTime;
        std::u16string dates;
        for (const ItemPiece& piece : group) {
            dates += (dates.empty() ? u"" : u", ") + m_context.texts.ShortDates(piece.firstDay, piece.lastDay);
        }
        if (group.size() == 1) {
            look.dateText = dates;
        } else {
            look.withTime = false;
            look.withPlace = true;
            look.placeText = dates;
        }
        return LayOutEntry(m_context, group.front(), width, look);
    }

    void DrawLegend(const CRect& area)
    {
        const int columns = std::max<int>(1, area.Width() / (kLegendColumnLines * m_style.body.LineHeight()));
        const int width = (area.Width() - (columns - 1) * m_style.gap) / columns;
        m_writer.HorzLine(area.left, area.right, area.top, m_style.rule, m_style.thinLine);
        CRect room(area.left, area.top + m_style.pad, area.right, area.bottom - MarkHeight(m_style) - m_style.pad);
        int column = 0;
        int top = room.top;
        int firstLater = 0; // the month whose items are the first without room
        for (const std::vector<ItemPiece>& group : LegendGroups()) {
            const Entry entry = LegendEntry(group, width);
            if (top + entry.height > room.bottom && column + 1 < columns) {
                ++column;
                top = room.top;
            }
            if (firstLater != 0 || top + entry.height > room.bottom) {
                firstLater = firstLater != 0 ? firstLater : FirstOfMonth(group.front().firstDay);
                for (const ItemPiece& piece : group) {
                    m_later.Add(FirstOfMonth(piece.firstDay), piece);
                }
                continue;
            }
            DrawEntry(m_writer, m_context, entry, CPoint(room.left + column * (width + m_style.gap), top), width);
            top += StepOf(entry, m_style);
        }
        if (firstLater != 0) {
            m_later.Mark(firstLater, area);
        }
    }

    // What the dots below the days mean, in the last line of the body, which ends above it then.
    void DrawDotNote()
    {
        if (std::none_of(m_marks.begin(), m_marks.end(), [](const PageWriter::DayMark& mark) { return mark.hasDot; })) {
            return;
        }
        CRect line = m_body;
        line.top = line.bottom - MarkHeight(m_style);
        m_body.bottom = line.top - m_style.pad;
        const int size = m_style.pad / 2;
        const int middle = (line.top + line.bottom) / 2;
        m_writer.Fill(CRect(line.left, middle - size / 2, line.left + size, middle - size / 2 + size), m_style.rule);
        line.left += size + m_style.pad;
        m_writer.Text({line, m_style.small, m_style.muted}, m_context.texts.TimedItems());
    }

    // ---- Boxes

    void DrawBoxes()
    {
        for (int month = 0; month < kMonths; ++month) {
            const CRect box = BoxOf(month, m_body);
            m_writer.Frame(box, m_style.line, m_style.thinLine);
            CRect line(box.left, box.top, box.right, box.top + m_style.dayHeading.LineHeight() + m_style.pad / 2);
            m_writer.Fill(CRect(line.left, line.top, line.right, line.bottom), m_style.headingFill);
            m_writer.HorzLine(line.left, line.right, line.bottom, m_style.line, m_style.thinLine);
            line.left += m_style.pad;
            m_writer.Text({line, m_style.dayHeading, m_style.text, PageRole::DayHeading},
                          m_context.texts.MonthName(FirstOf(month)));
            CRect area(box.left + m_style.pad / 2, line.bottom + m_style.pad / 2, box.right - m_style.pad / 2,
                       box.bottom - m_style.pad / 2);
            FillBox(m_writer, m_context, area, EntriesOf(month, area.Width()), FirstOf(month), false, m_later);
        }
    }

    std::vector<Entry> EntriesOf(int month, int width) const
    {
        std::vector<Entry> entries;
        for (const int i : m_items) {
            const PrintItem& item = m_context.source.items[i];
            if (!item.Overlaps(FirstOf(month), LastOf(month))) {
                continue;
            }
            const ItemPiece piece = {i, std::max(item.firstDay, FirstOf(month)), std::min(item.lastDay, LastOf(month))};
            EntryLook look;
            look.font = m_style.body;
            look.timeFont = m_style.bodyTime;
            look.dateText = PrintTexts::DayOfMonth(piece.firstDay);
            if (piece.lastDay > piece.firstDay) {
                look.dateText += u"–" + PrintTexts::DayOfMonth(piece.lastDay);
            }
            look.mostLines = 1;
            entries.push_back(LayOutEntry(m_context, piece, width, look));
        }
        return entries;
    }

    static constexpr COLORREF kWhite = 0xFFFFFF;

    PageWriter& m_writer;
    const PageContext& m_context;
    const PageStyle& m_style;
    LaterSheets m_later;
    int m_year = 0;
    int m_first = 0;
    int m_last = 0;
    bool m_isWide = false;
    CRect m_body = CRect(0, 0, 0, 0);
    std::vector<int> m_items;
    std::vector<PageWriter::DayMark> m_marks; // by day
};

} // namespace

void BuildYear(PageWriter& writer, const PageContext& context, const PrintRange& range)
{
    YearSheet(writer, context, range.firstDay).Build();
}

} // namespace dayvane
