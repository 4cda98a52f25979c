// The code pages of the system as the document wants them.
//
// Two are in use. Item texts are drawn with a font of the Shift-JIS character set, and the system reads texts drawn
// with a font by that font's code page: so item texts are code page 932 everywhere, and Japanese shows right on a
// Western system too. The edit box, window titles and bars are windows of the system's own code page.
#pragma once

#include <afxwin.h>

#include "planner/CodePageText.h"

namespace planner {

class WindowsCodePage : public CodePageText
{
public:
    explicit WindowsCodePage(UINT codePage) : m_codePage(codePage) {}
    // What the page lacks becomes a look-alike or '?'.
    std::string FromUtf8(std::string_view text) const override;
    std::string ToUtf8(std::string_view text) const override;

private:
    UINT m_codePage;
};

const WindowsCodePage& FontPage();   // of item texts
const WindowsCodePage& SystemPage(); // of windows

} // namespace planner
