// What the planner lets people choose of printed pages, and printing without a dialog.
#pragma once

#include "printing/CalendarPrinter.h"

#include <functional>
#include <memory>
#include <string>

namespace planner {

class IniText;

struct PaperRow
{
    const char* name;
    short paper; // DMPAPER_...
    CSize size;  // portrait, tenths of a millimetre
};
int PaperCount();
const PaperRow& PaperAt(int row);

struct PageSettings
{
    enum Orientation
    {
        SuitsPage,
        Portrait,
        Landscape
    };
    dayvane::PrintOptions options;
    bool asList = false; // an agenda of what the view shows
    Orientation orientation = SuitsPage;
    short paper = 0; // DMPAPER_...; 0: the printer's own
    CString footerText;
};

// From one start of the planner to the next.
void KeepPages(IniText& ini, const PageSettings& settings);
void TakePages(const IniText& ini, PageSettings& settings);

bool HasPrinter();
bool IsLandscape(const PageSettings& settings, dayvane::PageKind kind);
// The sheet for a page without asking a printer; A4 where its paper is the printer's own.
CSize PaperSizeOf(const PageSettings& settings, dayvane::PageKind kind);

// Gives the control a printer by the settings. placeOf: the place of an item of its store.
void SetUpPrinter(CCalendarCtrl& ctrl, const PageSettings& settings, const std::function<CString(int)>& placeOf);

// Another printer for a control while something is tried out; afterwards it has its own again.
class PrinterScope
{
public:
    PrinterScope(CCalendarCtrl& ctrl, const PageSettings& settings);
    ~PrinterScope();
    PrinterScope(const PrinterScope&) = delete;
    PrinterScope& operator=(const PrinterScope&) = delete;

private:
    CCalendarCtrl& m_ctrl;
    std::unique_ptr<dayvane::CalendarPrinting> m_own;
};

// "A4", "Letter-portrait", "-landscape": sets paper and orientation; false for a name that there is not.
bool TakePaper(PageSettings& settings, const std::string& name);

// Paper and orientation in the settings of a device, for a page of that kind.
void SetPaper(DEVMODE& mode, const PageSettings& settings, dayvane::PageKind kind);

// Prints with the default printer into the file. Returns the number of pages; 0 and the problem when nothing came of
// it.
int PrintToFile(CCalendarCtrl& ctrl, const PageSettings& settings, const char* file, CString& problem);

// The paper of the settings for the program's next print job and preview.
void SelectPaper(const PageSettings& settings, dayvane::PageKind kind);

// Saves all pages as pictures: FILE for one page, else FILE with "-1", "-2", ... before its extension. An extension
// ".emf" gives metafiles, anything else PNG files. Returns how many; 0: a file could not be written.
int ExportPages(CCalendarCtrl& ctrl, const PageSettings& settings, const CString& file);

} // namespace planner
