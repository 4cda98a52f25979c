// Characters that the selected face lacks come from another face; what it has looks as the system draws it.
#include "core/DrawingHelpers.h"
#include "core/MixedText.h"
#include "core/TextCache.h"
#include "core/WideText.h"
#include "support/GuiCounts.h"
#include "support/MemoryDc.h"

#include <gtest/gtest.h>

#include <vector>

using namespace dayvane;
using testsupport::MemoryDc;

namespace {

const CRect kArea(4, 4, 196, 36);
const std::u16string kNowhere = u"\xE7F3"; // for private use: no face has it

// Characters that the text face lacks and some other face of this system has, of either plane.
std::vector<std::u16string> MissingCharacters(HDC hDC)
{
    std::vector<std::u16string> missing;
    for (const char16_t* text :
         {u"\xFFFD", u"\x05D0", u"\x0645\x0644\x0627\x062D", u"\xD55C", u"\x263A", u"\x0E01", u"\U0001F600"}) {
        if (IsMixedText(hDC, text)) {
            missing.push_back(text);
        }
    }
    return missing;
}

class MixedTextTest : public testing::Test
{
protected:
    MixedTextTest() : drawn(200, 40), expected(200, 40)
    {
        LOGFONT look = {};
        look.lfHeight = 14;
        look.lfCharSet = SHIFTJIS_CHARSET;
        lstrcpyn(look.lfFaceName, "MS UI Gothic", LF_FACESIZE);
        font.CreateFontIndirect(&look);
    }
    // Whole and cut, as without a cache.
    void ExpectTheSameByCache(const std::u16string& text)
    {
        TextCache cache;
        EXPECT_EQ(cache.WidthOf(&drawn.Dc(), &font, text), WideTextExtent(drawn.Dc(), text).cx);
        for (int right = 40; right < 190; right += 25) {
            const CRect area(4, 4, right, 36);
            drawn.Fill(RGB(255, 255, 255));
            expected.Fill(RGB(255, 255, 255));
            const UINT format = DT_VCENTER | DT_END_ELLIPSIS;
            cache.Draw(&drawn.Dc(), &font, text, area, format);
            DrawWideText(expected.Dc(), text, area, format | DT_SINGLELINE | DT_NOPREFIX);
            EXPECT_TRUE(drawn.SameAs(expected)) << right;
            EXPECT_EQ(drawn.CountOther(CRect(right, 0, 200, 40), RGB(255, 255, 255)), 0) << "nothing beside it";
        }
    }

    CFont font;
    MemoryDc drawn;
    MemoryDc expected;
};

} // namespace

TEST_F(MixedTextTest, WhatTheFaceHasIsTheSystemsPicture)
{
    const SelectGdi onDrawn(&drawn.Dc(), &font);
    const SelectGdi onExpected(&expected.Dc(), &font);
    const std::u16string texts[] = {u"plain", u"会議 café ł 5 €", u"立冬 小雪 大雪", kNowhere};
    for (const std::u16string& text : texts) {
        for (const UINT format :
             {DT_SINGLELINE | DT_VCENTER | DT_CENTER | DT_END_ELLIPSIS, DT_WORDBREAK | DT_EDITCONTROL}) {
            drawn.Fill(RGB(255, 255, 255));
            expected.Fill(RGB(255, 255, 255));
            DrawWideText(drawn.Dc(), text, kArea, format | DT_NOPREFIX);
            CRect area = kArea;
            ::DrawTextW(expected.Dc().m_hDC, reinterpret_cast<LPCWSTR>(text.c_str()), -1, &area, format | DT_NOPREFIX);
            EXPECT_TRUE(drawn.SameAs(expected));
        }
    }
}

TEST_F(MixedTextTest, WhatItLacksIsTakenFromAnotherFace)
{
    const SelectGdi onDrawn(&drawn.Dc(), &font);
    const SelectGdi onExpected(&expected.Dc(), &font);
    const std::vector<std::u16string> characters = MissingCharacters(drawn.Dc().m_hDC);
    if (characters.empty()) {
        GTEST_SKIP() << "no other face of this system has more";
    }
    const std::u16string nowhere[] = {kNowhere, kNowhere + kNowhere}; // what is not put together shows as two boxes
    for (const std::u16string& missing : characters) {
        testsupport::ExpectNothingLeftBy([&] {
            // A box stands for a missing glyph; the character must not look like one.
            drawn.Fill(RGB(255, 255, 255));
            DrawWideText(drawn.Dc(), missing, kArea, DT_SINGLELINE | DT_NOPREFIX);
            for (const std::u16string& boxes : nowhere) {
                expected.Fill(RGB(255, 255, 255));
                DrawWideText(expected.Dc(), boxes, kArea, DT_SINGLELINE | DT_NOPREFIX);
                EXPECT_FALSE(drawn.SameAs(expected)) << static_cast<int>(missing[0]);
            }
            EXPECT_GT(drawn.CountOther(kArea, RGB(255, 255, 255)), 0);
            ExpectTheSameByCache(u"会議 " + missing + u" end");
        });
    }
}

// An edit box has one face for all.
TEST_F(MixedTextTest, OneFaceForAWholeText)
{
    const SelectGdi onDrawn(&drawn.Dc(), &font);
    const HDC hDC = drawn.Dc().m_hDC;
    EXPECT_EQ(NewFontForText(hDC, u"plain" + kNowhere), nullptr);
    for (const std::u16string& missing : MissingCharacters(hDC)) {
        const HFONT found = NewFontForText(hDC, u"a \xE9 " + missing);
        ASSERT_NE(found, nullptr) << static_cast<int>(missing[0]);
        const HGDIOBJ before = ::SelectObject(hDC, found);
        EXPECT_EQ(NewFontForText(hDC, u"a \xE9 " + missing), nullptr) << "there is no better one";
        TEXTMETRIC metrics = {};
        ::GetTextMetrics(hDC, &metrics);
        EXPECT_NEAR(metrics.tmHeight, 14, 1);
        ::SelectObject(hDC, before);
        ::DeleteObject(found);
    }
}
