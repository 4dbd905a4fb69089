# Installs the packages of this machine that the other stages need.
set -euo pipefail
"$(dirname "$0")/../../../scripts/setup.sh" run display windows
