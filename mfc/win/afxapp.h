// The thread of the user interface, the application, and the framework's free functions.
#pragma once

#include <vector>

class CDocument;
class CDocTemplate;
class CPrintDialog;

// The thread that pumps the program's messages. There is one in a program: its CWinApp.
class CWinThread : public CCmdTarget
{
    DECLARE_DYNAMIC(CWinThread)
public:
    CWinThread() = default;

    CWnd* m_pMainWnd = nullptr; // the program ends when this window is destroyed
    MSG m_msgCur = {};

    virtual BOOL InitInstance() { return FALSE; }
    virtual int ExitInstance() { return static_cast<int>(m_msgCur.wParam); }
    virtual int Run();
    // FALSE when the program shall end.
    virtual BOOL PumpMessage();
    // TRUE when the message has been dealt with and shall not be dispatched.
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    // Called while no message waits; TRUE asks for another call, with a greater count.
    virtual BOOL OnIdle(LONG lCount);
    virtual BOOL IsIdleMessage(MSG* pMsg);
    virtual CWnd* GetMainWnd() { return m_pMainWnd; }
    // A handler let an exception out: reports it and answers the message's result. The caller deletes the exception.
    virtual LRESULT ProcessWndProcException(CException* e, const MSG* pMsg);
};

class CWinApp : public CWinThread
{
    DECLARE_DYNAMIC(CWinApp)
public:
    // The one object of a program, usually global.
    explicit CWinApp(LPCTSTR lpszAppName = nullptr);
    ~CWinApp() override;

    HINSTANCE m_hInstance;
    LPTSTR m_lpCmdLine = nullptr;
    int m_nCmdShow = SW_SHOWNORMAL;
    LPCTSTR m_pszAppName = nullptr;

    BOOL InitInstance() override { return TRUE; }
    virtual BOOL InitApplication() { return TRUE; }
    int Run() override;

    HCURSOR LoadCursor(LPCTSTR lpszResourceName) const;
    HCURSOR LoadCursor(UINT nIDResource) const { return LoadCursor(MAKEINTRESOURCE(nIDResource)); }
    HCURSOR LoadStandardCursor(LPCTSTR lpszCursorName) const { return ::LoadCursor(nullptr, lpszCursorName); }
    HICON LoadIcon(LPCTSTR lpszResourceName) const;
    HICON LoadIcon(UINT nIDResource) const { return LoadIcon(MAKEINTRESOURCE(nIDResource)); }
    HICON LoadStandardIcon(LPCTSTR lpszIconName) const { return ::LoadIcon(nullptr, lpszIconName); }
    virtual int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt);

    // Documents. The application owns its templates.
    void AddDocTemplate(CDocTemplate* pTemplate);
    // The named file in a document, as the first template opens it; null when that failed.
    virtual CDocument* OpenDocumentFile(LPCTSTR lpszFileName);
    virtual BOOL SaveAllModified();
    virtual BOOL DoPromptFileName(CString& fileName, LPCTSTR title, DWORD lFlags, BOOL bOpenFileDialog,
                                  CDocTemplate* pTemplate);

    // Handlers for the message map of a program's own application class
    afx_msg void OnFileNew();
    afx_msg void OnFileOpen();
    afx_msg void OnFilePrintSetup();

    // The printer and its settings, which all print jobs of the program begin with. The application owns copies; null:
    // the system's default printer as it is. A device mode without names goes for whatever printer is the default.
    void SelectPrinter(HANDLE hDevNames, HANDLE hDevMode);
    // Only paper and orientation, of whatever printer.
    void SelectPaper(HANDLE hDevMode);
    HANDLE GetPrinterNames() const { return m_hDevNames; }
    HANDLE GetPrinterMode() const { return m_hDevMode; }
    // Shows the dialog with these settings and keeps what the user chooses.
    INT_PTR DoPrintDialog(CPrintDialog* pDialog);
    // The settings without asking; FALSE when there is no printer.
    BOOL GetPrinterDeviceDefaults(CPrintDialog* pDialog);

protected:
    afx_msg void OnAppExit();
    DECLARE_MESSAGE_MAP()

private:
    std::vector<CDocTemplate*> m_templates;
    HANDLE m_hDevNames = nullptr;
    HANDLE m_hDevMode = nullptr;
};

CWinApp* AfxGetApp();       // null in a program without an application object
CWinThread* AfxGetThread(); // likewise
CWnd* AfxGetMainWnd();
HINSTANCE AfxGetInstanceHandle();
LPCTSTR AfxGetAppName();
int AfxMessageBox(LPCTSTR lpszText, UINT nType = MB_OK, UINT nIDHelp = 0);
int AfxMessageBox(UINT nIDPrompt, UINT nType = MB_OK, UINT nIDHelp = static_cast<UINT>(-1));

// Starts the framework: called by AfxWinMain, and by a program of its own main() that wants an application object.
BOOL AfxWinInit(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow);
void AfxWinTerm();
// The whole life of a program with an application object. WinMain calls it; see winmain.cpp.
int AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow);

// For programs that pump messages themselves: TRUE when the message has been dealt with and shall not be dispatched.
BOOL AfxPreTranslateMessage(MSG* pMsg);
// As CWinThread::PumpMessage, for programs without an application object too.
BOOL AfxPumpMessage();
// Temporary objects are freed when a program is idle, or when the last lock is taken away. Answers the locks left.
void AfxLockTempMaps();
BOOL AfxUnlockTempMaps(BOOL bDeleteTemps = TRUE);

// Resources are looked up in the module set here (at first the program) and then in the library's own file.
HINSTANCE AfxGetResourceHandle();
void AfxSetResourceHandle(HINSTANCE hInstResource);
HINSTANCE AfxFindResourceHandle(LPCTSTR lpszName, LPCTSTR lpszType);

// TRUE also when the class exists already. The class stays to the end of the process.
BOOL AfxRegisterClass(WNDCLASS* lpWndClass);
// The name of a class of these features, registered on first use; the text stays valid. Raises CResourceException.
LPCTSTR AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor = nullptr, HBRUSH hbrBackground = nullptr,
                            HICON hIcon = nullptr);
LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);

// Where exceptions that leave a handler are reported instead of the default: a message box of the application, or a
// line on standard error in a program without one. e is null for an exception that is no CException. Null: the default.
typedef void (*AFX_EXCEPTION_REPORTER)(CException* e, const MSG* pMsg);
AFX_EXCEPTION_REPORTER AfxSetExceptionReporter(AFX_EXCEPTION_REPORTER pfnReporter);
