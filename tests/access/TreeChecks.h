// What holds for every tree of an accessible control.
#pragma once

#include "access/AccessTree.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>

namespace accesstest {

using dayvane::AccessNode;
using dayvane::AccessTree;
using dayvane::AccessWay;
using dayvane::kNoNode;

inline bool IsWithin(const CRect& inner, const CRect& outer)
{
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

// Children lie in their parents and are called differently; every way forth leads back; what a point hits holds it.
inline void CheckTree(const AccessTree& tree, const std::function<std::string(int)>& nameOf)
{
    const std::pair<AccessWay, AccessWay> ways[] = {
        {AccessWay::Next, AccessWay::Previous}, {AccessWay::Previous, AccessWay::Next},
        {AccessWay::Up, AccessWay::Down},       {AccessWay::Down, AccessWay::Up},
        {AccessWay::Left, AccessWay::Right},    {AccessWay::Right, AccessWay::Left}};
    for (int node = 0; node < tree.Count(); ++node) {
        const AccessNode& each = tree.At(node);
        ASSERT_EQ(node, tree.Find(each.id)) << nameOf(node);
        std::set<std::string> names;
        for (int child : each.children) {
            const std::string name = nameOf(child);
            EXPECT_FALSE(name.empty()) << "a child of " << nameOf(node);
            EXPECT_TRUE(names.insert(name).second) << name << " twice in " << nameOf(node);
            EXPECT_EQ(node, tree.At(child).parent);
            if (!tree.At(child).isHidden) {
                EXPECT_TRUE(IsWithin(tree.At(child).box, each.box)) << name;
            }
        }
        for (const auto& [forth, back] : ways) {
            const int there = tree.Walk(node, forth);
            if (there != kNoNode) {
                EXPECT_EQ(node, tree.Walk(there, back)) << nameOf(node) << " to " << nameOf(there);
            }
        }
        const int first = tree.Walk(node, AccessWay::First);
        int last = first;
        for (int next = first; next != kNoNode; next = tree.Walk(next, AccessWay::Next)) {
            last = next;
        }
        EXPECT_EQ(tree.Walk(node, AccessWay::Last), last);
        if (!each.isHidden && !each.box.IsRectEmpty()) {
            const int hit = tree.HitTest(each.box.CenterPoint());
            ASSERT_NE(kNoNode, hit) << nameOf(node);
            EXPECT_TRUE(tree.At(hit).box.PtInRect(each.box.CenterPoint()));
            EXPECT_TRUE(hit == node || tree.At(hit).parent != each.parent || tree.At(hit).layer >= each.layer);
        }
    }
    EXPECT_EQ(kNoNode, tree.HitTest(tree.At(0).box.BottomRight()));
}

} // namespace accesstest
