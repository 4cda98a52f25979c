// Reads calendar files through the library and prints what came of them, with processor times: ical_check FILE...
#include "ical/Document.h"

#include <cstdio>
#include <ctime>
#include <fstream>
#include <iterator>
#include <string>

namespace {

void Check(const char* path)
{
    std::ifstream file(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    dayvane::ical::Document document;
    const auto begin = std::clock();
    document.Load(bytes);
    const auto loaded = std::clock();
    const auto occurrences = document.OccurrencesIn(dayvane::ical::kEarliestTime, dayvane::ical::kEndOfTime);
    const auto expanded = std::clock();
    const auto milliseconds = [](std::clock_t time) { return 1000.0 * static_cast<double>(time) / CLOCKS_PER_SEC; };
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
