#!/usr/bin/env bash
# Fetches real files of many languages for bench_colours: Debian packages and sources, which are unpacked and
# not installed, into the given folder (default build/colours).
set -euo pipefail
. "$(dirname "$0")/packages.sh"
folder=$(realpath -m "${1:-$(dirname "$0")/../build/colours}")
mkdir -p "$folder/download/lists" "$folder/files"
cd "$folder/download"

unpack() { # PACKAGE FOLDER
    [ -d "../files/$2" ] && return
    if apt-get download -qq "$1"; then
        dpkg-deb -x "$1"_*.deb "../files/$2"
    else
        echo "left out: $1" >&2
    fi
}

for package in $PACKAGES_COLOURS; do
    unpack "$package" "$package"
done
for entry in $PATTERNS_COLOURS; do
    newest=$(apt-cache pkgnames | grep -E "${entry#*=}" | sort -V | tail -n 1)
    unpack "${newest:-${entry%%=*}}" "${entry%%=*}"
done

# Sources get separate lists, so that the machine's own lists stay unchanged.
from=$(apt-get indextargets --format '$(REPO_URI) $(CODENAME) $(COMPONENT)' "Created-By: Packages" |
    grep -v -- - | head -n 1)
echo "deb-src $from" > sources.list
sources=(-o "Dir::Etc::sourcelist=$PWD/sources.list" -o Dir::Etc::sourceparts=/dev/null
         -o "Dir::State::lists=$PWD/lists" -o Dir::Cache::srcpkgcache= -o Dir::Cache::pkgcache=)
apt-get "${sources[@]}" update -qq
for package in $SOURCES_COLOURS; do
    [ -d "../files/src-$package" ] && continue
    apt-get "${sources[@]}" source -qq --tar-only --download-only "$package" >/dev/null ||
        { echo "left out: $package" >&2; continue; }
    mkdir -p "../files/src-$package"
    for archive in "$package"_*.tar.*; do
        case $archive in *.asc) ;; *) tar xf "$archive" -C "../files/src-$package" ;; esac
    done
done
echo "$folder/files"
