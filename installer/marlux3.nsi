; Marlux 3. The set-up program: puts the module and its help into the host's plug-in folder.
;
;   marlux3-setup.exe            asks where only when the host's folder is not known
;   marlux3-setup.exe /S         no questions; ends with 2 when the folder is not known, 3 when a file is in use
;   marlux3-setup.exe /S /D=DIR  into that folder
;
; Recordings, schedules, tasks and settings are the user's: the uninstaller leaves them alone.
; Given by the build: VERSION, MODULE, HELP, ICON, OUTPUT.

Unicode true
ManifestDPIAware true
SetCompressor /SOLID lzma
RequestExecutionLevel admin
Name "Marlux 3"
OutFile "${OUTPUT}"
Icon "${ICON}"
UninstallIcon "${ICON}"
BrandingText "Marlux ${VERSION}"
ShowInstDetails nevershow
ShowUninstDetails nevershow

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Marlux 3"
VIAddVersionKey "FileDescription" "Set-up of Marlux 3"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" ""

!include LogicLib.nsh
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Marlux3"
!define UNINSTALLER "marlux3-uninstall.exe"
!define FOLDER_UNKNOWN 2
!define FILE_IN_USE 3

Var folderKnown
Page directory skipWhenKnown "" checkFolder
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles
DirText "The plug-in folder of your receiver program was not found. Choose the folder from which it loads its plug-ins."

; A folder given on the command line wins, then the environment, then what the host's own set-up registered.
Function .onInit
  StrCpy $folderKnown 1
  ${If} $INSTDIR == ""
    ReadEnvStr $INSTDIR "ZQN_PLUGIN_PATH"
  ${EndIf}
  ${If} $INSTDIR == ""
    ReadRegStr $INSTDIR HKLM "Software\ZQN" "SearchPath"
  ${EndIf}
  ${If} $INSTDIR == ""
    StrCpy $folderKnown 0
    ${If} ${Silent}
      SetErrorLevel ${FOLDER_UNKNOWN}
      Quit
    ${EndIf}
    StrCpy $INSTDIR "$PROGRAMFILES32"
  ${EndIf}
FunctionEnd

Function skipWhenKnown
  ${If} $folderKnown == 1
    Abort
  ${EndIf}
FunctionEnd

Function checkFolder
  ${IfNot} ${FileExists} "$INSTDIR\*.*"
    MessageBox MB_ICONEXCLAMATION "This folder does not exist."
    Abort
  ${EndIf}
FunctionEnd

; A module that a running host has loaded cannot be replaced: nothing at all is changed then.
!macro StopWhenInUse
  ${If} ${FileExists} "$INSTDIR\marlux3.dll"
    ClearErrors
    FileOpen $0 "$INSTDIR\marlux3.dll" a
    ${If} ${Errors}
      MessageBox MB_ICONSTOP "Marlux 3 is in use. Close your receiver program, then try again." /SD IDOK
      SetErrorLevel ${FILE_IN_USE}
      Quit
    ${EndIf}
    FileClose $0
  ${EndIf}
!macroend

Section
  !insertmacro StopWhenInUse
  SetOutPath "$INSTDIR"
  ClearErrors
  File "/oname=marlux3.dll" "${MODULE}"
  File "/oname=marlux3.chm" "${HELP}"
  WriteUninstaller "$INSTDIR\${UNINSTALLER}"
  ${If} ${Errors}
    MessageBox MB_ICONSTOP "The files could not be written to$\n$INSTDIR" /SD IDOK
    SetErrorLevel ${FILE_IN_USE}
    Quit
  ${EndIf}
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "Marlux 3"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\${UNINSTALLER}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\${UNINSTALLER}"'
  WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\${UNINSTALLER}" /S'
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

; The folder belongs to the host and stays.
Section Uninstall
  !insertmacro StopWhenInUse
  Delete "$INSTDIR\marlux3.dll"
  Delete "$INSTDIR\marlux3.chm"
  Delete "$INSTDIR\${UNINSTALLER}"
  DeleteRegKey HKLM "${UNINSTALL_KEY}"
SectionEnd
