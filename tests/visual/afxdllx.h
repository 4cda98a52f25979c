// The part of MFC's header of this name that cmake/ExtensionModule.cpp uses, for our own MFC: resources of the DLL are
// found after those of the program.
#pragma once

#include <afxwin.h>

struct AFX_EXTENSION_MODULE
{
    HMODULE hModule = nullptr;
};

inline BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module)
{
    state.hModule = module;
    return TRUE;
}

inline void AfxTermExtensionModule(AFX_EXTENSION_MODULE&)
{
}

class CDynLinkLibrary : public CObject
{
public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE&) {}
};
