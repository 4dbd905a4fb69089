# Quillan itself, with its tests. Without the page engine a stand-in has pages as their source only; what
# needs the engine is not tested then.
set -euo pipefail
. "$(dirname "$0")/../common.sh"

pages=OFF
[ -e "$prefix/lib/cmake/Qt5WebKitWidgets" ] && pages=ON
cd "$source_dir"
QUILLAN_WINDOWS_RESULTS=$results cmake --preset windows -DQUILLAN_PAGES=$pages
cmake --build --preset windows -j "$jobs"
