#include "CalendarTesting.h"

#include "ical/ComponentText.h"
#include "ical/ContentLine.h"
#include "ical/Text.h"
#include "ical/TimeZone.h"

#include <random>

namespace dayvane::ical {
namespace {

TEST(CivilTime, DaysWalkWithoutGap)
{
    CivilDate expected{1600, 1, 1};
    const DayNumber end = DayOfDate(2401, 1, 1);
    for (DayNumber day = DayOfDate(1600, 1, 1); day < end; ++day) {
        const CivilDate date = DateOfDay(day);
        ASSERT_TRUE(date.year == expected.year && date.month == expected.month && date.day == expected.day) << day;
        ASSERT_EQ(DayOfDate(date.year, date.month, date.day), day);
        if (++expected.day > DaysInMonth(expected.year, expected.month)) {
            expected.day = 1;
            expected.year += expected.month == kYearMonths;
            expected.month = expected.month % kYearMonths + 1;
        }
    }
    EXPECT_EQ(DateOfDay(DayOfDate(1, 7, 2)).year, 1);
    EXPECT_EQ(DayOfDate(1970, 1, 1), 0);
    EXPECT_EQ(WeekdayOfDay(DayOfDate(2026, 11, 21)), 6); // a Saturday
    EXPECT_EQ(WeekdayOfDay(DayOfDate(1899, 12, 31)), 0);
    EXPECT_EQ(Shown(At("18991231T2359")), "18991231T2359");
}

TEST(CivilTime, ReadsTimes)
{
    const struct
    {
        const char* text;
        const char* shown; // nullptr: refused
    } rows[] = {
        {"20240229", "20240229"},
        {"20230229", nullptr},
        {"20261321", nullptr},
        {"20260001", nullptr},
        {"20261100", nullptr},
        {"20261121T093000", "20261121T093000"},
        {"20261121t0930z", "20261121T093000Z"},
        {"20261231T235960Z", "20261231T235959Z"},
        {"20261121T240000", nullptr},
        {"20261121T096000", nullptr},
        {"20261121T0930000Z", nullptr},
        {"20261121T", nullptr},
        {"00991231", nullptr},
        {"01000101", "01000101"},
        {" 20261121 ", "20261121"},
        {"2026-11-21", nullptr},
        {"", nullptr},
        {"-0261121", nullptr},
    };
    for (const auto& row : rows) {
        const auto time = ParseTime(row.text);
        ASSERT_EQ(time.has_value(), row.shown != nullptr) << row.text;
        EXPECT_EQ(time ? FormatTime(*time) : "", row.shown ? row.shown : "") << row.text;
    }
}

TEST(CivilTime, ReadsDurations)
{
    const struct
    {
        const char* text;
        std::optional<Duration> duration; // nothing: refused
        const char* written;
    } rows[] = {
        {"P1W", {{7, 0}}, "P7D"},
        {"P1DT2H3M4S", {{1, 7384}}, "P1DT2H3M4S"},
        {"PT1M", {{0, 60}}, "PT1M"},
        {"PT60M", {{0, 3600}}, "PT1H"},
        {"PT61M", {{0, 3660}}, "PT1H1M"},
        {"PT90M", {{0, 5400}}, "PT1H30M"},
        {"PT36H", {{0, 36 * kHourSeconds}}, "PT36H"},
        {"PT0S", {{0, 0}}, "PT0M"},
        {"+pt5m", {{0, 300}}, "PT5M"},
        {"P", {}, ""},
        {"PT", {}, ""},
        {"P5", {}, ""},
        {"P1H", {}, ""},
        {"PT1D", {}, ""},
        {"P99999999999D", {}, ""},
        {"1H", {}, ""},
        {"P999999999W", {{3615900, 0}}, "P3615900D"},
    };
    for (const auto& row : rows) {
        const auto duration = ParseDuration(row.text);
        EXPECT_EQ(duration, row.duration) << row.text;
        if (duration) {
            EXPECT_EQ(FormatDuration(*duration), row.written);
        }
    }
    EXPECT_EQ(ParseDuration("-PT15M"), (Duration{0, -900}));
}

TEST(CivilTime, ReadsOffsets)
{
    const struct
    {
        const char* text;
        std::optional<int> seconds; // nothing: refused
    } rows[] = {
        {"+0000", 0},       {"-0001", -60},  {"+0959", 35940}, {"+1000", 36000}, {" -2359 ", -86340},
        {"+235959", 86399}, {"-000001", -1}, {"+2400", {}},    {"+0060", {}},    {"+000060", {}},
        {"0100", {}},       {"+01", {}},     {"+01000", {}},   {"+0100000", {}}, {"+01:0", {}},
        {"+01/0", {}},      {"", {}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ParseUtcOffset(row.text), row.seconds) << row.text;
    }
}

TEST(Text, IsShortenedAfterWholeCharacters)
{
    const std::string most(60, 'x');
    EXPECT_EQ(Shortened(most), most);
    EXPECT_EQ(Shortened(most + "y"), most + "...");
    EXPECT_EQ(Shortened(most.substr(1) + u8"日"), most.substr(1) + u8"日");
    EXPECT_EQ(Shortened(most.substr(1) + u8"日x"), most.substr(1) + u8"日...");
    EXPECT_EQ(Quoted("a\nb\xFF"), "\"a b\xEF\xBF\xBD\"");
}

TEST(Text, RepairsUtf8AndConverts)
{
    const std::string bad = std::string("a\xE3\x81") + "b\xC0\x80\xFF" + u8"日" + '\0' + "\xED\xA0\x80";
    const std::string mark = u8"\uFFFD";
    EXPECT_EQ(RepairUtf8(bad), "a" + mark + mark + "b" + mark + mark + mark + u8"日" + " " + mark + mark + mark);
    EXPECT_FALSE(IsUtf8(bad));
    EXPECT_TRUE(IsUtf8(RepairUtf8(bad)));
    const std::string good = u8"Aé日\uFFFF\U00010000𠮷\U0010FFFF";
    EXPECT_EQ(Utf8FromUtf16(Utf16FromUtf8(good)), good);
    const std::string beyond16Bits = u8"𠮷"; // asserted texts go through variables: CP932 cannot spell them
    const std::u16string pair = u"𠮷";
    EXPECT_EQ(Utf16FromUtf8(beyond16Bits), pair);
    EXPECT_EQ(Utf8FromUtf16(std::u16string(1, char16_t(0xD842))), mark);
}

TEST(Text, Escapes)
{
    EXPECT_EQ(UnescapeText("a\\nb\\Nc\\, \\; \\\\n \\t\\"), "a\nb\nc, ; \\n \\t\\");
    EXPECT_EQ(EscapeText("a\r\nb\rc\nd, ; \\\r"), "a\\nb\\nc\\nd\\, \\; \\\\\\n");
    EXPECT_EQ(SplitTextList("a\\,b,c,\\"), (std::vector<std::string>{"a,b", "c", "\\"}));
    EXPECT_EQ(SplitTextList("a,"), (std::vector<std::string>{"a", ""}));
}

TEST(Lines, KeepEveryByteAndUnfold)
{
    const std::string text = "A:1\r\n B\n\t2\rC:3\r\r\n 4\n\n D:5\rE:6";
    LineReader reader(text);
    RawLine line;
    std::string all, seen;
    while (reader.Next(line)) {
        all += line.raw;
        seen += std::to_string(line.number) + "<" + Unfold(line.raw) + ">";
    }
    EXPECT_EQ(all, text);
    EXPECT_EQ(seen, "1<A:1B2>4<C:34>6<D:5>8<E:6>");
}

TEST(Lines, FoldAtCharactersAndComeBack)
{
    std::string text = "SUMMARY:x";
    for (int i = 0; i < 60; ++i) {
        text += u8"年";
    }
    text += "\xFF" + std::string(80, 'y');
    const std::string folded = Fold(text, "\r\n");
    EXPECT_EQ(Unfold(folded), text);
    for (const std::string_view piece : SplitAt(folded, '\n')) {
        EXPECT_LE(piece.size(), 75u + 1); // and the CR
        EXPECT_TRUE(piece.empty() || (static_cast<unsigned char>(piece[1]) & 0xC0) != 0x80) << piece;
    }
}

TEST(Lines, TakePropertiesApart)
{
    const struct
    {
        const char* line;
        const char* name; // nullptr: no property
        const char* tzid;
        const char* value;
        bool broken;
    } rows[] = {
        {"summary:a:b;c", "SUMMARY", nullptr, "a:b;c", false},
        {"DTSTART;TZID=\"A:B;C\";X=1:2", "DTSTART", "A:B;C", "2", false},
        {"DTSTART;TZID=\"\":2", "DTSTART", "", "2", false},
        {"DTSTART;X=\"a\",\"b:\" ; tzid = Q :2", "DTSTART", "Q", "2", false},
        {"DTSTART;TZID=\"A:20260101", "DTSTART", "\"A", "20260101", true},
        {"DTSTART;;TZID:", "DTSTART", "", "", false},
        {"x-A_9.z0:1", "X-A_9.Z0", nullptr, "1", false},
        {"no colon here", nullptr, nullptr, nullptr, false},
        {":value", nullptr, nullptr, nullptr, false},
        {"bad name:value", nullptr, nullptr, nullptr, false},
        {"X;Y=\"1", nullptr, nullptr, nullptr, false},
        {"", nullptr, nullptr, nullptr, false},
    };
    for (const auto& row : rows) {
        const auto property = ParseProperty(row.line);
        ASSERT_EQ(property.has_value(), row.name != nullptr) << row.line;
        if (property) {
            const std::string* tzid = property->Find("TZID");
            EXPECT_EQ(property->name, row.name);
            EXPECT_EQ(tzid ? *tzid : "-", row.tzid ? row.tzid : "-") << row.line;
            EXPECT_EQ(property->Value(), row.value) << row.line;
            EXPECT_EQ(property->isBroken, row.broken) << row.line;
        }
    }
}

TEST(Lines, ReplacingKeepsTheRest)
{
    const std::string raw = "BEGIN:VEVENT\nX-A:1\n 2\nDTSTART;A=b;VALUE=DATE;C=d:20260101\nBEGIN:VALARM\nSUMMARY:x\n"
                            "END:VALARM\nSUMMARY:old";
    ComponentText text(raw);
    EXPECT_EQ(text.Text(), raw);
    const std::size_t start = text.Find("DTSTART");
    text.Replace(start, WithValue(*text.Lines()[start].property, {"VALUE"}, ";TZID=Z", "new"));
    text.Replace(text.Find("SUMMARY"), "SUMMARY:" + std::string(70, 'y'));
    text.InsertAfter(text.Find("SUMMARY"), "LOCATION:here");
    EXPECT_EQ(text.Text(), "BEGIN:VEVENT\nX-A:1\n 2\nDTSTART;A=b;C=d;TZID=Z:new\nBEGIN:VALARM\nSUMMARY:x\nEND:VALARM\n"
                           "SUMMARY:" +
                               std::string(67, 'y') + "\n yyy\nLOCATION:here\n");
}

} // namespace
} // namespace dayvane::ical
