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
        : Name(Pfad), Ziel(VerweiseAuflösen(Pfad)), Rest(TagGesichertname(Ziel)), Person(Wer), Lauf(Wann) {}
    // True when nothing is left to do: no save was interrupted, or it is finished now. The mark then goes;
    // empty: it is not known.
    bool Vollenden(const std::string& Marke);
    bool Erwähnt() const { return Lauf.Erwähnt.contains(Ziel); }

  private:
    void EinmalMelden(const std::string& Text) {
        if (Lauf.Erwähnt.insert(Ziel).second) Person.Melden(Symbol::Ausrufezeichen, Text);
    }
    bool Gewollt() const;

    const std::string Name;
    const std::string Ziel;
    const std::string Rest;
    const std::string Unterbrochen =
        "Das letzte Speichern der Datei '" + std::string(Name) + "' wurde unterbrochen. ";
    Oberfläche& Person;
    Rettung& Lauf;
};

// A file with a single name may be another one that was put there meanwhile; one with another time was saved
// by another program.
bool Unterbrochene::Gewollt() const {
    if (HatWeitereNamen(Ziel) && GleicheÄnderungszeit(Ziel, Rest)) return true;
    Lauf.Erwähnt.insert(Ziel);
    return Person.JaNein(Symbol::Ausrufezeichen,
                         Unterbrochen + "Ihr neuer Inhalt liegt in '" + Rest + "' mit dem Datum " +
                             ZeitVon(Rest, Lauf.Zeit) + ". Die Datei selbst trägt das Datum " +
                             ZeitVon(Ziel, Lauf.Zeit) +
                             "; ein anderes Programm kann sie inzwischen geändert haben.\n\nMöchten Sie das "
                             "Speichern jetzt abschließen und den jetzigen Inhalt der Datei ersetzen?",
                         Antwort::Nein) == Antwort::Ja;
}

bool Unterbrochene::Vollenden(const std::string& Marke) {
    const Lesedatei Datei = Lesedatei::Öffnen(Ziel);
    // A run that is saving the file holds it.
    if (!Datei.Offen() || Datei.Sperren(Ziel)) return false;
    if (SperreLesen(Rest) != Sperrzustand::Keine) {
        if (!IstHilfsdateiVon(Rest, Ziel) || !IstFrei(Rest)) {
            EinmalMelden(Unterbrochen + "Ihr neuer Inhalt in '" + Rest +
                         "' gehört einem anderen Benutzer oder ist in Gebrauch. Starten Sie das Programm als "
                         "dieser Benutzer, um das Speichern abzuschließen, oder löschen Sie diese Datei.");
            return false;
        }
        if (!Gewollt()) return false;
        bool Angefangen = false;
        if (const auto Fehler = GesichertesÜbertragen(Ziel, Datei.Stand(), Angefangen)) {
            EinmalMelden("Die Datei '" + Name + "' konnte nicht wiederhergestellt werden: " + Fehler.Text +
                         ".");
            return false;
        }
        Lauf.Erwähnt.erase(Ziel);
        Person.Melden(Symbol::Information,
                      Unterbrochen + "Es ist jetzt abgeschlossen, die Datei ist wieder vollständig.");
    }
    // While the file is ours, no other run can have put a new mark there.
    if (!Marke.empty()) DateiLöschen(Marke);
    return true;
}

// A file that is missing: the temporary file of its save may be whole or not.
void VorläufigeZurückholen(std::string_view Name, Oberfläche& Person) {
    const std::string Ziel = VerweiseAuflösen(Name);
    const std::string Rest = TagTemporärname(Ziel);
    const auto Stand = DateistandLesen(Rest);
    if (!Stand || Stand->Größe == 0 || !EigeneDatei(Rest) || !IstFrei(Rest)) return;
    if (Person.JaNein(Symbol::Frage,
                      "Die Datei '" + std::string(Name) + "' fehlt, aber die vorläufige Datei '" + Rest +
                          "' eines unterbrochenen Speicherns ist noch vorhanden. Sie hat " +
                          Gruppiert(static_cast<std::int64_t>(Stand->Größe)) +
                          " Bytes und kann unvollständig sein.\n\nMöchten Sie diese wieder in '" +
                          std::string(DateinameVon(Ziel)) + "' umbenennen?",
                      Antwort::Nein) != Antwort::Ja)
        return;
    if (const auto Fehler = DateiUmbenennen(Rest, Ziel, Vorhandenes::Lassen))
        Person.Melden(Symbol::Ausrufezeichen, "Die Datei '" + std::string(Name) +
                                                  "' konnte nicht wiederhergestellt werden: " + Fehler.Text +
                                                  ".");
}

void MarkeAbarbeiten(const std::string& Marke, Oberfläche& Person, Rettung& Lauf) {
    const auto Markenstand = DateistandLesen(Marke);
    if (!Markenstand) return;
    // What is left then is found when the file is next read.
    if (TageZwischen(Lauf.Zeit.Lokal(Markenstand->Änderungszeit), Lauf.Zeit.Jetzt()) > HöchstesMarkenalter) {
        DateiLöschen(Marke);
        return;
    }
    const Schreibmarke Gemerkt = SchreibmarkeLesen(Marke);
    const auto Stand = DateistandLesen(Gemerkt.Pfad);
    // Its medium may be away, or another one may be in its place.
    if (Gemerkt.Inode == 0 || !Stand || Stand->Inode != Gemerkt.Inode) return;
    Unterbrochene(Gemerkt.Pfad, Person, Lauf).Vollenden(Marke);
}

}  // namespace

void SpeichernVollenden(std::string_view Pfad, Oberfläche& Person, Rettung& Lauf) {
    if (!UnterbrochenesSpeichern(Pfad)) return;
    Unterbrochene Datei(Pfad, Person, Lauf);
    if (!Datei.Erwähnt()) Datei.Vollenden({});
}

void DateiZurückholen(std::string_view Pfad, Oberfläche& Person, Rettung& Lauf) {
    if (!DateiExistiert(Pfad)) return VorläufigeZurückholen(Pfad, Person);
    if (UnterbrochenesSpeichern(Pfad)) Unterbrochene(Pfad, Person, Lauf).Vollenden({});
}

void UnterbrocheneVollenden(const std::string& Merkordner, const Ordnerleser& Ordner, Oberfläche& Person,
                            Rettung& Lauf) {
    std::vector<std::string> Marken;
    Ordner.Auflisten(Merkordner, [&](const Ordnereintrag& Eintrag) {
        if (!Eintrag.IstOrdner && IstSchreibmarke(Eintrag.Name))
            Marken.push_back(PfadVerbinden(Merkordner, Eintrag.Name));
        return true;
    });
    for (const std::string& Marke : Marken) {
        if (!Marke.ends_with(SchreibmarkeUnfertig)) {
            MarkeAbarbeiten(Marke, Person, Lauf);
        } else if (EigeneDatei(Marke) && IstFrei(Marke)) {
            DateiLöschen(Marke);
        }
    }
}

}  // namespace liedwerk
