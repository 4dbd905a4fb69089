#!/usr/bin/env bash
# Runs a Windows program under Wine with a registry, home and temporary folder of its own, removed
# afterwards: wine-run.sh PROGRAM.exe [ARGUMENT]... It finds Qt and the compiler's libraries where the
# stages of cross-build.sh put them; with QUILLAN_WINE_BARE=yes, only what lies beside the program, as on
# the machine of a user. scripts/private-run.sh around it decides whether there is a display.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
. "$here/common.sh"

template=$results/wine
# A prefix takes half a minute to make, and most of it is Windows' own folder: made once, then shared.
make_template() {
    mkdir -p "$results/stamps"
    exec 9>"$results/stamps/wine.lock"
    flock 9
    if [ ! -e "$template/made" ]; then
        rm -rf "$template"
        WINEPREFIX=$template wineboot --init >/dev/null 2>&1 9>&-
        WINEPREFIX=$template wineserver --wait
        touch "$template/made"
    fi
    exec 9>&-
}

runtime=$(dirname "$("$target-g++-posix" -print-file-name=libstdc++-6.dll)")
threads=/usr/$target/lib
export WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
[ -e "$template/made" ] || make_template

own=$(mktemp -d "${TMPDIR:-/tmp}/quillan-wine.XXXXXX")
end() {
    WINEPREFIX=$own wineserver --kill 2>/dev/null || true
    WINEPREFIX=$own wineserver --wait 2>/dev/null || true
    rm -rf "$own"
}
trap end EXIT
mkdir -p "$own/dosdevices" "$own/drive_c"
cp "$template"/*.reg "$own/"
cp -r "$template/drive_c/users" "$own/drive_c/"
# Its folders for documents would be those of this machine's user.
find "$own/drive_c/users" -type l -delete
mkdir -p "$own/drive_c/users/$(id -un)"/{Desktop,Documents,Downloads,Music,Pictures,Videos}
for folder in "$template"/drive_c/*; do
    [ -e "$own/drive_c/${folder##*/}" ] || ln -s "$folder" "$own/drive_c/"
done
ln -s ../drive_c "$own/dosdevices/c:"
ln -s / "$own/dosdevices/z:"
cp "$template/.update-timestamp" "$own/"

# Wine keeps the variables of this machine's Qt from its programs, but for those of its own registry. The
# platform of tests with a display is named for X by private-run.sh; tests would report to a debugger. The
# fonts are those that the tests have on this machine; Windows' own are not to be had.
platform=${QT_QPA_PLATFORM:-windows}
[ "$platform" = xcb ] && platform=windows
plugins="Z:$prefix/plugins"
[ "${QUILLAN_WINE_BARE-}" = yes ] && plugins=
cat >>"$own/user.reg" <<VALUES

[Environment]
"QT_QPA_PLATFORM"="$platform"
"QT_PLUGIN_PATH"="$plugins"
"QT_QPA_FONTDIR"="Z:/usr/share/fonts/truetype/dejavu"
"QT_FORCE_STDERR_LOGGING"="1"

[Software\\\\Wine\\\\Fonts\\\\Replacements]
"Courier New"="DejaVu Sans Mono"
"MS Shell Dlg"="DejaVu Sans"
"MS Shell Dlg 2"="DejaVu Sans"
"Segoe UI"="DejaVu Sans"
"Tahoma"="DejaVu Sans"
VALUES
export WINEPREFIX=$own
[ "${QUILLAN_WINE_BARE-}" = yes ] || export WINEPATH="Z:$prefix/bin;Z:$runtime;Z:$threads"
unset TMPDIR TMP TEMP
wine "$@"
