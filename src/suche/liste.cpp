#include "suche/liste.h"

#include <algorithm>
#include <numeric>

#include "basis/pfad.h"
#include "basis/uhr.h"
#include "suche/feldwert.h"

namespace liedwerk {
namespace {

// Finds the records of a new list in the remembered selection. The search goes on behind the last match and
// never back; for a list in record order that restores everything that is still shown.
class Auswahlgedächtnis {
  public:
    explicit Auswahlgedächtnis(std::vector<Satznummer> Gemerkte)
        : Gemerkt(std::move(Gemerkte)), Folge(Gemerkt.size()) {
        std::iota(Folge.begin(), Folge.end(), std::size_t{0});
        if (std::is_sorted(Gemerkt.begin(), Gemerkt.end())) return;
        std::stable_sort(Folge.begin(), Folge.end(),
                         [this](std::size_t A, std::size_t B) { return Gemerkt[A] < Gemerkt[B]; });
    }

    std::size_t ListeMarkierungenAnzahl() const { return Gemerkt.size(); }

    // True when the record was selected; to be asked with rising numbers.
    bool Wiederfinden(Satznummer Nummer) {
        if (Gemerkt.empty() || Nummer < Gemerkt.front() || Nummer > Gemerkt.back()) return false;
        while (Nächster < Folge.size() && Gemerkt[Folge[Nächster]] < Nummer)
            ++Nächster;
        for (; Nächster < Folge.size() && Gemerkt[Folge[Nächster]] == Nummer; ++Nächster) {
            if (Folge[Nächster] < ListeMarkierungPosition) continue;
            ListeMarkierungPosition = Folge[Nächster] + 1;
            return true;
        }
        return false;
    }

  private:
    std::vector<Satznummer> Gemerkt;
    std::vector<std::size_t> Folge;  // places in Gemerkt, ordered by record number
    std::size_t Nächster = 0;        // in Folge
    std::size_t ListeMarkierungPosition = 0;
};

// The selected records that the index still holds.
std::vector<Satznummer> AuswahlMerken(Liste& Ziel, const Katalog& Index) {
    std::vector<Satznummer> Gemerkt = std::move(Ziel.Auswahl);
    Ziel.Auswahl.clear();
    if (Ziel.ListeMarkierungenVerwerfen) Gemerkt.clear();
    Ziel.ListeMarkierungenVerwerfen = false;
    std::erase_if(Gemerkt, [&](Satznummer Nummer) { return Nummer > Index.IndexAnzahl(); });
    return Gemerkt;
}

void ErstellenMelden(Protokoll& Log, const Uhr& Zeit, Satznummer Von, Satznummer Bis, std::size_t Spalten,
                     std::size_t Markierungen) {
    if (!Log.Aktiv()) return;
    Log.Schreiben("ListeErstellen: Erstelle Liste (Datensätze " + std::to_string(Von) + " bis " +
                  std::to_string(Bis) + ", " + std::to_string(Spalten) + " Spalten, " +
                  std::to_string(Markierungen) + " Markierungen) " + ZeitText(Zeit.Jetzt()));
}

// The marked records between the bounds, in their order.
void ZeilenFüllen(std::vector<Satznummer>& Zeilen, const Katalog& Index) {
    Zeilen.clear();
    if (Index.IndexAnzahl() == 0 || Index.ErsterTreffer < 1) return;
    const Satznummer Bis = std::min(Index.LetzterTreffer, Index.IndexAnzahl());
    if (Bis < Index.ErsterTreffer) return;
    // Every number is written, and stays only if it is marked: no branch that a mixed result could mislead.
    Zeilen.resize(static_cast<std::size_t>(Bis - Index.ErsterTreffer) + 1);
    std::size_t Anzahl = 0;
    for (Satznummer Nummer = Index.ErsterTreffer; Nummer <= Bis; ++Nummer) {
        Zeilen[Anzahl] = Nummer;
        Anzahl += Index.IndexTreffer[static_cast<std::size_t>(Nummer - 1)] > 0 ? 1U : 0U;
    }
    Zeilen.resize(Anzahl);
}

}  // namespace

void ListeErstellen(Liste& Ziel, const Katalog& Index, Protokoll& Log, const Uhr& Zeit) {
    Auswahlgedächtnis Gedächtnis(AuswahlMerken(Ziel, Index));
    ErstellenMelden(Log, Zeit, Index.ErsterTreffer, Index.LetzterTreffer, Ziel.Spalten.size(),
                    Gedächtnis.ListeMarkierungenAnzahl());
    ZeilenFüllen(Ziel.Zeilen, Index);
    if (Gedächtnis.ListeMarkierungenAnzahl() > 0) {
        for (const Satznummer Nummer : Ziel.Zeilen) {
            if (Gedächtnis.Wiederfinden(Nummer)) Ziel.Auswahl.push_back(Nummer);
        }
    }
    if (Log.Aktiv()) Log.Schreiben("ListeErstellen: Entferne Überzählige Einträge " + ZeitText(Zeit.Jetzt()));
}

void ListeVollständigErstellen(Liste& Ziel, const std::vector<Satznummer>& Datensätze, Protokoll& Log,
                               const Uhr& Zeit) {
    ErstellenMelden(Log, Zeit, 1, static_cast<Satznummer>(Datensätze.size()), Ziel.Spalten.size(), 0);
    Ziel.Zeilen = Datensätze;
    Ziel.Auswahl.clear();
}

void ListeAnhängen(Liste& Ziel, Katalog& Index, Satznummer Ab) {
    const Satznummer Anzahl = Index.IndexAnzahl();
    if (Ab < 1 || Ab > Anzahl) return;
    Index.IndexTreffer.resize(static_cast<std::size_t>(Anzahl));
    std::fill(Index.IndexTreffer.begin() + (Ab - 1), Index.IndexTreffer.end(), std::int16_t{1});
    if (Index.ErsterTreffer < 1) Index.ErsterTreffer = 1;
    Index.LetzterTreffer = Anzahl;
    const std::size_t Vorher = Ziel.Zeilen.size();
    Ziel.Zeilen.resize(Vorher + static_cast<std::size_t>(Anzahl - Ab + 1));
    std::iota(Ziel.Zeilen.begin() + static_cast<std::ptrdiff_t>(Vorher), Ziel.Zeilen.end(), Ab);
}

std::string Listenzelle(const Liste& Quelle, const Katalog& Index, std::size_t Zeile, std::size_t Spalte) {
    std::string Wert;
    Feldtyp Typ{};
    if (Zeile < Quelle.Zeilen.size() && Spalte < Quelle.Spalten.size())
        FeldWert(Index, Quelle.Zeilen[Zeile], Spaltenfeld(Quelle.Spalten[Spalte]), Wertform::Anzeigen,
                 Index.Optionen.SpaltenBeideTags == 1, Wert, Typ);
    return Wert;
}

std::string StatusText(const Liste& Quelle, const Katalog& Index) {
    std::size_t Gesamt = static_cast<std::size_t>(Index.IndexAnzahl());
    std::size_t Gefunden = Quelle.Zeilen.size();
    if (Index.Programmmodus != ModusDateimanager) {
        return std::to_string(Gesamt) + " Datei(en) im Index\n" + std::to_string(Gefunden) +
               " Datei(en) gefunden";
    }
    if (const Satznummer Eltern = ElternEintrag(Index); Eltern != 0) {
        --Gesamt;
        if (std::find(Quelle.Zeilen.begin(), Quelle.Zeilen.end(), Eltern) != Quelle.Zeilen.end()) --Gefunden;
    }
    return std::to_string(Gesamt) + " Datei(en)/Ordner gesamt\n" + std::to_string(Gefunden) +
           " Datei(en)/Ordner gefunden";
}

std::string AuswahlText(std::size_t AuswahlAnzahl, const Katalog& Index) {
    if (AuswahlAnzahl == 1) return {};
    if (AuswahlAnzahl > 1) return "Es wurden " + std::to_string(AuswahlAnzahl) + " Dateien gewählt.";
    return Index.IndexAnzahl() == 0
               ? "Fügen Sie Dateien zum Index hinzu, um dieses Programm zu nutzen."
               : "Markieren Sie eine Datei, um ihre Beschreibung anzuzeigen und weitere Funktionen zu "
                 "aktivieren.";
}

Satznummer ElternEintrag(const Katalog& Index) {
    if (Index.Programmmodus != ModusDateimanager) return 0;
    std::string Ordner = MitTrenner(Index.IndexDateiname);
    if (!Ordner.empty()) Ordner.pop_back();
    const std::string Eltern = MitTrenner(PfadVon(Ordner));
    if (Eltern.empty()) return 0;
    for (Satznummer Nummer = 1; Nummer <= Index.IndexAnzahl(); ++Nummer) {
        if (PfadeGleich(MitTrenner(Index.Sätze.Pfad(Nummer)), Eltern)) return Nummer;
    }
    return 0;
}

}  // namespace liedwerk
