// The window messages by which a CYearMonthPickerCtrl reports each step to its parent. All are sent, none is posted;
// lParam is the picker's control identifier, wParam a month as year x 100 + month (1 .. 12) unless stated.
//
//   dropped by the user                YMN_DROPDOWN
//   a month picked                     YMN_CLOSEUP, YMN_SELENDOK, and YMN_DATECHANGE when it is another date
//   left without a month               YMN_CLOSEUP, YMN_SELENDCANCEL
//
// The popup sends YMN_SELENDOK and YMN_SELENDCANCEL to its picker as well, with an lParam of 0.
#pragma once

constexpr unsigned YMN_DATECHANGE = 6025;   // the date that is being stored differs from the one before
constexpr unsigned YMN_DROPDOWN = 6026;     // the popup has opened; wParam: the current date's month
constexpr unsigned YMN_CLOSEUP = 6027;      // the popup is closing; wParam as in the message that follows
constexpr unsigned YMN_SELENDOK = 6028;     // a month has been picked
constexpr unsigned YMN_SELENDCANCEL = 6029; // nothing has been picked; wParam 0
