// The arithmetic of points and rectangles.
#include <atltypes.h>

#include <algorithm>
#include <utility>

using afxcoord::Difference;
using afxcoord::Sum;

CPoint CSize::operator+(POINT point) const
{
    return CPoint(point) + *this;
}

CPoint CSize::operator-(POINT point) const
{
    return CPoint(*this) - CSize(point);
}

CRect CSize::operator+(LPCRECT rect) const
{
    return CRect(rect) + *this;
}

CRect CSize::operator-(LPCRECT rect) const
{
    return CRect(rect) - *this;
}

CRect CPoint::operator+(LPCRECT rect) const
{
    return CRect(rect) + *this;
}

CRect CPoint::operator-(LPCRECT rect) const
{
    return CRect(rect) - *this;
}

CRect::CRect(POINT point, SIZE size) : CRect(point.x, point.y, Sum(point.x, size.cx), Sum(point.y, size.cy))
{
}

CRect& CRect::operator=(const RECT& rect)
{
    left = rect.left;
    top = rect.top;
    right = rect.right;
    bottom = rect.bottom;
    return *this;
}

BOOL CRect::EqualRect(LPCRECT rect) const
{
    return left == rect->left && top == rect->top && right == rect->right && bottom == rect->bottom;
}

void CRect::SwapLeftRight()
{
    std::swap(left, right);
}

void CRect::NormalizeRect()
{
    if (left > right) {
        std::swap(left, right);
    }
    if (top > bottom) {
        std::swap(top, bottom);
    }
}

void CRect::InflateRect(int l, int t, int r, int b)
{
    SetRect(Difference(left, l), Difference(top, t), Sum(right, r), Sum(bottom, b));
}

void CRect::DeflateRect(int l, int t, int r, int b)
{
    SetRect(Sum(left, l), Sum(top, t), Difference(right, r), Difference(bottom, b));
}

void CRect::OffsetRect(int x, int y)
{
    SetRect(Sum(left, x), Sum(top, y), Sum(right, x), Sum(bottom, y));
}

BOOL CRect::IntersectRect(LPCRECT rect1, LPCRECT rect2)
{
    const CRect common(std::max(rect1->left, rect2->left), std::max(rect1->top, rect2->top),
                       std::min(rect1->right, rect2->right), std::min(rect1->bottom, rect2->bottom));
    // Where one of the two is empty, the common part is too: its edges lie no further apart.
    *this = common.IsRectEmpty() ? CRect() : common;
    return !common.IsRectEmpty();
}

BOOL CRect::UnionRect(LPCRECT rect1, LPCRECT rect2)
{
    const CRect first(rect1);
    const CRect second(rect2);
    if (first.IsRectEmpty() && second.IsRectEmpty()) {
        SetRectEmpty();
        return FALSE;
    }
    if (first.IsRectEmpty()) {
        *this = second;
    } else if (second.IsRectEmpty()) {
        *this = first;
    } else {
        SetRect(std::min(first.left, second.left), std::min(first.top, second.top), std::max(first.right, second.right),
                std::max(first.bottom, second.bottom));
    }
    return TRUE;
}

BOOL CRect::SubtractRect(LPCRECT rect1, LPCRECT rect2)
{
    CRect rest(rect1);
    CRect common;
    if (rest.IsRectEmpty()) {
        SetRectEmpty();
        return FALSE;
    }
    if (common.IntersectRect(rect1, rect2)) {
        const bool wholeWidth = common.left == rest.left && common.right == rest.right;
        const bool wholeHeight = common.top == rest.top && common.bottom == rest.bottom;
        if (wholeWidth && wholeHeight) {
            SetRectEmpty();
            return FALSE;
        }
        if (wholeHeight && common.left == rest.left) {
            rest.left = common.right;
        } else if (wholeHeight && common.right == rest.right) {
            rest.right = common.left;
        } else if (wholeWidth && common.top == rest.top) {
            rest.top = common.bottom;
        } else if (wholeWidth && common.bottom == rest.bottom) {
            rest.bottom = common.top;
        }
    }
    *this = rest;
    return TRUE;
}

CRect CRect::operator+(POINT point) const
{
    CRect rect(*this);
    rect.OffsetRect(point);
    return rect;
}

CRect CRect::operator+(SIZE size) const
{
    return *this + CPoint(size);
}

CRect CRect::operator+(LPCRECT rect) const
{
    CRect result(*this);
    result.InflateRect(rect);
    return result;
}

CRect CRect::operator-(POINT point) const
{
    return *this + -CPoint(point);
}

CRect CRect::operator-(SIZE size) const
{
    return *this - CPoint(size);
}

CRect CRect::operator-(LPCRECT rect) const
{
    CRect result(*this);
    result.DeflateRect(rect);
    return result;
}

CRect CRect::operator&(const RECT& rect) const
{
    CRect result;
    result.IntersectRect(this, &rect);
    return result;
}

CRect CRect::operator|(const RECT& rect) const
{
    CRect result;
    result.UnionRect(this, &rect);
    return result;
}

CRect CRect::MulDiv(int multiplier, int divisor) const
{
    return CRect(::MulDiv(left, multiplier, divisor), ::MulDiv(top, multiplier, divisor),
                 ::MulDiv(right, multiplier, divisor), ::MulDiv(bottom, multiplier, divisor));
}
