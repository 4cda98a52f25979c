// A program that reads another program's windows aloud, as far as a test needs one: it gets at their contents by
// AccessibleObjectFromWindow alone, and prints what it would say. UTF-8.
//
// screen_reader TITLE COMMAND...: of the program whose window has TITLE in its own title.
//   read [NAME]       all tables, or those whose name begins so
//   hear NAME         the first part whose name begins so, as soon as there is one
//   lists             all open lists
//   select VALUE      the item with that text
//   rename VALUE TEXT gives that item another text
//   press TABLE NAME  the default action of the first part of a table or list whose name begins so
#include "tests/access/Reader.h"

#include <cstdio>

using accesstest::Spoken;

namespace {

constexpr DWORD kPatience = 15000; // milliseconds
constexpr DWORD kPause = 50;

struct Search
{
    std::wstring title;
    HWND found = nullptr;
};

BOOL CALLBACK SeeTopWindow(HWND window, LPARAM lParam)
{
    Search& search = *reinterpret_cast<Search*>(lParam);
    wchar_t text[256] = L"";
    ::GetWindowTextW(window, text, 256);
    if (::IsWindowVisible(window) && std::wstring(text).find(search.title) != std::wstring::npos) {
        search.found = window;
    }
    return !search.found;
}

BOOL CALLBACK Collect(HWND window, LPARAM lParam)
{
    if (::IsWindowVisible(window)) {
        reinterpret_cast<std::vector<HWND>*>(lParam)->push_back(window);
    }
    return TRUE;
}

// The parts of the program's windows that are tables (views, small calendars) or open lists.
std::vector<Spoken> Wholes(HWND frame, long role)
{
    std::vector<HWND> windows;
    std::vector<HWND> tops;
    ::EnumChildWindows(frame, Collect, reinterpret_cast<LPARAM>(&windows));
    ::EnumWindows(Collect, reinterpret_cast<LPARAM>(&tops));
    DWORD process = 0;
    ::GetWindowThreadProcessId(frame, &process);
    for (HWND top : tops) {
        DWORD owner = 0;
        ::GetWindowThreadProcessId(top, &owner);
        if (owner == process && top != frame) {
            windows.push_back(top);
        }
    }
    std::vector<Spoken> wholes;
    for (HWND window : windows) {
        const Spoken whole = Spoken::OfWindow(window);
        if (whole && whole.Role() == role) {
            wholes.push_back(whole);
        }
    }
    return wholes;
}

bool Begins(const std::string& text, const std::string& begin)
{
    return text.compare(0, begin.size(), begin) == 0;
}

// Asks until there is such a part in a table, or else in a list.
Spoken WaitFor(HWND frame, const std::function<bool(const Spoken&)>& isTable,
               const std::function<bool(const Spoken&)>& fits)
{
    for (const DWORD begun = ::GetTickCount(); ::GetTickCount() - begun < kPatience; ::Sleep(kPause)) {
        for (long role : {ROLE_SYSTEM_TABLE, ROLE_SYSTEM_LIST}) {
            for (const Spoken& whole : Wholes(frame, role)) {
                const Spoken part = isTable(whole) ? whole.Find(fits) : Spoken();
                if (part) {
                    return part;
                }
            }
        }
    }
    return Spoken();
}

int Print(const Spoken& part, HRESULT result)
{
    std::printf("%s\n", part ? part.Name().c_str() : "(there is none)");
    return part && result == S_OK ? 0 : 1;
}

int Run(HWND frame, const std::vector<std::string>& words)
{
    const std::string command = words[0];
    const std::string first = words.size() > 1 ? words[1] : "";
    const std::string second = words.size() > 2 ? words[2] : "";
    const auto any = [](const Spoken&) { return true; };
    const auto isNamed = [&](const Spoken& part) { return Begins(part.Name(), first); };
    const auto hasText = [&](const Spoken& part) {
        return part.Role() == ROLE_SYSTEM_LISTITEM && part.Value() == first;
    };
    if (command == "read" || command == "lists") {
        for (const Spoken& whole : Wholes(frame, command == "read" ? ROLE_SYSTEM_TABLE : ROLE_SYSTEM_LIST)) {
            std::printf("%s", isNamed(whole) ? ReadAloud(whole).c_str() : "");
        }
        return 0;
    }
    if (command == "hear") {
        return Print(WaitFor(frame, any, isNamed), S_OK);
    }
    if (command == "select") {
        const Spoken item = WaitFor(frame, any, hasText);
        return Print(item, item.Select(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION));
    }
    if (command == "rename") {
        const Spoken item = WaitFor(frame, any, hasText);
        return Print(item, item.SetValue(second));
    }
    if (command == "press") {
        const Spoken part = WaitFor(frame, isNamed, [&](const Spoken& each) { return Begins(each.Name(), second); });
        const std::string name = part.Name();
        const HRESULT result = part.Act();
        std::printf("%s\n", name.c_str());
        return part && result == S_OK ? 0 : 1;
    }
    std::printf("no such command: %s\n", command.c_str());
    return 2;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        return 2;
    }
    ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    Search search;
    search.title.assign(argv[1], argv[1] + std::char_traits<char>::length(argv[1]));
    ::EnumWindows(SeeTopWindow, reinterpret_cast<LPARAM>(&search));
    if (!search.found) {
        std::printf("no window has %s in its title\n", argv[1]);
        return 2;
    }
    const int result = Run(search.found, std::vector<std::string>(argv + 2, argv + argc));
    ::CoUninitialize();
    return result;
}
