// A settings file: sections with lines "key=value", UTF-8. Lines that nobody asks for stay as they are.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace planner {

class IniText
{
public:
    explicit IniText(std::string_view text = "");

    // The value of the first line of that key; `fallback` if there is none, or none that is a number.
    std::string Get(std::string_view section, std::string_view key, std::string_view fallback = "") const;
    int GetNumber(std::string_view section, std::string_view key, int fallback) const;
    void Set(std::string_view section, std::string_view key, std::string_view value);
    void Set(std::string_view section, std::string_view key, int value);
    // The values of "key1", "key2" and so on up to the first that is missing or empty.
    std::vector<std::string> GetList(std::string_view section, std::string_view key) const;
    void SetList(std::string_view section, std::string_view key, const std::vector<std::string>& values);

    std::string Text() const;

private:
    // The line of the key, or where it is to be added; `isThere` says which.
    std::size_t Find(std::string_view section, std::string_view key, bool& isThere) const;

    std::vector<std::string> m_lines; // without endings
};

} // namespace planner
