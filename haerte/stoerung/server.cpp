#include "haerte/stoerung/server.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <memory>
#include <mutex>
#include <set>
#include <thread>

#include "werkzeuge/webserver.h"

namespace liedwerk::haerte {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using werkzeuge::Einmal;
using werkzeuge::Endlos;
using werkzeuge::Server;
using Leitung = Server::Leitung;

constexpr std::int64_t HöchsteDauer = 35'000'000;        // microseconds of a run
constexpr std::int64_t HöchsteAbbruchdauer = 1'000'000;  // microseconds from the SIGINT to the end
constexpr std::int64_t HöchsterEmpfang = 1 << 20;        // bytes over one connection
constexpr std::int64_t AbbruchNach = 5'000'000;          // microseconds
constexpr auto Startabstand = 60ms;                      // between two programs: starting takes the processor
constexpr auto DiscID = "04025800";                      // of the disc that is asked for

// What stands in for the server of the setting.
struct Böses {
    std::string Name;
    Server::Verhalten Frage;  // what the server does with the question; nothing: it offers one disc
    Server::Verhalten Lesen;  // the same for the request behind it
    bool Sofort = false;      // it does not listen first
    std::string Anderswo{};   // another name of a server; no server then
    long Namensdauer = 0;     // seconds
    bool Gefunden = false;    // the disc is found all the same
};

struct Messung {
    Laufergebnis Lauf;
    std::string Ort;                  // of the server
    std::vector<std::string> Fremde;  // names of files outside "CDDB" that were touched
};

std::string Kopf(const std::string& Felder = {}) {
    return "HTTP/1.1 200 OK\r\n" + Felder + "\r\n";
}

std::string MitLänge(const std::string& Inhalt) {
    return Kopf("Content-Length: " + std::to_string(Inhalt.size()) + "\r\n") + Inhalt;
}

std::string Gestückelt(const std::string& Größe) {
    return Kopf("Transfer-Encoding: chunked\r\n") + Größe + "\r\n";
}

Server::Verhalten Umleitung(const std::string& Ziel) {
    return Einmal("HTTP/1.1 302 Dort\r\nLocation: " + Ziel + "\r\nContent-Length: 0\r\n\r\n");
}

std::string Eintrag(const std::string& Kennung, const std::string& Titel) {
    return "210 rock " + Kennung + " Daten\r\nDISCID=" + Kennung + "\r\nDTITLE=" + Titel + " / " + Titel +
           "\r\nDYEAR=" + Titel + "\r\nDGENRE=" + Titel + "\r\nTTITLE0=" + Titel + "\r\nTTITLE1=" + Titel +
           "\r\nTTITLE4294967296=x\r\nTTITLE-1=x\r\nEXTD=" + Titel + "\r\n.\r\n";
}

Server::Verhalten Schweigend() {
    return [](const std::string&, Leitung& Weg) { Weg.Warten(60s); };
}

const Server::Verhalten Guter = Einmal(MitLänge("200 rock " + std::string(DiscID) + " A / B\r\n"));

// Late, and then slow.
Server::Verhalten Spät(std::chrono::milliseconds Wann, const std::string& Antwort) {
    return [=](const std::string&, Leitung& Weg) {
        if (Weg.Warten(Wann)) Weg.Senden(Antwort);
    };
}

std::vector<Böses> Antworten() {
    const std::string Viel(60000, 'x');
    const std::string Status = "HTTP/1.1 200 OK\r\n";
    const std::string Nullen(60000, '\0');
    return {
        {"Inhalt ohne Ende", Endlos(Kopf(), Viel), {}},
        {"Inhalt ohne Ende beim Lesen", {}, Endlos(Kopf(), Viel)},
        {"Zeilen ohne Ende beim Lesen", {}, Endlos(Kopf() + "210 rock 1\r\n", "TTITLE0=x\r\n")},
        {"Kopffelder ohne Ende", Endlos(Status, "X-Feld: 1\r\n"), {}},
        {"Kopfzeile ohne Ende", Endlos(Status + "X-Feld: ", Viel), {}},
        {"Statuszeile ohne Ende", Endlos("HTTP/1.1 200 ", Viel), {}},
        {"100 Continue ohne Ende", Endlos("", "HTTP/1.1 100 Continue\r\n\r\n"), {}},
        {"Stücke ohne Ende", Endlos(Gestückelt("1") + "x\r\n", "1\r\nx\r\n"), {}},
        {"Stückgröße ohne Ende", Endlos(Gestückelt("1;"), Viel), {}},
        {"Nachspann ohne Ende", Endlos(Gestückelt("0"), "X-Feld: 1\r\n"), {}},
        {"gepackt ohne Ende", Endlos(Kopf("Content-Encoding: gzip\r\n") + "\x1f\x8b\x08", Nullen), {}},
        {"unterwegs gepackt ohne Ende", Endlos(Kopf("Transfer-Encoding: gzip, chunked\r\n"), Nullen), {}},
        {"Kopf, ein Byte in der Sekunde", Endlos(Status, "X", 1s), {}},
        {"Inhalt, ein Byte in der Sekunde", Endlos(Kopf(), "x", 1s), {}},
        {"beides so spät es geht", Spät(15s, MitLänge("200 rock 1 A / B\r\n")), Endlos(Kopf(), "x", 1s)},
        {"schweigt", Schweigend(), {}},
        {"schweigt beim Lesen", {}, Schweigend()},
        {"nimmt an und schweigt, ohne zu hören", Schweigend(), {}, true},
        {"nimmt an und legt auf", [](const std::string&, Leitung&) {}, {}, true},
        {"legt nach der Frage auf", [](const std::string&, Leitung&) {}, {}},
        {"im Kopf abgeschnitten", Einmal("HTTP/1.1 200 O"), {}},
        {"im Inhalt abgeschnitten", {}, Einmal(Kopf() + "210 rock 1\r\nDTITLE=A / B\r\nTTIT")},
        {"im Stück abgeschnitten", Einmal(Gestückelt("5") + "ab"), {}},
        {"Länge zu groß", Einmal(Kopf("Content-Length: 1000\r\n") + "200 rock 1 A / B\r\n"), {}},
        {"Länge zu groß, dann Schweigen", Endlos(Kopf("Content-Length: 1000\r\n") + "200", "", 1s), {}},
        {"Länge zu klein", {}, Einmal(Kopf("Content-Length: 20\r\n") + Eintrag(DiscID, "x"))},
        {"Länge negativ", Einmal(Kopf("Content-Length: -1\r\n") + "200"), {}},
        {"Länge über 64 Bit", Einmal(Kopf("Content-Length: 99999999999999999999\r\n") + "200"), {}},
        {"Länge 4 GB", Endlos(Kopf("Content-Length: 4294967297\r\n"), Viel), {}},
        {"zwei Längen", Einmal(Kopf("Content-Length: 3\r\nContent-Length: 9\r\n") + "200 rock 1"), {}},
        {"Stück von 2^63 Bytes", Endlos(Gestückelt("7fffffffffffffff"), Viel), {}},
        {"Stück über 64 Bit", Endlos(Gestückelt("fffffffffffffffff"), Viel), {}},
        {"Stück negativ", Endlos(Gestückelt("-1"), Viel), {}},
        {"Umleitung zu file://", Umleitung("file:///etc/passwd"), {}},
        {"Umleitung im Kreis", Umleitung("/~cddb/cddb.cgi"), {}},
        {"Umleitung zu einem anderen Server", Umleitung("http://127.0.0.1:1/"), {}},
        {"Umleitung ohne Ziel", Umleitung(""), {}},
        {"Umleitung mit Steuerzeichen", Umleitung("http://\x1b[2J\x07/"), {}},
        {"Umleitung ohne Ende", Endlos("HTTP/1.1 302 Dort\r\nLocation: http://", Viel), {}},
        {"HTTP/0.9", Einmal("200 rock 1 A / B\r\n"), {}},
        {"HTTP/2", Einmal("HTTP/2 200\r\n\r\n200 rock 1 A / B\r\n"), {}},
        {"TLS", Einmal(std::string("\x15\x03\x03\0\x02\x02\x28", 7)), {}},
        {"SMTP grüßt zuerst", Endlos("220 mail.example ESMTP\r\n", "250 ok\r\n", 1s), {}, true},
        {"Binäres ohne Ende", Endlos("", std::string("\0\xff\x1b\x80\r", 5)), {}},
        {"Binäres als Daten",
         {},
         Einmal(MitLänge("210 rock\r\n" + Nullen + Viel + "\r\n.\r\n")),
         false,
         {},
         0,
         true},
        {"Status 999 der Datenbank", Einmal(MitLänge("999 rock 1 A / B\r\n")), {}},
        {"eine Million Treffer", Endlos(Kopf() + "210 x\r\n", "rock 1 A / B\r\n"), {}},
    };
}

// Words that lead out of the folder, break lines, or reach a terminal; all of them are replies as they should
// be.
std::vector<Böses> Worte() {
    std::vector<Böses> Alle;
    const std::string Lang(60000, 'w');
    for (const std::string& Wort :
         {std::string("../../../weg"), std::string("/tmp/liedwerk-weg"), std::string("a\0b", 3),
          std::string("\r\n.\r\nDTITLE=x"), std::string("\x1b]0;weg\x07\x1b[2J"), std::string("\xff\xfe\xc3"),
          std::string("$(touch weg)`touch weg`;'\""), std::string("\xe2\x80\xae\xc2\x9b"), Lang}) {
        std::string Zeigbar;
        for (const char Byte : Wort.substr(0, 20))
            Zeigbar += Byte >= ' ' && Byte <= '~' ? Byte : '?';
        const std::string Treffer = "200 " + Wort + " " + Wort + " " + Wort + " / " + Wort + "\r\n";
        const std::string Liste = "210 x\r\n" + Wort + " " + Wort + " " + Wort + "\r\n.\r\n";
        Alle.push_back({"Kennung und Titel " + Zeigbar,
                        Einmal(MitLänge(Treffer)),
                        Einmal(MitLänge(Eintrag(Wort, Wort))),
                        false,
                        {},
                        0,
                        true});
        Alle.push_back({"Liste mit " + Zeigbar,
                        Einmal(MitLänge(Liste)),
                        Einmal(MitLänge(Eintrag(Wort, Wort))),
                        false,
                        {},
                        0,
                        true});
    }
    return Alle;
}

std::vector<Böses> AlleBösen(const std::string& VollerName) {
    std::vector<Böses> Alle = Antworten();
    for (Böses& Eines : Worte())
        Alle.push_back(std::move(Eines));
    Alle.push_back({"Name, den es nicht gibt", {}, {}, false, "gibt-es-nicht.invalid"});
    Alle.push_back({"Namensdienst, der schweigt", {}, {}, false, "schweigt.invalid", 120});
    Alle.push_back({"Adresse, die niemand hat", {}, {}, false, "192.0.2.1"});
    Alle.push_back({"Server, der nicht annimmt", {}, {}, false, VollerName});
    Alle.push_back({"niemand lauscht", {}, {}, false, "127.0.0.1:1"});
    return Alle;
}

// Listens, has no room left for another guest, and so answers none.
class VollerServer {
  public:
    VollerServer() : Griff(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in Ort{};
        Ort.sin_family = AF_INET;
        Ort.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
        socklen_t Länge = sizeof Ort;
        auto* const Allgemein = reinterpret_cast<sockaddr*>(&Ort);
        if (::bind(Griff, Allgemein, Länge) != 0 || ::listen(Griff, 0) != 0 ||
            ::getsockname(Griff, Allgemein, &Länge) != 0)
            throw std::runtime_error("kein Server");
        Port = ::ntohs(Ort.sin_port);
        for (int& Gast : Gäste) {
            Gast = ::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
            static_cast<void>(::connect(Gast, Allgemein, Länge));
        }
    }
    ~VollerServer() {
        for (const int Gast : Gäste)
            ::close(Gast);
        ::close(Griff);
    }
    VollerServer(const VollerServer&) = delete;
    VollerServer& operator=(const VollerServer&) = delete;
    std::string Name() const { return "127.0.0.1:" + std::to_string(Port); }

  private:
    int Griff;
    int Port = 0;
    int Gäste[4] = {};
};

// The disc that is asked for.
std::string AbbildAnlegen(const std::string& Ordner) {
    fs::create_directories(Ordner);
    std::ofstream(Ordner + "/a.toc")
        << "CD_DA\nTRACK AUDIO\nSILENCE 02:00:00\nTRACK AUDIO\nSILENCE 03:00:00\n";
    return Ordner + "/a.toc";
}

// Names that a run has made, opened for writing or removed, but for its cache, settings and protocol.
std::vector<std::string> FremdeDateien(const Orte& Wo, const Laufergebnis& Lauf) {
    std::set<std::string> Namen;
    for (const Rufzeile& Ruf : Lauf.Rufe) {
        if (Ruf.Name == "verbunden" || Ruf.Name == "empfangen" || Ruf.Ergebnis < 0) continue;
        for (const std::string& Name : {Ruf.Pfad, Ruf.Neu}) {
            const bool Eigene = Name.starts_with(Wo.Welt + "/prog/CDDB") || Name == Wo.Welt + "/prog" ||
                                Name.starts_with(Wo.Welt + "/e.conf") || Name.starts_with(Wo.Ablage);
            if (Name.starts_with('/') && !Eigene && !Name.starts_with("/dev/")) Namen.insert(Name);
        }
    }
    for (const auto& [Name, Was] : WeltAufnehmen(Wo.Welt)) {
        const bool Cache = Name.starts_with("prog/CDDB/") && Name.ends_with(".dat") && Name.size() == 22;
        const bool Eigene = Name == "prog" || Name == "e.conf" || Name == "prog/CDDB" || Name == "heim";
        if (!Cache && !Eigene) Namen.insert(Name);
    }
    return {Namen.begin(), Namen.end()};
}

Messung Messen(const Orte& Alle, const Böses& Wer, const std::string& Abbild, int Kennung, bool Abbrechen) {
    Orte Wo = Alle;
    Wo.Ablage += "/" + std::to_string(Kennung);
    Wo.Welt = Wo.Ablage + "/a/b/c/d/welt";  // as deep as a name could climb
    fs::create_directories(Wo.Ablage);
    WeltHerstellen(Wo.Welt, {{"prog", {'d', {}, {}, 0, 0755}},
                             {"heim", {'d', {}, {}, 0, 0755}},
                             {"e.conf", {'f', {}, {}, 0, 0644}}});
    std::unique_ptr<Server> Fern;
    if (Wer.Anderswo.empty())
        Fern = std::make_unique<Server>(
            [&Wer](const std::string& Anfrage, Leitung& Weg) {
                const bool Frage = Wer.Sofort || Anfrage.find("cddb+query") != std::string::npos;
                const Server::Verhalten& Was = Frage ? Wer.Frage : Wer.Lesen;
                (Was ? Was : Guter)(Anfrage, Weg);
            },
            Wer.Sofort);
    Messung Ergebnis;
    Ergebnis.Ort = Fern ? Fern->Name() : Wer.Anderswo;
    Störung Wie;
    Wie.Raffer = 0;
    Wie.Überall = true;
    Wie.Namensdauer = Wer.Namensdauer;
    if (Abbrechen) Wie.AbbruchNach = AbbruchNach;
    const Befehlszeile Befehl = {"--setze", "CDDBServer=" + Ergebnis.Ort,
                                 "--setze", "CDDBEmail=anna@example.org",
                                 "cddb",    "--wahl",
                                 "1",       Abbild};
    Ergebnis.Lauf = Gestarteter(Wo, Aufruf(Wo, Befehl), Wie, 1).Abwarten(3 * HöchsteDauer);
    Ergebnis.Fremde = FremdeDateien(Wo, Ergebnis.Lauf);
    return Ergebnis;
}

std::int64_t Meiste(const Laufergebnis& Lauf) {
    std::int64_t Bytes = 0;
    for (const Rufzeile& Ruf : Lauf.Rufe)
        if (Ruf.Name == "empfangen") Bytes = std::max<std::int64_t>(Bytes, Ruf.Ergebnis);
    return Bytes;
}

// What is wrong with a run, whether it was to be cancelled or not.
std::vector<std::string> Mängel(const Böses& Wer, const Messung& Eine) {
    std::vector<std::string> Alle;
    const Laufergebnis& Lauf = Eine.Lauf;
    if (Lauf.Signal != 0 || Lauf.Status < 0 || Lauf.Status > 1) Alle.emplace_back("endet nicht ordentlich");
    if (Lauf.Status == 1 && Lauf.Meldungen.empty()) Alle.emplace_back("keine Meldung");
    if (Lauf.SeitAbbruch < 0 && Lauf.Status != (Wer.Gefunden ? 0 : 1)) Alle.emplace_back("falscher Ausgang");
    if (Lauf.Dauer > HöchsteDauer) Alle.emplace_back("zu lange");
    if (Lauf.SeitAbbruch > HöchsteAbbruchdauer) Alle.emplace_back("Abbruch zu spät");
    if (Meiste(Lauf) > HöchsterEmpfang) Alle.emplace_back("zu viel angenommen");
    for (const Rufzeile& Ruf : Lauf.Rufe) {
        const bool Eigener = Ruf.Pfad == Eine.Ort || Ruf.Pfad == Eine.Ort + ":80";
        // Port 53 and the port 0 of the library's own choice of addresses belong to the look-up of names.
        if (Ruf.Name == "verbunden" && !Eigener && !Ruf.Pfad.ends_with(":53") && !Ruf.Pfad.ends_with(":0"))
            Alle.push_back("spricht mit " + Ruf.Pfad);
    }
    const std::string Gezeigt = Lauf.Ausgabe + Lauf.Meldungen;
    if (std::ranges::any_of(Gezeigt, [](char Byte) {
            return static_cast<unsigned char>(Byte) < ' ' && Byte != '\n' && Byte != '\t';
        }))
        Alle.emplace_back("Steuerzeichen in der Ausgabe");
    for (const std::string& Name : Eine.Fremde)
        Alle.push_back("Datei " + Name);
    return Alle;
}

void Zeile(const Böses& Wer, const Messung& Ganz, const Messung& Abgebrochen) {
    char Abbruch[32] = "vorher zu Ende";
    if (Abgebrochen.Lauf.SeitAbbruch >= 0)
        std::snprintf(Abbruch, sizeof Abbruch, "%.2f s",
                      static_cast<double>(Abgebrochen.Lauf.SeitAbbruch) / 1e6);
    char Text[200];
    std::snprintf(Text, sizeof Text, "%8.2f s  %14s  %8lld  %zu  %s\n",
                  static_cast<double>(Ganz.Lauf.Dauer) / 1e6, Abbruch,
                  static_cast<long long>(std::max(Meiste(Ganz.Lauf), Meiste(Abgebrochen.Lauf))),
                  Ganz.Fremde.size() + Abgebrochen.Fremde.size(), Wer.Name.c_str());
    std::cout << Text;
}

}  // namespace

void ServerPrüfen(const Orte& Wo, Bericht& Wohin) {
    const VollerServer Voll;
    const std::string Abbild = AbbildAnlegen(Wo.Ablage + "/cd");
    const std::vector<Böses> Alle = AlleBösen(Voll.Name());
    std::vector<std::array<Messung, 2>> Ergebnisse(Alle.size());
    std::vector<std::thread> Fäden;
    for (std::size_t i = 0; i < Alle.size(); ++i) {
        for (const std::size_t Abbruch : {std::size_t{0}, std::size_t{1}}) {
            Fäden.emplace_back([&, i, Abbruch] {
                Ergebnisse[i][Abbruch] =
                    Messen(Wo, Alle[i], Abbild, static_cast<int>(2 * i + Abbruch + 100), Abbruch == 1);
            });
            std::this_thread::sleep_for(Startabstand);
        }
    }
    for (std::thread& Einer : Fäden)
        Einer.join();
    std::cout << "   Dauer        bis Abbruch     Bytes  Dateien außerhalb von CDDB, Verhalten\n";
    for (std::size_t i = 0; i < Alle.size(); ++i)
        Zeile(Alle[i], Ergebnisse[i][0], Ergebnisse[i][1]);
    for (std::size_t i = 0; i < Alle.size(); ++i) {
        Wohin.FallBeginnen("Server: " + Alle[i].Name);
        for (const Messung& Eine : Ergebnisse[i]) {
            Wohin.Eingriff();
            for (const std::string& Mangel : Mängel(Alle[i], Eine))
                Wohin.Bruch(Mangel + ": " + Eine.Lauf.Meldungen.substr(0, 300));
        }
        Wohin.FallBeenden();
    }
}

}  // namespace liedwerk::haerte
