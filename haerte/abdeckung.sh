#!/usr/bin/env bash
# abdeckung.sh: how much of the readers of outside bytes is run by the seeds, the found inputs and the corpus that
# haerte/fuzzen.sh has gathered in build/fuzz/korpus, together with the core's tests of these folders. Prints
# lines and regions for each file. Needs Debian's llvm-16 besides clang-16.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/../werkzeuge/gemeinsam.sh"

command -v llvm-cov-16 >/dev/null || scheitern "llvm-16 fehlt: apt-get install --no-install-recommends llvm-16"
bauen fuzz
bauen abdeckung
BAU="$WURZEL/build/abdeckung"
PROGRAMM="$BAU/haerte/fuzz/liedwerk-fuzz"
SAAT="$WURZEL/build/fuzz/saat"
bash "$WURZEL/haerte/fuzz/saat.sh" "$SAAT" "$WURZEL/build/fuzz"
rm -rf -- "$BAU/profile"
mkdir "$BAU/profile"

# What reads outside bytes. The others of these folders ask, write or only pass on.
LESER=(
    index/{leser,indexinhalt,indexzeilen,zeilenpruefung,zeilenlaengen,satzzeile,optionszeilen,termin,wert,felder,felderaustausch}.cpp
    medien/{mpeg,id3v1,id3v2,id3v2schreiben,id3v2modern,id3v2modernrahmen,id3v2moderntext,id3v2modernwerte,lyrics,ogg,wave}.cpp
    medien/{medienlesen,tagdatei,tagumschreiben,tagrettung,tagtext,tagverlust,umbenennplan}.cpp
    cd/{xmcd,cddb,cddbstart,cddaten,cdspeicher,inhaltsverzeichnis}.cpp
    plattform/{httpleser,cdabbild,cdabbildcue,cdabbildtoc}.cpp plattform/linux/{wertdatei,einhaengungen}.cpp
    dateien/playlisten.cpp core/{startauftrag,einstellungsspeicher}.cpp ui/text/aufruf.cpp
    basis/{ansi,datum,text,uri,zahl,jsontext}.cpp suche/{abfrage,suchablage,spaltenlayout}.cpp
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
llvm-cov-16 report "${objekte[@]}" -instr-profile "$BAU/profile/alle" -show-functions=false -show-branch-summary=false \
    "${LESER[@]/#/$WURZEL/src/}" | sed "s|$WURZEL/||"
