#include "suche/aufraeumen.h"

#include <algorithm>
#include <atomic>
#include <functional>
#include <optional>
#include <string_view>

#include "basis/kerne.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "basis/zahl.h"
#include "index/wert.h"
#include "suche/feldwert.h"

namespace liedwerk {
namespace {

// Builds the text by which a record is compared, in buffers that are used again.
class Schlüsselbildner {
  public:
    Schlüsselbildner(const Satzspeicher& Alle, Aufräummethode Art) : Sätze(Alle), Methode(Art) {}

    // The key, valid until the next call; nothing for a record that this method leaves out.
    std::optional<std::string_view> Schlüssel(Satznummer Nummer) {
        Wert.clear();
        switch (Methode) {
            case Aufräummethode::GleicherDateiname:
                Verkleinern(Nummer, FeldPfad, DateinameVon);
                break;
            case Aufräummethode::GleicherTitelId3v1:
                if (Sätze.HatId3v1(Nummer) != TagVorhanden) return std::nullopt;
                TitelUndInterpret(Nummer, FeldTitel, FeldInterpret);
                break;
            case Aufräummethode::GleicherTitelId3v2:
                if (Sätze.HatId3v2(Nummer) != TagVorhanden) return std::nullopt;
                TitelUndInterpret(Nummer, FeldV2Titel, FeldV2Interpret);
                break;
            case Aufräummethode::GleicheGröße:
                // Kept: two files of unknown size are a pair.
                Wert = std::to_string(Sätze.Zahl(Nummer, FeldGröße));
                break;
            default:
                // Kept: whole paths are compared in lower case, also where the system tells cases apart.
                Verkleinern(Nummer, FeldPfad, [](std::string_view Ganz) { return Ganz; });
                break;
        }
        return Wert;
    }

  private:
    template <class Teil>
    void Verkleinern(Satznummer Nummer, int Feld, Teil&& TeilVon) {
        Puffer.clear();
        IndexwertLesenAnhängen(Puffer, Sätze.Roh(Nummer, Feld));
        KleinbuchstabenAnhängen(Wert, TeilVon(std::string_view(Puffer)));
    }
    void TitelUndInterpret(Satznummer Nummer, int Titel, int Interpret) {
        const auto Ganz = [](std::string_view Text) { return Text; };
        Verkleinern(Nummer, Titel, Ganz);
        // Where the title ends belongs to the key: "a" + "bc" is not "ab" + "c".
        const std::size_t Grenze = Wert.size();
        Verkleinern(Nummer, Interpret, Ganz);
        Wert += '/';
        Wert += std::to_string(Grenze);
    }

    const Satzspeicher& Sätze;
    Aufräummethode Methode;
    std::string Puffer;
    std::string Wert;
};

// A member of the working set by the hash of its key.
struct Streuplatz {
    std::size_t Streuwert = 0;
    std::size_t Platz = 0;  // 0-based in the working set
    bool operator<(const Streuplatz& Anderer) const {
        return Streuwert != Anderer.Streuwert ? Streuwert < Anderer.Streuwert : Platz < Anderer.Platz;
    }
};

// The working set by hashes, by the part of it and then by the thread that looks at these hashes.
using Streuung = std::vector<std::vector<std::vector<Streuplatz>>>;

constexpr std::size_t SätzeJeKern = 5000;

Streuung StreuplätzeSammeln(const Katalog& Index, std::span<const Satznummer> Arbeitsmenge,
                            Aufräummethode Methode, Oberfläche& Person) {
    const std::size_t Teile = HöchsteTeilzahl();
    Streuung Plätze(Teile, std::vector<std::vector<Streuplatz>>(Teile));
    std::atomic<bool> Angehalten = false;
    AufKerneVerteilen(Arbeitsmenge.size(), SätzeJeKern,
                      [&](std::size_t Faden, std::size_t Von, std::size_t Bis) {
                          Schlüsselbildner Bilder(Index.Sätze, Methode);
                          for (std::size_t Platz = Von; Platz < Bis && !Angehalten; ++Platz) {
                              if (const auto Schlüssel = Bilder.Schlüssel(Arbeitsmenge[Platz])) {
                                  const std::size_t Wert = std::hash<std::string_view>{}(*Schlüssel);
                                  Plätze[Faden][Wert % Teile].push_back({Wert, Platz});
                              }
                              if (Faden != 0) continue;
                              // The others are about as far in their parts.
                              const std::size_t Erledigt = (Platz + 1) * Arbeitsmenge.size() / Bis;
                              if (!Person.FortschrittZeigen({}, static_cast<std::int64_t>(Erledigt)))
                                  Angehalten = true;
                          }
                      });
    return Plätze;
}

// Sets the partner of each place that has one: the next place with the same key. Plätze hold all places of
// their keys, sorted by hash, so that nobody has to look at all others.
void PartnerFinden(std::span<const Streuplatz> Plätze, std::span<const Satznummer> Arbeitsmenge,
                   Schlüsselbildner& Bilder, std::vector<Satznummer>& Partner) {
    std::string Eigener;
    const Streuplatz* Bekannter = nullptr;  // whose key Eigener is
    for (auto Erster = Plätze.begin(); Erster != Plätze.end(); ++Erster) {
        auto Zweiter = std::next(Erster);
        if (Zweiter == Plätze.end() || Zweiter->Streuwert != Erster->Streuwert) continue;
        if (Bekannter != &*Erster) Eigener = *Bilder.Schlüssel(Arbeitsmenge[Erster->Platz]);
        for (; Zweiter != Plätze.end() && Zweiter->Streuwert == Erster->Streuwert; ++Zweiter) {
            if (*Bilder.Schlüssel(Arbeitsmenge[Zweiter->Platz]) != Eigener) continue;
            Partner[Erster->Platz] = Arbeitsmenge[Zweiter->Platz];
            Bekannter = &*Zweiter;
            break;
        }
    }
}

std::vector<Aufräumfund> PaareFinden(const Katalog& Index, std::span<const Satznummer> Arbeitsmenge,
                                     Aufräummethode Methode, Oberfläche& Person) {
    const Streuung Gestreut = StreuplätzeSammeln(Index, Arbeitsmenge, Methode, Person);
    // For each member the number of its partner, so that the pairs come in the order of the working set.
    std::vector<Satznummer> Partner(Arbeitsmenge.size());
    const std::size_t Mindestens = Arbeitsmenge.size() < SätzeJeKern ? HöchsteTeilzahl() : 1;
    AufKerneVerteilen(HöchsteTeilzahl(), Mindestens, [&](std::size_t, std::size_t Von, std::size_t Bis) {
        Schlüsselbildner Bilder(Index.Sätze, Methode);
        for (std::size_t k = Von; k < Bis; ++k) {
            std::vector<Streuplatz> Plätze;
            for (const auto& Teil : Gestreut)
                Plätze.insert(Plätze.end(), Teil[k].begin(), Teil[k].end());
            std::ranges::sort(Plätze, std::less{});
            PartnerFinden(Plätze, Arbeitsmenge, Bilder, Partner);
        }
    });
    std::vector<Aufräumfund> Funde;
    for (std::size_t Platz = 0; Platz < Arbeitsmenge.size(); ++Platz) {
        if (Partner[Platz] != 0) Funde.push_back({Arbeitsmenge[Platz], Partner[Platz]});
    }
    return Funde;
}

std::vector<Aufräumfund> EinzelneFinden(std::span<const Satznummer> Arbeitsmenge, const Dateiprüfung& Prüfung,
                                        Oberfläche& Person) {
    std::vector<Aufräumfund> Funde;
    std::int64_t Stand = 0;
    for (const Satznummer Nummer : Arbeitsmenge) {
        const Dateibefund Befund = Prüfung(Nummer);
        if (Befund == Dateibefund::Abbruch) break;
        if (Befund == Dateibefund::Verdächtig) Funde.push_back({Nummer, 0});
        if (!Person.FortschrittZeigen({}, ++Stand)) break;
    }
    return Funde;
}

Dateiprüfung Tagprüfung(const Satzspeicher& Sätze, Aufräummethode Methode) {
    return [&Sätze, Erster = Methode == Aufräummethode::OhneId3v1](Satznummer Nummer) {
        const auto Zustand = Erster ? Sätze.HatId3v1(Nummer) : Sätze.HatId3v2(Nummer);
        return Zustand == TagVorhanden ? Dateibefund::Unauffällig : Dateibefund::Verdächtig;
    };
}

}  // namespace

std::string FundText(const Katalog& Index, const Aufräumfund& Fund) {
    const auto Name = [&](Satznummer Nummer) { return std::string(DateinameVon(Index.Sätze.Pfad(Nummer))); };
    if (Fund.Ergebnis2 == 0) return Name(Fund.Ergebnis1);
    return "'" + Name(Fund.Ergebnis1) + "' und '" + Name(Fund.Ergebnis2) + "'";
}

std::string GleicheFelder(const Katalog& Index, const Aufräumfund& Paar) {
    static constexpr std::array<std::string_view, 8> Verglichene = {
        "Dateiname", "Interpret", "Titel", "Album", "Größe", "Dauer", "Bitrate", "Frequenz"};
    std::string Gleiche;
    for (const std::string_view Feld : Verglichene) {
        std::string Erster;
        std::string Zweiter;
        Feldtyp Typ{};
        FeldWert(Index, Paar.Ergebnis1, Feld, Wertform::Anzeigen, true, Erster, Typ);
        FeldWert(Index, Paar.Ergebnis2, Feld, Wertform::Anzeigen, true, Zweiter, Typ);
        if (Erster.empty() || Erster != Zweiter) continue;
        if (!Gleiche.empty()) Gleiche += ", ";
        Gleiche += Feld;
    }
    return Gleiche;
}

std::string AuswahlUmfang(const Katalog& Index, std::span<const Aufräumfund> Funde) {
    std::vector<bool> Dabei(static_cast<std::size_t>(Index.IndexAnzahl()) + 1);
    std::int64_t Anzahl = 0;
    std::int64_t Sekunden = 0;
    std::int64_t Bytes = 0;
    for (const Aufräumfund& Fund : Funde) {
        for (const Satznummer Nummer : {Fund.Ergebnis1, Fund.Ergebnis2}) {
            if (Nummer == 0 || Dabei[static_cast<std::size_t>(Nummer)]) continue;
            Dabei[static_cast<std::size_t>(Nummer)] = true;
            ++Anzahl;
            Sekunden += std::max<std::int64_t>(0, Index.Sätze.Zahl(Nummer, FeldDauer));
            Bytes += std::max<std::int64_t>(0, Index.Sätze.Zahl(Nummer, FeldGröße));
        }
    }
    return std::to_string(Anzahl) + " Dateien gewählt\n" + Gruppiert(Sekunden / 60) + " Minuten belegen " +
           Gruppiert(Bytes) + " Bytes";
}

std::vector<Aufräumfund> DurchsucheIndex(const Katalog& Index, std::span<const Satznummer> Arbeitsmenge,
                                         Aufräummethode Methode, const Dateiprüfung& Prüfung,
                                         Oberfläche& Person) {
    Person.FortschrittStarten("Durchsuche Index", true, static_cast<std::int64_t>(Arbeitsmenge.size()));
    std::vector<Aufräumfund> Funde;
    if (FindetPaare(Methode)) {
        Funde = PaareFinden(Index, Arbeitsmenge, Methode, Person);
    } else if (Methode == Aufräummethode::OhneId3v1 || Methode == Aufräummethode::OhneId3v2) {
        Funde = EinzelneFinden(Arbeitsmenge, Tagprüfung(Index.Sätze, Methode), Person);
    } else {
        Funde = EinzelneFinden(Arbeitsmenge, Prüfung, Person);
    }
    Person.FortschrittSchließen();
    return Funde;
}

}  // namespace liedwerk
