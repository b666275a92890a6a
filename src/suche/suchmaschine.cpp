#include "suche/suchmaschine.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <unordered_set>

#include "basis/kerne.h"
#include "basis/text.h"
#include "basis/zahl.h"
#include "suche/feldwert.h"
#include "suche/umlaute.h"
#include "suche/vorschlaege.h"

namespace liedwerk {
namespace {

// Values of the third digit of a code: where the text must stand.
enum Suchort : int {
    Irgendwo = 0,
    WoAlsWort = 1,
    WoAnfang = 2,
    WoEnde = 3,
    WoGleich = 4,
    WoGrößer = 5,
    WoKleiner = 6,
};

bool VergleichtZahlen(int Wo) {
    return Wo == WoGrößer || Wo == WoKleiner;
}

// The second step for a value that holds the word. It looks at the whole text of the query, not at the word.
bool OrtPrüfen(int Wo, std::string_view Wert, std::string_view Ganz) {
    switch (Wo) {
        case WoAlsWort:
            return Wert.empty() || Ganz.empty() || AlsWort(Ganz, Wert);
        case WoAnfang:
            return Wert.empty() || BeginntMitOhneGroß(Wert, Ganz);
        case WoEnde:
            return Wert.empty() || EndetMitOhneGroß(Wert, Ganz);
        case WoGleich:
            return Gleich(Wert, Ganz);
        case WoGrößer:
        case WoKleiner: {
            const auto Links = GanzzahlLesen<std::int64_t>(Wert);
            const auto Rechts = GanzzahlLesen<std::int64_t>(Ganz);
            return Links && Rechts && (Wo == WoGrößer ? *Links > *Rechts : *Links < *Rechts);
        }
        default:
            return true;
    }
}

// A mark of a record whose text has to be looked at.
constexpr std::uint8_t Vielleicht = 2;

// One word of a query, tested on records: whether the word passes there.
class Wortprüfung {
  public:
    Wortprüfung(const Katalog& Durchsucht, Suchpuffer& Puffer, const Suchabfrage& Abfrage,
                std::string_view Gesucht, Satznummer Von, Satznummer Bis, bool MitUmlauten)
        : Index(Durchsucht),
          Feld(FeldFinden(Abfrage.Feld)),
          Code(SuchcodeLesen(Abfrage.Code)),
          Ganz(Abfrage.Begriff),
          Wort(Gesucht),
          Beginn(Von),
          UmlauteGleich(MitUmlauten && Anzeigetyp(Feld, Code.BeideTags == 1) == Feldtyp::Text &&
                        !VergleichtZahlen(Code.Wo)) {
        if (UmlauteGleich) Aufgelöst = UmlauteAuflösen(Falten(Wort));
        // Everything stands in an empty word's way but what every record has.
        if (Feld.Kennung == Feldkennung::Standardsuche && Feld.Bekannt && Wort.empty()) {
            Immer = OrtPrüfen(Code.Wo, {}, Ganz);
            return;
        }
        const std::string_view ImPuffer = VergleichtZahlen(Code.Wo) ? std::string_view{} : Wort;
        if (Suchpuffer::Geeignet(Feld, BeideTags(), ImPuffer))
            Fundstellen = Puffer.Treffer(Index, Feld, BeideTags(), ImPuffer, Von, Bis);
        if (UmlauteGleich && !Fundstellen.empty() && !Wort.empty()) {
            const auto Mögliche = Puffer.Treffer(Index, Feld, BeideTags(), Umlautkern(Aufgelöst), Von, Bis);
            for (std::size_t Stelle = 0; Stelle < Mögliche.size(); ++Stelle) {
                if (Fundstellen[Stelle] == 0 && Mögliche[Stelle] != 0) Fundstellen[Stelle] = Vielleicht;
            }
        }
    }

    bool Besteht(Satznummer Nummer) {
        if (Immer) return *Immer;
        if (!Fundstellen.empty()) {
            const std::uint8_t Fund = Fundstellen[static_cast<std::size_t>(Nummer - Beginn)];
            if (Fund == 0) return false;
            const bool Überall = Code.Wo == Irgendwo || Code.Wo > WoKleiner;
            if (Überall && Fund != Vielleicht) return true;
        }
        Feldtyp Typ{};
        if (!FeldWert(Index, Nummer, Feld, Wertform::Anzeigen, BeideTags(), Wert, Typ)) return false;
        const bool Genau = Fundstellen.empty()
                               ? Enthalten(Typ)
                               : Fundstellen[static_cast<std::size_t>(Nummer - Beginn)] != Vielleicht;
        if (Genau && OrtPrüfen(Code.Wo, Wert, Ganz)) return true;
        if (!UmlauteGleich || Wert.empty()) return false;
        const std::string Eben = UmlauteAuflösen(Falten(Wert));
        return Eben.find(Aufgelöst) != std::string::npos &&
               OrtPrüfen(Code.Wo, Eben, UmlauteAuflösen(Falten(Ganz)));
    }

  private:
    bool BeideTags() const { return Code.BeideTags == 1; }

    bool Enthalten(Feldtyp Typ) const {
        if (Wert.empty()) return false;
        if (Wort.empty() || VergleichtZahlen(Code.Wo)) return true;
        return Typ == Feldtyp::Text ? PositionOhneGroß(Wert, Wort) != std::string_view::npos
                                    : Wert.find(Wort) != std::string::npos;
    }

    const Katalog& Index;
    Feldwahl Feld;
    Suchcode Code;
    std::string_view Ganz;
    std::string_view Wort;
    Satznummer Beginn;
    bool UmlauteGleich;                     // what only UmlauteAuflösen makes equal is a hit, too
    std::string Aufgelöst;                  // the word so
    std::optional<bool> Immer;              // the answer, when it is the same for all records
    std::vector<std::uint8_t> Fundstellen;  // from Beginn on; empty when each record has to be looked at
    std::string Wert;
};

// The scan of one word over the records from Von to Bis.
void WortAnwenden(Wortprüfung Prüfung, bool DarfNicht, std::vector<std::int16_t>& Markierung, Satznummer Von,
                  Satznummer Bis, Satznummer& Erster, Satznummer& Letzter) {
    for (Satznummer Nummer = Von; Nummer <= Bis; ++Nummer) {
        auto& Marke = Markierung[static_cast<std::size_t>(Nummer - 1)];
        // Kept: what one word has thrown out no later one brings back, whatever "ODER" may promise.
        if (Marke < 1) continue;
        if (Prüfung.Besteht(Nummer) == DarfNicht) {
            Marke = 0;
            continue;
        }
        Marke = 1;
        if (Erster == 0) Erster = Nummer;
        Letzter = Nummer;
    }
}

// Goes through all words of all queries; stops when a word leaves nothing.
void AbfragenAnwenden(const Katalog& Index, Suchpuffer& Puffer, const Suchabfragen& Menge,
                      std::vector<std::int16_t>& Markierung, Satznummer& ErsterTreffer,
                      Satznummer& LetzterTreffer, bool UmlauteGleich) {
    const Satznummer Anzahl = Index.IndexAnzahl();
    // Kept: not set back between words, so that the bounds may be wider than what is left.
    Satznummer Erster = 0;
    Satznummer Letzter = 0;
    for (const auto& Abfrage : Menge.Liste) {
        const Suchcode Code = SuchcodeLesen(Abfrage.Code);
        // An empty text excludes nothing.
        const bool DarfNicht = Code.MussDarfNicht != 0 && !Abfrage.Begriff.empty();
        for (const auto& Wort : Teilen(Abfrage.Begriff, " ")) {
            const bool Überall = Code.UndOder == 1;
            const Satznummer Von = Überall ? 1 : std::max(ErsterTreffer, Satznummer{1});
            const Satznummer Bis = Überall ? Anzahl : std::min(LetzterTreffer, Anzahl);
            WortAnwenden({Index, Puffer, Abfrage, Wort, Von, Bis, UmlauteGleich}, DarfNicht, Markierung, Von,
                         Bis, Erster, Letzter);
            ErsterTreffer = Erster;
            LetzterTreffer = Letzter;
            if (ErsterTreffer == 0 || LetzterTreffer == 0) return;
        }
    }
}

// The records that may hold something like the text; empty when all may.
std::vector<std::uint8_t> KandidatenFinden(const Katalog& Index, Suchpuffer& Puffer, const Feldwahl& Feld,
                                           const Ähnlichkeitsmuster& Muster) {
    std::vector<std::uint8_t> Kandidaten;
    if (Anzeigetyp(Feld, false) != Feldtyp::Text) return {};
    for (const auto& Teil : Muster.Pflichtteile()) {
        if (!Suchpuffer::Geeignet(Feld, false, Teil)) return {};
        const auto Treffer = Puffer.Treffer(Index, Feld, false, Teil, 1, Index.IndexAnzahl());
        Kandidaten.resize(Treffer.size());
        std::transform(Treffer.begin(), Treffer.end(), Kandidaten.begin(), Kandidaten.begin(),
                       [](std::uint8_t A, std::uint8_t B) { return static_cast<std::uint8_t>(A | B); });
    }
    return Kandidaten;
}

// Words like the searched one, in the order of the records, each once. The folded form of a find tells
// whether it is new; only then it is taken out of the value as it is written there.
std::vector<std::string> VorschlägeSammeln(const Katalog& Index, Suchpuffer& Puffer,
                                           const Suchabfrage& Abfrage) {
    const Feldwahl Feld = FeldFinden(Abfrage.Feld);
    const Ähnlichkeitsmuster Muster(Abfrage.Begriff);
    const auto Kandidaten = KandidatenFinden(Index, Puffer, Feld, Muster);
    std::vector<std::vector<std::string>> Gefunden(HöchsteTeilzahl());
    constexpr std::size_t SätzeJeKern = 2000;
    AufKerneVerteilen(
        static_cast<std::size_t>(Index.IndexAnzahl()), SätzeJeKern,
        [&](std::size_t Teil, std::size_t Von, std::size_t Bis) {
            std::unordered_set<std::string> Bekannt;
            std::string Wert;
            std::string Gefaltet;
            Feldtyp Typ{};
            for (std::size_t i = Von; i < Bis; ++i) {
                if (!Kandidaten.empty() && Kandidaten[i] == 0) continue;
                if (!FeldWert(Index, static_cast<Satznummer>(i + 1), Feld, Wertform::Anzeigen, false, Wert,
                              Typ))
                    continue;
                Gefaltet.clear();
                FaltenAnhängen(Gefaltet, Wert);
                const auto Fund = Muster.Suchen(Gefaltet);
                if (Fund.Länge == 0 || !Bekannt.insert(Gefaltet.substr(Fund.Von, Fund.Länge)).second)
                    continue;
                Ähnlichkeit Art{};
                Gefunden[Teil].push_back(ÄhnlicheWörter(Wert, Abfrage.Begriff, Art, false));
            }
        });
    std::vector<std::string> Vorschläge;
    std::unordered_set<std::string> Bekannt;
    for (auto& Stück : Gefunden) {
        for (auto& Wort : Stück) {
            if (Bekannt.insert(Falten(Wort)).second) Vorschläge.push_back(std::move(Wort));
        }
    }
    return Vorschläge;
}

bool SollVorschlagen(const Katalog& Index, const Suchabfragen& Menge) {
    if (Index.IndexAnzahl() == 0 || Menge.SucheAnzahl() != 1) return false;
    const std::string& Begriff = Menge.Liste.front().Begriff;
    return Begriff.find(' ') == std::string::npos && ZeichenAnzahl(Begriff) >= 2;
}

}  // namespace

Suchergebnis SucheAusführen(const Katalog& Index, Suchpuffer& Puffer, const Suchabfragen& Menge,
                            std::vector<std::int16_t>& Markierung, Satznummer& ErsterTreffer,
                            Satznummer& LetzterTreffer, bool Vorschlagen, bool UmlauteGleich) {
    Suchergebnis Ergebnis;
    try {
        if (ErsterTreffer == -1) ErsterTreffer = 1;
        if (LetzterTreffer != 0 && Index.IndexAnzahl() != 0)
            AbfragenAnwenden(Index, Puffer, Menge, Markierung, ErsterTreffer, LetzterTreffer, UmlauteGleich);
        const bool Gefunden = ErsterTreffer != 0 && LetzterTreffer != 0;
        if (Vorschlagen && !Gefunden && SollVorschlagen(Index, Menge))
            Ergebnis.Vorschläge = VorschlägeSammeln(Index, Puffer, Menge.Liste.front());
    } catch (const std::exception&) {
        // The marks stay as far as they were set; the caller tells the person.
        Ergebnis.Gelungen = false;
    }
    return Ergebnis;
}

Suchergebnis IndexDurchsuchen(Katalog& Index, Suchpuffer& Puffer, const Suchabfragen& Menge, bool Vorschlagen,
                              bool UmlauteGleich) {
    Index.ErsterTreffer = -1;
    Index.LetzterTreffer = Index.IndexAnzahl();
    Index.IndexTreffer.assign(std::max<std::size_t>(1, static_cast<std::size_t>(Index.IndexAnzahl())), 1);
    return SucheAusführen(Index, Puffer, Menge, Index.IndexTreffer, Index.ErsterTreffer, Index.LetzterTreffer,
                          Vorschlagen, UmlauteGleich);
}

bool AlsWort(std::string_view Begriff, std::string_view Wert) {
    if (Begriff.empty()) return false;
    const std::size_t Stelle = PositionOhneGroß(Wert, Begriff);
    if (Stelle == std::string_view::npos) return false;
    const std::string_view Davor = Wert.substr(0, Stelle);
    const std::string_view AbFund = Wert.substr(Stelle);
    const std::string_view Danach = AbFund.substr(LinkerTeil(AbFund, ZeichenAnzahl(Begriff)).size());
    // Kept: what counts as a letter is the capital letters and digits of the code page by their codes, so
    // that the signs of multiplication and division among them are letters too.
    const auto GehörtZumWort = [](std::string_view Nachbar) {
        if (Nachbar.empty()) return false;
        const std::string Groß = Großbuchstaben(Nachbar);
        std::size_t Anfang = 0;
        const char32_t Code = ZeichenLesen(Groß, Anfang);
        return (Code >= 65 && Code <= 90) || (Code >= 48 && Code <= 57) || (Code >= 192 && Code <= 255);
    };
    // Kept: only the first occurrence counts.
    return !GehörtZumWort(RechterTeil(Davor, 1)) && !GehörtZumWort(LinkerTeil(Danach, 1));
}

bool Gleich(std::string_view A, std::string_view B) {
    return GleichOhneGroß(A, B);
}

}  // namespace liedwerk
