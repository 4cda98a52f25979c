// The window classes, and the functions that the library exports for them.
#include "CtlFramework.h"
#include "CtlMessages.h"

namespace dayvane::ctl {

namespace {

constexpr int kControlSlot = 0; // of the window's extra bytes

DWORD g_thread = 0;          // the thread of the user interface, 0 before DayvaneInit
bool g_isRegistered = false; // all classes are

CtlWindow* ControlOf(HWND hWnd)
{
    return reinterpret_cast<CtlWindow*>(::GetWindowLongPtrW(hWnd, kControlSlot));
}

LRESULT Adopt(HWND hWnd, const CREATESTRUCTW& create)
{
    if (::GetCurrentThreadId() != g_thread) {
        ::SetLastError(ERROR_INVALID_THREAD_ID);
        return FALSE;
    }
    WCHAR name[64];
    ::GetClassNameW(hWnd, name, static_cast<int>(std::size(name)));
    std::unique_ptr<CtlWindow> control = MakeCtlWindow(name, static_cast<DWORD>(create.style));
    if (!control) {
        return FALSE;
    }
    ::SetWindowLongPtrW(hWnd, kControlSlot, reinterpret_cast<LONG_PTR>(control.get()));
    return control.release()->window->SubclassWindow(hWnd);
}

LRESULT AdoptSafely(HWND hWnd, const CREATESTRUCTW& create)
{
    try {
        return Adopt(hWnd, create);
    } catch (CException* exception) {
        exception->Delete();
    } catch (...) {
    }
    ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return FALSE;
}

// The procedure of the classes. Once the object has taken its window over, only what the object leaves to the system
// arrives here; of that, our own messages.
LRESULT CALLBACK ClassProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE && !AdoptSafely(hWnd, *reinterpret_cast<const CREATESTRUCTW*>(lParam))) {
        return FALSE;
    }
    CtlWindow* control = ControlOf(hWnd);
    if (!control) {
        return ::DefWindowProcW(hWnd, message, wParam, lParam);
    }
    if (message >= DVM_FIRST && message <= DVM_LAST) {
        return AnswerMessage(*control, message, wParam, lParam);
    }
    const LRESULT result = ::DefWindowProcW(hWnd, message, wParam, lParam);
    if (message == WM_CREATE && result != -1) {
        control->prepare(*control);
    } else if (message == WM_NCDESTROY) {
        ::SetWindowLongPtrW(hWnd, kControlSlot, 0);
        delete control; // its object goes by itself
    }
    return result;
}

// The library's own file, which then stays loaded: the classes point into it.
HINSTANCE OwnModule()
{
    HMODULE module = nullptr;
    ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                         reinterpret_cast<LPCWSTR>(&ClassProc), &module);
    return module;
}

bool RegisterClasses()
{
    const HINSTANCE module = OwnModule();
    for (const WCHAR* const* name = CtlClassNames(); *name; ++name) {
        WNDCLASSEXW description = {};
        description.cbSize = sizeof(description);
        description.style = CS_GLOBALCLASS | CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
        description.lpfnWndProc = &ClassProc;
        description.cbWndExtra = sizeof(CtlWindow*);
        description.hInstance = module;
        description.hCursor = ::LoadCursor(nullptr, IDC_ARROW);
        description.lpszClassName = *name;
        if (!::RegisterClassExW(&description) && ::GetLastError() != ERROR_CLASS_ALREADY_EXISTS) {
            return false;
        }
    }
    return true;
}

// The same major version, and nothing that came after this minor one.
bool Serves(UINT wanted)
{
    const UINT own = DAYVANE_CTL_VERSION;
    const auto minor = [](UINT version) { return (version >> 8) & 0xFF; };
    return wanted >> 16 == own >> 16 && minor(wanted) <= minor(own);
}

} // namespace

} // namespace dayvane::ctl

using namespace dayvane::ctl;

extern "C" int __stdcall DayvaneInit(UINT version)
{
    if (!Serves(version)) {
        return DVE_VERSION;
    }
    if (g_thread != 0 && g_thread != ::GetCurrentThreadId()) {
        return DVE_THREAD;
    }
    try {
        if (!g_isRegistered) {
            StartFramework();
            g_isRegistered = RegisterClasses();
        }
    } catch (...) {
        g_isRegistered = false;
    }
    if (!g_isRegistered) {
        return DVE_FAILED;
    }
    g_thread = ::GetCurrentThreadId();
    return kDone;
}

extern "C" UINT __stdcall DayvaneVersion(void)
{
    return DAYVANE_CTL_VERSION;
}
