// What most Windows sources include and what seldom changes, compiled once per library (see dayvane_precompile). The
// native build compiles the pure sources without it, and so finds an include that is missing.
#pragma once

#include <afxcmn.h>
#include <afxdisp.h>
#include <afxdlgs.h>
#include <afxext.h>
#include <afxtempl.h>
#include <afxwin.h>
#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>
