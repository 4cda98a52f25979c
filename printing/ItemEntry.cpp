#include "printing/ItemEntry.h"

#include "printing/TextLines.h"

#include <algorithm>
#include <initializer_list>
#include <tuple>

namespace dayvane {
namespace {

constexpr int kLeastRoom = 2;           // for words, in heights of a line
constexpr char16_t kFirstWide = 0x2E80; // the CJK characters begin here
constexpr int kArrowShare = 3;          // of a bar's height

// Times are numbers, but "all day" needs a face that has it.
PageFont TimeFont(const std::u16string& time, PageFont font)
{
    const bool isLatin = std::all_of(time.begin(), time.end(), [](char16_t c) { return c < kFirstWide; });
    font.face = isLatin ? PageFace::Latin : PageFace::Text;
    return font;
}

// The area of the words, and what has been written of the entry so far.
class EntryWriter
{
public:
    EntryWriter(const PageContext& context, const EntryLook& look, int width) : m_context(context), m_look(look)
    {
        m_left = context.style.edgeStrip + context.style.pad;
        m_right = width - context.style.pad / 2;
    }

    // Of the forms of a time, from the longest to the shortest, the first that fits.
    void AddTime(std::initializer_list<std::u16string> forms)
    {
        m_textLeft = m_firstLeft = m_left + m_look.timeWidth;
        const int room = m_right - m_left;
        std::u16string time;
        int width = 0;
        for (const std::u16string& form : forms) {
            time = form;
            width = m_context.WidthOf(TimeFont(form, m_look.timeFont), form);
            if (width <= room) {
                break;
            }
        }
        const PageFont font = TimeFont(time, m_look.timeFont);
        if (width > room) {
            m_top = AddLines(time, font, PageRole::ItemTime, {room, room}, m_left, 0);
        } else if (!time.empty()) {
            m_entry.runs.push_back({CPoint(m_left, 0), DropOf(font), width, time, font, PageRole::ItemTime});
            if (m_look.timeWidth == 0 || width > m_look.timeWidth) {
                m_firstLeft = m_left + width + m_context.style.pad;
            }
        }
    }

    // A square before the words; false when there is no room for it.
    bool AddImage(int size)
    {
        if (m_firstLeft + size > m_right) {
            return false;
        }
        m_entry.imageLeft = m_firstLeft;
        m_firstLeft += size;
        return true;
    }

    void AddWords(const std::u16string& words, const PageFont& font)
    {
        const int right = m_look.placeWidth > 0 ? m_right - m_look.placeWidth : m_right;
        LineRoom room = {right - m_firstLeft, right - m_textLeft, m_look.mostLines};
        // One line beside the time that has no room for words becomes a line of its own.
        if (room.most == 1 && room.first < room.next && room.first < kLeastRoom * font.LineHeight()) {
            room = {0, room.next, 2};
        }
        m_bottom = AddLines(words, font, PageRole::ItemText, room, m_textLeft, m_top);
    }

    void AddPlace(const std::u16string& place)
    {
        const PageFont& font = m_context.style.small;
        if (m_look.placeWidth > 0) {
            const int room = m_look.placeWidth - m_context.style.pad;
            const int bottom =
                AddLines(place, font, PageRole::ItemPlace, {room, room}, m_right - room, m_top, m_right - room);
            m_bottom = std::max(m_bottom, bottom);
        } else {
            const int room = m_right - m_textLeft;
            m_bottom = AddLines(place, font, PageRole::ItemPlace, {room, room}, m_textLeft, m_bottom, m_textLeft);
        }
    }

    Entry Finish(const ItemPiece& piece)
    {
        m_entry.piece = piece;
        m_entry.height = std::max(m_bottom, m_look.font.LineHeight());
        std::stable_sort(m_entry.runs.begin(), m_entry.runs.end(),
                         [](const EntryRun& a, const EntryRun& b) { return a.at.y < b.at.y; });
        return std::move(m_entry);
    }

private:
    int DropOf(const PageFont& font) const
    {
        const int room = m_look.font.LineHeight() - font.LineHeight();
        return std::max(std::min(m_look.font.Ascent() - font.Ascent(), room), 0);
    }

    int AddLines(const std::u16string& text, const PageFont& font, PageRole role, const LineRoom& room, int left,
                 int top)
    {
        return AddLines(text, font, role, room, left, top, role == PageRole::ItemText ? m_firstLeft : left);
    }

    // Returns the bottom of the last line.
    int AddLines(const std::u16string& text, const PageFont& font, PageRole role, const LineRoom& room, int left,
                 int top, int firstLeft)
    {
        bool isFirst = true;
        for (const TextLine& line : BreakText(text, font, room, m_context.measurer)) {
            if (!line.text.empty()) {
                const int x = isFirst ? firstLeft : left;
                const int drop = role == PageRole::ItemPlace && m_look.placeWidth > 0 ? DropOf(font) : 0;
                m_entry.runs.push_back({CPoint(x, top), drop, line.width, line.text, font, role});
            }
            m_entry.isCut = m_entry.isCut || line.isCut;
            isFirst = false;
            top += font.LineHeight();
        }
        return top;
    }

    const PageContext& m_context;
    const EntryLook& m_look;
    int m_left = 0;
    int m_right = 0;
    int m_firstLeft = 0; // of the words' first line
    int m_textLeft = 0;  // of the others
    int m_top = 0;       // of the words
    int m_bottom = 0;
    Entry m_entry;
};

} // namespace

std::u16string TimeOfPiece(const PrintTexts& texts, const PrintItem& item, int day, bool withEnd)
{
    if (item.isWholeDay) {
        return {};
    }
    if (!item.IsLong()) {
        return withEnd ? texts.TimeSpan(item.startMinute, item.endMinute) : texts.Time(item.startMinute);
    }
    if (day == item.firstDay) {
        return texts.Time(item.startMinute) + u"–";
    }
    return day == item.lastDay ? u"–" + texts.Time(item.endMinute) : std::u16string();
}

std::u16string WordsOfPiece(const PageContext& context, const ItemPiece& piece)
{
    const PrintItem& item = context.source.items[piece.item];
    if (!item.IsLong() || piece.firstDay != piece.lastDay) {
        return item.text;
    }
    return item.text + u" " +
           PrintTexts::DayOfDays(piece.firstDay - item.firstDay + 1, item.lastDay - item.firstDay + 1);
}

PageFont FontOf(const PrintItem& item, PageFont font)
{
    font.bold = font.bold || item.isBold;
    font.italic = font.italic || item.isStruck;
    return font;
}

Entry LayOutEntry(const PageContext& context, const ItemPiece& piece, int width, const EntryLook& look)
{
    const PrintItem& item = context.source.items[piece.item];
    EntryWriter writer(context, look, width);
    const std::u16string start = TimeOfPiece(context.texts, item, piece.firstDay, false);
    if (!look.dateText.empty()) {
        writer.AddTime({look.dateText});
    } else if (look.withTime && !start.empty()) {
        writer.AddTime({TimeOfPiece(context.texts, item, piece.firstDay, look.withEndTime), start});
    } else {
        writer.AddTime({look.timeWidth > 0 ? context.texts.WholeDay() : std::u16string()});
    }
    const bool hasImage = item.image >= 0 && look.withImage && writer.AddImage(look.font.LineHeight());
    writer.AddWords(WordsOfPiece(context, piece), FontOf(item, look.font));
    const std::u16string& place = look.placeText.empty() ? item.place : look.placeText;
    if (look.withPlace && !place.empty()) {
        writer.AddPlace(place);
    }
    Entry entry = writer.Finish(piece);
    entry.image = hasImage ? item.image : -1;
    return entry;
}

Entry PartOf(const Entry& entry, std::size_t from, std::size_t to)
{
    Entry part;
    part.piece = entry.piece;
    const int top = entry.runs[from].at.y;
    for (std::size_t i = from; i < to; ++i) {
        part.runs.push_back(entry.runs[i]);
        part.runs.back().at.y -= top;
        part.height = std::max<int>(part.height, part.runs.back().at.y + part.runs.back().font.LineHeight());
    }
    return part;
}

void DrawEntry(PageWriter& writer, const PageContext& context, const Entry& entry, CPoint at, int width, COLORREF paper)
{
    const PageStyle& style = context.style;
    const PrintItem& item = context.source.items[entry.piece.item];
    const CRect box(at.x, at.y, at.x + width, at.y + entry.height);
    const COLORREF background = item.isWholeDay ? PaleFill(item.fill) : paper;
    if (item.isWholeDay) {
        writer.Fill(box, background);
    }
    writer.Fill(CRect(box.left, box.top, box.left + style.edgeStrip, box.bottom), InkOf(item.edge));
    if (entry.image >= 0) {
        const int size = style.body.LineHeight() - style.pad / 2;
        const CPoint corner = at + CPoint(entry.imageLeft, 0);
        writer.Image(CRect(corner.x, corner.y, corner.x + size, corner.y + size), entry.image, background);
    }
    for (const EntryRun& run : entry.runs) {
        TextSpot spot;
        spot.font = run.font;
        spot.color = run.role == PageRole::ItemText ? style.text : style.muted;
        spot.role = run.role;
        spot.item = entry.piece.item;
        spot.day = entry.piece.firstDay;
        writer.Line(at + run.at + CPoint(0, run.drop), run.width, spot, run.text);
    }
}

int BarHeight(const PageStyle& style)
{
    return style.body.LineHeight() + style.pad / 2;
}

int LaneStep(const PageStyle& style)
{
    return BarHeight(style) + style.pad / 2;
}

void DrawBar(PageWriter& writer, const PageContext& context, const ItemPiece& piece, CRect rect)
{
    const PageStyle& style = context.style;
    const PrintItem& item = context.source.items[piece.item];
    const COLORREF edge = InkOf(item.edge);
    writer.Fill(rect, PaleFill(item.fill));
    writer.Frame(rect, edge, style.thinLine);
    const int arrow = rect.Height() / kArrowShare;
    CRect triangle(rect.left, 0, rect.left + arrow, 0);
    triangle.top = (rect.top + rect.bottom) / 2 - arrow;
    triangle.bottom = triangle.top + 2 * arrow;
    if (item.firstDay < piece.firstDay) {
        writer.Symbol(PageShape::Back, triangle, edge);
        rect.left += arrow;
    }
    if (item.lastDay > piece.lastDay) {
        triangle.right = rect.right;
        triangle.left = rect.right - arrow;
        writer.Symbol(PageShape::Ahead, triangle, edge);
        rect.right -= arrow;
    }
    rect.left += style.pad;
    TextSpot spot;
    spot.role = PageRole::ItemTime;
    spot.font = style.bodyTime;
    spot.color = style.muted;
    spot.item = piece.item;
    spot.day = piece.firstDay;
    const std::u16string time = TimeOfPiece(context.texts, item, piece.firstDay, false);
    const int width = context.WidthOf(spot.font, time);
    if (!time.empty() && width + kLeastRoom * style.body.LineHeight() < rect.Width()) {
        spot.room = rect;
        spot.room.right = rect.left + width;
        writer.Text(spot, time);
        rect.left += width + style.pad;
    }
    spot.role = PageRole::ItemText;
    spot.font = FontOf(item, style.body);
    spot.color = style.text;
    spot.room = rect;
    writer.Text(spot, item.text);
}

std::vector<int> ItemsOf(const PrintSource& source, int firstDay, int lastDay)
{
    std::vector<int> items;
    for (int i = 0; i < static_cast<int>(source.items.size()); ++i) {
        if (source.items[i].Overlaps(firstDay, lastDay)) {
            items.push_back(i);
        }
    }
    const auto keyOf = [&](int i) {
        const PrintItem& item = source.items[i];
        return std::make_tuple(item.firstDay, !item.IsLong(), -item.lastDay, !item.isWholeDay, item.startMinute,
                               -item.endMinute);
    };
    std::stable_sort(items.begin(), items.end(), [&](int a, int b) { return keyOf(a) < keyOf(b); });
    return items;
}

std::vector<ItemPiece> PiecesOfDay(const PrintSource& source, const std::vector<int>& items, int day)
{
    std::vector<ItemPiece> pieces;
    for (const int i : items) {
        if (source.items[i].Overlaps(day, day)) {
            pieces.push_back({i, day, day});
        }
    }
    std::stable_sort(pieces.begin(), pieces.end(), [&](const ItemPiece& a, const ItemPiece& b) {
        const auto startOn = [&](const PrintItem& item) {
            return item.isWholeDay || item.firstDay < day ? -1 : item.startMinute;
        };
        return startOn(source.items[a.item]) < startOn(source.items[b.item]);
    });
    return pieces;
}

} // namespace dayvane
