#include "abspielen/titelerkennung.h"

#include <algorithm>
#include <functional>

#include "abspielen/statistik.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "suche/feldwert.h"
#include "suche/suchmaschine.h"
#include "suche/suchpuffer.h"
#include "suche/wortsucher.h"

namespace liedwerk {
namespace {

constexpr std::int64_t Mindestspieldauer = 30;  // seconds; a title must play longer to count
constexpr std::size_t SätzeJeKern = 4000;

// A title cut at its first " - ".
struct Titelteile {
    std::string_view Interpret;
    std::string_view Titel;
    bool Geteilt = false;
    bool Unbrauchbar() const { return Geteilt && Interpret.empty() && Titel.empty(); }
};

Titelteile TitelTeilen(std::string_view Titel) {
    const std::size_t Stelle = Titel.find(" - ");
    if (Stelle == std::string_view::npos) return {};
    return {Kürzen(Titel.substr(0, Stelle)), Kürzen(Titel.substr(Stelle + 3)), true};
}

char KleinesAscii(char Zeichen) {
    return static_cast<char>(Zeichen | (Zeichen >= 'A' && Zeichen <= 'Z' ? 0x20 : 0));
}

// The longest piece of a text that every text equal to it but for case holds in the same bytes but for the
// case of ASCII: "s" and "k" are left out, because letters outside of ASCII are equal to them.
std::string SicheresStück(std::string_view Text) {
    const auto Sicher = [](char Zeichen) {
        return Zeichen >= ' ' && Zeichen <= '~' && KleinesAscii(Zeichen) != 's' &&
               KleinesAscii(Zeichen) != 'k';
    };
    std::string_view Längstes;
    for (std::size_t Von = 0; Von < Text.size(); ++Von) {
        std::size_t Bis = Von;
        while (Bis < Text.size() && Sicher(Text[Bis]))
            ++Bis;
        if (Bis - Von > Längstes.size()) Längstes = Text.substr(Von, Bis - Von);
        Von = Bis;
    }
    std::string Klein(Längstes);
    std::transform(Klein.begin(), Klein.end(), Klein.begin(), KleinesAscii);
    return Klein;
}

// Looks whether a record's line holds a piece at all: most records are sorted out without a look at their
// fields.
class Vorauswahl {
  public:
    explicit Vorauswahl(const std::string& Stück) : Alle(Stück.empty()), Sucher(Alle ? " " : Stück) {}

    bool Möglich(const Satzspeicher& Sätze, Satznummer Nummer, std::string& Puffer) const {
        if (Alle) return true;
        const auto& Platz = Sätze.PlatzVon(Nummer);
        Puffer.resize(Platz.Länge);
        std::transform(Platz.Zeile, Platz.Zeile + Platz.Länge, Puffer.begin(), KleinesAscii);
        return Sucher.Suchen(Puffer, 0) != std::string::npos;
    }

  private:
    bool Alle;
    Wortsucher Sucher;
};

// The records that pass a test, rising. Only those whose line holds the piece are tested; several threads do.
using Satzprüfung = std::function<bool(Satznummer)>;
std::vector<Satznummer> SätzeSammeln(const Katalog& Index, const std::string& Stück,
                                     const std::function<Satzprüfung()>& PrüfungMachen) {
    const Vorauswahl Wahl(Stück);
    std::vector<std::vector<Satznummer>> Gefunden(HöchsteTeilzahl());
    AufKerneVerteilen(static_cast<std::size_t>(Index.IndexAnzahl()), SätzeJeKern,
                      [&](std::size_t Teil, std::size_t Von, std::size_t Bis) {
                          const Satzprüfung Prüfung = PrüfungMachen();
                          std::string Puffer;
                          for (std::size_t i = Von; i < Bis; ++i) {
                              const auto Nummer = static_cast<Satznummer>(i + 1);
                              if (Wahl.Möglich(Index.Sätze, Nummer, Puffer) && Prüfung(Nummer))
                                  Gefunden[Teil].push_back(Nummer);
                          }
                      });
    std::vector<Satznummer> Alle;
    for (const auto& Stücke : Gefunden)
        Alle.insert(Alle.end(), Stücke.begin(), Stücke.end());
    return Alle;
}

// Reads display texts without the other tag's.
class Feldleser {
  public:
    explicit Feldleser(const Katalog& Gelesener) : Index(Gelesener) {}
    const std::string& Lesen(Satznummer Nummer, const Feldwahl& Feld) {
        Feldtyp Typ{};
        FeldWert(Index, Nummer, Feld, Wertform::Anzeigen, false, Wert, Typ);
        return Wert;
    }

  private:
    const Katalog& Index;
    std::string Wert;
};

std::vector<Satznummer> SätzeNachTags(const Katalog& Index, const Titelteile& Teile,
                                      const std::string& Stück) {
    const Feldwahl Felder[] = {FeldFinden("Titel"), FeldFinden("Interpret"), FeldFinden("Titel-ID3v2"),
                               FeldFinden("Interpret-ID3v2")};
    return SätzeSammeln(Index, Stück, [&]() -> Satzprüfung {
        return [&, Leser = Feldleser(Index)](Satznummer Nummer) mutable {
            const auto Passt = [&](const Feldwahl& Titel, const Feldwahl& Interpret) {
                return AlsWort(Teile.Titel, Leser.Lesen(Nummer, Titel)) &&
                       AlsWort(Teile.Interpret, Leser.Lesen(Nummer, Interpret));
            };
            // A record without a tag has no texts either and fits nothing.
            return Passt(Felder[0], Felder[1]) || Passt(Felder[2], Felder[3]);
        };
    });
}

std::vector<Satznummer> SätzeNachNamen(const Katalog& Index, std::string_view Titel, const Titelteile& Teile,
                                       const std::string& Stück) {
    const Feldwahl Dateiname = FeldFinden("Dateiname");
    return SätzeSammeln(Index, Stück, [&]() -> Satzprüfung {
        return [&, Leser = Feldleser(Index)](Satznummer Nummer) mutable {
            const std::string_view Name = DateiOhneEndung(Leser.Lesen(Nummer, Dateiname));
            return Gleich(Titel, Name) || (AlsWort(Teile.Titel, Name) && AlsWort(Teile.Interpret, Name));
        };
    });
}

// The records with the first of the paths that the index has.
std::vector<Satznummer> SätzeNachPfad(const Katalog& Index, const std::vector<std::string>& Dateien) {
    for (const std::string& Datei : Dateien) {
        const auto Gefunden = SätzeSammeln(Index, SicheresStück(DateinameVon(Datei)), [&]() -> Satzprüfung {
            return [&](Satznummer Nummer) { return PfadeGleich(Index.Sätze.Pfad(Nummer), Datei); };
        });
        if (!Gefunden.empty()) return Gefunden;
    }
    return {};
}

}  // namespace

std::vector<Satznummer> SätzeZumTitel(const Katalog& Index, std::string_view Titel) {
    const Titelteile Teile = TitelTeilen(Titel);
    if (Teile.Unbrauchbar()) return {};
    std::string Stück = SicheresStück(Teile.Geteilt ? Teile.Titel : Titel);
    if (std::string Anderes = SicheresStück(Teile.Interpret); Anderes.size() > Stück.size())
        Stück = std::move(Anderes);
    std::vector<Satznummer> Gefunden;
    if (!Teile.Titel.empty() && !Teile.Interpret.empty()) Gefunden = SätzeNachTags(Index, Teile, Stück);
    return Gefunden.empty() ? SätzeNachNamen(Index, Titel, Teile, Stück) : Gefunden;
}

bool TitelErkennen(Titelerkennung& Erkennung, Katalog& Index, const Einstellungen& Werte, Oberfläche& Person,
                   const GespielterTitel& Gespielt, const Zeitpunkt& Jetzt) {
    if (Werte.AbspielStatistikSpeichern != 1) return true;
    if (Gespielt.Titel != Erkennung.ErkannterTitel || Gespielt.Durchgang != Erkennung.Durchgang)
        Erkennung = {
            Gespielt.Titel, Gespielt.Durchgang, Jetzt, false, false, std::move(Erkennung.VorabGezählt)};
    if (Erkennung.TitelVerarbeitet) return true;
    if (Kalendersekunden(Jetzt) - Kalendersekunden(Erkennung.TitelStart) <= Mindestspieldauer) return true;

    auto Gefunden = SätzeNachPfad(Index, Gespielt.Dateien);
    if (Gefunden.empty()) Gefunden = SätzeZumTitel(Index, Gespielt.Titel);
    const std::string Zeittext = DatumZeitText(Jetzt);
    for (const Satznummer Nummer : Gefunden) {
        const auto Gezählt =
            std::find(Erkennung.VorabGezählt.begin(), Erkennung.VorabGezählt.end(), Index.Sätze.Pfad(Nummer));
        if (Gezählt == Erkennung.VorabGezählt.end()) {
            AbspielenVermerken(Index, Nummer, Zeittext);
        } else {
            Erkennung.VorabGezählt.erase(Gezählt);
        }
    }
    Erkennung.TitelErkannt = !Gefunden.empty();
    Erkennung.TitelVerarbeitet = true;
    Person.StatusZeigen(Erkennung.TitelErkannt ? "Die derzeit abgespielte Datei wurde " +
                                                     std::to_string(Gefunden.size()) + " Mal erkannt"
                                               : "Die derzeit abgespielte Datei wurde nicht erkannt");
    return true;
}

}  // namespace liedwerk
