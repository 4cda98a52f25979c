#!/usr/bin/python3
"""What an independent reader finds in a calendar file: python3-icalendar reads, dateutil expands.

read_calendar.py FILE YYYY-MM-DD YYYY-MM-DD: the occurrences that begin in the range, one a line, by start:
"2026-04-14 09:00 60min Title". Times are wall times as they are written.
"""
import datetime
import sys

import icalendar
from dateutil import rrule


def wall(value):
    """A date or time without its zone."""
    if isinstance(value, datetime.datetime):
        return value.replace(tzinfo=None)
    return datetime.datetime(value.year, value.month, value.day)


def as_list(value):
    return [] if value is None else value if isinstance(value, list) else [value]


def length(event):
    if "DTEND" in event:
        return wall(event["DTEND"].dt) - wall(event["DTSTART"].dt)
    if "DURATION" in event:
        return event["DURATION"].dt
    is_date = not isinstance(event["DTSTART"].dt, datetime.datetime)
    return datetime.timedelta(days=1 if is_date else 0)


def starts(event, begin, end):
    start = wall(event["DTSTART"].dt)
    if "RRULE" not in event:
        return [start]
    text = event["RRULE"].to_ical().decode().replace("Z", "")
    return rrule.rrulestr(text, dtstart=start).between(begin, end, inc=True)


def main():
    with open(sys.argv[1], "rb") as file:
        calendar = icalendar.Calendar.from_ical(file.read())
    begin, end = (datetime.datetime.strptime(text, "%Y-%m-%d") for text in sys.argv[2:4])
    events = calendar.walk("VEVENT")
    replaced = {(str(e.get("UID")), wall(e["RECURRENCE-ID"].dt)) for e in events if "RECURRENCE-ID" in e}
    lines = []
    for event in events:
        excluded = {wall(day.dt) for dates in as_list(event.get("EXDATE")) for day in dates.dts}
        for start in starts(event, begin, end):
            is_replaced = "RECURRENCE-ID" not in event and (str(event.get("UID")), start) in replaced
            if begin <= start < end and start not in excluded and not is_replaced:
                minutes = int(length(event).total_seconds() // 60)
                lines.append(f"{start:%Y-%m-%d %H:%M} {minutes}min {event.get('SUMMARY')}")
    print("\n".join(sorted(lines)))


main()
