// What goes with frames and views: the context of their creation, bars, and the state of a print job.
#pragma once

#include <afxcmn.h>
#include <afxdlgs.h>
#include <afxwin.h>

// What a frame or view is created for: lpCreateParams of its creation.
struct CCreateContext
{
    CRuntimeClass* m_pNewViewClass = nullptr;
    CDocument* m_pCurrentDoc = nullptr;
    CDocTemplate* m_pNewDocTemplate = nullptr;
    CView* m_pLastView = nullptr;
    CFrameWnd* m_pCurrentFrame = nullptr;
};

// One print job. Pages are numbered from 1; the last is 0xffff while it is not known.
struct CPrintInfo
{
    CPrintInfo();
    ~CPrintInfo(); // deletes the printer's context
    CPrintInfo(const CPrintInfo&) = delete;
    CPrintInfo& operator=(const CPrintInfo&) = delete;

    CPrintDialog* m_pPD;
    BOOL m_bPreview = FALSE;
    BOOL m_bDirect = FALSE; // without asking
    BOOL m_bContinuePrinting = TRUE;
    UINT m_nCurPage = 1;
    UINT m_nNumPreviewPages = 0;
    CString m_strPageDesc = "Page %u\nPages %u-%u\n";
    LPVOID m_lpUserData = nullptr;
    CRect m_rectDraw; // the page's area, logical units

    void SetMinPage(UINT nMinPage) { m_pPD->m_pd.nMinPage = static_cast<WORD>(nMinPage); }
    void SetMaxPage(UINT nMaxPage) { m_pPD->m_pd.nMaxPage = static_cast<WORD>(nMaxPage); }
    UINT GetMinPage() const { return m_pPD->m_pd.nMinPage; }
    UINT GetMaxPage() const { return m_pPD->m_pd.nMaxPage; }
    UINT GetFromPage() const { return m_pPD->PrintRange() ? m_pPD->m_pd.nFromPage : GetMinPage(); }
    UINT GetToPage() const { return m_pPD->PrintRange() ? m_pPD->m_pd.nToPage : GetMaxPage(); }
};

// Styles of bars: the edge of the frame that they take
#define CBRS_ALIGN_TOP 0x2000L
#define CBRS_ALIGN_BOTTOM 0x8000L
#define CBRS_TOP CBRS_ALIGN_TOP
#define CBRS_BOTTOM CBRS_ALIGN_BOTTOM
#define CBRS_TOOLTIPS 0x0010L
#define CBRS_FLYBY 0x0020L

// A child of the frame at one of its edges
class CControlBar : public CWnd
{
    DECLARE_DYNAMIC(CControlBar)
public:
    DWORD GetBarStyle() const { return m_dwStyle; }
    void SetBarStyle(DWORD dwStyle) { m_dwStyle = dwStyle; }
    BOOL IsVisible() const { return (GetStyle() & WS_VISIBLE) != 0; }
    // The height that the bar needs, pixels.
    virtual CSize CalcFixedLayout(BOOL bStretch, BOOL bHorz);
    // Brings the children's state up to date by asking the target's handlers.
    virtual void OnUpdateCmdUI(CFrameWnd* pTarget, BOOL bDisableIfNoHndler) = 0;

protected:
    BOOL CreateBar(LPCTSTR lpszClassName, DWORD dwExStyle, DWORD dwStyle, CWnd* pParentWnd, UINT nID);
    afx_msg LRESULT OnSizeParent(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnIdleUpdateCmdUI(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

    DWORD m_dwStyle = 0;
};

class CToolBar : public CControlBar
{
    DECLARE_DYNAMIC(CToolBar)
public:
    CToolBar() = default;
    BOOL Create(CWnd* pParentWnd, DWORD dwStyle = WS_CHILD | WS_VISIBLE | CBRS_TOP, UINT nID = AFX_IDW_TOOLBAR)
    {
        return CreateEx(pParentWnd, 0, dwStyle, CRect(0, 0, 0, 0), nID);
    }
    BOOL CreateEx(CWnd* pParentWnd, DWORD dwCtrlStyle = TBSTYLE_FLAT,
                  DWORD dwStyle = WS_CHILD | WS_VISIBLE | CBRS_ALIGN_TOP, CRect rcBorders = CRect(0, 0, 0, 0),
                  UINT nID = AFX_IDW_TOOLBAR);
    // The buttons' commands, ID_SEPARATOR for a gap. Each button shows the next image of the bitmap.
    BOOL SetButtons(const UINT* lpIDArray, int nIDCount);
    BOOL LoadBitmap(UINT nIDResource);
    void SetSizes(SIZE sizeButton, SIZE sizeImage);
    BOOL SetButtonText(int nIndex, LPCTSTR lpszText);
    void SetButtonStyle(int nIndex, UINT nStyle);
    UINT GetItemID(int nIndex) const;
    int CommandToIndex(UINT nIDFind) const;
    void GetItemRect(int nIndex, LPRECT lpRect) const;
    CToolBarCtrl& GetToolBarCtrl() const;

    CSize CalcFixedLayout(BOOL bStretch, BOOL bHorz) override;
    void OnUpdateCmdUI(CFrameWnd* pTarget, BOOL bDisableIfNoHndler) override;

private:
    int m_imageCount = 0;
};

class CStatusBar : public CControlBar
{
    DECLARE_DYNAMIC(CStatusBar)
public:
    CStatusBar() = default;
    BOOL Create(CWnd* pParentWnd, DWORD dwStyle = WS_CHILD | WS_VISIBLE | CBRS_BOTTOM, UINT nID = AFX_IDW_STATUS_BAR);
    // The panes' identifiers; the first stretches over what the others leave. A pane is as wide as its string resource.
    BOOL SetIndicators(const UINT* lpIDArray, int nIDCount);
    void SetPaneInfo(int nIndex, UINT nID, UINT nStyle, int cxWidth);
    BOOL SetPaneText(int nIndex, LPCTSTR lpszNewText, BOOL bUpdate = TRUE);
    CString GetPaneText(int nIndex) const;
    int CommandToIndex(UINT nIDFind) const;

    CSize CalcFixedLayout(BOOL bStretch, BOOL bHorz) override;
    void OnUpdateCmdUI(CFrameWnd* pTarget, BOOL bDisableIfNoHndler) override;

protected:
    afx_msg void OnSize(UINT nType, int cx, int cy);
    DECLARE_MESSAGE_MAP()

private:
    struct Pane
    {
        UINT id = 0;
        int width = 0; // pixels
        CString text;
        bool enabled = true;
    };
    friend class AfxStatusCmdUI;
    void PlacePanes();
    void ShowPane(int nIndex);
    std::vector<Pane> m_panes;
};
