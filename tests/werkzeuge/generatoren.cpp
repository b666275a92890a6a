// The generators behind the benchmarks: what they make is the same everywhere, whole, and of every kind, or
// the figures would compare different work.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

#include "basis/datei.h"
#include "index/leser.h"
#include "index/schreiber.h"
#include "medien/medienlesen.h"
#include "plattform/linux/ordner.h"
#include "plattform/speicher/person.h"
#include "plattform/speicher/welt.h"

namespace liedwerk {
namespace {

namespace fs = std::filesystem;

class Generatoren : public testing::Test {
  protected:
    void SetUp() override {
        std::string Muster = (fs::temp_directory_path() / "liedwerk-werkzeuge-XXXXXX").string();
        ASSERT_NE(::mkdtemp(Muster.data()), nullptr);
        Ordner = Muster;
    }
    void TearDown() override { fs::remove_all(Ordner); }

    std::string Pfad(const std::string& Name) const { return Ordner + "/" + Name; }
    // The tool's exit status.
    static int Rufen(const std::string& Werkzeug, const std::string& Argumente) {
        const int Stand = std::system(("'" + Werkzeug + "' " + Argumente + " 2>/dev/null").c_str());
        return WIFEXITED(Stand) ? WEXITSTATUS(Stand) : -1;
    }
    std::string Index(const std::string& Name, const std::string& Argumente) const {
        EXPECT_EQ(Rufen(INDEXGENERATOR, Pfad(Name) + " " + Argumente), 0);
        return DateiLesen(Pfad(Name)).value_or("");
    }
    // Path below the collection's folder and content of each file.
    std::map<std::string, std::string> Sammlung(const std::string& Name, const std::string& Argumente) const {
        EXPECT_EQ(Rufen(SAMMLUNGSGENERATOR, Pfad(Name) + " " + Argumente), 0);
        std::map<std::string, std::string> Dateien;
        for (const auto& Eintrag : fs::recursive_directory_iterator(Pfad(Name))) {
            if (!Eintrag.is_regular_file()) continue;
            Dateien[fs::relative(Eintrag.path(), Pfad(Name)).string()] =
                DateiLesen(Eintrag.path().string()).value_or("");
        }
        return Dateien;
    }
    Indexumgebung Umgebung() {
        return {.Person = Person,
                .Log = Log,
                .Zeit = Zeit,
                .Ordner = Leser,
                .Programmordner = Ordner,
                .Leser = {},
                .VerfügbarkeitPrüfen = {}};
    }

    std::string Ordner;
    speicher::Person Person;
    speicher::Protokollliste Log;
    speicher::StehendeUhr Zeit;
    Systemordnerleser Leser;
};

std::vector<std::string> Datenzeilen(const std::string& Inhalt) {
    std::vector<std::string> Zeilen;
    std::istringstream Strom(Inhalt);
    std::string Zeile;
    std::getline(Strom, Zeile);  // the version line
    while (std::getline(Strom, Zeile)) {
        if (Zeile.starts_with("#TAG:")) Zeilen.push_back(Zeile);
    }
    return Zeilen;
}

TEST_F(Generatoren, SaatBestimmtJedesByte) {
    const std::string Erster = Index("a.lwi", "300 7");
    EXPECT_EQ(Index("b.lwi", "300 7"), Erster);
    EXPECT_NE(Index("c.lwi", "300 8"), Erster);
    const auto Dateien = Sammlung("a", "30 7");
    EXPECT_EQ(Dateien.size(), 30U);
    EXPECT_TRUE(Sammlung("b", "30 7") == Dateien);
    EXPECT_FALSE(Sammlung("c", "30 8") == Dateien);
}

// Two programs write the format by themselves; where they differ, one of them is wrong.
TEST_F(Generatoren, IndexIstFürLeserUndSchreiberEinwandfrei) {
    const std::string Inhalt = Index("a.lwi", "3000 1");
    Katalog Geladen;
    Einstellungen Werte;
    ASSERT_EQ(DateiLaden(Geladen, Werte, Umgebung(), Pfad("a.lwi"), false, false, 1), Ladeergebnis::Index);
    EXPECT_EQ(Geladen.IndexAnzahl(), 3000);
    EXPECT_FALSE(Geladen.IndexGeändert) << "a repair at load would be measured with it";
    for (const std::string& Zeile : Log.Zeilen)
        EXPECT_EQ(Zeile.find("Checksumme"), std::string::npos) << Zeile;
    for (Satznummer i = 1; i <= Geladen.IndexAnzahl(); ++i) {
        // The record taken apart and put together again, so that no line is copied as it stood.
        Geladen.Sätze.Setzen(i, Geladen.Sätze.Pfad(i), Geladen.Sätze.Lesen(i));
    }
    ASSERT_EQ(DateiSpeichern(Geladen, Werte, Umgebung(), Pfad("b.lwi"), false),
              Speicherergebnis::Gespeichert);
    EXPECT_EQ(Datenzeilen(DateiLesen(Pfad("b.lwi")).value_or("")), Datenzeilen(Inhalt));
}

TEST_F(Generatoren, SammlungHatJedeArtVonTag) {
    const auto Dateien = Sammlung("m", "300 1");
    std::set<std::string> Versionen;
    std::set<int> Lyrics;
    int OhneTag = 0;
    int Beide = 0;
    int Variabel = 0;
    for (const auto& [Name, Inhalt] : Dateien) {
        Medienumgebung Medien;
        Medien.Dateitypen = &DateitypenVorgabe();
        Medien.Zeit = &Zeit;
        const Datensatz Satz = MedienDatenLesen(Medien, Pfad("m/" + Name), {},
                                                {.Code = Lesecode::Lesen("1111"), .GrößeLesen = true});
        EXPECT_EQ(Satz.Größe, static_cast<std::int64_t>(Inhalt.size()));
        EXPECT_GT(Satz.Dauer, 0) << Name;
        if (Satz.HatId3v2 == TagVorhanden) Versionen.insert(Satz.Id3v2Version.substr(0, 3));
        if (Satz.HatLyrics == TagVorhanden) Lyrics.insert(Satz.LyricsVersion);
        const int Tags = (Satz.HatId3v1 == TagVorhanden ? 1 : 0) + (Satz.HatId3v2 == TagVorhanden ? 1 : 0);
        if (Tags == 0) ++OhneTag;
        if (Tags == 2) ++Beide;
        if (Satz.VBR) ++Variabel;
    }
    EXPECT_EQ(Versionen, (std::set<std::string>{"2.2", "2.3", "2.4"}));
    EXPECT_EQ(Lyrics, (std::set<int>{1, 2}));
    EXPECT_TRUE(OhneTag > 0 && Beide > 0 && Variabel > 0);
}

TEST_F(Generatoren, FalscherAufrufSchreibtNichts) {
    EXPECT_EQ(Rufen(INDEXGENERATOR, Pfad("x.lwi") + " viele"), 2);
    EXPECT_EQ(Rufen(SAMMLUNGSGENERATOR, Pfad("x")), 2);
    EXPECT_TRUE(fs::is_empty(Ordner));
    EXPECT_EQ(Rufen(INDEXGENERATOR, Pfad("fehlt/x.lwi") + " 1"), 1);
}

}  // namespace
}  // namespace liedwerk
