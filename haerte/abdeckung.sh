    2>"$BAU/profile/protokoll" |
    LC_ALL=C awk -v leser="${LESER[*]}" '
        BEGIN { n = split(leser, a, " "); for (i = 1; i <= n; ++i) gilt["src/" a[i]] = 1
                printf "%-42s %8s %8s\n", "Datei", "Zeilen %", "Bereiche %" }
        $1 in gilt {
            bereiche += $2; ohneb += $3; zeilen += $8; ohnez += $9; ++dateien
            printf "%-42s %8.1f %8.1f\n", $1, 100 - 100 * $9 / $8, 100 - 100 * $3 / $2
        }
        END { printf "%-42s %8.1f %8.1f\n", dateien " Dateien, " zeilen " Zeilen", 100 - 100 * ohnez / zeilen, 100 - 100 * ohneb / bereiche }'
#!/usr/bin/env bash
# abdeckung.sh: how much of the readers of outside bytes is run by the seeds, the found inputs and the corpus that
# haerte/fuzzen.sh has gathered in build/fuzz/korpus, together with the core's tests of these folders. Prints
# lines and regions for each file. Needs Debian's llvm-16 besides clang-16.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/../werkzeuge/gemeinsam.sh"

command -v llvm-cov-16 >/dev/null || scheitern "llvm-16 fehlt: apt-get install --no-install-recommends llvm-16"
bauen sanitizer liedwerk-demosammlung liedwerk-indexgenerator
bauen abdeckung
BAU="$WURZEL/build/abdeckung"
PROGRAMM="$BAU/haerte/fuzz/liedwerk-fuzz"
SAAT="$WURZEL/build/fuzz/saat"
bash "$WURZEL/haerte/fuzz/saat.sh" "$SAAT" "$WURZEL/build/sanitizer"
rm -rf -- "$BAU/profile"
mkdir "$BAU/profile"

# What reads outside bytes. The others of these folders ask, write or only pass on.
LESER=(
    index/{leser,indexinhalt,indexzeilen,zeilenpruefung,zeilenlaengen,satzzeile,optionszeilen,termin,wert,felder,felderaustausch}.cpp
    medien/{mpeg,id3v1,id3v2,id3v2modern,id3v2modernrahmen,id3v2moderntext,id3v2modernwerte,lyrics,ogg,wave}.cpp
    medien/{medienlesen,tagrettung,tagtext,tagverlust,umbenennplan}.cpp
    cd/{xmcd,cddb,cddbstart,cddaten,cdspeicher,inhaltsverzeichnis}.cpp
    plattform/{httpleser,cdabbild,cdabbildcue,cdabbildtoc}.cpp plattform/linux/wertdatei.cpp
    dateien/playlisten.cpp core/{startauftrag,einstellungsspeicher}.cpp ui/text/aufruf.cpp
    basis/{ansi,datum,text,uri,zahl,jsontext}.cpp suche/{suchablage,spaltenlayout}.cpp
)

export LIEDWERK_FUZZ_ZIEL LLVM_PROFILE_FILE
while IFS= read -r LIEDWERK_FUZZ_ZIEL; do
    ordner=()
    for wo in "$SAAT" "$WURZEL/haerte/funde" "$WURZEL/build/fuzz/korpus"; do
        if [ -d "$wo/$LIEDWERK_FUZZ_ZIEL" ]; then ordner+=("$wo/$LIEDWERK_FUZZ_ZIEL"); fi
    done
    LLVM_PROFILE_FILE="$BAU/profile/$LIEDWERK_FUZZ_ZIEL.profraw"
    "$PROGRAMM" -runs=0 "${ordner[@]}" >"$BAU/profile/protokoll" 2>&1 </dev/null || sagen "Fund in $LIEDWERK_FUZZ_ZIEL"
done < <(env -u LIEDWERK_FUZZ_ZIEL LLVM_PROFILE_FILE=/dev/null "$PROGRAMM")

objekte=("$PROGRAMM")
for probe in index medien cd basis; do
    LLVM_PROFILE_FILE="$BAU/profile/test-$probe-%p.profraw" "$BAU/tests/$probe/test_$probe" >"$BAU/profile/protokoll" 2>&1 ||
        sagen "Der Test $probe ist misslungen."
    objekte+=(-object "$BAU/tests/$probe/test_$probe")
done
llvm-profdata-16 merge -o "$BAU/profile/alle" "$BAU"/profile/*.profraw 2>/dev/null
llvm-cov-16 report "${objekte[@]}" -instr-profile "$BAU/profile/alle" -show-branch-summary=false 2>"$BAU/profile/protokoll" |
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
