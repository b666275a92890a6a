// The bytes that saving and removing tags leave behind, and what happens to a file when something goes wrong.
#include <fcntl.h>
#include <random>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "medien/id3v1.h"
#include "medien/id3v2.h"
#include "medien/lyrics.h"
#include "medien/tagdatei.h"
#include "medien/tagrettung.h"
#include "plattform/speicher/person.h"
#include "tests/medien/umgebung.h"
#include "werkzeuge/tagbau.h"

namespace liedwerk {
namespace {

using namespace std::string_literals;
using namespace tagbau;
namespace fs = std::filesystem;

constexpr std::array AlleBlöcke = {Tagblock::Id3v1, Tagblock::Id3v2, Tagblock::Lyrics};

// Frames and noise in which no tag's mark stands.
std::string Tonspur() {
    std::string Ton = MpegRahmen({}, 3);
    std::mt19937 Zufall(7);
    for (int Stelle = 0; Stelle < 9000; ++Stelle)
        Ton += static_cast<char>(Zufall() % 0x40 + 0x80);
    return Ton;
}

Datensatz Fülle(std::size_t Länge) {
    Datensatz Satz;
    Id3v2Leeren(Satz);
    Satz.Titel = Satz.V2Titel = std::string(Länge, 't');
    Satz.V2Interpret = "Änne";
    Satz.LyricsText = std::string(Länge, 'l');
    return Satz;
}

class Schreiben : public Medien {
  protected:
    bool Speichern(const std::string& Pfad, Tagblock Block, const Datensatz& Satz) {
        Meldung.clear();
        switch (Block) {
            case Tagblock::Id3v1:
                return Id3v1Schreiben(Pfad, Id3v1BlockBilden(Satz), Meldung);
            case Tagblock::Id3v2:
                return Id3v2Schreiben(Pfad, Satz, Optionen, Meldung);
            case Tagblock::Lyrics:
                return LyricsSchreiben(Pfad, Satz.LyricsText, Meldung);
        }
        return false;
    }
    bool Entfernen(const std::string& Pfad, Tagblock Block) {
        Meldung.clear();
        return TagAusDateiEntfernen(Pfad, Block, Optionen, Meldung);
    }
    static std::string Inhalt(const std::string& Pfad) { return DateiLesen(Pfad).value_or("(fehlt)"); }
    // Files in the test's folder: an interrupted or failed change must leave none of its own.
    std::ptrdiff_t Dateien() const { return std::distance(fs::directory_iterator(Ordner), {}); }

    Tagoptionen Optionen;
    std::string Meldung;
};

TEST(Tagbytes, Id3v1BlockHatJedesFeldAnSeinemPlatz) {
    Datensatz Satz;
    Satz.Titel = "Äpfel und Birnen, sehr viele davon";
    Satz.Jahr = "19999";
    Satz.Kommentar = "kurz";
    Satz.Titelnummer = "7";
    Satz.Genre = 17;
    EXPECT_EQ(Id3v1BlockBilden(Satz), "TAG" + AnsiText("Äpfel und Birnen, sehr viele d") +
                                          std::string(60, ' ') + "1999kurz" + std::string(25, '\0') +
                                          "\x07\x11");
    // Comment, track number, the 30 bytes that stand in the file.
    const std::string Lang(28, 'k');
    const std::vector<std::array<std::string, 3>> Fälle = {
        {Lang + "xy", "", Lang + "xy"},         {Lang + "x", "", Lang + "x\0"s},
        {Lang + "xy", "255", Lang + "\0\xFF"s}, {Lang + "xy", "256", Lang + "\0\0"s},
        {Lang + "xy", "A1", Lang + "\0\0"s},    {Lang + "xyz", "", std::string(28, ' ') + "xy"},
        {"", "0", std::string(30, '\0')},
    };
    for (const auto& [Kommentar, Nummer, Erwartet] : Fälle) {
        Satz.Kommentar = Kommentar;
        Satz.Titelnummer = Nummer;
        EXPECT_EQ(Id3v1BlockBilden(Satz).substr(97, 30), Erwartet) << Kommentar << "/" << Nummer;
    }
    Satz.Genre.reset();
    EXPECT_EQ(Id3v1BlockBilden(Satz).back(), '\xFF');
}

TEST(Tagbytes, RahmenStehenInFesterReihenfolge) {
    Datensatz Satz;
    Id3v2Leeren(Satz);
    const auto Rahmen = [](std::string_view Kennung, std::string_view Wert) {
        return Id3v2Rahmen(Kennung, "\0"s + std::string(Wert));
    };
    EXPECT_EQ(Id3v2RahmenBilden(Satz), Rahmen("TPE1", "") + Rahmen("TIT2", ""));
    Satz.V2AbspielZähler = "5";
    Satz.V2Link = "x.example";
    Satz.V2Kommentar = "a\nb";
    Satz.V2Titel = "Größe";
    Satz.V2Software = "s";
    Satz.V2Qualität = 200;
    Satz.Id3v2WeitereFelder = Id3v2Rahmen("TXXX", "roh");
    EXPECT_EQ(Id3v2RahmenBilden(Satz),
              Rahmen("PCNT", "5") + Rahmen("WXXX", "eng\0x.example"s) + Rahmen("COMM", "eng\0a\nb"s) +
                  Rahmen("TPE1", "") + Rahmen("TIT2", AnsiText("Größe")) + Rahmen("TSSE", "s") +
                  Rahmen("PCNT", "5") + Rahmen("POPM", "email\0\xC8\0\0\0\0"s) + Satz.Id3v2WeitereFelder);
    Satz.Id3v2WeitereFelder = " ";
    EXPECT_TRUE(Id3v2RahmenBilden(Satz).ends_with("\0\0\0\0"s));

    EXPECT_EQ(LyricsTagBilden("Zwölf", "EAL00001x"),
              "LYRICSBEGININD0000211LYR00005" + AnsiText("Zwölf") + "EAL00001x000043LYRICS200");
}

// State of the file and room of its tag; length of the title; new length of the whole tag.
TEST_F(Schreiben, TagBleibtAmOrtSolangeErPasst) {
    struct Fall {
        std::string Davor;
        std::size_t Platz;
        std::size_t Titel;
        std::size_t Neu;
        bool AmOrt;
    };
    constexpr std::size_t Fest = 10 + 11 + 4 + 11;  // header, two frames, the artist
    const std::vector<Fall> Fälle = {
        {"", 200, 100, 200, true},
        {"", Fest + 100, 100, Fest + 100, true},
        {"", Fest + 99, 100, Fest + 100 + 34, false},  // 34.0 per cent bytes of 136
        {"Vorn", 200, 100, Fest + 100 + 34, false},
        {"", 0, 102, Fest + 102 + 34, false},  // 34.5 becomes 34
        {"", 0, 106, Fest + 106 + 36, false},  // 35.5 becomes 36
    };
    const std::string Ton = Tonspur();
    for (const Fall& F : Fälle) {
        const std::string Alt = F.Platz == 0 ? "" : Id3v2Tag(3, "", F.Platz - 10);
        const std::string Pfad = Anlegen("t.mp3", F.Davor + Alt + Ton);
        const auto Vorher = DateistandLesen(Pfad);
        ASSERT_TRUE(Speichern(Pfad, Tagblock::Id3v2, Fülle(F.Titel))) << Meldung;
        const std::string Erst = Inhalt(Pfad);
        EXPECT_EQ(Erst.size(), F.Neu + F.Davor.size() + Ton.size()) << F.Titel;
        EXPECT_TRUE(Erst.ends_with(F.Davor + Ton));
        EXPECT_EQ(DateistandLesen(Pfad)->Inode == Vorher->Inode, F.AmOrt) << F.Titel;
        ASSERT_TRUE(Speichern(Pfad, Tagblock::Id3v2, Fülle(F.Titel)));
        EXPECT_EQ(Inhalt(Pfad), Erst) << "second save";
    }
}

// Every way of writing and removing, from every kind of file: the bytes between the tags are never touched.
TEST_F(Schreiben, TonBleibtInJederFolgeVonÄnderungenGanz) {
    const std::string Ton = Tonspur();
    const std::string V1 = Id3v1Block({.Titel = "alt"});
    const std::string V2 = Id3v2Tag(3, Id3v2Textrahmen("TIT2", "alt"), 300);
    const std::string Text = LyricsV2(LyricsFeld("LYR", "ein alter Text") + LyricsFeld("EAL", "Album"));
    for (const std::string& Start :
         {Ton, V2 + Ton, "Vorspann" + V2 + Ton, Ton + V1, Ton + Text, V2 + Ton + Text + V1}) {
        const std::string Pfad = Anlegen("t.mp3", Start);
        for (const std::size_t Länge : {20U, 5U, 900U, 900U, 0U}) {
            for (const Tagblock Block : AlleBlöcke) {
                ASSERT_TRUE(Speichern(Pfad, Block, Fülle(Länge))) << Meldung;
                const std::string Erst = Inhalt(Pfad);
                EXPECT_NE(Erst.find(Ton), std::string::npos);
                ASSERT_TRUE(Speichern(Pfad, Block, Fülle(Länge))) << Meldung;
                // Kept: a field of less than two characters is not read back, so its tag counts as there.
                EXPECT_EQ(Inhalt(Pfad), Erst);
            }
        }
        EXPECT_EQ(Dateien(), 1);
        const Datensatz Gelesen = MedienDatenLesen(Umgebung, Pfad, {}, {.Code = Lesecode::Lesen("1111")});
        EXPECT_EQ(Gelesen.HatId3v1 + Gelesen.HatId3v2 + Gelesen.HatLyrics, 3 * TagVorhanden);
        for (const Tagblock Block : AlleBlöcke)
            EXPECT_TRUE(Entfernen(Pfad, Block)) << Meldung;
        EXPECT_EQ(Inhalt(Pfad), Start.starts_with("Vor") ? "Vorspann" + Ton : Ton);
    }
    const std::string NurBlock = Anlegen("block.mp3", V1);
    EXPECT_TRUE(Entfernen(NurBlock, Tagblock::Id3v1));
    EXPECT_EQ(Inhalt(NurBlock), "");
}

TEST_F(Schreiben, LiedtextWächstVorDemBlockAmOrtUndSchrumpftÜberDieVorläufigeDatei) {
    const std::string V1 = Id3v1Block({.Titel = "t"});
    const std::string Pfad = Anlegen("t.mp3", "Ton" + LyricsV2(LyricsFeld("LYR", "Text")) + V1);
    const auto Inode = [&] { return DateistandLesen(Pfad)->Inode; };
    const auto Alt = Inode();
    ASSERT_TRUE(LyricsSchreiben(Pfad, "ein längerer Text", Meldung));
    EXPECT_EQ(Inhalt(Pfad), "Ton" + LyricsTagBilden("ein längerer Text", "") + V1);
    EXPECT_EQ(Inode(), Alt);
    ASSERT_TRUE(LyricsSchreiben(Pfad, "kurz", Meldung));
    EXPECT_EQ(Inhalt(Pfad), "Ton" + LyricsTagBilden("kurz", "") + V1);
    EXPECT_NE(Inode(), Alt);
}

TEST_F(Schreiben, JederFehlerHatSeinenTextUndLässtDieDateiGanz) {
    const std::string Fehlt = (Ordner / "fehlt.mp3").string();
    const std::string Leer = Anlegen("leer.mp3", "Ton");
    const std::vector<std::string> Namen = {"ID3v1", "ID3v2", "Lyrics"};
    for (std::size_t Nummer = 0; Nummer < 3; ++Nummer) {
        EXPECT_FALSE(Speichern(Fehlt, AlleBlöcke[Nummer], Fülle(3)));
        EXPECT_EQ(Meldung, "Die " + Namen[Nummer] + "-TAG der Datei '" + Fehlt +
                               "' konnte nicht gespeichert werden.\nDie Datei existiert nicht.");
        EXPECT_FALSE(Entfernen(Fehlt, AlleBlöcke[Nummer]));
        EXPECT_EQ(Meldung, "Der " + Namen[Nummer] + "-TAG der Datei '" + Fehlt +
                               "' kann nicht entfernt werden.\n\nGrund: Die Datei existiert nicht.");
        EXPECT_FALSE(Entfernen(Leer, AlleBlöcke[Nummer]));
        EXPECT_EQ(Meldung, "Der " + Namen[Nummer] + "-TAG der Datei '" + Leer +
                               "' kann nicht entfernt werden.\n\nGrund: Diese enthält keinen " +
                               Namen[Nummer] + "-TAG.");
    }
    EXPECT_EQ(Inhalt(Leer), "Ton");
}

TEST_F(Schreiben, FremdesUnterDemVorläufigenNamenBleibtUnberührt) {
    const std::string Voll = Id3v2Tag(3, "", 20) + "Ton" + Id3v1Block({.Titel = "t"});
    const std::string Opfer = Anlegen("opfer", "wichtig");
    const std::string Pfad = Anlegen("t.mp3", Voll);
    const std::string Temporär = Pfad + "~lwitmp";
    const auto NichtsGeht = [&] {
        EXPECT_FALSE(Speichern(Pfad, Tagblock::Id3v2, Fülle(100)));
        EXPECT_FALSE(Entfernen(Pfad, Tagblock::Id3v1));
        const std::string Ursache = "\n\nUrsache: Unter dem vorläufigen Namen '" + Temporär + "' liegt etwas";
        EXPECT_TRUE(Meldung.starts_with("Der ID3v1-TAG konnte nicht entfernt werden.\n\nDie Datei '" + Pfad +
                                        "-neu' konnte nicht gespeichert werden." + Ursache))
            << Meldung;
        EXPECT_FALSE(Entfernen(Pfad, Tagblock::Id3v2));
        EXPECT_TRUE(
            Meldung.starts_with("Der ID3v2-TAG konnte nicht entfernt werden.\n\nDie temporäre Datei '" +
                                Temporär + "' konnte nicht erstellt werden." + Ursache))
            << Meldung;
        EXPECT_EQ(Inhalt(Pfad), Voll);
        EXPECT_EQ(Inhalt(Opfer), "wichtig");
    };
    fs::create_symlink(Opfer, Temporär);
    NichtsGeht();
    fs::remove(Temporär);
    fs::create_hard_link(Opfer, Temporär);
    NichtsGeht();
    fs::remove(Temporär);
    fs::create_directory(Temporär);
    NichtsGeht();
    fs::remove(Temporär);
    // What an interrupted run of ours has left is taken over.
    Anlegen("t.mp3~lwitmp", "Rest eines Absturzes");
    EXPECT_TRUE(Speichern(Pfad, Tagblock::Id3v2, Fülle(100))) << Meldung;
    EXPECT_EQ(Dateien(), 2);
}

TEST_F(Schreiben, GesperrteDateienBehaltenDenAltenInhalt) {
    const std::string Ton = Tonspur();
    const std::string Alt = Id3v2Tag(3, "", 20) + Ton + LyricsV2(LyricsFeld("LYR", "x")) + Id3v1Block({});
    const std::string Pfad = Anlegen("t.mp3", Alt);
    const int Griff = ::open(Pfad.c_str(), O_RDONLY);
    ASSERT_EQ(::flock(Griff, LOCK_EX), 0);
    for (const Tagblock Block : AlleBlöcke) {
        EXPECT_FALSE(Speichern(Pfad, Block, Fülle(900)));
        EXPECT_NE(Meldung.find("von einem anderen Programm benutzt"), std::string::npos) << Meldung;
        EXPECT_FALSE(Entfernen(Pfad, Block));
        EXPECT_NE(Meldung.find("Auf die Datei kann nicht zugegriffen werden."), std::string::npos);
    }
    ::close(Griff);
    EXPECT_EQ(Inhalt(Pfad), Alt);
    EXPECT_EQ(Dateien(), 1);
}

TEST_F(Schreiben, WasWährenddessenMitDerDateiGeschiehtBleibt) {
    const std::string Alt = Id3v2Tag(3, "", 20) + Tonspur();
    const auto Ersetzen = [&](const std::string& Pfad) { fs::rename(Anlegen("neu", "fremd"), Pfad); };
    const std::vector<std::pair<std::function<void(const std::string&)>, std::string>> Fälle = {
        {[](const std::string& Pfad) { fs::remove(Pfad); }, "(fehlt)"},
        {Ersetzen, "fremd"},
        {[](const std::string& Pfad) { std::ofstream(Pfad, std::ios::app) << "mehr"; }, Alt + "mehr"},
    };
    for (const bool MehrereNamen : {false, true}) {
        for (const auto& [Geschehen, Danach] : Fälle) {
            const std::string Ziel = Anlegen("t.mp3", Alt);
            const std::string Verweis = (Ordner / "verweis.mp3").string();
            fs::create_symlink("t.mp3", Verweis);
            if (MehrereNamen) fs::create_hard_link(Ziel, Ordner / "zweiter.mp3");
            bool Schon = false;
            const auto Weiter = [&](std::uint64_t) {
                if (!std::exchange(Schon, true)) Geschehen(Ziel);
                return true;
            };
            EXPECT_FALSE(Id3v2Schreiben(Verweis, Fülle(900), Optionen, Meldung, {Weiter, {}}));
            EXPECT_EQ(Inhalt(Ziel), Danach);
            for (const auto& Eintrag : fs::directory_iterator(Ordner)) {
                EXPECT_EQ(Eintrag.path().string().find('~'), std::string::npos) << Eintrag.path();
                fs::remove(Eintrag);
            }
        }
    }
}

TEST_F(Schreiben, RechteMerkmaleUndVerweiseBleiben) {
    const std::string Ziel = Anlegen("ziel.mp3", "Ton");
    const std::string Verweis = (Ordner / "verweis.mp3").string();
    fs::create_symlink("ziel.mp3", Verweis);
    ::chmod(Ziel.c_str(), 0640);
    const bool MitMerkmal = ::setxattr(Ziel.c_str(), "user.test", "w", 1, 0) == 0;
    ASSERT_TRUE(Speichern(Verweis, Tagblock::Id3v2, Fülle(10))) << Meldung;
    EXPECT_TRUE(fs::is_symlink(Verweis));
    EXPECT_TRUE(Inhalt(Ziel).starts_with("ID3"));
    EXPECT_EQ(fs::status(Ziel).permissions(), fs::perms(0640));
    char Wert = 0;
    EXPECT_TRUE(!MitMerkmal || ::getxattr(Ziel.c_str(), "user.test", &Wert, 1) == 1);

    const std::string Zweiter = (Ordner / "zweiter.mp3").string();
    fs::create_hard_link(Ziel, Zweiter);
    for (const std::size_t Länge : {900U, 3U}) {
        ASSERT_TRUE(Speichern(Verweis, Tagblock::Id3v2, Fülle(Länge))) << Meldung;
        ASSERT_TRUE(Speichern(Zweiter, Tagblock::Lyrics, Fülle(Länge))) << Meldung;
    }
    ASSERT_TRUE(Entfernen(Zweiter, Tagblock::Id3v2));
    EXPECT_EQ(Inhalt(Ziel), "Ton" + LyricsTagBilden("lll", ""));
    EXPECT_EQ(fs::hard_link_count(Ziel), 2U);
    EXPECT_EQ(Dateien(), 3);

    const std::string Lang = Anlegen(std::string(240, 'n') + "äöü.mp3", "Ton");
    EXPECT_TRUE(Speichern(Lang, Tagblock::Id3v2, Fülle(10))) << Meldung;
}

TEST_F(Schreiben, FehlendeDateiKommtNurAufWunschAusDerVorläufigenZurück) {
    speicher::Person Person;
    Rettung Lauf{Zeit};
    const std::string Pfad = (Ordner / "t.mp3").string();
    // An empty one holds nothing that could come back.
    for (const std::string_view Rest : {"", "gerettet"}) {
        if (!Rest.empty()) Anlegen("t.mp3~lwitmp", Rest);
        DateiZurückholen(Pfad, Person, Lauf, {});
        Anlegen("t.mp3~lwitmp", Rest);
        DateiZurückholen(Pfad, Person, Lauf, {});  // preset: no
        EXPECT_FALSE(DateiExistiert(Pfad));
        EXPECT_EQ(Person.Gefragt.size(), Rest.empty() ? 0U : 2U);
    }
    EXPECT_NE(Person.Gefragt.back().find("Sie hat 8 Bytes und kann unvollständig sein."), std::string::npos);
    // "--ja" on a command line is no answer to this.
    Lauf.Regel = Zweifelsfall::Melden;
    Person.Antworten = {Antwort::Ja};
    for (int Mal = 0; Mal < 2; ++Mal)
        DateiZurückholen(Pfad, Person, Lauf, {});
    EXPECT_FALSE(DateiExistiert(Pfad));
    EXPECT_EQ(Person.Meldungen.size(), 1U);
    EXPECT_EQ(Person.Antworten.size(), 1U);
    Lauf.Regel = Zweifelsfall::Fragen;
    DateiZurückholen(Pfad, Person, Lauf, {});
    EXPECT_EQ(Inhalt(Pfad), "gerettet");
}

TEST_F(Schreiben, GroßeDateienWerdenJenseitsVon4GigabyteGeschrieben) {
    const std::string Pfad = Anlegen("t.mp3", "Ton");
    constexpr std::uint64_t Größe = std::uint64_t{5} << 30;
    std::error_code Fehler;
    fs::resize_file(Pfad, Größe, Fehler);
    if (Fehler) GTEST_SKIP() << "no sparse files here";
    ASSERT_TRUE(Speichern(Pfad, Tagblock::Id3v1, Fülle(4)));
    ASSERT_TRUE(Speichern(Pfad, Tagblock::Lyrics, Fülle(4)));
    const Datensatz Satz = MedienDatenLesen(Umgebung, Pfad, {}, {.Code = Lesecode::Lesen("1001")});
    EXPECT_EQ(Satz.Titel + Satz.LyricsText, "ttttllll");
    EXPECT_EQ(Satz.LyricsPosition, static_cast<std::int64_t>(Größe) + 1);
}

}  // namespace
}  // namespace liedwerk
