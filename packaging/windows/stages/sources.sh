# Fetches the source packages. The machine's own package sources are read and asked for sources, too, in
# a configuration apart, so that nothing of the machine is changed.
set -euo pipefail
. "$(dirname "$0")/../common.sh"
. "$source_dir/scripts/packages.sh"

apt_dir=$results/apt
mkdir -p "$apt_dir/parts" "$apt_dir/lists/partial"
for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.{list,sources}; do
    [ -f "$file" ] || continue
    sed -E -e 's/^Types:.*/Types: deb-src/' -e 's/^deb[[:blank:]]/deb-src /' "$file" \
        >"$apt_dir/parts/$(basename "$file" | tr -d '[:space:]')"
done
apt=(-q -o Dir::Etc::SourceList=/dev/null -o Dir::Etc::SourceParts="$apt_dir/parts"
     -o Dir::State::lists="$apt_dir/lists")
apt-get "${apt[@]}" update

# fetch NAME: the newest version that is to be had; a mirror may list one that it has no more.
fetch() {
    local version
    while read -r version; do
        rm -f "$1"_*.dsc
        apt-get "${apt[@]}" source --download-only "$1=$version" && return
    done < <(apt-cache "${apt[@]:1}" showsrc "$1" | sed -n 's/^Version: //p' | sort -rVu)
    return 1
}

cd "$results/packages"
for name in $SOURCES_WINDOWS; do
    [ -e "$name.fetched" ] || fetch "$name"
    touch "$name.fetched"
done
