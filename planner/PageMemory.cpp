// The page setup from one start to the next.
#include "planner/PrintedPages.h"

#include "planner/IniText.h"
#include "planner/WideText.h"

#include <algorithm>

namespace planner {
namespace {

using dayvane::PrintOptions;

constexpr char kSection[] = "Pages";
constexpr char kFooter[] = "footer";

struct NumberKey
{
    const char* key;
    int PrintOptions::*value;
    int least;
    int most;
};
constexpr int kMostMargin = 60; // millimetres
constexpr NumberKey kNumbers[] = {
    {"marginLeft", &PrintOptions::marginLeft, 0, kMostMargin},
    {"marginTop", &PrintOptions::marginTop, 0, kMostMargin},
    {"marginRight", &PrintOptions::marginRight, 0, kMostMargin},
    {"marginBottom", &PrintOptions::marginBottom, 0, kMostMargin},
    {"headerMonths", &PrintOptions::headerMonths, 0, 3},
    {"fontSize", &PrintOptions::fontSize, 50, 160},
    {"hoursFrom", &PrintOptions::hoursFrom, 0, 23},
    {"hoursTo", &PrintOptions::hoursTo, 1, 24},
};

struct CheckKey
{
    const char* key;
    bool PrintOptions::*value;
};
constexpr CheckKey kChecks[] = {
    {"title", &PrintOptions::showTitle},           {"pageNumbers", &PrintOptions::pageNumbers},
    {"datePrinted", &PrintOptions::datePrinted},   {"color", &PrintOptions::inColor},
    {"weekends", &PrintOptions::shadeWeekends},    {"hoursGrow", &PrintOptions::widenHours},
    {"noteLines", &PrintOptions::noteLines},       {"emptyDays", &PrintOptions::emptyDays},
    {"lunarDates", &PrintOptions::showLunarDates},
};

// A choice as its number; one that is not known is the first.
template <class Choice>
void Take(const IniText& ini, const char* key, Choice& choice, Choice last)
{
    const int number = ini.GetNumber(kSection, key, static_cast<int>(choice));
    choice = number >= 0 && number <= static_cast<int>(last) ? static_cast<Choice>(number) : Choice();
}

} // namespace

void KeepPages(IniText& ini, const PageSettings& settings)
{
    for (const NumberKey& row : kNumbers) {
        ini.Set(kSection, row.key, settings.options.*row.value);
    }
    for (const CheckKey& row : kChecks) {
        ini.Set(kSection, row.key, settings.options.*row.value ? 1 : 0);
    }
    ini.Set(kSection, "otherDays", static_cast<int>(settings.options.otherDays));
    ini.Set(kSection, "yearForm", static_cast<int>(settings.options.yearForm));
    ini.Set(kSection, "language", static_cast<int>(settings.options.language));
    ini.Set(kSection, "orientation", static_cast<int>(settings.orientation));
    ini.Set(kSection, "asList", settings.asList ? 1 : 0);
    ini.Set(kSection, "paper", settings.paper);
    ini.Set(kSection, kFooter, Utf8OfSystem(settings.footerText));
}

void TakePages(const IniText& ini, PageSettings& settings)
{
    for (const NumberKey& row : kNumbers) {
        int& value = settings.options.*row.value;
        value = std::clamp(ini.GetNumber(kSection, row.key, value), row.least, row.most);
    }
    for (const CheckKey& row : kChecks) {
        bool& value = settings.options.*row.value;
        value = ini.GetNumber(kSection, row.key, value ? 1 : 0) != 0;
    }
    Take(ini, "otherDays", settings.options.otherDays, PrintOptions::OtherDays::LeftOut);
    Take(ini, "yearForm", settings.options.yearForm, PrintOptions::YearForm::Boxes);
    Take(ini, "language", settings.options.language, dayvane::PrintLanguage::English);
    Take(ini, "orientation", settings.orientation, PageSettings::Landscape);
    settings.asList = settings.asList || ini.GetNumber(kSection, "asList", 0) != 0;
    const int paper = ini.GetNumber(kSection, "paper", settings.paper);
    for (int row = 0; row < PaperCount(); ++row) {
        settings.paper = PaperAt(row).paper == paper ? PaperAt(row).paper : settings.paper;
    }
    settings.footerText = SystemOf(ini.Get(kSection, kFooter));
}

} // namespace planner
