// The commands that open dialogs about items: details, find, go to, reminders.
#include "planner/PlannerFrame.h"

#include "core/CalendarClock.h"
#include "core/DateMath.h"
#include "planner/EventDialog.h"
#include "planner/FindDialog.h"
#include "planner/GoToDialog.h"
#include "planner/ItemBridge.h"
#include "planner/ReminderDialog.h"
#include "planner/ScopeDialog.h"
#include "planner/Search.h"
#include "planner/Words.h"
#include "planner/resource.h"

#include <algorithm>
#include <set>

namespace {

constexpr std::size_t kMostCategories = 50; // of the list in the dialog

// The present moment on the clock that the document shows.
planner::LocalTime ShownNow()
{
    return planner::LocalOfDate(dayvane::Now());
}

std::vector<std::string> CategoriesAround(const planner::Document& document)
{
    constexpr planner::LocalTime around = 400 * planner::kDaySeconds;
    std::set<std::string> categories;
    for (const planner::Occurrence& each : document.OccurrencesIn(ShownNow() - around, ShownNow() + around)) {
        categories.insert(each.event->categories.begin(), each.event->categories.end());
        if (categories.size() >= kMostCategories) {
            break;
        }
    }
    return std::vector<std::string>(categories.begin(), categories.end());
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
    planner::Document& calendar = Document()->Calendar();
    const planner::EventForm before = planner::FormOf(calendar, occurrence);
    const bool isOfSeries = calendar.IsOfSeries(occurrence.id);
    CEventDialog::Choices choices;
    choices.zones = calendar.Zones();
    if (std::find(choices.zones.begin(), choices.zones.end(), before.zone) == choices.zones.end()) {
        choices.zones.push_back(before.zone); // named but not defined
    }
    choices.categories = CategoriesAround(calendar);
    choices.canRepeat = !occurrence.event->replaces.has_value();
    choices.canChangeZone = !isOfSeries;
    choices.isMondayFirst = m_mondayFirst != FALSE;
    CEventDialog dialog(before, choices, this);
    if (dialog.DoModal() != IDOK) {
        return;
    }
    const planner::EventChanges changes = planner::ChangesOf(before, dialog.Form(), occurrence.event->start.zone);
    if (planner::IsEmpty(changes)) {
        return;
    }
    std::optional<planner::Scope> scope = planner::Scope::ThisOccurrence;
    if (isOfSeries) {
        scope =
            planner::AskScope(this, planner::Tr("Which occurrences of this series are to be changed?"), !changes.rule);
    }
    if (scope) {
        Finish(calendar.Change(occurrence.id, changes, *scope));
    }
}

void CPlannerFrame::OnNewDetails()
{
    CCalendarCtrl* ctrl = m_items.Ctrl();
    if (!ctrl) {
        return;
    }
    planner::Document& calendar = Document()->Calendar();
    const planner::EventForm before = planner::NewForm(calendar, planner::SelectedTimes(*ctrl, !m_view.row->hasTimes));
    CEventDialog::Choices choices;
    choices.zones = calendar.Zones();
    choices.categories = CategoriesAround(calendar);
    choices.isMondayFirst = m_mondayFirst != FALSE;
    choices.canChangeZone = false; // the calendar's own
    CEventDialog dialog(before, choices, this);
    if (dialog.DoModal() == IDOK) {
        std::vector<planner::FormProblem> none;
        planner::EventChanges all = planner::ChangesOf(before, dialog.Form(), calendar.DisplayZone());
        all.zone.reset();
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
            [this](const std::string& words) { return planner::Search(Document()->Calendar(), words, ShownNow()); },
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

// ---- Reminders

namespace {

planner::PresentTime PresentTime()
{
    return {planner::SystemClock()(), ShownNow()};
}

} // namespace

void CPlannerFrame::OnTimer(UINT_PTR nIDEvent)
{
    if (nIDEvent == kReminderTimer && m_remind) {
        CheckReminders(PresentTime());
    } else if (nIDEvent == kCopyTimer && Document()) {
        Document()->KeepCopy();
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
    m_reminderBox->Show(m_reminders.DueAt(document->Calendar(), now), this);
}

// Where the file cannot keep it, at least this session does.
void CPlannerFrame::Dismiss(const std::vector<planner::DueReminder>& due)
{
    constexpr planner::LocalTime session = 365 * planner::kDaySeconds;
    const planner::PresentTime now = PresentTime();
    planner::EditResult last;
    for (const planner::DueReminder& each : due) {
        last = Document()->Calendar().Acknowledge(each.occurrence.id, std::max(now.utc, each.alarm));
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
