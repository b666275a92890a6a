#include "index/nachlesen.h"

namespace liedwerk {
namespace {

// Why a record is read again, and what is read.
struct Anlass {
    std::string Code;
    std::string Logzeile;
};

std::optional<Anlass> AnlassFinden(const Katalog& Index, Satznummer Nummer, const std::string& Mp3TagLesen) {
    const auto& Sätze = Index.Sätze;
    const std::uint8_t HatId3v1 = Sätze.HatId3v1(Nummer);
    // A file of unknown form gives paths only; their records have been touched by nothing.
    if (Index.Formatstand == -1 && (HatId3v1 == TagFehlt || HatId3v1 == TagUnberührt)) {
        return Anlass{
            Mp3TagLesen.substr(0, 3) + Mp3TagLesen.substr(std::min<std::size_t>(1, Mp3TagLesen.size()), 1),
            "DateiLaden: Lese Infos der Datei '" + Sätze.Pfad(Nummer) + "' wegen Update"};
    }
    const Satzsicht Satz = Sätze.Sicht(Nummer);
    const std::int64_t Größe = Sätze.Zahl(Nummer, FeldGröße);
    if (!Satz.Roh(FeldHinzufügeDatum).empty() && Größe != -1 && Sätze.Zahl(Nummer, FeldDateityp) >= 0) {
        return std::nullopt;
    }
    return Anlass{"00" + Mp3TagLesen.substr(std::min<std::size_t>(2, Mp3TagLesen.size()), 1) + "0",
                  "DateiLaden: Lese Infos der Datei '" + Sätze.Pfad(Nummer) + "' wegen fehlender Daten - " +
                      std::to_string(HatId3v1) + "/" + std::to_string(Größe) + "/" +
                      Sätze.Text(Nummer, FeldHinzufügeDatum)};
}

}  // namespace

void FehlendesNachlesen(Katalog& Index, const Einstellungen& Werte, const Indexumgebung& Umgebung,
                        bool MitFortschritt) {
    constexpr int Überspringen = 1;
    constexpr int Abbrechen = 2;
    bool Geöffnet = false;
    for (Satznummer Nummer = 1; Nummer <= Index.IndexAnzahl(); ++Nummer) {
        const auto Anlass = AnlassFinden(Index, Nummer, Werte.Mp3TagLesen);
        if (!Anlass) continue;
        const std::string Pfad = Index.Sätze.Pfad(Nummer);
        Umgebung.Log.Schreiben(Anlass->Logzeile);
        if (MitFortschritt && !Geöffnet) {
            Umgebung.Person.FortschrittStarten("Datei-Informationen lesen", true, Index.IndexAnzahl());
            Geöffnet = true;
        }
        if (MitFortschritt && !Umgebung.Person.FortschrittZeigen(Pfad, Nummer)) {
            Umgebung.Log.Schreiben("DateiLaden: Abbruch");
            return;
        }
        const int Stand = Umgebung.VerfügbarkeitPrüfen ? Umgebung.VerfügbarkeitPrüfen(Index, Nummer) : 0;
        if (Stand == Überspringen) continue;
        if (Stand == Abbrechen) return;
        const Leseauftrag Auftrag{Lesecode::Lesen(Anlass->Code), true, true, true};
        Index.Sätze.Setzen(Nummer, Pfad, Umgebung.Leser(Pfad, Index.Sätze.Lesen(Nummer), Auftrag));
        Index.IndexGeändert = true;
    }
}

}  // namespace liedwerk
