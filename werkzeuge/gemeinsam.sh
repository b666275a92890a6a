# What the scripts of this project share; to be sourced after `set -euo pipefail`.

WURZEL="$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)"
KERNE="$(nproc 2>/dev/null || echo 2)"

# File names and messages are UTF-8, whatever the caller's locale says.
case "${LC_ALL:-${LC_CTYPE:-${LANG:-}}}" in
    *.UTF-8 | *.utf8) ;;
    *) export LC_ALL=C.UTF-8 ;;
esac

sagen() { printf '%s\n' "$*"; }
scheitern() {
    printf 'Fehler: %s\n' "$*" >&2
    exit 1
}
# A heading above a step of a longer run.
abschnitt() { printf '\n== %s\n' "$*"; }

# bauen VORGABE [ZIEL...]: configures and builds a preset; without targets all of it. Only what is wrong or
# new is printed.
bauen() {
    local vorgabe="$1" protokoll ziele=()
    shift
    if [ $# -gt 0 ]; then ziele=(--target "$@"); fi
    mkdir -p "$WURZEL/build"
    protokoll="$WURZEL/build/einrichtung-$vorgabe.log"
    (cd "$WURZEL" && cmake --preset "$vorgabe" >"$protokoll" 2>&1) || {
        cat "$protokoll" >&2
        scheitern "Der Bau „$vorgabe“ ließ sich nicht einrichten (siehe oben)."
    }
    # A build folder of another compiler is set up anew; else it would keep nothing of the preset.
    if grep -q 'cache to be deleted' "$protokoll"; then
        (cd "$WURZEL" && cmake --fresh --preset "$vorgabe" >"$protokoll" 2>&1)
    fi
    (cd "$WURZEL" && cmake --build --preset "$vorgabe" -j "$KERNE" "${ziele[@]}" -- --quiet) |
        sed '/^ninja: no work to do/d' ||
        scheitern "Der Bau „$vorgabe“ ist fehlgeschlagen (siehe oben)."
}
