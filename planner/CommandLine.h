// planner.exe [FILE] [--view V] [--date YYYY-MM-DD] [--size WxH] [--theme T] [--scale PERCENT] [--days WORD,...]
//             [--zone NAME] [--holidays FILE.csv] [--shot FILE.bmp] [--pages FILE.ps [--paper P]] [--language en|ja]
//             [--dialog NAME] [--settings FILE.ini]
//             [--copy-every SECONDS]
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace planner {

struct CommandLine
{
    struct Date
    {
        int year, month, day;
    };
    struct Size
    {
        int width, height; // pixels of the whole window
    };

    std::string file;
    std::string view;         // a name of the table of views; empty: the first
    std::string theme;        // system, light, classic, dark or contrast; empty: the first
    std::optional<int> scale; // per cent of 96 dpi; empty: that of the screen
    std::optional<Date> date;
    std::optional<Size> size;
    std::string pages; // where to print what the view shows, and end; empty: run
    std::string
        paper;        // A3, A4, A5, B5 or Letter, with "-portrait" or "-landscape" after it; empty: what suits the page
    std::string days; // what is shown of days besides the usual (planner/DayChoices.h)
    std::string zone; // of the second clock; empty: none
    std::string holidays; // a list as CSV; empty: the law's
    std::string language; // en or ja; empty: what the settings say
    std::string settings; // the file of the settings; empty: the user's own, none for pictures and pages
    int copySeconds = 0;  // between the copies that are kept of unsaved changes; 0: as usual
    std::string dialog;   // one that is open at the beginning, see CPlannerFrame::OpenDialog; empty: none
    std::string shot;     // where to put a picture of the window, and end; empty: run
    std::string problem;  // what was not understood, as a sentence; the rest holds
};

// The arguments without the program's own name.
CommandLine ParseCommandLine(const std::vector<std::string>& arguments);

} // namespace planner
