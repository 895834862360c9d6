@echo off
rem Tries Tessarine on this machine, and writes what came of it into windows_check.txt beside this file: a report that
rem can be sent. It takes about two minutes, in which mouse and keyboard are not to be touched.
rem
rem     windows_check.cmd           the contract of the platform layer, the benchmark, the sample job
rem     windows_check.cmd quick     the same without the benchmark
rem
rem Its exit code is the number of parts that failed.
setlocal
cd /d "%~dp0"
if "%1"=="sample" goto sample
set report=windows_check.txt
set failed=0

echo Tessarine on a Windows machine> %report%
echo %date% %time%>> %report%
ver>> %report%
chcp>> %report%
echo %PROCESSOR_ARCHITECTURE%, %NUMBER_OF_PROCESSORS% processors, session %SESSIONNAME%>> %report%
certutil -hashfile tessarine.exe SHA256>> %report% 2>nul

tasklist | find /i "tessarine.exe" >nul
if errorlevel 1 goto free
echo Tessarine is running. Please end it (right button on its icon, Exit) and start this again.
echo Not tried: Tessarine was running.>> %report%
exit /b 4
:free

call :part "The contract of the platform layer" "platform_contract.exe" 1
if not "%1"=="quick" call :part "Benchmark of the real desktop" "desktop_bench.exe" 2

rem A job that succeeds ends the program. One that does not leaves it in the notification area, so somebody else waits.
call :title "The sample job: two lines in Notepad"
if exist sample.tmp del sample.tmp
start "" /b cmd /c "%~nx0" sample
set waited=0
:wait
ping -n 2 127.0.0.1 >nul
set /a waited=waited+1
if exist sample.tmp goto ended
if %waited% lss 60 goto wait
echo did not end within a minute: the status window tells why>> %report%
echo FAILED>> %report%
set /a failed=failed+1
taskkill /f /im tessarine.exe >nul 2>&1
goto told
:ended
set /p code=<sample.tmp
del sample.tmp
echo exit code %code%, after about %waited% seconds>> %report%
if not "%code%"=="0" goto bad
echo ok>> %report%
goto told
:bad
echo FAILED>> %report%
set /a failed=failed+1
:told

call :title "Parts that failed: %failed%"
echo.
echo The report is windows_check.txt, beside this file. Please look whether Notepad holds two lines, the first of them
echo "Hello from Tessarine.", and send the report with your answer.
exit /b %failed%

rem The path takes no quotes.
:sample
start /wait "" tessarine.exe -run %~dp0hello.tsj
echo %errorlevel%> sample.new
ren sample.new sample.tmp
exit /b 0

:title
echo %~1
echo.>> %report%
echo ==== %~1>> %report%
exit /b 0

rem Into a file of its own: a process that outlives the part would hold the report.
:part
call :title %1
%~2> part-%3.tmp
set code=%errorlevel%
type part-%3.tmp>> %report%
del part-%3.tmp 2>nul
if not "%code%"=="0" goto partfailed
echo ok>> %report%
exit /b 0
:partfailed
echo FAILED, exit code %code%>> %report%
set /a failed=failed+1
exit /b 0
