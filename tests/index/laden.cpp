// Loading: versions, missing files, files of a save that was cut off, options, reminders, repairs.
#include <fcntl.h>
#include <sys/file.h>

#include "umgebung.h"

namespace liedwerk {
namespace {

class LadenTest : public Indextest {};

TEST_F(LadenTest, VersionszeilenBestimmenDenStandUndDieMeldung) {
    struct Fall {
        std::string Zeile;
        int Stand;
        std::string Meldung;
    };
    for (const auto& [Zeile, Stand, Meldung] : {Fall{"#TAG:lw102", 2, ""},
                                                {"#TAG:lw101", 1, ""},
                                                {"#TAG:lw100", 0, ""},
                                                {"#TAG:lw1xx", 2, ""},
                                                {"#TAG:lw103", 2, "('103')"},
                                                {"#TAG:lw99", 2, "('w99')"},
                                                {"#TAG:lw", 2, ""}}) {
        Person.Meldungen.clear();
        EXPECT_EQ(InhaltLaden(Zeile + "\r\n" + Beispielzeile + "\r\n"), Ladeergebnis::Index) << Zeile;
        EXPECT_EQ(Index.Formatstand, Stand) << Zeile;
        EXPECT_EQ(Index.IndexAnzahl(), 1);
        ASSERT_EQ(Person.Meldungen.size(), Meldung.empty() ? 0U : 1U) << Zeile;
        if (!Meldung.empty()) {
            EXPECT_NE(Person.Meldungen[0].find(Meldung), std::string::npos);
        }
    }
}

TEST_F(LadenTest, UnbekannteFormWirdNurAufWunschAlsListeVonPfadenGelesen) {
    const std::string Liste = "Kopf\r\nC:\\a.mp3\r\n\r\n#TAG:x\r\nC:\\M\xFC.mp3\r\n";
    EXPECT_EQ(InhaltLaden(Liste), Ladeergebnis::Fehlschlag);
    EXPECT_EQ(Index.IndexAnzahl(), 0);
    Leser = [](std::string_view, Datensatz Satz, const Leseauftrag& Auftrag) {
        Satz.Titel = Auftrag.Code->Id3v1 ? "gelesen" : "";
        return Satz;
    };
    Person.Antworten = {Antwort::Ja};
    EXPECT_EQ(Laden(Datei), Ladeergebnis::Index);
    ASSERT_EQ(Index.IndexAnzahl(), 2);
    EXPECT_EQ(Index.Sätze.Pfad(2), "C:\\Mü.mp3");
    EXPECT_EQ(Index.Sätze.Text(2, FeldTitel), "gelesen");
    EXPECT_TRUE(Index.IndexGeändert);
    EXPECT_TRUE(Geloggt("wegen Update"));
}

TEST_F(LadenTest, FehlendeDateiWirdAngelegt) {
    EXPECT_EQ(Laden(Datei), Ladeergebnis::Index);
    EXPECT_EQ(Inhalt(Datei), "#TAG:lw100\r\n");
    EXPECT_EQ(Index.Formatstand, 0);
    EXPECT_EQ(Index.Optionen.Dateitypen, DateitypenVorgabe());
    EXPECT_EQ(Index.IndexTreffer, std::vector<std::int16_t>{1});
    EXPECT_TRUE(Person.Meldungen.empty());
}

TEST_F(LadenTest, NurWasSicherFehltWirdAngelegt) {
    // Another program makes the index while we look for backups.
    struct Dazwischen final : public liedwerk::Ordnerleser {
        std::function<void()> Tun;
        bool Auflisten(std::string_view, const std::function<bool(const Ordnereintrag&)>&) const override {
            Tun();
            return true;
        }
    } Leserin;
    Leserin.Tun = [&] { Ablegen(Datei, Kopf() + Beispielzeile + "\r\n"); };
    const Indexumgebung Eigene{Person, Log, Uhr, Leserin, Ordner, Leser, Verfügbarkeit};
    EXPECT_EQ(DateiLaden(Index, Werte, Eigene, Datei, false, false, 1), Ladeergebnis::Index);
    EXPECT_EQ(Index.IndexAnzahl(), 1);
    EXPECT_FALSE(fs::exists(Datei + "~"));
    // What cannot be opened is not missing.
    fs::remove(Datei);
    fs::create_symlink(Datei, Datei);
    Log.Zeilen.clear();
    EXPECT_EQ(Laden(Datei), Ladeergebnis::Fehlschlag);
    EXPECT_FALSE(Geloggt("nicht gefunden"));
    EXPECT_TRUE(Geloggt("Fehler beim Zugriff - "));
}

TEST_F(LadenTest, NebenEinerFehlendenDateiSchaltenSicherungenDasSichernAb) {
    Ablegen(Ordner + "/b.BAK", "");
    Werte.BackupsSpeichern = 1;
    EXPECT_EQ(Laden(Datei, 1, true), Ladeergebnis::Index);
    EXPECT_EQ(Werte.BackupsSpeichern, 1);
    fs::remove(Datei);
    EXPECT_EQ(Laden(Datei), Ladeergebnis::Index);
    EXPECT_EQ(Werte.BackupsSpeichern, 0);
    ASSERT_EQ(Person.Meldungen.size(), 1U);
    EXPECT_NE(Person.Meldungen[0].find("mindestens eine Sicherungskopie"), std::string::npos);
}

TEST_F(LadenTest, FehlenderOrdnerWirdGemeldetUndNichtAngelegt) {
    EXPECT_EQ(Laden(Ordner + "/fehlt/a.lwi"), Ladeergebnis::Fehlschlag);
    ASSERT_EQ(Person.Meldungen.size(), 1U);
    EXPECT_NE(Person.Meldungen[0].find("da der Ordner '" + Ordner + "/fehlt' nicht existiert."),
              std::string::npos);
    EXPECT_FALSE(fs::exists(Ordner + "/fehlt"));
}

TEST_F(LadenTest, OrdnerUndTagEditorArbeitenAufDemTemporärenIndex) {
    EXPECT_EQ(Laden(Ordner), Ladeergebnis::Dateimanager);
    EXPECT_EQ(Index.Optionen.SyncOrdner, (std::vector<SyncRegel>{{Ordner, 0, ""}}));
    EXPECT_EQ(Index.Optionen.SyncLeer, 0);
    Ablegen(Ordner + "/tmp.lwi", Kopf() + Beispielzeile + "\r\n");
    EXPECT_EQ(Laden("/x.mp3", 3), Ladeergebnis::TagEditor);
    EXPECT_EQ(Index.IndexAnzahl(), 0);
    EXPECT_TRUE(Geloggt("Ungültige Zeile - '#TAG:12"));
    EXPECT_EQ(Werte.Mp3TagLesen, "0010");
    EXPECT_EQ(Index.Optionen.SyncLeer, 1);
}

TEST_F(LadenTest, LiegengebliebeneTemporärdateiWirdNachFrageGelöscht) {
    Ablegen(Datei + "~", "angefangen");
    EXPECT_EQ(InhaltLaden(Kopf()), Ladeergebnis::Fehlschlag);
    EXPECT_EQ(Inhalt(Datei + "~"), "angefangen");
    EXPECT_GT(Uhr.Vergangen, 4000);
    Person.Antworten = {Antwort::Ja};
    EXPECT_EQ(Laden(Datei), Ladeergebnis::Index);
    EXPECT_FALSE(fs::exists(Datei + "~"));
    EXPECT_EQ(Inhalt(Datei), Kopf());
}

TEST_F(LadenTest, LaufendesSpeichernWirdAbgewartetUndNieGestört) {
    Ablegen(Datei + "~", "laufend");
    const int Griff = ::open((Datei + "~").c_str(), O_RDWR);
    ASSERT_EQ(::flock(Griff, LOCK_EX), 0);
    Person.Antworten = {Antwort::Ja};
    EXPECT_EQ(InhaltLaden(Kopf() + Beispielzeile + "\r\n"), Ladeergebnis::Index);
    EXPECT_EQ(Index.IndexAnzahl(), 1);
    EXPECT_EQ(Inhalt(Datei + "~"), "laufend");
    EXPECT_EQ(Speichern(), Speicherergebnis::Fehlgeschlagen);
    EXPECT_EQ(Inhalt(Datei + "~"), "laufend");
    ASSERT_EQ(Person.Meldungen.size(), 1U);
    EXPECT_NE(Person.Meldungen[0].find("da die temporäre Datei"), std::string::npos);
    ::close(Griff);
    Person.Gefragt.clear();
    // The other save comes to its end while we wait.
    Person.Zwischendurch = [&] { fs::remove(Datei + "~"); };
    EXPECT_EQ(Laden(Datei), Ladeergebnis::Index);
    EXPECT_TRUE(Person.Gefragt.empty());
}

TEST_F(LadenTest, EinVerweisAufDenIndexKenntDieTemporärdateiDerEchtenDatei) {
    fs::create_directory(Ordner + "/fern");
    const std::string Echt = Ordner + "/fern/echt.lwi";
    Ablegen(Echt, Kopf() + Beispielzeile + "\r\n");
    fs::create_symlink(Echt, Datei);
    Ablegen(Echt + "~", "angefangen");
    EXPECT_EQ(Laden(Datei), Ladeergebnis::Fehlschlag);
    Person.Antworten = {Antwort::Ja};
    EXPECT_EQ(Laden(Datei), Ladeergebnis::Index);
    EXPECT_FALSE(fs::exists(Echt + "~"));
    EXPECT_EQ(Speichern(), Speicherergebnis::Gespeichert);
    EXPECT_TRUE(fs::is_symlink(Datei));
}

TEST_F(LadenTest, GanzeTemporärdateiTrittAnDieStelleEinesFehlendenOderKaputtenIndex) {
    const std::string Ganz = Kopf() + Beispielzeile + "\r\n";
    for (const std::string& Alt : {std::string(), std::string("#TAG:lw102\r\n#TAG:5|abc\r\n")}) {
        fs::remove(Datei);
        if (!Alt.empty()) Ablegen(Datei, Alt);
        Ablegen(Datei + "~", Ganz);
        Person.Antworten = {Antwort::Ja};
        EXPECT_EQ(Laden(Datei), Ladeergebnis::Index);
        EXPECT_EQ(Index.IndexAnzahl(), 1);
        EXPECT_EQ(Inhalt(Datei), Ganz);
        EXPECT_FALSE(fs::exists(Datei + "~"));
        if (!Alt.empty()) {
            EXPECT_EQ(Inhalt(SicherungskopieName(Datei, Uhr.Punkt)), Alt);
        }
    }
    // Cut in the middle of a line it is not whole.
    Ablegen(Datei, "#TAG:lw102\r\n#TAG:5|abc\r\n");
    Ablegen(Datei + "~", Ganz.substr(0, Ganz.size() - 5));
    Person.Antworten = {Antwort::Ja};
    Laden(Datei);
    EXPECT_EQ(Index.Sätze.Pfad(1), "abc");
}

TEST_F(LadenTest, OptionenWerdenSoweitMöglichGelesenUndBeanstandet) {
    InhaltLaden(
        "#TAG:lw102\r\n#OPT:SYNC=C:\\a, b,-1,D:\\x,y\r\n#OPT:SYNC=,x,E:\r\n#OPT:SYNC=C:\\allein\r\n"
        "#OPT:VERWALTEN=xm=1,010\r\n#OPT:VERWALTEN=MP3=0,11x\r\n#OPT:SPALTEN_GITTER=12\r\n"
        "#OPT:SPALTEN_LEISTE=x\r\n#OPT:NEU=1\r\n#OPT:EIGENTUEMER=\r\n#OPT:SPALTEN=1=5\r\nMist\r\n");
    EXPECT_EQ(Index.Optionen.SyncOrdner,
              (std::vector<SyncRegel>{{"C:\\a, b", -1, "D:\\x,y"}, {"", 0, "E:"}, {"C:\\allein", 0, ""}}));
    ASSERT_GE(Index.Optionen.Dateitypen.size(), 2U);
    EXPECT_EQ(Index.Optionen.Dateitypen[0], (Dateityp{"xm=1", "010"}));
    EXPECT_EQ(Index.Optionen.Dateitypen[1], (Dateityp{"MP3=0", ""}));
    EXPECT_EQ(Index.Optionen.Dateitypen.size(), 2 + DateitypenVorgabe().size() - 1);
    EXPECT_EQ(Index.Optionen.SpaltenGitter, 0);
    EXPECT_EQ(Index.Optionen.SpaltenLeiste, 1);
    EXPECT_EQ(Index.Optionen.Spalten, "1=5");
    EXPECT_TRUE(Index.IndexGeändert);
    for (const char* Zeile :
         {"DateiLaden: Ungültiger Optionsteil 1 - #OPT:SYNC=,x,E:/3",
          "DateiLaden: Ungültiger Optionsteil 2 - #OPT:SYNC=,x,E:/3",
          "DateiLaden: Ungültige Option (nach lesen) - #OPT:SYNC=C:\\allein/4",
          "DateiLaden: Ungültiger Optionsteil 2 - #OPT:VERWALTEN=MP3=0,11x/6",
          "DateiLaden: Ungültige Option (nach lesen) - #OPT:SPALTEN_GITTER=12/7",
          "DateiLaden: Ungültige Option 2 (nach lesen) - #OPT:SPALTEN_LEISTE=x/8",
          "DateiLaden: Ungültige Option - #OPT:NEU=1/9", "DateiLaden: Ungültige Zeile - 'Mist'/12",
          "DateiLesen: DateitypenVerwalten erstellen für Endung 'mp2=1'"}) {
        EXPECT_EQ(std::ranges::count(Log.Zeilen, Zeile), 1) << Zeile;
    }
}

TEST_F(LadenTest, TermineKommenMitLeerenNullenUndÜberzähligenFeldern) {
    const std::string Gut = "#TERMIN:3///16/////1///2|abc24.12.2026 18:007ru\r\n";
    InhaltLaden(Kopf() + Gut + "#TERMIN:1//////////////2|axy\r\n#TERMIN:9|kurz\r\n#TERMIN:ohne\r\n");
    ASSERT_EQ(Index.Termine.size(), 3U);
    EXPECT_EQ(Index.Termine[0].Beschreibung, "abc");
    EXPECT_EQ(Index.Termine[0].Benachrichtigen, 0);
    EXPECT_EQ(Index.Termine[0].Intervall, 7);
    EXPECT_EQ(Index.Termine[0].Anwendung, "ru");
    EXPECT_EQ(Index.Termine[2].Beschreibung, "kurz");
    EXPECT_TRUE(Geloggt("Datenfeld nicht erkannt, da neuer (Termine)"));
    EXPECT_TRUE(Geloggt("Checksumme ist 18 statt 14 (Termine), Zeile = '#TERMIN:9|kurz'"));
    Index.Termine.Entfernen(2);
    Index.Termine.Entfernen(1);
    Speichern();
    EXPECT_NE(Inhalt(Datei).find(Gut), std::string::npos);
}

TEST(Terminliste, GibtJedenInhaltWiederHer) {
    const std::string Lang(100000, 'x');
    Terminliste Liste{{}, {"\n", Lang, -1, "", "0", std::string(3, '\0'), "", "y", -32768, 32767, Lang, "a"}};
    Liste.push_back({"", "", 0, "", "", "", "", "", 0, 0, "", std::string("b\0\0", 3)});
    const std::vector<Termin> Alle(Liste.begin(), Liste.end());
    ASSERT_EQ(Alle.size(), 3U);
    EXPECT_EQ(Alle[0], Termin{});
    EXPECT_EQ(Alle[1].Kategorie + Alle[1].BenachrichtigenAm + Alle[1].Anwendung,
              Lang + std::string(3, '\0') + "a");
    EXPECT_EQ(Alle[1].Benachrichtigen + Alle[1].Intervall + Alle[1].AnzeigeDauer, -2);
    EXPECT_EQ(Alle[2].Anwendung, std::string("b\0\0", 3));
    Liste.Setzen(0, Alle[2]);
    Liste.Entfernen(2);
    EXPECT_EQ(Liste, (Terminliste{Alle[2], Alle[1]}));
}

TEST_F(LadenTest, GleicheLeereZeilenSindJedeEinSatz) {
    InhaltLaden(Kopf() + "#TAG:|\r\n#TAG:|\r\n#TAG:|\r\n");
    ASSERT_EQ(Index.IndexAnzahl(), 3);
    Index.Sätze.PfadSetzen(2, "/b");
    Index.Sätze.Entfernen(std::vector<Satznummer>{1});
    EXPECT_EQ(Index.Sätze.Pfad(1) + "," + Index.Sätze.Pfad(2), "/b,");
}

TEST_F(LadenTest, UnvollständigeSätzeWerdenNachgelesen) {
    const auto Zeile = [](std::string_view Datum, std::string_view Größe, std::string_view Typ) {
        return "#TAG:2////////" + std::to_string(Größe.size()) + "//1/1/1/1/1/" +
               (Datum.empty() ? "" : std::to_string(Datum.size())) + "/" + std::to_string(Typ.size()) +
               "//1/|/a" + std::string(Größe) + "00000" + std::string(Datum) + std::string(Typ) + "0\r\n";
    };
    Werte.Mp3TagLesen = "011";
    std::vector<std::string> Gelesen;
    Leser = [&](std::string_view Pfad, Datensatz Satz, const Leseauftrag& Auftrag) {
        Gelesen.emplace_back(Pfad);
        EXPECT_FALSE(Auftrag.Code->Id3v2);
        EXPECT_TRUE(Auftrag.Code->Datenstrom && Auftrag.GrößeLesen && Auftrag.WechselmediumLesen);
        Satz.Größe = 77;
        return Satz;
    };
    const std::string Text = Kopf() + Zeile("01.02.2003", "5", "1") + Zeile("", "5", "1") +
                             Zeile("01.02.2003", "-1", "1") + Zeile("01.02.2003", "5", "-1");
    InhaltLaden(Text);
    EXPECT_EQ(Gelesen.size(), 3U);
    EXPECT_EQ(Index.Sätze.Zahl(1, FeldGröße), 5);
    EXPECT_EQ(Index.Sätze.Zahl(3, FeldGröße), 77);
    EXPECT_TRUE(Index.IndexGeändert);
    // Skipping leaves a record as it is, aborting and cancelling end the pass.
    Verfügbarkeit = [](Katalog&, Satznummer Nummer) { return Nummer == 2 ? 1 : Nummer == 4 ? 2 : 0; };
    Gelesen.clear();
    InhaltLaden(Text);
    EXPECT_EQ(Gelesen.size(), 1U);
    Person.AbbruchBei = Person.Zeigungen + 3;
    InhaltLaden(Text);
    EXPECT_TRUE(Geloggt("DateiLaden: Abbruch"));
    Person.AbbruchBei = 0;
    Werte.Mp3TagLesen = "000";
    Gelesen.clear();
    InhaltLaden(Text);
    EXPECT_TRUE(Gelesen.empty());
}

}  // namespace
}  // namespace liedwerk
