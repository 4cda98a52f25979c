#include "printing/HourGrid.h"

#include "calc/CivilDate.h"

#include <algorithm>

namespace dayvane {
namespace {

constexpr int kMorning = 6; // the grid grows no further than this by itself
constexpr int kNight = 22;
constexpr double kLeastBoxLines = 2.4; // width of a box, in heights of a body line
constexpr int kLeastTimeLines = 4;     // width from which a box of one line shows its time
constexpr int kFontPercents[] = {100, 88, 76};
constexpr int kSmallestGridPercent = 60; // of the height given to Place, that Draw may be given

} // namespace

bool HourRange::Shows(const PrintItem& item) const
{
    const int end = std::max(item.endMinute, item.startMinute + 1);
    return item.startMinute < to * kMinutesPerHour && end > from * kMinutesPerHour;
}

HourRange HourGrid::HoursFor(const PageContext& context, const std::vector<int>& items)
{
    const PrintOptions& options = context.options;
    HourRange hours;
    hours.from = std::clamp(options.hoursFrom, 0, kHoursPerDay - 1);
    hours.to = std::clamp(options.hoursTo, hours.from + 1, kHoursPerDay);
    for (const int i : items) {
        const PrintItem& item = context.source.items[i];
        if (!options.widenHours || item.IsBand()) {
            continue;
        }
        const int first = item.startMinute / kMinutesPerHour;
        const int end = (std::max(item.endMinute, item.startMinute + 1) + kMinutesPerHour - 1) / kMinutesPerHour;
        if (first >= kMorning && first < kNight) {
            hours.from = std::min(hours.from, first);
        }
        if (end > kMorning && end <= kNight) {
            hours.to = std::max(hours.to, end);
        }
    }
    return hours;
}

int HourGrid::RulerWidth(const PageContext& context)
{
    return context.WidthOf(context.style.hour, u"00") +
           context.WidthOf(context.style.dayNote, context.texts.HourRest(kNight)) + context.style.pad;
}

void HourGrid::DrawRuler(PageWriter& writer, const PageContext& context, const HourRange& hours, const CRect& area,
                         int columnsLeft)
{
    const PageStyle& style = context.style;
    const int count = hours.to - hours.from;
    const int hourWidth = context.WidthOf(style.hour, u"00");
    for (int i = 0; i < count; ++i) {
        const int top = area.top + area.Height() * i / count;
        const int bottom = area.top + area.Height() * (i + 1) / count;
        if (i > 0) {
            writer.HorzLine(area.left, area.right, top, style.line, style.hairline);
        }
        writer.HorzLine(columnsLeft, area.right, (top + bottom) / 2, style.fineLine, style.hairline);
        TextSpot spot;
        spot.font = style.hour;
        if (style.hour.LineHeight() > bottom - top) {
            spot.font.size = std::max(style.hour.size * (bottom - top) / style.hour.LineHeight() - 1, 1);
        }
        spot.color = style.text;
        spot.align = PageAlign::Right;
        spot.room = CRect(area.left, top, area.left + hourWidth, top + spot.font.LineHeight());
        writer.Text(spot, context.texts.Hour(hours.from + i));
        spot.room.left = spot.room.right;
        spot.room.right = columnsLeft;
        spot.font.size = std::min(spot.font.size, style.dayNote.size);
        spot.room.bottom = top + spot.font.LineHeight();
        spot.align = PageAlign::Left;
        spot.color = style.muted;
        writer.Text(spot, context.texts.HourRest(hours.from + i));
    }
}

int HourGrid::MinutesOfLine(int height) const
{
    const int line = m_context.style.body.LineHeight() + m_context.style.pad / 2;
    return std::min((line * m_hours.Minutes() + height - 1) / std::max(height, 1), m_hours.Minutes());
}

std::vector<ItemPiece> HourGrid::Place(const CRect& area)
{
    const int least = MinutesOfLine(area.Height() * kSmallestGridPercent / 100);
    m_spans.clear();
    for (const ItemPiece& piece : m_pieces) {
        const PrintItem& item = m_context.source.items[piece.item];
        const int start = std::max(item.startMinute - m_hours.from * kMinutesPerHour, 0);
        const int end = std::min(item.endMinute - m_hours.from * kMinutesPerHour, m_hours.Minutes());
        TimeSpan span = {start, std::min(std::max(end, start + least), m_hours.Minutes())};
        span.start = std::min(span.start, span.end - least);
        m_spans.push_back(span);
    }
    TidyRule rule = {};
    rule.usableWidth = std::max<int>(area.Width() - m_context.style.pad, 1);
    rule.minimumWidth = static_cast<int>(kLeastBoxLines * m_context.style.body.LineHeight());
    m_boxes = PlaceTidily(m_spans, rule).boxes;
    std::vector<ItemPiece> hidden;
    for (std::size_t i = 0; i < m_pieces.size(); ++i) {
        if (m_boxes[i].hidden) {
            hidden.push_back(m_pieces[i]);
        }
    }
    return hidden;
}

void HourGrid::Draw(PageWriter& writer, const CRect& area) const
{
    for (std::size_t i = 0; i < m_pieces.size(); ++i) {
        if (!m_boxes[i].hidden) {
            const int left = area.left + m_context.style.pad / 3 + m_boxes[i].left;
            DrawBox(writer, m_pieces[i],
                    CRect(left, area.top + area.Height() * m_spans[i].start / m_hours.Minutes(),
                          left + m_boxes[i].width - m_context.style.pad / 3,
                          area.top + area.Height() * m_spans[i].end / m_hours.Minutes()));
        }
    }
}

// As much of the item as the box holds: what does not fit goes, the place first, the time last.
Entry HourGrid::EntryIn(const ItemPiece& piece, const CRect& box, int fontPercent) const
{
    const PageStyle& style = m_context.style;
    EntryLook look;
    look.font = style.body;
    look.timeFont = style.bodyTime;
    look.font.size = style.body.size * fontPercent / 100;
    look.timeFont.size = style.bodyTime.size * fontPercent / 100;
    const int line = look.font.LineHeight();
    const int lines = std::max<int>(box.Height() / line, 1);
    look.mostLines = lines;
    look.withPlace = true;
    look.withTime = lines > 1 || box.Width() >= kLeastTimeLines * line;
    look.withEndTime = lines > 1 || box.Width() >= 2 * kLeastTimeLines * line;
    Entry entry = LayOutEntry(m_context, piece, box.Width(), look);
    for (bool* part : {&look.withPlace, &look.withEndTime, &look.withImage, &look.withTime}) {
        if (entry.height > box.Height()) {
            *part = false;
            entry = LayOutEntry(m_context, piece, box.Width(), look);
        }
    }
    return entry;
}

void HourGrid::DrawBox(PageWriter& writer, const ItemPiece& piece, const CRect& box) const
{
    const PageStyle& style = m_context.style;
    const PrintItem& item = m_context.source.items[piece.item];
    writer.Fill(box, PaleFill(item.fill));
    writer.Frame(box, InkOf(item.edge), style.thinLine);
    writer.Fill(CRect(box.left, box.top, box.left + style.edgeStrip, box.bottom), InkOf(item.edge));
    // Written smaller where that keeps the words whole.
    Entry entry;
    for (const int percent : kFontPercents) {
        entry = EntryIn(piece, box, percent);
        if (!entry.isCut && entry.height <= box.Height()) {
            break;
        }
    }
    DrawEntry(writer, m_context, entry,
              CPoint(box.left, box.top + std::max<int>(0, std::min<int>(style.pad / 3, box.Height() - entry.height))),
              box.Width(), PaleFill(item.fill));
}

} // namespace dayvane
