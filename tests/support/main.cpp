#include <gtest/gtest.h>

#ifdef _WIN32
#include <afxwin.h>

#include <cstdio>

namespace {

// An exception that leaves a message handler is a fault of the library, not a box that waits for a click.
void ReportEscapedException(CException* exception, const MSG* message)
{
    const char* name = exception ? exception->GetRuntimeClass()->m_lpszClassName : "not of MFC's";
    ADD_FAILURE() << "An exception (" << name << ") left the handler of message " << (message ? message->message : 0);
}

} // namespace
#endif

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
#ifdef _WIN32
    setvbuf(stdout, nullptr, _IONBF, 0); // what was written before a crash is seen
    ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    if (!AfxWinInit(::GetModuleHandle(nullptr), nullptr, ::GetCommandLine(), SW_SHOWNORMAL)) {
        printf("AfxWinInit failed\n");
        return EXIT_FAILURE;
    }
    AfxSetExceptionReporter(ReportEscapedException);
    printf("System code page %u\n", ::GetACP());
    const int result = RUN_ALL_TESTS();
    AfxWinTerm();
    return result;
#else
    return RUN_ALL_TESTS();
#endif
}
