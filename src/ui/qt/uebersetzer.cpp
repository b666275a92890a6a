#include "ui/qt/uebersetzer.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace liedwerk {
namespace {

struct Paar {
    std::string_view Quelle;
    const char* Deutsch;
};

// Sorted by the English text. The same text means the same in all of Qt's own forms.
constexpr std::array Texte = {
    Paar{"%1\nDirectory not found.\nPlease verify the correct directory name was given.",
         "%1\nDer Ordner wurde nicht gefunden.\nBitte prüfen Sie seinen Namen."},
    Paar{"%1\nFile not found.\nPlease verify the correct file name was given.",
         "%1\nDie Datei wurde nicht gefunden.\nBitte prüfen Sie ihren Namen."},
    Paar{"%1 already exists.\nDo you want to replace it?",
         "%1 existiert bereits.\nMöchten Sie die Datei ersetzen?"},
    Paar{"&Add to Custom Colors", "Zu eigenen Farben &hinzufügen"},
    Paar{"&Basic colors", "&Grundfarben"},
    Paar{"&Choose", "&Wählen"},
    Paar{"&Copy", "&Kopieren"},
    Paar{"&Custom colors", "&Eigene Farben"},
    Paar{"&Delete", "&Löschen"},
    Paar{"&Green:", "Gr&ün:"},
    Paar{"&HTML:", "HT&ML:"},
    Paar{"&New Folder", "&Neuer Ordner"},
    Paar{"&No", "&Nein"},
    Paar{"&OK", "&OK"},
    Paar{"&Open", "&Öffnen"},
    Paar{"&Paste", "&Einfügen"},
    Paar{"&Pick Screen Color", "Farbe vom Bildschirm &nehmen"},
    Paar{"&Red:", "&Rot:"},
    Paar{"&Redo", "Wieder&herstellen"},
    Paar{"&Rename", "&Umbenennen"},
    Paar{"&Sat:", "&Sättigung:"},
    Paar{"&Save", "&Speichern"},
    Paar{"&Undo", "&Rückgängig"},
    Paar{"&Val:", "He&lligkeit:"},
    Paar{"&Yes", "&Ja"},
    Paar{"A&lpha channel:", "Deck&kraft:"},
    Paar{"All Files (*)", "Alle Dateien (*)"},
    Paar{"Alt", "Alt"},
    Paar{"Back", "Zurück"},
    Paar{"Backspace", "Rücktaste"},
    Paar{"Bl&ue:", "&Blau:"},
    Paar{"Cancel", "Abbrechen"},
    Paar{"Computer", "Rechner"},
    Paar{"Copy &Link Location", "&Link-Adresse kopieren"},
    Paar{"Create New Folder", "Neuen Ordner anlegen"},
    Paar{"Create a New Folder", "Neuen Ordner anlegen"},
    Paar{"Ctrl", "Strg"},
    Paar{"Cu&t", "&Ausschneiden"},
    Paar{"Cursor at %1, %2\nPress ESC to cancel", "Zeiger bei %1, %2\nEsc bricht ab"},
    Paar{"Date Modified", "Geändert"},
    Paar{"Del", "Entf"},
    Paar{"Delete", "Löschen"},
    Paar{"Detail View", "Einzelheiten"},
    Paar{"Directories", "Ordner"},
    Paar{"Directory:", "Ordner:"},
    Paar{"Down", "Unten"},
    Paar{"End", "Ende"},
    Paar{"Enter", "Eingabe"},
    Paar{"File", "Datei"},
    Paar{"File &name:", "Datei&name:"},
    Paar{"File Folder", "Ordner"},
    Paar{"Files of type:", "Dateityp:"},
    Paar{"Find Directory", "Ordner suchen"},
    Paar{"Folder", "Ordner"},
    Paar{"Forward", "Vorwärts"},
    Paar{"Go back", "Zurück"},
    Paar{"Go forward", "Vorwärts"},
    Paar{"Go to the parent directory", "Zum übergeordneten Ordner"},
    Paar{"Home", "Pos1"},
    Paar{"Hu&e:", "Farb&ton:"},
    Paar{"Ins", "Einfg"},
    Paar{"Left", "Links"},
    Paar{"List View", "Liste"},
    Paar{"Look in:", "Suchen in:"},
    Paar{"Name", "Name"},
    Paar{"New Folder", "Neuer Ordner"},
    Paar{"OK", "OK"},
    Paar{"Open", "Öffnen"},
    Paar{"Parent Directory", "Übergeordneter Ordner"},
    Paar{"PgDown", "Bild ab"},
    Paar{"PgUp", "Bild auf"},
    Paar{"Remove", "Entfernen"},
    Paar{"Return", "Eingabe"},
    Paar{"Right", "Rechts"},
    Paar{"Select All", "Alles auswählen"},
    Paar{"Select Color", "Farbe wählen"},
    Paar{"Shift", "Umschalt"},
    Paar{"Show &hidden files", "&Versteckte Dateien zeigen"},
    Paar{"Sidebar", "Orte"},
    Paar{"Size", "Größe"},
    Paar{"Space", "Leertaste"},
    Paar{"Type", "Art"},
    Paar{"Up", "Oben"},
};
static_assert(std::is_sorted(Texte.begin(), Texte.end(),
                             [](const Paar& A, const Paar& B) { return A.Quelle < B.Quelle; }));

}  // namespace

QString Grundübersetzer::translate(const char*, const char* Quelle, const char*, int) const {
    if (Quelle == nullptr) return {};
    const std::string_view Gesucht = Quelle;
    const auto Fund =
        std::lower_bound(Texte.begin(), Texte.end(), Gesucht,
                         [](const Paar& Eines, std::string_view Text) { return Eines.Quelle < Text; });
    if (Fund == Texte.end() || Fund->Quelle != Gesucht) return {};
    return QString::fromUtf8(Fund->Deutsch);
}

}  // namespace liedwerk
