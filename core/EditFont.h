// The font of an edit box, which is one for all of its text: that which its owner has chosen, or, while this lacks
// characters of the text, one like it of a face that has them.
#pragma once

#include <afxwin.h>

namespace dayvane {

class EditFont
{
public:
    EditFont() = default;
    ~EditFont(); // the box is gone, or has another font
    EditFont(const EditFont&) = delete;
    EditFont& operator=(const EditFont&) = delete;

    // Gives the box the font for the text that it has now; nothing changes where it has it. hOwn stays the owner's. The
    // message goes to the procedure, or where there is none to the window.
    void Show(HWND hBox, HFONT hOwn, WNDPROC pfnBox = nullptr);
    // The box has been given the owner's font.
    void Reset();

private:
    HFONT m_hOther = nullptr; // shown instead of the owner's
};

} // namespace dayvane
