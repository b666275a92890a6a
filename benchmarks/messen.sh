#!/usr/bin/env bash
# benchmarks/messen.sh [LÄUFE]: measures the program beside the bare bounds and prints a table of ratios.
#
# Makes the data once (build/messdaten: indexes of 1,000 to 1,000,000 records, 10,000 MP3 files), then runs both sides
# of a row in turn, so that a busy moment hits both; each figure is the median of LÄUFE runs (5). Only ratios are worth
# comparing between machines. Meant for an otherwise idle machine with 4 GB of memory; about ten minutes, of which
# building and making the data take half. What a row is held against and is not installed (ripgrep, sqlite3, strace)
# leaves its row out.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/../werkzeuge/gemeinsam.sh"

LAEUFE="${1:-5}"
BAU="$WURZEL/build/release"
DATEN="$WURZEL/build/messdaten"
MESSUNG="$BAU/benchmarks/liedwerk-messung"
VERGLEICH="$BAU/benchmarks/liedwerk-vergleich"
MILLION="$DATEN/million.lwi"
TAUSEND="$DATEN/tausend.lwi"
ZEHNTAUSEND="$DATEN/zehntausend.lwi"
HUNDERTTAUSEND="$DATEN/hunderttausend.lwi"
LIEDWERK="$BAU/src/ui/qt/liedwerk"
SPALTEN="$DATEN/spalten"
TABELLE="$DATEN/spalten.db"
SAMMLUNG="$DATEN/sammlung"
SUCHTEXT="$DATEN/suchtext"
SELTEN="ziegler" # an artist's name, as typed
TITELNAME="/m/Vera_Ziegler-Warme_Tage-03-Neue_Pfade.mp3"
HAEUFIG="musik"  # a part of nearly every path

# einmal ZIEL BEFEHL...: makes data that is not there yet. {} stands for the target; a run that was broken off
# leaves nothing that looks whole.
einmal() {
    local ziel="$1"
    shift
    if [ -e "$ziel" ]; then return; fi
    rm -rf -- "$ziel.neu"
    local worte=() wort
    for wort in "$@"; do
        if [ "$wort" = "{}" ]; then worte+=("$ziel.neu"); else worte+=("$wort"); fi
    done
    "${worte[@]}"
    mv -- "$ziel.neu" "$ziel"
}

# wert NAME BEFEHL...: one figure of a measurement's output.
wert() {
    local name="$1"
    shift
    "$@" | sed -n "s/^$name=//p"
}

mittlerer() { printf '%s\n' "$@" | sort -g | sed -n "$((($# + 1) / 2))p"; }

ueberschrift() { printf '\n%-44s %12s %12s %8s  %s\n' "$1" "Liedwerk" "Vergleich" "mal" "Ziel"; }
zeile() { printf '%-44s %12s %12s %8s  %s\n' "$1" "$2" "$3" "$4" "$5"; }
anteil() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.2f", a / b }'; }

# paar TEXT ZIEL NAME "BEFEHL" NAME "BEFEHL": the program against its bound, in turn.
paar() {
    local eigene=() andere=() i a b
    for ((i = 0; i < LAEUFE; i++)); do
        # The commands are words of this script without blanks inside.
        # shellcheck disable=SC2086
        eigene+=("$(wert "$3" $4)")
        # shellcheck disable=SC2086
        andere+=("$(wert "$5" $6)")
    done
    a="$(mittlerer "${eigene[@]}")"
    b="$(mittlerer "${andere[@]}")"
    zeile "$1" "$(printf '%.1f ms' "$a")" "$(printf '%.1f ms' "$b")" "$(anteil "$a" "$b")" "$2"
}

# einzeln TEXT ZIEL NAME "BEFEHL" [EINHEIT]: a figure that stands for itself.
einzeln() {
    local werte=() i
    for ((i = 0; i < LAEUFE; i++)); do
        # shellcheck disable=SC2086
        werte+=("$(wert "$3" $4 2>/dev/null)")
    done
    zeile "$1" "$(printf '%.2f %s' "$(mittlerer "${werte[@]}")" "${5:-ms}")" "" "" "$2"
}

# speicher TEXT ZIEL "BEFEHL": resident memory against the size of the index file.
speicher() {
    local kib datei
    # shellcheck disable=SC2086
    kib="$(wert kib $3)"
    datei="$(($(stat -c %s "$MILLION") / 1024))"
    zeile "$1" "$((kib / 1024)) MiB" "$((datei / 1024)) MiB" "$(anteil "$kib" "$datei")" "$2"
}

# ripgrep WORT: its time over the index file, in the form of the others.
ripgrep() {
    local von bis
    von="$(date +%s%N)"
    rg -i --no-unicode -c -- "$1" "$MILLION" >/dev/null || true
    bis="$(date +%s%N)"
    awk -v d="$((bis - von))" 'BEGIN { printf "ms=%.1f\n", d / 1e6 }'
}

# sqlite_sortieren: its time for the order of all records by three columns.
sqlite_sortieren() {
    printf '%s\n' "PRAGMA cache_size=-1000000;" ".output /dev/null" ".timer on" \
        "SELECT rowid FROM s ORDER BY upper(interpret), upper(album), CAST(nummer AS INTEGER);" |
        sqlite3 "$TABELLE" | awk '/^Run Time/ { printf "ms=%.1f\n", $4 * 1000 }'
}

# tabelle_bauen ZIEL: the three columns of all records as a table of SQLite.
tabelle_bauen() {
    "$MESSUNG" exportieren "$MILLION" "$SPALTEN" Interpret,Album,Track >/dev/null
    sqlite3 "$1" "CREATE TABLE s (interpret TEXT, album TEXT, nummer TEXT)" ".separator ;" ".import $SPALTEN s" 2>/dev/null
    rm -f -- "$SPALTEN"
}

# aufrufe: system calls for each file that is read.
aufrufe() {
    strace -f -qq -c -U calls,name -o "$DATEN/aufrufe" "$MESSUNG" lesen "$1" >/dev/null
    awk -v n="$(find "$1" -type f | wc -l)" '$1 ~ /^[0-9]+$/ && $2 != "total" { s += $1 } END { printf "%.2f", s / n }' "$DATEN/aufrufe"
    rm -f -- "$DATEN/aufrufe"
}

# wachstum TEXT NAME BEFEHL [WORT...]: microseconds for each record at four sizes; the index stands behind BEFEHL.
wachstum() {
    local text="$1" name="$2" befehl="$3" spalten=() index anzahl werte i
    shift 3
    for index in "$TAUSEND" "$ZEHNTAUSEND" "$HUNDERTTAUSEND" "$MILLION"; do
        anzahl="$(grep -c -a '^#TAG:[0-9]' "$index")"
        werte=()
        for ((i = 0; i < LAEUFE; i++)); do werte+=("$(wert "$name" "$MESSUNG" "$befehl" "$index" "$@")"); done
        spalten+=("$(awk -v ms="$(mittlerer "${werte[@]}")" -v n="$anzahl" 'BEGIN { printf "%.3f", 1000 * ms / n }')")
    done
    printf '%-44s %9s %9s %9s %9s  %s\n' "$text" "${spalten[@]}" "$(anteil "${spalten[3]}" "${spalten[0]}")"
}

abschnitt "Bau und Daten"
bauen release liedwerk liedwerk-messung liedwerk-vergleich liedwerk-indexgenerator liedwerk-sammlungsgenerator
mkdir -p "$DATEN"
einmal "$MILLION" "$BAU/werkzeuge/liedwerk-indexgenerator" {} 1000000
einmal "$TAUSEND" "$BAU/werkzeuge/liedwerk-indexgenerator" {} 1000
einmal "$ZEHNTAUSEND" "$BAU/werkzeuge/liedwerk-indexgenerator" {} 10000
einmal "$HUNDERTTAUSEND" "$BAU/werkzeuge/liedwerk-indexgenerator" {} 100000
einmal "$SAMMLUNG" "$BAU/werkzeuge/liedwerk-sammlungsgenerator" {} 10000
einmal "$SUCHTEXT" "$MESSUNG" suchtext "$MILLION" {}
if command -v sqlite3 >/dev/null; then einmal "$TABELLE" tabelle_bauen {}; fi
# Both sides read from a warm cache.
find "$SAMMLUNG" -type f -exec cat {} + >/dev/null

sagen "Rechner: $(sed -n 's/^model name[^:]*: //p' /proc/cpuinfo | head -n 1), $KERNE Kerne; Stand $(git -C "$WURZEL" rev-parse --short HEAD 2>/dev/null || echo unbekannt); $LAEUFE Läufe, mittlerer Wert"

ueberschrift "1.000.000 Sätze"
paar "Laden bis zur Liste (read + memchr)" "2,2, dann 1,5" ms "$MESSUNG laden $MILLION" ms "$VERGLEICH zeilen $MILLION"
speicher "Speicher danach (Datei)" "1,7, dann 1,25" "$MESSUNG laden $MILLION"
speicher "Speicher mit Suchtext (Datei)" "2,0, dann 1,45" "$MESSUNG suchen $MILLION $SELTEN"
einzeln "erste Suche" "1000 ms" erste "$MESSUNG suchen $MILLION $SELTEN"
paar "weitere Suche, seltenes Wort (memmem)" "0,8, dann 0,35" ms "$MESSUNG suchen $MILLION $SELTEN" ms "$VERGLEICH memmem $SUCHTEXT $SELTEN"
paar "weitere Suche, häufiges Wort (memmem)" "0,8, dann 0,35" ms "$MESSUNG suchen $MILLION $HAEUFIG" ms "$VERGLEICH memmem $SUCHTEXT $HAEUFIG"
if command -v rg >/dev/null; then
    paar "weitere Suche, seltenes Wort (ripgrep -i)" "unter 1" ms "$MESSUNG suchen $MILLION $SELTEN" ms "ripgrep $SELTEN"
    paar "weitere Suche, häufiges Wort (ripgrep -i)" "unter 1" ms "$MESSUNG suchen $MILLION $HAEUFIG" ms "ripgrep $HAEUFIG"
fi
einzeln "ein Buchstabe mehr" "30 ms" buchstabe "$MESSUNG suchen $MILLION $SELTEN"
einzeln "Suche in einem Feld, ab der zweiten" "50 ms" feld "$MESSUNG suchen $MILLION $SELTEN"
paar "Sortieren nach drei Spalten (64-Bit-Ränge)" "2,5, dann 1,5" ms "$MESSUNG sortieren $MILLION Interpret Album Track" ms "$VERGLEICH raenge $MILLION"
if command -v sqlite3 >/dev/null; then
    paar "Sortieren nach drei Spalten (SQLite)" "höchstens 0,37" ms "$MESSUNG sortieren $MILLION Interpret Album Track" ms sqlite_sortieren
fi
einzeln "Doppelte, teuerstes Verfahren" "2000 ms" ms "$MESSUNG aufraeumen $MILLION"
einzeln "Statistik" "" ms "$MESSUNG statistik $MILLION"
einzeln "Export als Text" "mind. 150 MB/s" mb_je_s "$MESSUNG exportieren $MILLION $SPALTEN" MB/s
rm -f -- "$SPALTEN"
paar "Speichern (write + fsync)" "2, dann 1,3" ms "$MESSUNG speichern $MILLION $DATEN/gespeichert.lwi" ms "$VERGLEICH schreiben $MILLION $DATEN/geschrieben"
rm -f -- "$DATEN/gespeichert.lwi"
einzeln "gespielten Titel erkennen" "200 ms" nochmals "$MESSUNG erkennen $MILLION $SELTEN"
einzeln "das gleiche mit anderer Schrift" "200 ms" nochmals "$MESSUNG erkennen $MILLION Ночь"
einzeln "AutoTAG, längster Schritt des Vorbereitens" "20 ms" schritt "$MESSUNG autotag $MILLION $TITELNAME"
einzeln "AutoTAG '%automatik%', erste Datei ohne Vorbereiten" "50 ms" unvorbereitet "$MESSUNG autotag $MILLION $TITELNAME"
einzeln "AutoTAG '%automatik%', jede weitere Datei" "50 ms" ms "$MESSUNG autotag $MILLION $TITELNAME"

EIN_KERN="taskset -c 0"
ueberschrift "10.000 Dateien"
paar "Lesen, ein Kern (nackte Schleife)" "höchstens 2" ms "$EIN_KERN $MESSUNG lesen $SAMMLUNG" ms "$EIN_KERN $VERGLEICH schleife $SAMMLUNG"
paar "Lesen, ein Kern (TagLib)" "höchstens 0,25" ms "$EIN_KERN $MESSUNG lesen $SAMMLUNG" ms "$EIN_KERN $VERGLEICH taglib $SAMMLUNG"
paar "Hinzufügen, ein Kern (nackte Schleife)" "höchstens 2" ms "$EIN_KERN $MESSUNG hinzufuegen $SAMMLUNG" ms "$EIN_KERN $VERGLEICH schleife $SAMMLUNG"
if [ "$KERNE" -ge 2 ]; then
    paar "Hinzufügen, zwei Kerne (ein Kern)" "höchstens 0,63" ms "taskset -c 0,1 $MESSUNG hinzufuegen $SAMMLUNG" ms "$EIN_KERN $MESSUNG hinzufuegen $SAMMLUNG"
fi
paar "zweites Mal, keine doppelten (erstes Mal)" "unter 1" zweiter "$MESSUNG hinzufuegen $SAMMLUNG" ms "$MESSUNG hinzufuegen $SAMMLUNG"
paar "eine Datei in 1.000.000 (in 1.000)" "1" ms "$MESSUNG einzeln $SAMMLUNG $MILLION" ms "$MESSUNG einzeln $SAMMLUNG $TAUSEND"
if command -v strace >/dev/null; then zeile "Systemaufrufe je gelesene Datei" "$(aufrufe "$SAMMLUNG")" "" "" ""; fi

ueberschrift "Das Fenster"
FENSTER="$WURZEL/benchmarks/fenster.sh $LIEDWERK"
einzeln "Start mit 100.000 Sätzen" "700 ms" ms "$FENSTER $HUNDERTTAUSEND"
einzeln "Start mit 1.000.000 Sätzen" "" ms "$FENSTER $MILLION"
zeile "Leerlauf ohne Spieler, Prozent eines Kerns" "$(wert leerlauf $FENSTER "$HUNDERTTAUSEND" 30 2>/dev/null)" "" "" "unter 0,1"

printf '\n%-44s %9s %9s %9s %9s  %s\n' "Mikrosekunden je Satz" "1.000" "10.000" "100.000" "1.000.000" "mal (höchstens 1,33)"
wachstum "Laden bis zur Liste" ms laden
wachstum "erste Suche" erste suchen "$SELTEN"
wachstum "weitere Suche" ms suchen "$SELTEN"
wachstum "Sortieren nach drei Spalten" ms sortieren Interpret Album Track
wachstum "Doppelte, teuerstes Verfahren" ms aufraeumen
wachstum "Statistik" ms statistik
wachstum "Export als Text" ms exportieren "$SPALTEN"
wachstum "Speichern" ms speichern "$DATEN/gespeichert.lwi"
rm -f -- "$SPALTEN" "$DATEN/gespeichert.lwi"
