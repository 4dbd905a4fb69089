#!/usr/bin/env bash
# Brings real files of many languages for bench_colours: Debian packages and sources, unpacked and not
# installed, into the folder given (default build/colours).
set -euo pipefail
. "$(dirname "$0")/packages.sh"
folder=$(realpath -m "${1:-$(dirname "$0")/../build/colours}")
mkdir -p "$folder/download/lists" "$folder/files"
cd "$folder/download"

for package in $PACKAGES_COLOURS; do
    [ -d "../files/$package" ] && continue
    apt-get download -qq "$package" || { echo "left out: $package" >&2; continue; }
    dpkg-deb -x "$package"_*.deb "../files/$package"
done

# Sources have lists of their own, so that the machine's stay as they are.
from=$(apt-get indextargets --format '$(REPO_URI) $(CODENAME) $(COMPONENT)' "Created-By: Packages" |
    grep -v -- - | head -n 1)
echo "deb-src $from" > sources.list
sources=(-o "Dir::Etc::sourcelist=$PWD/sources.list" -o Dir::Etc::sourceparts=/dev/null
         -o "Dir::State::lists=$PWD/lists" -o Dir::Cache::srcpkgcache= -o Dir::Cache::pkgcache=)
apt-get "${sources[@]}" update -qq
for package in $SOURCES_COLOURS; do
    [ -d "../files/src-$package" ] && continue
    apt-get "${sources[@]}" source -qq --download-only "$package" >/dev/null ||
        { echo "left out: $package" >&2; continue; }
    mkdir -p "../files/src-$package"
    for archive in "$package"_*.tar.*; do
        case $archive in *.asc) ;; *) tar xf "$archive" -C "../files/src-$package" ;; esac
    done
done
echo "$folder/files"
