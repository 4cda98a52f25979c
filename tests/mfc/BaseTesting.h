// What the tests of the portable MFC classes share.
#pragma once

#include <afx.h>

#include <gtest/gtest.h>

#include <ostream>

inline void PrintTo(const CString& text, std::ostream* out)
{
    *out << '"' << text.GetString() << '"';
}

// Whether the call throws that exception, as a pointer.
template <class Exception, class Call>
bool Throws(Call call)
{
    try {
        call();
    } catch (Exception* exception) {
        exception->Delete();
        return true;
    }
    return false;
}

// Why loading failed, or -1.
template <class Call>
int ArchiveCause(Call call)
{
    try {
        call();
    } catch (CArchiveException* exception) {
        const int cause = exception->m_cause;
        exception->Delete();
        return cause;
    }
    return -1;
}
