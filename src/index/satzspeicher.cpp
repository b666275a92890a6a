#include "index/satzspeicher.h"

#include <algorithm>
#include <cstring>

#include "index/indexformat.h"
#include "index/satzzeile.h"
#include "index/wert.h"

namespace liedwerk {
namespace {

constexpr std::size_t KleinsterBlock = std::size_t{64} << 10;
constexpr std::size_t GrößterBlock = std::size_t{64} << 20;

// A line of the store takes its line end along, so that neighbours are written as one piece.
std::size_t Bedarf(const Satzspeicher::Platz& Platz) {
    return Platz.Länge + Zeilenende.size();
}

}  // namespace

static_assert(sizeof(void*) != 8 || sizeof(Satzspeicher::Platz) == 16);

// The blocks that hold the lines. Lines are only ever added; what a change leaves behind is counted as dead
// until Verdichten copies the live ones together.
struct Satzspeicher::Blöcke {
    std::vector<std::unique_ptr<char[]>> Alle;
    char* Frei = nullptr;
    std::size_t Rest = 0;
    std::uint64_t Belegt = 0;
    std::uint64_t Lebend = 0;
    std::string Entwurf;      // the line being built
    std::string_view Letzte;  // the line that was added last

    void BlockAnlegen(std::size_t Größe) {
        Alle.push_back(std::make_unique_for_overwrite<char[]>(Größe));
        Frei = Alle.back().get();
        Rest = Größe;
    }

    // The line being built gets a place. A file of a million lines that say nothing gives a million equal
    // ones: neighbours share theirs.
    const char* EntwurfAblegen() {
        if (Entwurf != Letzte) Letzte = {Kopieren(Entwurf.data(), Entwurf.size()), Entwurf.size()};
        return Letzte.data();
    }

    const char* Kopieren(const char* Zeile, std::size_t Länge) {
        const std::size_t Ganz = Länge + Zeilenende.size();
        if (Ganz > Rest) {
            // Grows with the content, so that a few changes cost little and many cost few blocks.
            const auto Anteil = static_cast<std::size_t>(Belegt / 8);
            BlockAnlegen(std::max(Ganz, std::clamp(Anteil, KleinsterBlock, GrößterBlock)));
        }
        char* const Ziel = Frei;
        std::memcpy(Ziel, Zeile, Länge);
        std::memcpy(Ziel + Länge, Zeilenende.data(), Zeilenende.size());
        Frei += Ganz;
        Rest -= Ganz;
        Belegt += Ganz;
        return Ziel;
    }
};

Satzspeicher::Satzspeicher() : Speicher(std::make_unique<Blöcke>()) {}

Satzspeicher::Satzspeicher(Satzspeicher&& Andere) noexcept = default;

Satzspeicher& Satzspeicher::operator=(Satzspeicher&& Andere) noexcept {
    const std::uint64_t Nächste = std::max(Generationszahl, Andere.Generationszahl) + 1;
    Plätze = std::move(Andere.Plätze);
    Speicher = std::move(Andere.Speicher);
    Geändert.clear();
    Generationszahl = Nächste;
    return *this;
}

Satzspeicher::~Satzspeicher() = default;

std::string Satzspeicher::Pfad(Satznummer Nummer) const {
    return Text(Nummer, FeldPfad);
}

std::string Satzspeicher::Text(Satznummer Nummer, int Feld) const {
    return IndexwertLesen(Roh(Nummer, Feld));
}

std::int64_t Satzspeicher::Zahl(Satznummer Nummer, int Feld) const {
    return RohwertZahl(Roh(Nummer, Feld), Feld);
}

std::string_view Satzspeicher::Roh(Satznummer Nummer, int Feld) const {
    return SatzzeileFeld(PlatzVon(Nummer).Zeile, Feld);
}

Satzsicht Satzspeicher::Sicht(Satznummer Nummer) const {
    Satzsicht Ergebnis;
    SatzzeileZerlegen(PlatzVon(Nummer).Zeile, Ergebnis.Werte);
    return Ergebnis;
}

Datensatz Satzspeicher::Lesen(Satznummer Nummer) const {
    const Platz& Quelle = PlatzVon(Nummer);
    Rohwerte Werte;
    const int Anzahl = SatzzeileZerlegen(Quelle.Zeile, Werte);
    Datensatz Satz = DatensatzVonRohwerten(Werte, Anzahl);
    Satz.HatId3v1 = Quelle.Id3v1;
    Satz.HatId3v2 = Quelle.Id3v2;
    Satz.HatLyrics = Quelle.Lyrics;
    return Satz;
}

Satzspeicher::Platz Satzspeicher::Ablegen(std::string_view Pfad, const Datensatz& Daten) {
    const Rohsatz Roh(Pfad, Daten);
    // A save writes the extended group by its own rule; memory keeps it whenever it holds something.
    const bool Erweitert = ErweiterungWirdGeschrieben(Roh.Werte, Daten.HatId3v2);
    const int Anzahl = Erweitert ? FeldAnzahl : Roh.FeldAnzahlImSpeicher();
    SatzzeileBilden(Speicher->Entwurf, Roh.Werte, Anzahl);
    Platz Neu;
    Neu.Länge = static_cast<std::uint32_t>(Speicher->Entwurf.size());
    Neu.Zeile = Speicher->EntwurfAblegen();
    Neu.Id3v1 = Daten.HatId3v1 & 3U;
    Neu.Id3v2 = Daten.HatId3v2 & 3U;
    Neu.Lyrics = Daten.HatLyrics & 3U;
    Neu.Speicherform = IstSpeicherform(Roh.Werte, Anzahl, Daten.HatId3v2);
    return Neu;
}

void Satzspeicher::Setzen(Satznummer Nummer, std::string_view Pfad, const Datensatz& Daten) {
    Ersetzen(Nummer, Ablegen(Pfad, Daten));
}

void Satzspeicher::PfadSetzen(Satznummer Nummer, std::string_view Pfad) {
    const std::string Bytes = IndexwertSchreiben(Pfad);
    const Rohfeld Neu{FeldPfad, Bytes};
    RohwerteSetzen(Nummer, {&Neu, 1});
}

void Satzspeicher::RohwerteSetzen(Satznummer Nummer, std::span<const Rohfeld> Neue) {
    Platz Neu = PlatzVon(Nummer);
    Rohwerte Werte;
    int Anzahl = SatzzeileZerlegen(Neu.Zeile, Werte);
    for (const Rohfeld& Eines : Neue) {
        if (Eines.Feld > Anzahl) Anzahl = ErweiterungVorgeben(Werte);
        Werte[static_cast<std::size_t>(Eines.Feld - 1)] = Eines.Wert;
    }
    SatzzeileBilden(Speicher->Entwurf, Werte, Anzahl);
    Neu.Speicherform = IstSpeicherform(Werte, Anzahl, Neu.Id3v2);
    Neu.Länge = static_cast<std::uint32_t>(Speicher->Entwurf.size());
    Neu.Zeile = Speicher->Kopieren(Speicher->Entwurf.data(), Neu.Länge);
    Ersetzen(Nummer, Neu);
}

void Satzspeicher::Ersetzen(Satznummer Nummer, const Platz& Neu) {
    Platz& Alt = Plätze[static_cast<std::size_t>(Nummer - 1)];
    Speicher->Lebend += Bedarf(Neu);
    Speicher->Lebend -= Bedarf(Alt);
    Alt = Neu;
    Vermerken(Nummer);
    Verdichten();
}

Satznummer Satzspeicher::Anhängen(std::string_view Pfad, const Datensatz& Daten) {
    Plätze.push_back(Ablegen(Pfad, Daten));
    Speicher->Lebend += Bedarf(Plätze.back());
    return Anzahl();
}

void Satzspeicher::Anfügen(Satzspeicher&& Neue) {
    const std::size_t Bisher = Plätze.size();
    Plätze.insert(Plätze.end(), Neue.Plätze.begin(), Neue.Plätze.end());
    if (Neue.Speicher->Belegt < KleinsterBlock) {
        for (std::size_t Stelle = Bisher; Stelle < Plätze.size(); ++Stelle)
            Plätze[Stelle].Zeile = Speicher->Kopieren(Plätze[Stelle].Zeile, Plätze[Stelle].Länge);
    } else {
        for (auto& Block : Neue.Speicher->Alle)
            Speicher->Alle.push_back(std::move(Block));
        Speicher->Belegt += Neue.Speicher->Belegt;
    }
    Speicher->Lebend += Neue.Speicher->Lebend;
    Neue.Leeren();
}

void Satzspeicher::Leeren() {
    Plätze = {};
    Speicher = std::make_unique<Blöcke>();
    Neuordnen();
}

void Satzspeicher::Entfernen(std::span<const Satznummer> Nummern) {
    std::vector<Satznummer> Sortiert(Nummern.begin(), Nummern.end());
    std::ranges::sort(Sortiert);
    auto Nächste = Sortiert.begin();
    std::size_t Ziel = 0;
    for (std::size_t Quelle = 0; Quelle < Plätze.size(); ++Quelle) {
        if (Nächste != Sortiert.end() && static_cast<std::size_t>(*Nächste) == Quelle + 1) {
            Speicher->Lebend -= Bedarf(Plätze[Quelle]);
            Nächste = std::upper_bound(Nächste, Sortiert.end(), *Nächste);
        } else {
            Plätze[Ziel++] = Plätze[Quelle];
        }
    }
    if (Ziel == Plätze.size()) return;
    Plätze.resize(Ziel);
    Neuordnen();
    Verdichten();
}

void Satzspeicher::Vertauschen(Satznummer A, Satznummer B) {
    std::swap(Plätze[static_cast<std::size_t>(A - 1)], Plätze[static_cast<std::size_t>(B - 1)]);
    Neuordnen();
}

void Satzspeicher::Umordnen(std::span<const Satznummer> Folge) {
    std::vector<Platz> Neue;
    Neue.reserve(Plätze.size());
    for (const Satznummer Nummer : Folge)
        Neue.push_back(PlatzVon(Nummer));
    Plätze = std::move(Neue);
    Neuordnen();
}

void Satzspeicher::BlockÜbernehmen(std::unique_ptr<char[]> Block, std::size_t Länge) {
    Speicher->Alle.push_back(std::move(Block));
    Speicher->Belegt += Länge;
}

void Satzspeicher::PlätzeÜbernehmen(std::vector<Platz> Neue) {
    Plätze = std::move(Neue);
    Speicher->Lebend = 0;
    for (const Platz& Einer : Plätze)
        Speicher->Lebend += Bedarf(Einer);
    Neuordnen();
}

// Slots have moved: lists of single changes mean nothing any more.
void Satzspeicher::Neuordnen() {
    ++Generationszahl;
    Geändert.clear();
}

void Satzspeicher::Vermerken(Satznummer Nummer) {
    Geändert.push_back(Nummer);
    if (Geändert.size() > Plätze.size() / 4 + 1000) Neuordnen();
}

void Satzspeicher::Verdichten() {
    const std::uint64_t Tot = Speicher->Belegt - std::min(Speicher->Belegt, Speicher->Lebend);
    if (Tot <= Speicher->Lebend / 2 + KleinsterBlock) return;
    auto Neue = std::make_unique<Blöcke>();
    for (std::uint64_t Rest = Speicher->Lebend; Platz & Einer : Plätze) {
        const std::size_t Ganz = Bedarf(Einer);
        if (Ganz > Neue->Rest) {
            Neue->BlockAnlegen(std::max<std::size_t>(Ganz, std::min<std::uint64_t>(Rest, GrößterBlock)));
        }
        Einer.Zeile = Neue->Kopieren(Einer.Zeile, Einer.Länge);
        Rest -= Ganz;
    }
    Neue->Lebend = Speicher->Lebend;
    Speicher = std::move(Neue);
}

}  // namespace liedwerk
