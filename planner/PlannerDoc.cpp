#include "planner/PlannerDoc.h"

IMPLEMENT_DYNCREATE(CPlannerDoc, CDocument)

BOOL CPlannerDoc::OnNewDocument()
{
    const BOOL done = CDocument::OnNewDocument();
    TellFrame();
    return done;
}

BOOL CPlannerDoc::OnOpenDocument(LPCTSTR lpszPathName)
{
    const BOOL done = CDocument::OnOpenDocument(lpszPathName);
    TellFrame();
    return done;
}

void CPlannerDoc::DeleteContents()
{
    m_calendar.Clear();
}

// The calendar knows by its steps whether it differs from the file.
void CPlannerDoc::SetModifiedFlag(BOOL bModified)
{
    if (bModified) {
        m_calendar.MarkUnsaved();
    } else {
        m_calendar.MarkSaved();
    }
    UpdateFrameCounts(); // the title tells it
}

void CPlannerDoc::Serialize(CArchive& archive)
{
    if (archive.IsStoring()) {
        const std::string bytes = m_calendar.Save();
        archive.Write(bytes.data(), static_cast<UINT>(bytes.size()));
        return;
    }
    std::string bytes;
    char block[65536];
    while (const UINT count = archive.Read(block, sizeof(block))) {
        bytes.append(block, count);
    }
    m_calendar.Load(bytes);
}

void CPlannerDoc::TellFrame()
{
    POSITION position = GetFirstViewPosition();
    CView* view = position ? GetNextView(position) : nullptr;
    if (CFrameWnd* frame = view ? view->GetParentFrame() : nullptr) {
        frame->SendMessage(WM_PLANNER_LOADED);
    }
}
