#!/usr/bin/env bash
# werkzeuge/tidy.sh [DATEI ...]: clang-tidy over the sources (or over the given ones), all cores at once. The
# release build's compile commands say how each file is compiled. Ends with 1 when there is a finding.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/gemeinsam.sh"

command -v clang-tidy >/dev/null || scheitern "clang-tidy fehlt (werkzeuge/einrichten.sh installiert es)."
bauen release
cd "$WURZEL"
if [ $# -eq 0 ]; then
    mapfile -d '' DATEIEN < <(find src werkzeuge benchmarks -name '*.cpp' -print0 | sort -z)
else
    DATEIEN=("$@")
fi
# A precompiled header of gcc is of no use to clang, and its warnings are checked by the build itself.
printf '%s\0' "${DATEIEN[@]}" | xargs -0 -P "$KERNE" -n 1 \
    clang-tidy -p build/release --quiet --extra-arg=-Wno-unknown-warning-option \
    --extra-arg=-Wno-ignored-optimization-argument 2>/dev/null
