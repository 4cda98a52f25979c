// Eras at their boundaries, what is written of them, and what people write instead.
#include "calc/Eras.h"

#include <gtest/gtest.h>

#include <random>

namespace {
using namespace dayvane;

TEST(Eras, FirstAndLastDays)
{
    struct
    {
        CivilDate date;
        const char* text; // nullptr: no era
        const char* brief;
    } const cases[] = {
        {{1868, 1, 24}, nullptr, nullptr},
        {{1868, 1, 25}, u8"明治元年1月25日", "M1.1.25"},
        {{1873, 1, 1}, u8"明治6年1月1日", "M6.1.1"},
        {{1912, 7, 29}, u8"明治45年7月29日", "M45.7.29"},
        {{1912, 7, 30}, u8"大正元年7月30日", "T1.7.30"},
        {{1926, 12, 24}, u8"大正15年12月24日", "T15.12.24"},
        {{1926, 12, 25}, u8"昭和元年12月25日", "S1.12.25"},
        {{1989, 1, 7}, u8"昭和64年1月7日", "S64.1.7"},
        {{1989, 1, 8}, u8"平成元年1月8日", "H1.1.8"},
        {{2019, 4, 30}, u8"平成31年4月30日", "H31.4.30"},
        {{2019, 5, 1}, u8"令和元年5月1日", "R1.5.1"},
        {{2026, 11, 20}, u8"令和8年11月20日", "R8.11.20"},
        {{9999, 12, 31}, u8"令和7981年12月31日", "R7981.12.31"},
    };
    const EraTable eras;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.date.year * 10000 + c.date.month * 100 + c.date.day);
        EXPECT_EQ(eras.Format(c.date, EraStyle::Long), c.text ? c.text : "");
        EXPECT_EQ(eras.Format(c.date, EraStyle::Short), c.brief ? c.brief : "");
        EXPECT_EQ(eras.YearOf(c.date).isBeforeGregorian, c.date == (CivilDate{1868, 1, 25}));
        for (const char* text : {c.text, c.brief}) {
            if (text) {
                const EraDate read = eras.Parse(text);
                EXPECT_EQ(read.date, c.date);
                EXPECT_EQ(read.parts, EraParts::Day);
                EXPECT_FALSE(read.isOutsideEra);
            }
        }
    }
    EXPECT_EQ(eras.Format({2026, 11, 20}, EraStyle::LongMonth), u8"令和8年11月");
    EXPECT_EQ(eras.Format({2026, 11, 20}, EraStyle::LongYear), u8"令和8年");
    EXPECT_EQ(eras.Format({2026, 11, 20}, EraStyle::English), "20 November, Reiwa 8");
    EXPECT_EQ(eras.Format({}, EraStyle::Long), "");
}

TEST(Eras, WhatPeopleWrite)
{
    struct
    {
        const char* text;
        EraParts parts;
        CivilDate date;
        bool isOutsideEra;
    } const cases[] = {
        {u8"令和８年１１月２０日", EraParts::Day, {2026, 11, 20}, false},
        {u8"Ｒ８．１１．２０", EraParts::Day, {2026, 11, 20}, false},
        {u8"令和八年十一月二十日", EraParts::Day, {2026, 11, 20}, false},
        {u8"昭和六三年一〇月三十一日", EraParts::Day, {1988, 10, 31}, false},
        {u8" 令和 8 年　11 月 20 日 ", EraParts::Day, {2026, 11, 20}, false},
        {"r8/11/20", EraParts::Day, {2026, 11, 20}, false},
        {"h31-04-30", EraParts::Day, {2019, 4, 30}, false},
        {u8"令8.11.20", EraParts::Day, {2026, 11, 20}, false},
        {u8"㍻8年2月29日", EraParts::Day, {1996, 2, 29}, false},
        {u8"㋿8年", EraParts::Year, {2026, 1, 1}, false},
        {u8"令和元年", EraParts::Year, {2019, 5, 1}, false},
        {u8"令和元年5月", EraParts::Month, {2019, 5, 1}, false},
        {u8"令和元年6月", EraParts::Month, {2019, 6, 1}, false},
        {u8"昭和64年", EraParts::Year, {1989, 1, 1}, false},
        {u8"平成32年4月1日", EraParts::Day, {2020, 4, 1}, true}, // printed before the era ended
        {u8"平成31年5月1日", EraParts::Day, {2019, 5, 1}, true},
        {u8"令和元年4月30日", EraParts::Day, {2019, 4, 30}, true},
        {u8"明治元年1月1日", EraParts::Day, {1868, 1, 1}, true},
        {u8"令和7年2月29日", EraParts::None, {}, false}, // no leap year
        {u8"令和0年1月1日", EraParts::None, {}, false},
        {u8"令和8年13月1日", EraParts::None, {}, false},
        {u8"令和8年11月20日(金)", EraParts::None, {}, false},
        {u8"令和年11月", EraParts::None, {}, false},
        {u8"令和99999年", EraParts::None, {}, false},
        {u8"2026年11月20日", EraParts::None, {}, false},
        {u8"明", EraParts::None, {}, false},
        {"R8.11.20\xE4", EraParts::None, {}, false}, // a character that breaks off
        {"", EraParts::None, {}, false},
    };
    const EraTable eras;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        const EraDate read = eras.Parse(c.text);
        EXPECT_EQ(read.parts, c.parts);
        EXPECT_EQ(read.isOutsideEra, c.isOutsideEra);
        EXPECT_EQ(read.date, c.date) << read.date.year << "-" << read.date.month << "-" << read.date.day;
    }
    EXPECT_TRUE(eras.Parse("M5.12.2").isBeforeGregorian);
}

TEST(Eras, NewerErasAreAdded)
{
    EraTable eras;
    EXPECT_FALSE(eras.AddSystemEntry("2019 05 01", u8"令和_令_Reiwa_R")) << "known already";
    EXPECT_TRUE(eras.AddSystemEntry("2050 04 01", u8"永光_永_Eiko_E"));
    for (const auto& broken : {std::make_pair("2060 02 30", "a_b_c_D"), std::make_pair("2060-2", "a_b_c_D"),
                               std::make_pair("2060 0x 01", "a_b_c_D"), std::make_pair("2060 01 01", "a_b_c"),
                               std::make_pair("2060 01 01", "a_b_c_"), std::make_pair("2060 01 01", "_b_c_D")}) {
        EXPECT_FALSE(eras.AddSystemEntry(broken.first, broken.second)) << broken.first << " " << broken.second;
    }
    EXPECT_EQ(eras.Eras().size(), 6u);
    EXPECT_EQ(eras.Eras().back().sign, u8"永");
    EXPECT_EQ(eras.Eras().back().english, "Eiko");
    EXPECT_EQ(eras.Format({2050, 3, 31}, EraStyle::Long), u8"令和32年3月31日");
    EXPECT_EQ(eras.Format({2050, 4, 1}, EraStyle::Short), "E1.4.1");
    EXPECT_EQ(eras.Parse(u8"永光2年4月1日").date, (CivilDate{2051, 4, 1}));
    EXPECT_TRUE(eras.Parse(u8"令和33年").isOutsideEra);
}

TEST(Eras, AnyBytesAreSafeAndEveryDayComesBack)
{
    const EraTable eras;
    std::mt19937 random(7);
    const std::string seed = u8"令和８年11月二十日R8.元";
    for (int round = 0; round < 20000; ++round) {
        std::string text = seed.substr(random() % seed.size(), random() % seed.size());
        for (int change = random() % 4; change > 0 && !text.empty(); --change) {
            text[random() % text.size()] = static_cast<char>(random());
        }
        const EraDate read = eras.Parse(text);
        ASSERT_EQ(read.date.IsValid(), read.parts != EraParts::None);
    }
    for (CivilDate day = {1868, 1, 25}; day.year < 2100; day = AddDays(day, 1)) {
        for (const EraStyle style : {EraStyle::Long, EraStyle::Short}) {
            const EraDate read = eras.Parse(eras.Format(day, style));
            ASSERT_EQ(read.date, day) << eras.Format(day, style);
            ASSERT_FALSE(read.isOutsideEra);
        }
    }
}
} // namespace
