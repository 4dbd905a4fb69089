#!/bin/sh
# The launcher, in a prefix of its own before a program that only writes down what it was given.
#   test-launcher.sh LAUNCHER VERSION
launcher=$1
version=$2
prefix=$(mktemp -d "${TMPDIR:-/tmp}/launcher.XXXXXX")
trap 'rm -rf "$prefix"' EXIT
mkdir -p "$prefix/bin" "$prefix/lib/quillan" "$prefix/else where"
cp "$launcher" "$prefix/bin/quillan"
chmod +x "$prefix/bin/quillan"
cat >"$prefix/lib/quillan/quillan" <<'END'
#!/bin/sh
printf '[%s]' "$@"
END
chmod +x "$prefix/lib/quillan/quillan"
ln -s ../bin/quillan "$prefix/else where/linked"
cd "$prefix/else where" || exit 1
here=$(pwd)

failed=0
# expect NAME WANTED COMMAND…: the output of the command is exactly WANTED.
expect() {
    name=$1 wanted=$2
    shift 2
    got=$("$@" 2>&1)
    if [ "$got" != "$wanted" ]; then
        printf 'FAIL %s\n  wanted: %s\n  got:    %s\n' "$name" "$wanted" "$got"
        failed=1
    fi
}
quillan="$prefix/bin/quillan"
tab=$(printf 'a\tb')

expect 'no argument hands over none' '[]' "$quillan"
expect 'a relative path becomes absolute' "[$here/a.txt]" "$quillan" a.txt
expect 'an absolute path stays' '[/etc/hosts]' "$quillan" /etc/hosts
expect 'blanks, quotes and dollars survive' "[$here/a b][$here/\"q\"][$here/\$HOME][$here/$tab]" \
    "$quillan" 'a b' '"q"' '$HOME' "$tab"
expect 'a name with a wildcard is not expanded' "[$here/*]" "$quillan" '*'
expect 'order is kept' "[$here/1][/2][$here/3]" "$quillan" 1 /2 3
expect 'behind -- a hyphen begins a name' "[$here/--help][$here/-x][$here/--]" \
    "$quillan" -- --help -x --
expect 'a lone hyphen is a name' "[$here/-]" "$quillan" -
expect 'a link on the PATH finds the program' "[$here/a]" ./linked a
expect 'the version is told' "Quillan $version" "$quillan" --version
expect 'in the root folder no slash is doubled' '[/etc]' sh -c "cd / && '$quillan' etc"

"$quillan" --help | grep -q '^Usage: quillan ' || { echo 'FAIL --help shows the usage'; failed=1; }
"$quillan" --colour >/dev/null 2>&1
[ $? -eq 2 ] || { echo 'FAIL an unknown option ends with 2'; failed=1; }
expect 'an unknown option opens nothing' \
    "quillan: unknown option '--colour'; try 'quillan --help'" "$quillan" a --colour
exit $failed
