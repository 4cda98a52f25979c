#pragma once

#define IDR_MAINFRAME 128

// Commands; those of files, undo, redo, delete, exit and about have the framework's identifiers.
#define ID_EDIT_NEW_ITEM 32771
#define ID_EDIT_RENAME 32772
#define ID_EDIT_RENAME_SERIES 32773
#define ID_EDIT_DELETE_SERIES 32774
#define ID_VIEW_TODAY 32780
#define ID_VIEW_PREVIOUS 32781
#define ID_VIEW_NEXT 32782
#define ID_VIEW_SIDE_PANE 32783
#define ID_VIEW_MESSAGES 32784
#define ID_VIEW_HOLIDAYS 32785
#define ID_VIEW_SOLAR_TERMS 32786
#define ID_VIEW_MONDAY_FIRST 32787
#define ID_VIEW_NEXT_PANE 32788

// The views, in the order of the table of views
#define ID_VIEW_DAY 32800
#define ID_VIEW_WORKING_WEEK 32801
#define ID_VIEW_WEEK 32802
#define ID_VIEW_DAYS 32803
#define ID_VIEW_DIARY 32804
#define ID_VIEW_MONTH 32805
#define ID_VIEW_MONTH2 32806
#define ID_VIEW_YEAR 32807
#define ID_VIEW_LAST ID_VIEW_YEAR

// N days: the first is 2 days
#define ID_DAYS_FIRST 32820
#define ID_DAYS_LAST 32832

// Rows an hour: whatever suits the items, then in the order of the table of time scales
#define ID_SCALE_AUTOMATIC 32840
#define ID_SCALE_FIRST 32841
#define ID_SCALE_LAST 32845
#define ID_SCALE_FINER 32846
#define ID_SCALE_COARSER 32847

// Windows
#define IDC_PICKER 1000
#define IDC_MINI_CALENDAR 1001
#define IDW_SIDE_PANE 0xE810
#define IDW_MESSAGE_PANE 0xE811
