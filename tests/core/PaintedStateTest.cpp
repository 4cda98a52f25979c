// What is repainted between two pictures.
#include "core/PaintedState.h"

#include <gtest/gtest.h>

#include <iterator>
#include <random>

using namespace dayvane;

namespace {

bool IsCovered(int x, int y, const std::vector<CRect>& rects, int times = 1)
{
    for (const CRect& rect : rects) {
        times -= rect.PtInRect(CPoint(x, y)) ? 1 : 0;
    }
    return times <= 0;
}

// What one change of a lone item repaints.
template <class Change>
std::vector<CRect> RepaintedAfter(Change change)
{
    PaintedState before;
    before.pieces.resize(1);
    before.pieces[0].box = CRect(1, 2, 30, 40);
    before.marks = {{CRect(50, 60, 70, 80), 3}};
    PaintedState after = before;
    change(after);
    std::vector<CRect> rects;
    EXPECT_TRUE(FindDifferences(before, after, rects));
    return rects;
}

} // namespace

TEST(PaintedState, WhatShowsIsRepaintedAndNothingElse)
{
    using Item = tagCALENDAR_ITEM;
    using Change = void (*)(Item&);
    const CRect box(1, 2, 30, 40), mark(50, 60, 70, 80);
    const Change shown[] = {[](Item& item) { item.rcItem.left++; },
                            [](Item& item) { item.nPiece++; },
                            [](Item& item) { item.nFullday++; },
                            [](Item& item) { item.strText = "other"; },
                            [](Item& item) { item.dtStart.m_dt += 1; },
                            [](Item& item) { item.dtEnd.m_dt += 1; },
                            [](Item& item) { item.crColor1 ^= 1; },
                            [](Item& item) { item.crColor2 ^= 1; },
                            [](Item& item) { item.crColor3 ^= 1; },
                            [](Item& item) { item.crColor4 ^= 1; },
                            [](Item& item) { item.crColor5 ^= 1; },
                            [](Item& item) { item.nImage++; },
                            [](Item& item) { item.nReserved++; },
                            [](Item& item) { item.bAlarm = !item.bAlarm; },
                            [](Item& item) { item.bRecurrent = !item.bRecurrent; },
                            [](Item& item) { item.bNoFocus = !item.bNoFocus; }};
    for (size_t i = 0; i < std::size(shown); ++i) {
        const auto rects = RepaintedAfter([&](PaintedState& state) { shown[i](state.pieces[0].item); });
        EXPECT_EQ(rects, (std::vector<CRect>{box, box})) << i;
    }
    EXPECT_TRUE(RepaintedAfter([](PaintedState&) {}).empty());
    EXPECT_TRUE(RepaintedAfter([](PaintedState& state) { state.pieces[0].item.bMovable ^= 1; }).empty());
    EXPECT_EQ(RepaintedAfter([](PaintedState& state) { state.pieces.clear(); }), std::vector<CRect>{box});
    EXPECT_EQ(RepaintedAfter([](PaintedState& state) { state.marks[0].count++; }), (std::vector<CRect>{mark, mark}));
    EXPECT_EQ(RepaintedAfter([](PaintedState& state) { state.marks.clear(); }), std::vector<CRect>{mark});
    EXPECT_EQ(RepaintedAfter([&](PaintedState& state) { state.marks.push_back({box, 1}); }), std::vector<CRect>{box});
    PaintedState moved;
    moved.frame.push_back(box);
    std::vector<CRect> rects;
    EXPECT_FALSE(FindDifferences(PaintedState(), moved, rects)) << "a part of the window has moved";
}

TEST(PaintedState, ManyPartsBecomeFewerThatCoverThem)
{
    std::mt19937 random(7);
    const CRect area(10, 20, 500, 340);
    for (int round = 0; round < 20; ++round) {
        std::vector<CRect> parts;
        for (int i = 0; i < 1000; ++i) {
            const CPoint at(static_cast<int>(random() % 300) - 20, static_cast<int>(random() % 500) - 20);
            parts.push_back(CRect(at, CSize(random() % 40, random() % 60)));
        }
        const std::vector<CRect> joined = JoinParts(parts, area);
        EXPECT_LT(joined.size(), parts.size() / 4);
        for (int y = area.top; y < area.bottom; y += 3) {
            for (int x = area.left; x < area.right; ++x) {
                ASSERT_TRUE(!IsCovered(x, y, parts) || IsCovered(x, y, joined)) << x << ", " << y;
                ASSERT_FALSE(IsCovered(x, y, joined, 2)) << "twice: " << x << ", " << y;
            }
        }
        EXPECT_FALSE(IsCovered(400, 100, joined)) << "far from all";
    }
    EXPECT_TRUE(JoinParts(std::vector<CRect>(1000, CRect(0, 0, 5, 5)), CRect(0, 0, 0, 0)).empty());
    const std::vector<CRect> few = {CRect(1, 2, 3, 4), CRect(-5, 0, 600, 1)};
    EXPECT_EQ(JoinParts(few, area), few);
}
