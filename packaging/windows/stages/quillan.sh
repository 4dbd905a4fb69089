# Quillan itself, with its tests. Without the page engine there is no program, but everything that needs
# none is built and can be tested.
set -euo pipefail
. "$(dirname "$0")/../common.sh"

pages=OFF
[ -e "$prefix/lib/cmake/Qt5WebKitWidgets" ] && pages=ON
cd "$source_dir"
QUILLAN_WINDOWS_RESULTS=$results cmake --preset windows -DQUILLAN_PAGES=$pages
cmake --build --preset windows -j "$jobs"
