// The question that stands in front of every operation on a file of the index.
#include "basis/datei.h"
#include "basis/pfad.h"
#include "dateien/medium.h"

namespace liedwerk {
namespace {

// The file in question and what its record says of its medium.
struct Gesuchtes {
    std::string Pfad;
    std::string Wechselmedium;
};

bool HatLaufwerk(std::string_view Pfad) {
    return IstPosixPfad(Pfad) || (Pfad.size() >= 2 && Pfad[1] == ':');
}

std::string Fragetext(const Gesuchtes& Datei, const std::string& Laufwerk) {
    const std::string Medium = Datei.Wechselmedium.empty() ? "den Quelldatenträger"
                                                           : "den Datenträger '" + Datei.Wechselmedium + "'";
    return "Die Datei '" + Datei.Pfad + "' ist zurzeit nicht verfügbar.\nBitte legen Sie " + Medium +
           " in Laufwerk '" + Laufwerk +
           "' ein bzw. stellen Sie die Verfügbarkeit des Laufwerkes sicher, um den Vorgang fortzusetzen oder "
           "ändern Sie den Indexeintrag bzw. löschen Sie diesen.";
}

// The watcher's look: reads the drive anew. Which drive holds the path, and of what kind it is, may have
// changed with the medium.
bool Nachsehen(const Gesuchtes& Datei, Mediumspeicher& Speicher, const Mediumumgebung& Umgebung,
               std::string& Aktuell) {
    Speicher.GefragtesLaufwerk.clear();
    WechselmediumVergleichenStarten(Speicher, Umgebung, LaufwerkDesPfades(Umgebung, Datei.Pfad));
    Aktuell = Speicher.AktuellesWechselmedium;
    return Aktuell == Datei.Wechselmedium && DateiExistiert(Datei.Pfad);
}

Verfügbarkeit Fragen(const Gesuchtes& Datei, const std::string& Laufwerk, Mediumspeicher& Speicher,
                     const Mediumumgebung& Umgebung, Oberfläche& Person) {
    Verfügbarkeitsfrage Frage;
    Frage.Text = Fragetext(Datei, Laufwerk);
    Frage.Nachsehen = [&](std::string& Aktuell) { return Nachsehen(Datei, Speicher, Umgebung, Aktuell); };
    switch (Person.DateiNichtVerfügbarZeigen(Frage)) {
        case Verfügbarkeitsantwort::Verfügbar:
            return Verfügbarkeit::Weiter;
        case Verfügbarkeitsantwort::Abbrechen:
            return Verfügbarkeit::Abbrechen;
        case Verfügbarkeitsantwort::AlleÜberspringen:
            Speicher.AlleÜberspringen = true;
            break;
        case Verfügbarkeitsantwort::Überspringen:
            break;
    }
    return Verfügbarkeit::Überspringen;
}

}  // namespace

bool KannWiederkommen(Mediumspeicher& Speicher, const Mediumumgebung& Umgebung, std::string_view Pfad,
                      std::string_view Wechselmedium, std::string_view Laufwerk) {
    if (!Wechselmedium.empty()) return true;
    return HatLaufwerk(Pfad) && LaufwerkIstWechsellaufwerk(Speicher, Umgebung, Laufwerk);
}

Verfügbarkeit DateiNichtVerfügbarPrüfen(const Katalog& Index, Satznummer Nummer, Mediumspeicher& Speicher,
                                        const Mediumumgebung& Umgebung, Oberfläche& Person,
                                        bool NichtLaufwerkÜberspringen) {
    const Gesuchtes Datei{Index.Sätze.Pfad(Nummer), Index.Sätze.Text(Nummer, FeldWechselmedium)};
    const std::string Laufwerk = LaufwerkDesPfades(Umgebung, Datei.Pfad);
    const bool Vorhanden = DateiExistiert(Datei.Pfad);
    std::string Aktuell;
    const bool Gleich = WechselmediumVergleichen(Speicher, Umgebung, Laufwerk, Datei.Wechselmedium, Aktuell);
    if (Vorhanden && Gleich) return Verfügbarkeit::Weiter;
    if (Umgebung.Werte.NichtVerfügbarExistierenNicht == 1) return Verfügbarkeit::Weiter;
    const std::string Vermisst = Vorhanden ? std::string() : Datei.Wechselmedium;
    if (!KannWiederkommen(Speicher, Umgebung, Datei.Pfad, Vermisst, Laufwerk)) {
        // The file is simply missing; the caller's existence test decides.
        return NichtLaufwerkÜberspringen ? Verfügbarkeit::Überspringen : Verfügbarkeit::Weiter;
    }
    if (Umgebung.Werte.NichtVerfügbarFragen == 0 || Speicher.AlleÜberspringen)
        return Verfügbarkeit::Überspringen;
    return Fragen(Datei, Laufwerk, Speicher, Umgebung, Person);
}

}  // namespace liedwerk
