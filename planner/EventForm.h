// What the event dialog shows and gives back: pure values, no window. Texts are UTF-8, dates and times as typed.
#pragma once

#include "planner/Calendar.h"
#include "planner/RuleForm.h"

#include <string>
#include <vector>

namespace planner {

struct EventForm
{
    std::string title, place, notes;
    std::string category;
    bool isAllDay = false;
    std::string startDate, startTime, endDate, endTime; // of an all-day event the end is its last day
    DayNumber aboutDay = 0; // the day that the form began with: what short dates are taken from
    std::string zone;       // a TZID, see Document::Zones
    RuleForm rule;
    std::vector<std::int64_t> reminders; // seconds before the start, descending
    bool isBusy = true;
    bool isPrivate = false;
};

enum class FormField
{
    StartDate,
    StartTime,
    EndDate,
    EndTime,
    Rule
};

struct FormProblem
{
    FormField field;
    std::string text; // in the current language
};

EventForm FormOf(const Occurrence& occurrence);
EventForm NewForm(const EventTimes& times, const std::string& zone);

// The times that the form says; `problems` gets what is wrong with them.
EventTimes TimesOf(const EventForm& form, std::vector<FormProblem>& problems);

// What is wrong, field by field; empty: nothing.
std::vector<FormProblem> ProblemsOf(const EventForm& form);

// The fields in which the form differs from what it was. Of a form without problems. `zone` is the clock of the event.
EventChanges ChangesOf(const EventForm& before, const EventForm& after, const ZonePtr& zone);
// Whether there is anything in it.
bool IsEmpty(const EventChanges& changes);

// The end dates and times that keep the length when the start has changed from what it was in `before`.
void KeepLength(const EventForm& before, EventForm& form);

// "10 minutes", "1 hour", "2 days" in the current language; 0: "at the start".
std::string ReminderText(std::int64_t seconds);
// The times that a list offers.
const std::vector<std::int64_t>& OfferedReminders();

} // namespace planner
