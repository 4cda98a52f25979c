// Exceptions. They are thrown as pointers; whoever catches one for good calls Delete() on it. The kinds that report
// exhausted resources or wrong use are static objects: throwing them takes no memory and Delete() leaves them alone.
#pragma once

#include <afxobject.h>
#include <afxstr.h>

class CException : public CObject
{
    DECLARE_DYNAMIC(CException)
public:
    CException() = default;
    explicit CException(BOOL bAutoDelete) : m_bAutoDelete(bAutoDelete) {}
    // Frees the object when it was made by new and not for keeping.
    void Delete();

protected:
    BOOL m_bAutoDelete = TRUE;
};

class CSimpleException : public CException
{
    DECLARE_DYNAMIC(CSimpleException)
public:
    CSimpleException() = default;
    explicit CSimpleException(BOOL bAutoDelete) : CException(bAutoDelete) {}
};

// Memory is lacking.
class CMemoryException : public CSimpleException
{
    DECLARE_DYNAMIC(CMemoryException)
public:
    using CSimpleException::CSimpleException;
};

// An argument is out of its range, as an index beyond an array.
class CInvalidArgException : public CSimpleException
{
    DECLARE_DYNAMIC(CInvalidArgException)
public:
    using CSimpleException::CSimpleException;
};

class CNotSupportedException : public CSimpleException
{
    DECLARE_DYNAMIC(CNotSupportedException)
public:
    using CSimpleException::CSimpleException;
};

// A resource of the system (window class, drawing object) could not be had.
class CResourceException : public CSimpleException
{
    DECLARE_DYNAMIC(CResourceException)
public:
    using CSimpleException::CSimpleException;
};

// The act was stopped and the user knows already.
class CUserException : public CSimpleException
{
    DECLARE_DYNAMIC(CUserException)
public:
    using CSimpleException::CSimpleException;
};

class CArchiveException : public CException
{
    DECLARE_DYNAMIC(CArchiveException)
public:
    enum
    {
        none,
        genericException,
        readOnly,
        endOfFile,
        writeOnly,
        badIndex,
        badClass,
        badSchema
    };
    explicit CArchiveException(int cause = none, LPCTSTR fileName = nullptr) : m_cause(cause), m_strFileName(fileName)
    {
    }

    int m_cause;
    CString m_strFileName;
};

class CFileException : public CException
{
    DECLARE_DYNAMIC(CFileException)
public:
    enum
    {
        none,
        genericException,
        fileNotFound,
        badPath,
        tooManyOpenFiles,
        accessDenied,
        invalidFile,
        removeCurrentDir,
        directoryFull,
        badSeek,
        hardIO,
        sharingViolation,
        lockViolation,
        diskFull,
        endOfFile
    };
    explicit CFileException(int cause = none, LONG osError = -1, LPCTSTR fileName = nullptr)
        : m_cause(cause), m_lOsError(osError), m_strFileName(fileName)
    {
    }

    int m_cause;
    LONG m_lOsError; // the system's error number, -1: none
    CString m_strFileName;
};

[[noreturn]] void AfxThrowMemoryException();
[[noreturn]] void AfxThrowInvalidArgException();
[[noreturn]] void AfxThrowNotSupportedException();
[[noreturn]] void AfxThrowResourceException();
[[noreturn]] void AfxThrowUserException();
[[noreturn]] void AfxThrowArchiveException(int cause, LPCTSTR fileName = nullptr);
[[noreturn]] void AfxThrowFileException(int cause, LONG osError = -1, LPCTSTR fileName = nullptr);
