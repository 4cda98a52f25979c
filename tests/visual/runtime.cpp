// What Visual C++'s compiler and C++ library bring to a program and to a DLL, as far as ours ask for it, for clang with
// MinGW's headers: the start, thread-local storage, and the compiled part of the C++ library. C functions, heap and
// exceptions are those of the system's msvcr120.dll, which program and DLL share. Enough for tests: trees are not kept
// in balance, and what the C++ library throws ends the program.
#include <windows.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <functional>
#include <malloc.h>
#include <map>
#include <memory>
#include <new>
#include <string>
#include <typeinfo>
#include <unordered_map>

// ---- The start: constructors of global objects, then main or DllMain.

typedef void(__cdecl* Initializer)();
extern "C" {
__attribute__((section(".CRT$XCA"))) Initializer g_firstInitializer = nullptr;
__attribute__((section(".CRT$XCZ"))) Initializer g_lastInitializer = nullptr;
int _fltused = 0;
}

static void RunInitializers()
{
    for (Initializer* one = &g_firstInitializer; one < &g_lastInitializer; ++one) {
        if (*one) {
            (*one)();
        }
    }
}

#ifdef RUNTIME_OF_DLL
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID);
extern "C" BOOL WINAPI DllStart(HINSTANCE module, DWORD reason, LPVOID reserved)
{
    if (reason == DLL_PROCESS_ATTACH) {
        RunInitializers();
    }
    return DllMain(module, reason, reserved);
}
#else
int main();
extern "C" void ProgramStart()
{
    RunInitializers();
    std::exit(main());
}
#endif

// Destructors of global objects do not run: the process ends anyway.
extern "C" int __cdecl atexit(void(__cdecl*)())
{
    return 0;
}

// ---- Thread-local storage: the block that each thread gets, and where the system finds it.

extern "C" {
unsigned long _tls_index = 0;
__attribute__((section(".tls"))) char g_tlsBegin = 0;
__attribute__((section(".tls$ZZZ"))) char g_tlsEnd = 0;
__attribute__((section(".CRT$XLA"))) PIMAGE_TLS_CALLBACK g_tlsCallbacks = nullptr;
extern const IMAGE_TLS_DIRECTORY32 _tls_used;
const IMAGE_TLS_DIRECTORY32 _tls_used = {
    reinterpret_cast<DWORD>(&g_tlsBegin),
    reinterpret_cast<DWORD>(&g_tlsEnd),
    reinterpret_cast<DWORD>(&_tls_index),
    reinterpret_cast<DWORD>(&g_tlsCallbacks),
    0,
};
void __cdecl __tlregdtor(void(__cdecl*)())
{
}
}
__asm__(".globl __tls_array\n__tls_array = 44"); // of the thread's block, which the compiler reads

// ---- What MinGW's headers expect of its own library.

extern "C" {
int __cdecl _vscprintf(const char* format, va_list arguments);
int __cdecl _vsnprintf(char* text, size_t size, const char* format, va_list arguments);
int __cdecl __mingw_vsnprintf(char* text, size_t size, const char* format, va_list arguments)
{
    const int length = _vscprintf(format, arguments);
    if (size > 0) {
        _vsnprintf(text, size, format, arguments);
        text[size - 1] = 0;
    }
    return length;
}
int __cdecl __mingw_vfprintf(FILE* file, const char* format, va_list arguments)
{
    return vfprintf(file, format, arguments);
}
int __cdecl __mingw_vprintf(const char* format, va_list arguments)
{
    return vfprintf(stdout, format, arguments);
}
int _IsEqualGUID(const GUID& a, const GUID& b)
{
    return std::memcmp(&a, &b, sizeof(GUID)) == 0;
}

// Texts of several bytes a character, which its headers take from a DLL.
char* (*g_strchr)(const char*, int)__asm__("__imp___tcschr") = &strchr;
char* (*g_strrchr)(const char*, int)__asm__("__imp___tcsrchr") = &strrchr;
char* (*g_strstr)(const char*, const char*)__asm__("__imp___tcsstr") = &strstr;
char* (*g_strpbrk)(const char*, const char*)__asm__("__imp___tcspbrk") = &strpbrk;

// Those of wide characters are inline functions in Microsoft's headers.
wchar_t* wmemset(wchar_t* text, wchar_t character, size_t count)
{
    std::fill_n(text, count, character);
    return text;
}
wchar_t* wmemcpy(wchar_t* to, const wchar_t* from, size_t count)
{
    return static_cast<wchar_t*>(std::memcpy(to, from, count * sizeof(wchar_t)));
}
wchar_t* wmemmove(wchar_t* to, const wchar_t* from, size_t count)
{
    return static_cast<wchar_t*>(std::memmove(to, from, count * sizeof(wchar_t)));
}
int wmemcmp(const wchar_t* a, const wchar_t* b, size_t count)
{
    const auto differ = std::mismatch(a, a + count, b);
    return differ.first == a + count ? 0 : *differ.first < *differ.second ? -1 : 1;
}
wchar_t* wmemchr(const wchar_t* text, wchar_t character, size_t count)
{
    const wchar_t* found = std::find(text, text + count, character);
    return found == text + count ? nullptr : const_cast<wchar_t*>(found);
}

// Mutexes: -1 as MinGW's headers begin them, 0 while somebody has one.
int pthread_mutex_init(intptr_t* mutex, const unsigned*)
{
    *mutex = -1;
    return 0;
}
int pthread_mutex_destroy(intptr_t*)
{
    return 0;
}
int pthread_mutex_lock(intptr_t* mutex)
{
    while (InterlockedCompareExchange(reinterpret_cast<volatile LONG*>(mutex), 0, -1) != -1) {
        Sleep(0);
    }
    return 0;
}
int pthread_mutex_unlock(intptr_t* mutex)
{
    InterlockedExchange(reinterpret_cast<volatile LONG*>(mutex), -1);
    return 0;
}

[[noreturn]] void __std_terminate()
{
    std::abort();
}
}

// ---- Types at run time: the compiler's records have the name behind two pointers.

bool std::type_info::operator==(const std::type_info& other) const noexcept
{
    const size_t name = 2 * sizeof(void*);
    return std::strcmp(reinterpret_cast<const char*>(this) + name, reinterpret_cast<const char*>(&other) + name) == 0;
}

// ---- The heap.

const std::nothrow_t std::nothrow{};
void* operator new(size_t size)
{
    return std::malloc(size ? size : 1);
}
void* operator new(size_t size, const std::nothrow_t&) noexcept
{
    return std::malloc(size ? size : 1);
}
void operator delete(void* memory) noexcept
{
    std::free(memory);
}
void* operator new(size_t size, std::align_val_t alignment)
{
    return _aligned_malloc(size ? size : 1, static_cast<size_t>(alignment));
}
void operator delete(void* memory, std::align_val_t) noexcept
{
    _aligned_free(memory);
}

// ---- The compiled part of the C++ library.

template class std::allocator<char>;
template class std::allocator<wchar_t>;
template class std::basic_string<char>;
template class std::basic_string<wchar_t>;

namespace std {

exception::~exception() noexcept
{
}
const char* exception::what() const noexcept
{
    return "exception";
}
bad_weak_ptr::~bad_weak_ptr() noexcept
{
}
const char* bad_weak_ptr::what() const noexcept
{
    return "bad_weak_ptr";
}

void __throw_bad_alloc()
{
    abort();
}
void __throw_bad_array_new_length()
{
    abort();
}
void __throw_bad_function_call()
{
    abort();
}
void __throw_length_error(const char*)
{
    abort();
}
void __throw_logic_error(const char*)
{
    abort();
}
void __throw_out_of_range_fmt(const char*, ...)
{
    abort();
}
void __throw_system_error(int)
{
    abort();
}

size_t __detail::_Prime_rehash_policy::_M_next_bkt(size_t count) const
{
    return count | 1;
}
pair<bool, size_t> __detail::_Prime_rehash_policy::_M_need_rehash(size_t buckets, size_t elements, size_t added) const
{
    const size_t needed = elements + added;
    return {needed > buckets, 2 * needed + 1};
}

// A binary tree under a head whose parent is the root, left the first node and right the last.
_Rb_tree_node_base* _Rb_tree_increment(_Rb_tree_node_base* node) noexcept
{
    if (node->_M_right) {
        return _Rb_tree_node_base::_S_minimum(node->_M_right);
    }
    _Rb_tree_node_base* parent = node->_M_parent;
    while (node == parent->_M_right) {
        node = parent;
        parent = parent->_M_parent;
    }
    return node->_M_right == parent ? node : parent; // the first: past a root that has no right branch
}
const _Rb_tree_node_base* _Rb_tree_increment(const _Rb_tree_node_base* node) noexcept
{
    return _Rb_tree_increment(const_cast<_Rb_tree_node_base*>(node));
}
_Rb_tree_node_base* _Rb_tree_decrement(_Rb_tree_node_base* node) noexcept
{
    if (node->_M_color == _S_red && node->_M_parent->_M_parent == node) {
        return node->_M_right; // only the head is red here
    }
    if (node->_M_left) {
        return _Rb_tree_node_base::_S_maximum(node->_M_left);
    }
    _Rb_tree_node_base* parent = node->_M_parent;
    while (node == parent->_M_left) {
        node = parent;
        parent = parent->_M_parent;
    }
    return parent;
}

void _Rb_tree_insert_and_rebalance(const bool left, _Rb_tree_node_base* node, _Rb_tree_node_base* parent,
                                   _Rb_tree_node_base& head) noexcept
{
    node->_M_parent = parent;
    node->_M_left = node->_M_right = nullptr;
    node->_M_color = _S_black;
    if (left) {
        parent->_M_left = node; // of the head: the first node
        if (parent == &head) {
            head._M_parent = head._M_right = node;
        } else if (parent == head._M_left) {
            head._M_left = node;
        }
    } else {
        parent->_M_right = node;
        if (parent == head._M_right) {
            head._M_right = node;
        }
    }
}

static void PutInPlace(_Rb_tree_node_base& head, _Rb_tree_node_base* node, _Rb_tree_node_base* other)
{
    if (head._M_parent == node) {
        head._M_parent = other;
    } else if (node->_M_parent->_M_left == node) {
        node->_M_parent->_M_left = other;
    } else {
        node->_M_parent->_M_right = other;
    }
    if (other) {
        other->_M_parent = node->_M_parent;
    }
}

_Rb_tree_node_base* _Rb_tree_rebalance_for_erase(_Rb_tree_node_base* const node, _Rb_tree_node_base& head) noexcept
{
    if (!node->_M_left || !node->_M_right) {
        PutInPlace(head, node, node->_M_left ? node->_M_left : node->_M_right);
    } else {
        _Rb_tree_node_base* next = _Rb_tree_node_base::_S_minimum(node->_M_right);
        if (next->_M_parent != node) {
            PutInPlace(head, next, next->_M_right);
            next->_M_right = node->_M_right;
            next->_M_right->_M_parent = next;
        }
        PutInPlace(head, node, next);
        next->_M_left = node->_M_left;
        next->_M_left->_M_parent = next;
    }
    _Rb_tree_node_base* root = head._M_parent;
    head._M_left = root ? _Rb_tree_node_base::_S_minimum(root) : &head;
    head._M_right = root ? _Rb_tree_node_base::_S_maximum(root) : &head;
    return node;
}

} // namespace std
