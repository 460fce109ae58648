; The installer. tools/windows-build hands in VERSION, STAGE (the folder with the files), FILES (a list of the
; commands that remove them), ICON and OUT.
Unicode true
Target amd64-unicode
ManifestDPIAware true
SetCompressor /SOLID lzma
Name "Kelp ${VERSION}"
OutFile "${OUT}"
BrandingText "Kelp ${VERSION}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Kelp"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Kelp setup"
VIAddVersionKey CompanyName "Kelp"
VIAddVersionKey LegalCopyright ""

!define ARP "Software\Microsoft\Windows\CurrentVersion\Uninstall\Kelp"
!define KEPT "Your data stay: the stations in the folders that kelp.cfg names, c:\kelp with kelp.cfg and the \
record of all values (record.db), and this user's machine settings. Delete them by hand if you want them gone."

; For all users where the rights suffice, else for this one; /AllUsers and /CurrentUser choose.
!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_USE_PROGRAMFILES64
!define MULTIUSER_INSTALLMODE_INSTDIR "Kelp"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "Software\Kelp\Setup"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "Folder"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "Software\Kelp\Setup"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "Folder"
!include MultiUser.nsh
!include MUI2.nsh
!include FileFunc.nsh
!include WinVer.nsh

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!insertmacro MUI_PAGE_WELCOME
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN "$INSTDIR\kelp.exe"
!insertmacro MUI_PAGE_FINISH
!define MUI_UNCONFIRMPAGE_TEXT_TOP "Kelp will be removed from this folder. ${KEPT}"
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

Function .onInit
  ${IfNot} ${AtLeastWin10}
    MessageBox MB_OK|MB_ICONSTOP "Kelp needs Windows 10 or later." /SD IDOK
    SetErrorLevel 3
    Quit
  ${EndIf}
  SetRegView 64
  ; The folder of /D=, which the choice of users would set aside.
  StrCpy $9 $INSTDIR
  !insertmacro MULTIUSER_INIT
  ${If} $9 != ""
    StrCpy $INSTDIR $9
  ${EndIf}
FunctionEnd

Function un.onInit
  SetRegView 64
  !insertmacro MULTIUSER_UNINIT
FunctionEnd

; A program that runs can't be replaced, and has values that are not saved.
!macro RefuseWhileItRuns
  ${Do}
    ClearErrors
    ${IfNot} ${FileExists} "$INSTDIR\kelp.exe"
      ${ExitDo}
    ${EndIf}
    FileOpen $0 "$INSTDIR\kelp.exe" a
    ${IfNot} ${Errors}
      FileClose $0
      ${ExitDo}
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
      "Kelp is running, or $INSTDIR may not be written to. End Kelp there, then try again." \
      /SD IDCANCEL IDRETRY +3
    SetErrorLevel 5
    Quit
  ${Loop}
!macroend

Section "Kelp"
  !insertmacro RefuseWhileItRuns
  ; An older version goes first, by its own list: what this one has no more would stay behind.
  IfFileExists "$INSTDIR\uninstall.exe" 0 +2
  ExecWait '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode /S _?=$INSTDIR'
  SetOutPath "$INSTDIR"
  File /r "${STAGE}/*"
  IfErrors 0 +3
  SetErrorLevel 6
  Abort "Not all files could be written to $INSTDIR. Choose another folder, or let somebody with the rights install."
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateDirectory "$SMPROGRAMS\Kelp"
  CreateShortCut "$SMPROGRAMS\Kelp\Kelp.lnk" "$INSTDIR\kelp.exe"
  ; Its readings are none: they go to drives of their own in the user's folder.
  CreateShortCut "$SMPROGRAMS\Kelp\Kelp (simulated instrument).lnk" "$SYSDIR\cmd.exe" \
    '/c start "Kelp" "$INSTDIR\kelp.exe" --simulate --drives "%LOCALAPPDATA%\Kelp\simulated"' \
    "$INSTDIR\kelp.exe" 0 SW_SHOWMINIMIZED
  CreateShortCut "$SMPROGRAMS\Kelp\Documents.lnk" "$INSTDIR\docs"
  CreateShortCut "$SMPROGRAMS\Kelp\Uninstall Kelp.lnk" "$INSTDIR\uninstall.exe" "/$MultiUser.InstallMode"
  WriteRegStr SHCTX "Software\Kelp\Setup" "Folder" "$INSTDIR"
  WriteRegStr SHCTX "${ARP}" "DisplayName" "Kelp"
  WriteRegStr SHCTX "${ARP}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${ARP}" "Publisher" "Kelp"
  WriteRegStr SHCTX "${ARP}" "DisplayIcon" "$INSTDIR\kelp.exe"
  WriteRegStr SHCTX "${ARP}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${ARP}" "UninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode'
  WriteRegStr SHCTX "${ARP}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode /S'
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD SHCTX "${ARP}" "EstimatedSize" $0
  WriteRegDWORD SHCTX "${ARP}" "NoModify" 1
  WriteRegDWORD SHCTX "${ARP}" "NoRepair" 1
SectionEnd

Section "Uninstall"
  !insertmacro RefuseWhileItRuns
  ; File by file: what somebody else put into the folder stays.
  !include "${FILES}"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\Kelp\Kelp.lnk"
  Delete "$SMPROGRAMS\Kelp\Kelp (simulated instrument).lnk"
  Delete "$SMPROGRAMS\Kelp\Documents.lnk"
  Delete "$SMPROGRAMS\Kelp\Uninstall Kelp.lnk"
  RMDir "$SMPROGRAMS\Kelp"
  DeleteRegKey SHCTX "${ARP}"
  DeleteRegKey SHCTX "Software\Kelp\Setup"
  DetailPrint "${KEPT}"
  MessageBox MB_OK|MB_ICONINFORMATION "Kelp was removed. ${KEPT}" /SD IDOK
SectionEnd
