#include "planner/DocumentFile.h"

namespace planner {

namespace {

constexpr char kExtension[] = ".autosave";
constexpr DWORD kMostAtOnce = 1 << 20; // bytes

std::optional<std::string> ReadAll(HANDLE handle)
{
    std::string bytes;
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

} // namespace

std::optional<std::string> ReadWholeFile(const CString& path)
{
    const HANDLE handle = ::CreateFile(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                       nullptr, OPEN_EXISTING, 0, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return std::nullopt;
    }
    const auto bytes = ReadAll(handle);
    ::CloseHandle(handle);
    return bytes;
}

// ---- FileStamp

void FileStamp::Take(const CString& path)
{
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    m_exists = ::GetFileAttributesEx(path, GetFileExInfoStandard, &data) != FALSE;
    m_attributes = data.dwFileAttributes;
    m_size = (static_cast<ULONGLONG>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
    m_written = data.ftLastWriteTime;
}

bool FileStamp::Differs(const CString& path) const
{
    FileStamp now;
    now.Take(path);
    return now.m_exists != m_exists || now.m_size != m_size || ::CompareFileTime(&now.m_written, &m_written) != 0;
}

// ---- AutoSave

CString AutoSave::PathFor(const CString& file)
{
    return file + kExtension;
}

std::optional<std::string> AutoSave::LeftFor(const CString& file)
{
    // Without sharing: fails while the planner that writes it lives.
    const HANDLE handle =
        ::CreateFile(PathFor(file), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return std::nullopt;
    }
    const auto bytes = ReadAll(handle);
    ::CloseHandle(handle);
    return bytes && !bytes->empty() ? bytes : std::nullopt;
}

bool AutoSave::Write(const CString& file, const std::string& bytes)
{
    const CString path = PathFor(file);
    if (path != m_path) {
        Remove();
    }
    if (m_handle == INVALID_HANDLE_VALUE) {
        m_handle = ::CreateFile(path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                                FILE_ATTRIBUTE_HIDDEN, nullptr);
        m_path = path;
    }
    if (m_handle == INVALID_HANDLE_VALUE) {
        return false;
    }
    DWORD written = 0;
    ::SetFilePointer(m_handle, 0, nullptr, FILE_BEGIN);
    const bool isWhole =
        ::WriteFile(m_handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != FALSE &&
        written == bytes.size() && ::SetEndOfFile(m_handle) != FALSE && ::FlushFileBuffers(m_handle) != FALSE;
    if (!isWhole) {
        Remove(); // half a copy helps nobody
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
        ::DeleteFile(m_path);
    }
}

} // namespace planner
