// A temporary folder, a scripted person and a standing clock around the index.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

#include "index/schreiber.h"
#include "index/sicherungskopien.h"
#include "index/wert.h"
#include "plattform/linux/ordner.h"
#include "plattform/speicher/person.h"
#include "plattform/speicher/welt.h"

namespace liedwerk {

namespace fs = std::filesystem;

// The example of the format, with its values.
inline const std::string Beispielzeile =
    "#TAG:12//4//////4//3/2/5/1/1/10/1/6/1/|C:\\mp3\\a.mp3ABBA123412875441000001.02.20031Stereo0";

// The example with values replaced by others, lengths in step.
inline std::string ZeileMit(const std::vector<std::pair<int, std::string>>& Ersatz, std::size_t Anzahl = 20) {
    std::vector<std::string> Werte = {
        "C:\\mp3\\a.mp3", "",  "ABBA", "",           "",  "",       "",  "", "1234", "", "128", "75",
        "44100",          "0", "0",    "01.02.2003", "1", "Stereo", "0", ""};
    Werte.resize(Anzahl);
    if (Anzahl > 40) {
        Werte[35] = "0";
        Werte[40] = "\x80";
        Werte[42] = "0";
    }
    for (const auto& [Feld, Wert] : Ersatz)
        Werte[static_cast<std::size_t>(Feld - 1)] = Wert;
    std::string Längen = "#TAG:";
    std::string Text;
    for (const auto& Wert : Werte) {
        Längen += (Text.empty() && Längen == "#TAG:" ? "" : "/") +
                  (Wert.empty() ? "" : std::to_string(Wert.size()));
        Text += Wert;
    }
    return Längen + "|" + Text;
}

// The lines of an index with all default options, as a save writes them.
inline std::string Kopf(std::string_view Vorn = "") {
    std::string Text = "#TAG:lw102\r\n";
    Text.append(Vorn).append("#OPT:SYNC_ENTFERNEN=1\r\n#OPT:SYNC_NICHTBEI=_INCOMPLETE_\r\n");
    for (const auto& [Eintrag, Schalter] : DateitypenVorgabe()) {
        Text.append("#OPT:VERWALTEN=").append(Eintrag).append(",").append(Schalter).append("\r\n");
    }
    return Text +
           "#OPT:SPALTEN_LEISTE=1\r\n#OPT:SPALTEN_GITTER=0\r\n#OPT:SPALTEN_SYMBOLE=1\r\n#OPT:SPALTEN=0\r\n"
           "#OPT:SPALTEN_NUTZERFORMAT=%Interpret% - %Titel%\r\n#OPT:SPALTEN_BEIDETAGS=1\r\n";
}

class Indextest : public testing::Test {
  protected:
    void SetUp() override {
        std::string Muster = (fs::temp_directory_path() / "liedwerk-index-XXXXXX").string();
        ASSERT_NE(::mkdtemp(Muster.data()), nullptr);
        Ordner = Muster;
        Datei = Ordner + "/a.lwi";
    }
    void TearDown() override { fs::remove_all(Ordner); }

    Indexumgebung Umgebung() { return {Person, Log, Uhr, Ordnerleser, Ordner, Leser, Verfügbarkeit}; }
    Ladeergebnis Laden(const std::string& Name, int Modus = 1, bool Still = false) {
        const auto Ergebnis = DateiLaden(Index, Werte, Umgebung(), Name, false, Still, Modus);
        Index.Programmmodus = static_cast<std::int16_t>(Ergebnis);
        return Ergebnis;
    }
    Ladeergebnis InhaltLaden(const std::string& Inhalt) {
        Ablegen(Datei, Inhalt);
        return Laden(Datei);
    }
    Speicherergebnis Speichern() { return DateiSpeichern(Index, Werte, Umgebung(), Datei, true); }

    static void Ablegen(const std::string& Pfad, std::string_view Inhalt) {
        std::ofstream(Pfad, std::ios::binary | std::ios::trunc).write(Inhalt.data(), std::ssize(Inhalt));
    }
    static std::string Inhalt(const std::string& Pfad) { return DateiLesen(Pfad).value_or("(fehlt)"); }
    bool Geloggt(std::string_view Teil) const {
        return std::ranges::any_of(Log.Zeilen,
                                   [&](const std::string& Zeile) { return Zeile.find(Teil) != Zeile.npos; });
    }

    std::string Ordner;
    std::string Datei;
    Katalog Index;
    Einstellungen Werte;
    speicher::Person Person;
    speicher::Protokollliste Log;
    speicher::StehendeUhr Uhr;
    Systemordnerleser Ordnerleser;
    MedienLeser Leser;
    std::function<int(Katalog&, Satznummer)> Verfügbarkeit;
};

}  // namespace liedwerk
