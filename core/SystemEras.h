// The eras that the system knows.
#pragma once

#include "../calc/Eras.h"

#include <afxwin.h>

namespace dayvane {

// Adds the eras of a key of the registry that are newer than the table's; its values are named by the first day,
// "2019 05 01", and hold the names, "令和_令_Reiwa_R". Returns how many; 0 also without such a key.
int AddSystemEras(EraTable& eras, HKEY root, LPCWSTR lpszKey);

// The same with the system's own list, once in a process, for the titles (core/EraTitles.h).
void UseSystemEras();

} // namespace dayvane
