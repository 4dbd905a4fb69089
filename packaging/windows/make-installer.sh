#!/usr/bin/env bash
# Makes the installer from a folder that holds the program and all it needs:
# make-installer.sh FOLDER VERSION OUTPUT.exe
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
folder=$(realpath "$1") version=$2 output=$(realpath -m "$3")

# What the uninstaller removes: files, then folders, those within others first.
files=$(mktemp)
trap 'rm -f "$files"' EXIT
(cd "$folder" && find . -type f -printf '%P\n') |
    sed -e 's|/|\\|g' -e 's|.*|Delete "$INSTDIR\\&"|' >"$files"
(cd "$folder" && find . -depth -mindepth 1 -type d -printf '%P\n') |
    sed -e 's|/|\\|g' -e 's|.*|RMDir "$INSTDIR\\&"|' >>"$files"
makensis -V2 -INPUTCHARSET UTF8 -DVERSION="$version" -DFOLDER="$folder" -DOUTPUT="$output" \
    -DICON="$here/quillan.ico" -DLICENSE="$here/../../LICENSE" -DFILES="$files" "$here/quillan.nsi"
