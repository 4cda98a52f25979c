// The commands that open dialogs about items: details, find, go to, reminders.
#include "planner/PlannerFrame.h"

#include "core/CalendarClock.h"
#include "core/DateMath.h"
#include "planner/AgendaView.h"
#include "planner/ChangedDialog.h"
#include "planner/EventDialog.h"
#include "planner/FindDialog.h"
#include "planner/GoToDialog.h"
#include "planner/ItemBridge.h"
#include "planner/ProgressDialog.h"
#include "planner/ReminderDialog.h"
#include "planner/ScopeDialog.h"
#include "planner/Search.h"
#include "planner/Words.h"
#include "planner/resource.h"

#include <algorithm>
#include <map>
#include <set>

namespace {

constexpr std::size_t kMostCategories = 50; // of the list in the dialog

// The present moment on the clock that the document shows.
planner::LocalTime ShownNow()
{
    return planner::LocalOfDate(dayvane::Now());
}

planner::PresentTime PresentTime()
{
    return {planner::SystemClock()(), ShownNow()};
}

std::vector<std::string> CategoriesAround(const planner::CalendarSet& calendars)
{
    constexpr planner::LocalTime around = 400 * planner::kDaySeconds;
    const std::set<std::string> all = calendars.CategoriesIn(ShownNow() - around, ShownNow() + around);
    std::vector<std::string> categories(all.begin(), all.end());
    categories.resize(std::min(categories.size(), kMostCategories));
    return categories;
}

// Of an item, or of a new one (kNoEvent).
CEventDialog::Choices ChoicesFor(const planner::CalendarSet& calendars, const planner::EventForm& form,
                                 const planner::OccurrenceId& id)
{
    CEventDialog::Choices choices;
    choices.zones = calendars.ZonesOf(id);
    if (std::find(choices.zones.begin(), choices.zones.end(), form.zone) == choices.zones.end()) {
        choices.zones.push_back(form.zone); // named but not defined
    }
    const planner::ZonePtr& clock = calendars.TargetDocument().DisplayZone();
    choices.clock = clock ? clock->Id() : "";
    choices.categories = CategoriesAround(calendars);
    return choices;
}

} // namespace

// ---- Details

void CPlannerFrame::OnDetails()
{
    const planner::Occurrence* current = m_items.Current();
    if (!current) {
        OnNewDetails();
        return;
    }
    const planner::Occurrence occurrence = *current;
    planner::CalendarSet& calendar = Calendars();
    const planner::EventForm before = planner::FormOf(occurrence);
    const bool isOfSeries = calendar.IsOfSeries(occurrence.id);
    CEventDialog::Choices choices = ChoicesFor(calendar, before, occurrence.id);
    choices.isMondayFirst = m_mondayFirst != FALSE;
    choices.canRepeat = !occurrence.event->replaces.has_value();
    choices.canChangeZone = !isOfSeries || choices.canRepeat;
    CEventDialog dialog(before, choices, this);
    if (dialog.DoModal() != IDOK) {
        return;
    }
    const planner::EventChanges changes = planner::ChangesOf(before, dialog.Form(), occurrence.event->start.zone);
    if (planner::IsEmpty(changes)) {
        return;
    }
    std::optional<planner::Scope> scope = planner::Scope::ThisOccurrence;
    if (isOfSeries && changes.zone) {
        scope = planner::Scope::WholeSeries; // nothing else can change it
    } else if (isOfSeries) {
        scope =
            planner::AskScope(this, planner::Tr("Which occurrences of this series are to be changed?"), !changes.rule);
    }
    if (scope) {
        Finish(calendar.Change(occurrence.id, changes, *scope));
    }
}

// Of a new item: what is selected. In days without hours a time is what a dialog is opened for, so that one is offered.
planner::EventTimes CPlannerFrame::NewTimes()
{
    const CAgendaView* agenda = Agenda();
    if (agenda || !m_items.Ctrl()) {
        const planner::DayNumber day =
            agenda ? agenda->ChosenDay() : planner::DayOfTime(planner::LocalOfDate(ShownDay()));
        return {day * planner::kDaySeconds, (day + 1) * planner::kDaySeconds, true};
    }
    return planner::SelectedTimes(*m_items.Ctrl(), !m_view.row->hasTimes);
}

void CPlannerFrame::OnNewDetails()
{
    planner::CalendarSet& calendar = Calendars();
    const planner::EventForm before = planner::NewForm(NewTimes(), calendar.TargetDocument().NewZone());
    CEventDialog::Choices choices = ChoicesFor(calendar, before, planner::OccurrenceId());
    choices.isMondayFirst = m_mondayFirst != FALSE;
    CEventDialog dialog(before, choices, this);
    if (dialog.DoModal() == IDOK) {
        std::vector<planner::FormProblem> none;
        const planner::EventChanges all =
            planner::ChangesOf(before, dialog.Form(), calendar.TargetDocument().DisplayZone());
        Finish(calendar.Create(planner::TimesOf(dialog.Form(), none), all));
    }
}

void CPlannerFrame::OnUpdateDetails(CCmdUI* pCmdUI)
{
    pCmdUI->Enable(m_items.Current() != nullptr);
}

// ---- Finding

void CPlannerFrame::OnFind()
{
    if (!m_find) {
        m_find = std::make_unique<CFindDialog>(
            [this](const std::string& words) { return planner::Search(Calendars(), words, ShownNow()); },
            [this](const planner::OccurrenceId& id) { Reveal(id); });
    }
    m_find->Open(this);
}

void CPlannerFrame::OnGoTo()
{
    planner::DateContext context;
    context.today = planner::DayOfTime(ShownNow());
    context.shown = planner::DayOfTime(planner::LocalOfDate(ShownDay()));
    context.firstWeekday = m_mondayFirst ? 1 : 0;
    CGoToDialog dialog(context, this);
    if (dialog.DoModal() == IDOK) {
        GoTo(planner::DateOfLocal(dialog.Day() * planner::kDaySeconds));
    }
}

bool CPlannerFrame::OpenDialog(const std::string& name)
{
    static const std::map<std::string, UINT> commands = {{"item", ID_EDIT_DETAILS}, {"new", ID_EDIT_NEW_DETAILS},
                                                         {"series", ID_EDIT_CLEAR}, {"find", ID_EDIT_FIND},
                                                         {"date", ID_EDIT_GO_TO},   {"pages", ID_FILE_PAGE_SETUP}};
    const auto command = commands.find(name);
    if (command != commands.end()) {
        const std::vector<planner::OccurrenceId> ids = m_items.IdsInView();
        const auto repeated = std::find_if(ids.begin(), ids.end(), [&](const planner::OccurrenceId& id) {
            return Calendars().IsOfSeries(id) && !Calendars().Find(id)->times.isAllDay;
        });
        m_items.Select(repeated == ids.end() ? planner::OccurrenceId() : *repeated);
        PostMessage(WM_COMMAND, command->second);
    } else if (name == "reminders") {
        std::vector<planner::DueReminder> due;
        for (const planner::OccurrenceId& id : m_items.IdsInView()) {
            due.push_back({*Calendars().Find(id), 0});
        }
        CheckReminders(PresentTime()); // makes the window
        m_remind = FALSE;              // which would hide what is not due
        m_reminderBox->Show(due, this);
        m_reminderBox->SetForegroundWindow(); // asked for, it may lie over the view
    } else if (name == "changed") {
        CChangedDialog::Ask(planner::Tr("Another program has changed %1 since it was opened.", Document()->Name()),
                            this);
    } else if (name == "question") {
        planner::Ask(this, planner::Tr("Save changes to %1?", Document()->Name()), MB_YESNOCANCEL | MB_ICONQUESTION);
    } else if (name == "progress") {
        CProgressDialog::s_patience = 0;
        CProgressDialog progress(planner::Tr("Reading %1", Document()->Name()));
        while (progress.Step(2, 5)) {
            ::WaitMessage();
        }
    } else {
        return false;
    }
    return true;
}

// ---- Reminders

void CPlannerFrame::OnTimer(UINT_PTR nIDEvent)
{
    if (nIDEvent == kReminderTimer && m_remind) {
        CheckReminders(PresentTime());
    } else if (nIDEvent == kCopyTimer) {
        KeepCopy();
    }
    CFrameWnd::OnTimer(nIDEvent);
}

void CPlannerFrame::CheckReminders(const planner::PresentTime& now)
{
    CPlannerDoc* document = Document();
    if (!document) {
        return;
    }
    if (!m_reminderBox) {
        CReminderDialog::Actions actions;
        actions.dismiss = [this](const std::vector<planner::DueReminder>& due) { Dismiss(due); };
        actions.snooze = [this](const planner::OccurrenceId& id, planner::LocalTime seconds) {
            m_reminders.Snooze(id, PresentTime().utc + seconds);
            CheckReminders(PresentTime());
        };
        actions.show = [this](const planner::OccurrenceId& id) { Reveal(id); };
        m_reminderBox = std::make_unique<CReminderDialog>(actions);
    }
    m_reminderBox->Show(m_reminders.DueAt(document->Calendars(), now), this);
}

// Where the file cannot keep it, at least this session does.
void CPlannerFrame::Dismiss(const std::vector<planner::DueReminder>& due)
{
    constexpr planner::LocalTime session = 365 * planner::kDaySeconds;
    const planner::PresentTime now = PresentTime();
    planner::EditResult last;
    for (const planner::DueReminder& each : due) {
        last = Calendars().Acknowledge(each.occurrence.id, std::max(now.utc, each.alarm));
        if (!last.isDone) {
            m_reminders.Snooze(each.occurrence.id, now.utc + session);
        }
    }
    last.id = planner::OccurrenceId(); // the view stays where it is
    Finish(last);
    CheckReminders(now);
}

void CPlannerFrame::OnReminders()
{
    m_remind = !m_remind;
    if (m_remind) {
        CheckReminders(PresentTime());
    } else if (m_reminderBox) {
        m_reminderBox->Show({}, this);
    }
}

void CPlannerFrame::OnUpdateReminders(CCmdUI* pCmdUI)
{
    pCmdUI->SetCheck(m_remind);
}
