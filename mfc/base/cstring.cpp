// CString: the shared block and what builds texts.
#include <afx.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

namespace {
int LengthOf(LPCTSTR text)
{
    if (!text) {
        return 0;
    }
    const size_t length = std::strlen(text);
    if (length > INT_MAX) {
        AfxThrowMemoryException();
    }
    return static_cast<int>(length);
}

int SumOf(int left, int right)
{
    if (left > INT_MAX - right) {
        AfxThrowMemoryException();
    }
    return left + right;
}
} // namespace

LPTSTR CString::EmptyText() noexcept
{
    static struct
    {
        Block block;
        TCHAR text[sizeof(Block)];
    } empty = {{{1}, 0, 0}, {}};
    return empty.text;
}

// At least one character of capacity, for capacity 0 marks the empty text's block.
LPTSTR CString::Allocate(int capacity)
{
    if (capacity == 0) {
        capacity = 1;
    }
    void* memory = std::malloc(sizeof(Block) + static_cast<size_t>(capacity) + 1);
    if (!memory) {
        AfxThrowMemoryException();
    }
    Block* block = new (memory) Block{{1}, 0, capacity};
    LPTSTR text = reinterpret_cast<LPTSTR>(block + 1);
    text[0] = 0;
    return text;
}

void CString::Free(LPTSTR text) noexcept
{
    std::free(BlockOf(text));
}

bool CString::IsShared() const noexcept
{
    return BlockOf(m_text)->references.load(std::memory_order_acquire) > 1;
}

bool CString::Owns(LPCTSTR text) const noexcept
{
    return text >= m_text && text <= m_text + BlockOf(m_text)->capacity;
}

// The text must be this object's own.
void CString::SetLength(int length) noexcept
{
    BlockOf(m_text)->length = length;
    m_text[length] = 0;
}

CString::CString(LPCTSTR text) : CString(text, LengthOf(text))
{
}

CString::CString(LPCTSTR text, int length) : m_text(EmptyText())
{
    SetString(text, length);
}

CString::CString(TCHAR ch, int repeat) : m_text(EmptyText())
{
    if (repeat > 0) {
        m_text = Allocate(repeat);
        std::memset(m_text, static_cast<unsigned char>(ch), static_cast<size_t>(repeat));
        SetLength(repeat);
    }
}

CString& CString::operator=(const CString& other) noexcept
{
    if (m_text != other.m_text) { // counting references takes long when it reaches memory
        other.AddReference();
        ReleaseReference();
        m_text = other.m_text;
    }
    return *this;
}

CString& CString::operator=(CString&& other) noexcept
{
    std::swap(m_text, other.m_text);
    return *this;
}

CString& CString::operator=(LPCTSTR text)
{
    SetString(text);
    return *this;
}

CString& CString::operator=(TCHAR ch)
{
    SetString(&ch, 1);
    return *this;
}

void CString::Empty() noexcept
{
    ReleaseReference();
    m_text = EmptyText();
}

TCHAR CString::GetAt(int index) const
{
    if (index < 0 || index > GetLength()) {
        AfxThrowInvalidArgException();
    }
    return m_text[index];
}

void CString::SetAt(int index, TCHAR ch)
{
    if (index < 0 || index >= GetLength()) {
        AfxThrowInvalidArgException();
    }
    GetBuffer()[index] = ch;
}

void CString::SetString(LPCTSTR text)
{
    SetString(text, LengthOf(text));
}

void CString::SetString(LPCTSTR text, int length)
{
    if (length < 0 || (!text && length > 0)) {
        AfxThrowInvalidArgException();
    }
    if (length == 0) {
        Empty();
        return;
    }
    if (!IsShared() && length <= BlockOf(m_text)->capacity) {
        std::memmove(m_text, text, static_cast<size_t>(length)); // the text may be part of this one
        SetLength(length);
        return;
    }
    LPTSTR fresh = Allocate(length);
    std::memcpy(fresh, text, static_cast<size_t>(length));
    ReleaseReference();
    m_text = fresh;
    SetLength(length);
}

void CString::Append(LPCTSTR text)
{
    Append(text, LengthOf(text));
}

void CString::Append(LPCTSTR text, int length)
{
    if (length < 0 || (!text && length > 0)) {
        AfxThrowInvalidArgException();
    }
    if (length == 0) {
        return;
    }
    const CString keep(Owns(text) ? *this : CString()); // so that a part of this text outlives the growth
    const int oldLength = GetLength();
    const int newLength = SumOf(oldLength, length);
    if (IsShared() || newLength > BlockOf(m_text)->capacity) {
        // Half as much again, so that appending one by one stays linear.
        GetBuffer(newLength <= INT_MAX / 2 ? newLength + newLength / 2 : newLength);
    }
    std::memcpy(m_text + oldLength, text, static_cast<size_t>(length));
    SetLength(newLength);
}

CString& CString::operator+=(const CString& other)
{
    Append(other, other.GetLength());
    return *this;
}

CString& CString::operator+=(LPCTSTR text)
{
    Append(text);
    return *this;
}

CString& CString::operator+=(TCHAR ch)
{
    AppendChar(ch);
    return *this;
}

void CString::Format(LPCTSTR format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    CString result;
    result.AppendFormatV(format, arguments);
    va_end(arguments);
    *this = std::move(result);
}

void CString::FormatV(LPCTSTR format, va_list arguments)
{
    CString result;
    result.AppendFormatV(format, arguments);
    *this = std::move(result);
}

void CString::AppendFormat(LPCTSTR format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    AppendFormatV(format, arguments);
    va_end(arguments);
}

void CString::AppendFormatV(LPCTSTR format, va_list arguments)
{
    if (!format) {
        AfxThrowInvalidArgException();
    }
    va_list again;
    va_copy(again, arguments);
    char fixed[256];
    const int length = std::vsnprintf(fixed, sizeof fixed, format, arguments);
    if (length < 0) {
        va_end(again);
        AfxThrowInvalidArgException();
    }
    CString piece;
    if (length < static_cast<int>(sizeof fixed)) {
        piece.SetString(fixed, length);
    } else {
        std::vsnprintf(piece.GetBuffer(length), static_cast<size_t>(length) + 1, format, again);
        piece.ReleaseBuffer(length);
    }
    va_end(again);
    *this += piece;
}

LPTSTR CString::GetBuffer(int minimum)
{
    if (minimum < 0) {
        AfxThrowInvalidArgException();
    }
    const int length = GetLength();
    const int capacity = BlockOf(m_text)->capacity;
    if (capacity == 0 || IsShared() || minimum > capacity) {
        LPTSTR fresh = Allocate(minimum > length ? minimum : length);
        std::memcpy(fresh, m_text, static_cast<size_t>(length));
        ReleaseReference();
        m_text = fresh;
        SetLength(length);
    }
    return m_text;
}

LPTSTR CString::GetBufferSetLength(int length)
{
    GetBuffer(length);
    SetLength(length);
    return m_text;
}

void CString::ReleaseBuffer(int newLength)
{
    if (newLength == -1) {
        newLength = static_cast<int>(std::strlen(m_text));
    }
    if (newLength < 0 || newLength > BlockOf(m_text)->capacity) {
        AfxThrowInvalidArgException();
    }
    if (newLength == 0) {
        Empty();
    } else {
        SetLength(newLength);
    }
}

CString CString::Joined(LPCTSTR left, int leftLength, LPCTSTR right, int rightLength)
{
    CString result;
    const int length = SumOf(leftLength, rightLength);
    if (length > 0) {
        LPTSTR text = result.GetBuffer(length);
        std::memcpy(text, left ? left : "", static_cast<size_t>(leftLength));
        std::memcpy(text + leftLength, right ? right : "", static_cast<size_t>(rightLength));
        result.SetLength(length);
    }
    return result;
}

CString operator+(const CString& left, const CString& right)
{
    return CString::Joined(left, left.GetLength(), right, right.GetLength());
}

CString operator+(const CString& left, LPCTSTR right)
{
    return CString::Joined(left, left.GetLength(), right, LengthOf(right));
}

CString operator+(LPCTSTR left, const CString& right)
{
    return CString::Joined(left, LengthOf(left), right, right.GetLength());
}

CString operator+(const CString& left, TCHAR right)
{
    return CString::Joined(left, left.GetLength(), &right, 1);
}

CString operator+(TCHAR left, const CString& right)
{
    return CString::Joined(&left, 1, right, right.GetLength());
}
