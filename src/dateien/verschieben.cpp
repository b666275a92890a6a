#include "dateien/verschieben.h"

#include <filesystem>
#include <optional>
#include <vector>

#include "basis/dateiname.h"
#include "basis/pfad.h"
#include "basis/schreibrecht.h"
#include "basis/speicherrest.h"
#include "basis/text.h"
#include "basis/zahl.h"

namespace liedwerk {
namespace {

// What stands in the way of the target, and what is done about it.
enum class Weg { Frei, Ersetzen, NichtNötig, Überspringen, Abbrechen, KeinName };

std::string Größentext(std::string_view Pfad) {
    const auto Stand = DateistandLesen(Pfad);
    const std::uint64_t Größe = Stand ? Stand->Größe : 0;
    return NullenVoran(Gruppiert(static_cast<std::int64_t>(Größe)), 3) + " Bytes groß";
}

std::string Existiertfrage(std::string_view Quelle, std::string_view Ziel) {
    std::string Text = "Die Datei '";
    Text.append(Quelle).append("' (").append(Größentext(Quelle));
    Text.append(") kann nicht umbenannt werden.\nDie Zieldatei '");
    Text.append(Ziel).append("' (").append(Größentext(Ziel));
    Text.append(
        ") existiert bereits.\n\nBenennen Sie die Quelldatei mit der Funktion 'Umbenennen' in einen "
        "einmaligen Dateinamen um (z.B. 'Datei-0.mp3', 'Datei-1.mp3',...) oder wählen Sie 'Abbrechen', um "
        "den Kopiervorgang abzubrechen. Mit der Funktion 'Ersetzen' wird die bereits existierende Datei vom "
        "Datenträger gelöscht und durch die neue Datei ersetzt.");
    return Text;
}

Weg Erfragen(Oberfläche& Person, std::string_view Quelle, std::string& Ziel) {
    switch (Person.DateiExistiertZeigen(Existiertfrage(Quelle, Ziel))) {
        case Vorhandenantwort::Umbenennen:
            Ziel = NächsterDateiname(Ziel, std::string(DateinameVon(DateiOhneEndung(Ziel))) + "-", 0, "");
            return Ziel.empty() ? Weg::KeinName : Weg::Frei;
        case Vorhandenantwort::Ersetzen:
            return Weg::Ersetzen;
        case Vorhandenantwort::Überspringen:
            return Weg::Überspringen;
        case Vorhandenantwort::Abbrechen:
            break;
    }
    return Weg::Abbrechen;
}

Weg WegFinden(Oberfläche& Person, std::string_view Quelle, std::string& Ziel, std::int16_t Überschreiben) {
    if (!DateiExistiert(Ziel)) return Weg::Frei;
    switch (Überschreiben) {
        case ÜberschreibenNie:
            return Weg::NichtNötig;
        case ÜberschreibenImmer:
            return Weg::Ersetzen;
        case ÜberschreibenÄltereSonstFragen:
        case ÜberschreibenÄltereSonstNie: {
            const auto Hier = DateistandLesen(Quelle);
            const auto Dort = DateistandLesen(Ziel);
            // Kept: an older source replaces a newer target, not the other way.
            if (Hier && Dort && Hier->Änderungszeit < Dort->Änderungszeit) return Weg::Ersetzen;
            if (Überschreiben == ÜberschreibenÄltereSonstNie) return Weg::NichtNötig;
            return Erfragen(Person, Quelle, Ziel);
        }
        case ÜberschreibenFragen:
            return Erfragen(Person, Quelle, Ziel);
        default:
            return Weg::Überspringen;
    }
}

bool DieselbeDatei(std::string_view A, std::string_view B) {
    const auto Hier = DateistandLesen(A);
    const auto Dort = DateistandLesen(B);
    return Hier && Dort && Hier->Gerät == Dort->Gerät && Hier->Inode == Dort->Inode;
}

// Two paths that lead to one file are two spellings of one name only where the folder lists a single entry.
bool NurSchreibweise(std::string_view Quelle, std::string_view Ziel) {
    return GleichOhneGroß(Quelle, Ziel) && !NameVerzeichnet(Ziel);
}

std::string Fehlersatz(std::string_view Quelle, std::string_view Ziel, bool Verschieben,
                       std::string_view Grund) {
    std::string Text = "Die Datei '";
    Text.append(Quelle).append("' konnte nicht nach '").append(Ziel);
    Text.append(Verschieben ? "' verschoben oder umbenannt werden.\n" : "' kopiert werden.\n");
    return Text.append(Grund).append(".");
}

// Who looks on while a file is on its way, and where his progress display stands.
struct Begleitung {
    Oberfläche& Person;
    std::int64_t Position;
};

// True for a link whose relative content would lead elsewhere from the folder of Ziel, on the same file
// system; across file systems it is what it leads to that is copied.
bool VerweisBräche(std::string_view Quelle, std::string_view Ziel) {
    std::error_code Fehler;
    const std::filesystem::path Inhalt = std::filesystem::read_symlink(std::string(Quelle), Fehler);
    if (Fehler || Inhalt.is_absolute()) return false;
    const auto Von = DateistandLesen(PfadVon(Quelle));
    const auto Nach = DateistandLesen(PfadVon(Ziel));
    if (!Von || !Nach || Von->Gerät != Nach->Gerät) return false;
    const auto Vorher = DateistandLesen(Quelle);
    const auto Danach = DateistandLesen(PfadVerbinden(PfadVon(Ziel), Inhalt.string()));
    return !Vorher || !Danach || Vorher->Gerät != Danach->Gerät || Vorher->Inode != Danach->Inode;
}

// The missing folders above a file, created; those that hold nothing go again when the file does not come.
class Zielordner {
  public:
    explicit Zielordner(std::string_view Ziel) {
        std::string Ordner(PfadVon(Ziel));
        while (!Ordner.empty() && !OrdnerExistiert(Ordner)) {
            Neue.push_back(Ordner);
            Ordner = PfadVon(Ordner);
        }
    }
    Zielordner(const Zielordner&) = delete;
    Zielordner& operator=(const Zielordner&) = delete;
    ~Zielordner() {
        if (Gebraucht) return;
        for (const std::string& Ordner : Neue)
            static_cast<void>(OrdnerLöschen(Ordner));
    }
    Dateifehler Anlegen() const { return Neue.empty() ? Dateifehler() : OrdnerAnlegen(Neue.front()); }
    void Behalten() { Gebraucht = true; }

  private:
    std::vector<std::string> Neue;  // the innermost first
    bool Gebraucht = false;
};

// The copy is made; now the source goes, unless somebody has changed it since Vorher: while it was copied, or
// while the copy's disk was waited for. Held meanwhile, so that no other run of the program begins a save.
Dateifehler QuelleEntfernen(std::string_view Quelle, const std::optional<Änderungsspur>& Vorher) {
    Dateifehler Fehler;
    const Lesedatei Alte = Lesedatei::Öffnen(Quelle, &Fehler);
    if (!Fehler) Fehler = Alte.Sperren(Quelle);
    if (Fehler) return Fehler;
    if (!Vorher || ÄnderungsspurLesen(Quelle) != Vorher)
        return {-1,
                "Ein anderes Programm hat sie inzwischen geändert. Ihr neuer Inhalt liegt nur am alten Ort"};
    return DateiLöschen(Quelle);
}

// The change of names, or the copy and then the removal of the source.
void Ausführen(const Begleitung& Dabei, std::string_view Quelle, bool Verschieben, Vorhandenes Regel,
               Verschiebeergebnis& Ergebnis) {
    const std::string& Ziel = Ergebnis.Ziel;
    Zielordner Ordner(Ziel);
    if (auto Fehler = Ordner.Anlegen()) {
        Ergebnis.Fehlertext = Fehlersatz(Quelle, Ziel, Verschieben, Fehler.Text);
        return;
    }
    if (Verschieben && VerweisBräche(Quelle, Ziel)) {
        // Asked ahead: what a renamed link has replaced would not come back.
        Ergebnis.Fehlertext =
            Fehlersatz(Quelle, Ziel, true, "Sie ist eine Verknüpfung, die nur in ihrem Ordner gilt");
        return;
    }
    if (const auto Rest = UnterbrochenesSpeichern(Ziel)) {
        // The content of another file, which would go into this one.
        Ergebnis.Fehlertext = Fehlersatz(Quelle, Ziel, Verschieben, Rest.Text);
        return;
    }
    bool Umbenannt = false;
    Dateifehler Fehler;
    std::optional<Änderungsspur> Vorher;
    if (Verschieben) {
        Fehler = DateiUmbenennen(Quelle, Ziel, Regel);
        Umbenannt = !Fehler;
    }
    if (!Verschieben || AnderesDateisystem(Fehler)) {
        Vorher = ÄnderungsspurLesen(Quelle);
        Fehler = DateiKopieren(Quelle, Ziel, Regel, [&](std::uint64_t) {
            Ergebnis.Abgebrochen = !Dabei.Person.FortschrittZeigen({}, Dabei.Position);
            return !Ergebnis.Abgebrochen;
        });
    }
    if (Fehler) {
        if (!Ergebnis.Abgebrochen) Ergebnis.Fehlertext = Fehlersatz(Quelle, Ziel, Verschieben, Fehler.Text);
        return;
    }
    Ordner.Behalten();
    Ergebnis.Gelungen = Ergebnis.Getan = true;
    if (!Verschieben || Umbenannt) return;
    if (const auto Rest = QuelleEntfernen(Quelle, Vorher)) {
        Ergebnis.Fehlertext = "Die Datei '" + std::string(Quelle) + "' wurde nach '" + Ziel +
                              "' kopiert, konnte am alten Ort aber nicht gelöscht werden.\n" + Rest.Text +
                              ".";
    }
}

std::optional<std::string> Hindernis(std::string_view Quelle, std::string_view Ziel, bool Verschieben) {
    if (!DateiExistiert(Quelle)) {
        // Kept: the same words for a copy.
        return "Die Datei '" + std::string(Quelle) +
               "' (Quelldatei) kann nicht verschoben oder umbenannt werden.\n" +
               (OrdnerExistiert(Quelle) ? "Sie ist ein Ordner." : "Diese existiert nicht.");
    }
    // Seen from here a path of another system would be a name in whatever folder the program stands.
    if (IstPosixPfad(Quelle) != IstPosixPfad(Ziel) || !TeileEindeutig(Ziel) || HatZeilenende(Ziel))
        return Fehlersatz(Quelle, Ziel, Verschieben, "Das ist hier kein gültiger Dateiname");
    if (const auto Rest = UnterbrochenesSpeichern(Quelle))
        return Fehlersatz(Quelle, Ziel, Verschieben, Rest.Text);
    return std::nullopt;
}

}  // namespace

Verschiebeergebnis DateiVerschieben(Oberfläche& Person, std::string_view Quelle, std::string_view Ziel,
                                    bool Verschieben, std::int16_t Überschreiben, std::int64_t Position) {
    const Begleitung Dabei{Person, Position};
    Verschiebeergebnis Ergebnis;
    Ergebnis.Ziel = Ziel;
    if (Quelle == Ziel && Verschieben) {
        Ergebnis.Gelungen = true;
        return Ergebnis;
    }
    if (auto Grund = Hindernis(Quelle, Ziel, Verschieben)) {
        Ergebnis.Fehlertext = std::move(*Grund);
        return Ergebnis;
    }
    if (DieselbeDatei(Quelle, Ziel)) {
        Ergebnis.Gelungen = true;
        if (!Verschieben || !NurSchreibweise(Quelle, Ziel)) return Ergebnis;
        if (const auto Fehler = DateiUmbenennen(Quelle, Ziel)) {
            Ergebnis.Gelungen = false;
            Ergebnis.Fehlertext = Fehlersatz(Quelle, Ziel, true, Fehler.Text);
        }
        Ergebnis.Umgezogen = Ergebnis.Getan = NameVerzeichnet(Ziel) && !NameVerzeichnet(Quelle);
        return Ergebnis;
    }
    if (Verschieben && !SchreibtestDatei(Person, Quelle)) {
        Ergebnis.Übersprungen = Ergebnis.Gesperrt = true;
        return Ergebnis;
    }
    switch (WegFinden(Person, Quelle, Ergebnis.Ziel, Überschreiben)) {
        case Weg::Frei:
            Ausführen(Dabei, Quelle, Verschieben, Vorhandenes::Lassen, Ergebnis);
            break;
        case Weg::Ersetzen:
            Ausführen(Dabei, Quelle, Verschieben, Vorhandenes::Ersetzen, Ergebnis);
            break;
        case Weg::NichtNötig:
            Ergebnis.Gelungen = true;
            return Ergebnis;
        case Weg::Überspringen:
            Ergebnis.Übersprungen = true;
            return Ergebnis;
        case Weg::Abbrechen:
            Ergebnis.Abgebrochen = true;
            return Ergebnis;
        case Weg::KeinName:
            Ergebnis.Fehlertext = Fehlersatz(Quelle, Ziel, Verschieben, "Es wurde kein freier Name gefunden");
            return Ergebnis;
    }
    Ergebnis.Umgezogen = Verschieben && !DateiExistiert(Quelle) && DateiExistiert(Ergebnis.Ziel);
    return Ergebnis;
}

bool SchreibtestDatei(Oberfläche& Person, std::string_view Pfad) {
    // Whoever rewrites a media file holds its temporary name locked. The file itself is not renamed to and
    // fro as a trial: a crash in between would leave it under a name that is none.
    const auto Frei = [Datei = std::string(Pfad)] {
        if (SperreLesen(TagTemporärname(VerweiseAuflösen(Datei))) == Sperrzustand::Gehalten) return false;
        // What is gone already is in nobody's way. A move to another file system would leave its source
        // behind in a folder that cannot be written.
        return !DateiExistiert(Datei) || (DateiBeschreibbar(Datei) && OrdnerBeschreibbar(PfadVon(Datei)));
    };
    if (Frei()) return true;
    return Person.DateiNichtVerfügbarSchreibenZeigen(
        {"Die Datei '" + std::string(Pfad) +
             "' ist derzeit für Schreibvorgänge gesperrt.\nBitte schließen Sie Programme, die auf diese "
             "Datei "
             "zugreifen oder brechen Sie den Vorgang ab.",
         Frei});
}

std::string NächsterDateiname(std::string_view Pfad, std::string_view Vor, std::int64_t Mitte,
                              std::string_view Nach) {
    constexpr int Höchstens = 10000;
    for (int Versuch = 0; Versuch < Höchstens; ++Versuch, ++Mitte) {
        std::string Name(Vor);
        Name.append(std::to_string(Mitte)).append(Nach).append(EndungVon(Pfad));
        std::string Kandidat = PfadVerbinden(PfadVon(Pfad), Name);
        if (!DateiExistiert(Kandidat) && !OrdnerExistiert(Kandidat)) return Kandidat;
    }
    return {};
}

}  // namespace liedwerk
