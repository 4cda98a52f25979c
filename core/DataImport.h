// DAYVANE_DATA marks data that a program may touch: with Visual C++ a program must be told that it lies in a DLL. The
// CMake package defines DAYVANE_DLL where the library is one. Functions need no mark, and MinGW's linker needs none at
// all.
#pragma once

#ifdef DAYVANE_DLL
#define DAYVANE_DATA __declspec(dllimport)
#else
#define DAYVANE_DATA
#endif
