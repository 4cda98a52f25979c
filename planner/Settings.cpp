#include "planner/Settings.h"

#include <shlobj.h>

#include <algorithm>

namespace planner {

namespace {

constexpr std::size_t kMostRecent = 8;
constexpr wchar_t kFolder[] = L"\\Dayvane Planner";
constexpr wchar_t kName[] = L"\\planner.ini";
constexpr DWORD kLongest = 1 << 20; // bytes

} // namespace

std::wstring Settings::UsualFile()
{
    wchar_t folder[MAX_PATH] = L"";
    if (::SHGetFolderPathW(nullptr, CSIDL_APPDATA | CSIDL_FLAG_CREATE, nullptr, 0, folder) != S_OK) {
        return L"";
    }
    const std::wstring own = std::wstring(folder) + kFolder;
    ::CreateDirectoryW(own.c_str(), nullptr);
    return own + kName;
}

void Settings::Open(const std::wstring& file)
{
    m_file = file;
    std::string text;
    const HANDLE handle =
        ::CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    if (handle != INVALID_HANDLE_VALUE) {
        text.resize(kLongest);
        DWORD count = 0;
        ::ReadFile(handle, &text[0], kLongest, &count, nullptr);
        text.resize(count);
        ::CloseHandle(handle);
    }
    m_text = IniText(text);
}

void Settings::Save() const
{
    if (m_file.empty()) {
        return;
    }
    const std::wstring fresh = m_file + L".new";
    const HANDLE handle = ::CreateFileW(fresh.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return;
    }
    const std::string text = m_text.Text();
    DWORD count = 0;
    const bool isWhole = ::WriteFile(handle, text.data(), static_cast<DWORD>(text.size()), &count, nullptr) != FALSE &&
                         count == text.size();
    ::CloseHandle(handle);
    if (isWhole) {
        ::MoveFileExW(fresh.c_str(), m_file.c_str(), MOVEFILE_REPLACE_EXISTING);
    } else {
        ::DeleteFileW(fresh.c_str());
    }
}

void Settings::AddRecentFile(const std::string& utf8Path)
{
    std::vector<std::string> files = RecentFiles();
    files.erase(std::remove(files.begin(), files.end(), utf8Path), files.end());
    files.insert(files.begin(), utf8Path);
    files.resize(std::min(files.size(), kMostRecent));
    m_text.SetList("Files", "recent", files);
}

Settings& TheSettings()
{
    static Settings settings;
    return settings;
}

Language LanguageOf(const std::string& name)
{
    if (name == "en" || name == "ja") {
        return name == "ja" ? Language::Japanese : Language::English;
    }
    return PRIMARYLANGID(::GetUserDefaultUILanguage()) == LANG_JAPANESE ? Language::Japanese : Language::English;
}

} // namespace planner
