// The printing commands of the planner's window.
#include "planner/PlannerFrame.h"

#include "planner/AgendaView.h"
#include "planner/ItemBridge.h"
#include "planner/PagesDialog.h"
#include "planner/WideText.h"
#include "planner/Words.h"

#include <afxdlgs.h>

planner::PageSettings CPlannerFrame::Pages()
{
    planner::PageSettings pages = m_pages;
    pages.asList = pages.asList || Agenda();
    return pages;
}

CCalendarCtrl* CPlannerFrame::PrintedCtrl()
{
    CAgendaView* agenda = Agenda();
    planner::ShownItems& items = agenda ? agenda->Paper() : m_items;
    CCalendarCtrl* ctrl = items.Ctrl();
    if (!ctrl) {
        return nullptr;
    }
    if (agenda) {
        ApplySettings(*ctrl);
    }
    planner::SetUpPrinter(*ctrl, Pages(), [&items](int item) {
        const planner::Occurrence* occurrence = items.At(item);
        return occurrence ? CString(occurrence->event->location.c_str()) : CString();
    });
    CPlannerDoc* document = Document();
    CCalendarPrinter* printer = CCalendarPrinter::Of(*ctrl);
    if (printer && document && !document->GetPathName().IsEmpty()) {
        const CString name = document->GetTitle();
        const int dot = name.ReverseFind('.');
        printer->SetTitle(dayvane::DecodeText(dot > 0 ? name.Left(dot) : name, dayvane::kSystemCodePage));
    }
    return printer ? ctrl : nullptr;
}

bool CPlannerFrame::IsReadyToPrint(UINT nID)
{
    if (nID != ID_FILE_PRINT && nID != ID_FILE_PRINT_PREVIEW) {
        return true;
    }
    CCalendarCtrl* ctrl = PrintedCtrl();
    if (!ctrl) {
        return true;
    }
    planner::SelectPaper(m_pages, CCalendarPrinter::Of(*ctrl)->GetRange().kind);
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
    planner::PageSettings pages = Pages();
    CCalendarCtrl* ctrl = PrintedCtrl();
    if (ctrl && CPagesDialog(*ctrl, pages, this).DoModal() == IDOK) {
        pages.asList = Agenda() ? m_pages.asList : pages.asList;
        m_pages = pages;
    }
}

void CPlannerFrame::OnExportPages()
{
    CCalendarCtrl* ctrl = PrintedCtrl();
    CFileDialog dialog(FALSE, "png", nullptr, OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                       "PNG pictures (*.png)|*.png|Metafiles (*.emf)|*.emf||", this);
    if (!ctrl || dialog.DoModal() != IDOK) {
        return;
    }
    CWaitCursor wait;
    const int pages = planner::ExportPages(*ctrl, Pages(), dialog.GetPathName());
    if (pages == 0) {
        planner::Ask(this,
                     planner::Tr("The pages could not be saved as %1.", planner::Utf8OfSystem(dialog.GetPathName())),
                     MB_OK | MB_ICONEXCLAMATION);
        return;
    }
    ShowStatus(planner::Tr(pages == 1 ? "%1 page saved" : "%1 pages saved", std::to_string(pages)));
}

int CPlannerFrame::PrintTo(const char* file, const std::string& paper, CString& problem)
{
    CCalendarCtrl* ctrl = PrintedCtrl();
    if (!ctrl) {
        problem = "There is nothing to print.";
        return 0;
    }
    if (!planner::TakePaper(m_pages, paper)) {
        problem.Format("There is no paper '%s'.", paper.c_str());
        return 0;
    }
    return planner::PrintToFile(*ctrl, Pages(), file, problem);
}
