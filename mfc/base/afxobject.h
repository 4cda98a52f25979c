// CObject and the run-time class information of classes that declare it.
#pragma once

#include <afxwintypes.h>

#include <cstddef>

class CArchive;
class CObject;

// What DECLARE_DYNAMIC, DECLARE_DYNCREATE and DECLARE_SERIAL keep for a class; one static object per class.
struct CRuntimeClass
{
    LPCSTR m_lpszClassName;
    int m_nObjectSize;                     // bytes
    UINT m_wSchema;                        // 0xffff: not serialisable
    CObject* (*m_pfnCreateObject)();       // null: the class is not created by name
    CRuntimeClass* (*m_pfnGetBaseClass)(); // null: CObject

    // A new object, or null when the class cannot be created so.
    CObject* CreateObject() const { return m_pfnCreateObject ? m_pfnCreateObject() : nullptr; }
    BOOL IsDerivedFrom(const CRuntimeClass* pBaseClass) const;
};

class CObject
{
public:
    virtual ~CObject() = default;
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;

    static CRuntimeClass* GetThisClass();
    virtual CRuntimeClass* GetRuntimeClass() const;
    BOOL IsKindOf(const CRuntimeClass* pClass) const;
    BOOL IsSerializable() const { return GetRuntimeClass()->m_wSchema != 0xffff; }
    virtual void Serialize(CArchive& ar);
    virtual void AssertValid() const;

protected:
    CObject() = default;
};

// The class is reached through a function, not through an imported object, so that a program's classes can derive
// from classes of a shared library.
#define RUNTIME_CLASS(class_name) (class_name::GetThisClass())

#define DECLARE_DYNAMIC(class_name)                                                                                    \
public:                                                                                                                \
    static CRuntimeClass class##class_name;                                                                            \
    static CRuntimeClass* GetThisClass();                                                                              \
    CRuntimeClass* GetRuntimeClass() const override;

#define DECLARE_DYNCREATE(class_name)                                                                                  \
    DECLARE_DYNAMIC(class_name)                                                                                        \
    static CObject* CreateObject();

#define DECLARE_SERIAL(class_name) DECLARE_DYNCREATE(class_name)

#define AFX_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, schema, create)                                        \
    CRuntimeClass class_name::class##class_name = {#class_name, static_cast<int>(sizeof(class_name)), schema, create,  \
                                                   &base_class_name::GetThisClass};                                    \
    CRuntimeClass* class_name::GetThisClass()                                                                          \
    {                                                                                                                  \
        return &class_name::class##class_name;                                                                         \
    }                                                                                                                  \
    CRuntimeClass* class_name::GetRuntimeClass() const                                                                 \
    {                                                                                                                  \
        return &class_name::class##class_name;                                                                         \
    }

#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                                                 \
    AFX_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, 0xffff, nullptr)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name)                                                               \
    CObject* class_name::CreateObject()                                                                                \
    {                                                                                                                  \
        return new class_name;                                                                                         \
    }                                                                                                                  \
    AFX_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, 0xffff, &class_name::CreateObject)

#define IMPLEMENT_SERIAL(class_name, base_class_name, schema)                                                          \
    CObject* class_name::CreateObject()                                                                                \
    {                                                                                                                  \
        return new class_name;                                                                                         \
    }                                                                                                                  \
    AFX_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, schema, &class_name::CreateObject)

// The object as the class when it is of that class, else null.
CObject* AfxDynamicDownCast(CRuntimeClass* pClass, CObject* pObject);
#define DYNAMIC_DOWNCAST(class_name, object)                                                                           \
    (static_cast<class_name*>(AfxDynamicDownCast(RUNTIME_CLASS(class_name), object)))
#define STATIC_DOWNCAST(class_name, object) (static_cast<class_name*>(object))
