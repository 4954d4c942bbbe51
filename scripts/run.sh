#!/usr/bin/env bash
# Installs what is missing, builds, and starts the program. Arguments go to the program.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
"$here/scripts/build.sh"
exec "${BUILD_DIR:-$here/build}/norvika" "$@"
