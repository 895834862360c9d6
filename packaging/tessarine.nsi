; The installer, for one user and without administrator rights. tools/package.py calls it with
;   VERSION  OUT_FILE  STAGE (the folder of the files)  and  FILES (a macro EachFile that names them, in order).
;
; The files are unpacked beside the old ones, then the program is asked to end, and only then each of them takes its
; place in one step: whatever interrupts the installation, each file is the old one or the new one. What fails is taken
; back.
;
; Exit codes: 0 done, 1 cancelled, 2 something could not be written, 3 Tessarine or one of its files is in use, 4
; another set-up is open. With another one than 0 nothing has changed. /S asks nothing.

Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
SetDateSave on
RequestExecutionLevel user
ManifestDPIAware true
ManifestSupportedOS Win10

!define EXIT_IN_USE 3
!define EXIT_SETUP_OPEN 4
!define OWN_KEY "Software\Tessarine"
!define RUN_KEY "Software\Microsoft\Windows\CurrentVersion\Run"
; Where Windows notes that the user has switched an entry of RUN_KEY off.
!define APPROVED_KEY "Software\Microsoft\Windows\CurrentVersion\Explorer\StartupApproved\Run"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tessarine"
!define JOB_TYPE "Tessarine.Job"
!define JOB_KEY "Software\Classes\${JOB_TYPE}"
!define EXTENSION_KEY "Software\Classes\.tsj"
!define ICON_JOB 4 ; its number in the program (resource_ids.h)
!define NEW "$INSTDIR\~new"
!define OLD "$INSTDIR\~old"

Name "Tessarine"
OutFile "${OUT_FILE}"
BrandingText "Tessarine ${VERSION}"
InstallDir "$LOCALAPPDATA\Programs\Tessarine"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"

VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=1033 "ProductName" "Tessarine"
VIAddVersionKey /LANG=1033 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=1033 "FileDescription" "Tessarine Setup"
VIAddVersionKey /LANG=1033 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=1033 "LegalCopyright" "The Tessarine developers"

!include LogicLib.nsh
!include MUI2.nsh
!include FileFunc.nsh
!include WinMessages.nsh
!include Win\COM.nsh
!include "${FILES}"

Var isBusy       ; 1: the program has refused to end, does not answer, or is there all the same
Var endedProgram ; 1: it ran, and has ended at our request
Var busyFile     ; the first one that could not be replaced
Var dataFolder
Var jobCount
Var deleteJobs ; the user's choice, 1 or 0
Var deleteButton

; --- pages ---

!define MUI_ICON "${ASSETS}/tessarine.ico"
!define MUI_UNICON "${ASSETS}/tessarine.ico"
!define MUI_WELCOMEFINISHPAGE_BITMAP "side.bmp"
!define MUI_WELCOMEPAGE_TEXT "$(WelcomeText)"
!define MUI_FINISHPAGE_RUN "$INSTDIR\tessarine.exe"
!define MUI_LANGDLL_ALLLANGUAGES
!define MUI_CUSTOMFUNCTION_UNABORT un.RemoveTemporaryCopy
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
UninstPage custom un.AskAboutJobs un.TakeAnswer
!insertmacro MUI_UNPAGE_INSTFILES

!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "German"
!insertmacro MUI_LANGUAGE "French"
!insertmacro MUI_LANGUAGE "Spanish"
!insertmacro MUI_RESERVEFILE_LANGDLL
!include "texts.nsh"

; --- what installer and uninstaller share ---

!macro Shared un

; The program's own language, where the user has chosen one; else that of Windows, which $LANGUAGE is from the start.
Function ${un}TakeLanguageOfProgram
    ReadRegStr $0 HKCU "${OWN_KEY}" "Language"
    ${Select} $0
        ${Case} "en"
            StrCpy $LANGUAGE ${LANG_ENGLISH}
        ${Case} "de"
            StrCpy $LANGUAGE ${LANG_GERMAN}
        ${Case} "fr"
            StrCpy $LANGUAGE ${LANG_FRENCH}
        ${Case} "sp"
            StrCpy $LANGUAGE ${LANG_SPANISH}
    ${EndSelect}
FunctionEnd

Function ${un}BeTheOnlyOne
    System::Call 'kernel32::CreateMutex(p 0, i 0, t "Local\TessarineSetup") p .r0 ?e'
    Pop $0
    ${If} $0 = 183 ; ERROR_ALREADY_EXISTS
        MessageBox MB_OK|MB_ICONEXCLAMATION "$(SetupIsOpen)" /SD IDOK
        SetErrorLevel ${EXIT_SETUP_OPEN}
        !if "${un}" != ""
            Call un.RemoveTemporaryCopy
        !endif
        Quit
    ${EndIf}
FunctionEnd

; Asks the program of this main window ($1) to end, as the Restart Manager of Windows would, if it is the one that is
; installed here.
Function ${un}AskToEnd
    System::Call 'user32::GetWindowThreadProcessId(p r1, *i .r2)'
    System::Call 'kernel32::OpenProcess(i 0x101000, i 0, i r2) p .r3' ; SYNCHRONIZE, PROCESS_QUERY_LIMITED_INFORMATION
    System::Call 'kernel32::QueryFullProcessImageName(p r3, i 0, t .r4, *i ${NSIS_MAX_STRLEN})'
    ${If} $4 == "$INSTDIR\tessarine.exe"
        ; With ENDSESSION_CLOSEAPP (1), SMTO_ABORTIFHUNG (2) and a limit in ms.
        System::Call 'user32::SendMessageTimeout(p r1, i ${WM_QUERYENDSESSION}, p 0, p 1, i 2, i 5000, *p .r5) p .r6'
        ${If} $6 P= 0
        ${OrIf} $5 P= 0
            StrCpy $isBusy 1
        ${Else}
            StrCpy $endedProgram 1
            System::Call 'user32::SendMessageTimeout(p r1, i ${WM_ENDSESSION}, p 1, p 1, i 2, i 10000, *p .r5)'
            System::Call 'kernel32::WaitForSingleObject(p r3, i 10000) i .r6'
            ${If} $6 <> 0
                StrCpy $isBusy 1
            ${EndIf}
        ${EndIf}
    ${EndIf}
    System::Call 'kernel32::CloseHandle(p r3)'
FunctionEnd

; A program that starts or shows nothing yet has no main window, and its guard ends a moment after it. Windows lets
; nobody write into a file that is being run.
Function ${un}WaitForFile
    ${For} $2 1 50
        ${IfNot} ${FileExists} "$INSTDIR\tessarine.exe"
            Return
        ${EndIf}
        ; GENERIC_WRITE, shared with everybody, OPEN_EXISTING
        System::Call 'kernel32::CreateFile(t "$INSTDIR\tessarine.exe", i 0x40000000, i 7, p 0, i 3, i 0, p 0) p .r3'
        ${If} $3 P<> -1
            System::Call 'kernel32::CloseHandle(p r3)'
            Return
        ${EndIf}
        Sleep 100
    ${Next}
    StrCpy $isBusy 1
FunctionEnd

Function ${un}TryToEndProgram
    StrCpy $isBusy 0
    StrCpy $1 0
    ${Do}
        System::Call 'user32::FindWindowEx(p 0, p r1, t "TessarineMainWindow", p 0) p .r1'
        ${If} $1 P= 0
            ${ExitDo}
        ${EndIf}
        Call ${un}AskToEnd
        ${If} $isBusy = 1
            Return
        ${EndIf}
    ${Loop}
    Call ${un}WaitForFile
FunctionEnd

; Returns when the program does not run, or gives up.
Function ${un}EndProgram
    ${Do}
        Call ${un}TryToEndProgram
        ${If} $isBusy = 0
            Return
        ${EndIf}
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(ProgramIsBusy)" /SD IDCANCEL IDRETRY again
        Call ${un}GiveUp
        again:
    ${Loop}
FunctionEnd

; The shell reads the types of files anew.
Function ${un}TellShell
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)' ; SHCNE_ASSOCCHANGED
FunctionEnd

!macroend
!insertmacro Shared ""
!insertmacro Shared "un."

; --- installation ---

Function .onInit
    ; What the program calls, and an older Windows has not.
    System::Call 'user32::GetSystemMetricsForDpi(i 0, i 96) i .r0'
    ${If} $0 == "error"
        MessageBox MB_OK|MB_ICONSTOP "$(WindowsIsTooOld)" /SD IDOK
        SetErrorLevel 2
        Quit
    ${EndIf}
    Call BeTheOnlyOne
    Call TakeLanguageOfProgram
    !insertmacro MUI_LANGDLL_DISPLAY
FunctionEnd

Function RemoveWorkFolders
    SetOutPath "$TEMP"
    RMDir /r "${NEW}"
    RMDir /r "${OLD}"
    RMDir "$INSTDIR" ; only when nothing is in it
FunctionEnd

Function .onInstFailed
    Call RemoveWorkFolders
FunctionEnd

; Nothing has changed, so what ran runs again.
Function GiveUp
    Call RemoveWorkFolders
    ${If} $endedProgram = 1
        Exec '"$INSTDIR\tessarine.exe"'
    ${EndIf}
    SetErrorLevel ${EXIT_IN_USE}
    Abort "$(NothingChanged)"
FunctionEnd

!macro Unpack NAME
    File "${STAGE}/${NAME}"
!macroend

; A copy of the old file, in case one of the new ones cannot take its place; once, for there may be a second try.
!macro KeepOld NAME
    ${If} $busyFile == ""
    ${AndIf} ${FileExists} "$INSTDIR\${NAME}"
    ${AndIf} ${FileExists} "${NEW}\${NAME}"
    ${AndIfNot} ${FileExists} "${OLD}\${NAME}"
        System::Call 'kernel32::CopyFile(t "$INSTDIR\${NAME}", t "${OLD}\${NAME}", i 1) i .r0'
        ${If} $0 = 0
            StrCpy $busyFile "${NAME}"
        ${EndIf}
    ${EndIf}
!macroend

; MOVEFILE_REPLACE_EXISTING, MOVEFILE_WRITE_THROUGH: in one step, and on the disk before the next one.
!macro Replace NAME
    ${If} $busyFile == ""
        System::Call 'kernel32::MoveFileEx(t "${NEW}\${NAME}", t "$INSTDIR\${NAME}", i 9) i .r0'
        ${If} $0 = 0
            StrCpy $busyFile "${NAME}"
        ${EndIf}
    ${EndIf}
!macroend

!macro BringBack NAME
    ${If} ${FileExists} "${OLD}\${NAME}"
        System::Call 'kernel32::MoveFileEx(t "${OLD}\${NAME}", t "$INSTDIR\${NAME}", i 9)'
    ${ElseIfNot} ${FileExists} "${NEW}\${NAME}"
        Delete "$INSTDIR\${NAME}" ; it was not there before
    ${EndIf}
!macroend

; All of the new files, or none.
Function ReplaceFiles
    CreateDirectory "${OLD}"
    ${Do}
        StrCpy $busyFile ""
        !insertmacro EachFile KeepOld
        !insertmacro KeepOld "Uninstall.exe"
        !insertmacro Replace "Uninstall.exe"
        !insertmacro EachFile Replace
        ${If} $busyFile == ""
            Return
        ${EndIf}
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(FileIsBusy)" /SD IDCANCEL IDRETRY again
        !insertmacro EachFile BringBack
        !insertmacro BringBack "Uninstall.exe"
        Call GiveUp
        again:
    ${Loop}
FunctionEnd

; A path stands without quotes: the program takes the rest of its command line for it, as it stands. %L is the long
; name, whatever the shell makes of %1.
!macro RegisterVerb VERB CAPTION SWITCH
    WriteRegStr HKCU "${JOB_KEY}\shell\${VERB}" "" "${CAPTION}"
    WriteRegStr HKCU "${JOB_KEY}\shell\${VERB}\command" "" '"$INSTDIR\tessarine.exe" ${SWITCH} %L'
!macroend

; Other programs have files with this extension, too: what it was before comes back in the end.
Function RegisterJobs
    ReadRegStr $0 HKCU "${EXTENSION_KEY}" ""
    ${If} $0 != ""
    ${AndIf} $0 != "${JOB_TYPE}"
        WriteRegStr HKCU "${JOB_KEY}" "Before" $0
    ${EndIf}
    WriteRegStr HKCU "${EXTENSION_KEY}" "" "${JOB_TYPE}"
    WriteRegStr HKCU "${EXTENSION_KEY}\OpenWithProgids" "${JOB_TYPE}" ""
    WriteRegStr HKCU "${JOB_KEY}" "" "$(JobType)"
    WriteRegStr HKCU "${JOB_KEY}\DefaultIcon" "" "$INSTDIR\tessarine.exe,-${ICON_JOB}"
    WriteRegStr HKCU "${JOB_KEY}\shell" "" "open"
    ; Shown as "Run"; "open" is what other programs ask for that start a file.
    !insertmacro RegisterVerb "open" "$(VerbRun)" "-run"
    !insertmacro RegisterVerb "edit" "$(VerbEdit)" "-edit"
    Call TellShell
FunctionEnd

Function RegisterProgram
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Tessarine"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\tessarine.exe"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "The Tessarine developers"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" $0
FunctionEnd

; Who has just chosen a language need not be asked again by the program's first start.
Function HandOnLanguage
    ReadRegStr $0 HKCU "${OWN_KEY}" "Language"
    ${If} ${Silent}
    ${OrIf} $0 != ""
        Return
    ${EndIf}
    WriteRegStr HKCU "${OWN_KEY}" "Language" "$(LanguageOfProgram)"
FunctionEnd

Section
    RMDir /r "${NEW}" ; of an installation that was interrupted
    RMDir /r "${OLD}"
    SetOutPath "${NEW}"
    !insertmacro EachFile Unpack
    WriteUninstaller "${NEW}\Uninstall.exe"
    SetOutPath "$INSTDIR"
    Call EndProgram
    Call ReplaceFiles
    RMDir /r "${NEW}"
    RMDir /r "${OLD}"
    CreateShortcut "$SMPROGRAMS\Tessarine.lnk" "$INSTDIR\tessarine.exe"
    Call RegisterJobs
    Call RegisterProgram
    Call HandOnLanguage
    ${If} ${Silent}
    ${AndIf} $endedProgram = 1
        Exec '"$INSTDIR\tessarine.exe"'
    ${EndIf}
SectionEnd

; --- removal ---

Function un.onInit
    Call un.BeTheOnlyOne
    Call un.TakeLanguageOfProgram
    Call un.FindJobs
FunctionEnd

Function un.GiveUp
    SetErrorLevel ${EXIT_IN_USE}
    Abort "$(NothingChanged)"
FunctionEnd

Function un.FindJobs
    ReadRegStr $dataFolder HKCU "${OWN_KEY}" "DataDir"
    ${If} $dataFolder == ""
        StrCpy $dataFolder "$DOCUMENTS\Tessarine"
    ${EndIf}
    StrCpy $jobCount 0
    FindFirst $0 $1 "$dataFolder\*.tsj"
    ${DoUntil} $1 == ""
        IntOp $jobCount $jobCount + 1
        FindNext $0 $1
    ${Loop}
    FindClose $0
FunctionEnd

Function un.AskAboutJobs
    !insertmacro MUI_HEADER_TEXT "$(RemoveTitle)" "$(RemoveSubtitle)"
    nsDialogs::Create 1018
    Pop $0
    ${NSD_CreateLabel} 0 0 100% 44u "$(RemoveText)"
    Pop $0
    ${NSD_CreateRadioButton} 8u 50u 95% 12u "$(KeepJobs)"
    Pop $1
    ${NSD_CreateRadioButton} 8u 68u 95% 12u "$(DeleteJobs)"
    Pop $deleteButton
    ${NSD_CreateLabel} 20u 82u 90% 24u "$(DeleteJobsText)"
    Pop $0
    ${If} $deleteJobs = 1 ; the user has come back to this page
        StrCpy $1 $deleteButton
    ${EndIf}
    ${NSD_Check} $1
    ${NSD_SetFocus} $1
    nsDialogs::Show
FunctionEnd

Function un.TakeAnswer
    ${NSD_GetState} $deleteButton $deleteJobs
FunctionEnd

!macro Remove NAME
    ${If} $busyFile == ""
        ClearErrors
        Delete "$INSTDIR\${NAME}"
        ${If} ${Errors}
            StrCpy $busyFile "${NAME}"
        ${EndIf}
    ${EndIf}
!macroend

Function un.RemoveFiles
    ${Do}
        StrCpy $busyFile ""
        !insertmacro EachFile Remove
        ${If} $busyFile == ""
            ${ExitDo}
        ${EndIf}
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(FileIsBusy)" /SD IDCANCEL IDRETRY again
        SetErrorLevel ${EXIT_IN_USE}
        Abort "$(RemovalStopped)"
        again:
    ${Loop}
    RMDir /r "${NEW}"
    RMDir /r "${OLD}"
    Delete "$SMPROGRAMS\Tessarine.lnk"
FunctionEnd

Function un.UnregisterJobs
    ReadRegStr $0 HKCU "${EXTENSION_KEY}" ""
    ${If} $0 == "${JOB_TYPE}"
        ReadRegStr $0 HKCU "${JOB_KEY}" "Before"
        ${If} $0 == ""
            DeleteRegValue HKCU "${EXTENSION_KEY}" ""
        ${Else}
            WriteRegStr HKCU "${EXTENSION_KEY}" "" $0
        ${EndIf}
    ${EndIf}
    DeleteRegValue HKCU "${EXTENSION_KEY}\OpenWithProgids" "${JOB_TYPE}"
    DeleteRegKey /ifempty HKCU "${EXTENSION_KEY}\OpenWithProgids"
    DeleteRegKey /ifempty HKCU "${EXTENSION_KEY}"
    DeleteRegKey HKCU "${JOB_KEY}"
    Call un.TellShell
FunctionEnd

; The start with Windows, unless it is that of a copy in another folder.
Function un.UnregisterStart
    ReadRegStr $0 HKCU "${RUN_KEY}" "Tessarine"
    StrLen $1 "$\"$INSTDIR\"
    StrCpy $0 $0 $1
    ${If} $0 == "$\"$INSTDIR\"
        DeleteRegValue HKCU "${RUN_KEY}" "Tessarine"
        DeleteRegValue HKCU "${APPROVED_KEY}" "Tessarine"
    ${EndIf}
FunctionEnd

; A shortcut on the desktop that leads to the job $1.
Function un.RemoveShortcutToJob
    StrCpy $2 $1 -4
    StrCpy $2 "$DESKTOP\$2.lnk"
    ${IfNot} ${FileExists} $2
        Return
    ${EndIf}
    StrCpy $5 ""
    !insertmacro ComHlpr_CreateInProcInstance ${CLSID_ShellLink} ${IID_IShellLink} r3 ""
    ${If} $3 P<> 0
        ${IUnknown::QueryInterface} $3 '("${IID_IPersistFile}", .r4)'
        ${If} $4 P<> 0
            ${IPersistFile::Load} $4 '("$2", 0)'
            ${IShellLink::GetPath} $3 '(.r5, ${NSIS_MAX_STRLEN}, p 0, 0)'
            ${IUnknown::Release} $4 ""
        ${EndIf}
        ${IUnknown::Release} $3 ""
    ${EndIf}
    ${If} $5 == "$dataFolder\$1"
        Delete $2
    ${EndIf}
FunctionEnd

Function un.RemoveShortcutsToJobs
    FindFirst $0 $1 "$dataFolder\*.tsj"
    ${DoUntil} $1 == ""
        Call un.RemoveShortcutToJob
        FindNext $0 $1
    ${Loop}
    FindClose $0
FunctionEnd

; The folder may be one that the user has chosen, with other files in it. The log of a schedule has the name that the
; user gave to it, and is known by its beginning.
Function un.RemoveLogs
    FindFirst $0 $1 "$dataFolder\*.log"
    ${DoUntil} $1 == ""
        StrCpy $3 ""
        FileOpen $2 "$dataFolder\$1" r
        FileRead $2 $3 6
        FileClose $2
        ${If} $3 == "Date: "
            Delete "$dataFolder\$1"
        ${EndIf}
        FindNext $0 $1
    ${Loop}
    FindClose $0
FunctionEnd

Function un.RemoveJobsAndSettings
    Call un.RemoveLogs
    Delete "$dataFolder\*.tsj"
    Delete "$dataFolder\settings.binary"
    Delete "$dataFolder\settings (kept*).binary"
    Delete "$dataFolder\~???????.tmp" ; of saves that were killed
    RMDir "$dataFolder" ; only when nothing is in it
    DeleteRegKey HKCU "${OWN_KEY}"
FunctionEnd

; An uninstaller runs as a copy of itself among the temporary files, which without administrator rights nobody would
; clear away. Another program has to: nothing can delete itself while it runs.
Function un.RemoveTemporaryCopy
    StrLen $0 "$TEMP\~nsu"
    StrCpy $1 $EXEDIR $0
    ${If} $1 == "$TEMP\~nsu"
        SetOutPath "$TEMP"
        StrCpy $2 '127.0.0.1 >nul & del "$EXEPATH" & rd "$EXEDIR"'
        ; A second time on a busy machine.
        ExecShell "" "$SYSDIR\cmd.exe" '/d /c ping -n 3 $2 & if exist "$EXEPATH" ping -n 15 $2' SW_HIDE
    ${EndIf}
FunctionEnd

Function un.onUninstSuccess
    Call un.RemoveTemporaryCopy
FunctionEnd

Function un.onUninstFailed
    Call un.RemoveTemporaryCopy
FunctionEnd

; What finds the program and this removal goes last, so that it can be repeated when it was interrupted.
Section un.
    Call un.EndProgram
    Call un.RemoveFiles
    Call un.UnregisterStart
    Call un.UnregisterJobs
    Call un.RemoveShortcutsToJobs
    ${If} $deleteJobs = 1
        Call un.RemoveJobsAndSettings
    ${EndIf}
    Delete "$INSTDIR\Uninstall.exe"
    RMDir "$INSTDIR" ; only when nothing is in it
    RMDir "$LOCALAPPDATA\Programs"
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
SectionEnd
