// The steps of the CD database: what is asked, how each reply is taken, what the person is told.
#include "cd/cddb.h"

#include <gtest/gtest.h>

#include "cd/xmcd.h"
#include "plattform/linux/ordner.h"
#include "plattform/qt/http.h"
#include "plattform/speicher/netz.h"
#include "welt.h"
#include "werkzeuge/webserver.h"

namespace liedwerk::test {
namespace {

constexpr auto Gelesen =
    "210 rock 150b1b03 CD database entry follows (until terminating `.')\r\n# xmcd\r\nDISCID=150b1b03\r\n"
    "DTITLE=Anna Berg / Morgen\r\nDYEAR=1999\r\nDGENRE=Rock\r\nTTITLE0=Früh\r\nTTITLE1=Mit\r\nTTITLE1=tag\r\n"
    "TTITLE2=Spät\r\nEXTD=YEAR: 1999 ID3G: 17\\nLive\r\nPLAYORDER=\r\n.\r\n";

struct Cddb : ::testing::Test, CDWelt {
    speicher::Netz Netz;
    std::vector<std::string> Angebot;
    std::size_t Wahl = 0;
    CDDBHerkunft Starten(CDDBWunsch Wunsch = {}) {
        CDDBUmgebung Umgebung{DiscUmgebung(), Werte, &Netz, Person, [this](const auto& Zeilen) {
                                  Angebot = Zeilen;
                                  return Wahl;
                              }};
        return CDDBStart(Stand, Umgebung, "/cd", Wunsch);
    }
    std::string Letzte() const { return Person.Meldungen.empty() ? "" : Person.Meldungen.back(); }
};

TEST_F(Cddb, EinTrefferWirdGelesenUndBeimNächstenMalGemerkt) {
    Netz.Antworten = {"200 rock 150b1b03 Anna Berg / Morgen\r\n", Gelesen};
    CDDBWunsch Wunsch;
    Wunsch.Speichern = true;
    ASSERT_EQ(Starten(Wunsch), CDDBHerkunft::Server);
    const std::string Hallo = "&hello=anna.m%C3%BCller+example.org+Liedwerk+1.00&proto=5";
    ASSERT_EQ(Netz.Gestellt.size(), 2U);
    EXPECT_EQ(Netz.Gestellt[0].Url, "http://cd.example:8080/~cddb/cddb.cgi/?cmd=" + Query() + Hallo);
    EXPECT_EQ(Netz.Gestellt[1].Url,
              "http://cd.example:8080/~cddb/cddb.cgi/?cmd=cddb+read+rock+" + Stand.Daten.ID + Hallo);
    EXPECT_FALSE(Netz.Gestellt[0].Inhalt);
    const CDDaten& Daten = Stand.Daten;
    EXPECT_EQ(Daten.Interpret, "Anna Berg");
    EXPECT_EQ(Daten.Titel[1].Titel, "Mittag");
    EXPECT_EQ(Daten.Titel[0].Offset, 150);
    EXPECT_EQ(Daten.Erweitert, "Live");
    EXPECT_EQ(Daten.Kategorie, "Rock");
    EXPECT_TRUE(Person.Meldungen.empty());
    EXPECT_EQ(Person.Offen, 0);
    for (const char* const Zeile :
         {"CDDBStart: Start - /cd, cd.example:8080\r\n", "CDDBAbfragen...\r\nSende:\r\n",
          "Resultat:\r\n200 rock", "CDDBStart: Beendet\r\n"})
        EXPECT_NE(Daten.Protokoll.find(Zeile), std::string::npos) << Zeile;
    Stand = {};
    EXPECT_EQ(Starten(), CDDBHerkunft::Speicher);
    EXPECT_EQ(Stand.Daten.Titel[2].Titel, "Spät");
    EXPECT_EQ(Netz.Gestellt.size(), 2U);
}

TEST_F(Cddb, JedeAntwortHatIhrEnde) {
    constexpr auto NichtGelesen =
        "Beim Kommunizieren mit der Internet-Datenbank ist ein Fehler aufgetreten:\nDas von Ihnen "
        "angeforderte Medium und der damit verbundene Datensatz konnte nicht gelesen werden. Beim Herstellen "
        "der Verbindung ist ein Fehler aufgetreten.\nBitte prüfen Sie, ob eine Internetverbindung besteht "
        "und diese ordnungsgemäß eingerichtet wurde.";
    // Without a length the end of the connection ends the reply, wherever that was.
    const std::string Abgeschnitten = std::string(Gelesen, std::string_view(Gelesen).find("Mit\r"));
    const struct {
        const char* Name;
        std::deque<std::string> Antworten;
        CDDBHerkunft Herkunft;
        std::int32_t Fehler;
        const char* Meldung;
        std::size_t Anfragen;
    } Tafel[] = {
        {"202",
         {"202 No match"},
         CDDBHerkunft::Standard,
         1,
         "Das von Ihnen angeforderte Medium konnte nicht gefunden werden (202).",
         1},
        {"401",
         {"200 rock 1 A / B", "401 rock 1 No such entry"},
         CDDBHerkunft::Standard,
         1,
         "Das von Ihnen angeforderte Medium konnte nicht gefunden werden (401).",
         2},
        {"403", {"200 rock 1 A / B", "403 Database entry is corrupt"}, CDDBHerkunft::Standard, 0, "", 2},
        {"other", {"<html>Fehler</html>"}, CDDBHerkunft::Standard, 0, "", 1},
        {"nobody there",
         {},
         CDDBHerkunft::Standard,
         -1,
         "Beim Kommunizieren mit der Internet-Datenbank ist ein Fehler aufgetreten:\nDas von Ihnen "
         "angeforderte "
         "Medium konnte nicht gefunden werden. Beim Herstellen der Verbindung ist ein Fehler "
         "aufgetreten.\nBitte "
         "prüfen Sie, ob eine Internetverbindung besteht und diese ordnungsgemäß eingerichtet wurde.",
         1},
        {"empty", {"200 rock 1 A / B", ""}, CDDBHerkunft::Standard, -1, NichtGelesen, 2},
        {"cut", {"200 rock 1 A / B", Abgeschnitten}, CDDBHerkunft::Standard, -1, NichtGelesen, 2},
    };
    for (const auto& Eine : Tafel) {
        SCOPED_TRACE(Eine.Name);
        Stand = {};
        Person.Meldungen.clear();
        Netz.Gestellt.clear();
        Netz.Antworten = Eine.Antworten;
        EXPECT_EQ(Starten(), Eine.Herkunft);
        EXPECT_EQ(Stand.CDDBFehler, Eine.Fehler);
        EXPECT_EQ(Letzte(), Eine.Meldung);
        EXPECT_EQ(Netz.Gestellt.size(), Eine.Anfragen);
        EXPECT_EQ(Stand.Daten.Titel[0].Titel, "Titel 1");
        EXPECT_EQ(Stand.Daten.Album, "Unbekanntes Album");
        EXPECT_EQ(Person.Offen, 0);
    }
}

TEST_F(Cddb, UmleitungNenntDenNeuenServerOderWarumEsKeinerIst) {
    const std::string Anfang = "Der Server verweist auf eine andere Adresse.\n";
    for (const auto& [Ziel, Erwartet] :
         {std::pair{"http://neu.example:81/~cddb/cddb.cgi/?cmd=x",
                    "Bitte geben Sie diese in den 'Optionen' als CD-Datenbank-Server an: neu.example:81"},
          {"http://CD.example:8080/anderswo",
           "Dort kann nicht gefragt werden: http://CD.example:8080/anderswo"},
          {"https://cd.example/\x1b[2J", "Dort kann nicht gefragt werden: https://cd.example/ [2J"}}) {
        Stand = {};
        Netz.Umleitung = Ziel;
        EXPECT_EQ(Starten(), CDDBHerkunft::Standard);
        EXPECT_EQ(Letzte().find(Anfang + Erwartet), 0U) << Letzte();
    }
}

TEST_F(Cddb, UnterMehrerenWähltDiePerson) {
    const std::string Liste =
        "210 Found exact matches\r\nrock 11111111 A / B\r\nbl&ues ../../x\x1b[2J C\r\n.\r\n";
    Netz.Antworten = {Liste, Gelesen};
    Wahl = 1;
    EXPECT_EQ(Starten(), CDDBHerkunft::Server);
    EXPECT_EQ(Angebot, (std::vector<std::string>{"rock 11111111 A / B", "bl&ues ../../x [2J C"}));
    EXPECT_NE(Netz.Gestellt[1].Url.find("?cmd=cddb+read+rock+11111111&hello="), std::string::npos);
    EXPECT_NE(Stand.Daten.ID, "11111111") << "the disc keeps its own id";
    // Evil words can do nothing in the second request.
    Netz.Antworten = {Liste, Gelesen};
    Wahl = 2;
    CDDBWunsch Wunsch;
    Wunsch.Abfragen = true;
    Starten(Wunsch);
    EXPECT_NE(Netz.Gestellt[3].Url.find("?cmd=cddb+read+misc+..%2F..%2Fx&hello="), std::string::npos);
    // A cancel reads the disc's own id all the same; a refusal is dropped.
    Stand = {};
    Netz.Antworten = {Liste, "403 nein"};
    Wahl = 0;
    EXPECT_EQ(Starten(), CDDBHerkunft::Standard);
    EXPECT_NE(Netz.Gestellt[5].Url.find("?cmd=cddb+read+misc+" + Stand.Daten.ID + "&"), std::string::npos);
    EXPECT_TRUE(Person.Meldungen.empty());
    // A list without rows.
    Stand = {};
    Netz.Antworten = {"211 nichts", Gelesen};
    EXPECT_EQ(Starten(), CDDBHerkunft::Server);
    EXPECT_EQ(Stand.CDDBFehler, -1);
    EXPECT_NE(Letzte().find("Ein Verarbeitungsfehler ist aufgetreten."), std::string::npos);
}

TEST_F(Cddb, AbbruchMeldetSichUndBeendetJedenSchritt) {
    for (std::int64_t Schritt = 2; Schritt <= 6; ++Schritt) {
        SCOPED_TRACE(Schritt);
        Stand = {};
        Person.Zeigungen = 0;
        Person.AbbruchBei = Schritt;
        Netz.Antworten = {"200 rock 1 A / B", Gelesen};
        EXPECT_EQ(Starten(), CDDBHerkunft::Standard);
        EXPECT_EQ(Stand.CDDBFehler, 1);
        EXPECT_EQ(Letzte(), "Der Vorgang wurde abgebrochen.");
    }
}

TEST_F(Cddb, UnbrauchbareMailadressenFragenNichts) {
    const std::string Kurz =
        "ist ungültig oder wurde nicht durch eine persönliche Adresse ersetzt.\n"
        "Bitte ändern Sie die Adresse in den 'Optionen'.";
    for (const char* const Adresse :
         {"", "  ", "name@anbieter.invalid", "a.b", "ab@c", "ab@c.", "a.b@", "ab @c.de", " ab@c.de",
          "a b@c d.de", "a.b@c.de", "@ab.de", ".ab@c.de", "ab@c.de\r\nX: y"})
        EXPECT_TRUE(CDDBEmailPrüfen(Adresse).ends_with(Kurz)) << Adresse;
    EXPECT_EQ(
        CDDBEmailPrüfen("ab@c@d.de"),
        "Die von Ihnen angegebene EMail-Adresse 'ab@c@d.de' ist ungültig, da diese nicht verarbeitet werden "
        "konnte.\nBitte ändern Sie die Adresse in den 'Optionen'.");
    for (const char* const Adresse : {"anna@example.org", "a b@c.de", "ab.c@d.de"})
        EXPECT_EQ(CDDBEmailPrüfen(Adresse), "") << Adresse;
    Werte.CDDBEmail = "name@anbieter.invalid";
    EXPECT_EQ(Starten(), CDDBHerkunft::Standard);
    EXPECT_TRUE(Letzte().ends_with(Kurz));
    Werte.CDDBEmail = "anna@example.org";
    Werte.CDDBServer = " ";
    Starten();
    EXPECT_EQ(Letzte(),
              "Sie haben keinen CD-Datenbank-Server angegeben.\nBitte ändern Sie diesen in den 'Optionen'.");
    EXPECT_TRUE(Netz.Gestellt.empty());
    CDDBWunsch Nur;
    Nur.NurLesen = true;
    Person.Meldungen.clear();
    EXPECT_EQ(Starten(Nur), CDDBHerkunft::Standard);
    EXPECT_TRUE(Person.Meldungen.empty());
}

TEST_F(Cddb, SendenPrüftUndTrägtDieKopfzeilen) {
    CDDBWunsch Wunsch;
    Wunsch.Senden = true;
    Starten(Wunsch);
    EXPECT_NE(Letzte().find("Kategorie"), std::string::npos);
    CDDaten Eingaben = Stand.Daten;
    Eingaben.Kategorie = "folk";
    Wunsch.Eingaben = &Eingaben;
    Starten(Wunsch);
    EXPECT_NE(Letzte().find("Album, Interpret und alle Titel"), std::string::npos);
    EXPECT_TRUE(Netz.Gestellt.empty());
    Eingaben.Album = "Grüße";
    Eingaben.Interpret = "Anna Berg";
    Netz.Antworten = {"200 OK, submission has been sent.", "501 Missing required header information."};
    Starten(Wunsch);
    EXPECT_EQ(Letzte().find("Der Server hat die Daten der CD zur Probe angenommen."), 0U);
    const Httpanfrage& Gesendet = Netz.Gestellt.at(0);
    EXPECT_EQ(Gesendet.Url, "http://cd.example:8080/~cddb/submit.cgi");
    const std::vector<std::pair<std::string, std::string>> Kopf{
        {"Category", "folk"},
        {"Discid", Eingaben.ID},
        {"User-Email", "anna.müller@example.org"},
        {"Submit-Mode", "test"},
        {"X-Cddbd-Note", "Sent by Liedwerk 1.00"},
        {"Content-Type", "text/plain; charset=windows-1252"}};
    EXPECT_EQ(Gesendet.Kopfzeilen, Kopf);
    EXPECT_NE(Gesendet.Inhalt->find("DTITLE=Anna Berg / Gr\xfc\xdf"
                                    "e\r\n"),
              std::string::npos);
    EXPECT_EQ(Stand.Daten.Befehl, "cddb write folk " + Eingaben.ID);
    Wunsch.Probe = false;
    Starten(Wunsch);
    EXPECT_EQ(Netz.Gestellt.at(1).Kopfzeilen.at(3).second, "submit");
    EXPECT_EQ(Letzte(),
              "Der Server hat die Daten der CD nicht angenommen: '501 Missing required header "
              "information.'");
    // Another disc has been put in meanwhile.
    CDs.Liste["/cd"].Spuren.pop_back();
    Starten(Wunsch);
    EXPECT_EQ(Letzte().find("Im Laufwerk liegt inzwischen eine andere CD. Es wurde nichts gesendet, "), 0U);
    EXPECT_EQ(Netz.Gestellt.size(), 2U);
}

// The whole way over real HTTP, with a server that means harm in its words.
TEST_F(Cddb, EchterServerInUtf8UndMitBösenWorten) {
    werkzeuge::Server Fern([](const std::string& Anfrage, werkzeuge::Server::Leitung& Weg) {
        if (Anfrage.find("cddb+query") != std::string::npos) {
            Weg.Antworten("200 rock 1 A / B\r\n");
        } else {
            std::string Text = "210 ../../etc 1\r\nDTITLE=\xD0\x90\xD0\xBD\xD0\xBD\xD0\xB0 / \x1b[31m\r\n";
            for (int i = 0; i < 500; ++i)
                Text += "TTITLE" + std::to_string(i) + "=\x07x\r\n";
            Weg.Antworten(Text + ".\r\n");
        }
    });
    Werte.CDDBServer = "http://" + Fern.Name() + "/";
    Qthttp Web;
    CDDBUmgebung Umgebung{DiscUmgebung(), Werte, &Web, Person};
    CDDBWunsch Wunsch;
    Wunsch.Speichern = true;
    EXPECT_EQ(CDDBStart(Stand, Umgebung, "/cd", Wunsch), CDDBHerkunft::Server) << Stand.Daten.Protokoll;
    EXPECT_EQ(Stand.Daten.Interpret, "\xD0\x90\xD0\xBD\xD0\xBD\xD0\xB0");
    EXPECT_EQ(Stand.Daten.Album, " [31m");
    EXPECT_EQ(Stand.Daten.AnzahlTitel, 100);
    EXPECT_EQ(Stand.Daten.Titel[99].Titel, " x");
    EXPECT_EQ(DateienUnter(Ordner()), std::vector<std::string>{"/CDDB/" + Stand.Daten.ID + ".dat"});
    EXPECT_TRUE(Fern.Anfragen().at(0).starts_with("GET /~cddb/cddb.cgi/?cmd=cddb+query+"));
}

}  // namespace
}  // namespace liedwerk::test
