// CRect against the cells that it covers, on every pair of small rectangles.
#include "BaseTesting.h"

#include <atltypes.h>

#include <climits>
#include <set>
#include <vector>

namespace {
constexpr int kGrid = 4; // edges 0 to 3, cells 0 to 2

std::vector<CRect> AllSmallRects()
{
    std::vector<CRect> rects;
    for (int code = 0; code < kGrid * kGrid * kGrid * kGrid; ++code) {
        rects.push_back(CRect(code % kGrid, code / kGrid % kGrid, code / kGrid / kGrid % kGrid, code / 64));
    }
    return rects;
}

// One bit per cell.
unsigned CellsOf(const CRect& rect)
{
    unsigned cells = 0;
    for (int y = 0; y < kGrid - 1; ++y) {
        for (int x = 0; x < kGrid - 1; ++x) {
            cells |= rect.PtInRect(CPoint(x, y)) ? 1u << (y * (kGrid - 1) + x) : 0;
        }
    }
    return cells;
}

TEST(Rect, CoversItsCellsAndCombinesThem)
{
    const std::vector<CRect> rects = AllSmallRects();
    std::set<unsigned> shapes;
    for (const CRect& rect : rects) {
        shapes.insert(CellsOf(rect));
    }
    for (const CRect& a : rects) {
        const unsigned inA = CellsOf(a);
        ASSERT_EQ(inA == 0, a.IsRectEmpty() != 0);
        CRect normal(a);
        normal.NormalizeRect();
        ASSERT_TRUE(normal.Width() == std::abs(a.Width()) && normal.Height() == std::abs(a.Height()));
        for (const CRect& b : rects) {
            SCOPED_TRACE(testing::Message() << a.left << ' ' << a.top << ' ' << a.right << ' ' << a.bottom << " with "
                                            << b.left << ' ' << b.top << ' ' << b.right << ' ' << b.bottom);
            const unsigned inB = CellsOf(b);
            CRect common, both, rest;
            ASSERT_EQ(common.IntersectRect(a, b) != 0, (inA & inB) != 0);
            ASSERT_EQ(CellsOf(common), inA & inB);
            ASSERT_TRUE((inA & inB) != 0 || common.IsRectNull());

            // The union is the smallest one that holds the cells of both.
            ASSERT_EQ(both.UnionRect(a, b) != 0, (inA | inB) != 0);
            unsigned smallest = ~0u;
            for (const unsigned shape : shapes) {
                smallest &= (shape & (inA | inB)) == (inA | inB) ? shape : ~0u;
            }
            ASSERT_EQ(CellsOf(both), (inA | inB) != 0 ? smallest : 0u);

            // What is left of a when that is a rectangle, else all of a.
            const bool isRect = shapes.count(inA & ~inB) != 0;
            ASSERT_EQ(rest.SubtractRect(a, b) != 0, inA != 0 && (inA & ~inB) != 0);
            ASSERT_EQ(CellsOf(rest), isRect ? inA & ~inB : inA);
#ifdef _WIN32
            RECT expected = {};
            ::IntersectRect(&expected, &a, &b);
            ASSERT_TRUE(common == expected);
            ::UnionRect(&expected, &a, &b);
            ASSERT_TRUE(both == expected);
            ::SubtractRect(&expected, &a, &b);
            ASSERT_TRUE(rest == expected);
#endif
        }
    }
}

TEST(Rect, MovesItsEdges)
{
    const CRect rect(10, 20, 40, 60);
    struct
    {
        const char* name;
        CRect result;
        CRect expected;
    } const cases[] = {
        {"plus point", rect + CPoint(1, 2), CRect(11, 22, 41, 62)},
        {"minus size", rect - CSize(1, 2), CRect(9, 18, 39, 58)},
        {"plus rect: outwards", rect + CRect(1, 2, 3, 4), CRect(9, 18, 43, 64)},
        {"minus rect: inwards", rect - CRect(1, 2, 3, 4), CRect(11, 22, 37, 56)},
        {"and", rect & CRect(0, 30, 20, 90), CRect(10, 30, 20, 60)},
        {"or", rect | CRect(0, 30, 20, 90), CRect(0, 20, 40, 90)},
        {"point and size", CRect(CPoint(1, 2), CSize(3, 4)), CRect(1, 2, 4, 6)},
        {"corners", CRect(rect.TopLeft(), rect.BottomRight()), rect},
        {"scaled", rect.MulDiv(1, 3), CRect(3, 7, 13, 20)},
    };
    for (const auto& c : cases) {
        EXPECT_TRUE(c.result == c.expected) << c.name;
    }
    CRect changed(rect);
    changed.DeflateRect(1, 2);
    EXPECT_TRUE(changed == CRect(11, 22, 39, 58));
    changed.InflateRect(CSize(1, 2));
    EXPECT_TRUE(changed == rect);
    changed.DeflateRect(20, 0);
    EXPECT_TRUE(changed == CRect(30, 20, 20, 60)) << "never normalised";
    changed = rect;
    changed.MoveToXY(-5, 0);
    EXPECT_TRUE(changed == CRect(-5, 0, 25, 40));
    changed -= CPoint(-5, 0);
    changed |= changed;
    EXPECT_TRUE(changed == CRect(0, 0, 30, 40));
    EXPECT_TRUE(CRect(-3, -4, 0, 1).CenterPoint() == CPoint(-1, -1));
    EXPECT_TRUE(CPoint(static_cast<LPARAM>(0xfffe0005)) == CPoint(5, -2)) << "left of the screen";
    EXPECT_TRUE(CPoint(5, 6) - CPoint(2, 7) == CSize(3, -1));
    EXPECT_TRUE(CSize(1, 2) + CPoint(5, 6) == CPoint(6, 8) && CSize(1, 2) - CPoint(5, 6) == CPoint(-4, -4));
    EXPECT_TRUE(CPoint(1, 2) + &rect == CRect(11, 22, 41, 62) && CPoint(1, 2) - &rect == CRect(9, 18, 39, 58));
    EXPECT_TRUE(CSize(1, 2) + &rect == CRect(11, 22, 41, 62) && CSize(1, 2) - &rect == CRect(9, 18, 39, 58));
}

// A host may pass any numbers.
TEST(Rect, WrapsAroundAtTheEndsOfTheRange)
{
    CRect rect(INT_MIN, INT_MIN, INT_MAX, INT_MAX);
    EXPECT_EQ(rect.Width(), -1);
    rect.InflateRect(1, 1);
    EXPECT_EQ(rect.left, INT_MAX);
    rect.OffsetRect(INT_MAX, INT_MAX);
    EXPECT_EQ(rect.right, -1);
    EXPECT_EQ(MulDiv(INT_MIN, 1, -1), -1);
    EXPECT_EQ(MulDiv(7, 1, 0), -1);
    EXPECT_EQ(MulDiv(-7, 1, 2), -4) << "half away from zero";
    EXPECT_EQ(MulDiv(INT_MAX, INT_MAX, INT_MAX), INT_MAX);
}
} // namespace
