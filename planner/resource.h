#pragma once

#define IDR_MAINFRAME 128

// Commands; those of files, undo, redo, delete, exit and about have the framework's identifiers.
#define ID_EDIT_NEW_ITEM 32771
#define ID_EDIT_RENAME 32772
#define ID_EDIT_RENAME_SERIES 32773
#define ID_EDIT_DELETE_SERIES 32774
#define ID_EDIT_NEW_DETAILS 32775
#define ID_FILE_EXPORT_PAGES 32776
#define ID_EDIT_DETAILS 32777
#define ID_EDIT_GO_TO 32778
#define ID_FILE_IMPORT 32779
#define ID_VIEW_TODAY 32780
#define ID_VIEW_PREVIOUS 32781
#define ID_VIEW_NEXT 32782
#define ID_VIEW_SIDE_PANE 32783
#define ID_VIEW_MESSAGES 32784
#define ID_VIEW_HOLIDAYS 32785
#define ID_VIEW_SOLAR_TERMS 32786
#define ID_VIEW_MONDAY_FIRST 32787
#define ID_VIEW_NEXT_PANE 32788
#define ID_VIEW_REMINDERS 32789
#define ID_FILE_EXPORT_ITEMS 32790
#define ID_LANGUAGE_SYSTEM 32791
#define ID_LANGUAGE_ENGLISH 32792
#define ID_LANGUAGE_JAPANESE 32793
#define ID_FILE_OPEN_FURTHER 32794
#define ID_FILE_SAVE_WORKSPACE 32795

// The views, in the order of the table of views
#define ID_VIEW_DAY 32800
#define ID_VIEW_WORKING_WEEK 32801
#define ID_VIEW_WEEK 32802
#define ID_VIEW_DAYS 32803
#define ID_VIEW_DIARY 32804
#define ID_VIEW_MONTH 32805
#define ID_VIEW_MONTH2 32806
#define ID_VIEW_YEAR 32807
#define ID_VIEW_AGENDA 32808
#define ID_VIEW_LAST ID_VIEW_AGENDA

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

// Files opened before
#define ID_RECENT_FIRST 32880
#define ID_RECENT_LAST 32887

// View > Days, in the order of the table of choices, and the clock of another zone
#define ID_DAYS_SHOWN_FIRST 33100
#define ID_DAYS_SHOWN_LAST 33108
#define ID_ZONE_FIRST 33120
#define ID_ZONE_LAST 33129
#define ID_HOLIDAYS_LOAD 33130
#define ID_HOLIDAYS_BY_LAW 33131

// The list of calendars: of the chosen one
#define ID_CALENDAR_SHOW 33140
#define ID_CALENDAR_TARGET 33141
#define ID_CALENDAR_CLOSE 33142
#define ID_CALENDAR_COLOR_FIRST 33150 // by category, then those of the palette

// The icon beside the clock
#define ID_VIEW_TRAY 33260
#define ID_TRAY_OPEN 33261

// View > Categories: all, none, then those that there are
#define ID_CATEGORY_ALL 33200
#define ID_CATEGORY_FIRST 33201
#define ID_CATEGORY_LAST 33250

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
#define IDC_WIDEN_HOURS 1121
#define IDC_EMPTY_DAYS 1122
#define IDC_PAGE_LANGUAGE 1123
#define IDC_PAGES_LAST IDC_PAGE_LANGUAGE
#define IDC_PRINTER 1130
#define IDC_PICTURE 1131
#define IDC_PAGE_COUNT 1132

// The question how far an edit of a series goes
#define IDD_SCOPE 141
#define IDC_QUESTION 1140
#define IDC_SCOPE_THIS 1141
#define IDC_SCOPE_FOLLOWING 1142
#define IDC_SCOPE_SERIES 1143

// The dialog of an event; controls that change it lie in the range
#define IDD_EVENT 142
#define IDC_EVENT_FIRST 1200
#define IDC_TITLE 1200
#define IDC_START_DATE 1201
#define IDC_END_DATE 1202
#define IDC_START_TIME 1203
#define IDC_END_TIME 1204
#define IDC_ZONE 1205
#define IDC_PLACE 1206
#define IDC_CATEGORY 1207
#define IDC_NOTES 1208
#define IDC_RULE_KIND 1209
#define IDC_RULE_INTERVAL 1210
#define IDC_RULE_END 1211
#define IDC_RULE_LIMIT 1212
#define IDC_ALL_DAY 1220
#define IDC_BUSY 1221
#define IDC_PRIVATE 1222
#define IDC_WEEKDAY_FIRST 1223
#define IDC_WEEKDAY_LAST 1229
#define IDC_EVENT_LAST IDC_WEEKDAY_LAST
#define IDC_REMINDERS 1230
#define IDC_REMINDER_TIME 1231
#define IDC_ADD_REMINDER 1232
#define IDC_REMOVE_REMINDER 1233
#define IDC_START_PROBLEM 1234
#define IDC_END_PROBLEM 1235
#define IDC_RULE_SENTENCE 1236
#define IDC_DATE_CALENDAR 1237
#define IDC_DATE_MONTH 1238
#define IDC_SWATCH 1239
#define IDC_ZONE_CLOCK 1240

// Go to date
#define IDD_GO_TO 143
#define IDC_DATE_TYPED 1250
#define IDC_DATE_MEANING 1251

// Find
#define IDD_FIND 144
#define IDC_FIND_WORDS 1260
#define IDC_FIND_LIST 1261
#define IDC_FIND_COUNT 1262

// Reminders
#define IDD_REMINDERS 145
#define IDC_REMINDER_LIST 1270
#define IDC_DISMISS 1271
#define IDC_DISMISS_ALL 1272
#define IDC_SNOOZE 1273
#define IDC_SNOOZE_TIME 1274

// The file has changed outside
#define IDD_CHANGED 146
#define IDC_CHANGED_RELOAD 1280
#define IDC_CHANGED_MERGE 1281
#define IDC_CHANGED_OVERWRITE 1282
#define IDC_CHANGED_SAVE_AS 1283

// A work that takes long
#define IDD_PROGRESS 147
#define IDD_ASK 148
#define IDC_PROGRESS_WHAT 1290
#define IDC_PROGRESS_BAR 1291

// Windows
#define IDC_PICKER 1000
#define IDC_MINI_CALENDAR 1001
#define IDC_CALENDAR_LIST 1002
#define IDW_SIDE_PANE 0xE810
#define IDW_MESSAGE_PANE 0xE811
