// The object of UI Automation of one part; see AutomationObject.h. Of its own two sources only.
#pragma once

#include "AutomationObject.h"
#include "AutomationPatterns.h"
#include "PartObject.h"

namespace dayvane {

constexpr double kPercent = 100;

class AutomationObject
    : public Referenced<IRawElementProviderSimple, IRawElementProviderFragment, IRawElementProviderFragmentRoot,
                        uia::IInvokeProvider, uia::IValueProvider, uia::IGridProvider, uia::IGridItemProvider,
                        uia::ITableProvider, uia::ITableItemProvider, uia::ISelectionProvider,
                        uia::ISelectionItemProvider, uia::IScrollProvider>
{
public:
    AutomationObject(const std::shared_ptr<AccessWindow>& window, const AccessId& id) : m_window(window), m_id(id)
    {
        ++s_objects;
    }
    static long Count() { return s_objects; }

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID iid, void** result) override;

    // IRawElementProviderSimple
    STDMETHODIMP get_ProviderOptions(ProviderOptions* result) override
    {
        *result = static_cast<ProviderOptions>(ProviderOptions_ServerSideProvider | ProviderOptions_UseComThreading);
        return S_OK;
    }
    STDMETHODIMP GetPatternProvider(PATTERNID pattern, IUnknown** result) override;
    STDMETHODIMP GetPropertyValue(PROPERTYID property, VARIANT* result) override;
    STDMETHODIMP get_HostRawElementProvider(IRawElementProviderSimple** result) override;

    // IRawElementProviderFragment and its root
    STDMETHODIMP Navigate(NavigateDirection way, IRawElementProviderFragment** result) override;
    STDMETHODIMP GetRuntimeId(SAFEARRAY** result) override;
    STDMETHODIMP get_BoundingRectangle(UiaRect* result) override;
    STDMETHODIMP GetEmbeddedFragmentRoots(SAFEARRAY** result) override
    {
        *result = nullptr;
        return S_OK;
    }
    STDMETHODIMP SetFocus() override { return SelectWith(SELFLAG_TAKEFOCUS); }
    STDMETHODIMP get_FragmentRoot(IRawElementProviderFragmentRoot** result) override { return Whole(result); }
    STDMETHODIMP ElementProviderFromPoint(double x, double y, IRawElementProviderFragment** result) override;
    STDMETHODIMP GetFocus(IRawElementProviderFragment** result) override;

    // Patterns
    STDMETHODIMP Invoke() override;
    STDMETHODIMP SetValue(LPCWSTR text) override;
    STDMETHODIMP get_Value(BSTR* result) override;
    STDMETHODIMP get_IsReadOnly(BOOL* result) override;
    STDMETHODIMP GetItem(int row, int column, IRawElementProviderSimple** result) override;
    STDMETHODIMP get_RowCount(int* result) override { return Extent(&AccessNode::gridRow, result); }
    STDMETHODIMP get_ColumnCount(int* result) override { return Extent(&AccessNode::gridColumn, result); }
    STDMETHODIMP get_Row(int* result) override { return Field(&AccessNode::gridRow, result); }
    STDMETHODIMP get_Column(int* result) override { return Field(&AccessNode::gridColumn, result); }
    STDMETHODIMP get_RowSpan(int* result) override { return One(result); }
    STDMETHODIMP get_ColumnSpan(int* result) override { return One(result); }
    STDMETHODIMP get_ContainingGrid(IRawElementProviderSimple** result) override { return Whole(result); }
    STDMETHODIMP GetRowHeaders(SAFEARRAY** result) override;
    STDMETHODIMP GetColumnHeaders(SAFEARRAY** result) override;
    STDMETHODIMP get_RowOrColumnMajor(int* result) override
    {
        *result = 0; // by rows
        return S_OK;
    }
    STDMETHODIMP GetRowHeaderItems(SAFEARRAY** result) override { return GetRowHeaders(result); }
    STDMETHODIMP GetColumnHeaderItems(SAFEARRAY** result) override;
    STDMETHODIMP GetSelection(SAFEARRAY** result) override;
    STDMETHODIMP get_CanSelectMultiple(BOOL* result) override;
    STDMETHODIMP get_IsSelectionRequired(BOOL* result) override
    {
        *result = FALSE;
        return S_OK;
    }
    STDMETHODIMP Select() override { return SelectWith(SELFLAG_TAKESELECTION); }
    STDMETHODIMP AddToSelection() override { return SelectWith(SELFLAG_EXTENDSELECTION); }
    STDMETHODIMP RemoveFromSelection() override { return uia::kInvalid; }
    STDMETHODIMP get_IsSelected(BOOL* result) override;
    STDMETHODIMP get_SelectionContainer(IRawElementProviderSimple** result) override { return Whole(result); }
    STDMETHODIMP Scroll(int horizontal, int vertical) override;
    STDMETHODIMP SetScrollPercent(double horizontal, double vertical) override;
    STDMETHODIMP get_HorizontalScrollPercent(double* result) override
    {
        *result = uia::kNoScroll;
        return S_OK;
    }
    STDMETHODIMP get_VerticalScrollPercent(double* result) override;
    STDMETHODIMP get_HorizontalViewSize(double* result) override
    {
        *result = kPercent;
        return S_OK;
    }
    STDMETHODIMP get_VerticalViewSize(double* result) override;
    STDMETHODIMP get_HorizontallyScrollable(BOOL* result) override
    {
        *result = FALSE;
        return S_OK;
    }
    STDMETHODIMP get_VerticallyScrollable(BOOL* result) override;

private:
    ~AutomationObject() override { --s_objects; }

    using Place = PartPlace;
    HRESULT Find(Place& place) const;
    // The result that the question has for the part, or the given one where the part is gone.
    template <class Result, class Question>
    HRESULT Answer(Result* result, Result none, Question question) const
    {
        Place place;
        const HRESULT found = Find(place);
        *result = SUCCEEDED(found) ? question(place) : none;
        return found;
    }
    bool Has(const Place& place, int pattern) const;
    IUnknown* Face(int pattern);
    template <class Face>
    HRESULT Whole(Face** result) const
    {
        return Answer<Face*>(result, nullptr, [](const Place& place) { return At(place, 0); });
    }
    HRESULT SelectWith(long flags) const;
    HRESULT Extent(int AccessNode::*field, int* result) const;
    HRESULT Field(int AccessNode::*field, int* result) const;
    HRESULT ScrollState(SCROLLINFO& info) const;
    static HRESULT One(int* result)
    {
        *result = 1;
        return S_OK;
    }
    static AutomationObject* At(const Place& place, int node)
    {
        return new AutomationObject(place.window, place.tree->At(node).id);
    }
    static HRESULT Give(const Place& place, const std::vector<int>& nodes, SAFEARRAY** result);

    static std::atomic<long> s_objects;
    const std::weak_ptr<AccessWindow> m_window;
    const AccessId m_id;
};

} // namespace dayvane
