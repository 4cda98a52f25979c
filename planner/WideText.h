// Texts of the planner (UTF-8) in windows, menus and messages of the system, whatever its code page.
#pragma once

#include <afxwin.h>

#include <functional>
#include <string>
#include <string_view>

namespace planner {

std::wstring Wide(std::string_view utf8);
std::string Utf8Of(std::wstring_view text);
// Of a path or a text of the framework, which is in the system's code page, and back: what the page lacks is '?'.
std::string Utf8OfSystem(const CString& text);
CString SystemOf(std::string_view utf8);

// Line breaks are \n here and \r\n in an edit box.
void SetWindowUtf8(HWND window, std::string_view utf8);
std::string WindowUtf8(HWND window);
// The text of a control of a dialog.
void SetItemUtf8(const CWnd& dialog, int control, std::string_view utf8);
std::string ItemUtf8(const CWnd& dialog, int control);
// Adds a line to a list box or combo box; returns its index.
int AddListText(const CWnd& dialog, int control, std::string_view utf8, LPARAM data = 0);

// The window keeps its title in Unicode although its procedure is narrow. After it was made.
void KeepWideTitle(HWND window);

// Into the user's language: the title and the controls of a dialog, the items of a menu.
void TranslateWindow(HWND dialog);
void TranslateMenu(HMENU menu);

// Asks or tells something in a dialog (AskDialog); `type` is that of MessageBox. `utf8` is already in the user's
// language.
int Ask(CWnd* owner, const std::string& utf8, UINT type);
// Tests answer instead of a user; an empty function asks the user again.
using Answerer = std::function<int(const std::string& question, UINT type)>;
void SetAnswerer(Answerer answerer);
const Answerer& CurrentAnswerer();

} // namespace planner
