// Which code each test reaches, for ./dev plant: part of builds with -fsanitize-coverage=trace-pc, where the compiler
// calls
// __sanitizer_cov_trace_pc() at every basic block.
//
// With DAYVANE_COVERAGE=FILE in the environment each test writes a line with its name, a tab and its milliseconds, then
// the addresses that it reached, a line each.
#include <gtest/gtest.h>
#include <cstdio>
#include <cstdlib>
#include <memory>

extern "C" const char __executable_start; // these two by the linker: where the program's code begins and ends
extern "C" const char etext;

namespace {

// One byte for each byte of code; null while no test runs.
unsigned char* g_reached = nullptr;

class CoverageWriter : public testing::EmptyTestEventListener
{
public:
    explicit CoverageWriter(FILE* file) : m_file(file), m_reached(new unsigned char[CodeSize()]()) {}

    void OnTestStart(const testing::TestInfo&) override { g_reached = m_reached.get(); }

    void OnTestEnd(const testing::TestInfo& test) override
    {
        g_reached = nullptr;
        fprintf(m_file, "%s.%s\t%lld\n", test.test_suite_name(), test.name(),
                static_cast<long long>(test.result()->elapsed_time()));
        for (size_t i = 0; i < CodeSize(); ++i) {
            if (m_reached[i] != 0) {
                fprintf(m_file, "%p\n", static_cast<const void*>(&__executable_start + i));
                m_reached[i] = 0;
            }
        }
        fflush(m_file);
    }

private:
    static size_t CodeSize() { return static_cast<size_t>(&etext - &__executable_start); }

    FILE* m_file;
    std::unique_ptr<unsigned char[]> m_reached;
};

const bool g_isInstalled = [] {
    const char* name = getenv("DAYVANE_COVERAGE");
    FILE* file = name ? fopen(name, "w") : nullptr;
    if (file) {
        testing::UnitTest::GetInstance()->listeners().Append(new CoverageWriter(file));
    }
    return file != nullptr;
}();

} // namespace

extern "C" __attribute__((no_sanitize_coverage)) void __sanitizer_cov_trace_pc()
{
    if (g_reached) {
        g_reached[static_cast<const char*>(__builtin_return_address(0)) - &__executable_start] = 1;
    }
}
