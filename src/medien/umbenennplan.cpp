#include "medien/umbenennplan.h"

#include <algorithm>
#include <cstdint>

#include "basis/dateiname.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "basis/zahl.h"
#include "medien/schreibweise.h"
#include "suche/feldwert.h"

namespace liedwerk {
namespace {

constexpr std::string_view Trennzeichen = "/\\";

bool IstTrenner(char Zeichen) {
    return Trennzeichen.find(Zeichen) != std::string_view::npos;
}

bool HatLaufwerk(std::string_view Text) {
    return Text.size() > 1 && Text[1] == ':';
}

// Wider than IstVollerPfad: a typed "C:x" is refused as such a place, not taken for a name.
bool NenntEigenenOrt(std::string_view Text) {
    return IstPosixPfad(Text) || HatLaufwerk(Text);
}

void TrennerEntschärfen(std::string& Wert) {
    std::ranges::replace_if(Wert, IstTrenner, '_');
}

Namensplan Abgelehnt(std::string_view Pfad, std::string_view Name) {
    Namensplan Plan;
    Plan.Hindernis = "Die Datei '" + std::string(Pfad) + "' wurde nicht umbenannt.\nDer neue Name '" +
                     std::string(Name) +
                     "' ist leer oder enthält Zeichen bzw. Ordnerangaben, die nicht möglich sind.";
    return Plan;
}

// The new path from a text whose separators make folders. Voll: the text names a full path; otherwise it
// stands in the folder of the old one.
Namensplan ZielBilden(std::string_view Pfad, std::string_view Text, bool Voll, std::string_view Endung) {
    const bool AbWurzel = Voll && IstPosixPfad(Text);
    std::string Name = DateinameBereinigen(Text.substr(AbWurzel ? 1 : 0), true);
    const bool Laufwerk = HatLaufwerk(Name);
    if (Name.empty() || IstTrenner(Name.front()) || Laufwerk != (Voll && !AbWurzel) || !TeileEindeutig(Name))
        return Abgelehnt(Pfad, Text);
    const char Zeichen = AbWurzel ? '/' : Laufwerk ? '\\' : Trenner(Pfad);
    std::ranges::replace_if(Name, IstTrenner, Zeichen);
    Namensplan Plan;
    if (AbWurzel) {
        Plan.Neu = "/" + Name;
    } else {
        Plan.Neu = Laufwerk ? Name : PfadVerbinden(PfadVon(Pfad), Name);
    }
    Plan.Neu += Endung;
    return Plan;
}

// The old name with its parts changed, put together again. What stood in it stays, unusual or not.
Namensplan NameÄndern(std::string_view Pfad, std::string_view NeuerName) {
    Namensplan Plan;
    if (!TeileEindeutig(NeuerName) || IstTrenner(NeuerName.front())) return Abgelehnt(Pfad, NeuerName);
    Plan.Neu = PfadVerbinden(PfadVon(Pfad), NeuerName);
    return Plan;
}

// A typed piece of a name: cleaned between its separators, which take the style of the path. False when it
// cannot be part of a name.
bool StückSäubern(std::string_view Pfad, bool DoppelpunktErlaubt, std::string& Stück) {
    std::string Sauber;
    for (std::size_t Anfang = 0; Anfang <= Stück.size();) {
        const std::size_t Ende = std::min(Stück.find_first_of(Trennzeichen, Anfang), Stück.size());
        const std::string Teil = Stück.substr(Anfang, Ende - Anfang);
        if (Teil.find(':') != std::string::npos && !DoppelpunktErlaubt) return false;
        Sauber += DateinameBereinigen(Teil, DoppelpunktErlaubt);
        if (Ende < Stück.size()) Sauber += Trenner(Pfad);
        Anfang = Ende + 1;
    }
    Stück = std::move(Sauber);
    return true;
}

}  // namespace

std::string UmbenennauftragPrüfen(const Umbenennauftrag& Auftrag) {
    switch (Auftrag.Funktion) {
        case Umbenennfunktion::NachFeldern:
            return Auftrag.Format.empty() ? "Es wurde kein Format bei der ID3-Umbenennung angegeben." : "";
        case Umbenennfunktion::ZeichenErsetzen:
            return Auftrag.Ersetzen.empty() ? "Das Feld für die Ersetzen-Formatierung ist leer." : "";
        case Umbenennfunktion::Fortlaufend:
            if (Auftrag.FortlaufendZahl.empty())
                return "Es wurde keine Start-Zeichenfolge bei der fortlaufenden Umbenennung angegeben.";
            if (!IstNumerisch(Auftrag.FortlaufendZahl))
                return "Die Start-Zeichenfolge bei der fortlaufenden Umbenennung muss eine Zahl sein.";
            return "";
        case Umbenennfunktion::Schreibweise:
            return Auftrag.Schreibweise == Namensschreibweise::Keine
                       ? "Bitte markieren Sie, ob Sie den Dateinamen in Groß- oder in Kleinschreibung ändern "
                         "wollen."
                       : "";
        case Umbenennfunktion::Endung:
        case Umbenennfunktion::LeereDatei:
            return Auftrag.Endung.empty() ? "Bitte geben Sie eine neue Datei-Endung ein." : "";
        case Umbenennfunktion::IndexZeichenErsetzen:
            return Auftrag.Ersetzen.empty() ? "Das Feld für die IndexErsetzen-Formatierung ist leer." : "";
        case Umbenennfunktion::Manuell:
        case Umbenennfunktion::IndexManuell:
        case Umbenennfunktion::Attribute:
            break;
    }
    return "";
}

Namensplan NamePlanenNachFormat(const Katalog& Index, Satznummer Nummer, std::string_view Format) {
    const std::string Pfad = Index.Sätze.Pfad(Nummer);
    const std::string Rückgabe = FormatAuflösen(Index, Nummer, Format);
    Namensplan Plan = ZielBilden(Pfad, FormatAuflösen(Index, Nummer, Format, TrennerEntschärfen),
                                 NenntEigenenOrt(Format), EndungVon(Pfad));
    if (Rückgabe == FormatAuflösen(Index, 0, Format)) {
        Plan.Frage = "Das von Ihnen angegebene Format '" + std::string(Format) +
                     "' konnte nicht in einen sinnvollen Dateinamen umgewandelt werden, da keine der "
                     "Variablen durch Daten ersetzt werden konnten (Rückgabe war '" +
                     Rückgabe +
                     "').\n\nBitte fügen Sie der Datei über die Funktion 'Datei-Infos' die gewünschten "
                     "Felder hinzu.\n\nMöchten Sie die Datei trotzdem umbenennen?";
    }
    return Plan;
}

Namensplan NamePlanenErsetzt(std::string_view Pfad, std::string_view Alt, std::string_view Neu,
                             bool AuchPfad) {
    std::string Durch(Neu);
    if (!StückSäubern(Pfad, AuchPfad && !IstPosixPfad(Pfad), Durch)) return Abgelehnt(Pfad, Neu);
    const std::string_view Ganz = AuchPfad ? Pfad : DateinameVon(Pfad);
    const std::string Name = Ersetzen(DateiOhneEndung(Ganz), Alt, Durch).append(EndungVon(Ganz));
    if (DateiOhneEndung(Name).empty()) return Abgelehnt(Pfad, Name);
    if (!AuchPfad) return NameÄndern(Pfad, Name);
    if (IstPosixPfad(Name) != IstPosixPfad(Pfad) || !TeileEindeutig(Name)) return Abgelehnt(Pfad, Name);
    return {Name, {}, {}};
}

Namensplan NamePlanenInSchreibweise(std::string_view Pfad, Namensschreibweise Wahl) {
    const std::string_view Name = DateiOhneEndung(DateinameVon(Pfad));
    const std::string_view Endung = EndungVon(Pfad);
    switch (Wahl) {
        case Namensschreibweise::Groß:
            return NameÄndern(Pfad, Großbuchstaben(Name).append(Endung));
        case Namensschreibweise::Klein:
            return NameÄndern(Pfad, Kleinbuchstaben(Name).append(Endung));
        case Namensschreibweise::KleinErstenGroß:
            return NameÄndern(Pfad, Schreibweise(Name, true).append(Endung));
        case Namensschreibweise::KleinWörterGroß:
            return NameÄndern(Pfad, Schreibweise(Name, false).append(Endung));
        case Namensschreibweise::Keine:
            break;
    }
    return NameÄndern(Pfad, DateinameVon(Pfad));
}

Namensplan NamePlanenMitEndung(std::string_view Pfad, std::string_view Endung) {
    if (Endung.starts_with('.')) Endung.remove_prefix(1);
    const std::string_view Stamm = DateiOhneEndung(DateinameVon(Pfad));
    if (Endung.empty()) return NameÄndern(Pfad, DateinameVon(Pfad));
    const std::string Sauber = DateinameBereinigen(Endung, false);
    if (Sauber.empty()) return Abgelehnt(Pfad, std::string(Stamm) + "." + std::string(Endung));
    return NameÄndern(Pfad, std::string(Stamm) + "." + Sauber);
}

Namensplan NamePlanenEingegeben(std::string_view Pfad, std::string_view Eingabe) {
    // The old name is no new one, whatever it holds.
    if (Eingabe == DateinameVon(Pfad) || Eingabe == Pfad) return {std::string(Pfad), {}, {}};
    return ZielBilden(Pfad, Eingabe, NenntEigenenOrt(Eingabe), {});
}

Namensplan FortlaufendenNamenBilden(std::string_view Pfad, std::string_view Anfang, std::string& Zähler,
                                    std::string_view Ende,
                                    const std::function<bool(std::string_view)>& Existiert) {
    constexpr int WeitereVersuche = 10000;
    const bool Voll = NenntEigenenOrt(Anfang);
    for (int Versuch = 0;; ++Versuch) {
        std::string Name(Anfang);
        Name.append(Zähler).append(Ende);
        Namensplan Plan = ZielBilden(Pfad, Name, Voll, EndungVon(Pfad));
        if (Plan.Neu.empty() || !Existiert(Plan.Neu)) return Plan;
        if (Versuch == WeitereVersuche) break;
        Zähler = std::to_string(GanzzahlLesen<std::int32_t>(Zähler).value_or(0) + std::int64_t{1});
    }
    Namensplan Plan;
    Plan.Hindernis = "Die Datei '" + std::string(Pfad) +
                     "' wurde nicht umbenannt.\nEs wurde kein freier fortlaufender Name gefunden.";
    return Plan;
}

}  // namespace liedwerk
