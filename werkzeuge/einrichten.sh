#!/usr/bin/env bash
# Sets up a Debian 12 machine for building, testing and running: installs what is missing and nothing else.
# Quiet and quick when everything is there.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/gemeinsam.sh"

# Without these nothing can be built or tested.
NOETIG=(cmake ninja-build g++ qt6-base-dev qt6-svg-dev libtag1-dev libdiscid-dev libgtest-dev)
# These make it faster, check more or reach further; without them the rest still works.
NUETZLICH=(ccache mold libbenchmark-dev clang-format clang-tidy dbus xvfb xauth imagemagick xdotool qt6-wayland
    clang-16 libclang-rt-16-dev)

# The packages of the arguments that are not installed, one a line.
fehlende() {
    local paket zustand
    local -A vorhanden=()
    # The state is the last word of the line; dpkg-query fails when it knows one of them not at all.
    while read -r paket _ _ zustand; do
        if [ "$zustand" = installed ]; then vorhanden["${paket%%:*}"]=1; fi
    done < <(dpkg-query -W -f '${Package} ${Status}\n' "$@" 2>/dev/null || true)
    for paket in "$@"; do
        if [ -z "${vorhanden[$paket]:-}" ]; then printf '%s\n' "$paket"; fi
    done
}

# installieren PAKET...: as root or through sudo; false when that is not possible or fails.
installieren() {
    local als=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || {
            sagen "Zum Installieren fehlen die Rechte (weder root noch sudo)." >&2
            return 1
        }
        als=(sudo)
    fi
    local apt=("${als[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o Acquire::Retries=2
        -o Acquire::http::Timeout=30 -o DPkg::Lock::Timeout=120)
    # A package list that is partly out of reach may still hold what is needed.
    "${apt[@]}" update >"$PROTOKOLL" 2>&1 || true
    "${apt[@]}" install --no-install-recommends "$@" >>"$PROTOKOLL" 2>&1
}

if ! command -v dpkg-query >/dev/null; then
    sagen "Hinweis: Dies ist kein Debian-System. Bitte selbst installieren, was diesen Paketen entspricht:" >&2
    sagen "  ${NOETIG[*]} ${NUETZLICH[*]}" >&2
    exit 0
fi

mapfile -t FEHLEN < <(fehlende "${NOETIG[@]}")
mapfile -t FEHLEN_NUETZLICH < <(fehlende "${NUETZLICH[@]}")
if [ ${#FEHLEN[@]} -eq 0 ] && [ ${#FEHLEN_NUETZLICH[@]} -eq 0 ]; then exit 0; fi

PROTOKOLL="$(mktemp)"
trap 'rm -f -- "$PROTOKOLL"' EXIT
sagen "Installiere fehlende Pakete: ${FEHLEN[*]} ${FEHLEN_NUETZLICH[*]}"
if installieren "${FEHLEN[@]}" "${FEHLEN_NUETZLICH[@]}"; then exit 0; fi

# Perhaps one package that is only useful stood in the way of the others.
if [ ${#FEHLEN[@]} -gt 0 ] && ! installieren "${FEHLEN[@]}"; then
    tail -n 20 "$PROTOKOLL" >&2
    scheitern "Diese Pakete fehlen und ließen sich nicht installieren: ${FEHLEN[*]}
Bitte als Administrator ausführen:
  apt-get update && apt-get install --no-install-recommends ${FEHLEN[*]}"
fi
sagen "Hinweis: Es geht ohne diese Pakete weiter, sie ließen sich nicht installieren: ${FEHLEN_NUETZLICH[*]}"
