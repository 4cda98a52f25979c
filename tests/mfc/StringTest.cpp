// CString: value semantics over shared text, and characters of two bytes.
#include "BaseTesting.h"

#include <random>
#include <string>
#include <thread>

namespace {
// Texts that share and part again, against strings that never share.
class RandomTexts
{
public:
    void Step(int step)
    {
        CString& text = texts[m_random() % 4];
        std::string& model = models[&text - texts];
        const size_t other = m_random() % 4;
        const size_t at = model.empty() ? 0 : m_random() % model.size();
        const size_t count = m_random() % 5;
        const char letter = static_cast<char>('a' + m_random() % 4);
        switch (m_random() % 12) {
        case 0:
        case 1:
            text = texts[other];
            model = models[other];
            break;
        case 2:
            text += texts[other].Left(20);
            model += models[other].substr(0, 20);
            break;
        case 3:
            text += letter;
            model += letter;
            break;
        case 4:
            text.Insert(static_cast<int>(at), "xyz");
            model.insert(at, "xyz");
            break;
        case 5:
            text.Delete(static_cast<int>(at), static_cast<int>(count));
            model.erase(at, count);
            break;
        case 6:
            text = letter + text.Mid(static_cast<int>(at), static_cast<int>(count)) + "-" + texts[other].Right(3);
            model = letter + model.substr(at, count) + "-" +
                    models[other].substr(models[other].size() < 3 ? 0 : models[other].size() - 3);
            break;
        case 7:
            if (!model.empty()) {
                text.SetAt(static_cast<int>(at), letter);
                model[at] = letter;
            }
            break;
        case 8:
            text = text.GetString() + at; // a part of itself
            model = model.substr(at);
            break;
        case 9:
            text.Append(text.GetString() + at, static_cast<int>(std::min(count, model.size() - at)));
            model += std::string(model, at, count);
            break;
        case 10:
            text.Format("%d%s", step, static_cast<LPCTSTR>(text));
            model = std::to_string(step) + model;
            break;
        default:
            text.GetBuffer()[model.size() / 2] = 0;
            text.ReleaseBuffer();
            model.resize(model.size() / 2);
            break;
        }
    }

    CString texts[4];
    std::string models[4];

private:
    std::mt19937 m_random{2};
};

TEST(String, BehavesAsAValueUnderRandomOperations)
{
    RandomTexts values;
    for (int step = 0; step < 20000; ++step) {
        values.Step(step);
        for (int i = 0; i < 4; ++i) {
            ASSERT_EQ(values.models[i], values.texts[i].GetString()) << "step " << step << ", text " << i;
            ASSERT_EQ(static_cast<int>(values.models[i].size()), values.texts[i].GetLength());
        }
        ASSERT_EQ(values.models[0] < values.models[1], values.texts[0] < values.texts[1]);
        ASSERT_EQ(static_cast<int>(values.models[0].find("xy")), values.texts[0].Find("xy")); // -1 is npos
        ASSERT_EQ(static_cast<int>(values.models[0].rfind('a')), values.texts[0].ReverseFind('a'));
    }
}

TEST(String, CopiesShareOneTextAcrossThreads)
{
    static_assert(sizeof(CString) == sizeof(void*), "records that hosts share with the library count on it");
    const CString text("shared by all");
    const CString copy(text);
    EXPECT_EQ(copy.GetString(), text.GetString());
    std::thread workers[2];
    for (std::thread& worker : workers) {
        worker = std::thread([&] {
            for (int i = 0; i < 20000; ++i) {
                CString mine(text);
                CString changed(mine);
                changed += 'x';
                ASSERT_EQ(mine.GetString(), text.GetString());
            }
        });
    }
    for (std::thread& worker : workers) {
        worker.join();
    }
    EXPECT_STREQ(text, "shared by all");
}

TEST(String, CutsPositionsToTheText)
{
    const CString text("abcde");
    EXPECT_STREQ(text.Mid(-2, 3), "abc");
    EXPECT_STREQ(text.Mid(3, INT32_MAX), "de");
    EXPECT_STREQ(text.Mid(5), "");
    EXPECT_STREQ(text.Mid(1, -1), "");
    EXPECT_STREQ(text.Left(-1), "");
    EXPECT_STREQ(text.Left(9), "abcde");
    EXPECT_STREQ(text.Right(2), "de");
    EXPECT_STREQ(text.Right(-1), "");
    CString changed(text);
    EXPECT_EQ(changed.Insert(99, "f"), 6);
    EXPECT_EQ(changed.Insert(-1, "_"), 7);
    EXPECT_EQ(changed.Delete(5, INT32_MAX), 5);
    EXPECT_STREQ(changed, "_abcd");
    EXPECT_EQ(text.GetAt(5), 0);
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { text.GetAt(6); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { text[-1]; }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { changed.SetAt(5, 'x'); }));
    EXPECT_EQ(text.Find('a', 5), -1);
    EXPECT_EQ(text.Find("", 5), 5);
    EXPECT_EQ(text.Find("a", 6), -1);
    const LPCTSTR none = nullptr;
    EXPECT_TRUE(CString(none).IsEmpty());
    EXPECT_TRUE(CString() == none && text > none);
}

TEST(String, FormatsLongTexts)
{
    CString text;
    text.Format("%05d|%-3s|%.2f|%%|%x", 42, "a", 2.005, 255u);
    EXPECT_STREQ(text, "00042|a  |2.00|%|ff");
    for (const int length : {254, 255, 256, 257, 5000}) { // about the size of the fixed buffer
        text = "<";
        text.AppendFormat("%s>", static_cast<LPCTSTR>(CString('m', length)));
        EXPECT_EQ(text.GetLength(), length + 2);
        EXPECT_TRUE(text == "<" + CString('m', length) + '>');
    }
}

// Katakana and kanji whose second byte is a letter, a backslash or a bar.
TEST(String, NeverTakesASecondByteForACharacter)
{
    const CString text("アポ表|A\\");
    ASSERT_EQ(text.GetAt(1), 'A'); // the second byte of the first letter
    EXPECT_EQ(text.Find('A'), 7);
    EXPECT_EQ(text.Find('|'), 6);
    EXPECT_EQ(text.ReverseFind('A'), 7);
    EXPECT_EQ(text.FindOneOf("\\|"), 6);
    EXPECT_EQ(text.Find("表"), 4);
    EXPECT_STREQ(text.SpanExcluding("|"), "アポ表");
    EXPECT_STREQ(text.SpanIncluding("表ポア"), "アポ表");
    CString changed(text);
    EXPECT_STREQ(changed.MakeLower(), "アポ表|a\\");
    EXPECT_EQ(CString("アB").CompareNoCase("アb"), 0);
    EXPECT_NE(CString("ア").CompareNoCase("チ"), 0);
    EXPECT_EQ(changed.Replace('\\', '/'), 1);
    EXPECT_EQ(changed.Replace("|", "表"), 1);
    EXPECT_EQ(changed.Remove('a'), 1);
    EXPECT_STREQ(changed, "アポ表表/");
    EXPECT_EQ(changed.Replace("ア", "|"), 1);
    EXPECT_STREQ(changed, "|ポ表表/") << "at the front, too";
    EXPECT_STREQ(CString("表\\\\").TrimRight('\\'), "表");
    EXPECT_STREQ(CString(" \t表 ").Trim(), "表");
    int start = 0;
    EXPECT_STREQ(text.Tokenize("|\\", start), "アポ表");
    EXPECT_EQ(start, 7) << "past the delimiter";
    EXPECT_STREQ(text.Tokenize("|\\", start), "A");
    EXPECT_STREQ(text.Tokenize("|\\", start), "");
    EXPECT_EQ(start, -1);
    start = 0;
    EXPECT_STREQ(text.Tokenize("表", start), "アポ");
    EXPECT_STREQ(text.Tokenize("表", start), "|A\\") << "both bytes of the delimiter are skipped";
    EXPECT_STREQ(CString("@AZ[`az{").MakeLower(), "@az[`az{");
    EXPECT_STREQ(CString("@AZ[`az{").MakeUpper(), "@AZ[`AZ{");
    EXPECT_STREQ(CString("\x83").MakeUpper(), "\x83") << "a lead byte alone at the end";
}
} // namespace
