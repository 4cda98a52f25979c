// CFile, CMemFile and CArchive.
#include <afx.h>

#include <algorithm>
#include <cstdlib>
#include <cstdint>
#include <cstring>
#include <utility>

IMPLEMENT_DYNAMIC(CFile, CObject)
IMPLEMENT_DYNAMIC(CMemFile, CFile)

ULONGLONG CFile::GetPosition() const
{
    AfxThrowNotSupportedException();
}

ULONGLONG CFile::GetLength() const
{
    AfxThrowNotSupportedException();
}

ULONGLONG CFile::Seek(LONGLONG, UINT)
{
    AfxThrowNotSupportedException();
}

void CFile::SetLength(ULONGLONG)
{
    AfxThrowNotSupportedException();
}

UINT CFile::Read(void*, UINT)
{
    AfxThrowNotSupportedException();
}

void CFile::Write(const void*, UINT)
{
    AfxThrowNotSupportedException();
}

ULONGLONG CMemFile::Seek(LONGLONG offset, UINT from)
{
    const size_t base = from == begin ? 0 : from == current ? m_position : m_length;
    const LONGLONG position = static_cast<LONGLONG>(base) + offset;
    if (position < 0 || static_cast<ULONGLONG>(position) > PTRDIFF_MAX) {
        AfxThrowFileException(CFileException::badSeek);
    }
    m_position = static_cast<size_t>(position);
    return m_position;
}

void CMemFile::Reserve(ULONGLONG length)
{
    if (length <= m_capacity) {
        return;
    }
    if (m_growBytes == 0) {
        AfxThrowFileException(CFileException::diskFull);
    }
    void* data = nullptr;
    ULONGLONG wanted = 0;
    constexpr ULONGLONG most = PTRDIFF_MAX;
    if (length <= most && length + m_growBytes <= most) {
        wanted = (length + m_growBytes - 1) / m_growBytes * m_growBytes;
        data = std::realloc(m_data, static_cast<size_t>(wanted));
    }
    if (!data) {
        AfxThrowMemoryException();
    }
    m_data = static_cast<BYTE*>(data);
    m_capacity = static_cast<size_t>(wanted);
}

void CMemFile::SetLength(ULONGLONG newLength)
{
    Reserve(newLength);
    if (newLength > m_length) {
        std::memset(m_data + m_length, 0, static_cast<size_t>(newLength) - m_length);
    }
    m_length = static_cast<size_t>(newLength);
    m_position = std::min(m_position, m_length);
}

UINT CMemFile::Read(void* buffer, UINT count)
{
    const size_t left = m_position < m_length ? m_length - m_position : 0;
    const UINT size = static_cast<UINT>(std::min<size_t>(left, count));
    if (size > 0) {
        std::memcpy(buffer, m_data + m_position, size);
        m_position += size;
    }
    return size;
}

void CMemFile::Write(const void* buffer, UINT count)
{
    if (count == 0) {
        return;
    }
    const size_t position = m_position;
    const ULONGLONG after = static_cast<ULONGLONG>(position) + count;
    if (after > m_length) {
        SetLength(after);
    }
    std::memcpy(m_data + position, buffer, count);
    m_position = position + count;
}

void CMemFile::Close()
{
    if (m_growBytes != 0) {
        std::free(m_data);
    }
    Forget();
}

BYTE* CMemFile::Detach()
{
    BYTE* data = m_data;
    Forget();
    return data;
}

void CArchive::Flush()
{
    if (m_file) {
        m_file->Flush();
    }
}

void CArchive::Close()
{
    Flush();
    m_file = nullptr;
}

UINT CArchive::Read(void* buffer, UINT count)
{
    if (!m_isLoading) {
        AfxThrowArchiveException(CArchiveException::writeOnly);
    }
    if (!m_file) {
        AfxThrowArchiveException(CArchiveException::genericException);
    }
    return m_file->Read(buffer, count);
}

void CArchive::ReadAll(void* buffer, UINT count)
{
    if (Read(buffer, count) != count) {
        AfxThrowArchiveException(CArchiveException::endOfFile);
    }
}

void CArchive::Write(const void* buffer, UINT count)
{
    if (m_isLoading) {
        AfxThrowArchiveException(CArchiveException::readOnly);
    }
    if (!m_file) {
        AfxThrowArchiveException(CArchiveException::genericException);
    }
    m_file->Write(buffer, count);
}

DWORD CArchive::ReadCount()
{
    WORD small = 0;
    *this >> small;
    DWORD count = small;
    if (small == 0xffff) {
        *this >> count;
    }
    return count;
}

void CArchive::WriteCount(DWORD count)
{
    if (count < 0xffff) {
        *this << static_cast<WORD>(count);
    } else {
        *this << static_cast<WORD>(0xffff) << count;
    }
}

CArchive& CArchive::operator>>(bool& value)
{
    BYTE byte = 0;
    *this >> byte;
    value = byte != 0;
    return *this;
}

CArchive& operator<<(CArchive& ar, const CString& text)
{
    const DWORD length = static_cast<DWORD>(text.GetLength());
    if (length < 0xff) {
        ar << static_cast<BYTE>(length);
    } else {
        ar << static_cast<BYTE>(0xff);
        if (length < 0xffff) {
            ar << static_cast<WORD>(length);
        } else {
            ar << static_cast<WORD>(0xffff) << length;
        }
    }
    ar.Write(text.GetString(), length);
    return ar;
}

// The text grows as bytes arrive, so that a damaged length costs no memory beyond what the file holds.
CArchive& operator>>(CArchive& ar, CString& text)
{
    BYTE tiny = 0;
    ar >> tiny;
    DWORD left = tiny;
    if (tiny == 0xff) {
        WORD small = 0;
        ar >> small;
        left = small;
        if (small == 0xffff) {
            ar >> left;
        }
    }
    CString loaded;
    char piece[4096];
    while (left > 0) {
        const UINT size = static_cast<UINT>(std::min<DWORD>(left, sizeof piece));
        ar.ReadAll(piece, size);
        loaded.Append(piece, static_cast<int>(size));
        left -= size;
    }
    text = std::move(loaded);
    return ar;
}
