#!/usr/bin/env bash
# haerte/stoeren.sh [kurz | TEIL...]: disturbs every way of writing files at every call and judges what is left;
# see docs/verlaesslichkeit.md. Without arguments everything, up to an hour; "kurz" is what ./testen runs, about a
# minute. The parts stand in haerte/stoerung/haupt.cpp. SAAT=N in the environment chooses the random numbers.
# Ends with 0 only when there was no breach; the last line counts the cases.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/../werkzeuge/gemeinsam.sh"

case "${1:-}" in
    "") TEILE=(ungestoert eigenschaften rufe toeten=500 paare=400 platte riesen server) ;;
    kurz) TEILE=(ungestoert eigenschaften rufe-kurz toeten=20 paare=10) ;;
    *) TEILE=("$@") ;;
esac

bauen release liedwerk-cli liedwerk-stoerer liedwerk-handgriffe liedwerk_vorlader liedwerk-indexgenerator
BAU="$WURZEL/build/release"

# Mounting a small disk needs root, at least that of a name space of one's own.
HUELLE=()
if [ "$(id -u)" -ne 0 ] && unshare -rm true 2>/dev/null; then HUELLE=(unshare -rm); fi
exec nice "${HUELLE[@]}" "$BAU/haerte/stoerung/liedwerk-stoerer" "$BAU" "${TEILE[@]}"
