#!/usr/bin/env bash
# korpus.sh: the inputs that earlier runs of the fuzz targets have found worth keeping: haerte/korpus.tar.xz, one
# folder for each target.
#
# korpus.sh auspacken ORDNER: adds the archive's inputs to ORDNER/<target>/, unless this archive is there already.
# korpus.sh sichern BAU [ORDNER...]: makes the archive anew from BAU/korpus and further folders like it, with the
#     seeds in BAU/saat and the targets in the environment's PROGRAMM. Kept is what together covers as much as all of
#     it; what a seed or a found input covers is left out. The same inputs give the same bytes.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/../../werkzeuge/gemeinsam.sh"

ARCHIV="$WURZEL/haerte/korpus.tar.xz"

auspacken() {
    local stand
    [ -f "$ARCHIV" ] || return 0
    stand="$(sha256sum <"$ARCHIV")"
    if [ -f "$1/stand" ] && [ "$(cat "$1/stand")" = "$stand" ]; then return 0; fi
    mkdir -p "$1"
    tar -xJf "$ARCHIV" -C "$1" --no-same-owner
    printf '%s\n' "$stand" >"$1/stand"
}

# einziel ZIEL BAU NEU ORDNER...: NEU/ZIEL gets what of ORDNER/ZIEL adds to the seeds and the found inputs.
einziel() {
    local ziel="$1" bau="$2" neu="$3/neu/$1" alle="$3/alle/$1" ordner
    shift 3
    mkdir -p "$neu" "$alle"
    # What lies in the first folder counts as covered.
    for ordner in "$bau/saat/$ziel" "$WURZEL/haerte/funde/$ziel"; do
        if [ -d "$ordner" ]; then cp -- "$ordner"/* "$neu/"; fi
    done
    # A copy: a run that goes on meanwhile replaces its inputs by shorter ones.
    for ordner in "$@"; do
        if [ -d "$ordner/$ziel" ]; then find "$ordner/$ziel" -type f -exec cp -t "$alle" {} + 2>/dev/null || true; fi
    done
    # A broken rule does not keep the others from being kept.
    LIEDWERK_FUZZ_ZIEL="$ziel" "$PROGRAMM" -merge=1 -rss_limit_mb=1024 -timeout=10 -max_len=8192 \
        "$neu" "$alle" >"$bau/protokoll/$ziel.sichern" 2>&1 || sagen "$ziel: siehe build/fuzz/protokoll/$ziel.sichern"
    # libFuzzer names what it keeps by its SHA-1.
    find "$neu" -type f -regextype posix-extended -not -regex '.*/[0-9a-f]{40}' -delete
}

sichern() {
    local bau="$1" ablage
    shift
    ablage="$(mktemp -d)"
    # shellcheck disable=SC2064
    trap "rm -rf -- '$ablage'" EXIT
    export -f einziel sagen
    export WURZEL
    mkdir -p "$bau/protokoll"
    "$PROGRAMM" |
        xargs -P "$KERNE" -I{} bash -c 'einziel "$@"' einziel {} "$bau" "$ablage" "$bau/korpus" "$@"
    (cd "$ablage/neu" && find . -type f -printf '%P\n' | LC_ALL=C sort) >"$ablage/namen"
    tar -C "$ablage/neu" --format=ustar --owner=0 --group=0 --numeric-owner --mode=644 --mtime=@0 -cf "$ablage/tar" \
        -T "$ablage/namen"
    xz -9e -T1 -c "$ablage/tar" >"$ARCHIV"
    sagen "$(wc -l <"$ablage/namen") Eingaben, $(stat -c %s "$ARCHIV") Bytes in haerte/korpus.tar.xz"
}

case "${1:-}" in
    auspacken | sichern) "$@" ;;
    *) scheitern "auspacken ORDNER oder sichern BAU [ORDNER...]" ;;
esac
