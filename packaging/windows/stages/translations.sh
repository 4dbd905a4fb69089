# Qt's own texts. The catalogues are the same on every system, so this machine's are taken; both are of
# one version of Qt.
set -euo pipefail
. "$(dirname "$0")/../common.sh"

mkdir -p "$prefix/translations"
cp /usr/share/qt5/translations/{qt,qtbase}_*.qm "$prefix/translations/"
