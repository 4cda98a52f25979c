// The whole public API of Dayvane in one header.
//
// On Windows: the controls, their views and printers, the records and notifications, and the calendar arithmetic.
// Elsewhere: the part without windows, that is the records and the calendar arithmetic.
#pragma once

#include "core/CalendarRecords.h"
