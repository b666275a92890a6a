#!/usr/bin/env bash
# werkzeuge/paket.sh [--nur-bauen]: makes the Debian package (build/paket/liedwerk_VERSION_ARCH.deb), looks at what
# is in it, and tries it in a clean Debian 12: install, run both programs, start from the desktop entry, ask
# who opens what, remove, compare. The trial needs root, debootstrap and a package mirror; without them the
# package is unpacked and liedwerk-cli runs from there.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/gemeinsam.sh"

BAU="$WURZEL/build/paket"
GRUND="$WURZEL/build/grundsystem"
SPIEGEL="${SPIEGEL:-http://deb.debian.org/debian}"

# The same sources give the same package.
SOURCE_DATE_EPOCH="$(git -C "$WURZEL" log -1 --format=%ct 2>/dev/null || date +%s)"
export SOURCE_DATE_EPOCH

# mit WERKZEUG ARGUMENT...: runs a check, if its program is there.
mit() {
    if ! command -v "$1" >/dev/null; then
        sagen "  $1 fehlt, diese Prüfung entfällt"
        return 0
    fi
    "$@" >"$ABLAGE/pruefung" 2>&1 || {
        cat "$ABLAGE/pruefung" >&2
        scheitern "„$*“"
    }
    sagen "  $1: in Ordnung"
}

inhalt_pruefen() {
    local teilen="$ABLAGE/inhalt/usr/share" noetig seite
    dpkg-deb -x "$PAKET" "$ABLAGE/inhalt"
    [ "$(ls -A "$ABLAGE/inhalt")" = usr ] || scheitern "Das Paket legt Dateien außerhalb von /usr ab."
    for noetig in doc/liedwerk/copyright doc/liedwerk/changelog.gz liedwerk/handbuch.md man/man1/liedwerk.1.gz \
        man/man1/liedwerk-cli.1.gz icons/hicolor/scalable/apps/org.liedwerk.Liedwerk.svg \
        mime/packages/liedwerk.xml bash-completion/completions/liedwerk-cli; do
        [ -s "$teilen/$noetig" ] || scheitern "Im Paket fehlt /usr/share/$noetig."
    done
    mit desktop-file-validate "$teilen"/applications/*.desktop
    mit appstreamcli validate --no-net "$teilen/metainfo/org.liedwerk.Liedwerk.metainfo.xml"
    for seite in "$teilen"/man/man1/*.gz; do
        if command -v man >/dev/null && [ -n "$(man --warnings -E UTF-8 -l "$seite" 2>&1 >/dev/null)" ]; then
            scheitern "Die Handbuchseite ${seite##*/} ist fehlerhaft."
        fi
    done
    mit lintian --fail-on error,warning --allow-root "$PAKET"
    "$ABLAGE/inhalt/usr/bin/liedwerk-cli" --version | sed 's/^/  /'
}

# drinnen BEFEHL...: runs as root in the trial system.
drinnen() {
    unshare --mount --pid --fork --kill-child sh -c 'mount -t proc proc "$1/proc" && shift && exec chroot "$@"' \
        sh "$PROBE" "$PROBE" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \
        DEBIAN_FRONTEND=noninteractive DISPLAY="${DISPLAY:-}" "$@"
}
apt_drinnen() {
    drinnen apt-get -q -y -o APT::Install-Recommends=false "$@" >"$ABLAGE/apt" 2>&1 || {
        tail -n 20 "$ABLAGE/apt" >&2
        scheitern "apt-get $* ist im Probesystem fehlgeschlagen."
    }
}
# What lies in the trial system, but for what dpkg and apt note about themselves, caches of triggers, and the copies
# that adding a user makes.
bestand() {
    (cd "$PROBE" && find . -xdev \( -path ./proc -o -path ./tmp -o -path ./root -o -path ./var/lib/dpkg -o -path ./var/log \
        -o -path ./var/cache -o -path ./var/lib/apt -o -path './etc/*-' \) -prune -o -print | sort)
}

aufsetzen() {
    if [ ! -e "$GRUND.fertig" ]; then
        sagen "Setze ein Grundsystem auf (einmalig, in build/grundsystem) ..."
        rm -rf -- "$GRUND"
        debootstrap --variant=minbase bookworm "$GRUND" "$SPIEGEL" >"$ABLAGE/aufsetzen" 2>&1 || {
            tail -n 5 "$ABLAGE/aufsetzen" >&2
            scheitern "debootstrap ist fehlgeschlagen."
        }
        PROBE="$GRUND"
        # What every desktop has: the tools that keep the lists of types, entries and symbols; and the libraries.
        apt_drinnen install shared-mime-info desktop-file-utils libglib2.0-bin man-db
        apt_drinnen satisfy "$(dpkg-deb -f "$PAKET" Depends)"
        touch "$GRUND.fertig"
    fi
    PROBE="$ABLAGE/system"
    cp -a --reflink=auto "$GRUND" "$PROBE"
}

# The first start as a new user sees it, on a screen that nobody sees; its picture is left beside the package.
fenster_proben() {
    local stand=0
    drinnen sh -c 'useradd -m anna && cd /home/anna && timeout -s TERM 8 \
        setpriv --reuid=anna --regid=anna --clear-groups env HOME=/home/anna QT_QPA_PLATFORM=offscreen liedwerk' \
        >"$ABLAGE/fenster" 2>&1 || stand=$?
    [ "$stand" -eq 124 ] || { cat "$ABLAGE/fenster" >&2; scheitern "liedwerk endete mit $stand statt auf das Signal hin."; }
    [ -s "$PROBE/home/anna/.local/share/liedwerk/lwStamm.lwi" ] || scheitern "Der erste Start hat keinen Index angelegt."
    sagen "  liedwerk: erster Start, Ende durch Signal, Index angelegt"
    if ! command -v Xvfb >/dev/null || ! command -v import >/dev/null; then
        sagen "  Der Start vom Desktop-Eintrag braucht xvfb und imagemagick; er entfällt."
        return 0
    fi
    # The screen is reached by its abstract socket, so nothing of this machine is bound into the trial system.
    Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten unix -ac 3>"$ABLAGE/schirm" >"$ABLAGE/start" 2>&1 &
    local schirm=$!
    while [ ! -s "$ABLAGE/schirm" ] && kill -0 "$schirm"; do sleep 0.2; done
    DISPLAY=":$(cat "$ABLAGE/schirm")" drinnen sh -c \
        'cd /tmp && gio launch /usr/share/applications/org.liedwerk.Liedwerk.desktop & sleep 10' >>"$ABLAGE/start" 2>&1 &
    sleep 8
    DISPLAY=":$(cat "$ABLAGE/schirm")" import -window root "$BAU/erster-start.png"
    wait "$!"
    kill "$schirm"
    [ "$(identify -format %k "$BAU/erster-start.png")" -gt 50 ] ||
        { cat "$ABLAGE/start" >&2; scheitern "Vom Desktop-Eintrag aus erschien kein Fenster."; }
    sagen "  Start vom Desktop-Eintrag: $BAU/erster-start.png"
}

zuordnung_proben() {
    local eintrag art arten
    printf '#TAG:lw10\r\n' >"$PROBE/tmp/probe.lwi"
    cp "$PROBE/tmp/probe.lwi" "$PROBE/tmp/ohne-endung"
    for eintrag in probe.lwi ohne-endung; do
        art="$(drinnen gio info -a standard::content-type "/tmp/$eintrag" | sed -n 's/.*content-type: //p')"
        [ "$art" = application/x-liedwerk-index ] || scheitern "$eintrag gilt als „$art“."
    done
    drinnen gio mime application/x-liedwerk-index | grep -q org.liedwerk.Liedwerk.desktop ||
        scheitern "Indexdateien werden nicht mit Liedwerk geöffnet."
    mapfile -t arten < <(sed -n 's/^MimeType=//p' "$PROBE"/usr/share/applications/zz-liedwerk-*.desktop | tr ';' '\n' | grep .)
    # Another program for folders and audio files stays the first one.
    printf '[Desktop Entry]\nType=Application\nName=Anderes\nExec=true %%F\nMimeType=%s\n' \
        "$(tr ' ' ';' <<<"${arten[*]}")" \
        >"$PROBE/usr/share/applications/xanderes.desktop"
    drinnen update-desktop-database
    for art in "${arten[@]}"; do
        drinnen gio mime "$art" >"$ABLAGE/mime"
        head -n 1 "$ABLAGE/mime" | grep -q xanderes || scheitern "$art wird ungefragt mit Liedwerk geöffnet."
        grep -q zz-liedwerk "$ABLAGE/mime" || scheitern "$art wird nicht mit Liedwerk angeboten."
    done
    rm "$PROBE/usr/share/applications/xanderes.desktop" "$PROBE"/tmp/{probe.lwi,ohne-endung}
    drinnen update-desktop-database
    sagen "  Zuordnung der Dateiarten: in Ordnung"
}

probieren() {
    local abhaengig
    aufsetzen
    abhaengig="$(dpkg-deb -f "$PAKET" Depends)"
    apt_drinnen satisfy "$abhaengig"
    drinnen update-desktop-database
    bestand >"$ABLAGE/vorher"
    cp "$PAKET" "$PROBE/tmp/"
    apt_drinnen install "/tmp/${PAKET##*/}"
    drinnen liedwerk-cli --version | sed 's/^/  /'
    drinnen liedwerk-cli --hilfe >/dev/null
    drinnen man -w liedwerk liedwerk-cli >/dev/null
    zuordnung_proben
    fenster_proben
    drinnen userdel -r anna 2>/dev/null || true
    apt_drinnen purge liedwerk
    drinnen update-desktop-database
    bestand >"$ABLAGE/nachher"
    diff "$ABLAGE/vorher" "$ABLAGE/nachher" >"$ABLAGE/rest" || {
        cat "$ABLAGE/rest" >&2
        scheitern "Nach dem Entfernen ist der Dateibestand nicht der von vorher."
    }
    sagen "  entfernt, ohne etwas zurückzulassen"
}

bauen paket
(cd "$BAU" && rm -f -- *.deb && cpack -G DEB >paket.log 2>&1) || { cat "$BAU/paket.log" >&2; scheitern "cpack"; }
PAKET="$(ls "$BAU"/*.deb)"
sagen "$PAKET"
if [ "${1:-}" = --nur-bauen ]; then exit 0; fi

ABLAGE="$(mktemp -d "$WURZEL/build/probe-XXXXXX")"
trap 'rm -rf -- "$ABLAGE"' EXIT
abschnitt "Inhalt"
inhalt_pruefen
abschnitt "Probe in einem sauberen System"
if [ "$(id -u)" -eq 0 ] && command -v debootstrap >/dev/null; then
    probieren
else
    sagen "  Sie braucht root und debootstrap; sie entfällt."
fi
