#include "dateien/hinzufuegen.h"

#include "basis/datei.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "cd/inhaltsverzeichnis.h"
#include "dateien/neuaufnahme.h"
#include "dateien/ordnersuche.h"

namespace liedwerk {
namespace {

constexpr int Statusdauer = 750;  // milliseconds

void FortschrittBeginnen(const Hinzufügeumgebung& Umgebung, std::string_view Titel, bool MitProzent,
                         std::size_t Höchstens) {
    if (Umgebung.Werte.StartBildschirm != 1) return;
    Umgebung.Person.FortschrittStarten(Titel, MitProzent, static_cast<std::int64_t>(Höchstens));
}

void AbbruchZeigen(const Hinzufügeumgebung& Umgebung) {
    Umgebung.Person.StatusZeigen("Hinzufügen abgebrochen");
}

Hinzufügeergebnis OrdnerFehlt(const Hinzufügeumgebung& Umgebung, const std::string& Ordner) {
    Umgebung.Person.Melden(
        Symbol::Ausrufezeichen,
        "Beim Hinzufügen des Ordners '" + Ordner +
            "' ist ein Fehler aufgetreten: \n"
            "Der Ordner existiert nicht oder ist kein gültiger Ordnername.\n"
            "Stellen sie sicher, dass sich dieser Ordner auf einem Datenträger befindet, auf den Zugriff "
            "möglich ist.");
    Umgebung.Person.FortschrittSchließen();
    AbbruchZeigen(Umgebung);
    return {};
}

// True for a drive or an image of CDs: a folder only when a path goes through it.
bool IstCDTräger(std::string_view Pfad) {
    if (Pfad.size() > 1 && Pfad.ends_with('/')) Pfad.remove_suffix(1);
    return !OrdnerExistiert(Pfad) && OrdnerExistiert(MitTrenner(Pfad));
}

void CdNichtLesbarMelden(const Hinzufügeumgebung& Umgebung, const std::string& Laufwerk) {
    clsCcd Disc;
    std::string Grund = "Weder ihr erster noch ihr zweiter Titel kann abgespielt werden.";
    if (Umgebung.Laufwerk.CDs != nullptr && !Disc.Init(*Umgebung.Laufwerk.CDs, Laufwerk)) Grund = Disc.ErrMsg;
    Umgebung.Person.Melden(Symbol::Ausrufezeichen,
                           "Die Audio-CD in '" + Laufwerk + "' kann nicht hinzugefügt werden.\n" + Grund);
}

// An audio CD's titles come from its assistant; false when the person refuses the disc, or when there is none
// in the drive or the image that was named.
bool CdÜbernehmen(const Hinzufügeumgebung& Umgebung, const std::string& Ordner) {
    const bool AudioCD = LaufwerkIstAudioCD(Umgebung.Laufwerk, Ordner);
    const bool Fehlt = !AudioCD && IstCDTräger(Ordner);
    if (Fehlt) CdNichtLesbarMelden(Umgebung, Ordner);
    if (!Fehlt && (!AudioCD || !Umgebung.CDAssistent || Umgebung.CDAssistent(Ordner))) return true;
    Umgebung.Person.FortschrittSchließen();
    AbbruchZeigen(Umgebung);
    return false;
}

// The folder above, as the first entry of the file manager's list; empty when there is none to go to.
std::string ElternEintrag(const Hinzufügeumgebung& Umgebung, std::string_view Ordner) {
    if (Umgebung.Index.Programmmodus != ModusDateimanager || Umgebung.Index.IndexAnzahl() > 0) return {};
    if (ZeichenAnzahl(Ordner) <= 3) return {};
    if (Ordner.back() == Trenner(Ordner)) Ordner.remove_suffix(1);
    const auto Oben = PfadVon(Ordner);
    return ZeichenAnzahl(Oben) < 2 ? std::string() : std::string(Oben);
}

std::string Statustext(const Hinzufügeumgebung& Umgebung, Satznummer Anzahl, Satznummer Eltern) {
    if (Umgebung.Index.Programmmodus == ModusDateimanager) {
        return std::to_string(Anzahl - Eltern) + " Datei(en) und/oder Ordner werden angezeigt";
    }
    return std::to_string(Anzahl) + " Datei(en) hinzugefügt";
}

}  // namespace

Hinzufügeergebnis EinfachOrdnerHinzufügen(const Hinzufügeumgebung& Umgebung, const Ordnerauftrag& Auftrag) {
    auto& Person = Umgebung.Person;
    Aufnahmeregel Regel;
    // A second folder in the file manager's view shall not repeat what is there already.
    Regel.KeineDoppelten = Auftrag.DateimanagerAnsicht ? Umgebung.Index.IndexAnzahl() > 0
                                                       : Umgebung.Werte.HinzufügenKeineDoppelten == 1;
    Regel.OrdnerErlaubt = Auftrag.DateimanagerAnsicht;
    Regel.ZweimalZeigen = true;
    Regel.NichtBeiText = Auftrag.NichtBeiText;

    Regel.Ordner = Auftrag.Ordner;
    Regel.KopierenInOrdner = Auftrag.KopierenInOrdner;
    if (!CdÜbernehmen(Umgebung, Auftrag.Ordner)) return {};
    // The tracks of a CD lie behind the separator.
    const std::string Ordner = IstCDTräger(Auftrag.Ordner) ? MitTrenner(Auftrag.Ordner) : Auftrag.Ordner;

    FortschrittBeginnen(Umgebung, "Durchsuche Ordner", false, 0);
    // Shows the window; a cancel is seen by the walk.
    Person.FortschrittZeigen({}, 0);
    if (!OrdnerExistiert(Ordner)) return OrdnerFehlt(Umgebung, Ordner);

    Neuaufnahme Lauf(Umgebung);
    const std::string Eltern = ElternEintrag(Umgebung, Auftrag.Ordner);
    if (!Eltern.empty()) Lauf.OrdnerAufnehmen(Eltern);
    const Satznummer ElternAnzahl = Lauf.Anzahl();

    std::vector<std::string> FundListe;
    std::vector<std::string> Ungelesene;
    bool Gelungen =
        DateienSuchenAPI(Umgebung.Ordner, Ordner, {{}, Auftrag.Unterordner, Auftrag.DateimanagerAnsicht},
                         &Person, FundListe, &Ungelesene);
    const bool SucheAbgebrochen = !Gelungen;
    if (Gelungen && !FundListe.empty()) {
        FortschrittBeginnen(Umgebung, "Füge gefundene Dateien hinzu", true, FundListe.size());
        Gelungen = Regel.KopierenInOrdner.empty() ? Lauf.Aufnehmen(FundListe, Regel)
                                                  : Lauf.UmziehenUndAufnehmen(FundListe, Regel);
    } else if (Gelungen && !Regel.KopierenInOrdner.empty()) {
        LeerenOrdnerAnbieten(Umgebung, Auftrag.Ordner);
    }

    auto Ergebnis = Lauf.Abschließen();
    Ergebnis.Gelungen = Gelungen;
    Ergebnis.Ungelesene = std::move(Ungelesene);
    if (!Gelungen) {
        AbbruchZeigen(Umgebung);
    } else if (Auftrag.StatusMelden) {
        Person.StatusZeigen(Statustext(Umgebung, Ergebnis.Anzahl, ElternAnzahl), Statusdauer);
    }
    if (SucheAbgebrochen || !Auftrag.FortschrittOffenLassen) Person.FortschrittSchließen();
    return Ergebnis;
}

Hinzufügeergebnis EinfachDateiHinzufügen(const Hinzufügeumgebung& Umgebung,
                                         const std::vector<std::string>& Dateien, bool StatusMelden) {
    Aufnahmeregel Regel;
    Regel.KeineDoppelten = Umgebung.Werte.HinzufügenKeineDoppelten == 1;
    Regel.ErstVorhanden = true;

    FortschrittBeginnen(Umgebung, "Füge Dateien hinzu", true, Dateien.size());
    Neuaufnahme Lauf(Umgebung);
    const bool Gelungen = Lauf.Aufnehmen(Dateien, Regel);
    auto Ergebnis = Lauf.Abschließen();
    Ergebnis.Gelungen = Gelungen;
    Umgebung.Person.FortschrittSchließen();
    if (!Gelungen) {
        AbbruchZeigen(Umgebung);
    } else if (StatusMelden) {
        // Kept: files never count as shown, not even in the file manager.
        Umgebung.Person.StatusZeigen(std::to_string(Ergebnis.Anzahl) + " Datei(en) hinzugefügt", Statusdauer);
    }
    return Ergebnis;
}

}  // namespace liedwerk
