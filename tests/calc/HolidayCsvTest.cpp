// Files of holidays: both encodings, what is left out and why, and bytes of any kind.
#include "calc/HolidayCsv.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {
using namespace dayvane;

std::string Text(const HolidayList& list)
{
    std::string text;
    for (const ListedHoliday& holiday : list.holidays) {
        text += std::to_string(holiday.date.year * 10000 + holiday.date.month * 100 + holiday.date.day) + " " +
                holiday.name + "\n";
    }
    for (const CsvProblem& problem : list.problems) {
        text += "line " + std::to_string(problem.line) + " " + std::to_string(static_cast<int>(problem.fault)) + "\n";
    }
    return text;
}

TEST(HolidayCsv, FilesAndTheirFaults)
{
    const std::string newYear = u8"20260101 元日\n", twoDays = newYear + u8"20260112 成人の日\n";
    const std::pair<const char*, std::pair<std::string, std::string>> cases[] = {
        // name, file, what it says: holidays, then lines with fault numbers
        {"code page 932",
         {"国民の祝日・休日月日,国民の祝日・休日名称\r\n2026/1/1,元日\r\n2026/1/12,成人の日\r\n", twoDays}},
        {"UTF-8", {u8"国民の祝日・休日月日,国民の祝日・休日名称\n2026/1/1,元日\n2026/1/12,成人の日", twoDays}},
        {"byte order mark", {u8"\uFEFF日付,名称\n2026-01-01,元日\n", newYear}},
        {"no header", {u8"2026/01/01,元日", newYear}},
        {"quotes and blanks", {u8"\"date\",\"name\"\n \"2026/1/1\" , \" 元日 \",, \n", newYear}},
        {"not in order", {u8"d,n\n2026/1/12,成人の日\n\n2026/1/1,元日\n", twoDays}},
        {"one field", {u8"d,n\n2026/1/1\n2026/1/1,元日\n", newYear + "line 2 0\n"}},
        {"three fields", {u8"2026/1/1,元日,x", "line 1 0\n"}},
        {"no such day",
         {u8"d,n\n2026/2/30,元日\n2026/1/1,元日\n26/1/1,a\n2026/1,a\n2026/1/1x,a\n2026/001/1,a\n",
          newYear + "line 2 1\nline 4 1\nline 5 1\nline 6 1\nline 7 1\n"}},
        {"second header", {u8"2026/1/1,元日\ndate,name", newYear + "line 2 1\n"}},
        {"no name", {u8"2026/1/1,\n2026/1/2,\"\"\n2026/1/3,a\tb", "line 1 2\nline 2 2\nline 3 2\n"}},
        {"long name", {"2026/1/1," + std::string(201, 'x'), "line 1 2\n"}},
        {"broken bytes", {"2026/1/1,元\x85\x41\n2026/1/1,元日", newYear + "line 1 3\n"}},
        {"a date twice", {u8"2026/1/1,元日\n2026/01/01,again\n", newYear + "line 2 4\n"}},
        {"blank", {"\n\r\n \n", ""}},
        {"nothing", {"", ""}},
        {"only a mark", {u8"\uFEFF", ""}},
    };
    for (const auto& [name, c] : cases) {
        EXPECT_EQ(Text(ReadHolidayCsv(c.first)), c.second) << name;
    }
}

TEST(HolidayCsv, AnyBytesAreSafe)
{
    const std::string seeds[] = {"国民の祝日・休日月日,名称\r\n2026/1/1,元日\r\n\"2026/1/12\",成人の日\r\n",
                                 u8"\uFEFF国民の祝日\n2026-01-01,元日\n2026/1/12,\"成人の日\",\n"};
    std::mt19937 random(3);
    for (int round = 0; round < 20000; ++round) {
        std::string bytes = seeds[random() % 2];
        for (int change = random() % 8; change > 0; --change) {
            const size_t at = random() % bytes.size();
            switch (random() % 3) {
            case 0:
                bytes[at] = static_cast<char>(random());
                break;
            case 1:
                bytes.erase(at, random() % 4);
                break;
            default:
                bytes.insert(at, bytes, random() % bytes.size(), random() % 20);
            }
            bytes += ',';
        }
        const HolidayList list = ReadHolidayCsv(bytes);
        const int lines = static_cast<int>(std::count(bytes.begin(), bytes.end(), '\n')) + 1;
        ASSERT_LE(list.holidays.size() + list.problems.size(), static_cast<size_t>(lines));
        for (size_t i = 0; i < list.holidays.size(); ++i) {
            const CivilDate& date = list.holidays[i].date;
            ASSERT_TRUE(civil::IsValid(date.year, date.month, date.day) && !list.holidays[i].name.empty());
            ASSERT_TRUE(i == 0 || SerialDayOf(list.holidays[i - 1].date) < SerialDayOf(date));
        }
    }
}
} // namespace
