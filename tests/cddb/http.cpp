// The web port against servers that are hostile, broken or slow.
#include "plattform/qt/http.h"

#include <gtest/gtest.h>

#include "plattform/httpleser.h"
#include "werkzeuge/webserver.h"

namespace liedwerk::test {
namespace {

using namespace std::chrono_literals;
using werkzeuge::Einmal;
using werkzeuge::Endlos;
using werkzeuge::Server;
using Leitung = Server::Leitung;

constexpr auto Frist = 500ms;

// The bounds of the product but for the time, so that the suite stays quick.
Httpantwort Holen(
    const std::string& Url, const std::function<bool()>& Weiter = [] { return true; }) {
    Httpgrenzen Grenzen;
    Grenzen.Gesamtdauer = Frist;
    return Qthttp(Grenzen).Anfragen({Url, {}, {}}, Weiter);
}

TEST(Http, BöseServerWerdenVerlassen) {
    const std::string Kopf = "HTTP/1.1 200 OK\r\n";
    const std::string Viel(60000, 'x');
    const struct {
        const char* Name;
        Server::Verhalten Tun;
        Httpfehler Erwartet;
    } Tafel[] = {
        {"body without end", Endlos(Kopf + "\r\n", Viel), Httpfehler::Größe},
        {"header fields without end", Endlos(Kopf, "X-Feld: 1\r\n"), Httpfehler::Größe},
        {"header line without end", Endlos(Kopf + "X-Feld: ", Viel), Httpfehler::Größe},
        {"status line without end", Endlos("HTTP/1.1 200 ", Viel), Httpfehler::Größe},
        {"interim replies without end", Endlos("", "HTTP/1.1 100 Weiter\r\n\r\n"), Httpfehler::Größe},
        {"chunks without end", Endlos(Kopf + "Transfer-Encoding: chunked\r\n\r\n", "1\r\nx\r\n"),
         Httpfehler::Größe},
        {"chunk line without end", Endlos(Kopf + "Transfer-Encoding: chunked\r\n\r\n", Viel),
         Httpfehler::Größe},
        {"compressed without end", Endlos(Kopf + "Content-Encoding: gzip\r\n\r\n\x1f\x8b\x08", Viel),
         Httpfehler::Komprimiert},
        {"compressed on the way", Endlos(Kopf + "Transfer-Encoding: gzip, chunked\r\n\r\n", Viel),
         Httpfehler::Komprimiert},
        {"length beyond the bound", Endlos(Kopf + "Content-Length: 1048577\r\n\r\n", Viel),
         Httpfehler::Größe},
        {"length beyond 64 bits", Einmal(Kopf + "Content-Length: 99999999999999999999\r\n\r\nx"),
         Httpfehler::Antwort},
        {"negative length", Einmal(Kopf + "Content-Length: -1\r\n\r\nx"), Httpfehler::Antwort},
        {"two lengths", Einmal(Kopf + "Content-Length: 1\r\nContent-Length: 2\r\n\r\nxx"),
         Httpfehler::Antwort},
        {"length that never comes", Einmal(Kopf + "Content-Length: 10\r\n\r\nxx"), Httpfehler::Verbindung},
        {"cut within the head", Einmal("HTTP/1.1 200 O"), Httpfehler::Verbindung},
        {"cut within a chunk", Einmal(Kopf + "Transfer-Encoding: chunked\r\n\r\n5\r\nab"),
         Httpfehler::Verbindung},
        {"chunk with a wrong size", Einmal(Kopf + "Transfer-Encoding: chunked\r\n\r\n-1\r\nab"),
         Httpfehler::Antwort},
        {"no HTTP", Einmal(std::string("\0\1\2\xff\r\n\r\n", 8)), Httpfehler::Antwort},
        {"one byte at a time", Endlos(Kopf + "\r\n", "x", 20ms), Httpfehler::Zeit},
        {"silent", [](const std::string&, Leitung& Weg) { Weg.Warten(5s); }, Httpfehler::Zeit},
    };
    for (const auto& Einer : Tafel) {
        SCOPED_TRACE(Einer.Name);
        Server Fern(Einer.Tun);
        const auto Anfang = std::chrono::steady_clock::now();
        const Httpantwort Antwort = Holen("http://" + Fern.Name() + "/");
        EXPECT_EQ(static_cast<int>(Antwort.Fehler), static_cast<int>(Einer.Erwartet)) << Antwort.Einzelheit;
        EXPECT_TRUE(Antwort.Inhalt.empty());
        EXPECT_LT(std::chrono::steady_clock::now() - Anfang, Frist + 400ms);
    }
}

TEST(Http, GuteAntwortenKommenGanzAn) {
    const struct {
        const char* Antwort;
        int Status;
        const char* Inhalt;
    } Tafel[] = {
        {"HTTP/1.1 200 OK\r\nContent-Length: 3\r\n\r\nabcdef", 200, "abc"},
        {"HTTP/1.0 200 OK\n\nbis zum Ende", 200, "bis zum Ende"},
        {"HTTP/1.1 200 OK\r\ntransfer-encoding: Chunked\r\n\r\n2;a=b\r\nab\r\n1\r\nc\r\n0\r\nX: y\r\n\r\n",
         200, "abc"},
        {"HTTP/1.1 100 Weiter\r\n\r\nHTTP/1.1 403 Nein\r\nContent-Length: 2\r\n\r\nxy", 403, "xy"},
        {"HTTP/1.1 204 Leer\r\nContent-Length: 9\r\n\r\n", 204, ""},
        {"HTTP/1.1 200\r\nContent-Length: 0\r\n\r\n", 200, ""},
    };
    for (const auto& Eine : Tafel) {
        SCOPED_TRACE(Eine.Antwort);
        Server Fern(Einmal(Eine.Antwort));
        const Httpantwort Antwort = Holen("http://" + Fern.Name());
        EXPECT_EQ(static_cast<int>(Antwort.Fehler), 0);
        EXPECT_EQ(Antwort.Status, Eine.Status);
        EXPECT_EQ(Antwort.Inhalt, Eine.Inhalt);
        // Each cut of the stream means the same.
        Httpleser Leser{Httpgrenzen{}};
        for (const char& Byte : std::string_view(Eine.Antwort))
            Leser.Aufnehmen({&Byte, 1});
        Leser.Enden();
        EXPECT_EQ(Leser.Antwort.Inhalt, Eine.Inhalt);
    }
}

TEST(Http, AnfrageTrägtAgentUndKopfUndFolgtKeinerUmleitung) {
    Server Anderer([](const std::string&, Leitung& Weg) { Weg.Antworten("falsch"); });
    Server Fern([&](const std::string&, Leitung& Weg) {
        Weg.Senden("HTTP/1.1 302 Dort\r\nLocation: http://" + Anderer.Name() +
                   "/\r\nContent-Length: 0\r\n\r\n");
    });
    const Httpantwort Antwort = Qthttp().Anfragen(
        {"http://" + Fern.Name() + "/~cddb/a/?b=c+d%20e%26", {{"Discid", "12\r\nX-Fremd: 1"}}, "Inhalt"},
        [] { return true; });
    EXPECT_EQ(Antwort.Status, 302);
    EXPECT_EQ(Antwort.Umleitung, "http://" + Anderer.Name() + "/");
    EXPECT_TRUE(Anderer.Anfragen().empty());
    const std::string Gesendet = Fern.Anfragen().at(0);
    EXPECT_TRUE(Gesendet.starts_with("POST /~cddb/a/?b=c+d%20e%26 HTTP/1.1\r\nHost: " + Fern.Name() + "\r\n"))
        << Gesendet;
    EXPECT_NE(Gesendet.find("\r\nUser-Agent: Liedwerk\r\n"), std::string::npos);
    EXPECT_NE(Gesendet.find("\r\nDiscid: 12  X-Fremd: 1\r\n"), std::string::npos);
    EXPECT_TRUE(Gesendet.ends_with("\r\nContent-Length: 6\r\n\r\nInhalt"));
}

TEST(Http, VermittlerDesSystemsWirdGefragt) {
    Server Vermittler([](const std::string&, Leitung& Weg) { Weg.Antworten("über Umwege"); });
    setenv("http_proxy", ("http://" + Vermittler.Name()).c_str(), 1);
    const Httpantwort Antwort = Holen("http://cd.invalid/x");
    unsetenv("http_proxy");
    EXPECT_EQ(Antwort.Inhalt, "über Umwege");
    EXPECT_TRUE(
        Vermittler.Anfragen().at(0).starts_with("GET http://cd.invalid/x HTTP/1.1\r\nHost: cd.invalid\r\n"));
}

TEST(Http, AbbruchWirktSofort) {
    Server Fern([](const std::string&, Leitung& Weg) { Weg.Warten(5s); });
    const auto Anfang = std::chrono::steady_clock::now();
    int Fragen = 0;
    const Httpantwort Antwort =
        Qthttp().Anfragen({"http://" + Fern.Name(), {}, {}}, [&] { return ++Fragen < 4; });
    EXPECT_EQ(static_cast<int>(Antwort.Fehler), static_cast<int>(Httpfehler::Abgebrochen));
    EXPECT_LT(std::chrono::steady_clock::now() - Anfang, 1s);
}

TEST(Http, UnbrauchbareAdressenWerdenNichtGefragt) {
    for (const char* const Url : {"", "http://", "http:///pfad", "file:///etc/passwd", "https://127.0.0.1/",
                                  "http://a b/", "http://x@127.0.0.1/", "http://127.0.0.1:99999/"})
        EXPECT_EQ(static_cast<int>(Holen(Url).Fehler), static_cast<int>(Httpfehler::Adresse)) << Url;
    EXPECT_EQ(static_cast<int>(Holen("http://127.0.0.1:1/").Fehler),
              static_cast<int>(Httpfehler::Verbindung));
}

}  // namespace
}  // namespace liedwerk::test
