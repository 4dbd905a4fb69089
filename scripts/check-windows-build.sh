#!/usr/bin/env bash
# Checks cheaply what a build for Windows, which takes hours, would stumble over: that the scripts of
# packaging/windows parse, that each stage has its script and each script its stage, and that Debian has
# the packages and sources which they ask for. The last is left out where apt has no lists.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

for script in packaging/windows/*.sh packaging/windows/stages/*.sh; do
    bash -n "$script"
done
if ! diff <(packaging/windows/cross-build.sh --list | sort) \
    <(basename -s .sh packaging/windows/stages/*.sh | sort); then
    echo "packaging/windows/common.sh and packaging/windows/stages do not name the same stages." >&2
    exit 1
fi

if ! compgen -G '/var/lib/apt/lists/*_Packages*' >/dev/null; then
    echo "The scripts for Windows parse. Apt has no lists to look for their packages in."
    exit 0
fi
packages=$(mktemp)
trap 'rm -f "$packages"' EXIT
# A source package that no field names is called as its package.
apt-cache dumpavail | sed -nE 's/^(Package|Source): ([^ ]+).*/\1 \2/p' | sort -u >"$packages"
missing=()
for name in $PACKAGES_WINDOWS; do
    grep -qxF "Package $name" "$packages" || missing+=("$name")
done
for name in $SOURCES_WINDOWS; do
    grep -qxE "(Package|Source) ${name//./\\.}" "$packages" || missing+=("$name")
done
if [ ${#missing[@]} -gt 0 ]; then
    echo "Debian has not: ${missing[*]}" >&2
    exit 1
fi
echo "The scripts for Windows parse, and Debian has their packages."
