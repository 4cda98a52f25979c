// What the hosts of this folder do alike: the framework around them, and a hand.
#pragma once

#include <dayvane/Dayvane.h>

// The program's result is that of the host; 1 without a framework.
template <class Host>
int RunHost(Host host)
{
    if (!AfxWinInit(GetModuleHandle(nullptr), nullptr, GetCommandLine(), SW_SHOW)) {
        return 1;
    }
    const int result = host();
    AfxWinTerm();
    return result;
}

// One press, moves beyond the slop, and the release.
inline void Drag(CWnd& window, CPoint from, CPoint to)
{
    window.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(from.x, from.y));
    for (int step = 1; step <= 3; ++step) {
        window.SendMessage(WM_MOUSEMOVE, MK_LBUTTON,
                           MAKELPARAM(from.x + (to.x - from.x) * step / 3, from.y + (to.y - from.y) * step / 3));
    }
    window.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(to.x, to.y));
}
