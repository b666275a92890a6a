// Reminders: storing, recurrence, firing.
#include "termine/termine.h"

#include <gtest/gtest.h>

#include "plattform/speicher/person.h"
#include "plattform/speicher/welt.h"
#include "termine/pruefen.h"
#include "termine/wiederkehr.h"

namespace liedwerk {
namespace {

Zeitpunkt Am(std::string_view Text) {
    return DatumLesen(Text).value();
}

Termin Wiederkehrend(std::string_view Datum, std::string_view Einheit, int Intervall) {
    Termin Eintrag;
    Eintrag.Benachrichtigen = 1;
    Eintrag.BenachrichtigenAm = Datum;
    Eintrag.Einheit = Einheit;
    Eintrag.Intervall = static_cast<std::int16_t>(Intervall);
    return Eintrag;
}

TEST(Wiederkehr, MonateKlemmenAmLetztenTagUndFindenZurück) {
    const Zeitpunkt Start = Am("31.01.2028 08:30:00");
    EXPECT_EQ(DatumZeitText(EinheitenAddieren(Start, "m", 1)), "29.02.2028 08:30:00");
    EXPECT_EQ(DatumZeitText(EinheitenAddieren(Start, "m", 14)), "31.03.2029 08:30:00");
    EXPECT_EQ(DatumZeitText(EinheitenAddieren(Am("29.02.2028"), "y", 1)), "28.02.2029 00:00:00");
    EXPECT_EQ(DatumZeitText(EinheitenAddieren(Am("31.12.2027 23:59:30"), "n", 1)), "01.01.2028 00:00:30");
    // The night in which clocks are put back has its hours like every other.
    EXPECT_EQ(DatumZeitText(EinheitenAddieren(Am("31.10.2027 01:30:00"), "h", 3)), "31.10.2027 04:30:00");
    EXPECT_EQ(EinheitenAddieren(Start, "y", 1'000'000).Jahr, 9999);
    EXPECT_EQ(EinheitenAddieren(Start, "m", -1'000'000'000).Jahr, 1);
}

TEST(Wiederkehr, NächsterTerminNachDenSchrittenDerEinheit) {
    struct Fall {
        const char* Basis;
        const char* Einheit;
        int Intervall;
        const char* Jetzt;
        const char* Nächster;
    };
    const Fall Fälle[] = {
        {"31.01.2027 09:00:00", "m", 1, "01.03.2027 00:00:00", "31.03.2027 09:00:00"},
        {"01.05.2027 12:00:00", "n", 1, "01.05.2027 12:00:30", "01.05.2027 12:01:00"},
        // The date that is reached lies in the past, and one day more does not reach now either.
        {"01.05.2027 00:00:00", "d", 3, "11.05.2027 00:00:00", "08.05.2027 00:00:00"},
        {"01.05.2027 00:00:00", "d", 5, "11.05.2027 00:00:00", "04.05.2027 00:00:00"},
        {"01.05.2027 00:00:00", "d", 0, "01.05.2027 07:00:00", "02.05.2027 00:00:00"},
        {"29.02.2024 10:00:00", "y", 1, "01.03.2025 00:00:00", "28.02.2026 10:00:00"},
        {"01.05.2027 10:50:00", "h", 1, "01.05.2027 11:10:00", "01.05.2027 11:50:00"},
    };
    for (const Fall& Einer : Fälle) {
        const auto Lage =
            TerminNächsterTermin(Wiederkehrend(Einer.Basis, Einer.Einheit, Einer.Intervall), Am(Einer.Jetzt));
        EXPECT_TRUE(Lage.Fällig) << Einer.Basis << ' ' << Einer.Einheit;
        EXPECT_EQ(Lage.Nächster, Einer.Nächster) << Einer.Basis << ' ' << Einer.Einheit;
    }
    const auto Künftig = TerminNächsterTermin(Wiederkehrend("02.05.2027", "d", 2), Am("01.05.2027"));
    EXPECT_FALSE(Künftig.Fällig);
    EXPECT_EQ(Künftig.Nächster, "02.05.2027 00:00:00");
    EXPECT_EQ(Künftig.Letzter, UngültigesDatum);
    Termin Gefeuert = Wiederkehrend("01.01.2027", "d", 2);
    Gefeuert.Erledigt = "02.05.2027";
    const auto Danach = TerminNächsterTermin(Gefeuert, Am("01.05.2027"));
    EXPECT_FALSE(Danach.Fällig);
    EXPECT_EQ(Danach.Nächster, "04.05.2027 00:00:00");
    // Without recurrence: not by its date.
    EXPECT_FALSE(TerminNächsterTermin(Wiederkehrend("01.01.2020", "", 0), Am("01.05.2027")).Fällig);
    EXPECT_TRUE(TerminNächsterTermin(Wiederkehrend("irgendwann", "", 0), Am("01.05.2027")).Fällig);
    EXPECT_TRUE(TerminNächsterTermin(Wiederkehrend("irgendwann", "d", 1), Am("01.05.2027")).Fällig);
}

TEST(Termine, SpeichernNachBenachrichtigungUndVergangenheit) {
    const Zeitpunkt Jetzt = Am("21.11.2026 12:00:00");
    Terminliste Termine;
    Termineingabe Eingabe{
        "Buch zurückgeben", "1.12.26", "Verliehene Dinge", 1, "20.11.2026 8:00", 4, std::int16_t{7},
        std::int16_t{30},   "Bald",    "/usr/bin/true"};
    ASSERT_EQ(TerminHinzufügen(Termine, Eingabe, Jetzt), 1U);
    EXPECT_EQ(Termine[0].Datum, "01.12.2026 00:00:00");
    EXPECT_EQ(Termine[0].AngelegtAm, "21.11.2026 12:00:00");
    EXPECT_EQ(Termine[0].Einheit, "") << "there is no unit 4";
    EXPECT_EQ(Termine[0].Intervall, 0);
    EXPECT_EQ(Termine[0].Erledigt, "1") << "past and once: done";
    Eingabe.Einheitsnummer = 5;
    TerminÄndern(Termine, 1, Eingabe, Jetzt);
    EXPECT_EQ(Termine[0].Erledigt, "1") << "without the flag it stays";
    Eingabe.Zurücksetzen = true;
    TerminÄndern(Termine, 1, Eingabe, Jetzt);
    EXPECT_EQ(Termine[0].Erledigt, "");
    EXPECT_EQ(Termine[0].Intervall, 7);
    EXPECT_EQ(TerminZelle(Termine[0], "Wiederkehrend"), "Jeden 7. Monat");
    EXPECT_EQ(TermineingabeVon(Termine[0]).Einheitsnummer, 5);
    Termin Eintrag = Termine[0];
    Eintrag.Intervall = 1;
    Eintrag.AngelegtAm = "?";
    Termine.Setzen(0, Eintrag);
    EXPECT_EQ(TerminZelle(Termine[0], "Wiederkehrend"), "Jeden Monat");
    EXPECT_EQ(TerminZelle(Termine[0], "Erinnern"), "20.11.2026 08:00:00");
    EXPECT_EQ(TerminZelle(Termine[0], "Angelegt am"), "Fehler");
    Eingabe.Benachrichtigen = 0;
    TerminÄndern(Termine, 1, Eingabe, Jetzt);
    EXPECT_EQ(Termine[0].BenachrichtigenAm + Termine[0].Einheit, "");
    EXPECT_EQ(TerminZelle(Termine[0], "Erinnern"), "Aus");
    EXPECT_EQ(Termine[0].AnzeigeDauer, 30);
    TerminÄndern(Termine, 2, Eingabe, Jetzt);
    TerminEntfernen(Termine, 2);
    TerminEntfernen(Termine, 1);
    EXPECT_TRUE(Termine.empty());
}

// The events of an index, checked by a stopped clock; every notice is kept.
struct Prüfung : ::testing::Test {
    std::vector<Terminmeldung> Prüfen() {
        Terminumgebung Umgebung{Person, Log, Uhrzeit, {}, {}, {}, {}};
        Umgebung.Melden = [&](const Terminmeldung&) {
            if (Währenddessen) Währenddessen();
            return Antwort;
        };
        Umgebung.ProgrammStarten = [&](const Termin& Eintrag) { Gestartet.push_back(Eintrag.Anwendung); };
        Umgebung.VerpassteZeigen = [&](const Terminliste& Alle) { Verpasst = Alle; };
        Umgebung.ZeileAuffrischen = [&](std::size_t Nummer) { Aufgefrischt.push_back(Nummer); };
        return TerminePrüfen(Index, Umgebung, Läuft);
    }
    void Neu(std::string_view Datum, std::string_view Einheit,
             const std::function<void(Termin&)>& Ändern = {}) {
        Termin Neuer = Wiederkehrend(Datum, Einheit, 1);
        Neuer.Beschreibung = "E" + std::to_string(Index.Termine.size() + 1);
        if (Ändern) Ändern(Neuer);
        Index.Termine.push_back(Neuer);
    }

    Katalog Index;
    speicher::Person Person;
    speicher::Protokollliste Log;
    speicher::StehendeUhr Uhrzeit;
    Terminantwort Antwort;
    std::function<void()> Währenddessen;
    std::vector<std::string> Gestartet;
    Terminliste Verpasst;
    std::vector<std::size_t> Aufgefrischt;
    bool Läuft = false;
};

TEST_F(Prüfung, JederFälligeEinmalUndEinFehlerHältKeinenAuf) {
    Neu("kein Datum", "d");
    Neu("21.11.2026 11:00:00", "d", [](Termin& E) { E.Anwendung = "/gibt/es/nicht"; });
    Neu("22.11.2026 11:00:00", "d");
    Neu("20.11.2026 11:00:00", "h", [](Termin& E) { E.Anwendung = "/proc/self/exe"; });
    Neu("20.11.2026 11:00:00", "h", [](Termin& E) { E.Erledigt = "1"; });
    Neu("20.11.2026 11:00:00", "h", [](Termin& E) { E.Benachrichtigen = 0; });
    Währenddessen = [&] { EXPECT_TRUE(Prüfen().empty()) << "a tick while a notice is open"; };
    const auto Gezeigte = Prüfen();
    ASSERT_EQ(Gezeigte.size(), 2U);
    EXPECT_EQ(
        Gezeigte[0].Text,
        "Das Ereignis 'E2' vom 21.11.2026 11:00:00 wurde erreicht.\r\n\r\nBitte wählen Sie eine der unten "
        "stehenden Optionen, um fortzufahren.");
    EXPECT_EQ(Gezeigte[0].Nächster, "22.11.2026 11:00:00");
    EXPECT_EQ(Index.Termine[1].BenachrichtigenAm, "22.11.2026 11:00:00");
    EXPECT_EQ(Index.Termine[3].BenachrichtigenAm, "21.11.2026 13:00:00");
    EXPECT_EQ(Gestartet, std::vector<std::string>{"/proc/self/exe"});
    ASSERT_EQ(Person.Meldungen.size(), 1U);
    EXPECT_NE(Person.Meldungen[0].find("'/gibt/es/nicht' konnte nicht gestartet werden"), std::string::npos);
    ASSERT_EQ(Log.Zeilen.size(), 1U);
    EXPECT_EQ(Log.Zeilen[0], "TerminePrüfen: Benachrichtigungs-Datum bei Termin 1 ungültig - 'kein Datum' ");
    EXPECT_TRUE(Index.IndexGeändert);
    Währenddessen = nullptr;
    EXPECT_TRUE(Prüfen().empty()) << "a notice never appears twice";
}

TEST_F(Prüfung, VieleAufEinmalKommenAlsListe) {
    for (int Nummer = 0; Nummer < 25; ++Nummer)
        Neu("21.11.2026 11:00:00", "d", [](Termin& E) { E.Anwendung = "/proc/self/exe"; });
    EXPECT_EQ(Prüfen().size(), 20U);
    EXPECT_EQ(Gestartet.size(), 20U);
    ASSERT_EQ(Verpasst.size(), 5U);
    EXPECT_EQ(Verpasst[0].Beschreibung, "E21");
    EXPECT_EQ(Index.Termine[24].BenachrichtigenAm, Index.Termine[0].BenachrichtigenAm);
    Verpasst.clear();
    EXPECT_TRUE(Prüfen().empty());
    EXPECT_TRUE(Verpasst.empty());
}

TEST_F(Prüfung, AntwortenBestimmenWieEsWeitergeht) {
    Neu("21.11.2026 11:00:00", "d");
    Antwort = {Terminwahl::Folgendermaßen, "24.12.26 18:00"};
    EXPECT_EQ(Prüfen().size(), 1U);
    EXPECT_EQ(Index.Termine[0].BenachrichtigenAm, "24.12.2026 18:00:00");
    EXPECT_EQ(Index.Termine[0].Erledigt, "");
    Uhrzeit.Punkt = Am("25.12.2026");
    Antwort = {Terminwahl::Nein, ""};
    EXPECT_EQ(Prüfen().size(), 1U);
    EXPECT_EQ(Index.Termine[0].Erledigt, "1");
    // Without recurrence: listed as missed, once, and an event that goes while its notice is open harms
    // nobody.
    Neu("01.12.2026", "");
    EXPECT_TRUE(Prüfen().empty());
    ASSERT_EQ(Verpasst.size(), 1U);
    EXPECT_EQ(Verpasst[0].Beschreibung, "E2");
    Verpasst.clear();
    Neu("24.12.2026", "d");
    Währenddessen = [&] { Index.Termine.clear(); };
    EXPECT_EQ(Prüfen().size(), 1U);
    EXPECT_TRUE(Verpasst.empty());
}

}  // namespace
}  // namespace liedwerk
