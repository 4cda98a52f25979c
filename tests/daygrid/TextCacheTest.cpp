// Texts from the cache look like those that the system measures and cuts on every paint.
#include "core/ClipArea.h"
#include "core/DrawingHelpers.h"
#include "core/DrawnTexts.h"
#include "core/IconPixels.h"
#include "core/PaintBuffer.h"
#include "core/TextBlocks.h"
#include "core/TextCache.h"
#include "core/WideText.h"
#include "support/MemoryDc.h"

#include <gtest/gtest.h>

using testsupport::MemoryDc;

namespace {

constexpr int kWidth = 260;
constexpr int kHeight = 24;

void CreateFont(CFont& font, int height)
{
    LOGFONT lf = {};
    lf.lfHeight = height;
    lf.lfCharSet = SHIFTJIS_CHARSET;
    lstrcpyn(lf.lfFaceName, "MS UI Gothic", LF_FACESIZE);
    font.CreateFontIndirect(&lf);
}

} // namespace

TEST(TextCache, DrawsWhatTheSystemDraws)
{
    struct Case
    {
        const char16_t* text;
        UINT format;
    };
    const Case cases[] = {
        {u"9:00 Lunch & tea", DT_LEFT | DT_VCENTER | DT_END_ELLIPSIS},
        {u"設計レビュー（会議室 B）", DT_LEFT | DT_VCENTER | DT_END_ELLIPSIS},
        {u"終日の予定", DT_CENTER | DT_VCENTER | DT_END_ELLIPSIS},
        {u"26/3/1", DT_RIGHT | DT_TOP},
    };
    CFont font;
    CreateFont(font, 12);
    dayvane::TextCache cache;
    MemoryDc drawn(kWidth, kHeight);
    MemoryDc expected(kWidth, kHeight);
    const dayvane::SelectGdi selectDrawn(&drawn.Dc(), &font);
    const dayvane::SelectGdi selectExpected(&expected.Dc(), &font);
    for (const Case& c : cases) {
        for (int width = 24; width <= 240; width += 9) {
            for (int round = 0; round < 2; ++round) { // the second time from memory
                drawn.Fill(RGB(255, 255, 255));
                expected.Fill(RGB(255, 255, 255));
                CRect rect(5, 3, 5 + width, 21);
                cache.Draw(&drawn.Dc(), &font, c.text, rect, c.format);
                ::DrawTextW(expected.Dc().m_hDC, reinterpret_cast<LPCWSTR>(c.text), -1, &rect,
                            c.format | DT_SINGLELINE | DT_NOPREFIX);
                ASSERT_TRUE(drawn.SameAs(expected)) << &c - cases << " in " << width << " pixels";
            }
        }
    }
}

TEST(TextCache, KeepsFontsAndWidthsApart)
{
    CFont small;
    CFont large;
    CreateFont(small, 12);
    CreateFont(large, 20);
    dayvane::TextCache cache;
    MemoryDc surface(kWidth, kHeight);
    int widths[2] = {};
    for (int i = 0; i < 2; ++i) {
        CFont* font = i == 0 ? &small : &large;
        const dayvane::SelectGdi selectFont(&surface.Dc(), font);
        widths[i] = cache.WidthOf(&surface.Dc(), font, u"会議 meeting");
        EXPECT_EQ(widths[i], dayvane::WideTextExtent(surface.Dc(), u"会議 meeting").cx);
        EXPECT_EQ(cache.WidthOf(&surface.Dc(), font, u""), 0);
    }
    EXPECT_GT(widths[1], widths[0]);
    surface.Fill(RGB(255, 255, 255));
    cache.Draw(&surface.Dc(), &large, u"会議", CRect(10, 10, 10, 20), DT_LEFT);
    EXPECT_EQ(surface.CountOther(CRect(0, 0, kWidth, kHeight), RGB(255, 255, 255)), 0) << "no room";
}

// Each text is drawn three times: by the system, by the system and noted, and from memory.
TEST(TextBlocks, DrawWhatTheSystemDraws)
{
    const char16_t* const texts[] = {u"10:00 - 11:00 Team meeting", u"設計レビュー（会議室 B）、資料は各自で。",
                                     u"first\r\nsecond line\n", u"a  b-c/d averyveryverylongwordwithoutblanks",
                                     u"& && x"};
    const UINT formats[] = {DT_NOPREFIX | DT_WORDBREAK | DT_EDITCONTROL, DT_NOPREFIX | DT_SINGLELINE | DT_END_ELLIPSIS,
                            DT_RIGHT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS};
    CFont font;
    CreateFont(font, 12);
    dayvane::TextCache widths;
    dayvane::TextBlocks blocks;
    MemoryDc drawn(kWidth, 80);
    MemoryDc expected(kWidth, 80);
    const dayvane::SelectGdi selectDrawn(&drawn.Dc(), &font);
    const dayvane::SelectGdi selectExpected(&expected.Dc(), &font);
    int boxes = 0;
    for (const char16_t* text : texts) {
        for (const UINT format : formats) {
            for (int width = 20; width < 250; width += 23) {
                const CRect rect(5, 3, 5 + width, 3 + 11 + width % 50);
                ++boxes;
                expected.Fill(RGB(255, 255, 255));
                dayvane::DrawWideText(expected.Dc(), text, rect, format);
                for (int round = 0; round < 3; ++round) {
                    drawn.Fill(RGB(255, 255, 255));
                    blocks.Draw(drawn.Dc(), &font, text, rect, format, widths);
                    blocks.Note(drawn.Dc());
                    ASSERT_TRUE(drawn.SameAs(expected)) << "format " << format << ", width " << width << ", " << round;
                }
            }
        }
    }
    EXPECT_EQ(blocks.CountNoted(), boxes);
}

namespace {

// Texts on grounds that are seldom of one colour, in a buffer of the surface that may be clipped. Returns how many of
// them the system has drawn.
int DrawTexts(MemoryDc& surface, unsigned seed, dayvane::TextCache& texts, CFont* const (&fonts)[2],
              dayvane::PaintBuffer& buffer, dayvane::DrawnTexts* drawn)
{
    constexpr COLORREF kGrounds[] = {RGB(255, 255, 255), RGB(200, 220, 255), RGB(255, 240, 180)};
    const char16_t* const words[] = {u"Lunch", u"fly off", u"打合せ（会議室）", u"j|", u" "};
    const auto next = [&seed](int count) {
        seed = seed * 1103515245u + 12345u;
        return static_cast<int>(seed >> 16) % count;
    };
    const dayvane::SaveDcScope saved(&surface.Dc());
    if (next(3) == 0) {
        surface.Dc().IntersectClipRect(CRect(next(40), next(20), 200 + next(60), 50 + next(30)));
    }
    CMemDC memory(&surface.Dc(), buffer, CSize(kWidth, 80));
    memory.FillSolidRect(CRect(0, 0, kWidth, 80), kGrounds[next(3)]);
    memory.FillSolidRect(CRect(next(200), 0, kWidth, 80), kGrounds[next(3)]);
    memory.FillSolidRect(CRect(0, next(80), kWidth, 80), kGrounds[next(3)]);
    memory.SetBkMode(next(9) == 0 ? OPAQUE : TRANSPARENT);
    const dayvane::ClipArea clip(memory, &memory);
    int bySystem = 0;
    for (int i = 0; i < 12; ++i) {
        const std::u16string text = words[next(5)];
        CFont* font = fonts[next(2)];
        const int left = next(200);
        const int top = next(50);
        const CRect rect(left, top, left + 12 * (2 + next(4)), top + 16 + 6 * next(2));
        const UINT format = next(2) ? DT_LEFT | DT_VCENTER | DT_END_ELLIPSIS : DT_CENTER | DT_TOP;
        memory.SetTextColor(next(2) ? RGB(0, 0, 0) : kGrounds[next(3)]);
        const auto draw = [&] {
            const dayvane::SelectGdi selectFont(&memory, font);
            texts.Draw(&memory, font, text, rect, format);
            ++bySystem;
        };
        drawn ? drawn->Draw(memory, clip, {font, text, rect, format}, draw) : draw();
    }
    return bySystem;
}

} // namespace

TEST(DrawnTexts, AreThoseOfTheSystemOnEveryGround)
{
    CFont plain;
    CreateFont(plain, 12);
    CFont slanted; // its letters reach over the edges
    slanted.CreateFont(20, 0, 0, 0, FW_BOLD, TRUE, FALSE, FALSE, ANSI_CHARSET, 0, 0, 0, 0, "Times New Roman");
    CFont* const fonts[] = {&plain, &slanted};
    dayvane::TextCache texts;
    dayvane::DrawnTexts drawn;
    MemoryDc own(kWidth, 80);
    MemoryDc systems(kWidth, 80);
    dayvane::PaintBuffer ownBuffer, otherBuffer;
    int bySystem = 0;
    int all = 0;
    for (unsigned seed = 0; seed < 600; ++seed) {
        bySystem += DrawTexts(own, seed, texts, fonts, ownBuffer, &drawn);
        all += DrawTexts(systems, seed, texts, fonts, otherBuffer, nullptr);
        ASSERT_TRUE(own.SameAs(systems)) << seed;
    }
    EXPECT_LT(bySystem, all * 4 / 5) << "the others were copied";
    EXPECT_GT(drawn.CountBytes(), 0u);
    drawn.Clear();
    EXPECT_EQ(drawn.CountBytes(), 0u);
}

TEST(DrawnTexts, TakeNoMoreThanAFewMegabytes)
{
    CFont font;
    CreateFont(font, 40);
    dayvane::DrawnTexts drawn;
    MemoryDc surface(600, 60);
    CMemDC memory(&surface.Dc());
    memory.FillSolidRect(CRect(0, 0, 600, 60), RGB(255, 255, 255));
    memory.SetBkMode(TRANSPARENT);
    const dayvane::ClipArea clip(memory, &memory);
    for (int i = 0; i < 800; ++i) {
        const std::u16string text(20, static_cast<char16_t>(u'A' + i % 26));
        const CRect rect(0, 0, 200 + i / 2, 60 - i % 2);
        memory.FillSolidRect(&rect, RGB(255, 255, 255));
        drawn.Draw(memory, clip, {&font, text, rect, 0, true},
                   [&] { dayvane::DrawWideText(memory, text, rect, DT_SINGLELINE); });
        ASSERT_LE(drawn.CountBytes(), 16u << 20) << i;
    }
    EXPECT_GT(drawn.CountBytes(), 1000u);
}

TEST(IconPixels, AreThoseOfTheSystem)
{
    BYTE open[32] = {}; // a bit for each pixel that is left as it is
    BYTE white[32] = {};
    for (int i = 0; i < 32; ++i) {
        open[i] = static_cast<BYTE>(i * 37);
        white[i] = static_cast<BYTE>(~open[i] & (i * 11));
    }
    const HICON solid = ::CreateIcon(nullptr, 16, 16, 1, 1, open, white);
    const HICON systems = ::LoadIconA(nullptr, IDI_ERROR); // may be half transparent
    for (const HICON handle : {solid, systems}) {
        MemoryDc own(60, 40), expected(60, 40);
        dayvane::IconPixels icon;
        for (int seed = 0; seed < 40; ++seed) {
            const CRect rect(CPoint(seed - 10, seed % 7 - 3), CSize(16 + seed / 30, 16));
            for (MemoryDc* surface : {&own, &expected}) {
                CMemDC memory(&surface->Dc());
                memory.FillSolidRect(CRect(0, 0, 60, 40), RGB(seed, 2 * seed, 99));
                const bool isDone = surface == &own && icon.Draw(dayvane::ClipArea(memory, &memory), handle, rect);
                EXPECT_TRUE(isDone || surface != &own || handle != solid) << seed;
                if (!isDone) {
                    ::DrawIconEx(memory.m_hDC, rect.left, rect.top, handle, rect.Width(), rect.Height(), 0, nullptr,
                                 DI_NORMAL);
                }
            }
            ASSERT_TRUE(own.SameAs(expected)) << seed;
        }
    }
    ::DestroyIcon(solid);
}
