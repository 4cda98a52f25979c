// Of MFC's automation header the date and time classes.
#pragma once

#include <afx.h>
#include <atlcomtime.h>
