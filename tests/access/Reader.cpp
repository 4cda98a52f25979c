#include "tests/access/Reader.h"

namespace accesstest {
namespace {

VARIANT Self()
{
    VARIANT self = {};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    return self;
}

std::string Utf8(const wchar_t* wide, int length)
{
    std::string utf8(static_cast<size_t>(::WideCharToMultiByte(CP_UTF8, 0, wide, length, nullptr, 0, nullptr, nullptr)),
                     '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, wide, length, &utf8[0], static_cast<int>(utf8.size()), nullptr, nullptr);
    return utf8;
}

Spoken FromDispatch(IDispatch* dispatch)
{
    void* object = nullptr;
    if (dispatch) {
        dispatch->QueryInterface(__uuidof(IAccessible), &object);
        dispatch->Release();
    }
    return Spoken(static_cast<IAccessible*>(object));
}

} // namespace

void Spoken::Hold() const
{
    if (m_object) {
        m_object->AddRef();
    }
}

void Spoken::Drop()
{
    if (m_object) {
        m_object->Release();
    }
    m_object = nullptr;
}

Spoken& Spoken::operator=(const Spoken& other)
{
    other.Hold();
    Drop();
    m_object = other.m_object;
    return *this;
}

Spoken Spoken::OfWindow(HWND window)
{
    void* object = nullptr;
    ::AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible), &object);
    return Spoken(static_cast<IAccessible*>(object));
}

Spoken Spoken::OfEvent(HWND window, LONG, LONG child)
{
    const Spoken whole = OfWindow(window);
    if (!whole || child == CHILDID_SELF) {
        return whole;
    }
    VARIANT which = Self();
    which.lVal = child;
    IDispatch* part = nullptr;
    whole.m_object->get_accChild(which, &part);
    return FromDispatch(part);
}

Spoken Spoken::FromVariant(const VARIANT& result)
{
    return result.vt == VT_DISPATCH ? FromDispatch(result.pdispVal) : Spoken();
}

std::string Spoken::Get(Word word) const
{
    BSTR text = nullptr;
    if (!m_object || FAILED((m_object->*word)(Self(), &text)) || !text) {
        return std::string();
    }
    const std::string utf8 = Utf8(text, static_cast<int>(::SysStringLen(text)));
    ::SysFreeString(text);
    return utf8;
}

std::string Spoken::Name() const
{
    return Get(&IAccessible::get_accName);
}

std::string Spoken::Value() const
{
    return Get(&IAccessible::get_accValue);
}

std::string Spoken::Description() const
{
    return Get(&IAccessible::get_accDescription);
}

std::string Spoken::Action() const
{
    return Get(&IAccessible::get_accDefaultAction);
}

long Spoken::Role() const
{
    VARIANT role = {};
    return m_object && SUCCEEDED(m_object->get_accRole(Self(), &role)) && role.vt == VT_I4 ? role.lVal : 0;
}

long Spoken::State() const
{
    VARIANT state = {};
    return m_object && SUCCEEDED(m_object->get_accState(Self(), &state)) && state.vt == VT_I4 ? state.lVal : 0;
}

RECT Spoken::Place() const
{
    long x = 0, y = 0, width = 0, height = 0;
    if (m_object) {
        m_object->accLocation(&x, &y, &width, &height, Self());
    }
    return {x, y, x + width, y + height};
}

std::vector<Spoken> Spoken::Children() const
{
    std::vector<Spoken> children;
    long count = 0;
    if (m_object) {
        m_object->get_accChildCount(&count);
    }
    for (long i = 1; i <= count; ++i) {
        VARIANT which = Self();
        which.lVal = i;
        IDispatch* child = nullptr;
        if (m_object->get_accChild(which, &child) == S_OK) {
            children.push_back(FromDispatch(child));
        }
    }
    return children;
}

Spoken Spoken::Parent() const
{
    IDispatch* parent = nullptr;
    if (m_object) {
        m_object->get_accParent(&parent);
    }
    return FromDispatch(parent);
}

Spoken Spoken::Walk(long way) const
{
    VARIANT result = {};
    return m_object && m_object->accNavigate(way, Self(), &result) == S_OK ? FromVariant(result) : Spoken();
}

Spoken Spoken::Focus() const
{
    VARIANT result = {};
    return m_object && m_object->get_accFocus(&result) == S_OK ? FromVariant(result) : Spoken();
}

std::vector<Spoken> Spoken::Selection() const
{
    std::vector<Spoken> selected;
    VARIANT result = {};
    if (!m_object || m_object->get_accSelection(&result) != S_OK) {
        return selected;
    }
    if (result.vt == VT_DISPATCH) {
        selected.push_back(FromVariant(result));
    } else if (result.vt == VT_UNKNOWN) {
        IEnumVARIANT* list = nullptr;
        result.punkVal->QueryInterface(IID_IEnumVARIANT, reinterpret_cast<void**>(&list));
        result.punkVal->Release();
        VARIANT each = {};
        while (list && list->Next(1, &each, nullptr) == S_OK) {
            selected.push_back(FromVariant(each));
        }
        if (list) {
            list->Release();
        }
    }
    return selected;
}

Spoken Spoken::At(POINT screen) const
{
    VARIANT result = {};
    if (!m_object || m_object->accHitTest(screen.x, screen.y, &result) != S_OK) {
        return Spoken();
    }
    return result.vt == VT_I4 ? *this : FromVariant(result);
}

HRESULT Spoken::Select(long flags) const
{
    return m_object ? m_object->accSelect(flags, Self()) : E_POINTER;
}

HRESULT Spoken::Act() const
{
    return m_object ? m_object->accDoDefaultAction(Self()) : E_POINTER;
}

HRESULT Spoken::SetValue(const std::string& utf8) const
{
    const int length = static_cast<int>(utf8.size());
    std::wstring wide(static_cast<size_t>(::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, nullptr, 0)), L'\0');
    ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, &wide[0], static_cast<int>(wide.size()));
    BSTR text = ::SysAllocString(wide.c_str());
    const HRESULT result = m_object ? m_object->put_accValue(Self(), text) : E_POINTER;
    ::SysFreeString(text);
    return result;
}

Spoken Spoken::Find(const std::function<bool(const Spoken&)>& fits) const
{
    if (!m_object || fits(*this)) {
        return *this;
    }
    for (const Spoken& child : Children()) {
        if (const Spoken found = child.Find(fits)) {
            return found;
        }
    }
    return Spoken();
}

Spoken Spoken::FindNamed(const std::string& begin, long role) const
{
    return Find([&](const Spoken& part) {
        return (role == 0 || part.Role() == role) && part.Name().compare(0, begin.size(), begin) == 0;
    });
}

std::string ReadAloud(const Spoken& part, int depth)
{
    wchar_t role[64] = L"";
    ::GetRoleTextW(static_cast<DWORD>(part.Role()), role, 64);
    std::string text(static_cast<size_t>(2 * depth), ' ');
    text += Utf8(role, lstrlenW(role)) + ": " + part.Name();
    const std::pair<long, const char*> states[] = {{STATE_SYSTEM_FOCUSED, "focused"},
                                                   {STATE_SYSTEM_SELECTED, "selected"},
                                                   {STATE_SYSTEM_OFFSCREEN, "off screen"},
                                                   {STATE_SYSTEM_UNAVAILABLE, "unavailable"}};
    for (const auto& [state, name] : states) {
        if (part.Has(state)) {
            text += std::string(" [") + name + "]";
        }
    }
    const std::string description = part.Description();
    text += (description.empty() ? "" : " (" + description + ")") + "\n";
    for (const Spoken& child : part.Children()) {
        text += ReadAloud(child, depth + 1);
    }
    return text;
}

} // namespace accesstest
