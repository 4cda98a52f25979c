// Text in UTF-16 on a device context.
#pragma once

#include <afxwin.h>

#include <string>

namespace dayvane {

// As the system's DrawText: draws in the selected font and returns the height. Characters that its face lacks come from
// a face that has them.
int DrawWideText(CDC& dc, const std::u16string& text, CRect rect, UINT format);

// The size of the text in one line in the selected font, pixels.
CSize WideTextExtent(CDC& dc, const std::u16string& text);

} // namespace dayvane
