// Files as streams of bytes, the file in memory, and the archive that stores values in a file. Bytes are little-endian.
#pragma once

#include <afxexcept.h>
#include <afxobject.h>
#include <afxstr.h>

// The interface of all files. The base itself is no file: its operations raise CNotSupportedException.
class CFile : public CObject
{
    DECLARE_DYNAMIC(CFile)
public:
    enum SeekPosition
    {
        begin,
        current,
        end
    };
    CFile() = default;

    virtual ULONGLONG GetPosition() const;
    virtual ULONGLONG GetLength() const;
    // The new position. Before the beginning: CFileException badSeek.
    virtual ULONGLONG Seek(LONGLONG offset, UINT from);
    virtual void SetLength(ULONGLONG newLength);
    // How many bytes were read: fewer than asked for only at the end.
    virtual UINT Read(void* buffer, UINT count);
    virtual void Write(const void* buffer, UINT count);
    virtual void Flush() {}
    virtual void Close() {}
    ULONGLONG SeekToEnd() { return Seek(0, end); }
    void SeekToBegin() { Seek(0, begin); }
};

// A file in memory. Writing beyond the end lengthens it; lack of memory raises CMemoryException and leaves it
// unchanged.
class CMemFile : public CFile
{
    DECLARE_DYNAMIC(CMemFile)
public:
    // Memory grows by multiples of growBytes.
    explicit CMemFile(UINT growBytes = 1024) : m_growBytes(growBytes != 0 ? growBytes : 1) {}
    // A file over the caller's bytes: it can be read and overwritten, not lengthened (CFileException diskFull).
    CMemFile(BYTE* buffer, UINT size) : m_data(buffer), m_capacity(size), m_length(size), m_growBytes(0) {}
    ~CMemFile() override { Close(); }

    ULONGLONG GetPosition() const override { return m_position; }
    ULONGLONG GetLength() const override { return m_length; }
    ULONGLONG Seek(LONGLONG offset, UINT from) override;
    void SetLength(ULONGLONG newLength) override;
    UINT Read(void* buffer, UINT count) override;
    void Write(const void* buffer, UINT count) override;
    void Close() override;
    // Hands the bytes over to the caller, who frees them with free() unless they were the caller's own.
    BYTE* Detach();

private:
    void Reserve(ULONGLONG length);
    void Forget() { m_data = nullptr, m_capacity = m_length = m_position = 0; }

    BYTE* m_data = nullptr;
    size_t m_capacity = 0;
    size_t m_length = 0;
    size_t m_position = 0;
    UINT m_growBytes; // 0: the bytes are the caller's
};

// Stores values in a file or loads them from it, in one direction all along. Loading beyond the end raises
// CArchiveException endOfFile, the wrong direction readOnly or writeOnly. Nothing is buffered, and the file stays open.
class CArchive
{
public:
    enum Mode
    {
        store = 0,
        load = 1
    };
    CArchive(CFile* file, UINT mode) : m_file(file), m_isLoading(mode & load) {}
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;

    BOOL IsLoading() const { return m_isLoading; }
    BOOL IsStoring() const { return !m_isLoading; }
    CFile* GetFile() const { return m_file; }
    void Flush();
    void Close();

    // How many bytes were read.
    UINT Read(void* buffer, UINT count);
    void Write(const void* buffer, UINT count);
    // A number of elements: 16 bits, or 0xffff and 32 bits.
    DWORD ReadCount();
    void WriteCount(DWORD count);

    // No pointers: a text must be a CString, not a bool by chance.
    CArchive& operator<<(const void*) = delete;
    CArchive& operator<<(char value) { return Put(value); }
    CArchive& operator<<(bool value) { return Put(static_cast<BYTE>(value)); }
    CArchive& operator<<(BYTE value) { return Put(value); }
    CArchive& operator<<(short value) { return Put(value); }
    CArchive& operator<<(WORD value) { return Put(value); }
    CArchive& operator<<(int value) { return Put(value); }
    CArchive& operator<<(unsigned int value) { return Put(value); }
    CArchive& operator<<(LONGLONG value) { return Put(value); }
    CArchive& operator<<(ULONGLONG value) { return Put(value); }
    CArchive& operator<<(float value) { return Put(value); }
    CArchive& operator<<(double value) { return Put(value); }

    CArchive& operator>>(char& value) { return Get(value); }
    CArchive& operator>>(bool& value);
    CArchive& operator>>(BYTE& value) { return Get(value); }
    CArchive& operator>>(short& value) { return Get(value); }
    CArchive& operator>>(WORD& value) { return Get(value); }
    CArchive& operator>>(int& value) { return Get(value); }
    CArchive& operator>>(unsigned int& value) { return Get(value); }
    CArchive& operator>>(LONGLONG& value) { return Get(value); }
    CArchive& operator>>(ULONGLONG& value) { return Get(value); }
    CArchive& operator>>(float& value) { return Get(value); }
    CArchive& operator>>(double& value) { return Get(value); }
#ifdef _WIN32
    // Windows has 32-bit longs besides its ints.
    CArchive& operator<<(LONG value)
    {
        return Put(value);
    }
    CArchive& operator<<(DWORD value)
    {
        return Put(value);
    }
    CArchive& operator>>(LONG& value)
    {
        return Get(value);
    }
    CArchive& operator>>(DWORD& value)
    {
        return Get(value);
    }
#endif

    // The length (8 bits, or 0xff and 16, or 0xffff and 32) and the bytes.
    friend CArchive& operator<<(CArchive& ar, const CString& text);
    friend CArchive& operator>>(CArchive& ar, CString& text);

private:
    template <class T>
    CArchive& Put(T value)
    {
        Write(&value, sizeof value);
        return *this;
    }
    template <class T>
    CArchive& Get(T& value)
    {
        ReadAll(&value, sizeof value);
        return *this;
    }
    void ReadAll(void* buffer, UINT count);

    CFile* m_file;
    BOOL m_isLoading;
};

CArchive& operator<<(CArchive& ar, const CString& text);
CArchive& operator>>(CArchive& ar, CString& text);
