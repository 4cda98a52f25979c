// Speed and agreement of the calendar arithmetic.
//
//   dayvane-calc-bench                       name<TAB>dates_per_s<TAB>ratio, dates asked in sequence on one core;
//                                            ratio: how many times faster than the literal rule in the same run;
//                                            for cold years: years a second
//   dayvane-calc-bench --verify FIRST LAST   asks every day of these years, compares the lunar dates with the literal
//                                            rule and prints a hash of all answers, which every build must share
#include "calc/CalcHoliday.h"
#include "calc/DayAnnotation.h"
#include "calc/ExactSky.h"
#include "calc/LunarDate.h"
#include "calc/SkyDay.h"
#include "mfc/base/civil.h"
#include "tests/calc/LiteralLunar.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {
constexpr int kFirstBenchYear = 1900;
constexpr int kLastBenchYear = 2100;
constexpr int kRounds = 5;
constexpr int kLiteralDays = 4000; // of the literal rule, which is slow

std::vector<COleDateTime> DaysOf(int firstYear, int lastYear)
{
    std::vector<COleDateTime> days;
    const int last = civil::DayNumber(lastYear, 12, 31);
    for (int day = civil::DayNumber(firstYear, 1, 1); day <= last; ++day) {
        int year = 0, month = 0, dayOfMonth = 0;
        civil::FromDayNumber(day, year, month, dayOfMonth);
        days.emplace_back(year, month, dayOfMonth, 0, 0, 0);
    }
    return days;
}

class Hash // FNV-1a, 64 bits
{
public:
    void Add(const void* bytes, std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i) {
            m_value = (m_value ^ static_cast<const unsigned char*>(bytes)[i]) * 1099511628211u;
        }
    }
    void Add(std::int32_t number) { Add(&number, sizeof number); }
    void Add(const char* text) { Add(text, std::strlen(text) + 1); }
    unsigned long long Value() const { return m_value; }

private:
    std::uint64_t m_value = 14695981039346656037u;
};

std::int64_t g_sum = 0; // of all answers, so that no call is left out

void AskHoliday(const COleDateTime& date)
{
    tagHOLIDAY holiday;
    g_sum += CCalcHoliday::IsHoliday(date, holiday);
}

void AskWhatsToday(const COleDateTime& date)
{
    g_sum += dayvane::WhatsToday(date).GetLength();
}

void AskLunarDate(const COleDateTime& date)
{
    int year = 0, month = 0, day = 0;
    CLunarDate().CalcLunarCalendar(date, year, month, day);
    g_sum += year + month + day;
}

void AskLiteralLunarDate(const COleDateTime& date)
{
    const LiteralLunar::Answer answer = LiteralLunar().Calendar(date);
    g_sum += answer.year + answer.month + answer.day;
}

void AskExactLunarDate(const COleDateTime& date)
{
    const dayvane::ExactLunarDate lunar = dayvane::LunarDateOf(date.GetYear(), date.GetMonth(), date.GetDay());
    g_sum += lunar.year + lunar.month + lunar.day;
}

void AskSkyDay(const COleDateTime& date)
{
    const dayvane::SkyDay sky = dayvane::SkyDayOf(date.GetYear(), date.GetMonth(), date.GetDay());
    g_sum += sky.lunar.day + sky.sexagenary.day;
}

// The best of some rounds over all the days.
double DatesPerSecond(void (*ask)(const COleDateTime&), const std::vector<COleDateTime>& days, int rounds)
{
    using Clock = std::chrono::steady_clock;
    double best = 0;
    for (int round = 0; round < rounds; ++round) {
        const Clock::time_point start = Clock::now();
        for (const COleDateTime& day : days) {
            ask(day);
        }
        const std::chrono::duration<double> seconds = Clock::now() - start;
        best = std::max(best, days.size() / seconds.count());
    }
    return best;
}

// Terms and months of every year from nothing: no year asked is one that is kept.
double ColdYearsPerSecond(const std::vector<COleDateTime>& days)
{
    constexpr int kDaysPerCalendarYear = 365;
    std::vector<COleDateTime> years;
    for (std::size_t i = 0; i < days.size(); i += kDaysPerCalendarYear) {
        years.push_back(days[i]);
    }
    const auto askYear = [](const COleDateTime& date) {
        for (int longitude = 0; longitude < 360; longitude += 15) {
            g_sum += dayvane::DateOfSolarTerm(date.GetYear(), longitude).day;
        }
        AskExactLunarDate(date);
        AskExactLunarDate(COleDateTime(date.GetYear(), 12, 31, 0, 0, 0));
    };
    return DatesPerSecond(askYear, years, 1);
}

int Bench()
{
    const std::vector<COleDateTime> days = DaysOf(kFirstBenchYear, kLastBenchYear);
    const std::vector<COleDateTime> fewDays(days.end() - kLiteralDays, days.end());
    const double lunar = DatesPerSecond(AskLunarDate, days, kRounds);
    const double literal = DatesPerSecond(AskLiteralLunarDate, fewDays, 2);
    std::printf("name\tdates_per_s\tratio\n");
    std::printf("IsHoliday\t%.0f\t-\n", DatesPerSecond(AskHoliday, days, kRounds));
    std::printf("WhatsToday\t%.0f\t-\n", DatesPerSecond(AskWhatsToday, days, kRounds));
    std::printf("CalcLunarCalendar\t%.0f\t%.1f\n", lunar, lunar / literal);
    const double exact = DatesPerSecond(AskExactLunarDate, days, kRounds);
    std::printf("LunarDateOf\t%.0f\t%.1f\n", exact, exact / literal);
    std::printf("SkyDayOf\t%.0f\t-\n", DatesPerSecond(AskSkyDay, days, 2));
    std::printf("cold years of terms and lunar months\t%.0f\t-\n", ColdYearsPerSecond(days));
    std::printf("CalcLunarCalendar (literal)\t%.0f\t1.0\n", literal);
    return g_sum == 0 ? EXIT_FAILURE : EXIT_SUCCESS;
}

void AddAnswers(const COleDateTime& date, Hash& hash)
{
    CLunarDate lunar;
    int year = 0, month = 0, day = 0;
    lunar.CalcLunarCalendar(date, year, month, day);
    hash.Add(year);
    hash.Add(month);
    hash.Add(day);
    int index = -1;
    CString name;
    lunar.Get24Setuki2(index, date, name);
    hash.Add(index);
    tagHOLIDAY holiday;
    if (CCalcHoliday::IsHoliday(date, holiday)) {
        hash.Add(holiday.nMonth);
        hash.Add(holiday.nDay);
        hash.Add(holiday.bObservance);
        hash.Add(holiday.nRule);
    }
    hash.Add(dayvane::WhatsToday(date).GetString());
}

int Verify(int firstYear, int lastYear)
{
    CLunarDate lunar;
    LiteralLunar literal;
    Hash hash;
    int differences = 0;
    const std::vector<COleDateTime> days = DaysOf(firstYear, lastYear);
    for (const COleDateTime& date : days) {
        AddAnswers(date, hash);
        int year = 0, month = 0, day = 0;
        lunar.CalcLunarCalendar(date, year, month, day);
        const LiteralLunar::Answer answer = literal.Calendar(date);
        if (answer.year != year || answer.month != month || answer.day != day) {
            ++differences;
            std::printf("%04d-%02d-%02d\t%d-%d-%d\tliteral %d-%d-%d\n", date.GetYear(), date.GetMonth(), date.GetDay(),
                        year, month, day, answer.year, answer.month, answer.day);
        }
    }
    std::printf("days\t%d\ndifferences\t%d\nhash\t%016llx\n", static_cast<int>(days.size()), differences, hash.Value());
    return differences == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

bool ReadYear(const char* text, int& year)
{
    char* end = nullptr;
    const long value = std::strtol(text, &end, 10);
    year = static_cast<int>(value);
    return *text != '\0' && *end == '\0' && value >= 100 && value <= 9999;
}
} // namespace

int main(int argc, char** argv)
{
    if (argc == 1) {
        return Bench();
    }
    int firstYear = 0, lastYear = 0;
    if (argc == 4 && std::strcmp(argv[1], "--verify") == 0 && ReadYear(argv[2], firstYear) &&
        ReadYear(argv[3], lastYear) && firstYear <= lastYear) {
        return Verify(firstYear, lastYear);
    }
    std::fprintf(stderr, "usage: dayvane-calc-bench [--verify FIRSTYEAR LASTYEAR]   (years 100 to 9999)\n");
    return 2;
}
