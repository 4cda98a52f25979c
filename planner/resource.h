#pragma once

#define IDR_MAINFRAME 128

// Commands; those of files, undo, redo, delete, exit and about have the framework's identifiers.
#define ID_EDIT_NEW_ITEM 32771
#define ID_EDIT_RENAME 32772
#define ID_EDIT_RENAME_SERIES 32773
#define ID_EDIT_DELETE_SERIES 32774
#define ID_FILE_EXPORT_PAGES 32776
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

// Colours, in the order of planner::ThemeChoice
#define ID_THEME_FIRST 32860
#define ID_THEME_LAST 32864

// Size of the view
#define ID_ZOOM_IN 32870
#define ID_ZOOM_OUT 32871
#define ID_ZOOM_RESET 32872

// Page setup
#define IDD_PAGES 140
#define IDC_PAGES_FIRST 1100
#define IDC_PAPER 1100
#define IDC_ORIENTATION 1101
#define IDC_MARGIN_LEFT 1102
#define IDC_MARGIN_TOP 1103
#define IDC_MARGIN_RIGHT 1104
#define IDC_MARGIN_BOTTOM 1105
#define IDC_FONT_SIZE 1106
#define IDC_HOURS_FROM 1107
#define IDC_HOURS_TO 1108
#define IDC_HEADER_MONTHS 1109
#define IDC_FOOTER_TEXT 1110
#define IDC_IN_COLOR 1111
#define IDC_SHADE_WEEKENDS 1112
#define IDC_SHOW_TITLE 1113
#define IDC_PAGE_NUMBERS 1114
#define IDC_DATE_PRINTED 1115
#define IDC_NOTE_LINES 1116
#define IDC_LUNAR_DATES 1117
#define IDC_OTHER_DAYS 1118
#define IDC_YEAR_BOXES 1119
#define IDC_AS_LIST 1120
#define IDC_PAGES_LAST IDC_AS_LIST
#define IDC_PRINTER 1130
#define IDC_PICTURE 1131
#define IDC_PAGE_COUNT 1132

// Windows
#define IDC_PICKER 1000
#define IDC_MINI_CALENDAR 1001
#define IDW_SIDE_PANE 0xE810
#define IDW_MESSAGE_PANE 0xE811
