#include "core/tipps.h"

namespace liedwerk {
namespace {

constexpr std::string_view Texte[] = {
    "Ziehen Sie einen Ordner oder einzelne Dateien aus Ihrem Dateimanager in das Fenster, um sie zum Index "
    "hinzuzufügen.",
    "Tippen Sie einfach los: Die Liste zeigt kurz nach dem letzten Buchstaben, was zu Ihrem Wort passt. "
    "Mit Strg+F kommen Sie jederzeit zurück in das Suchfeld.",
    "Sie können die Geschwindigkeit des Hinzufügens von Dateien verbessern, indem Sie Einstellungen "
    "deaktivieren!",
    "Ihre Sammlung lässt sich auch durchsuchen, wenn ein Datenträger gerade nicht eingelegt ist. Erst beim "
    "Abspielen fragt das Programm nach ihm.",
    "Ein Klick auf einen Spaltenkopf öffnet das Fenster zum Sortieren. Mit der rechten Maustaste auf die "
    "Spaltenköpfe "
    "wählen Sie, welche Spalten zu sehen sind.",
    "Mit den Buchstaben über der Liste finden Sie alles, was mit diesem Buchstaben anfängt. F8 blendet sie "
    "aus "
    "und wieder ein.",
    "Mehrere Such-Abfragen lassen sich verbinden: zum Beispiel alle Titel eines Interpreten, die länger als "
    "fünf Minuten sind. Drücken Sie dazu Strg+Umschalt+M.",
    "Sie haben etwas nicht gefunden? Unter der Suchzeile schlägt das Programm ähnlich geschriebene Wörter "
    "vor.",
    "AutoDJ (Strg+J) stellt aus dem, was Sie oft hören, eine Liste für heute zusammen.",
    "Mit F5 gleichen Sie den Index mit den Ordnern auf Ihrer Festplatte ab: Neues kommt hinzu, "
    "Verschwundenes "
    "wird ausgetragen.",
    "Die Eingabetaste oder ein Doppelklick spielt eine Datei ab. Was ein Doppelklick tut, legen Sie in den "
    "Optionen fest.",
    "Im TAG-Editor bearbeiten Sie viele Dateien auf einmal: Wählen Sie sie vorher in der Liste aus.",
    "AutoTAG liest Interpret und Titel aus dem Dateinamen. Umgekehrt benennt 'Umbenennen' Ihre Dateien "
    "nach "
    "ihren TAGs.",
    "Rechts neben der Liste steht alles, was das Programm über die gewählte Datei weiß. F9 blendet diese "
    "Beschreibungsleiste aus und wieder ein.",
    "Die Liste lässt sich als HTML-Seite, Text oder Playliste exportieren.",
    "Legen Sie Sicherungskopien Ihres Indexes an: In den Optionen stellen Sie ein, wie oft das geschieht.",
    "'Index aufräumen' findet doppelte und fehlende Dateien. Gelöscht wird nichts, ohne dass Sie es "
    "wollen.",
    "Das Programm erinnert Sie an Ereignisse, zum Beispiel an eine Sendung oder an das nächste Konzert.",
    "Das kleine Symbol in der Startleiste kennt die wichtigsten Funktionen. Klicken Sie es mit der rechten "
    "Maustaste an.",
    "Sie sitzen nicht allein am Rechner? In den Optionen sperren Sie das Programm mit einem Passwort.",
    "Zu hell, zu dunkel, zu klein? In den Optionen wählen Sie ein Farbprofil und die Schrift der Liste.",
    "Dateien aus der Liste lassen sich in andere Programme ziehen, zum Beispiel in Ihren Audio-Player oder "
    "in "
    "eine E-Mail.",
    "Eine Suche, die Sie öfter brauchen, speichern Sie im Menü 'Bearbeiten' unter einem Namen.",
};

}  // namespace

std::span<const std::string_view> Tipps() {
    return Texte;
}

}  // namespace liedwerk
