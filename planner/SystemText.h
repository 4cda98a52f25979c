// Texts for windows of the system's code page: title, status bar, messages.
#pragma once

#include "core/TextCodec.h"

namespace planner {

// What the page lacks becomes a look-alike or '?'.
inline CString SystemText(std::string_view utf8)
{
    using namespace dayvane;
    return CString(EncodeText(DecodeText(utf8, kUtf8CodePage), kSystemCodePage).c_str());
}

} // namespace planner
