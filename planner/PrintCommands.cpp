// The printing commands of the planner's window.
#include "planner/PlannerFrame.h"

#include "planner/ItemBridge.h"
#include "planner/PagesDialog.h"
#include "planner/WideText.h"
#include "planner/Words.h"

#include <afxdlgs.h>

void CPlannerFrame::SetUpPrinter()
{
    planner::SetUpPrinter(*m_items.Ctrl(), m_pages, [this](int item) {
        const planner::Occurrence* occurrence = m_items.At(item);
        return occurrence ? CString(occurrence->event->location.c_str()) : CString();
    });
}

bool CPlannerFrame::IsReadyToPrint(UINT nID)
{
    CCalendarPrinter* printer = m_items.Ctrl() ? CCalendarPrinter::Of(*m_items.Ctrl()) : nullptr;
    if ((nID != ID_FILE_PRINT && nID != ID_FILE_PRINT_PREVIEW) || !printer) {
        return true;
    }
    planner::SelectPaper(m_pages, printer->GetRange().kind);
    if (nID == ID_FILE_PRINT && !planner::HasPrinter()) {
        planner::Ask(this,
                     planner::Tr("No printer is installed.\n\nFile > Print Preview shows the pages all the same, and "
                                 "File > Export pages as pictures saves them."),
                     MB_OK | MB_ICONINFORMATION);
        return false;
    }
    return true;
}

void CPlannerFrame::OnPageSetup()
{
    CCalendarCtrl* ctrl = m_items.Ctrl();
    if (ctrl && CPagesDialog(*ctrl, m_pages, this).DoModal() == IDOK) {
        SetUpPrinter();
    }
}

void CPlannerFrame::OnExportPages()
{
    CCalendarCtrl* ctrl = m_items.Ctrl();
    CFileDialog dialog(FALSE, "png", nullptr, OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                       "PNG pictures (*.png)|*.png|Metafiles (*.emf)|*.emf||", this);
    if (!ctrl || dialog.DoModal() != IDOK) {
        return;
    }
    CWaitCursor wait;
    const int pages = planner::ExportPages(*ctrl, m_pages, dialog.GetPathName());
    if (pages == 0) {
        planner::Ask(this,
                     planner::Tr("The pages could not be saved as %1.", planner::Utf8OfSystem(dialog.GetPathName())),
                     MB_OK | MB_ICONEXCLAMATION);
        return;
    }
    Tell(planner::Tr(pages == 1 ? "%1 page saved" : "%1 pages saved", std::to_string(pages)));
}

int CPlannerFrame::PrintTo(const char* file, const std::string& paper, CString& problem)
{
    CCalendarCtrl* ctrl = m_items.Ctrl();
    if (!ctrl) {
        problem = "There is nothing to print.";
        return 0;
    }
    if (!planner::TakePaper(m_pages, paper)) {
        problem.Format("There is no paper '%s'.", paper.c_str());
        return 0;
    }
    return planner::PrintToFile(*ctrl, m_pages, file, problem);
}
