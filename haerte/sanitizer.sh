#!/usr/bin/env bash
# haerte/sanitizer.sh [ORDNER]: the tests of what runs on several threads with the thread sanitizer; then, with ORDNER,
# all files in it added to an index and listed with the address, undefined-behaviour and leak sanitizers, with which
# ./testen runs all tests. Ends with 0 only if nothing was reported.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/../werkzeuge/gemeinsam.sh"

ABLAGE="$(mktemp -d)"
trap 'rm -rf -- "$ABLAGE"' EXIT
export HOME="$ABLAGE" XDG_CONFIG_HOME="$ABLAGE/config" XDG_DATA_HOME="$ABLAGE/data" XDG_RUNTIME_DIR="$ABLAGE/lauf"
mkdir -m 700 "$ABLAGE/lauf"
cd "$WURZEL"
status=0

abschnitt "Nebenläufiges"
nebenlaeufig=(test_index test_suche test_dateien test_abspielen test_medien)
bauen faeden "${nebenlaeufig[@]}"
auswahl="$(IFS='|'; printf '%s' "^(${nebenlaeufig[*]})\$")"
ctest --preset faeden -j "$KERNE" -R "$auswahl" --no-tests=error || status=1

if [ $# -ge 1 ]; then
    abschnitt "Dateien in $1"
    bauen sanitizer liedwerk-cli
    cli="$WURZEL/build/sanitizer/src/ui/text/liedwerk-cli"
    for modern in 0 1; do
        "$cli" --programmordner "$ABLAGE/programm$modern" --index "$ABLAGE/index$modern.lwi" --still \
            --setze Mp3TagLesen=111 --setze "TAGsModern=$modern" hinzufuegen "$1" >/dev/null || status=1
        "$cli" --programmordner "$ABLAGE/programm$modern" --index "$ABLAGE/index$modern.lwi" saetze | wc -l
    done
fi
exit "$status"
