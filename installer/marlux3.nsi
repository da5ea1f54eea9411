; Marlux 3. The set-up program: puts the module and its help into the host's plug-in folder.
;
;   marlux3-setup.exe            asks where only when the host's folder is not known
;   marlux3-setup.exe /S         no questions; ends with 2 when the folder is not known, 3 when a file is in use, 4 when
;                                one cannot be written; nothing is changed by 2 and 3
;   marlux3-setup.exe /S /D=DIR  into that folder, which is made when it is not there
;
; The system lists one uninstaller, that of the last folder. In each earlier folder its own stays and takes away what is
; there. Recordings, schedules, tasks and settings are the user's: uninstalling leaves them alone.
; Given by the build: VERSION, MODULE, HELP, ICON, OUTPUT.

Unicode true
SetDateSave off ; equal files give equal bytes, whenever they were made
SetOverwrite try
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

!pragma warning disable 9100 ; there is no copyright line
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Marlux 3"
VIAddVersionKey "FileDescription" "Set-up of Marlux 3"
VIAddVersionKey "FileVersion" "${VERSION}"

!include LogicLib.nsh
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Marlux3"
!define UNINSTALLER "marlux3-uninstall.exe"
!define FOLDER_UNKNOWN 2
!define FILE_IN_USE 3
!define NOT_WRITTEN 4

Var folderKnown
Page directory skipWhenKnown "" checkFolder
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles
DirText "The plug-in folder of your receiver program was not found. Choose the folder from which it loads its plug-ins."

!macro WithoutLastBackslash folder
  StrCpy $1 "${folder}" 1 -1
  ${If} $1 == "\"
    StrCpy ${folder} "${folder}" -1
  ${EndIf}
!macroend

; $0, when nothing was found before and the folder exists.
Function takeFolder
  !insertmacro WithoutLastBackslash $0
  ${If} $INSTDIR == ""
  ${AndIf} $0 != ""
  ${AndIf} ${FileExists} "$0\*.*"
    StrCpy $INSTDIR "$0"
  ${EndIf}
FunctionEnd

; A folder given on the command line wins, then the environment, then what the host's own set-up registered.
Function .onInit
  StrCpy $folderKnown 1
  !insertmacro WithoutLastBackslash $INSTDIR
  ReadEnvStr $0 "ZQN_PLUGIN_PATH"
  Call takeFolder
  ReadRegStr $0 HKLM "Software\ZQN" "SearchPath"
  Call takeFolder
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

; What a running host has loaded, or a help window shows, cannot be replaced: nothing at all is changed then.
!macro StopWhenInUse file
  ${If} ${FileExists} "$INSTDIR\${file}"
    ClearErrors
    FileOpen $0 "$INSTDIR\${file}" a
    ${If} ${Errors}
      MessageBox MB_ICONSTOP "Marlux 3 is in use. Close your receiver program, then try again." /SD IDOK
      SetErrorLevel ${FILE_IN_USE}
      Quit
    ${EndIf}
    FileClose $0
  ${EndIf}
!macroend

!macro StopOnErrors text
  ${If} ${Errors}
    MessageBox MB_ICONSTOP "${text}$\n$INSTDIR" /SD IDOK
    SetErrorLevel ${NOT_WRITTEN}
    Quit
  ${EndIf}
!macroend

Section
  !insertmacro StopWhenInUse "marlux3.dll"
  !insertmacro StopWhenInUse "marlux3.chm"
  ClearErrors
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\${UNINSTALLER}"
  !insertmacro StopOnErrors "The files could not be written to"
  File "/oname=marlux3.dll" "${MODULE}"
  File "/oname=marlux3.chm" "${HELP}"
  !insertmacro StopOnErrors "The files could not be written to"
  ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 != "$INSTDIR"
  ${AndIf} ${FileExists} "$0\${UNINSTALLER}"
    MessageBox MB_ICONINFORMATION "Marlux 3 is also in$\n$0$\nRun ${UNINSTALLER} there to remove it." /SD IDOK
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

; The folder belongs to the host and stays. The system's entry may be that of another folder by now.
Section Uninstall
  !insertmacro StopWhenInUse "marlux3.dll"
  !insertmacro StopWhenInUse "marlux3.chm"
  ClearErrors
  Delete "$INSTDIR\marlux3.dll"
  Delete "$INSTDIR\marlux3.chm"
  !insertmacro StopOnErrors "Some files could not be removed from"
  Delete "$INSTDIR\${UNINSTALLER}"
  ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 == "$INSTDIR"
    DeleteRegKey HKLM "${UNINSTALL_KEY}"
  ${EndIf}
SectionEnd
