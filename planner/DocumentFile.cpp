#include "planner/DocumentFile.h"

#include "ical/Text.h"
#include "planner/WideText.h"
#include "planner/Words.h"

#include <commdlg.h>

#include <vector>

namespace planner {

namespace {

constexpr char kExtension[] = ".autosave";
constexpr DWORD kMostAtOnce = 1 << 20;            // bytes
constexpr std::size_t kShortEnough = 240;         // characters; names that are made beside the file need some more
constexpr std::size_t kLongestChosenPath = 32768; // the system's limit

class FileHandle
{
public:
    explicit FileHandle(HANDLE handle) : m_handle(handle) {}
    ~FileHandle()
    {
        if (IsOpen()) {
            ::CloseHandle(m_handle);
        }
    }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    bool IsOpen() const { return m_handle != INVALID_HANDLE_VALUE; }
    operator HANDLE() const { return m_handle; }

private:
    HANDLE m_handle;
};

std::optional<std::string> ReadAll(HANDLE handle)
{
    std::string bytes;
    LARGE_INTEGER size = {};
    if (::GetFileSizeEx(handle, &size)) {
        bytes.reserve(static_cast<std::size_t>(size.QuadPart) + kMostAtOnce);
    }
    for (;;) {
        const std::size_t before = bytes.size();
        bytes.resize(before + kMostAtOnce);
        DWORD count = 0;
        if (!::ReadFile(handle, &bytes[before], kMostAtOnce, &count, nullptr)) {
            return std::nullopt;
        }
        bytes.resize(before + count);
        if (count == 0) {
            return bytes;
        }
    }
}

bool WriteAll(HANDLE handle, const std::string& bytes)
{
    for (std::size_t at = 0; at < bytes.size();) {
        const DWORD wanted = static_cast<DWORD>(std::min<std::size_t>(bytes.size() - at, kMostAtOnce));
        DWORD written = 0;
        if (!::WriteFile(handle, bytes.data() + at, wanted, &written, nullptr)) {
            return false;
        }
        if (written != wanted) {
            ::SetLastError(ERROR_DISK_FULL);
            return false;
        }
        at += written;
    }
    return true;
}

DWORD WriteNewFile(const std::wstring& path, const std::string& bytes)
{
    const FileHandle handle(
        ::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!handle.IsOpen() || !WriteAll(handle, bytes) || !::FlushFileBuffers(handle)) {
        const DWORD error = ::GetLastError();
        return error != 0 ? error : ERROR_WRITE_FAULT;
    }
    return 0;
}

std::string TemporaryName()
{
    return "~planner" + std::to_string(::GetCurrentProcessId()) + "-" + std::to_string(::GetTickCount()) + ".tmp";
}

} // namespace

// ---- Paths

std::wstring SystemPath(std::string_view path)
{
    const std::wstring given = Wide(path);
    std::wstring full(given.size() + MAX_PATH, L'\0');
    for (int attempt = 0; attempt < 2; ++attempt) {
        const DWORD length = ::GetFullPathNameW(given.c_str(), static_cast<DWORD>(full.size()), &full[0], nullptr);
        if (length == 0) {
            return given;
        }
        const bool isWhole = length < full.size();
        full.resize(length);
        if (isWhole) {
            break;
        }
    }
    if (full.size() < kShortEnough || full.compare(0, 4, L"\\\\?\\") == 0) {
        return full;
    }
    return full.compare(0, 2, L"\\\\") == 0 ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

std::string FullPath(std::string_view path)
{
    const std::string full = Utf8Of(SystemPath(path));
    const std::string_view longShare = "\\\\?\\UNC", longPath = "\\\\?\\";
    return full.compare(0, longShare.size(), longShare) == 0 ? "\\" + full.substr(longShare.size())
           : full.compare(0, longPath.size(), longPath) == 0 ? full.substr(longPath.size())
                                                             : full;
}

std::string FolderOf(const std::string& path)
{
    return path.substr(0, path.find_last_of("\\/:") + 1);
}

std::string FileNameOf(const std::string& path)
{
    return path.substr(FolderOf(path).size());
}

bool HasExtension(const std::string& path, std::string_view extension)
{
    return path.size() > extension.size() &&
           dayvane::ical::SameWord(std::string_view(path).substr(path.size() - extension.size()), extension);
}

// ---- Whole files

std::optional<std::string> ReadWholeFile(const std::string& path)
{
    const FileHandle handle(::CreateFileW(SystemPath(path).c_str(), GENERIC_READ,
                                          FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                          OPEN_EXISTING, 0, nullptr));
    return handle.IsOpen() ? ReadAll(handle) : std::nullopt;
}

DWORD WriteWholeFile(const std::string& path, const std::string& bytes)
{
    constexpr DWORD kept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    const std::wstring target = SystemPath(path);
    const std::wstring fresh = SystemPath(FolderOf(FullPath(path)) + TemporaryName());
    const DWORD attributes = ::GetFileAttributesW(target.c_str());
    DWORD error = WriteNewFile(fresh, bytes);
    if (error == 0 && !::MoveFileExW(fresh.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING)) {
        error = ::GetLastError();
    }
    if (error != 0) {
        ::DeleteFileW(fresh.c_str());
        return error;
    }
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & kept) != 0) {
        ::SetFileAttributesW(target.c_str(), ::GetFileAttributesW(target.c_str()) | (attributes & kept));
    }
    return 0;
}

std::string WriteProblem(const std::string& path, DWORD error)
{
    switch (error) {
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return Tr("The disk is full. %1 was not written; what was there is unchanged.", path);
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_NOT_READY:
    case ERROR_DEV_NOT_EXIST:
    case ERROR_BAD_NETPATH:
    case ERROR_NO_MEDIA_IN_DRIVE:
        return Tr("The folder or the drive of %1 is not there.", path);
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
    case ERROR_SHARING_VIOLATION:
        return Tr("%1 is protected, or in use by another program.", path);
    default:
        return Tr("%1 cannot be written.", path);
    }
}

// ---- Asking

std::string CalendarFilter()
{
    return Tr("Calendars (*.ics)") + "|*.ics|" + Tr("Workspaces (*.planner)") + "|*.planner|" + Tr("All files (*.*)") +
           "|*.*|";
}

bool PromptFile(CWnd* owner, FilePrompt kind, const std::string& filter, const char* extension, std::string& path)
{
    std::wstring lists = Wide(filter);
    for (wchar_t& c : lists) {
        c = c == L'|' ? L'\0' : c;
    }
    const std::wstring defaultExtension = Wide(extension), proposal = Wide(path);
    std::vector<wchar_t> name(kLongestChosenPath, L'\0');
    std::copy_n(proposal.begin(), std::min(proposal.size(), name.size() - 1), name.begin());
    OPENFILENAMEW ofn = {};
    ofn.lStructSize = sizeof(ofn);
    ofn.hwndOwner = owner ? owner->m_hWnd : nullptr;
    ofn.lpstrFilter = lists.c_str();
    ofn.lpstrFile = name.data();
    ofn.nMaxFile = static_cast<DWORD>(name.size());
    ofn.lpstrDefExt = defaultExtension.c_str();
    ofn.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST | OFN_NOCHANGEDIR |
                (kind == FilePrompt::Open ? OFN_FILEMUSTEXIST : OFN_OVERWRITEPROMPT);
    if (!(kind == FilePrompt::Open ? ::GetOpenFileNameW(&ofn) : ::GetSaveFileNameW(&ofn))) {
        return false;
    }
    path = Utf8Of(name.data());
    return true;
}

// ---- FileStamp

void FileStamp::Take(const std::string& path)
{
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    m_exists = ::GetFileAttributesExW(SystemPath(path).c_str(), GetFileExInfoStandard, &data) != FALSE;
    m_attributes = data.dwFileAttributes;
    m_size = (static_cast<ULONGLONG>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
    m_written = data.ftLastWriteTime;
}

bool FileStamp::Differs(const std::string& path) const
{
    FileStamp now;
    now.Take(path);
    return now.m_exists != m_exists || now.m_size != m_size || ::CompareFileTime(&now.m_written, &m_written) != 0;
}

// ---- AutoSave

std::string AutoSave::PathFor(const std::string& file)
{
    return file + kExtension;
}

std::optional<std::string> AutoSave::LeftFor(const std::string& file)
{
    // Without sharing: fails while the planner that writes it lives.
    const FileHandle handle(::CreateFileW(SystemPath(PathFor(file)).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                          OPEN_EXISTING, 0, nullptr));
    const auto bytes = handle.IsOpen() ? ReadAll(handle) : std::nullopt;
    return bytes && !bytes->empty() ? bytes : std::nullopt;
}

void AutoSave::RemoveFor(const std::string& file)
{
    ::DeleteFileW(SystemPath(PathFor(file)).c_str());
}

bool AutoSave::Write(const std::string& file, const std::string& bytes)
{
    const std::string path = PathFor(file);
    if (path != m_path) {
        Remove();
    }
    if (m_handle == INVALID_HANDLE_VALUE) {
        m_handle = ::CreateFileW(SystemPath(path).c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                 OPEN_ALWAYS, FILE_ATTRIBUTE_HIDDEN, nullptr);
        m_path = path;
    }
    if (m_handle == INVALID_HANDLE_VALUE) {
        return false;
    }
    ::SetFilePointer(m_handle, 0, nullptr, FILE_BEGIN);
    const bool isWhole = WriteAll(m_handle, bytes) && ::SetEndOfFile(m_handle) && ::FlushFileBuffers(m_handle);
    if (!isWhole) {
        Remove(); // half a copy is of no use
    }
    return isWhole;
}

void AutoSave::Close()
{
    if (m_handle != INVALID_HANDLE_VALUE) {
        ::CloseHandle(m_handle);
        m_handle = INVALID_HANDLE_VALUE;
    }
}

void AutoSave::Remove()
{
    if (m_handle != INVALID_HANDLE_VALUE) {
        Close();
        ::DeleteFileW(SystemPath(m_path).c_str());
    }
}

} // namespace planner
