// Characters that the selected face lacks come from another face; what it has looks as the system draws it.
#include "core/DrawingHelpers.h"
#include "core/MixedText.h"
#include "core/TextCache.h"
#include "core/WideText.h"
#include "support/GuiCounts.h"
#include "support/MemoryDc.h"

#include <gtest/gtest.h>

using namespace dayvane;
using testsupport::MemoryDc;

namespace {

const CRect kArea(4, 4, 196, 36);
const std::u16string kNowhere = u"\xE7F3"; // for private use: no face has it

// A character that the text face lacks and some other face of this system has; empty: there is none.
std::u16string MissingCharacter(HDC hDC)
{
    for (const char16_t character : {u'\xFFFD', u'\x05D0', u'\x0639', u'\xD55C', u'\x263A', u'\x0E01'}) {
        const std::u16string text(1, character);
        if (IsMixedText(hDC, text)) {
            return text;
        }
    }
    return std::u16string();
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
    const std::u16string missing = MissingCharacter(drawn.Dc().m_hDC);
    if (missing.empty()) {
        GTEST_SKIP() << "no other face of this system has more";
    }
    testsupport::ExpectNothingLeftBy([&] {
        // A box stands for a missing glyph; the character must not look like one.
        DrawWideText(drawn.Dc(), missing, kArea, DT_SINGLELINE | DT_NOPREFIX);
        DrawWideText(expected.Dc(), kNowhere, kArea, DT_SINGLELINE | DT_NOPREFIX);
        EXPECT_FALSE(drawn.SameAs(expected));
        EXPECT_GT(drawn.CountOther(kArea, RGB(255, 255, 255)), 0);

        const std::u16string text = u"会議 " + missing + u" end";
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
    });
}
