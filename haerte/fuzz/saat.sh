#!/usr/bin/env bash
# saat.sh ORDNER PROGRAMME: seeds and dictionaries for the fuzz targets: ORDNER/<target>/* and
# ORDNER/<target>.dict. Media files and indexes come from the project's own generators below PROGRAMME (a build
# folder), the words of the dictionaries from the sources of the readers. The same commit gives the same seeds.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/../../werkzeuge/gemeinsam.sh"

ORDNER="$1"
PROGRAMME="$2/werkzeuge"
ARBEIT="$(mktemp -d)"
trap 'rm -rf -- "$ARBEIT"' EXIT

# saat ZIEL NAME: the seed is what comes in; printf's escapes are the caller's.
saat() {
    mkdir -p "$ORDNER/$1"
    cat >"$ORDNER/$1/$2"
}

# kurz DATEI: what the readers look at: the beginning of a file and its end.
kurz() {
    if [ "$(stat -c %s "$1")" -le 3600 ]; then cat "$1"; else
        head -c 3000 "$1"
        tail -c 600 "$1"
    fi
}

# woerter ZIEL DATEI...: a dictionary of the string literals in the sources (plain ASCII ones) and of the lines
# that come in.
woerter() {
    local ziel="$1"
    shift
    {
        cat
        (cd "$WURZEL/src" && LC_ALL=C grep -hv '#include' "$@" |
            LC_ALL=C grep -oE '"[ !#-[^-~]{1,24}"|"([ !#-[^-~]|\\x[0-9A-Fa-f]{2}){1,24}"' || true) | LC_ALL=C grep -vE ' .* ' || true
    } | LC_ALL=C sort -u >"$ORDNER/$ziel.dict"
}

klangdateien() {
    local nummer=0 datei
    "$PROGRAMME/liedwerk-demosammlung" "$ARBEIT/demo" >/dev/null
    while IFS= read -r -d '' datei; do
        nummer=$((nummer + 1))
        case "$datei" in
            *.mp3)
                for ziel in klang id3v1 id3v2 id3v2modern lyrics; do kurz "$datei" | saat "$ziel" "demo$nummer"; done
                tail -c 128 "$datei" | saat id3v1 "ende$nummer"
                tail -c 700 "$datei" | saat lyrics "ende$nummer"
                head -c 900 "$datei" | saat id3v2 "kopf$nummer"
                head -c 900 "$datei" | saat id3v2modern "kopf$nummer"
                ;;
            *.wav)
                kurz "$datei" | saat wave "demo$nummer"
                { printf '\0\0\0\0\0\001\0\0' && head -c 44 "$datei"; } | saat wave "kopf$nummer"
                ;;
            *.ogg) kurz "$datei" | saat ogg "demo$nummer" ;;
        esac
    done < <(find "$ARBEIT/demo" -type f -print0 | LC_ALL=C sort -z)
    printf 'LYRICSBEGINText eins\r\nText zweiLYRICSEND' | saat lyrics fassung1
    printf 'LYRICSBEGININD0000210LYR00004TextEAL00003abc000039LYRICS200' | saat lyrics fassung2
    printf 'ID3\003\0\0\0\0\0\041TIT2\0\0\0\007\0\0\001\377\376a\0b\0COMM\0\0\0\012\0\0\0deuk\0vviel' | saat id3v2modern unicode
    printf 'ID3\002\0\0\0\0\0\030TT2\0\0\005\0TestTP1\0\0\005\0Wer\351' | saat id3v2 version2
    printf 'ID3\002\0\0\0\0\0\030TT2\0\0\005\0TestTP1\0\0\005\0Wer\351' | saat id3v2modern version2
    printf 'ID3\004\0\220\0\0\0\040TIT2\0\0\0\006\0\003\0\0\0\006\003Te\377\0stPOPM\0\0\0\006\0\0a\0\200\0\0\0' |
        saat id3v2modern version4
    printf '\377\373\220\0%036dXing\0\0\0\001\0\0\020\0' 0 | tr 0 '\0' | saat klang xing
    printf '%036dXing\0\0\0\001\0\0\020\0%0400d' 0 0 | tr 0 '\0' | saat klang xing-ohne-kopf
    # More frames that nobody shows than are named; all values of a version without brackets around genres.
    { printf 'ID3\003\0\0\0\0\004\0' && for nummer in $(seq 40); do printf 'X%03d\0\0\0\002\0\0\0a' "$nummer"; done &&
        head -c 32 /dev/zero; } | saat id3v2 viele
    cp "$ORDNER/id3v2/viele" "$ORDNER/id3v2modern/viele"
    {
        printf 'ID3\004\0\0\0\0\002\0'
        for rahmen in 'TCON:\003(17)Rock' 'TCON:\003(4)(5)' 'TIT2:\00317' 'WXXX:\003x\0http://x/\303\244' 'PCNT:\0\0\0\007' \
            'TRCK:\0031/2' 'COMM:\003deux\0viel' 'TALB:\003A' 'POPM:a\0\200'; do
            inhalt="${rahmen#*:}"
            printf "${rahmen%%:*}\0\0\0\\$(printf '%03o' "$(printf "$inhalt" | wc -c)")\0\0$inhalt"
        done
        head -c 256 /dev/zero
    } | head -c 266 | saat id3v2modern werte4
}

# indexzeile ART WERT...: a line of an index file with the lengths of its values.
indexzeile() {
    local art="$1" laengen="" wert LC_ALL=C
    shift
    for wert in "$@"; do
        if [ -n "$wert" ]; then laengen+="${#wert}/"; else laengen+="/"; fi
    done
    printf '#%s:%s|%s\r\n' "$art" "$laengen" "$(printf '%s' "$@")"
}

indexe() {
    local nummer version
    for nummer in 1 2 3; do
        "$PROGRAMME/liedwerk-indexgenerator" "$ARBEIT/i$nummer" "$nummer" "$nummer" >/dev/null
        saat index "index$nummer" <"$ARBEIT/i$nummer"
    done
    for version in 100 101; do sed "1s/lw102/lw$version/" "$ARBEIT/i2" | saat index "version$version"; done
    tr -d '\r' <"$ARBEIT/i2" | saat index nur-lf
    grep -a '#TAG' "$ARBEIT/i3" | saat index ohne-optionen
    printf '%s\r\n' '#TAG:lw102' '#OPT:SYNC=C:\mp3,1,D:\neu' '#OPT:SYNC_ENTFERNEN=0' '#OPT:VERWALTEN=mp3=1,110' \
        '#OPT:SPALTEN=3=2800=1,5=1400=2' '#OPT:EIGENTUEMER=Anna' \
        '#TERMIN:4/3/1/19///10/1/1/2/5/|TestArt101.02.2030 10:00:0001.02.2003d130Hallo' \
        '#TAG:12//4//////4//3/2/5/1/1/10/1/6/1/|C:\mp3\a.mp3ABBA123412875441000001.02.20031Stereo0' | saat index termin
    printf 'C:\\a.mp3\n/b/c.mp3\n' | saat index pfade
    printf '%s\r\n' '#indexfelder11' '#TAG:1/1/19/4/1|a201.02.2003 04:05:06Text7' \
        '#TAG:8/1/19//1|/m/b.mp3301.02.2003 04:05:068' '#TAG:8/1/10/2/2/3|C:\c.mp3101.02.2003ab10neu' |
        saat felderaustausch felder
    # Reminders of each kind; records whose lines are alike.
    {
        printf '#TAG:lw102\r\n'
        indexzeile TERMIN Test Musik 1 '01.02.2030 10:00:00' '' '01.02.2003 10:00:00' '01.01.2003 10:00:00' d 2 0 Hallo ''
        indexzeile TERMIN Einmal '' 1 '' '' '01.02.2003 10:00:00' '' '' '' 5 '' /bin/fehlt
        indexzeile TERMIN Monat '' 1 '' '31.01.2026 10:00:00' '31.01.2020 10:00:00' '' m 1 0 '' ''
        indexzeile TERMIN Falsch '' 1 '' '' morgen '' y 1
        indexzeile TERMIN Bald '' 1 '' '' '31.12.2999 10:00:00' '' h 30000
        indexzeile TAG /m/b.mp3 Album Wer viel 17 Was 3 1999 1000 CD1 128 61 44100
        indexzeile TAG /n/b.mp3 Album Wer viel 17 Was 3 1999 1000 CD1 128 61 44100
        indexzeile TAG /n/a.mp3 '' '' '' '' '' '' '' 1000 '' '' 61
    } | saat index bestand
    mkdir -p "$ORDNER/bestand"
    cp "$ORDNER"/index/* "$ORDNER/bestand/"
}

# The table of the settings as a file of them.
einstellungen() {
    sed -n 's/^ *X(\(Kurz\|Lang\), \([^,]*\), \(.*\)) .*$/\2=\3/p; s/^ *X(Text, \([^,]*\), \(.*\)) .*$/\1=\2/p' \
        "$WURZEL/src/basis/einstellungen.h" >"$ARBEIT/alle"
    split -l 40 "$ARBEIT/alle" "$ARBEIT/teil-"
    local teil
    for teil in "$ARBEIT"/teil-*; do saat einstellungen "${teil##*/}" <"$teil"; done
    printf '# von Hand\n[Gruppe]\nStart=1\nStart=2\r\nDateiname="C:\\\\a\\"b\\x01\\n"\nZahl=99999999999\nSuche1="a"\n' |
        saat einstellungen hand
    { printf '"Start="\n"=\\""\n"\\\\x0a"\n' && cut -d= -f1 "$ARBEIT/alle" | LC_ALL=C grep -x '[ -~]*' | sed 's/.*/"&="/'; } |
        woerter einstellungen basis/einstellungen.h
}

aufrufe() {
    printf 'suchen\n--feld\nTitel\n--json\nabba\n--index\nx.lwi\n--jetzt\n01.02.2003 04:05:06' | saat kommandozeile suchen
    printf -- '--setze\nTAGsModern=1\nhinzufuegen\n--\n-x.mp3' | saat kommandozeile setze
    printf -- '/dir "C:\\a b" "C:\\c"' | saat kommandozeile dir
    printf -- '--tag\na/../b/./c.mp3\n-q' | saat kommandozeile tag
    grep -oE '^ +"[a-z-]+ [^"]*"' "$WURZEL/src/ui/text/befehle.cpp" | tr -d '"' | sed 's/^ *//' | head -60 >"$ARBEIT/zeilen" || true
    local nummer=0 zeile
    while IFS= read -r zeile; do
        nummer=$((nummer + 1))
        tr ' ' '\n' <<<"$zeile" | saat kommandozeile "aufruf$nummer"
    done <"$ARBEIT/zeilen"
}

cds() {
    local satz='# xmcd\r\n#\r\nDISCID=8a0b2c0d\r\nDTITLE=Wer / Was\r\nDYEAR=1999\r\nDGENRE=Pop\r\nTTITLE0=Eins\r\nTTITLE1=Zw\344i\r\nTTITLE1= weiter\r\nEXTD=YEAR: 1999 ID3G: 17\\nText\r\nEXTT0=\r\nPLAYORDER=\r\n'
    printf "$satz" | saat xmcd satz
    printf '210 rock 8a0b2c0d ok\r\nDTITLE=A / B\nTTITLE0=\303\244 / b\r.\r\n' | saat xmcd antwort
    printf "200 rock 8a0b2c0d Wer / Was\r\n\000210 rock 8a0b2c0d ok\r\n$satz.\r\n\000200 gut" | saat cddb genau
    printf "$satz" | saat cdspeicher satz
    printf "lwifcddb1\r\n$satz" | saat cdspeicher mit-kopf
    local ausgang
    for ausgang in A B C D E F G H 4 u; do printf '500 schlecht\0\0\000%s' "$ausgang" | saat cddb "fehler$ausgang"; done
    printf 'http://anderswo.example:80/x?y\0ftp://x\0\000uuu' | saat cddb umgeleitet
    printf "211 aehnlich\r\nrock 8a0b2c0d A / B\r\nmisc 8a0b2c0e C / D\r\n.\r\n\000210 misc 8a0b2c0e ok\r\n$satz.\r\n\000500 schlecht\000\0001\000http://x.example:8080/\000a@b@c.de\000$satz" |
        saat cddb eingaben
    printf "200 rock 8a0b2c0d A / B\r\n\000210 rock 8a0b2c0d ok\r\n$satz.\r\n\000200 gut\000\0001\000\000\000$satz" | saat cddb senden
    printf "211 aehnlich\r\nrock 8a0b2c0d A / B\r\nmisc 8a0b2c0e C / D\r\n.\r\n\000210 misc 8a0b2c0e ok\r\n$satz.\r\n\000500 schlecht" |
        saat cddb auswahl
    printf '202 nichts' | saat cddb nichts
    printf 'HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\nHallo' | saat http laenge
    printf 'HTTP/1.1 100 Weiter\r\n\r\nHTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n5;x=y\r\nHallo\r\n0\r\nEnde: 1\r\n\r\n' |
        saat http stuecke
    printf 'HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n5\r\nHalloX\r\n0\r\n\r\n' | saat http stueck-ohne-ende
    printf 'HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nffff\r\nHallo' | saat http stueck-zu-gross
    printf 'HTTP/1.0 404 Nicht da\nServer: x\n\nText' | saat http bis-ende
    printf 'HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\n\r\nx' | saat http komprimiert
    printf '\001FILE "a b.bin" BINARY\r\n  TRACK 01 AUDIO\r\n    PREGAP 00:02:00\r\n    INDEX 01 00:00:00\r\n  TRACK 02 MODE1/2352\r\n    INDEX 00 00:10:00\r\n    INDEX 01 00:12:00\r\nPOSTGAP 00:00:10\r\n' |
        saat cdabbild cue
    printf '\001FILE 1wav.wav WAVE\nTRACK 01 AUDIO\nINDEX 01 00:00:00\nFILE 2wav.wav WAVE\nTRACK 02 AUDIO\nINDEX 01 00:00:00\n' |
        saat cdabbild cue-wave
    printf '\002CD_DA\n// x\nTRACK AUDIO\nSILENCE 00:02:00\nSTART\nFILE "abc.bin" 0 03:00:00\nTRACK MODE1_RAW\nDATAFILE "abcd.bin"\nZERO 00:01:00\nPREGAP 00:02:00\n' |
        saat cdabbild toc
    printf '\002CD_DA\nCD_TEXT { LANGUAGE 0 { TITLE "x}" } }\nTRACK AUDIO\nISRC "DEX"\nAUDIOFILE "wavwavwav" 588 12345\n' |
        saat cdabbild toc-text
}

listen() {
    printf '\0#EXTM3U\r\n#EXTINF:12,A - B\r\nC:\\m\\a.mp3\r\nb%%20c.mp3\r\nhttp://x/y\r\nfile:///m/a.mp3\r\n../x.mp3\n' | saat playliste m3u
    printf '\001[playlist]\r\nFile1=a.mp3\r\nTitle1=x\r\nLength1=1\r\nFile2=C:\\b.mp3\r\nNumberOfEntries=2\r\n' | saat playliste pls
    printf '\002"a.mp3"\t"b.mp3"\n# Bemerkung\nC:\\x.mp3 (3:12)\n' | saat playliste namen
    printf '\0C:\\1\\2\\3\\4\\5\\6\\7\\8\\9\\10\\11\\12\\13\\14\\15\\16\\17\\x.mp3' | saat playliste tief
    printf '\0\377\376a\0.\0m\0p\0003\0\r\0\n\0' | saat playliste utf16
    printf '\0\357\273\277\303\244.mp3\n' | saat playliste marke
    printf 'Titel: 1/2\0Wer?\0%%Interpret%%\\%%Album%% (%%Jahr%%)/%%Titel%%\0C:\\a\\Wer - Was_1.mp3' | saat namensplan format
    printf '..\0CON\0%%Nummer%%%%\0../../x' | saat namensplan pfade
    printf 'a\00007\0a\0b' | saat namensplan zaehler
    printf 'Titel\0000010\0abba -gold\0Straße\n1. Ärger' | saat suche begriff
    printf '(Standardsuche)\0001111\0rger\00012\tx' | saat suche standard
    printf 'Name\tTitel\0000010\0abba\0x' | saat suche zeile
    printf '%%Interpret%% - %%titel%%%%x%%' | saat suche format
    printf '\005#\n@\0alter Inhalt\0neuer Inhalt' | saat rettung frage
    printf '\003#\n@\0alter Inhalt\0neuer Inhalt' | saat rettung zerrissen
    printf '\017#\n@\0alt\0neu' | saat rettung verweis
    printf '\024#\n@\0alt\0neu' | saat rettung fehlt
    printf '\00712\n@x\0alt\0neu' | saat rettung falsch
}

# What a player tells, and lists of addresses.
nachbarn() {
    printf 'file:///m/Wer%%20-%%20Was.mp3\0Was\0Wer\000301000000\0Was' | saat spieler adresse
    printf 'file://rechner/m/100%%.mp3\0\0\0/org/x/1\0wer' | saat spieler name
    printf '/m/a b.mp3\0Straße\0Ärger\tZwei\0-1\0STRASSE' | saat spieler pfad
    printf '# von Hand\r\nfile:///m/a%%20b.mp3\r\nhttp://x/y\r\nfile:///C:/x/y.mp3\r\n' | saat ablage adressen
    printf 'file:/m/\303\244\n file://rechner/m/%%41%%\n/m/x' | saat ablage formen
    printf 'pbkdf2-sha256$300000$00112233445566778899aabbccddeeff$%064d' 0 | saat ablage kennwort
}

werte() {
    printf '31.12.1999 23:59:58' | saat werte datum
    printf '2003-02-01T04:05:06' | saat werte iso
    printf ' -1.234.567,89e+3 ' | saat werte zahl
    printf '\357\273\277\316\225\377' | saat werte roh
    printf '27 1 254:0 / /media/ute/MEINE\\040MUSIK rw shared:3 - ext4 /dev/vda rw\n/dev/sdb1 /mnt/x vfat user 0 0\n' | saat werte tabelle
    printf 'x.mp3~0123456789abcdef-7~lwikopie' | saat werte kopie
    printf '3=2800=1,5=1400=2,1=0' | saat werte spalten
}

rm -rf -- "$ORDNER"
klangdateien
indexe
einstellungen
aufrufe
cds
listen
nachbarn
werte

TAGS='"ID3\x02"
"ID3\x03"
"ID3\x04"
"3DI\x04"
"\xff\xfe"
"\xfe\xff"
"\xff\xfb\x90"
"\xff\xfb\xe0"
"\xff\xf3"
"\xff\x00"
"\x00\x00"
"\x01\xff\xfe"
"\x7f\x7f\x7f\x7f"
"\xff\xff\xff\xff"
"APIC\x00\x00\x00"
"TDRC\x00\x00\x00"
"TXXX\x00\x00\x00"
"\x03vorbis"
"\x05vorbis"
"000012LYRICS200"
"TAG"
"RIFF"
"WAVEfmt "'
for ziel in klang id3v1 id3v2 id3v2modern lyrics wave ogg; do
    woerter "$ziel" medien/{id3v1,id3v2,id3v2modern,id3v2modernwerte,id3v2modernrahmen,lyrics,ogg,mpeg,wave}.{h,cpp} <<<"$TAGS"
done
for ziel in index bestand; do
    woerter "$ziel" index/{indexformat.h,optionszeilen.cpp} <<<'"#TAG:lw102\x0d\x0a"
"100000/"
"100001/"
"4294967297/"
"\xef\xbb\xbf"
"\x0d\x0a"
"#TERMIN:"
"31.12.9999"'
done
woerter felderaustausch index/indexformat.h <<<'"#indexfelder11\x0d\x0a"
"a01.02.2003"
"/m/b.mp3"'
woerter kommandozeile ui/text/{aufruf,befehle}.cpp core/startauftrag.cpp <<<'"--setze\x0aStart=1"'
for ziel in xmcd cdspeicher cddb http cdabbild; do
    woerter "$ziel" cd/{xmcd,cddb,cddbstart,cddaten}.{h,cpp} plattform/{cdabbildcue,cdabbildtoc,cdabbild,httpleser}.cpp <<<'"\x0d\x0a.\x0d\x0a"
"TTITLE99="
"210 rock "
"chunked\x0d\x0a\x0d\x0a"
"ffffffffffffffff"
"99:59:74"
"\\n"' 2>/dev/null
done
for ziel in playliste namensplan suche werte rettung spieler ablage; do
    woerter "$ziel" index/spalten.h dateien/playlisten.cpp basis/{dateiname,uri}.cpp <<<'"%Titel%"
"%2e%2f"
"file:///m/"
"(Standardsuche)"
"\xe4"
"\xed\xb0\x80"
"#\x0a@"'
done
