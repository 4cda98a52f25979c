#include "BenchEvents.h"

#include "core/DateMath.h"
#include "core/TextCodec.h"

#include <cstdio>
#include <fstream>
#include <random>
#include <sstream>
#include <stdexcept>

namespace bench {
namespace {

CString DisplayText(const std::string& utf8)
{
    using namespace dayvane;
    return CString(EncodeText(DecodeText(utf8, kUtf8CodePage), kOwnCodePage).c_str());
}

bool ParseEvent(const std::string& line, tagCC_ITEM& item)
{
    std::istringstream fields(line);
    std::string id;
    std::string start;
    std::string end;
    std::string text;
    if (!(fields >> id >> start >> end >> item.nFullday) || !ParseDateTime(start, item.dtStart) ||
        !ParseDateTime(end, item.dtEnd) || (item.nFullday != 0 && item.nFullday != 1)) {
        return false;
    }
    std::getline(fields >> std::ws, text);
    item.strText = DisplayText(text);
    return true;
}

constexpr const char* kSubjects[] = {"朝会",
                                     "設計レビュー",
                                     "Lunch",
                                     "Interview with the new colleague",
                                     "歯医者",
                                     "出張 大阪",
                                     "Release planning for the spring version",
                                     "電話"};
constexpr COLORREF kBackgrounds[] = {0xFFFFFF, 0xD5FFFF, 0xF1D7D5, 0xBCECD5, 0xAED0FA};

} // namespace

bool ParseDateTime(const std::string& text, COleDateTime& date)
{
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    const int read = std::sscanf(text.c_str(), "%d-%d-%dT%d:%d:%d", &year, &month, &day, &hour, &minute, &second);
    if (read != 3 && read != 5 && read != 6) {
        return false;
    }
    date = COleDateTime(year, month, day, hour, minute, second);
    return date.GetStatus() == COleDateTime::valid;
}

std::vector<tagCC_ITEM> ReadEvents(const std::string& file)
{
    std::ifstream lines(file);
    if (!lines) {
        throw std::runtime_error("cannot open " + file);
    }
    std::vector<tagCC_ITEM> items;
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        if (line.empty() || line[0] == '#') {
            continue;
        }
        tagCC_ITEM item;
        if (!ParseEvent(line, item)) {
            throw std::runtime_error(file + ":" + std::to_string(number) + ": not an event: " + line);
        }
        items.push_back(item);
    }
    return items;
}

std::vector<tagCC_ITEM> GenerateEvents(int count, const COleDateTime& firstDay, const EventSpread& spread)
{
    constexpr int kQuarterHours = 4;
    constexpr int kMinutesPerDay = 24 * 60;
    std::mt19937 random(1);
    const auto below = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    std::vector<tagCC_ITEM> items(count);
    for (tagCC_ITEM& item : items) {
        const int day = below(spread.days);
        const int kind = below(10);
        const int start = kMinutesPerDay * day + 60 * (8 + below(10)) + 15 * below(kQuarterHours);
        const int days = kind == 0 && !spread.timedOnly ? 1 + below(6) : 0; // further days
        item.nFullday = kind == 1 && !spread.timedOnly;
        item.dtStart = dayvane::AddMinutes(firstDay, start);
        item.dtEnd = dayvane::AddMinutes(firstDay, start + kMinutesPerDay * days + 60 * (1 + below(2)));
        item.strText = kSubjects[below(sizeof(kSubjects) / sizeof(kSubjects[0]))];
        item.crColor2 = kBackgrounds[below(sizeof(kBackgrounds) / sizeof(kBackgrounds[0]))];
        item.bAlarm = below(8) == 0;
        item.bRecurrent = below(8) == 0;
    }
    return items;
}

} // namespace bench
