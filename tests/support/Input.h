// Input for tests of windows: real messages, and hardware input that takes the way of a real mouse and keyboard.
//
// Points are client pixels of the window given. Nothing sleeps: after each step the waiting messages are served.
#pragma once

#include <afxwin.h>

#include <functional>
#include <string>

namespace testsupport {

// Serves the messages that wait now; answers how many there were.
int PumpMessages();
// Serves messages until the condition holds, at most that long; answers whether it holds.
bool PumpUntil(const std::function<bool()>& condition, int milliseconds = 5000);

// The key state that GetKeyState answers for this thread while the object lives, for input by messages:
// KeyState keys({VK_SHIFT}).
class KeyState
{
public:
    KeyState(std::initializer_list<int> pressedKeys);
    ~KeyState();
    KeyState(const KeyState&) = delete;
    KeyState& operator=(const KeyState&) = delete;

private:
    BYTE m_before[256];
};

// Messages put straight to a window. They need no focus and no display order; the window may die from each of them.
namespace messages {
void Move(HWND window, CPoint point, UINT keys = 0);
void LeftDown(HWND window, CPoint point, UINT keys = 0);
void LeftUp(HWND window, CPoint point, UINT keys = 0);
void Click(HWND window, CPoint point, UINT keys = 0);
void DoubleClick(HWND window, CPoint point, UINT keys = 0);
void RightClick(HWND window, CPoint point, UINT keys = 0);
// Press, some moves on the line between the points, release. keys: MK_CONTROL, MK_SHIFT held throughout.
void Drag(HWND window, CPoint from, CPoint to, UINT keys = 0);
// One key, posted so that it passes PreTranslateMessage and TranslateMessage on its way.
void Key(HWND window, int virtualKey);
// Characters of the system's code page, each byte one WM_CHAR.
void Type(HWND window, const std::string& text);
// notches: positive away from the user.
void Wheel(HWND window, CPoint point, int notches, UINT keys = 0);
} // namespace messages

// Input through SendInput: the pointer moves, the focus decides.
namespace hardware {
// Brings the window's top-level window to the front and gives it the focus; false when the system refuses.
bool Focus(HWND window);
void Move(HWND window, CPoint point);
void LeftDown();
void LeftUp();
void RightDown();
void RightUp();
void Click(HWND window, CPoint point);
void DoubleClick(HWND window, CPoint point);
void RightClick(HWND window, CPoint point);
void Drag(HWND window, CPoint from, CPoint to);
void KeyDown(int virtualKey);
void KeyUp(int virtualKey);
// One key while the others are held: Key(VK_RIGHT, {VK_SHIFT}).
void Key(int virtualKey, std::initializer_list<int> held = {});
// Latin letters, digits and blanks as key strokes.
void Type(const std::string& text);
void Wheel(HWND window, CPoint point, int notches);
// delta: of the wheel, in the unit of WHEEL_DELTA for a notch; right, for a wheel that is pushed sideways.
void TurnWheel(HWND window, CPoint point, int delta);
void PushWheel(HWND window, CPoint point, int delta);
} // namespace hardware

} // namespace testsupport
