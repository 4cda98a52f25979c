// Starting the framework inside DayvaneCtl.dll. Exceptions that leave a handler of a control end there, as a line for
// debuggers: a host could not catch them.
#pragma once

namespace dayvane::ctl {

// Once, before the first window, on the thread of the user interface.
void StartFramework();

} // namespace dayvane::ctl
