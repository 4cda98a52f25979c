// Every rectangle, colour and text of the pages of a small calendar, as tests/printing/drawn_pages.txt lists them: a
// change of the design is seen there, and one that nobody meant is found. Of random calendars, full days and odd papers
// among them, it has a sum each, and of papers that grow by a unit, so that every edge at which words and items just
// fit is met, a sum for each kind. DAYVANE_ACCEPT=1 writes the file anew.
#include "core/DateMath.h"
#include "printing/PageBuilders.h"
#include "tests/printing/PrintScene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

using namespace dayvane;

namespace {

struct Sheet
{
    const char* name;
    PageKind kind;
    int days;
    CSize paper;
    int firstDay = kSunday1Nov2026;
    PrintOptions options = {};
};

PrintOptions Other()
{
    PrintOptions options;
    options.otherDays = PrintOptions::OtherDays::LeftOut;
    options.yearForm = PrintOptions::YearForm::Boxes;
    options.language = PrintLanguage::English;
    options.inColor = false;
    options.emptyDays = true;
    options.headerMonths = 1;
    options.fontSize = 104;
    options.hoursFrom = 5;
    options.footerText = u"Office";
    return options;
}

const CSize kA4(2100, 2970);
const CSize kA4Across(2970, 2100);
const CSize kB5Across(2570, 1820);
constexpr unsigned kRandomSheets = 120;
constexpr int kGrownPapers = 150;
constexpr int kNewYear2026 = kSunday1Nov2026 - 304;
const Sheet kSheets[] = {
    {"day", PageKind::Day, 1, kA4},
    {"day, other", PageKind::Day, 1, kB5Across, kSunday1Nov2026 + 2, Other()},
    {"days", PageKind::Days, 3, kA4Across},
    {"ten days, other", PageKind::Days, 10, kA4, kSunday1Nov2026, Other()},
    {"week", PageKind::Week, 7, kA4},
    {"week, other", PageKind::Week, 7, kB5Across, kSunday1Nov2026 + 3, Other()},
    {"month", PageKind::Month, 30, kA4Across},
    {"month, other", PageKind::Month, 30, kA4, kSunday1Nov2026, Other()},
    {"year", PageKind::Year, 365, kA4, kNewYear2026},
    {"year, other", PageKind::Year, 365, kA4Across, kNewYear2026, Other()},
    {"list", PageKind::List, 12, kA4},
    {"list, other", PageKind::List, 12, kB5Across, kSunday1Nov2026, Other()},
};

PrintSource SmallCalendar()
{
    RandomSource random(20);
    PrintSource source = random.Make(0, kSunday1Nov2026, 1);
    source.firstDayOfWeek = 2;
    source.title = u"予定表";
    const auto add = [&](int day, int days, int start, int end, const char16_t* text) -> PrintItem& {
        PrintItem item;
        item.firstDay = kSunday1Nov2026 + day;
        item.lastDay = item.firstDay + days - 1;
        item.isWholeDay = start < 0;
        item.startMinute = std::max(start, 0);
        item.endMinute = start < 0 ? kMinutesOfDay : end;
        item.text = text;
        source.items.push_back(item);
        return source.items.back();
    };
    add(-3, 6, -1, 0, u"出張").fill = 0xC0E0FF;
    add(0, 1, -1, 0, u"Stock taking").isBold = true;
    add(0, 1, 540, 600, u"定例会議 of the quarter").place = u"第１会議室";
    add(0, 1, 570, 630, u"review").isStruck = true;
    add(0, 1, 570, 575, u"call").image = 0;
    add(0, 1, 390, 430, u"early run");
    add(0, 1, 1390, 1440, u"night shift");
    add(2, 2, 900, 660,
        u"Course of two days, with a title that is much too long for the width of its column and so "
        u"takes a second line or is cut");
    for (int i = 0; i < 9; ++i) {
        add(4, 1, 480 + 45 * i, 530 + 60 * i, u"電話、面談").fill = i % 3 == 0 ? 0x80FFC0 : 0xFFFFFF;
    }
    add(9, 20, -1, 0, u"休暇").edge = 0x2040C0;
    add(-250, 3, -1, 0, u"Fair");
    return source;
}

std::string Utf8(const std::u16string& text)
{
    std::string bytes;
    for (const char16_t c : text) { // no character of these pages is beyond U+FFFF
        if (c < 0x80) {
            bytes += static_cast<char>(c);
        } else {
            bytes += c < 0x800 ? static_cast<char>(0xC0 | c >> 6) : static_cast<char>(0xE0 | c >> 12);
            bytes += c < 0x800 ? "" : std::string(1, static_cast<char>(0x80 | (c >> 6 & 0x3F)));
            bytes += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
    return bytes;
}

std::string BoxText(const CRect& box)
{
    char text[64];
    std::snprintf(text, sizeof(text), " %d,%d+%dx%d", int(box.left), int(box.top), int(box.Width()), int(box.Height()));
    return text;
}

// A line for each look, in the order in which they first appear.
class Listing
{
public:
    void Add(const std::string& look, const std::string& what)
    {
        const auto isSame = [&](const auto& line) { return line.first == look; };
        auto line = std::find_if(m_lines.begin(), m_lines.end(), isSame);
        if (line == m_lines.end()) {
            line = m_lines.insert(line, {look, ""});
        }
        line->second += what;
    }
    std::string Text() const
    {
        std::string text;
        for (const auto& [look, what] : m_lines) {
            text += "\n" + look + ":" + what;
        }
        return text;
    }

private:
    std::vector<std::pair<std::string, std::string>> m_lines;
};

std::string ListingOf(const Page& page)
{
    static const char* const shapes[] = {"fill", "frame", "line", "ahead", "back", "moon"};
    static const char* const roles[] = {"title", "heading", "day",       "note",  "item",
                                        "time",  "place",   "continued", "label", "footer"};
    static const char* const faces[] = {"text", "latin"};
    static const char* const sides[] = {"left", "middle", "right"};
    Listing listing;
    char look[128];
    for (const PageShape& shape : page.shapes) {
        std::snprintf(look, sizeof(look), "%s #%06X pen %d", shapes[shape.kind], unsigned(shape.color), shape.pen);
        listing.Add(look, BoxText(shape.rect));
    }
    for (const PageImage& image : page.images) {
        std::snprintf(look, sizeof(look), "image %d on #%06X", image.image, unsigned(image.background));
        listing.Add(look, BoxText(image.rect));
    }
    for (const PageText& text : page.texts) {
        const PageFont& font = text.font;
        std::snprintf(look, sizeof(look), "%s #%06X %s %d%s%s %s", roles[int(text.role)], unsigned(text.color),
                      faces[int(font.face)], font.size, font.bold ? " bold" : "", font.italic ? " italic" : "",
                      sides[int(text.align)]);
        std::string what = BoxText(text.box) + " \"" + Utf8(text.text) + "\"";
        what += text.item < 0 ? "" : " of " + std::to_string(text.item);
        what += text.day == 0 ? "" : " on " + std::to_string(text.day - kSunday1Nov2026);
        listing.Add(look, what);
    }
    return listing.Text();
}

// Of a listing: FNV-1a.
class Sum
{
public:
    void Add(const std::vector<Page>& pages)
    {
        m_sheets += pages.size();
        for (const Page& page : pages) {
            for (const char c : ListingOf(page)) {
                m_sum = (m_sum ^ static_cast<unsigned char>(c)) * 16777619;
            }
        }
    }
    std::string Line(const std::string& name) const
    {
        return "== " + name + ": " + std::to_string(m_sheets) + " sheets, sum " + std::to_string(m_sum) + "\n";
    }

private:
    std::size_t m_sheets = 0;
    std::uint32_t m_sum = 2166136261;
};

std::string GrownPapers(PrintSource source)
{
    source.items.push_back(source.items[2]); // taller than a column
    for (int i = 0; i < 200; ++i) {
        source.items.back().text += u" of the quarter";
    }
    source.weekOf = [](int day) { return day / 7 % 52 + 1; };
    std::string drawn;
    PrintOptions options;
    options.fontSize = 60;
    for (const Sheet& sheet : kSheets) {
        const bool isOther = sheet.options.footerText == Other().footerText;
        const PrintRange range = {sheet.kind, sheet.firstDay, sheet.firstDay + sheet.days - 1};
        Sum sum;
        for (int i = 0; i < kGrownPapers; ++i) {
            const CSize paper = isOther ? CSize(800, 700 + i) : CSize(600 + i, 900);
            sum.Add(BuildPages(source, range, options, paper, PlainMeasurer()));
        }
        drawn += sum.Line(std::string(sheet.name) + (isOther ? ", higher papers" : ", wider papers"));
    }
    return drawn;
}

std::string DrawnPages()
{
    const PlainMeasurer measurer;
    const PrintSource source = SmallCalendar();
    std::string drawn;
    for (const Sheet& sheet : kSheets) {
        const PrintRange range = {sheet.kind, sheet.firstDay, sheet.firstDay + sheet.days - 1};
        int number = 0;
        for (const Page& page : BuildPages(source, range, sheet.options, sheet.paper, measurer)) {
            drawn += "== " + std::string(sheet.name) + ", sheet " + std::to_string(++number) + ListingOf(page) + "\n";
        }
    }
    for (unsigned seed = 0; seed < kRandomSheets; ++seed) {
        RandomSheet sheet(seed);
        sheet.source.title = u"the calendar of the office";
        sheet.source.titleNote = [](int first, int last) { return std::u16string(last - first, u'注') + u" note"; };
        Sum sum;
        sum.Add(BuildPages(sheet.source, sheet.range, sheet.options, sheet.paper.size, measurer));
        drawn += sum.Line(sheet.name);
    }
    return drawn + GrownPapers(source);
}

TEST(DrawnPages, ChangeOnlyWithTheirFile)
{
    const std::string drawn = DrawnPages();
    if (std::getenv("DAYVANE_ACCEPT")) {
        std::ofstream(DRAWN_PAGES, std::ios::binary) << drawn;
    }
    std::ifstream file(DRAWN_PAGES, std::ios::binary);
    std::istringstream lines(drawn);
    std::string expected;
    std::string got;
    std::string sheet;
    for (int line = 1; std::getline(file, expected); ++line) {
        sheet = expected.compare(0, 2, "==") == 0 ? expected : sheet;
        ASSERT_TRUE(std::getline(lines, got)) << "nothing after line " << line;
        ASSERT_EQ(got, expected) << "line " << line << ", " << sheet;
    }
    EXPECT_FALSE(std::getline(lines, got)) << got;
    EXPECT_FALSE(sheet.empty()) << "the file of the pages is not there";
}

} // namespace
