// Turns wheel messages into steps: touchpads send many small deltas, and fast wheels large ones.
#pragma once

namespace dayvane {

class WheelSteps
{
public:
    // Steps of the wheel with this message, away from the user positive; each is worth perStep units of its delta.
    // What is left counts with the next one, unless the wheel turns back.
    int Add(int delta, int perStep)
    {
        if ((delta < 0) != (m_rest < 0)) {
            m_rest = 0;
        }
        m_rest += delta;
        const int steps = m_rest / perStep;
        m_rest -= steps * perStep;
        return steps;
    }

private:
    int m_rest = 0;
};

} // namespace dayvane
