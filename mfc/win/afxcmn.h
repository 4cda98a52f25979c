// Common controls: image lists, tool bars, status bars, tool tips.
#pragma once

#include <afxwin.h>
#include <commctrl.h>

// A list of equally large pictures. Owns its handle.
class CImageList : public CObject
{
    DECLARE_DYNCREATE(CImageList)
public:
    CImageList() = default;
    ~CImageList() override { DeleteImageList(); }
    CImageList(const CImageList&) = delete;
    CImageList& operator=(const CImageList&) = delete;

    HIMAGELIST m_hImageList = nullptr;
    operator HIMAGELIST() const { return m_hImageList; }
    HIMAGELIST GetSafeHandle() const { return m_hImageList; }

    BOOL Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow);
    BOOL Create(CImageList* pImageList); // a copy of the other list
    BOOL Attach(HIMAGELIST hImageList);
    HIMAGELIST Detach();
    BOOL DeleteImageList();

    int GetImageCount() const { return ::ImageList_GetImageCount(m_hImageList); }
    BOOL GetImageInfo(int nImage, IMAGEINFO* pImageInfo) const
    {
        return ::ImageList_GetImageInfo(m_hImageList, nImage, pImageInfo);
    }
    int Add(CBitmap* pbmImage, CBitmap* pbmMask)
    {
        return ::ImageList_Add(m_hImageList, *pbmImage, pbmMask ? static_cast<HBITMAP>(*pbmMask) : nullptr);
    }
    int Add(CBitmap* pbmImage, COLORREF crMask) { return ::ImageList_AddMasked(m_hImageList, *pbmImage, crMask); }
    int Add(HICON hIcon) { return ::ImageList_AddIcon(m_hImageList, hIcon); }
    BOOL Remove(int nImage) { return ::ImageList_Remove(m_hImageList, nImage); }
    COLORREF SetBkColor(COLORREF cr) { return ::ImageList_SetBkColor(m_hImageList, cr); }
    // A copy of the image as an icon; the caller destroys it.
    HICON ExtractIcon(int nImage) { return ::ImageList_GetIcon(m_hImageList, nImage, ILD_NORMAL); }
    BOOL Draw(CDC* pDC, int nImage, POINT pt, UINT nStyle)
    {
        return ::ImageList_Draw(m_hImageList, nImage, pDC->GetSafeHdc(), pt.x, pt.y, nStyle);
    }
};

class CToolBarCtrl : public CWnd
{
    DECLARE_DYNAMIC(CToolBarCtrl)
public:
    CToolBarCtrl() = default;
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    BOOL AddButtons(int nNumButtons, TBBUTTON* lpButtons);
    int AddBitmap(int nNumButtons, CBitmap* pBitmap);
    // Texts one after the other, each ended by a zero, with another zero at the end; answers the first one's index.
    int AddStrings(LPCTSTR lpszStrings)
    {
        return static_cast<int>(SendMessage(TB_ADDSTRING, 0, reinterpret_cast<LPARAM>(lpszStrings)));
    }
    int GetButtonCount() const { return static_cast<int>(SendMessage(TB_BUTTONCOUNT)); }
    BOOL GetButton(int nIndex, TBBUTTON* lpButton) const
    {
        return SendMessage(TB_GETBUTTON, nIndex, reinterpret_cast<LPARAM>(lpButton)) != 0;
    }
    BOOL DeleteButton(int nIndex) { return SendMessage(TB_DELETEBUTTON, nIndex) != 0; }
    UINT CommandToIndex(UINT nID) const { return static_cast<UINT>(SendMessage(TB_COMMANDTOINDEX, nID)); }
    BOOL EnableButton(int nID, BOOL bEnable = TRUE) { return SendMessage(TB_ENABLEBUTTON, nID, bEnable) != 0; }
    BOOL CheckButton(int nID, BOOL bCheck = TRUE) { return SendMessage(TB_CHECKBUTTON, nID, bCheck) != 0; }
    BOOL IsButtonChecked(int nID) const { return SendMessage(TB_ISBUTTONCHECKED, nID) != 0; }
    BOOL IsButtonEnabled(int nID) const { return SendMessage(TB_ISBUTTONENABLED, nID) != 0; }
    BOOL SetButtonInfo(int nID, TBBUTTONINFO* ptbbi)
    {
        return SendMessage(TB_SETBUTTONINFO, nID, reinterpret_cast<LPARAM>(ptbbi)) != 0;
    }
    BOOL GetItemRect(int nIndex, LPRECT lpRect) const
    {
        return SendMessage(TB_GETITEMRECT, nIndex, reinterpret_cast<LPARAM>(lpRect)) != 0;
    }
    BOOL SetButtonSize(CSize size) { return SendMessage(TB_SETBUTTONSIZE, 0, MAKELPARAM(size.cx, size.cy)) != 0; }
    BOOL SetBitmapSize(CSize size) { return SendMessage(TB_SETBITMAPSIZE, 0, MAKELPARAM(size.cx, size.cy)) != 0; }
    void AutoSize() { SendMessage(TB_AUTOSIZE); }
};

class CStatusBarCtrl : public CWnd
{
    DECLARE_DYNAMIC(CStatusBarCtrl)
public:
    CStatusBarCtrl() = default;
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    BOOL SetParts(int nParts, int* pWidths)
    {
        return SendMessage(SB_SETPARTS, nParts, reinterpret_cast<LPARAM>(pWidths)) != 0;
    }
    BOOL SetText(LPCTSTR lpszText, int nPane, int nType)
    {
        return SendMessage(SB_SETTEXT, nPane | nType, reinterpret_cast<LPARAM>(lpszText)) != 0;
    }
    CString GetText(int nPane) const;
    BOOL GetRect(int nPane, LPRECT lpRect) const
    {
        return SendMessage(SB_GETRECT, nPane, reinterpret_cast<LPARAM>(lpRect)) != 0;
    }
};

class CToolTipCtrl : public CWnd
{
    DECLARE_DYNAMIC(CToolTipCtrl)
public:
    CToolTipCtrl() = default;
    virtual BOOL Create(CWnd* pParentWnd, DWORD dwStyle = 0);
    // For a whole window when there is no rectangle. Text LPSTR_TEXTCALLBACK: the window is asked (TTN_NEEDTEXT).
    BOOL AddTool(CWnd* pWnd, LPCTSTR lpszText = LPSTR_TEXTCALLBACK, LPCRECT lpRectTool = nullptr, UINT_PTR nIDTool = 0);
    void DelTool(CWnd* pWnd, UINT_PTR nIDTool = 0);
    void UpdateTipText(LPCTSTR lpszText, CWnd* pWnd, UINT_PTR nIDTool = 0);
    void Activate(BOOL bActivate) { SendMessage(TTM_ACTIVATE, bActivate); }
    void RelayEvent(LPMSG lpMsg) { SendMessage(TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(lpMsg)); }
    void SetDelayTime(UINT nDelay) { SendMessage(TTM_SETDELAYTIME, TTDT_AUTOMATIC, nDelay); }
    int SetMaxTipWidth(int iWidth) { return static_cast<int>(SendMessage(TTM_SETMAXTIPWIDTH, 0, iWidth)); }
    void Pop() { SendMessage(TTM_POP); }
};
