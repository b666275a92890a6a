// The desktop program with everything switched on, over an index of evil names: it opens no port, makes no
// connection, starts no program.
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <thread>

#include "haerte/namen/pruefstand.h"
#include "haerte/namen/urteil.h"

namespace liedwerk::haerte {
namespace {

namespace fs = std::filesystem;
constexpr std::int64_t Laufzeit = 4'000'000;  // microseconds

// The inodes of a process's sockets.
std::set<std::string> Steckdosen(const std::string& Proc) {
    std::set<std::string> Alle;
    std::error_code Fehler;
    for (const auto& Griff : fs::directory_iterator(Proc + "/fd", Fehler)) {
        const std::string Ziel = fs::read_symlink(Griff.path(), Fehler).string();
        if (Ziel.starts_with("socket:[")) Alle.insert(Ziel.substr(8, Ziel.size() - 9));
    }
    return Alle;
}

// Its sockets of the Internet families, whatever state they are in.
Worte Netzsteckdosen(int Prozess) {
    const std::string Proc = "/proc/" + std::to_string(Prozess);
    const auto Eigene = Steckdosen(Proc);
    Worte Funde;
    for (const char* Art : {"tcp", "tcp6", "udp", "udp6", "raw", "raw6"}) {
        std::ifstream Tabelle(Proc + "/net/" + Art);
        for (std::string Zeile; std::getline(Tabelle, Zeile);) {
            std::istringstream Felder(Zeile);
            std::string Inode;
            for (int Feld = 0; Feld < 10; ++Feld)
                Felder >> Inode;
            if (Eigene.contains(Inode)) Funde.push_back(std::string(Art) + " " + Zeile);
        }
    }
    return Funde;
}

std::size_t BeobachteteOrdner(int Prozess) {
    std::size_t Summe = 0;
    std::error_code Fehler;
    for (const auto& Griff : fs::directory_iterator("/proc/" + std::to_string(Prozess) + "/fdinfo", Fehler)) {
        std::ifstream Angaben(Griff.path());
        for (std::string Zeile; std::getline(Angaben, Zeile);)
            Summe += Zeile.starts_with("inotify wd:") ? 1 : 0;
    }
    return Summe;
}

}  // namespace

void FensterPrüfen(const Prüfstand& Stand, const std::string& Programm) {
    if (!fs::exists(Programm)) return;
    Stand.Zurück();
    Stand.FallBeginnen("Fenster: keine Ports, keine Verbindungen");
    Stand.Schreiben("heim/config/liedwerk/einstellungen.ini",
                    "Start=100\nTippsAktueller=0\nSyncBeobachten=1\nSyncGeänderteLesen=1\nWeitereFormate=1\n"
                    "TAGsModern=1\nBackupsSpeichern=1\nRegelmäßigSpeichernAlle=1\nFehlendeMedienZeigen=1\n"
                    "CDDBServer=\"cddb.invalid\"\nWinampPfad=\"" +
                        Stand.Attrappe("spieler/audacious") + "\"\n");
    fs::permissions(Stand.Pfad("heim/lauf"), fs::perms::owner_all);
    std::string Index = Stand.Inhalt("i.lwi");
    Index.insert(Index.find('\n') + 1, "#OPT:SYNC=" + Stand.Pfad("musik") + ",1,\r\n");
    Stand.Schreiben("i.lwi", Index);
    Orte Wo = Stand.Plätze();
    Wo.Umgebung = {"LIEDWERK_ORDNER=" + Stand.Pfad("prog")};
    if (const char* Bus = std::getenv("DBUS_SESSION_BUS_ADDRESS"))
        Wo.Umgebung.push_back(std::string("DBUS_SESSION_BUS_ADDRESS=") + Bus);
    Störung Wie;
    Wie.Raffer = 0;
    Wie.TötenNach = Laufzeit;
    Gestarteter Fenster(Wo, {Programm, Stand.Pfad("i.lwi")}, Wie, 3);
    Worte Gefundene;
    std::size_t Beobachtete = 0;
    for (int Mal = 0; Mal < 30; ++Mal) {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        const Worte Jetzige = Netzsteckdosen(Fenster.Prozessnummer());
        Gefundene.insert(Gefundene.end(), Jetzige.begin(), Jetzige.end());
        Beobachtete = std::max(Beobachtete, BeobachteteOrdner(Fenster.Prozessnummer()));
    }
    for (const std::string& Fund : Gefundene)
        Stand.Bruch("Steckdose " + Fund);
    const auto Lauf = Fenster.Abwarten();
    Stand.Prüfen(Lauf.Status == -1 && Lauf.Signal == 9, "Fenster lief nicht: " + Lauf.Meldungen);
    // It has the index open when it watches the folders that the index names.
    Stand.Prüfen(Beobachtete >= Stand.AlleDateien().size() / 2, "Index nicht geladen");
    Stand.RufePrüfen(Lauf, {.Sperrname = true});
    Stand.Zurück();
    Stand.FallBeenden();
}

}  // namespace liedwerk::haerte
