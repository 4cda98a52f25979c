// Messages that frames, bars and views send each other, and the print preview.
#pragma once

#include <afxext.h>

#include <string>
#include <vector>

#define WM_SIZEPARENT 0x0361       // lParam AFX_SIZEPARENTPARAMS*: a bar takes its place at an edge of the rectangle
#define WM_SETMESSAGESTRING 0x0362 // wParam string identifier, or 0 and lParam text: the frame's message line
#define WM_IDLEUPDATECMDUI 0x0363  // wParam: disable what nobody handles. Bars bring their buttons up to date
#define WM_INITIALUPDATE 0x0364    // views get their first OnInitialUpdate

struct AFX_SIZEPARENTPARAMS
{
    RECT rect;   // what is left of the parent's client area
    BOOL bPlace; // FALSE: only compute
};

// What the framework shows of itself in another language: print preview and the window of a print job. The function
// gets the English text and returns that of the program's language; none: English.
typedef std::wstring (*AFX_TRANSLATOR)(LPCTSTR lpszEnglish);
void AfxSetTranslator(AFX_TRANSLATOR pTranslator);
std::wstring AfxTranslate(LPCTSTR lpszEnglish);
CString AfxTranslated(LPCTSTR lpszEnglish); // in the system's code page
void AfxSetWideText(HWND hWnd, const std::wstring& text);

// What is seen while a job is printed: document, printer, page and a button that cancels it. Its owner is disabled
// until it is closed.
class CPrintingDialog : public CWnd
{
public:
    ~CPrintingDialog() override;
    BOOL Open(CWnd* pView, LPCTSTR lpszDocument, LPCTSTR lpszPrinter);
    void Close();
    // These two handle the messages that wait. FALSE: the user has cancelled the job, or the view is gone.
    BOOL ShowPage(UINT nPage, UINT nLast);
    BOOL Pump();
    BOOL IsCancelled() const { return m_isCancelled; }
    BOOL IsViewGone() const { return !::IsWindow(m_hView); }

protected:
    afx_msg void OnCancel();
    afx_msg void OnClose();
    DECLARE_MESSAGE_MAP()

private:
    HWND m_hView = nullptr;
    HWND m_hOwner = nullptr;
    bool m_isDisabling = false;
    bool m_isCancelled = false;
};

// Commands of the print preview
#define AFX_ID_PREVIEW_CLOSE 0xE700
#define AFX_ID_PREVIEW_NUMPAGE 0xE701 // one page or two
#define AFX_ID_PREVIEW_NEXT 0xE702
#define AFX_ID_PREVIEW_PREV 0xE703
#define AFX_ID_PREVIEW_PRINT 0xE704
#define AFX_ID_PREVIEW_ZOOMIN 0xE705
#define AFX_ID_PREVIEW_ZOOMOUT 0xE706

// The view that stands in for another one while the pages that this prints are looked at. It takes the frame's menu,
// keys and bars away, but for the status bar, and gives them back when it is closed. Keys: Page Up and Down, Home and
// End, + and -, Escape.
class CPreviewView : public CView
{
    DECLARE_DYNCREATE(CPreviewView)
public:
    // FALSE: the view does not want to print.
    static BOOL Open(CView* pPrintView, CFrameWnd* pFrame);

    UINT GetPage() const { return m_page; } // the (first) page that is shown
    int GetShownPages() const { return (m_pages[0] ? 1 : 0) + (m_pages[1] ? 1 : 0); }
    int GetZoom() const { return m_zoom; }                         // 0: the whole page is seen
    CRect GetPageRect(int nPage) const { return m_places[nPage]; } // client pixels before scrolling
    BOOL PreTranslateMessage(MSG* pMsg) override;

    afx_msg void OnPreviewClose(); // the object is gone afterwards
    afx_msg void OnPreviewPrint(); // likewise
    afx_msg void OnNextPage();
    afx_msg void OnPrevPage();
    afx_msg void OnNumPageChange();
    afx_msg void OnZoomIn() { Zoom(m_zoom + 1); }
    afx_msg void OnZoomOut() { Zoom(m_zoom - 1); }

protected:
    void OnDraw(CDC*) override {}
    void OnUpdate(CView*, LPARAM, CObject*) override {}

    afx_msg void OnDestroy();
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
    DECLARE_MESSAGE_MAP()

private:
    enum
    {
        AFX_IDW_PREVIEW = 0xE9FE, // the pane that is not shown
        ButtonCount = 7
    };
    static inline const HMENU kGivenBack = reinterpret_cast<HMENU>(static_cast<INT_PTR>(-1));

    BOOL Prepare(CView* pPrintView);
    void TakeFrame(CFrameWnd* pFrame, UINT nPane);
    void GiveFrameBack();
    void CreateButtons();
    void EnableButton(UINT nID, bool isEnabled);
    void ForgetPages();
    HENHMETAFILE RecordPage(UINT page);
    void ShowPages(UINT first);
    void Layout();
    void SetScroll(int nBar, int nAll, int nSeen);
    void Scroll(int nBar, UINT nCode);
    void Zoom(int nState);
    void DrawSheet(CDC& dc, HENHMETAFILE page, const CRect& place);

    CView* m_pPrintView = nullptr;
    HWND m_hPrintView = nullptr;
    CPrintInfo m_info;
    bool m_hasBegun = false;          // OnEndPrinting is due
    CSize m_sheet = CSize(1, 1);      // device pixels, as the next two
    CRect m_area = CRect(0, 0, 1, 1); // that can be printed on
    CPoint m_offset = CPoint(0, 0);   // of that area on the sheet
    CSize m_dpi = CSize(1, 1);

    UINT m_page = 1;
    HENHMETAFILE m_pages[2] = {nullptr, nullptr};
    CRect m_places[2];
    bool m_isTwoPages = false;
    int m_zoom = 0;
    bool m_isInSize = false;
    CButton m_buttons[ButtonCount];

    // Of the frame
    UINT m_nPane = 0;
    HMENU m_hMenu = nullptr;
    HACCEL m_hAccel = nullptr;
    std::vector<HWND> m_hidden;
};
