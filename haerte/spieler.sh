#!/usr/bin/env bash
# spieler.sh [NAME]: lets players lie to the program on a bus of their own, each lie (whose name holds NAME) for
# one to six seconds, and prints how long the window's event loop stood still, the processor's load, and the
# memory; see docs/verlaesslichkeit.md. Ends with 0 only when there was no breach; the last line counts the cases.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/../werkzeuge/gemeinsam.sh"

bauen release liedwerk-spielerluegen
exec "$WURZEL/build/release/haerte/spieler/liedwerk-spielerluegen" "$@"
