// A program that reads windows aloud, or the part of one that asks: it knows a window by its handle alone.
#pragma once

#include <windows.h>
#include <oleacc.h>

#include <functional>
#include <string>
#include <vector>

namespace accesstest {

// A part of a window; empty: there is none. Copies share the object.
class Spoken
{
public:
    Spoken() = default;
    explicit Spoken(IAccessible* object) : m_object(object) {} // takes the reference over
    Spoken(const Spoken& other) : m_object(other.m_object) { Hold(); }
    Spoken& operator=(const Spoken& other);
    ~Spoken() { Drop(); }

    static Spoken OfWindow(HWND window);
    static Spoken OfEvent(HWND window, LONG object, LONG child);

    explicit operator bool() const { return m_object != nullptr; }
    IAccessible* Object() const { return m_object; }

    std::string Name() const; // UTF-8
    std::string Value() const;
    std::string Description() const;
    std::string Action() const;
    long Role() const;
    long State() const;
    RECT Place() const; // screen pixels
    bool Has(long state) const { return (State() & state) != 0; }

    std::vector<Spoken> Children() const;
    Spoken Parent() const;
    Spoken Walk(long way) const;
    Spoken Focus() const;
    std::vector<Spoken> Selection() const;
    Spoken At(POINT screen) const;

    HRESULT Select(long flags = SELFLAG_TAKESELECTION) const;
    HRESULT Act() const;
    HRESULT SetValue(const std::string& utf8) const;

    // The first part, this one included, that fits, from the top.
    Spoken Find(const std::function<bool(const Spoken&)>& fits) const;
    Spoken FindNamed(const std::string& begin, long role = 0) const; // whose name begins so

private:
    void Hold() const;
    void Drop();
    static Spoken FromVariant(const VARIANT& result);
    using Word = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, BSTR*);
    std::string Get(Word word) const;

    IAccessible* m_object = nullptr;
};

// A line for each part, two blanks deeper than its parent: role, name, states that can be named, value.
std::string ReadAloud(const Spoken& part, int depth = 0);

} // namespace accesstest
