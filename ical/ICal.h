// Calendar files (iCalendar, RFC 5545): read, expand to occurrences, edit, write with every foreign byte kept.
#pragma once

#include "CivilTime.h"
#include "Document.h"
#include "Event.h"
#include "Messages.h"
#include "Occurrences.h"
#include "UidSource.h"
