// Backups that come back, with everything that can go wrong on the way, and the figures of an index.
#include <algorithm>
#include <set>

#include "core/beenden.h"
#include "core/exportlauf.h"
#include "core/felderlauf.h"
#include "core/indexstatistik.h"
#include "core/laden.h"
#include "core/sicherungslauf.h"
#include "core/suchlauf.h"
#include "index/genres.h"
#include "welt.h"

namespace liedwerk {
namespace {

class Sicherungstest : public Kerntest {
  protected:
    void SetUp() override {
        Kerntest::SetUp();
        ASSERT_TRUE(StandardDateiLaden(*P, ModusNichtsGeladen, true));
        SatzAnhängen(P->Index, "/m/eins.mp3", {});
        P->Index.IndexGeändert = true;
        ASSERT_TRUE(IndexSpeichern(*P));
        std::filesystem::copy_file(Standard(), Kopie());
        SatzAnhängen(P->Index, "/m/zwei.mp3", {});
        P->Index.IndexGeändert = true;
        ASSERT_TRUE(IndexSpeichern(*P));
        Person.Meldungen.clear();
    }
    std::string Kopie() const { return Standard() + " - Backup vom 20.11.2026 10-00-00.bak"; }
    Sicherungskopie Einzige() const { return SicherungskopienAuflisten(*P)->front(); }
    // The contents of all files beside the index.
    std::multiset<std::string> Inhalte() const {
        std::multiset<std::string> Alle;
        for (const auto& Eintrag : std::filesystem::directory_iterator(Ordner + "/programm"))
            Alle.insert(DateiLesen(Eintrag.path().string()).value_or(""));
        return Alle;
    }
};

TEST_F(Sicherungstest, NichtsAnderesKommtAnDieStelleEinerIndexdatei) {
    const std::string MitMarke = Datei("programm/marke.txt", "\xEF\xBB\xBF#TAG:lw102\r\n");
    // One that cannot be read is known by its name.
    const std::string Unlesbar = Datei("programm/alt.LWI", "");
    const auto Vorher = Inhalte();
    Exportauftrag Auftrag;
    for (const std::string& Ziel : {Standard(), Kopie(), MitMarke, Unlesbar}) {
        EXPECT_FALSE(FelderSpeichernLauf(*P, Ziel));
        Auftrag.Datei = Ziel;
        EXPECT_FALSE(ExportierenLauf(*P, std::vector<Satznummer>{1}, Auftrag));
        EXPECT_TRUE(Person.Meldungen.back().find("wird nicht überschrieben") != std::string::npos);
    }
    EXPECT_EQ(Inhalte(), Vorher);
    EXPECT_FALSE(IndexdateiGeschützt(*P, Ordner + "/neu.lwi")) << "nothing stands there";
}

TEST_F(Sicherungstest, GelisteteKopienSindDieEigenenUndGezählt) {
    Datei("programm/anderer.lwi - Backup vom 20.11.2026 10-00-00.bak", "#TAG:lw102\r\n");
    std::filesystem::create_directory(Standard() + "x.bak");
    const auto Kopien = *SicherungskopienAuflisten(*P);
    ASSERT_EQ(Kopien.size(), 1U);
    EXPECT_EQ(SicherungskopieText({"/x/a.bak", {2026, 1, 2, 3, 4, 5}, 0}),
              "a.bak (zuletzt geändert am 02.01.2026 03:04:05)");
    EXPECT_EQ(DatensätzeZählen(Kopien[0].Pfad, {}), 1);
    EXPECT_EQ(DatensätzeZählen(Standard(), {}), 2);
    // Lines across the borders of the blocks that are read are counted once.
    std::string Viele = "#TAG:lw102\r\n";
    for (int Nummer = 0; Nummer < 60000; ++Nummer)
        Viele += "#TAG:" + std::string(static_cast<std::size_t>(Nummer % 61), 'x') + "\r\n";
    EXPECT_EQ(DatensätzeZählen(Datei("viele.lwi", Viele), {}), 60000);
    EXPECT_EQ(DatensätzeZählen(Datei("kein.bak", "nichts\n#TAG:"), {}), -1);
    EXPECT_EQ(DatensätzeZählen(Ordner + "/fehlt", {}), -1);
    EXPECT_EQ(DatensätzeZählen(Standard(), [] { return false; }), -1);
}

TEST_F(Sicherungstest, WiederherstellenFragtUndHebtDieJetzigeAuf) {
    EXPECT_FALSE(SicherungskopieWiederherstellen(*P, Einzige())) << "the preset answer is no";
    EXPECT_EQ(P->Index.IndexAnzahl(), 2);
    const std::string Jetzige = *DateiLesen(Standard());
    Person.Antworten = {Antwort::Ja};
    ASSERT_TRUE(SicherungskopieWiederherstellen(*P, Einzige()));
    EXPECT_EQ(P->Index.IndexAnzahl(), 1);
    EXPECT_EQ(Person.Status.back(), "Die Indexdatei wurde ersetzt und geladen");
    const auto Kopien = *SicherungskopienAuflisten(*P);
    ASSERT_EQ(Kopien.size(), 2U);
    const std::string Aufgehoben = Standard() + " - Ersetzt am 21.11.2026 12-00-00.bak";
    EXPECT_EQ(DateiLesen(Aufgehoben), Jetzige);

    // The way back, within the same second; and no tidying of old backups takes what was kept.
    Person.Antworten = {Antwort::Ja};
    const auto Zurück = std::ranges::find(Kopien, Aufgehoben, &Sicherungskopie::Pfad);
    ASSERT_TRUE(SicherungskopieWiederherstellen(*P, *Zurück));
    EXPECT_EQ(P->Index.IndexAnzahl(), 2);
    EXPECT_TRUE(DateiExistiert(Standard() + " - Ersetzt am 21.11.2026 12-00-00 (2).bak"));
    Uhrzeit.Punkt.Jahr = 2050;
    P->Werte.BackupsSpeichern = 1;
    P->Index.IndexGeändert = true;
    ASSERT_TRUE(IndexSpeichern(*P));
    EXPECT_FALSE(DateiExistiert(Kopie())) << "an old rolling backup goes";
    EXPECT_TRUE(DateiExistiert(Aufgehoben));
}

TEST_F(Sicherungstest, UngespeichertesGehtErstInDieDateiDieAufgehobenWird) {
    SatzAnhängen(P->Index, "/m/drei.mp3", {});
    P->Index.IndexGeändert = true;
    P->Werte.DateiAutomatischSpeichern = 0;
    Person.Antworten = {Antwort::Ja, Antwort::Abbrechen};
    EXPECT_FALSE(SicherungskopieWiederherstellen(*P, Einzige()));
    EXPECT_EQ(P->Index.IndexAnzahl(), 3);
    EXPECT_TRUE(P->Index.IndexGeändert);
    Person.Antworten = {Antwort::Ja, Antwort::Ja};
    ASSERT_TRUE(SicherungskopieWiederherstellen(*P, Einzige()));
    EXPECT_EQ(DatensätzeZählen(Standard() + " - Ersetzt am 21.11.2026 12-00-00.bak", {}), 3);
}

TEST_F(Sicherungstest, KeinSpeichernAufDemWegLöschtDieGewählteKopie) {
    const Sicherungskopie Gewählt = Einzige();
    Uhrzeit.Punkt.Jahr = 2050;
    P->Werte.BackupsSpeichern = 1;
    P->Werte.DateiAutomatischSpeichern = 1;
    P->Werte.RegelmäßigSpeichernAlle = 1;
    SatzAnhängen(P->Index, "/m/drei.mp3", {});
    P->Index.IndexGeändert = true;
    Person.BeimFragen = [&] { RegelmäßigSpeichern(*P); };
    Person.Antworten = {Antwort::Ja};
    ASSERT_TRUE(SicherungskopieWiederherstellen(*P, Gewählt));
    EXPECT_EQ(P->Index.IndexAnzahl(), 1);
    EXPECT_TRUE(DateiExistiert(Kopie()));
    EXPECT_EQ(DatensätzeZählen(Standard() + " - Ersetzt am 21.11.2050 12-00-00.bak", {}), 3);
    EXPECT_EQ(SicherungskopienAuflisten(*P)->size(), 2U);

    // Somebody else takes the backup away while the question stands: what was saved is told as such.
    SatzAnhängen(P->Index, "/m/vier.mp3", {});
    P->Index.IndexGeändert = true;
    Person.BeimFragen = [&] { std::filesystem::remove(Kopie()); };
    Person.Antworten = {Antwort::Ja};
    Person.Meldungen.clear();
    EXPECT_FALSE(SicherungskopieWiederherstellen(*P, Gewählt));
    ASSERT_EQ(Person.Meldungen.size(), 1U);
    EXPECT_NE(Person.Meldungen[0].find("Ihre Änderungen wurden in der Indexdatei gespeichert"),
              std::string::npos);
    EXPECT_EQ(DatensätzeZählen(Standard(), {}), 2);
    EXPECT_FALSE(P->LaufAktiv);
}

TEST_F(Sicherungstest, FehlschlägeLassenAllesWieEsWar) {
    struct Fall {
        const char* Name;
        std::function<void()> Vorbereiten;
        std::string Meldung;
    };
    const std::vector<Fall> Fälle = {
        {"keine Indexdatei", [&] { Datei("programm/lwStamm.lwi - Backup vom 20.11.2026 10-00-00.bak", "x"); },
         "kann nicht gelesen werden oder ist keine Indexdatei"},
        {"verschwunden", [&] { std::filesystem::remove(Kopie()); },
         "kann nicht gelesen werden oder ist keine Indexdatei"},
        {"Ziel ist ein Ordner",
         [&] {
             std::filesystem::remove(Standard());
             std::filesystem::create_directory(Standard());
         },
         "konnte nicht durch die Sicherungskopie ersetzt werden"},
    };
    const Sicherungskopie Gewählt = Einzige();
    for (const Fall& Einer : Fälle) {
        Einer.Vorbereiten();
        const auto Vorher = Inhalte();
        Person.Antworten = {Antwort::Ja};
        Person.Meldungen.clear();
        EXPECT_FALSE(SicherungskopieWiederherstellen(*P, Gewählt)) << Einer.Name;
        ASSERT_FALSE(Person.Meldungen.empty()) << Einer.Name;
        EXPECT_NE(Person.Meldungen.front().find(Einer.Meldung), std::string::npos)
            << Person.Meldungen.front();
        EXPECT_EQ(Inhalte(), Vorher) << Einer.Name;
        EXPECT_EQ(P->Index.IndexAnzahl(), 2) << Einer.Name;
        Datei("programm/lwStamm.lwi - Backup vom 20.11.2026 10-00-00.bak", "#TAG:lw102\r\n");
    }
}

TEST_F(Sicherungstest, LädtDieKopieNichtKommtDieVorherigeZurück) {
    const std::string Jetzige = *DateiLesen(Standard());
    // Somebody else's save seems to be under way: the person does not load over it, neither the first time.
    Person.Antworten = {Antwort::Ja, Antwort::Nein, Antwort::Ja};
    Datei("programm/lwStamm.lwi~", "#TAG:lw102\r\nangefangen");
    EXPECT_FALSE(SicherungskopieWiederherstellen(*P, Einzige()));
    EXPECT_EQ(DateiLesen(Standard()), Jetzige);
    EXPECT_EQ(P->Index.IndexAnzahl(), 2);
    EXPECT_TRUE(DateiExistiert(Kopie()));
}

TEST_F(Sicherungstest, AuchOhneLesbareIndexdateiLässtSichWiederherstellen) {
    std::filesystem::remove(Standard());
    P->Index.Programmmodus = ModusNichtsGeladen;
    Person.Antworten = {Antwort::Ja};
    ASSERT_TRUE(SicherungskopieWiederherstellen(*P, Einzige()));
    EXPECT_EQ(P->Index.IndexAnzahl(), 1);
    EXPECT_EQ(P->Index.Programmmodus, ModusIndexdatei);
}

// One record of the sample whose figures are worked out below.
void Aufnehmen(Katalog& Index, const char* Pfad, std::int32_t Dauer, std::int64_t Größe,
               const std::function<void(Datensatz&)>& Rest = {}) {
    Datensatz Satz;
    Satz.Dauer = Dauer;
    Satz.Größe = Größe;
    if (Rest) Rest(Satz);
    SatzAnhängen(Index, Pfad, Satz);
}

Katalog Beispiel() {
    Katalog Index;
    Aufnehmen(Index, "/m/a.mp3", 100, 1000, [](Datensatz& Satz) {
        Satz.Genre = 17;
        Satz.Jahr = "1999";
        Satz.Bitrate = 128;
        Satz.Interpret = "Anna";
        Satz.Titel = "Lied";
        Satz.AbspielHäufigkeit = 5;
        Satz.HatId3v1 = TagVorhanden;
    });
    Aufnehmen(Index, "/m/b.MP3", 200, 2000, [](Datensatz& Satz) {
        Satz.Genre = 255;
        Satz.V2Genre = "(17)";
        Satz.V2Jahr = "1999-05-01";
        Satz.V2Interpret = "Anna";
        Satz.Bitrate = 320;
        Satz.AbspielHäufigkeit = 2;
        Satz.HatId3v2 = TagVorhanden;
    });
    Aufnehmen(Index, "/m/c.ogg", 300, -1, [](Datensatz& Satz) {
        Satz.Genre = 0;
        Satz.Jahr = "2001";
        Satz.V2Interpret = "Anna";
        Satz.Bitrate = 95;
        Satz.AbspielHäufigkeit = 5;
        Satz.HatId3v1 = Satz.HatId3v2 = TagVorhanden;
    });
    Aufnehmen(Index, "/m/ohne", 0, 4000, [](Datensatz& Satz) {
        Satz.Genre = static_cast<decltype(Satz.Genre)>(GenreListe.size() - 1);  // never shown
        Satz.Jahr = "um 1970";
        Satz.HatId3v1 = TagVorhanden;
    });
    return Index;
}

std::string AlsText(const std::vector<Statistikgruppe>& Gruppen) {
    std::string Text;
    for (const Statistikgruppe& Eine : Gruppen)
        Text += Eine.Name + " " + std::to_string(Eine.Werte.Dateien) + "/" +
                std::to_string(Eine.Werte.Sekunden) + "/" + std::to_string(Eine.Werte.Bytes) + "; ";
    return Text;
}

TEST(Indexstatistik, ZahlenStimmenMitDenenVonHandÜberein) {
    Katalog Index = Beispiel();
    auto Zahlen = *IndexstatistikBilden(Index, {});
    EXPECT_EQ(Zahlen.Gesamt.Dateien, 4);
    EXPECT_EQ(Zahlen.Gesamt.Sekunden, 600);
    EXPECT_EQ(Zahlen.Gesamt.Bytes, 7000) << "an unknown size counts nothing";
    EXPECT_EQ(Zahlen.MitDauer, 3);
    EXPECT_EQ(Zahlen.MitGröße, 3);
    EXPECT_EQ(Zahlen.MitId3v1, 3);
    EXPECT_EQ(Zahlen.MitId3v2, 2);
    EXPECT_EQ(Zahlen.Gespielt, 3);
    EXPECT_EQ(Zahlen.Abspielungen, 12);
    const auto Gruppe = [&](Statistikteilung Teilung) {
        return AlsText(Zahlen.Gruppen[static_cast<std::size_t>(Teilung)]);
    };
    EXPECT_EQ(Gruppe(Statistikteilung::Genre), "Rock 2/300/3000; Blues 1/300/0; ohne Angabe 1/0/4000; ");
    EXPECT_EQ(Gruppe(Statistikteilung::Jahr), "1999 2/300/3000; 2001 1/300/0; ohne Angabe 1/0/4000; ");
    EXPECT_EQ(Gruppe(Statistikteilung::Dateityp), "mp3 2/300/3000; ogg 1/300/0; ohne Angabe 1/0/4000; ");
    EXPECT_EQ(Gruppe(Statistikteilung::Bitrate),
              "unter 96 1/300/0; 128 - 159 1/100/1000; 320 1/200/2000; ohne Angabe 1/0/4000; ");
    EXPECT_EQ(Gruppe(Statistikteilung::Interpret), "Anna 2/300/3000; ohne Angabe 2/300/4000; ")
        << "an empty field of a present tag stays empty";
    ASSERT_EQ(Zahlen.MeistGespielt.size(), 3U);
    EXPECT_EQ(Zahlen.MeistGespielt[0].Name, "Anna - Lied");
    EXPECT_EQ(Zahlen.MeistGespielt[1].Name, "c.ogg") << "of equal counts the first comes first";
    EXPECT_EQ(Zahlen.MeistGespielt[2].Name, "Anna");

    // The picture: the largest by the measure, the rest in one, what has no value last.
    EXPECT_EQ(AlsText(GruppenFürBild(Zahlen, Statistikteilung::Genre, Statistikmaß::Spieldauer, 1)),
              "Rock 2/300/3000; übrige (1) 1/300/0; ohne Angabe 1/0/4000; ");
    EXPECT_EQ(GruppenFürBild(Zahlen, Statistikteilung::Jahr, Statistikmaß::Größe, 1).size(), 3U);

    Index.Optionen.SpaltenBeideTags = 0;
    Zahlen = *IndexstatistikBilden(Index, {});
    EXPECT_EQ(Gruppe(Statistikteilung::Interpret), "Anna 1/100/1000; ohne Angabe 3/500/6000; ");
    EXPECT_TRUE(IndexstatistikBilden(Index, [](Satznummer) { return false; })) << "too short to ask";
    EXPECT_EQ(IndexstatistikBilden(Katalog{}, {})->Gesamt.Dateien, 0);
}

TEST(Indexstatistik, VieleSätzeLassenSichAbbrechenUndMaßeSindLesbar) {
    Katalog Index;
    for (int Nummer = 0; Nummer < 5000; ++Nummer)
        Aufnehmen(Index, "/a", 1, 1, [&](Datensatz& Satz) { Satz.AbspielHäufigkeit = Nummer; });
    EXPECT_FALSE(IndexstatistikBilden(Index, [](Satznummer) { return false; }));
    const auto Zahlen = *IndexstatistikBilden(Index, [](Satznummer) { return true; });
    ASSERT_EQ(Zahlen.MeistGespielt.size(), 30U);
    EXPECT_EQ(Zahlen.MeistGespielt.front().Häufigkeit, 4999);
    EXPECT_EQ(Zahlen.MeistGespielt.back().Häufigkeit, 4970);
    EXPECT_EQ(MaßText(1234567, Statistikmaß::Dateien), "1.234.567");
    EXPECT_EQ(MaßText(3661, Statistikmaß::Spieldauer), "01:01:01");
    EXPECT_EQ(MaßText(86400 + 59, Statistikmaß::Spieldauer), "1 Tag 00:00:59");
    EXPECT_EQ(MaßText(86400LL * 1000, Statistikmaß::Spieldauer), "1.000 Tage 00:00:00");
    EXPECT_EQ(MaßText(1023, Statistikmaß::Größe), "1.023 Bytes");
    EXPECT_EQ(MaßText(1536, Statistikmaß::Größe), "1,5 KB");
    EXPECT_EQ(MaßText(1LL << 40, Statistikmaß::Größe), "1,0 TB");
    const std::string Text = StatistikAlsText(Zahlen, "Anna");
    EXPECT_TRUE(Text.starts_with("Eigentümer\tAnna\nDateien\t5.000\n")) << Text.substr(0, 60);
}

}  // namespace
}  // namespace liedwerk
