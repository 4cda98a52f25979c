// dayvane-stress [EVENTS [SEED]] [--view NAME]
//
// Puts random events on every view (or on one) and compares the store with a plain list at the end, and the counts of
// GDI and USER objects with those of the beginning. Each view runs in a process of its own, so that a crash is seen as
// one; a failing run is cut down to the shortest script that still fails, and the script is printed.
#include "StressHost.h"

#include "support/GuiCounts.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <numeric>

using namespace stress;

namespace {

constexpr int kDefaultEvents = 20000;
constexpr int kDefaultSeed = 1;
constexpr size_t kCountedEvents = 3000; // played again while objects are counted
constexpr int kCountedRounds = 4;
constexpr int kCompareEvery = 500;
constexpr DWORD kShrinkMilliseconds = 5 * 60 * 1000;     // afterwards the script stays as short as it has become
constexpr DWORD kChildMilliseconds = 3 * 60 * 60 * 1000; // a run of very many events

struct Options
{
    int events = kDefaultEvents;
    std::uint64_t seed = kDefaultSeed;
    std::string view;
    std::string keep; // child: the events to run
    bool counting = true;
};

void Say(const char* format, const std::string& a, const std::string& b = "")
{
    std::printf(format, a.c_str(), b.c_str());
    std::fflush(stdout);
}

// Answers 0 when all is well.
int RunEvents(const Options& options)
{
    const std::vector<std::int64_t> indices = IndicesOf(options.keep);
    const auto play = [&](std::uint64_t seed, const std::vector<std::int64_t>& which) -> std::string {
        StressHost host(options.view);
        for (size_t i = 0; i < which.size(); ++i) {
            host.Run(EventOf(seed, which[i]));
            if (i % kCompareEvery == 0) {
                const std::string difference = host.Difference();
                if (!difference.empty()) {
                    return difference;
                }
            }
        }
        return host.Difference();
    };
    std::string difference = play(options.seed, indices);
    // Played again, the same events fill no cache of the system any more, after a few rounds at the latest; what is
    // lost is lost in every round.
    testsupport::GuiCounts before, after;
    bool settled = !options.counting;
    for (int round = 0; difference.empty() && !settled && round < kCountedRounds; ++round) {
        before = testsupport::GuiCounts::Now();
        difference = play(options.seed, {indices.begin(), indices.begin() + std::min(kCountedEvents, indices.size())});
        after = testsupport::GuiCounts::Now();
        settled = before == after;
    }
    if (!difference.empty()) {
        Say("%s: %s\n", options.view, difference);
        return 1;
    }
    if (!settled) {
        Say("Objects before: %s; after: %s\n", before.Text(), after.Text());
        return 2;
    }
    if (::GetCapture()) {
        return 3;
    }
    return 0;
}

// Runs the events in a process of their own; its exit code.
int RunChild(const Options& options, const std::vector<std::int64_t>& indices, bool counting)
{
    char program[MAX_PATH];
    ::GetModuleFileName(nullptr, program, MAX_PATH);
    char directory[MAX_PATH], file[MAX_PATH];
    ::GetTempPath(MAX_PATH, directory);
    ::GetTempFileName(directory, "dvs", 0, file);
    if (FILE* out = std::fopen(file, "w")) {
        std::fputs(RangesOf(indices).c_str(), out);
        std::fclose(out);
    }
    std::string command = std::string("\"") + program + "\" 0 " + std::to_string(options.seed) + " --view " +
                          options.view + " --keep \"" + file + "\"" + (counting ? "" : " --no-counts");
    STARTUPINFO startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process = {};
    DWORD code = 99;
    if (::CreateProcess(nullptr, &command[0], nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process)) {
        if (::WaitForSingleObject(process.hProcess, kChildMilliseconds) != WAIT_OBJECT_0) {
            ::TerminateProcess(process.hProcess, 98);
        }
        ::GetExitCodeProcess(process.hProcess, &code);
        ::CloseHandle(process.hThread);
        ::CloseHandle(process.hProcess);
    }
    ::DeleteFile(file);
    return static_cast<int>(code);
}

// Leaves out parts of the script, halves first, as long as it still fails the same way (delta debugging).
std::vector<std::int64_t> Shrink(const Options& options, std::vector<std::int64_t> script, int failure)
{
    const bool counting = failure == 2;
    const DWORD began = ::GetTickCount();
    const auto hasTime = [began] { return ::GetTickCount() - began < kShrinkMilliseconds; };
    for (size_t part = script.size() / 2; part > 0 && hasTime(); part /= 2) {
        for (size_t from = 0; from < script.size() && hasTime();) {
            std::vector<std::int64_t> shorter(script.begin(), script.begin() + from);
            shorter.insert(shorter.end(), script.begin() + std::min(from + part, script.size()), script.end());
            if (!shorter.empty() && RunChild(options, shorter, counting) == failure) {
                script = shorter;
            } else {
                from += part;
            }
        }
    }
    return script;
}

int TestView(const Options& options)
{
    std::vector<std::int64_t> script(options.events);
    std::iota(script.begin(), script.end(), 0);
    const int failure = RunChild(options, script, true);
    if (failure == 0) {
        Say("%s: %s events, the store is as it should be\n", options.view, std::to_string(options.events));
        return 0;
    }
    Say("%s FAILED (exit code %s). Looking for the shortest script ...\n", options.view, std::to_string(failure));
    script = Shrink(options, script, failure);
    Say("seed %s, view %s:\n", std::to_string(options.seed), options.view);
    for (std::int64_t index : script) {
        Say("%s\n", TextOf(EventOf(options.seed, index)));
    }
    return 1;
}

std::string ContentOf(const char* file)
{
    std::string text;
    if (FILE* in = std::fopen(file, "r")) {
        char buffer[4096];
        for (size_t length; (length = std::fread(buffer, 1, sizeof(buffer), in)) > 0;) {
            text.append(buffer, length);
        }
        std::fclose(in);
    }
    return text;
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    int plain = 0;
    for (int i = 1; i < argc; ++i) {
        if (!std::strcmp(argv[i], "--view") && i + 1 < argc) {
            options.view = argv[++i];
        } else if (!std::strcmp(argv[i], "--keep") && i + 1 < argc) {
            options.keep = ContentOf(argv[++i]);
        } else if (!std::strcmp(argv[i], "--no-counts")) {
            options.counting = false;
        } else if (plain++ == 0) {
            options.events = std::atoi(argv[i]);
        } else {
            options.seed = std::strtoull(argv[i], nullptr, 10);
        }
    }
    if (options.keep.empty() && options.events <= 0) {
        std::puts("dayvane-stress [EVENTS [SEED]] [--view NAME], with at least one event");
        return 2;
    }
    if (!AfxWinInit(::GetModuleHandle(nullptr), nullptr, ::GetCommandLine(), SW_SHOW)) {
        return 97;
    }
    if (!options.keep.empty()) {
        return RunEvents(options);
    }
    ::SetErrorMode(SEM_NOGPFAULTERRORBOX | SEM_FAILCRITICALERRORS); // a crash ends the child at once
    int failed = 0;
    int passed = 0;
    for (const std::string& view : ViewNames()) {
        if (options.view.empty() || options.view == view) {
            Options one = options;
            one.view = view;
            (TestView(one) == 0 ? passed : failed) += 1;
        }
    }
    std::printf("%d passed, %d failed\n", passed, failed);
    return failed || !passed ? 1 : 0;
}
