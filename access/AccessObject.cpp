#include "access/AccessObject.h"

#include "access/PartObject.h"

namespace dayvane {
namespace {

std::atomic<long> s_objects{0};

// ---- oleacc.dll

FARPROC OfOleAcc(const char* name)
{
    static const HMODULE library = ::LoadLibraryA("oleacc.dll");
    return library ? ::GetProcAddress(library, name) : nullptr;
}

template <class Function>
Function OleAcc(const char* name)
{
    return reinterpret_cast<Function>(reinterpret_cast<void*>(OfOleAcc(name)));
}

HRESULT ObjectOfWindow(HWND window, LONG object, IDispatch** result)
{
    using Function = HRESULT(WINAPI*)(HWND, DWORD, REFIID, void**);
    static const Function function = OleAcc<Function>("AccessibleObjectFromWindow");
    *result = nullptr;
    return function ? function(window, static_cast<DWORD>(object), IID_IDispatch, reinterpret_cast<void**>(result))
                    : E_FAIL;
}

BSTR Text(const std::string& utf8)
{
    const std::wstring wide = WideFromUtf8(utf8);
    return ::SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
}

HRESULT Give(const std::string& utf8, BSTR* result)
{
    *result = utf8.empty() ? nullptr : Text(utf8);
    return utf8.empty() ? S_FALSE : S_OK;
}

// ---- A list of objects: what several selected parts are

class ObjectList : public Referenced<IEnumVARIANT>
{
public:
    explicit ObjectList(std::vector<IDispatch*> objects) : m_objects(std::move(objects)) { ++s_objects; }

    STDMETHODIMP QueryInterface(REFIID iid, void** result) override
    {
        if (!result) {
            return E_POINTER;
        }
        *result = iid == IID_IUnknown || iid == IID_IEnumVARIANT ? this : nullptr;
        if (!*result) {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }
    STDMETHODIMP Next(ULONG count, VARIANT* result, ULONG* fetched) override
    {
        ULONG given = 0;
        for (; given < count && m_next < m_objects.size(); ++given, ++m_next) {
            result[given].vt = VT_DISPATCH;
            result[given].pdispVal = m_objects[m_next];
            m_objects[m_next]->AddRef();
        }
        if (fetched) {
            *fetched = given;
        }
        return given == count ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG count) override
    {
        const bool isThere = count <= m_objects.size() - m_next;
        m_next = isThere ? m_next + count : m_objects.size();
        return isThere ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() override
    {
        m_next = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(IEnumVARIANT** result) override
    {
        for (IDispatch* object : m_objects) {
            object->AddRef();
        }
        *result = new ObjectList(m_objects);
        return S_OK;
    }

private:
    ~ObjectList() override
    {
        for (IDispatch* object : m_objects) {
            object->Release();
        }
        --s_objects;
    }

    std::vector<IDispatch*> m_objects;
    size_t m_next = 0;
};

// ---- A part

class AccessObject : public Referenced<IAccessible>
{
public:
    AccessObject(const std::shared_ptr<AccessWindow>& window, const AccessId& id) : m_window(window), m_id(id)
    {
        ++s_objects;
    }

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID iid, void** result) override
    {
        if (!result) {
            return E_POINTER;
        }
        const bool isMine = iid == IID_IUnknown || iid == IID_IDispatch || iid == __uuidof(IAccessible);
        *result = isMine ? static_cast<IAccessible*>(this) : nullptr;
        if (!isMine) {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }

    // IDispatch: programs use the methods themselves.
    STDMETHODIMP GetTypeInfoCount(UINT* count) override
    {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override
    {
        return E_NOTIMPL;
    }

    // IAccessible: the tree
    STDMETHODIMP get_accParent(IDispatch** result) override;
    STDMETHODIMP get_accChildCount(long* result) override;
    STDMETHODIMP get_accChild(VARIANT child, IDispatch** result) override;
    STDMETHODIMP accNavigate(long way, VARIANT start, VARIANT* result) override;
    STDMETHODIMP accHitTest(long x, long y, VARIANT* result) override;
    STDMETHODIMP accLocation(long* x, long* y, long* width, long* height, VARIANT child) override;

    // What it is called
    STDMETHODIMP get_accName(VARIANT child, BSTR* result) override { return Word(child, &AccessWords::name, result); }
    STDMETHODIMP get_accValue(VARIANT child, BSTR* result) override { return Word(child, &AccessWords::value, result); }
    STDMETHODIMP get_accDescription(VARIANT child, BSTR* result) override
    {
        return Word(child, &AccessWords::description, result);
    }
    STDMETHODIMP get_accKeyboardShortcut(VARIANT child, BSTR* result) override
    {
        return Word(child, &AccessWords::shortcut, result);
    }
    STDMETHODIMP get_accDefaultAction(VARIANT child, BSTR* result) override
    {
        return Word(child, &AccessWords::action, result);
    }
    STDMETHODIMP get_accRole(VARIANT child, VARIANT* result) override;
    STDMETHODIMP get_accState(VARIANT child, VARIANT* result) override;
    STDMETHODIMP get_accHelp(VARIANT, BSTR* result) override
    {
        *result = nullptr;
        return S_FALSE;
    }
    STDMETHODIMP get_accHelpTopic(BSTR* file, VARIANT, long* topic) override
    {
        *file = nullptr;
        *topic = 0;
        return S_FALSE;
    }

    // Focus, selection, actions
    STDMETHODIMP get_accFocus(VARIANT* result) override;
    STDMETHODIMP get_accSelection(VARIANT* result) override;
    STDMETHODIMP accSelect(long flags, VARIANT child) override;
    STDMETHODIMP accDoDefaultAction(VARIANT child) override;
    STDMETHODIMP put_accName(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }
    STDMETHODIMP put_accValue(VARIANT child, BSTR text) override;

private:
    ~AccessObject() override { --s_objects; }

    using Place = PartPlace;
    HRESULT Find(const VARIANT& child, Place& place) const;
    HRESULT FindSelf(Place& place) const;
    HRESULT Word(const VARIANT& child, std::string AccessWords::*word, BSTR* result) const;
    static IDispatch* ObjectAt(const Place& place, int node);
    static IDispatch* ObjectOf(const Place& place, const AccessId& id);

    const std::weak_ptr<AccessWindow> m_window;
    const AccessId m_id;
};

HRESULT AccessObject::FindSelf(Place& place) const
{
    return FindPart(m_window, m_id, place) ? S_OK : CO_E_OBJNOTCONNECTED;
}

// A child is numbered from 1, 0 the object itself; the window's object also knows the numbers of events.
HRESULT AccessObject::Find(const VARIANT& child, Place& place) const
{
    const HRESULT self = FindSelf(place);
    if (FAILED(self) || (child.vt == VT_I4 && child.lVal == CHILDID_SELF)) {
        return self;
    }
    if (child.vt != VT_I4) {
        return E_INVALIDARG;
    }
    const std::vector<int>& children = place.Node().children;
    AccessId id;
    if (child.lVal > 0 && child.lVal <= static_cast<long>(children.size())) {
        place.node = children[static_cast<size_t>(child.lVal) - 1];
    } else if (place.node == 0 && place.window->IdOfChild(child.lVal, id)) {
        place.node = place.tree->Find(id);
    } else {
        place.node = kNoNode;
    }
    return place.node != kNoNode ? S_OK : E_INVALIDARG;
}

IDispatch* AccessObject::ObjectOf(const Place& place, const AccessId& id)
{
    if (id.part == AccessPart::Child) {
        IDispatch* window = nullptr;
        const HWND handle = reinterpret_cast<HWND>(static_cast<INT_PTR>(id.index));
        return SUCCEEDED(ObjectOfWindow(handle, OBJID_WINDOW, &window)) ? window : nullptr;
    }
    return new AccessObject(place.window, id);
}

IDispatch* AccessObject::ObjectAt(const Place& place, int node)
{
    return ObjectOf(place, place.tree->At(node).id);
}

HRESULT AccessObject::get_accParent(IDispatch** result)
{
    *result = nullptr;
    Place place;
    const HRESULT found = FindSelf(place);
    if (FAILED(found)) {
        return found;
    }
    if (place.node == 0) {
        return ObjectOfWindow(place.window->Handle(), OBJID_WINDOW, result);
    }
    *result = ObjectAt(place, place.Node().parent);
    return S_OK;
}

HRESULT AccessObject::get_accChildCount(long* result)
{
    *result = 0;
    Place place;
    const HRESULT found = FindSelf(place);
    if (SUCCEEDED(found)) {
        *result = static_cast<long>(place.Node().children.size());
    }
    return found;
}

HRESULT AccessObject::get_accChild(VARIANT child, IDispatch** result)
{
    *result = nullptr;
    Place place;
    const HRESULT found = Find(child, place);
    if (SUCCEEDED(found)) {
        *result = ObjectAt(place, place.node);
    }
    return FAILED(found) ? found : *result ? S_OK : E_FAIL;
}

HRESULT AccessObject::accNavigate(long way, VARIANT start, VARIANT* result)
{
    static const struct
    {
        long direction;
        AccessWay way;
    } kWays[] = {
        {NAVDIR_FIRSTCHILD, AccessWay::First},  {NAVDIR_LASTCHILD, AccessWay::Last}, {NAVDIR_NEXT, AccessWay::Next},
        {NAVDIR_PREVIOUS, AccessWay::Previous}, {NAVDIR_UP, AccessWay::Up},          {NAVDIR_DOWN, AccessWay::Down},
        {NAVDIR_LEFT, AccessWay::Left},         {NAVDIR_RIGHT, AccessWay::Right}};
    result->vt = VT_EMPTY;
    Place place;
    const HRESULT found = Find(start, place);
    if (FAILED(found)) {
        return found;
    }
    for (const auto& each : kWays) {
        if (each.direction == way) {
            const int node = place.tree->Walk(place.node, each.way);
            if (node == kNoNode) {
                return S_FALSE;
            }
            result->vt = VT_DISPATCH;
            result->pdispVal = ObjectAt(place, node);
            return result->pdispVal ? S_OK : S_FALSE;
        }
    }
    return E_INVALIDARG;
}

HRESULT AccessObject::accHitTest(long x, long y, VARIANT* result)
{
    result->vt = VT_EMPTY;
    Place place;
    const HRESULT found = FindSelf(place);
    if (FAILED(found)) {
        return found;
    }
    POINT point = {x, y};
    ::ScreenToClient(place.window->Handle(), &point);
    const int node = place.tree->HitTest(point);
    if (node == kNoNode) {
        return S_FALSE;
    }
    if (node == place.node) {
        result->vt = VT_I4;
        result->lVal = CHILDID_SELF;
        return S_OK;
    }
    result->pdispVal = ObjectAt(place, node);
    result->vt = static_cast<VARTYPE>(result->pdispVal ? VT_DISPATCH : VT_EMPTY);
    return result->pdispVal ? S_OK : S_FALSE;
}

HRESULT AccessObject::accLocation(long* x, long* y, long* width, long* height, VARIANT child)
{
    *x = *y = *width = *height = 0;
    Place place;
    const HRESULT found = Find(child, place);
    if (FAILED(found)) {
        return found;
    }
    const CRect& box = place.Node().box;
    POINT corner = {box.left, box.top};
    ::ClientToScreen(place.window->Handle(), &corner);
    *x = corner.x;
    *y = corner.y;
    *width = box.Width();
    *height = box.Height();
    return S_OK;
}

HRESULT AccessObject::Word(const VARIANT& child, std::string AccessWords::*word, BSTR* result) const
{
    *result = nullptr;
    Place place;
    const HRESULT found = Find(child, place);
    return FAILED(found) ? found : Give(place.window->WordsOf(place.node).*word, result);
}

HRESULT AccessObject::get_accRole(VARIANT child, VARIANT* result)
{
    result->vt = VT_EMPTY;
    Place place;
    const HRESULT found = Find(child, place);
    if (SUCCEEDED(found)) {
        result->vt = VT_I4;
        result->lVal = place.window->RoleOf(place.node);
    }
    return found;
}

HRESULT AccessObject::get_accState(VARIANT child, VARIANT* result)
{
    result->vt = VT_EMPTY;
    Place place;
    const HRESULT found = Find(child, place);
    if (SUCCEEDED(found)) {
        result->vt = VT_I4;
        result->lVal = place.window->StateOf(place.node);
    }
    return found;
}

HRESULT AccessObject::get_accFocus(VARIANT* result)
{
    result->vt = VT_EMPTY;
    Place place;
    const HRESULT found = FindSelf(place);
    if (FAILED(found)) {
        return found;
    }
    const HWND focus = ::GetFocus();
    if (place.node == 0 && focus && ::IsChild(place.window->Handle(), focus)) {
        IDispatch* window = nullptr;
        if (SUCCEEDED(ObjectOfWindow(focus, OBJID_CLIENT, &window))) {
            result->vt = VT_DISPATCH;
            result->pdispVal = window;
        }
        return window ? S_OK : S_FALSE;
    }
    if (!place.window->HasFocus()) {
        return S_FALSE;
    }
    const AccessId id = place.window->Focus();
    if (id == m_id) {
        result->vt = VT_I4;
        result->lVal = CHILDID_SELF;
        return S_OK;
    }
    if (place.node != 0 || place.tree->Find(id) == kNoNode) {
        return S_FALSE;
    }
    result->vt = VT_DISPATCH;
    result->pdispVal = ObjectOf(place, id);
    return S_OK;
}

HRESULT AccessObject::get_accSelection(VARIANT* result)
{
    result->vt = VT_EMPTY;
    Place place;
    const HRESULT found = FindSelf(place);
    if (FAILED(found)) {
        return found;
    }
    std::vector<IDispatch*> objects;
    for (const AccessId& id : place.window->Selection()) {
        const int node = place.tree->Find(id);
        if (node != kNoNode && (place.node == 0 || place.tree->At(node).parent == place.node)) {
            objects.push_back(ObjectOf(place, id));
        }
    }
    if (objects.empty()) {
        return S_FALSE;
    }
    if (objects.size() == 1) {
        result->vt = VT_DISPATCH;
        result->pdispVal = objects[0];
    } else {
        result->vt = VT_UNKNOWN;
        result->punkVal = new ObjectList(std::move(objects));
    }
    return S_OK;
}

HRESULT AccessObject::accSelect(long flags, VARIANT child)
{
    Place place;
    const HRESULT found = Find(child, place);
    return FAILED(found) ? found : place.window->Select(place.node, flags);
}

HRESULT AccessObject::accDoDefaultAction(VARIANT child)
{
    Place place;
    const HRESULT found = Find(child, place);
    return FAILED(found) ? found : place.window->Act(place.node);
}

HRESULT AccessObject::put_accValue(VARIANT child, BSTR text)
{
    Place place;
    const HRESULT found = Find(child, place);
    return FAILED(found) ? found : place.window->SetValue(place.node, std::wstring(text, ::SysStringLen(text)));
}

} // namespace

LRESULT AnswerWithObject(const std::shared_ptr<AccessWindow>& window, WPARAM wParam)
{
    using Function = LRESULT(WINAPI*)(REFIID, WPARAM, IUnknown*);
    static const Function function = OleAcc<Function>("LresultFromObject");
    if (!function) {
        return 0;
    }
    AccessObject* object = new AccessObject(window, AccessId());
    const LRESULT result = function(__uuidof(IAccessible), wParam, static_cast<IAccessible*>(object));
    object->Release();
    return result;
}

long AccessObjectCount()
{
    return s_objects;
}

} // namespace dayvane
