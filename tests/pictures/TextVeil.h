// Takes the texts out of what the library draws, and gives every character one width, so that pictures do not depend on
// the fonts of a system.
#pragma once

namespace testsupport {

// From now on, in this process. False: the library imports none of the calls.
bool VeilTexts();

} // namespace testsupport
