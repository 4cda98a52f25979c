#include "planner/AgendaAccess.h"

#include "planner/AgendaView.h"
#include "planner/CalendarLanguage.h"
#include "planner/Words.h"

using dayvane::AccessId;
using dayvane::AccessPart;

namespace planner {

namespace {

constexpr LPARAM kFirstRepeat = 1; // of a posted key

} // namespace

AgendaAccess::AgendaAccess(CAgendaView& view) : AccessWindow(view), m_view(&view)
{
}

dayvane::AccessTree AgendaAccess::MakeTree()
{
    return MakeAgendaTree(m_view->Page());
}

std::vector<long long> AgendaAccess::Contents()
{
    const AgendaPage page = m_view->Page();
    return {m_view->Version(), page.top, page.rowHeight, page.client.Width(), page.client.Height()};
}

const CalendarTexts* AgendaAccess::Words() const
{
    static const CalendarTexts texts[] = {CalendarTextsOf(false), CalendarTextsOf(true)};
    return &texts[CurrentLanguage() == Language::Japanese];
}

dayvane::AccessWords AgendaAccess::WordsOf(int node)
{
    return WordsOfAgenda(Texts(), m_view->Page(), LastTree().At(node).id);
}

// Its texts are changed in the dialog.
long AgendaAccess::StateOf(int node)
{
    const bool isItem = LastTree().At(node).id.part == AccessPart::Item;
    return AccessWindow::StateOf(node) | (isItem ? STATE_SYSTEM_READONLY : 0);
}

AccessId AgendaAccess::Focus()
{
    return PartOfRow(m_view->Page(), m_view->ChosenRow());
}

std::vector<AccessId> AgendaAccess::Selection()
{
    const AccessId focus = Focus();
    return focus == AccessId() ? std::vector<AccessId>() : std::vector<AccessId>{focus};
}

HRESULT AgendaAccess::Select(int node, long flags)
{
    const long known = SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION;
    if (flags == 0 || (flags & ~known)) {
        return E_INVALIDARG;
    }
    const int row = RowOfPart(m_view->Page(), LastTree().At(node).id);
    if (row == -1) {
        return DISP_E_MEMBERNOTFOUND;
    }
    if (!::IsWindowEnabled(Handle())) {
        return E_ACCESSDENIED;
    }
    m_view->SetFocus();
    if (m_view) {
        m_view->ChooseRow(row);
    }
    return S_OK;
}

// Posted, for the details are a dialog, and the program that asks would wait for its end.
HRESULT AgendaAccess::Act(int node)
{
    if (LastTree().At(node).id.part != AccessPart::Item) {
        return DISP_E_MEMBERNOTFOUND;
    }
    const HWND window = Handle();
    const HRESULT selected = Select(node, SELFLAG_TAKESELECTION);
    if (selected == S_OK) {
        ::PostMessage(window, WM_KEYDOWN, VK_RETURN, kFirstRepeat);
    }
    return selected;
}

} // namespace planner
