// A program that reads aloud, in the middle of everything: it asks for parts of the window, keeps some of them longer
// than the window lives, and now and then does what they offer.
#pragma once

#include "tests/access/Reader.h"

#include <vector>

namespace stress {

class CuriousClient
{
public:
    // number: which of its habits; part: which of the parts that it finds.
    void Ask(HWND window, int number, int part);

private:
    std::vector<accesstest::Spoken> m_kept;
};

} // namespace stress
