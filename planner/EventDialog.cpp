#include "planner/EventDialog.h"

#include "core/DateMath.h"
#include "core/CalendarFonts.h"
#include "core/ThemeColors.h"
#include "planner/CalendarLanguage.h"
#include "planner/ItemBridge.h"
#include "planner/TypedDate.h"
#include "planner/Words.h"
#include "planner/resource.h"

#include <algorithm>
#include <cstdlib>

using planner::FormField;
using planner::RuleForm;

namespace {

constexpr COLORREF kProblemColor = RGB(176, 0, 32);
constexpr UINT kUpdateAll = WM_APP + 20;
constexpr int kHalfHours = 48;

struct KindRow
{
    RuleForm::Kind kind;
    const char* name;
};
constexpr KindRow kKinds[] = {{RuleForm::Kind::None, "No repetition"},
                              {RuleForm::Kind::Daily, "Daily"},
                              {RuleForm::Kind::Weekly, "Weekly"},
                              {RuleForm::Kind::MonthlyByDay, "Monthly by day"},
                              {RuleForm::Kind::MonthlyByWeekday, "Monthly by weekday"},
                              {RuleForm::Kind::MonthlyByLast, "Monthly by the last weekday"},
                              {RuleForm::Kind::Yearly, "Yearly"},
                              {RuleForm::Kind::Other, "Other"}};
constexpr const char* kEnds[] = {"for ever", "a number of times", "a date"};

struct ProblemRow
{
    FormField field;
    int control; // to go to
    int label;   // where it is said
};
constexpr ProblemRow kProblemRows[] = {{FormField::StartDate, IDC_START_DATE, IDC_START_PROBLEM},
                                       {FormField::StartTime, IDC_START_TIME, IDC_START_PROBLEM},
                                       {FormField::EndDate, IDC_END_DATE, IDC_END_PROBLEM},
                                       {FormField::EndTime, IDC_END_TIME, IDC_END_PROBLEM},
                                       {FormField::Rule, IDC_RULE_INTERVAL, IDC_RULE_SENTENCE}};

void SelectData(const CWnd& dialog, int control, LPARAM data)
{
    const HWND list = ::GetDlgItem(dialog.m_hWnd, control);
    const int count = static_cast<int>(::SendMessage(list, CB_GETCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) {
        if (::SendMessage(list, CB_GETITEMDATA, static_cast<WPARAM>(i), 0) == data) {
            ::SendMessage(list, CB_SETCURSEL, static_cast<WPARAM>(i), 0);
        }
    }
}

int SelectedData(const CWnd& dialog, int control)
{
    const HWND list = ::GetDlgItem(dialog.m_hWnd, control);
    const LRESULT at = ::SendMessage(list, CB_GETCURSEL, 0, 0);
    return at < 0 ? 0 : static_cast<int>(::SendMessage(list, CB_GETITEMDATA, static_cast<WPARAM>(at), 0));
}

// The number, 0 for anything else.
int NumberOf(const std::string& text)
{
    char* end = nullptr;
    const long number = std::strtol(text.c_str(), &end, 10);
    return text.empty() || *end != '\0' ? 0 : static_cast<int>(number);
}

} // namespace

BEGIN_MESSAGE_MAP(CEventDialog, CPlannerDialog)
ON_WM_PAINT()
ON_WM_CTLCOLOR()
ON_MESSAGE(kUpdateAll, &CEventDialog::OnUpdateAll)
ON_CONTROL_RANGE(EN_CHANGE, IDC_EVENT_FIRST, IDC_EVENT_LAST, &CEventDialog::OnChanged)
ON_CONTROL_RANGE(CBN_EDITCHANGE, IDC_EVENT_FIRST, IDC_EVENT_LAST, &CEventDialog::OnChanged)
ON_CONTROL_RANGE(CBN_SELCHANGE, IDC_EVENT_FIRST, IDC_EVENT_LAST, &CEventDialog::OnPicked)
ON_CONTROL_RANGE(BN_CLICKED, IDC_ALL_DAY, IDC_WEEKDAY_LAST, &CEventDialog::OnChanged)
ON_CONTROL_RANGE(EN_SETFOCUS, IDC_START_DATE, IDC_END_DATE, &CEventDialog::OnDateFocus)
ON_CONTROL_RANGE(EN_KILLFOCUS, IDC_START_DATE, IDC_END_DATE, &CEventDialog::OnDateLeft)
ON_BN_CLICKED(IDC_ADD_REMINDER, &CEventDialog::OnAddReminder)
ON_BN_CLICKED(IDC_REMOVE_REMINDER, &CEventDialog::OnRemoveReminder)
END_MESSAGE_MAP()

CEventDialog::CEventDialog(const planner::EventForm& form, const Choices& choices, CWnd* pParent)
    : CPlannerDialog(IDD_EVENT, pParent), m_before(form), m_form(form), m_shown(form), m_choices(choices),
      m_dateField(IDC_START_DATE)
{
}

// ---- Filling

BOOL CEventDialog::OnInitDialog()
{
    CPlannerDialog::OnInitDialog();
    MakeCalendar();
    FillLists();
    Put();
    m_isFilling = false;
    Update();
    FollowDate();
    ::SendDlgItemMessage(m_hWnd, IDC_TITLE, EM_SETSEL, 0, -1);
    return TRUE;
}

void CEventDialog::MakeCalendar()
{
    const HWND frame = ::GetDlgItem(m_hWnd, IDC_DATE_CALENDAR);
    CRect place;
    ::GetWindowRect(frame, &place);
    ScreenToClient(&place);
    m_calendar.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP, place, this, IDC_DATE_MONTH);
    m_calendar.SetRangeSelect(FALSE);
    m_calendar.SetTexts(planner::CalendarTextsOf(planner::CurrentLanguage() == planner::Language::Japanese));
    m_calendar.SetFirstDayOfWeek(m_choices.isMondayFirst ? dayvane::kMonday : dayvane::kSunday);
    m_calendar.SetTheme(Theme());
    m_calendar.SetTextFont(CalendarFonts::Modern().text);
    m_calendar.SetScale(Scale().dpi);
    m_calendar.SetRowAndCol(1, 1);
    const CSize size = m_calendar.GetGridSize();
    m_calendar.SetWindowPos(nullptr, place.left, place.top, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
    // In the order of Tab it comes after the ends.
    ::SetWindowPos(m_calendar, ::GetDlgItem(m_hWnd, IDC_END_TIME), 0, 0, 0, 0,
                   SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    ::DestroyWindow(frame);
    m_calendar.Refresh();
}

void CEventDialog::FillLists()
{
    for (int i = 0; i < kHalfHours; ++i) {
        const std::string clock = planner::ClockText(i * planner::kHourSeconds / 2);
        planner::AddListText(*this, IDC_START_TIME, clock);
        planner::AddListText(*this, IDC_END_TIME, clock);
    }
    for (std::size_t i = 0; i < m_choices.zones.size(); ++i) {
        const std::string& id = m_choices.zones[i];
        planner::AddListText(*this, IDC_ZONE, id.empty() ? planner::Tr("floating (the clock on the wall)") : id,
                             static_cast<LPARAM>(i));
    }
    for (const std::string& category : m_choices.categories) {
        planner::AddListText(*this, IDC_CATEGORY, category);
    }
    for (const KindRow& row : kKinds) {
        if (row.kind != RuleForm::Kind::Other || m_form.rule.kind == RuleForm::Kind::Other) {
            planner::AddListText(*this, IDC_RULE_KIND, planner::Tr(row.name), static_cast<LPARAM>(row.kind));
        }
    }
    for (int end = 0; end < 3; ++end) {
        planner::AddListText(*this, IDC_RULE_END, planner::Tr(kEnds[end]), end);
    }
    for (const std::int64_t seconds : planner::OfferedReminders()) {
        planner::AddListText(*this, IDC_REMINDER_TIME, planner::ReminderText(seconds), static_cast<LPARAM>(seconds));
    }
    SelectData(*this, IDC_REMINDER_TIME, 10 * planner::kMinuteSeconds);
}

void CEventDialog::Put()
{
    const planner::EventForm& form = m_form;
    planner::SetItemUtf8(*this, IDC_TITLE, form.title);
    planner::SetItemUtf8(*this, IDC_START_DATE, form.startDate);
    planner::SetItemUtf8(*this, IDC_START_TIME, form.startTime);
    planner::SetItemUtf8(*this, IDC_END_DATE, form.endDate);
    planner::SetItemUtf8(*this, IDC_END_TIME, form.endTime);
    planner::SetItemUtf8(*this, IDC_PLACE, form.place);
    planner::SetItemUtf8(*this, IDC_CATEGORY, form.category);
    planner::SetItemUtf8(*this, IDC_NOTES, form.notes);
    const auto zone = std::find(m_choices.zones.begin(), m_choices.zones.end(), form.zone);
    SelectData(*this, IDC_ZONE, zone - m_choices.zones.begin());
    CheckDlgButton(IDC_ALL_DAY, form.isAllDay);
    CheckDlgButton(IDC_BUSY, form.isBusy);
    CheckDlgButton(IDC_PRIVATE, form.isPrivate);
    SelectData(*this, IDC_RULE_KIND, static_cast<LPARAM>(form.rule.kind));
    SelectData(*this, IDC_RULE_END, static_cast<LPARAM>(form.rule.end));
    planner::SetItemUtf8(*this, IDC_RULE_INTERVAL, std::to_string(form.rule.interval));
    const bool isUntil = form.rule.end == RuleForm::End::Until;
    planner::SetItemUtf8(*this, IDC_RULE_LIMIT,
                         isUntil ? planner::DateText(form.rule.until) : std::to_string(form.rule.count));
    for (int day = 0; day < dayvane::kDaysPerWeek; ++day) {
        CheckDlgButton(IDC_WEEKDAY_FIRST + day, form.rule.weekdays[static_cast<std::size_t>(day)]);
    }
    PutReminders();
}

void CEventDialog::PutReminders()
{
    ::SendDlgItemMessage(m_hWnd, IDC_REMINDERS, LB_RESETCONTENT, 0, 0);
    for (const std::int64_t seconds : m_form.reminders) {
        planner::AddListText(*this, IDC_REMINDERS, planner::ReminderText(seconds), static_cast<LPARAM>(seconds));
    }
}

// ---- Reading

bool CEventDialog::IsChecked(int nID) const
{
    return ::IsDlgButtonChecked(m_hWnd, nID) == BST_CHECKED;
}

void CEventDialog::Take()
{
    planner::EventForm& form = m_form;
    form.title = planner::ItemUtf8(*this, IDC_TITLE);
    form.startDate = planner::ItemUtf8(*this, IDC_START_DATE);
    form.startTime = planner::ItemUtf8(*this, IDC_START_TIME);
    form.endDate = planner::ItemUtf8(*this, IDC_END_DATE);
    form.endTime = planner::ItemUtf8(*this, IDC_END_TIME);
    form.place = planner::ItemUtf8(*this, IDC_PLACE);
    form.category = planner::ItemUtf8(*this, IDC_CATEGORY);
    form.notes = planner::ItemUtf8(*this, IDC_NOTES);
    const std::size_t zone = static_cast<std::size_t>(SelectedData(*this, IDC_ZONE));
    form.zone = zone < m_choices.zones.size() ? m_choices.zones[zone] : form.zone;
    form.isAllDay = IsChecked(IDC_ALL_DAY);
    form.isBusy = IsChecked(IDC_BUSY);
    form.isPrivate = IsChecked(IDC_PRIVATE);
    form.rule.kind = static_cast<RuleForm::Kind>(SelectedData(*this, IDC_RULE_KIND));
    form.rule.end = static_cast<RuleForm::End>(SelectedData(*this, IDC_RULE_END));
    form.rule.interval = NumberOf(planner::ItemUtf8(*this, IDC_RULE_INTERVAL));
    const std::string limit = planner::ItemUtf8(*this, IDC_RULE_LIMIT);
    std::vector<planner::FormProblem> none;
    const planner::EventTimes times = planner::TimesOf(form, none);
    const planner::DayNumber start = planner::DayOfTime(times.start);
    if (form.rule.end == RuleForm::End::Count) {
        form.rule.count = NumberOf(limit);
    } else if (form.rule.end == RuleForm::End::Until) {
        form.rule.until = planner::ParseTypedDate(limit, {start, start, 1}).value_or(0);
    }
    for (int day = 0; day < dayvane::kDaysPerWeek; ++day) {
        form.rule.weekdays[static_cast<std::size_t>(day)] = IsChecked(IDC_WEEKDAY_FIRST + day);
    }
    if (form.rule.kind != RuleForm::Kind::Weekly) { // to begin with, should it become weekly
        form.rule.weekdays = {};
    }
    if (form.startDate != m_before.startDate || form.rule.kind != m_before.rule.kind ||
        form.rule.kind != RuleForm::Kind::Weekly) {
        form.rule.weekdays[static_cast<std::size_t>(planner::WeekdayOfDay(start))] = true;
    }
}

// ---- What the controls say

void CEventDialog::Update()
{
    Take();
    const bool isTimed = !m_form.isAllDay;
    for (const int id : {IDC_START_TIME, IDC_END_TIME}) {
        ::EnableWindow(::GetDlgItem(m_hWnd, id), isTimed);
    }
    ::EnableWindow(::GetDlgItem(m_hWnd, IDC_RULE_KIND), m_choices.canRepeat);
    UpdateZone();
    UpdateRule(m_form.rule.kind != RuleForm::Kind::None && m_form.rule.kind != RuleForm::Kind::Other);
    ShowProblems();
    CRect swatch;
    ::GetWindowRect(::GetDlgItem(m_hWnd, IDC_SWATCH), &swatch);
    ScreenToClient(&swatch);
    InvalidateRect(&swatch, FALSE);
}

// Times of another zone are typed and shown on the calendar's clock all the same.
void CEventDialog::UpdateZone()
{
    const bool isTimed = !m_form.isAllDay;
    ::EnableWindow(::GetDlgItem(m_hWnd, IDC_ZONE), isTimed && m_choices.canChangeZone);
    const bool isOther = isTimed && !m_choices.clock.empty() && !m_form.zone.empty() && m_form.zone != m_choices.clock;
    const std::string text = isOther ? planner::Tr("Times are those of %1", m_choices.clock) : std::string();
    if (planner::ItemUtf8(*this, IDC_ZONE_CLOCK) != text) {
        planner::SetItemUtf8(*this, IDC_ZONE_CLOCK, text);
    }
}

void CEventDialog::UpdateRule(bool repeats)
{
    ::EnableWindow(::GetDlgItem(m_hWnd, IDC_RULE_INTERVAL), repeats);
    ::EnableWindow(::GetDlgItem(m_hWnd, IDC_RULE_END), repeats);
    ::EnableWindow(::GetDlgItem(m_hWnd, IDC_RULE_LIMIT), repeats && m_form.rule.end != RuleForm::End::Never);
    std::vector<planner::FormProblem> none;
    const int weekday = planner::WeekdayOfDay(planner::DayOfTime(planner::TimesOf(m_form, none).start));
    for (int day = 0; day < dayvane::kDaysPerWeek; ++day) { // the start's own weekday always belongs to them
        const HWND box = ::GetDlgItem(m_hWnd, IDC_WEEKDAY_FIRST + day);
        ::EnableWindow(box, m_form.rule.kind == RuleForm::Kind::Weekly && day != weekday);
        ::SendMessage(box, BM_SETCHECK, m_form.rule.weekdays[static_cast<std::size_t>(day)], 0);
    }
}

void CEventDialog::ShowProblems()
{
    m_problems.clear();
    for (const planner::FormProblem& problem : planner::ProblemsOf(m_form)) {
        m_problems.emplace(problem.field, problem.text);
    }
    std::map<int, std::string> labels = {{IDC_START_PROBLEM, ""}, {IDC_END_PROBLEM, ""}, {IDC_RULE_SENTENCE, ""}};
    std::vector<planner::FormProblem> none;
    labels[IDC_RULE_SENTENCE] = planner::RuleSentence(m_form.rule, planner::TimesOf(m_form, none).start);
    for (const ProblemRow& row : kProblemRows) {
        const auto problem = m_problems.find(row.field);
        if (problem != m_problems.end()) {
            labels[row.label] = problem->second;
        }
    }
    for (const auto& [label, text] : labels) {
        if (planner::ItemUtf8(*this, label) != text) {
            planner::SetItemUtf8(*this, label, text);
        }
    }
}

void CEventDialog::OnChanged(UINT nID)
{
    if (m_isFilling) {
        return;
    }
    if (nID == IDC_START_DATE || nID == IDC_START_TIME) { // the end keeps its distance
        m_isFilling = true;
        planner::EventForm moved = m_shown;
        moved.startDate = planner::ItemUtf8(*this, IDC_START_DATE);
        moved.startTime = planner::ItemUtf8(*this, IDC_START_TIME);
        const planner::EventForm before = moved;
        planner::KeepLength(m_shown, moved);
        if (moved.endDate != before.endDate || moved.endTime != before.endTime) {
            planner::SetItemUtf8(*this, IDC_END_DATE, moved.endDate);
            planner::SetItemUtf8(*this, IDC_END_TIME, moved.endTime);
        }
        m_isFilling = false;
    }
    Update();
    if (m_problems.empty()) {
        m_shown = m_form;
    }
}

void CEventDialog::OnPicked(UINT nID)
{
    PostMessage(kUpdateAll, nID);
}

LRESULT CEventDialog::OnUpdateAll(WPARAM wParam, LPARAM)
{
    if (wParam == IDC_RULE_END && !m_isFilling) { // a number or a date to begin with
        const bool isUntil = SelectedData(*this, IDC_RULE_END) == static_cast<int>(RuleForm::End::Until);
        std::vector<planner::FormProblem> none;
        const planner::DayNumber start = planner::DayOfTime(planner::TimesOf(m_form, none).start);
        constexpr planner::DayNumber quarter = 91;
        constexpr int times = 10;
        planner::SetItemUtf8(*this, IDC_RULE_LIMIT,
                             isUntil ? planner::DateText(start + quarter) : std::to_string(times));
    }
    OnChanged(static_cast<UINT>(wParam));
    return 0;
}

// ---- Dates by the small calendar

void CEventDialog::FollowDate()
{
    const auto day = planner::ParseTypedDate(planner::ItemUtf8(*this, static_cast<int>(m_dateField)), {0, 0, 1});
    if (day) {
        const COleDateTime date = planner::DateOfLocal(*day * planner::kDaySeconds);
        m_calendar.SetSel(date, date);
    }
}

void CEventDialog::OnDateFocus(UINT nID)
{
    if (nID == IDC_START_DATE || nID == IDC_END_DATE) {
        m_dateField = nID;
        FollowDate();
    }
}

// What was typed stands there as it was understood.
void CEventDialog::OnDateLeft(UINT nID)
{
    if (m_isFilling || (nID != IDC_START_DATE && nID != IDC_END_DATE)) {
        return;
    }
    std::vector<planner::FormProblem> problems;
    const planner::EventTimes times = planner::TimesOf(m_form, problems);
    if (problems.empty()) {
        const planner::LocalTime last = m_form.isAllDay ? times.end - 1 : times.end;
        m_isFilling = true;
        planner::SetItemUtf8(*this, static_cast<int>(nID),
                             planner::DateText(planner::DayOfTime(nID == IDC_START_DATE ? times.start : last)));
        m_isFilling = false;
        Update();
    }
}

BOOL CEventDialog::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    const NMHDR* header = reinterpret_cast<const NMHDR*>(lParam);
    if (header->hwndFrom != m_calendar.m_hWnd || header->code != static_cast<UINT>(MCN_SELECT)) {
        return CPlannerDialog::OnNotify(wParam, lParam, pResult);
    }
    const COleDateTime day(reinterpret_cast<const NMSELCHANGE*>(lParam)->stSelStart);
    planner::SetItemUtf8(*this, static_cast<int>(m_dateField),
                         planner::DateText(planner::DayOfTime(planner::LocalOfDate(day))));
    *pResult = 0;
    return TRUE;
}

// ---- Reminders

void CEventDialog::OnAddReminder()
{
    const std::int64_t seconds = SelectedData(*this, IDC_REMINDER_TIME);
    if (std::find(m_form.reminders.begin(), m_form.reminders.end(), seconds) == m_form.reminders.end()) {
        m_form.reminders.push_back(seconds);
        std::sort(m_form.reminders.rbegin(), m_form.reminders.rend());
        PutReminders();
    }
}

void CEventDialog::OnRemoveReminder()
{
    const LRESULT at = ::SendDlgItemMessage(m_hWnd, IDC_REMINDERS, LB_GETCURSEL, 0, 0);
    const std::size_t index = at >= 0 ? static_cast<std::size_t>(at) : 0;
    if (index < m_form.reminders.size()) {
        m_form.reminders.erase(m_form.reminders.begin() + static_cast<std::ptrdiff_t>(index));
        PutReminders();
    }
}

// ---- Paint and end

void CEventDialog::OnPaint()
{
    CPaintDC dc(this);
    CRect swatch;
    ::GetWindowRect(::GetDlgItem(m_hWnd, IDC_SWATCH), &swatch);
    ScreenToClient(&swatch);
    planner::Event like;
    like.categories = {m_form.category.substr(0, m_form.category.find(','))};
    like.location = m_form.place;
    if (like.categories.front().empty()) {
        like.categories.clear();
    }
    const planner::ItemColors& colors = planner::ColorsOf(like);
    dc.FillSolidRect(&swatch, colors.outline);
    swatch.DeflateRect(1, 1);
    dc.FillSolidRect(&swatch, colors.back);
}

HBRUSH CEventDialog::OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor)
{
    const HBRUSH brush = CPlannerDialog::OnCtlColor(pDC, pWnd, nCtlColor);
    const int id = pWnd ? ::GetDlgCtrlID(pWnd->m_hWnd) : 0;
    const bool isRule = id == IDC_RULE_SENTENCE && m_problems.count(FormField::Rule) != 0;
    if (id == IDC_START_PROBLEM || id == IDC_END_PROBLEM || isRule) {
        pDC->SetTextColor(dayvane::ThemeOr(Theme().headerHoliday, kProblemColor));
    }
    return brush;
}

void CEventDialog::OnOK()
{
    Update();
    for (const ProblemRow& row : kProblemRows) {
        if (m_problems.count(row.field) != 0) {
            ::MessageBeep(MB_ICONWARNING);
            ::SetFocus(::GetDlgItem(m_hWnd, row.control));
            return;
        }
    }
    CPlannerDialog::OnOK();
}
