// Lists of file names and the synchronisation: what comes in, what goes, and what must never go.
#include <chrono>
#include <deque>
#include <functional>

#include "core/indexoptionenlauf.h"
#include "core/laden.h"
#include "core/listenlauf.h"
#include "core/regelvertrauen.h"
#include "core/suchlauf.h"
#include "core/synchronisierlauf.h"
#include "welt.h"

namespace liedwerk {
namespace {

class Aufnahmetest : public Kerntest {
  protected:
    void SetUp() override {
        Kerntest::SetUp();
        ASSERT_TRUE(StandardDateiLaden(*P, ModusNichtsGeladen, true));
        P->Index.IndexGeändert = false;
    }
    Satznummer Satz(const std::string& Pfad, const std::string& Medium = {}) {
        Datensatz Neu;
        Neu.Wechselmedium = Medium;
        return SatzAnhängen(P->Index, Pfad, Neu);
    }
    // All songs have the same size.
    std::string Schreiben(std::string_view Name, std::string_view Titel, int Tag) {
        return Datieren(Lied(Name, Titel), Tag);
    }
    static std::string Datieren(const std::string& Pfad, int Tag) {
        using namespace std::chrono;
        std::filesystem::last_write_time(
            Pfad, file_clock::from_sys(sys_seconds(sys_days(2026y / November / Tag) + 15h)));
        return Pfad;
    }
    std::vector<std::string> Pfade() const {
        std::vector<std::string> Alle;
        for (Satznummer Nummer = 1; Nummer <= P->Index.IndexAnzahl(); ++Nummer)
            Alle.push_back(P->Index.Sätze.Pfad(Nummer));
        return Alle;
    }
};

TEST_F(Aufnahmetest, SynchronisierenFügtHinzuEntferntUndMarkiert) {
    Lied("m/alt.mp3", "A");
    Lied("m/neu_INCOMPLETE_.mp3", "B");
    Satz(Ordner + "/m/alt.mp3");
    Satz(Ordner + "/m/fort.mp3");
    Lied("m/tief/neu.mp3", "C");
    P->Index.Optionen.SyncOrdner = {{Ordner + "/m", 1, {}}};
    const auto Ergebnis = SynchronisierenLauf(*P);
    EXPECT_TRUE(Ergebnis.Gelungen);
    EXPECT_EQ(Pfade(), (std::vector<std::string>{Ordner + "/m/alt.mp3", Ordner + "/m/tief/neu.mp3"}));
    EXPECT_EQ(Person.Status.back(), "Synchronisation fertig: 1 Datei(en) entfernt, 1 Datei(en) hinzugefügt");
    EXPECT_EQ(P->Ansicht.Zeilen, (std::vector<Satznummer>{1, 2}));
    EXPECT_EQ(Person.Offen, 0);

    Lied("m/neuer.mp3", "D");
    EXPECT_EQ(SynchronisierenLauf(*P).Hinzugefügt, 1);
    EXPECT_EQ(P->Ansicht.Auswahl, std::vector<Satznummer>{3}) << "the new ones are selected";
}

TEST_F(Aufnahmetest, GeänderteDateienErneuernNurWasAusIhnenKommt) {
    const auto Titel = [&] {
        std::string Alle;
        for (const char* Name : {"/m/1.mp3", "/m/2.mp3", "/m/3.mp3"})
            Alle += P->Index.Sätze.Text(P->Pfade.ErstenFinden(P->Index.Sätze, Ordner + Name), FeldTitel);
        return Alle;
    };
    P->Index.Optionen.SyncOrdner = {{Ordner + "/m", 1, {}}};
    P->Index.Optionen.SyncLeer = 0;
    Schreiben("m/1.mp3", "A", 1);
    Schreiben("m/2.mp3", "B", 1);
    Schreiben("m/3.mp3", "C", 1);
    ASSERT_EQ(SynchronisierenLauf(*P).Hinzugefügt, 3);
    const Satznummer Zweiter = P->Pfade.ErstenFinden(P->Index.Sätze, Ordner + "/m/2.mp3");
    Datensatz Meiner = P->Index.Sätze.Lesen(Zweiter);
    Meiner.AbspielHäufigkeit = 5;
    Meiner.AbspielDatum = "02.11.2026 10:00:00";
    Meiner.BenutzerDaten = "meins";
    Meiner.Qualität = 7;
    P->Index.Sätze.Setzen(Zweiter, P->Index.Sätze.Pfad(Zweiter), Meiner);
    Schreiben("m/1.mp3", "D", 1);  // same size and time: nobody can know
    Schreiben("m/2.mp3", "E", 3);
    Schreiben("m/3.mp3", "C", 3);

    EXPECT_EQ(SynchronisierenLauf(*P).NeuGelesen, 0);
    EXPECT_EQ(Titel(), "ABC") << "off by default";
    P->Werte.SyncGeänderteLesen = 1;
    EXPECT_EQ(SynchronisierenLauf(*P).NeuGelesen, 1) << "what tells the same is not renewed";
    EXPECT_TRUE(Person.Status.back().ends_with(", 1 Datei(en) neu gelesen"));
    EXPECT_EQ(Titel(), "AEC");
    Meiner.Titel = "E";
    EXPECT_EQ(P->Index.Sätze.Lesen(Zweiter), Meiner);

    // From now on the time of the run counts, also after a save and a load.
    ASSERT_TRUE(AndereDateiLaden(*P, Standard()));
    Uhrzeit.Punkt = {2026, 11, 25, 12, 0, 0};
    Schreiben("m/1.mp3", "F", 20);
    Schreiben("m/2.mp3", "G", 21);
    const std::string Kaputt = Datei("m/4.wma", "kein Ton");
    Satz(Kaputt);
    EXPECT_EQ(SynchronisierenLauf(*P).NeuGelesen, 1);
    EXPECT_EQ(Titel(), "AGC") << "changed ahead of the last run";
    ASSERT_EQ(Person.Meldungen.size(), 1U);
    EXPECT_NE(Person.Meldungen[0].find("1 geänderte Datei(en)"), std::string::npos);
    EXPECT_NE(Person.Meldungen[0].find(Kaputt), std::string::npos);
    // A file that was not read is tried again, and holds the time back for no other one.
    EXPECT_TRUE(P->Index.Optionen.SyncStand.ends_with("|" + Kaputt));
    EXPECT_EQ(SynchronisierenLauf(*P).NeuGelesen, 0);
    EXPECT_EQ(Person.Meldungen.size(), 1U) << "told once";
    Schreiben("m/3.mp3", "H", 25);
    EXPECT_EQ(SynchronisierenLauf(*P).NeuGelesen, 1);
    // Without tags being read the old ones stay; the size comes along.
    P->Werte.Mp3TagLesen = "001";
    Schreiben("m/1.mp3", "I", 26);
    Datei("m/1.mp3", DateiLesen(Ordner + "/m/1.mp3").value() + "x");
    EXPECT_EQ(SynchronisierenLauf(*P).NeuGelesen, 1);
    EXPECT_EQ(Titel(), "AGH");
    // A time that is still to come was a clock's mistake.
    P->Werte.Mp3TagLesen = "101";
    P->Index.Optionen.SyncStand = "99999999999";
    Schreiben("m/3.mp3", "K", 23);
    SynchronisierenLauf(*P);
    EXPECT_TRUE(Titel().ends_with("K"));
    // A new file that is gone again at once takes no known one's place.
    P->Index.Optionen.SyncStand.clear();
    Schreiben("m/3.mp3", "L", 24);
    Schreiben("m/neu.mp3", "M", 1);
    Person.Zwischendurch = [&] {
        if (Person.Titel.back() == "Datei-Existenzen prüfen") std::filesystem::remove(Ordner + "/m/neu.mp3");
    };
    const auto Letztes = SynchronisierenLauf(*P);
    EXPECT_EQ(Letztes.Hinzugefügt + Letztes.Entfernt, 2);
    EXPECT_EQ(Letztes.NeuGelesen, 1);
    // The first run that looks leaves its time to be saved; later ones have no need.
    Person.Zwischendurch = {};
    P->Index.Optionen.SyncOrdner.clear();
    P->Index.Optionen.SyncStand.clear();
    for (const bool Erster : {true, false}) {
        P->Index.IndexGeändert = false;
        SynchronisierenLauf(*P);
        EXPECT_EQ(P->Index.IndexGeändert, Erster);
    }
}

TEST_F(Aufnahmetest, WasEineDateiNichtMehrSagtBleibtImIndex) {
    P->Werte.SyncGeänderteLesen = 1;
    P->Index.Optionen.SyncOrdner = {{Ordner + "/m", 1, {}}};
    const std::string Pfad = Schreiben("m/1.mp3", "A", 1);
    const std::string Heil = DateiLesen(Pfad).value();
    ASSERT_EQ(SynchronisierenLauf(*P).Hinzugefügt, 1);
    const Datensatz Alt = P->Index.Sätze.Lesen(1);
    ASSERT_EQ(Alt.Titel, "A");
    const std::string Nullen(Heil.size(), '\0');
    for (const std::string& Rest :
         {std::string(), std::string("x"), Nullen, std::string("<html>Fehler</html>")}) {
        for (const char* Code : {"101", "100"}) {
            P->Werte.Mp3TagLesen = Code;
            Datieren(Datei("m/1.mp3", Rest), 3);
            EXPECT_EQ(SynchronisierenLauf(*P).NeuGelesen, 0) << Rest;
            EXPECT_EQ(P->Index.Sätze.Lesen(1), Alt) << Rest;
            EXPECT_EQ(Person.Meldungen.size(), 1U) << "told once";
        }
    }
    // A tag that was taken off is a change, since the sound is there.
    P->Werte.Mp3TagLesen = "101";
    Datieren(Datei("m/1.mp3", Heil.substr(0, Heil.size() - 128)), 3);
    EXPECT_EQ(SynchronisierenLauf(*P).NeuGelesen, 1);
    EXPECT_EQ(P->Index.Sätze.Text(1, FeldTitel), "");
    // Of a file that counts as a picture nothing but the size is read.
    Datieren(Datei("m/1.mp3", Heil), 4);
    ASSERT_EQ(SynchronisierenLauf(*P).NeuGelesen, 1);
    for (Dateityp& Typ : P->Index.Optionen.Dateitypen)
        Typ.Schalter = "001";
    Datieren(Datei("m/1.mp3", Heil + "x"), 5);
    EXPECT_EQ(SynchronisierenLauf(*P).NeuGelesen, 1);
    EXPECT_EQ(P->Index.Sätze.Text(1, FeldTitel), "A");
    EXPECT_EQ(P->Index.Sätze.Zahl(1, FeldGröße), static_cast<std::int64_t>(Heil.size() + 1));
}

TEST_F(Aufnahmetest, ÄnderungenAufMedienDieFehltenWerdenGefunden) {
    using Laufwerk = speicher::Laufwerksliste::Laufwerk;
    const std::string Stick = Ordner + "/stick/";
    const std::string Album = Stick + "album/";
    struct Fall {
        const char* Name;
        std::map<std::string, Laufwerk, std::less<>> Drin;
        std::map<std::string, Laufwerk, std::less<>> Draußen;
        bool Anderes = false;  // a file of the same path, size and time lies there meanwhile
        bool Gewiss = false;   // its medium is in: it is gone
        std::int16_t FehltIstFort = 0;
    };
    const Laufwerk Namenlos{Laufwerksart::Wechsel, "", true};
    const Laufwerk Benannt{Laufwerksart::Wechsel, "EINS", true};
    const Laufwerk Anderer{Laufwerksart::Wechsel, "ZWEI", true};
    const std::vector<Fall> Fälle = {
        {"leerer Einhängeort", {{Stick, Namenlos}}, {{Stick, Namenlos}}},
        {"leerer Einhängeort mit Namen", {{Stick, Benannt}}, {{Stick, Namenlos}}},
        {"anderes Medium", {{Stick, Benannt}}, {{Stick, Anderer}}, true},
        {"Einhängeort tiefer", {{Stick, Namenlos}}, {{Album, Namenlos}}},
        {"Einhängeort höher", {{Album, Namenlos}}, {{Stick, Namenlos}}},
        {"fehlt gilt als fort", {}, {{Stick, {Laufwerksart::Fest, "", false}}}, false, false, 1},
        {"gelöscht", {{Stick, Benannt}}, {{Stick, Benannt}}, false, true},
    };
    for (const Fall& Einer : Fälle) {
        SCOPED_TRACE(Einer.Name);
        NeuerLauf();
        ASSERT_TRUE(StandardDateiLaden(*P, ModusNichtsGeladen, true));
        P->Werte.SyncGeänderteLesen = 1;
        P->Werte.NichtVerfügbarExistierenNicht = Einer.FehltIstFort;
        P->Index.Optionen.SyncEntfernen = 0;
        P->Index.Optionen.SyncOrdner = {{Stick, 1, {}}};
        Uhrzeit.Punkt = {2026, 11, 4, 12, 0, 0};
        Drives.Liste = Einer.Drin;
        Schreiben("stick/album/x.mp3", "A", 1);
        ASSERT_EQ(SynchronisierenLauf(*P).Hinzugefügt, 1);
        Uhrzeit.Punkt = {2026, 11, 10, 12, 0, 0};
        Drives.Liste = Einer.Draußen;
        if (Einer.Anderes) {
            Schreiben("stick/album/x.mp3", "B", 1);
        } else {
            std::filesystem::remove(Album + "x.mp3");
        }
        Schreiben("fest.mp3", "C", 1);
        Satz(Ordner + "/fest.mp3");
        SynchronisierenLauf(*P);
        EXPECT_EQ(P->Index.Optionen.SyncStand.find('|') == std::string::npos, Einer.Gewiss);
        Uhrzeit.Punkt = {2026, 11, 20, 12, 0, 0};
        Drives.Liste = Einer.Drin;
        // Before the run that missed it.
        Schreiben("stick/album/x.mp3", "D", 5);
        EXPECT_EQ(SynchronisierenLauf(*P).NeuGelesen, Einer.Gewiss ? 0 : 1);
        EXPECT_EQ(P->Index.Sätze.Text(1, FeldTitel), Einer.Gewiss ? "A" : "D");
        EXPECT_EQ(SynchronisierenLauf(*P).NeuGelesen, 0);
    }
}

TEST_F(Aufnahmetest, WasNurNichtErreichbarIstBleibtImIndex) {
    const std::string Stick = Ordner + "/stick/";
    std::filesystem::create_directory(Stick);
    Drives.Liste[Stick] = {Laufwerksart::Wechsel, "", true};
    Drives.Liste["D:\\"] = {Laufwerksart::Unbekannt, "", false};
    std::filesystem::create_symlink(Ordner + "/nirgends", Ordner + "/verweis");
    const std::vector<std::string> Bleiben = {Stick + "a.mp3", "D:\\Musik\\b.mp3", Ordner + "/verweis/c.mp3",
                                              Ordner + "/wo/d.mp3"};
    Satz(Bleiben[0], "STICK");
    Satz(Bleiben[1]);
    Satz(Bleiben[2]);
    Satz(Bleiben[3], "ANDERER");
    Satz(Ordner + "/fort/e.mp3");
    Person.Verfügbarkeiten = {Verfügbarkeitsantwort::AlleÜberspringen};
    EXPECT_EQ(SynchronisierenLauf(*P).Entfernt, 1);
    EXPECT_EQ(Pfade(), Bleiben);
    ASSERT_EQ(Person.Meldungen.size(), 1u);
    EXPECT_NE(Person.Meldungen[0].find("noch keine Ordner zum Synchronisieren"), std::string::npos);
    EXPECT_EQ(Person.Gefragt.size(), 1u);

    Person.Verfügbarkeiten = {Verfügbarkeitsantwort::Abbrechen};
    EXPECT_FALSE(SynchronisierenLauf(*P).Gelungen);
    EXPECT_EQ(Person.Gefragt.size(), 2u) << "skipping all holds for one run";
    EXPECT_EQ(Person.Status.back(),
              "Synchronisation abgebrochen: 0 Datei(en) entfernt, 0 Datei(en) hinzugefügt");

    P->Werte.NichtVerfügbarExistierenNicht = 1;
    EXPECT_EQ(SynchronisierenLauf(*P).Entfernt, 4) << "the person has chosen it";
    EXPECT_EQ(P->Index.IndexAnzahl(), 0);
    EXPECT_TRUE(SynchronisierenLauf(*P).Gelungen);
}

TEST_F(Aufnahmetest, EinAbbruchDerPrüfungEntferntNichts) {
    for (int Nummer = 0; Nummer < 5; ++Nummer)
        Satz(Ordner + "/fort" + std::to_string(Nummer) + ".mp3");
    Person.AbbruchBei = 4;
    EXPECT_FALSE(SynchronisierenLauf(*P).Gelungen);
    EXPECT_EQ(P->Index.IndexAnzahl(), 5);
    Person.AbbruchBei = 0;
    P->Index.Optionen.SyncEntfernen = 0;
    EXPECT_EQ(SynchronisierenLauf(*P).Entfernt, 0);
    P->Index.Optionen.SyncOrdner = {{Ordner + "/fehlt", 1, {}}};
    P->Index.Optionen.SyncEntfernen = 1;
    EXPECT_FALSE(SynchronisierenLauf(*P).Gelungen) << "a folder that is not there ends the run";
    EXPECT_EQ(P->Index.IndexAnzahl(), 5);
    P->Index.Programmmodus = ModusDateimanager;
    EXPECT_FALSE(SynchronisierenLauf(*P).Gelungen);
    EXPECT_EQ(Person.Meldungen.back(), "Diese Funktion steht im Dateimanager-Modus nicht zur Verfügung.");
}

TEST_F(Aufnahmetest, FremdeRegelnVerschiebenErstNachEinerFrage) {
    const auto Neustart = [&] {
        NeuerLauf();
        StandardDateiLaden(*P, ModusNichtsGeladen, true);
        Person.Gefragt.clear();
    };
    // What becomes of the index before it is loaded, whether the rules may run, and the questions it takes.
    struct Fall {
        const char* Name;
        std::function<void()> Vorher;
        std::deque<Antwort> Antworten;
        bool Erlaubt;
        std::size_t Fragen;
    };
    const auto Ablegen = [&](std::string_view Zeilen) {
        return [=, this] { Datei("programm/lwStamm.lwi", "#TAG:lw102\r\n" + std::string(Zeilen)); };
    };
    const auto Fremd = Ablegen("#OPT:SYNC=/home/anna,1,/srv/alle\r\n");
    const std::vector<Fall> Fälle = {
        {"nothing is moved", Ablegen("#OPT:SYNC=/home/anna,1,\r\n"), {}, true, 0},
        {"a stranger's", Fremd, {}, false, 1},
        {"asked again after no", [] {}, {Antwort::Ja}, true, 1},
        {"kept", Fremd, {}, true, 0},
        {"one more in the file",
         Ablegen("#OPT:SYNC=/home/anna,1,/srv/alle\r\n#OPT:SYNC=/etc,0,/srv/b\r\n"),
         {Antwort::Nein},
         false,
         1},
        {"another place", Ablegen("#OPT:SYNC=/home/anna,1,/srv/b\r\n"), {}, false, 1},
    };
    for (const auto& [Name, Vorher, Antworten, Erlaubt, Fragen] : Fälle) {
        Vorher();
        Neustart();
        Person.Antworten = {Antworten.begin(), Antworten.end()};
        EXPECT_EQ(RegelnErlauben(*P), Erlaubt) << Name;
        EXPECT_EQ(Person.Gefragt.size(), Fragen) << Name;
        if (Erlaubt) {
            EXPECT_TRUE(RegelnErlauben(*P)) << Name;
            EXPECT_EQ(Person.Gefragt.size(), Fragen) << "once for each rule";
            EXPECT_TRUE(IndexSpeichern(*P));
        }
    }
    EXPECT_NE(Person.Gefragt[0].find("'/home/anna' und seinen Unterordnern\nin den Ordner\n'/srv/b'"),
              std::string::npos);
    // What the person enters needs no question, what stood there still does; and each index has its own.
    Indexoptionen Neu = P->Index.Optionen;
    Neu.SyncOrdner.push_back({"/m/neu", 0, "/m/alle"});
    Neu.SyncLeer = 0;
    IndexoptionenÜbernehmen(*P, Neu);
    Person.Gefragt.clear();
    EXPECT_FALSE(RegelnErlauben(*P));
    EXPECT_EQ(Person.Gefragt.size(), 1U);
    P->Index.Optionen.SyncOrdner.erase(P->Index.Optionen.SyncOrdner.begin());
    EXPECT_TRUE(RegelnErlauben(*P));
    P->Index.IndexDateiname += ".kopie";
    EXPECT_FALSE(RegelnErlauben(*P));
}

TEST_F(Aufnahmetest, EineListeGehtÜberDieZusammenfassungUndIhreKorrektur) {
    Lied("m/a.mp3", "A");
    Lied("neu/B.MP3", "B");
    Datei("m/liste.m3u8", "a.mp3\r\nC:\\alt\\b.mp3\r\nhttp://x/\r\n");
    Namensfunde Gesehen;
    bool Antwort = false;
    P->ZusammenfassungZeigen = [&](Namensfunde& Funde) {
        Gesehen = Funde;
        EXPECT_TRUE(NichtGefundeneSuchen(*P, Ordner + "/neu", Funde));
        return Antwort;
    };
    EXPECT_EQ(PlaylistLesen(*P, Ordner + "/m/liste.m3u8", {}), -1) << "the person thought better of it";
    EXPECT_EQ(P->Index.IndexAnzahl(), 0);
    EXPECT_EQ(Gesehen.Zeilen,
              (std::vector<Namensfund>{{Ordner + "/m/a.mp3", true}, {"C:\\alt\\b.mp3", false}}));
    EXPECT_EQ(Gesehen.Ströme, 1u);
    EXPECT_EQ(Person.Meldungen.back(), "1 Dateien wurden nicht gefunden, davon wurden 1 korrigiert.");
    Antwort = true;
    EXPECT_EQ(PlaylistLesen(*P, Ordner + "/m/liste.m3u8", {}), 2);
    EXPECT_EQ(Pfade(), (std::vector<std::string>{Ordner + "/m/a.mp3", Ordner + "/neu/B.MP3"}));
    EXPECT_EQ(PlaylistLesen(*P, Ordner + "/fehlt.m3u", {}), -1);
    EXPECT_NE(Person.Meldungen.back().find("kann nicht gelesen werden"), std::string::npos);
}

TEST_F(Aufnahmetest, TexteUndZwischenablageGebenNurWasVerwaltetWird) {
    Lied("m/a.mp3", "A");
    Lied("o/b.mp3", "B");
    Datei("o/notiz.txt", "x");
    P->Werte.HinzufügenZusammenfassungZeigen = 0;
    Datei("text.txt", "Meine Liste:\n\"Titel\";\"" + Ordner + "/m/a.mp3\"\no/notiz.txt\nfehlt.mp3\n");
    EXPECT_EQ(DateiMitDateinamenLesen(*P, Ordner + "/text.txt", {}), 1);
    EXPECT_NE(Person.Meldungen.back().find("1 Datei(en) wurden nicht gefunden:\n" + Ordner + "/fehlt.mp3"),
              std::string::npos);
    EXPECT_EQ(ZwischenablageHinzufügen(*P, "file://" + Ordner + "/o\r\n" + Ordner + "/m/a.mp3"), 1);
    EXPECT_EQ(P->Index.IndexAnzahl(), 2);
    EXPECT_EQ(ZwischenablageHinzufügen(*P, "nichts\nals Worte"), 0);
    EXPECT_EQ(Person.Meldungen.back(), "In der Zwischenablage wurden keine Dateinamen gefunden.");
}

}  // namespace
}  // namespace liedwerk
