#include "CuriousClient.h"

namespace stress {
namespace {

using accesstest::Spoken;

constexpr size_t kMostKept = 20;
constexpr int kDepth = 4;
constexpr long kFlags[] = {SELFLAG_TAKEFOCUS, SELFLAG_TAKESELECTION, SELFLAG_EXTENDSELECTION};

// Some part below, by a walk that the number decides.
Spoken PartOf(Spoken from, int number)
{
    for (int depth = 0; depth < kDepth; ++depth) {
        const std::vector<Spoken> children = from.Children();
        if (children.empty()) {
            break;
        }
        from = children[static_cast<size_t>(number) % children.size()];
        number = number / 7 + depth;
    }
    return from;
}

} // namespace

void CuriousClient::Ask(HWND window, int number, int part)
{
    number = number < 0 ? -number : number;
    part = part < 0 ? -part : part;
    const Spoken root = window ? Spoken::OfWindow(window) : Spoken();
    const Spoken some = root ? PartOf(root, part) : Spoken();
    m_kept.push_back(some);
    if (m_kept.size() > kMostKept) {
        m_kept.erase(m_kept.begin() + number % static_cast<int>(kMostKept));
    }
    const Spoken old = m_kept[static_cast<size_t>(part) % m_kept.size()];
    if (!old) {
        return;
    }
    switch (number % 8) {
    case 0:
        old.Select(kFlags[part % 3]);
        break;
    case 1:
        old.Act();
        break;
    case 2:
        old.SetValue("heard");
        break;
    case 3:
        old.At({number % 900, part % 700});
        break;
    case 4:
        old.Focus();
        old.Selection();
        break;
    default:
        accesstest::ReadAloud(old);
        old.Walk(NAVDIR_FIRSTCHILD + number % 2);
        old.Parent();
        break;
    }
}

} // namespace stress
