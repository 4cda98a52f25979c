// Reads calendar files through the library and prints what came of them: ical_check FILE...
#include "ical/Document.h"

#include <chrono>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

namespace {

void Check(const char* path)
{
    using Clock = std::chrono::steady_clock;
    std::ifstream file(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    dayvane::ical::Document document;
    const auto begin = Clock::now();
    document.Load(bytes);
    const auto loaded = Clock::now();
    const auto occurrences = document.OccurrencesIn(dayvane::ical::kEarliestTime, dayvane::ical::kEndOfTime);
    const auto expanded = Clock::now();
    const auto milliseconds = [](Clock::duration d) { return std::chrono::duration<double, std::milli>(d).count(); };
    std::printf("%s: %zu bytes, %zu events, %zu occurrences, read in %.1f ms, expanded in %.1f ms, %s\n", path,
                bytes.size(), document.EventCount(), occurrences.size(), milliseconds(loaded - begin),
                milliseconds(expanded - loaded), document.Save() == bytes ? "saved alike" : "SAVED DIFFERENTLY");
    for (const dayvane::ical::Message& message : document.Messages()) {
        std::printf("  line %d: %s\n", message.line, message.text.c_str());
    }
}

} // namespace

int main(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        Check(argv[i]);
    }
    return argc > 1 ? 0 : 2;
}
