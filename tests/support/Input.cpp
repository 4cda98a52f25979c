#include "tests/support/Input.h"

#include <cctype>
#include <vector>

namespace testsupport {
namespace {

constexpr int kDragSteps = 6;
constexpr DWORD kWaitSliceMs = 20; // how long one wait for the next message may last before the condition is asked
constexpr int kPointerDeadlineMs = 2000;

// The hardware's coordinates: the screen is this many units wide and high.
constexpr int kAbsoluteUnits = 65536;

LPARAM PackPoint(CPoint point)
{
    return MAKELPARAM(point.x, point.y);
}

CPoint Between(CPoint from, CPoint to, int step)
{
    return {from.x + (to.x - from.x) * step / kDragSteps, from.y + (to.y - from.y) * step / kDragSteps};
}

void Put(HWND window, UINT message, WPARAM wParam, CPoint point)
{
    if (::IsWindow(window)) {
        ::SendMessage(window, message, wParam, PackPoint(point));
    }
    PumpMessages();
}

CPoint ToScreen(HWND window, CPoint point)
{
    ::ClientToScreen(window, &point);
    return point;
}

void InjectMouse(DWORD flags, DWORD data = 0, CPoint absolute = {0, 0})
{
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dx = absolute.x;
    input.mi.dy = absolute.y;
    input.mi.dwFlags = flags;
    input.mi.mouseData = data;
    ::SendInput(1, &input, sizeof(input));
    PumpMessages();
}

// The smallest hardware coordinate that the system turns back into this pixel.
int AbsoluteOf(int pixel, int pixels)
{
    return (pixel * kAbsoluteUnits + pixels - 1) / pixels;
}

bool IsExtendedKey(int key)
{
    switch (key) {
    case VK_LEFT:
    case VK_RIGHT:
    case VK_UP:
    case VK_DOWN:
    case VK_HOME:
    case VK_END:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_INSERT:
    case VK_DELETE:
    case VK_APPS:
        return true;
    default:
        return false;
    }
}

void InjectKey(int key, DWORD flags)
{
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = static_cast<WORD>(key);
    input.ki.wScan = static_cast<WORD>(::MapVirtualKey(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags | (IsExtendedKey(key) ? KEYEVENTF_EXTENDEDKEY : 0);
    ::SendInput(1, &input, sizeof(input));
    PumpMessages();
}

} // namespace

int PumpMessages()
{
    int served = 0;
    MSG message;
    while (::PeekMessage(&message, nullptr, 0, 0, PM_REMOVE)) {
        ++served;
        if (message.message == WM_QUIT) {
            continue; // a window that died as the last one says so; the tests go on
        }
        if (!AfxPreTranslateMessage(&message)) {
            ::TranslateMessage(&message);
            ::DispatchMessage(&message);
        }
    }
    return served;
}

bool PumpUntil(const std::function<bool()>& condition, int milliseconds)
{
    const ULONGLONG deadline = ::GetTickCount64() + milliseconds;
    for (;;) {
        PumpMessages();
        if (condition()) {
            return true;
        }
        if (::GetTickCount64() >= deadline) {
            return false;
        }
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, kWaitSliceMs, QS_ALLINPUT);
    }
}

KeyState::KeyState(std::initializer_list<int> pressedKeys)
{
    ::GetKeyboardState(m_before);
    BYTE keys[256] = {};
    for (int key : pressedKeys) {
        keys[key] = 0x80;
    }
    ::SetKeyboardState(keys);
}

KeyState::~KeyState()
{
    ::SetKeyboardState(m_before);
}

namespace messages {

void Move(HWND window, CPoint point, UINT keys)
{
    Put(window, WM_MOUSEMOVE, keys, point);
}
void LeftDown(HWND window, CPoint point, UINT keys)
{
    Put(window, WM_LBUTTONDOWN, keys | MK_LBUTTON, point);
}
void LeftUp(HWND window, CPoint point, UINT keys)
{
    Put(window, WM_LBUTTONUP, keys, point);
}

void Click(HWND window, CPoint point, UINT keys)
{
    LeftDown(window, point, keys);
    LeftUp(window, point, keys);
}

void DoubleClick(HWND window, CPoint point, UINT keys)
{
    Click(window, point, keys);
    Put(window, WM_LBUTTONDBLCLK, keys | MK_LBUTTON, point);
    LeftUp(window, point, keys);
}

void RightClick(HWND window, CPoint point, UINT keys)
{
    Put(window, WM_RBUTTONDOWN, keys | MK_RBUTTON, point);
    Put(window, WM_RBUTTONUP, keys, point);
}

void Drag(HWND window, CPoint from, CPoint to, UINT keys)
{
    LeftDown(window, from, keys);
    for (int step = 1; step <= kDragSteps; ++step) {
        Move(window, Between(from, to, step), keys | MK_LBUTTON);
    }
    LeftUp(window, to, keys);
}

void Key(HWND window, int virtualKey)
{
    const LPARAM scan = static_cast<LPARAM>(::MapVirtualKey(virtualKey, MAPVK_VK_TO_VSC)) << 16;
    const LPARAM extended = IsExtendedKey(virtualKey) ? 1L << 24 : 0;
    ::PostMessage(window, WM_KEYDOWN, virtualKey, 1 | scan | extended);
    PumpMessages();
    if (::IsWindow(window)) {
        ::PostMessage(window, WM_KEYUP, virtualKey, static_cast<LPARAM>(0xC0000001u | scan | extended));
        PumpMessages();
    }
}

void Type(HWND window, const std::string& text)
{
    for (char byte : text) {
        ::PostMessage(window, WM_CHAR, static_cast<BYTE>(byte), 1);
    }
    PumpMessages();
}

void Wheel(HWND window, CPoint point, int notches, UINT keys)
{
    Put(window, WM_MOUSEWHEEL, MAKEWPARAM(keys, notches * WHEEL_DELTA), ToScreen(window, point));
}

} // namespace messages

namespace hardware {

bool Focus(HWND window)
{
    const HWND top = ::GetAncestor(window, GA_ROOT);
    ::SetForegroundWindow(top);
    ::SetFocus(window);
    return PumpUntil([=] { return ::GetForegroundWindow() == top && ::GetFocus() == window; });
}

void Move(HWND window, CPoint point)
{
    const CPoint target = ToScreen(window, point);
    const CPoint absolute(AbsoluteOf(target.x, ::GetSystemMetrics(SM_CXSCREEN)),
                          AbsoluteOf(target.y, ::GetSystemMetrics(SM_CYSCREEN)));
    InjectMouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, 0, absolute);
    PumpUntil(
        [=] {
            CPoint now;
            return ::GetCursorPos(&now) && now == target;
        },
        kPointerDeadlineMs);
}

void LeftDown()
{
    InjectMouse(MOUSEEVENTF_LEFTDOWN);
}
void LeftUp()
{
    InjectMouse(MOUSEEVENTF_LEFTUP);
}
void RightDown()
{
    InjectMouse(MOUSEEVENTF_RIGHTDOWN);
}
void RightUp()
{
    InjectMouse(MOUSEEVENTF_RIGHTUP);
}

void Click(HWND window, CPoint point)
{
    Move(window, point);
    LeftDown();
    LeftUp();
}

void DoubleClick(HWND window, CPoint point)
{
    Click(window, point);
    LeftDown();
    LeftUp();
}

void RightClick(HWND window, CPoint point)
{
    Move(window, point);
    RightDown();
    RightUp();
}

void Drag(HWND window, CPoint from, CPoint to)
{
    Move(window, from);
    LeftDown();
    for (int step = 1; step <= kDragSteps; ++step) {
        Move(window, Between(from, to, step));
    }
    LeftUp();
}

void KeyDown(int virtualKey)
{
    InjectKey(virtualKey, 0);
}
void KeyUp(int virtualKey)
{
    InjectKey(virtualKey, KEYEVENTF_KEYUP);
}

void Key(int virtualKey, std::initializer_list<int> held)
{
    for (int key : held) {
        KeyDown(key);
    }
    KeyDown(virtualKey);
    KeyUp(virtualKey);
    const std::vector<int> keys(held);
    for (auto key = keys.rbegin(); key != keys.rend(); ++key) {
        KeyUp(*key);
    }
}

void Type(const std::string& text)
{
    for (char letter : text) {
        const int key = std::toupper(static_cast<unsigned char>(letter));
        if (std::isupper(static_cast<unsigned char>(letter))) {
            Key(key, {VK_SHIFT});
        } else {
            Key(key);
        }
    }
}

void Wheel(HWND window, CPoint point, int notches)
{
    TurnWheel(window, point, notches * WHEEL_DELTA);
}

void TurnWheel(HWND window, CPoint point, int delta)
{
    Move(window, point);
    InjectMouse(MOUSEEVENTF_WHEEL, static_cast<DWORD>(delta));
}

void PushWheel(HWND window, CPoint point, int delta)
{
    Move(window, point);
    InjectMouse(MOUSEEVENTF_HWHEEL, static_cast<DWORD>(delta));
}

} // namespace hardware

} // namespace testsupport
