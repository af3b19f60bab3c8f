; Replacing the files of the old version: all of them or none. FILES and NEW_FILES are defined in
; jotwright.nsi.

; Moves the file $0 from NEW_FILES to its place and the old one, if there is one, to NEW_FILES. Sets
; FileInUse if another program holds the old one for more than five seconds.
Function ReplaceFile
    ${If} $FileInUse != ""
        Return
    ${EndIf}
    ${If} ${FileExists} "$INSTDIR\$0"
        StrCpy $1 0
        ${Do}
            ClearErrors
            Rename "$INSTDIR\$0" "${NEW_FILES}\$0.old"
            ${IfNot} ${Errors}
                ${ExitDo}
            ${EndIf}
            ${If} $1 = 50
                StrCpy $FileInUse $0
                Return
            ${EndIf}
            Sleep 100
            IntOp $1 $1 + 1
        ${Loop}
    ${EndIf}
    ClearErrors
    Rename "${NEW_FILES}\$0" "$INSTDIR\$0"
    ${If} ${Errors}
        StrCpy $FileInUse $0
    ${EndIf}
FunctionEnd

; Undoes ReplaceFile.
Function RestoreFile
    ${IfNot} ${FileExists} "${NEW_FILES}\$0"
        Delete "$INSTDIR\$0"
    ${EndIf}
    ${If} ${FileExists} "${NEW_FILES}\$0.old"
        Rename "${NEW_FILES}\$0.old" "$INSTDIR\$0"
    ${EndIf}
FunctionEnd

!macro ReplaceFile name
    StrCpy $0 "${name}"
    Call ReplaceFile
!macroend
!macro RestoreFile name
    StrCpy $0 "${name}"
    Call RestoreFile
!macroend
!macro DeleteFile name
    Delete "$INSTDIR\${name}"
!macroend

Function RestoreFiles
    !define EACH RestoreFile
    !include "${FILES}"
    !undef EACH
    !insertmacro RestoreFile "Uninstall.exe"
FunctionEnd

Function ReplaceFiles
    ${Do}
        StrCpy $FileInUse ""
        !define EACH ReplaceFile
        !include "${FILES}"
        !undef EACH
        !insertmacro ReplaceFile "Uninstall.exe"
        ${If} $FileInUse == ""
            Return
        ${EndIf}
        Call RestoreFiles
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Another program is using $INSTDIR\$FileInUse. \
Close that program, and then press Retry. If you press Cancel, the old version stays." \
            /SD IDCANCEL IDRETRY +3
        SetErrorLevel 4
        Abort
    ${Loop}
FunctionEnd
