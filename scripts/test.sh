#!/usr/bin/env bash
# Installs what is missing, builds, and runs the whole test suite.
# --sanitize builds into build-asan/ with AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
cmake_args=()
if [ "${1:-}" = "--sanitize" ]; then
  export BUILD_DIR=${BUILD_DIR:-$here/build-asan}
  export BUILD_TYPE=Debug
  cmake_args+=(-DNORVIKA_SANITIZE=ON)
  export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1}
  export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1:suppressions=$here/scripts/ubsan.supp}
fi
build=${BUILD_DIR:-$here/build}
"$here/scripts/build.sh" "${cmake_args[@]}"
export QT_QPA_PLATFORM=offscreen
cd "$build"
ctest --output-on-failure --parallel "$(nproc)" --timeout 300
