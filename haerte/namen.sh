#!/usr/bin/env bash
# haerte/namen.sh [kurz | JEDER]: evil names through every function of liedwerk-cli, watched from outside; see
# docs/verlaesslichkeit.md. JEDER: of the names that go through a function one at a time, every so many (1, which
# is what runs without an argument: all). "kurz" is what ./testen runs.
# Ends with 0 only when there was no breach; the last line counts the cases.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/../werkzeuge/gemeinsam.sh"

JEDER="${1:-1}"
if [ "$JEDER" = kurz ]; then JEDER=9; fi

bauen release liedwerk liedwerk-cli liedwerk-namen liedwerk-handgriffe liedwerk-attrappe liedwerk-cddbserver liedwerk_spaeher \
    liedwerk_vorlader
BAU="$WURZEL/build/release"
# The window speaks with a session bus of its own.
BUS=()
if command -v dbus-run-session >/dev/null; then BUS=(dbus-run-session --); fi
exec nice "${BUS[@]}" "$BAU/haerte/namen/liedwerk-namen" "$BAU" "$JEDER"
