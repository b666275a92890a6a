#include "fuzz/ziel.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>

#include "basis/datei.h"
#include "basis/jsontext.h"
#include "index/felder.h"
#include "index/satzzeile.h"

namespace liedwerk::fuzz {
namespace {

namespace fs = std::filesystem;

constexpr std::array<Ziel, 24> Ziele = {{
    {"index", IndexPrüfen},
    {"bestand", BestandPrüfen},
    {"felderaustausch", FelderaustauschPrüfen},
    {"einstellungen", EinstellungenPrüfen},
    {"kommandozeile", KommandozeilePrüfen},
    {"klang", KlangPrüfen},
    {"wave", WavePrüfen},
    {"ogg", OggPrüfen},
    {"id3v1", Id3v1Prüfen},
    {"id3v2", Id3v2Prüfen},
    {"id3v2modern", Id3v2ModernPrüfen},
    {"lyrics", LyricsPrüfen},
    {"rettung", RettungPrüfen},
    {"playliste", PlaylistePrüfen},
    {"namensplan", NamensplanPrüfen},
    {"xmcd", XmcdPrüfen},
    {"cdspeicher", CDSpeicherPrüfen},
    {"cddb", CddbPrüfen},
    {"http", HttpPrüfen},
    {"cdabbild", CDAbbildPrüfen},
    {"suche", SuchePrüfen},
    {"spieler", SpielerPrüfen},
    {"ablage", AblagePrüfen},
    {"werte", WertePrüfen},
}};

const Ziel* Gewählt = nullptr;

class Ordnerhalter {
  public:
    Ordnerhalter() {
        const char* Vorgabe = std::getenv("TMPDIR");
        const fs::path Oben = Vorgabe != nullptr ? Vorgabe : "/dev/shm";
        std::random_device Zufall;
        while (
            !fs::create_directory(Pfad = (Oben / ("liedwerk-fuzz-" + std::to_string(Zufall()))).string())) {
        }
    }
    Ordnerhalter(const Ordnerhalter&) = delete;
    Ordnerhalter& operator=(const Ordnerhalter&) = delete;
    ~Ordnerhalter() {
        std::error_code Egal;
        fs::remove_all(Pfad, Egal);
    }
    std::string Pfad;
};

}  // namespace

void Verletzt(std::string_view Regel, std::string_view Erwartet, std::string_view Gefunden) {
    std::fprintf(stderr, "Verletzt: %s\n  erwartet: %s\n  gefunden: %s\n", std::string(Regel).c_str(),
                 JsonText(Erwartet).c_str(), JsonText(Gefunden).c_str());
    std::abort();
}

void Fordern(bool Erfüllt, std::string_view Regel) {
    if (!Erfüllt) Verletzt(Regel, "ja", "nein");
}

void Gleich(std::string_view Regel, std::string_view Erwartet, std::string_view Gefunden) {
    if (Erwartet != Gefunden) Verletzt(Regel, Erwartet, Gefunden);
}

void Gleich(std::string_view Regel, const Datensatz& Erwartet, const Datensatz& Gefunden) {
    if (Erwartet == Gefunden) return;
    for (const auto& Feld : Felder) {
        if (Feld.Nummer == FeldPfad) continue;
        Gleich(std::string(Regel) + ", " + std::string(Feld.Name), Rohwert(Erwartet, Feld.Nummer),
               Rohwert(Gefunden, Feld.Nummer));
    }
    const auto OhneNummer = [](const Datensatz& Satz) {
        return Satz.TagKennung + "|" + Satz.Id3v2WeitereFelder + "|" + Satz.LyricsText + "|" +
               Satz.LyricsWeitereFelder + "|" + std::to_string(Satz.Id3v2Position) + "|" +
               std::to_string(Satz.Id3v2Benutzt) + "|" + std::to_string(Satz.HatId3v1) +
               std::to_string(Satz.HatId3v2) + std::to_string(Satz.HatLyrics);
    };
    Verletzt(Regel, OhneNummer(Erwartet), OhneNummer(Gefunden));
}

const std::string& Ablage() {
    static const Ordnerhalter Halter;
    return Halter.Pfad;
}

std::string DateiLegen(std::string_view Name, std::string_view Bytes) {
    std::string Pfad = Ablage() + "/" + std::string(Name);
    std::ofstream(Pfad, std::ios::binary | std::ios::trunc).write(Bytes.data(), std::ssize(Bytes));
    return Pfad;
}

std::string DateiInhalt(std::string_view Pfad) {
    auto Inhalt = DateiLesen(Pfad);
    Fordern(Inhalt.has_value(), "Die Datei ist lesbar");
    return std::move(*Inhalt);
}

std::vector<std::string_view> Stücke(std::string_view Eingabe, std::size_t Anzahl) {
    std::vector<std::string_view> Ergebnis;
    while (Ergebnis.size() + 1 < Anzahl) {
        const std::size_t Ende = std::min(Eingabe.find('\0'), Eingabe.size());
        Ergebnis.push_back(Eingabe.substr(0, Ende));
        Eingabe.remove_prefix(std::min(Ende + 1, Eingabe.size()));
    }
    Ergebnis.push_back(Eingabe);
    return Ergebnis;
}

}  // namespace liedwerk::fuzz

// Chooses the target; without a name it lists them all.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
    using namespace liedwerk::fuzz;
    const char* Name = std::getenv("LIEDWERK_FUZZ_ZIEL");
    if (Name == nullptr) {
        for (const Ziel& Eines : Ziele)
            std::printf("%s\n", std::string(Eines.Name).c_str());
        std::exit(0);
    }
    const auto* Fund = std::ranges::find(Ziele, std::string_view(Name), &Ziel::Name);
    if (Fund == Ziele.end()) {
        std::fprintf(stderr, "LIEDWERK_FUZZ_ZIEL: unbekanntes Ziel '%s'\n", Name);
        std::exit(2);
    }
    Gewählt = Fund;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Bytes, std::size_t Länge) {
    liedwerk::fuzz::Gewählt->Prüfen({reinterpret_cast<const char*>(Bytes), Länge});
    return 0;
}
