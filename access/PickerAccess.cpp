#include "access/PickerAccess.h"

#include "access/CalendarWindowAccess.h"
#include "access/PickerTree.h"
#include "calc/DayProvider.h"
#include "core/CalendarClock.h"
#include "core/DateMath.h"
#include "core/MoreListCtrl.h"
#include "core/MoreListWnd.h"
#include "pickers/PeriodGridCtrl.h"
#include "pickers/PeriodGridState.h"
#include "pickers/PeriodSelCtrl.h"
#include "pickers/YearMonthPickerCtrl.h"
#include "pickers/YearMonthPopup.h"

namespace dayvane {

// ---- Mini calendars

const CalendarTexts* PeriodGridAccess::Words() const
{
    return &m_pWindow->GetTexts();
}

AccessTree PeriodGridAccess::MakeTree()
{
    const PeriodGridState& state = *m_pWindow->m_state;
    return MakePeriodGridTree(state.model.Policy(), state.layout, ClientRect());
}

std::vector<long long> PeriodGridAccess::Contents()
{
    const std::vector<PeriodBlock>& blocks = m_pWindow->m_state->layout.blocks;
    const PeriodBlock none;
    const PeriodBlock& first = blocks.empty() ? none : blocks.front();
    const PeriodBlock& last = blocks.empty() ? none : blocks.back();
    const CRect client = ClientRect();
    return {static_cast<long long>(blocks.size()),
            first.period,
            first.band.left,
            last.row,
            last.column,
            first.cells.empty() || !IsValid(first.cells[0].date) ? 0 : DayNumberOf(first.cells[0].date),
            client.Width(),
            client.Height()};
}

AccessWords PeriodGridAccess::WordsOf(int node)
{
    const PeriodGridState& state = *m_pWindow->m_state;
    const DayProvider* days = m_pWindow->GetDayProvider();
    const AccessTexts& texts = Texts();
    const AccessId& id = LastTree().At(node).id;
    const auto namesOfDay = [&](const COleDateTime& day) {
        return NamesOfDay(days, day, m_pWindow->GetTexts(), texts);
    };
    AccessWords words = PeriodGridSpeech{texts, state.model.Policy(), state.layout, Now(), namesOfDay}.WordsOf(id);
    const GridHit hit = HitOfPart(state.layout, id);
    if (hit.part == GridPart::Cell && hit.block < static_cast<int>(state.marks.size())) {
        const CellMark& mark = state.marks[hit.block][hit.cell];
        words.name = Joined({words.name, mark.isBold || mark.dot != CLR_NONE ? texts.marked : ""}, texts.between);
    }
    return words;
}

AccessId PeriodGridAccess::Focus()
{
    const PeriodGridState& state = *m_pWindow->m_state;
    const COleDateTime caret = state.model.Caret(Now());
    return PartOfHit(state.layout, CellOfDate(state.model.Policy(), state.layout, caret));
}

std::vector<AccessId> PeriodGridAccess::Selection()
{
    const PeriodGridState& state = *m_pWindow->m_state;
    std::vector<AccessId> selected;
    for (const PeriodBlock& block : state.layout.blocks) {
        for (size_t i = 0; i < block.cells.size(); ++i) {
            const PeriodCell& cell = block.cells[i];
            if (cell.inPeriod && IsValid(cell.date) && state.model.IsCellSelected(cell.date)) {
                selected.push_back({AccessPart::Cell, block.period, static_cast<int>(i)});
            }
        }
    }
    return selected;
}

HRESULT PeriodGridAccess::Select(int node, long flags)
{
    const long known = SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION;
    if (flags == 0 || (flags & ~known)) {
        return E_INVALIDARG;
    }
    return LastTree().At(node).id.part == AccessPart::Cell ? Act(node) : DISP_E_MEMBERNOTFOUND;
}

// A title opens its list only while the mouse holds it.
HRESULT PeriodGridAccess::Act(int node)
{
    const AccessPart part = LastTree().At(node).id.part;
    if (part == AccessPart::Root || part == AccessPart::Period || part == AccessPart::PeriodTitle) {
        return DISP_E_MEMBERNOTFOUND;
    }
    if (m_pWindow->m_state->model.GetMode() != PeriodGridModel::Mode::Idle) {
        return E_ACCESSDENIED; // the mouse holds something
    }
    return ClickCentre(node);
}

const CalendarTexts* PeriodSelAccess::Words() const
{
    return m_pWindow->m_pOwner ? &m_pWindow->m_pOwner->GetTexts() : nullptr;
}

AccessTree PeriodSelAccess::MakeTree()
{
    return MakePeriodRunTree(m_pWindow->m_run);
}

std::vector<long long> PeriodSelAccess::Contents()
{
    return {m_pWindow->m_run.PeriodOfRow(0)};
}

AccessWords PeriodSelAccess::WordsOf(int node)
{
    return WordsOfPeriodRun(Texts(), m_pWindow->m_policy, LastTree().At(node).id);
}

long PeriodSelAccess::RoleOf(int node)
{
    return node == 0 ? static_cast<long>(ROLE_SYSTEM_LIST) : AccessWindow::RoleOf(node);
}

AccessId PeriodSelAccess::Focus()
{
    const PeriodRun& run = m_pWindow->m_run;
    return run.HasChoice() ? AccessId{AccessPart::Entry, run.Chosen(), 0} : AccessId();
}

std::vector<AccessId> PeriodSelAccess::Selection()
{
    return m_pWindow->m_run.HasChoice() ? std::vector<AccessId>{Focus()} : std::vector<AccessId>();
}

// ---- Year-month picker

const CalendarTexts* YearMonthPickerAccess::Words() const
{
    return &m_pWindow->GetTexts();
}

std::vector<long long> YearMonthPickerAccess::Contents()
{
    const CRect client = ClientRect();
    const COleDateTime date = m_pWindow->GetCurrentDate();
    return {client.Width(), client.Height(), IsValid(date) ? DayNumberOf(date) : -1, m_pWindow->IsDropped()};
}

AccessWords YearMonthPickerAccess::WordsOf(int)
{
    const AccessTexts& texts = Texts();
    AccessWords words;
    words.name = texts.yearAndMonth;
    words.value = SpokenMonth(texts, m_pWindow->GetCurrentDate());
    words.action = texts.open;
    words.shortcut = "F4";
    return words;
}

long YearMonthPickerAccess::RoleOf(int)
{
    return ROLE_SYSTEM_BUTTONDROPDOWN;
}

long YearMonthPickerAccess::StateOf(int node)
{
    return AccessWindow::StateOf(node) | STATE_SYSTEM_HASPOPUP |
           (m_pWindow->IsDropped() ? STATE_SYSTEM_EXPANDED : STATE_SYSTEM_COLLAPSED);
}

HRESULT YearMonthPickerAccess::Act(int)
{
    if (!m_pWindow->IsWindowEnabled()) {
        return E_ACCESSDENIED;
    }
    m_pWindow->SetFocus();
    if (m_pWindow) {
        m_pWindow->OnClicked();
    }
    return S_OK;
}

const CalendarTexts* YearMonthPopupAccess::Words() const
{
    return m_pWindow->m_pPicker ? &m_pWindow->m_pPicker->GetTexts() : nullptr;
}

AccessTree YearMonthPopupAccess::MakeTree()
{
    return MakeYearMonthTree(m_pWindow->GetLayout());
}

std::vector<long long> YearMonthPopupAccess::Contents()
{
    return {m_pWindow->GetYear()};
}

AccessWords YearMonthPopupAccess::WordsOf(int node)
{
    return WordsOfYearMonth(Texts(), LastTree().At(node).id, m_pWindow->GetYear(), Now());
}

AccessId YearMonthPopupAccess::Focus()
{
    return {AccessPart::Cell, 0, m_pWindow->GetMonthIndex()};
}

// To select a month is to pick it.
HRESULT YearMonthPopupAccess::Select(int node, long flags)
{
    if ((flags & SELFLAG_TAKESELECTION) == 0) {
        return E_INVALIDARG;
    }
    return LastTree().At(node).id.part == AccessPart::Cell ? Act(node) : DISP_E_MEMBERNOTFOUND;
}

// ---- The list of a mark

const CalendarTexts* MoreListAccess::Words() const
{
    return m_pWindow->m_pOwner ? &m_pWindow->m_pOwner->GetTexts() : nullptr;
}

AccessTree MoreListAccess::MakeTree()
{
    return MakeMoreListTree(m_pWindow->m_model);
}

std::vector<long long> MoreListAccess::Contents()
{
    return {m_pWindow->m_model.Top(), m_pWindow->m_nItemVersion};
}

AccessWords MoreListAccess::WordsOf(int node)
{
    const AccessTexts& texts = Texts();
    const AccessId id = LastTree().At(node).id;
    AccessWords words;
    tagCC_ITEM item;
    CMoreListCtrl& owner = *m_pWindow->m_pOwner;
    if (id.part != AccessPart::Entry) {
        words.name = texts.hiddenItems;
    } else if (m_pWindow->m_model.Item(id.key) < owner.GetItemCount()) {
        owner.GetItem(m_pWindow->m_model.Item(id.key), item);
        words.value = Utf8OfItemText(owner, item.strText);
        words.name = SpokenItem(texts, item, words.value, m_pWindow->m_dtFirst, EndOfDay(m_pWindow->m_dtFirst), true);
        words.action = texts.select;
    }
    return words;
}

long MoreListAccess::RoleOf(int node)
{
    return node == 0 ? static_cast<long>(ROLE_SYSTEM_LIST) : AccessWindow::RoleOf(node);
}

AccessId MoreListAccess::Focus()
{
    const int row = m_pWindow->m_model.Current();
    return row == -1 ? AccessId() : AccessId{AccessPart::Entry, row, 0};
}

HRESULT MoreListAccess::Select(int node, long flags)
{
    const AccessId id = LastTree().At(node).id;
    if (flags == 0 || id.part != AccessPart::Entry) {
        return E_INVALIDARG;
    }
    m_pWindow->SetCurrentRow(id.key);
    return S_OK;
}

HRESULT MoreListAccess::Act(int node)
{
    const AccessId id = LastTree().At(node).id;
    if (id.part != AccessPart::Entry) {
        return DISP_E_MEMBERNOTFOUND;
    }
    m_pWindow->Choose(id.key);
    return S_OK;
}

// ---- Which window gets which

namespace {

std::shared_ptr<WindowAccess> MakeAccess(CWnd& window)
{
    if (auto* ctrl = dynamic_cast<CCalendarCtrl*>(&window)) {
        return std::make_shared<CalendarWindowAccess>(*ctrl);
    }
    if (auto* ctrl = dynamic_cast<CPeriodGridCtrl*>(&window)) {
        return std::make_shared<PeriodGridAccess>(*ctrl);
    }
    if (auto* picker = dynamic_cast<CYearMonthPickerCtrl*>(&window)) {
        return std::make_shared<YearMonthPickerAccess>(*picker);
    }
    if (auto* popup = dynamic_cast<CYearMonthPopup*>(&window)) {
        return std::make_shared<YearMonthPopupAccess>(*popup);
    }
    if (auto* popup = dynamic_cast<CPeriodSelCtrl*>(&window)) {
        return std::make_shared<PeriodSelAccess>(*popup);
    }
    if (auto* list = dynamic_cast<CMoreListWnd*>(&window)) {
        return std::make_shared<MoreListAccess>(*list);
    }
    return nullptr;
}

const bool s_isRegistered = (static_cast<void>(SetWindowAccess(&MakeAccess)), true);

} // namespace
} // namespace dayvane
