# Wrappers around the cross compiler: the variant with POSIX threads, which the standard library's own
# threads need, by its plain name, which Qt asks for, and behind ccache.
set -euo pipefail
. "$(dirname "$0")/../common.sh"

for tool in gcc g++; do
    real=$(command -v "$target-$tool-posix")
    cat >"$results/bin/$target-$tool" <<WRAPPER
#!/bin/sh
CCACHE_SLOPPINESS=pch_defines,time_macros exec ccache "$real" -fpch-preprocess "\$@"
WRAPPER
    chmod +x "$results/bin/$target-$tool"
done
