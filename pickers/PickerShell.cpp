#include "pickers/PickerShell.h"

namespace dayvane {

PickerKey PickerKeyOf(UINT virtualKey)
{
    static const struct
    {
        UINT virtualKey;
        PickerKey key;
    } kKeys[] = {
        {VK_LEFT, PickerKey::Left},     {VK_RIGHT, PickerKey::Right},  {VK_UP, PickerKey::Up},
        {VK_DOWN, PickerKey::Down},     {VK_PRIOR, PickerKey::PageUp}, {VK_NEXT, PickerKey::PageDown},
        {VK_HOME, PickerKey::Home},     {VK_END, PickerKey::End},      {VK_RETURN, PickerKey::Enter},
        {VK_ESCAPE, PickerKey::Escape}, {'T', PickerKey::Today},
    };
    for (const auto& row : kKeys) {
        if (row.virtualKey == virtualKey) {
            return row.key;
        }
    }
    return PickerKey::None;
}

bool IsKeyDown(int virtualKey)
{
    return ::GetKeyState(virtualKey) < 0;
}

void TrackMouseLeave(HWND hWnd)
{
    TRACKMOUSEEVENT track = {};
    track.cbSize = sizeof(track);
    track.dwFlags = TME_LEAVE;
    track.hwndTrack = hWnd;
    ::TrackMouseEvent(&track);
}

void ReleaseCaptureOf(HWND hWnd)
{
    if (hWnd && ::GetCapture() == hWnd) {
        ::ReleaseCapture();
    }
}

} // namespace dayvane
