// CSize, CPoint and CRect. A rectangle holds its left and top edges; right and bottom are the first column and row
// outside. Arithmetic wraps around at 32 bits, as the system's does.
#pragma once

#include <afxwintypes.h>

class CPoint;
class CRect;

namespace afxcoord {
constexpr LONG Sum(LONG a, LONG b)
{
    return static_cast<LONG>(static_cast<DWORD>(a) + static_cast<DWORD>(b));
}
constexpr LONG Difference(LONG a, LONG b)
{
    return static_cast<LONG>(static_cast<DWORD>(a) - static_cast<DWORD>(b));
}
} // namespace afxcoord

class CSize : public tagSIZE
{
public:
    CSize() : CSize(0, 0) {}
    CSize(int width, int height)
    {
        cx = width;
        cy = height;
    }
    CSize(SIZE size) : tagSIZE(size) {}
    explicit CSize(POINT point) : CSize(point.x, point.y) {}

    void SetSize(int width, int height) { *this = CSize(width, height); }
    BOOL operator==(SIZE size) const { return cx == size.cx && cy == size.cy; }
    BOOL operator!=(SIZE size) const { return !(*this == size); }
    CSize& operator+=(SIZE size) { return *this = *this + size; }
    CSize& operator-=(SIZE size) { return *this = *this - size; }
    CSize operator+(SIZE size) const { return CSize(afxcoord::Sum(cx, size.cx), afxcoord::Sum(cy, size.cy)); }
    CSize operator-(SIZE size) const
    {
        return CSize(afxcoord::Difference(cx, size.cx), afxcoord::Difference(cy, size.cy));
    }
    CSize operator-() const { return CSize() - *this; }
    CPoint operator+(POINT point) const;
    CPoint operator-(POINT point) const;
    CRect operator+(LPCRECT rect) const;
    CRect operator-(LPCRECT rect) const;
};

class CPoint : public tagPOINT
{
public:
    CPoint() : CPoint(0, 0) {}
    CPoint(int px, int py)
    {
        x = px;
        y = py;
    }
    CPoint(POINT point) : tagPOINT(point) {}
    explicit CPoint(SIZE size) : CPoint(size.cx, size.cy) {}
    // A mouse message's point: x in the low word, y in the high word, both signed.
    explicit CPoint(LPARAM packed) : CPoint(static_cast<SHORT>(LOWORD(packed)), static_cast<SHORT>(HIWORD(packed))) {}

    void Offset(int dx, int dy) { *this = *this + CSize(dx, dy); }
    void Offset(POINT point) { Offset(point.x, point.y); }
    void Offset(SIZE size) { Offset(size.cx, size.cy); }
    void SetPoint(int px, int py) { *this = CPoint(px, py); }
    BOOL operator==(POINT point) const { return x == point.x && y == point.y; }
    BOOL operator!=(POINT point) const { return !(*this == point); }
    CPoint& operator+=(SIZE size) { return *this = *this + size; }
    CPoint& operator-=(SIZE size) { return *this = *this - size; }
    CPoint& operator+=(POINT point) { return *this = *this + point; }
    CPoint& operator-=(POINT point) { return *this = *this - CSize(point); }
    CPoint operator+(SIZE size) const { return CPoint(afxcoord::Sum(x, size.cx), afxcoord::Sum(y, size.cy)); }
    CPoint operator-(SIZE size) const
    {
        return CPoint(afxcoord::Difference(x, size.cx), afxcoord::Difference(y, size.cy));
    }
    CPoint operator+(POINT point) const { return *this + CSize(point); }
    CSize operator-(POINT point) const { return CSize(*this - CSize(point)); }
    CPoint operator-() const { return CPoint() - CSize(*this); }
    CRect operator+(LPCRECT rect) const;
    CRect operator-(LPCRECT rect) const;
};

class CRect : public tagRECT
{
public:
    CRect() : CRect(0, 0, 0, 0) {}
    CRect(int l, int t, int r, int b)
    {
        left = l;
        top = t;
        right = r;
        bottom = b;
    }
    CRect(const RECT& rect) : tagRECT(rect) {}
    CRect(LPCRECT rect) : tagRECT(*rect) {}
    CRect(POINT point, SIZE size);
    CRect(POINT topLeft, POINT bottomRight) : CRect(topLeft.x, topLeft.y, bottomRight.x, bottomRight.y) {}

    int Width() const { return afxcoord::Difference(right, left); }
    int Height() const { return afxcoord::Difference(bottom, top); }
    CSize Size() const { return CSize(Width(), Height()); }
    CPoint TopLeft() const { return CPoint(left, top); }
    CPoint BottomRight() const { return CPoint(right, bottom); }
    // Halves are cut towards 0.
    CPoint CenterPoint() const { return CPoint(afxcoord::Sum(left, right) / 2, afxcoord::Sum(top, bottom) / 2); }
    operator LPRECT() { return this; }
    operator LPCRECT() const { return this; }

    // Empty: no width or no height, or a negative one. Null: all four edges are 0.
    BOOL IsRectEmpty() const { return right <= left || bottom <= top; }
    BOOL IsRectNull() const { return left == 0 && top == 0 && right == 0 && bottom == 0; }
    BOOL PtInRect(POINT point) const
    {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }
    BOOL EqualRect(LPCRECT rect) const;

    void SetRect(int l, int t, int r, int b) { *this = CRect(l, t, r, b); }
    void SetRect(POINT topLeft, POINT bottomRight) { *this = CRect(topLeft, bottomRight); }
    void SetRectEmpty() { *this = CRect(); }
    void CopyRect(LPCRECT rect) { *this = CRect(rect); }
    void SwapLeftRight();
    // Swaps the edges that are in the wrong order.
    void NormalizeRect();

    // Moves every edge outwards (Inflate) or inwards (Deflate); negative amounts do the opposite. Never normalises.
    void InflateRect(int x, int y) { InflateRect(x, y, x, y); }
    void InflateRect(SIZE size) { InflateRect(size.cx, size.cy); }
    void InflateRect(LPCRECT rect) { InflateRect(rect->left, rect->top, rect->right, rect->bottom); }
    void InflateRect(int l, int t, int r, int b);
    void DeflateRect(int x, int y) { DeflateRect(x, y, x, y); }
    void DeflateRect(SIZE size) { DeflateRect(size.cx, size.cy); }
    void DeflateRect(LPCRECT rect) { DeflateRect(rect->left, rect->top, rect->right, rect->bottom); }
    void DeflateRect(int l, int t, int r, int b);
    void OffsetRect(int x, int y);
    void OffsetRect(SIZE size) { OffsetRect(size.cx, size.cy); }
    void OffsetRect(POINT point) { OffsetRect(point.x, point.y); }
    // Moves the rectangle, its size kept.
    void MoveToX(int x) { OffsetRect(afxcoord::Difference(x, left), 0); }
    void MoveToY(int y) { OffsetRect(0, afxcoord::Difference(y, top)); }
    void MoveToXY(int x, int y) { OffsetRect(afxcoord::Difference(x, left), afxcoord::Difference(y, top)); }
    void MoveToXY(POINT point) { MoveToXY(point.x, point.y); }

    // The common part. None, as with an empty rectangle: this becomes all zeros, FALSE.
    BOOL IntersectRect(LPCRECT rect1, LPCRECT rect2);
    // The smallest rectangle that holds both; an empty one counts for nothing. Both empty: all zeros, FALSE.
    BOOL UnionRect(LPCRECT rect1, LPCRECT rect2);
    // rect1 less what rect2 covers of it, when rect2 covers its whole width or height up to an edge; else rect1 as it
    // is. Nothing left: all zeros, FALSE.
    BOOL SubtractRect(LPCRECT rect1, LPCRECT rect2);

    CRect& operator=(const RECT& rect);
    BOOL operator==(const RECT& rect) const { return EqualRect(&rect); }
    BOOL operator!=(const RECT& rect) const { return !EqualRect(&rect); }
    void operator+=(POINT point) { OffsetRect(point); }
    void operator+=(SIZE size) { OffsetRect(size); }
    void operator+=(LPCRECT rect) { InflateRect(rect); }
    void operator-=(POINT point) { *this = *this - point; }
    void operator-=(SIZE size) { *this = *this - size; }
    void operator-=(LPCRECT rect) { DeflateRect(rect); }
    void operator&=(const RECT& rect) { IntersectRect(this, &rect); }
    void operator|=(const RECT& rect) { UnionRect(this, &rect); }
    CRect operator+(POINT point) const;
    CRect operator+(SIZE size) const;
    CRect operator+(LPCRECT rect) const;
    CRect operator-(POINT point) const;
    CRect operator-(SIZE size) const;
    CRect operator-(LPCRECT rect) const;
    CRect operator&(const RECT& rect) const;
    CRect operator|(const RECT& rect) const;

    // Each edge times multiplier / divisor, rounded.
    CRect MulDiv(int multiplier, int divisor) const;
};
