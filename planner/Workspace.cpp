#include "planner/Workspace.h"

#include "ical/Text.h"
#include "planner/IniText.h"

#include <algorithm>

namespace planner {

namespace {

constexpr char kSection[] = "Workspace";
constexpr char kHidden[] = "hiddenCategory";

std::string SectionOf(std::size_t index)
{
    return "Calendar " + std::to_string(index + 1);
}

bool IsAbsolute(const std::string& file)
{
    return file.find(':') != std::string::npos || file.find_first_of("\\/") == 0;
}

} // namespace

std::string WorkspaceText(const Workspace& workspace, const std::string& folder, std::string_view before)
{
    IniText ini(before);
    ini.Set(kSection, "newItems", static_cast<int>(workspace.target) + 1);
    ini.Set(kSection, "hideWithoutCategory", workspace.hiddenCategories.count("") != 0);
    std::vector<std::string> hidden(workspace.hiddenCategories.begin(), workspace.hiddenCategories.end());
    hidden.erase(std::remove(hidden.begin(), hidden.end(), ""), hidden.end());
    ini.SetList(kSection, kHidden, hidden);
    for (std::size_t i = 0; i < workspace.calendars.size(); ++i) {
        const Workspace::Calendar& calendar = workspace.calendars[i];
        const bool isBelow = !folder.empty() && SameWord(calendar.file.substr(0, folder.size()), folder);
        ini.Set(SectionOf(i), "file", isBelow ? calendar.file.substr(folder.size()) : calendar.file);
        ini.Set(SectionOf(i), "color", calendar.color);
        ini.Set(SectionOf(i), "shown", calendar.isShown);
    }
    ini.Set(SectionOf(workspace.calendars.size()), "file", ""); // the last one before may have had more
    return ini.Text();
}

Workspace ParseWorkspace(std::string_view text, const std::string& folder)
{
    const IniText ini(text);
    Workspace workspace;
    while (workspace.calendars.size() < CalendarSet::kMostCalendars) {
        const std::string section = SectionOf(workspace.calendars.size());
        Workspace::Calendar calendar;
        calendar.file = ini.Get(section, "file");
        if (calendar.file.empty()) {
            break;
        }
        if (!IsAbsolute(calendar.file)) {
            calendar.file = folder + calendar.file;
        }
        calendar.color = ini.GetNumber(section, "color", CalendarSet::kByCategory);
        calendar.isShown = ini.GetNumber(section, "shown", 1) != 0;
        workspace.calendars.push_back(calendar);
    }
    const int target = ini.GetNumber(kSection, "newItems", 1);
    const bool isKnown = target >= 1 && static_cast<std::size_t>(target) <= workspace.calendars.size();
    workspace.target = isKnown ? static_cast<std::size_t>(target) - 1 : 0;
    for (const std::string& category : ini.GetList(kSection, kHidden)) {
        workspace.hiddenCategories.insert(category);
    }
    if (ini.GetNumber(kSection, "hideWithoutCategory", 0) != 0) {
        workspace.hiddenCategories.insert("");
    }
    return workspace;
}

} // namespace planner
