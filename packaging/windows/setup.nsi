; The set-up program for Windows. packaging/windows/make_setup gives VERSION, X64 and X86 (the folders of
; the zips), INSERTIONS and DELETIONS (commands that write and delete what both systems have in common),
; ICONS and OUTPUT. What users see of it, its switches and its exit statuses: docs/install.md.
Unicode true
SetCompressor /SOLID lzma
SetOverwrite try ; a file that cannot be written is told in the end
SetDateSave off ; files get the time of their installation, and the set-up program holds none

!define NAME "Quarvel"
!define PUBLISHER "The Quarvel developers"
!define FILE_TYPE "Quarvel.Model"
!define UNINSTALL_PARENT "Software\Microsoft\Windows\CurrentVersion\Uninstall"
!define UNINSTALL_KEY "${UNINSTALL_PARENT}\${NAME}"

!define NOT_ALLOWED 3
!define IN_USE 4
!define OLDER_STAYS 5
!define NOT_WRITTEN 6
!define NOT_REGISTERED 7

!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "${UNINSTALL_KEY}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_INSTDIR "${NAME}"
!define MULTIUSER_INSTALLMODE_FUNCTION TakeOverChoices
!include MultiUser.nsh
!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include x64.nsh

Name "${NAME} ${VERSION}"
OutFile "${OUTPUT}"
BrandingText " "
!define MUI_ICON "${ICONS}/quarvel.ico"
!define MUI_UNICON "${ICONS}/quarvel.ico"
!define MUI_COMPONENTSPAGE_NODESC
VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
VIAddVersionKey CompanyName "${PUBLISHER}"
VIAddVersionKey FileDescription "${NAME} set-up"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey InternalName "setup"
VIAddVersionKey LegalCopyright "Copyright (c) 2026 The Quarvel developers. MIT licence."
VIAddVersionKey OriginalFilename "quarvel-${VERSION}-windows-setup.exe"
VIAddVersionKey ProductName "${NAME}"
VIAddVersionKey ProductVersion "${VERSION}"

!insertmacro MUI_PAGE_LICENSE "${X86}/licence.txt"
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

Var place       ; "machine" or "user": where the component is registered
Var older       ; the folder of the version that is installed already, or empty
Var given       ; the folder that /D= names, or empty
Var made_keys   ; the shared keys that were missing before, each as "|VIEW KEY|"
Var made_folder ; the outermost folder that was missing before, or empty
Var removed     ; "yes" when the uninstaller has done its work

!include "packaging/windows/shared.nsh"

; ---------------------------------------------------------------------------------------------------------

; Whenever it is decided for whom.
Function TakeOverChoices
  ReadRegStr $older SHCTX "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $given != ""
    StrCpy $INSTDIR $given
  ${ElseIf} $older != ""
    StrCpy $INSTDIR $older
  ${ElseIf} $MultiUser.InstallMode == "AllUsers"
  ${AndIf} ${RunningX64}
    StrCpy $INSTDIR "$PROGRAMFILES64\${NAME}"
  ${EndIf}
  Call ChooseSections
FunctionEnd

Function .onInit
  StrCpy $given $INSTDIR
  !insertmacro UseOwnRegistry
  ; Asked here as well, where it ends a silent run without a box.
  ${GetParameters} $R0
  ClearErrors
  ${GetOptions} $R0 "/AllUsers" $R1
  ${IfNot} ${Errors}
    UserInfo::GetAccountType
    Pop $R1
    ${If} $R1 != "Admin"
    ${AndIf} $R1 != "Power"
      !insertmacro Fail ${NOT_ALLOWED} "Only an administrator can install ${NAME} for all users."
    ${EndIf}
  ${EndIf}
  !insertmacro MULTIUSER_INIT
FunctionEnd

; ---------------------------------------------------------------------------------------------------------
; What is installed. The uninstaller takes each out again, last things first.

; $R9: the exit status, 0 when it was done.
!macro Register BITS WORDS
  ClearErrors
  ExecWait '"$INSTDIR\${BITS}\register.exe" $place ${WORDS} "$INSTDIR\${BITS}\Quarvel.dll"' $R9
  ${If} ${Errors}
    StrCpy $R9 1
  ${EndIf}
!macroend

; Removes the folder $R6 when it is empty, and so on above it up to $made_folder, when there is one.
!macro RemoveFolders
  ${Do}
    RMDir $R6
    ${If} $made_folder == ""
    ${OrIf} $R6 == $made_folder
    ${OrIf} $R6 == ""
      ${Break}
    ${EndIf}
    ${GetParent} $R6 $R6
  ${Loop}
!macroend

; Only what was installed: what a user has put there stays.
!macro DeleteFiles
  !include "${DELETIONS}"
  SetOutPath "$TEMP"
  Delete "$INSTDIR\uninstall.exe"
  StrCpy $R6 $INSTDIR
  !insertmacro RemoveFolders
!macroend

; Takes out what stands in the folder $R6, by its own uninstaller. $R9: 0 when it was done.
Function TakeOut
  ReadRegStr $made_folder SHCTX "${UNINSTALL_KEY}" "MadeFolder"
  ClearErrors
  ExecWait '"$R6\uninstall.exe" /S /KEEPSELF _?=$R6' $R9
  ${If} ${Errors}
    StrCpy $R9 1
  ${EndIf}
  ${If} $R9 = 0
    Delete "$R6\uninstall.exe"
    !insertmacro RemoveFolders
  ${EndIf}
FunctionEnd

Function NoteMadeFolder
  StrCpy $made_folder ""
  StrCpy $R6 $INSTDIR
  ${DoUntil} ${FileExists} "$R6\*.*"
    StrCpy $made_folder $R6
    ${GetParent} $R6 $R6
    ${If} $R6 == ""
      ${Break}
    ${EndIf}
  ${Loop}
FunctionEnd

; One that has done its work a moment ago is about to go, with its folder.
Function AwaitUninstaller
  ${For} $R1 1 25
    ${IfNot} ${FileExists} "$INSTDIR\uninstall.exe"
      ${Break}
    ${EndIf}
    Sleep 200
  ${Next}
FunctionEnd

Section "Programs and component" Programs
  SectionIn RO
  !insertmacro FindPlace
  !insertmacro RequireAllUnused "$INSTDIR"
  ${If} $older != ""
    !insertmacro RequireAllUnused "$older"
  ${EndIf}
  ${If} ${FileExists} "$older\uninstall.exe"
    StrCpy $R6 $older
    Call TakeOut
    ${If} $R9 <> 0
      !insertmacro Fail ${OLDER_STAYS} "The version that is installed could not be removed."
    ${EndIf}
  ${EndIf}
  Call AwaitUninstaller
  Call NoteMadeFolder
  StrCpy $made_keys ""
  !insertmacro ForSharedKeys NoteWhenMissing
  !insertmacro UseOwnRegistry

  ClearErrors
  !include "${INSERTIONS}"
  SetOutPath "$INSTDIR"
  ${If} ${RunningX64}
    File "${X64}/quarvel.exe"
    File "${X64}/quarvel-view.exe"
    SetOutPath "$INSTDIR\x64"
    File "${X64}/Quarvel.dll"
    File "${X64}/Quarvel.Component.manifest"
    File "${X64}/quarvel.tlb"
    File "${X64}/quarvel.readme.txt"
    File "/oname=register.exe" "${X64}.register.exe"
  ${Else}
    File "${X86}/quarvel.exe"
    File "${X86}/quarvel-view.exe"
  ${EndIf}
  SetOutPath "$INSTDIR\x86"
  File "${X86}/Quarvel.dll"
  File "${X86}/Quarvel.Component.manifest"
  File "${X86}/quarvel.tlb"
  File "${X86}/quarvel.readme.txt"
  File "/oname=register.exe" "${X86}.register.exe"
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  ${If} ${Errors}
    !insertmacro DeleteFiles
    !insertmacro Fail ${NOT_WRITTEN} "The files could not be written to $INSTDIR."
  ${EndIf}

  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "${NAME}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "${PUBLISHER}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\quarvel-view.exe"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  ; With its folder told it works where it stands, and who waits for it waits for all that it does.
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe" _?=$INSTDIR'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S _?=$INSTDIR'
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "MadeKeys" "$made_keys"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "MadeFolder" "$made_folder"

  ; That of 64 bits last: where a user's registration is one for both kinds, it is that of this system.
  !insertmacro Register x86 ""
  ${If} $R9 = 0
  ${AndIf} ${RunningX64}
    !insertmacro Register x64 ""
  ${EndIf}
  ${If} $R9 <> 0
    StrCpy $R6 $INSTDIR
    SetOutPath "$TEMP"
    Call TakeOut
    !insertmacro Fail ${NOT_REGISTERED} "The component could not be registered."
  ${EndIf}
SectionEnd

Section "Entry in the start menu" StartMenu
  SetOutPath "$INSTDIR"
  CreateShortcut "$SMPROGRAMS\${NAME}.lnk" "$INSTDIR\quarvel-view.exe" "--edit" "" 0 SW_SHOWNORMAL "" \
    "Linear and mixed-integer models"
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "StartMenu" 1
SectionEnd

; The key of .mps files may be another program's: what it said before comes back with the uninstaller.
Section /o "Open .mps files with the viewer" FileType
  !insertmacro NoteWhenMissing 64 "Software\Classes\.mps"
  !insertmacro UseOwnRegistry
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "MadeKeys" "$made_keys"
  WriteRegStr SHCTX "Software\Classes\${FILE_TYPE}" "" "Linear or mixed-integer model"
  WriteRegStr SHCTX "Software\Classes\${FILE_TYPE}\DefaultIcon" "" "$INSTDIR\quarvel-view.exe,0"
  WriteRegStr SHCTX "Software\Classes\${FILE_TYPE}\shell\open\command" "" '"$INSTDIR\quarvel-view.exe" --edit -- "%1"'
  ReadRegStr $R1 SHCTX "Software\Classes\.mps" ""
  WriteRegStr SHCTX "Software\Classes\.mps" "" "${FILE_TYPE}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "FileTypeBefore" "$R1"
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "FileType" 1
  ${RefreshShellIcons}
SectionEnd

; As the version before had it, else as DEFAULT says, unless the command line says otherwise.
!macro Choose SECTION SWITCH VALUE_NAME DEFAULT
  StrCpy $R1 ${DEFAULT}
  ${If} $older != ""
    ReadRegDWORD $R1 SHCTX "${UNINSTALL_KEY}" "${VALUE_NAME}"
  ${EndIf}
  ClearErrors
  ${GetOptions} $R0 "/${SWITCH}=" $R2
  ${IfNot} ${Errors}
    StrCpy $R1 $R2
  ${EndIf}
  ${If} $R1 = 1
    !insertmacro SelectSection ${SECTION}
  ${Else}
    !insertmacro UnselectSection ${SECTION}
  ${EndIf}
!macroend

Function ChooseSections
  ${GetParameters} $R0
  !insertmacro Choose ${StartMenu} STARTMENU "StartMenu" 1
  !insertmacro Choose ${FileType} MPS "FileType" 0
FunctionEnd

; ---------------------------------------------------------------------------------------------------------

; It is told by the folder for whom it was installed.
Function un.onInit
  !insertmacro UseOwnRegistry
  !insertmacro MULTIUSER_UNINIT
  ReadRegStr $R1 HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $R1 == $INSTDIR
    Call un.MultiUser.InstallMode.CurrentUser
  ${Else}
    Call un.MultiUser.InstallMode.AllUsers
    ${If} $MultiUser.InstallMode != "AllUsers"
      !insertmacro Fail ${NOT_ALLOWED} "Only an administrator can remove what was installed for all users."
    ${EndIf}
  ${EndIf}
FunctionEnd

; A program that runs cannot be deleted: the system's command interpreter waits until this one has ended,
; and takes it away with the folders that it was alone in. Not when a newer version takes its place.
Function un.AtEnd
  ${GetParameters} $R0
  ClearErrors
  ${GetOptions} $R0 "/KEEPSELF" $R1
  ${IfNot} ${Errors}
  ${OrIf} $removed != "yes"
    Return
  ${EndIf}
  StrCpy $R1 'del /f "$EXEPATH" & rd "$EXEDIR"'
  StrCpy $R6 $INSTDIR
  ${Do}
    StrCpy $R1 '$R1 & rd "$R6"'
    ${If} $made_folder == ""
    ${OrIf} $R6 == $made_folder
    ${OrIf} $R6 == ""
      ${Break}
    ${EndIf}
    ${GetParent} $R6 $R6
  ${Loop}
  SetOutPath "$SYSDIR"
  StrCpy $R2 'if exist "$EXEPATH" ping 127.0.0.1 >nul'
  ExecShell "" "$SYSDIR\cmd.exe" '/d /c ping -n 2 127.0.0.1 >nul & $R1 & $R2 -n 5 & $R1 & $R2 -n 20 & $R1' SW_HIDE
FunctionEnd

Function un.onGUIEnd
  Call un.AtEnd
FunctionEnd

Section Uninstall
  !insertmacro FindPlace
  !insertmacro RequireAllUnused "$INSTDIR"
  ReadRegStr $made_keys SHCTX "${UNINSTALL_KEY}" "MadeKeys"
  ReadRegStr $made_folder SHCTX "${UNINSTALL_KEY}" "MadeFolder"

  ReadRegDWORD $R1 SHCTX "${UNINSTALL_KEY}" "FileType"
  ${If} $R1 = 1
    ReadRegStr $R2 SHCTX "Software\Classes\.mps" ""
    ReadRegStr $R3 SHCTX "${UNINSTALL_KEY}" "FileTypeBefore"
    ${If} $R2 == "${FILE_TYPE}"
      ${If} $R3 == ""
        DeleteRegValue SHCTX "Software\Classes\.mps" ""
      ${Else}
        WriteRegStr SHCTX "Software\Classes\.mps" "" "$R3"
      ${EndIf}
    ${EndIf}
    !insertmacro DeleteWhenMade 64 "Software\Classes\.mps"
    !insertmacro UseOwnRegistry
    DeleteRegKey SHCTX "Software\Classes\${FILE_TYPE}"
    ${un.RefreshShellIcons}
  ${EndIf}

  ReadRegDWORD $R1 SHCTX "${UNINSTALL_KEY}" "StartMenu"
  ${If} $R1 = 1
    Delete "$SMPROGRAMS\${NAME}.lnk"
  ${EndIf}

  ${If} ${FileExists} "$INSTDIR\x64\register.exe"
    !insertmacro Register x64 "/u"
  ${EndIf}
  !insertmacro Register x86 "/u"
  DeleteRegKey SHCTX "${UNINSTALL_KEY}"
  !insertmacro ForSharedKeys DeleteWhenMade
  !insertmacro UseOwnRegistry

  !insertmacro DeleteFiles
  StrCpy $removed yes
  ${If} ${Silent}
    Call un.AtEnd
  ${EndIf}
SectionEnd
