// CString: looking for, cutting, replacing and comparing. All walks go by character, not by byte.
#include <afx.h>
#include <dbcs.h>

#include <cstring>
#include <utility>

using dbcs::CharSize;

namespace {
// Whether the character at p is in the set.
bool IsOneOf(const char* p, LPCTSTR characters)
{
    if (!characters) {
        return false;
    }
    const int size = CharSize(p);
    for (const char* c = characters; *c != 0; c += CharSize(c)) {
        if (CharSize(c) == size && std::memcmp(c, p, static_cast<size_t>(size)) == 0) {
            return true;
        }
    }
    return false;
}

// Bytes at the beginning of the text that are, or are not, in the set.
int SpanOf(const char* text, LPCTSTR characters, bool included)
{
    const char* p = text;
    while (*p != 0 && IsOneOf(p, characters) == included) {
        p += CharSize(p);
    }
    return static_cast<int>(p - text);
}

char Lower(char ch)
{
    return ch >= 'A' && ch <= 'Z' ? static_cast<char>(ch - 'A' + 'a') : ch;
}

char Upper(char ch)
{
    return ch >= 'a' && ch <= 'z' ? static_cast<char>(ch - 'a' + 'A') : ch;
}

void ConvertEach(LPTSTR text, char (*convert)(char))
{
    for (LPTSTR p = text; *p != 0; p += CharSize(p)) { // a lead byte is no letter
        *p = convert(*p);
    }
}
} // namespace

CString CString::Left(int count) const
{
    return Mid(0, count);
}

CString CString::Right(int count) const
{
    return count >= GetLength() ? *this : Mid(GetLength() - (count < 0 ? 0 : count));
}

CString CString::Mid(int first, int count) const
{
    const int length = GetLength();
    if (first < 0) {
        first = 0;
    }
    if (first >= length || count <= 0) {
        return CString();
    }
    if (count > length - first) {
        count = length - first;
    }
    return count == length ? *this : CString(m_text + first, count);
}

CString CString::SpanIncluding(LPCTSTR characters) const
{
    return Left(SpanOf(m_text, characters, true));
}

CString CString::SpanExcluding(LPCTSTR characters) const
{
    return Left(SpanOf(m_text, characters, false));
}

int CString::Find(TCHAR ch, int start) const
{
    const TCHAR text[] = {ch, 0};
    return start >= GetLength() ? -1 : Find(text, start);
}

int CString::Find(LPCTSTR text, int start) const
{
    if (!text || start < 0 || start > GetLength()) {
        return -1;
    }
    const size_t size = std::strlen(text);
    for (const char* p = m_text + start;; p += CharSize(p)) {
        if (std::strncmp(p, text, size) == 0) {
            return static_cast<int>(p - m_text);
        }
        if (*p == 0) {
            return -1;
        }
    }
}

int CString::ReverseFind(TCHAR ch) const
{
    int found = -1;
    for (const char* p = m_text; *p != 0; p += CharSize(p)) {
        if (*p == ch) {
            found = static_cast<int>(p - m_text);
        }
    }
    return found;
}

int CString::FindOneOf(LPCTSTR characters) const
{
    const int position = SpanOf(m_text, characters, false);
    return m_text[position] != 0 ? position : -1;
}

CString CString::Tokenize(LPCTSTR delimiters, int& start) const
{
    if (start >= 0 && start < GetLength()) {
        const int first = start + SpanOf(m_text + start, delimiters, true);
        if (m_text[first] != 0) {
            const int count = SpanOf(m_text + first, delimiters, false);
            const int end = first + count;
            start = end + (m_text[end] != 0 ? CharSize(m_text + end) : 1);
            return Mid(first, count);
        }
    }
    start = -1;
    return CString();
}

int CString::Replace(TCHAR oldChar, TCHAR newChar)
{
    int count = 0;
    if (oldChar != newChar && oldChar != 0) {
        for (int i = Find(oldChar); i >= 0; i = Find(oldChar, i + 1)) {
            SetAt(i, newChar);
            ++count;
        }
    }
    return count;
}

int CString::Replace(LPCTSTR oldText, LPCTSTR newText)
{
    const int oldLength = oldText ? static_cast<int>(std::strlen(oldText)) : 0;
    int found = oldLength > 0 ? Find(oldText) : -1;
    if (found < 0) {
        return 0;
    }
    CString result;
    int count = 0;
    int copied = 0;
    for (; found >= 0; found = Find(oldText, copied)) {
        result.Append(m_text + copied, found - copied);
        result.Append(newText);
        copied = found + oldLength;
        ++count;
    }
    result.Append(m_text + copied, GetLength() - copied);
    *this = std::move(result);
    return count;
}

int CString::Remove(TCHAR ch)
{
    const TCHAR text[] = {ch, 0};
    return Replace(text, nullptr);
}

int CString::Insert(int index, TCHAR ch)
{
    const TCHAR text[] = {ch, 0};
    return Insert(index, text);
}

int CString::Insert(int index, LPCTSTR text)
{
    const CString tail = Mid(index);
    CString result = Left(index);
    result += text;
    result += tail;
    *this = std::move(result);
    return GetLength();
}

int CString::Delete(int index, int count)
{
    if (index < 0) {
        index = 0;
    }
    if (count > 0 && index < GetLength()) {
        const CString tail = count < GetLength() - index ? Mid(index + count) : CString();
        CString result = Left(index);
        result += tail;
        *this = std::move(result);
    }
    return GetLength();
}

void CString::KeepRange(int first, int count)
{
    if (count != GetLength()) {
        *this = Mid(first, count);
    }
}

CString& CString::TrimLeft(LPCTSTR characters)
{
    const int first = SpanOf(m_text, characters, true);
    KeepRange(first, GetLength() - first);
    return *this;
}

CString& CString::TrimRight(LPCTSTR characters)
{
    const char* end = m_text;
    for (const char* p = m_text; *p != 0;) {
        const bool kept = !IsOneOf(p, characters);
        p += CharSize(p);
        if (kept) {
            end = p;
        }
    }
    KeepRange(0, static_cast<int>(end - m_text));
    return *this;
}

CString& CString::TrimLeft(TCHAR ch)
{
    const TCHAR characters[] = {ch, 0};
    return TrimLeft(characters);
}

CString& CString::TrimRight(TCHAR ch)
{
    const TCHAR characters[] = {ch, 0};
    return TrimRight(characters);
}

CString& CString::MakeUpper()
{
    ConvertEach(GetBuffer(), Upper);
    return *this;
}

CString& CString::MakeLower()
{
    ConvertEach(GetBuffer(), Lower);
    return *this;
}

int CString::Compare(LPCTSTR text) const
{
    return std::strcmp(m_text, text ? text : "");
}

int CString::CompareNoCase(LPCTSTR text) const
{
    CString left(*this);
    CString right(text);
    return left.MakeLower().Compare(right.MakeLower());
}
