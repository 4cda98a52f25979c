// The patterns of the objects of UI Automation.
#include "access/AutomationPart.h"

#include <algorithm>

namespace dayvane {

using namespace uia;

// ---- Invoke, value

STDMETHODIMP AutomationObject::Invoke()
{
    Place place;
    const HRESULT found = Find(place);
    return FAILED(found) ? found : place.window->Act(place.node);
}

STDMETHODIMP AutomationObject::SetValue(LPCWSTR text)
{
    Place place;
    const HRESULT found = Find(place);
    return FAILED(found) ? found : place.window->SetValue(place.node, text);
}

STDMETHODIMP AutomationObject::get_Value(BSTR* result)
{
    return Answer<BSTR>(result, nullptr, [](const Place& place) {
        return ::SysAllocString(WideFromUtf8(place.window->WordsOf(place.node).value).c_str());
    });
}

STDMETHODIMP AutomationObject::get_IsReadOnly(BOOL* result)
{
    *result = m_id.part != AccessPart::Item;
    return S_OK;
}

// ---- Grid and table

// How many rows or columns the cells of the window have.
HRESULT AutomationObject::Extent(int AccessNode::*field, int* result) const
{
    *result = 0;
    Place place;
    const HRESULT found = Find(place);
    for (int node = 0; SUCCEEDED(found) && node < place.tree->Count(); ++node) {
        const AccessNode& each = place.tree->At(node);
        if (each.id.part == AccessPart::Cell) {
            *result = std::max(*result, each.*field + 1);
        }
    }
    return found;
}

HRESULT AutomationObject::Field(int AccessNode::*field, int* result) const
{
    return Answer(result, 0, [field](const Place& place) { return place.Node().*field; });
}

STDMETHODIMP AutomationObject::GetItem(int row, int column, IRawElementProviderSimple** result)
{
    *result = nullptr;
    Place place;
    const HRESULT found = Find(place);
    for (int node = 0; SUCCEEDED(found) && node < place.tree->Count(); ++node) {
        const AccessNode& each = place.tree->At(node);
        if (each.id.part == AccessPart::Cell && each.gridRow == row && each.gridColumn == column) {
            *result = At(place, node);
            return S_OK;
        }
    }
    return FAILED(found) ? found : E_INVALIDARG;
}

STDMETHODIMP AutomationObject::GetRowHeaders(SAFEARRAY** result)
{
    *result = nullptr; // weeks and hours have none
    return S_OK;
}

STDMETHODIMP AutomationObject::GetColumnHeaders(SAFEARRAY** result)
{
    *result = nullptr;
    Place place;
    const HRESULT found = Find(place);
    if (FAILED(found)) {
        return found;
    }
    std::vector<int> headers;
    for (int child : place.tree->At(0).children) {
        if (place.tree->At(child).id.part == AccessPart::ColumnHeader) {
            headers.push_back(child);
        }
    }
    return Give(place, headers, result);
}

STDMETHODIMP AutomationObject::GetColumnHeaderItems(SAFEARRAY** result)
{
    *result = nullptr;
    Place place;
    const HRESULT found = Find(place);
    if (FAILED(found)) {
        return found;
    }
    const int header = place.tree->Find({AccessPart::ColumnHeader, place.Node().gridColumn, 0});
    return Give(place, header != kNoNode ? std::vector<int>{header} : std::vector<int>(), result);
}

// ---- Selection

HRESULT AutomationObject::SelectWith(long flags) const
{
    Place place;
    const HRESULT found = Find(place);
    if (SUCCEEDED(found) && place.node == 0) {
        ::SetFocus(place.window->Handle());
        return S_OK;
    }
    return FAILED(found) ? found : place.window->Select(place.node, flags);
}

STDMETHODIMP AutomationObject::GetSelection(SAFEARRAY** result)
{
    *result = nullptr;
    Place place;
    const HRESULT found = Find(place);
    if (FAILED(found)) {
        return found;
    }
    std::vector<int> nodes;
    for (const AccessId& id : place.window->Selection()) {
        const int node = place.tree->Find(id);
        if (node > 0) {
            nodes.push_back(node);
        }
    }
    return Give(place, nodes, result);
}

STDMETHODIMP AutomationObject::get_CanSelectMultiple(BOOL* result)
{
    return Answer(result, FALSE,
                  [](const Place& place) { return (place.window->StateOf(0) & STATE_SYSTEM_MULTISELECTABLE) != 0; });
}

STDMETHODIMP AutomationObject::get_IsSelected(BOOL* result)
{
    return Answer(result, FALSE,
                  [](const Place& place) { return (place.window->StateOf(place.node) & STATE_SYSTEM_SELECTED) != 0; });
}

// ---- Scrolling

HRESULT AutomationObject::ScrollState(SCROLLINFO& info) const
{
    info = {sizeof(info), SIF_RANGE | SIF_PAGE | SIF_POS, 0, 0, 0, 0, 0};
    Place place;
    const HRESULT found = Find(place);
    if (SUCCEEDED(found)) {
        ::GetScrollInfo(place.window->Handle(), SB_VERT, &info);
    }
    return found;
}

STDMETHODIMP AutomationObject::Scroll(int horizontal, int vertical)
{
    static constexpr UINT kCodes[] = {SB_PAGEUP, SB_LINEUP, 0, SB_PAGEDOWN, SB_LINEDOWN};
    Place place;
    const HRESULT found = Find(place);
    if (FAILED(found)) {
        return found;
    }
    if (horizontal != kNone || vertical < kLargeBack || vertical > kSmallOn) {
        return kInvalid;
    }
    if (vertical != kNone) {
        ::SendMessage(place.window->Handle(), WM_VSCROLL, kCodes[vertical], 0);
    }
    return S_OK;
}

STDMETHODIMP AutomationObject::SetScrollPercent(double horizontal, double vertical)
{
    SCROLLINFO info;
    const HRESULT found = ScrollState(info);
    Place place;
    if (FAILED(found) || FAILED(Find(place))) {
        return found;
    }
    if (horizontal != kNoScroll || vertical > kPercent || (vertical < 0 && vertical != kNoScroll)) {
        return kInvalid;
    }
    const int last = std::max(info.nMax - std::max(static_cast<int>(info.nPage) - 1, 0), info.nMin);
    if (vertical != kNoScroll) {
        const int position = info.nMin + static_cast<int>((last - info.nMin) * vertical / kPercent);
        ::SendMessage(place.window->Handle(), WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, position), 0);
    }
    return S_OK;
}

STDMETHODIMP AutomationObject::get_VerticalScrollPercent(double* result)
{
    SCROLLINFO info;
    const HRESULT found = ScrollState(info);
    const int last = info.nMax - std::max(static_cast<int>(info.nPage) - 1, 0);
    *result = last > info.nMin ? kPercent * (info.nPos - info.nMin) / (last - info.nMin) : kNoScroll;
    return found;
}

STDMETHODIMP AutomationObject::get_VerticalViewSize(double* result)
{
    SCROLLINFO info;
    const HRESULT found = ScrollState(info);
    const int range = info.nMax - info.nMin + 1;
    *result = range > 0 && info.nPage > 0 ? std::min(kPercent, kPercent * info.nPage / range) : kPercent;
    return found;
}

STDMETHODIMP AutomationObject::get_VerticallyScrollable(BOOL* result)
{
    double percent = kNoScroll;
    const HRESULT found = get_VerticalScrollPercent(&percent);
    *result = percent != kNoScroll;
    return found;
}

} // namespace dayvane
