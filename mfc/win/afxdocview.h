// Frames, views, documents and their templates, for programs that show one document at a time.
//
// Routing of commands: the frame asks its active view, which asks its document; then the frame itself, then the
// application. A document is deleted with its last view unless m_bAutoDelete is cleared; frames and views delete
// themselves with their windows.
#pragma once

#include <vector>

class CView;
class CControlBar;
class CFrameWnd;
struct CPrintInfo;

// A place in a list of objects: GetFirst...Position gives the first, GetNext... goes on; null after the last.
struct __POSITION;
typedef __POSITION* POSITION;

class CDocument : public CCmdTarget
{
    DECLARE_DYNAMIC(CDocument)
public:
    CDocument() = default;
    ~CDocument() override; // its views stay, without a document

    BOOL m_bAutoDelete = TRUE;

    const CString& GetTitle() const { return m_strTitle; }
    virtual void SetTitle(LPCTSTR lpszTitle);
    const CString& GetPathName() const { return m_strPathName; }
    // The title becomes the file's name.
    virtual void SetPathName(LPCTSTR lpszPathName, BOOL bAddToMRU = TRUE);
    CDocTemplate* GetDocTemplate() const { return m_pDocTemplate; }
    virtual BOOL IsModified() { return m_bModified; }
    virtual void SetModifiedFlag(BOOL bModified = TRUE) { m_bModified = bModified; }

    // Views
    void AddView(CView* pView);
    void RemoveView(CView* pView);
    virtual POSITION GetFirstViewPosition() const;
    virtual CView* GetNextView(POSITION& rPosition) const;
    // Calls OnUpdate of all views but the sender.
    void UpdateAllViews(CView* pSender, LPARAM lHint = 0L, CObject* pHint = nullptr);
    virtual void OnChangedViewList();
    void UpdateFrameCounts();

    // Life of the contents
    virtual void DeleteContents() {}
    virtual BOOL OnNewDocument();
    // Read and write the file through Serialize. FALSE when that fails; the user has been shown a message.
    virtual BOOL OnOpenDocument(LPCTSTR lpszPathName);
    virtual BOOL OnSaveDocument(LPCTSTR lpszPathName);
    virtual void OnCloseDocument();
    virtual BOOL CanCloseFrame(CFrameWnd* pFrame);
    // Asks whether to save changes. FALSE: the user has cancelled.
    virtual BOOL SaveModified();
    // Without a path the user is asked for one.
    virtual BOOL DoSave(LPCTSTR lpszPathName, BOOL bReplace = TRUE);
    virtual BOOL DoFileSave();
    virtual void ReportSaveLoadException(LPCTSTR lpszPathName, CException* e, BOOL bSaving);

    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;

protected:
    afx_msg void OnFileClose();
    afx_msg void OnFileSave();
    afx_msg void OnFileSaveAs();
    DECLARE_MESSAGE_MAP()

    CString m_strTitle;
    CString m_strPathName;
    CDocTemplate* m_pDocTemplate = nullptr;
    BOOL m_bModified = FALSE;

private:
    friend class CDocTemplate;
    friend class CSingleDocTemplate;
    std::vector<CView*> m_views;
};

// Which classes make up a document with its frame and view, and the resources they share: menu, accelerators, icon and
// a string of parts ended by line feeds (see DocStringIndex), all under one identifier.
class CDocTemplate : public CCmdTarget
{
    DECLARE_DYNAMIC(CDocTemplate)
public:
    CDocTemplate(UINT nIDResource, CRuntimeClass* pDocClass, CRuntimeClass* pFrameClass, CRuntimeClass* pViewClass);

    enum DocStringIndex
    {
        windowTitle,
        docName,
        fileNewName,
        filterName,
        filterExt,
        regFileTypeId,
        regFileTypeName
    };
    virtual BOOL GetDocString(CString& rString, DocStringIndex index) const;
    virtual void AddDocument(CDocument* pDoc);
    virtual void RemoveDocument(CDocument* pDoc);
    virtual CDocument* CreateNewDocument();
    virtual CFrameWnd* CreateNewFrame(CDocument* pDoc, CFrameWnd* pOther);
    virtual void InitialUpdateFrame(CFrameWnd* pFrame, CDocument* pDoc, BOOL bMakeVisible = TRUE);
    // A new document when the path is null. Null when nothing could be opened.
    virtual CDocument* OpenDocumentFile(LPCTSTR lpszPathName, BOOL bMakeVisible = TRUE) = 0;
    virtual BOOL SaveAllModified() = 0;
    virtual void SetDefaultTitle(CDocument* pDocument) = 0;

protected:
    UINT m_nIDResource;
    CRuntimeClass* m_pDocClass;
    CRuntimeClass* m_pFrameClass;
    CRuntimeClass* m_pViewClass;
    CString m_strDocStrings;
};

class CSingleDocTemplate : public CDocTemplate
{
    DECLARE_DYNAMIC(CSingleDocTemplate)
public:
    using CDocTemplate::CDocTemplate;
    ~CSingleDocTemplate() override;

    void AddDocument(CDocument* pDoc) override;
    void RemoveDocument(CDocument* pDoc) override;
    CDocument* GetOnlyDoc() const { return m_pOnlyDoc; }
    CDocument* OpenDocumentFile(LPCTSTR lpszPathName, BOOL bMakeVisible = TRUE) override;
    BOOL SaveAllModified() override { return !m_pOnlyDoc || m_pOnlyDoc->SaveModified(); }
    void SetDefaultTitle(CDocument* pDocument) override;

protected:
    CDocument* m_pOnlyDoc = nullptr;
};

#define FWS_ADDTOTITLE 0x00008000L // the frame's title names the document too
#define AFX_WS_DEFAULT_VIEW (WS_CHILD | WS_VISIBLE | WS_BORDER)

class CFrameWnd : public CWnd
{
    DECLARE_DYNCREATE(CFrameWnd)
public:
    CFrameWnd() = default;
    static const RECT rectDefault; // the system chooses

    HACCEL m_hAccelTable = nullptr;
    BOOL m_bAutoMenuEnable = TRUE; // menu items that nobody handles are disabled

    virtual BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle = WS_OVERLAPPEDWINDOW,
                        const RECT& rect = rectDefault, CWnd* pParentWnd = nullptr, LPCTSTR lpszMenuName = nullptr,
                        DWORD dwExStyle = 0, CCreateContext* pContext = nullptr);
    // With the menu, accelerators, icon and title of that identifier.
    virtual BOOL LoadFrame(UINT nIDResource, DWORD dwDefaultStyle = WS_OVERLAPPEDWINDOW | FWS_ADDTOTITLE,
                           CWnd* pParentWnd = nullptr, CCreateContext* pContext = nullptr);
    BOOL LoadAccelTable(LPCTSTR lpszResourceName);
    CWnd* CreateView(CCreateContext* pContext, UINT nID = AFX_IDW_PANE_FIRST);

    virtual CDocument* GetActiveDocument();
    CView* GetActiveView() const { return m_pViewActive; }
    void SetActiveView(CView* pViewNew, BOOL bNotify = TRUE);
    virtual CFrameWnd* GetActiveFrame() { return this; }
    virtual void ActivateFrame(int nCmdShow = -1);
    void InitialUpdateFrame(CDocument* pDoc, BOOL bMakeVisible);
    virtual void RecalcLayout(BOOL bNotify = TRUE);
    CString GetTitle() const { return m_strTitle; }
    void SetTitle(LPCTSTR lpszTitle) { m_strTitle = lpszTitle; }
    virtual void OnUpdateFrameTitle(BOOL bAddToTitle);

    // Bars
    CControlBar* GetControlBar(UINT nID);
    void ShowControlBar(CControlBar* pBar, BOOL bShow, BOOL bDelay);
    void SetMessageText(LPCTSTR lpszText);
    void SetMessageText(UINT nID);

    // Handlers for the message map of a program's own frame class: show or hide the bar whose identifier is the
    // command's
    afx_msg BOOL OnBarCheck(UINT nID);
    afx_msg void OnUpdateControlBarMenu(CCmdUI* pCmdUI);

    BOOL IsFrameWnd() const override { return TRUE; }
    BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    BOOL PreTranslateMessage(MSG* pMsg) override;
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;

protected:
    // Makes what fills the frame; by default the view that the context names.
    virtual BOOL OnCreateClient(LPCREATESTRUCT lpcs, CCreateContext* pContext);
    void PostNcDestroy() override { delete this; }

    afx_msg int OnCreate(LPCREATESTRUCT lpcs);
    afx_msg void OnClose();
    afx_msg void OnDestroy();
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg void OnInitMenuPopup(CMenu* pMenu, UINT nIndex, BOOL bSysMenu);
    afx_msg void OnMenuSelect(UINT nItemID, UINT nFlags, HMENU hSysMenu);
    afx_msg LRESULT OnSetMessageString(WPARAM wParam, LPARAM lParam);
    afx_msg BOOL OnToolTipText(UINT nID, NMHDR* pNMHDR, LRESULT* pResult);
    DECLARE_MESSAGE_MAP()

    CView* m_pViewActive = nullptr;
    CString m_strTitle;

private:
    HMENU m_hMenuDefault = nullptr;
    bool m_inLayout = false;
};

class CView : public CWnd
{
    DECLARE_DYNAMIC(CView)
public:
    CDocument* GetDocument() const { return m_pDocument; }
    BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;

    // Called for painting and for each printed page, before anything is drawn; pInfo is null for painting. When
    // printing, m_bContinuePrinting says whether the page of m_nCurPage exists: by default one page, unless
    // OnPreparePrinting set the last.
    virtual void OnPrepareDC(CDC* pDC, CPrintInfo* pInfo = nullptr);
    virtual void OnInitialUpdate() { OnUpdate(nullptr, 0, nullptr); }
    // The commands to print and to look at the pages first, for the message map of a program's own view class
    afx_msg void OnFilePrint();
    afx_msg void OnFilePrintPreview();

protected:
    CView() = default;
    ~CView() override;

    virtual void OnActivateView(BOOL bActivate, CView* pActivateView, CView* pDeactiveView);
    virtual void OnActivateFrame(UINT, CFrameWnd*) {}
    virtual void OnUpdate(CView* pSender, LPARAM lHint, CObject* pHint);
    virtual void OnDraw(CDC* pDC) = 0;

    // Printing. OnPreparePrinting calls DoPreparePrinting, which asks the user and finds the printer; FALSE ends it.
    virtual BOOL OnPreparePrinting(CPrintInfo*) { return FALSE; }
    BOOL DoPreparePrinting(CPrintInfo* pInfo);
    virtual void OnBeginPrinting(CDC*, CPrintInfo*) {}
    virtual void OnPrint(CDC* pDC, CPrintInfo* pInfo);
    virtual void OnEndPrinting(CDC*, CPrintInfo*) {}

    void PostNcDestroy() override { delete this; }

    afx_msg int OnCreate(LPCREATESTRUCT lpcs);
    afx_msg void OnDestroy();
    afx_msg void OnPaint();
    afx_msg int OnMouseActivate(CWnd* pDesktopWnd, UINT nHitTest, UINT message);
    afx_msg LRESULT OnInitialUpdateMessage(WPARAM, LPARAM);
    DECLARE_MESSAGE_MAP()

    CDocument* m_pDocument = nullptr;

private:
    friend class CDocument;
    friend class CFrameWnd;
    friend class CPreviewView;
    BOOL PrintPages(CDC* pDC, CPrintInfo* pInfo);
};

// The part of a text that is ended by the separator, counted from 0; FALSE, and empty, when there is none.
BOOL AfxExtractSubString(CString& rString, LPCTSTR lpszFullString, int iSubString, TCHAR chSep = '\n');
