#!/usr/bin/python3
"""What GNOME's reader of iCalendar (libical) finds in a calendar file: it reads, converts zones and expands.

read_calendar.py FILE YYYY-MM-DD YYYY-MM-DD: the occurrences that begin in the range, one a line, by start:
"2026-04-14 09:00 60min Title". Times are those of the clock that an event is written in.
"""
import datetime
import sys

import gi

gi.require_version("ICalGLib", "3.0")
from gi.repository import ICalGLib  # noqa: E402

UTC = datetime.timezone.utc


def instant(time, zone=None):
    """A time of libical as seconds since 1970; `zone` is that of a time that has none of its own."""
    return time.as_timet_with_zone(time.get_timezone() or zone or ICalGLib.Timezone.get_utc_timezone())


def written(seconds, zone):
    time = ICalGLib.Time.new_from_timet_with_zone(seconds, 0, zone or ICalGLib.Timezone.get_utc_timezone())
    return datetime.datetime(*time.get_date(), *time.get_time()[:2])


def events_of(component):
    event = component.get_first_component(ICalGLib.ComponentKind.VEVENT_COMPONENT)
    while event:
        yield event
        event = component.get_next_component(ICalGLib.ComponentKind.VEVENT_COMPONENT)


def replaced_of(event):
    """The start that the event replaces one of; None: it replaces none."""
    time = event.get_recurrenceid()
    return None if time.is_null_time() else instant(time, event.get_dtstart().get_timezone())


def spans_of(event, begin, end):
    spans = []
    event.foreach_recurrence(begin, end, lambda _, span, *rest: spans.append((span.get_start(), span.get_end())))
    if event.get_dtstart().is_date():  # its spans of days reach into the day behind
        length = instant(event.get_dtend()) - instant(event.get_dtstart())
        return [(first, first + length) for first, _ in spans]
    return spans


def main():
    with open(sys.argv[1], encoding="utf-8", newline="") as file:
        calendar = ICalGLib.Component.new_from_string(file.read())
    begin, end = (ICalGLib.Time.new_from_string(text.replace("-", "") + "T000000Z") for text in sys.argv[2:4])
    events = list(events_of(calendar))
    replaced = {(event.get_uid(), replaced_of(event)) for event in events} - {(e.get_uid(), None) for e in events}
    lines = []
    for event in events:
        own = replaced_of(event)
        zone = event.get_dtstart().get_timezone()
        for first, last in spans_of(event, begin, end):
            is_in = instant(begin) <= first < instant(end)
            if is_in and (own is not None or (event.get_uid(), first) not in replaced):
                lines.append(f"{written(first, zone):%Y-%m-%d %H:%M} {(last - first) // 60}min {event.get_summary()}")
    print("\n".join(sorted(lines)))


main()
