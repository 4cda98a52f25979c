// CObject, its class information, and the exceptions.
#include <afx.h>

#include <cstdio>
#include <cstdlib>

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* pBaseClass) const
{
    for (const CRuntimeClass* pClass = this; pClass;
         pClass = pClass->m_pfnGetBaseClass ? pClass->m_pfnGetBaseClass() : nullptr) {
        if (pClass == pBaseClass) {
            return TRUE;
        }
    }
    return FALSE;
}

CRuntimeClass* CObject::GetThisClass()
{
    static CRuntimeClass classCObject = {"CObject", static_cast<int>(sizeof(CObject)), 0xffff, nullptr, nullptr};
    return &classCObject;
}

CRuntimeClass* CObject::GetRuntimeClass() const
{
    return GetThisClass();
}

BOOL CObject::IsKindOf(const CRuntimeClass* pClass) const
{
    return GetRuntimeClass()->IsDerivedFrom(pClass);
}

void CObject::Serialize(CArchive&)
{
}

void CObject::AssertValid() const
{
}

CObject* AfxDynamicDownCast(CRuntimeClass* pClass, CObject* pObject)
{
    return pObject && pObject->IsKindOf(pClass) ? pObject : nullptr;
}

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CSimpleException, CException)
IMPLEMENT_DYNAMIC(CMemoryException, CSimpleException)
IMPLEMENT_DYNAMIC(CInvalidArgException, CSimpleException)
IMPLEMENT_DYNAMIC(CNotSupportedException, CSimpleException)
IMPLEMENT_DYNAMIC(CResourceException, CSimpleException)
IMPLEMENT_DYNAMIC(CUserException, CSimpleException)
IMPLEMENT_DYNAMIC(CArchiveException, CException)
IMPLEMENT_DYNAMIC(CFileException, CException)

void CException::Delete()
{
    if (m_bAutoDelete) {
        delete this;
    }
}

void AfxThrowMemoryException()
{
    static CMemoryException exception(FALSE);
    throw &exception;
}

void AfxThrowInvalidArgException()
{
    static CInvalidArgException exception(FALSE);
    throw &exception;
}

void AfxThrowNotSupportedException()
{
    static CNotSupportedException exception(FALSE);
    throw &exception;
}

void AfxThrowResourceException()
{
    static CResourceException exception(FALSE);
    throw &exception;
}

void AfxThrowUserException()
{
    static CUserException exception(FALSE);
    throw &exception;
}

void AfxThrowArchiveException(int cause, LPCTSTR fileName)
{
    throw new CArchiveException(cause, fileName);
}

void AfxThrowFileException(int cause, LONG osError, LPCTSTR fileName)
{
    throw new CFileException(cause, osError, fileName);
}

#ifndef NDEBUG
void AfxAssertFailed(LPCSTR expression, LPCSTR file, int line)
{
    std::fprintf(stderr, "%s:%d: assertion failed: %s\n", file, line, expression);
    std::abort();
}
#endif
