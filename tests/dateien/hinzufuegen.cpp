// Adding folders and files: what is taken, in which order, and what stays after a cancel.
#include "dateien/hinzufuegen.h"

#include <atomic>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <mutex>
#include <set>
#include <stdexcept>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

#include "basis/pfad.h"
#include "dateien/ordnersuche.h"
#include "dateien/probeordner.h"
#include "plattform/linux/ordner.h"
#include "plattform/speicher/cdlaufwerke.h"
#include "plattform/speicher/person.h"
#include "plattform/speicher/welt.h"

namespace liedwerk {
namespace {

struct Hinzufügeprobe : testing::Test {
    test::Probeordner Ordner;
    Katalog Index;
    Einstellungen Werte;
    speicher::Person Person;
    speicher::Protokollliste Log;
    speicher::Laufwerksliste Drives;
    Systemordnerleser Leser;
    Mediumspeicher Medium;
    Pfadverzeichnis Pfade;
    std::atomic<int> Gelesen = 0;
    MedienLeser Datenleser = [this](std::string_view Pfad, const Datensatz& Vorgabe, const Leseauftrag&) {
        ++Gelesen;
        Datensatz Satz = Vorgabe;
        Satz.Titel = DateinameVon(Pfad);
        return Satz;
    };

    void SetUp() override {
        Index.Optionen.Dateitypen = {{"mp3=1", "110"}, {"ogg=1", "010"}, {"txt=0", "000"}};
    }
    Hinzufügeumgebung Umgebung() {
        return {Index, Werte, Person, Log, Leser, Medium, {Drives, Werte, Log, {}}, Pfade, Datenleser};
    }
    Hinzufügeergebnis OrdnerDazu(bool Unterordner = true, std::string NichtBei = {}, bool Ansicht = false) {
        Ordnerauftrag Auftrag;
        Auftrag.Ordner = Ordner.Pfad;
        Auftrag.Unterordner = Unterordner;
        Auftrag.NichtBeiText = std::move(NichtBei);
        Auftrag.DateimanagerAnsicht = Ansicht;
        return EinfachOrdnerHinzufügen(Umgebung(), Auftrag);
    }
    std::set<std::string> AlleNamen() const {
        std::set<std::string> Namen;
        for (Satznummer Nummer = 1; Nummer <= Index.IndexAnzahl(); ++Nummer)
            Namen.insert(Index.Sätze.Pfad(Nummer).substr(Ordner.Pfad.size() + 1));
        return Namen;
    }
    void VieleDateien(int Anzahl) const {
        for (int Nummer = 0; Nummer < Anzahl; ++Nummer)
            Ordner.Datei("o" + std::to_string(Nummer % 7) + "/" + std::to_string(Nummer) + ".mp3");
    }
};

using Namen = std::set<std::string>;

TEST_F(Hinzufügeprobe, NimmtVerwalteteTypenUndLässtAusgenommeneNamenAus) {
    for (const auto* Name :
         {"a.mp3", "B.MP3", "c.txt", "d.xyz", "Neu_INCOMPLETE_.mp3", "sub/_incomplete_/e.ogg"})
        Ordner.Datei(Name);
    const auto Ergebnis = OrdnerDazu(true, "_incomplete_");
    EXPECT_TRUE(Ergebnis.Gelungen);
    EXPECT_EQ(Ergebnis.ErsterNeuer, 1);
    EXPECT_EQ(Ergebnis.Anzahl, 3);
    EXPECT_EQ(AlleNamen(), (Namen{"a.mp3", "B.MP3", "sub/_incomplete_/e.ogg"}));
    EXPECT_TRUE(Index.IndexGeändert);
    EXPECT_EQ(Person.Titel, (std::vector<std::string>{"Durchsuche Ordner", "Füge gefundene Dateien hinzu"}));
    EXPECT_EQ(Person.Status, std::vector<std::string>{"3 Datei(en) hinzugefügt"});
    EXPECT_EQ(Person.Offen, 0);
    EXPECT_EQ(Gelesen, 3) << "what is not taken is not read";
}

TEST_F(Hinzufügeprobe, EinFehlenderOrdnerWirdGemeldetEinLeererNicht) {
    Ordnerauftrag Auftrag;
    Auftrag.Ordner = Ordner.In("fehlt");
    EXPECT_FALSE(EinfachOrdnerHinzufügen(Umgebung(), Auftrag).Gelungen);
    ASSERT_EQ(Person.Meldungen.size(), 1U);
    EXPECT_TRUE(
        Person.Meldungen[0].starts_with("Beim Hinzufügen des Ordners '" + Auftrag.Ordner +
                                        "' ist ein Fehler aufgetreten: \nDer Ordner existiert nicht"));
    EXPECT_TRUE(OrdnerDazu().Gelungen);
    EXPECT_EQ(Person.Status, (std::vector<std::string>{"Hinzufügen abgebrochen", "0 Datei(en) hinzugefügt"}));
    EXPECT_FALSE(Index.IndexGeändert);
    EXPECT_EQ(Person.Offen, 0);
}

TEST_F(Hinzufügeprobe, EinZweiterLaufFügtNichtsHinzuAußerVonEinemAnderenMedium) {
    Ordner.Datei("a.mp3");
    Ordner.Datei("b.mp3");
    Drives.Liste[Ordner.Pfad + "/"] = {Laufwerksart::Wechsel, "EINS", true};
    Werte.Mp3TagLesen = "101";
    OrdnerDazu();
    EXPECT_EQ(Index.Sätze.Text(1, FeldWechselmedium), "EINS");
    Index.IndexGeändert = false;
    EXPECT_EQ(OrdnerDazu().Anzahl, 0);
    EXPECT_TRUE(Index.IndexGeändert) << "the found spelling was taken over";
    EXPECT_EQ(Gelesen, 2);
    Drives.Liste[Ordner.Pfad + "/"].Datenträger = "ZWEI";
    EXPECT_EQ(OrdnerDazu().Anzahl, 2);
    Werte.HinzufügenKeineDoppelten = 0;
    EXPECT_EQ(OrdnerDazu().Anzahl, 2);
    EXPECT_EQ(Index.IndexTreffer, std::vector<std::int16_t>(6, 0));
}

TEST_F(Hinzufügeprobe, JedesLaufwerkUnterDemOrdnerGibtSeinEigenesMedium) {
    Ordner.Datei("eins/a.mp3");
    Ordner.Datei("zwei/b.mp3");
    Ordner.Datei("c.mp3");
    Drives.Liste[Ordner.In("eins/")] = {Laufwerksart::Wechsel, "EINS", true};
    Drives.Liste[Ordner.In("zwei/")] = {Laufwerksart::CdRom, "ZWEI", true};
    OrdnerDazu();
    ASSERT_EQ(Index.IndexAnzahl(), 3);
    for (Satznummer Nummer = 1; Nummer <= 3; ++Nummer) {
        const auto Pfad = Index.Sätze.Pfad(Nummer);
        const auto* Soll = Pfad.find("/eins/") != Pfad.npos   ? "EINS"
                           : Pfad.find("/zwei/") != Pfad.npos ? "ZWEI"
                                                              : "";
        EXPECT_EQ(Index.Sätze.Text(Nummer, FeldWechselmedium), Soll) << Pfad;
    }
}

TEST_F(Hinzufügeprobe, ParallelesLesenGibtDieReihenfolgeDerSuche) {
    VieleDateien(1500);
    std::vector<std::string> Gefunden;
    Ordnersuche Suche;
    Suche.Unterordner = true;
    DateienSuchenAPI(Leser, Ordner.Pfad, Suche, nullptr, Gefunden);
    Datenleser = [](std::string_view Pfad, const Datensatz&, const Leseauftrag&) {
        // Times that differ make an order that rests on luck show.
        std::this_thread::sleep_for(std::chrono::microseconds(std::hash<std::string_view>{}(Pfad) % 200));
        Datensatz Satz;
        Satz.Titel = DateinameVon(Pfad);
        return Satz;
    };
    ASSERT_EQ(OrdnerDazu().Anzahl, 1500);
    for (Satznummer Nummer = 1; Nummer <= 1500; ++Nummer) {
        const auto& Pfad = Gefunden[static_cast<std::size_t>(Nummer - 1)];
        ASSERT_EQ(Index.Sätze.Pfad(Nummer), Pfad);
        ASSERT_EQ(Index.Sätze.Text(Nummer, FeldTitel), DateinameVon(Pfad));
    }
}

TEST_F(Hinzufügeprobe, EinAbbruchBehältGenauDasBisDahinGelesene) {
    VieleDateien(40);
    OrdnerDazu();
    const auto Ganz = Person.Zeigungen;
    const auto Alle = AlleNamen();
    for (std::int64_t Bei = 1; Bei <= Ganz; Bei += 7) {
        Index.Sätze.Leeren();
        Person.Zeigungen = 0;
        Person.AbbruchBei = Bei;
        bool Vorzeitig = false;
        Person.Zwischendurch = [&] { Vorzeitig = Vorzeitig || Index.IndexAnzahl() > 0; };
        const auto Ergebnis = OrdnerDazu();
        EXPECT_FALSE(Ergebnis.Gelungen);
        EXPECT_FALSE(Vorzeitig) << "nothing reaches the index before the commit";
        // The last 80 turns are two for each file, one in front of each record and one behind it.
        EXPECT_EQ(Ergebnis.Anzahl, std::max<std::int64_t>(0, (Bei - (Ganz - 80) - 1) / 2)) << Bei;
        EXPECT_EQ(Person.Status.back(), "Hinzufügen abgebrochen");
        EXPECT_EQ(Person.Offen, 0);
    }
}

TEST_F(Hinzufügeprobe, EinAbbruchWartetNichtAufLangsameDateien) {
    VieleDateien(300);
    Datenleser = [](std::string_view, const Datensatz& Satz, const Leseauftrag&) {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        return Satz;
    };
    using Takt = std::chrono::steady_clock;
    Takt::time_point Abbruch = Takt::now() + std::chrono::hours(1);
    Person.Zwischendurch = [&] {
        // Early in the reading: behind all turns of the walk.
        if (Person.AbbruchBei == 0 && Person.Titel.size() == 2) {
            Person.AbbruchBei = Person.Zeigungen + 4;
            Abbruch = Takt::now();
        }
    };
    EXPECT_FALSE(OrdnerDazu().Gelungen);
    EXPECT_LT(Takt::now() - Abbruch, std::chrono::milliseconds(400));
}

TEST_F(Hinzufügeprobe, EinFehlerImLeserKostetNurSeineDatei) {
    Ordner.Datei("gut.mp3");
    Ordner.Datei("schlecht.mp3");
    Datenleser = [](std::string_view Pfad, const Datensatz& Satz, const Leseauftrag&) {
        if (Pfad.ends_with("schlecht.mp3")) throw std::runtime_error("zu groß");
        return Satz;
    };
    EXPECT_TRUE(OrdnerDazu().Gelungen);
    EXPECT_EQ(AlleNamen(), Namen{"gut.mp3"});
    ASSERT_EQ(Log.Zeilen.size(), 1U);
    EXPECT_NE(Log.Zeilen[0].find("Fehler - zu groß"), std::string::npos);
}

TEST_F(Hinzufügeprobe, NamenMitZeilenendeWerdenGenanntUndNichtAufgenommen) {
    const auto Böse = Ordner.Datei("a\nb.mp3");
    Ordner.Datei("c\r.txt");
    Ordner.Datei("gut.mp3");
    // A name of 255 bytes each, until no path reaches the deepest folder.
    const int Hier = open(".", O_RDONLY | O_DIRECTORY);
    std::filesystem::current_path(Ordner.Pfad);
    const std::string Lang(255, 't');
    for (int i = 0; i < 17; ++i)
        ASSERT_TRUE(mkdir(Lang.c_str(), 0700) == 0 && chdir(Lang.c_str()) == 0);
    ASSERT_EQ(fchdir(Hier), 0);
    close(Hier);
    const auto Ergebnis = OrdnerDazu();
    EXPECT_EQ(Ergebnis.Ungelesene.size(), 1U);
    EXPECT_EQ(Ergebnis.Ausgelassen, std::vector<std::string>{Böse})
        << "a file that is not managed is no loss";
    EXPECT_EQ(AlleNamen(), Namen{"gut.mp3"});
    ASSERT_EQ(Log.Zeilen.size(), 1U);
    EXPECT_EQ(Log.Zeilen[0].find('\n'), std::string::npos);
}

TEST_F(Hinzufügeprobe, DerDateimanagerZeigtOrdnerUndDenÜbergeordnetenUngezählt) {
    Ordner.Datei("a.mp3");
    Ordner.Datei("Album/b.mp3");
    Index.Programmmodus = ModusDateimanager;
    EXPECT_EQ(OrdnerDazu(false, {}, true).Anzahl, 3);
    EXPECT_EQ(Index.Sätze.Pfad(1), PfadVon(Ordner.Pfad));
    EXPECT_EQ(Person.Status.back(), "2 Datei(en) und/oder Ordner werden angezeigt");
    Werte.HinzufügenKeineDoppelten = 0;
    EXPECT_EQ(OrdnerDazu(false, {}, true).Anzahl, 0) << "a second folder repeats nothing";
    EXPECT_EQ(Person.Status.back(), "0 Datei(en) und/oder Ordner werden angezeigt");
}

TEST_F(Hinzufügeprobe, EinzelneDateienInIhrerReihenfolgeOhneFehlendeUndOrdner) {
    const auto A = Ordner.Datei("a.mp3");
    const auto B = Ordner.Datei("b.mp3");
    const auto Rohr = Ordner.In("rohr.mp3");
    ASSERT_EQ(mkfifo(Rohr.c_str(), 0600), 0);
    const std::vector<std::string> Dateien = {
        B, Ordner.In("fehlt.mp3"), Ordner.Pfad, Ordner.Datei("c.txt"), Rohr, A, B};
    const auto Ergebnis = EinfachDateiHinzufügen(Umgebung(), Dateien, true);
    EXPECT_TRUE(Ergebnis.Gelungen);
    ASSERT_EQ(Index.IndexAnzahl(), 3) << "a path given twice in one run is added twice";
    EXPECT_EQ(Index.Sätze.Pfad(1), B);
    EXPECT_EQ(Index.Sätze.Pfad(2), A);
    EXPECT_EQ(Person.Titel, std::vector<std::string>{"Füge Dateien hinzu"});
    EXPECT_EQ(Person.Zeigungen, 7);
    Index.IndexGeändert = false;
    std::filesystem::remove(A);
    EXPECT_EQ(EinfachDateiHinzufügen(Umgebung(), {A}, true).Anzahl, 0);
    EXPECT_FALSE(Index.IndexGeändert) << "a missing file is no duplicate";
}

TEST_F(Hinzufügeprobe, VorherVerschobenesStehtMitNeuemOrtImIndexUndNichtsWirdErsetzt) {
    const std::string Ziel = Ordner.In("ein/fertig");
    for (const auto* Name :
         {"ein/a.mp3", "ein/tief/b.mp3", "ein/tief/c.txt", "ein/leer/d.mp3", "ein/fertig/e.mp3"})
        Ordner.Datei(Name, Name);
    Ordner.Datei("ein/fertig/a.mp3", "alt");
    // Known before, and played: its record goes along.
    Datensatz Bekannter;
    Bekannter.AbspielHäufigkeit = 3;
    SatzAnhängen(Index, Ordner.In("ein/tief/b.mp3"), Bekannter);
    Ordnerauftrag Auftrag;
    Auftrag.Ordner = Ordner.In("ein");
    Auftrag.KopierenInOrdner = Ziel;
    Person.Antworten = {Antwort::Ja};
    const auto Ergebnis = EinfachOrdnerHinzufügen(Umgebung(), Auftrag);
    EXPECT_TRUE(Ergebnis.Gelungen);
    // The one that had a namesake stays where it is, under its own name.
    EXPECT_EQ(AlleNamen(), (Namen{"ein/a.mp3", "ein/fertig/a.mp3", "ein/fertig/tief/b.mp3",
                                  "ein/fertig/leer/d.mp3", "ein/fertig/e.mp3"}));
    EXPECT_EQ(Index.IndexAnzahl(), 5);
    EXPECT_EQ(Index.Sätze.Pfad(1), Ziel + "/tief/b.mp3");
    EXPECT_EQ(Index.Sätze.Lesen(1).AbspielHäufigkeit, 3);
    EXPECT_EQ(*DateiLesen(Ziel + "/a.mp3"), "alt");
    EXPECT_TRUE(DateiExistiert(Ordner.In("ein/a.mp3")));
    EXPECT_FALSE(DateiExistiert(Ordner.In("ein/tief/b.mp3")));
    EXPECT_TRUE(DateiExistiert(Ordner.In("ein/tief/c.txt"))) << "what is not managed stays";
    ASSERT_EQ(Person.Gefragt.size(), 1U);
    EXPECT_TRUE(Person.Gefragt[0].starts_with("Der Ordner '" + Ordner.In("ein/leer") + "' ist (nun) leer."));
    EXPECT_FALSE(OrdnerExistiert(Ordner.In("ein/leer")));
}

TEST_F(Hinzufügeprobe, AlleSätzeEinerVerschobenenDateiGehenMitUndKeinerTrifftEinenAnderen) {
    const auto Quelle = Ordner.Datei("ein/a.mp3");
    const auto Ziel = Ordner.In("fertig/a.mp3");
    for (const auto& Pfad : {Quelle, Quelle, Ziel}) {  // the file of the last one is gone
        Datensatz Satz;
        Satz.AbspielHäufigkeit = Index.IndexAnzahl() + 1;
        SatzAnhängen(Index, Pfad, Satz);
    }
    Ordnerauftrag Auftrag;
    Auftrag.Ordner = Ordner.In("ein");
    Auftrag.KopierenInOrdner = Ordner.In("fertig");
    EXPECT_EQ(EinfachOrdnerHinzufügen(Umgebung(), Auftrag).Anzahl, 0);
    ASSERT_EQ(Index.IndexAnzahl(), 3);
    for (const Satznummer Nummer : {1, 2, 3}) {
        EXPECT_EQ(Index.Sätze.Pfad(Nummer), Nummer == 3 ? Quelle : Ziel);
        EXPECT_EQ(Index.Sätze.Lesen(Nummer).AbspielHäufigkeit, Nummer);
    }
}

TEST_F(Hinzufügeprobe, EinMisslungenesVerschiebenFragtUndBehältWasDaIst) {
    Ordner.Datei("ein/a.mp3");
    Ordner.Datei("ein/b.mp3");
    Ordnerauftrag Auftrag;
    Auftrag.Ordner = Ordner.In("ein");
    // A file where a folder should be.
    Auftrag.KopierenInOrdner = Ordner.Datei("datei") + "/darin";
    Person.Antworten = {Antwort::Ja, Antwort::Nein};
    EXPECT_TRUE(EinfachOrdnerHinzufügen(Umgebung(), Auftrag).Gelungen);
    EXPECT_EQ(Index.IndexAnzahl(), 1) << "with yes the file is added at its old place";
    ASSERT_EQ(Person.Gefragt.size(), 2U);
    EXPECT_NE(Person.Gefragt[0].find("Möchten Sie mit weiteren Dateien im Ordner '" + Auftrag.Ordner +
                                     "' fortfahren?"),
              std::string::npos);
    Auftrag.KopierenInOrdner = Ordner.In("x//y");
    EXPECT_TRUE(EinfachOrdnerHinzufügen(Umgebung(), Auftrag).Gelungen);
    ASSERT_EQ(Person.Meldungen.size(), 1U);
    EXPECT_NE(Person.Meldungen[0].find("enthält ungültige Zeichen"), std::string::npos);
    EXPECT_TRUE(DateiExistiert(Ordner.In("ein/a.mp3")) && DateiExistiert(Ordner.In("ein/b.mp3")));
}

TEST_F(Hinzufügeprobe, EineAudioCDGehtÜberIhrenAssistenten) {
    for (const auto* Name : {"cd/Track01.cda", "cd/Track02.cda"})
        Ordner.Datei(Name);
    Index.Optionen.Dateitypen.push_back({"cda=1", "010"});
    Drives.Liste[Ordner.In("cd/")] = {Laufwerksart::CdRom, "ALBUM", true};
    auto Welt = Umgebung();
    speicher::CDs CDs;
    CDs.Liste[Ordner.In("cd")] = {0, {}, {{150}}, 7650};
    Welt.Laufwerk.CDs = &CDs;
    bool Gewollt = false;
    Welt.CDAssistent = [&](std::string_view Laufwerk) {
        EXPECT_EQ(Laufwerk, Ordner.In("cd"));
        return Gewollt;
    };
    Ordnerauftrag Auftrag;
    Auftrag.Ordner = Ordner.In("cd");
    EXPECT_FALSE(EinfachOrdnerHinzufügen(Welt, Auftrag).Gelungen);
    EXPECT_EQ(Person.Status.back(), "Hinzufügen abgebrochen");
    EXPECT_EQ(Index.IndexAnzahl(), 0);
    Gewollt = true;
    EXPECT_EQ(EinfachOrdnerHinzufügen(Welt, Auftrag).Anzahl, 2);
    EXPECT_EQ(Index.Sätze.Text(1, FeldWechselmedium), "ALBUM 02006401");
}

TEST(Leseauftrag, FolgtDenDreiZiffernDerEinstellung) {
    const auto Alles = HinzufügeLeseauftrag("110");
    ASSERT_TRUE(Alles.Code);
    EXPECT_TRUE(Alles.Code->Id3v1 && Alles.Code->Id3v2 && !Alles.Code->Datenstrom && Alles.Code->Lyrics);
    EXPECT_FALSE(Alles.GrößeLesen || Alles.WechselmediumLesen);
    EXPECT_TRUE(Alles.ZeilenEntfernen);
    const auto Standard = HinzufügeLeseauftrag("101");
    EXPECT_TRUE(Standard.Code->Datenstrom && !Standard.Code->Lyrics && Standard.GrößeLesen);
    EXPECT_FALSE(HinzufügeLeseauftrag("1").Code) << "a mutilated setting reads no tag";
}

}  // namespace
}  // namespace liedwerk
