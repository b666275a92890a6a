#!/usr/bin/env bash
# welten.sh [kurz]: lets liedwerk-cli add and synchronise folders that loop and hold evil names, and work on an index
# whose values have up to 100,000 characters; see docs/verlaesslichkeit.md. Bind mounts are left out where
# mounting is not allowed. Ends with 0 only when all is as it should be; the last line counts the cases. "kurz" is all.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/../werkzeuge/gemeinsam.sh"

# Mounting needs root, at least that of a name space of one's own, and shall leave nothing behind.
if [ -z "${WELTEN_INNEN:-}" ]; then
    bauen release liedwerk-cli liedwerk-messlauf
    huelle=()
    if unshare -m true 2>/dev/null; then huelle=(unshare -m); elif unshare -rm true 2>/dev/null; then huelle=(unshare -rm); fi
    WELTEN_INNEN=1 exec "${huelle[@]}" "${BASH_SOURCE[0]}" "$@"
fi

BAU="$WURZEL/build/release"
ABLAGE="$(mktemp -d)"
trap 'umount -R -- "$ABLAGE/m/gebunden" "$ABLAGE/m/a/innen" 2>/dev/null || true; rm -rf -- "$ABLAGE"' EXIT
BESTANDEN=0
MISSLUNGEN=0

# pruefen NAME IST SOLL: one case.
pruefen() {
    if [ "$2" = "$3" ]; then
        BESTANDEN=$((BESTANDEN + 1))
    else
        MISSLUNGEN=$((MISSLUNGEN + 1))
        sagen "BRUCH $1: $2 statt $3"
    fi
}

# laufen BEFEHL...: the program on the index; output and messages in files.
laufen() {
    timeout 30 "$BAU/src/ui/text/liedwerk-cli" --programmordner "$ABLAGE/prog" --einstellungen "$ABLAGE/e.conf" \
        --index "$ABLAGE/i.lwi" --jetzt "21.11.2026 12:00:00" --ja --still "$@" >"$ABLAGE/aus" 2>"$ABLAGE/meldungen" </dev/null
}

# messen NAME BEFEHL...: seconds of the processor and MiB of a run, its output in a file.
messen() {
    local name="$1" status zeit speicher
    shift
    read -r status zeit speicher < <("$BAU/haerte/bruch/liedwerk-messlauf" 10 "$BAU/src/ui/text/liedwerk-cli" --programmordner "$ABLAGE/prog" \
        --einstellungen "$ABLAGE/e.conf" --index "$ABLAGE/i.lwi" --jetzt "21.11.2026 12:00:00" --ja --still "$@" 2>&1 >"$ABLAGE/aus" </dev/null)
    printf '%-28s %6s s %5d MiB\n' "$name" "$zeit" $((speicher / 1024))
    pruefen "$name" "$status" 0
}

saetze() { grep -a '^#TAG:' "$1" | tail -n +2 || true; }
anzahl() { saetze "$ABLAGE/i.lwi" | wc -l; }

# ---- Folders

# A sound file of a few frames.
lied() {
    local i
    for i in 1 2 3; do
        printf '\xff\xfb\x90\x64'
        head -c 413 /dev/zero
    done
}

namen() {
    LUECKEN=($'zeile\nende' $'rueck\rlauf' $'beides\r\nhier')
    BOESE=($'esc\e[2J' $'glocke\a\x01\x7f' $'kaputt\xff\xfe\xc3' $'latin\xe4' $'halb\xed\xa0\x80' $'rtl\xe2\x80\xae3pm'
        $'breitenlos\xe2\x80\x8b' $'zerlegt a\xcc\x88' $'ganz \xc3\xa4' ' ' '  leer  ' '-strich' '--ja' '.' '..' 'a|b#TAG:'
        "\"zitat'\$(touch x)\`" $'tab\t' 'bs\x' '*?' '%41' '~' 'x~lwitmp' "$(printf 'x%.0s' {1..251})"
        "$(printf '\xc3\xa4%.0s' {1..125})")
}

ordner_anlegen() {
    local name i
    mkdir -p "$ABLAGE/prog" "$ABLAGE/m/a/b" "$ABLAGE/m/ordner.mp3"
    touch "$ABLAGE/e.conf"
    lied >"$ABLAGE/lied"
    cd "$ABLAGE/m"
    ERWARTET=2
    cp "$ABLAGE/lied" a/eins.mp3
    cp "$ABLAGE/lied" ordner.mp3/zwei.mp3
    # Folders that loop, and links that lead nowhere or to what never ends.
    ln -s .. a/b/oben
    ln -s . a/selbst
    ln -s "$ABLAGE/m" ganz
    ln -s p q
    ln -s q p
    ln -s nirgends.mp3 tot.mp3
    ln -s kreis.mp3 kreis.mp3
    ln -s /dev/zero null.mp3
    ln -s /dev/full voll.mp3
    mkfifo rohr.mp3
    for name in "${BOESE[@]}"; do
        cp "$ABLAGE/lied" "./$name.mp3"
        mkdir "./o${name:0:200}"
        cp "$ABLAGE/lied" "./o${name:0:200}/in.mp3"
        ERWARTET=$((ERWARTET + 2))
    done
    for name in "${LUECKEN[@]}"; do
        cp "$ABLAGE/lied" "./$name.mp3"
        mkdir "./o$name"
        cp "$ABLAGE/lied" "./o$name/in.mp3"
    done
    # Deeper than any path reaches.
    name="$(printf 't%.0s' {1..250})"
    for ((i = 0; i < 20; ++i)); do
        mkdir "$name"
        cd -P "$name" 2>/dev/null || cd "$name"
        cp "$ABLAGE/lied" tief.mp3
        if [ $((${#ABLAGE} + 2 + (i + 1) * 251 + 9)) -lt 4096 ]; then ERWARTET=$((ERWARTET + 1)); fi
    done
    cd "$ABLAGE"
    GEBUNDEN=nein
    mkdir "$ABLAGE/m/gebunden" "$ABLAGE/m/a/innen"
    if mount --rbind "$ABLAGE/m" "$ABLAGE/m/gebunden" 2>/dev/null && mount --bind "$ABLAGE/m/a" "$ABLAGE/m/a/innen" 2>/dev/null; then
        GEBUNDEN=ja
    fi
}

ordner() {
    abschnitt "Ordner (eingehängt im Kreis: $GEBUNDEN)"
    messen "hinzufügen" hinzufuegen "$ABLAGE/m"
    pruefen "Sätze" "$(anzahl)" "$ERWARTET"
    pruefen "jeder Satz einmal" "$(saetze "$ABLAGE/i.lwi" | sort -u | wc -l)" "$ERWARTET"
    rm "$ABLAGE/i.lwi"
    laufen hinzufuegen "$ABLAGE/m" || true
    pruefen "Namen mit Zeilenende genannt" "$(grep -c 'Zeilenende enthält' "$ABLAGE/meldungen")" 1
    pruefen "unerreichbare Ordner genannt" "$(grep -c '^1 Ordner konnte' "$ABLAGE/meldungen")" 1
    pruefen "Meldungen ohne Steuerzeichen" "$(LC_ALL=C grep -c -P '[\x00-\x08\x0b-\x1f]' "$ABLAGE/meldungen")" 0
    # The folder is to be synchronised from now on; some files go, some come.
    sed -i "0,/^#OPT:/s|^#OPT:|#OPT:SYNC=$ABLAGE/m,1,\r\n#OPT:|" "$ABLAGE/i.lwi"
    rm -f "$ABLAGE/m/${BOESE[2]}.mp3" "$ABLAGE/m/-strich.mp3" "$ABLAGE/m/..mp3"
    cp "$ABLAGE/lied" "$ABLAGE/m/neu"$'\xff'".mp3"
    messen "synchronisieren" synchronisieren
    pruefen "synchronisiert" "$(head -n 1 "$ABLAGE/aus")" "3 Datei(en) entfernt, 1 Datei(en) hinzugefügt, $((ERWARTET - 2)) Datei(en) im Index"
    cp "$ABLAGE/i.lwi" "$ABLAGE/vorher"
    laufen synchronisieren || true
    pruefen "noch einmal synchronisiert" "$(head -n 1 "$ABLAGE/aus")" "0 Datei(en) entfernt, 0 Datei(en) hinzugefügt, $((ERWARTET - 2)) Datei(en) im Index"
    pruefen "Index unverändert" "$(cmp -s "$ABLAGE/i.lwi" "$ABLAGE/vorher" && echo gleich)" gleich
}

# ---- Long lines

LAENGEN=(0 1 254 255 256 9999 32766 32767 32768 65535 65536 99999 100000)

# An index with a record for each length: five texts of it, each of which ends with its own mark.
lange_zeilen() {
    LC_ALL=C awk -v laengen="${LAENGEN[*]}" '
        function text(laenge, marke,   s) {
            if (laenge < length(marke)) return substr(marke, 1, laenge)
            for (s = "x"; length(s) < laenge; s = s s)
                ;
            return substr(s, 1, laenge - length(marke)) marke
        }
        BEGIN {
            printf "#TAG:lw102\r\n"
            anzahl = split(laengen, alle, " ")
            for (i = 1; i <= anzahl; ++i) {
                l = alle[i]; pfad = "/x/" l ".mp3"
                album = text(l, "-A" l "."); wer = text(l, "-I" l "."); wort = text(l, "-K" l "."); titel = text(l, "-T" l "."); jahr = text(l, "-J" l ".")
                n = l + 0 == 0 ? "" : l
                printf "#TAG:%d/%s/%s/%s//%s//%s/4//3/1/5/1/1/10/1/12/1/|", length(pfad), n, n, n, n, n
                print pfad album wer wort titel jahr "12511280441000022.11.20261Joint Stereo0\r"
            }
        }' >"$ABLAGE/i.lwi"
}

zeilen() {
    local ziel l format
    abschnitt "Zeilen bis $(awk '{ if (length > n) n = length } END { print n }' "$ABLAGE/i.lwi") Zeichen"
    cp "$ABLAGE/i.lwi" "$ABLAGE/vorher"
    messen "laden und speichern" index-speichern --ausgabe "$ABLAGE/j.lwi"
    pruefen "gespeichert wie geladen" "$(cmp -s <(saetze "$ABLAGE/vorher") <(saetze "$ABLAGE/j.lwi") && echo gleich)" gleich
    messen "auflisten" --json saetze
    for l in "${LAENGEN[@]:5}"; do
        messen "suchen, $l" suchen --feld Titel --zaehlen -- "xx-T$l."
        pruefen "Treffer für $l" "$(tr -dc 0-9 <"$ABLAGE/aus")" 1
    done
    messen "sortieren" sortieren --ausgabe "$ABLAGE/s.lwi" Titel Album
    pruefen "sortiert ohne Verlust" "$(cmp -s <(saetze "$ABLAGE/vorher" | sort) <(saetze "$ABLAGE/s.lwi" | sort) && echo gleich)" gleich
    for format in text html tabelle json; do
        messen "exportieren, $format" export --format "$format" --spalten Titel,Album,Interpret "$ABLAGE/export.$format"
        for l in "${LAENGEN[@]:5}"; do
            pruefen "$format, $l" "$(grep -a -c -F "x-T$l." "$ABLAGE/export.$format")" 1
        done
    done
    # A change: a play of the record whose title and artist are as long as an argument can be.
    ziel="$(printf '%32760s' '' | tr ' ' x)"
    messen "ändern" titel-erkennen "$ziel-I32768. - $ziel-T32768." 31
    pruefen "eine Zeile geändert" "$(diff <(saetze "$ABLAGE/vorher") <(saetze "$ABLAGE/i.lwi") | grep -a -c '^>')" 1
    cp "$ABLAGE/i.lwi" "$ABLAGE/vorher"
    messen "noch einmal speichern" index-speichern
    pruefen "das zweite Speichern ändert nichts" "$(cmp -s <(saetze "$ABLAGE/vorher") <(saetze "$ABLAGE/i.lwi") && echo gleich)" gleich
}

namen
ordner_anlegen
ordner
lange_zeilen
zeilen
printf '\n%d bestanden, %d misslungen\n' "$BESTANDEN" "$MISSLUNGEN"
[ "$MISSLUNGEN" -eq 0 ]
