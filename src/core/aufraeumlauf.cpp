#include "core/aufraeumlauf.h"

#include <algorithm>

#include "basis/datei.h"

namespace liedwerk {
namespace {

// The look at the files of the methods that need one.
class Dateiblick {
  public:
    Dateiblick(Anwendung& Lauf, Aufräummethode Art)
        : Programm(Lauf), Methode(Art), Umgebung(MediumumgebungVon(Lauf)), Leser(MedienleserVon(Lauf)) {}

    Dateibefund operator()(Satznummer Nummer) {
        switch (DateiNichtVerfügbarPrüfen(Programm.Index, Nummer, Programm.Medium, Umgebung,
                                          Programm.Dienst.Person, false)) {
            case Verfügbarkeit::Abbrechen:
                return Dateibefund::Abbruch;
            case Verfügbarkeit::Überspringen:
                return Dateibefund::Unauffällig;
            case Verfügbarkeit::Weiter:
                break;
        }
        const std::string Pfad = Programm.Index.Sätze.Pfad(Nummer);
        const bool Vorhanden = DateiExistiert(Pfad);
        if (Methode == Aufräummethode::NichtVorhanden) return Urteil(!Vorhanden);
        // Of a file that is not there nobody can say that it lacks a tag.
        return Urteil(Vorhanden && !HatTag(Pfad));
    }

  private:
    static Dateibefund Urteil(bool Verdächtig) {
        return Verdächtig ? Dateibefund::Verdächtig : Dateibefund::Unauffällig;
    }
    bool HatTag(const std::string& Pfad) const {
        const bool Erster = Methode == Aufräummethode::OhneId3v1Neu;
        Leseauftrag Auftrag;
        Auftrag.Code = Lesecode::Lesen(Erster ? "1000" : "0100");
        const Datensatz Satz = Leser(Pfad, {}, Auftrag);
        return (Erster ? Satz.HatId3v1 : Satz.HatId3v2) == TagVorhanden;
    }

    Anwendung& Programm;
    Aufräummethode Methode;
    Mediumumgebung Umgebung;
    MedienLeser Leser;
};

}  // namespace

std::vector<Satznummer> AufräumArbeitsmenge(const Anwendung& Programm) {
    std::vector<Satznummer> Menge = Programm.Ansicht.Auswahl;
    if (Programm.Index.Programmmodus == ModusDateimanager) {
        std::erase_if(Menge,
                      [&](Satznummer Nummer) { return OrdnerExistiert(Programm.Index.Sätze.Pfad(Nummer)); });
    }
    return Menge;
}

std::vector<Aufräumfund> AufräumenSuchen(Anwendung& Programm, std::span<const Satznummer> Arbeitsmenge,
                                         Aufräummethode Methode) {
    const Laufsperre Sperre(Programm);
    Programm.Medium.AlleÜberspringen = false;
    auto Funde = DurchsucheIndex(Programm.Index, Arbeitsmenge, Methode, Dateiblick(Programm, Methode),
                                 Programm.Dienst.Person);
    Programm.Medium.AlleÜberspringen = false;
    return Funde;
}

}  // namespace liedwerk
