// The window while a dialog is open over it, and its end: by the user, by another program, by the system.
#include "planner/PlannerFrame.h"

#include "planner/FindDialog.h"
#include "planner/ReminderDialog.h"
#include "planner/Words.h"

// Another program may ask for the end at any time. Under a dialog, or while a file is read, the window stays: what they
// work on would go with it.
void CPlannerFrame::OnClose()
{
    if (!IsWindowEnabled()) {
        ::MessageBeep(MB_ICONWARNING);
        ::SetForegroundWindow(::GetLastActivePopup(m_hWnd));
        return;
    }
    m_editor.Commit();
    KeepSettings();
    CFrameWnd::OnClose();
}

// The windows beside this one change the same calendar: a dialog over this one is over them, too.
void CPlannerFrame::OnEnable(BOOL bEnable)
{
    CFrameWnd::OnEnable(bEnable);
    for (CWnd* beside : {static_cast<CWnd*>(m_find.get()), static_cast<CWnd*>(m_reminderBox.get())}) {
        if (beside && beside->m_hWnd) {
            beside->EnableWindow(bEnable);
        }
    }
}

// The system ends, perhaps with nobody there to be asked: what is not saved lies beside its file and is offered at the
// next start. Only where it cannot lie there the user is asked.
BOOL CPlannerFrame::OnQueryEndSession()
{
    m_editor.Commit();
    KeepSettings();
    CPlannerDoc* document = Document();
    return !document || document->KeepCopy() || !IsWindowEnabled() || document->SaveModified();
}

bool CPlannerFrame::KeepCopy()
{
    CPlannerDoc* document = Document();
    const bool isKept = !document || document->KeepCopy();
    if (!isKept && m_isCopyKept) { // said once
        ShowProblem(planner::Tr("No copy of the unsaved changes could be written beside the file."));
    }
    m_isCopyKept = isKept;
    return isKept;
}
