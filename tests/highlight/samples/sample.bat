@echo off
REM Builds the program; the words if and "for" are comment.
:: so is this line
setlocal EnableExtensions EnableDelayedExpansion
set "NAME=a value"
set /a COUNT=0x1F + 12 - -3

if not exist "%~dp0build" mkdir "%~dp0build"
if /i "%1"=="clean" goto :clean
if %ERRORLEVEL% GEQ 1 (
    echo Failed: !NAME! & rem the end of a line
    exit /b 1
) else (
    call :build "%NAME%" %*
)

for /f "tokens=1,2 delims==" %%A in ('type config.txt') do (
    set %%A=%%B
    if defined %%A echo %%A = %%~fB
)
for %%F in (*.cpp *.h) do copy /y "%%F" build\ >nul 2>&1
goto :eof

:build
pushd "%~1"
cl /nologo %2 || exit /b %ERRORLEVEL%
popd
goto :eof

:clean
rd /s /q build
del *.obj
pause
endlocal
