#include "suche/sortierschluessel.h"

#include <algorithm>
#include <atomic>
#include <bit>
#include <limits>

#include "basis/text.h"
#include "basis/zahl.h"
#include "index/spalten.h"
#include "suche/suchpuffer.h"
#include "suche/textsammler.h"

namespace liedwerk {
namespace {

constexpr std::size_t SätzeJeKern = 5000;
constexpr std::size_t SätzeJeFrage = 4096;

bool IstZahlenfeld(const Feldwahl& Feld) {
    // What is a number, a date or a duration on the screen is a number in the sort form.
    return Feld.Bekannt && Anzeigetyp(Feld, false) != Feldtyp::Text;
}

void GroßSchreiben(std::string& Text) {
    if (!IstAscii(Text)) {
        Text = Großbuchstaben(Text);
        return;
    }
    for (char& Zeichen : Text)
        Zeichen = static_cast<char>(Zeichen - (Zeichen >= 'a' && Zeichen <= 'z' ? 'a' - 'A' : 0));
}

void SortierformLesen(const Katalog& Index, Satznummer Nummer, const Feldwahl& Feld, std::string& Wert) {
    Feldtyp Typ{};
    FeldWert(Index, Nummer, Feld, Wertform::Sortieren, false, Wert, Typ);
}

// The bits of a float as a number of the same order.
std::uint32_t FloatRang(float Zahl) {
    constexpr std::uint32_t Vorzeichen = 0x80000000;
    const auto Bits = std::bit_cast<std::uint32_t>(Zahl == 0 ? 0.0F : Zahl);
    return (Bits & Vorzeichen) != 0 ? ~Bits : Bits | Vorzeichen;
}

// A distinct text on its way to its place: what stands behind the beginning that all have in common, its
// first eight bytes as a number.
struct Textanwärter {
    std::uint64_t Kopf;
    std::uint32_t Nummer;
};

std::size_t GemeinsamerAnfang(const Textsammler& Texte) {
    std::string_view Anfang = Texte.Anzahl() > 0 ? Texte.Text(0) : std::string_view{};
    for (std::uint32_t i = 1; i < Texte.Anzahl() && !Anfang.empty(); ++i) {
        const std::string_view Text = Texte.Text(i);
        const auto Ende = std::mismatch(Anfang.begin(), Anfang.end(), Text.begin(), Text.end()).first;
        Anfang = {Anfang.begin(), Ende};
    }
    return Anfang.size();
}

std::uint64_t KopfLesen(std::string_view Text) {
    std::uint64_t Kopf = 0;
    for (std::size_t i = 0; i < sizeof Kopf; ++i)
        Kopf = Kopf << 8U | (i < Text.size() ? static_cast<unsigned char>(Text[i]) : 0U);
    return Kopf;
}

// The numbers of the distinct texts in the order of the texts.
std::vector<std::uint32_t> Ordnen(const Textsammler& Texte) {
    const std::size_t Gemeinsam = GemeinsamerAnfang(Texte);
    std::vector<Textanwärter> Anwärter(Texte.Anzahl());
    for (std::uint32_t i = 0; i < Texte.Anzahl(); ++i)
        Anwärter[i] = {KopfLesen(Texte.Text(i).substr(Gemeinsam)), i};
    std::ranges::sort(Anwärter, [&](const Textanwärter& A, const Textanwärter& B) {
        return A.Kopf != B.Kopf
                   ? A.Kopf < B.Kopf
                   : Texte.Text(A.Nummer).substr(Gemeinsam) < Texte.Text(B.Nummer).substr(Gemeinsam);
    });
    std::vector<std::uint32_t> Folge(Anwärter.size());
    std::ranges::transform(Anwärter, Folge.begin(), &Textanwärter::Nummer);
    return Folge;
}

// The distinct keys of one thread's records and where they stand among those of all threads.
struct Teilschlüssel {
    Textsammler Texte;
    std::vector<std::uint32_t> Folge;
    std::vector<std::uint32_t> Ränge;  // of the numbers in Texte
};

// Gives all threads' texts common ranks, by one walk along their orders.
void GemeinsamRang(std::vector<Teilschlüssel>& Teile) {
    std::vector<std::size_t> Stellen(Teile.size());
    for (auto& Teil : Teile)
        Teil.Ränge.resize(Teil.Folge.size());
    const auto Vorderster = [&](std::size_t i) { return Teile[i].Texte.Text(Teile[i].Folge[Stellen[i]]); };
    for (std::uint32_t Rang = 0;; ++Rang) {
        std::optional<std::string_view> Kleinster;
        for (std::size_t i = 0; i < Teile.size(); ++i) {
            if (Stellen[i] == Teile[i].Folge.size()) continue;
            if (!Kleinster || Vorderster(i) < *Kleinster) Kleinster = Vorderster(i);
        }
        if (!Kleinster) return;
        for (std::size_t i = 0; i < Teile.size(); ++i) {
            if (Stellen[i] == Teile[i].Folge.size() || Vorderster(i) != *Kleinster) continue;
            Teile[i].Ränge[Teile[i].Folge[Stellen[i]++]] = Rang;
        }
    }
}

// Asks the person while several threads walk the records; only the calling one asks.
class Fragezeichen {
  public:
    explicit Fragezeichen(const std::function<bool(std::size_t)>& Frage) : Weiter(Frage) {}

    // To be called for each record of a thread, with the count of its records so far.
    bool Weitermachen(std::size_t Faden, std::size_t Erledigt) {
        if (Erledigt % SätzeJeFrage != 0) return true;
        Summe += Erledigt == 0 ? 0 : SätzeJeFrage;
        if (Faden == 0 && !Angehalten && !Weiter(Summe)) Angehalten = true;
        return !Angehalten;
    }
    bool IstAngehalten() const { return Angehalten; }

  private:
    const std::function<bool(std::size_t)>& Weiter;
    std::atomic<std::size_t> Summe = 0;
    std::atomic<bool> Angehalten = false;
};

}  // namespace

float ZahlWert(std::string_view Text, int Art) {
    const auto Gefasst = [](double Wert) {
        return Wert > static_cast<double>(std::numeric_limits<float>::max())
                   ? std::numeric_limits<float>::infinity()
                   : static_cast<float>(Wert);
    };
    if (Text.empty()) return 0;
    if (const auto Wert = Zahl(Text)) return Gefasst(*Wert);
    if (Art == 2 || Art == 3) {
        if (const std::size_t Strich = Text.find('/'); Strich != std::string_view::npos) {
            if (const auto Wert = Zahl(Text.substr(0, Strich))) return Gefasst(*Wert);
        }
    }
    if (Art != 1 && Art != 3) return 0;
    double Wert = 0;
    for (const char Zeichen : Text) {
        if (Zeichen >= '0' && Zeichen <= '9') Wert = Wert * 10 + (Zeichen - '0');
    }
    return Gefasst(Wert);
}

void SchlüsselBilden(const Katalog& Index, Satznummer Nummer, const Feldwahl& Feld,
                     Sortierschlüssel& Schlüssel) {
    SortierformLesen(Index, Nummer, Feld, Schlüssel.Text);
    if (!IstZahlenfeld(Feld)) return GroßSchreiben(Schlüssel.Text);
    Schlüssel.Zahl = ZahlWert(Schlüssel.Text, 3);
    Schlüssel.Text.clear();
}

bool SchlüsselHängtAmPlatz(const Katalog& Index, const Feldwahl& Feld) {
    if (!Feld.Bekannt) return false;
    if (Feld.Kennung == Feldkennung::Nummer) return true;
    // A format may name the user-defined column, whose format may name the number.
    const auto Genannt = [](std::string_view Format, std::string_view Name) {
        return PositionOhneGroß(Format, "%" + std::string(Name) + "%") != std::string_view::npos;
    };
    const std::string_view Zahl = "Nummer";
    const bool Eigenes = Genannt(Index.Optionen.SpaltenNutzerformat, Zahl);
    if (Feld.Kennung == Feldkennung::Benutzerdefiniert) return Eigenes;
    if (Feld.Kennung != Feldkennung::Vorlage) return false;
    return Genannt(Feld.Vorlage, Zahl) || (Eigenes && Genannt(Feld.Vorlage, "Benutzerdefiniert"));
}

std::optional<std::vector<std::uint32_t>> RängeBilden(const Katalog& Index, const Feldwahl& Feld,
                                                      const std::function<bool(std::size_t)>& Weiter) {
    const auto Anzahl = static_cast<std::size_t>(Index.IndexAnzahl());
    std::vector<std::uint32_t> Ränge(Anzahl);
    std::vector<Teilschlüssel> Teile(HöchsteTeilzahl());
    const bool AlsZahl = IstZahlenfeld(Feld);
    Fragezeichen Frage(Weiter);
    AufKerneVerteilen(Anzahl, SätzeJeKern, [&](std::size_t Faden, std::size_t Von, std::size_t Bis) {
        Teilschlüssel& Eigene = Teile[Faden];
        std::string Wert;
        for (std::size_t i = Von; i < Bis; ++i) {
            if (!Frage.Weitermachen(Faden, i - Von)) return;
            SortierformLesen(Index, static_cast<Satznummer>(i + 1), Feld, Wert);
            if (AlsZahl) {
                Ränge[i] = FloatRang(ZahlWert(Wert, 3));
            } else {
                GroßSchreiben(Wert);
                Ränge[i] = Eigene.Texte.Aufnehmen(Wert).Nummer;
            }
        }
        Eigene.Folge = Ordnen(Eigene.Texte);
    });
    if (Frage.IstAngehalten()) return std::nullopt;
    if (AlsZahl) return Ränge;
    GemeinsamRang(Teile);
    AufKerneVerteilen(Anzahl, SätzeJeKern, [&](std::size_t Faden, std::size_t Von, std::size_t Bis) {
        for (std::size_t i = Von; i < Bis; ++i)
            Ränge[i] = Teile[Faden].Ränge[Ränge[i]];
    });
    return Ränge;
}

}  // namespace liedwerk
