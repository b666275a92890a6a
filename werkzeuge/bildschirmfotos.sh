#!/usr/bin/env bash
# werkzeuge/bildschirmfotos.sh [ZIELORDNER]: starts the real program on a screen that nobody sees, with the
# demo collection, and takes pictures of its windows: light and dark, small and at double scale. They are for
# looking at, and one of them is docs/bilder/hauptfenster.png. Needs xvfb, imagemagick and xdotool.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/gemeinsam.sh"

ziel="${1:-$WURZEL/build/bilder}"
for werkzeug in xvfb-run import xdotool; do
    command -v "$werkzeug" >/dev/null || scheitern "„$werkzeug“ fehlt (apt install xvfb imagemagick xdotool)."
done
bauen release liedwerk liedwerk-cli liedwerk-demosammlung
bau="$WURZEL/build/release"
mkdir -p "$ziel"
arbeit="$(mktemp -d --suffix=-anna)"
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

# foto NAME GROESSE KOMMANDO: the program on a screen of this size; KOMMANDO acts as the person, then the
# picture is taken.
foto() {
    local name="$1" groesse="$2" kommando="$3"
    NAME="$ziel/$name.png" KOMMANDO="$kommando" PROGRAMM="$bau/src/ui/qt/liedwerk" \
        xvfb-run -a -s "-screen 0 ${groesse}x24" bash -c '
            "$PROGRAMM" & lauf=$!
            xdotool search --sync --onlyvisible --name "Liedwerk|Willkommen" >/dev/null
            sleep 1
            xdotool search --onlyvisible --name "Liedwerk|Willkommen" | tail -n 1 | xargs xdotool windowfocus
            sleep 0.5; eval "$KOMMANDO"; sleep 1
            import -window root "$NAME"
            kill -TERM "$lauf"; wait "$lauf"'
    sagen "$ziel/$name.png"
}
# With no window manager on the screen the window is where the settings put it, at full size.
gross=$'FensterWidth=1280\nFensterHeight=800\n'
waehlen='xdotool key Down; sleep 0.3; xdotool key Down Down'

bereit "$gross"
foto hauptfenster 1280x800 "$waehlen"
foto suche 1280x800 'xdotool type --delay 60 "montag"; sleep 1.5'
foto nichtsgefunden 1280x800 'xdotool type --delay 60 "montak"; sleep 1.5'
foto vervollstaendigen 1280x800 \
    'xdotool key alt+u; xdotool type "Titel"; xdotool key Tab; xdotool type --delay 60 "M"; sleep 0.3; xdotool key alt+Down'
foto abfrage 1280x800 'xdotool key ctrl+shift+h'
foto abfragen 1280x800 \
    'xdotool type "die"; sleep 1.5; xdotool key ctrl+shift+h; sleep 0.7; xdotool type "nacht"; xdotool key Return'
foto mehrereabfragen 1280x800 \
    'xdotool type "die"; sleep 1.5; xdotool key ctrl+shift+h; sleep 0.7; xdotool type "a"; xdotool key Return; sleep 0.7; xdotool key Return'
foto wertebaum 1280x800 \
    'xdotool key ctrl+shift+m; sleep 0.7; xdotool key alt+e; sleep 0.7; xdotool key Right; sleep 0.3; xdotool key Down Right Down'
foto mehrfachsuche 1280x800 \
    'xdotool key ctrl+shift+m; sleep 0.7; xdotool key Tab Tab Tab Tab Tab space; sleep 0.7
     for zeile in "Montag" "der - nacht" "gibt es nicht" "-"; do xdotool type -- "$zeile"; xdotool key Return; done
     xdotool key ctrl+Return'
foto sortieren 1280x800 'xdotool key ctrl+shift+r'
foto hinzufuegen 1280x800 'xdotool key ctrl+n'
# A play list from another system: one name of it is wrong, one is an address.
lieder=("$musik"/*/*/*.mp3)
{
    printf '#EXTM3U\r\n'
    for lied in "${lieder[@]:0:6}"; do printf 'E:\\%s\r\n' "$(tr / '\\' <<<"Musik/${lied#"$musik"/}")"; done
    printf 'E:\\Musik\\Verschollen\\Altes Lied.mp3\r\nhttp://radio.invalid/strom\r\n'
} >"$musik/liste.m3u"
foto zusammenfassung 1280x800 \
    "xdotool key ctrl+n; sleep 0.7; xdotool key alt+p; sleep 1; xdotool type '$musik/liste.m3u'; xdotool key Return; sleep 1"
rm "$musik/liste.m3u"
sed -i "1a #OPT:SYNC=$musik,1,\r" "$index"
foto synchronisieren 1280x800 'xdotool key F5; sleep 1.5'
markieren='xdotool key Down; sleep 0.3; xdotool key shift+Down shift+Down shift+Down; sleep 0.3'
foto aufraeumen 1280x800 "xdotool key Down; xdotool key ctrl+a; sleep 0.3; xdotool key ctrl+shift+i; sleep 1; xdotool key alt+s"
foto umbenennen 1280x800 "$markieren; xdotool key F2"
foto kopieren 1280x800 "$markieren; xdotool key ctrl+shift+k"
foto loeschen 1280x800 "$markieren; xdotool key Delete"
foto exportieren 1280x800 "$markieren; xdotool key ctrl+e"
foto ereignisse 1280x800 \
    'xdotool key ctrl+alt+e; sleep 0.7; xdotool key alt+h; sleep 0.7; xdotool type "Platte von Lea"; xdotool key Return'
foto ereignis 1280x800 'xdotool key ctrl+alt+e; sleep 0.7; xdotool key alt+h'
foto info 1280x800 'xdotool key F1'
foto beenden 1280x800 'xdotool key ctrl+q'
foto menue 1280x800 'xdotool key alt+a'
foto ordnerdialog 1280x800 'xdotool key ctrl+shift+o'
QT_SCALE_FACTOR=2 foto doppelt 2560x1600 "$waehlen"

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
foto willkommen 1280x800 'true'
rm -f "$index"
bereit "$gross"
foto leer 1280x800 'true'
