@echo off
rem Runs the test programs on this machine and leaves a report to send back in the folder "report".
rem Takes about half an hour. Do not use mouse or keyboard meanwhile. The options of an installed Jotwright
rem are kept and put back; exit it first.
setlocal
cd /d "%~dp0"
if exist report rmdir /s /q report
mkdir report\temp
set "JOTWRIGHT_TEST_KIT=1"
set "JOTWRIGHT_EXE=%CD%\Jotwright\Jotwright.exe"
set "JOTWRIGHT_TEMP=%CD%\report\temp"
set "failed=0"

ver > report\machine.txt
echo %PROCESSOR_ARCHITECTURE% %PROCESSOR_IDENTIFIER% >> report\machine.txt
reg query "HKCU\Control Panel\International" /v LocaleName >> report\machine.txt
reg query "HKLM\SYSTEM\CurrentControlSet\Control\Nls\CodePage" /v ACP >> report\machine.txt

reg query HKCU\Software\Jotwright >nul 2>&1
set "none=%ERRORLEVEL%"
if "%none%"=="0" reg export HKCU\Software\Jotwright options-before.reg /y >nul

for %%t in (conformance_win32 windows_driver) do (
    echo Running %%t
    %%t.exe %* > report\%%t.txt 2>&1
    if errorlevel 1 set "failed=1"
    findstr /b /c:"[==========]" /c:"[  PASSED  ]" /c:"[  SKIPPED ]" /c:"[  FAILED  ]" report\%%t.txt
)

reg delete HKCU\Software\Jotwright /f >nul 2>&1
if "%none%"=="0" reg import options-before.reg >nul 2>&1 && del options-before.reg
rmdir /s /q report\temp
echo The report is in "%CD%\report".
exit /b %failed%
