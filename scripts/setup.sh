#!/usr/bin/env bash
# Installs the Debian packages that are missing: setup.sh run|display|test|check|windows|inspect|bench|pages …
# Silent when nothing is missing; fails with one line when something cannot be installed.
set -euo pipefail
. "$(dirname "$0")/packages.sh"

wanted=""
for purpose in "$@"; do
    case "$purpose" in
        run) wanted+=" $PACKAGES_RUN" ;;
        display) wanted+=" $PACKAGES_DISPLAY" ;;
        test) wanted+=" $PACKAGES_RUN $PACKAGES_TEST" ;;
        check) wanted+=" $PACKAGES_RUN $PACKAGES_DISPLAY $PACKAGES_CHECK" ;;
        windows) wanted+=" $PACKAGES_WINDOWS" ;;
        inspect) wanted+=" $PACKAGES_INSPECT" ;;
        pages) wanted+=" $PACKAGES_PAGES" ;;
        bench) wanted+=" $PACKAGES_RUN $PACKAGES_BENCH" ;;
        *) echo "setup.sh: unknown purpose '$purpose'" >&2; exit 2 ;;
    esac
done

command -v dpkg-query >/dev/null || exit 0 # Not Debian: the user brings Qt and the tools.

missing=()
for package in $wanted; do
    status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
    [ "$status" = "install ok installed" ] || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Please install: ${missing[*]}" >&2; exit 1; }
    root=(sudo)
fi
echo "Installing: ${missing[*]}"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
# Waits up to ten minutes for the locks of another package manager. apt-get has no option for that when it
# updates the lists.
patience=600
apt() {
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive LC_ALL=C \
        apt-get -qq -o "DPkg::Lock::Timeout=$patience" "$@" >"$log" 2>&1
}
update() {
    local end=$((SECONDS + patience))
    until apt update; do
        grep -q 'Could not get lock' "$log" && [ "$SECONDS" -lt "$end" ] || return 1
        sleep 3
    done
}
if ! { update && apt install -y --no-install-recommends "${missing[@]}"; }; then
    tail -n 20 "$log" >&2
    echo "Could not install: ${missing[*]}" >&2
    exit 1
fi
