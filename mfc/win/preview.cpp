// Print preview: takes the frame's view pane and shows, one or two at a time, the pages that the view would print.
#include "afximpl.h"

#include <afxext.h>
#include <afxpriv.h>

#include <algorithm>
#include <iterator>

namespace {

constexpr int kBarHeight = 32; // of the buttons' strip; pixels
constexpr int kButtonTop = 4;
constexpr int kButtonHeight = 24;
constexpr int kButtonWidth = 84;
constexpr int kButtonGap = 4;
constexpr int kPageGap = 14; // around and between pages
constexpr int kShadow = 3;
constexpr COLORREF kDesk = RGB(128, 128, 128);
constexpr COLORREF kShadowColor = RGB(64, 64, 64);
constexpr COLORREF kPaper = RGB(255, 255, 255);
constexpr int kZoomPercent[] = {100, 165, 270}; // of the size at which the whole page is seen
constexpr int kScrollLine = 24;
const CSize kA4(2100, 2970); // tenths of a millimetre: where there is no printer
constexpr int kTenthsPerInch = 254;
constexpr int kHundredthsPerMillimetre = 100;

struct ButtonRow
{
    UINT id;
    const char* text;
};
constexpr ButtonRow kButtons[] = {{AFX_ID_PREVIEW_PRINT, "&Print..."}, {AFX_ID_PREVIEW_NEXT, "&Next Page"},
                                  {AFX_ID_PREVIEW_PREV, "Pre&v Page"}, {AFX_ID_PREVIEW_NUMPAGE, "&Two Page"},
                                  {AFX_ID_PREVIEW_ZOOMIN, "Zoom &In"}, {AFX_ID_PREVIEW_ZOOMOUT, "Zoom &Out"},
                                  {AFX_ID_PREVIEW_CLOSE, "&Close"}};

} // namespace

IMPLEMENT_DYNCREATE(CPreviewView, CView)

BEGIN_MESSAGE_MAP(CPreviewView, CView)
ON_WM_DESTROY()
ON_WM_SIZE()
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_HSCROLL()
ON_WM_VSCROLL()
ON_WM_LBUTTONDOWN()
ON_WM_MOUSEWHEEL()
ON_COMMAND(AFX_ID_PREVIEW_CLOSE, &CPreviewView::OnPreviewClose)
ON_COMMAND(AFX_ID_PREVIEW_PRINT, &CPreviewView::OnPreviewPrint)
ON_COMMAND(AFX_ID_PREVIEW_NEXT, &CPreviewView::OnNextPage)
ON_COMMAND(AFX_ID_PREVIEW_PREV, &CPreviewView::OnPrevPage)
ON_COMMAND(AFX_ID_PREVIEW_NUMPAGE, &CPreviewView::OnNumPageChange)
ON_COMMAND(AFX_ID_PREVIEW_ZOOMIN, &CPreviewView::OnZoomIn)
ON_COMMAND(AFX_ID_PREVIEW_ZOOMOUT, &CPreviewView::OnZoomOut)
END_MESSAGE_MAP()

// ---- From the view to its preview and back

void CView::OnFilePrintPreview()
{
    CFrameWnd* pFrame = GetParentFrame();
    if (pFrame && !CPreviewView::Open(this, pFrame)) {
        AfxMessageBox(AfxTranslated("The pages cannot be shown."), MB_OK | MB_ICONEXCLAMATION);
    }
}

BOOL CPreviewView::Open(CView* pPrintView, CFrameWnd* pFrame)
{
    auto* pPreview = new CPreviewView;
    CCreateContext context;
    context.m_pCurrentFrame = pFrame;
    if (!pPreview->Prepare(pPrintView)) {
        delete pPreview;
        return FALSE;
    }
    const UINT nPane = static_cast<UINT>(pPrintView->GetDlgCtrlID());
    if (!pPreview->Create(nullptr, nullptr, WS_CHILD | WS_CLIPCHILDREN, CRect(0, 0, 0, 0), pFrame, AFX_IDW_PREVIEW,
                          &context)) {
        return FALSE; // it has deleted itself
    }
    pPreview->TakeFrame(pFrame, nPane);
    return TRUE;
}

// Asks the view what it prints; without a printer its pages are those of A4 paper.
BOOL CPreviewView::Prepare(CView* pPrintView)
{
    m_pPrintView = pPrintView;
    m_info.m_bPreview = TRUE;
    if (!pPrintView->OnPreparePrinting(&m_info)) {
        CPrintDialog defaults(FALSE, PD_NOWARNING);
        if (defaults.GetDefaults()) {
            ::DeleteDC(defaults.m_pd.hDC);
            return FALSE; // there is a printer: the view does not want to print
        }
    }
    if (!m_info.m_pPD->m_pd.hDC) {
        m_info.m_pPD->m_pd.hDC = ::CreateIC("DISPLAY", nullptr, nullptr, nullptr);
    }
    const HDC device = m_info.m_pPD->m_pd.hDC;
    const CSize dpi(::GetDeviceCaps(device, LOGPIXELSX), ::GetDeviceCaps(device, LOGPIXELSY));
    if (::GetDeviceCaps(device, TECHNOLOGY) == DT_RASDISPLAY) {
        CSize paper = kA4;
        const CWinApp* pApp = AfxGetApp();
        const HANDLE hMode = pApp ? pApp->GetPrinterMode() : nullptr;
        if (hMode) {
            if (static_cast<const DEVMODE*>(::GlobalLock(hMode))->dmOrientation == DMORIENT_LANDSCAPE) {
                std::swap(paper.cx, paper.cy);
            }
            ::GlobalUnlock(hMode);
        }
        m_sheet = CSize(::MulDiv(paper.cx, dpi.cx, kTenthsPerInch), ::MulDiv(paper.cy, dpi.cy, kTenthsPerInch));
        m_area.SetRect(0, 0, m_sheet.cx, m_sheet.cy);
    } else {
        m_area.SetRect(0, 0, ::GetDeviceCaps(device, HORZRES), ::GetDeviceCaps(device, VERTRES));
        m_sheet = CSize(::GetDeviceCaps(device, PHYSICALWIDTH), ::GetDeviceCaps(device, PHYSICALHEIGHT));
        m_offset = CPoint(::GetDeviceCaps(device, PHYSICALOFFSETX), ::GetDeviceCaps(device, PHYSICALOFFSETY));
        if (m_sheet.cx <= 0 || m_sheet.cy <= 0) {
            m_sheet = m_area.Size();
        }
    }
    m_dpi = dpi;
    m_info.m_rectDraw = m_area;
    CDC dc;
    dc.Attach(device);
    dc.m_bPrinting = TRUE;
    pPrintView->OnBeginPrinting(&dc, &m_info);
    dc.Detach();
    m_hasBegun = true;
    m_page = m_info.GetMinPage();
    return TRUE;
}

void CPreviewView::TakeFrame(CFrameWnd* pFrame, UINT nPane)
{
    m_nPane = nPane;
    m_hMenu = ::GetMenu(pFrame->m_hWnd);
    m_hAccel = pFrame->m_hAccelTable;
    pFrame->m_hAccelTable = nullptr;
    ::SetMenu(pFrame->m_hWnd, nullptr);
    for (HWND hWnd = ::GetTopWindow(pFrame->m_hWnd); hWnd; hWnd = ::GetWindow(hWnd, GW_HWNDNEXT)) {
        const bool stays = hWnd == m_hWnd || ::GetDlgCtrlID(hWnd) == AFX_IDW_STATUS_BAR;
        if (!stays && (::GetWindowLong(hWnd, GWL_STYLE) & WS_VISIBLE) != 0) {
            m_hidden.push_back(hWnd);
        }
    }
    for (HWND hWnd : m_hidden) {
        ::ShowWindow(hWnd, SW_HIDE);
    }
    m_pPrintView->SetDlgCtrlID(AFX_IDW_PREVIEW);
    SetDlgCtrlID(static_cast<int>(nPane));
    CreateButtons();
    pFrame->SetActiveView(this);
    pFrame->RecalcLayout();
    ShowWindow(SW_SHOW);
    SetFocus();
    ShowPages(m_page);
}

void CPreviewView::GiveFrameBack()
{
    CFrameWnd* pFrame = GetParentFrame();
    CView* pView = m_pPrintView;
    if (!pFrame || !::IsWindow(m_hPrintView) || m_hMenu == kGivenBack) {
        return;
    }
    ShowWindow(SW_HIDE);
    SetDlgCtrlID(AFX_IDW_PREVIEW);
    pView->SetDlgCtrlID(static_cast<int>(m_nPane));
    for (HWND hWnd : m_hidden) {
        if (::IsWindow(hWnd)) {
            ::ShowWindow(hWnd, SW_SHOWNA);
        }
    }
    ::SetMenu(pFrame->m_hWnd, m_hMenu);
    m_hMenu = kGivenBack;
    pFrame->m_hAccelTable = m_hAccel;
    pFrame->SetActiveView(pView);
    pFrame->SetMessageText(AFX_IDS_IDLEMESSAGE);
    pFrame->RecalcLayout();
    pView->SetFocus();
}

void CPreviewView::CreateButtons()
{
    int left = kButtonGap;
    for (std::size_t i = 0; i < std::size(kButtons); ++i) {
        m_buttons[i].Create("", WS_CHILD | WS_VISIBLE | WS_TABSTOP,
                            CRect(left, kButtonTop, left + kButtonWidth, kButtonTop + kButtonHeight), this,
                            kButtons[i].id);
        m_buttons[i].SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(::GetStockObject(DEFAULT_GUI_FONT)), FALSE);
        AfxSetWideText(m_buttons[i], AfxTranslate(kButtons[i].text));
        left += kButtonWidth + kButtonGap;
    }
    m_hPrintView = m_pPrintView->m_hWnd;
}

void CPreviewView::OnDestroy()
{
    ForgetPages();
    if (m_hasBegun && ::IsWindow(m_pPrintView->m_hWnd)) {
        m_hasBegun = false;
        CDC dc;
        dc.Attach(m_info.m_pPD->m_pd.hDC);
        m_pPrintView->OnEndPrinting(&dc, &m_info);
        dc.Detach();
    }
    CView::OnDestroy();
}

// ---- Pages

void CPreviewView::ForgetPages()
{
    for (HENHMETAFILE& page : m_pages) {
        ::DeleteEnhMetaFile(page);
        page = nullptr;
    }
}

// What the view prints on that page, nullptr: there is none.
HENHMETAFILE CPreviewView::RecordPage(UINT page)
{
    if (page < m_info.GetMinPage() || page > m_info.GetMaxPage()) {
        return nullptr;
    }
    const HDC device = m_info.m_pPD->m_pd.hDC;
    // A metafile measures by the size that the device says it has, which on a screen is not what its dots an inch say.
    const RECT frame = {0, 0,
                        ::MulDiv(m_area.Width(), ::GetDeviceCaps(device, HORZSIZE) * kHundredthsPerMillimetre,
                                 ::GetDeviceCaps(device, HORZRES)),
                        ::MulDiv(m_area.Height(), ::GetDeviceCaps(device, VERTSIZE) * kHundredthsPerMillimetre,
                                 ::GetDeviceCaps(device, VERTRES))};
    CDC dc;
    dc.Attach(::CreateEnhMetaFile(device, nullptr, &frame, nullptr));
    dc.SetAttribDC(device);
    dc.m_bPrinting = TRUE;
    m_info.m_nCurPage = page;
    m_info.m_bContinuePrinting = TRUE;
    m_info.m_rectDraw = m_area;
    m_pPrintView->OnPrepareDC(&dc, &m_info);
    const bool isThere = m_info.m_bContinuePrinting != FALSE;
    if (isThere) {
        m_pPrintView->OnPrint(&dc, &m_info);
    }
    dc.ReleaseAttribDC();
    const HENHMETAFILE file = ::CloseEnhMetaFile(dc.Detach());
    if (!isThere) {
        ::DeleteEnhMetaFile(file);
        return nullptr;
    }
    return file;
}

void CPreviewView::ShowPages(UINT first)
{
    CWaitCursor wait;
    HENHMETAFILE page = RecordPage(first);
    if (!page) {
        return;
    }
    ForgetPages();
    m_page = first;
    m_pages[0] = page;
    m_pages[1] = m_isTwoPages ? RecordPage(first + 1) : nullptr;
    Layout();
    const bool hasNext = first + (m_isTwoPages ? 2 : 1) <= m_info.GetMaxPage();
    EnableButton(AFX_ID_PREVIEW_NEXT, hasNext);
    EnableButton(AFX_ID_PREVIEW_PREV, first > m_info.GetMinPage());
    EnableButton(AFX_ID_PREVIEW_ZOOMIN, m_zoom + 1 < static_cast<int>(std::size(kZoomPercent)));
    EnableButton(AFX_ID_PREVIEW_ZOOMOUT, m_zoom > 0);
    AfxSetWideText(::GetDlgItem(m_hWnd, AFX_ID_PREVIEW_NUMPAGE),
                   AfxTranslate(m_isTwoPages ? "&One Page" : "&Two Page"));
    CString form, text;
    AfxExtractSubString(form, m_info.m_strPageDesc, m_pages[1] ? 1 : 0);
    text.Format(AfxTranslated(form), first, first + 1);
    if (CFrameWnd* pFrame = GetParentFrame()) {
        pFrame->SetMessageText(text);
    }
}

void CPreviewView::EnableButton(UINT nID, bool isEnabled)
{
    const HWND button = ::GetDlgItem(m_hWnd, static_cast<int>(nID));
    if (!isEnabled && ::GetFocus() == button) {
        SetFocus();
    }
    ::EnableWindow(button, isEnabled);
}

// ---- Layout and paint

// Where the sheets lie, in client pixels before scrolling.
void CPreviewView::Layout()
{
    CRect client;
    GetClientRect(&client);
    client.top += kBarHeight;
    const int count = m_isTwoPages ? 2 : 1;
    const CSize room(std::max<int>(client.Width() - (count + 1) * kPageGap, count) / count,
                     std::max<int>(client.Height() - 2 * kPageGap, 1));
    CSize size(room.cx, ::MulDiv(room.cx, m_sheet.cy * m_dpi.cx, std::max<int>(m_sheet.cx * m_dpi.cy, 1)));
    if (size.cy > room.cy) {
        size = CSize(::MulDiv(room.cy, m_sheet.cx * m_dpi.cy, std::max<int>(m_sheet.cy * m_dpi.cx, 1)), room.cy);
    }
    size = CSize(std::max<int>(size.cx * kZoomPercent[m_zoom] / 100, 1),
                 std::max<int>(size.cy * kZoomPercent[m_zoom] / 100, 1));
    const CSize all(count * (size.cx + kPageGap) + kPageGap, size.cy + 2 * kPageGap);
    int left = std::max<int>((client.Width() - all.cx) / 2, 0) + kPageGap;
    const int top = client.top + std::max<int>((client.Height() - all.cy) / 2, 0) + kPageGap;
    for (CRect& place : m_places) {
        place = CRect(left, top, left + size.cx, top + size.cy);
        left += size.cx + kPageGap;
    }
    SetScroll(SB_HORZ, all.cx, client.Width());
    SetScroll(SB_VERT, all.cy, client.Height());
    Invalidate(FALSE);
}

void CPreviewView::SetScroll(int nBar, int nAll, int nSeen)
{
    SCROLLINFO info = {};
    info.cbSize = sizeof(info);
    info.fMask = SIF_RANGE | SIF_PAGE;
    info.nMax = std::max(nAll - 1, 0);
    info.nPage = static_cast<UINT>(std::max(nSeen, 0));
    ::SetScrollInfo(m_hWnd, nBar, &info, TRUE);
}

void CPreviewView::OnSize(UINT nType, int cx, int cy)
{
    CView::OnSize(nType, cx, cy);
    if (m_pages[0] && !m_isInSize) { // showing or hiding a scroll bar sizes again
        m_isInSize = true;
        Layout();
        m_isInSize = false;
    }
}

BOOL CPreviewView::OnEraseBkgnd(CDC*)
{
    return TRUE;
}

void CPreviewView::OnPaint()
{
    CPaintDC target(this);
    CRect client;
    GetClientRect(&client);
    CDC memory;
    CBitmap bitmap;
    if (!memory.CreateCompatibleDC(&target) ||
        !bitmap.CreateCompatibleBitmap(&target, std::max<int>(client.Width(), 1), std::max<int>(client.Height(), 1))) {
        return;
    }
    CBitmap* pOld = memory.SelectObject(&bitmap);
    memory.FillSolidRect(&client, kDesk);
    const CPoint scrolled(::GetScrollPos(m_hWnd, SB_HORZ), ::GetScrollPos(m_hWnd, SB_VERT));
    for (int i = 0; i < 2; ++i) {
        if (m_pages[i]) {
            DrawSheet(memory, m_pages[i], m_places[i] - scrolled);
        }
    }
    memory.FillSolidRect(0, 0, client.Width(), kBarHeight, ::GetSysColor(COLOR_BTNFACE));
    target.BitBlt(0, 0, client.Width(), client.Height(), &memory, 0, 0, SRCCOPY);
    memory.SelectObject(pOld);
}

void CPreviewView::DrawSheet(CDC& dc, HENHMETAFILE page, const CRect& place)
{
    dc.FillSolidRect(place + CPoint(kShadow, kShadow), kShadowColor);
    dc.FillSolidRect(&place, kPaper);
    CRect area(place.left + ::MulDiv(m_offset.x, place.Width(), m_sheet.cx),
               place.top + ::MulDiv(m_offset.y, place.Height(), m_sheet.cy), 0, 0);
    area.right = area.left + ::MulDiv(m_area.Width(), place.Width(), m_sheet.cx);
    area.bottom = area.top + ::MulDiv(m_area.Height(), place.Height(), m_sheet.cy);
    const int saved = dc.SaveDC();
    dc.IntersectClipRect(&place);
    ::PlayEnhMetaFile(dc, page, &area);
    dc.RestoreDC(saved);
}

// ---- Commands

void CPreviewView::OnPreviewClose()
{
    GiveFrameBack();
    DestroyWindow();
}

void CPreviewView::OnPreviewPrint()
{
    const HWND view = m_hPrintView;
    OnPreviewClose();
    if (::IsWindow(view)) {
        ::SendMessage(::GetAncestor(view, GA_ROOT), WM_COMMAND, ID_FILE_PRINT, 0);
    }
}

void CPreviewView::OnNextPage()
{
    if (m_page + (m_isTwoPages ? 2 : 1) <= m_info.GetMaxPage()) {
        ShowPages(m_page + 1);
    }
}

void CPreviewView::OnPrevPage()
{
    if (m_page > m_info.GetMinPage()) {
        ShowPages(m_page - 1);
    }
}

void CPreviewView::OnNumPageChange()
{
    m_isTwoPages = !m_isTwoPages;
    m_zoom = 0;
    ShowPages(m_page);
}

void CPreviewView::Zoom(int nState)
{
    const int zoom = std::clamp(nState, 0, static_cast<int>(std::size(kZoomPercent)) - 1);
    if (zoom != m_zoom) {
        m_zoom = zoom;
        m_isTwoPages = m_isTwoPages && zoom == 0;
        ::SetScrollPos(m_hWnd, SB_HORZ, 0, FALSE);
        ::SetScrollPos(m_hWnd, SB_VERT, 0, FALSE);
        ShowPages(m_page);
    }
}

void CPreviewView::Scroll(int nBar, UINT nCode)
{
    SCROLLINFO info = {};
    info.cbSize = sizeof(info);
    info.fMask = SIF_ALL;
    ::GetScrollInfo(m_hWnd, nBar, &info);
    const int page = static_cast<int>(info.nPage);
    int pos = info.nPos;
    switch (nCode) {
    case SB_LINEUP:
        pos -= kScrollLine;
        break;
    case SB_LINEDOWN:
        pos += kScrollLine;
        break;
    case SB_PAGEUP:
        pos -= page;
        break;
    case SB_PAGEDOWN:
        pos += page;
        break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        pos = info.nTrackPos;
        break;
    case SB_TOP:
        pos = 0;
        break;
    case SB_BOTTOM:
        pos = info.nMax;
        break;
    }
    ::SetScrollPos(m_hWnd, nBar, std::clamp(pos, 0, std::max(info.nMax - page + 1, 0)), TRUE);
    Invalidate(FALSE);
}

void CPreviewView::OnHScroll(UINT nSBCode, UINT, CScrollBar*)
{
    Scroll(SB_HORZ, nSBCode);
}

void CPreviewView::OnVScroll(UINT nSBCode, UINT, CScrollBar*)
{
    Scroll(SB_VERT, nSBCode);
}

// A click on a page brings it nearer, and at the largest size away again.
void CPreviewView::OnLButtonDown(UINT, CPoint point)
{
    SetFocus();
    const CPoint place = point + CPoint(::GetScrollPos(m_hWnd, SB_HORZ), ::GetScrollPos(m_hWnd, SB_VERT));
    for (int i = 0; i < 2; ++i) {
        if (m_pages[i] && m_places[i].PtInRect(place)) {
            m_page += static_cast<UINT>(i);
            Zoom(m_zoom + 1 < static_cast<int>(std::size(kZoomPercent)) ? m_zoom + 1 : 0);
            return;
        }
    }
}

BOOL CPreviewView::OnMouseWheel(UINT nFlags, short zDelta, CPoint)
{
    if ((nFlags & MK_CONTROL) != 0) {
        Zoom(zDelta > 0 ? m_zoom + 1 : m_zoom - 1);
    } else if (m_zoom > 0) {
        Scroll(SB_VERT, zDelta > 0 ? SB_LINEUP : SB_LINEDOWN);
    } else if (zDelta > 0) {
        OnPrevPage();
    } else {
        OnNextPage();
    }
    return TRUE;
}

BOOL CPreviewView::PreTranslateMessage(MSG* pMsg)
{
    if (pMsg->message == WM_KEYDOWN) {
        switch (pMsg->wParam) {
        case VK_ESCAPE:
            OnPreviewClose();
            return TRUE;
        case VK_NEXT:
            OnNextPage();
            return TRUE;
        case VK_PRIOR:
            OnPrevPage();
            return TRUE;
        case VK_HOME:
            ShowPages(m_info.GetMinPage());
            return TRUE;
        case VK_END:
            ShowPages(m_info.GetMaxPage());
            return TRUE;
        case VK_ADD:
        case VK_OEM_PLUS:
            Zoom(m_zoom + 1);
            return TRUE;
        case VK_SUBTRACT:
        case VK_OEM_MINUS:
            Zoom(m_zoom - 1);
            return TRUE;
        case VK_UP:
        case VK_DOWN:
            Scroll(SB_VERT, pMsg->wParam == VK_UP ? SB_LINEUP : SB_LINEDOWN);
            return TRUE;
        }
    }
    // The buttons' letters and the Tab key work as in a dialog.
    return (pMsg->message >= WM_KEYFIRST && pMsg->message <= WM_KEYLAST && ::IsDialogMessage(m_hWnd, pMsg)) ||
           CView::PreTranslateMessage(pMsg);
}
