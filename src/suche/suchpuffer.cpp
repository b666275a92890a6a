#include "suche/suchpuffer.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "basis/ansi.h"
#include "basis/kerne.h"
#include "basis/text.h"
#include "index/wert.h"
#include "suche/wortsucher.h"

namespace liedwerk {
namespace {

// Separates the texts. Also the last byte of every text, so that a hit cannot reach behind it.
constexpr char Trennzeichen = ' ';
constexpr std::size_t SätzeJeTeil = 16384;
constexpr std::size_t GrößterTeil = std::size_t{1} << 30;
// Below this a second thread costs more than it brings.
constexpr std::size_t SätzeJeKern = 20000;
constexpr std::size_t HöchsteBlockzahl = 6;
// Text in which words are counted that are to be searched for together.
constexpr std::size_t Probenlänge = std::size_t{1} << 18;

// Growing room for folded bytes, written without being cleared first.
class Werkbank {
  public:
    std::size_t Größe = 0;
    char* Platz(std::size_t Bytes) {
        if (Größe + Bytes > Raum) {
            const std::size_t Neuer = std::max(Größe + Bytes, 2 * Raum);
            auto Größerer = std::make_unique_for_overwrite<char[]>(Neuer);
            if (Größe > 0) std::memcpy(Größerer.get(), Inhalt.get(), Größe);
            Inhalt = std::move(Größerer);
            Raum = Neuer;
        }
        return Inhalt.get() + Größe;
    }
    void Anhängen(std::string_view Bytes) {
        char* const Ziel = Platz(Bytes.size());
        if (!Bytes.empty()) std::memcpy(Ziel, Bytes.data(), Bytes.size());
        Größe += Bytes.size();
    }
    std::string_view Ab(std::size_t Stelle) const { return {Inhalt.get() + Stelle, Größe - Stelle}; }

  private:
    std::unique_ptr<char[]> Inhalt;
    std::size_t Raum = 0;
};

// The folded UTF-8 form of each Windows-1252 byte.
struct Faltform {
    std::uint8_t Länge;
    std::array<char, 3> Bytes;
};
const std::array<Faltform, 256>& Faltformen() {
    static const auto Tafel = [] {
        std::array<Faltform, 256> Ergebnis{};
        for (std::size_t i = 0; i < Ergebnis.size(); ++i) {
            std::string Form;
            ZeichenAnhängen(Form, ZeichenFalten(AnsiZeichen(static_cast<unsigned char>(i))));
            Ergebnis[i].Länge = static_cast<std::uint8_t>(Form.size());
            std::copy(Form.begin(), Form.end(), Ergebnis[i].Bytes.begin());
        }
        return Ergebnis;
    }();
    return Tafel;
}

// Folds 16 bytes; false when one of them is no ASCII. Both loops become vector code.
constexpr std::size_t Schritt = 16;
inline bool SchrittFalten(const char* Quelle, char* Ziel) {
    unsigned char Hoch = 0;
    for (std::size_t i = 0; i < Schritt; ++i)
        Hoch = static_cast<unsigned char>(Hoch | static_cast<unsigned char>(Quelle[i]));
    for (std::size_t i = 0; i < Schritt; ++i) {
        const auto Byte = static_cast<unsigned char>(Quelle[i]);
        const bool Groß = static_cast<unsigned char>(Byte - 'A') < 26;
        Ziel[i] = static_cast<char>(Byte | (Groß ? 0x20 : 0));
    }
    return Hoch < 0x80;
}

// Appends the folded text of a raw value.
void RohwertFalten(Werkbank& Ziel, std::string_view Bytes) {
    // Only such values may hold more than their code page.
    if (Bytes.starts_with('\xEF')) return Ziel.Anhängen(Falten(IndexwertLesen(Bytes)));
    const auto& Tafel = Faltformen();
    char* const Beginn = Ziel.Platz(3 * Bytes.size() + Schritt);
    char* Ende = Beginn;
    std::size_t Stelle = 0;
    while (Stelle < Bytes.size()) {
        while (Bytes.size() - Stelle >= Schritt && SchrittFalten(Bytes.data() + Stelle, Ende)) {
            Stelle += Schritt;
            Ende += Schritt;
        }
        // Up to the next whole step, or what hindered this one.
        for (std::size_t i = std::min(Schritt, Bytes.size() - Stelle); i > 0; --i) {
            const Faltform& Form = Tafel[static_cast<unsigned char>(Bytes[Stelle++])];
            std::memcpy(Ende, Form.Bytes.data(), Form.Bytes.size());
            Ende += Form.Länge;
        }
    }
    Ziel.Größe += static_cast<std::size_t>(Ende - Beginn);
}

// Appends the text of the standard search, without the values that others contain. The long values come
// first.
void StandardtextFalten(Werkbank& Ziel, const Katalog& Index, Satznummer Nummer) {
    static constexpr std::array<std::pair<int, int>, 3> Paare = {
        {{FeldV2Titel, FeldTitel}, {FeldV2Interpret, FeldInterpret}, {FeldV2Album, FeldAlbum}}};
    const Satzsicht Sicht = Index.Sätze.Sicht(Nummer);
    const std::size_t Beginn = Ziel.Größe;
    const auto Aufnehmen = [&](std::string_view Bytes) {
        if (Bytes.empty()) return;
        const std::size_t Vorher = Ziel.Größe;
        RohwertFalten(Ziel, Bytes);
        const std::string_view Bisher = Ziel.Ab(Beginn).substr(0, Vorher - Beginn);
        if (Bisher.find(Ziel.Ab(Vorher)) != std::string_view::npos) {
            Ziel.Größe = Vorher;
        } else {
            Ziel.Anhängen({&Trennzeichen, 1});
        }
    };
    Aufnehmen(Sicht.Roh(FeldPfad));
    for (const auto& [V2Feld, V1Feld] : Paare) {
        const std::string_view V2 = Sicht.Roh(V2Feld);
        const std::string_view V1 = Sicht.Roh(V1Feld);
        Aufnehmen(V2);
        // An ID3v1 value is mostly the ID3v2 value or its beginning. Bytes that may be a raw form say nothing
        // before they are read.
        if (!V2.starts_with(V1) || V1.starts_with('\xEF')) Aufnehmen(V1);
    }
    if (Ziel.Größe == Beginn) Ziel.Anhängen({&Trennzeichen, 1});
}

// The texts of some neighbouring records: Ende[i] is the offset behind record Erster + i, its separator
// included.
struct Teil {
    Satznummer Erster = 0;
    std::size_t Anzahl = 0;
    std::size_t Bytes = 0;
    std::unique_ptr<char[]> Text;
    std::unique_ptr<std::uint32_t[]> Ende;

    std::size_t Anfang(std::size_t i) const { return i == 0 ? 0 : Ende[i - 1]; }
    std::string_view Ganz() const { return {Text.get(), Bytes}; }
};

// The record in whose text Stelle lies; mostly one of the next ones.
std::size_t SatzFinden(const Teil& Quelle, std::size_t Ab, std::size_t Stelle) {
    std::size_t Sprung = 1;
    std::size_t Bis = Ab;
    while (Bis < Quelle.Anzahl && Quelle.Ende[Bis] <= Stelle) {
        Ab = Bis + 1;
        Bis += Sprung;
        Sprung *= 2;
    }
    const auto* const Ende = Quelle.Ende.get();
    return static_cast<std::size_t>(std::upper_bound(Ende + Ab, Ende + std::min(Bis, Quelle.Anzahl), Stelle) -
                                    Ende);
}

// Sets the marks of the records i of Von to Bis (exclusive, places in the part) that hold the word; Marken is
// the mark of place Von.
void TeilDurchsuchen(const Teil& Quelle, std::size_t Von, std::size_t Bis, const Wortsucher& Sucher,
                     std::uint8_t* Marken) {
    const std::string_view Text = Quelle.Ganz().substr(0, Quelle.Anfang(Bis));
    std::size_t Satz = Von;
    for (std::size_t Stelle = Sucher.Suchen(Text, Quelle.Anfang(Von)); Stelle != std::string_view::npos;
         Stelle = Sucher.Suchen(Text, Quelle.Ende[Satz])) {
        Satz = SatzFinden(Quelle, Satz, Stelle);
        Marken[Satz - Von] = 1;
    }
}

// Words that a text has to hold all: the rarest is looked for in all texts, the others only where it stands.
class Wortgruppe {
  public:
    // Probe is some text of those that will be searched.
    Wortgruppe(const std::vector<std::string>& Alle, bool Gefaltet, std::string_view Probe) {
        std::vector<std::pair<std::size_t, std::string>> Gezählte;
        for (const std::string& Wort : Alle) {
            std::string Form = Gefaltet ? Falten(Wort) : Wort;
            const Wortsucher Sucher(Form);
            std::size_t Anzahl = 0;
            for (std::size_t Stelle = Sucher.Suchen(Probe, 0); Stelle != std::string_view::npos;
                 Stelle = Sucher.Suchen(Probe, Stelle + 1))
                ++Anzahl;
            Gezählte.emplace_back(Anzahl, std::move(Form));
        }
        std::ranges::sort(Gezählte);
        Seltenstes.emplace(std::move(Gezählte.front().second));
        for (std::size_t i = 1; i < Gezählte.size(); ++i)
            Übrige.push_back(std::move(Gezählte[i].second));
    }

    bool HältAlle(std::string_view Text) const {
        return Seltenstes->Suchen(Text, 0) != std::string_view::npos && HältÜbrige(Text);
    }
    // Appends the records of a part that hold all words and are not in Ohne.
    void Sammeln(const Teil& Quelle, const std::map<Satznummer, std::string>& Ohne,
                 std::vector<Satznummer>& Ziel) const {
        const std::string_view Text = Quelle.Ganz();
        std::size_t Satz = 0;
        for (std::size_t Stelle = Seltenstes->Suchen(Text, 0); Stelle != std::string_view::npos;
             Stelle = Seltenstes->Suchen(Text, Quelle.Ende[Satz])) {
            Satz = SatzFinden(Quelle, Satz, Stelle);
            const Satznummer Nummer = Quelle.Erster + static_cast<Satznummer>(Satz);
            const std::size_t Anfang = Quelle.Anfang(Satz);
            if (!HältÜbrige(Text.substr(Anfang, Quelle.Ende[Satz] - Anfang))) continue;
            if (Ohne.empty() || !Ohne.contains(Nummer)) Ziel.push_back(Nummer);
        }
    }

  private:
    bool HältÜbrige(std::string_view Text) const {
        return std::ranges::all_of(
            Übrige, [&](const std::string& Wort) { return Text.find(Wort) != std::string_view::npos; });
    }
    std::optional<Wortsucher> Seltenstes;
    std::vector<std::string> Übrige;  // the rarer ones first
};

// Marks the records whose text is more than its separator.
void NichtleereMarken(const Teil& Quelle, std::size_t Von, std::size_t Bis, std::uint8_t* Marken) {
    for (std::size_t i = Von; i < Bis; ++i)
        Marken[i - Von] = Quelle.Ende[i] - Quelle.Anfang(i) > 1 ? 1 : 0;
}

// What else the text of a field depends on than the records.
std::string Umstände(const Katalog& Index, const Feldwahl& Feld) {
    if (Feld.Kennung != Feldkennung::Benutzerdefiniert && Feld.Kennung != Feldkennung::Vorlage) return {};
    return (Index.Optionen.SpaltenBeideTags == 1 ? "1" : "0") + Index.Optionen.SpaltenNutzerformat;
}

}  // namespace

struct Suchpuffer::Block {
    Feldwahl Feld;
    bool AndererTag = false;
    bool Gefaltet = true;
    std::string Umstand;

    const Satzspeicher* Quelle = nullptr;
    std::uint64_t Generation = 0;
    std::size_t Gesehen = 0;  // entries of GeänderteSätze that are worked in
    std::size_t Anzahl = 0;   // records in Teile
    std::vector<Teil> Teile;
    std::map<Satznummer, std::string> Geänderte;  // texts that hold in place of those in Teile

    void TextAnhängen(Werkbank& Ziel, const Katalog& Index, Satznummer Nummer, std::string& Wert) const;
    void Verlängern(const Katalog& Index);
    void Nachführen(const Katalog& Index);
};

void Suchpuffer::Block::TextAnhängen(Werkbank& Ziel, const Katalog& Index, Satznummer Nummer,
                                     std::string& Wert) const {
    if (Feld.Kennung == Feldkennung::Standardsuche) return StandardtextFalten(Ziel, Index, Nummer);
    Feldtyp Typ{};
    if (!FeldWert(Index, Nummer, Feld, Wertform::Anzeigen, AndererTag, Wert, Typ)) Wert.clear();
    Ziel.Anhängen(Gefaltet ? Falten(Wert) : Wert);
    Ziel.Anhängen({&Trennzeichen, 1});
}

// Appends the records behind Anzahl.
void Suchpuffer::Block::Verlängern(const Katalog& Index) {
    const std::size_t Neue = static_cast<std::size_t>(Index.IndexAnzahl()) - Anzahl;
    std::vector<std::vector<Teil>> Gebaut(HöchsteTeilzahl());
    AufKerneVerteilen(Neue, SätzeJeKern, [&](std::size_t Nummer, std::size_t Von, std::size_t Bis) {
        Werkbank Bank;
        std::string Wert;
        std::vector<std::uint32_t> Enden;
        for (std::size_t i = Von; i < Bis; ++i) {
            TextAnhängen(Bank, Index, static_cast<Satznummer>(Anzahl + i + 1), Wert);
            Enden.push_back(static_cast<std::uint32_t>(Bank.Größe));
            if (Enden.size() < SätzeJeTeil && Bank.Größe < GrößterTeil && i + 1 < Bis) continue;
            Teil Fertig;
            Fertig.Erster = static_cast<Satznummer>(Anzahl + i + 2 - Enden.size());
            Fertig.Anzahl = Enden.size();
            Fertig.Bytes = Bank.Größe;
            Fertig.Text = std::make_unique_for_overwrite<char[]>(Bank.Größe);
            std::memcpy(Fertig.Text.get(), Bank.Ab(0).data(), Bank.Größe);
            Fertig.Ende = std::make_unique_for_overwrite<std::uint32_t[]>(Enden.size());
            std::copy(Enden.begin(), Enden.end(), Fertig.Ende.get());
            Gebaut[Nummer].push_back(std::move(Fertig));
            Enden.clear();
            Bank.Größe = 0;
        }
    });
    for (auto& Stück : Gebaut)
        std::move(Stück.begin(), Stück.end(), std::back_inserter(Teile));
    Anzahl += Neue;
}

// Brings the block up to the state of the index.
void Suchpuffer::Block::Nachführen(const Katalog& Index) {
    const auto Vorhanden = static_cast<std::size_t>(Index.IndexAnzahl());
    const auto Änderungen = Index.Sätze.GeänderteSätze();
    const std::string Jetzt = Umstände(Index, Feld);
    bool Neu = Quelle != &Index.Sätze || Generation != Index.Sätze.Generation() || Umstand != Jetzt ||
               Vorhanden < Anzahl || Änderungen.size() < Gesehen;
    if (!Neu) {
        std::string Wert;
        for (const Satznummer Nummer : Änderungen.subspan(Gesehen)) {
            if (static_cast<std::size_t>(Nummer) > Anzahl) continue;
            Werkbank Bank;
            TextAnhängen(Bank, Index, Nummer, Wert);
            Geänderte[Nummer] = Bank.Ab(0);
        }
        // Many changes, or many small parts from many single additions, cost more than building anew.
        Neu = Geänderte.size() > Anzahl / 8 + 64 || Teile.size() > Anzahl / (SätzeJeTeil / 2) + 64;
    }
    if (Neu) {
        Teile.clear();
        Geänderte.clear();
        Anzahl = 0;
    }
    Quelle = &Index.Sätze;
    Generation = Index.Sätze.Generation();
    Umstand = Jetzt;
    Gesehen = Änderungen.size();
    if (Vorhanden > Anzahl) Verlängern(Index);
}

Suchpuffer::Suchpuffer() = default;
Suchpuffer::~Suchpuffer() = default;

bool Suchpuffer::Geeignet(const Feldwahl& Feld, bool AndererTag, std::string_view Wort) {
    return Feld.Bekannt && Anzeigetyp(Feld, AndererTag) && IstUtf8(Wort) &&
           Wort.find(Trennzeichen) == std::string_view::npos;
}

Suchpuffer::Block& Suchpuffer::BlockFür(const Katalog& Index, const Feldwahl& Feld, bool AndererTag) {
    const auto Fund = std::find_if(Blöcke.begin(), Blöcke.end(), [&](const auto& Einer) {
        return Einer->Feld == Feld && Einer->AndererTag == AndererTag;
    });
    if (Fund != Blöcke.end()) {
        std::rotate(Blöcke.begin(), Fund, Fund + 1);
    } else {
        auto Neuer = std::make_unique<Block>();
        Neuer->Feld = Feld;
        Neuer->AndererTag = AndererTag;
        Neuer->Gefaltet = Anzeigetyp(Feld, AndererTag) == Feldtyp::Text;
        Blöcke.insert(Blöcke.begin(), std::move(Neuer));
        if (Blöcke.size() > HöchsteBlockzahl) Blöcke.pop_back();
    }
    Blöcke.front()->Nachführen(Index);
    return *Blöcke.front();
}

std::vector<std::uint8_t> Suchpuffer::Treffer(const Katalog& Index, const Feldwahl& Feld, bool AndererTag,
                                              std::string_view Wort, Satznummer Von, Satznummer Bis) {
    if (Bis < Von) return {};
    std::vector<std::uint8_t> Marken(static_cast<std::size_t>(Bis - Von) + 1);
    const bool Standard = Feld.Kennung == Feldkennung::Standardsuche;
    if (Standard && Wort.empty()) {
        // The text of the standard search is never empty: its blanks are always there.
        std::fill(Marken.begin(), Marken.end(), std::uint8_t{1});
        return Marken;
    }
    const Block& Quelle = BlockFür(Index, Feld, AndererTag && !Standard);
    const std::string Gesucht = Quelle.Gefaltet ? Falten(Wort) : std::string(Wort);
    const auto Sucher = Gesucht.empty() ? std::nullopt : std::optional<Wortsucher>(Gesucht);

    AufKerneVerteilen(Quelle.Teile.size(), 4, [&](std::size_t, std::size_t Erster, std::size_t Ende) {
        for (std::size_t i = Erster; i < Ende; ++i) {
            const Teil& Einer = Quelle.Teile[i];
            const auto Letzter = Einer.Erster + static_cast<Satznummer>(Einer.Anzahl) - 1;
            if (Letzter < Von || Einer.Erster > Bis) continue;
            const Satznummer Beginn = std::max(Von, Einer.Erster);
            const auto Ab = static_cast<std::size_t>(Beginn - Einer.Erster);
            const auto Vor = static_cast<std::size_t>(std::min(Bis, Letzter) - Einer.Erster) + 1;
            std::uint8_t* const Ziel = Marken.data() + (Beginn - Von);
            if (Sucher) {
                TeilDurchsuchen(Einer, Ab, Vor, *Sucher, Ziel);
            } else {
                NichtleereMarken(Einer, Ab, Vor, Ziel);
            }
        }
    });
    for (auto Satz = Quelle.Geänderte.lower_bound(Von); Satz != Quelle.Geänderte.end() && Satz->first <= Bis;
         ++Satz) {
        const bool Hält = Sucher ? Satz->second.find(Gesucht) != std::string::npos : Satz->second.size() > 1;
        Marken[static_cast<std::size_t>(Satz->first - Von)] = Hält ? 1 : 0;
    }
    return Marken;
}

std::vector<std::vector<Satznummer>> Suchpuffer::Gruppentreffer(
    const Katalog& Index, const Feldwahl& Feld, bool AndererTag,
    std::span<const std::vector<std::string>> Gruppen) {
    if (Gruppen.empty()) return {};
    const Block& Quelle = BlockFür(Index, Feld, AndererTag && Feld.Kennung != Feldkennung::Standardsuche);
    std::vector<Wortgruppe> Gesuchte;
    const std::string_view Probe =
        Quelle.Teile.empty() ? std::string_view{} : Quelle.Teile[Quelle.Teile.size() / 2].Ganz();
    for (const auto& Wörter : Gruppen)
        Gesuchte.emplace_back(Wörter, Quelle.Gefaltet, Probe.substr(0, Probenlänge));
    // All groups search one part before the next, while its text is at hand.
    std::vector<std::vector<std::vector<Satznummer>>> Gefunden(
        HöchsteTeilzahl(), std::vector<std::vector<Satznummer>>(Gruppen.size()));
    AufKerneVerteilen(Quelle.Teile.size(), 4, [&](std::size_t Faden, std::size_t Erster, std::size_t Ende) {
        for (std::size_t i = Erster; i < Ende; ++i) {
            for (std::size_t k = 0; k < Gesuchte.size(); ++k)
                Gesuchte[k].Sammeln(Quelle.Teile[i], Quelle.Geänderte, Gefunden[Faden][k]);
        }
    });
    std::vector<std::vector<Satznummer>> Ergebnis(Gruppen.size());
    for (std::size_t k = 0; k < Gruppen.size(); ++k) {
        for (const auto& Faden : Gefunden)
            Ergebnis[k].insert(Ergebnis[k].end(), Faden[k].begin(), Faden[k].end());
        const auto Mitte = static_cast<std::ptrdiff_t>(Ergebnis[k].size());
        for (const auto& [Nummer, Text] : Quelle.Geänderte) {
            if (Gesuchte[k].HältAlle(Text)) Ergebnis[k].push_back(Nummer);
        }
        std::ranges::inplace_merge(Ergebnis[k], Ergebnis[k].begin() + Mitte);
    }
    return Ergebnis;
}

void Suchpuffer::Leeren() {
    Blöcke.clear();
}

std::uint64_t Suchpuffer::Belegt() const {
    std::uint64_t Bytes = 0;
    for (const auto& Einer : Blöcke) {
        for (const Teil& Stück : Einer->Teile)
            Bytes += Stück.Bytes + Stück.Anzahl * sizeof(std::uint32_t);
        for (const auto& [Nummer, Text] : Einer->Geänderte)
            Bytes += sizeof Text + Text.capacity();
    }
    return Bytes;
}

}  // namespace liedwerk
