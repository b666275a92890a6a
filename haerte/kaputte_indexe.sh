#!/usr/bin/env bash
# kaputte_indexe.sh [ANZAHL [SAAT [VORGABE]]]: makes so many broken index files (default 500, seed 1), lets
# liedwerk-cli of a preset (default release; sanitizer looks closer, and its memory does not count) load and
# list each of them, and prints how often it crashed, hung or took too much memory; then, for each kind of
# damage, the time for a file of twice the size. Ends with 1 when a bound was broken.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/../werkzeuge/gemeinsam.sh"

ANZAHL="${1:-500}"
SAAT="${2:-1}"
VORGABE="${3:-release}"
GRENZE=30         # seconds of the processor until a run counts as hanging
HOECHSTFAKTOR=2.6 # processor time of twice the size
bauen "$VORGABE" liedwerk-cli liedwerk-indexgenerator liedwerk-indexbruch liedwerk-messlauf
BAU="$WURZEL/build/$VORGABE"
ABLAGE="$(mktemp -d -p /dev/shm liedwerk-bruch-XXXXXX)"
trap 'rm -rf -- "$ABLAGE"' EXIT
mkdir "$ABLAGE/dateien"

# laufen DATEI: status, seconds, KiB of loading and listing it. The program works on a folder of its own.
laufen() {
    rm -rf -- "$ABLAGE/programm"
    mkdir "$ABLAGE/programm"
    "$BAU/haerte/bruch/liedwerk-messlauf" "$GRENZE" "$BAU/src/ui/text/liedwerk-cli" --programmordner "$ABLAGE/programm" \
        --index "$1" --still saetze 2>&1 >/dev/null </dev/null
}

# einzeln TEIL VORLAGENGROESSE ANZAHL: damaged files of a template of so many records.
einzeln() {
    "$BAU/werkzeuge/liedwerk-indexgenerator" "$ABLAGE/vorlage" "$2" "$SAAT" >/dev/null
    rm -f -- "$ABLAGE"/dateien/*
    "$BAU/haerte/bruch/liedwerk-indexbruch" "$ABLAGE/dateien" "$ABLAGE/vorlage" "$3" "$((SAAT * 10 + $1))"
    local datei status zeit speicher groesse
    for datei in "$ABLAGE"/dateien/*; do
        read -r status zeit speicher < <(laufen "$datei")
        groesse=$(stat -c %s "$datei")
        printf '%s %s %s %s %s\n' "$1_$(basename "$datei")" "$status" "$zeit" "$speicher" "$groesse" >>"$ABLAGE/ergebnis"
    done
}

: >"$ABLAGE/ergebnis"
einzeln 1 20 $((ANZAHL / 2))
einzeln 2 2000 $((ANZAHL - ANZAHL / 2 - ANZAHL / 20))
einzeln 3 30000 $((ANZAHL / 20))

# A status of 0 (loaded) or 1 (refused with a message) is well.
sagen "Kaputte Indexdateien: $ANZAHL, Saat $SAAT, $VORGABE, Commit $(git -C "$WURZEL" rev-parse --short HEAD)"
FEHLER=0
awk -v messen="$([ "$VORGABE" = release ] && echo 1 || echo 0)" '
    { ++alle; kopf = $4 * 1024 - 3 * $5 - 64 * 1048576; if (messen && kopf > 0) { ++gross; print "zu viel Speicher: " $0 } }
    $2 == "haengt" { ++haengt; print "hängt: " $0 }
    $2 != "haengt" && $2 != "0" && $2 != "1" { ++absturz; print "Absturz: " $0 }
    $2 == "1" { ++abgelehnt }
    $3 > zeit { zeit = $3; langsamste = $1 }
    { m = $4 / 1024; f = (m - 64) / ($5 / 1048576); if ($5 > 4194304 && f > faktor) { faktor = f; fn = $1 } }
    END {
        printf "Läufe %d, abgelehnt %d, Abstürze %d, hängt %d, zu viel Speicher %d\n", alle, abgelehnt, absturz, haengt, gross
        printf "längster Lauf %.2f s (%s); meister Speicher über 64 MiB, je Byte einer Datei über 4 MiB: %.2f (%s)\n", zeit, langsamste, faktor, fn
        exit absturz + haengt + gross > 0
    }' "$ABLAGE/ergebnis" || FEHLER=1

if [ "$VORGABE" = release ]; then
    # Lines of no content become records, reminders, rules and types all the same.
    sagen "" "Eine Million Zeilen (Datei MB, Sekunden, Speicher MiB):"
    for zeile in '' x '#TAG:' '#TAG:|' '#TAG:1|x' '#OPT:=' '#OPT:SYNC=a,1,b' '#OPT:VERWALTEN=' '#TERMIN:|' '#TERMIN:1|x'; do
        awk -v zeile="$zeile" 'BEGIN { printf "#TAG:lw102\r\n"; for (i = 0; i < 1000000; ++i) printf "%s\r\n", zeile }' >"$ABLAGE/million.lwi"
        read -r status zeit speicher < <(laufen "$ABLAGE/million.lwi")
        LC_ALL=C awk -v zeile="$zeile" -v groesse="$(stat -c %s "$ABLAGE/million.lwi")" -v status="$status" -v zeit="$zeit" -v speicher="$speicher" \
            'BEGIN { printf "%-18s %6.1f %8.3f %7.0f  %s\n", "\"" zeile "\"", groesse / 1e6, zeit, speicher / 1024, status
                     exit status > 1 || speicher * 1024 > 3 * groesse + 64 * 1048576 }' || FEHLER=1
    done
    rm -f -- "$ABLAGE/million.lwi"
    sagen "" "Zeit für die doppelte Größe (Prozessorzeit, Median von 5):"
    rm -f -- "$ABLAGE"/dateien/*
    "$BAU/werkzeuge/liedwerk-indexgenerator" "$ABLAGE/vorlage" 100000 "$SAAT" >/dev/null
    "$BAU/haerte/bruch/liedwerk-indexbruch" "$ABLAGE/dateien" "$ABLAGE/vorlage" 12 "$SAAT" paare
    for datei in "$ABLAGE"/dateien/*.doppelt.lwi; do
        einfach="${datei%.doppelt.lwi}.lwi"
        for _ in 1 2 3 4 5; do
            read -r _ zeit speicher < <(laufen "$einfach")
            read -r _ doppelt _ < <(laufen "$datei")
            printf '%s %s\n' "$zeit" "$doppelt"
        done | LC_ALL=C awk '{ a[NR] = $1; b[NR] = $2 } END { n = asort_(a, NR); asort_(b, NR); print a[3], b[3] }
            function asort_(x, n,   i, j, t) { for (i = 2; i <= n; ++i) for (j = i; j > 1 && x[j] < x[j-1]; --j) { t = x[j]; x[j] = x[j-1]; x[j-1] = t } return n }' |
            LC_ALL=C awk -v name="$(basename "${einfach%.lwi}")" -v grenze="$HOECHSTFAKTOR" \
                -v groessen="$(stat -c %s "$einfach") $(stat -c %s "$datei")" '
            { split(groessen, g, " "); f = $2 / ($1 > 0 ? $1 : 0.001)
              printf "%-22s %7.1f MB %7.3f s   %7.1f MB %7.3f s   %5.2f\n", name, g[1] / 1e6, $1, g[2] / 1e6, $2, f
              # A cut file is as long as chance has it; runs of some milliseconds tell nothing.
              exit (f > grenze && $2 > 0.1 && g[2] < 2.2 * g[1]) }' || FEHLER=1
    done
fi
exit "$FEHLER"
