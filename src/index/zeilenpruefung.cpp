#include "index/zeilenpruefung.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <limits>

#include "basis/datum.h"
#include "index/indexformat.h"

namespace liedwerk {
namespace {

constexpr std::size_t GenaueStellen = std::numeric_limits<double>::digits10;

bool IstZiffer(char Zeichen) {
    return Zeichen >= '0' && Zeichen <= '9';
}

// What the values of a field must look like, taken from the table of fields.
struct Wertprüfung {
    std::size_t Platz;
    Feldinhalt Inhalt;
    std::int64_t Kleinste;
    std::int64_t Größte;
    std::size_t SichereStellen;  // so many digits fit in any case
};

struct Bereich {
    Wertprüfung& Ziel;
    template <class Mitglied>
    void operator()(Mitglied Datensatz::*) const {
        if constexpr (std::is_integral_v<Mitglied>) {
            Ziel.Kleinste = static_cast<std::int64_t>(std::numeric_limits<Mitglied>::min());
            Ziel.Größte = static_cast<std::int64_t>(std::numeric_limits<Mitglied>::max());
            Ziel.SichereStellen = std::numeric_limits<Mitglied>::digits10;
        }
    }
    void operator()(std::monostate) const {}
};

std::vector<Wertprüfung> PrüfungenBilden() {
    std::vector<Wertprüfung> Liste;
    for (const auto& Feld : Felder) {
        if (Feld.Inhalt == Feldinhalt::Text) continue;
        Wertprüfung Neu{static_cast<std::size_t>(Feld.Nummer - 1), Feld.Inhalt, 0, 255, 2};
        if (Feld.Inhalt == Feldinhalt::Zahl) std::visit(Bereich{Neu}, Feld.Ort);
        Liste.push_back(Neu);
    }
    return Liste;
}

// A decimal as a save writes it, within the bounds.
bool IstZahlform(std::string_view Wert, const Wertprüfung& Prüfung) {
    if (Wert == "0") return true;
    const bool Negativ = !Wert.empty() && Wert.front() == '-';
    const std::string_view Ziffern = Wert.substr(Negativ ? 1 : 0);
    if (Ziffern.empty() || Ziffern.front() == '0' ||
        !std::all_of(Ziffern.begin(), Ziffern.end(), IstZiffer)) {
        return false;
    }
    // Longer numbers are rounded on the way through the numeric test; that is the patient way's business.
    if (Ziffern.size() > GenaueStellen) return false;
    if (Ziffern.size() <= Prüfung.SichereStellen) return !Negativ || Prüfung.Kleinste < 0;
    std::int64_t Zahl = 0;
    const auto Gelesen = std::from_chars(Wert.data(), Wert.data() + Wert.size(), Zahl);
    return Gelesen.ec == std::errc() && Zahl >= Prüfung.Kleinste && Zahl <= Prüfung.Größte;
}

int Zweistellig(const char* Ziffern) {
    return (Ziffern[0] - '0') * 10 + (Ziffern[1] - '0');
}

// "dd.mm.yyyy", alone or with " hh:nn:ss", of a day that every month has: nearly all dates, at little cost.
bool IstGewöhnlichesDatum(std::string_view Wert) {
    constexpr std::string_view Muster = "00.00.0000 00:00:00";
    if (Wert.size() != 10 && Wert.size() != Muster.size()) return false;
    for (std::size_t i = 0; i < Wert.size(); ++i) {
        if (Muster[i] == '0' ? !IstZiffer(Wert[i]) : Wert[i] != Muster[i]) return false;
    }
    const int Tag = Zweistellig(Wert.data());
    const int Monat = Zweistellig(Wert.data() + 3);
    if (Tag < 1 || Tag > 28 || Monat < 1 || Monat > 12 || Wert[6] == '0') return false;
    return Wert.size() == 10 || (Zweistellig(Wert.data() + 11) < 24 && Zweistellig(Wert.data() + 14) < 60 &&
                                 Zweistellig(Wert.data() + 17) < 60);
}

bool IstWertform(std::string_view Wert, const Wertprüfung& Prüfung) {
    switch (Prüfung.Inhalt) {
        case Feldinhalt::Zahl:
            return IstZahlform(Wert, Prüfung);
        case Feldinhalt::Genre:
            return Wert.empty() || IstZahlform(Wert, Prüfung);
        case Feldinhalt::Wahrheit:
            return Wert == "0" || Wert == "1";
        case Feldinhalt::Datum:
            return Wert.empty() || IstGewöhnlichesDatum(Wert) || DatumLesen(Wert).has_value();
        case Feldinhalt::Zeichen:
            return Wert.size() == 1;
        case Feldinhalt::Text:
            break;
    }
    return true;
}

// The canonical lengths of a line as offsets of the values behind the "|"; Anzahl 0 when they are not
// canonical.
struct Aufteilung {
    std::array<std::uint32_t, FeldAnzahl + 1> Stellen;
    std::size_t Anzahl = 0;
    const char* Werte = nullptr;

    std::string_view Wert(std::size_t Platz) const {
        return {Werte + Stellen[Platz], Stellen[Platz + 1] - Stellen[Platz]};
    }
    bool HatWert(int Feld) const {
        const auto Platz = static_cast<std::size_t>(Feld - 1);
        return Stellen[Platz + 1] != Stellen[Platz];
    }
};

Aufteilung Aufteilen(const char* Anfang, const char* Ende) {
    Aufteilung Teile;
    std::uint32_t Länge = 0;
    std::uint32_t Summe = 0;
    std::size_t Nummer = 0;
    Teile.Stellen[0] = 0;
    for (const char* Stelle = Anfang + Datenzeile.size(); Stelle < Ende; ++Stelle) {
        const auto Ziffer = static_cast<unsigned>(static_cast<unsigned char>(*Stelle)) - '0';
        if (Ziffer <= 9) {
            if (Länge == 0 && Ziffer == 0) return Teile;
            Länge = Länge * 10 + Ziffer;
            if (Länge > HöchsteLänge) return Teile;
            continue;
        }
        if ((*Stelle != '/' && *Stelle != '|') || Nummer == FeldAnzahl) return Teile;
        Summe += Länge;
        Länge = 0;
        Teile.Stellen[++Nummer] = Summe;
        if (*Stelle == '|') {
            Teile.Werte = Stelle + 1;
            if (Nummer == FeldAnzahl || Nummer == GrundfeldAnzahl) Teile.Anzahl = Nummer;
            return Teile;
        }
    }
    return Teile;
}

// The first byte behind the line end at Zeilenschluss, null when the line does not end there; and no line end
// must stand before.
const char* LinienendePrüfen(const char* Werte, const char* Zeilenschluss, const char* Ende, bool NurLf) {
    for (const char* Suche = Werte; Suche < Zeilenschluss; ++Suche) {
        Suche = static_cast<const char*>(
            std::memchr(Suche, '\n', static_cast<std::size_t>(Zeilenschluss - Suche)));
        if (Suche == nullptr) break;
        if (NurLf || Suche[-1] == '\r') return nullptr;
    }
    if (Zeilenschluss == Ende) return Ende[-1] == '\r' ? nullptr : Ende;
    if (*Zeilenschluss == '\n') return NurLf ? Zeilenschluss + 1 : nullptr;
    return *Zeilenschluss == '\r' && Ende - Zeilenschluss > 1 && Zeilenschluss[1] == '\n' ? Zeilenschluss + 2
                                                                                          : nullptr;
}

bool IstId3v1Vorhanden(const Aufteilung& Teile) {
    for (const int Feld : {FeldAlbum, FeldInterpret, FeldTitel, FeldTitelnummer, FeldJahr}) {
        if (Teile.HatWert(Feld)) return true;
    }
    return (Teile.HatWert(FeldKommentar) && Teile.Wert(FeldKommentar - 1) != Programmadresse) ||
           (Teile.HatWert(FeldGenre) && Teile.Wert(FeldGenre - 1) != "255");
}

}  // namespace

std::optional<Zeilenfund> SatzzeilePrüfen(const char* Anfang, const char* Ende, bool NurLf) {
    static const std::vector<Wertprüfung> Prüfungen = PrüfungenBilden();
    const Aufteilung Teile = Aufteilen(Anfang, Ende);
    if (Teile.Anzahl == 0) return std::nullopt;
    if (Ende - Teile.Werte < static_cast<std::ptrdiff_t>(Teile.Stellen[Teile.Anzahl])) return std::nullopt;
    const char* const Zeilenschluss = Teile.Werte + Teile.Stellen[Teile.Anzahl];
    Zeilenfund Fund;
    Fund.Dahinter = LinienendePrüfen(Teile.Werte, Zeilenschluss, Ende, NurLf);
    if (Fund.Dahinter == nullptr) return std::nullopt;
    for (const Wertprüfung& Prüfung : Prüfungen) {
        if (Prüfung.Platz >= Teile.Anzahl) break;
        if (!IstWertform(Teile.Wert(Prüfung.Platz), Prüfung)) return std::nullopt;
    }
    Fund.Platz.Zeile = Anfang;
    Fund.Platz.Länge = static_cast<std::uint32_t>(Zeilenschluss - Anfang);
    Fund.Platz.Speicherform = true;
    if (IstId3v1Vorhanden(Teile)) Fund.Platz.Id3v1 = TagVorhanden;
    // The extended group always holds a number with a mark, so a line that has it is a tagged record's.
    if (Teile.Anzahl == FeldAnzahl) Fund.Platz.Id3v2 = TagVorhanden;
    Fund.Unvollständig = !Teile.HatWert(FeldHinzufügeDatum) || Teile.Wert(FeldGröße - 1) == "-1" ||
                         Teile.Wert(FeldDateityp - 1).front() == '-';
    return Fund;
}

}  // namespace liedwerk
