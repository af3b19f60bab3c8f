@echo off
rem Runs the test programs on this machine and leaves a report to send back in the folder "report".
rem usage: run-tests.cmd [<GoogleTest option>...]
rem        run-tests.cmd --put-back
rem
rem The tests change Jotwright's options, and for short times the message font, the signs in numbers and the
rem Recycle Bin of this user. The folder "before" keeps the original values, and the run restores them at
rem its end. After an interrupted run (Ctrl+C, a closed window, a loss of power), the next run restores them
rem first. With --put-back, it does nothing else. Needs no administrator, and only commands of Windows 7.
setlocal
set "failed=2"
set "policies=HKCU\Software\Microsoft\Windows\CurrentVersion\Policies\Explorer"

cd /d "%~dp0"
if not exist windows_driver.exe (
    echo Extract the whole archive to a disk of this machine, and start run-tests.cmd there.
    goto end
)
set "JOTWRIGHT_TEST_KIT=1"
windows_driver.exe --gtest_filter=- >nul
if errorlevel 3 goto end
if exist before\complete.txt call :put_back
if exist before\complete.txt goto end
if "%~1"=="--put-back" (
    set "failed=0"
    goto end
)

if exist report rmdir /s /q report
mkdir report\temp
if not exist report\temp (
    echo This folder cannot be written. Copy it to the desktop, and start run-tests.cmd there.
    goto end
)
call :describe > report\machine.txt 2>nul

if exist before rmdir /s /q before
mkdir before
reg export HKCU\Software\Jotwright before\options.reg /y >nul 2>&1
reg export "HKCU\Control Panel\International" before\formats.reg /y >nul 2>&1
reg export "HKCU\Control Panel\Desktop\WindowMetrics" before\fonts.reg /y >nul 2>&1
reg export HKCU\Software\Microsoft\Windows\CurrentVersion\Explorer\BitBucket before\bin.reg /y >nul 2>&1
reg export "%policies%" before\policies.reg /y >nul 2>&1
echo Restored by run-tests.cmd --put-back > before\complete.txt

set "JOTWRIGHT_EXE=%CD%\Jotwright\Jotwright.exe"
set "JOTWRIGHT_TEMP=%CD%\report\temp"
set "failed=0"
set "JOTWRIGHT_SUMMARY=%CD%\report\summary.txt"
for %%t in (conformance_win32 windows_driver) do (
    echo Running %%t. This takes some minutes.
    >> report\summary.txt echo %%t
    %%t.exe %* > report\%%t.txt 2>&1
    if errorlevel 1 set "failed=1"
    if not errorlevel 0 set "failed=1"
)
set "result=Tests failed, or a test program ended early."
if "%failed%"=="0" set "result=No test failed."
>> report\summary.txt echo %result%
rmdir /s /q report\temp
call :put_back
type report\summary.txt
echo The report is in "%CD%\report".

:end
if "%~1"=="" if not defined CI pause
exit /b %failed%

:put_back
reg delete HKCU\Software\Jotwright /f >nul 2>&1
for %%v in (NoRecycleFiles RecycleBinSize) do reg delete "%policies%" /v %%v /f >nul 2>&1
set "lost="
for %%k in (options formats fonts bin policies) do if exist before\%%k.reg call :import %%k
if defined lost (
    echo The user's %lost% could not be put back. Import before\%lost%.reg.
    set "failed=2"
) else (
    rmdir /s /q before
)
exit /b

:import
reg import before\%1.reg >nul 2>&1
if not errorlevel 1 exit /b
rem If the user may not change policies, the tests have not changed them.
if not "%1"=="policies" set "lost=%1"
exit /b

:describe
type kit.txt
ver
echo %PROCESSOR_ARCHITECTURE% %PROCESSOR_ARCHITEW6432% %PROCESSOR_IDENTIFIER%
for %%v in (ProductName EditionID DisplayVersion CSDVersion CurrentBuild UBR) do reg query "HKLM\SOFTWARE\Microsoft\Windows NT\CurrentVersion" /v %%v
for %%v in (LocaleName sShortDate sTimeFormat) do reg query "HKCU\Control Panel\International" /v %%v
reg query HKLM\SYSTEM\CurrentControlSet\Control\Nls\CodePage /v ACP
reg query "HKCU\Control Panel\Desktop" /v LogPixels
reg query "HKCU\Control Panel\Desktop\WindowMetrics" /v AppliedDPI
reg query HKCU\Software\Microsoft\Accessibility /v TextScaleFactor
exit /b
