// The root of our own small implementation of the part of MFC that Dayvane and its hosts use: objects, texts,
// exceptions, files in memory, archives. A class or member enters when a caller needs it. Under Visual C++ the genuine
// header takes the place of this one.
#pragma once

#include <afxwintypes.h>
#include <afxobject.h>
#include <afxstr.h>
#include <afxexcept.h>
#include <afxfile.h>

// Assertions are for mistakes of the code that holds them, never for what a host passes; a release build has none.
#ifndef NDEBUG
void AfxAssertFailed(LPCSTR expression, LPCSTR file, int line);
#define ASSERT(f) ((f) ? static_cast<void>(0) : AfxAssertFailed(#f, __FILE__, __LINE__))
#define VERIFY(f) ASSERT(f)
#define ASSERT_VALID(p) (ASSERT((p) != nullptr), (p)->AssertValid())
#else
#define ASSERT(f) static_cast<void>(0)
#define VERIFY(f) static_cast<void>(f)
#define ASSERT_VALID(p) static_cast<void>(0)
#endif
#define ASSERT_KINDOF(class_name, object) ASSERT((object)->IsKindOf(RUNTIME_CLASS(class_name)))
#define ASSERT_POINTER(p, type) ASSERT((p) != nullptr)
#define TRACE(...) static_cast<void>(0)
#define TRACE0(...) static_cast<void>(0)

// Holds in every build: a condition that fails raises CInvalidArgException.
#define ENSURE(f) ((f) ? static_cast<void>(0) : AfxThrowInvalidArgException())
#define ENSURE_ARG(f) ENSURE(f)
