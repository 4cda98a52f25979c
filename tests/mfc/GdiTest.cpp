// Device contexts and drawing objects: ownership, selection, settings, pixels.
#include "tests/support/GuiCounts.h"

#include "WindowTesting.h"

namespace {

constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);

// A picture in memory, 40 x 30 pixels, white
class GdiTest : public testing::Test
{
protected:
    void SetUp() override
    {
        CClientDC screen(nullptr);
        ASSERT_TRUE(dc.CreateCompatibleDC(&screen));
        ASSERT_TRUE(bitmap.CreateCompatibleBitmap(&screen, 40, 30));
        before = dc.SelectObject(&bitmap);
        dc.FillSolidRect(0, 0, 40, 30, kWhite);
    }
    void TearDown() override { dc.SelectObject(before); }

    CBitmap bitmap;
    CDC dc;
    CBitmap* before = nullptr;
};

TEST_F(GdiTest, SelectionAnswersWhatWasThere)
{
    CPen pen(PS_SOLID, 1, kRed);
    CPen* stock = dc.SelectObject(&pen);
    ASSERT_NE(stock, nullptr);
    EXPECT_EQ(stock->m_hObject, ::GetStockObject(BLACK_PEN));
    EXPECT_TRUE(stock->IsKindOf(RUNTIME_CLASS(CPen)));
    EXPECT_EQ(dc.GetCurrentPen(), &pen);
    CPen second(PS_SOLID, 2, kBlue);
    EXPECT_EQ(dc.SelectObject(&second), &pen) << "an object of one's own, not a temporary one";
    dc.SelectObject(stock);

    CFont font;
    ASSERT_TRUE(font.CreatePointFont(120, "MS UI Gothic"));
    LOGFONT logFont = {};
    font.GetLogFont(&logFont);
    EXPECT_EQ(logFont.lfHeight, -::MulDiv(120, dc.GetDeviceCaps(LOGPIXELSY), 720));
    CFont* oldFont = dc.SelectObject(&font);
    ASSERT_NE(oldFont, nullptr);
    EXPECT_TRUE(oldFont->IsKindOf(RUNTIME_CLASS(CFont)));
    EXPECT_EQ(dc.SelectStockObject(SYSTEM_FONT), &font);
    EXPECT_EQ(dc.SelectObject(static_cast<CPen*>(nullptr)), nullptr);
}

TEST_F(GdiTest, ObjectsDeleteWhatTheyOwn)
{
    HGDIOBJ pen = nullptr;
    HGDIOBJ brush = nullptr;
    HDC memory = nullptr;
    {
        CPen owner(PS_SOLID, 1, kRed);
        pen = owner;
        CBrush detached(kBlue);
        brush = detached.Detach();
        CDC context;
        context.CreateCompatibleDC(nullptr);
        memory = context;
    }
    EXPECT_EQ(::GetObjectType(pen), 0u);
    EXPECT_EQ(::GetObjectType(memory), 0u);
    EXPECT_EQ(::GetObjectType(brush), static_cast<DWORD>(OBJ_BRUSH));
    {
        CBrush owner;
        EXPECT_TRUE(owner.Attach(brush));
        EXPECT_FALSE(CBrush().Attach(nullptr));
        EXPECT_TRUE(owner.DeleteObject());
        EXPECT_FALSE(owner.DeleteObject());
    }
    try {
        CBrush none(99, kRed); // no such hatch
        FAIL() << "a brush of an unknown pattern";
    } catch (CResourceException* e) {
        e->Delete();
    }
}

TEST_F(GdiTest, Draws)
{
    CRect area(5, 5, 10, 10);
    dc.FillSolidRect(&area, kRed);
    EXPECT_EQ(dc.GetBkColor(), kRed) << "the fill's colour stays";
    CBrush blue(kBlue);
    area.OffsetRect(10, 0);
    dc.FillRect(&area, &blue);
    dc.Draw3dRect(CRect(25, 5, 35, 15), kRed, kBlue);
    CPen pen(PS_SOLID, 1, kBlue);
    CPen* oldPen = dc.SelectObject(&pen);
    dc.MoveTo(0, 20);
    dc.LineTo(8, 20);
    EXPECT_EQ(dc.GetCurrentPosition(), CPoint(8, 20));
    dc.SelectObject(oldPen);
    dc.SetPixel(39, 29, RGB(1, 2, 3));
    const struct
    {
        int x;
        int y;
        COLORREF expected;
    } probes[] = {
        {4, 5, kWhite},  {5, 5, kRed},   {9, 9, kRed},   {10, 9, kWhite}, {15, 5, kBlue},
        {20, 5, kWhite}, {25, 5, kRed},  {34, 5, kBlue}, {25, 14, kBlue}, {26, 6, kWhite},
        {34, 14, kBlue}, {0, 20, kBlue}, {7, 20, kBlue}, {8, 20, kWhite}, {39, 29, RGB(1, 2, 3)},
    };
    for (const auto& probe : probes) {
        EXPECT_EQ(dc.GetPixel(probe.x, probe.y), probe.expected) << probe.x << "," << probe.y;
    }
    CDC copy;
    copy.CreateCompatibleDC(&dc);
    CBitmap picture;
    picture.CreateCompatibleBitmap(&dc, 40, 30);
    CBitmap* oldBitmap = copy.SelectObject(&picture);
    copy.FillSolidRect(0, 0, 40, 30, RGB(0, 255, 0));
    copy.TransparentBlt(0, 0, 40, 30, &dc, 0, 0, 40, 30, kWhite);
    EXPECT_EQ(copy.GetPixel(5, 5), kRed);
    EXPECT_EQ(copy.GetPixel(4, 5), RGB(0, 255, 0));
    copy.BitBlt(0, 0, 5, 5, &dc, 5, 5, SRCCOPY);
    EXPECT_EQ(copy.GetPixel(4, 4), kRed);
    copy.SelectObject(oldBitmap);
}

TEST_F(GdiTest, SettingsGoToBothContexts)
{
    CDC attributes;
    attributes.CreateCompatibleDC(nullptr);
    dc.SetAttribDC(attributes.m_hDC);
    dc.SetTextColor(kRed);
    dc.SetMapMode(MM_ANISOTROPIC);
    dc.SetWindowExt(10, 10);
    dc.SetViewportExt(20, 20);
    dc.SetViewportOrg(3, 4);
    EXPECT_EQ(dc.GetViewportOrg(), CPoint(3, 4));
    CFont font;
    font.CreatePointFont(300, "MS UI Gothic");
    CFont* oldFont = dc.SelectObject(&font);
    EXPECT_EQ(::GetTextColor(dc.m_hDC), kRed);
    EXPECT_EQ(::GetTextColor(attributes.m_hDC), kRed);
    EXPECT_EQ(dc.GetTextExtent("abc", 3), dc.GetOutputTextExtent("abc", 3));
    CPoint point(1, 1);
    dc.LPtoDP(&point);
    EXPECT_EQ(point, CPoint(5, 6));
    dc.DPtoLP(&point);
    EXPECT_EQ(point, CPoint(1, 1));
    CSize size(-3, 5);
    dc.LPtoDP(&size);
    EXPECT_EQ(size, CSize(6, 10));
    const int saved = dc.SaveDC();
    dc.SetBkMode(TRANSPARENT);
    EXPECT_TRUE(dc.RestoreDC(saved));
    EXPECT_EQ(::GetBkMode(attributes.m_hDC), OPAQUE);
    EXPECT_EQ(::GetBkMode(dc.m_hDC), OPAQUE);
    dc.SelectObject(oldFont);
    dc.SetAttribDC(dc.m_hDC);
}

TEST_F(GdiTest, DrawingLeavesNoObjects)
{
    CWnd wnd;
    ASSERT_TRUE(wnd.CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP, CRect(0, 0, 30, 30), nullptr, 0));
    testsupport::ExpectNothingLeftBy([&wnd] {
        for (int i = 0; i < 20; ++i) {
            CDC* own = wnd.GetDC();
            CPen pen(PS_SOLID, 1, kRed);
            CFont font;
            font.CreatePointFont(90, "MS UI Gothic");
            CPen* oldPen = own->SelectObject(&pen);
            CFont* oldFont = own->SelectObject(&font);
            own->TextOut(1, 1, "text");
            own->SelectObject(oldFont);
            own->SelectObject(oldPen);
            wnd.ReleaseDC(own);
            CMenu menu;
            menu.CreatePopupMenu();
        }
    });
}

} // namespace
