// Removable media: what identifies them, and the truth table of the question for an absent file.
#include "dateien/medium.h"

#include <gtest/gtest.h>

#include "dateien/probeordner.h"
#include "plattform/speicher/cdlaufwerke.h"
#include "plattform/speicher/person.h"
#include "plattform/speicher/welt.h"

namespace liedwerk {
namespace {

using speicher::Laufwerksliste;

struct Mediumprobe : testing::Test {
    test::Probeordner Ordner;
    std::string Stick = Ordner.In("stick/");
    std::string Da = Ordner.Datei("stick/da.mp3");
    std::string Weg = Ordner.In("stick/weg.mp3");
    Laufwerksliste Drives;
    Einstellungen Werte;
    speicher::Protokollliste Log;
    speicher::Person Person;
    Mediumspeicher Speicher;
    Katalog Index;
    speicher::CDs CDs;
    Mediumumgebung Umgebung{Drives, Werte, Log, &CDs};

    void SetUp() override { Drives.Liste[Stick] = {Laufwerksart::Wechsel, "STICK", true}; }
    Verfügbarkeit Prüfen(const std::string& Pfad, const std::string& Medium, bool Überspringen) {
        Datensatz Satz;
        Satz.Wechselmedium = Medium;
        const Satznummer Nummer = SatzAnhängen(Index, Pfad, Satz);
        return DateiNichtVerfügbarPrüfen(Index, Nummer, Speicher, Umgebung, Person, Überspringen);
    }
};

TEST_F(Mediumprobe, ArtenZählenAlsWechsellaufwerkNachTabelleUndEinstellung) {
    const bool Erwartet[] = {false, false, true, false, true, true, true};
    for (int Art = 0; Art <= 6; ++Art) {
        Drives.Liste["D:\\"].Art = static_cast<Laufwerksart>(Art);
        MediumVergessen(Speicher);
        EXPECT_EQ(LaufwerkIstWechsellaufwerk(Speicher, Umgebung, "D:\\"), Erwartet[Art]) << Art;
    }
    Drives.Liste["D:\\"].Art = Laufwerksart::Netzwerk;
    Werte.NichtVerfügbarNetzwerkIstWechselmedium = 0;
    MediumVergessen(Speicher);
    EXPECT_FALSE(LaufwerkIstWechsellaufwerk(Speicher, Umgebung, "D:\\"));
    const int Fragen = Drives.Fragen;
    for (int Nummer = 0; Nummer < 100; ++Nummer)
        LaufwerkIstWechsellaufwerk(Speicher, Umgebung, "D:\\");
    EXPECT_EQ(Drives.Fragen, Fragen) << "one drive is asked once";
}

TEST_F(Mediumprobe, DerNameWirdGesäubertUndNurEinmalGelesen) {
    Drives.Liste["E:\\"] = {Laufwerksart::CdRom, std::string("\1 Al\nbum\r \0 ", 11), true};
    EXPECT_EQ(WechselmediumLesen(Speicher, Umgebung, "E:\\", true), " Album");
    std::string Aktuell;
    Drives.Liste["E:\\"].Datenträger = "Anderes";
    WechselmediumVergleichenStarten(Speicher, Umgebung, "E:\\");
    EXPECT_FALSE(WechselmediumVergleichen(Speicher, Umgebung, "e:\\", "ANDERES", Aktuell));
    EXPECT_EQ(Aktuell, "Anderes");
    Drives.Liste["E:\\"].Vorhanden = false;
    EXPECT_TRUE(WechselmediumVergleichen(Speicher, Umgebung, "E:\\", "Anderes", Aktuell))
        << "the cache holds";
    EXPECT_EQ(WechselmediumLesen(Speicher, Umgebung, "C:\\", true), "") << "a fixed disk has no medium";
}

TEST_F(Mediumprobe, ZweiAudioCDsOhneNamenUnterscheidetDieKennung) {
    Drives.Liste[Stick] = {Laufwerksart::CdRom, "", true};
    Ordner.Datei("stick/Track01.cda");
    EXPECT_TRUE(LaufwerkIstAudioCD(Umgebung, Stick));
    EXPECT_FALSE(LaufwerkIstAudioCD(Umgebung, Stick + "Track01.cda"));
    WechselmediumVergleichenStarten(Speicher, Umgebung, Stick);
    EXPECT_EQ(Speicher.AktuellesWechselmedium, " ");
    ASSERT_EQ(Log.Zeilen.size(), 1U);
    EXPECT_TRUE(
        Log.Zeilen[0].starts_with("WechselmediumVergleichenStarten: Fehler bei CD-Initialisierung - "));
    CDs.Liste[Ordner.In("stick")] = {0, {}, {{150}}, 7650};
    WechselmediumVergleichenStarten(Speicher, Umgebung, Stick);
    EXPECT_EQ(Speicher.AktuellesWechselmedium, " 02006401");
}

TEST_F(Mediumprobe, OhneFrageGehtEsNachDerTabelleWeiter) {
    const std::string Fest = Ordner.Datei("fest.mp3");
    struct Zeile {
        std::string Pfad;
        std::string Medium;
        Verfügbarkeit Ohne;  // NichtLaufwerkÜberspringen false, true
        Verfügbarkeit Mit;
    };
    const auto Weiter = Verfügbarkeit::Weiter;
    const auto Überspringen = Verfügbarkeit::Überspringen;
    const Zeile Tabelle[] = {
        {Da, "STICK", Weiter, Weiter},                                  // at hand
        {Da, "ANDERER", Überspringen, Überspringen},                    // same path on another medium
        {Da, "", Überspringen, Überspringen},                           // read before the medium had a name
        {Weg, "STICK", Überspringen, Überspringen},                     // removable and missing
        {Fest, "", Weiter, Weiter},                                     // fixed and there
        {Fest, "STICK", Weiter, Überspringen},                          // fixed, there, medium differs
        {Ordner.In("fehlt.mp3"), "", Weiter, Überspringen},             // fixed and deleted
        {Ordner.In("fehlt.mp3"), "STICK", Überspringen, Überspringen},  // its medium lies elsewhere now
        {"\\\\server\\x.mp3", "", Weiter, Überspringen},                // no drive at all
        {"kaputt", "", Weiter, Überspringen},
        {"", "", Weiter, Überspringen},
    };
    Werte.NichtVerfügbarFragen = 0;
    for (const auto& [Pfad, Medium, Ohne, Mit] : Tabelle) {
        EXPECT_EQ(Prüfen(Pfad, Medium, false), Ohne) << Pfad << " " << Medium;
        EXPECT_EQ(Prüfen(Pfad, Medium, true), Mit) << Pfad << " " << Medium;
    }
    EXPECT_TRUE(Person.Gefragt.empty());
    Werte.NichtVerfügbarExistierenNicht = 1;
    EXPECT_EQ(Prüfen(Weg, "STICK", true), Weiter);
}

TEST_F(Mediumprobe, DieFrageNenntDatenträgerUndLaufwerkUndFolgtDerAntwort) {
    using Wahl = Verfügbarkeitsantwort;
    Person.Verfügbarkeiten = {Wahl::Abbrechen, Wahl::Überspringen, Wahl::AlleÜberspringen};
    EXPECT_EQ(Prüfen(Weg, "STICK", false), Verfügbarkeit::Abbrechen);
    EXPECT_EQ(Prüfen(Weg, "", false), Verfügbarkeit::Überspringen);
    EXPECT_EQ(Prüfen(Weg, "STICK", false), Verfügbarkeit::Überspringen);
    ASSERT_EQ(Person.Gefragt.size(), 3U);
    const std::string Anfang = "Die Datei '" + Weg + "' ist zurzeit nicht verfügbar.\nBitte legen Sie ";
    EXPECT_TRUE(Person.Gefragt[0].starts_with(Anfang + "den Datenträger 'STICK' in Laufwerk '" + Stick +
                                              "' ein bzw."));
    EXPECT_TRUE(
        Person.Gefragt[1].starts_with(Anfang + "den Quelldatenträger in Laufwerk '" + Stick + "' ein bzw."));
    EXPECT_EQ(Prüfen(Weg, "STICK", false), Verfügbarkeit::Überspringen);
    EXPECT_EQ(Person.Gefragt.size(), 3U) << "all are skipped from now on";
    MediumVergessen(Speicher);
    EXPECT_TRUE(Speicher.AlleÜberspringen) << "only a caller takes the choice back";
}

TEST_F(Mediumprobe, DerWächterSiehtDasEingelegteMedium) {
    Drives.Liste[Stick].Datenträger = "ANDERER";
    struct Einleger final : Oberfläche {
        Laufwerksliste& Drives;
        std::string Stick;
        std::vector<std::string> Gesehen;
        Einleger(Laufwerksliste& Alle, std::string Name) : Drives(Alle), Stick(std::move(Name)) {}
        Verfügbarkeitsantwort DateiNichtVerfügbarZeigen(const Verfügbarkeitsfrage& Frage) override {
            std::string Aktuell;
            for (const auto* Name : {"ANDERER", "STICK"}) {
                Drives.Liste[Stick].Datenträger = Name;
                const bool Da = Frage.Nachsehen(Aktuell);
                Gesehen.push_back(Aktuell);
                if (Da) return Verfügbarkeitsantwort::Verfügbar;
            }
            return Verfügbarkeitsantwort::Abbrechen;
        }
        bool DateiNichtVerfügbarSchreibenZeigen(const Schreibsperrfrage&) override { return false; }
        void Melden(Symbol, std::string_view) override {}
        Antwort Fragen(Symbol, std::string_view, Knöpfe, Antwort Vorgabe) override { return Vorgabe; }
        void StatusZeigen(std::string_view, int) override {}
        void FortschrittStarten(std::string_view, bool, std::int64_t) override {}
        bool FortschrittZeigen(std::string_view, std::int64_t) override { return true; }
        void FortschrittSchließen() override {}
        bool FortschrittOffen() const override { return false; }
        void EreignisseVerarbeiten() override {}
    } Einleger(Drives, Stick);
    Datensatz Satz;
    Satz.Wechselmedium = "STICK";
    const Satznummer Nummer = SatzAnhängen(Index, Da, Satz);
    EXPECT_EQ(DateiNichtVerfügbarPrüfen(Index, Nummer, Speicher, Umgebung, Einleger, false),
              Verfügbarkeit::Weiter);
    EXPECT_EQ(Einleger.Gesehen, (std::vector<std::string>{"ANDERER", "STICK"}));
}

}  // namespace
}  // namespace liedwerk
