#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace dayvane::ical {

// One thing of a calendar file that could not be read, reported in one line of UTF-8 text.
struct Message
{
    int line = 0; // of the file, from 1
    std::string text;
};

// Collects messages. A hopeless file fills no memory: beyond kMaxMessages only their number is kept.
class MessageLog
{
public:
    static constexpr std::size_t kMaxMessages = 1000;

    void Add(int line, std::string text)
    {
        if (m_messages.size() < kMaxMessages) {
            m_messages.push_back({line, std::move(text)});
        } else {
            ++m_unkept;
        }
    }
    const std::vector<Message>& Kept() const { return m_messages; }
    // How many more there were.
    std::size_t Unkept() const { return m_unkept; }

private:
    std::vector<Message> m_messages;
    std::size_t m_unkept = 0;
};

} // namespace dayvane::ical
