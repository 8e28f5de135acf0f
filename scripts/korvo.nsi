; The Windows installer of Korvo: for the person installing it, with no
; administrator rights; a Start menu entry; set and label files of both
; models open in the designer on a double click; an uninstaller that takes
; the program away and never the person's own files. /S installs silently.
;
; makensis -DVERSION=1.0 -DSOURCE=<program folder> -DFILELIST=<uninstall list>
;          -DOUTFILE=<setup.exe> korvo.nsi

Unicode true
; A 64-bit installer for a 64-bit program (and one that Wine64 runs alone).
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel user
Name "Korvo ${VERSION}"
OutFile "${OUTFILE}"
InstallDir "$LOCALAPPDATA\Programs\Korvo"
InstallDirRegKey HKCU "Software\Korvo" "InstallDir"
ShowInstDetails nevershow

!include "MUI2.nsh"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "Spanish"
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "Portuguese"
!insertmacro MUI_LANGUAGE "Dutch"
!insertmacro MUI_LANGUAGE "French"
!insertmacro MUI_LANGUAGE "Italian"
!insertmacro MUI_LANGUAGE "Greek"
!insertmacro MUI_LANGUAGE "Polish"

!macro Asociar EXT CLASE DESCRIPCION
    WriteRegStr HKCU "Software\Classes\${EXT}" "" "${CLASE}"
    WriteRegStr HKCU "Software\Classes\${CLASE}" "" "${DESCRIPCION}"
    WriteRegStr HKCU "Software\Classes\${CLASE}\DefaultIcon" "" "$INSTDIR\korvo.exe,0"
    WriteRegStr HKCU "Software\Classes\${CLASE}\shell\open\command" "" '"$INSTDIR\korvo.exe" "%1"'
!macroend

!macro Desasociar EXT CLASE
    ; Only an association that is still ours is taken away.
    ReadRegStr $0 HKCU "Software\Classes\${EXT}" ""
    StrCmp $0 "${CLASE}" 0 +2
    DeleteRegKey HKCU "Software\Classes\${EXT}"
    DeleteRegKey HKCU "Software\Classes\${CLASE}"
!macroend

Section "Korvo"
    SetOutPath "$INSTDIR"
    File /r "${SOURCE}\*.*"
    ; The marker of an installed program: each person's program folder is
    ; %LOCALAPPDATA%\Korvo, made at the first start from the defaults.
    FileOpen $0 "$INSTDIR\korvo-installed" w
    FileClose $0
    CreateDirectory "$INSTDIR\defaults"
    FileOpen $0 "$INSTDIR\defaults\sirel.new" w
    FileClose $0

    !insertmacro Asociar ".pse" "Korvo.SetNew" "Korvo set (new model)"
    !insertmacro Asociar ".ose" "Korvo.SetOld" "Korvo set (old model)"
    !insertmacro Asociar ".pde" "Korvo.LabelNew" "Korvo label (new model)"
    !insertmacro Asociar ".ode" "Korvo.LabelOld" "Korvo label (old model)"
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'

    CreateShortCut "$SMPROGRAMS\Korvo.lnk" "$INSTDIR\korvo.exe"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    WriteRegStr HKCU "Software\Korvo" "InstallDir" "$INSTDIR"
    WriteRegStr HKCU "Software\Microsoft\Windows\CurrentVersion\Uninstall\Korvo" "DisplayName" "Korvo"
    WriteRegStr HKCU "Software\Microsoft\Windows\CurrentVersion\Uninstall\Korvo" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "Software\Microsoft\Windows\CurrentVersion\Uninstall\Korvo" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "Software\Microsoft\Windows\CurrentVersion\Uninstall\Korvo" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "Software\Microsoft\Windows\CurrentVersion\Uninstall\Korvo" "NoModify" 1
    WriteRegDWORD HKCU "Software\Microsoft\Windows\CurrentVersion\Uninstall\Korvo" "NoRepair" 1
SectionEnd

Section "Uninstall"
    ; What the installer put there, file by file, and the folders it made
    ; when they are left empty: a person's own file in the installation
    ; folder stays, and so does the person's program folder elsewhere.
    !include "${FILELIST}"
    Delete "$INSTDIR\korvo-installed"
    Delete "$INSTDIR\defaults\sirel.new"
    RMDir "$INSTDIR\defaults"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    Delete "$SMPROGRAMS\Korvo.lnk"
    !insertmacro Desasociar ".pse" "Korvo.SetNew"
    !insertmacro Desasociar ".ose" "Korvo.SetOld"
    !insertmacro Desasociar ".pde" "Korvo.LabelNew"
    !insertmacro Desasociar ".ode" "Korvo.LabelOld"
    DeleteRegKey HKCU "Software\Microsoft\Windows\CurrentVersion\Uninstall\Korvo"
    DeleteRegKey HKCU "Software\Korvo"
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
SectionEnd
