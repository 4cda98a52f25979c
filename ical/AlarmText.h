#pragma once

#include "ComponentText.h"
#include "Event.h"

#include <cstdint>
#include <vector>

// The VALARM parts of an event's text.
namespace dayvane::ical {

// Alarms without a readable TRIGGER are left out.
std::vector<Alarm> ReadAlarms(const ComponentText& event);

// Takes out the reminders that are not wanted and adds those that are missing; every other alarm keeps its bytes.
void SetReminders(ComponentText& event, const std::vector<std::int64_t>& secondsBefore);

// Writes ACKNOWLEDGED (RFC 9074, section 6) into every alarm.
void SetAcknowledged(ComponentText& event, LocalTime utc);

} // namespace dayvane::ical
