#!/usr/bin/env bash
# Copies files, with "quotes" and for in the comment.
set -euo pipefail
source ./common.sh

: '# A block that the shell reads as one argument:
if for while "string" $name
#'

readonly LIMIT=0x1F NAME="a \"quoted\" name \\"
declare -A count=([a]=1 [b]=-2)

usage() {
    cat <<TEXT
usage: ${0} [-v] FILE...
TEXT
    exit 1
}

function copy {
    local from=$1 to=${2:-/tmp}
    if [[ ! -r "$from" && -z $to ]]; then
        printf '%s: cannot read %s\n' "$NAME" "$from" >&2
        return 1
    elif (( count[a] + 1 > 3 )); then
        : "$((LIMIT * 2))"
    else
        cp -- "$from" "$to" || exit $?
    fi
}

while getopts "hv" option; do
    case $option in
        v) set -x ;;
        h|\?) usage ;;
    esac
done
shift $((OPTIND - 1))

for file in "$@"; do
    copy "$file" & pid=$!
    wait "$pid" || trap 'echo stopped' INT
    lines=$(grep -c '^#' "$file" | sort -n)   # how many
    echo "$file: $lines ${file##*/} several
lines in one string"
done
until false; do break; done
export PATH="$HOME/bin:$PATH"
unset count; alias ll='ls -l'
