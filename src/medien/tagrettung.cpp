#include "medien/tagrettung.h"

#include <vector>

#include "basis/datei.h"
#include "basis/mehrfachnamen.h"
#include "basis/pfad.h"
#include "medien/tagumschreiben.h"

namespace liedwerk {
namespace {

// Something of ours that nobody is writing.
bool IstUnserRest(const std::string& Rest) {
    return EigeneDatei(Rest) && SperreLesen(Rest) == Sperrzustand::Frei;
}

void MisserfolgMelden(std::string_view Pfad, const Dateifehler& Fehler, Oberfläche& Person) {
    Person.Melden(
        Symbol::Ausrufezeichen,
        "Die Datei '" + std::string(Pfad) + "' konnte nicht wiederhergestellt werden: " + Fehler.Text + ".");
}

// True when nothing is left to do for the file: no save of it was interrupted, or it is finished now.
bool Vollenden(std::string_view Name, Oberfläche& Person, bool Ungefragt) {
    const std::string Pfad = VerweiseAuflösen(Name);
    const std::string Rest = TagGesichertname(Pfad);
    const Lesedatei Datei = Lesedatei::Öffnen(Pfad);
    // A run that is saving the file holds it.
    if (!Datei.Offen() || Datei.Sperren(Pfad)) return false;
    if (!IstUnserRest(Rest)) return true;
    const std::string Unterbrochen =
        "Das letzte Speichern der Datei '" + std::string(Name) + "' wurde unterbrochen. ";
    if (!Ungefragt &&
        Person.JaNein(Symbol::Frage, Unterbrochen + "Ihr vollständiger neuer Inhalt liegt in '" + Rest +
                                         "'.\n\nMöchten Sie das Speichern jetzt abschließen?") != Antwort::Ja)
        return false;
    bool Angefangen = false;
    if (const auto Fehler = GesichertesÜbertragen(Pfad, Datei.Stand(), Angefangen)) {
        MisserfolgMelden(Name, Fehler, Person);
        return false;
    }
    Person.Melden(Symbol::Information,
                  Unterbrochen + "Es ist jetzt abgeschlossen, die Datei ist wieder vollständig.");
    return true;
}

}  // namespace

void SpeichernVollenden(std::string_view Pfad, Oberfläche& Person) {
    const std::string Ziel = VerweiseAuflösen(Pfad);
    const std::string Rest = TagGesichertname(Ziel);
    if (!EigeneDatei(Rest)) return;
    const auto Stand = DateistandLesen(Ziel);
    const auto Reststand = DateistandLesen(Rest);
    // An older file, or one with a single name, may be another one that was put there meanwhile.
    const bool Angefangen =
        HatWeitereNamen(Ziel) && Stand && Reststand && Stand->Änderungszeit >= Reststand->Änderungszeit;
    Vollenden(Pfad, Person, Angefangen);
}

bool DateiZurückholen(std::string_view Pfad, Oberfläche& Person) {
    if (DateiExistiert(Pfad)) {
        SpeichernVollenden(Pfad, Person);
        return true;
    }
    const std::string Rest = TagTemporärname(Pfad);
    if (!IstUnserRest(Rest)) return false;
    if (Person.JaNein(
            Symbol::Frage,
            "Die Datei '" + std::string(Pfad) + "' fehlt, aber die vorläufige Datei '" + Rest +
                "' eines unterbrochenen Speicherns ist noch vorhanden.\n\nMöchten Sie diese wieder in '" +
                std::string(DateinameVon(Pfad)) + "' umbenennen?") != Antwort::Ja)
        return false;
    const auto Fehler = DateiUmbenennen(Rest, Pfad, Vorhandenes::Lassen);
    if (Fehler) MisserfolgMelden(Pfad, Fehler, Person);
    return !Fehler;
}

void UnterbrocheneVollenden(const std::string& Merkordner, const Ordnerleser& Ordner, Oberfläche& Person) {
    std::vector<std::string> Marken;
    Ordner.Auflisten(Merkordner, [&](const Ordnereintrag& Eintrag) {
        if (!Eintrag.IstOrdner && IstSchreibmarke(Eintrag.Name))
            Marken.push_back(PfadVerbinden(Merkordner, Eintrag.Name));
        return true;
    });
    for (const std::string& Marke : Marken) {
        if (Marke.ends_with(SchreibmarkeUnfertig)) {
            if (IstUnserRest(Marke)) DateiLöschen(Marke);
            continue;
        }
        const Schreibmarke Gemerkt = SchreibmarkeLesen(Marke);
        const auto Stand = DateistandLesen(Gemerkt.Pfad);
        // Its medium may be away.
        if (Gemerkt.Inode != 0 && !Stand) continue;
        const bool Dieselbe = Stand && Stand->Inode == Gemerkt.Inode;
        if (!Dieselbe || Vollenden(Gemerkt.Pfad, Person, true)) DateiLöschen(Marke);
    }
}

}  // namespace liedwerk
