// The system's dialog boxes.
#include "afximpl.h"

#include <afxdlgs.h>

IMPLEMENT_DYNAMIC(CCommonDialog, CDialog)
IMPLEMENT_DYNAMIC(CFileDialog, CCommonDialog)
IMPLEMENT_DYNAMIC(CPrintDialog, CCommonDialog)
IMPLEMENT_DYNAMIC(CPageSetupDialog, CCommonDialog)

HWND CCommonDialog::OwnerHwnd() const
{
    const CWnd* pOwner = m_pParentWnd ? m_pParentWnd : AfxGetMainWnd();
    return pOwner ? ::GetAncestor(pOwner->m_hWnd, GA_ROOT) : ::GetActiveWindow();
}

// Files

CFileDialog::CFileDialog(BOOL bOpenFileDialog, LPCTSTR lpszDefExt, LPCTSTR lpszFileName, DWORD dwFlags,
                         LPCTSTR lpszFilter, CWnd* pParentWnd)
    : CCommonDialog(pParentWnd), m_ofn(), m_bOpenFileDialog(bOpenFileDialog), m_szFileName()
{
    if (lpszFileName) {
        ::lstrcpyn(m_szFileName, lpszFileName, sizeof(m_szFileName) / sizeof(m_szFileName[0]));
    }
    m_ofn.lStructSize = sizeof(m_ofn);
    m_ofn.lpstrFile = m_szFileName;
    m_ofn.nMaxFile = sizeof(m_szFileName) / sizeof(m_szFileName[0]);
    m_ofn.lpstrDefExt = lpszDefExt;
    m_ofn.Flags = dwFlags | OFN_EXPLORER | OFN_ENABLESIZING;
    if (lpszFilter) {
        // The system wants zeros for the bars; a bar may also be the second byte of a character.
        m_strFilter = lpszFilter;
        const int length = m_strFilter.GetLength();
        LPTSTR text = m_strFilter.GetBuffer();
        for (LPTSTR p = text; *p != 0;) {
            LPTSTR next = ::CharNext(p);
            if (*p == '|') {
                *p = 0;
            }
            p = next;
        }
        m_strFilter.ReleaseBuffer(length);
        m_ofn.lpstrFilter = m_strFilter;
    }
}

INT_PTR CFileDialog::DoModal()
{
    if (!m_ofn.hwndOwner) {
        m_ofn.hwndOwner = OwnerHwnd();
    }
    const BOOL chosen = m_bOpenFileDialog ? ::GetOpenFileName(&m_ofn) : ::GetSaveFileName(&m_ofn);
    return chosen ? IDOK : IDCANCEL;
}

CString CFileDialog::GetFileName() const
{
    return m_ofn.lpstrFile + m_ofn.nFileOffset;
}

CString CFileDialog::GetFileExt() const
{
    return m_ofn.nFileExtension != 0 ? m_ofn.lpstrFile + m_ofn.nFileExtension : "";
}

// Printers

CPrintDialog::CPrintDialog(BOOL bPrintSetupOnly, DWORD dwFlags, CWnd* pParentWnd) : CCommonDialog(pParentWnd), m_pd()
{
    m_pd.lStructSize = sizeof(m_pd);
    m_pd.Flags = (dwFlags & ~static_cast<DWORD>(PD_RETURNIC)) | (bPrintSetupOnly ? PD_PRINTSETUP : PD_RETURNDC);
}

CPrintDialog::~CPrintDialog()
{
    ::GlobalFree(m_pd.hDevMode);
    ::GlobalFree(m_pd.hDevNames);
}

INT_PTR CPrintDialog::DoModal()
{
    if (!m_pd.hwndOwner) {
        m_pd.hwndOwner = OwnerHwnd();
    }
    return ::PrintDlg(&m_pd) ? IDOK : IDCANCEL;
}

BOOL CPrintDialog::GetDefaults()
{
    m_pd.Flags |= PD_RETURNDEFAULT;
    return ::PrintDlg(&m_pd);
}

HDC CPrintDialog::CreatePrinterDC()
{
    if (!m_pd.hDevNames) {
        return nullptr;
    }
    const DEVMODE* mode = static_cast<const DEVMODE*>(m_pd.hDevMode ? ::GlobalLock(m_pd.hDevMode) : nullptr);
    m_pd.hDC = ::CreateDC(GetDriverName(), GetDeviceName(), GetPortName(), mode);
    if (mode) {
        ::GlobalUnlock(m_pd.hDevMode);
    }
    return m_pd.hDC;
}

CString CPrintDialog::DeviceText(WORD DEVNAMES::*offset) const
{
    CString text;
    if (m_pd.hDevNames) {
        const DEVNAMES* names = static_cast<const DEVNAMES*>(::GlobalLock(m_pd.hDevNames));
        text = reinterpret_cast<LPCTSTR>(names) + names->*offset;
        ::GlobalUnlock(m_pd.hDevNames);
    }
    return text;
}

int CPrintDialog::GetCopies() const
{
    const bool isByDriver = (m_pd.Flags & PD_USEDEVMODECOPIES) != 0 && m_pd.hDevMode;
    const DEVMODE* mode = isByDriver ? static_cast<const DEVMODE*>(::GlobalLock(m_pd.hDevMode)) : nullptr;
    const int copies = mode && (mode->dmFields & DM_COPIES) != 0 ? mode->dmCopies : m_pd.nCopies;
    if (mode) {
        ::GlobalUnlock(m_pd.hDevMode);
    }
    return copies;
}

CString CPrintDialog::GetDeviceName() const
{
    return DeviceText(&DEVNAMES::wDeviceOffset);
}

CString CPrintDialog::GetDriverName() const
{
    return DeviceText(&DEVNAMES::wDriverOffset);
}

CString CPrintDialog::GetPortName() const
{
    return DeviceText(&DEVNAMES::wOutputOffset);
}

CPageSetupDialog::CPageSetupDialog(DWORD dwFlags, CWnd* pParentWnd) : CCommonDialog(pParentWnd), m_psd()
{
    m_psd.lStructSize = sizeof(m_psd);
    m_psd.Flags = dwFlags;
}

CPageSetupDialog::~CPageSetupDialog()
{
    ::GlobalFree(m_psd.hDevMode);
    ::GlobalFree(m_psd.hDevNames);
}

INT_PTR CPageSetupDialog::DoModal()
{
    if (!m_psd.hwndOwner) {
        m_psd.hwndOwner = OwnerHwnd();
    }
    return ::PageSetupDlg(&m_psd) ? IDOK : IDCANCEL;
}
