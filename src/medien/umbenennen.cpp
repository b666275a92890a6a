#include "medien/umbenennen.h"

#include "basis/datei.h"
#include "basis/pfad.h"
#include "dateien/hinzufuegen.h"
#include "dateien/kopieren.h"
#include "dateien/loeschen.h"

namespace liedwerk {
namespace {

bool Existiert(std::string_view Pfad) {
    return DateiExistiert(Pfad) || OrdnerExistiert(Pfad);
}

// The entry takes the path; its data are read again from there unless the setting reads nothing.
void EintragÄndern(const Umbenennumgebung& Umgebung, Satznummer Nummer, const std::string& Neu,
                   bool VorherLeeren) {
    const Dateiumgebung& Dateien = Umgebung.Dateien;
    Satzspeicher& Sätze = Dateien.Index.Sätze;
    // An entry may be set right while its medium is away: then what it knows is all there is, the label of
    // the medium included.
    if (!VorherLeeren && !DateiExistiert(Neu)) {
        Sätze.PfadSetzen(Nummer, Neu);
        Dateien.Index.IndexGeändert = true;
        return;
    }
    SatzUmziehen(Dateien, Nummer, Neu);
    if (Dateien.Werte.Mp3TagLesen == "000" || (!VorherLeeren && !IstLesbar(Neu))) return;
    const Datensatz Alt = VorherLeeren ? Datensatz{} : Sätze.Lesen(Nummer);
    Sätze.Setzen(Nummer, Neu, Umgebung.Leser(Neu, Alt, HinzufügeLeseauftrag(Dateien.Werte.Mp3TagLesen)));
}

// Carries a plan out on the file.
Umbenennergebnis DateiBewegen(const Umbenennumgebung& Umgebung, Satznummer Nummer, const Namensplan& Plan) {
    const Dateiumgebung& Dateien = Umgebung.Dateien;
    const std::string Pfad = Dateien.Index.Sätze.Pfad(Nummer);
    Umbenennergebnis Ergebnis;
    Ergebnis.Neu = Pfad;
    if (!Plan.Frage.empty() &&
        Dateien.Person.JaNein(Symbol::Ausrufezeichen, Plan.Frage, Antwort::Nein) != Antwort::Ja)
        return Ergebnis;
    Ergebnis.Meldung = Plan.Hindernis;
    if (Plan.Neu.empty()) return Ergebnis;
    const auto Bewegt =
        DateiVerschieben(Dateien.Person, Pfad, Plan.Neu, true, ÜberschreibenFragen, Umgebung.Position);
    Ergebnis.Behandelt = Bewegt.Gelungen;
    Ergebnis.Übersprungen = Bewegt.Übersprungen;
    Ergebnis.Gesperrt = Bewegt.Gesperrt;
    Ergebnis.Abgebrochen = Bewegt.Abgebrochen;
    Ergebnis.Meldung = Bewegt.Fehlertext;
    if (!Bewegt.Umgezogen) return Ergebnis;
    Ergebnis.Geändert = true;
    Ergebnis.Neu = Bewegt.Ziel;
    EintragÄndern(Umgebung, Nummer, Bewegt.Ziel, false);
    if (!PfadeGleich(PfadVon(Pfad), PfadVon(Bewegt.Ziel))) OrdnerLöschenFragen(Dateien, PfadVon(Pfad));
    return Ergebnis;
}

// Carries a plan out on the entry alone.
Umbenennergebnis NurEintragÄndern(const Umbenennumgebung& Umgebung, Satznummer Nummer, const Namensplan& Plan,
                                  bool VorherLeeren) {
    Umbenennergebnis Ergebnis;
    const std::string Pfad = Umgebung.Dateien.Index.Sätze.Pfad(Nummer);
    Ergebnis.Neu = Plan.Neu.empty() ? Pfad : Plan.Neu;
    Ergebnis.Meldung = Plan.Hindernis;
    Ergebnis.Behandelt = !Plan.Neu.empty();
    Ergebnis.Geändert = Ergebnis.Neu != Pfad;
    if (Ergebnis.Geändert) EintragÄndern(Umgebung, Nummer, Plan.Neu, VorherLeeren);
    return Ergebnis;
}

// The plan for what the person types; asks again while an entry would lead to no file.
std::optional<Namensplan> ErfragtPlanen(const Umbenennumgebung& Umgebung, const std::string& Pfad,
                                        bool NurEintrag) {
    const std::string Alter = NurEintrag ? Pfad : std::string(DateinameVon(Pfad));
    while (Umgebung.NamenErfragen) {
        const auto Eingabe =
            Umgebung.NamenErfragen(NurEintrag ? "Listeneintrag ändern" : "Datei umbenennen", Alter);
        if (!Eingabe) break;
        Namensplan Plan = NamePlanenEingegeben(Pfad, *Eingabe);
        if (!NurEintrag || Existiert(Plan.Neu)) return Plan;
        Umgebung.Dateien.Person.Melden(Symbol::Ausrufezeichen,
                                       "Die angegebene Datei '" + *Eingabe +
                                           "' existiert nicht.\n\nBitte ändern Sie den Listeneintrag "
                                           "nochmals, um einen gültigen Namen zu hinterlegen.");
    }
    return std::nullopt;
}

Umbenennergebnis AttributeSetzen(const std::string& Pfad, bool Schreibschutz) {
    Umbenennergebnis Ergebnis;
    Ergebnis.Neu = Pfad;
    const auto Fehler = SchreibschutzSetzen(Pfad, Schreibschutz);
    Ergebnis.Behandelt = Ergebnis.Geändert = !Fehler;
    if (Fehler)
        Ergebnis.Meldung =
            "Die Attribute der Datei '" + Pfad + "' konnten nicht geändert werden.\n" + Fehler.Text + ".";
    return Ergebnis;
}

Umbenennergebnis DurchLeereErsetzen(const Umbenennumgebung& Umgebung, Satznummer Nummer,
                                    const Namensplan& Plan) {
    Umbenennergebnis Ergebnis;
    const std::string Pfad = Umgebung.Dateien.Index.Sätze.Pfad(Nummer);
    Ergebnis.Neu = Pfad;
    Ergebnis.Meldung = Plan.Hindernis;
    if (Plan.Neu.empty()) return Ergebnis;
    Ergebnis.Meldung = DurchLeereDateiErsetzen(Pfad, Plan.Neu);
    Ergebnis.Behandelt = Ergebnis.Geändert = Ergebnis.Meldung.empty();
    if (!Ergebnis.Behandelt) return Ergebnis;
    Ergebnis.Neu = Plan.Neu;
    EintragÄndern(Umgebung, Nummer, Plan.Neu, false);
    return Ergebnis;
}

}  // namespace

bool NurIndex(Umbenennfunktion Funktion) {
    return Funktion == Umbenennfunktion::IndexZeichenErsetzen || Funktion == Umbenennfunktion::IndexManuell;
}

Umbenennergebnis DateiUmbenennen(const Umbenennumgebung& Umgebung, const Umbenennauftrag& Auftrag,
                                 Satznummer Nummer, std::string& Zähler) {
    const Katalog& Index = Umgebung.Dateien.Index;
    const std::string Pfad = Index.Sätze.Pfad(Nummer);
    const auto Bewegen = [&](const Namensplan& Plan) { return DateiBewegen(Umgebung, Nummer, Plan); };
    switch (Auftrag.Funktion) {
        case Umbenennfunktion::NachFeldern:
            return Bewegen(NamePlanenNachFormat(Index, Nummer, Auftrag.Format));
        case Umbenennfunktion::ZeichenErsetzen:
            return Bewegen(
                NamePlanenErsetzt(Pfad, Auftrag.Ersetzen, Auftrag.ErsetzenDurch, Auftrag.ErsetzenAuchPfad));
        case Umbenennfunktion::Fortlaufend:
            return Bewegen(FortlaufendenNamenBilden(Pfad, Auftrag.FortlaufendAnfang, Zähler,
                                                    Auftrag.FortlaufendEnde, Existiert));
        case Umbenennfunktion::Schreibweise:
            return Bewegen(NamePlanenInSchreibweise(Pfad, Auftrag.Schreibweise));
        case Umbenennfunktion::Endung:
            return Bewegen(NamePlanenMitEndung(Pfad, Auftrag.Endung));
        case Umbenennfunktion::Manuell:
        case Umbenennfunktion::IndexManuell: {
            const auto Plan = ErfragtPlanen(Umgebung, Pfad, NurIndex(Auftrag.Funktion));
            if (!Plan) return {.Neu = Pfad, .Meldung = {}};
            return NurIndex(Auftrag.Funktion)
                       ? NurEintragÄndern(Umgebung, Nummer, *Plan, Auftrag.VorherLeeren)
                       : Bewegen(*Plan);
        }
        case Umbenennfunktion::IndexZeichenErsetzen:
            return NurEintragÄndern(
                Umgebung, Nummer,
                NamePlanenErsetzt(Pfad, Auftrag.Ersetzen, Auftrag.ErsetzenDurch, Auftrag.ErsetzenAuchPfad),
                Auftrag.VorherLeeren);
        case Umbenennfunktion::Attribute:
            return AttributeSetzen(Pfad, Auftrag.Schreibschutz);
        case Umbenennfunktion::LeereDatei:
            return DurchLeereErsetzen(Umgebung, Nummer, NamePlanenMitEndung(Pfad, Auftrag.Endung));
    }
    return {};
}

}  // namespace liedwerk
