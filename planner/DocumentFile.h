// What a file on the disk looks like, to notice that somebody else has changed it, and the copy that is kept beside it
// while changes are not saved.
#pragma once

#include <afxwin.h>

#include <optional>
#include <string>

namespace planner {

// The bytes of a file; nothing when it cannot be read.
std::optional<std::string> ReadWholeFile(const CString& path);

// The state of a file when it was last read or written.
class FileStamp
{
public:
    void Take(const CString& path);
    // Time or size differ now: worth to compare the bytes.
    bool Differs(const CString& path) const;
    bool Exists() const { return m_exists; }
    DWORD Attributes() const { return m_attributes; }

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

    static CString PathFor(const CString& file);
    // What a planner that has ended unexpectedly has left; nothing while another one uses it.
    static std::optional<std::string> LeftFor(const CString& file);

    bool Write(const CString& file, const std::string& bytes);
    void Remove(); // saved, or given up by the user

private:
    void Close();

    HANDLE m_handle = INVALID_HANDLE_VALUE;
    CString m_path;
};

} // namespace planner
