// The desk diary: seven days and a box for notes, in two columns, each box as high as its content needs.
#include "mfc/base/civil.h"
#include "printing/BoxFill.h"
#include "printing/PageBuilders.h"

#include <algorithm>

namespace dayvane {
namespace {

constexpr int kDays = 7;
constexpr int kColumns = 2;
constexpr int kBoxesPerColumn = 4; // the last one of the last column is for notes
constexpr int kCrowdedLines = 2;   // of an item's words, when the days do not fit otherwise

class WeekSheet
{
public:
    WeekSheet(PageWriter& writer, const PageContext& context, int firstDay)
        : m_writer(writer), m_context(context), m_style(context.style), m_later(writer, context), m_firstDay(firstDay),
          m_lastDay(std::min(firstDay + kDays - 1, civil::kLastDay))
    {
    }

    void Build()
    {
        SheetHeading heading;
        heading.title = m_context.texts.DateSpan(m_firstDay, m_lastDay);
        heading.firstDay = m_firstDay;
        heading.lastDay = m_lastDay;
        heading.months = {FirstOfMonth(m_firstDay), FirstOfMonthAfter(m_firstDay, 1)};
        m_body = m_writer.BeginSheet(heading);
        const std::vector<int> items = ItemsOf(m_context.source, m_firstDay, m_lastDay);
        m_pieces.resize(kDays);
        for (int i = 0; i < kDays && m_firstDay + i <= m_lastDay; ++i) {
            m_pieces[i] = PiecesOfDay(m_context.source, items, m_firstDay + i);
        }
        for (int column = 0; column < kColumns; ++column) {
            DrawColumn(column);
        }
        heading.months.clear();
        m_later.Print(heading, [&](int day) { return SectionOf(m_context, day); });
    }

private:
    int Width() const { return (m_body.Width() - m_style.gap) / kColumns; }
    int HeadingHeight() const { return m_style.dayNumber.LineHeight() + m_style.pad; }

    std::vector<Entry> EntriesOf(int box, int lines) const
    {
        EntryLook look;
        look.font = m_style.body;
        look.timeFont = m_style.bodyTime;
        look.withEndTime = true;
        look.withPlace = lines == 0;
        look.mostLines = lines;
        std::vector<Entry> entries;
        for (const ItemPiece& piece : m_pieces[box]) {
            entries.push_back(LayOutEntry(m_context, piece, Width() - m_style.pad, look));
        }
        return entries;
    }

    void DrawColumn(int column)
    {
        std::vector<std::vector<Entry>> entries;
        std::vector<int> needs;
        for (const int lines : {0, kCrowdedLines}) {
            entries.clear();
            needs.clear();
            int sum = 0;
            for (int box = column * kBoxesPerColumn; box < (column + 1) * kBoxesPerColumn; ++box) {
                entries.push_back(box < kDays ? EntriesOf(box, lines) : std::vector<Entry>());
                int need = HeadingHeight() + m_style.pad;
                for (const Entry& entry : entries.back()) {
                    need += StepOf(entry, m_style);
                }
                needs.push_back(need);
                sum += need;
            }
            if (sum <= m_body.Height()) {
                break;
            }
        }
        const std::vector<int> heights = ShareHeight(needs, m_body.Height());
        const int left = m_body.left + column * (Width() + m_style.gap);
        int top = m_body.top;
        for (int i = 0; i < kBoxesPerColumn; ++i) {
            const CRect box(left, top, left + Width(), top + heights[i]);
            DrawBox(column * kBoxesPerColumn + i, box, entries[i]);
            top = box.bottom;
        }
        m_writer.HorzLine(left, left + Width(), m_body.bottom, m_style.rule, m_style.thinLine);
    }

    void DrawBox(int box, const CRect& rect, const std::vector<Entry>& entries)
    {
        const int day = m_firstDay + box;
        CRect line(rect.left, rect.top + m_style.pad / 2, rect.right, rect.top + HeadingHeight());
        const bool isDay = box < kDays && day <= m_lastDay;
        const DaySection section = isDay ? SectionOf(m_context, day) : DaySection();
        if (isDay && m_context.options.shadeWeekends && section.color != m_style.text) {
            m_writer.Fill(CRect(rect.left, rect.top, rect.right, line.bottom), m_style.weekendFill);
        }
        m_writer.HorzLine(rect.left, rect.right, rect.top, m_style.rule, m_style.strongLine);
        if (!isDay) {
            m_writer.Text({line, m_style.dayHeading, m_style.muted, PageRole::Label}, m_context.texts.Notes());
            for (int y = line.bottom + m_style.noteSpacing; y < rect.bottom; y += m_style.noteSpacing) {
                m_writer.HorzLine(rect.left, rect.right, y, m_style.fineLine, m_style.hairline);
            }
            return;
        }
        TextSpot spot;
        spot.font = m_style.dayNumber;
        spot.color = section.color;
        spot.role = PageRole::DayHeading;
        spot.day = day;
        spot.room = line;
        spot.room.left += m_style.pad / 2;
        const std::u16string number = PrintTexts::DayOfMonth(day);
        m_writer.Text(spot, number);
        spot.room.left += m_context.WidthOf(spot.font, number) + m_style.pad;
        spot.font = m_style.dayHeading;
        const std::u16string weekday = m_context.texts.Weekday(civil::DayOfWeek(day));
        m_writer.Text(spot, weekday);
        spot.room.left += m_context.WidthOf(spot.font, weekday) + m_style.pad;
        spot.room.right -= m_style.pad / 2;
        spot.font = m_style.small;
        spot.role = PageRole::DayNote;
        spot.align = PageAlign::Right;
        m_writer.Sky(spot, section.AllNotes(), section.moon);
        const CRect area(rect.left + m_style.pad / 2, line.bottom + m_style.pad / 2, rect.right - m_style.pad / 2,
                         rect.bottom - m_style.pad / 2);
        FillBox(m_writer, m_context, area, entries, day, false, m_later);
    }

    PageWriter& m_writer;
    const PageContext& m_context;
    const PageStyle& m_style;
    LaterSheets m_later;
    int m_firstDay;
    int m_lastDay;
    CRect m_body = CRect(0, 0, 0, 0);
    std::vector<std::vector<ItemPiece>> m_pieces; // by day
};

} // namespace

void BuildWeek(PageWriter& writer, const PageContext& context, const PrintRange& range)
{
    WeekSheet(writer, context, range.firstDay).Build();
}

} // namespace dayvane
