#include "medien/tagrettung.h"

#include <vector>

#include "basis/datei.h"
#include "basis/mehrfachnamen.h"
#include "basis/pfad.h"
#include "basis/zahl.h"
#include "medien/tagumschreiben.h"

namespace liedwerk {
namespace {

constexpr std::int64_t HöchstesMarkenalter = 90;  // days

// Nobody is writing it.
bool IstFrei(const std::string& Rest) {
    return SperreLesen(Rest) == Sperrzustand::Frei;
}

std::string ZeitVon(std::string_view Pfad, const Uhr& Zeit) {
    const auto Stand = DateistandLesen(Pfad);
    return Stand ? DatumZeitText(Zeit.Lokal(Stand->Änderungszeit)) : "unbekannt";
}

// One file whose overwriting was interrupted.
class Unterbrochene {
  public:
    Unterbrochene(std::string_view Pfad, Oberfläche& Wer, Rettung& Wann)
        : Name(Pfad), Ziel(VerweiseAuflösen(Pfad)), Person(Wer), Lauf(Wann) {}
    // Whether a save has left something; that it is still under way is not told apart here.
    bool Vorhanden() const { return SperreLesen(Rest) != Sperrzustand::Keine || DateiExistiert(Vorläufige); }
    bool Erwähnt() const { return Lauf.Erwähnt.contains(Ziel); }
    // Brings the save to its end where it can be. When nothing is left to do the mark goes; empty: it is not
    // known.
    void Vollenden(const std::string& Marke, const Schrittlauf& Ausführen);

  private:
    void EinmalMelden(const std::string& Text) {
        if (Lauf.Erwähnt.insert(Ziel).second) Person.Melden(Symbol::Ausrufezeichen, Text);
    }
    bool InhaltÜbernehmen(const Dateistand& Stand, const Schrittlauf& Ausführen);
    bool Gewollt();
    void VorläufigeLöschen();

    const std::string Name;
    const std::string Ziel;
    const std::string Rest = TagGesichertname(Ziel);
    const std::string Vorläufige = TagTemporärname(Ziel);
    const std::string Unterbrochen =
        "Das letzte Speichern der Datei '" + std::string(Name) + "' wurde unterbrochen. ";
    Oberfläche& Person;
    Rettung& Lauf;
};

// A file with a single name may be another one that was put there meanwhile; one with another time was saved
// by another program.
bool Unterbrochene::Gewollt() {
    if (HatWeitereNamen(Ziel) && GleicheÄnderungszeit(Ziel, Rest)) return true;
    const std::string Lage = Unterbrochen + "Ihr neuer Inhalt liegt in '" + Rest + "' mit dem Datum " +
                             ZeitVon(Rest, Lauf.Zeit) + ". Die Datei selbst trägt das Datum " +
                             ZeitVon(Ziel, Lauf.Zeit) +
                             "; ein anderes Programm kann sie inzwischen geändert haben.";
    if (Lauf.Regel == Zweifelsfall::Melden) {
        EinmalMelden(Lage +
                     " Öffnen Sie die Datei im TAG-Editor: Dort werden Sie gefragt, welcher Inhalt gilt.");
        return false;
    }
    Lauf.Erwähnt.insert(Ziel);
    return Person.JaNein(Symbol::Ausrufezeichen,
                         Lage +
                             "\n\nMöchten Sie das Speichern jetzt abschließen und den jetzigen Inhalt der "
                             "Datei ersetzen?",
                         Antwort::Nein) == Antwort::Ja;
}

// True when the file holds its new content now.
bool Unterbrochene::InhaltÜbernehmen(const Dateistand& Stand, const Schrittlauf& Ausführen) {
    if (!IstHilfsdateiVon(Rest, Ziel) || !IstFrei(Rest)) {
        EinmalMelden(Unterbrochen + "Ihr neuer Inhalt in '" + Rest +
                     "' gehört einem anderen Benutzer oder ist in Gebrauch. Starten Sie das Programm als "
                     "dieser Benutzer, um das Speichern abzuschließen, oder löschen Sie diese Datei.");
        return false;
    }
    if (!Gewollt()) return false;
    Dateifehler Fehler;
    SchrittAusführen(Ausführen, Person, [&](const Kopierfortschritt& Weiter) {
        bool Angefangen = false;
        Fehler = GesichertesÜbertragen(Ziel, Stand, Weiter, Angefangen);
    });
    if (Fehler) {
        EinmalMelden("Die Datei '" + Name + "' konnte nicht wiederhergestellt werden: " + Fehler.Text + ".");
        return false;
    }
    Lauf.Erwähnt.erase(Ziel);
    Person.Melden(Symbol::Information,
                  Unterbrochen + "Es ist jetzt abgeschlossen, die Datei ist wieder vollständig.");
    return true;
}

// The file beside it is whole: what a killed run had copied so far is a part of it, and its next rewriting
// would empty the name. What is none of ours, or in use, stays.
void Unterbrochene::VorläufigeLöschen() {
    if (!EigeneDatei(Vorläufige) || !IstFrei(Vorläufige) || DateiLöschen(Vorläufige)) return;
    Person.Melden(Symbol::Information, "Neben der Datei '" + Name + "' lag die unfertige Kopie '" +
                                           Vorläufige +
                                           "' eines unterbrochenen Speicherns. Die Datei selbst ist "
                                           "vollständig; die Kopie wurde gelöscht.");
}

void Unterbrochene::Vollenden(const std::string& Marke, const Schrittlauf& Ausführen) {
    const Lesedatei Datei = Lesedatei::Öffnen(Ziel);
    // A run that is saving the file holds it.
    if (!Datei.Offen() || Datei.Sperren(Ziel)) return;
    if (SperreLesen(Rest) != Sperrzustand::Keine && !InhaltÜbernehmen(Datei.Stand(), Ausführen)) return;
    VorläufigeLöschen();
    // While the file is ours, no other run can have put a new mark there.
    if (!Marke.empty()) DateiLöschen(Marke);
}

// A file that is missing: the temporary file of its save may be whole or not.
void VorläufigeZurückholen(std::string_view Name, Oberfläche& Person, Rettung& Lauf) {
    const std::string Ziel = VerweiseAuflösen(Name);
    const std::string Rest = TagTemporärname(Ziel);
    const auto Stand = DateistandLesen(Rest);
    if (!Stand || Stand->Größe == 0 || !EigeneDatei(Rest) || !IstFrei(Rest)) return;
    const std::string Lage = "Die Datei '" + std::string(Name) + "' fehlt, aber die vorläufige Datei '" +
                             Rest + "' eines unterbrochenen Speicherns ist noch vorhanden. Sie hat " +
                             Gruppiert(static_cast<std::int64_t>(Stand->Größe)) +
                             " Bytes und kann unvollständig sein.";
    if (Lauf.Regel == Zweifelsfall::Melden) {
        if (Lauf.Erwähnt.insert(Ziel).second)
            Person.Melden(Symbol::Ausrufezeichen,
                          Lage + " Benennen Sie diese selbst um, wenn Sie sie behalten möchten.");
        return;
    }
    if (Person.JaNein(
            Symbol::Frage,
            Lage + "\n\nMöchten Sie diese wieder in '" + std::string(DateinameVon(Ziel)) + "' umbenennen?",
            Antwort::Nein) != Antwort::Ja)
        return;
    if (const auto Fehler = DateiUmbenennen(Rest, Ziel, Vorhandenes::Lassen))
        Person.Melden(Symbol::Ausrufezeichen, "Die Datei '" + std::string(Name) +
                                                  "' konnte nicht wiederhergestellt werden: " + Fehler.Text +
                                                  ".");
}

// A mark whose file is finished, or that is too old, goes.
void MarkeAbarbeiten(const std::string& Marke, Oberfläche& Person, Rettung& Lauf,
                     const Schrittlauf& Ausführen) {
    const auto Markenstand = DateistandLesen(Marke);
    if (!Markenstand) return;
    const auto Gemerkt = SchreibmarkeLesen(Marke);
    if (!Gemerkt) return;
    // What is left then is found when the file is next read.
    if (Gemerkt->Pfad.empty() ||
        TageZwischen(Lauf.Zeit.Lokal(Markenstand->Änderungszeit), Lauf.Zeit.Jetzt()) > HöchstesMarkenalter) {
        DateiLöschen(Marke);
        return;
    }
    const auto Stand = DateistandLesen(Gemerkt->Pfad);
    // Its medium may be away, or another one may be in its place.
    if (!Stand || (Gemerkt->Inode != 0 && Stand->Inode != Gemerkt->Inode)) return;
    Unterbrochene(Gemerkt->Pfad, Person, Lauf).Vollenden(Marke, Ausführen);
}

}  // namespace

void SpeichernVollenden(std::string_view Pfad, Oberfläche& Person, Rettung& Lauf,
                        const Schrittlauf& Ausführen) {
    Unterbrochene Datei(Pfad, Person, Lauf);
    if (Datei.Vorhanden() && !Datei.Erwähnt()) Datei.Vollenden({}, Ausführen);
}

void DateiZurückholen(std::string_view Pfad, Oberfläche& Person, Rettung& Lauf,
                      const Schrittlauf& Ausführen) {
    if (!DateiExistiert(Pfad)) return VorläufigeZurückholen(Pfad, Person, Lauf);
    Unterbrochene Datei(Pfad, Person, Lauf);
    if (Datei.Vorhanden()) Datei.Vollenden({}, Ausführen);
}

void UnterbrocheneVollenden(const std::string& Merkordner, const Ordnerleser& Ordner, Oberfläche& Person,
                            Rettung& Lauf, const Schrittlauf& Ausführen) {
    std::vector<std::string> Marken;
    Ordner.Auflisten(Merkordner, [&](const Ordnereintrag& Eintrag) {
        if (!Eintrag.IstOrdner && IstSchreibmarke(Eintrag.Name))
            Marken.push_back(PfadVerbinden(Merkordner, Eintrag.Name));
        return true;
    });
    for (const std::string& Marke : Marken) {
        if (!Marke.ends_with(SchreibmarkeUnfertig)) {
            MarkeAbarbeiten(Marke, Person, Lauf, Ausführen);
        } else if (EigeneDatei(Marke) && IstFrei(Marke)) {
            DateiLöschen(Marke);
        }
    }
}

}  // namespace liedwerk
