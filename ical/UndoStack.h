#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace dayvane::ical {

// The steps done so far and those taken back, and which of these states was saved last.
template <typename Step>
class UndoStack
{
public:
    void Push(Step step)
    {
        m_steps.resize(m_done);
        if (m_saved && *m_saved > m_done) { // the saved state can no longer be reached
            m_saved.reset();
        }
        m_steps.push_back(std::move(step));
        ++m_done;
    }

    // The step to take back or to do again, nullptr if there is none.
    const Step* Undo() { return m_done == 0 ? nullptr : &m_steps[--m_done]; }
    const Step* Redo() { return m_done == m_steps.size() ? nullptr : &m_steps[m_done++]; }
    std::size_t Done() const { return m_done; }
    bool CanUndo() const { return m_done > 0; }
    bool CanRedo() const { return m_done < m_steps.size(); }

    void MarkSaved() { m_saved = m_done; }
    void MarkUnsaved() { m_saved.reset(); }
    bool IsSaved() const { return m_saved == m_done; }

private:
    std::vector<Step> m_steps;
    std::size_t m_done = 0;
    std::optional<std::size_t> m_saved = 0;
};

} // namespace dayvane::ical
