#!/usr/bin/env bash
# Runs a command with a HOME, XDG_CONFIG_HOME, XDG_RUNTIME_DIR and TMPDIR of its own, removed afterwards.
# On the offscreen platform, or with --display under Xvfb and a window manager.
set -u
# If the machine permits it, shared memory and locks are private as well: a killed program leaves them behind,
# and the next program with the same key would find them.
if [ -z "${QUILLAN_OWN_IPC-}" ] && unshare --ipc true 2>/dev/null; then
    QUILLAN_OWN_IPC=1 exec unshare --ipc "$0" "$@"
fi
display=no
[ "${1-}" = "--display" ] && { display=yes; shift; }

base=$(mktemp -d "${TMPDIR:-/tmp}/quillan.XXXXXX")
pids=()
cleanup() {
    for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null; done
    wait 2>/dev/null
    rm -rf "$base"
}
trap cleanup EXIT
trap 'exit 143' TERM INT HUP

mkdir -p "$base/home/.config" "$base/tmp"
mkdir -m 700 "$base/run"
export HOME="$base/home" XDG_CONFIG_HOME="$base/home/.config" XDG_DATA_HOME="$base/home/.local/share" \
       XDG_CACHE_HOME="$base/home/.cache" XDG_RUNTIME_DIR="$base/run" TMPDIR="$base/tmp"
export LC_ALL="${QUILLAN_TEST_LOCALE:-C.UTF-8}" QTEST_FUNCTION_TIMEOUT="${QTEST_FUNCTION_TIMEOUT:-280000}"
# The command must neither ask the desktop's session bus nor wait for it.
export DBUS_SESSION_BUS_ADDRESS="${QUILLAN_TEST_BUS:-unix:path=$base/run/no-bus}"

if [ "$display" = yes ]; then
    mkfifo "$base/display"
    Xvfb -displayfd 3 -screen 0 "${QUILLAN_TEST_SCREEN:-1280x900x24}" -nolisten tcp \
        3>"$base/display" >/dev/null 2>&1 &
    pids+=($!)
    read -r number <"$base/display"
    export DISPLAY=":$number" QT_QPA_PLATFORM=xcb
    unset WAYLAND_DISPLAY
    # If it ends, another one replaces it.
    while sleep 0.1; do openbox; done >/dev/null 2>&1 &
    pids+=($!)
    # The window manager is there once it has named itself on the root window.
    for _ in $(seq 400); do
        xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && break
        sleep 0.05
    done
else
    export QT_QPA_PLATFORM=offscreen
    unset DISPLAY WAYLAND_DISPLAY
fi
"$@"
