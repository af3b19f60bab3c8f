; The installer. It installs for one user, without administrator rights. Jotwright keeps its notes
; beside the program, so the program goes into a folder in which the user has write access.
; scripts/make-installer builds it and defines
;
;   VERSION        for example 1.0.0
;   VERSION_MAJOR, VERSION_MINOR
;   WEB_SITE, SUPPORT   addresses for the list of programs
;   STAGE          the folder with the files to install; all its files are installed
;   FILES          an NSIS script with a line "!insertmacro ${EACH} <name>" for each of those files
;   OUTPUT         the installer to write
;   TARGET         amd64-unicode or x86-unicode
;   ICON           the icon of installer and uninstaller
;   PICTURES       the folder with side-<percent>.bmp, the picture beside the last page for each scale
;   SIGN           a command that signs the file whose name is appended to it
;
; Command line:    setup.exe [/S] [/STARTUP] [/D=folder]
;                  Uninstall.exe [/S] [/ERASE]
;   /S        silent: shows no window. A running copy saves its notes and is closed; afterwards it is
;             started again
;   /STARTUP  makes the shortcut that starts the program when the user signs in
;   /D        the folder to install into; must be the last argument, without quotes even if the path
;             contains blanks
;   /ERASE    also erases notes, special alarms and settings
; Exit codes:  0 success, 1 cancelled, 2 another failure, for example a full disk, 3 the program could
;              not be closed, 4 a file is in use, 5 uninstalled, but a shortcut for all users remains.
;              After 1 to 4 the old version is unchanged.

Unicode true
Target ${TARGET}
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true
ManifestSupportedOS all

!include "MUI2.nsh"
!include "LogicLib.nsh"
!include "FileFunc.nsh"
!include "WordFunc.nsh"
!include "Win\COM.nsh"

!define PROGRAM "Jotwright.exe"
!define PREPARED_SHORTCUT "Shortcut To Jotwright.lnk"
!define NOTES_SHORTCUT "Jotwright notes folder.lnk"
; The installer writes all new files here first. Then it exchanges each with its old version.
!define NEW_FILES "$INSTDIR\Setup.tmp"
!define APP_PATHS_KEY "Software\Microsoft\Windows\CurrentVersion\App Paths\${PROGRAM}"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Jotwright"
!define SETTINGS_KEY "Software\Jotwright"

Name "Jotwright"
OutFile "${OUTPUT}"
BrandingText "Jotwright ${VERSION}"
InstallDir "$LOCALAPPDATA\Programs\Jotwright"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Jotwright"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Jotwright setup"
VIAddVersionKey "CompanyName" "Jotwright"
VIAddVersionKey "LegalCopyright" "Copyright 2026 The Jotwright authors"
!uninstfinalize '${SIGN} "%1"'

Var Restart     ; 1 if a copy was running and must be started again
Var StartUp     ; 1 if the program is to start when the user signs in
Var Upgrade     ; 1 if a version was installed before
Var FileInUse   ; the name of the file that could not be replaced, or ""

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${PICTURES}/side-100.bmp"
!define MUI_ABORTWARNING
SpaceTexts none
AllowSkipFiles off

!define MUI_PAGE_CUSTOMFUNCTION_PRE SkipWhenInstalled
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN "$INSTDIR\${PROGRAM}"
!define MUI_FINISHPAGE_RUN_TEXT "Start Jotwright"
; The second box of this page.
!define MUI_FINISHPAGE_SHOWREADME ""
!define MUI_FINISHPAGE_SHOWREADME_TEXT "Start Jotwright when I sign in"
!define MUI_FINISHPAGE_SHOWREADME_NOTCHECKED
!define MUI_FINISHPAGE_SHOWREADME_FUNCTION AddToStartUp
!define MUI_PAGE_CUSTOMFUNCTION_PRE ChooseSidePicture
!define MUI_PAGE_CUSTOMFUNCTION_SHOW ShowStartUpBox
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE RemoveFromStartUp
!insertmacro MUI_PAGE_FINISH

!define MUI_COMPONENTSPAGE_SMALLDESC
!define MUI_COMPONENTSPAGE_TEXT_TOP "Jotwright will be removed from $INSTDIR. Your notes stay there unless you tick the second box."
!define MUI_COMPONENTSPAGE_TEXT_COMPLIST "Remove:"
!insertmacro MUI_UNPAGE_COMPONENTS
!insertmacro MUI_UNPAGE_INSTFILES

!define MUI_UNTEXT_COMPONENTS_TITLE "Remove Jotwright"
!define MUI_UNTEXT_COMPONENTS_SUBTITLE "This removes the program. Your notes stay unless you choose to erase them."
!insertmacro MUI_LANGUAGE "English"

!include "${__FILEDIR__}/shared.nsh"
!insertmacro SharedFunctions ""
!insertmacro SharedFunctions "un."

; ---- installing ----

; Skips the page for the folder in an upgrade: the program stays where the notes are.
Function SkipWhenInstalled
    ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
    ${If} $0 != ""
    ${AndIf} ${FileExists} "$0\${PROGRAM}"
        Abort
    ${EndIf}
FunctionEnd

; Asks before an older version replaces a newer one.
Function .onInit
    StrCpy $StartUp 0
    StrCpy $Upgrade 0
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/STARTUP" $1
    ${IfNot} ${Errors}
        StrCpy $StartUp 1
    ${EndIf}
    ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "DisplayVersion"
    ${If} $0 != ""
        StrCpy $Upgrade 1
        ${VersionCompare} $0 "${VERSION}" $1
        ${If} $1 = 1
            MessageBox MB_YESNO|MB_ICONQUESTION "Jotwright $0 is installed. This is the older version \
${VERSION}. Install it over the newer one? Your notes stay." /SD IDYES IDYES +3
            SetErrorLevel 1
            Quit
        ${EndIf}
    ${EndIf}
FunctionEnd

!include "${__FILEDIR__}/replace.nsh"

; Restarts the program after a silent upgrade and after a failure, because alarms ring only while it
; runs. In an upgrade with windows, the last page offers to start it.
Function RestartProgram
    ${If} $Restart = 1
        Exec '"$INSTDIR\${PROGRAM}"'
    ${EndIf}
FunctionEnd

Function .onInstFailed
    ${IfNot} ${FileExists} "${NEW_FILES}\*.old"
        RMDir /r "${NEW_FILES}"
    ${EndIf}
    RMDir "$INSTDIR"
    Call RestartProgram
FunctionEnd

Section "Jotwright" SectionInstall
    SetShellVarContext current
    StrCpy $Restart 0
    Call CloseProgram

    ; An earlier setup was killed while it replaced files.
    ${If} ${FileExists} "${NEW_FILES}\*.old"
        Call RestoreFiles
    ${EndIf}
    RMDir /r "${NEW_FILES}"
    SetOutPath "${NEW_FILES}"
    File "${STAGE}/*.*"
    ClearErrors
    WriteUninstaller "${NEW_FILES}\Uninstall.exe"
    ${If} ${Errors}
        SetErrorLevel 2
        Abort
    ${EndIf}
    SetOutPath "$INSTDIR"
    Call ReplaceFiles
    RMDir /r "${NEW_FILES}"

    CreateShortcut "$INSTDIR\${PREPARED_SHORTCUT}" "$INSTDIR\${PROGRAM}" "" "$INSTDIR\${PROGRAM}" 0 \
        SW_SHOWNORMAL "" "Jotwright"
    CreateShortcut "$SMPROGRAMS\Jotwright.lnk" "$INSTDIR\${PROGRAM}" "" "$INSTDIR\${PROGRAM}" 0 \
        SW_SHOWNORMAL "" "Desktop notes with alarms"
    CreateDirectory "$INSTDIR\Notes"
    CreateShortcut "$SMPROGRAMS\${NOTES_SHORTCUT}" "$INSTDIR\Notes" "" "" "" \
        SW_SHOWNORMAL "" "The notes, one text file each"
    ${If} $StartUp = 1
        Call AddToStartUp
    ${EndIf}
    WriteRegStr HKCU "${APP_PATHS_KEY}" "" "$INSTDIR\${PROGRAM}"

    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Jotwright"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "VersionMajor" ${VERSION_MAJOR}
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "VersionMinor" ${VERSION_MINOR}
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\${PROGRAM}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "The Jotwright authors"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "Comments" "Desktop notes with alarms"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "Contact" "${SUPPORT}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "HelpLink" "${WEB_SITE}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "URLInfoAbout" "${WEB_SITE}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "URLUpdateInfo" "${WEB_SITE}"
    ${GetTime} "" "L" $0 $1 $2 $3 $4 $5 $6
    WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallDate" "$2$1$0"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
    SectionGetSize ${SectionInstall} $0
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" $0

    ${If} ${Silent}
        Call RestartProgram
    ${EndIf}
SectionEnd

; ---- the last page ----

; The shortcut has the name that the program's option "Start Jotwright when Windows starts" knows.
Function AddToStartUp
    SetShellVarContext current
    CreateShortcut "$SMSTARTUP\${PREPARED_SHORTCUT}" "$INSTDIR\${PROGRAM}" "" "$INSTDIR\${PROGRAM}" 0 \
        SW_SHOWNORMAL "" "Jotwright"
FunctionEnd

; The page loads its picture after this function. $1: dots per inch.
!macro SidePicture percent
    File "/oname=$PLUGINSDIR\modern-wizard.bmp" "${PICTURES}/side-${percent}.bmp"
!macroend
Function ChooseSidePicture
    System::Call 'user32::GetDC(p 0) p .r0'
    System::Call 'gdi32::GetDeviceCaps(p r0, i 88) i .r1'   ; LOGPIXELSX
    System::Call 'user32::ReleaseDC(p 0, p r0)'
    ${If} $1 > 240
        !insertmacro SidePicture 300
    ${ElseIf} $1 > 216
        !insertmacro SidePicture 250
    ${ElseIf} $1 > 192
        !insertmacro SidePicture 225
    ${ElseIf} $1 > 168
        !insertmacro SidePicture 200
    ${ElseIf} $1 > 144
        !insertmacro SidePicture 175
    ${ElseIf} $1 > 120
        !insertmacro SidePicture 150
    ${ElseIf} $1 > 96
        !insertmacro SidePicture 125
    ${EndIf}
FunctionEnd

; The box is ticked for a new user and after /STARTUP; in an upgrade it shows the present state.
Function ShowStartUpBox
    StrCpy $0 "$SMSTARTUP\${PREPARED_SHORTCUT}"
    ${If} $StartUp = 1
    ${OrIf} $Upgrade = 0
    ${OrIf} ${FileExists} $0
        SendMessage $mui.FinishPage.ShowReadme ${BM_SETCHECK} ${BST_CHECKED} 0
    ${EndIf}
FunctionEnd

Function RemoveFromStartUp
    SendMessage $mui.FinishPage.ShowReadme ${BM_GETCHECK} 0 0 $0
    ${If} $0 <> ${BST_CHECKED}
        StrCpy $0 "$SMSTARTUP\${PREPARED_SHORTCUT}"
        StrCpy $4 "${PROGRAM}"
        Call DeleteOurShortcut
    ${EndIf}
FunctionEnd

; ---- uninstalling ----

Section "un.Jotwright" SectionProgram
    SectionIn RO
    Call un.CloseProgram

    StrCpy $4 "${PROGRAM}"
    SetShellVarContext current
    StrCpy $0 "$SMSTARTUP\${PREPARED_SHORTCUT}"
    Call un.DeleteOurShortcut
    StrCpy $0 "$SMPROGRAMS\Jotwright.lnk"
    Call un.DeleteOurShortcut
    StrCpy $4 "Notes"
    StrCpy $0 "$SMPROGRAMS\${NOTES_SHORTCUT}"
    Call un.DeleteOurShortcut
    ReadRegStr $0 HKCU "${APP_PATHS_KEY}" ""
    ${If} $0 == "$INSTDIR\${PROGRAM}"
        DeleteRegKey HKCU "${APP_PATHS_KEY}"
    ${EndIf}

    !define EACH DeleteFile
    !include "${FILES}"
    !undef EACH
    Delete "$INSTDIR\${PREPARED_SHORTCUT}"
    Delete "$INSTDIR\Uninstall.exe"
    RMDir /r "${NEW_FILES}"   ; left by a setup that was killed
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
    ; RMDir removes a folder only if it is empty, so it never deletes notes.
    RMDir "$INSTDIR\Notes"
    RMDir "$INSTDIR"

    ; If the program runs as administrator, its option "Start Jotwright when Windows starts" makes a
    ; shortcut for all users. Deleting it needs the same rights.
    SetShellVarContext all
    StrCpy $4 "${PROGRAM}"
    StrCpy $0 "$SMSTARTUP\${PREPARED_SHORTCUT}"
    Call un.DeleteOurShortcut
    ${If} $3 == "$INSTDIR\$4"
    ${AndIf} ${FileExists} $0
        SetErrorLevel 5
        MessageBox MB_OK|MB_ICONINFORMATION "Jotwright has been removed. Only an administrator can \
delete this shortcut, which Jotwright had made for all users:$\r$\n$\r$\n$0" /SD IDOK
    ${EndIf}
    SetShellVarContext current
SectionEnd

; Deletes only files that the program makes. Other files in these folders stay.
Section /o "un.Erase my notes, special alarms and settings" SectionErase
    Delete "$INSTDIR\Notes\*.txt"
    Delete "$INSTDIR\Notes\*.replaced"
    Delete "$INSTDIR\Notes\*.damaged"
    Delete "$INSTDIR\Notes\~*.recovery"
    Delete "$INSTDIR\Notes\~Jotwright*.tmp"
    RMDir "$INSTDIR\Notes"
    Delete "$INSTDIR\SpecialAlarms\SpecialAlarms.txt"
    Delete "$INSTDIR\SpecialAlarms\*.replaced"
    Delete "$INSTDIR\SpecialAlarms\~Jotwright*.tmp"
    RMDir "$INSTDIR\SpecialAlarms"
    RMDir "$INSTDIR"
    DeleteRegKey HKCU "${SETTINGS_KEY}"
SectionEnd

Function un.onInit
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/ERASE" $1
    ${IfNot} ${Errors}
        !insertmacro SelectSection ${SectionErase}
    ${EndIf}
FunctionEnd

!insertmacro MUI_UNFUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionProgram} "The program and its shortcuts."
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionErase} \
        "All your notes, special alarms and options. You cannot restore them."
!insertmacro MUI_UNFUNCTION_DESCRIPTION_END
