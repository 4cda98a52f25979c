// Windows, messages, drawing, controls, the application, documents and views: the part of MFC that Dayvane and its
// hosts use. A class or member enters when a caller needs it. Under Visual C++ the genuine header takes its place.
// The smaller headers included here are not included alone.
#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#include <commctrl.h>
#include <commdlg.h>
#include <shellapi.h>

#include <afx.h>
#include <afxtempl.h>
#include <atltypes.h>

#include "afxgdi.h"
#include "afxdc.h"
#include "afxmsgwm.h"
#include "afxres.h"
#include "afxtarget.h"
#include "afxwnd.h"
#include "afxcontrols.h"
#include "afxapp.h"
#include "afxdocview.h"
