// Texts from the cache look like those that the system measures and cuts on every paint.
#include "core/DrawingHelpers.h"
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
