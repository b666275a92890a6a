#include "suche/sortierschluessel.h"

#include <algorithm>
#include <bit>
#include <limits>

#include "basis/kerne.h"
#include "basis/text.h"
#include "basis/zahl.h"
#include "index/spalten.h"
#include "suche/fragezeichen.h"
#include "suche/textsammler.h"

namespace liedwerk {
namespace {

constexpr std::size_t SätzeJeKern = 5000;

bool IstZahlenfeld(const Feldwahl& Feld) {
    // What is a number, a date or a duration on the screen is a number in the sort form.
    return Feld.Bekannt && Anzeigetyp(Feld, false) != Feldtyp::Text;
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

// A text on its way to its place, with the eight bytes that are being compared as a number.
struct Textanwärter {
    std::uint64_t Kopf;
    std::uint32_t Nummer;
};

std::uint64_t KopfLesen(std::string_view Text) {
    std::uint64_t Kopf = 0;
    if (Text.size() >= sizeof Kopf) {
        for (std::size_t i = 0; i < sizeof Kopf; ++i)
            Kopf = Kopf << 8U | static_cast<unsigned char>(Text[i]);
        return Kopf;
    }
    for (std::size_t i = 0; i < sizeof Kopf; ++i)
        Kopf = Kopf << 8U | (i < Text.size() ? static_cast<unsigned char>(Text[i]) : 0U);
    return Kopf;
}

// Texts of which all but the first Verglichen bytes are the same.
struct Textbereich {
    std::size_t Von;
    std::size_t Bis;  // exclusive
    std::size_t Verglichen;
    int Stufe;
};

// Sorts the numbers of texts by their texts. Eight bytes of all texts are read in one walk and sorted as
// numbers; those that are equal go on with what follows the beginning that they have in common.
class Textordnung {
  public:
    explicit Textordnung(const Textsammler& Alle) : Texte(Alle), Anwärter(Alle.Anzahl()) {
        for (std::uint32_t i = 0; i < Texte.Anzahl(); ++i)
            Anwärter[i].Nummer = i;
    }
    std::vector<std::uint32_t> Ordnen() {
        if (!Anwärter.empty()) Offen.push_back({0, Anwärter.size(), 0, 0});
        while (!Offen.empty()) {
            const Textbereich Bereich = Offen.back();
            Offen.pop_back();
            // Texts that agree for long again and again are hostile, and few are not worth the walk.
            constexpr std::size_t Wenige = 12;
            constexpr int HöchsteStufe = 16;
            if (Bereich.Bis - Bereich.Von <= Wenige || Bereich.Stufe > HöchsteStufe) {
                GanzVergleichen(Bereich);
            } else {
                KöpfeVergleichen(Bereich);
            }
        }
        std::vector<std::uint32_t> Folge(Anwärter.size());
        std::ranges::transform(Anwärter, Folge.begin(), &Textanwärter::Nummer);
        return Folge;
    }

  private:
    std::string_view Rest(const Textanwärter& Einer, std::size_t Verglichen) const {
        const std::string_view Text = Texte.Text(Einer.Nummer);
        return Text.substr(std::min(Verglichen, Text.size()));
    }
    std::span<Textanwärter> Teil(const Textbereich& Bereich) {
        return std::span(Anwärter).subspan(Bereich.Von, Bereich.Bis - Bereich.Von);
    }
    void GanzVergleichen(const Textbereich& Bereich) {
        std::ranges::sort(Teil(Bereich), {},
                          [&](const Textanwärter& Einer) { return Rest(Einer, Bereich.Verglichen); });
    }
    std::size_t GemeinsamerAnfang(const Textbereich& Bereich) {
        std::string_view Anfang = Rest(Anwärter[Bereich.Von], Bereich.Verglichen);
        for (const Textanwärter& Einer : Teil(Bereich)) {
            const std::string_view Text = Rest(Einer, Bereich.Verglichen);
            const auto Ende = std::mismatch(Anfang.begin(), Anfang.end(), Text.begin(), Text.end()).first;
            Anfang = {Anfang.begin(), Ende};
            if (Anfang.empty()) break;
        }
        return Bereich.Verglichen + Anfang.size();
    }
    void KöpfeVergleichen(const Textbereich& Bereich) {
        const std::size_t Ab = GemeinsamerAnfang(Bereich);
        bool AmEnde = true;
        for (Textanwärter& Einer : Teil(Bereich)) {
            const std::string_view Text = Rest(Einer, Ab);
            AmEnde = AmEnde && Text.empty();
            Einer.Kopf = KopfLesen(Text);
        }
        if (AmEnde) return;
        std::ranges::sort(Teil(Bereich), {}, &Textanwärter::Kopf);
        std::size_t Anfang = Bereich.Von;
        for (std::size_t i = Bereich.Von + 1; i <= Bereich.Bis; ++i) {
            if (i < Bereich.Bis && Anwärter[i].Kopf == Anwärter[Anfang].Kopf) continue;
            // A text that ends here and one that goes on with zeros have one number: neither is passed over.
            const bool MitNull = (Anwärter[Anfang].Kopf & 0xFF) == 0;
            if (i - Anfang > 1)
                Offen.push_back(
                    {Anfang, i, Ab + (MitNull ? 0 : sizeof Textanwärter::Kopf), Bereich.Stufe + 1});
            Anfang = i;
        }
    }

    const Textsammler& Texte;
    std::vector<Textanwärter> Anwärter;
    std::vector<Textbereich> Offen;
};

// The keys of one thread's records and where they stand among those of all threads.
struct Teilschlüssel {
    Textsammler Texte;
    std::vector<std::uint32_t> Folge;
    std::vector<std::uint32_t> Ränge;  // of the numbers in Texte
    std::size_t Aufgenommen = 0;
    bool NurAnhängen = false;

    // While texts come again, each is kept once; where they hardly do, looking for them is lost time.
    std::uint32_t Aufnehmen(std::string_view Text) {
        if (NurAnhängen) return Texte.Anhängen(Text);
        constexpr std::size_t Probe = 8192;
        const std::uint32_t Nummer = Texte.Aufnehmen(Text).Nummer;
        if (++Aufgenommen == Probe) NurAnhängen = Texte.Anzahl() > Probe / 2;
        return Nummer;
    }
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
            for (; Stellen[i] < Teile[i].Folge.size() && Vorderster(i) == *Kleinster; ++Stellen[i])
                Teile[i].Ränge[Teile[i].Folge[Stellen[i]]] = Rang;
        }
    }
}

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
    std::string Wert;
    SortierformLesen(Index, Nummer, Feld, Wert);
    Schlüssel.Text.clear();
    if (IstZahlenfeld(Feld)) {
        Schlüssel.Zahl = ZahlWert(Wert, 3);
    } else {
        GroßbuchstabenAnhängen(Schlüssel.Text, Wert);
    }
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

std::optional<std::vector<Rangliste>> RängeBilden(const Katalog& Index, std::span<const Feldwahl> Gefragte,
                                                  const std::function<bool(std::size_t)>& Weiter) {
    const auto Anzahl = static_cast<std::size_t>(Index.IndexAnzahl());
    std::vector<Rangliste> Ränge(Gefragte.size(), Rangliste(Anzahl));
    std::vector<bool> AlsZahl(Gefragte.size());
    std::transform(Gefragte.begin(), Gefragte.end(), AlsZahl.begin(), IstZahlenfeld);
    // By field, then by thread.
    std::vector<std::vector<Teilschlüssel>> Teile(Gefragte.size());
    for (auto& Fäden : Teile)
        Fäden.resize(HöchsteTeilzahl());
    Fragezeichen Frage(Weiter);
    AufKerneVerteilen(Anzahl, SätzeJeKern, [&](std::size_t Faden, std::size_t Von, std::size_t Bis) {
        std::string Wert;
        std::string Groß;
        std::vector<std::string> Vorige(Gefragte.size());
        for (std::size_t i = Von; i < Bis; ++i) {
            if (!Frage.Weitermachen(Faden, i - Von)) return;
            for (std::size_t k = 0; k < Gefragte.size(); ++k) {
                SortierformLesen(Index, static_cast<Satznummer>(i + 1), Gefragte[k], Wert);
                if (AlsZahl[k]) {
                    Ränge[k][i] = FloatRang(ZahlWert(Wert, 3));
                } else if (i > Von && Wert == Vorige[k]) {
                    // The songs of one album mostly stand side by side.
                    Ränge[k][i] = Ränge[k][i - 1];
                } else {
                    Groß.clear();
                    GroßbuchstabenAnhängen(Groß, Wert);
                    Ränge[k][i] = Teile[k][Faden].Aufnehmen(Groß);
                    Vorige[k].swap(Wert);
                }
            }
        }
        for (auto& Fäden : Teile)
            Fäden[Faden].Folge = Textordnung(Fäden[Faden].Texte).Ordnen();
    });
    if (Frage.IstAngehalten()) return std::nullopt;
    // The numbers of each thread's texts become ranks among all.
    AufKerneVerteilen(Gefragte.size(), 1, [&](std::size_t, std::size_t Erstes, std::size_t Ende) {
        for (std::size_t k = Erstes; k < Ende; ++k)
            GemeinsamRang(Teile[k]);
    });
    AufKerneVerteilen(Anzahl, SätzeJeKern, [&](std::size_t Faden, std::size_t Von, std::size_t Bis) {
        for (std::size_t k = 0; k < Gefragte.size(); ++k) {
            if (AlsZahl[k]) continue;
            for (std::size_t i = Von; i < Bis; ++i)
                Ränge[k][i] = Teile[k][Faden].Ränge[Ränge[k][i]];
        }
    });
    return Ränge;
}

}  // namespace liedwerk
