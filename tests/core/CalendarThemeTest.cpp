// Every text of every theme can be read on every ground on which it can stand, whatever colours a host gives its items.
#include "core/ThemeColors.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

using namespace dayvane;

namespace {

// Four schemes of high contrast as Windows ships them, and the ordinary one of classic Windows.
constexpr SystemColors kSchemes[] = {
    // window, text, face, text, highlight, text, gray
    {0x000000, 0xFFFFFF, 0x000000, 0xFFFFFF, 0xFFEB1A, 0x000000, 0x3FF23F},
    {0xFFFFFF, 0x000000, 0xFFFFFF, 0x000000, 0x6E0037, 0xFFFFFF, 0x000060},
    {0x000000, 0x00FFFF, 0x000000, 0x00FFFF, 0x800080, 0xFFFFFF, 0x00FF00},
    {0x000000, 0x00FF00, 0x000000, 0x00FF00, 0xFF0000, 0xFFFFFF, 0xC0C0C0},
    {0xFFFFFF, 0x000000, 0xC0C0C0, 0x000000, 0x800000, 0xFFFFFF, 0x808080},
};

struct NamedTheme
{
    std::string name;
    CalendarTheme theme;
};

std::vector<NamedTheme> Themes()
{
    std::vector<NamedTheme> themes = {{"calm", CalendarTheme::Calm()}, {"dark", CalendarTheme::Dark()}};
    for (const SystemColors& scheme : kSchemes) {
        themes.push_back({"high contrast " + std::to_string(themes.size() - 2), CalendarTheme::HighContrast(scheme)});
    }
    return themes;
}

struct Text
{
    const char* name;
    COLORREF color;
    std::vector<COLORREF> grounds;
};

std::vector<Text> TextsOf(const CalendarTheme& theme)
{
    const std::vector<COLORREF> bands = {theme.title, theme.header, theme.headerOther, theme.todayGround};
    const std::vector<COLORREF> days = {theme.ordinary.work, theme.holiday.work, theme.saturday.work,
                                        theme.page,          theme.todayGround,  theme.hot};
    return {
        {"title", theme.titleText, {theme.title, theme.hot}},
        {"header", theme.headerText, bands},
        {"Sunday, day off in bands", theme.headerHoliday, bands},
        {"Saturday in bands", theme.headerSaturday, bands},
        {"ruler", theme.rulerText, {theme.ruler}},
        {"page", theme.pageText, {theme.page, theme.hot}},
        {"ordinary day", theme.ordinary.text, days},
        {"holiday", theme.holiday.text, days},
        {"Saturday", theme.saturday.text, days},
        {"other month", theme.otherMonthText, days},
        {"selection", theme.selectionText, {theme.selection}},
        {"mark", theme.markText, {theme.mark}},
    };
}

constexpr double kShapeContrast = 3.0;

} // namespace

// Known values: the formula's ends, and #777777 on white (4.48), the classic near miss.
TEST(CalendarTheme, ContrastIsThatOfTheGuidelines)
{
    EXPECT_DOUBLE_EQ(ContrastOf(0x000000, 0xFFFFFF), 21.0);
    EXPECT_DOUBLE_EQ(ContrastOf(0x123456, 0x123456), 1.0);
    EXPECT_NEAR(ContrastOf(0xFFFFFF, 0x777777), 4.48, 0.005);
    EXPECT_NEAR(ContrastOf(0x0000FF, 0xFFFFFF), 4.00, 0.005) << "red, not blue";
}

TEST(CalendarTheme, EveryTextIsReadOnItsGrounds)
{
    for (const NamedTheme& named : Themes()) {
        for (const Text& text : TextsOf(named.theme)) {
            for (COLORREF ground : text.grounds) {
                EXPECT_GE(ContrastOf(text.color, ground), kTextContrast)
                    << named.name << ": " << text.name << " on " << std::hex << ground;
            }
        }
    }
}

TEST(CalendarTheme, WhatStandsOutIsSeen)
{
    for (const NamedTheme& named : Themes()) {
        const CalendarTheme& theme = named.theme;
        for (COLORREF ground : {theme.ordinary.work, theme.ordinary.off, theme.holiday.work, theme.saturday.work}) {
            for (COLORREF shape : {theme.nowLine, theme.today, theme.selectionFrame, theme.focus}) {
                EXPECT_GE(ContrastOf(shape, ground), named.name.find("high") == 0 ? 1.9 : kShapeContrast) << named.name;
            }
        }
    }
    const CalendarTheme calm = CalendarTheme::Calm();
    const double today = ContrastOf(calm.todayGround, calm.page);
    EXPECT_GE(today, 1.3);
    EXPECT_LE(today, 2.7);
    EXPECT_LT(ContrastOf(calm.holiday.work, calm.page), today) << "a column of holidays is quieter than today";
}

// A role that a preset forgot would show the control's own colour in the middle of the theme's.
TEST(CalendarTheme, PresetsLeaveNothingOpen)
{
    for (const NamedTheme& named : Themes()) {
        const CalendarColors colors =
            Themed(CalendarColors{CLR_INVALID, CLR_INVALID, CLR_INVALID, CLR_INVALID, CLR_INVALID, CLR_INVALID,
                                  CLR_INVALID, CLR_INVALID, CLR_INVALID, CLR_INVALID, CLR_INVALID},
                   named.theme);
        for (COLORREF color :
             {colors.caption, colors.captionText, colors.ruler, colors.rulerText, colors.content, colors.grid,
              colors.border, colors.highlight, colors.itemBorder, colors.highlightText, colors.noFocus}) {
            EXPECT_LE(color, 0xFFFFFFu) << named.name;
        }
        for (const Text& text : TextsOf(named.theme)) {
            EXPECT_LE(text.color, 0xFFFFFFu) << named.name << ": " << text.name;
        }
    }
    const CalendarColors own;
    EXPECT_EQ(Themed(own, CalendarTheme::Classic()).highlight, own.highlight);
    EXPECT_FALSE(HasDayColors(CalendarTheme::Classic()));
}

TEST(CalendarTheme, ItemsOfAnyColourAreReadOnDarkPages)
{
    const CalendarTheme dark = CalendarTheme::Dark();
    std::mt19937 random(13);
    for (int i = 0; i < 5000; ++i) {
        tagCALENDAR_ITEM item;
        item.crColor1 = random() & 0xFFFFFF;
        item.crColor2 = i % 4 == 0 ? 0xFFFFFF : random() & 0xFFFFFF;
        item.crColor5 = i % 3 == 0 ? 0x000000 : random() & 0xFFFFFF;
        for (ItemGround ground : {ItemGround::WhiteIsNone, ItemGround::Filled}) {
            tagCALENDAR_ITEM themed = item;
            ThemeItem(themed, dark, ground);
            const bool isFilled = ground == ItemGround::Filled || item.crColor2 != 0xFFFFFF;
            ASSERT_EQ(themed.crColor2 == 0xFFFFFF, !isFilled) << "white stays the sign of no ground";
            const std::vector<COLORREF> grounds =
                isFilled ? std::vector<COLORREF>{themed.crColor2}
                         : std::vector<COLORREF>{dark.page, dark.ordinary.work, dark.holiday.work, dark.saturday.work};
            for (COLORREF color : grounds) {
                ASSERT_GE(ContrastOf(themed.crColor5, color), kTextContrast) << std::hex << item.crColor5;
                ASSERT_GE(ContrastOf(themed.crColor1, color), kShapeContrast) << std::hex << item.crColor1;
            }
            ASSERT_LE(ContrastOf(themed.crColor2, dark.page), isFilled ? 4.0 : 21.0) << "no light patch on the page";
        }
    }
    tagCALENDAR_ITEM green;
    green.crColor2 = 0xD0F0D0;
    ThemeItem(green, dark, ItemGround::Filled);
    EXPECT_EQ(green.crColor2, 0x224122u) << "the hue stays";
    green.crColor2 = 0x204020;
    ThemeItem(green, dark, ItemGround::Filled);
    EXPECT_EQ(green.crColor2, 0x446644u) << "what was dark is lighter than what was pale";
    green.crColor5 = 0x303030;
    ThemeItem(green, dark, ItemGround::Filled);
    EXPECT_EQ(green.crColor5, 0xCFCFCFu) << "a dark grey is a pale one, not white";
}

TEST(CalendarTheme, HostsDayColoursGoWithThePage)
{
    DayColorTable own;
    for (int i = 0; i < 5; ++i) {
        own.Add({{0xFFFFFF, 0xF1D7D5, 0xE1BFA5, 0xF7EDE6, 0xF1D7D5, 0xE1BFA5, 0x000000}});
    }
    for (const NamedTheme& named : Themes()) {
        DayColorTable themed;
        FillThemedDays(own, named.theme, themed);
        ASSERT_EQ(themed.GetSize(), own.GetSize()) << "a number selects the row that it selected";
        for (int i = 0; i < 5; ++i) {
            const COLORREF* row = themed[i].crColor;
            EXPECT_GE(ContrastOf(row[6], row[0]), kTextContrast) << named.name << " row " << i;
        }
        EXPECT_EQ(themed[1].crColor[0], named.theme.holiday.work);
    }
}
