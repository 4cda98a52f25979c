// A printer that needs no machine: Wine's PostScript driver with the description tools/paper.ppd.
#pragma once

namespace testsupport {

constexpr char kPaperPrinter[] = "Dayvane paper";

// Adds it for programs of this architecture and makes it the default, unless it is there; ppd: the path of its
// description. False when the system refuses.
bool AddPaperPrinter(const char* ppd);

} // namespace testsupport
