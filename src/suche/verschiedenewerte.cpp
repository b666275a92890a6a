#include "suche/verschiedenewerte.h"

#include "basis/kerne.h"
#include "basis/text.h"
#include "suche/fragezeichen.h"
#include "suche/textsammler.h"

namespace liedwerk {
namespace {

constexpr std::size_t SätzeJeKern = 5000;

// The values that one thread has met for the first time; the collector knows them folded.
struct Teilwerte {
    Textsammler Bekannt;
    std::vector<std::string> Werte;
};

}  // namespace

std::optional<std::vector<std::string>> VerschiedeneWerte(const Katalog& Index,
                                                          std::span<const Feldwahl> Gefragte, bool AndererTag,
                                                          std::span<const std::int16_t> Markierung,
                                                          const std::function<bool(std::size_t)>& Weiter) {
    Fragezeichen Frage(Weiter);
    std::vector<Teilwerte> Teile(HöchsteTeilzahl());
    AufKerneVerteilen(static_cast<std::size_t>(Index.IndexAnzahl()), SätzeJeKern,
                      [&](std::size_t Faden, std::size_t Von, std::size_t Bis) {
                          Teilwerte& Eigene = Teile[Faden];
                          std::string Wert;
                          std::string Gefaltet;
                          Feldtyp Typ{};
                          for (std::size_t i = Von; i < Bis; ++i) {
                              if (!Frage.Weitermachen(Faden, i - Von)) return;
                              if (!Markierung.empty() && Markierung[i] < 1) continue;
                              for (const Feldwahl& Feld : Gefragte) {
                                  FeldWert(Index, static_cast<Satznummer>(i + 1), Feld, Wertform::Anzeigen,
                                           AndererTag, Wert, Typ);
                                  if (const std::size_t Ende = Wert.find('\0'); Ende != std::string::npos)
                                      Wert.resize(Ende);
                                  if (Wert.empty()) continue;
                                  Gefaltet.clear();
                                  FaltenAnhängen(Gefaltet, Wert);
                                  if (Eigene.Bekannt.Aufnehmen(Gefaltet).Neu) Eigene.Werte.push_back(Wert);
                              }
                          }
                      });
    if (Frage.IstAngehalten()) return std::nullopt;
    // The first thread had the first records: its values stand, the others' are new or not.
    Teilwerte& Alle = Teile.front();
    for (std::size_t Faden = 1; Faden < Teile.size(); ++Faden) {
        Teilwerte& Weitere = Teile[Faden];
        for (std::uint32_t i = 0; i < Weitere.Bekannt.Anzahl(); ++i) {
            if (!Frage.Weitermachen(0, i)) return std::nullopt;
            if (Alle.Bekannt.Aufnehmen(Weitere.Bekannt.Text(i)).Neu)
                Alle.Werte.push_back(std::move(Weitere.Werte[i]));
        }
    }
    return std::move(Alle.Werte);
}

}  // namespace liedwerk
