#include "abspielen/titelsuche.h"

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <utility>

#include "abspielen/suchanker.h"
#include "basis/kerne.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "suche/feldwert.h"
#include "suche/suchmaschine.h"
#include "suche/wortsucher.h"

namespace liedwerk {
namespace {

constexpr std::size_t SätzeJeKern = 4000;
constexpr std::size_t SätzeJeBogen = 128;  // so that their lines stay in the processor's nearest cache

Titelteile TitelTeilen(std::string_view Titel) {
    const std::size_t Stelle = Titel.find(" - ");
    if (Stelle == std::string_view::npos) return {};
    return {std::string(Kürzen(Titel.substr(0, Stelle))), std::string(Kürzen(Titel.substr(Stelle + 3))),
            true};
}

char KleinesAscii(char Zeichen) {
    return static_cast<char>(Zeichen | (Zeichen >= 'A' && Zeichen <= 'Z' ? 0x20 : 0));
}

// What the line of a record that fits holds: of each text that is looked for one of the spellings of its
// anchor.
using Zeilenprobe = std::vector<std::vector<Wortsucher>>;

// The lines of some neighbouring records, one behind the other, in small ASCII letters.
class Zeilenbogen {
  public:
    void Lesen(const Satzspeicher& Sätze, Satznummer Von, Satznummer Bis) {
        Erster = Von;
        Enden.clear();
        std::size_t Bedarf = 0;
        for (Satznummer i = Von; i <= Bis; ++i)
            Bedarf += Sätze.PlatzVon(i).Länge + 1;
        if (Text.size() < Bedarf) Text.resize(Bedarf);
        char* Ziel = Text.data();
        for (Satznummer i = Von; i <= Bis; ++i) {
            const auto& Platz = Sätze.PlatzVon(i);
            Ziel = std::transform(Platz.Zeile, Platz.Zeile + Platz.Länge, Ziel, KleinesAscii);
            *Ziel++ = '\n';  // nothing that is looked for holds it
            Enden.push_back(static_cast<std::size_t>(Ziel - Text.data()));
        }
    }
    // The records, rising, whose line holds what is looked for.
    template <class Handlung>
    void Halter(const Zeilenprobe& Probe, Handlung&& Tun) {
        Hält.assign(Enden.size(), true);
        for (const auto& Schreibungen : Probe) {
            if (!Einengen(Schreibungen)) return;
        }
        for (std::size_t i = 0; i < Enden.size(); ++i)
            if (Hält[i]) Tun(Erster + static_cast<Satznummer>(i));
    }

  private:
    // Keeps the records whose line holds one of the spellings; false when none is left.
    bool Einengen(const std::vector<Wortsucher>& Schreibungen) {
        Trifft.assign(Enden.size(), false);
        const std::string_view Ganz(Text.data(), Enden.back());
        for (const Wortsucher& Eine : Schreibungen) {
            std::size_t i = 0;
            for (std::size_t Stelle = Eine.Suchen(Ganz, 0); Stelle != std::string_view::npos;
                 Stelle = Eine.Suchen(Ganz, Enden[i])) {
                while (Enden[i] <= Stelle)
                    ++i;
                Trifft[i] = true;
            }
        }
        bool Irgendeiner = false;
        for (std::size_t i = 0; i < Enden.size(); ++i) {
            Hält[i] = Hält[i] && Trifft[i];
            Irgendeiner = Irgendeiner || Hält[i];
        }
        return Irgendeiner;
    }

    Satznummer Erster = 1;
    std::string Text;                // only grows, so that it is not cleared for each use
    std::vector<std::size_t> Enden;  // behind each record's line
    std::vector<char> Hält;          // for each record
    std::vector<char> Trifft;
};

void Anfügen(std::vector<Satznummer>& Ziel, const std::vector<Satznummer>& Neue) {
    Ziel.insert(Ziel.end(), Neue.begin(), Neue.end());
}

}  // namespace

// What one slice looks for; used by several threads at once.
class Titelsuche::Abschnitt {
  public:
    Abschnitt(const Titelsuche& Suche, const Katalog& Durchsucht) : Wunsch(Suche), Index(Durchsucht) {
        // A record that fits holds both parts, in its tags or in its name.
        Titelprobe = Wunsch.Teile.Geteilt ? ProbeFür({Wunsch.Teile.Titel, Wunsch.Teile.Interpret})
                                          : ProbeFür({Wunsch.Titel});
        for (const std::string& Pfad : Wunsch.Pfade)
            Pfadproben.push_back(ProbeFür({DateinameVon(Pfad)}));
    }

    // The records of Von to Bis (inclusive) that fit.
    Funde Suchen(Satznummer Von, Satznummer Bis) const {
        Funde Hier;
        Hier.NachPfad.resize(Wunsch.Pfade.size());
        Zeilenbogen Bogen;
        std::string Wert;
        for (Satznummer Anfang = Von; Anfang <= Bis; Anfang += static_cast<Satznummer>(SätzeJeBogen)) {
            Bogen.Lesen(Index.Sätze, Anfang,
                        std::min(Bis, Anfang + static_cast<Satznummer>(SätzeJeBogen) - 1));
            for (std::size_t i = 0; i < Wunsch.Pfade.size(); ++i) {
                Bogen.Halter(Pfadproben[i], [&](Satznummer Nummer) {
                    if (PfadeGleich(Index.Sätze.Pfad(Nummer), Wunsch.Pfade[i]))
                        Hier.NachPfad[i].push_back(Nummer);
                });
            }
            if (Wunsch.Teile.Unbrauchbar()) continue;
            Bogen.Halter(Titelprobe, [&](Satznummer Nummer) {
                if (PassenTags(Nummer, Wert)) Hier.NachTags.push_back(Nummer);
                // The names count only while no tags fit.
                if (Hier.NachTags.empty() && PasstName(Nummer, Wert)) Hier.NachNamen.push_back(Nummer);
            });
        }
        return Hier;
    }

  private:
    // The best sieve comes first: behind it hardly anything is left for the others.
    static Zeilenprobe ProbeFür(std::initializer_list<std::string_view> Texte) {
        std::vector<Suchanker> Alle;
        for (const std::string_view Einer : Texte)
            Alle.push_back(SuchankerVon(Einer));
        std::ranges::stable_sort(Alle, std::greater(), &Suchanker::Güte);
        Zeilenprobe Probe;
        for (const Suchanker& Einer : Alle) {
            if (!Einer.Schreibungen.empty())
                Probe.emplace_back(Einer.Schreibungen.begin(), Einer.Schreibungen.end());
        }
        return Probe;
    }

    // Display texts without the other tag's.
    const std::string& Feldtext(Satznummer Nummer, const Feldwahl& Feld, std::string& Wert) const {
        Feldtyp Typ{};
        FeldWert(Index, Nummer, Feld, Wertform::Anzeigen, false, Wert, Typ);
        return Wert;
    }

    // A record without a tag has no texts either and fits nothing.
    bool PassenTags(Satznummer Nummer, std::string& Wert) const {
        if (Wunsch.Teile.Titel.empty() || Wunsch.Teile.Interpret.empty()) return false;
        const auto Passt = [&](const Feldwahl& Titelfeld, const Feldwahl& Interpretfeld) {
            return AlsWort(Wunsch.Teile.Titel, Feldtext(Nummer, Titelfeld, Wert)) &&
                   AlsWort(Wunsch.Teile.Interpret, Feldtext(Nummer, Interpretfeld, Wert));
        };
        return Passt(V1Titel, V1Interpret) || Passt(V2Titel, V2Interpret);
    }

    bool PasstName(Satznummer Nummer, std::string& Wert) const {
        const std::string_view Name = DateiOhneEndung(Feldtext(Nummer, Dateiname, Wert));
        return Gleich(Wunsch.Titel, Name) ||
               (AlsWort(Wunsch.Teile.Titel, Name) && AlsWort(Wunsch.Teile.Interpret, Name));
    }

    const Titelsuche& Wunsch;
    const Katalog& Index;
    const Feldwahl V1Titel = FeldFinden("Titel");
    const Feldwahl V1Interpret = FeldFinden("Interpret");
    const Feldwahl V2Titel = FeldFinden("Titel-ID3v2");
    const Feldwahl V2Interpret = FeldFinden("Interpret-ID3v2");
    const Feldwahl Dateiname = FeldFinden("Dateiname");
    Zeilenprobe Titelprobe;
    std::vector<Zeilenprobe> Pfadproben;
};

Titelsuche::Titelsuche(std::string_view Gesucht, std::vector<std::string> Dateien)
    : Titel(Gesucht), Teile(TitelTeilen(Gesucht)), Pfade(std::move(Dateien)) {
    Alle.NachPfad.resize(Pfade.size());
}

void Titelsuche::Anfangen(const Katalog& Index) {
    Alle = {};
    Alle.NachPfad.resize(Pfade.size());
    Nächster = 1;
    Generation = Index.Sätze.Generation();
    Änderungen = Index.Sätze.GeänderteSätze().size();
}

bool Titelsuche::Weitersuchen(const Katalog& Index, Satznummer Höchstens) {
    if (Generation != Index.Sätze.Generation() || Änderungen != Index.Sätze.GeänderteSätze().size())
        Anfangen(Index);
    const Satznummer Bis = Nächster - 1 + std::min(Höchstens, Index.IndexAnzahl() - (Nächster - 1));
    const Abschnitt Suche(*this, Index);
    std::vector<Funde> Gefunden(HöchsteTeilzahl());
    const Satznummer Anzahl = Bis - Nächster + 1;
    AufKerneVerteilen(static_cast<std::size_t>(Anzahl), SätzeJeKern,
                      [&](std::size_t Kern, std::size_t Von, std::size_t Ende) {
                          Gefunden[Kern] = Suche.Suchen(Nächster + static_cast<Satznummer>(Von),
                                                        Nächster + static_cast<Satznummer>(Ende) - 1);
                      });
    for (const Funde& Teil : Gefunden) {
        for (std::size_t i = 0; i < Teil.NachPfad.size(); ++i)
            Anfügen(Alle.NachPfad[i], Teil.NachPfad[i]);
        Anfügen(Alle.NachTags, Teil.NachTags);
        Anfügen(Alle.NachNamen, Teil.NachNamen);
    }
    Nächster = Bis + 1;
    return Bis >= Index.IndexAnzahl();
}

const std::vector<Satznummer>& Titelsuche::Gefundene() const {
    for (const auto& Liste : Alle.NachPfad) {
        if (!Liste.empty()) return Liste;
    }
    return Alle.NachTags.empty() ? Alle.NachNamen : Alle.NachTags;
}

}  // namespace liedwerk
