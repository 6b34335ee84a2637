; The installer for Windows, made by packaging/windows/build, which names VERSION, STAGE (the folder with
; what is installed), LISTS (installed.nsh and removed.nsh, made of that folder) and OUTPUT.
;   /S                     asks nothing
;   /AllUsers, /CurrentUser  for everybody, which needs an administrator, or for who installs alone
;   /D=FOLDER              the program's folder; stands last
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
ManifestDPIAware true

!define NAME "Orvane Detailing System"
!define TYPE "Lintaro.Orvane.Job"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Orvane"

; Who is no administrator isn't asked for one, and installs for himself.
!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_USE_PROGRAMFILES64
!define MULTIUSER_INSTALLMODE_INSTDIR "Orvane"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${UNINSTALL}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "${UNINSTALL}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "InstallLocation"
!include MultiUser.nsh
!include MUI2.nsh
!include LogicLib.nsh

Name "${NAME}"
OutFile "${OUTPUT}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=0 "ProductName" "${NAME}"
VIAddVersionKey /LANG=0 "CompanyName" "Lintaro"
VIAddVersionKey /LANG=0 "FileDescription" "${NAME}, installer"
VIAddVersionKey /LANG=0 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=0 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=0 "LegalCopyright" "(c) Lintaro. All rights reserved."

!define MUI_ICON "${ICONS}/program.ico"
!define MUI_UNICON "${ICONS}/program.ico"
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; Same: pops two paths, pushes 1 if both files are there and hold the same bytes, else 0.
!macro DefineSame prefix
Function ${prefix}Same
  Exch $R0
  Exch
  Exch $R1
  Push $R2
  Push $R3
  Push $R4
  Push $R5
  Push $R6
  StrCpy $R6 0
  ClearErrors
  FileOpen $R2 $R0 r
  ${If} ${Errors}
    Goto told
  ${EndIf}
  FileOpen $R3 $R1 r
  ${If} ${Errors}
    FileClose $R2
    Goto told
  ${EndIf}
  next:
    ClearErrors
    FileReadByte $R2 $R4
    ${If} ${Errors}
      ; The one has ended: so must the other.
      ClearErrors
      FileReadByte $R3 $R5
      ${If} ${Errors}
        StrCpy $R6 1
      ${EndIf}
      Goto compared
    ${EndIf}
    FileReadByte $R3 $R5
    ${If} ${Errors}
      Goto compared
    ${EndIf}
    ${If} $R4 == $R5
      Goto next
    ${EndIf}
  compared:
  FileClose $R2
  FileClose $R3
  told:
  ClearErrors
  StrCpy $R0 $R6
  Pop $R6
  Pop $R5
  Pop $R4
  Pop $R3
  Pop $R2
  Pop $R1
  Exch $R0
FunctionEnd
!macroend
!insertmacro DefineSame ""
!insertmacro DefineSame "un."

; A file of the catalogue. The folder "shipped" keeps it as it came, so that the next version knows
; whether anybody edited it. An edited one stays, and the new one is laid beside it, as NAME.new.EXT.
!macro LayEdited folder name ending
  StrCpy $1 "$INSTDIR\${folder}${name}${ending}"
  StrCpy $2 "$INSTDIR\shipped\${folder}${name}${ending}"
  StrCpy $3 "$INSTDIR\${folder}${name}.new${ending}"
  StrCpy $0 1
  ${If} ${FileExists} $1
    Push $1
    Push $2
    Call Same
    Pop $0
  ${EndIf}
  SetOutPath "$INSTDIR\shipped\${folder}"
  File "${STAGE}/${folder}${name}${ending}"
  Delete $3
  ${If} $0 = 1
    CopyFiles /SILENT $2 $1
  ${Else}
    Push $1
    Push $2
    Call Same
    Pop $0
    ${If} $0 = 0
      CopyFiles /SILENT $2 $3
    ${EndIf}
  ${EndIf}
!macroend

; Removes it if nobody edited it.
!macro RemoveEdited folder name ending
  Push "$INSTDIR\${folder}${name}${ending}"
  Push "$INSTDIR\shipped\${folder}${name}${ending}"
  Call un.Same
  Pop $0
  ${If} $0 = 1
    Delete "$INSTDIR\${folder}${name}${ending}"
  ${EndIf}
  Delete "$INSTDIR\${folder}${name}.new${ending}"
  Delete "$INSTDIR\shipped\${folder}${name}${ending}"
!macroend

; Leaves where the program runs, since its files can't be replaced then.
!macro LeaveWhereItRuns
  ${If} ${FileExists} "$INSTDIR\orvane.exe"
    again:
    ClearErrors
    FileOpen $0 "$INSTDIR\orvane.exe" a
    ${If} ${Errors}
      MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
        "${NAME} is running, or its files can't be written. Close it first." /SD IDCANCEL IDRETRY again
      SetErrorLevel 2
      Quit
    ${EndIf}
    FileClose $0
  ${EndIf}
!macroend

; Tells the desktop that types of files have changed.
!macro TellTypes
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

Function .onInit
  SetRegView 64
  !insertmacro MULTIUSER_INIT
FunctionEnd

Function un.onInit
  SetRegView 64
  !insertmacro MULTIUSER_UNINIT
  ; It stands in the folder that it was installed to, for everybody or for one.
  ReadRegStr $0 HKCU "${UNINSTALL}" "InstallLocation"
  ${If} $0 == $INSTDIR
    Call un.MultiUser.InstallMode.CurrentUser
    StrCpy $INSTDIR $0
  ${EndIf}
FunctionEnd

Section
  !insertmacro LeaveWhereItRuns
  ClearErrors
  !include "${LISTS}/installed.nsh"
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  ${If} ${Errors}
    SetErrorLevel 2
    MessageBox MB_OK|MB_ICONSTOP "Not all files could be written to $INSTDIR." /SD IDOK
    Quit
  ${EndIf}

  CreateShortcut "$SMPROGRAMS\${NAME}.lnk" "$INSTDIR\orvane.exe"

  WriteRegStr SHCTX "Software\Classes\.ovd" "" "${TYPE}"
  WriteRegStr SHCTX "Software\Classes\.ovd\OpenWithProgids" "${TYPE}" ""
  WriteRegStr SHCTX "Software\Classes\${TYPE}" "" "Orvane job"
  WriteRegStr SHCTX "Software\Classes\${TYPE}\DefaultIcon" "" "$INSTDIR\orvane.exe,1"
  WriteRegStr SHCTX "Software\Classes\${TYPE}\shell\open\command" "" '"$INSTDIR\orvane.exe" "%1"'
  !insertmacro TellTypes

  WriteRegStr SHCTX "${UNINSTALL}" "DisplayName" "${NAME}"
  WriteRegStr SHCTX "${UNINSTALL}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL}" "DisplayIcon" "$INSTDIR\orvane.exe,0"
  WriteRegStr SHCTX "${UNINSTALL}" "Publisher" "Lintaro"
  WriteRegStr SHCTX "${UNINSTALL}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr SHCTX "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD SHCTX "${UNINSTALL}" "EstimatedSize" ${SIZE}
  WriteRegDWORD SHCTX "${UNINSTALL}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL}" "NoRepair" 1
SectionEnd

; Files that the users made, edited ones of the catalogue too, stay, and so do their settings.
Section "Uninstall"
  !insertmacro LeaveWhereItRuns
  !include "${LISTS}/removed.nsh"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\${NAME}.lnk"

  ReadRegStr $0 SHCTX "Software\Classes\.ovd" ""
  ${If} $0 == "${TYPE}"
    DeleteRegValue SHCTX "Software\Classes\.ovd" ""
  ${EndIf}
  DeleteRegValue SHCTX "Software\Classes\.ovd\OpenWithProgids" "${TYPE}"
  DeleteRegKey /ifempty SHCTX "Software\Classes\.ovd\OpenWithProgids"
  DeleteRegKey /ifempty SHCTX "Software\Classes\.ovd"
  DeleteRegKey SHCTX "Software\Classes\${TYPE}"
  !insertmacro TellTypes
  DeleteRegKey SHCTX "${UNINSTALL}"
SectionEnd
