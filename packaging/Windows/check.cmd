@echo off
rem Checks Panelkit on this Windows and writes what holds to table-user.txt or, when started as administrator,
rem table-administrator.txt. All that it writes lies in this folder; delete it when you have mailed the table.
setlocal
cd /d "%~dp0"
set rights=user
reg query HKU\S-1-5-20 >nul 2>&1
if not errorlevel 1 set rights=administrator
set table=%CD%\table-%rights%.txt
set work=%CD%\work folder
set failed=0
set own_files=
if exist "%LOCALAPPDATA%\Panelkit" set own_files=kept

rem Paths with blanks: what tests write, and a simulator.
mkdir "%work%\temp"
if not exist "%work%\temp" goto closed
set TEMP=%work%\temp
set TMP=%work%\temp
set PANELKIT_CHECK=1
set PANELKIT_EXE=%CD%\Panelkit.exe
xcopy /e /i /q /y simulator "%work%\FS 2002" >nul
copy /y panelkit-console.exe "%work%" >nul
copy /y *.gif "%work%" >nul

echo Panelkit's check, a few minutes. Leave the mouse and the keyboard alone while windows open.
echo Panelkit @PROJECT_VERSION@, checked on this Windows> "%table%"
echo.>> "%table%"
echo Files and services>> "%table%"
test_windows.exe --reporters=table>> "%table%"
if errorlevel 1 set failed=1
echo The window>> "%table%"
test_win32.exe --reporters=table>> "%table%"
if errorlevel 1 set failed=1

echo The console companion in a folder with blanks>> "%table%"
set console=%work%\panelkit-console.exe
set place=%work%\FS 2002
call :round

echo The console companion and the page on a drive of subst>> "%table%"
set drive=
for %%d in (K L M N O P Q R) do if not exist %%d:\ set drive=%%d:
subst %drive% "%work%" >nul 2>&1
if not exist "%drive%\temp" goto nosubst
set console=%drive%\panelkit-console.exe
set place=%drive%\FS 2002
call :round
set TEMP=%drive%\temp
set TMP=%drive%\temp
test_win32.exe --reporters=table --test-case="The pane shows*,*a downloaded panel*">> "%table%"
if errorlevel 1 set failed=1
subst %drive% /d >nul
goto end
:nosubst
call :line "not applicable here " "every command"
call :line "                    " "subst makes no drive"

:end
echo Not looked at: a simulator under Program Files.>> "%table%"
if not "%own_files%"=="kept" rd "%LOCALAPPDATA%\Panelkit" >nul 2>&1
rem Tests of long paths leave folders that rd cannot follow: Wine's takes them for others. They stay.
rd "%work%\temp" >nul 2>&1
if not exist "%work%\temp" rd /s /q "%work%"
type "%table%"
echo The table to mail: %table%
if "%PANELKIT_UNATTENDED%"=="" pause
exit /b %failed%

:closed
echo This folder takes no files. Unpack the zip to a folder of your own and start check.cmd there.
if "%PANELKIT_UNATTENDED%"=="" pause
exit /b 1

rem Every command of the console companion that changes something, and back.
:round
call :status 1 "probe finds missing gauges" probe
copy /y "%work%\out.txt" "%work%\before.txt" >nul
call :status 0 "clean moves gauges" clean
call :there "a moved gauge is in SpareGauges" "%work%\SpareGauges\AuxFuel.gau"
call :gone "it has left Gauges" "%place%\Gauges\AuxFuel.gau"
call :status 0 "restore brings gauges back" restore
call :there "the gauge is back" "%place%\Gauges\AuxFuel.gau"
call :gone "it has left SpareGauges" "%work%\SpareGauges\AuxFuel.gau"
call :status 1 "probe works as before" probe
fc "%work%\before.txt" "%work%\out.txt" >nul
if errorlevel 1 (call :fails "its report is the same") else call :line "holds               " "its report is the same"
call :status 0 "the brake messages go off" brake off
call :status 0 "the brake messages come on" brake on
echo.>> "%table%"
goto :eof

rem status NUMBER PROMISE COMMAND...: one command and its exit status.
:status
"%console%" --simulator "%place%" %3 %4 > "%work%\out.txt" 2>&1
if "%errorlevel%"=="%1" (call :line "holds               " %2) else call :fails %2
goto :eof

:there
if exist %2 (call :line "holds               " %1) else call :fails %1
goto :eof

:gone
if exist %2 (call :fails %1) else call :line "holds               " %1
goto :eof

:fails
call :line "FAILS               " %1
set failed=1
goto :eof

:line
echo %~1    %~2>> "%table%"
goto :eof
