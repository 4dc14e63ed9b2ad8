; The installer: for the user who starts it, without administrator rights, below the user's own folder of programs.
; tools/make-installer calls it:
;   makensis -DVERSION=… -DFILES=LIST.nsh -DSIZE=KB -DTARGET=amd64-unicode -DOUTPUT=FILE -DICONS=FOLDER installer.nsi
; Silent with /S, then answers "no" to every question; /D=FOLDER names another folder. The list holds the macros
; InstallFiles and UninstallFiles, which name every file.
Unicode true
Target ${TARGET}
ManifestDPIAware true
SetCompressor /SOLID lzma
RequestExecutionLevel user

!include MUI2.nsh
!include LogicLib.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Lorelin"
!define PATHS_KEY "Software\Microsoft\Windows\CurrentVersion\App Paths"
!define CLASSES "Software\Classes"

Name "Lorelin ${VERSION}"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Lorelin"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" InstallLocation
BrandingText "Lorelin ${VERSION}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=1031 ProductName "Lorelin"
VIAddVersionKey /LANG=1031 FileDescription "Lorelin installieren"
VIAddVersionKey /LANG=1031 FileVersion "${VERSION}"
VIAddVersionKey /LANG=1031 ProductVersion "${VERSION}"
VIAddVersionKey /LANG=1031 LegalCopyright "GPL-3.0-or-later"

!define MUI_ICON "${ICONS}/lorelin.ico"
!define MUI_UNICON "${ICONS}/lorelin.ico"
!define MUI_FINISHPAGE_RUN "$INSTDIR\lorelin.exe"
!define MUI_FINISHPAGE_RUN_TEXT "Lorelin starten"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE German

; A file that was changed since it was installed belongs to the user.
!macro DeleteUnchanged path high low
  ClearErrors
  GetFileTime "${path}" $0 $1
  ${IfNot} ${Errors}
  ${AndIf} $0 == ${high}
  ${AndIf} $1 == ${low}
    Delete "${path}"
  ${EndIf}
!macroend

!include "${FILES}"

; A program that runs holds its file.
!macro RequireClosed
  ${Do}
    ${IfNot} ${FileExists} "$INSTDIR\lorelin.exe"
      ${Break}
    ${EndIf}
    ClearErrors
    FileOpen $0 "$INSTDIR\lorelin.exe" a
    ${IfNot} ${Errors}
      FileClose $0
      ${Break}
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Lorelin läuft noch. Bitte beenden Sie das Programm." /SD IDCANCEL IDRETRY +3
    SetErrorLevel 1
    Quit
  ${Loop}
!macroend

; Explorer offers the program for files of this ending; what opens them stays what it is.
!macro Offer ending class
  WriteRegStr HKCU "${CLASSES}\.${ending}\OpenWithProgids" "${class}" ""
  WriteRegStr HKCU "${CLASSES}\Applications\lorelin.exe\SupportedTypes" ".${ending}" ""
!macroend
!macro un.Offer ending class
  DeleteRegValue HKCU "${CLASSES}\.${ending}\OpenWithProgids" "${class}"
  DeleteRegKey /ifempty HKCU "${CLASSES}\.${ending}\OpenWithProgids"
  DeleteRegKey /ifempty HKCU "${CLASSES}\.${ending}"
!macroend
!macro OfferAll un
  !insertmacro ${un}Offer vts Lorelin.Taskscript
  !insertmacro ${un}Offer txt Lorelin.Dokument
  !insertmacro ${un}Offer rtf Lorelin.Dokument
  !insertmacro ${un}Offer epub Lorelin.Dokument
  !insertmacro ${un}Offer docx Lorelin.Dokument
  !insertmacro ${un}Offer odt Lorelin.Dokument
  !insertmacro ${un}Offer html Lorelin.Dokument
  !insertmacro ${un}Offer htm Lorelin.Dokument
  !insertmacro ${un}Offer md Lorelin.Dokument
  !insertmacro ${un}Offer fb2 Lorelin.Dokument
!macroend

!macro Class name title icon
  WriteRegStr HKCU "${CLASSES}\${name}" "" "${title}"
  WriteRegStr HKCU "${CLASSES}\${name}\DefaultIcon" "" "$INSTDIR\${icon}"
  WriteRegStr HKCU "${CLASSES}\${name}\shell\open\command" "" '"$INSTDIR\lorelin.exe" "%1"'
!macroend

Section
  SetShellVarContext current
  !insertmacro RequireClosed
  !insertmacro InstallFiles
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\Lorelin.lnk" "$INSTDIR\lorelin.exe"

  WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayName "Lorelin"
  WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayVersion "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayIcon "$INSTDIR\lorelin.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" Publisher "Lorelin"
  WriteRegStr HKCU "${UNINSTALL_KEY}" InstallLocation "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" EstimatedSize ${SIZE}
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" NoModify 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" NoRepair 1

  WriteRegStr HKCU "${PATHS_KEY}\lorelin.exe" "" "$INSTDIR\lorelin.exe"
  WriteRegStr HKCU "${PATHS_KEY}\lorelin-cli.exe" "" "$INSTDIR\lorelin-cli.exe"
  WriteRegStr HKCU "${CLASSES}\Applications\lorelin.exe" FriendlyAppName "Lorelin"
  WriteRegStr HKCU "${CLASSES}\Applications\lorelin.exe\shell\open\command" "" '"$INSTDIR\lorelin.exe" "%1"'
  !insertmacro Class Lorelin.Taskscript "Taskscript" vts.ico
  !insertmacro Class Lorelin.Dokument "Dokument zum Vorlesen" lorelin.exe
  !insertmacro OfferAll ""
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
SectionEnd

; What the program registered of itself when it ran, unless it was another copy of it.
!macro RemoveOwnRegistration
  ReadRegStr $0 HKCU "${CLASSES}\vtsfile\shell\open\command" ""
  StrLen $1 "$INSTDIR\"
  StrCpy $2 $0 $1
  ${If} $2 == "$INSTDIR\"
    DeleteRegKey HKCU "${CLASSES}\vtsfile"
    ReadRegStr $0 HKCU "${CLASSES}\.vts" ""
    ${If} $0 == "vtsfile"
      DeleteRegValue HKCU "${CLASSES}\.vts" ""
      DeleteRegKey /ifempty HKCU "${CLASSES}\.vts"
    ${EndIf}
  ${EndIf}
!macroend

Section un.
  SetShellVarContext current
  !insertmacro RequireClosed
  ExecWait '"$INSTDIR\lorelin-abkuerzungen.exe" --uninstall'
  !insertmacro OfferAll un.
  !insertmacro RemoveOwnRegistration
  DeleteRegKey HKCU "${CLASSES}\Lorelin.Taskscript"
  DeleteRegKey HKCU "${CLASSES}\Lorelin.Dokument"
  DeleteRegKey HKCU "${CLASSES}\Applications\lorelin.exe"
  DeleteRegKey HKCU "${PATHS_KEY}\lorelin.exe"
  DeleteRegKey HKCU "${PATHS_KEY}\lorelin-cli.exe"
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
  Delete "$SMPROGRAMS\Lorelin.lnk"
  Delete "$INSTDIR\temp\*.wav"
  MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 "Sollen auch Ihre Einstellungen, eigenen Taskscripts, Aussprachen und nicht gespeicherten Texte gelöscht werden?" /SD IDNO IDNO keep
  RMDir /r "$INSTDIR\scripts"
  RMDir /r "$INSTDIR\recovery"
  RMDir /r "$INSTDIR\temp"
  Delete "$INSTDIR\*.log"
  RMDir /r "$LOCALAPPDATA\Lorelin"
  RMDir /r "$APPDATA\Lorelin"
  DeleteRegKey HKCU "Software\VB and VBA Program Settings\Lorelin"
keep:
  !insertmacro UninstallFiles
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR\temp"
  RMDir "$INSTDIR"
SectionEnd
