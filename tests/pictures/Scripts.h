// Random scripts against every view and mini calendar, as one number each: of all that is seen, reported and pointed
// with. What changes unnoticed changes a number.
#pragma once

#include <string>

namespace testsupport {

// Writes a line for each script, "month 3 9f2c01d4", to scripts.txt in the folder.
bool WriteScripts(const std::string& folder);

} // namespace testsupport
