// The table of named days and the records of the movable ones.
#pragma once

#include "CalcHoliday.h"

#include <array>

namespace dayvane {
// How a row matches (tagHOLIDAY::nRule).
enum NamedDayRule
{
    kFixedDay = 0,
    kSecondMonday = 1,
    kThirdMonday = 2
};

// What a named day means (tagHOLIDAY::bObservance).
enum NamedDayKind
{
    kDayOff = 0,
    kObservance = 1
};

// Rows that change with the year.
enum NamedDayRow
{
    kComingOfAgeRow = 1,
    kShowaDayRow = 7,
    kFourthOfMayRow = 10,
    kMarineDayRow = 13,
    kAgedDayRow = 14,
    kSportsDayRow = 15
};

using NamedDayTable = std::array<tagHOLIDAY, 59>;

// As it stands before the first date is asked. Where two rows share a day, the first wins.
inline constexpr NamedDayTable kNamedDays = {{
    // name, month, day, kind, rule
    {"元旦", 1, 1, kDayOff, kFixedDay},
    {"成人の日", 1, 0, kDayOff, kSecondMonday},
    {"節分", 2, 3, kObservance, kFixedDay},
    {"建国記念の日", 2, 11, kDayOff, kFixedDay},
    {"バレンタインデー", 2, 14, kObservance, kFixedDay},
    {"雛祭り", 3, 3, kObservance, kFixedDay},
    {"ホワイトデー", 3, 14, kObservance, kFixedDay},
    {"みどりの日", 4, 29, kDayOff, kFixedDay},
    {"エイプリルフール", 4, 1, kObservance, kFixedDay},
    {"憲法記念日", 5, 3, kDayOff, kFixedDay},
    {"国民の休日", 5, 4, kDayOff, kFixedDay},
    {"こどもの日", 5, 5, kDayOff, kFixedDay},
    {"七夕", 7, 7, kObservance, kFixedDay},
    {"海の日", 7, 20, kDayOff, kFixedDay},
    {"敬老の日", 9, 15, kDayOff, kFixedDay},
    {"体育の日", 10, 0, kDayOff, kSecondMonday},
    {"文化の日", 11, 3, kDayOff, kFixedDay},
    {"勤労感謝の日", 11, 23, kDayOff, kFixedDay},
    {"天皇誕生日", 12, 23, kDayOff, kFixedDay},
    {"クリスマス", 12, 25, kObservance, kFixedDay},
    {"大晦日", 12, 31, kObservance, kFixedDay},
    {"ハロウィン", 10, 31, kObservance, kFixedDay},
    {"万聖節", 11, 1, kObservance, kFixedDay},
    {"花祭り", 4, 8, kObservance, kFixedDay},
    {"終戦記念日", 8, 15, kObservance, kFixedDay},
    {"涅槃会", 3, 15, kObservance, kFixedDay},
    {"涅槃会", 2, 15, kObservance, kFixedDay}, // twice: both dates are customary
    {"サン・ジョルディの日", 4, 23, kObservance, kFixedDay},
    {"聖パトリック・デー", 3, 17, kObservance, kFixedDay},
    {"聖ヨハネ祭", 6, 24, kObservance, kFixedDay},
    {"聖ニコラス祭", 12, 6, kObservance, kFixedDay},
    {"独統一記念日", 10, 1, kObservance, kFixedDay},
    {"仏革命記念日", 7, 14, kObservance, kFixedDay},
    {"米独立記念日", 7, 4, kObservance, kFixedDay},
    {"広島平和記念日", 8, 6, kObservance, kFixedDay},
    {"長崎原爆の日", 8, 9, kObservance, kFixedDay},
    {"キャンドルマス", 2, 2, kObservance, kFixedDay},
    {"ベルテン", 5, 1, kObservance, kFixedDay},
    {"インボルク", 2, 1, kObservance, kFixedDay},
    {"ルナーサド", 8, 1, kObservance, kFixedDay},
    {"ワルプルギスの夜", 4, 30, kObservance, kFixedDay},
    {"七五三", 11, 15, kObservance, kFixedDay},
    {"時の記念日", 6, 10, kObservance, kFixedDay},
    {"七草", 1, 7, kObservance, kFixedDay},
    {"鏡開き", 1, 11, kObservance, kFixedDay},
    {"太子会", 2, 22, kObservance, kFixedDay},
    {"二月堂お水取り", 3, 12, kObservance, kFixedDay},
    {"針供養", 2, 8, kObservance, kFixedDay},
    {"針供養(関西)", 12, 8, kObservance, kFixedDay},
    {"更衣", 6, 1, kObservance, kFixedDay},
    {"祇園祭", 7, 1, kObservance, kFixedDay},
    {"葵祭", 5, 15, kObservance, kFixedDay},
    {"入谷朝顔市", 7, 6, kObservance, kFixedDay},
    {"ほおずき市", 7, 9, kObservance, kFixedDay},
    {"オレンジデー", 4, 14, kObservance, kFixedDay},
    {"大文字五山送り火", 8, 16, kObservance, kFixedDay},
    {"神嘗祭", 10, 15, kObservance, kFixedDay},
    {"時代祭", 10, 22, kObservance, kFixedDay},
    {"鉄腕アトムの誕生日", 4, 7, kObservance, kFixedDay},
}};

// Movable days; the answer carries the date's own day (and month, for Easter).
inline constexpr tagHOLIDAY kMothersDay = {"母の日", 5, 0, kObservance, kFixedDay};
inline constexpr tagHOLIDAY kFathersDay = {"父の日", 6, 0, kObservance, kFixedDay};
inline constexpr tagHOLIDAY kEaster = {"イースター", 3, 0, kObservance, kFixedDay};
inline constexpr tagHOLIDAY kVernalEquinox = {"春分の日", 3, 0, kDayOff, kFixedDay};
inline constexpr tagHOLIDAY kAutumnalEquinox = {"秋分の日", 9, 0, kDayOff, kFixedDay};
inline constexpr tagHOLIDAY kThanksgiving = {"感謝祭", 11, 0, kObservance, kFixedDay};
inline constexpr tagHOLIDAY kSubstituteHoliday = {"振替休日", 5, 0, kDayOff, kFixedDay};
inline constexpr tagHOLIDAY kSandwichedDay = {"国民の祝日", 5, 0, kDayOff, kFixedDay};

// Forms of the rows 7 and 10 before and since the law of 2007.
inline constexpr tagHOLIDAY kGreenDayOfApril = {"みどりの日", 4, 29, kDayOff, kFixedDay};
inline constexpr tagHOLIDAY kShowaDay = {"昭和の日", 4, 29, kDayOff, kFixedDay};
inline constexpr tagHOLIDAY kCitizensHoliday = {"国民の休日", 5, 4, kDayOff, kFixedDay};
inline constexpr tagHOLIDAY kGreenDayOfMay = {"みどりの日", 5, 4, kDayOff, kFixedDay};
} // namespace dayvane
