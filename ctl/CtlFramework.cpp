#include "CtlFramework.h"

#include <afxwin.h>

namespace dayvane::ctl {

namespace {

// exception: null for one that is none of the framework's.
void ReportException(CException* exception, const MSG* message)
{
    CString line;
    line.Format("DayvaneCtl: %s while message 0x%04X was handled\n",
                exception ? exception->GetRuntimeClass()->m_lpszClassName : "an exception", message->message);
    ::OutputDebugString(line);
}

} // namespace

#ifdef _MFC_VER // the genuine MFC: its DllMain has started it for the one application object of the DLL

namespace {

class CtlApp : public CWinApp
{
public:
    LRESULT ProcessWndProcException(CException* e, const MSG* pMsg) override
    {
        ReportException(e, pMsg);
        if (pMsg->message == WM_PAINT) {
            ::ValidateRect(pMsg->hwnd, nullptr); // or the system would ask for ever
        }
        return pMsg->message == WM_CREATE ? -1 : 0;
    }
};

CtlApp g_app;

} // namespace

void StartFramework()
{
}

#else

void StartFramework()
{
    AfxWinInit(::GetModuleHandle(nullptr), nullptr, nullptr, SW_SHOWNORMAL);
    AfxSetExceptionReporter(&ReportException);
}

#endif

} // namespace dayvane::ctl
