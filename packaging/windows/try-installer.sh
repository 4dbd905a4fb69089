#!/usr/bin/env bash
# Installs with an installer under Wine, for the user and for all, looks at what is there, uninstalls and
# looks at what is left: try-installer.sh INSTALLER.exe
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$1" "$work/setup.exe"

# try_mode MODE HIVE FOLDER: fails with the number of the first thing that is not as it should be. Wine's
# shell knows no ||.
try_mode() {
    cat >"$work/try.bat" <<BATCH
@echo off
start /wait Z:$work\\setup.exe /S /$1
if not exist "$3\\quillan.exe" echo not installed & exit /b 1
if not exist "$3\\uninstall.exe" echo no uninstaller & exit /b 1
reg query "$2\\Software\\Classes\\.txt\\OpenWithProgids" /v Quillan.Document >nul
if errorlevel 1 exit /b 2
reg query "$2\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Quillan" /v DisplayVersion >nul
if errorlevel 1 exit /b 3
reg add "$2\\Software\\Tavrel Software\\quillan" /v kept /d yes /f >nul
echo mine >"$3\\mine.txt"
start /wait "" "$3\\uninstall.exe" /$1 /S _?=$3
if exist "$3\\quillan.exe" echo not removed & exit /b 4
if not exist "$3\\mine.txt" echo a file of the user is gone & exit /b 5
reg query "$2\\Software\\Classes\\Quillan.Document" >nul 2>nul
if not errorlevel 1 exit /b 6
reg query "$2\\Software\\Quillan" >nul 2>nul
if not errorlevel 1 exit /b 7
reg query "$2\\Software\\Tavrel Software\\quillan" /v kept >nul
if errorlevel 1 exit /b 8
exit /b 0
BATCH
    "$here/../../scripts/private-run.sh" --display "$here/wine-run.sh" cmd /c "Z:$work\\try.bat" ||
        { echo "$1: failed ($?)" >&2; return 1; }
    echo "$1: installed and uninstalled"
}
try_mode CurrentUser HKCU 'C:\users\'"$(id -un)"'\AppData\Local\Programs\Quillan'
try_mode AllUsers HKLM 'C:\Program Files\Quillan'
