// The system's standard controls as window classes, and dialog boxes.
#pragma once

class CStatic : public CWnd
{
    DECLARE_DYNAMIC(CStatic)
public:
    CStatic() = default;
    virtual BOOL Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID = 0xffff);
    HBITMAP SetBitmap(HBITMAP hBitmap)
    {
        return reinterpret_cast<HBITMAP>(SendMessage(STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(hBitmap)));
    }
    HICON SetIcon(HICON hIcon)
    {
        return reinterpret_cast<HICON>(SendMessage(STM_SETICON, reinterpret_cast<WPARAM>(hIcon)));
    }
    // Overridden by a control of the style SS_OWNERDRAW.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class CButton : public CWnd
{
    DECLARE_DYNAMIC(CButton)
public:
    CButton() = default;
    virtual BOOL Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    UINT GetState() const { return static_cast<UINT>(SendMessage(BM_GETSTATE)); }
    void SetState(BOOL bHighlight) { SendMessage(BM_SETSTATE, bHighlight); }
    int GetCheck() const { return static_cast<int>(SendMessage(BM_GETCHECK)); }
    void SetCheck(int nCheck) { SendMessage(BM_SETCHECK, nCheck); }
    UINT GetButtonStyle() const { return GetStyle() & 0xff; }
    void SetButtonStyle(UINT nStyle, BOOL bRedraw = TRUE) { SendMessage(BM_SETSTYLE, nStyle, bRedraw); }
    HICON SetIcon(HICON hIcon)
    {
        return reinterpret_cast<HICON>(SendMessage(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(hIcon)));
    }
    HBITMAP SetBitmap(HBITMAP hBitmap)
    {
        return reinterpret_cast<HBITMAP>(SendMessage(BM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(hBitmap)));
    }
    // Overridden by a button of the style BS_OWNERDRAW.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class CEdit : public CWnd
{
    DECLARE_DYNAMIC(CEdit)
public:
    CEdit() = default;
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    BOOL CanUndo() const { return SendMessage(EM_CANUNDO) != 0; }
    BOOL Undo() { return SendMessage(EM_UNDO) != 0; }
    int GetLineCount() const { return static_cast<int>(SendMessage(EM_GETLINECOUNT)); }
    BOOL GetModify() const { return SendMessage(EM_GETMODIFY) != 0; }
    void SetModify(BOOL bModified = TRUE) { SendMessage(EM_SETMODIFY, bModified); }
    void GetSel(int& nStartChar, int& nEndChar) const;
    DWORD GetSel() const { return static_cast<DWORD>(SendMessage(EM_GETSEL)); }
    void SetSel(int nStartChar, int nEndChar, BOOL bNoScroll = FALSE);
    void SetSel(DWORD dwSelection, BOOL bNoScroll = FALSE)
    {
        SetSel(static_cast<short>(LOWORD(dwSelection)), static_cast<short>(HIWORD(dwSelection)), bNoScroll);
    }
    void ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo = FALSE)
    {
        SendMessage(EM_REPLACESEL, bCanUndo, reinterpret_cast<LPARAM>(lpszNewText));
    }
    void SetLimitText(UINT nMax) { SendMessage(EM_SETLIMITTEXT, nMax); }
    void LimitText(int nChars = 0) { SendMessage(EM_LIMITTEXT, nChars); }
    void SetMargins(UINT nLeft, UINT nRight)
    {
        SendMessage(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELONG(nLeft, nRight));
    }
    BOOL SetReadOnly(BOOL bReadOnly = TRUE) { return SendMessage(EM_SETREADONLY, bReadOnly) != 0; }
    void SetPasswordChar(TCHAR ch) { SendMessage(EM_SETPASSWORDCHAR, static_cast<BYTE>(ch)); }
    void SetRect(LPCRECT lpRect) { SendMessage(EM_SETRECT, 0, reinterpret_cast<LPARAM>(lpRect)); }
    void GetRect(LPRECT lpRect) const { SendMessage(EM_GETRECT, 0, reinterpret_cast<LPARAM>(lpRect)); }
    void Clear() { SendMessage(WM_CLEAR); }
    void Copy() { SendMessage(WM_COPY); }
    void Cut() { SendMessage(WM_CUT); }
    void Paste() { SendMessage(WM_PASTE); }
};

class CListBox : public CWnd
{
    DECLARE_DYNAMIC(CListBox)
public:
    CListBox() = default;
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    int GetCount() const { return static_cast<int>(SendMessage(LB_GETCOUNT)); }
    int GetCurSel() const { return static_cast<int>(SendMessage(LB_GETCURSEL)); }
    int SetCurSel(int nSelect) { return static_cast<int>(SendMessage(LB_SETCURSEL, nSelect)); }
    int GetTopIndex() const { return static_cast<int>(SendMessage(LB_GETTOPINDEX)); }
    int SetTopIndex(int nIndex) { return static_cast<int>(SendMessage(LB_SETTOPINDEX, nIndex)); }
    DWORD_PTR GetItemData(int nIndex) const { return static_cast<DWORD_PTR>(SendMessage(LB_GETITEMDATA, nIndex)); }
    int SetItemData(int nIndex, DWORD_PTR dwData)
    {
        return static_cast<int>(SendMessage(LB_SETITEMDATA, nIndex, static_cast<LPARAM>(dwData)));
    }
    int AddString(LPCTSTR lpszItem)
    {
        return static_cast<int>(SendMessage(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(lpszItem)));
    }
    int InsertString(int nIndex, LPCTSTR lpszItem)
    {
        return static_cast<int>(SendMessage(LB_INSERTSTRING, nIndex, reinterpret_cast<LPARAM>(lpszItem)));
    }
    int DeleteString(UINT nIndex) { return static_cast<int>(SendMessage(LB_DELETESTRING, nIndex)); }
    void ResetContent() { SendMessage(LB_RESETCONTENT); }
    void GetText(int nIndex, CString& rString) const;

    // Overridden by an owner-drawn list.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class CComboBox : public CWnd
{
    DECLARE_DYNAMIC(CComboBox)
public:
    CComboBox() = default;
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    int GetCount() const { return static_cast<int>(SendMessage(CB_GETCOUNT)); }
    int GetCurSel() const { return static_cast<int>(SendMessage(CB_GETCURSEL)); }
    int SetCurSel(int nSelect) { return static_cast<int>(SendMessage(CB_SETCURSEL, nSelect)); }
    DWORD_PTR GetItemData(int nIndex) const { return static_cast<DWORD_PTR>(SendMessage(CB_GETITEMDATA, nIndex)); }
    int SetItemData(int nIndex, DWORD_PTR dwData)
    {
        return static_cast<int>(SendMessage(CB_SETITEMDATA, nIndex, static_cast<LPARAM>(dwData)));
    }
    int AddString(LPCTSTR lpszString)
    {
        return static_cast<int>(SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(lpszString)));
    }
    int InsertString(int nIndex, LPCTSTR lpszString)
    {
        return static_cast<int>(SendMessage(CB_INSERTSTRING, nIndex, reinterpret_cast<LPARAM>(lpszString)));
    }
    int DeleteString(UINT nIndex) { return static_cast<int>(SendMessage(CB_DELETESTRING, nIndex)); }
    void ResetContent() { SendMessage(CB_RESETCONTENT); }
    int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const
    {
        return static_cast<int>(SendMessage(CB_FINDSTRINGEXACT, nIndexStart, reinterpret_cast<LPARAM>(lpszFind)));
    }
    int SelectString(int nStartAfter, LPCTSTR lpszString)
    {
        return static_cast<int>(SendMessage(CB_SELECTSTRING, nStartAfter, reinterpret_cast<LPARAM>(lpszString)));
    }
    void GetLBText(int nIndex, CString& rString) const;
    int GetLBTextLen(int nIndex) const { return static_cast<int>(SendMessage(CB_GETLBTEXTLEN, nIndex)); }
    void ShowDropDown(BOOL bShowIt = TRUE) { SendMessage(CB_SHOWDROPDOWN, bShowIt); }
    BOOL GetDroppedState() const { return SendMessage(CB_GETDROPPEDSTATE) != 0; }
    void GetDroppedControlRect(LPRECT lprect) const
    {
        SendMessage(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(lprect));
    }
    int SetDroppedWidth(UINT nWidth) { return static_cast<int>(SendMessage(CB_SETDROPPEDWIDTH, nWidth)); }
    int SetItemHeight(int nIndex, UINT cyItemHeight)
    {
        return static_cast<int>(SendMessage(CB_SETITEMHEIGHT, nIndex, cyItemHeight));
    }
    int GetItemHeight(int nIndex) const { return static_cast<int>(SendMessage(CB_GETITEMHEIGHT, nIndex)); }
    BOOL LimitText(int nMaxChars) { return SendMessage(CB_LIMITTEXT, nMaxChars) != 0; }

    // Overridden by an owner-drawn box.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class CScrollBar : public CWnd
{
    DECLARE_DYNAMIC(CScrollBar)
public:
    CScrollBar() = default;
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    int GetScrollPos() const { return ::GetScrollPos(m_hWnd, SB_CTL); }
    int SetScrollPos(int nPos, BOOL bRedraw = TRUE) { return ::SetScrollPos(m_hWnd, SB_CTL, nPos, bRedraw); }
    void SetScrollRange(int nMinPos, int nMaxPos, BOOL bRedraw = TRUE)
    {
        ::SetScrollRange(m_hWnd, SB_CTL, nMinPos, nMaxPos, bRedraw);
    }
    BOOL GetScrollInfo(LPSCROLLINFO lpScrollInfo, UINT nMask = SIF_ALL)
    {
        return CWnd::GetScrollInfo(SB_CTL, lpScrollInfo, nMask);
    }
    BOOL SetScrollInfo(LPSCROLLINFO lpScrollInfo, BOOL bRedraw = TRUE)
    {
        return CWnd::SetScrollInfo(SB_CTL, lpScrollInfo, bRedraw);
    }
};

// A dialog box from a template of the program's or the library's resources, or from one in memory.
class CDialog : public CWnd
{
    DECLARE_DYNAMIC(CDialog)
public:
    CDialog() = default;
    explicit CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd = nullptr);
    explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = nullptr);

    // Modeless
    virtual BOOL Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd = nullptr);
    virtual BOOL Create(UINT nIDTemplate, CWnd* pParentWnd = nullptr)
    {
        return Create(MAKEINTRESOURCE(nIDTemplate), pParentWnd);
    }
    BOOL CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd = nullptr, void* lpDialogInit = nullptr);

    // Modal. The template in memory must live until DoModal has returned. DoModal answers EndDialog's number, -1 when
    // the box could not be made.
    BOOL InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd = nullptr, void* lpDialogInit = nullptr);
    virtual INT_PTR DoModal();
    void EndDialog(int nResult);

    // TRUE: the system sets the focus to the first control.
    virtual BOOL OnInitDialog();
    virtual void OnOK();
    virtual void OnCancel();
    void NextDlgCtrl() const { ::SendMessage(m_hWnd, WM_NEXTDLGCTL, 0, 0); }
    void GotoDlgCtrl(CWnd* pWndCtrl)
    {
        ::SendMessage(m_hWnd, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(pWndCtrl->m_hWnd), 1);
    }
    void MapDialogRect(LPRECT lpRect) const { ::MapDialogRect(m_hWnd, lpRect); }

    BOOL PreTranslateMessage(MSG* pMsg) override;
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;

protected:
    virtual void PreInitDialog() {}
    afx_msg LRESULT HandleInitDialog(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

    LPCTSTR m_lpszTemplateName = nullptr;
    LPCDLGTEMPLATE m_lpDialogTemplate = nullptr;
    CWnd* m_pParentWnd = nullptr;

private:
    LPCDLGTEMPLATE FindTemplate() const;
};
