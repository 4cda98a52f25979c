// WinMain of a program with an application object. It belongs to the program, not to the library: link the CMake target
// Dayvane::WinMain, which adds this object to the program's own, or write the same lines there. A program with its own
// main() leaves it out.
#include <afxwin.h>

int WINAPI WinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPSTR lpCmdLine, int nCmdShow)
{
    return AfxWinMain(hInstance, hPrevInstance, lpCmdLine, nCmdShow);
}
