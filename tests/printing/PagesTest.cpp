// What holds of every page whatever the items and the paper: nothing lost, nothing twice, nothing outside.
#include "core/DateMath.h"
#include "printing/PageBuilders.h"
#include "printing/PrintTexts.h"
#include "printing/TextLines.h"
#include "tests/printing/PrintScene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

using namespace dayvane;

namespace {

using Place = std::pair<int, int>; // item, first day of the piece

// Where each item has to stand, by the rule of the kind of page.
std::multiset<Place> ExpectedPlaces(const PrintSource& source, const PrintRange& range, const PrintOptions& options)
{
    std::multiset<Place> places;
    int from = range.firstDay;
    int to = range.lastDay;
    switch (range.kind) {
    case PageKind::Month:
        from = FirstOfMonth(range.firstDay);
        to = FirstOfMonthAfter(from, 1) - 1;
        break;
    case PageKind::Week:
        to = from + 6;
        break;
    default:
        break;
    }
    const int gridFirst = WeekStartOf(from, source.firstDayOfWeek);
    if (range.kind == PageKind::Month && options.otherDays == PrintOptions::OtherDays::Greyed) {
        to = gridFirst + std::max(5, (to - gridFirst) / 7 + 1) * 7 - 1;
        from = gridFirst;
    }
    for (int i = 0; i < static_cast<int>(source.items.size()); ++i) {
        const PrintItem& item = source.items[i];
        const int first = std::max(item.firstDay, from);
        const int last = std::min(item.lastDay, to);
        if (first > last ||
            (range.kind == PageKind::Year && !item.IsBand() && options.yearForm == PrintOptions::YearForm::Calendar)) {
            continue;
        }
        if (range.kind == PageKind::Year) {
            for (int day = first; day <= last; day = FirstOfMonthAfter(day, 1)) {
                places.insert({i, day});
                if (options.yearForm == PrintOptions::YearForm::Calendar) {
                    break;
                }
            }
        } else if (range.kind == PageKind::Month && item.IsLong()) {
            for (int day = first; day <= last; day = gridFirst + ((day - gridFirst) / 7 + 1) * 7) {
                places.insert({i, day});
            }
        } else if (range.kind == PageKind::Days && item.IsLong()) {
            const int days = to - from + 1;
            const int half = days > 7 ? from + days / 2 : to + 1;
            places.insert({i, first});
            if (first < half && last >= half) {
                places.insert({i, half});
            }
        } else {
            for (int day = first; day <= last; day += 1) {
                places.insert({i, day});
            }
        }
    }
    return places;
}

// Where items stand: a run of words on a sheet belongs to the run before it when both are of one piece.
std::multiset<Place> PlacesOf(const std::vector<Page>& pages)
{
    std::multiset<Place> places;
    Place last = {-1, 0};
    for (const Page& page : pages) {
        for (const PageText& text : page.texts) {
            if (text.role == PageRole::ItemText) {
                const Place place = {text.item, text.day};
                if (place != last) {
                    places.insert(place);
                }
                last = place;
            }
        }
    }
    return places;
}

void ExpectInside(const std::vector<Page>& pages, CSize paper, const TextMeasurer& measurer, const std::string& name)
{
    const CRect sheet(0, 0, paper.cx, paper.cy);
    const auto isInside = [&](const CRect& rect) {
        return rect.left >= 0 && rect.top >= 0 && rect.right <= sheet.right && rect.bottom <= sheet.bottom &&
               rect.left <= rect.right && rect.top <= rect.bottom;
    };
    for (const Page& page : pages) {
        ASSERT_EQ(page.size, paper);
        for (const PageText& text : page.texts) {
            ASSERT_TRUE(isInside(text.box)) << name << ": a text at " << text.box.left << "," << text.box.top << ","
                                            << text.box.right << "," << text.box.bottom;
            if (std::min(paper.cx, paper.cy) >= 1200) {
                ASSERT_LE(measurer.WidthOf(text.font, text.text), text.box.Width()) << name;
                ASSERT_LE(text.font.LineHeight(), text.box.Height()) << name;
            }
        }
        for (const PageShape& shape : page.shapes) {
            ASSERT_TRUE(isInside(shape.rect)) << name << ": shape " << shape.kind << " at " << shape.rect.left << ","
                                              << shape.rect.top << "," << shape.rect.right << "," << shape.rect.bottom;
        }
        for (const PageImage& image : page.images) {
            ASSERT_TRUE(isInside(image.rect)) << name;
        }
    }
}

bool Overlap(const CRect& a, const CRect& b)
{
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

// No item's text lies over another one's.
void ExpectApart(const std::vector<Page>& pages, const std::string& name)
{
    for (const Page& page : pages) {
        std::vector<const PageText*> runs;
        for (const PageText& text : page.texts) {
            if (text.item >= 0) {
                runs.push_back(&text);
            }
        }
        std::sort(runs.begin(), runs.end(),
                  [](const PageText* a, const PageText* b) { return a->box.top < b->box.top; });
        for (std::size_t i = 0; i < runs.size(); ++i) {
            for (std::size_t j = i + 1; j < runs.size() && runs[j]->box.top < runs[i]->box.bottom; ++j) {
                ASSERT_FALSE(Overlap(runs[i]->box, runs[j]->box))
                    << name << ": items " << runs[i]->item << " at " << runs[i]->box.left << "," << runs[i]->box.top
                    << "," << runs[i]->box.right << "," << runs[i]->box.bottom << " and " << runs[j]->item << " at "
                    << runs[j]->box.left << "," << runs[j]->box.top << "," << runs[j]->box.right << ","
                    << runs[j]->box.bottom << " roles " << int(runs[i]->role) << int(runs[j]->role);
            }
        }
    }
}

// In a list an item of the day follows each heading before the sheet or the column ends.
void ExpectHeadingsWithItems(const std::vector<Page>& pages, const std::string& name)
{
    for (const Page& page : pages) {
        int headed = 0;
        for (const PageText& text : page.texts) {
            if (text.role == PageRole::DayHeading) {
                ASSERT_EQ(headed, 0) << name << ": a heading without items";
                headed = text.day;
            } else if (text.role == PageRole::ItemText) {
                ASSERT_TRUE(headed == 0 || text.day == headed) << name;
                headed = 0;
            }
        }
        ASSERT_EQ(headed, 0) << name << ": a heading is the last of its sheet";
    }
}

TEST(Pages, LoseNothingPrintNothingTwiceAndStayOnTheSheet)
{
    const PlainMeasurer measurer;
    for (unsigned seed = 0; seed < 400; ++seed) {
        const RandomSheet sheet(seed);
        const auto& [range, source, options, paper, name] = sheet;
        const std::vector<Page> pages = BuildPages(source, range, options, paper.size, measurer);
        ASSERT_FALSE(pages.empty()) << name;
        ExpectInside(pages, paper.size, measurer, name);
        const std::multiset<Place> found = PlacesOf(pages);
        const std::multiset<Place> expected = ExpectedPlaces(source, range, options);
        for (const Place& place : expected) {
            EXPECT_EQ(found.count(place), 1u) << name << ": item " << place.first << " on day " << place.second
                                              << " of " << range.firstDay << ".." << range.lastDay;
        }
        EXPECT_EQ(found.size(), expected.size()) << name;
        if (std::min(paper.size.cx, paper.size.cy) >= 1200) {
            ExpectApart(pages, name);
            if (range.kind == PageKind::List && !options.emptyDays) {
                ExpectHeadingsWithItems(pages, name);
            }
        }
    }
}

TEST(Pages, AYearNamesWhatRepeatsOnceWithItsDates)
{
    PrintSource source;
    for (int month = 0; month < 12; ++month) {
        PrintItem item;
        item.firstDay = item.lastDay = DayNumberOf(COleDateTime(2026, month + 1, 25, 0, 0, 0));
        item.isWholeDay = true;
        item.text = month == 5 ? u"Bonus" : u"Pay day";
        source.items.push_back(item);
    }
    const PrintRange range = {PageKind::Year, DayNumberOf(COleDateTime(2026, 1, 1, 0, 0, 0)), 0};
    const std::vector<Page> pages = BuildPages(source, range, PrintOptions(), CSize(2100, 2970), PlainMeasurer());
    ASSERT_EQ(pages.size(), 1u);
    std::u16string words, dates;
    for (const PageText& text : pages[0].texts) {
        words += text.role == PageRole::ItemText ? text.text + u";" : u"";
        dates += text.role == PageRole::ItemPlace ? text.text + u" " : u"";
    }
    EXPECT_EQ(words, u"Pay day;Bonus;");
    EXPECT_EQ(dates, u"1/25, 2/25, 3/25, 4/25, 5/25, 7/25, 8/25, 9/25, 10/25, 11/25, 12/25 ");
}

// What does not fit even in the smallest letters is cut in ones that are read.
TEST(Pages, AHopelesslyCrowdedMonthIsWrittenInLettersThatAreRead)
{
    const auto sizeOf = [](int items) {
        PrintSource source;
        for (int i = 0; i < items; ++i) {
            PrintItem item;
            item.firstDay = item.lastDay = kSunday1Nov2026 + i % 30;
            item.text = u"of the quarter";
            source.items.push_back(item);
        }
        const PrintRange range = {PageKind::Month, kSunday1Nov2026, 0};
        const std::vector<Page> pages = BuildPages(source, range, PrintOptions(), CSize(2100, 2970), PlainMeasurer());
        int size = 0;
        for (const PageText& text : pages[0].texts) {
            size = text.role == PageRole::ItemText ? text.font.size : size;
        }
        return size;
    };
    EXPECT_EQ(sizeOf(30 * 60), sizeOf(1) * 9 / 10);
}

TEST(Pages, AListOfAWholeMonthIsCalledByItsName)
{
    const auto titleOf = [](int firstDay, int lastDay) {
        const PrintRange range = {PageKind::List, firstDay, lastDay};
        const std::vector<Page> pages =
            BuildPages(PrintSource(), range, PrintOptions(), CSize(2100, 2970), PlainMeasurer());
        const auto title = std::find_if(pages[0].texts.begin(), pages[0].texts.end(),
                                        [](const PageText& text) { return text.role == PageRole::Title; });
        return title != pages[0].texts.end() ? title->text : u"";
    };
    const PrintTexts texts(PrintSource().texts);
    EXPECT_EQ(titleOf(kSunday1Nov2026, kSunday1Nov2026 + 29), texts.Month(kSunday1Nov2026));
    for (const auto& [first, last] : {std::pair(0, 28), std::pair(1, 29), std::pair(0, 30), std::pair(0, 60)}) {
        EXPECT_EQ(titleOf(kSunday1Nov2026 + first, kSunday1Nov2026 + last),
                  texts.DateSpan(kSunday1Nov2026 + first, kSunday1Nov2026 + last));
    }
}

TEST(Lines, TooNarrowForAnythingHaveAWholeCharacterEach)
{
    const std::u16string text = u"a\U0001F600\U0001F601b";
    std::vector<std::u16string> lines;
    for (const TextLine& line : BreakText(text, {PageFace::Text, 100}, {1, 1}, PlainMeasurer())) {
        lines.push_back(line.text);
    }
    EXPECT_EQ(lines, (std::vector<std::u16string>{u"a", u"\U0001F600", u"\U0001F601", u"b"}));
}

// The parts of a date that both days share are said once, whatever the order in which a language says them.
TEST(Pages, TitlesOfSeveralDaysSayWhatTheyShareOnce)
{
    const struct
    {
        const char16_t* pattern;
        const char16_t* sameMonth;
        const char16_t* sameYear;
        const char16_t* years;
    } rows[] = {
        {u"%#Y年%#m月%#d日", u"2026年11月1日 – 7日", u"2026年11月1日 – 12月1日", u"2026年11月1日 – 2027年1月2日"},
        {u"%#d %B %#Y", u"1 – 7 November 2026", u"1 November – 1 December 2026", u"1 November 2026 – 2 January 2027"},
        {u"%#d. %B %#Y", u"1. – 7. November 2026", u"1. November – 1. December 2026",
         u"1. November 2026 – 2. January 2027"},
        {u"%B %#d, %Y", u"November 1 – 7, 2026", u"November 1 – December 1, 2026",
         u"November 1, 2026 – January 2, 2027"},
        {u"%d/%m/%y", u"01 – 07/11/26", u"01/11 – 01/12/26", u"01/11/26 – 02/01/27"},
    };
    for (const auto& row : rows) {
        CalendarTexts words = CalendarTexts::English();
        words.pageDate = row.pattern;
        const PrintTexts texts(std::make_shared<CalendarTexts>(words));
        EXPECT_EQ(texts.DateSpan(kSunday1Nov2026, kSunday1Nov2026 + 6), row.sameMonth);
        EXPECT_EQ(texts.DateSpan(kSunday1Nov2026, kSunday1Nov2026 + 30), row.sameYear);
        EXPECT_EQ(texts.DateSpan(kSunday1Nov2026, kSunday1Nov2026 + 62), row.years);
        EXPECT_EQ(texts.Time(24 * 60), u"24:00");
    }
}

// Grey by Rec. 601: 299, 587 and 114 thousandths of red, green and blue.
TEST(Pages, FillsArePaleAndInksDark)
{
    for (int grey = 0; grey < 256; ++grey) {
        EXPECT_EQ(PaleFill(RGB(grey, grey, grey)), 0x010101u * std::max(grey, 226));
        EXPECT_EQ(InkOf(RGB(grey, grey, grey)), 0x010101u * std::min(grey, 150));
    }
    const struct
    {
        COLORREF color, pale, ink, grey;
    } rows[] = {{RGB(255, 0, 0), RGB(255, 214, 214), RGB(255, 0, 0), RGB(76, 76, 76)},
                {RGB(0, 0, 255), RGB(223, 223, 255), RGB(0, 0, 255), RGB(29, 29, 29)},
                {RGB(255, 255, 0), RGB(255, 255, 9), RGB(170, 170, 0), RGB(225, 225, 225)},
                {RGB(200, 220, 255), RGB(212, 228, 255), RGB(137, 151, 175), RGB(218, 218, 218)}};
    for (const auto& row : rows) {
        EXPECT_EQ(PaleFill(row.color), row.pale);
        EXPECT_EQ(InkOf(row.color), row.ink);
        EXPECT_EQ(GreyOf(row.color), row.grey);
    }
}

} // namespace
