// CString: a narrow text with value semantics.
//
// A CString is one pointer wide and points at the first character of a zero-terminated, reference counted block;
// copies share the block until one of them is written to (the count is atomic). Lengths and indices count bytes.
// Operations that look for a character never mistake the second byte of a code page 932 pair for one; operations that
// cut by position (Left, Mid, Delete, ...) cut at exactly that byte. Upper and lower case concern ASCII letters only.
// Lack of memory raises CMemoryException and leaves the text as it was.
#pragma once

#include <afxwintypes.h>

#include <atomic>
#include <cstdarg>

#if defined(__GNUC__)
#define AFX_PRINTF_CHECK(text, first) __attribute__((format(gnu_printf, text, first)))
#else
#define AFX_PRINTF_CHECK(text, first)
#endif

class CString
{
public:
    CString() noexcept : m_text(EmptyText()) {}
    CString(const CString& other) noexcept : m_text(other.m_text) { AddReference(); }
    CString(CString&& other) noexcept : m_text(other.m_text) { other.m_text = EmptyText(); }
    CString(LPCTSTR text); // a null pointer gives the empty text
    CString(LPCTSTR text, int length);
    explicit CString(TCHAR ch, int repeat = 1);
    ~CString() { ReleaseReference(); }

    CString& operator=(const CString& other) noexcept;
    CString& operator=(CString&& other) noexcept;
    CString& operator=(LPCTSTR text);
    CString& operator=(TCHAR ch);

    int GetLength() const noexcept { return BlockOf(m_text)->length; }
    BOOL IsEmpty() const noexcept { return GetLength() == 0; }
    void Empty() noexcept;
    operator LPCTSTR() const noexcept { return m_text; }
    LPCTSTR GetString() const noexcept { return m_text; }

    // Index 0 to the length, where the terminating zero is; anything else raises CInvalidArgException.
    TCHAR GetAt(int index) const;
    TCHAR operator[](int index) const { return GetAt(index); }
    // Index 0 to the length less one, or CInvalidArgException.
    void SetAt(int index, TCHAR ch);

    void SetString(LPCTSTR text);
    void SetString(LPCTSTR text, int length);
    void Append(LPCTSTR text);
    void Append(LPCTSTR text, int length);
    void AppendChar(TCHAR ch) { Append(&ch, 1); }
    CString& operator+=(const CString& other);
    CString& operator+=(LPCTSTR text);
    CString& operator+=(TCHAR ch);

    // printf formats. The arguments may refer to this text itself. A CString argument needs (LPCTSTR).
    void Format(LPCTSTR format, ...) AFX_PRINTF_CHECK(2, 3);
    void FormatV(LPCTSTR format, va_list arguments) AFX_PRINTF_CHECK(2, 0);
    void AppendFormat(LPCTSTR format, ...) AFX_PRINTF_CHECK(2, 3);
    void AppendFormatV(LPCTSTR format, va_list arguments) AFX_PRINTF_CHECK(2, 0);

    // Positions and counts beyond the text are cut to it.
    CString Left(int count) const;
    CString Right(int count) const;
    CString Mid(int first) const { return Mid(first, GetLength()); }
    CString Mid(int first, int count) const;
    CString SpanIncluding(LPCTSTR characters) const;
    CString SpanExcluding(LPCTSTR characters) const;

    // Where it begins, or -1.
    int Find(TCHAR ch, int start = 0) const;
    int Find(LPCTSTR text, int start = 0) const;
    int ReverseFind(TCHAR ch) const;
    int FindOneOf(LPCTSTR characters) const;

    // The next run of characters that are no delimiters, from start on; start moves past it, and becomes -1
    // (with the empty text returned) when there is none.
    CString Tokenize(LPCTSTR delimiters, int& start) const;

    // How many were replaced or removed.
    int Replace(TCHAR oldChar, TCHAR newChar);
    int Replace(LPCTSTR oldText, LPCTSTR newText);
    int Remove(TCHAR ch);
    // The new length. Insert puts text beyond the end at the end.
    int Insert(int index, TCHAR ch);
    int Insert(int index, LPCTSTR text);
    int Delete(int index, int count = 1);

    CString& TrimLeft() { return TrimLeft(WhiteSpace()); }
    CString& TrimRight() { return TrimRight(WhiteSpace()); }
    CString& Trim() { return Trim(WhiteSpace()); }
    CString& TrimLeft(LPCTSTR characters);
    CString& TrimRight(LPCTSTR characters);
    CString& Trim(LPCTSTR characters) { return TrimRight(characters).TrimLeft(characters); }
    CString& TrimLeft(TCHAR ch);
    CString& TrimRight(TCHAR ch);
    CString& Trim(TCHAR ch) { return TrimRight(ch).TrimLeft(ch); }
    CString& MakeUpper();
    CString& MakeLower();

    // Bytes compared as unsigned values: negative, 0, positive.
    int Compare(LPCTSTR text) const;
    int CompareNoCase(LPCTSTR text) const;

    friend CString operator+(const CString& left, const CString& right);
    friend CString operator+(const CString& left, LPCTSTR right);
    friend CString operator+(LPCTSTR left, const CString& right);
    friend CString operator+(const CString& left, TCHAR right);
    friend CString operator+(TCHAR left, const CString& right);

    // Bytes compared as unsigned values. A null pointer counts as the empty text.
    friend bool operator==(const CString& left, const CString& right)
    {
        return left.m_text == right.m_text || (left.GetLength() == right.GetLength() && left.Compare(right) == 0);
    }
    friend bool operator==(const CString& left, LPCTSTR right) { return left.Compare(right) == 0; }
    friend bool operator==(LPCTSTR left, const CString& right) { return right.Compare(left) == 0; }
    friend bool operator!=(const CString& left, const CString& right) { return !(left == right); }
    friend bool operator!=(const CString& left, LPCTSTR right) { return left.Compare(right) != 0; }
    friend bool operator!=(LPCTSTR left, const CString& right) { return right.Compare(left) != 0; }
    friend bool operator<(const CString& left, const CString& right) { return left.Compare(right) < 0; }
    friend bool operator<(const CString& left, LPCTSTR right) { return left.Compare(right) < 0; }
    friend bool operator<(LPCTSTR left, const CString& right) { return right.Compare(left) > 0; }
    friend bool operator>(const CString& left, const CString& right) { return left.Compare(right) > 0; }
    friend bool operator>(const CString& left, LPCTSTR right) { return left.Compare(right) > 0; }
    friend bool operator>(LPCTSTR left, const CString& right) { return right.Compare(left) < 0; }
    friend bool operator<=(const CString& left, const CString& right) { return left.Compare(right) <= 0; }
    friend bool operator<=(const CString& left, LPCTSTR right) { return left.Compare(right) <= 0; }
    friend bool operator<=(LPCTSTR left, const CString& right) { return right.Compare(left) >= 0; }
    friend bool operator>=(const CString& left, const CString& right) { return left.Compare(right) >= 0; }
    friend bool operator>=(const CString& left, LPCTSTR right) { return left.Compare(right) >= 0; }
    friend bool operator>=(LPCTSTR left, const CString& right) { return right.Compare(left) <= 0; }

    // A buffer of at least this many characters (and the zero) that belongs to this text alone. After writing to it
    // and before anything else, ReleaseBuffer takes the new length, -1: up to the first zero.
    LPTSTR GetBuffer() { return GetBuffer(GetLength()); }
    LPTSTR GetBuffer(int minimum);
    LPTSTR GetBufferSetLength(int length);
    void ReleaseBuffer(int newLength = -1);
    void ReleaseBufferSetLength(int newLength) { ReleaseBuffer(newLength); }

#ifdef _WIN32
    BOOL LoadString(UINT nID);
#endif

private:
    struct Block
    {
        std::atomic<int> references;
        int length;
        int capacity; // characters that fit, without the zero
    };

    static LPTSTR EmptyText() noexcept;
    static LPCTSTR WhiteSpace() noexcept
    {
        return " \t\n\v\f\r";
    }
    static Block* BlockOf(LPTSTR text) noexcept
    {
        return reinterpret_cast<Block*>(text) - 1;
    }
    static LPTSTR Allocate(int capacity);
    static CString Joined(LPCTSTR left, int leftLength, LPCTSTR right, int rightLength);

    // The block of the empty text is shared by all and never counted: its capacity is 0.
    void AddReference() const noexcept
    {
        if (BlockOf(m_text)->capacity != 0) {
            BlockOf(m_text)->references.fetch_add(1, std::memory_order_relaxed);
        }
    }
    void ReleaseReference() noexcept
    {
        if (BlockOf(m_text)->capacity != 0 &&
            BlockOf(m_text)->references.fetch_sub(1, std::memory_order_acq_rel) == 1) {
            Free(m_text);
        }
    }
    static void Free(LPTSTR text) noexcept;
    bool IsShared() const noexcept;
    bool Owns(LPCTSTR text) const noexcept;
    void SetLength(int length) noexcept;
    void KeepRange(int first, int count);

    LPTSTR m_text;
};
