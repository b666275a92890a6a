// Moving, copying and deleting: what happens to the files, and that the index follows only what has happened.
#include "dateien/kopieren.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "basis/dateiname.h"
#include "basis/speicherrest.h"
#include "dateien/loeschen.h"
#include "dateien/probeordner.h"
#include "plattform/linux/ordner.h"
#include "plattform/speicher/eimer.h"
#include "plattform/speicher/person.h"
#include "plattform/speicher/welt.h"

namespace liedwerk {
namespace {

namespace fs = std::filesystem;

struct Kopierprobe : testing::Test {
    test::Probeordner Ordner;
    speicher::Person Person;
    speicher::Protokollliste Log;
    speicher::Laufwerksliste Drives;
    speicher::Eimer Eimer;
    Systemordnerleser Leser;
    Einstellungen Werte;
    Katalog Index;
    Mediumspeicher Medium;
    Dateiumgebung Umgebung{Index, Werte, Person, Log, Leser, Medium, {Drives, Werte, Log, {}}, &Eimer};

    Satznummer Lied(std::string_view Name, std::string_view Inhalt = "lied") {
        return SatzAnhängen(Index, Ordner.Datei(Name, Inhalt), {});
    }
    std::string Inhalt(std::string_view Name) const {
        return DateiLesen(Ordner.In(Name)).value_or("(fehlt)");
    }
    Verschiebeergebnis Verschieben(std::string_view Von, std::string_view Nach, std::int16_t Regel = 0) {
        return DateiVerschieben(Person, Ordner.In(Von), Ordner.In(Nach), true, Regel);
    }
    static void Alter(const std::string& Pfad, std::int64_t Sekunden) {
        const timespec Zeiten[2] = {{Sekunden, 0}, {Sekunden, 0}};
        ::utimensat(AT_FDCWD, Pfad.c_str(), Zeiten, 0);
    }
};

TEST(Dateinamen, WasEinNameNichtHabenDarf) {
    const struct {
        std::string_view Name;
        bool Pfad;
        std::string_view Ergebnis;
    } Fälle[] = {{"a*b?c<d>e|f", false, "abcdef"},
                 {"a\nb\x01", false, "ab"},
                 {"a\\b", false, ""},
                 {"a\\b", true, "a\\b"},
                 {"a//b", true, ""},
                 {"a/\\b", true, ""},
                 {"C:\\x\\y", true, "C:\\x\\y"},
                 {"C:x", false, ""},
                 {"ab:c", true, ""},
                 {"a\\", true, "a\\"},
                 {"a/", false, ""},
                 {"/a: ?/b", true, "/a: ?/b"},
                 {"/a//b", true, ""},
                 {" Ä ", false, " Ä "},
                 {"", true, ""}};
    for (const auto& Fall : Fälle)
        EXPECT_EQ(DateinameBereinigen(Fall.Name, Fall.Pfad), Fall.Ergebnis) << Fall.Name;
    for (const auto* Pfad : {"..", "a/../b", "a\\.\\b", "a/ /b", "/x//y", "a/", ""})
        EXPECT_FALSE(TeileEindeutig(Pfad)) << Pfad;
    for (const auto* Pfad : {"/a/b", "a..b/.c", "C:\\x"})
        EXPECT_TRUE(TeileEindeutig(Pfad)) << Pfad;
}

TEST_F(Kopierprobe, DieRegelFürVorhandeneZiele) {
    const struct {
        std::int16_t Regel;
        bool QuelleÄlter;
        Vorhandenantwort Antwort;  // Abbrechen: the dialog must not come
        bool Gelungen;
        std::string_view Ziel;  // content of the target in the end
        bool Gefragt;
    } Fälle[] = {
        {0, false, Vorhandenantwort::Ersetzen, true, "quelle", true},
        {0, false, Vorhandenantwort::Überspringen, false, "ziel", true},
        {0, false, Vorhandenantwort::Abbrechen, false, "ziel", true},
        {0, false, Vorhandenantwort::Umbenennen, true, "ziel", true},
        {1, true, Vorhandenantwort::Abbrechen, true, "ziel", false},
        {2, false, Vorhandenantwort::Abbrechen, true, "quelle", false},
        {3, true, Vorhandenantwort::Abbrechen, true, "quelle", false},
        {3, false, Vorhandenantwort::Überspringen, false, "ziel", true},
        {4, true, Vorhandenantwort::Abbrechen, true, "quelle", false},
        {4, false, Vorhandenantwort::Abbrechen, true, "ziel", false},
        {9, true, Vorhandenantwort::Abbrechen, false, "ziel", false},
    };
    for (const auto& Fall : Fälle) {
        SCOPED_TRACE(std::to_string(Fall.Regel) + (Fall.QuelleÄlter ? " älter" : " neuer"));
        fs::remove_all(Ordner.In("z"));
        Person = {};
        Alter(Ordner.Datei("q.mp3", "quelle"), Fall.QuelleÄlter ? 1000 : 3000);
        Alter(Ordner.Datei("z/q.mp3", "ziel"), 2000);
        Person.Vorhandene = {Fall.Antwort};
        const auto Ergebnis = Verschieben("q.mp3", "z/q.mp3", Fall.Regel);
        EXPECT_EQ(Ergebnis.Gelungen, Fall.Gelungen);
        EXPECT_EQ(Inhalt("z/q.mp3"), Fall.Ziel);
        const bool Umbenannt = Fall.Antwort == Vorhandenantwort::Umbenennen;
        EXPECT_EQ(Ergebnis.Umgezogen, Fall.Ziel == "quelle" || Umbenannt);
        EXPECT_EQ(DateiExistiert(Ordner.In("q.mp3")), !Ergebnis.Umgezogen) << "never both gone";
        EXPECT_EQ(Inhalt("z/q-0.mp3"), Umbenannt ? "quelle" : "(fehlt)");
        EXPECT_EQ(Fall.Gefragt, !Person.Gefragt.empty() && Person.Gefragt[0].find("(006 Bytes groß)") < 200);
        EXPECT_TRUE(Ergebnis.Fehlertext.empty());
    }
}

TEST_F(Kopierprobe, ZweiNamenEinerDateiKostenSieNie) {
    const std::string Lied = Ordner.Datei("lied.mp3", "lied");
    EXPECT_TRUE(Verschieben("lied.mp3", "lied.mp3").Gelungen);
    EXPECT_TRUE(DateiVerschieben(Person, Lied, Lied, false, 2).Gelungen);
    fs::create_hard_link(Lied, Ordner.In("LIED.mp3"));
    fs::create_hard_link(Lied, Ordner.In("zweitname.mp3"));
    fs::create_symlink(Lied, Ordner.In("verweis.mp3"));
    fs::create_directory_symlink(Ordner.Pfad, Ordner.In("ordner"));
    for (const auto* Ziel : {"LIED.mp3", "zweitname.mp3", "verweis.mp3", "ordner/lied.mp3"}) {
        for (const auto& [Von, Nach] : {std::pair("lied.mp3", Ziel), std::pair(Ziel, "lied.mp3")}) {
            const auto Ergebnis = Verschieben(Von, Nach, 2);
            EXPECT_TRUE(Ergebnis.Gelungen) << Ziel;
            EXPECT_FALSE(Ergebnis.Umgezogen) << Ziel;
            EXPECT_EQ(Inhalt("lied.mp3"), "lied") << Ziel;
        }
        EXPECT_TRUE(DateiExistiert(Ordner.In(Ziel)));
    }
    EXPECT_TRUE(Verschieben("zweitname.mp3", "neu/ort.mp3").Umgezogen);
    // A link that would lead nowhere from another folder stays where it works.
    fs::create_symlink("lied.mp3", Ordner.In("nah.mp3"));
    EXPECT_FALSE(Verschieben("nah.mp3", "neu/nah.mp3").Gelungen);
    EXPECT_EQ(Inhalt("nah.mp3"), "lied");
}

TEST_F(Kopierprobe, HilfsdateienUndOrdnerLassenNichtsZurückUndNehmenNichts) {
    Ordner.Datei("q.mp3", "quelle");
    Ordner.Datei("z/q.mp3~lwikopie", "meine");
    EXPECT_TRUE(DateiVerschieben(Person, Ordner.In("q.mp3"), Ordner.In("z/q.mp3"), false, 0).Gelungen);
    EXPECT_EQ(Inhalt("z/q.mp3"), "quelle");
    EXPECT_EQ(Inhalt("z/q.mp3~lwikopie"), "meine");
    fs::create_symlink(Ordner.Datei("fremd.mp3", "fremd"), Ordner.In("z/v.mp3"));
    Ordner.Datei("z/v.mp3~lwiverweis", "auch meine");
    EXPECT_TRUE(DateiVerschieben(Person, Ordner.In("q.mp3"), Ordner.In("z/v.mp3"), false, 2).Gelungen);
    EXPECT_EQ(Inhalt("z/v.mp3~lwiverweis"), "auch meine");
    EXPECT_TRUE(Inhalt("z/v.mp3") == "quelle" && Inhalt("fremd.mp3") == "fremd");

    // Folders that were made for a file that does not come go again; one that was there stays.
    fs::create_directory(Ordner.In("leer"));
    const std::string Lang = "leer/neu/tief/" + std::string(300, 'n') + ".mp3";
    EXPECT_FALSE(Verschieben("q.mp3", Lang).Gelungen);
    EXPECT_FALSE(Verschieben("q.mp3", "leer/neu/" + std::string(300, 'o') + "/q.mp3").Gelungen);
    EXPECT_TRUE(OrdnerExistiert(Ordner.In("leer")));
    EXPECT_FALSE(OrdnerExistiert(Ordner.In("leer/neu")));
}

TEST_F(Kopierprobe, WasNichtGehtLässtDieQuelleUndSagtWarum) {
    const std::string Quelle = Ordner.Datei("q.mp3", "quelle");
    Ordner.Datei("datei", "x");
    fs::create_directory(Ordner.In("ordner.mp3"));
    const std::string Ziele[] = {Ordner.In(std::string(300, 'n') + ".mp3"),
                                 Ordner.In("ordner.mp3"),
                                 Ordner.In("datei/q.mp3"),
                                 Ordner.In("a/../../q.mp3"),
                                 Ordner.In("a//q.mp3"),
                                 "C:\\Musik\\q.mp3",
                                 "q.mp3",
                                 "/proc/q.mp3",
                                 ""};
    for (const bool Verschieben : {true, false}) {
        for (const auto& Ziel : Ziele) {
            const auto Ergebnis = DateiVerschieben(Person, Quelle, Ziel, Verschieben, 2);
            EXPECT_FALSE(Ergebnis.Gelungen || Ergebnis.Umgezogen) << Ziel;
            EXPECT_NE(Ergebnis.Fehlertext.find(Quelle), std::string::npos) << Ziel;
            EXPECT_EQ(Inhalt("q.mp3"), "quelle") << Ziel;
        }
    }
    EXPECT_EQ(Verschieben("fehlt.mp3", "x.mp3").Fehlertext,
              "Die Datei '" + Ordner.In("fehlt.mp3") +
                  "' (Quelldatei) kann nicht verschoben oder umbenannt werden.\nDiese existiert nicht.");
    EXPECT_TRUE(Person.Meldungen.empty()) << "the caller shows the text";
    // A name as long as the file system allows leaves no room for a temporary one beside it.
    const std::string Lang = std::string(251, 'l') + ".mp3";
    EXPECT_TRUE(DateiVerschieben(Person, Quelle, Ordner.In(Lang), false, 0).Gelungen);
    EXPECT_EQ(Inhalt(Lang), "quelle");
    EXPECT_TRUE(Verschieben(Lang, "b" + Lang.substr(1)).Umgezogen);
    const Satznummer Langer[] = {SatzAnhängen(Index, Ordner.In("b" + Lang.substr(1)), {})};
    EXPECT_EQ(DateienLöschen(Umgebung, Langer, false, false).Gelöscht.size(), 1U);
    // Copied is not moved.
    EXPECT_NE(
        DateiVerschieben(Person, Quelle, "q.mp3", false, 0).Fehlertext.find("nicht nach 'q.mp3' kopiert"),
        std::string::npos);
}

TEST_F(Kopierprobe, ÜberDateisystemeGanzOderGarNicht) {
    std::string Fern = "/dev/shm/liedwerk-test-XXXXXX";
    if (::mkdtemp(Fern.data()) == nullptr) GTEST_SKIP() << "no second file system";
    const std::string Quelle = Ordner.Datei("q.mp3", std::string(3'000'000, 'q'));
    Alter(Quelle, 1'000'000'000);
    ::chmod(Quelle.c_str(), 0640);
    // Cancelled in the middle: nothing at the target, everything at the source.
    Person.AbbruchBei = 2;
    const auto Abbruch = DateiVerschieben(Person, Quelle, Fern + "/neu/q.mp3", true, 0);
    if (Abbruch.Gelungen) {
        fs::remove_all(Fern);
        GTEST_SKIP() << "one file system";
    }
    EXPECT_TRUE(Abbruch.Abgebrochen && Abbruch.Fehlertext.empty());
    EXPECT_TRUE(fs::is_empty(Fern)) << "the folder was made for the file only";
    Person.AbbruchBei = 0;
    // A file that is still growing is not taken for whole.
    Person.Zwischendurch = [&] { std::ofstream(Quelle, std::ios::app) << "mehr"; };
    EXPECT_NE(DateiVerschieben(Person, Quelle, Fern + "/q.mp3", true, 0).Fehlertext, "");
    EXPECT_FALSE(DateiExistiert(Fern + "/q.mp3"));
    // Neither is the only copy of what was saved meanwhile removed, where size and time tell nothing of it.
    Alter(Quelle, 1'000'000'000);
    Person.Zwischendurch = [&] {
        std::fstream(Quelle, std::ios::binary | std::ios::in | std::ios::out) << "neu";
        Alter(Quelle, 1'000'000'000);
    };
    const auto Geändert = DateiVerschieben(Person, Quelle, Fern + "/q.mp3", true, 0);
    EXPECT_FALSE(Geändert.Umgezogen);
    EXPECT_NE(Geändert.Fehlertext.find("inzwischen geändert"), std::string::npos) << Geändert.Fehlertext;
    EXPECT_EQ(Inhalt("q.mp3").substr(0, 4), "neuq");
    fs::remove(Fern + "/q.mp3");
    Person.Zwischendurch = nullptr;
    Alter(Quelle, 1'000'000'000);
    EXPECT_TRUE(DateiVerschieben(Person, Quelle, Fern + "/q.mp3", true, 0).Umgezogen);
    EXPECT_FALSE(DateiExistiert(Quelle));
    EXPECT_EQ(DateistandLesen(Fern + "/q.mp3")->Änderungszeit, 1'000'000'000);
    EXPECT_EQ(fs::status(Fern + "/q.mp3").permissions(), fs::perms(0640));
    fs::remove_all(Fern);
}

TEST_F(Kopierprobe, ZerrisseneDateiBleibtBeiIhremInhalt) {
    const std::string Lang = std::string(251, 'l') + ".mp3";
    for (const std::string& Name : {std::string("q.mp3"), Lang}) {
        const Satznummer Beide[] = {Lied(Name, "zerrissen"), SatzAnhängen(Index, Ordner.In("v.mp3"), {})};
        const std::string Quelle = Ordner.In(Name);
        const std::string Rest = TagGesichertname(Quelle);
        std::ofstream(Rest) << "ganz";
        fs::create_symlink(Name, Ordner.In("v.mp3"));
        Ordner.Datei("frei.mp3");
        const std::pair<std::string, std::string> Wege[] = {
            {Name, "z.mp3"}, {Name, "neu/z.mp3"}, {"v.mp3", "z.mp3"}, {"frei.mp3", Name}};
        for (const auto& [Von, Nach] : Wege) {
            for (const bool Verschieben : {true, false}) {
                const auto Ergebnis =
                    DateiVerschieben(Person, Ordner.In(Von), Ordner.In(Nach), Verschieben, 2);
                EXPECT_FALSE(Ergebnis.Gelungen || Ergebnis.Getan) << Von;
                EXPECT_NE(Ergebnis.Fehlertext.find(Rest), std::string::npos) << Ergebnis.Fehlertext;
            }
        }
        for (const bool Papierkorb : {true, false})
            EXPECT_TRUE(DateienLöschen(Umgebung, std::span(Beide, 1), Papierkorb, false).Gelöscht.empty());
        EXPECT_NE(DurchLeereDateiErsetzen(Quelle, Quelle).find(Rest), std::string::npos);
        EXPECT_NE(DurchLeereDateiErsetzen(Quelle, Ordner.In("leer.mp3")).find(Rest), std::string::npos);
        EXPECT_EQ(Inhalt(Name) + DateiLesen(Rest).value_or(""), "zerrissenganz");
        EXPECT_EQ(DateienLöschen(Umgebung, std::span(Beide).last(1), false, false).Gelöscht.size(), 1U)
            << "a link goes by itself";
    }
}

TEST_F(Kopierprobe, DerIndexFolgtDemWasGeschehenIst) {
    const Satznummer Eins = Lied("musik/tief/eins.mp3");
    const Satznummer Fehlt = SatzAnhängen(Index, Ordner.In("musik/fehlt.mp3"), {});
    const Satznummer Zwei = Lied("musik/zwei.mp3");
    Drives.Liste[Ordner.In("stick/")] = {Laufwerksart::Wechsel, "STICK", true};
    Drives.Liste[Ordner.In("musik/")] = {};
    Person.Antworten = {Antwort::Ja, Antwort::Ja};  // the empty folder, the next file
    const Satznummer Alle[] = {Eins, Fehlt, Zwei};
    const auto Bericht = DateienKopierenVerschieben(Umgebung, Alle, {Ordner.In("stick/ziel"), true, true, 0});
    EXPECT_EQ(Bericht.Anzahl, 2);
    EXPECT_FALSE(Bericht.Gelungen || Bericht.Abgebrochen);
    EXPECT_EQ(Index.Sätze.Pfad(Eins), Ordner.In("stick/ziel/tief/eins.mp3"));
    EXPECT_EQ(Index.Sätze.Pfad(Fehlt), Ordner.In("musik/fehlt.mp3"));
    EXPECT_EQ(Index.Sätze.Pfad(Zwei), Ordner.In("stick/ziel/zwei.mp3"));
    EXPECT_EQ(Index.Sätze.Text(Zwei, FeldWechselmedium), "STICK") << "or its medium would be asked for";
    EXPECT_TRUE(Index.IndexGeändert);
    EXPECT_FALSE(OrdnerExistiert(Ordner.In("musik/tief")));
    ASSERT_EQ(Person.Gefragt.size(), 3u);
    EXPECT_EQ(Person.Gefragt[0],
              "Der Ordner '" + Ordner.In("musik/tief") + "' ist (nun) leer.\nMöchten Sie diesen entfernen?");
    EXPECT_EQ(Person.Gefragt[1].find("Beim Kopieren oder Verschieben von Dateien ist ein Fehler"), 0u);

    // A copy leaves the record where it is; an empty target and a "no" end the run.
    Index.IndexGeändert = false;
    const Satznummer Einer[] = {Zwei};
    EXPECT_EQ(DateienKopierenVerschieben(Umgebung, Einer, {Ordner.In("kopie"), false, false, 0}).Anzahl, 1);
    EXPECT_FALSE(Index.IndexGeändert);
    EXPECT_FALSE(DateienKopierenVerschieben(Umgebung, Einer, {}).Gelungen);
    EXPECT_EQ(Person.Meldungen.back(),
              "Bitte geben Sie einen Zielordner für den Kopier-/Verschiebe-Vorgang an.");
    Person.Antworten = {Antwort::Nein};
    const Satznummer Zwei2[] = {Fehlt, Zwei};
    EXPECT_TRUE(DateienKopierenVerschieben(Umgebung, Zwei2, {Ordner.In("k2"), false, true, 0}).Abgebrochen);
    EXPECT_EQ(KopierzielBilden("C:\\musik\\abc.mp3", "C:\\", {"D:\\Ordner", true, true, 0}),
              "D:\\Ordner\\musik\\abc.mp3");
    EXPECT_EQ(KopierenInOrdner(Person, Ordner.In("stick/ziel/tief/eins.mp3"), Ordner.In("stick/ziel"),
                               Ordner.In("neu"), true, 1)
                  .Ziel,
              Ordner.In("neu/tief/eins.mp3"));
}

TEST_F(Kopierprobe, EinStapelErsetztNieUngefragtEineSeinerDateien) {
    const struct {
        std::int16_t Regel;
        bool Verschieben;
        bool Gefragt;
        const char* Ziel = "ziel";
    } Fälle[] = {{2, false, true}, {2, true, true},  {3, true, true},          {4, true, false},
                 {1, true, false}, {9, true, false}, {2, false, true, "link"}, {3, true, true, "link"}};
    fs::create_directory_symlink(Ordner.In("ziel"), Ordner.In("link"));
    for (const auto& Fall : Fälle) {
        SCOPED_TRACE(std::to_string(Fall.Regel) + (Fall.Verschieben ? " verschoben" : " kopiert"));
        fs::remove_all(Ordner.In("ziel"));
        Index.Sätze.Leeren();
        Person = {};
        // Two sources of one name, and one that lies where another one shall go.
        const Satznummer Alle[] = {Lied("a/lied.mp3", "eins"), Lied("b/lied.mp3", "zwei"),
                                   Lied("a/da.mp3", "neu"), Lied("ziel/da.mp3", "alt")};
        Ordner.Datei("ziel/lied.mp3", "fremd");
        for (const char* const Name : {"a/lied.mp3", "b/lied.mp3", "a/da.mp3"})
            Alter(Ordner.In(Name), 1000);  // old enough for the rules that look at it
        Werte.LeereOrdnerLöschen = 0;
        DateienKopierenVerschieben(Umgebung, Alle,
                                   {Ordner.In(Fall.Ziel), false, Fall.Verschieben, Fall.Regel});
        EXPECT_EQ(Inhalt("ziel/lied.mp3"), Fall.Regel == 1 || Fall.Regel == 9 ? "fremd" : "eins");
        EXPECT_EQ(Inhalt("b/lied.mp3"), "zwei");
        EXPECT_EQ(Inhalt("a/da.mp3"), "neu");
        EXPECT_EQ(Inhalt("ziel/da.mp3"), "alt");
        EXPECT_EQ(Person.Gefragt.size(), Fall.Gefragt ? 2U : 0U);
    }
}

TEST_F(Kopierprobe, ZweiSätzeEinerDateiSindEineArbeit) {
    const Satznummer Beide[] = {Lied("a/lied.mp3"), Lied("a/lied.mp3")};
    Werte.LeereOrdnerLöschen = 0;
    for (const bool Verschieben : {false, true}) {
        fs::remove_all(Ordner.In("ziel"));
        const auto Bericht =
            DateienKopierenVerschieben(Umgebung, Beide, {Ordner.In("ziel"), false, Verschieben, 2});
        EXPECT_TRUE(Bericht.Gelungen);
        EXPECT_EQ(Bericht.Anzahl, 1);
        for (const Satznummer Nummer : Beide)
            EXPECT_EQ(Index.Sätze.Pfad(Nummer), Ordner.In(Verschieben ? "ziel/lied.mp3" : "a/lied.mp3"));
    }
    EXPECT_TRUE(Person.Gefragt.empty());
}

TEST_F(Kopierprobe, GelöschtWirdNurWasBestätigtIstUndNieAmPapierkorbVorbei) {
    const Satznummer Alle[] = {Lied("a.mp3"), Lied("b.mp3")};
    EXPECT_TRUE(DateienLöschen(Umgebung, Alle, false, true).Abgebrochen);
    EXPECT_EQ(Person.Gefragt[0], "Möchten Sie 2 Datei(en) vom Datenträger löschen?");
    Eimer.Fehler = {5, "Kein Platz"};
    Person.Antworten = {Antwort::Ja};
    EXPECT_TRUE(DateienLöschen(Umgebung, Alle, true, false).Gelöscht.empty());
    EXPECT_EQ(Person.Meldungen.size(), 1u) << "the first failure was asked about, the last one told";
    EXPECT_TRUE(DateiExistiert(Ordner.In("a.mp3")) && DateiExistiert(Ordner.In("b.mp3")));
    Eimer.Fehler = {};
    EXPECT_EQ(DateienLöschen(Umgebung, std::span(Alle, 1), true, false).Gelöscht.size(), 1u);
    EXPECT_EQ(Eimer.Inhalt.at(Ordner.In("a.mp3")), "lied");
    // One that is gone already needs nothing; one whose whole folder is away may come back; folders stay.
    const Satznummer Rest[] = {Alle[0], Alle[1], SatzAnhängen(Index, Ordner.In("weg/c.mp3"), {}),
                               SatzAnhängen(Index, Ordner.Pfad, {})};
    EXPECT_EQ(DateienLöschen(Umgebung, Rest, false, false).Gelöscht, (std::vector{Alle[0], Alle[1]}));
    EXPECT_TRUE(OrdnerExistiert(Ordner.Pfad));

    const std::string Voll = Ordner.Datei("voll.mp3");
    Ordner.Datei("da.txt");
    EXPECT_NE(DurchLeereDateiErsetzen(Voll, Ordner.In("da.txt")), "");
    EXPECT_TRUE(Inhalt("voll.mp3") == "x" && Inhalt("da.txt") == "x");
    EXPECT_EQ(DurchLeereDateiErsetzen(Voll, Ordner.In("voll.leer")), "");
    EXPECT_TRUE(Inhalt("voll.mp3") == "(fehlt)" && Inhalt("voll.leer").empty());
    EXPECT_EQ(DurchLeereDateiErsetzen(Ordner.In("da.txt"), Ordner.In("da.txt")), "");
    EXPECT_EQ(Inhalt("da.txt"), "");
}

TEST_F(Kopierprobe, LeereOrdnerGehenNurAufWunsch) {
    fs::create_directories(Ordner.In("voll"));
    Ordner.Datei("voll/.versteckt");
    fs::create_directories(Ordner.In("leer"));
    for (const auto* Name : {"voll", "fehlt"})
        OrdnerLöschenFragen(Umgebung, Ordner.In(Name));
    Werte.LeereOrdnerLöschen = 0;
    OrdnerLöschenFragen(Umgebung, Ordner.In("leer"));
    EXPECT_TRUE(Person.Gefragt.empty());
    Werte.LeereOrdnerLöschen = 1;
    Person.Antworten = {Antwort::Nein, Antwort::Ja};
    OrdnerLöschenFragen(Umgebung, Ordner.In("leer"));
    EXPECT_TRUE(OrdnerExistiert(Ordner.In("leer")));
    OrdnerLöschenFragen(Umgebung, Ordner.In("leer"));
    EXPECT_FALSE(OrdnerExistiert(Ordner.In("leer")));
}

TEST_F(Kopierprobe, DerNächsteNameGibtNachZehntausendAuf) {
    const std::string Pfad = Ordner.In("Lied.mp3");
    for (int i = 0; i < 9999; ++i)
        std::ofstream(Ordner.In("Lied-" + std::to_string(i) + ".mp3"));
    EXPECT_EQ(NächsterDateiname(Pfad, "Lied-", 0, ""), Ordner.In("Lied-9999.mp3"));
    Ordner.Datei("Lied-9999.mp3");
    EXPECT_EQ(NächsterDateiname(Pfad, "Lied-", 0, ""), "");
    EXPECT_EQ(NächsterDateiname(Pfad, "Lied-", 1, ""), Ordner.In("Lied-10000.mp3"));
}

}  // namespace
}  // namespace liedwerk
