#!/usr/bin/env bash
# Makes the Windows program on Debian, from the source packages of Qt on: cross-build.sh [STAGE]...
# All stages run in their order when none is named; cross-build.sh --list tells them. What they make
# goes to $QUILLAN_WINDOWS_RESULTS, by default build/windows-results, and can be kept: a finished stage
# leaves a stamp there and is skipped by the next run, a stage that was interrupted goes on where it was.
# A stage whose stamp is deleted runs again.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
. "$here/common.sh"

run_stage() {
    local stage=$1 log="$results/log/$1.log" start=$SECONDS
    # Two runs may work on different stages of one folder, never on the same.
    exec 9>"$results/stamps/$stage.lock"
    flock -n 9 || { echo "$stage: another run works on it" >&2; return 1; }
    if [ -e "$results/stamps/$stage" ]; then
        echo "$stage: done before"
        return
    fi
    echo "$stage: begins at $(date +%H:%M:%S), log $log"
    if ! nice -n 10 bash "$here/stages/$stage.sh" >>"$log" 2>&1; then
        tail -n 20 "$log" >&2
        echo "$stage: failed after $((SECONDS - start)) s" >&2
        return 1
    fi
    echo "$stage: done after $((SECONDS - start)) s"
    # What depends on the sources of the program itself is looked at every time.
    case "$stage" in
        quillan | package) ;;
        *) echo "$((SECONDS - start)) s" >"$results/stamps/$stage" ;;
    esac
}

for stage in "$@"; do
    [ "$stage" = --list ] && { printf '%s\n' "${stages[@]}"; exit; }
    [ -f "$here/stages/$stage.sh" ] || { echo "No stage '$stage': ${stages[*]}" >&2; exit 2; }
done
mkdir -p "$results"/{bin,build,log,packages,prefix,sources,stamps}
[ $# -gt 0 ] || set -- "${stages[@]}"
for stage in "$@"; do
    run_stage "$stage"
done
