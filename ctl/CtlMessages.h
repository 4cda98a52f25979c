// The messages of the C interface. Each has a handler; what follows from the table (kind of control, pointer, size
// of the record) has been checked when it is called.
#pragma once

#include "CtlWindow.h"
#include "dayvane_ctl.h"

namespace dayvane::ctl {

// The answer to a message from DVM_FIRST to DVM_LAST. Nothing is thrown.
LRESULT AnswerMessage(CtlWindow& control, UINT message, WPARAM wParam, LPARAM lParam);

// What the handlers share. A failure of one of these is the handler's answer.
constexpr LRESULT kDone = 1;
constexpr LRESULT kNone = 0;

// Whether something that stands for a pointer can be one: small numbers are handed over by mistake only.
bool IsPointer(LPARAM value);
// FALSE for anything that is no date of the years 100 to 9999.
bool ToDate(const SYSTEMTIME& time, COleDateTime& date);
// All zero for a date that is not valid.
SYSTEMTIME FromDate(const COleDateTime& date);
bool IsItem(const CtlWindow& control, int index);
// Lays out and repaints.
void Refresh(CtlWindow& control);

#define DV_MESSAGE(number, handler, controls, record)                                                                  \
    LRESULT On##handler(CtlWindow& control, WPARAM wParam, LPARAM lParam);
#include "Messages.inc"
#undef DV_MESSAGE

} // namespace dayvane::ctl
