// The real program on real files.
#include <cctype>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <vector>

#include "basis/datei.h"
#include "werkzeuge/tagbau.h"

namespace liedwerk {
namespace {

namespace fs = std::filesystem;

// Walks one JSON value; npos when it is none.
std::size_t JsonWert(std::string_view Text, std::size_t i) {
    const auto Leeres = [&] {
        while (i < Text.size() && std::isspace(static_cast<unsigned char>(Text[i])))
            ++i;
    };
    Leeres();
    if (i >= Text.size()) return std::string_view::npos;
    if (Text[i] == '"') {
        for (++i; i < Text.size() && Text[i] != '"'; ++i) {
            if (static_cast<unsigned char>(Text[i]) < 0x20) return std::string_view::npos;
            if (Text[i] == '\\') ++i;
        }
        return i < Text.size() ? i + 1 : std::string_view::npos;
    }
    if (Text[i] != '{' && Text[i] != '[') {
        const auto Ende = Text.find_first_of(",]} \n", i);
        const auto Wort = Text.substr(i, Ende - i);
        const bool Gut = Wort == "true" || Wort == "false" || Wort == "null" ||
                         (!Wort.empty() && Wort.find_first_not_of("-0123456789") == std::string_view::npos);
        return Gut ? std::min(Ende, Text.size()) : std::string_view::npos;
    }
    const bool Objekt = Text[i] == '{';
    const char Schluss = Objekt ? '}' : ']';
    ++i;
    Leeres();
    if (i < Text.size() && Text[i] == Schluss) return i + 1;
    for (;;) {
        if (Objekt) {
            i = JsonWert(Text, i);
            if (i >= Text.size() || Text[i++] != ':') return std::string_view::npos;
        }
        i = JsonWert(Text, i);
        if (i == std::string_view::npos) return i;
        Leeres();
        if (i >= Text.size()) return std::string_view::npos;
        if (Text[i] == Schluss) return i + 1;
        if (Text[i++] != ',') return std::string_view::npos;
    }
}

bool IstEinJsonDokument(std::string_view Text) {
    const auto Ende = JsonWert(Text, 0);
    return Ende != std::string_view::npos && Text.find_first_not_of(" \n", Ende) == std::string_view::npos;
}

class Programmtest : public ::testing::Test {
  protected:
    void SetUp() override {
        std::string Muster = (fs::temp_directory_path() / "liedwerk-cli-XXXXXX").string();
        ASSERT_NE(::mkdtemp(Muster.data()), nullptr);
        Ordner = Muster;
        Lied("musik/a.mp3", "Dancing Queen", "ABBA", 17);
        Lied("musik/tief/b.mp3", "Lied", "Jos\xE9", 255);
        Lied("musik/x\x1b[2J\xFF.mp3", "Waterloo", "ABBA", 17);
    }
    void TearDown() override { fs::remove_all(Ordner); }

    void Lied(std::string_view Name, std::string_view Titel, std::string_view Interpret, int Genre) {
        tagbau::Id3v1Angaben Angaben;
        Angaben.Titel = Titel;
        Angaben.Interpret = Interpret;
        Angaben.Genre = Genre;
        const std::string Pfad = Ordner + "/" + std::string(Name);
        fs::create_directories(fs::path(Pfad).parent_path());
        std::ofstream(Pfad, std::ios::binary) << tagbau::MpegRahmen({}, 4) + tagbau::Id3v1Block(Angaben);
    }
    // Runs the program; Aus and Fehler receive what it wrote. The exit status.
    int Cli(const std::string& Argumente) {
        const std::string Befehl = "cd '" + Ordner +
                                   "' && '" LIEDWERK_CLI "' --programmordner p --einstellungen e.ini " +
                                   Argumente + " >aus 2>fehler </dev/null";
        const int Stand = std::system(Befehl.c_str());
        Aus = DateiLesen(Ordner + "/aus").value_or("");
        Fehler = DateiLesen(Ordner + "/fehler").value_or("");
        return WIFEXITED(Stand) ? WEXITSTATUS(Stand) : -1;
    }
    std::string Index() const { return DateiLesen(Ordner + "/p/lwStamm.lwi").value_or(""); }
    bool Enthält(std::string_view Text) const { return Aus.find(Text) != std::string::npos; }

    std::string Ordner;
    std::string Aus;
    std::string Fehler;
};

TEST_F(Programmtest, EinFehlenderIndexEntstehtNurWoErSoll) {
    for (const char* Befehl :
         {"index-info", "index-speichern", "saetze", "suchen a", "feldwerte --felder Titel"}) {
        EXPECT_EQ(Cli(Befehl), 1) << Befehl;
        EXPECT_NE(Fehler.find("wurde nicht gefunden"), std::string::npos) << Befehl;
        EXPECT_FALSE(fs::exists(Ordner + "/p/lwStamm.lwi")) << Befehl;
    }
    EXPECT_TRUE(fs::exists(Ordner + "/e.ini"));
    EXPECT_EQ(Cli("--json index-neu"), 0);
    EXPECT_EQ(Aus, "{\"Datei\":\"" + Ordner + "/p/lwStamm.lwi\"}\n");
    EXPECT_EQ(Index(), "#TAG:lw100\r\n");
    EXPECT_EQ(Cli("--index musik index-info"), 1);
    EXPECT_EQ(Cli("--index fehlt/x.lwi index-neu"), 1);
    EXPECT_NE(Fehler.find("nicht existiert."), std::string::npos);
}

TEST_F(Programmtest, EinCdAbbildIstEinLaufwerkMitTiteln) {
    fs::create_directories(Ordner + "/p/CDDB");
    std::ofstream(Ordner + "/a.bin") << std::string(std::size_t{2352} * 300, 'x');
    const std::string Anfang =
        "FILE a.bin BINARY\nTRACK 01 AUDIO\nINDEX 01 00:00:00\nTRACK 02 AUDIO\nINDEX 01 ";
    std::ofstream(Ordner + "/a.cue") << Anfang << "00:02:00";
    std::ofstream(Ordner + "/leer.cue") << "TITLE x";
    ASSERT_EQ(Cli("--json cd-info a.cue"), 0) << Fehler;
    EXPECT_TRUE(IstEinJsonDokument(Aus));
    for (const char* Teil : {"\"DiskID\":\"06000402\"", "cddb+query+06000402+2+150+300+6", "[150,300,450]"})
        EXPECT_TRUE(Enthält(Teil)) << Aus;
    EXPECT_EQ(Cli("cd-info leer.cue") + Cli("cd-info /dev/null") + Cli("hinzufuegen leer.cue"), 3);
    EXPECT_NE(Fehler.find("nennt keinen Titel"), std::string::npos);

    // Of a disc of mixed mode only the sound comes into the index; its id counts all tracks.
    std::ofstream(Ordner + "/m.cue")
        << "FILE a.bin BINARY\nTRACK 01 MODE1/2352\nINDEX 01 00:00:00\nTRACK 02 AUDIO\nINDEX 01 00:02:00";
    ASSERT_EQ(Cli("--index m.lwi hinzufuegen m.cue"), 0) << Fehler;
    ASSERT_EQ(Cli("--index m.lwi --json saetze"), 0);
    for (const char* Teil : {"[{\"Nummer\":1,", "m.cue/Track02.cda", "\"Titel\":\"Titel 2\"", "06000402\""})
        EXPECT_TRUE(Enthält(Teil)) << Teil << "\n" << Aus;

    std::ofstream(Ordner + "/p/CDDB/06000402.dat")
        << "lwifcddb1\r\nDTITLE=Various / Fest\r\nTTITLE0=A / B\r\nTTITLE1=C";
    ASSERT_EQ(Cli("hinzufuegen a.cue"), 0) << Fehler;
    ASSERT_EQ(Cli("--json saetze 1"), 0);
    for (const char* Teil :
         {"a.cue/Track01.cda", "\"Titel\":\"B\"", "\"Interpret\":\"A\"", "\"Album\":\"Fest\"",
          "\"Wechselmedium\":\" 06000402\"", "\"Dauer\":2", "\"Dateityp\":5"})
        EXPECT_TRUE(Enthält(Teil)) << Teil << "\n" << Aus;
    EXPECT_EQ(Cli("hinzufuegen a.cue"), 0);
    EXPECT_TRUE(Enthält("0 Datei(en) hinzugefügt, 2")) << Aus;
    // Another disc in the same place: its tracks are others, and those of the first one are out of reach.
    std::ofstream(Ordner + "/a.cue") << Anfang << "00:01:00";
    EXPECT_EQ(Cli("hinzufuegen a.cue"), 0);
    EXPECT_TRUE(Enthält("2 Datei(en) hinzugefügt, 4")) << Aus;
    fs::rename(Ordner + "/a.cue", Ordner + "/b.cue");
    EXPECT_EQ(Cli("--json aufraeumen --methode 5"), 0);
    EXPECT_EQ(Aus, "[]\n") << "a disc that is out is not missing";

    ASSERT_EQ(Cli("--json cd-cache"), 0);
    EXPECT_TRUE(Enthält("\"ID\":\"06000402\"") && Enthält("\"Album\":\"Fest\"") && IstEinJsonDokument(Aus));
    ASSERT_EQ(Cli("--json xmcd p/CDDB/06000402.dat"), 0);
    EXPECT_TRUE(Enthält("\"Titel\":[\"A / B\",\"C\"]") && IstEinJsonDokument(Aus)) << Aus;
    std::ofstream(Ordner + "/gross") << "DTITLE=a / b\n" << std::string(1 << 20, '#');
    EXPECT_EQ(Cli("xmcd fehlt") + Cli("xmcd gross"), 2) << Fehler;
}

TEST_F(Programmtest, TagsWerdenGeschriebenUndEntferntUndDerIndexFolgt) {
    std::ofstream(Ordner + "/text") << "Zeile 1\r\nZeile 2";
    ASSERT_EQ(Cli("--json tag-schreiben --v1 Titel=Äpfel --v1 Genre=Pop --v2 V2Titel=Größe --v2 V2Qualität=9 "
                  "--liedertext text musik/a.mp3"),
              0)
        << Fehler;
    for (const char* Teil : {"\"Titel\":\"Äpfel\"", "\"Genre\":13", "\"V2Titel\":\"Größe\"",
                             "\"V2Qualität\":9", "Zeile 1\\r\\nZeile 2"})
        EXPECT_TRUE(Enthält(Teil)) << Teil;
    EXPECT_TRUE(IstEinJsonDokument(Aus));
    EXPECT_FALSE(fs::exists(Ordner + "/p/lwStamm.lwi"));

    ASSERT_EQ(Cli("hinzufuegen musik"), 0);
    EXPECT_EQ(Cli("tag-schreiben --v1 Titel=Neu musik/tief/b.mp3"), 0) << Fehler;
    EXPECT_NE(Index().find("Neu"), std::string::npos);
    EXPECT_EQ(Cli("--json tag-entfernen --v1 --lyrics musik/fehlt.mp3 musik/tief/b.mp3 musik/a.mp3"), 1);
    EXPECT_TRUE(IstEinJsonDokument(Aus));
    EXPECT_TRUE(Enthält("\"Ergebnis\":true,\"Meldung\":\"\"}]"));  // the run went on to the last file
    EXPECT_TRUE(Enthält("Diese enthält keinen Lyrics-TAG."));
    EXPECT_EQ(Index().find("Neu"), std::string::npos);
    EXPECT_EQ(Cli("tag-entfernen --v2 musik/a.mp3"), 0);
    EXPECT_EQ(DateiLesen(Ordner + "/musik/a.mp3"), tagbau::MpegRahmen({}, 4));

    const std::string Vorher = DateiLesen(Ordner + "/musik/a.mp3").value_or("");
    EXPECT_EQ(Cli("tag-schreiben --v2 V2Titel=Жук musik/a.mp3"), 1);  // the loss is refused unasked
    EXPECT_EQ(DateiLesen(Ordner + "/musik/a.mp3"), Vorher);
    EXPECT_EQ(Cli("--ja tag-schreiben --v2 V2Titel=Жук musik/a.mp3"), 0);
    for (const char* Falsch : {"--v1 Titel", "--v1 V2Titel=x", "--v2 Titel=x", "--v1 Genre=Unfug",
                               "--v2 V2Qualität=256", "--liedertext gibtsnicht", ""})
        EXPECT_EQ(Cli("tag-schreiben " + std::string(Falsch) + " musik/a.mp3"),
                  std::string_view(Falsch).starts_with("--l") ? 1 : 2)
            << Falsch;
    EXPECT_EQ(Cli("tag-entfernen musik/a.mp3"), 2);
}

TEST_F(Programmtest, NachVerlustDesIndexVergehtKeineSicherung) {
    const std::string Sicherung = Ordner + "/p/lwStamm.lwi - Backup vom 01.02.2003 10-00-00.bak";
    ASSERT_EQ(Cli("--setze BackupsSpeichern=1 hinzufuegen musik"), 0);
    std::ofstream(Ordner + "/e.ini", std::ios::app) << "BackupsSpeichern=1\n";
    fs::rename(Ordner + "/p/lwStamm.lwi", Sicherung);
    fs::last_write_time(Sicherung, fs::last_write_time(Sicherung) - std::chrono::hours(24 * 30));
    for (int Lauf = 1; Lauf <= 2; ++Lauf) {
        EXPECT_EQ(Cli("--setze HinzufügenKeineDoppelten=0 hinzufuegen musik/a.mp3"), 0);
        EXPECT_EQ(Fehler.find("mindestens eine Sicherungskopie") != std::string::npos, Lauf == 1);
        EXPECT_TRUE(fs::exists(Sicherung));
    }
}

TEST_F(Programmtest, NichtsWirdUngefragtErsetzt) {
    ASSERT_EQ(Cli("hinzufuegen musik"), 0);
    const std::string Vorher = Index();
    EXPECT_EQ(Cli("index-neu"), 1);
    std::ofstream(Ordner + "/ziel.lwi") << "wichtig";
    EXPECT_EQ(Cli("index-speichern --ausgabe ziel.lwi"), 1);
    EXPECT_EQ(DateiLesen(Ordner + "/ziel.lwi"), "wichtig");
    EXPECT_EQ(Index(), Vorher);
    EXPECT_EQ(Cli("--ja index-speichern --ausgabe ziel.lwi"), 0);
    EXPECT_EQ(DateiLesen(Ordner + "/ziel.lwi"), Vorher);
    EXPECT_EQ(Cli("--ja index-neu"), 0);
    EXPECT_EQ(Index(), "#TAG:lw100\r\n");
}

TEST_F(Programmtest, DieProbeDesUmbenennensSagtWasGeschähe) {
    Lied("musik/eins.mp3", "zwei", "A", 17);
    Lied("musik/zwei.mp3", "drei", "A", 17);
    Lied("musik/drei.mp3", "Ordner", "A", 17);
    fs::create_directory(Ordner + "/musik/Ordner.mp3");
    const auto Probe = [this](const std::string& Namen) {
        return Cli("umbenennen --probe --format %Titel% " + Namen);
    };
    EXPECT_EQ(Probe("musik/drei.mp3"), 1);
    EXPECT_NE(Fehler.find("ist ein Ordner"), std::string::npos) << Fehler;
    EXPECT_EQ(Probe("musik/eins.mp3 musik/zwei.mp3"), 1) << "both targets exist when their turn comes";
    fs::remove(Ordner + "/musik/drei.mp3");
    EXPECT_EQ(Probe("musik/zwei.mp3 musik/eins.mp3"), 0) << "the first makes room for the second";
    EXPECT_TRUE(fs::exists(Ordner + "/musik/eins.mp3"));
}

TEST_F(Programmtest, HinzufügenSpeichertUndSpeichernÄndertKeinByte) {
    EXPECT_EQ(Cli("--json hinzufuegen --ohne-unterordner musik"), 0);
    EXPECT_EQ(Aus, "{\"Hinzugefügt\":2,\n\"IndexAnzahl\":2}\n");
    // Doubles are left out, what is missing is told, and the rest is added and saved all the same.
    EXPECT_EQ(Cli("--json hinzufuegen musik fehlt.mp3"), 1);
    EXPECT_EQ(Aus, "{\"Hinzugefügt\":1,\n\"IndexAnzahl\":3}\n");
    EXPECT_NE(Fehler.find("fehlt.mp3' wurde nicht gefunden"), std::string::npos);
    const std::string Vorher = Index();
    EXPECT_TRUE(Vorher.starts_with("#TAG:lw102\r\n"));
    EXPECT_EQ(Cli("--json index-speichern"), 0);
    EXPECT_EQ(Index(), Vorher);
    EXPECT_EQ(Cli("--index neu.lwi hinzufuegen --nicht-bei A. musik"), 0);
    EXPECT_EQ(Cli("--index neu.lwi --json suchen --zaehlen"), 0);
    EXPECT_EQ(Aus, "{\"Anzahl\":2}\n");

    std::ofstream(Ordner + "/liste.m3u") << "musik\\a.mp3\r\nhttp://x/y\r\nC:\\fort.mp3\r\n";
    EXPECT_EQ(Cli("--index liste.lwi --json hinzufuegen liste.m3u"), 0);
    EXPECT_EQ(Aus, "{\"Hinzugefügt\":1,\n\"IndexAnzahl\":1}\n");
    EXPECT_NE(Fehler.find("1 Internet-Adresse(n)"), std::string::npos);
    EXPECT_NE(Fehler.find("C:\\fort.mp3"), std::string::npos);
}

TEST_F(Programmtest, SuchenZeigtTrefferUndVorschläge) {
    ASSERT_EQ(Cli("hinzufuegen musik"), 0);
    EXPECT_EQ(Cli("--json suchen --feld Interpret --spalten Titel,Genre abba"), 0);
    EXPECT_TRUE(Enthält("\"Anzahl\":2"));
    EXPECT_TRUE(Enthält("\"Titel\":\"Dancing Queen\",\"Genre\":\"Rock\"}"));
    EXPECT_EQ(Cli("--json suchen --abfrage 'Interpret|0000|abba' --abfrage 'Titel|1000|queen' --zaehlen"), 0);
    EXPECT_EQ(Aus, "{\"Anzahl\":1}\n");
    EXPECT_EQ(Cli("--json suchen --feld Interpret Josw"), 0);
    EXPECT_TRUE(Enthält("\"Anzahl\":0"));
    EXPECT_TRUE(Enthält("\"Vorschläge\":[\"José\"]"));
    EXPECT_EQ(Cli("--setze SucheVorschlägeErstellen=0 --json suchen --feld Interpret Josw"), 0);
    EXPECT_TRUE(Enthält("\"Vorschläge\":[]"));
    EXPECT_EQ(Cli("suchen --zaehlen"), 0);
    EXPECT_EQ(Aus, "3\n");
    EXPECT_EQ(Cli("suchen --feld Gibtsnicht x"), 0);
    EXPECT_NE(Fehler.find("Das Feld 'Gibtsnicht' gibt es nicht"), std::string::npos);
    EXPECT_EQ(Cli("suchen --abfrage Titel"), 2);
    EXPECT_NE(Fehler.find("Aufruf: liedwerk-cli [GLOBAL ...] suchen"), std::string::npos);
}

TEST_F(Programmtest, SortierenOrdnetDieDatei) {
    ASSERT_EQ(Cli("hinzufuegen musik"), 0);
    const std::string Vorher = Index();
    for (const char* Falsches : {"sortieren", "sortieren Titel Gibtsnicht", "sortieren a b c d"}) {
        EXPECT_EQ(Cli(Falsches), 2) << Falsches;
    }
    EXPECT_EQ(Cli("sortieren Titel Titel"), 1);
    EXPECT_EQ(Fehler, "Bitte wählen Sie jede Spalte nur einmal aus.\n");
    EXPECT_EQ(Cli("--json sortieren --absteigend --ausgabe andere.lwi Titel"), 0);
    EXPECT_EQ(Aus, "{\"IndexAnzahl\":3}\n");
    EXPECT_EQ(Index(), Vorher);
    EXPECT_EQ(Cli("--index andere.lwi --json feldwerte --felder Titel"), 0);
    EXPECT_LT(Aus.find("Waterloo"), Aus.find("Lied"));
    EXPECT_LT(Aus.find("Lied"), Aus.find("Dancing Queen"));
    // Stretches of equal keys go on by the next field, but for the last one.
    EXPECT_EQ(Cli("sortieren Interpret Titel"), 0);
    EXPECT_EQ(Cli("--json suchen --feld Interpret --spalten Titel abba"), 0);
    EXPECT_LT(Aus.find("Dancing Queen"), Aus.find("Waterloo"));
}

TEST_F(Programmtest, MehrfachsucheUndVorschläge) {
    ASSERT_EQ(Cli("hinzufuegen musik"), 0);
    std::ofstream(Ordner + "/liste.txt") << "\xEF\xBB\xBF"
                                            "Abba - Dancing Queen\r\n\r\nABBA\n-\nnix";
    EXPECT_EQ(Cli("--json mehrfachsuche liste.txt"), 0);
    EXPECT_TRUE(Enthält("{\"Abfrage\":\"Abba Dancing Queen\",\"Resultat\":\"a.mp3\",\"Nummern\":["));
    EXPECT_TRUE(Enthält("\"Resultat\":\"2 Resultate\""));
    EXPECT_TRUE(Enthält("{\"Abfrage\":\"\",\"Resultat\":\"(Suche ist ungültig)\",\"Nummern\":[]}"));
    EXPECT_TRUE(Enthält("\"Resultat\":\"(Nichts gefunden)\""));
    EXPECT_EQ(Cli("mehrfachsuche -"), 1);  // no input
    EXPECT_NE(Fehler.find("Bitte geben Sie mindestens eine Such-Abfrage ein"), std::string::npos);
    EXPECT_EQ(Cli("mehrfachsuche fehlt.txt"), 1);
    EXPECT_EQ(Cli("--json vorschlaege Interpret aB"), 0);
    EXPECT_EQ(Aus, "[\"ABBA\"]\n");
    EXPECT_EQ(Cli("vorschlaege Titel ''"), 0);
    EXPECT_TRUE(Enthält("Waterloo\n"));
    EXPECT_EQ(Cli("vorschlaege Titel"), 2);
}

TEST_F(Programmtest, DatensätzeUndFelder) {
    ASSERT_EQ(Cli("--jetzt '21.11.2026 12:00:00' hinzufuegen musik/a.mp3 musik/tief/b.mp3"), 0);
    EXPECT_EQ(Cli("--json saetze 2 1"), 0);
    EXPECT_LT(Aus.find("\"Nummer\":2"), Aus.find("\"Nummer\":1"));
    EXPECT_TRUE(Enthält("\"Interpret\":\"José\""));
    EXPECT_TRUE(Enthält("\"Genre\":17,"));
    for (const char* Nummer : {"99", "0", "-1", "99999999999999999999"}) {
        EXPECT_EQ(Cli("saetze 1 " + std::string(Nummer)), 1) << Nummer;
        EXPECT_NE(Fehler.find("gibt es nicht. Der Index hat 2 Datensätze."), std::string::npos) << Nummer;
        EXPECT_EQ(Aus, "") << Nummer;
    }
    EXPECT_EQ(Cli("saetze zwei"), 2);
    EXPECT_EQ(Cli("--json feldwerte --felder Größe,Gibtsnicht --modus 0 1"), 0);
    EXPECT_EQ(Aus,
              "[{\"Nummer\":1,\"Größe\":{\"Ergebnis\":true,\"Wert\":\"1.796\",\"Feldtyp\":1},"
              "\"Gibtsnicht\":{\"Ergebnis\":false,\"Wert\":\"\",\"Feldtyp\":0}}]\n");
    EXPECT_EQ(Cli("feldwerte --felder Titel --modus 2"), 2);
}

TEST_F(Programmtest, DateienBrauchenKeinenIndex) {
    EXPECT_EQ(Cli("--json datei-info musik/a.mp3"), 0);
    EXPECT_TRUE(Enthält("[{\"Pfad\":\"" + Ordner +
                        "/musik/a.mp3\",\"TagKennung\":\"TAG\",\"Titel\":\"Dancing Queen\""));
    EXPECT_TRUE(Enthält("\"Bitrate\":128,"));
    EXPECT_EQ(Cli("--json datei-info --lesecode 0000 musik/a.mp3 fehlt.mp3"), 1);
    EXPECT_TRUE(Enthält("\"Titel\":\"\""));
    EXPECT_TRUE(Enthält("\"Größe\":-1"));
    EXPECT_TRUE(IstEinJsonDokument(Aus)) << Aus;
    EXPECT_EQ(Cli("dateiinfo-text musik/a.mp3"), 0);
    EXPECT_TRUE(Enthält("Der gefundene ID3v1-TAG belegt 128 Bytes."));
    EXPECT_FALSE(fs::exists(Ordner + "/p/lwStamm.lwi"));
}

TEST_F(Programmtest, JsonIstEinDokumentUndTextZeigtSteuerzeichen) {
    ASSERT_EQ(Cli("hinzufuegen musik"), 0);
    for (const char* Befehl :
         {"index-info", "saetze", "suchen", "suchen --zaehlen", "index-speichern", "sortieren Titel",
          "vorschlaege Pfad+Dateiname ''", "feldwerte --felder Titel,Pfad+Dateiname", "hinzufuegen musik",
          "datei-info musik/*", "dateiinfo-text musik/*.mp3"}) {
        Cli("--json " + std::string(Befehl));
        EXPECT_TRUE(IstEinJsonDokument(Aus)) << Befehl << "\n" << Aus;
        Cli(Befehl);
        EXPECT_EQ(Aus.find('\x1b'), std::string::npos) << Befehl;
        EXPECT_EQ(Fehler.find('\x1b'), std::string::npos) << Befehl;
    }
    EXPECT_EQ(Cli("--json saetze"), 0);
    EXPECT_TRUE(Enthält("x\\u001b[2Jÿ.mp3"));
}

TEST_F(Programmtest, AufräumenExportUndFelderaustausch) {
    Lied("musik/tief/A.mp3", "Dancing Queen", "ABBA", 17);
    ASSERT_EQ(Cli("hinzufuegen musik/a.mp3 musik/tief/b.mp3 musik/tief/A.mp3"), 0);
    const std::string Vorher = Index();
    for (const char* Methode : {"0", "2"}) {
        EXPECT_EQ(Cli("--json aufraeumen --methode " + std::string(Methode)), 0);
        EXPECT_EQ(Aus, "[[1,3]]\n") << Methode;
    }
    EXPECT_EQ(Cli("--json aufraeumen --methode 8 3 2 3"), 0);
    EXPECT_EQ(Aus, "[[3,0],\n[2,0]]\n");
    EXPECT_EQ(Cli("aufraeumen --methode 10"), 2);

    EXPECT_EQ(Cli("--json export --format text --spalten Interpret,Titel --anfuehrungszeichen --trennzeichen "
                  "semikolon --abfrage 'Interpret|0000|jos' liste.csv"),
              0);
    EXPECT_EQ(Aus, "{\"Datei\":\"" + Ordner + "/liste.csv\",\n\"Anzahl\":1}\n");
    EXPECT_EQ(DateiLesen(Ordner + "/liste.csv"), "\"Interpret\";\"Titel\"\r\n\"Jos\xE9\";\"Lied\"\r\n");
    EXPECT_EQ(Cli("export --format html liste.csv"), 1) << "not replaced unasked";
    EXPECT_EQ(Cli("export --format rtf x"), 2);

    EXPECT_EQ(Cli("--json felder-schreiben a.ifd"), 0);
    EXPECT_TRUE(Enthält("\"Anzahl\":3"));
    EXPECT_EQ(Index(), Vorher);
    std::ofstream(Ordner + "/b.ifd") << "#indexfelder11\r\n#TAG:" << Ordner.size() + 12 << "/2|" << Ordner
                                     << "/musik/a.mp342\r\n";
    EXPECT_EQ(Cli("felder-lesen b.ifd"), 1) << "asks first";
    EXPECT_EQ(Index(), Vorher);
    EXPECT_EQ(Cli("--ja --json felder-lesen b.ifd"), 0);
    EXPECT_TRUE(Enthält("\"Anzahl\":1"));
    EXPECT_EQ(Cli("--json feldwerte --felder Abspiel-Häufigkeit 1"), 0);
    EXPECT_TRUE(Enthält("\"Wert\":\"42\""));
}

TEST_F(Programmtest, HilfeGelingtUndFalschesNenntDenAufruf) {
    EXPECT_EQ(Cli("--hilfe"), 0);
    EXPECT_TRUE(Enthält("index-speichern [--ausgabe DATEI]"));
    EXPECT_EQ(Cli("saetze --hilfe"), 0);
    EXPECT_TRUE(Enthält("Aufruf: liedwerk-cli [GLOBAL ...] saetze [NUMMER...]"));
    EXPECT_EQ(Cli("--version"), 0);
    EXPECT_EQ(Cli("--setze GibtEsNicht=1 index-neu"), 2);
    EXPECT_EQ(Cli("gibtesnicht"), 2);
    EXPECT_EQ(Aus, "");
    EXPECT_FALSE(fs::exists(Ordner + "/e.ini"));
}

TEST_F(Programmtest, FunktionenDesEditorsFragenUndSchreibenDannInDateiUndIndex) {
    ASSERT_EQ(Cli("hinzufuegen musik"), 0);
    const std::string Groß = "tag-funktion 'Schreibweise: Groß' 'Alle ID3v1-TAGs' musik/a.mp3";
    EXPECT_EQ(Cli(Groß), 1);
    EXPECT_EQ(Index().find("DANCING"), std::string::npos);
    EXPECT_EQ(Cli("--ja --json " + Groß), 0);
    EXPECT_TRUE(IstEinJsonDokument(Aus)) << Aus;
    EXPECT_TRUE(Enthält("\"Titel\":\"DANCING QUEEN\"")) << Aus;
    EXPECT_NE(Index().find("DANCING QUEEN"), std::string::npos);
    EXPECT_EQ(Cli("tag-funktion 'Schreibweise: Groß' 'Diesen Lyrics-TAG' musik/a.mp3"), 1);
    EXPECT_EQ(Cli("tag-funktion 'Schreibweise' 'Alle ID3v1-TAGs' musik/a.mp3"), 2);
    EXPECT_EQ(Cli("tag-funktion 'Felder kopieren...' 'Diesen ID3v2-TAG' musik/a.mp3"), 2);
    EXPECT_EQ(Cli("tag-funktion --feld Jahr --text 1976 'Felder kopieren...' 'Diesen ID3v2-TAG' musik/a.mp3"),
              0);
    EXPECT_TRUE(Enthält("V2Jahr                     1976")) << Aus;

    // Without --schreiben the file stays as it is.
    const std::string Vorher = DateiLesen(Ordner + "/musik/tief/b.mp3").value_or("");
    EXPECT_EQ(Cli("--json autotag --format %Titel% --ziel 1 musik/tief/b.mp3"), 0);
    EXPECT_TRUE(Enthält("\"Titel\":\"B\"")) << Aus;
    EXPECT_EQ(DateiLesen(Ordner + "/musik/tief/b.mp3"), Vorher);
    EXPECT_EQ(Cli("autotag --format '%Titel% - %Album%' musik/tief/b.mp3"), 1);
    EXPECT_NE(Fehler.find("b.mp3"), std::string::npos) << Fehler;
    EXPECT_EQ(Cli("autotag --format %Titel% --ziel 2 --schreiben musik/tief/b.mp3"), 0);
    EXPECT_NE(DateiLesen(Ordner + "/musik/tief/b.mp3"), Vorher);
    EXPECT_EQ(Cli("autotag --format %Titel% --ziel 3 musik/tief/b.mp3"), 2);
    EXPECT_EQ(Cli("--ja --setze AutoTagAktuell=%Titel% tag-aufraeumen musik/a.mp3 fehlt.mp3"), 1);
    EXPECT_TRUE(Enthält("Dancing Queen")) << Aus;
}

}  // namespace
}  // namespace liedwerk
