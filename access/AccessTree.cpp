#include "access/AccessTree.h"

namespace dayvane {
namespace {

constexpr size_t kFewSlots = 64;
// Primes: keys and indices are small numbers one after the other.
constexpr size_t kKeyFactor = 65599;
constexpr size_t kPartFactor = 31;

} // namespace

AccessTree::AccessTree(const CRect& box)
{
    AccessNode root;
    root.box = box;
    m_nodes.push_back(root);
    MakeSlots(kFewSlots);
}

void AccessTree::Reserve(int nodes)
{
    m_nodes.reserve(static_cast<size_t>(nodes));
    MakeSlots(2 * static_cast<size_t>(nodes));
}

size_t AccessTree::SlotOf(const AccessId& id) const
{
    const size_t hash = (static_cast<size_t>(id.key) * kKeyFactor + static_cast<size_t>(id.index)) * kPartFactor +
                        static_cast<size_t>(id.part);
    size_t slot = hash & (m_slots.size() - 1);
    while (m_slots[slot] != kNoNode && m_nodes[m_slots[slot]].id != id) {
        slot = (slot + 1) & (m_slots.size() - 1);
    }
    return slot;
}

void AccessTree::MakeSlots(size_t count)
{
    size_t size = kFewSlots;
    while (size < count || size < 2 * m_nodes.size()) {
        size *= 2;
    }
    m_slots.assign(size, kNoNode);
    for (int i = 0; i < Count(); ++i) {
        int& number = m_slots[SlotOf(m_nodes[i].id)];
        number = number == kNoNode ? i : number;
    }
}

int AccessTree::Add(int parent, const AccessNode& node)
{
    const int number = Count();
    m_nodes.push_back(node);
    AccessNode& added = m_nodes.back();
    AccessNode& owner = m_nodes[parent];
    CRect seen;
    if (seen.IntersectRect(&node.box, &owner.box)) {
        added.box = seen;
    } else {
        added.isHidden = true;
        added.box = CRect(owner.box.TopLeft(), CSize(0, 0));
    }
    added.isHidden = added.isHidden || owner.isHidden;
    added.parent = parent;
    added.position = static_cast<int>(owner.children.size());
    added.children.clear();
    owner.children.push_back(number);
    if (2 * m_nodes.size() > m_slots.size()) {
        MakeSlots(2 * m_slots.size()); // with this one
    }
    int& known = m_slots[SlotOf(added.id)];
    known = known == kNoNode ? number : known;
    if (added.grid != 0) {
        m_byPlace.emplace(GridPlace{added.grid, added.gridRow, added.gridColumn}, number);
    }
    return number;
}

int AccessTree::Find(const AccessId& id) const
{
    return m_slots[SlotOf(id)];
}

int AccessTree::Walk(int from, AccessWay way) const
{
    const AccessNode& node = At(from);
    const auto sibling = [&](int step) {
        if (node.parent == kNoNode) {
            return kNoNode;
        }
        const std::vector<int>& siblings = At(node.parent).children;
        const int position = node.position + step;
        return position >= 0 && position < static_cast<int>(siblings.size()) ? siblings[position] : kNoNode;
    };
    const auto neighbour = [&](int rows, int columns) {
        const auto found = m_byPlace.find({node.grid, node.gridRow + rows, node.gridColumn + columns});
        return node.grid != 0 && found != m_byPlace.end() ? found->second : kNoNode;
    };
    switch (way) {
    case AccessWay::First:
        return node.children.empty() ? kNoNode : node.children.front();
    case AccessWay::Last:
        return node.children.empty() ? kNoNode : node.children.back();
    case AccessWay::Next:
        return sibling(1);
    case AccessWay::Previous:
        return sibling(-1);
    case AccessWay::Up:
        return neighbour(-1, 0);
    case AccessWay::Down:
        return neighbour(1, 0);
    case AccessWay::Left:
        return neighbour(0, -1);
    case AccessWay::Right:
        return neighbour(0, 1);
    }
    return kNoNode;
}

int AccessTree::HitTest(CPoint point) const
{
    if (!m_nodes[0].box.PtInRect(point)) {
        return kNoNode;
    }
    int node = 0;
    for (int next = node; next != kNoNode;) {
        node = next;
        next = kNoNode;
        for (int child : At(node).children) {
            const AccessNode& each = At(child);
            if (!each.isHidden && each.box.PtInRect(point) && (next == kNoNode || each.layer >= At(next).layer)) {
                next = child;
            }
        }
    }
    return node;
}

} // namespace dayvane
