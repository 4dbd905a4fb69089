#!/usr/bin/awk -f
# Sums a column for each key.
@include "assert"

BEGIN {
    FS = "[ \t]*,[ \t]*"; OFS = "\t"
    limit = 0x10
    if (ARGC < 2) { print "usage: \"sum\" file" > "/dev/stderr"; exit 1 }
}

/^#/ || NF == 0 { next }

function max(a, b,    m) {
    m = (a > b) ? a : b
    return m
}

$1 ~ /^[A-Za-z]+$/ && $NF !~ /x/ {
    key = tolower($1)
    sum[key] += $2 * 1.5e0
    top[key] = max(top[key], $2)
    n = split($3, parts, ":")
    for (i = 1; i <= n; i++)
        if (parts[i] in seen) continue
        else seen[parts[i]]++
}

END {
    while (("date" | getline line) > 0)
        printf "%s\n", substr(line, 1, 10)
    close("date")
    if (0) {
        print "left out"
    }
    for (k in sum) {
        gsub(/a/, "b", k)
        printf("%-10s %8.2f %d\n", k, sum[k], top[k]) | "sort"
    }
    delete seen
    print NR, ENVIRON["HOME"], length(top) # the end
}
