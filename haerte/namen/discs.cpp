// Audio CDs: xmcd files, the cache, sheets, and a server whose titles are evil.
#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "haerte/namen/pruefstand.h"
#include "haerte/namen/urteil.h"

namespace liedwerk::haerte {
namespace {

std::string Xmcd(std::size_t Nummer) {
    const auto Wert = [&](std::size_t i) { return BöseWerte()[(Nummer + i) % BöseWerte().size()].Bytes; };
    return "# xmcd\r\n#\r\n# Track frame offsets:\r\n#   150\r\n#\r\n# Disc length: 10 "
           "seconds\r\n#\r\nDISCID=" +
           Wert(5) + "\r\nDTITLE=" + Wert(0) + " / " + Wert(1) + "\r\nTTITLE0=" + Wert(2) +
           "\r\nTTITLE1=" + Wert(3) + "\r\nEXTD=YEAR: " + Wert(4) + "\r\nEXTT0=" + Wert(6) +
           "\r\nPLAYORDER=\r\n";
}

// The server as a process of its own; ends with this object.
class Dienst {
  public:
    Dienst(const Prüfstand& Stand, const std::string& Programm, Worte Dateien) {
        const std::string Ausgabe = Stand.Pfad("aus/server.txt");
        Dateien.insert(Dateien.begin(), Programm);
        std::vector<char*> Zeiger;
        for (std::string& Wort : Dateien)
            Zeiger.push_back(Wort.data());
        Zeiger.push_back(nullptr);
        Prozess = ::fork();
        if (Prozess == 0) {
            ::dup2(::open(Ausgabe.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDOUT_FILENO);
            ::execv(Zeiger[0], Zeiger.data());
            ::_exit(127);
        }
        for (int Mal = 0; Mal < 200 && Wert.empty(); ++Mal) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
            const auto Gesagt = Zeilen(Stand.Inhalt("aus/server.txt"));
            if (!Gesagt.empty()) Wert = Gesagt.front();
        }
    }
    Dienst(const Dienst&) = delete;
    Dienst& operator=(const Dienst&) = delete;
    ~Dienst() {
        ::kill(Prozess, SIGTERM);
        ::waitpid(Prozess, nullptr, 0);
    }
    const std::string& Einstellung() const { return Wert; }

  private:
    pid_t Prozess = -1;
    std::string Wert;  // "CDDBServer=..."
};

}  // namespace

void DiscsPrüfen(const Prüfstand& Stand, const std::string& Server) {
    Stand.Zurück();
    Stand.FallBeginnen("CDs: xmcd, Cache, Abbilder");
    const std::size_t Schritt = Stand.Namen().size() == BöseNamen().size() ? 1 : 8;
    std::size_t Gemerkte = 0;
    for (std::size_t i = 0; i < BöseWerte().size(); i += Schritt) {
        Stand.Schreiben("aus/x.xmcd", Xmcd(i));
        Stand.Befehl({"xmcd", Stand.Pfad("aus/x.xmcd")});
        Stand.Json({"xmcd", Stand.Pfad("aus/x.xmcd")});
        const std::string Kennung = std::to_string(10000000 + i);
        Stand.Schreiben("prog/CDDB/" + Kennung + ".dat", "lwifcddb1\r\n" + Xmcd(i));
        ++Gemerkte;
        Stand.Schreiben("aus/x.cue", "FILE \"" + BöseWerte()[i].Bytes +
                                         "\" WAVE\n  TRACK 01 AUDIO\n    TITLE \"" + BöseWerte()[i].Bytes +
                                         "\"\n    INDEX 01 00:00:00\n");
        for (const char* Befehl : {"cd-info", "cddb"})
            Stand.Befehl({Befehl, Stand.Pfad("aus/x.cue")});
    }
    Stand.Befehl({"cd-cache"});
    Stand.Prüfen(Stand.Json({"cd-cache"}) == Gemerkte, "Zahl der gemerkten CDs");
    Stand.FallBeenden();

    Stand.FallBeginnen("CDs: Server mit bösen Titeln");
    Stand.Zurück();
    Stand.Schreiben("aus/c.bin", std::string(std::size_t{2352} * 75 * 20, '\0'));
    Stand.Schreiben("aus/c.cue",
                    "FILE \"c.bin\" BINARY\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n"
                    "  TRACK 02 AUDIO\n    INDEX 01 00:10:00\n");
    for (std::size_t i = 0; i < BöseWerte().size(); i += Schritt) {
        // One disc, then two, of which the second is chosen.
        for (const int Discs : {1, 2}) {
            Worte Texte;
            for (int Eine = 0; Eine < Discs; ++Eine) {
                const std::string Name = "aus/s" + std::to_string(Eine);
                Stand.Schreiben(Name, Xmcd(i + static_cast<std::size_t>(Eine)));
                Texte.push_back(Stand.Pfad(Name));
            }
            const Dienst Bedient(Stand, Server, Texte);
            const Worte Frage = {"--setze", Bedient.Einstellung(), "cddb",
                                 "--wahl",  std::to_string(Discs), Stand.Pfad("aus/c.cue")};
            Stand.Befehl(Frage, {.Netz = true});
            Stand.Json({"cd-cache"});
            Stand.Befehl({"hinzufuegen", Stand.Pfad("aus/c.cue")}, {.Netz = true});
            for (const auto& [Name, Eintrag] : WeltAufnehmen(Stand.Pfad("prog"))) {
                const bool Kennung = Name.size() == 17 && Name.starts_with("CDDB/") && Name.ends_with(".dat");
                Stand.Prüfen(Name == "CDDB" || Kennung || Name.find('/') == std::string::npos,
                             "im Cache: " + Name);
            }
            Stand.Schreiben("i.lwi", Stand.Ausgangsindex());
            Stand.Leeren("prog/CDDB");
        }
    }
    Stand.Zurück();
    Stand.FallBeenden();
}

}  // namespace liedwerk::haerte
