// How a control reads the texts of its host.
#pragma once

#include "TextCodec.h"

namespace dayvane {

struct TextSettings
{
    unsigned codePage = kSystemCodePage; // of items, days and titles

    std::u16string HostText(const CString& text) const { return DecodeText(text, codePage); }
};

} // namespace dayvane
