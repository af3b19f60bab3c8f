; The installer. It installs for one user, without administrator rights. Jotwright keeps its notes
; beside the program, so the program goes into a folder in which the user has write access.
; scripts/make-installer builds it and defines
;
;   VERSION        for example 1.0.0
;   STAGE          the folder with the files to install; all its files are installed
;   DELETE_FILES   an NSIS script that deletes exactly those files from $INSTDIR
;   OUTPUT         the installer to write
;   TARGET         amd64-unicode or x86-unicode
;   ICON           the icon of installer and uninstaller
;   SIDE_PICTURE   the picture beside the last page
;
; Command line:    setup.exe [/S] [/D=folder]
;                  Uninstall.exe [/S] [/ERASE]
;   /S       silent: shows no window. A running copy saves its notes and is closed; after an upgrade
;            it is started again. Exit codes: 0 success, 3 the program could not be closed.
;   /D       the folder to install into; must be the last argument, without quotes even if the path
;            contains blanks
;   /ERASE   also erases notes, special alarms and settings

Unicode true
Target ${TARGET}
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true
ManifestSupportedOS all

!include "MUI2.nsh"
!include "LogicLib.nsh"
!include "FileFunc.nsh"
!include "Win\COM.nsh"

!define PROGRAM "Jotwright.exe"
!define PREPARED_SHORTCUT "Shortcut To Jotwright.lnk"
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
VIAddVersionKey "LegalCopyright" "The Jotwright authors"

Var Restart     ; 1 if a copy was running and must be started again

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${SIDE_PICTURE}"
!define MUI_ABORTWARNING
SpaceTexts none

!define MUI_PAGE_CUSTOMFUNCTION_PRE SkipWhenInstalled
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN "$INSTDIR\${PROGRAM}"
!define MUI_FINISHPAGE_RUN_TEXT "Start Jotwright"
!insertmacro MUI_PAGE_FINISH

!define MUI_COMPONENTSPAGE_SMALLDESC
!define MUI_COMPONENTSPAGE_TEXT_TOP "Jotwright will be removed from $INSTDIR. Your notes stay there unless you tick the second box."
!define MUI_COMPONENTSPAGE_TEXT_COMPLIST "Remove:"
!insertmacro MUI_UNPAGE_COMPONENTS
!insertmacro MUI_UNPAGE_INSTFILES

!define MUI_UNTEXT_COMPONENTS_TITLE "Remove Jotwright"
!define MUI_UNTEXT_COMPONENTS_SUBTITLE "This removes the program. Your notes stay unless you choose to erase them."
!insertmacro MUI_LANGUAGE "English"

; ---- functions that installer and uninstaller share ----

!macro SharedFunctions un

; Pushes 1 if the program in $INSTDIR is running, otherwise 0. The file of a running program cannot be
; opened for writing.
Function ${un}ProgramRuns
    Push $0
    StrCpy $0 0
    ${If} ${FileExists} "$INSTDIR\${PROGRAM}"
        ClearErrors
        FileOpen $0 "$INSTDIR\${PROGRAM}" a
        ${If} ${Errors}
            StrCpy $0 1
        ${Else}
            FileClose $0
            StrCpy $0 0
        ${EndIf}
    ${EndIf}
    Exch $0
FunctionEnd

; Ends the program in $INSTDIR in the way that Windows does when the user signs out: the program saves
; all open notes without asking. Does not end copies that run from other folders.
Function ${un}EndProgram
    Push $0
    Push $1
    Push $2
    Push $3
    StrCpy $0 0
    ${Do}
        FindWindow $0 "FormsUtility" "" 0 $0
        ${If} $0 P= 0
            ${ExitDo}
        ${EndIf}
        System::Call 'user32::GetWindowThreadProcessId(p r0, *i .r1)'
        ; PROCESS_QUERY_LIMITED_INFORMATION
        System::Call 'kernel32::OpenProcess(i 0x1000, i 0, i r1) p .r2'
        StrCpy $3 ""
        System::Call 'kernel32::QueryFullProcessImageNameW(p r2, i 0, w .r3, *i ${NSIS_MAX_STRLEN})'
        System::Call 'kernel32::CloseHandle(p r2)'
        ${If} $3 == "$INSTDIR\${PROGRAM}"
            ; lParam 1 is ENDSESSION_CLOSEAPP. Unlike Windows, the installer does not kill the
            ; program if it keeps running after these messages.
            SendMessage $0 ${WM_QUERYENDSESSION} 0 1 $1 /TIMEOUT=5000
            ${If} $1 <> 0
                SendMessage $0 ${WM_ENDSESSION} 1 1 /TIMEOUT=10000
            ${EndIf}
            ${ExitDo}
        ${EndIf}
    ${Loop}
    Pop $3
    Pop $2
    Pop $1
    Pop $0
FunctionEnd

; Closes the program in $INSTDIR if it is running. Returns only if it has ended; otherwise quits the
; installer.
Function ${un}CloseProgram
    Push $0
    Push $1
    Call ${un}ProgramRuns
    Pop $0
    ${If} $0 = 1
        MessageBox MB_OKCANCEL|MB_ICONINFORMATION \
            "Jotwright is running and will be closed. Open notes will be saved." \
            /SD IDOK IDOK +2
        Quit
        StrCpy $Restart 1
        ${Do}
            Call ${un}EndProgram
            StrCpy $1 0
            ${DoWhile} $1 < 50
                Call ${un}ProgramRuns
                Pop $0
                ${If} $0 = 0
                    ${ExitDo}
                ${EndIf}
                Sleep 100
                IntOp $1 $1 + 1
            ${Loop}
            ${If} $0 = 0
                ${ExitDo}
            ${EndIf}
            SetErrorLevel 3
            MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
                "Jotwright could not be closed. Right click the blue N in the notification area, \
choose Exit, and then press Retry." /SD IDCANCEL IDRETRY +2
            Quit
            SetErrorLevel 0
        ${Loop}
    ${EndIf}
    Pop $1
    Pop $0
FunctionEnd

!macroend

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

Section "Jotwright" SectionInstall
    SetShellVarContext current
    StrCpy $Restart 0
    Call CloseProgram

    SetOutPath "$INSTDIR"
    File "${STAGE}/*.*"
    WriteUninstaller "$INSTDIR\Uninstall.exe"
    CreateShortcut "$INSTDIR\${PREPARED_SHORTCUT}" "$INSTDIR\${PROGRAM}" "" "$INSTDIR\${PROGRAM}" 0 \
        SW_SHOWNORMAL "" "Jotwright"
    CreateShortcut "$SMPROGRAMS\Jotwright.lnk" "$INSTDIR\${PROGRAM}" "" "$INSTDIR\${PROGRAM}" 0 \
        SW_SHOWNORMAL "" "Desktop notes with alarms"

    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Jotwright"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\${PROGRAM}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "The Jotwright authors"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
    SectionGetSize ${SectionInstall} $0
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" $0

    ; Restart the program after a silent upgrade, because alarms ring only while it runs. In an
    ; upgrade with windows, the last page offers to start it.
    ${If} ${Silent}
    ${AndIf} $Restart = 1
        Exec '"$INSTDIR\${PROGRAM}"'
    ${EndIf}
SectionEnd

; ---- uninstalling ----

; Deletes the shortcut $0 if it starts the program in $INSTDIR.
Function un.DeleteOurShortcut
    ${IfNot} ${FileExists} $0
        Return
    ${EndIf}
    StrCpy $3 ""
    !insertmacro ComHlpr_CreateInProcInstance ${CLSID_ShellLink} ${IID_IShellLink} r1 ""
    ${If} $1 P<> 0
        ${IUnknown::QueryInterface} $1 '("${IID_IPersistFile}", .r2)'
        ${If} $2 P<> 0
            ${IPersistFile::Load} $2 '("$0", 0)'
            ; SLGP_RAWPATH
            ${IShellLink::GetPath} $1 '(.r3, ${NSIS_MAX_STRLEN}, p0, 4)'
            ${IUnknown::Release} $2 ""
        ${EndIf}
        ${IUnknown::Release} $1 ""
    ${EndIf}
    ${If} $3 == "$INSTDIR\${PROGRAM}"
        Delete $0
    ${EndIf}
FunctionEnd

Section "un.Jotwright" SectionProgram
    SectionIn RO
    Call un.CloseProgram

    ; The option "Start Jotwright when Windows starts" makes the shortcut for all users. Deleting it
    ; needs the same rights as making it; without them it stays.
    SetShellVarContext all
    StrCpy $0 "$SMSTARTUP\${PREPARED_SHORTCUT}"
    Call un.DeleteOurShortcut
    SetShellVarContext current
    StrCpy $0 "$SMSTARTUP\${PREPARED_SHORTCUT}"
    Call un.DeleteOurShortcut
    StrCpy $0 "$SMPROGRAMS\Jotwright.lnk"
    Call un.DeleteOurShortcut

    !include "${DELETE_FILES}"
    Delete "$INSTDIR\${PREPARED_SHORTCUT}"
    Delete "$INSTDIR\Uninstall.exe"
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
    ; RMDir removes the folder only if it is empty, so it never deletes notes.
    RMDir "$INSTDIR"
SectionEnd

; Deletes only files that the program makes. Other files in these folders stay.
Section /o "un.Erase my notes, special alarms and settings" SectionErase
    Delete "$INSTDIR\Notes\*.txt"
    Delete "$INSTDIR\Notes\~*.recovery"
    Delete "$INSTDIR\Notes\~Jotwright*.tmp"
    RMDir "$INSTDIR\Notes"
    Delete "$INSTDIR\SpecialAlarms\SpecialAlarms.txt"
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
