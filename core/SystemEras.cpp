#include "core/SystemEras.h"

#include "core/EraTitles.h"
#include "core/TextCodec.h"
#include "core/WideText.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace dayvane {
namespace {

constexpr WCHAR kEraKey[] = L"SYSTEM\\CurrentControlSet\\Control\\Nls\\Calendars\\Japanese\\Eras";
constexpr DWORD kLongestText = 256; // characters, of a value's name and of its text

std::string Utf8Of(const WCHAR* text)
{
    return EncodeText(ViewOf(text), kUtf8CodePage);
}

using EraEntry = std::pair<std::string, std::string>; // first day, names

std::vector<EraEntry> EntriesOf(HKEY key)
{
    std::vector<EraEntry> entries;
    for (DWORD i = 0;; ++i) {
        WCHAR name[kLongestText];
        WCHAR text[kLongestText + 1] = {};
        DWORD nameLength = kLongestText;
        DWORD size = kLongestText * sizeof(WCHAR);
        DWORD type = 0;
        const LONG result =
            ::RegEnumValueW(key, i, name, &nameLength, nullptr, &type, reinterpret_cast<BYTE*>(text), &size);
        if (result == ERROR_NO_MORE_ITEMS) {
            break;
        }
        if (result == ERROR_SUCCESS && type == REG_SZ) {
            entries.emplace_back(Utf8Of(name), Utf8Of(text));
        } else if (result != ERROR_SUCCESS && result != ERROR_MORE_DATA) {
            break;
        }
    }
    std::sort(entries.begin(), entries.end()); // by the first day: the table takes them in order
    return entries;
}

} // namespace

int AddSystemEras(EraTable& eras, HKEY root, LPCWSTR lpszKey)
{
    HKEY key = nullptr;
    if (::RegOpenKeyExW(root, lpszKey, 0, KEY_READ, &key) != ERROR_SUCCESS) {
        return 0;
    }
    int added = 0;
    for (const EraEntry& entry : EntriesOf(key)) {
        added += eras.AddSystemEntry(entry.first, entry.second) ? 1 : 0;
    }
    ::RegCloseKey(key);
    return added;
}

void UseSystemEras()
{
    static bool isDone = false;
    if (isDone) {
        return;
    }
    isDone = true;
    EraTable eras = TitleEras();
    if (AddSystemEras(eras, HKEY_LOCAL_MACHINE, kEraKey) > 0) {
        SetTitleEras(eras);
    }
}

} // namespace dayvane
