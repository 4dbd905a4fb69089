#!/usr/bin/env bash
# The script that installs packages, among tools that only write down how they were called.
#   test-setup.sh SETUP
set -u
setup=$1
work=$(mktemp -d "${TMPDIR:-/tmp}/setup.XXXXXX")
trap 'rm -rf "$work"' EXIT
mkdir "$work/bin"
tool() { cat >"$work/bin/$1"; chmod +x "$work/bin/$1"; }
tool dpkg-query <<<'#!/bin/sh
echo "${STATUS-}"'
tool id <<<'#!/bin/sh
echo 0'
tool sleep <<<'#!/bin/sh
echo "sleep $*" >>"$CALLS"'
# The first $BUSY calls find the lists locked.
tool apt-get <<'EOF'
#!/bin/sh
for word; do case $word in update|install) command=$word ;; esac; done
echo "$command $*" >>"$CALLS"
[ "$command" = "${FAIL-}" ] && { echo 'E: No such thing'; exit 100; }
[ "$command" = update ] && [ "$(grep -c ^update "$CALLS")" -le "${BUSY-0}" ] &&
    { echo 'E: Could not get lock /var/lib/apt/lists/lock. It is held by process 1'; exit 100; }
exit 0
EOF
export PATH="$work/bin:$PATH" CALLS="$work/calls"

failed=0
# run STATUS ENVIRONMENT…: the script's exit status; its output is in $said, the calls in $calls.
run() {
    local wanted=$1
    shift
    : >"$CALLS"
    said=$(env "$@" "$setup" inspect 2>&1)
    local status=$?
    calls=$(cut -d' ' -f1 "$CALLS" | tr '\n' ' ')
    [ "$status" = "$wanted" ] || { echo "FAIL $*: status $status: $said"; failed=1; }
}
expect() { [[ $2 == $3 ]] || { printf 'FAIL %s\n  wanted: %s\n  got:    %s\n' "$1" "$3" "$2"; failed=1; }; }

run 0 STATUS='install ok installed'
expect 'nothing missing is silent and calls nobody' "$said|$calls" '|'
run 0 STATUS=
expect 'missing packages are installed' "$calls" 'update install '
expect 'the lock of the packages is waited for' "$(cat "$CALLS")" '*DPkg::Lock::Timeout=600*install*valgrind*'
run 0 STATUS= BUSY=2
expect 'the lock of the lists is waited for' "$calls" 'update sleep update sleep update install '
run 1 STATUS= FAIL=update
expect 'another fault is not waited for' "$calls" 'update '
expect 'a fault is told' "$said" '*No such thing*Could not install: *valgrind*'
run 1 STATUS= FAIL=install
expect 'a failed installation is told' "$said" '*No such thing*Could not install: *valgrind*'
exit $failed
