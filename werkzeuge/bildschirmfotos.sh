#!/usr/bin/env bash
# werkzeuge/bildschirmfotos.sh [ZIELORDNER [NAME...]]: starts the real program on a screen that nobody sees, with the
# demo collection, and takes pictures of its windows and forms: those of the handbook (docs/bilder, the usual target)
# and of docs/formulare.md, and some that are only for looking at. With names only these. TEMPO=3 waits three times as long for each window, for
# a machine that is busy. Needs xvfb, imagemagick and xdotool; optipng
# makes the files smaller.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/gemeinsam.sh"

ziel="$(realpath -m "${1:-$WURZEL/docs/bilder}")"
namen=("${@:2}")
for werkzeug in xvfb-run import xdotool; do
    command -v "$werkzeug" >/dev/null || scheitern "„$werkzeug“ fehlt (apt install xvfb imagemagick xdotool)."
done
bauen release liedwerk liedwerk-cli liedwerk-demosammlung test_zugang
bau="$WURZEL/build/release"
mkdir -p "$ziel"
# The folder's name stands in the pictures.
arbeit="${TMPDIR:-/tmp}/anna"
mkdir "$arbeit" 2>/dev/null || arbeit="$(mktemp -d --suffix=-anna)"
trap 'rm -rf -- "$arbeit"' EXIT

# A person's home with the demo collection in an index that shows the columns most people want.
musik="$arbeit/Musik"
"$bau/werkzeuge/liedwerk-demosammlung" "$musik" >/dev/null
# Files without names or with odd tags are for trying, not for a picture.
find "$musik" \( -name '*Again*' -o -name '*Speisewagen*' -o -name '*Brz*' -o -path '*Ohne Angaben*' \
    -o -name '*.wav' -o -path '*Doppelt*' \) -type f -delete
export HOME="$arbeit/heim" XDG_CONFIG_HOME="$arbeit/heim/.config" XDG_RUNTIME_DIR="$arbeit/lauf"
export LIEDWERK_ORDNER="$arbeit/programm"
mkdir -p "$XDG_CONFIG_HOME/liedwerk" "$LIEDWERK_ORDNER" "$XDG_RUNTIME_DIR"
chmod 700 "$XDG_RUNTIME_DIR"
index="$LIEDWERK_ORDNER/lwStamm.lwi"
printf '#TAG:lw10\r\n#OPT:SPALTEN=5=2900=1,4=2500=2,6=2100=3,7=800=4,13=900=5,9=1500=6,3=0=0\r\n' >"$index"
"$bau/src/ui/text/liedwerk-cli" --index "$index" --still --setze Mp3TagLesen=111 hinzufuegen "$musik" >/dev/null
bereit() { printf 'Start=100\nTippsAktueller=0\n%s' "${1:-}" >"$XDG_CONFIG_HOME/liedwerk/einstellungen.ini"; }

# verkleinern DATEI: few colours are enough for windows, and a picture of the handbook is read over the net.
verkleinern() {
    convert "$1" +dither -colors 255 "PNG8:$1"
    if command -v optipng >/dev/null; then optipng -quiet -o2 "$1"; fi
}

# foto NAME GROESSE KOMMANDO [FENSTER]: the program on a screen of this size; KOMMANDO acts as the person, then
# the picture is taken: of the whole screen, or with a fourth argument of the form that has the focus.
foto() {
    local name="$1" groesse="$2" kommando="$3"
    if [ ${#namen[@]} -gt 0 ] && [[ " ${namen[*]} " != *" $name "* ]]; then return 0; fi
    NAME="$ziel/$name.png" KOMMANDO="$kommando" NURFORM="${4:-}" PROGRAMM="$bau/src/ui/qt/liedwerk" \
        xvfb-run -a -s "-screen 0 ${groesse}x24" bash -c '
            sleep() { command sleep "$(awk "BEGIN { print $1 * ${TEMPO:-1} }")"; }
            # The window of this title takes the keys; without a window manager none comes forward by itself.
            hin() { xdotool search --onlyvisible --name "$1" | tail -n 1 | xargs xdotool windowfocus; sleep 0.3; }
            "$PROGRAMM" & lauf=$!
            xdotool search --sync --onlyvisible --name "Liedwerk|Willkommen" >/dev/null
            # Out of the way: what lies under the pointer looks different.
            xdotool mousemove 1279 799; sleep 1
            hin "Liedwerk|Willkommen"; sleep 0.5; eval "$KOMMANDO"; sleep 1
            fenster=root
            if [ -n "$NURFORM" ]; then fenster="$(xdotool getwindowfocus)"; fi
            import -window "$fenster" "$NAME"
            kill -TERM "$lauf"; wait "$lauf"' || scheitern "Das Bild „$name“ ist nicht gelungen."
    if [ -n "${4:-}" ]; then mogrify -bordercolor '#8a8a8a' -border 1 "$ziel/$name.png"; fi
    verkleinern "$ziel/$name.png"
    sagen "$ziel/$name.png"
}
form() { foto "$1" 1280x800 "$2" form; }

# With no window manager on the screen the window is where the settings put it, at full size.
gross=$'FensterWidth=1280\nFensterHeight=800\n'
waehlen='xdotool key Down; sleep 0.3; xdotool key Down Down; sleep 0.3'
mehrere="$waehlen; xdotool key shift+Down shift+Down shift+Down; sleep 0.3"

bereit "$gross"
foto hauptfenster 1280x800 "$waehlen"
foto menue 1280x800 'xdotool key alt+a'

# Adding
form hinzufuegen 'xdotool key ctrl+n'
# A play list from another system: one name of it is wrong, one is an address.
lieder=("$musik"/*/*/*.mp3)
{
    printf '#EXTM3U\r\n'
    for lied in "${lieder[@]:0:6}"; do printf 'E:\\%s\r\n' "$(tr / '\\' <<<"Musik/${lied#"$musik"/}")"; done
    printf 'E:\\Musik\\Verschollen\\Altes Lied.mp3\r\nhttp://radio.invalid/strom\r\n'
} >"$musik/liste.m3u"
form zusammenfassung \
    "xdotool key ctrl+n; sleep 0.7; xdotool key alt+p; sleep 1; xdotool type '$musik/liste.m3u'; xdotool key Return; sleep 1"
rm "$musik/liste.m3u"

# Searching and sorting
foto suche 1280x800 'xdotool type --delay 60 "montag"; sleep 1.5'
foto nichtsgefunden 1280x800 'xdotool type --delay 60 "montak"; sleep 1.5'
foto vervollstaendigen 1280x800 \
    'xdotool key alt+u; xdotool type "Titel"; xdotool key Tab; xdotool type --delay 60 "M"; sleep 0.3; xdotool key alt+Down'
form abfrage 'xdotool key ctrl+shift+h'
form abfragen \
    'xdotool type "die"; sleep 1.5; xdotool key ctrl+shift+h; sleep 0.7; xdotool type "nacht"; xdotool key Return; sleep 0.5'
form wertebaum \
    'xdotool key ctrl+shift+m; sleep 0.7; xdotool key alt+e; sleep 0.7; xdotool key Right; sleep 0.3; xdotool key Down Right Down'
form mehrfachsuche \
    'xdotool key ctrl+shift+m; sleep 0.7; xdotool key Tab Tab Tab Tab Tab space; sleep 0.7
     for zeile in "Montag" "der - nacht" "gibt es nicht" "-"; do xdotool type -- "$zeile"; xdotool key Return; done
     xdotool key ctrl+Return'
form sortieren 'xdotool key ctrl+shift+r'

# Playing
form autodj 'xdotool key ctrl+j'
form ausfuehrenmit "$waehlen; xdotool key alt+w; sleep 0.5; xdotool key m"

# Tags
form tageditor "$mehrere; xdotool key ctrl+t; sleep 0.7"
# This one has all three tags.
regen='xdotool type rain; sleep 1.5; xdotool key Down; sleep 0.3; xdotool key ctrl+t; sleep 0.7'
form tageditor-id3v1 "$regen; xdotool key alt+1"
form tageditor-id3v2 "$regen; xdotool key alt+2"
form tageditor-lyrics "$regen; xdotool key alt+l"
form autotag "$waehlen; xdotool key alt+t; sleep 0.5; xdotool key a"
form autotag-format "$waehlen; xdotool key alt+t; sleep 0.5; xdotool key a; sleep 0.7; xdotool key alt+h; sleep 0.5"
form lieblingsgenres "xdotool key alt+t; sleep 0.5; xdotool key l"

# Files
form umbenennen "$mehrere; xdotool key F2"
form kopieren "$mehrere; xdotool key ctrl+shift+k"
form loeschen "$mehrere; xdotool key Delete"
form exportieren 'xdotool key ctrl+alt+x'

# Order in the index
cp "$index" "$arbeit/vorher.lwi"
sed -i "1a #OPT:SYNC=$musik,1,\r" "$index"
foto synchronisieren 1280x800 'xdotool key F5; sleep 1.5'
cp "$arbeit/vorher.lwi" "$index"
# Two files that were copied some time and came into the index again.
mkdir "$musik/Alter Rechner"
cp "$musik"/*/Montag/0[34]*.mp3 "$musik/Alter Rechner"
"$bau/src/ui/text/liedwerk-cli" --index "$index" --still hinzufuegen "$musik/Alter Rechner" >/dev/null
form aufraeumen "$waehlen; xdotool key ctrl+a; sleep 0.3; xdotool key ctrl+shift+i; sleep 0.7; xdotool key Return; sleep 1"
rm -r "$musik/Alter Rechner"
cp "$arbeit/vorher.lwi" "$index"
neues='xdotool key ctrl+alt+e; sleep 0.7; xdotool key alt+h; sleep 0.7; xdotool type "Mix für Oma brennen"; sleep 0.3'
form ereignis "$neues"
form ereignisse "$neues; xdotool key Return; sleep 0.7; hin 'Ereignisse verwalten'"
cp "$arbeit/vorher.lwi" "$index"
form beenden 'xdotool key ctrl+q'

# Audio CDs: an image, and what is remembered of it
printf 'FILE "Nordlicht.bin" BINARY\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n  TRACK 02 AUDIO\n    INDEX 01 03:34:00\n' \
    >"$arbeit/Nordlicht.cue"
truncate -s 75499200 "$arbeit/Nordlicht.bin"
mkdir -p "$LIEDWERK_ORDNER/CDDB"
printf '%s\r\n' lwifcddb1 '# xmcd' DISCID=0b01ac02 'DTITLE=Nordlicht Trio / Gezeiten' DYEAR=1987 DGENRE=Folk \
    TTITLE0=Ebbe TTITLE1=Flut >"$LIEDWERK_ORDNER/CDDB/0b01ac02.dat"
form cddaten "xdotool key ctrl+alt+c; sleep 0.7; xdotool key alt+i; sleep 1; xdotool type '$arbeit/Nordlicht.cue'
    xdotool key Return; sleep 1; hin 'CD-Daten'"
form cdbrowser 'xdotool key alt+e; sleep 0.5; xdotool key l; sleep 0.5'

# Index files and options
form indexdateien 'xdotool key ctrl+shift+l'
form indexoptionen 'xdotool key alt+e; sleep 0.5; xdotool key i'
sed -i "1a #OPT:SYNC=$musik,1,\r" "$index"
form indexoptionen-sync 'xdotool key alt+e; sleep 0.5; xdotool key i; sleep 0.7; xdotool key alt+y'
cp "$arbeit/vorher.lwi" "$index"
form statistik 'xdotool key alt+e; sleep 0.5; xdotool key t'
for tag in 18 19 20; do cp "$index" "$index - Backup vom $tag.11.2026 21-40-00.bak"; done
form sicherungskopien 'xdotool key ctrl+shift+l; sleep 0.7; xdotool key alt+w; sleep 0.5'
rm "$index - Backup"*
form optionen 'xdotool key ctrl+comma'
form optionen-wiedergabe 'xdotool key ctrl+comma; sleep 0.7; xdotool key Down Down Down'
form optionen-sicherheit 'xdotool key ctrl+comma; sleep 0.7; xdotool key Down Down Down Down Down Down Down Down'
form sperre 'xdotool key ctrl+l'
form handbuch 'xdotool key F1; sleep 1; hin Handbuch'
form tipps 'xdotool key alt+h; sleep 0.5; xdotool key t'

# The forms that no task of the handbook shows: by their names from the test that knows all of them.
mkdir "$arbeit/formen"
declare -A bildname=(
    [frmFortschritt]=fortschritt [frmAudioplayerNachricht]=playernachricht [frmAusschlußliste]=ausschlussliste
    [frmBildAnzeige]=bildanzeige [frmCDDatenCDWählen]=cdwaehlen [frmDateiname]=dateiname
    [frmDateiNichtVerfügbar]=nichtverfuegbar [frmDateiNichtVerfügbarSchreiben]=schreibgeschuetzt [frmInfo]=info
    [frmEigentümer]=eigentuemer [frmSperre]=entsperren [frmTagFeldFüllen]=feldfuellen
    [frmTerminÜberwachungTermin]=erinnerung [frmTerminÜberwachungTerminVerpasst]=verpasst
    [frmVerschiebenDateiExistiert]=dateiexistiert)
if [ ${#namen[@]} -eq 0 ] || [[ " ${namen[*]} " == *" formen "* ]]; then
    LIEDWERK_FORMENBILDER="$arbeit/formen" xvfb-run -a -s '-screen 0 1280x800x24' \
        "$bau/tests/ui/test_zugang" --gtest_filter='*Abbilden' >"$arbeit/formen/protokoll" 2>&1 ||
        { cat "$arbeit/formen/protokoll" >&2; scheitern "Die Bilder der Formen sind nicht gelungen."; }
    for form in "${!bildname[@]}"; do
        mogrify -bordercolor '#8a8a8a' -border 1 "$arbeit/formen/$form.png"
        cp "$arbeit/formen/$form.png" "$ziel/${bildname[$form]}.png"
        verkleinern "$ziel/${bildname[$form]}.png"
    done
    sagen "$ziel: ${#bildname[@]} Formen"
fi

# For looking at: double size, the folder dialog
if [ "$ziel" != "$WURZEL/docs/bilder" ]; then
    foto ordnerdialog 1280x800 'xdotool key ctrl+shift+o'
    QT_SCALE_FACTOR=2 foto doppelt 2560x1600 "$waehlen"
fi

# A dark desktop: the colours of its settings, as the desktop itself hands them to Qt.
cat >"$XDG_CONFIG_HOME/kdeglobals" <<'FARBEN'
[Colors:Window]
BackgroundNormal=35,38,41
ForegroundNormal=239,240,241
[Colors:View]
BackgroundNormal=27,30,32
BackgroundAlternate=32,36,39
ForegroundNormal=239,240,241
[Colors:Button]
BackgroundNormal=49,54,59
ForegroundNormal=239,240,241
[Colors:Selection]
BackgroundNormal=61,116,165
ForegroundNormal=255,255,255
[Colors:Tooltip]
BackgroundNormal=49,54,59
ForegroundNormal=239,240,241
FARBEN
XDG_CURRENT_DESKTOP=KDE KDE_FULL_SESSION=true KDE_SESSION_VERSION=5 foto dunkel 1280x800 "$waehlen"
rm "$XDG_CONFIG_HOME/kdeglobals"

rm -f "$index" "$XDG_CONFIG_HOME/liedwerk/einstellungen.ini"
form willkommen 'true'
rm -f "$index"
bereit "$gross"
if [ "$ziel" != "$WURZEL/docs/bilder" ]; then foto leer 1280x800 'true'; fi
