#include "access/AccessTexts.h"

#include "core/TextCodec.h"

#include <algorithm>
#include <iterator>

namespace dayvane {
namespace {

const AccessTexts* s_chosen = nullptr;

AccessTexts MakeEnglish()
{
    AccessTexts t;
    const char* const months[] = {"January", "February", "March",     "April",   "May",      "June",
                                  "July",    "August",   "September", "October", "November", "December"};
    const char* const weekdays[] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
    std::copy(std::begin(months), std::end(months), std::begin(t.months));
    std::copy(std::begin(weekdays), std::end(weekdays), std::begin(t.weekdays));
    t.date = "{1} {2} {3} {4}";
    t.dayAndMonth = "{1} {2} {3}";
    t.month = "{1} {2}";
    t.year = "{1}";
    t.noDate = "no date";
    t.between = ", ";
    t.today = "today";
    t.thisMonth = "this month";
    t.oneItem = "1 item";
    t.items = "{1} items";
    t.wholeDay = "Whole day";
    t.outsideWork = "outside working hours";
    t.dayOff = "day off";
    t.marked = "marked";
    t.fromTo = "{1} to {2}";
    t.allDay = "All day";
    t.noTitle = "no title";
    t.repeats = "repeats";
    t.reminder = "reminder";
    t.startsOn = "starts on {1}";
    t.endsOn = "ends on {1}";
    t.fixed = "cannot be moved";
    t.another = "number {1}";
    t.oneMore = "1 more item";
    t.more = "{1} more items";
    const char* const calendars[] = {"Month calendar, {1}", "Week calendar, {1} to {2}", "Year calendar, {1}",
                                     "Day calendar, {1}", "Calendar of several days, {1} to {2}"};
    for (int i = 0; i < 5; ++i) {
        t.calendarNames[i] = calendars[i];
    }
    t.smallCalendar = "Small calendar";
    t.previousMonth = "Previous month";
    t.nextMonth = "Next month";
    t.previousYear = "Previous year";
    t.nextYear = "Next year";
    t.todayIs = "Today: {1}";
    t.thisMonthIs = "This month: {1}";
    t.hiddenItems = "Items";
    t.chooseMonth = "Choose a month";
    t.yearAndMonth = "Year and month";
    t.open = "Open";
    t.select = "Select";
    t.press = "Press";
    t.movedTo = "Moved to {1}, {2}";
    t.movedDay = "Moved to {1}";
    t.lengthIs = "From {1} to {2}";
    t.cannotMove = "Cannot be moved";
    return t;
}

AccessTexts MakeJapanese()
{
    AccessTexts t;
    const char* const weekdays[] = {u8"日曜日", u8"月曜日", u8"火曜日", u8"水曜日", u8"木曜日", u8"金曜日", u8"土曜日"};
    for (int i = 0; i < 12; ++i) {
        t.months[i] = std::to_string(i + 1) + u8"月";
    }
    std::copy(std::begin(weekdays), std::end(weekdays), std::begin(t.weekdays));
    t.date = u8"{4}年{3}{2}日 {1}";
    t.dayAndMonth = u8"{3}{2}日 {1}";
    t.month = u8"{2}年{1}";
    t.year = u8"{1}年";
    t.noDate = u8"日付なし";
    t.between = u8"、";
    t.today = u8"今日";
    t.thisMonth = u8"今月";
    t.oneItem = u8"予定1件";
    t.items = u8"予定{1}件";
    t.wholeDay = u8"終日";
    t.outsideWork = u8"勤務時間外";
    t.dayOff = u8"休日";
    t.marked = u8"印あり";
    t.fromTo = u8"{1}から{2}";
    t.allDay = u8"終日";
    t.noTitle = u8"件名なし";
    t.repeats = u8"繰り返し";
    t.reminder = u8"通知あり";
    t.startsOn = u8"{1}から";
    t.endsOn = u8"{1}まで";
    t.fixed = u8"移動不可";
    t.another = u8"{1}件目";
    t.oneMore = u8"ほか1件";
    t.more = u8"ほか{1}件";
    const char* const calendars[] = {u8"月間予定表、{1}", u8"週間予定表、{1}から{2}", u8"年間予定表、{1}",
                                     u8"一日の予定表、{1}", u8"複数日の予定表、{1}から{2}"};
    for (int i = 0; i < 5; ++i) {
        t.calendarNames[i] = calendars[i];
    }
    t.smallCalendar = u8"小さいカレンダー";
    t.previousMonth = u8"前の月";
    t.nextMonth = u8"次の月";
    t.previousYear = u8"前の年";
    t.nextYear = u8"次の年";
    t.todayIs = u8"今日: {1}";
    t.thisMonthIs = u8"今月: {1}";
    t.hiddenItems = u8"予定";
    t.chooseMonth = u8"月を選ぶ";
    t.yearAndMonth = u8"年と月";
    t.open = u8"開く";
    t.select = u8"選択";
    t.press = u8"押す";
    t.movedTo = u8"{1} {2}へ移動しました";
    t.movedDay = u8"{1}へ移動しました";
    t.lengthIs = u8"{1}から{2}まで";
    t.cannotMove = u8"移動できません";
    return t;
}

} // namespace

void SetAccessTexts(const AccessTexts* texts)
{
    s_chosen = texts;
}

const AccessTexts* ChosenAccessTexts()
{
    return s_chosen;
}

const AccessTexts& EnglishAccessTexts()
{
    static const AccessTexts texts = MakeEnglish();
    return texts;
}

const AccessTexts& JapaneseAccessTexts()
{
    static const AccessTexts texts = MakeJapanese();
    return texts;
}

AccessTexts AccessTextsFor(const CalendarTexts& words, bool isJapaneseSystem)
{
    const bool isChosen = !words.weekdays[0].empty();
    AccessTexts texts =
        (isChosen ? !words.englishDayNames : isJapaneseSystem) ? JapaneseAccessTexts() : EnglishAccessTexts();
    for (size_t i = 0; i < words.weekdays.size(); ++i) {
        if (!words.weekdays[i].empty()) {
            texts.weekdays[i] = EncodeText(words.weekdays[i], kUtf8CodePage);
        }
    }
    for (size_t i = 0; i < words.months.size(); ++i) {
        if (!words.months[i].empty()) {
            texts.months[i] = EncodeText(words.months[i], kUtf8CodePage);
        }
    }
    return texts;
}

std::string FillIn(const std::string& pattern, const std::vector<std::string>& parts)
{
    std::string filled;
    for (size_t i = 0; i < pattern.size(); ++i) {
        const size_t part = i + 2 < pattern.size() && pattern[i] == '{' && pattern[i + 2] == '}'
                                ? static_cast<size_t>(pattern[i + 1] - '1')
                                : parts.size();
        if (part < parts.size()) {
            filled += parts[part];
            i += 2;
        } else {
            filled += pattern[i];
        }
    }
    return filled;
}

std::string Joined(const std::vector<std::string>& parts, const std::string& between)
{
    std::string joined;
    for (const std::string& part : parts) {
        if (!part.empty()) {
            joined += (joined.empty() ? "" : between) + part;
        }
    }
    return joined;
}

} // namespace dayvane
