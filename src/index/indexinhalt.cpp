#include "index/indexinhalt.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <string>

#include "basis/kerne.h"
#include "index/indexformat.h"
#include "index/indexzeilen.h"
#include "index/optionszeilen.h"
#include "index/satzzeile.h"
#include "index/wert.h"
#include "index/zeilenlaengen.h"

namespace liedwerk {
namespace {

// Takes the lines over that need a closer look, and gathers the slots of all records in order.
class Übernahme {
  public:
    Übernahme(Katalog& Ziel, const Inhaltsauftrag& Auftrag)
        : Index(Ziel), Log(Auftrag.Log), MitDatensätzen(Auftrag.MitDatensätzen) {}

    void TeilÜbernehmen(Zeilenteil& Teil) {
        Unvollständig |= Teil.Unvollständig;
        if (Plätze.empty() && Teil.Sonderzeilen.empty()) {
            Plätze = std::move(Teil.Plätze);
            return;
        }
        std::size_t Genommen = 0;
        const auto BisHierher = [&](std::size_t Ende) {
            const auto Anfang = Teil.Plätze.begin();
            Plätze.insert(Plätze.end(), Anfang + static_cast<std::ptrdiff_t>(Genommen),
                          Anfang + static_cast<std::ptrdiff_t>(Ende));
            Genommen = Ende;
        };
        for (const Sonderzeile& Zeile : Teil.Sonderzeilen) {
            BisHierher(Zeile.Davor);
            ZeileÜbernehmen(Zeile.Zeile, Zeile.Nummer);
        }
        BisHierher(Teil.Plätze.size());
    }

    void ZeileÜbernehmen(std::string_view Zeile, std::int64_t Nummer) {
        if (MitDatensätzen && Zeile.starts_with(Datenzeile)) return SatzÜbernehmen(Zeile, Nummer);
        if (Zeile.starts_with(Optionszeile)) return OptionÜbernehmen(Zeile, Nummer);
        if (Zeile.starts_with(Terminzeile)) return TerminÜbernehmen(Zeile, Nummer);
        Beanstanden("Ungültige Zeile", Zeile, Nummer, "'");
    }

    std::vector<Satzspeicher::Platz> Plätze;
    bool Unvollständig = false;

  private:
    void SatzÜbernehmen(std::string_view Zeile, std::int64_t Nummer) {
        const auto Längen = LängenLesen(Zeile, Datenzeile.size(), FeldAnzahl);
        if (!Längen.Stimmt(Zeile))
            PrüfsummeBeanstanden(Zeile, Nummer, Längen, "Checksumme der Zeile", "Lesen");
        if (Längen.Strich == 0) return;
        std::string Pfad;
        Datensatz Satz = DatensatzVorZeile();
        WerteSchneiden(Zeile, Längen, FeldAnzahl, [&](std::string_view Wert, int Feld) {
            // A lone CR or LF would not outlive the next save either.
            const std::string Text = IndexwertLesen(IndexwertEinpassen(Wert, Wert.size()));
            if (Feld == FeldPfad) {
                Pfad = Text;
            } else {
                DatensatzFeldSetzen(Feld == FeldV2Qualität ? IndexwertLesen(Wert) : Text, Satz, Feld);
            }
        });
        Unvollständig |= Satz.HinzufügeDatum.empty() || Satz.Größe == -1 || Satz.Dateityp < 0;
        Plätze.push_back(Index.Sätze.Ablegen(Pfad, Satz));
    }

    void TerminÜbernehmen(std::string_view Zeile, std::int64_t Nummer) {
        const auto Längen = LängenLesen(Zeile, Terminzeile.size(), TerminLängenAnzahl);
        if (!Längen.Stimmt(Zeile)) PrüfsummeBeanstanden(Zeile, Nummer, Längen, "Checksumme", "Termine");
        if (Längen.Strich == 0) return;
        for (std::int64_t i = 0; i < Längen.Überzählige; ++i) {
            if (!Log.Aktiv()) break;
            Log.Schreiben("DateiLaden: Zeile " + std::to_string(Nummer) +
                          " - Datenfeld nicht erkannt, da neuer (Termine)");
        }
        Termin Neuer;
        WerteSchneiden(Zeile, Längen, TerminLängenAnzahl, [&](std::string_view Wert, int Feld) {
            TerminFeldSetzen(Neuer, IndexwertLesen(Wert), Feld);
        });
        Index.Termine.push_back(Neuer);
    }

    void OptionÜbernehmen(std::string_view Zeile, std::int64_t Nummer) {
        OptionszeileLesen(Index.Optionen, Zeile,
                          [&](std::string_view Mangel) { Beanstanden(Mangel, Zeile, Nummer, ""); });
    }

    void Beanstanden(std::string_view Mangel, std::string_view Zeile, std::int64_t Nummer,
                     std::string_view Strich) {
        if (!Log.Aktiv()) return;
        std::string Text = "DateiLaden: ";
        Text.append(Mangel).append(" - ").append(Strich).append(IndexwertLesen(Zeile)).append(Strich);
        Log.Schreiben(Text + "/" + std::to_string(Nummer));
    }

    // Kept: the computed value that is logged is one too small.
    void PrüfsummeBeanstanden(std::string_view Zeile, std::int64_t Nummer, const Zeilenlängen& Längen,
                              std::string_view Name, std::string_view Art) {
        if (!Log.Aktiv()) return;
        std::string Text = "DateiLaden: Fehler in Zeile " + std::to_string(Nummer) + " - ";
        Text.append(Name).append(" ist ").append(std::to_string(Längen.Prüfwert() - 1));
        Text.append(" statt ").append(std::to_string(Zeile.size())).append(" (").append(Art);
        Log.Schreiben(Text.append("), Zeile = '").append(IndexwertLesen(Zeile)).append("'"));
    }

    Katalog& Index;
    Protokoll& Log;
    bool MitDatensätzen;
};

// The lines in front of the first data line, as a save puts them; Stelle moves behind them.
void KopfzeilenÜbernehmen(Übernahme& Ziel, std::string_view Inhalt, bool NurLf, std::size_t& Stelle,
                          std::int64_t& Nummer) {
    while (Stelle < Inhalt.size() && !Inhalt.substr(Stelle).starts_with(Datenzeile)) {
        bool Abgeschlossen = false;
        const std::string_view Zeile = ZeileNehmen(Inhalt, Stelle, NurLf, Abgeschlossen);
        if (Abgeschlossen) ++Nummer;
        Ziel.ZeileÜbernehmen(Zeile, Nummer);
    }
}

bool ZeileIstHeil(std::string_view Zeile, bool Vollständig) {
    if (Zeile.starts_with(Datenzeile)) return LängenLesen(Zeile, Datenzeile.size(), FeldAnzahl).Stimmt(Zeile);
    if (Zeile.starts_with(Terminzeile)) {
        return LängenLesen(Zeile, Terminzeile.size(), TerminLängenAnzahl).Stimmt(Zeile);
    }
    return !Vollständig || Zeile.starts_with(Optionszeile);
}

// Fills Ziel from the file's beginning. More than half of the time of a big read goes into memory that the
// system has to clean first, and that every core can do for itself. Each takes the next piece, so that a disk
// is still read from front to back.
bool AufKernenLesen(const Lesedatei& Datei, char* Ziel, std::size_t Länge) {
    constexpr std::size_t Stück = std::size_t{4} << 20;
    std::atomic<std::size_t> Nächstes = 0;
    std::atomic<bool> Ganz = true;
    const auto Lesen = [&](std::size_t, std::size_t, std::size_t) {
        while (Ganz) {
            const std::size_t Stelle = Nächstes.fetch_add(Stück);
            if (Stelle >= Länge) return;
            const std::size_t Umfang = std::min(Stück, Länge - Stelle);
            if (Datei.Lesen(Ziel + Stelle, Stelle, Umfang) != Umfang) Ganz = false;
        }
    };
    AufKerneVerteilen(Länge / Stück + 1, 1, Lesen);
    return Ganz;
}

}  // namespace

std::optional<Indexblock> IndexblockLesen(const Lesedatei& Datei) {
    Indexblock Block;
    Block.Länge = static_cast<std::size_t>(Datei.Größe());
    Block.Bytes = std::make_unique_for_overwrite<char[]>(Block.Länge + Zeilenende.size());
    if (!AufKernenLesen(Datei, Block.Bytes.get(), Block.Länge)) return std::nullopt;
    // Every line of the store can be written together with what follows it.
    std::memcpy(Block.Bytes.get() + Block.Länge, Zeilenende.data(), Zeilenende.size());
    return Block;
}

ErsteZeile ErsteZeileLesen(std::string_view Inhalt) {
    ErsteZeile Ergebnis;
    const std::size_t Ende = Inhalt.find('\n');
    Ergebnis.NurLf = Ende != Inhalt.npos && !Inhalt.substr(0, Ende).ends_with('\r');
    bool Abgeschlossen = false;
    Ergebnis.Text = ZeileNehmen(Inhalt, Ergebnis.Dahinter, Ergebnis.NurLf, Abgeschlossen);
    return Ergebnis;
}

bool IndexzeilenÜbernehmen(Katalog& Index, Indexblock Block, const Inhaltsauftrag& Auftrag) {
    const std::string_view Inhalt = Block.Inhalt();
    const ErsteZeile Erste = ErsteZeileLesen(Inhalt);
    Index.Sätze.BlockÜbernehmen(std::move(Block.Bytes), Block.Länge);
    Übernahme Ziel(Index, Auftrag);
    std::size_t Stelle = Erste.Dahinter;
    Zeilenauftrag Walk;
    KopfzeilenÜbernehmen(Ziel, Inhalt, Erste.NurLf, Stelle, Walk.ErsteNummer);
    Walk.Inhalt = Inhalt.substr(Stelle);
    Walk.NurLf = Erste.NurLf;
    Walk.MitDatensätzen = Auftrag.MitDatensätzen;
    if (Auftrag.Zeigen) Walk.Zeigen = [&](std::size_t Gelesen) { Auftrag.Zeigen(Stelle + Gelesen); };
    ZeilenDurchgehen(Walk, [&](Zeilenteil& Teil) { Ziel.TeilÜbernehmen(Teil); });
    Index.Sätze.PlätzeÜbernehmen(std::move(Ziel.Plätze));
    return Ziel.Unvollständig;
}

void PfadzeilenÜbernehmen(Katalog& Index, const Indexblock& Block) {
    const std::string_view Inhalt = Block.Inhalt();
    const ErsteZeile Erste = ErsteZeileLesen(Inhalt);
    Datensatz Unbekannt;
    Unbekannt.V2Qualität = KeineV2Qualität;
    for (std::size_t Stelle = Erste.Dahinter; Stelle < Inhalt.size();) {
        bool Abgeschlossen = false;
        const std::string_view Zeile = ZeileNehmen(Inhalt, Stelle, Erste.NurLf, Abgeschlossen);
        if (Zeile.empty() || Zeile.starts_with(Datenzeile)) continue;
        Index.Sätze.Anhängen(IndexwertLesen(Zeile), Unbekannt);
    }
}

bool IstIndexdatei(const std::string& Pfad) {
    const Lesedatei Datei = Lesedatei::Öffnen(Pfad);
    return Datei.Offen() && Datei.Lesen(0, IndexVersionAnfang.size()) == IndexVersionAnfang;
}

bool IndexdateiIstHeil(std::string_view Pfad, bool Vollständig) {
    const Lesedatei Datei = Lesedatei::Öffnen(Pfad);
    if (!Datei.Offen()) return false;
    const auto Block = IndexblockLesen(Datei);
    if (!Block) return false;
    const std::string_view Inhalt = Block->Inhalt();
    const ErsteZeile Erste = ErsteZeileLesen(Inhalt);
    if (!Erste.Text.starts_with(IndexVersionAnfang)) return false;
    if (Vollständig && (Erste.Text != IndexVersionAktuell || !Inhalt.ends_with(Zeilenende))) return false;
    bool Heil = true;
    Zeilenauftrag Walk;
    Walk.Inhalt = Inhalt.substr(Erste.Dahinter);
    Walk.NurLf = Erste.NurLf;
    ZeilenDurchgehen(Walk, [&](Zeilenteil& Teil) {
        for (const Sonderzeile& Zeile : Teil.Sonderzeilen)
            Heil = Heil && ZeileIstHeil(Zeile.Zeile, Vollständig);
    });
    return Heil;
}

}  // namespace liedwerk
