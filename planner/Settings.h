// What the planner remembers from one start to the next: a readable file in the user's own folder, never a calendar.
#pragma once

#include <afxwin.h>

#include "planner/IniText.h"
#include "planner/Words.h"

#include <string>
#include <vector>

namespace planner {

class Settings
{
public:
    // Without a file nothing is remembered.
    void Open(const std::wstring& file);
    void Save() const;
    bool IsKept() const { return !m_file.empty(); }
    IniText& Text() { return m_text; }

    // The files opened last, newest first.
    std::vector<std::string> RecentFiles() const { return m_text.GetList("Files", "recent"); }
    void AddRecentFile(const std::string& utf8Path);

    // "system", "en" or "ja"
    std::string LanguageName() const { return m_text.Get("View", "language", "system"); }

    // "planner.ini" in the folder of the user's programs' data, which is made.
    static std::wstring UsualFile();

private:
    std::wstring m_file;
    IniText m_text;
};

Settings& TheSettings();

// "en", "ja"; anything else: the language of the system's windows.
Language LanguageOf(const std::string& name);

} // namespace planner
