; The setup program. Made by scripts/dist.sh, which defines
;   VERSION     four numbers
;   STAGE       the folder whose content is installed
;   LISTS       the folder with install_files.nsh and remove_files.nsh, made from what is in STAGE
;   OUTPUT      the setup program
;
; Switches:  /S no questions   /REFERENCE reference package, too   /TYPELIB type library, too   /D=FOLDER as last
Unicode true
Target amd64-unicode
!include LogicLib.nsh
!include FileFunc.nsh
!include Sections.nsh

Name "Verdanth"
OutFile "${OUTPUT}"
InstallDir "$PROGRAMFILES64\Verdanth"
InstallDirRegKey HKLM "Software\Microsoft\Windows\CurrentVersion\Uninstall\Verdanth" "InstallLocation"
RequestExecutionLevel admin
ManifestSupportedOS all
SetCompressor /SOLID lzma
SetDateSave off ; the same bytes whenever the files are the same
AllowSkipFiles off
ShowInstDetails show
BrandingText "Verdanth ${VERSION}"

VIProductVersion "${VERSION}"
VIAddVersionKey "ProductName" "Verdanth"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Setup of Verdanth"
VIAddVersionKey "LegalCopyright" ""

; The library's own type library, a resource of it, and the interface that it describes.
!define SYSTEM_LIBRARY "{5C1B7C0E-2D6F-4B9A-935E-7A40D16E2B58}"
!define PRIVATE_INTERFACE "{E2484BD9-413A-4855-95BF-CC72E1AFC4D2}"

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Verdanth"

; The categories of CAPE-OPEN components, which every vendor's setup enters when it finds them missing.
!define OBJECT_CATEGORY "{678C09A1-7D66-11D2-A67D-00105A42887F}"
!define MANAGER_CATEGORY "{CF51E383-0110-4ED8-ACB7-B50CFDE6908E}"
!define PACKAGE_CATEGORY "{CF51E384-0110-4ED8-ACB7-B50CFDE6908E}"

PageEx components
    ComponentText "Choose what to install." "" ""
PageExEnd
Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

; A program of Windows or of ours that registers something; it has to succeed.
!macro Register what command
    DetailPrint "Registering ${what}"
    ExecWait '${command}' $0
    ${If} ${Errors}
    ${OrIf} $0 != 0
        MessageBox MB_ICONSTOP "Registering ${what} failed." /SD IDOK
        SetErrorLevel 3
        Abort "Registering ${what} failed."
    ${EndIf}
!macroend

; Remembers whether a category was there before us, so that it can be left as it was.
!macro NoteCategory category
    ClearErrors
    ReadRegStr $0 HKCR "Component Categories\${category}" "409"
    ${If} ${Errors}
        WriteRegDWORD HKLM "${UNINSTALL_KEY}" "Category ${category}" 1
    ${EndIf}
!macroend

Section "Library, functions, user guide and relay" mainSection
    SectionIn RO
    SetRegView 64
    !include "${LISTS}/install_files.nsh"
    SetOutPath "$INSTDIR"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "Verdanth ${VERSION}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
    DetailPrint "Registering the library's type library"
    TypeLib::Register "$INSTDIR\toolbox\Verdanth.mexw64"
    EnumRegKey $0 HKCR "TypeLib\${SYSTEM_LIBRARY}" 0
    ${If} $0 == ""
        SetErrorLevel 3
        Abort "Registering the library's type library failed."
    ${EndIf}
    !insertmacro Register "the relay" '"$INSTDIR\Verdanth6432Relay.exe" /RegServer'
SectionEnd

Section /o "Reference package" referenceSection
    SetRegView 64
    !insertmacro NoteCategory "${OBJECT_CATEGORY}"
    !insertmacro NoteCategory "${MANAGER_CATEGORY}"
    !insertmacro NoteCategory "${PACKAGE_CATEGORY}"
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "Reference" 1
    !insertmacro Register "the 64-bit reference package" \
        '"$WINDIR\System32\regsvr32.exe" /s "$INSTDIR\reference\x64\VerdanthReference.dll"'
    !insertmacro Register "the 32-bit reference package" \
        '"$WINDIR\SysWOW64\regsvr32.exe" /s "$INSTDIR\reference\x86\VerdanthReference.dll"'
SectionEnd

Section /o "CAPE-OPEN 1.1 type library, if there is none" typeLibrarySection
    !insertmacro Register "the type library" '"$INSTDIR\Verdanth6432Relay.exe" /RegTypeLib'
SectionEnd

!macro SelectBySwitch switch section
    ClearErrors
    ${GetOptions} $R0 "${switch}" $R1
    ${IfNot} ${Errors}
        !insertmacro SelectSection ${section}
    ${EndIf}
!macroend

Function .onInit
    ${GetParameters} $R0
    !insertmacro SelectBySwitch "/REFERENCE" ${referenceSection}
    !insertmacro SelectBySwitch "/TYPELIB" ${typeLibrarySection}
FunctionEnd

; Counts in $R9 the classes of one part of the registry that are in the category $R8.
!macro CountClasses classes
    StrCpy $R7 0
    ${Do}
        EnumRegKey $R6 HKCR "${classes}" $R7
        ${If} $R6 == ""
            ${ExitDo}
        ${EndIf}
        StrCpy $R4 0
        ${Do}
            EnumRegKey $R5 HKCR "${classes}\$R6\Implemented Categories" $R4
            ${If} $R5 == ""
                ${ExitDo}
            ${ElseIf} $R5 == $R8
                IntOp $R9 $R9 + 1
            ${EndIf}
            IntOp $R4 $R4 + 1
        ${Loop}
        IntOp $R7 $R7 + 1
    ${Loop}
!macroend

; A category that came with us goes with us, unless somebody else uses it by now.
Function un.RemoveCategory
    ReadRegDWORD $0 HKLM "${UNINSTALL_KEY}" "Category $R8"
    ${If} $0 == 1
        StrCpy $R9 0
        !insertmacro CountClasses "CLSID"
        !insertmacro CountClasses "WOW6432Node\CLSID"
        ${If} $R9 == 0
            DeleteRegKey HKCR "Component Categories\$R8"
        ${EndIf}
    ${EndIf}
FunctionEnd

!macro RemoveCategory category
    StrCpy $R8 "${category}"
    Call un.RemoveCategory
!macroend

!macro RequireUnused file
    ClearErrors
    FileOpen $0 "${file}" a
    ${If} ${Errors}
    ${AndIf} ${FileExists} "${file}"
        MessageBox MB_ICONSTOP "Verdanth is in use. Quit MATLAB, Octave and other programs that use it first." /SD IDOK
        SetErrorLevel 2
        Abort "Verdanth is in use."
    ${EndIf}
    FileClose $0
!macroend

Section "Uninstall"
    SetRegView 64
    ; Nothing is taken away while a program, or its host, has either of them: what is loaded can't be written to.
    !insertmacro RequireUnused "$INSTDIR\toolbox\Verdanth.mexw64"
    !insertmacro RequireUnused "$INSTDIR\isolated\VerdanthClient.mexw64"
    DeleteRegKey HKCR "TypeLib\${SYSTEM_LIBRARY}"
    DeleteRegKey HKCR "Interface\${PRIVATE_INTERFACE}"
    SetRegView 32
    DeleteRegKey HKCR "Interface\${PRIVATE_INTERFACE}"
    SetRegView 64
    ExecWait '"$INSTDIR\Verdanth6432Relay.exe" /UnregServer'
    ExecWait '"$INSTDIR\Verdanth6432Relay.exe" /UnregTypeLib'
    ReadRegDWORD $0 HKLM "${UNINSTALL_KEY}" "Reference"
    ${If} $0 == 1
        ExecWait '"$WINDIR\SysWOW64\regsvr32.exe" /s /u "$INSTDIR\reference\x86\VerdanthReference.dll"'
        ExecWait '"$WINDIR\System32\regsvr32.exe" /s /u "$INSTDIR\reference\x64\VerdanthReference.dll"'
        !insertmacro RemoveCategory "${OBJECT_CATEGORY}"
        !insertmacro RemoveCategory "${MANAGER_CATEGORY}"
        !insertmacro RemoveCategory "${PACKAGE_CATEGORY}"
    ${EndIf}
    !include "${LISTS}/remove_files.nsh"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    DeleteRegKey HKLM "${UNINSTALL_KEY}"
SectionEnd
