; The installer: what the zip has, for one user or for all of the machine.
;
;   setup.exe [/S] [/CurrentUser | /AllUsers] [/D=FOLDER]      /S: no windows; /D must be last and takes no quotes
;   uninstall.exe [/S] [/CurrentUser | /AllUsers]
;
; Defined by tools/package.sh: VERSION, OUT (the file to make), FILES and REMOVALS (what is copied, what is removed
; again, one line for each file and folder).

Unicode true
SetCompressor /SOLID lzma
Name "Dayvane ${VERSION}"
OutFile "${OUT}"

!define REGISTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Dayvane"
!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_INSTDIR "Dayvane"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${REGISTRY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "${REGISTRY}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_DEFAULT_CURRENTUSER
!include MultiUser.nsh
!include MUI2.nsh

!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "Japanese"

Function .onInit
    StrCpy $0 $INSTDIR ; of /D
    !insertmacro MULTIUSER_INIT
    StrCmp $0 "" +2
        StrCpy $INSTDIR $0
FunctionEnd

Function un.onInit
    !insertmacro MULTIUSER_UNINIT
FunctionEnd

Section
    !include "${FILES}"
    SetOutPath "$INSTDIR"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateDirectory "$SMPROGRAMS\Dayvane"
    CreateShortcut "$SMPROGRAMS\Dayvane\Planner.lnk" "$INSTDIR\win32\bin\planner.exe"
    CreateShortcut "$SMPROGRAMS\Dayvane\Documents.lnk" "$INSTDIR\html\index.html"
    WriteRegStr SHCTX "${REGISTRY}" "DisplayName" "Dayvane ${VERSION}"
    WriteRegStr SHCTX "${REGISTRY}" "DisplayVersion" "${VERSION}"
    WriteRegStr SHCTX "${REGISTRY}" "DisplayIcon" "$INSTDIR\win32\bin\planner.exe"
    WriteRegStr SHCTX "${REGISTRY}" "InstallLocation" "$INSTDIR"
    WriteRegStr SHCTX "${REGISTRY}" "UninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode'
    WriteRegStr SHCTX "${REGISTRY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode /S'
    WriteRegDWORD SHCTX "${REGISTRY}" "NoModify" 1
    WriteRegDWORD SHCTX "${REGISTRY}" "NoRepair" 1
SectionEnd

; Only what was copied is removed: a folder in which somebody has put files of his own stays, with these.
Section Uninstall
    !include "${REMOVALS}"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    Delete "$SMPROGRAMS\Dayvane\Planner.lnk"
    Delete "$SMPROGRAMS\Dayvane\Documents.lnk"
    RMDir "$SMPROGRAMS\Dayvane"
    DeleteRegKey SHCTX "${REGISTRY}"
    SetShellVarContext current ; the planner's settings are always the user's
    Delete "$APPDATA\Dayvane Planner\planner.ini"
    RMDir "$APPDATA\Dayvane Planner"
SectionEnd
