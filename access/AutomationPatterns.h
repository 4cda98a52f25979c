// What UI Automation asks of a provider besides IRawElementProviderSimple: the interfaces of its patterns, which the
// headers of MinGW-w64 do not have, and the numbers of the properties, patterns and events used here. Names, numbers
// and order of members are those of the Windows SDK.
#pragma once

#include <windows.h>
#include <uiautomationcore.h>

namespace dayvane {
namespace uia {

enum Pattern
{
    kInvoke = 10000,
    kSelection = 10001,
    kValue = 10002,
    kScroll = 10004,
    kGrid = 10006,
    kGridItem = 10007,
    kSelectionItem = 10010,
    kTable = 10012,
    kTableItem = 10013,
};

enum Property
{
    kControlType = 30003,
    kName = 30005,
    kAcceleratorKey = 30006,
    kHasKeyboardFocus = 30008,
    kIsKeyboardFocusable = 30009,
    kIsEnabled = 30010,
    kAutomationId = 30011,
    kHelpText = 30013,
    kIsControlElement = 30016,
    kIsContentElement = 30017,
    kIsOffscreen = 30022,
    kLiveSetting = 30135,
};

enum Event
{
    kFocusChanged = 20005,
    kElementSelected = 20012,
    kLiveRegionChanged = 20024,
};

enum ControlType
{
    kButton = 50000,
    kListItem = 50007,
    kList = 50008,
    kText = 50020,
    kDataItem = 50029,
    kSplitButton = 50031,
    kPane = 50033,
    kHeaderItem = 50035,
    kTableType = 50036,
};

constexpr HRESULT kNotAvailable = static_cast<HRESULT>(0x80040201); // UIA_E_ELEMENTNOTAVAILABLE
constexpr HRESULT kInvalid = static_cast<HRESULT>(0x80131509);      // UIA_E_INVALIDOPERATION
constexpr double kNoScroll = -1;
enum Scroll
{
    kLargeBack,
    kSmallBack,
    kNone,
    kLargeOn,
    kSmallOn,
};

struct IInvokeProvider : IUnknown
{
    STDMETHOD(Invoke)() PURE;
};

struct IValueProvider : IUnknown
{
    STDMETHOD(SetValue)(LPCWSTR text) PURE;
    STDMETHOD(get_Value)(BSTR* result) PURE;
    STDMETHOD(get_IsReadOnly)(BOOL* result) PURE;
};

struct IGridProvider : IUnknown
{
    STDMETHOD(GetItem)(int row, int column, IRawElementProviderSimple** result) PURE;
    STDMETHOD(get_RowCount)(int* result) PURE;
    STDMETHOD(get_ColumnCount)(int* result) PURE;
};

struct IGridItemProvider : IUnknown
{
    STDMETHOD(get_Row)(int* result) PURE;
    STDMETHOD(get_Column)(int* result) PURE;
    STDMETHOD(get_RowSpan)(int* result) PURE;
    STDMETHOD(get_ColumnSpan)(int* result) PURE;
    STDMETHOD(get_ContainingGrid)(IRawElementProviderSimple** result) PURE;
};

struct ITableProvider : IUnknown
{
    STDMETHOD(GetRowHeaders)(SAFEARRAY** result) PURE;
    STDMETHOD(GetColumnHeaders)(SAFEARRAY** result) PURE;
    STDMETHOD(get_RowOrColumnMajor)(int* result) PURE;
};

struct ITableItemProvider : IUnknown
{
    STDMETHOD(GetRowHeaderItems)(SAFEARRAY** result) PURE;
    STDMETHOD(GetColumnHeaderItems)(SAFEARRAY** result) PURE;
};

struct ISelectionProvider : IUnknown
{
    STDMETHOD(GetSelection)(SAFEARRAY** result) PURE;
    STDMETHOD(get_CanSelectMultiple)(BOOL* result) PURE;
    STDMETHOD(get_IsSelectionRequired)(BOOL* result) PURE;
};

struct ISelectionItemProvider : IUnknown
{
    STDMETHOD(Select)() PURE;
    STDMETHOD(AddToSelection)() PURE;
    STDMETHOD(RemoveFromSelection)() PURE;
    STDMETHOD(get_IsSelected)(BOOL* result) PURE;
    STDMETHOD(get_SelectionContainer)(IRawElementProviderSimple** result) PURE;
};

struct IScrollProvider : IUnknown
{
    STDMETHOD(Scroll)(int horizontal, int vertical) PURE;
    STDMETHOD(SetScrollPercent)(double horizontal, double vertical) PURE;
    STDMETHOD(get_HorizontalScrollPercent)(double* result) PURE;
    STDMETHOD(get_VerticalScrollPercent)(double* result) PURE;
    STDMETHOD(get_HorizontalViewSize)(double* result) PURE;
    STDMETHOD(get_VerticalViewSize)(double* result) PURE;
    STDMETHOD(get_HorizontallyScrollable)(BOOL* result) PURE;
    STDMETHOD(get_VerticallyScrollable)(BOOL* result) PURE;
};

// Interface identifiers.
constexpr IID kInvokeFace = {0x54fcb24b, 0xe18e, 0x47a2, {0xb4, 0xd3, 0xec, 0xcb, 0xe7, 0x75, 0x99, 0xa2}};
constexpr IID kValueFace = {0xc7935180, 0x6fb3, 0x4201, {0xb1, 0x74, 0x7d, 0xf7, 0x3a, 0xdb, 0xf6, 0x4a}};
constexpr IID kGridFace = {0xb17d6187, 0x0907, 0x464b, {0xa1, 0x68, 0x0e, 0xf1, 0x7a, 0x15, 0x72, 0xb1}};
constexpr IID kGridItemFace = {0xd02541f1, 0xfb81, 0x4d64, {0xae, 0x32, 0xf5, 0x20, 0xf8, 0xa6, 0xdb, 0xd1}};
constexpr IID kTableFace = {0x9c860395, 0x97b3, 0x490a, {0xb5, 0x2a, 0x85, 0x8c, 0xc2, 0x2a, 0xf1, 0x66}};
constexpr IID kTableItemFace = {0xb9734fa6, 0x771f, 0x4d78, {0x9c, 0x90, 0x25, 0x17, 0x99, 0x93, 0x49, 0xcd}};
constexpr IID kSelectionFace = {0xfb8b03af, 0x3bdf, 0x48d4, {0xbd, 0x36, 0x1a, 0x65, 0x79, 0x3b, 0xe1, 0x68}};
constexpr IID kSelectionItemFace = {0x2acad808, 0xb2d4, 0x452d, {0xa4, 0x07, 0x91, 0xff, 0x1a, 0xd1, 0x67, 0xb2}};
constexpr IID kScrollFace = {0xb38b8077, 0x1fc3, 0x42a5, {0x8c, 0xae, 0xd4, 0x0c, 0x22, 0x15, 0x05, 0x5a}};

} // namespace uia
} // namespace dayvane
