#include "TextVeil.h"

#include <windows.h>

#include <cstdlib>
#include <cstring>

namespace testsupport {
namespace {

constexpr int kLinePercent = 120; // of the characters' height, where a font is made by that

int LineHeight(HDC dc)
{
    LOGFONTW font = {};
    ::GetObjectW(::GetCurrentObject(dc, OBJ_FONT), sizeof(font), &font);
    return font.lfHeight >= 0 ? static_cast<int>(font.lfHeight)
                              : ::MulDiv(-static_cast<int>(font.lfHeight), kLinePercent, 100);
}

int WidthOf(HDC dc, int count)
{
    return count * (LineHeight(dc) / 2);
}

BOOL WINAPI ExtTextOutWithoutTextW(HDC dc, int x, int y, UINT options, const RECT* rect, LPCWSTR, UINT, const INT*)
{
    return ::ExtTextOutW(dc, x, y, options, rect, L"", 0, nullptr); // fills its rectangle
}

BOOL WINAPI ExtTextOutWithoutTextA(HDC dc, int x, int y, UINT options, const RECT* rect, LPCSTR, UINT, const INT*)
{
    return ::ExtTextOutA(dc, x, y, options, rect, "", 0, nullptr);
}

BOOL WINAPI TextOutWithoutTextA(HDC, int, int, LPCSTR, int)
{
    return TRUE;
}

int WINAPI MeasuredTextW(HDC dc, LPCWSTR text, int count, RECT* rect, UINT format)
{
    if (format & DT_CALCRECT) {
        rect->right = rect->left + WidthOf(dc, count < 0 ? static_cast<int>(wcslen(text)) : count);
        rect->bottom = rect->top + LineHeight(dc);
    }
    return LineHeight(dc);
}

int WINAPI MeasuredTextA(HDC dc, LPCSTR text, int count, RECT* rect, UINT format)
{
    if (format & DT_CALCRECT) {
        rect->right = rect->left + WidthOf(dc, count < 0 ? static_cast<int>(std::strlen(text)) : count);
        rect->bottom = rect->top + LineHeight(dc);
    }
    return LineHeight(dc);
}

BOOL WINAPI ExtentW(HDC dc, LPCWSTR, int count, SIZE* size)
{
    *size = {WidthOf(dc, count), LineHeight(dc)};
    return TRUE;
}

BOOL WINAPI ExtentA(HDC dc, LPCSTR, int count, SIZE* size)
{
    *size = {WidthOf(dc, count), LineHeight(dc)};
    return TRUE;
}

BOOL WINAPI ExtentsW(HDC dc, LPCWSTR, int count, int room, int* fitting, int* ends, SIZE* size)
{
    const int width = WidthOf(dc, 1);
    for (int i = 0; ends && i < count; ++i) {
        ends[i] = (i + 1) * width;
    }
    if (fitting) {
        *fitting = width > 0 && room / width < count ? room / width : count;
    }
    *size = {count * width, LineHeight(dc)};
    return TRUE;
}

// Every face has every character.
DWORD WINAPI Glyphs(HDC, LPCWSTR, int count, LPWORD glyphs, DWORD)
{
    for (int i = 0; i < count; ++i) {
        glyphs[i] = 1;
    }
    return static_cast<DWORD>(count);
}

template <class Metrics>
void SetHeights(HDC dc, Metrics& metrics)
{
    metrics.tmHeight = LineHeight(dc);
    metrics.tmAscent = metrics.tmHeight * 4 / 5;
    metrics.tmDescent = metrics.tmHeight - metrics.tmAscent;
    metrics.tmInternalLeading = metrics.tmExternalLeading = 0;
    metrics.tmAveCharWidth = metrics.tmMaxCharWidth = WidthOf(dc, 1);
}

BOOL WINAPI MetricsW(HDC dc, TEXTMETRICW* metrics)
{
    const BOOL done = ::GetTextMetricsW(dc, metrics);
    SetHeights(dc, *metrics);
    return done;
}

BOOL WINAPI MetricsA(HDC dc, TEXTMETRICA* metrics)
{
    const BOOL done = ::GetTextMetricsA(dc, metrics);
    SetHeights(dc, *metrics);
    return done;
}

struct Replacement
{
    const char* name;
    void* function;
};

template <class Function>
void* Address(Function function)
{
    return reinterpret_cast<void*>(function);
}

const Replacement kReplacements[] = {
    {"ExtTextOutW", Address(&ExtTextOutWithoutTextW)},
    {"ExtTextOutA", Address(&ExtTextOutWithoutTextA)},
    {"TextOutA", Address(&TextOutWithoutTextA)},
    {"DrawTextW", Address(&MeasuredTextW)},
    {"DrawTextA", Address(&MeasuredTextA)},
    {"GetTextExtentPoint32W", Address(&ExtentW)},
    {"GetTextExtentPoint32A", Address(&ExtentA)},
    {"GetTextExtentExPointW", Address(&ExtentsW)},
    {"GetGlyphIndicesW", Address(&Glyphs)},
    {"GetTextMetricsW", Address(&MetricsW)},
    {"GetTextMetricsA", Address(&MetricsA)},
};

// Puts the replacements into one table of imported functions.
int ReplaceIn(BYTE* base, const IMAGE_IMPORT_DESCRIPTOR& library)
{
    int replaced = 0;
    auto* name = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library.OriginalFirstThunk);
    auto* address = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library.FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++address) {
        if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) {
            continue;
        }
        const auto* import = reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
        for (const Replacement& replacement : kReplacements) {
            if (std::strcmp(reinterpret_cast<const char*>(import->Name), replacement.name) == 0) {
                DWORD before = 0;
                ::VirtualProtect(address, sizeof(*address), PAGE_READWRITE, &before);
                address->u1.Function = reinterpret_cast<ULONG_PTR>(replacement.function);
                ::VirtualProtect(address, sizeof(*address), before, &before);
                ++replaced;
            }
        }
    }
    return replaced;
}

} // namespace

bool VeilTexts()
{
    BYTE* base = reinterpret_cast<BYTE*>(::GetModuleHandleA("Dayvane.dll"));
    if (!base) {
        return false;
    }
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    int replaced = 0;
    const auto* library = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
    for (; imports.VirtualAddress != 0 && library->Name != 0; ++library) {
        replaced += ReplaceIn(base, *library);
    }
    return replaced > 0;
}

} // namespace testsupport
