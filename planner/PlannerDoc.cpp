#include "planner/PlannerDoc.h"

#include "planner/ChangedDialog.h"
#include "planner/WideText.h"
#include "planner/Words.h"
#include "planner/resource.h"

IMPLEMENT_DYNCREATE(CPlannerDoc, CDocument)

CString CPlannerDoc::s_untitled;

// ---- Opening

BOOL CPlannerDoc::OnNewDocument()
{
    const BOOL done = CDocument::OnNewDocument();
    m_fileBytes.clear();
    if (done && !s_untitled.IsEmpty()) {
        Recover(s_untitled, planner::Tr("Untitled"));
    }
    TellFrame();
    return done;
}

BOOL CPlannerDoc::OnOpenDocument(LPCTSTR lpszPathName)
{
    const BOOL done = CDocument::OnOpenDocument(lpszPathName);
    if (done) {
        m_stamp.Take(lpszPathName);
        Recover(lpszPathName, planner::Utf8OfSystem(lpszPathName));
    }
    TellFrame();
    return done;
}

void CPlannerDoc::Recover(const CString& file, const std::string& name)
{
    const auto left = planner::AutoSave::LeftFor(file);
    if (!left) {
        return;
    }
    const bool isWanted =
        *left != m_fileBytes &&
        planner::Ask(nullptr,
                     planner::Tr("The planner ended while changes of %1 were not saved.\n\nOpen them again?", name),
                     MB_YESNO | MB_ICONQUESTION) == IDYES;
    ::DeleteFile(planner::AutoSave::PathFor(file));
    if (isWanted) {
        m_calendar.Load(*left);
        m_calendar.MarkUnsaved();
        m_copy.Write(file, *left);
    }
}

void CPlannerDoc::DeleteContents()
{
    m_copy.Remove();
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
        m_fileBytes = m_calendar.Save();
        archive.Write(m_fileBytes.data(), static_cast<UINT>(m_fileBytes.size()));
        return;
    }
    std::string bytes;
    char block[65536];
    while (const UINT count = archive.Read(block, sizeof(block))) {
        bytes.append(block, count);
    }
    m_calendar.Load(bytes);
    m_fileBytes = std::move(bytes);
}

void CPlannerDoc::TellFrame()
{
    POSITION position = GetFirstViewPosition();
    CView* view = position ? GetNextView(position) : nullptr;
    if (CFrameWnd* frame = view ? view->GetParentFrame() : nullptr) {
        frame->SendMessage(WM_PLANNER_LOADED);
    }
}

// ---- Saving

BOOL CPlannerDoc::DoFileSave()
{
    const DWORD attributes = ::GetFileAttributes(GetPathName());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        const std::string name = planner::Utf8OfSystem(GetPathName());
        if (planner::Ask(AfxGetMainWnd(),
                         planner::Tr("%1 is read-only.\n\nSave the calendar under another name?", name),
                         MB_OKCANCEL | MB_ICONINFORMATION) != IDOK) {
            return FALSE;
        }
    }
    return CDocument::DoFileSave();
}

BOOL CPlannerDoc::OnSaveDocument(LPCTSTR lpszPathName)
{
    const CString path(lpszPathName);
    if (path == GetPathName() && m_stamp.Differs(path) && !MayReplace(path)) {
        return FALSE;
    }
    constexpr DWORD kept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    const DWORD attributes = ::GetFileAttributes(path);
    const std::string before = m_fileBytes;
    if (!CDocument::OnSaveDocument(path)) {
        m_fileBytes = before;
        return FALSE;
    }
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & kept) != 0) {
        ::SetFileAttributes(path, ::GetFileAttributes(path) | (attributes & kept));
    }
    m_stamp.Take(path);
    m_copy.Remove();
    return TRUE;
}

// The file is not what was read: what to do is the user's to say. FALSE: it is not to be written.
BOOL CPlannerDoc::MayReplace(const CString& path)
{
    const std::string name = planner::Utf8OfSystem(path);
    const auto theirs = planner::ReadWholeFile(path);
    if (!theirs) {
        return planner::Ask(AfxGetMainWnd(), planner::Tr("%1 is no longer there.\n\nWrite it anew?", name),
                            MB_OKCANCEL | MB_ICONEXCLAMATION) == IDOK;
    }
    if (*theirs == m_fileBytes) {
        return TRUE; // only its time is another
    }
    switch (CChangedDialog::Ask(planner::Tr("Another program has changed %1 since it was opened.", name),
                                AfxGetMainWnd())) {
    case IDC_CHANGED_MERGE:
        MergeWith(*theirs);
        return TRUE;
    case IDC_CHANGED_OVERWRITE:
        return TRUE;
    case IDC_CHANGED_RELOAD:
        m_calendar.Load(*theirs);
        m_fileBytes = *theirs;
        m_stamp.Take(path);
        m_copy.Remove();
        TellFrame();
        UpdateFrameCounts();
        return FALSE;
    case IDC_CHANGED_SAVE_AS:
        DoSave(nullptr);
        return FALSE;
    default:
        return FALSE;
    }
}

// The other program's file with what was changed here.
void CPlannerDoc::MergeWith(const std::string& theirs)
{
    planner::Document merged;
    merged.Load(theirs);
    const planner::MergeReport report = merged.Merge(m_calendar.Save(), m_fileBytes);
    m_calendar = std::move(merged);
    m_calendar.MarkUnsaved();
    TellFrame();
    if (!report.conflicts.empty()) {
        std::string list;
        for (const std::string& title : report.conflicts) {
            list += "\n- " + title;
        }
        planner::Ask(AfxGetMainWnd(),
                     planner::Tr("Both have changed these items; the newer form is kept:") + "\n" + list,
                     MB_OK | MB_ICONINFORMATION);
    }
}

BOOL CPlannerDoc::SaveModified()
{
    if (!IsModified()) {
        return TRUE;
    }
    const std::string name = GetPathName().IsEmpty() ? planner::Tr("Untitled") : planner::Utf8OfSystem(GetPathName());
    switch (planner::Ask(AfxGetMainWnd(), planner::Tr("Save changes to %1?", name), MB_YESNOCANCEL | MB_ICONQUESTION)) {
    case IDYES:
        return DoFileSave();
    case IDNO:
        m_copy.Remove();
        return TRUE;
    default:
        return FALSE;
    }
}

void CPlannerDoc::KeepCopy()
{
    const CString file = GetPathName().IsEmpty() ? s_untitled : GetPathName();
    if (IsModified() && !file.IsEmpty()) {
        m_copy.Write(file, m_calendar.Save());
    } else {
        m_copy.Remove();
    }
}
