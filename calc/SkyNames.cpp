// Texts marked u8 are UTF-8, whatever the code page of the others.
#include "calc/SexagenaryCycle.h"
#include "calc/SkyDay.h"

#include <array>
#include <cstddef>

namespace dayvane {
namespace {
constexpr std::array<SkyName, 24> kSolarTermNames = {{
    {u8"春分", "Vernal Equinox"},      {u8"清明", "Clear and Bright"}, {u8"穀雨", "Grain Rain"},
    {u8"立夏", "Beginning of Summer"}, {u8"小満", "Grain Buds"},       {u8"芒種", "Grain in Ear"},
    {u8"夏至", "Summer Solstice"},     {u8"小暑", "Minor Heat"},       {u8"大暑", "Major Heat"},
    {u8"立秋", "Beginning of Autumn"}, {u8"処暑", "End of Heat"},      {u8"白露", "White Dew"},
    {u8"秋分", "Autumnal Equinox"},    {u8"寒露", "Cold Dew"},         {u8"霜降", "Frost Descent"},
    {u8"立冬", "Beginning of Winter"}, {u8"小雪", "Minor Snow"},       {u8"大雪", "Major Snow"},
    {u8"冬至", "Winter Solstice"},     {u8"小寒", "Minor Cold"},       {u8"大寒", "Major Cold"},
    {u8"立春", "Beginning of Spring"}, {u8"雨水", "Rain Water"},       {u8"啓蟄", "Awakening of Insects"},
}};

constexpr std::array<SkyName, 6> kRokuyoNames = {{
    {u8"大安", "Taian"},
    {u8"赤口", "Shakko"},
    {u8"先勝", "Sensho"},
    {u8"友引", "Tomobiki"},
    {u8"先負", "Senbu"},
    {u8"仏滅", "Butsumetsu"},
}};

constexpr std::array<SkyName, 4> kMoonQuarterNames = {{
    {u8"新月", "New Moon"},
    {u8"上弦", "First Quarter"},
    {u8"満月", "Full Moon"},
    {u8"下弦", "Last Quarter"},
}};

// In the order of SeasonalDay.
constexpr std::array<SkyName, static_cast<std::size_t>(SeasonalDay::Count)> kSeasonalDayNames = {{
    {u8"節分", "Setsubun"},
    {u8"彼岸入り", "Higan Begins"},
    {u8"彼岸", "Higan"},
    {u8"彼岸の中日", "Middle of Higan"},
    {u8"彼岸明け", "Higan Ends"},
    {u8"社日", "Shanichi"},
    {u8"八十八夜", "88th Night"},
    {u8"入梅", "Rainy Season Begins"},
    {u8"半夏生", "Hangesho"},
    {u8"土用入り", "Doyo Begins"},
    {u8"土用", "Doyo"},
    {u8"土用の丑の日", "Ox Day of Doyo"},
    {u8"二百十日", "210th Day"},
    {u8"二百二十日", "220th Day"},
}};

constexpr std::array<const char*, kStems> kStemNames = {u8"甲", u8"乙", u8"丙", u8"丁", u8"戊",
                                                        u8"己", u8"庚", u8"辛", u8"壬", u8"癸"};
constexpr std::array<const char*, kBranches> kBranchNames = {u8"子", u8"丑", u8"寅", u8"卯", u8"辰", u8"巳",
                                                             u8"午", u8"未", u8"申", u8"酉", u8"戌", u8"亥"};
constexpr std::array<const char*, kStems / 2> kElements = {"Wood ", "Fire ", "Earth ", "Metal ", "Water "};
constexpr std::array<const char*, kBranches> kAnimals = {"Rat",   "Ox",   "Tiger",  "Rabbit",  "Dragon", "Snake",
                                                         "Horse", "Goat", "Monkey", "Rooster", "Dog",    "Pig"};

using PlaceText = std::array<char, 16>;

constexpr PlaceText Joined(const char* first, const char* second)
{
    PlaceText text = {};
    std::size_t length = 0;
    for (const char* part : {first, second}) {
        for (; *part != '\0'; ++part) {
            text[length++] = *part;
        }
    }
    return text;
}

struct PlaceTexts
{
    std::array<PlaceText, kSexagenaryPlaces> japanese;
    std::array<PlaceText, kSexagenaryPlaces> english;
};

constexpr PlaceTexts AllPlaces()
{
    PlaceTexts texts = {};
    for (int place = 0; place < kSexagenaryPlaces; ++place) {
        texts.japanese[place] = Joined(kStemNames[place % kStems], kBranchNames[place % kBranches]);
        texts.english[place] = Joined(kElements[place % kStems / 2], kAnimals[place % kBranches]);
    }
    return texts;
}

constexpr PlaceTexts kPlaces = AllPlaces();

template <std::size_t kCount>
SkyName NameAt(const std::array<SkyName, kCount>& names, int index)
{
    return index >= 0 && index < static_cast<int>(kCount) ? names[index] : SkyName();
}
} // namespace

SkyName SolarTermName(int longitude)
{
    constexpr int kStep = 15;
    return longitude % kStep == 0 ? NameAt(kSolarTermNames, longitude / kStep) : SkyName();
}

SkyName RokuyoName(int rokuyo)
{
    return NameAt(kRokuyoNames, rokuyo);
}

SkyName MoonQuarterName(int quarter)
{
    return NameAt(kMoonQuarterNames, quarter);
}

SkyName SeasonalDayName(SeasonalDay day)
{
    return NameAt(kSeasonalDayNames, static_cast<int>(day));
}

SkyName SexagenaryName(int place)
{
    if (place < 0 || place >= kSexagenaryPlaces) {
        return {};
    }
    return {kPlaces.japanese[place].data(), kPlaces.english[place].data()};
}
} // namespace dayvane
