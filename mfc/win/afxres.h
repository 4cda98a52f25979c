// Standard command and window identifiers of the framework. Included by C++ sources and by resource scripts, so this
// file holds nothing but definitions of numbers.
#ifndef AFXRES_H
#define AFXRES_H

#ifdef RC_INVOKED
#include <windows.h>
#endif

#ifndef IDC_STATIC
#define IDC_STATIC (-1)
#endif

// Strings that a document template and a frame look up
#define AFX_IDS_APP_TITLE 0xE000
#define AFX_IDS_IDLEMESSAGE 0xE001
#define AFX_IDS_UNTITLED 0xF003

// Child windows of a frame
#define AFX_IDW_CONTROLBAR_FIRST 0xE800
#define AFX_IDW_CONTROLBAR_LAST 0xE8FF
#define AFX_IDW_TOOLBAR 0xE800
#define AFX_IDW_STATUS_BAR 0xE801
#define AFX_IDW_PANE_FIRST 0xE900
#define AFX_IDW_PANE_LAST 0xE9FF

// File commands
#define ID_FILE_NEW 0xE100
#define ID_FILE_OPEN 0xE101
#define ID_FILE_CLOSE 0xE102
#define ID_FILE_SAVE 0xE103
#define ID_FILE_SAVE_AS 0xE104
#define ID_FILE_PAGE_SETUP 0xE105
#define ID_FILE_PRINT_SETUP 0xE106
#define ID_FILE_PRINT 0xE107
#define ID_FILE_PRINT_DIRECT 0xE108
#define ID_FILE_PRINT_PREVIEW 0xE109
#define ID_FILE_MRU_FILE1 0xE110

// Edit commands
#define ID_EDIT_CLEAR 0xE120
#define ID_EDIT_CLEAR_ALL 0xE121
#define ID_EDIT_COPY 0xE122
#define ID_EDIT_CUT 0xE123
#define ID_EDIT_FIND 0xE124
#define ID_EDIT_PASTE 0xE125
#define ID_EDIT_REPEAT 0xE128
#define ID_EDIT_REPLACE 0xE129
#define ID_EDIT_SELECT_ALL 0xE12A
#define ID_EDIT_UNDO 0xE12B
#define ID_EDIT_REDO 0xE12C

// Application and help commands
#define ID_APP_ABOUT 0xE140
#define ID_APP_EXIT 0xE141

// View commands share the identifiers of the bars that they show and hide
#define ID_VIEW_TOOLBAR 0xE800
#define ID_VIEW_STATUS_BAR 0xE801

// Status bar panes
#define ID_SEPARATOR 0
#define ID_INDICATOR_CAPS 0xE701
#define ID_INDICATOR_NUM 0xE702
#define ID_INDICATOR_SCRL 0xE703

#endif
