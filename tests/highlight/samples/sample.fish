#!/usr/bin/env fish
# It's a "remark
function greet --argument name
    set -l text "hello $name, $(date +%s) it's"
    echo 'don\'t # stop' \" a#b
    if test (count $argv) -gt 1; and string match -q 'a*' $name
        echo done # here
    end
end
