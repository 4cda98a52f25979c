// The system's dialog boxes: files and printers.
#pragma once

#include <afxwin.h>

class CCommonDialog : public CDialog
{
    DECLARE_DYNAMIC(CCommonDialog)
public:
    explicit CCommonDialog(CWnd* pParentWnd) { m_pParentWnd = pParentWnd; }

protected:
    // The window that the box belongs to.
    HWND OwnerHwnd() const;
};

class CFileDialog : public CCommonDialog
{
    DECLARE_DYNAMIC(CFileDialog)
public:
    // The filter is a text of pairs "name|pattern|", with another bar at the end.
    explicit CFileDialog(BOOL bOpenFileDialog, LPCTSTR lpszDefExt = nullptr, LPCTSTR lpszFileName = nullptr,
                         DWORD dwFlags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, LPCTSTR lpszFilter = nullptr,
                         CWnd* pParentWnd = nullptr);

    OPENFILENAME m_ofn;

    INT_PTR DoModal() override;
    CString GetPathName() const { return m_ofn.lpstrFile; }
    CString GetFileName() const;
    CString GetFileExt() const;

protected:
    BOOL m_bOpenFileDialog;
    CString m_strFilter;
    TCHAR m_szFileName[MAX_PATH * 8];
};

class CPrintDialog : public CCommonDialog
{
    DECLARE_DYNAMIC(CPrintDialog)
public:
    explicit CPrintDialog(BOOL bPrintSetupOnly,
                          DWORD dwFlags = PD_ALLPAGES | PD_USEDEVMODECOPIES | PD_NOPAGENUMS | PD_HIDEPRINTTOFILE |
                                          PD_NOSELECTION,
                          CWnd* pParentWnd = nullptr);
    ~CPrintDialog() override;

    PRINTDLG m_pd;

    INT_PTR DoModal() override;
    // The default printer, without asking.
    BOOL GetDefaults();
    // The printer's context, which the caller deletes.
    HDC GetPrinterDC() const { return m_pd.hDC; }
    HDC CreatePrinterDC();
    CString GetDeviceName() const;
    CString GetDriverName() const;
    CString GetPortName() const;
    // With PD_USEDEVMODECOPIES the driver makes the copies; DEVMODE then says how many.
    int GetCopies() const;
    BOOL PrintAll() const { return !PrintRange() && !PrintSelection(); }
    BOOL PrintRange() const { return (m_pd.Flags & PD_PAGENUMS) != 0; }
    BOOL PrintSelection() const { return (m_pd.Flags & PD_SELECTION) != 0; }
    int GetFromPage() const { return PrintRange() ? m_pd.nFromPage : -1; }
    int GetToPage() const { return PrintRange() ? m_pd.nToPage : -1; }

private:
    CString DeviceText(WORD DEVNAMES::*offset) const;
};

// The system's dialog for paper, orientation, printer and margins.
class CPageSetupDialog : public CCommonDialog
{
    DECLARE_DYNAMIC(CPageSetupDialog)
public:
    explicit CPageSetupDialog(DWORD dwFlags = PSD_MARGINS | PSD_INHUNDREDTHSOFMILLIMETERS, CWnd* pParentWnd = nullptr);
    ~CPageSetupDialog() override;

    PAGESETUPDLG m_psd;

    INT_PTR DoModal() override;
};
