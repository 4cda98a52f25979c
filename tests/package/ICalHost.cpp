// A host that reads, expands and edits calendar files with the installed library, and uses none of the controls.
// snippet include
#include <dayvane/ical/ICal.h>
// end of snippet

#include <cstdio>
#include <string>
#include <vector>

using namespace dayvane::ical;

// snippet agenda
// The titles of a day, each with its time: "09:00 Meeting".
std::vector<std::string> Agenda(const Document& calendar, int year, int month, int day)
{
    const LocalTime begin = DayOfDate(year, month, day) * kDaySeconds;
    std::vector<std::string> lines;
    for (const Occurrence& occurrence : calendar.OccurrencesIn(begin, begin + kDaySeconds)) {
        const CivilTime start = CivilOfTime(occurrence.times.start);
        char clock[32];
        std::snprintf(clock, sizeof(clock), "%02d:%02d ", start.hour, start.minute);
        lines.push_back((occurrence.times.isAllDay ? "" : clock) + occurrence.event->summary);
    }
    return lines;
}
// end of snippet

// snippet postpone
// From that occurrence on an hour later; single events just move.
bool Postpone(Document& calendar, const OccurrenceId& id)
{
    const auto occurrence = calendar.Find(id);
    if (!occurrence) {
        return false;
    }
    EventTimes times = occurrence->times;
    times.start += kHourSeconds;
    times.end += kHourSeconds;
    const EditResult result = calendar.Move(id, times, Scope::ThisAndFollowing);
    if (!result.isDone) {
        std::printf("%s\n", result.problem.c_str());
    }
    return result.isDone;
}
// end of snippet

// snippet plan
// A new event that repeats, in one step that Undo takes back as one.
bool PlanReview(Document& calendar)
{
    EventTimes times;
    times.start = TimeOfCivil({2026, 11, 27, 15, 0, 0});
    times.end = times.start + kHourSeconds;
    const EditResult created = calendar.Create(times, "Review");
    EventChanges changes;
    changes.location = "Room 3";
    changes.categories = {"Team"};
    changes.rule = "FREQ=MONTHLY;BYDAY=-1FR;COUNT=6";
    return created.isDone && calendar.Change(created.id, changes).isDone;
}
// end of snippet

// snippet open
// Reads a file that may be large; what is odd in it does not hide the rest.
bool Open(Document& calendar, const std::string& bytes)
{
    const bool isRead = calendar.Load(bytes, [](std::size_t done, std::size_t all) {
        std::printf("%d %%\n", static_cast<int>(100.0 * done / all));
        return true; // false: the user has seen enough
    });
    for (const Message& message : calendar.Messages()) {
        std::printf("line %d: %s\n", message.line, message.text.c_str());
    }
    return isRead;
}
// end of snippet

int main()
{
    const std::string file = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nX-OURS:kept  as it is\r\nBEGIN:VEVENT\r\nUID:1\r\n"
                             "DTSTART:20261123T090000\r\nDURATION:PT30M\r\nRRULE:FREQ=DAILY\r\nSUMMARY:Meeting\r\n"
                             "END:VEVENT\r\nEND:VCALENDAR\r\n";
    Document calendar;
    if (!Open(calendar, file) || calendar.Save() != file || Agenda(calendar, 2026, 11, 25).at(0) != "09:00 Meeting") {
        std::printf("the file was not read as it is\n");
        return 1;
    }
    const LocalTime wednesday = DayOfDate(2026, 11, 25) * kDaySeconds;
    const OccurrenceId meeting = calendar.OccurrencesIn(wednesday, wednesday + kDaySeconds).at(0).id;
    if (!Postpone(calendar, meeting) || Agenda(calendar, 2026, 11, 24).at(0) != "09:00 Meeting" ||
        Agenda(calendar, 2026, 11, 25).at(0) != "10:00 Meeting" || !PlanReview(calendar) ||
        Agenda(calendar, 2026, 12, 25).at(1) != "15:00 Review") {
        std::printf("the calendar was not edited as asked\n");
        return 1;
    }
    while (calendar.CanUndo()) {
        calendar.Undo();
    }
    return calendar.Save() == file ? 0 : 1;
}
