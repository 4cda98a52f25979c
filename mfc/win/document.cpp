// Documents: their views, their file, their end.
#include "afximpl.h"

#include <afxdlgs.h>

#include <algorithm>

IMPLEMENT_DYNAMIC(CDocument, CCmdTarget)

BEGIN_MESSAGE_MAP(CDocument, CCmdTarget)
ON_COMMAND(ID_FILE_CLOSE, &CDocument::OnFileClose)
ON_COMMAND(ID_FILE_SAVE, &CDocument::OnFileSave)
ON_COMMAND(ID_FILE_SAVE_AS, &CDocument::OnFileSaveAs)
END_MESSAGE_MAP()

CDocument::~CDocument()
{
    for (CView* pView : m_views) {
        pView->m_pDocument = nullptr;
    }
    if (m_pDocTemplate) {
        m_pDocTemplate->RemoveDocument(this);
    }
}

void CDocument::SetTitle(LPCTSTR lpszTitle)
{
    m_strTitle = lpszTitle;
    UpdateFrameCounts();
}

void CDocument::SetPathName(LPCTSTR lpszPathName, BOOL)
{
    TCHAR full[MAX_PATH * 4] = {};
    LPTSTR name = nullptr;
    const DWORD length = ::GetFullPathName(lpszPathName, sizeof(full) / sizeof(full[0]), full, &name);
    if (length == 0 || length >= sizeof(full) / sizeof(full[0])) {
        m_strPathName = lpszPathName;
        SetTitle(lpszPathName);
        return;
    }
    m_strPathName = full;
    SetTitle(name ? name : full);
}

// Views

void CDocument::AddView(CView* pView)
{
    m_views.push_back(pView);
    pView->m_pDocument = this;
    OnChangedViewList();
}

void CDocument::RemoveView(CView* pView)
{
    m_views.erase(std::remove(m_views.begin(), m_views.end(), pView), m_views.end());
    pView->m_pDocument = nullptr;
    OnChangedViewList(); // may delete the document
}

// A position is the view's index and 1.
POSITION CDocument::GetFirstViewPosition() const
{
    return reinterpret_cast<POSITION>(static_cast<UINT_PTR>(m_views.empty() ? 0 : 1));
}

CView* CDocument::GetNextView(POSITION& rPosition) const
{
    const size_t index = reinterpret_cast<UINT_PTR>(rPosition) - 1;
    ENSURE(index < m_views.size());
    const UINT_PTR next = index + 1 < m_views.size() ? index + 2 : 0;
    rPosition = reinterpret_cast<POSITION>(next);
    return m_views[index];
}

void CDocument::UpdateAllViews(CView* pSender, LPARAM lHint, CObject* pHint)
{
    const std::vector<CView*> views = m_views; // an update may add or remove some
    for (CView* pView : views) {
        if (pView != pSender && std::find(m_views.begin(), m_views.end(), pView) != m_views.end()) {
            pView->OnUpdate(pSender, lHint, pHint);
        }
    }
}

void CDocument::OnChangedViewList()
{
    if (m_views.empty() && m_bAutoDelete) {
        OnCloseDocument();
    } else {
        UpdateFrameCounts();
    }
}

void CDocument::UpdateFrameCounts()
{
    for (CView* pView : m_views) {
        if (CFrameWnd* pFrame = pView->m_hWnd ? pView->GetParentFrame() : nullptr) {
            pFrame->OnUpdateFrameTitle(TRUE);
        }
    }
}

// Life of the contents

BOOL CDocument::OnNewDocument()
{
    DeleteContents();
    m_strPathName.Empty();
    SetModifiedFlag(FALSE);
    return TRUE;
}

namespace {

class FileHandle
{
public:
    FileHandle(LPCTSTR path, DWORD access, DWORD disposition)
        : m_handle(::CreateFile(path, access, FILE_SHARE_READ, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr))
    {
        if (m_handle == INVALID_HANDLE_VALUE) {
            Fail(path);
        }
    }
    ~FileHandle() { ::CloseHandle(m_handle); }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    operator HANDLE() const { return m_handle; }

    [[noreturn]] static void Fail(LPCTSTR path)
    {
        const DWORD error = ::GetLastError();
        int cause = CFileException::genericException;
        switch (error) {
        case ERROR_FILE_NOT_FOUND:
            cause = CFileException::fileNotFound;
            break;
        case ERROR_PATH_NOT_FOUND:
            cause = CFileException::badPath;
            break;
        case ERROR_ACCESS_DENIED:
            cause = CFileException::accessDenied;
            break;
        case ERROR_SHARING_VIOLATION:
            cause = CFileException::sharingViolation;
            break;
        case ERROR_DISK_FULL:
            cause = CFileException::diskFull;
            break;
        default:
            break;
        }
        AfxThrowFileException(cause, static_cast<LONG>(error), path);
    }

private:
    HANDLE m_handle;
};

void LoadFile(LPCTSTR path, CMemFile& file)
{
    FileHandle handle(path, GENERIC_READ, OPEN_EXISTING);
    char block[4096];
    DWORD count = 0;
    do {
        if (!::ReadFile(handle, block, sizeof(block), &count, nullptr)) {
            FileHandle::Fail(path);
        }
        file.Write(block, count);
    } while (count != 0);
    file.SeekToBegin();
}

// The folder of a path, with its last separator; "." where there is none.
CString FolderOf(LPCTSTR path)
{
    const CString whole(path);
    const int end = std::max(whole.ReverseFind('\\'), std::max(whole.ReverseFind('/'), whole.ReverseFind(':')));
    return end < 0 ? CString(".") : whole.Left(end + 1);
}

// A file of a name that nobody has, which goes with its owner unless it has taken another's place.
class TemporaryFile
{
public:
    explicit TemporaryFile(LPCTSTR besidePath)
    {
        if (::GetTempFileName(FolderOf(besidePath), "dv", 0, m_name) == 0) {
            m_name[0] = '\0';
            FileHandle::Fail(besidePath);
        }
    }
    ~TemporaryFile()
    {
        if (m_name[0] != '\0') {
            ::DeleteFile(m_name);
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    LPCTSTR Name() const { return m_name; }
    void Replace(LPCTSTR path)
    {
        if (!::MoveFileEx(m_name, path, MOVEFILE_REPLACE_EXISTING)) {
            FileHandle::Fail(path);
        }
        m_name[0] = '\0';
    }

private:
    char m_name[MAX_PATH];
};

// Writes a new file beside the old one and lets it take its place, so that a failure leaves the old one whole.
void StoreFile(LPCTSTR path, CMemFile& file)
{
    TemporaryFile fresh(path);
    {
        FileHandle handle(fresh.Name(), GENERIC_WRITE, CREATE_ALWAYS);
        char block[4096];
        file.SeekToBegin();
        while (const UINT count = file.Read(block, sizeof(block))) {
            DWORD written = 0;
            if (!::WriteFile(handle, block, count, &written, nullptr) || written != count) {
                FileHandle::Fail(path);
            }
        }
    }
    fresh.Replace(path);
}

} // namespace

BOOL CDocument::OnOpenDocument(LPCTSTR lpszPathName)
{
    bool touched = false;
    try {
        CMemFile file;
        LoadFile(lpszPathName, file);
        touched = true;
        DeleteContents();
        SetModifiedFlag(TRUE); // while it is half loaded
        CArchive archive(&file, CArchive::load);
        Serialize(archive);
    } catch (CException* e) {
        ReportSaveLoadException(lpszPathName, e, FALSE);
        e->Delete();
        if (touched) {
            DeleteContents();
        }
        return FALSE;
    }
    SetModifiedFlag(FALSE);
    return TRUE;
}

BOOL CDocument::OnSaveDocument(LPCTSTR lpszPathName)
{
    try {
        CMemFile file;
        CArchive archive(&file, CArchive::store);
        Serialize(archive);
        archive.Close();
        StoreFile(lpszPathName, file);
    } catch (CException* e) {
        ReportSaveLoadException(lpszPathName, e, TRUE);
        e->Delete();
        return FALSE;
    }
    SetModifiedFlag(FALSE);
    return TRUE;
}

void CDocument::OnCloseDocument()
{
    const BOOL autoDelete = m_bAutoDelete;
    m_bAutoDelete = FALSE; // not yet, while the views go
    while (!m_views.empty()) {
        CView* pView = m_views.front();
        CFrameWnd* pFrame = pView->GetParentFrame();
        if (!pFrame || !pFrame->DestroyWindow()) {
            pView->DestroyWindow();
        }
        if (!m_views.empty() && m_views.front() == pView) {
            RemoveView(pView); // a view that outlives its window
        }
    }
    m_bAutoDelete = autoDelete;
    DeleteContents();
    if (m_bAutoDelete) {
        delete this;
    }
}

BOOL CDocument::CanCloseFrame(CFrameWnd*)
{
    return SaveModified();
}

BOOL CDocument::SaveModified()
{
    if (!IsModified()) {
        return TRUE;
    }
    CString prompt;
    prompt.Format("Save changes to %s?", static_cast<LPCTSTR>(m_strPathName.IsEmpty() ? m_strTitle : m_strPathName));
    switch (AfxMessageBox(prompt, MB_YESNOCANCEL)) {
    case IDYES:
        return DoFileSave();
    case IDNO:
        return TRUE;
    default:
        return FALSE;
    }
}

BOOL CDocument::DoFileSave()
{
    const DWORD attributes = ::GetFileAttributes(m_strPathName);
    const bool readOnly = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    return DoSave(readOnly ? nullptr : static_cast<LPCTSTR>(m_strPathName));
}

BOOL CDocument::DoSave(LPCTSTR lpszPathName, BOOL bReplace)
{
    CString path = lpszPathName;
    if (path.IsEmpty()) {
        path = m_strPathName.IsEmpty() ? m_strTitle : m_strPathName;
        CWinApp* pApp = AfxGetApp();
        if (!pApp || !pApp->DoPromptFileName(path, bReplace ? "Save As" : "Save Copy As",
                                             OFN_HIDEREADONLY | OFN_PATHMUSTEXIST | OFN_OVERWRITEPROMPT, FALSE,
                                             m_pDocTemplate)) {
            return FALSE;
        }
    }
    CWaitCursor wait;
    if (!OnSaveDocument(path)) {
        return FALSE;
    }
    if (bReplace) {
        SetPathName(path);
    }
    return TRUE;
}

void CDocument::ReportSaveLoadException(LPCTSTR lpszPathName, CException* e, BOOL bSaving)
{
    if (e->IsKindOf(RUNTIME_CLASS(CUserException))) {
        return; // the user knows
    }
    CString text;
    text.Format(bSaving ? "%s cannot be written." : "%s cannot be read.", lpszPathName);
    const CFileException* fileError = DYNAMIC_DOWNCAST(CFileException, e);
    if (fileError && fileError->m_cause == CFileException::fileNotFound) {
        text.Format("%s was not found.", lpszPathName);
    } else if (e->IsKindOf(RUNTIME_CLASS(CArchiveException))) {
        text += " Its contents are not what was expected.";
    }
    AfxMessageBox(text, MB_OK | MB_ICONEXCLAMATION);
}

BOOL CDocument::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    return CCmdTarget::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo) ||
           (m_pDocTemplate && m_pDocTemplate->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo));
}

void CDocument::OnFileClose()
{
    if (SaveModified()) {
        OnCloseDocument();
    }
}

void CDocument::OnFileSave()
{
    DoFileSave();
}

void CDocument::OnFileSaveAs()
{
    DoSave(nullptr);
}
