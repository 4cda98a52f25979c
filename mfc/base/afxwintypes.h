// The Win32 value types that code without a window uses. On Windows they are the system's own; elsewhere they are
// defined here with the same widths (LONG and DWORD are 32 bits wide), so that the pure layer builds on any system.
// Only value types: no handles, no functions of the system, no flags of windows or drawing.
#pragma once

#ifdef _WIN32

#if defined(UNICODE) || defined(_UNICODE)
#error "Dayvane's texts are narrow: build the host without UNICODE and _UNICODE."
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#include <wtypes.h>
#include <tchar.h>

// The system header gives these names to function-like macros; here they are member functions.
#undef GetCurrentTime

#else

#include <cstddef>
#include <cstdint>
#include <cstdlib>

typedef int BOOL;
typedef unsigned char BYTE;
typedef std::uint16_t WORD;
typedef std::uint32_t DWORD;
typedef std::int32_t LONG;
typedef std::uint32_t ULONG;
typedef std::int16_t SHORT;
typedef std::uint16_t USHORT;
typedef int INT;
typedef unsigned int UINT;
typedef std::int64_t LONGLONG;
typedef std::uint64_t ULONGLONG;
typedef float FLOAT;
typedef std::intptr_t INT_PTR;
typedef std::uintptr_t UINT_PTR;
typedef std::intptr_t LONG_PTR;
typedef std::uintptr_t DWORD_PTR;
typedef UINT_PTR WPARAM;
typedef LONG_PTR LPARAM;
typedef LONG_PTR LRESULT;
typedef LONG HRESULT;
typedef DWORD COLORREF;
typedef double DATE;
typedef std::int64_t __time64_t;

typedef void* LPVOID;
typedef const void* LPCVOID;
typedef BYTE* LPBYTE;

typedef char CHAR;
typedef char TCHAR;
typedef char* LPSTR;
typedef const char* LPCSTR;
typedef char* LPTSTR;
typedef const char* LPCTSTR;
typedef wchar_t WCHAR;
typedef const wchar_t* LPCWSTR;

#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif

#define _T(text) text
#define TEXT(text) text

#define CALLBACK
#define WINAPI
#define PASCAL

typedef struct tagPOINT
{
    LONG x;
    LONG y;
} POINT, *LPPOINT;

typedef struct tagSIZE
{
    LONG cx;
    LONG cy;
} SIZE, *LPSIZE;

typedef struct tagRECT
{
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
} RECT, *LPRECT;
typedef const RECT* LPCRECT;

// Local calendar time; wDayOfWeek 0 is Sunday.
typedef struct _SYSTEMTIME
{
    WORD wYear;
    WORD wMonth;
    WORD wDayOfWeek;
    WORD wDay;
    WORD wHour;
    WORD wMinute;
    WORD wSecond;
    WORD wMilliseconds;
} SYSTEMTIME, *LPSYSTEMTIME;

#define LOBYTE(w) (static_cast<BYTE>(static_cast<DWORD_PTR>(w) & 0xff))
#define HIBYTE(w) (static_cast<BYTE>((static_cast<DWORD_PTR>(w) >> 8) & 0xff))
#define LOWORD(l) (static_cast<WORD>(static_cast<DWORD_PTR>(l) & 0xffff))
#define HIWORD(l) (static_cast<WORD>((static_cast<DWORD_PTR>(l) >> 16) & 0xffff))
#define MAKEWORD(low, high) (static_cast<WORD>(LOBYTE(low) | (static_cast<WORD>(LOBYTE(high)) << 8)))
#define MAKELONG(low, high) (static_cast<LONG>(LOWORD(low) | (static_cast<DWORD>(LOWORD(high)) << 16)))

// A colour is 0x00BBGGRR.
#define RGB(r, g, b) (static_cast<COLORREF>(LOBYTE(r) | (LOBYTE(g) << 8) | (static_cast<DWORD>(LOBYTE(b)) << 16)))
#define GetRValue(rgb) (LOBYTE(rgb))
#define GetGValue(rgb) (LOBYTE((rgb) >> 8))
#define GetBValue(rgb) (LOBYTE((rgb) >> 16))
#define CLR_INVALID 0xffffffffu

#define S_OK (static_cast<HRESULT>(0))
#define S_FALSE (static_cast<HRESULT>(1))
#define SUCCEEDED(hr) (static_cast<HRESULT>(hr) >= 0)
#define FAILED(hr) (static_cast<HRESULT>(hr) < 0)

// number * numerator / denominator in 64 bits, rounded half away from zero; -1 when the denominator is 0 or the
// result does not fit.
inline int MulDiv(int number, int numerator, int denominator)
{
    if (denominator == 0) {
        return -1;
    }
    const std::int64_t product = static_cast<std::int64_t>(number) * numerator;
    const std::int64_t divisor = denominator < 0 ? -static_cast<std::int64_t>(denominator) : denominator;
    const std::int64_t magnitude = ((product < 0 ? -product : product) + divisor / 2) / divisor;
    if (magnitude > INT32_MAX) {
        return -1;
    }
    return static_cast<int>((product < 0) != (denominator < 0) ? -magnitude : magnitude);
}

#endif // _WIN32

// Names that MFC sources put before functions and classes; they mean nothing to this implementation.
#define AFXAPI
#define AFX_EXT_CLASS
