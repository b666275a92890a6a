#!/usr/bin/env bash
# abdeckung.sh: how much of the readers of outside bytes is run by the seeds, the found inputs and the corpus
# (haerte/korpus.tar.xz and what haerte/fuzzen.sh has gathered in build/fuzz/korpus), together with the tests that
# need no window. Prints lines and regions for each file, and leaves build/abdeckung/luecken.txt: the lines that
# nothing runs. Needs Debian's llvm-16 besides clang-16.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/../werkzeuge/gemeinsam.sh"

command -v llvm-cov-16 >/dev/null || scheitern "llvm-16 fehlt: apt-get install --no-install-recommends llvm-16"
bauen abdeckung
BAU="$WURZEL/build/abdeckung"
PROGRAMM="$BAU/haerte/fuzz/liedwerk-fuzz"
SAAT="$BAU/saat"
KORPUS="$WURZEL/build/fuzz/korpus"
LLVM_PROFILE_FILE=/dev/null bash "$WURZEL/haerte/fuzz/saat.sh" "$SAAT" "$BAU"
bash "$WURZEL/haerte/fuzz/korpus.sh" auspacken "$KORPUS"
rm -rf -- "$BAU/profile"
mkdir "$BAU/profile"

# What reads outside bytes. The others of these folders ask, write or only pass on.
LESER=(
    index/{leser,indexinhalt,indexzeilen,zeilenpruefung,zeilenlaengen,satzzeile,satzspeicher,optionszeilen,dateitypen}.cpp
    index/{termin,wert,felder,felderaustausch}.cpp termine/wiederkehr.cpp
    medien/{mpeg,id3v1,id3v2,id3v2modern,id3v2modernrahmen,id3v2moderntext,id3v2modernwerte,lyrics,ogg,wave}.cpp
    medien/{medienlesen,tagrettung,tagtext,tagverlust,umbenennplan}.cpp
    cd/{xmcd,cddb,cddbstart,cddaten,cdspeicher,inhaltsverzeichnis}.cpp
    plattform/{httpleser,cdabbild,cdabbildcue,cdabbildtoc}.cpp plattform/linux/{wertdatei,einhaengungen,audiocd}.cpp
    plattform/qt/{mpriswerte,medienauskunft}.cpp abspielen/{titelsuche,suchanker}.cpp
    dateien/{playlisten,namensaufloesung}.cpp core/{startauftrag,einstellungsspeicher}.cpp ui/text/aufruf.cpp
    basis/{ansi,datum,text,uri,zahl,jsontext,pfad,dateiname}.cpp suche/{suchablage,spaltenlayout}.cpp
)

PROFILE="$BAU/profile"
export LIEDWERK_FUZZ_ZIEL LLVM_PROFILE_FILE
while IFS= read -r LIEDWERK_FUZZ_ZIEL; do
    ordner=()
    for wo in "$SAAT" "$WURZEL/haerte/funde" "$KORPUS"; do
        if [ -d "$wo/$LIEDWERK_FUZZ_ZIEL" ]; then ordner+=("$wo/$LIEDWERK_FUZZ_ZIEL"); fi
    done
    LLVM_PROFILE_FILE="$PROFILE/$LIEDWERK_FUZZ_ZIEL.profraw"
    "$PROGRAMM" -runs=0 "${ordner[@]}" >"$PROFILE/protokoll" 2>&1 </dev/null || sagen "Fund in $LIEDWERK_FUZZ_ZIEL"
done < <(env -u LIEDWERK_FUZZ_ZIEL LLVM_PROFILE_FILE=/dev/null "$PROGRAMM")

# Programs that a test starts write a profile of their own; %4m keeps their number small.
BUS=()
if command -v dbus-run-session >/dev/null; then BUS=(dbus-run-session --); fi
export QT_QPA_PLATFORM=offscreen
objekte=("$PROGRAMM" -object "$BAU/src/ui/text/liedwerk-cli")
while IFS= read -r -d '' test; do
    (cd "$PROFILE" && LLVM_PROFILE_FILE="$PROFILE/${test##*/}-%4m.profraw" "${BUS[@]}" timeout 300 "$test" </dev/null) \
        >"$PROFILE/protokoll" 2>&1 || sagen "Der Test ${test##*/} ist misslungen."
    objekte+=(-object "$test")
done < <(find "$BAU/tests" -type f -name 'test_*' -executable -print0 | LC_ALL=C sort -z)
llvm-profdata-16 merge -o "$PROFILE/alle" "$PROFILE"/*.profraw 2>/dev/null

# An uncovered line is shown as "   12|      0|text" below the name of its file.
llvm-cov-16 show "${objekte[@]}" -instr-profile "$PROFILE/alle" -show-regions=false 2>"$PROFILE/protokoll" |
    LC_ALL=C awk -v leser="${LESER[*]}" '
        BEGIN { n = split(leser, a, " "); for (i = 1; i <= n; ++i) gilt["src/" a[i] ":"] = 1 }
        /^[^ ].*:$/ { datei = $0 in gilt ? $0 : ""; neu = 1 }
        datei != "" && /^ *[0-9]+\| *0\|/ { if (neu) print datei; neu = 0; print }' >"$BAU/luecken.txt"
llvm-cov-16 report "${objekte[@]}" -instr-profile "$PROFILE/alle" -show-branch-summary=false 2>"$PROFILE/protokoll" |
    LC_ALL=C awk -v leser="${LESER[*]}" '
        BEGIN {
            n = split(leser, a, " ")
            for (i = 1; i <= n; ++i) gilt["src/" a[i]] = 1
            printf "%-42s %8s %8s\n", "Datei", "Zeilen%", "Regionen%"
        }
        $1 in gilt {
            regionen += $2; ohneregion += $3; zeilen += $8; ohnezeile += $9; ++dateien
            printf "%-42s %8.1f %8.1f\n", $1, 100 - 100 * $9 / $8, 100 - 100 * $3 / $2
        }
        END {
            printf "%-42s %8.1f %8.1f\n", dateien " Dateien, " zeilen " Zeilen", 100 - 100 * ohnezeile / zeilen,
                100 - 100 * ohneregion / regionen
        }'
