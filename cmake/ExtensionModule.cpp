// Dayvane.dll with genuine MFC: its entry point makes its classes and resources known to MFC's DLL, which the program
// and Dayvane.dll share. Compiled with Visual C++ only.
#include <afxwin.h>

#include <afxdllx.h>

static AFX_EXTENSION_MODULE g_module;

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH) {
        if (!AfxInitExtensionModule(g_module, module)) {
            return FALSE;
        }
        new CDynLinkLibrary(g_module); // MFC deletes it
    } else if (reason == DLL_PROCESS_DETACH) {
        AfxTermExtensionModule(g_module);
    }
    return TRUE;
}
