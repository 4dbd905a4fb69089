# The program with all it needs in one folder, as a ZIP archive that can be unpacked anywhere and as an
# installer, in packages-made; the installer is tried under Wine.
set -euo pipefail
. "$(dirname "$0")/../common.sh"

version=$(sed -nE 's/^project\(quillan VERSION ([0-9.]+).*/\1/p' "$source_dir/CMakeLists.txt")
# A program that shows no pages says so in the name of what it comes in.
name=quillan-$version
licenses=(qtbase-opensource-src/LICENSE.{LGPL3,GPL3} uchardet/COPYING hunspell/COPYING.LESSER)
if [ -e "$prefix/lib/cmake/Qt5WebKitWidgets" ]; then
    licenses+=(qtwebkit-opensource-src/LICENSE.LGPLv21 icu/LICENSE {libxml2,libxslt}/Copyright
               libjpeg-turbo/LICENSE.md libpng1.6/LICENSE)
else
    name+=-nopages
fi
made=$results/packages-made
folder=$made/$name
rm -rf "$folder"
mkdir -p "$folder/licenses"
cmake --install "$source_dir/build/windows" --prefix "$folder" --strip

cd "$results/sources"
for license in "${licenses[@]}"; do
    cp "$license" "$folder/licenses/$(tr / - <<<"$license").txt"
done

(cd "$made" && rm -f "$name-windows.zip" && zip -qr9 "$name-windows.zip" "$name")
"$source_dir/packaging/windows/make-installer.sh" "$folder" "$version" "$made/$name-setup.exe"
page=tests/highlight/samples/sample.html
title=${page##*/} # Where there are no pages, its source is shown.
[[ $name == *-nopages ]] || title=$(sed -n 's|.*<title>\(.*\)</title>.*|\1|p' "$source_dir/$page")
try() {
    "$source_dir/packaging/windows/try-program.sh" "$folder" "$made/$(basename "$1").png" "$source_dir/$1" "${2-}"
}
try app/main.cpp
try docs/quillan.png
try "$page" "$title"
"$source_dir/packaging/windows/try-installer.sh" "$made/$name-setup.exe"
ls -l "$made"
