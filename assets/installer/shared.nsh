; The functions that installer and uninstaller share: closing the program, reading shortcuts.

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

; Sets $3 to the path that the shortcut $0 leads to, or to "". Changes $1 and $2.
Function ${un}ReadShortcut
    StrCpy $3 ""
    ${IfNot} ${FileExists} $0
        Return
    ${EndIf}
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
FunctionEnd

; Deletes the shortcut $0 if it leads to $INSTDIR\$4.
Function ${un}DeleteOurShortcut
    Call ${un}ReadShortcut
    ${If} $3 == "$INSTDIR\$4"
        Delete $0
    ${EndIf}
FunctionEnd

!macroend
