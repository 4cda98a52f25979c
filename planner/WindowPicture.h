#pragma once

#include <afxwin.h>

namespace planner {

// Writes what the window shows, its frame included, into a bitmap file of 24 bits a pixel. FALSE: it could not be
// written.
BOOL SaveWindowPicture(CWnd& window, LPCTSTR path);

} // namespace planner
