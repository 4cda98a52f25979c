// What is repainted between two pictures.
#include "core/PaintedState.h"

#include <gtest/gtest.h>

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

} // namespace

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
