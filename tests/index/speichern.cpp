// Saving: the same bytes, never a torn file, backups, and what stands between two programs.
#include <chrono>
#include <csignal>
#include <sys/resource.h>

#include "umgebung.h"

namespace liedwerk {
namespace {

class SpeichernTest : public Indextest {
  protected:
    // A record that a save writes with all its fields.
    static Datensatz Satz(const std::string& Titel) {
        Datensatz Daten;
        Daten.Titel = Titel;
        Daten.HinzufügeDatum = "01.02.2003";
        Daten.V2Qualität = KeineV2Qualität;
        return Daten;
    }
    void Altern(const std::string& Pfad, int Stunden) {
        const auto Zeit =
            std::chrono::sys_seconds(std::chrono::seconds(Kalendersekunden(Uhr.Punkt) - Stunden * 3600));
        fs::last_write_time(Pfad, std::chrono::file_clock::from_sys(Zeit));
    }
    std::vector<std::string> Sicherungen() {
        auto Funde = *SicherungskopienSuchen(Ordnerleser, Ordner);
        std::ranges::sort(Funde);
        return Funde;
    }
};

TEST_F(SpeichernTest, LadenUndSpeichernGibtDieselbenBytes) {
    std::string Text;
    for (int Byte = 0; Byte < 256; ++Byte) {
        if (Byte != '\r' && Byte != '\n') Text += static_cast<char>(Byte);
    }
    std::string Ganz =
        Kopf("#OPT:SYNC=C:\\a,1,D:\\b\r\n") + "#TERMIN:3///////////|abc\r\n" + ZeileMit({}) + "\r\n";
    const std::string Marke = "\xEF\xBB\xBF";
    for (const std::string& Wert :
         {Text, Marke, Marke + "Ж", Marke + Marke, Marke + Text, std::string("a\nb\rc")}) {
        Ganz += ZeileMit({{FeldTitel, Wert}}) + "\r\n";
        Ganz += ZeileMit({{FeldPfad, Wert}, {FeldBenutzerDaten, Wert}, {FeldV2Qualität, "\r"}}, 43) + "\r\n";
    }
    InhaltLaden(Ganz);
    ASSERT_EQ(Index.IndexAnzahl(), 13);
    EXPECT_FALSE(Index.IndexGeändert);
    ASSERT_EQ(Speichern(), Speicherergebnis::Gespeichert);
    EXPECT_EQ(Inhalt(Datei), Ganz);
    // The same for records that are built anew from their members.
    for (Satznummer i = 1; i <= 11; ++i)
        Index.Sätze.Setzen(i, Index.Sätze.Pfad(i), Index.Sätze.Lesen(i));
    ASSERT_EQ(Speichern(), Speicherergebnis::Gespeichert);
    EXPECT_EQ(Inhalt(Datei), Ganz);
    EXPECT_FALSE(fs::exists(Datei + "~"));
}

TEST_F(SpeichernTest, GemischtAusAltenUndNeuenSätzenLiestSichWieImSpeicher) {
    std::string Ganz = Kopf();
    for (int i = 0; i < 2000; ++i)
        Ganz += Beispielzeile + "\r\n";
    InhaltLaden(Ganz);
    for (Satznummer i = 3; i < 2000; i += 7)
        Index.Sätze.Setzen(i, "/Ж", Satz("Neu " + std::to_string(i)));
    SatzAnhängen(Index, "/zeile\nende", Satz("a\r\nb"));
    Index.Sätze.Vertauschen(1, 2001);
    std::vector<std::string> Pfade;
    for (Satznummer i = 1; i <= Index.IndexAnzahl(); ++i)
        Pfade.push_back(Index.Sätze.Pfad(i));
    Pfade[0] = "/zeile ende";
    ASSERT_EQ(Speichern(), Speicherergebnis::Gespeichert);
    Laden(Datei);
    ASSERT_EQ(Index.IndexAnzahl(), 2001);
    for (Satznummer i = 1; i <= 2001; ++i)
        ASSERT_EQ(Index.Sätze.Pfad(i), Pfade[static_cast<std::size_t>(i - 1)]);
    EXPECT_EQ(Index.Sätze.Text(1, FeldTitel), "a  b");
    EXPECT_EQ(Index.Sätze.Text(10, FeldTitel), "Neu 10");
    EXPECT_FALSE(Geloggt("Checksumme"));
}

// The extended group depends on the mark, the user's data and the user's rating, not on the fields.
TEST_F(SpeichernTest, ErweiterteFelderStehenNurMitMarkeInDerDatei) {
    InhaltLaden(Kopf());
    for (int i = 0; i < 4; ++i) {
        Datensatz Daten = Satz("t");
        Daten.V2Kommentar = "k";
        Daten.HatId3v2 = i == 1 ? TagVorhanden : TagFehlt;
        Daten.BenutzerDaten = i == 2 ? "b" : "";
        Daten.Qualität = i == 3 ? 1 : -1;
        SatzAnhängen(Index, "/a", Daten);
    }
    Speichern();
    Laden(Datei);
    std::string Kommentare;
    for (Satznummer i = 1; i <= 4; ++i)
        Kommentare += Index.Sätze.Text(i, FeldV2Kommentar) + ".";
    EXPECT_EQ(Kommentare, ".k.k.k.");
}

TEST_F(SpeichernTest, ZuLangeWerteWerdenNurInDerDateiGekürzt) {
    InhaltLaden(Kopf());
    SatzAnhängen(Index, "/a", Satz(std::string(100001, 'x')));
    Speichern();
    EXPECT_TRUE(Geloggt("'Titel' ist länger als 100000"));
    EXPECT_EQ(Index.Sätze.Text(1, FeldTitel).size(), 100001U);
    Laden(Datei);
    EXPECT_EQ(Index.Sätze.Text(1, FeldTitel).size(), 100000U);
}

TEST_F(SpeichernTest, FremdeÄnderungWirdErfragt) {
    InhaltLaden(Kopf());
    Ablegen(Datei, Kopf() + Beispielzeile + "\r\n");
    EXPECT_EQ(Speichern(), Speicherergebnis::Abgebrochen);
    ASSERT_EQ(Person.Gefragt.size(), 1U);
    EXPECT_NE(Person.Gefragt[0].find("zwischenzeitlich geändert"), std::string::npos);
    EXPECT_EQ(Inhalt(Datei), Kopf() + Beispielzeile + "\r\n");
    Person.Antworten = {Antwort::Ja};
    EXPECT_EQ(Speichern(), Speicherergebnis::Gespeichert);
    EXPECT_EQ(Person.Gefragt.size(), 2U);
    // Our own save is no foreign change.
    EXPECT_EQ(Speichern(), Speicherergebnis::Gespeichert);
    EXPECT_EQ(Person.Gefragt.size(), 2U);
}

TEST_F(SpeichernTest, ZweiFremdeSpeicherungenInEinerSekundeFallenAuf) {
    InhaltLaden(Kopf() + Beispielzeile + "\r\n");
    if (Index.IndexDateiGeneration == 0) GTEST_SKIP() << "the file system does not tell";
    const auto Zeit = fs::last_write_time(Datei);
    const std::string Fremd = Kopf() + ZeileMit({{FeldInterpret, "BABA"}}) + "\r\n";
    // The second one is given the inode that the first one has set free.
    for (int Mal = 0; Mal < 2; ++Mal) {
        Ablegen(Datei + ".neu", Fremd);
        fs::rename(Datei + ".neu", Datei);
        fs::last_write_time(Datei, Zeit);
    }
    EXPECT_EQ(Speichern(), Speicherergebnis::Abgebrochen);
    EXPECT_EQ(Inhalt(Datei), Fremd);
}

TEST_F(SpeichernTest, AbbruchLässtAlteDateiUndÄnderungBestehen) {
    InhaltLaden(Kopf() + Beispielzeile + "\r\n");
    SatzAnhängen(Index, "/neu", Satz("t"));
    Index.IndexGeändert = true;
    Person.AbbruchBei = Person.Zeigungen + 1;
    EXPECT_EQ(Speichern(), Speicherergebnis::Abgebrochen);
    EXPECT_EQ(Inhalt(Datei), Kopf() + Beispielzeile + "\r\n");
    EXPECT_FALSE(fs::exists(Datei + "~"));
    EXPECT_TRUE(Index.IndexGeändert);
    EXPECT_EQ(Person.Offen, 0);
}

TEST_F(SpeichernTest, GescheitertesSchreibenLässtAlteDateiGanz) {
    InhaltLaden(Kopf());
    for (int i = 0; i < 100; ++i)
        SatzAnhängen(Index, "/neu", Satz(std::string(1000, 't')));
    Index.IndexGeändert = true;
    rlimit Alt{};
    ::getrlimit(RLIMIT_FSIZE, &Alt);
    const auto Vorher = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit Eng{50000, Alt.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &Eng);
    const auto Ergebnis = Speichern();
    ::setrlimit(RLIMIT_FSIZE, &Alt);
    std::signal(SIGXFSZ, Vorher);
    EXPECT_EQ(Ergebnis, Speicherergebnis::Fehlgeschlagen);
    EXPECT_EQ(Inhalt(Datei), Kopf());
    EXPECT_FALSE(fs::exists(Datei + "~"));
    EXPECT_TRUE(Index.IndexGeändert);
    ASSERT_EQ(Person.Meldungen.size(), 1U);
    EXPECT_TRUE(
        Person.Meldungen[0].starts_with("Es ist ein Fehler beim Speichern der Indexdatei aufgetreten.\n"));
    EXPECT_TRUE(Geloggt("DateiSpeichern: Fehler - "));
}

TEST_F(SpeichernTest, SicherungenEntstehenNachAbstandUndVergehenNachTagen) {
    InhaltLaden(Kopf());
    Altern(Datei, 1);
    Laden(Datei);
    EXPECT_EQ(Speichern(), Speicherergebnis::Gespeichert);
    EXPECT_TRUE(Sicherungen().empty());

    Werte.BackupsSpeichern = 1;
    const std::string Neue = Datei + " - Backup vom 21.11.2026 12-00-00.bak";
    const std::string Junge = Datei + " - Backup vom 21.11.2026 09-00-00.bak";
    const std::string Alte = Datei + " - Backup vom 15.11.2026 09-00-00.bak";
    const std::string Fremde = Datei + " - meine eigene.bak";
    Ablegen(Junge, "jung");
    Altern(Junge, 3);
    Ablegen(Fremde, "fremd");
    Altern(Fremde, 24 * 30);
    // Of another index, whose name differs in case only.
    const std::string Große = Ordner + "/A.LWI - Backup vom 15.11.2026 09-00-00.bak";
    Ablegen(Große, "groß");
    Altern(Große, 24 * 30);
    EXPECT_EQ(Speichern(), Speicherergebnis::Gespeichert);
    EXPECT_EQ(Sicherungen(), (std::vector<std::string>{Große, Junge, Fremde}));

    fs::remove(Junge);
    Ablegen(Alte, "alt");
    Altern(Alte, 24 * 6);
    EXPECT_EQ(Speichern(), Speicherergebnis::Gespeichert);
    EXPECT_EQ(Sicherungen(), (std::vector<std::string>{Große, Neue, Fremde}));
    EXPECT_EQ(Inhalt(Neue), Kopf());
    EXPECT_TRUE(Person.Meldungen.empty());

    // While no new one can be made, an old one stays.
    fs::remove(Neue);
    fs::create_directories(Neue + "/im Weg");
    Ablegen(Alte, "alt");
    Altern(Alte, 24 * 6);
    EXPECT_EQ(Speichern(), Speicherergebnis::Gespeichert);
    EXPECT_EQ(Inhalt(Alte), "alt");
    EXPECT_EQ(Person.Meldungen.size(), 1U);
}

TEST_F(SpeichernTest, FremdesUnterDemVorläufigenNamenBleibtUndWirdGenannt) {
    Ablegen(Datei, Kopf());
    Laden(Datei);
    Ablegen(Datei + "~", "von einem anderen Programm");
    EXPECT_EQ(Speichern(), Speicherergebnis::Fehlgeschlagen);
    EXPECT_EQ(Inhalt(Datei + "~"), "von einem anderen Programm");
    ASSERT_EQ(Person.Meldungen.size(), 1U);
    EXPECT_NE(Person.Meldungen[0].find("'" + Datei + "~' stammt nicht von diesem"), std::string::npos);
    for (const char* Rest : {"", "#TAG:lw102\r\nangefangen"}) {
        Ablegen(Datei + "~", Rest);
        EXPECT_EQ(Speichern(), Speicherergebnis::Gespeichert) << "the rest of a save of ours";
    }
}

TEST_F(SpeichernTest, DateimanagerSchreibtNurDenKopfInDenTemporärenIndex) {
    Laden(Ordner);
    SatzAnhängen(Index, "/a", Satz("t"));
    EXPECT_EQ(Speichern(), Speicherergebnis::Gespeichert);
    EXPECT_FALSE(fs::exists(Datei));
    const std::string Geschrieben = Inhalt(Ordner + "/tmp.lwi");
    EXPECT_TRUE(Geschrieben.starts_with("#TAG:lw102\r\n#OPT:SYNC=" + Ordner + ",0,\r\n"));
    EXPECT_EQ(Geschrieben.find("#TAG:", 5), std::string::npos);
}

}  // namespace
}  // namespace liedwerk
