// Pages without a device: a measurer with made-up widths, and random items.
#pragma once

#include "printing/PageBuilders.h"

#include <iterator>
#include <random>
#include <string>

// Latin characters take a little more than half of their height, Japanese ones all of it.
class PlainMeasurer : public dayvane::TextMeasurer
{
public:
    void Measure(const dayvane::PageFont& font, const std::u16string& text, std::vector<int>& ends) const override
    {
        ends.clear();
        long long width = 0;
        for (const char16_t c : text) {
            width += (c < 0x2E80 ? 56 : 100) + (font.bold ? 4 : 0);
            ends.push_back(static_cast<int>((width * font.size * 254 + 71999) / 72000));
        }
    }
};

constexpr int kSunday1Nov2026 = 46327; // day number

class RandomSource
{
public:
    explicit RandomSource(unsigned seed) : m_random(seed) {}

    int Below(int n) { return static_cast<int>(m_random() % static_cast<unsigned>(n)); }

    dayvane::PrintSource Make(int most, int firstDay, int days)
    {
        dayvane::PrintSource source;
        source.firstDayOfWeek = 1 + Below(7);
        source.today = firstDay;
        source.dayFacts = [](int day) {
            dayvane::PrintDay facts;
            facts.isDayOff = day % 9 == 0;
            facts.holiday = facts.isDayOff ? u"勤労感謝の日" : u"";
            facts.solarTerm = day % 15 == 0 ? u"小雪" : u"";
            facts.lunarMonth = 10;
            facts.lunarDay = 14;
            return facts;
        };
        const int crowdedDay = firstDay + Below(days);
        for (int i = Below(most + 1); i > 0; --i) {
            source.items.push_back(Item(Below(3) == 0 ? crowdedDay : firstDay - 3 + Below(days + 6)));
        }
        return source;
    }

private:
    dayvane::PrintItem Item(int day)
    {
        dayvane::PrintItem item;
        item.firstDay = day;
        item.lastDay = day + (Below(5) == 0 ? Below(12) : 0);
        item.isWholeDay = Below(5) == 0;
        item.startMinute = item.isWholeDay ? 0 : Below(288) * 5;
        item.endMinute = item.isWholeDay ? dayvane::kMinutesOfDay
                                         : std::min(item.startMinute + Below(30) * 10, dayvane::kMinutesOfDay);
        const char16_t* const words[] = {u"定例会議",
                                         u"review",
                                         u"打ち合わせ",
                                         u"of the quarter",
                                         u"（第１会議室）",
                                         u"a",
                                         u"電話、面談",
                                         u"\n",
                                         u"Donaudampfschifffahrtsgesellschaft"};
        for (int i = Below(Below(8) == 0 ? 60 : 7); i > 0; --i) {
            item.text += words[Below(9)];
            item.text += Below(2) == 0 ? u" " : u"";
        }
        item.place = Below(3) == 0 ? u"東京本社 12階 大会議室" : u"";
        item.isBold = Below(6) == 0;
        item.image = Below(9) == 0 ? 0 : -1;
        item.fill = static_cast<COLORREF>(Below(0x1000000));
        return item;
    }

    std::mt19937 m_random;
};

struct PaperRow
{
    const char* name;
    CSize size;
};
inline const PaperRow kPapers[] = {
    {"A4", CSize(2100, 2970)},       {"A4 landscape", CSize(2970, 2100)},
    {"A3", CSize(2970, 4200)},       {"A3 landscape", CSize(4200, 2970)},
    {"A5", CSize(1480, 2100)},       {"B5 landscape", CSize(2570, 1820)},
    {"Letter", CSize(2159, 2794)},   {"Letter landscape", CSize(2794, 2159)},
    {"postcard", CSize(1000, 1480)}, {"stamp", CSize(200, 240)},
    {"ribbon", CSize(20000, 600)},   {"column", CSize(400, 9000)},
    {"one unit", CSize(1, 1)},       {"a wall", CSize(40000, 30000)},
};
constexpr dayvane::PageKind kKinds[] = {dayvane::PageKind::Day,   dayvane::PageKind::Days, dayvane::PageKind::Week,
                                        dayvane::PageKind::Month, dayvane::PageKind::Year, dayvane::PageKind::List};

inline dayvane::PrintOptions RandomOptions(RandomSource& random)
{
    dayvane::PrintOptions options;
    options.fontSize = 40 + random.Below(140);
    options.marginLeft = random.Below(40);
    options.headerMonths = random.Below(4);
    options.showTitle = random.Below(5) != 0;
    options.inColor = random.Below(2) == 0;
    options.widenHours = random.Below(2) == 0;
    options.hoursFrom = random.Below(24);
    options.hoursTo = random.Below(30);
    options.emptyDays = random.Below(2) == 0;
    options.language = random.Below(2) == 0 ? dayvane::PrintLanguage::Japanese : dayvane::PrintLanguage::English;
    options.otherDays =
        random.Below(2) == 0 ? dayvane::PrintOptions::OtherDays::Greyed : dayvane::PrintOptions::OtherDays::LeftOut;
    options.yearForm =
        random.Below(2) == 0 ? dayvane::PrintOptions::YearForm::Calendar : dayvane::PrintOptions::YearForm::Boxes;
    return options;
}

// What is printed of a seed, and on which paper.
struct RandomSheet
{
    explicit RandomSheet(unsigned seed)
    {
        RandomSource random(seed);
        range.kind = kKinds[seed % 6];
        const int spans[] = {1, 2 + random.Below(13), 7, 31, 365, 1 + random.Below(40)};
        const int days = spans[static_cast<int>(range.kind)];
        range.firstDay = kSunday1Nov2026 + random.Below(400);
        if (range.kind == dayvane::PageKind::Year) {
            range.firstDay = kSunday1Nov2026 - 304; // 1 January
        }
        range.lastDay = range.firstDay + days - 1;
        source = random.Make(1 << random.Below(9), range.firstDay, days);
        options = RandomOptions(random);
        paper = kPapers[random.Below(static_cast<int>(std::size(kPapers)))];
        name = "seed " + std::to_string(seed) + " kind " + std::to_string(static_cast<int>(range.kind)) + " on " +
               paper.name;
    }

    dayvane::PrintRange range;
    dayvane::PrintSource source;
    dayvane::PrintOptions options;
    PaperRow paper;
    std::string name;
};
