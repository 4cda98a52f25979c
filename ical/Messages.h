#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace dayvane::ical {

// A piece of a message in English, with "%1" where a value of the file stands. A program that speaks another language
// translates the forms; MessageForms() has them all.
struct Phrase
{
    std::string form;
    std::string value;

    bool IsEmpty() const { return form.empty(); }
};

// The form, or what it is in another language, with the value in its place.
std::string FillPhrase(std::string_view form, std::string_view value);
// Every form that a phrase can have.
const std::vector<std::string_view>& MessageForms();

// One thing of a calendar file that could not be read, reported in one line of UTF-8 text.
struct Message
{
    int line = 0;     // of the file, from 1
    std::string text; // English: the phrases with ": " between them
    std::vector<Phrase> phrases = {};
};

// Collects messages. A hopeless file fills no memory: beyond kMaxMessages only their number is kept.
class MessageLog
{
public:
    static constexpr std::size_t kMaxMessages = 1000;

    void Add(int line, std::initializer_list<Phrase> phrases);
    const std::vector<Message>& Kept() const { return m_messages; }
    // How many more there were.
    std::size_t Unkept() const { return m_unkept; }

private:
    std::vector<Message> m_messages;
    std::size_t m_unkept = 0;
};

// A message of these phrases; empty ones are left out.
Message MakeMessage(int line, std::initializer_list<Phrase> phrases);

} // namespace dayvane::ical
