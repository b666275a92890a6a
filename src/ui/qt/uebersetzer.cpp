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
    Paar{"&Choose", "&Wählen"},
    Paar{"&Copy", "&Kopieren"},
    Paar{"&Delete", "&Löschen"},
    Paar{"&New Folder", "&Neuer Ordner"},
    Paar{"&No", "&Nein"},
    Paar{"&OK", "&OK"},
    Paar{"&Open", "&Öffnen"},
    Paar{"&Paste", "&Einfügen"},
    Paar{"&Redo", "Wieder&herstellen"},
    Paar{"&Rename", "&Umbenennen"},
    Paar{"&Save", "&Speichern"},
    Paar{"&Undo", "&Rückgängig"},
    Paar{"&Yes", "&Ja"},
    Paar{"All Files (*)", "Alle Dateien (*)"},
    Paar{"Back", "Zurück"},
    Paar{"Cancel", "Abbrechen"},
    Paar{"Computer", "Rechner"},
    Paar{"Copy &Link Location", "&Link-Adresse kopieren"},
    Paar{"Create New Folder", "Neuen Ordner anlegen"},
    Paar{"Create a New Folder", "Neuen Ordner anlegen"},
    Paar{"Cu&t", "&Ausschneiden"},
    Paar{"Date Modified", "Geändert"},
    Paar{"Delete", "Löschen"},
    Paar{"Detail View", "Einzelheiten"},
    Paar{"Directories", "Ordner"},
    Paar{"Directory:", "Ordner:"},
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
    Paar{"List View", "Liste"},
    Paar{"Look in:", "Suchen in:"},
    Paar{"Name", "Name"},
    Paar{"New Folder", "Neuer Ordner"},
    Paar{"OK", "OK"},
    Paar{"Open", "Öffnen"},
    Paar{"Parent Directory", "Übergeordneter Ordner"},
    Paar{"Remove", "Entfernen"},
    Paar{"Select All", "Alles auswählen"},
    Paar{"Show &hidden files", "&Versteckte Dateien zeigen"},
    Paar{"Sidebar", "Orte"},
    Paar{"Size", "Größe"},
    Paar{"Type", "Art"},
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
