// Document templates, and what the application does with them.
#include "afximpl.h"

#include <afxext.h>

IMPLEMENT_DYNAMIC(CDocTemplate, CCmdTarget)
IMPLEMENT_DYNAMIC(CSingleDocTemplate, CDocTemplate)

CDocTemplate::CDocTemplate(UINT nIDResource, CRuntimeClass* pDocClass, CRuntimeClass* pFrameClass,
                           CRuntimeClass* pViewClass)
    : m_nIDResource(nIDResource), m_pDocClass(pDocClass), m_pFrameClass(pFrameClass), m_pViewClass(pViewClass)
{
    m_strDocStrings.LoadString(nIDResource);
}

BOOL AfxExtractSubString(CString& rString, LPCTSTR lpszFullString, int iSubString, TCHAR chSep)
{
    CString rest = lpszFullString;
    for (; iSubString > 0; --iSubString) {
        const int end = rest.Find(chSep);
        if (end < 0) {
            rString.Empty();
            return FALSE;
        }
        rest = rest.Mid(end + 1);
    }
    const int end = rest.Find(chSep);
    rString = end < 0 ? rest : rest.Left(end);
    return TRUE;
}

BOOL CDocTemplate::GetDocString(CString& rString, DocStringIndex index) const
{
    return AfxExtractSubString(rString, m_strDocStrings, index);
}

void CDocTemplate::AddDocument(CDocument* pDoc)
{
    pDoc->m_pDocTemplate = this;
}

void CDocTemplate::RemoveDocument(CDocument* pDoc)
{
    pDoc->m_pDocTemplate = nullptr;
}

CDocument* CDocTemplate::CreateNewDocument()
{
    CDocument* pDocument = static_cast<CDocument*>(m_pDocClass->CreateObject());
    if (pDocument) {
        AddDocument(pDocument);
    }
    return pDocument;
}

CFrameWnd* CDocTemplate::CreateNewFrame(CDocument* pDoc, CFrameWnd* pOther)
{
    CCreateContext context;
    context.m_pCurrentFrame = pOther;
    context.m_pCurrentDoc = pDoc;
    context.m_pNewViewClass = m_pViewClass;
    context.m_pNewDocTemplate = this;
    CFrameWnd* pFrame = static_cast<CFrameWnd*>(m_pFrameClass->CreateObject());
    // A frame that could not be made has deleted itself.
    return pFrame && pFrame->LoadFrame(m_nIDResource, WS_OVERLAPPEDWINDOW | FWS_ADDTOTITLE, nullptr, &context)
               ? pFrame
               : nullptr;
}

void CDocTemplate::InitialUpdateFrame(CFrameWnd* pFrame, CDocument* pDoc, BOOL bMakeVisible)
{
    pFrame->InitialUpdateFrame(pDoc, bMakeVisible);
}

CSingleDocTemplate::~CSingleDocTemplate()
{
    if (m_pOnlyDoc) {
        m_pOnlyDoc->m_pDocTemplate = nullptr;
    }
}

void CSingleDocTemplate::AddDocument(CDocument* pDoc)
{
    CDocTemplate::AddDocument(pDoc);
    m_pOnlyDoc = pDoc;
}

void CSingleDocTemplate::RemoveDocument(CDocument* pDoc)
{
    CDocTemplate::RemoveDocument(pDoc);
    m_pOnlyDoc = nullptr;
}

void CSingleDocTemplate::SetDefaultTitle(CDocument* pDocument)
{
    CString name;
    if (!GetDocString(name, docName) || name.IsEmpty()) {
        name = "Untitled";
    }
    pDocument->SetTitle(name);
}

CDocument* CSingleDocTemplate::OpenDocumentFile(LPCTSTR lpszPathName, BOOL bMakeVisible)
{
    CDocument* pDocument = m_pOnlyDoc;
    CFrameWnd* pFrame = nullptr;
    const bool created = !pDocument;
    if (!created) {
        if (!pDocument->SaveModified()) {
            return nullptr; // the user has cancelled
        }
        POSITION position = pDocument->GetFirstViewPosition();
        CView* pView = position ? pDocument->GetNextView(position) : nullptr;
        pFrame = pView ? pView->GetParentFrame() : DYNAMIC_DOWNCAST(CFrameWnd, AfxGetMainWnd());
        if (!pFrame) {
            return nullptr;
        }
    } else {
        pDocument = CreateNewDocument();
        if (!pDocument) {
            return nullptr;
        }
        const BOOL autoDelete = pDocument->m_bAutoDelete;
        pDocument->m_bAutoDelete = FALSE; // a frame that fails must not take the document along
        pFrame = CreateNewFrame(pDocument, nullptr);
        pDocument->m_bAutoDelete = autoDelete;
        if (!pFrame) {
            delete pDocument;
            return nullptr;
        }
    }
    bool opened = false;
    if (!lpszPathName) {
        SetDefaultTitle(pDocument);
        opened = pDocument->OnNewDocument();
    } else {
        CWaitCursor wait;
        const BOOL wasModified = pDocument->IsModified();
        pDocument->SetModifiedFlag(FALSE); // loading sets it as soon as it changes the document
        opened = pDocument->OnOpenDocument(lpszPathName);
        if (opened) {
            pDocument->SetPathName(lpszPathName);
        } else if (!created && !pDocument->IsModified()) {
            pDocument->SetModifiedFlag(wasModified); // the document is as it was
        } else if (!created) {
            SetDefaultTitle(pDocument); // what was there is gone; the frame stays, with an empty document
            pDocument->OnNewDocument();
        }
    }
    if (!opened) {
        if (created) {
            pFrame->DestroyWindow(); // and with the view the document
        }
        return nullptr;
    }
    CWinThread* pThread = AfxGetThread();
    if (created && pThread && !pThread->m_pMainWnd) {
        pThread->m_pMainWnd = pFrame;
    }
    InitialUpdateFrame(pFrame, pDocument, bMakeVisible);
    return pDocument;
}

// The application

void CWinApp::AddDocTemplate(CDocTemplate* pTemplate)
{
    m_templates.push_back(pTemplate);
}

CDocument* CWinApp::OpenDocumentFile(LPCTSTR lpszFileName)
{
    return m_templates.empty() ? nullptr : m_templates.front()->OpenDocumentFile(lpszFileName);
}

BOOL CWinApp::SaveAllModified()
{
    for (CDocTemplate* pTemplate : m_templates) {
        if (!pTemplate->SaveAllModified()) {
            return FALSE;
        }
    }
    return TRUE;
}

BOOL CWinApp::DoPromptFileName(CString& fileName, LPCTSTR title, DWORD lFlags, BOOL bOpenFileDialog,
                               CDocTemplate* pTemplate)
{
    CString filter;
    CString extension;
    if (!pTemplate && !m_templates.empty()) {
        pTemplate = m_templates.front();
    }
    if (pTemplate && pTemplate->GetDocString(extension, CDocTemplate::filterExt) && !extension.IsEmpty()) {
        CString name;
        pTemplate->GetDocString(name, CDocTemplate::filterName);
        filter = name + "|*" + extension + "|";
        extension = extension.Mid(1); // without the point
    }
    filter += "All Files (*.*)|*.*||";
    CFileDialog dialog(bOpenFileDialog, extension.IsEmpty() ? nullptr : static_cast<LPCTSTR>(extension), fileName,
                       lFlags, filter);
    dialog.m_ofn.lpstrTitle = title;
    if (dialog.DoModal() != IDOK) {
        return FALSE;
    }
    fileName = dialog.GetPathName();
    return TRUE;
}

void CWinApp::OnFileNew()
{
    OpenDocumentFile(nullptr);
}

void CWinApp::OnFileOpen()
{
    CString path;
    if (DoPromptFileName(path, "Open", OFN_HIDEREADONLY | OFN_FILEMUSTEXIST, TRUE, nullptr)) {
        OpenDocumentFile(path);
    }
}

void CWinApp::OnFilePrintSetup()
{
    CPrintDialog dialog(TRUE);
    DoPrintDialog(&dialog);
}
