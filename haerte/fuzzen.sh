#!/usr/bin/env bash
# fuzzen.sh [--sparen] [SEKUNDEN_JE_ZIEL] [ZIEL...]: builds the fuzz targets, makes their seeds and runs each
# target for so long (default 3600 seconds), two at a time; without names all targets. Prints a table and ends
# with 1 when there was a finding. The corpus grows in build/fuzz/korpus from run to run; it begins with
# haerte/korpus.tar.xz, and whenever that is another one, it is added. --sparen first drops what adds no coverage.
# build/fuzz/ergebnis.txt says "gut" or "fund" for each target.
#
# fuzzen.sh --sichern [ORDNER...]: makes haerte/korpus.tar.xz anew from build/fuzz/korpus and further such folders.
#
# A finding: LIEDWERK_FUZZ_ZIEL=<target> build/sanitizer/haerte/fuzz/liedwerk-fuzz <file> shows it again. Once the
# fault is mended, its (minimised) input goes to haerte/funde/<target>/, where every later run starts with it.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/../werkzeuge/gemeinsam.sh"

SPAREN=0
SICHERN=0
case "${1:-}" in
    --sparen) SPAREN=1 && shift ;;
    --sichern) SICHERN=1 && shift ;;
esac

bauen sanitizer liedwerk-fuzz liedwerk-demosammlung liedwerk-indexgenerator
export BAU="$WURZEL/build/fuzz" FUNDE="$WURZEL/haerte/funde"
export PROGRAMM="$WURZEL/build/sanitizer/haerte/fuzz/liedwerk-fuzz"
export ASAN_OPTIONS=detect_leaks=1:allocator_may_return_null=0 UBSAN_OPTIONS=print_stacktrace=1
bash "$WURZEL/haerte/fuzz/saat.sh" "$BAU/saat" "$WURZEL/build/sanitizer"
bash "$WURZEL/haerte/fuzz/korpus.sh" auspacken "$BAU/korpus"

if [ "$SICHERN" -eq 1 ]; then
    bash "$WURZEL/haerte/fuzz/korpus.sh" sichern "$BAU" "$@"
    exit
fi
export SEKUNDEN="${1:-3600}"
if [ $# -gt 0 ]; then shift; fi
if [ $# -gt 0 ]; then ZIELE=("$@"); else mapfile -t ZIELE < <("$PROGRAMM"); fi
TMPDIR="$(mktemp -d -p /dev/shm liedwerk-fuzzen-XXXXXX)"
export TMPDIR
trap 'rm -rf -- "$TMPDIR"' EXIT
mkdir -p "$BAU/korpus" "$BAU/neue-funde" "$BAU/protokoll"

# The longest input worth trying.
hoechstlaenge() {
    case "$1" in
        klang | wave | ogg | id3v* | lyrics | index) echo 4096 ;;
        http | xmcd | cddb) echo 2048 ;;
        *) echo 1024 ;;
    esac
}

# The folders with what a target starts from, the growing corpus in front.
vorrat() {
    mkdir -p "$BAU/korpus/$1" "$BAU/saat/$1"
    printf '%s\n' "$BAU/korpus/$1" "$BAU/saat/$1"
    if [ -d "$FUNDE/$1" ]; then printf '%s\n' "$FUNDE/$1"; fi
}

# Runs one target; its line of the table goes to protokoll/<target>.zeile.
laufen() {
    local ziel="$1" protokoll="$BAU/protokoll/$1.log" ordner status=0
    mapfile -t ordner < <(vorrat "$ziel")
    LIEDWERK_FUZZ_ZIEL="$ziel" "$PROGRAMM" "${ordner[@]}" -max_total_time="$SEKUNDEN" -rss_limit_mb=1024 -timeout=10 \
        -max_len="$(hoechstlaenge "$ziel")" -dict="$BAU/saat/$ziel.dict" -artifact_prefix="$BAU/neue-funde/$ziel-" \
        -reload=0 -print_final_stats=1 -verbosity=1 >"$protokoll" 2>&1 || status=$?
    awk -v ziel="$ziel" -v status="$status" -v sekunden="$SEKUNDEN" '
        / cov: / { for (i = 1; i < NF; ++i) { if ($i == "cov:") cov = $(i + 1); if ($i == "ft:") ft = $(i + 1) } }
        / INITED / { anfang = cov }
        # The coverage when half of the run was over, as far as the log tells the time by its executions.
        /^#[0-9]+/ { n = substr($1, 2) + 0; verlauf[++m] = n " " cov }
        /number_of_executed_units/ { alle = $2 }
        /peak_rss_mb/ { rss = $2 }
        END {
            if (alle == 0) alle = n
            halb = anfang
            for (i = 1; i <= m; ++i) { split(verlauf[i], p, " "); if (p[1] <= alle / 2) halb = p[2] }
            printf "%-16s %12d %9d %8d %10d %10d %6d  %s\n", ziel, alle, alle / (sekunden > 0 ? sekunden : 1), cov,
                cov - anfang, cov - halb, rss, status == 0 ? "gut" : "FUND"
        }' "$protokoll" >"$BAU/protokoll/$ziel.zeile"
    printf '%s %s\n' "$([ "$status" -eq 0 ] && echo gut || echo fund)" "$ziel" >"$BAU/protokoll/$ziel.ergebnis"
}

# Keeps of a corpus what together covers as much.
sparen() {
    local ziel="$1" neu="$BAU/korpus/$1.neu"
    rm -rf -- "$neu"
    mkdir -p "$neu" "$BAU/korpus/$ziel"
    LIEDWERK_FUZZ_ZIEL="$ziel" "$PROGRAMM" -merge=1 "$neu" "$BAU/korpus/$ziel" >"$BAU/protokoll/$ziel.sparen" 2>&1 || return 0
    rm -rf -- "$BAU/korpus/$ziel"
    mv "$neu" "$BAU/korpus/$ziel"
}
export -f laufen sparen vorrat hoechstlaenge

if [ "$SPAREN" -eq 1 ]; then printf '%s\n' "${ZIELE[@]}" | xargs -P 2 -I{} bash -c 'sparen {}'; fi
printf '%s\n' "${ZIELE[@]}" | xargs -P 2 -I{} bash -c 'laufen {}'

printf '%-16s %12s %9s %8s %10s %10s %6s  %s\n' Ziel Ausfuehr. je_Sek. Kanten neu neu_2.Haelfte MiB Ergebnis
for ziel in "${ZIELE[@]}"; do cat "$BAU/protokoll/$ziel.zeile"; done
for ziel in "${ZIELE[@]}"; do cat "$BAU/protokoll/$ziel.ergebnis"; done >"$BAU/ergebnis.txt"
for ziel in "${ZIELE[@]}"; do
    if ! grep -q '^gut' "$BAU/protokoll/$ziel.ergebnis"; then
        sagen "" "== $ziel (build/fuzz/protokoll/$ziel.log)"
        grep -aE 'Verletzt|erwartet:|gefunden:|ERROR|runtime error|ALARM|    #[0-9]+ .* in liedwerk|Test unit written' \
            "$BAU/protokoll/$ziel.log" | head -n 16 || true
    fi
done
! grep -q '^fund' "$BAU/ergebnis.txt"
