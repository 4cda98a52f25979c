// The keys that the date selectors know, free of any platform's key numbers.
#pragma once

namespace dayvane {

enum class PickerKey
{
    None,
    Left,
    Right,
    Up,
    Down,
    PageUp,
    PageDown,
    Home,
    End,
    Enter,
    Escape,
    Today
};

} // namespace dayvane
