# The program with all it needs in one folder, as a ZIP archive that can be unpacked anywhere and as an
# installer, in packages-made; the installer is tried under Wine.
set -euo pipefail
. "$(dirname "$0")/../common.sh"

[ -e "$source_dir/build/windows/quillan.exe" ] ||
    { echo "There is no program to pack: it is not built without the page engine." >&2; exit 1; }
version=$(sed -nE 's/^project\(quillan VERSION ([0-9.]+).*/\1/p' "$source_dir/CMakeLists.txt")
made=$results/packages-made
folder=$made/quillan-$version
rm -rf "$folder"
mkdir -p "$folder/licenses"
cmake --install "$source_dir/build/windows" --prefix "$folder" --strip

cd "$results/sources"
for license in qtbase-opensource-src/LICENSE.{LGPL3,GPL3} qtwebkit-opensource-src/LICENSE.LGPLv21 \
    icu/LICENSE {libxml2,libxslt}/Copyright libjpeg-turbo/LICENSE.md libpng1.6/LICENSE uchardet/COPYING; do
    cp "$license" "$folder/licenses/$(tr / - <<<"$license").txt"
done

(cd "$made" && rm -f "quillan-$version-windows.zip" && zip -qr9 "quillan-$version-windows.zip" "quillan-$version")
"$source_dir/packaging/windows/make-installer.sh" "$folder" "$version" "$made/quillan-$version-setup.exe"
"$source_dir/packaging/windows/try-installer.sh" "$made/quillan-$version-setup.exe"
ls -l "$made"
