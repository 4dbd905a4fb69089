; The installer: makensis -DVERSION=1.2 -DFOLDER=… -DOUTPUT=… -DICON=… -DLICENSE=… quillan.nsi
; For this user, or for all with the rights of an administrator. Silent with /S; /CurrentUser or /AllUsers
; chooses, /D=FOLDER at the end names the folder. What the user set and the recovered texts stay when it
; is uninstalled.
Target amd64-unicode
SetCompressor /SOLID lzma
ManifestDPIAware true

!define NAME "Quillan"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${NAME}"

!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_USE_PROGRAMFILES64
!define MULTIUSER_INSTALLMODE_DEFAULT_CURRENTUSER
!define MULTIUSER_INSTALLMODE_INSTDIR "${NAME}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "Software\${NAME}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "Folder"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "Software\${NAME}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "Folder"
!include MultiUser.nsh
!include MUI2.nsh
!include FileFunc.nsh

Name "${NAME} ${VERSION}"
OutFile "${OUTPUT}"
!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
VIProductVersion "${VERSION}.0.0"
VIAddVersionKey ProductName "${NAME}"
VIAddVersionKey FileDescription "${NAME} installer"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey LegalCopyright "The Quillan developers, MIT licence"

!insertmacro MUI_PAGE_LICENSE "${LICENSE}"
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English
!insertmacro MUI_LANGUAGE SimpChinese
!insertmacro MUI_LANGUAGE Japanese

LangString OFFER ${LANG_ENGLISH} "Offer it under Open with"
LangString OFFER ${LANG_SIMPCHINESE} "在“打开方式”中提供"
LangString OFFER ${LANG_JAPANESE} "「プログラムから開く」に表示"
LangString KIND ${LANG_ENGLISH} "Text document"
LangString KIND ${LANG_SIMPCHINESE} "文本文件"
LangString KIND ${LANG_JAPANESE} "テキスト文書"

; Endings that "Open with" offers the program for. What opens them by default stays the user's choice.
!macro ForEachEnding MACRO
    !insertmacro ${MACRO} ".txt"
    !insertmacro ${MACRO} ".log"
    !insertmacro ${MACRO} ".md"
    !insertmacro ${MACRO} ".ini"
    !insertmacro ${MACRO} ".csv"
    !insertmacro ${MACRO} ".html"
    !insertmacro ${MACRO} ".htm"
    !insertmacro ${MACRO} ".css"
    !insertmacro ${MACRO} ".js"
    !insertmacro ${MACRO} ".json"
    !insertmacro ${MACRO} ".xml"
    !insertmacro ${MACRO} ".svg"
    !insertmacro ${MACRO} ".c"
    !insertmacro ${MACRO} ".cpp"
    !insertmacro ${MACRO} ".h"
    !insertmacro ${MACRO} ".java"
    !insertmacro ${MACRO} ".py"
!macroend
!macro Offer ENDING
    WriteRegStr SHCTX "Software\Classes\${ENDING}\OpenWithProgids" "${NAME}.Document" ""
    WriteRegStr SHCTX "Software\${NAME}\Capabilities\FileAssociations" "${ENDING}" "${NAME}.Document"
!macroend
!macro Withdraw ENDING
    DeleteRegValue SHCTX "Software\Classes\${ENDING}\OpenWithProgids" "${NAME}.Document"
!macroend

; Tells the file manager that associations changed.
!macro TellShell
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, i 0, i 0)'
!macroend

Function .onInit
    SetRegView 64
    !insertmacro MULTIUSER_INIT
FunctionEnd

Function un.onInit
    SetRegView 64
    !insertmacro MULTIUSER_UNINIT
FunctionEnd

Section "${NAME}" SectionProgram
    SectionIn RO
    SetOutPath "$INSTDIR"
    File /r "${FOLDER}/*"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateShortcut "$SMPROGRAMS\${NAME}.lnk" "$INSTDIR\quillan.exe"
    WriteRegStr SHCTX "Software\${NAME}" "Folder" "$INSTDIR"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "${NAME}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\quillan.exe"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "The Quillan developers"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode'
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode /S'
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" $0
SectionEnd

Section "$(OFFER)" SectionOffer
    WriteRegStr SHCTX "Software\Classes\${NAME}.Document" "" "$(KIND)"
    WriteRegStr SHCTX "Software\Classes\${NAME}.Document\DefaultIcon" "" "$INSTDIR\quillan.exe,0"
    WriteRegStr SHCTX "Software\Classes\${NAME}.Document\shell\open\command" "" '"$INSTDIR\quillan.exe" "%1"'
    WriteRegStr SHCTX "Software\${NAME}\Capabilities" "ApplicationName" "${NAME}"
    WriteRegStr SHCTX "Software\${NAME}\Capabilities" "ApplicationDescription" "Text, source and web files"
    WriteRegStr SHCTX "Software\RegisteredApplications" "${NAME}" "Software\${NAME}\Capabilities"
    !insertmacro ForEachEnding Offer
    !insertmacro TellShell
SectionEnd

; Only what was installed: FILES lists it, the deepest folders first.
Section "Uninstall"
    !include "${FILES}"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    Delete "$SMPROGRAMS\${NAME}.lnk"
    !insertmacro ForEachEnding Withdraw
    DeleteRegValue SHCTX "Software\RegisteredApplications" "${NAME}"
    DeleteRegKey SHCTX "Software\Classes\${NAME}.Document"
    DeleteRegKey SHCTX "Software\${NAME}"
    DeleteRegKey SHCTX "${UNINSTALL_KEY}"
    !insertmacro TellShell
SectionEnd
