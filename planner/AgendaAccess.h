// The agenda for programs that read it aloud: how a host's own window is one of those that speak.
#pragma once

#include "access/AccessWindow.h"
#include "planner/AgendaTree.h"

class CAgendaView;

namespace planner {

class AgendaAccess : public dayvane::AccessWindow
{
public:
    explicit AgendaAccess(CAgendaView& view);

    dayvane::AccessWords WordsOf(int node) override;
    long StateOf(int node) override;
    dayvane::AccessId Focus() override;
    std::vector<dayvane::AccessId> Selection() override;
    HRESULT Select(int node, long flags) override;
    HRESULT Act(int node) override;

protected:
    dayvane::AccessTree MakeTree() override;
    std::vector<long long> Contents() override;
    const CalendarTexts* Words() const override;
    void Gone() override { m_view = nullptr; }

private:
    CAgendaView* m_view; // nullptr: its window is gone
};

} // namespace planner
