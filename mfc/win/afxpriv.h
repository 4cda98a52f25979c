// Messages that frames, bars and views send each other.
#pragma once

#define WM_SIZEPARENT 0x0361       // lParam AFX_SIZEPARENTPARAMS*: a bar takes its place at an edge of the rectangle
#define WM_SETMESSAGESTRING 0x0362 // wParam string identifier, or 0 and lParam text: the frame's message line
#define WM_IDLEUPDATECMDUI 0x0363  // wParam: disable what nobody handles. Bars bring their buttons up to date
#define WM_INITIALUPDATE 0x0364    // views get their first OnInitialUpdate

struct AFX_SIZEPARENTPARAMS
{
    RECT rect;   // what is left of the parent's client area
    BOOL bPlace; // FALSE: only compute
};
