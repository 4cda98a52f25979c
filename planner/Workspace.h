// A workspace: which calendar files are shown together and how. A settings file of its own, never part of a calendar.
// Pure values.
#pragma once

#include "planner/CalendarSet.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace planner {

struct Workspace
{
    static constexpr char kExtension[] = ".planner";

    struct Calendar
    {
        std::string file; // absolute
        int color = CalendarSet::kByCategory;
        bool isShown = true;
    };
    std::vector<Calendar> calendars;
    std::size_t target = 0; // index of the one that new items go to
    std::set<std::string> hiddenCategories;
};

// `folder` is that of the workspace's file, with its last separator: files in it or below are named from there, so that
// a folder that is moved as a whole still opens. What the text before said beyond this stays.
std::string WorkspaceText(const Workspace& workspace, const std::string& folder, std::string_view before = "");
// Without calendars when it is no workspace.
Workspace ParseWorkspace(std::string_view text, const std::string& folder);

} // namespace planner
