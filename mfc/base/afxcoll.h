// The arrays of everyday types that have names of their own.
#pragma once

#include <afxtempl.h>

class CPtrArray : public CArray<void*, void*>
{
};

class CStringArray : public CArray<CString, LPCTSTR>
{
};

class CUIntArray : public CArray<UINT, UINT>
{
};

class CDWordArray : public CArray<DWORD, DWORD>
{
};
