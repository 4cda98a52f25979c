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

PeriodGridAccess::PeriodGridAccess(CPeriodGridCtrl& ctrl) : AccessWindow(ctrl), m_pCtrl(&ctrl)
{
}

const CalendarTexts* PeriodGridAccess::Words() const
{
    return &m_pCtrl->GetTexts();
}

AccessTree PeriodGridAccess::MakeTree()
{
    const PeriodGridState& state = *m_pCtrl->m_state;
    return MakePeriodGridTree(state.model.Policy(), state.layout, ClientRect());
}

std::vector<long long> PeriodGridAccess::Contents()
{
    const std::vector<PeriodBlock>& blocks = m_pCtrl->m_state->layout.blocks;
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
    const PeriodGridState& state = *m_pCtrl->m_state;
    const DayProvider* days = m_pCtrl->GetDayProvider();
    const AccessTexts& texts = Texts();
    const AccessId& id = LastTree().At(node).id;
    const auto namesOfDay = [&](const COleDateTime& day) { return NamesOfDay(days, day, m_pCtrl->GetTexts(), texts); };
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
    const PeriodGridState& state = *m_pCtrl->m_state;
    const COleDateTime caret = state.model.Caret(Now());
    return PartOfHit(state.layout, CellOfDate(state.model.Policy(), state.layout, caret));
}

std::vector<AccessId> PeriodGridAccess::Selection()
{
    const PeriodGridState& state = *m_pCtrl->m_state;
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
    if (m_pCtrl->m_state->model.GetMode() != PeriodGridModel::Mode::Idle) {
        return E_ACCESSDENIED; // the mouse holds something
    }
    return ClickCentre(node);
}

PeriodSelAccess::PeriodSelAccess(CPeriodSelCtrl& popup) : AccessWindow(popup), m_pPopup(&popup)
{
}

const CalendarTexts* PeriodSelAccess::Words() const
{
    return m_pPopup->m_pOwner ? &m_pPopup->m_pOwner->GetTexts() : nullptr;
}

AccessTree PeriodSelAccess::MakeTree()
{
    return MakePeriodRunTree(m_pPopup->m_run);
}

std::vector<long long> PeriodSelAccess::Contents()
{
    return {m_pPopup->m_run.PeriodOfRow(0)};
}

AccessWords PeriodSelAccess::WordsOf(int node)
{
    return WordsOfPeriodRun(Texts(), m_pPopup->m_policy, LastTree().At(node).id);
}

long PeriodSelAccess::RoleOf(int node)
{
    return node == 0 ? static_cast<long>(ROLE_SYSTEM_LIST) : AccessWindow::RoleOf(node);
}

AccessId PeriodSelAccess::Focus()
{
    const PeriodRun& run = m_pPopup->m_run;
    return run.HasChoice() ? AccessId{AccessPart::Entry, run.Chosen(), 0} : AccessId();
}

std::vector<AccessId> PeriodSelAccess::Selection()
{
    return m_pPopup->m_run.HasChoice() ? std::vector<AccessId>{Focus()} : std::vector<AccessId>();
}

// ---- Year-month picker

YearMonthPickerAccess::YearMonthPickerAccess(CYearMonthPickerCtrl& picker) : AccessWindow(picker), m_pPicker(&picker)
{
}

const CalendarTexts* YearMonthPickerAccess::Words() const
{
    return &m_pPicker->GetTexts();
}

std::vector<long long> YearMonthPickerAccess::Contents()
{
    const CRect client = ClientRect();
    const COleDateTime date = m_pPicker->GetCurrentDate();
    return {client.Width(), client.Height(), IsValid(date) ? DayNumberOf(date) : -1, m_pPicker->IsDropped()};
}

AccessWords YearMonthPickerAccess::WordsOf(int)
{
    const AccessTexts& texts = Texts();
    AccessWords words;
    words.name = texts.yearAndMonth;
    words.value = SpokenMonth(texts, m_pPicker->GetCurrentDate());
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
           (m_pPicker->IsDropped() ? STATE_SYSTEM_EXPANDED : STATE_SYSTEM_COLLAPSED);
}

HRESULT YearMonthPickerAccess::Act(int)
{
    if (!m_pPicker->IsWindowEnabled()) {
        return E_ACCESSDENIED;
    }
    m_pPicker->SetFocus();
    if (m_pPicker) {
        m_pPicker->OnClicked();
    }
    return S_OK;
}

YearMonthPopupAccess::YearMonthPopupAccess(CYearMonthPopup& popup) : AccessWindow(popup), m_pPopup(&popup)
{
}

const CalendarTexts* YearMonthPopupAccess::Words() const
{
    return m_pPopup->m_pPicker ? &m_pPopup->m_pPicker->GetTexts() : nullptr;
}

AccessTree YearMonthPopupAccess::MakeTree()
{
    return MakeYearMonthTree(m_pPopup->GetLayout());
}

std::vector<long long> YearMonthPopupAccess::Contents()
{
    return {m_pPopup->GetYear()};
}

AccessWords YearMonthPopupAccess::WordsOf(int node)
{
    return WordsOfYearMonth(Texts(), LastTree().At(node).id, m_pPopup->GetYear(), Now());
}

AccessId YearMonthPopupAccess::Focus()
{
    return {AccessPart::Cell, 0, m_pPopup->GetMonthIndex()};
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

MoreListAccess::MoreListAccess(CMoreListWnd& list) : AccessWindow(list), m_pList(&list)
{
}

const CalendarTexts* MoreListAccess::Words() const
{
    return m_pList->m_pOwner ? &m_pList->m_pOwner->GetTexts() : nullptr;
}

AccessTree MoreListAccess::MakeTree()
{
    return MakeMoreListTree(m_pList->m_model);
}

std::vector<long long> MoreListAccess::Contents()
{
    return {m_pList->m_model.Top(), m_pList->m_nItemVersion};
}

AccessWords MoreListAccess::WordsOf(int node)
{
    const AccessTexts& texts = Texts();
    const AccessId id = LastTree().At(node).id;
    AccessWords words;
    tagCC_ITEM item;
    CMoreListCtrl& owner = *m_pList->m_pOwner;
    if (id.part != AccessPart::Entry) {
        words.name = texts.hiddenItems;
    } else if (m_pList->m_model.Item(id.key) < owner.GetItemCount()) {
        owner.GetItem(m_pList->m_model.Item(id.key), item);
        words.value = Utf8OfItemText(owner, item.strText);
        words.name = SpokenItem(texts, item, words.value, m_pList->m_dtFirst, EndOfDay(m_pList->m_dtFirst), true);
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
    const int row = m_pList->m_model.Current();
    return row == -1 ? AccessId() : AccessId{AccessPart::Entry, row, 0};
}

HRESULT MoreListAccess::Select(int node, long flags)
{
    const AccessId id = LastTree().At(node).id;
    if (flags == 0 || id.part != AccessPart::Entry) {
        return E_INVALIDARG;
    }
    m_pList->SetCurrentRow(id.key);
    return S_OK;
}

HRESULT MoreListAccess::Act(int node)
{
    const AccessId id = LastTree().At(node).id;
    if (id.part != AccessPart::Entry) {
        return DISP_E_MEMBERNOTFOUND;
    }
    m_pList->Choose(id.key);
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
