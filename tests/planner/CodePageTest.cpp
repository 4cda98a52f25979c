#include "ical/Text.h"
#include "planner/Calendar.h"
#include "planner/CodePageText.h"

#include <gtest/gtest.h>

namespace planner {
namespace {

// Like a code page: two bytes for some characters, a question mark for what it lacks.
class ToyCodePage : public CodePageText
{
public:
    std::string FromUtf8(std::string_view text) const override
    {
        std::string shown;
        for (const char16_t c : Utf16FromUtf8(text)) {
            shown += c < 0x80     ? std::string(1, static_cast<char>(c))
                     : c == u'日' ? "\x93?"
                     : c == u'本' ? "\x96{"
                                  : "?";
        }
        return shown;
    }
    std::string ToUtf8(std::string_view text) const override
    {
        std::string utf8;
        for (std::size_t i = 0; i < text.size(); ++i) {
            const bool isLead = text[i] == '\x93' || text[i] == '\x96';
            utf8 += !isLead ? std::string(1, text[i]) : text[i] == '\x93' ? u8"日" : u8"本";
            i += isLead;
        }
        return utf8;
    }
};

TEST(CodePage, EditsKeepWhatCannotBeShown)
{
    const ToyCodePage page;
    const std::string held = u8"日a", lost = u8"€a";
    EXPECT_TRUE(HoldsText(page, held));
    EXPECT_FALSE(HoldsText(page, lost));
    const struct
    {
        const char* before;
        const char* edited;
        const char* after;
    } rows[] = {
        {u8"€ 100 日本", "? 100 \x93?\x96{", u8"€ 100 日本"},   // nothing changed
        {u8"€ 100 日本", "? 120 \x93?\x96{!", u8"€ 120 日本!"}, // changed behind
        {u8"日本 €", "x\x96{ ?", u8"x本 €"},                    // changed before
        {u8"本 €", "\x93?", u8"日"},                            // the ? is half of a character, not the sign shown
        {u8"€€", "?", u8"€"},
        {u8"€", "", u8""},
        {u8"", "new", u8"new"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(MergeEditedText(page, row.before, row.edited), row.after) << row.before;
    }
}

} // namespace
} // namespace planner
