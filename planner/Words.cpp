#include "planner/Words.h"

namespace planner {

namespace {

Language g_language = Language::English;

void Replace(std::string& text, std::string_view mark, const std::string& value)
{
    const std::size_t at = text.find(mark);
    if (at != std::string::npos) {
        text.replace(at, mark.size(), value);
    }
}

} // namespace

void SetLanguage(Language language)
{
    g_language = language;
}

Language CurrentLanguage()
{
    return g_language;
}

std::string Tr(std::string_view english)
{
    const std::string_view japanese = g_language == Language::Japanese ? JapaneseFor(english) : std::string_view();
    return std::string(japanese.empty() ? english : japanese);
}

std::string Tr(std::string_view english, const std::string& first, const std::string& second)
{
    std::string text = Tr(english);
    Replace(text, "%1", first);
    Replace(text, "%2", second);
    return text;
}

std::string Tr(const Message& message)
{
    std::string text;
    for (const Phrase& phrase : message.phrases) {
        text += (text.empty() ? "" : ": ") + FillPhrase(Tr(phrase.form), phrase.value);
    }
    return text.empty() ? message.text : text;
}

} // namespace planner
