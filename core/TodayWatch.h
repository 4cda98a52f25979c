// TodayWatch: notifies controls when the present day changes, at midnight, when the system's time is set and when the
// machine wakes up. One hidden window serves all of them; it is there while anybody watches.
#pragma once

#include <functional>

namespace dayvane {

class TodayWatch
{
public:
    // onChange is called by the user-interface thread, once for each change of the day; it may end any control.
    explicit TodayWatch(std::function<void()> onChange);
    ~TodayWatch();
    TodayWatch(const TodayWatch&) = delete;
    TodayWatch& operator=(const TodayWatch&) = delete;

    void Start(); // does nothing when it has started
    void Stop();

private:
    std::function<void()> m_onChange;
};

} // namespace dayvane
