// Sound data: MPEG files with all their tags, Wave and Ogg.
#include "basis/jsontext.h"
#include "basis/text.h"
#include "fuzz/ziel.h"
#include "index/felder.h"
#include "index/satzspeicher.h"
#include "index/satzzeile.h"
#include "medien/infotext.h"
#include "medien/medienlesen.h"
#include "medien/wave.h"
#include "plattform/speicher/person.h"
#include "plattform/speicher/welt.h"

namespace liedwerk::fuzz {
namespace {

// Reads a file as adding it to the index does, and puts the record into a store and takes it out again.
void Lesen(std::string_view Name, std::string_view Eingabe, bool TAGsModern) {
    const std::string Pfad = DateiLegen(Name, Eingabe);
    const speicher::StehendeUhr Uhr;
    Medienumgebung Umgebung;
    Umgebung.Dateitypen = &DateitypenVorgabe();
    Umgebung.TAGsModern = TAGsModern;
    Umgebung.Zeit = &Uhr;
    speicher::Protokollliste Log;
    Umgebung.Log = &Log;
    const Leseauftrag Auftrag{Lesecode::Lesen("1111"), true, true, false};
    const Datensatz Satz = MedienDatenLesen(Umgebung, Pfad, {}, Auftrag);
    // The frames are counted by the size that the record had before, so only the second reading knows all.
    const Datensatz Zweimal = MedienDatenLesen(Umgebung, Pfad, Satz, Auftrag);
    Gleich("Noch einmal gelesen ist wie gelesen", Zweimal,
           MedienDatenLesen(Umgebung, Pfad, Zweimal, Auftrag));

    const auto Information = DateiinformationBilden(Pfad, Satz, true);
    Fordern(IstUtf8(JsonText(Information.Info + Information.Id3v1 + Information.Id3v2 + Information.Lyrics)),
            "Die Dateiinformation ist gültiges JSON");

    Satzspeicher Sätze;
    Sätze.Anhängen(Pfad, Satz);
    const Datensatz Wieder = Sätze.Lesen(1);
    for (int Feld = FeldPfad + 1; Feld <= FeldAnzahl; ++Feld)
        Gleich("Der Index hält, was gelesen wurde", Rohwert(Satz, Feld), Rohwert(Wieder, Feld));
}

}  // namespace

void KlangPrüfen(std::string_view Eingabe) {
    Lesen("x.mp3", Eingabe, false);
    Lesen("x.mp3", Eingabe, true);
}

void WavePrüfen(std::string_view Eingabe) {
    Lesen("x.wav", Eingabe, false);
    // Any length of the file with this head.
    std::uint64_t Dateilänge = 0;
    for (const char Byte : Eingabe.substr(0, 8))
        Dateilänge = Dateilänge * 256 + static_cast<unsigned char>(Byte);
    Datensatz Satz;
    bool Unbekannt = false;
    WavHeaderLesen(Eingabe.substr(std::min<std::size_t>(8, Eingabe.size())), Dateilänge, Satz, Unbekannt);
}

void OggPrüfen(std::string_view Eingabe) {
    Lesen("x.ogg", Eingabe, false);
}

}  // namespace liedwerk::fuzz
