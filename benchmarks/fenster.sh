#!/usr/bin/env bash
# benchmarks/fenster.sh PROGRAMM INDEX [SEKUNDEN]: starts the window on an index and prints "ms=": from the start of
# the process until the window answers with all records in its list. With SEKUNDEN it is then left alone for so long,
# without a player, and "leerlauf=" is what that took in percent of a core, "kib=" the memory.
#
# On a screen of its own when Xvfb is installed, otherwise on none. The person's settings are not touched.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/../werkzeuge/gemeinsam.sh"

[ $# -ge 2 ] || scheitern "Aufruf: benchmarks/fenster.sh PROGRAMM INDEX [SEKUNDEN]"

if [ -z "${FENSTER_EINGERICHTET:-}" ]; then
    export FENSTER_EINGERICHTET=1
    davor=()
    if command -v dbus-run-session >/dev/null; then davor+=(dbus-run-session --); fi
    if command -v xvfb-run >/dev/null; then
        davor+=(xvfb-run -a -s "-screen 0 1280x800x24")
        unset WAYLAND_DISPLAY
    else
        export QT_QPA_PLATFORM=offscreen
    fi
    exec "${davor[@]}" "$0" "$@"
fi

heim="$(mktemp -d)"
lauf=
trap '[ -z "$lauf" ] || kill -KILL "$lauf" 2>/dev/null || true; rm -rf -- "$heim"' EXIT
mkdir -p "$heim/config/liedwerk"
mkdir -m 700 "$heim/lauf"
export HOME="$heim" XDG_CONFIG_HOME="$heim/config" XDG_RUNTIME_DIR="$heim/lauf" LIEDWERK_ORDNER="$heim/programm"
mkdir -p "$LIEDWERK_ORDNER"
# Neither the first start's welcome nor a tip stands in front of the list.
printf 'Start=100\nTippsAktueller=0\n' >"$XDG_CONFIG_HOME/liedwerk/einstellungen.ini"

# Clock ticks that the process has run so far, ended threads included (proc(5), stat: utime and stime).
gelaufen() { sed 's/.*) //' "/proc/$lauf/stat" | awk '{ print $12 + $13 }'; }

mkfifo "$heim/meldungen"
von="$(date +%s%N)"
QT_LOGGING_RULES="liedwerk.start.debug=true" "$1" "$2" 2>"$heim/meldungen" &
lauf=$!
exec {meldungen}<"$heim/meldungen"
while IFS= read -r -t 60 -u "$meldungen" zeile; do
    if [[ "$zeile" == *bereit* ]]; then break; fi
done
[[ "${zeile:-}" == *bereit* ]] || scheitern "Das Fenster wurde nicht bereit."
awk -v d="$(($(date +%s%N) - von))" 'BEGIN { printf "ms=%.1f\n", d / 1e6 }'
if [ $# -ge 3 ]; then
    # What is done after the start, one piece at a time, is not yet idleness.
    sleep 5
    vorher="$(gelaufen)"
    sleep "$3"
    awk -v d="$(($(gelaufen) - vorher))" -v s="$3" -v t="$(getconf CLK_TCK)" 'BEGIN { printf "leerlauf=%.3f\n", 100 * d / t / s }'
    sed -n 's/^VmRSS:[^0-9]*\([0-9]*\).*/kib=\1/p' "/proc/$lauf/status"
fi
kill -TERM "$lauf"
wait "$lauf" 2>/dev/null || true
lauf=
