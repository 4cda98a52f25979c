#include "access/AutomationObject.h"

#include "access/AutomationPart.h"

namespace dayvane {

using namespace uia;

namespace {

constexpr int kAppendRuntimeId = 3; // UiaAppendRuntimeId: the system puts the window's number before
constexpr int kAssertive = 2;       // LiveSetting
constexpr DWORD kWinLiveRegionChanged = 0x8019;

template <class Function>
Function OfAutomationCore(const char* name)
{
    static const HMODULE library = ::LoadLibraryA("uiautomationcore.dll");
    return library ? reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(library, name))) : nullptr;
}

int TypeOf(AccessPart part, long role)
{
    switch (part) {
    case AccessPart::Root:
        return role == ROLE_SYSTEM_LIST ? kList : role == ROLE_SYSTEM_BUTTONDROPDOWN ? kSplitButton : kTableType;
    case AccessPart::ColumnHeader:
        return kHeaderItem;
    case AccessPart::Cell:
    case AccessPart::WholeDay:
    case AccessPart::Row:
        return kDataItem;
    case AccessPart::Item:
    case AccessPart::Entry:
        return kListItem;
    case AccessPart::Mark:
    case AccessPart::Previous:
    case AccessPart::Next:
    case AccessPart::Now:
        return kButton;
    case AccessPart::Period:
        return kTableType;
    default:
        return kText;
    }
}

// Leaves the result empty for a text that is.
void GiveText(VARIANT& result, const std::string& utf8)
{
    if (!utf8.empty()) {
        result.vt = VT_BSTR;
        result.bstrVal = ::SysAllocString(WideFromUtf8(utf8).c_str());
    }
}

} // namespace

std::atomic<long> AutomationObject::s_objects{0};

// ---- Identity

HRESULT AutomationObject::Find(Place& place) const
{
    return FindPart(m_window, m_id, place) ? S_OK : kNotAvailable;
}

IUnknown* AutomationObject::Face(int pattern)
{
    switch (pattern) {
    case kInvoke:
        return static_cast<IInvokeProvider*>(this);
    case kValue:
        return static_cast<IValueProvider*>(this);
    case kGrid:
        return static_cast<IGridProvider*>(this);
    case kGridItem:
        return static_cast<IGridItemProvider*>(this);
    case kTable:
        return static_cast<ITableProvider*>(this);
    case kTableItem:
        return static_cast<ITableItemProvider*>(this);
    case kSelection:
        return static_cast<ISelectionProvider*>(this);
    case kSelectionItem:
        return static_cast<ISelectionItemProvider*>(this);
    case kScroll:
        return static_cast<IScrollProvider*>(this);
    }
    return nullptr;
}

STDMETHODIMP AutomationObject::QueryInterface(REFIID iid, void** result)
{
    static const struct
    {
        IID iid;
        int pattern;
    } kFaces[] = {{kInvokeFace, kInvoke},       {kValueFace, kValue},
                  {kGridFace, kGrid},           {kGridItemFace, kGridItem},
                  {kTableFace, kTable},         {kTableItemFace, kTableItem},
                  {kSelectionFace, kSelection}, {kSelectionItemFace, kSelectionItem},
                  {kScrollFace, kScroll}};
    if (!result) {
        return E_POINTER;
    }
    *result = nullptr;
    if (iid == IID_IUnknown || iid == __uuidof(IRawElementProviderSimple)) {
        *result = static_cast<IRawElementProviderSimple*>(this);
    } else if (iid == __uuidof(IRawElementProviderFragment)) {
        *result = static_cast<IRawElementProviderFragment*>(this);
    } else if (iid == __uuidof(IRawElementProviderFragmentRoot) && m_id.part == AccessPart::Root) {
        *result = static_cast<IRawElementProviderFragmentRoot*>(this);
    }
    for (const auto& face : kFaces) {
        if (iid == face.iid) {
            *result = Face(face.pattern);
        }
    }
    if (!*result) {
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

bool AutomationObject::Has(const Place& place, int pattern) const
{
    const bool isWhole = m_id.part == AccessPart::Root;
    switch (pattern) {
    case kInvoke:
        return !place.window->WordsOf(place.node).action.empty();
    case kValue:
        return m_id.part == AccessPart::Item || m_id.part == AccessPart::Entry ||
               !place.window->WordsOf(place.node).value.empty();
    case kGrid:
    case kTable: {
        int columns = 0;
        return isWhole && SUCCEEDED(Extent(&AccessNode::gridColumn, &columns)) && columns > 0;
    }
    case kGridItem:
    case kTableItem:
        return m_id.part == AccessPart::Cell;
    case kSelection:
        return isWhole;
    case kSelectionItem:
        return (place.window->StateOf(place.node) & STATE_SYSTEM_SELECTABLE) != 0;
    case kScroll:
        return isWhole && (::GetWindowLong(place.window->Handle(), GWL_STYLE) & WS_VSCROLL) != 0;
    }
    return false;
}

STDMETHODIMP AutomationObject::GetPatternProvider(PATTERNID pattern, IUnknown** result)
{
    *result = nullptr;
    Place place;
    const HRESULT found = Find(place);
    if (SUCCEEDED(found) && Has(place, pattern)) {
        *result = Face(pattern);
        AddRef();
    }
    return found;
}

STDMETHODIMP AutomationObject::GetPropertyValue(PROPERTYID property, VARIANT* result)
{
    result->vt = VT_EMPTY;
    Place place;
    const HRESULT found = Find(place);
    if (FAILED(found)) {
        return found;
    }
    const auto giveFlag = [&](bool flag) {
        result->vt = VT_BOOL;
        result->boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
    };
    const auto giveNumber = [&](long number) {
        result->vt = VT_I4;
        result->lVal = number;
    };
    const long state = place.window->StateOf(place.node);
    switch (property) {
    case kName:
        GiveText(*result, place.window->WordsOf(place.node).name);
        break;
    case kHelpText:
        GiveText(*result, place.window->WordsOf(place.node).description);
        break;
    case kAcceleratorKey:
        GiveText(*result, place.window->WordsOf(place.node).shortcut);
        break;
    case kAutomationId:
        GiveText(*result, std::to_string(static_cast<int>(m_id.part)) + "." + std::to_string(m_id.key) + "." +
                              std::to_string(m_id.index));
        break;
    case kControlType:
        giveNumber(TypeOf(m_id.part, place.window->RoleOf(place.node)));
        break;
    case kLiveSetting:
        giveNumber(m_id.part == AccessPart::Announcement ? kAssertive : 0);
        break;
    case kHasKeyboardFocus:
        giveFlag((state & STATE_SYSTEM_FOCUSED) != 0);
        break;
    case kIsKeyboardFocusable:
        giveFlag((state & STATE_SYSTEM_FOCUSABLE) != 0);
        break;
    case kIsEnabled:
        giveFlag((state & STATE_SYSTEM_UNAVAILABLE) == 0);
        break;
    case kIsOffscreen:
        giveFlag((state & STATE_SYSTEM_OFFSCREEN) != 0);
        break;
    case kIsControlElement:
    case kIsContentElement:
        giveFlag(true);
        break;
    }
    return S_OK;
}

STDMETHODIMP AutomationObject::get_HostRawElementProvider(IRawElementProviderSimple** result)
{
    *result = nullptr;
    Place place;
    const HRESULT found = Find(place);
    if (FAILED(found) || m_id.part != AccessPart::Root) {
        return found;
    }
    using Function = HRESULT(WINAPI*)(HWND, IRawElementProviderSimple**);
    static const Function function = OfAutomationCore<Function>("UiaHostProviderFromHwnd");
    return function ? function(place.window->Handle(), result) : E_FAIL;
}

// ---- The tree. Windows inside are the system's to add.

STDMETHODIMP AutomationObject::Navigate(NavigateDirection way, IRawElementProviderFragment** result)
{
    *result = nullptr;
    Place place;
    const HRESULT found = Find(place);
    if (FAILED(found)) {
        return found;
    }
    int node = kNoNode;
    AccessWay on = AccessWay::Next;
    switch (way) {
    case NavigateDirection_Parent:
        node = place.Node().parent;
        break;
    case NavigateDirection_FirstChild:
        node = place.tree->Walk(place.node, AccessWay::First);
        break;
    case NavigateDirection_LastChild:
        node = place.tree->Walk(place.node, AccessWay::Last);
        on = AccessWay::Previous;
        break;
    default:
        on = way == NavigateDirection_NextSibling ? AccessWay::Next : AccessWay::Previous;
        node = place.tree->Walk(place.node, on);
    }
    while (node != kNoNode && place.tree->At(node).id.part == AccessPart::Child) {
        node = place.tree->Walk(node, on);
    }
    *result = node != kNoNode ? At(place, node) : nullptr;
    return S_OK;
}

STDMETHODIMP AutomationObject::GetRuntimeId(SAFEARRAY** result)
{
    *result = nullptr;
    if (m_id.part == AccessPart::Root) {
        return S_OK;
    }
    const int numbers[] = {kAppendRuntimeId, static_cast<int>(m_id.part), m_id.key, m_id.index};
    *result = ::SafeArrayCreateVector(VT_I4, 0, 4);
    for (LONG i = 0; *result && i < 4; ++i) {
        ::SafeArrayPutElement(*result, &i, const_cast<int*>(&numbers[i]));
    }
    return *result ? S_OK : E_OUTOFMEMORY;
}

STDMETHODIMP AutomationObject::get_BoundingRectangle(UiaRect* result)
{
    return Answer(result, UiaRect(), [](const Place& place) {
        const CRect& box = place.Node().box;
        POINT corner = {box.left, box.top};
        ::ClientToScreen(place.window->Handle(), &corner);
        return place.Node().isHidden ? UiaRect()
                                     : UiaRect{static_cast<double>(corner.x), static_cast<double>(corner.y),
                                               static_cast<double>(box.Width()), static_cast<double>(box.Height())};
    });
}

STDMETHODIMP AutomationObject::ElementProviderFromPoint(double x, double y, IRawElementProviderFragment** result)
{
    *result = nullptr;
    Place place;
    const HRESULT found = Find(place);
    if (FAILED(found)) {
        return found;
    }
    POINT point = {static_cast<LONG>(x), static_cast<LONG>(y)};
    ::ScreenToClient(place.window->Handle(), &point);
    const int node = place.tree->HitTest(point);
    if (node != kNoNode && place.tree->At(node).id.part != AccessPart::Child) {
        *result = At(place, node);
    }
    return S_OK;
}

STDMETHODIMP AutomationObject::GetFocus(IRawElementProviderFragment** result)
{
    *result = nullptr;
    Place place;
    const HRESULT found = Find(place);
    if (FAILED(found) || !place.window->HasFocus()) {
        return found;
    }
    const int node = place.tree->Find(place.window->Focus());
    if (node > 0) {
        *result = At(place, node);
    }
    return S_OK;
}

HRESULT AutomationObject::Give(const Place& place, const std::vector<int>& nodes, SAFEARRAY** result)
{
    *result = ::SafeArrayCreateVector(VT_UNKNOWN, 0, static_cast<ULONG>(nodes.size()));
    for (LONG i = 0; *result && i < static_cast<LONG>(nodes.size()); ++i) {
        IRawElementProviderSimple* object = At(place, nodes[static_cast<size_t>(i)]);
        ::SafeArrayPutElement(*result, &i, static_cast<IUnknown*>(object));
        object->Release();
    }
    return *result ? S_OK : E_OUTOFMEMORY;
}

IRawElementProviderSimple* MakeAutomationObject(const std::shared_ptr<AccessWindow>& window, const AccessId& id)
{
    return new AutomationObject(window, id);
}

LRESULT AnswerWithAutomation(const std::shared_ptr<AccessWindow>& window, WPARAM wParam, LPARAM lParam)
{
    using Function = LRESULT(WINAPI*)(HWND, WPARAM, LPARAM, IRawElementProviderSimple*);
    static const Function function = OfAutomationCore<Function>("UiaReturnRawElementProvider");
    if (!function) {
        return 0;
    }
    IRawElementProviderSimple* object = MakeAutomationObject(window, AccessId());
    const LRESULT result = function(window->Handle(), wParam, lParam, object);
    object->Release();
    return result;
}

void RaiseAutomation(const std::shared_ptr<AccessWindow>& window, DWORD event, const AccessId& id)
{
    const int automationEvent = event == EVENT_OBJECT_FOCUS       ? kFocusChanged
                                : event == EVENT_OBJECT_SELECTION ? kElementSelected
                                : event == kWinLiveRegionChanged  ? kLiveRegionChanged
                                                                  : 0;
    using Function = HRESULT(WINAPI*)(IRawElementProviderSimple*, EVENTID);
    static const Function function = OfAutomationCore<Function>("UiaRaiseAutomationEvent");
    if (automationEvent == 0 || !function) {
        return;
    }
    IRawElementProviderSimple* object = MakeAutomationObject(window, id);
    function(object, automationEvent);
    object->Release();
}

long AutomationObjectCount()
{
    return AutomationObject::Count();
}

} // namespace dayvane
