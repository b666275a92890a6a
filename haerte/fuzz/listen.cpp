// Play lists, and new names and tags by formats.
#include "basis/pfad.h"
#include "basis/uri.h"
#include "dateien/playlisten.h"
#include "fuzz/ziel.h"
#include "medien/autotag.h"
#include "medien/umbenennplan.h"

namespace liedwerk::fuzz {
namespace {

// A name that the rename itself must be able to take.
void NamenPrüfen(const Namensplan& Plan) {
    Fordern(Plan.Neu.empty() != Plan.Hindernis.empty(), "Ein Plan hat einen Namen oder ein Hindernis");
    Fordern(Plan.Neu.find('\0') == std::string::npos, "Ein neuer Name hat kein NUL");
}

}  // namespace

void PlaylistePrüfen(std::string_view Eingabe) {
    if (Eingabe.empty()) return;
    constexpr Listenart Arten[] = {Listenart::M3u, Listenart::Pls, Listenart::Namen};
    const auto Art = Arten[static_cast<unsigned char>(Eingabe.front()) % std::size(Arten)];
    Eingabe.remove_prefix(1);
    const Listenort Ort{Ablage(), "/"};
    Namensfunde Funde;
    ListeZerlegen(Eingabe, Art, [&](const Listenname& Name, std::size_t Gelesen) {
        Fordern(Gelesen <= Eingabe.size(), "Eine Liste wird nicht über ihr Ende hinaus gelesen");
        Fordern(Name.Text.find_first_of(std::string_view("\r\n\0", 3)) == std::string::npos,
                "Ein Name aus einer Liste hat kein Zeilenende und kein NUL");
        // Looks for a name on the disk many times over; a few of them show what there is to see.
        if (Funde.Zeilen.size() < 8) {
            if (auto Fund = NamenAuflösen(Name, Ort)) Funde.Zeilen.push_back(*Fund);
        }
        return true;
    });
    NamenKorrigieren(Funde, {"/a/x.mp3", "C:\\b\\X.MP3"});

    PfadAusUri(Eingabe);
    Gleich("Eine Adresse kommt wieder", Eingabe, ProzentAuflösen(ProzentKodieren(Eingabe)));
}

void NamensplanPrüfen(std::string_view Eingabe) {
    const auto Teile = Stücke(Eingabe, 4);
    Datensatz Satz;
    Satz.HatId3v1 = Satz.HatId3v2 = TagVorhanden;
    Satz.Titel = Satz.V2Titel = Teile[0];
    Satz.Interpret = Satz.V2Interpret = Teile[1];
    Katalog Index;
    for (const std::string_view Pfad : {"/m/alt.mp3", "C:\\m\\alt.mp3"}) {
        const Satznummer Nummer = SatzAnhängen(Index, Pfad, Satz);
        const auto Plan = NamePlanenNachFormat(Index, Nummer, "%Interpret% - %Titel%");
        NamenPrüfen(Plan);
        if (!Plan.Neu.empty())
            Gleich("Kein Tag entscheidet, wohin eine Datei geht", PfadVon(Pfad), PfadVon(Plan.Neu));
        NamenPrüfen(NamePlanenNachFormat(Index, Nummer, Teile[2]));
        NamenPrüfen(NamePlanenErsetzt(Pfad, Teile[2], Teile[3], false));
        NamenPrüfen(NamePlanenErsetzt(Pfad, Teile[2], Teile[3], true));
        for (int Wahl = 0; Wahl <= static_cast<int>(Namensschreibweise::KleinWörterGroß); ++Wahl)
            NamenPrüfen(NamePlanenInSchreibweise(Pfad, static_cast<Namensschreibweise>(Wahl)));
        NamenPrüfen(NamePlanenMitEndung(Pfad, Teile[3]));
        NamenPrüfen(NamePlanenEingegeben(Pfad, Teile[3]));
        std::string Zähler(Teile[1].substr(0, 20));
        NamenPrüfen(FortlaufendenNamenBilden(Pfad, Teile[0], Zähler, Teile[3],
                                             [](std::string_view Neu) { return Neu.size() % 2 != 0; }));
    }
    const Einstellungen Werte;
    Tagverzeichnis Verzeichnis;
    Datensatz Ergebnis;
    AutoTagAusführen({Index, Werte, Verzeichnis}, Teile[3], Teile[2], Ergebnis, {}, AutoTagZiel::Beide);
    AutoTagAusführen({Index, Werte, Verzeichnis}, Teile[3], "%automatik%", Ergebnis, {}, AutoTagZiel::Beide);
}

}  // namespace liedwerk::fuzz
