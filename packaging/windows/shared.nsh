; Macros of setup.nsi: how it fails, for whom it installs, what must not be in use, and which of the keys that
; programs share it has made.

; A silent run has nothing but its exit status to tell what went wrong.
!macro Fail STATUS TEXT
  MessageBox MB_OK|MB_ICONSTOP "${TEXT}" /SD IDOK
  SetErrorLevel ${STATUS}
  Quit
!macroend

!macro FindPlace
  ${If} $MultiUser.InstallMode == "AllUsers"
    StrCpy $place machine
  ${Else}
    StrCpy $place user
  ${EndIf}
!macroend

; The registry of this system's own programs, whatever bits this program has: 64 in what follows.
!macro UseOwnRegistry
  ${If} ${RunningX64}
    SetRegView 64
  ${Else}
    SetRegView 32
  ${EndIf}
!macroend

!macro UseRegistry VIEW
  !if ${VIEW} = 64
    !insertmacro UseOwnRegistry
  !else
    SetRegView ${VIEW}
  !endif
!macroend

; Whether a file can be written anew: nobody uses it.
!macro RequireUnused FILE
  ${If} ${FileExists} "${FILE}"
    ClearErrors
    FileOpen $R8 "${FILE}" a
    ${If} ${Errors}
      !insertmacro Fail ${IN_USE} "${FILE} is in use. Close the programs that use ${NAME}, and start again."
    ${EndIf}
    FileClose $R8
  ${EndIf}
!macroend

!macro RequireAllUnused FOLDER
  !insertmacro RequireUnused "${FOLDER}\x86\Quarvel.dll"
  !insertmacro RequireUnused "${FOLDER}\x64\Quarvel.dll"
  !insertmacro RequireUnused "${FOLDER}\quarvel.exe"
  !insertmacro RequireUnused "${FOLDER}\quarvel-view.exe"
!macroend

; ---------------------------------------------------------------------------------------------------------
; Keys that other programs share with us: those that were missing before are deleted in the end when
; nothing has come into them. Programs of 32 bits may have their own; deeper ones come first.

!macro ForSharedKeys DO
  !insertmacro ${DO} 32 "Software\Classes\CLSID"
  !insertmacro ${DO} 32 "Software\Classes\Interface"
  !insertmacro ${DO} 32 "Software\Classes\TypeLib"
  !insertmacro ${DO} 64 "Software\Classes\CLSID"
  !insertmacro ${DO} 64 "Software\Classes\Interface"
  !insertmacro ${DO} 64 "Software\Classes\TypeLib"
  !insertmacro ${DO} 64 "Software\Classes\Wow6432Node"
  !insertmacro ${DO} 32 "Software\Classes"
  !insertmacro ${DO} 64 "Software\Classes"
  !insertmacro ${DO} 64 "${UNINSTALL_PARENT}"
!macroend

!macro NoteWhenMissing VIEW KEY
  !insertmacro UseRegistry ${VIEW}
  ClearErrors
  EnumRegKey $R1 SHCTX "${KEY}" 0
  ${If} ${Errors}
    StrCpy $made_keys "$made_keys|${VIEW} ${KEY}|"
  ${EndIf}
!macroend

!macro DeleteWhenMade VIEW KEY
  ${UnStrStr} $R1 $made_keys "|${VIEW} ${KEY}|"
  ${If} $R1 != ""
    !insertmacro UseRegistry ${VIEW}
    DeleteRegKey /ifempty SHCTX "${KEY}"
  ${EndIf}
!macroend
