// Files by their names in any script and of any length: reading, writing as a whole, asking for one. What a file on the
// disk looks like, to notice that somebody else has changed it, and the copy that is kept beside it while changes are
// not saved. Paths are UTF-8 everywhere in the planner; only here they are passed to the system.
#pragma once

#include <afxwin.h>

#include <optional>
#include <string>
#include <string_view>

namespace planner {

// For the system's calls: absolute, and where it is long with the prefix that lifts the limit of 260 characters.
std::wstring SystemPath(std::string_view path);
std::string FullPath(std::string_view path);
std::string FolderOf(const std::string& path); // with its last separator; empty: none
std::string FileNameOf(const std::string& path);
bool HasExtension(const std::string& path, std::string_view extension); // such as ".ics"

// The bytes of a file; nothing when it cannot be read.
std::optional<std::string> ReadWholeFile(const std::string& path);

// Writes a new file beside the old one, which it replaces when it is whole: a failure leaves the old one as it is.
// Hidden and system files stay so. Returns the system's error; 0: done.
DWORD WriteWholeFile(const std::string& path, const std::string& bytes);
// What the error of a write means, in the user's language.
std::string WriteProblem(const std::string& path, DWORD error);

// Asks the user for a file to open, or to write into; `path` may hold a proposal. `filter` is like the one of
// CFileDialog, in the user's language. False: none was chosen.
enum class FilePrompt
{
    Open,
    Save
};
bool PromptFile(CWnd* owner, FilePrompt kind, const std::string& filter, const char* extension, std::string& path);
std::string CalendarFilter();

// The state of a file when it was last read or written.
class FileStamp
{
public:
    void Take(const std::string& path);
    // Time or size differ now: worth to compare the bytes.
    bool Differs(const std::string& path) const;
    bool Exists() const { return m_exists; }
    bool IsReadOnly() const { return m_exists && (m_attributes & FILE_ATTRIBUTE_READONLY) != 0; }

private:
    bool m_exists = false;
    DWORD m_attributes = 0;
    ULONGLONG m_size = 0;
    FILETIME m_written = {0, 0};
};

// "X.ics.autosave": while it is open nobody else offers it, after a crash it is found.
class AutoSave
{
public:
    AutoSave() = default;
    ~AutoSave() { Close(); }
    AutoSave(const AutoSave&) = delete;
    AutoSave& operator=(const AutoSave&) = delete;

    static std::string PathFor(const std::string& file);
    // What a planner that has ended unexpectedly has left; nothing while another one uses it.
    static std::optional<std::string> LeftFor(const std::string& file);
    static void RemoveFor(const std::string& file);

    bool Write(const std::string& file, const std::string& bytes);
    void Remove(); // saved, or given up by the user

private:
    void Close();

    HANDLE m_handle = INVALID_HANDLE_VALUE;
    std::string m_path;
};

} // namespace planner
