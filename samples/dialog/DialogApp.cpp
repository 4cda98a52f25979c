// The compact date selectors in a dialog.
#include "SelectorsDialog.h"

class CDialogApp : public CWinApp
{
public:
    BOOL InitInstance() override
    {
        CSelectorsDialog dialog;
        m_pMainWnd = &dialog;
        dialog.DoModal();
        return FALSE; // the program ends with its dialog
    }
};

CDialogApp theApp;
