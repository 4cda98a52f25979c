#include "planner/CommandLine.h"

#include "planner/Calendar.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>

namespace planner {

namespace {

constexpr int kSmallestWindow = 50; // pixels
constexpr int kLargestWindow = 10000;
constexpr int kSmallestScale = 50; // per cent
constexpr int kLargestScale = 400;

// Sets what the option says; false when the value is not one of its kind.
bool TakeOption(CommandLine& line, const std::string& option, const std::string& value)
{
    char rest = 0;
    if (option == "--date") {
        CommandLine::Date date = {};
        if (std::sscanf(value.c_str(), "%d-%d-%d%c", &date.year, &date.month, &date.day, &rest) != 3 ||
            date.year < kFirstYear || date.year > kLastYear || date.month < 1 || date.month > kYearMonths ||
            date.day < 1 || date.day > DaysInMonth(date.year, date.month)) {
            return false;
        }
        line.date = date;
    } else if (option == "--size") {
        CommandLine::Size size = {};
        if (std::sscanf(value.c_str(), "%dx%d%c", &size.width, &size.height, &rest) != 2 ||
            size.width < kSmallestWindow || size.width > kLargestWindow || size.height < kSmallestWindow ||
            size.height > kLargestWindow) {
            return false;
        }
        line.size = size;
    } else if (option == "--scale") {
        int percent = 0;
        if (std::sscanf(value.c_str(), "%d%c", &percent, &rest) != 1 || percent < kSmallestScale ||
            percent > kLargestScale) {
            return false;
        }
        line.scale = percent;
    } else if (option == "--copy-every") {
        line.copySeconds = std::atoi(value.c_str());
        return line.copySeconds > 0;
    } else {
        std::string& text = option == "--view"       ? line.view
                            : option == "--pages"    ? line.pages
                            : option == "--paper"    ? line.paper
                            : option == "--language" ? line.language
                            : option == "--settings" ? line.settings
                            : option == "--theme"    ? line.theme
                            : option == "--days"     ? line.days
                            : option == "--zone"     ? line.zone
                            : option == "--dialog"   ? line.dialog
                            : option == "--holidays" ? line.holidays
                                                     : line.shot;
        text = value;
    }
    return !value.empty();
}

bool IsOption(const std::string& argument)
{
    static const char* const options[] = {"--view",  "--date",     "--size",     "--shot",       "--pages",
                                          "--paper", "--language", "--settings", "--copy-every", "--theme",
                                          "--scale", "--days",     "--dialog",   "--zone",       "--holidays"};
    return std::find(std::begin(options), std::end(options), argument) != std::end(options);
}

} // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& arguments)
{
    CommandLine line;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (IsOption(argument)) {
            const std::string value = i + 1 < arguments.size() ? arguments[++i] : "";
            if (!TakeOption(line, argument, value)) {
                line.problem = argument + " does not take '" + value + "'.";
            }
        } else if (argument.compare(0, 2, "--") == 0) {
            line.problem = "There is no option " + argument + ".";
        } else if (line.file.empty()) {
            line.file = argument;
        } else {
            line.problem = "Only one file can be opened; '" + argument + "' is left out.";
        }
    }
    return line;
}

} // namespace planner
