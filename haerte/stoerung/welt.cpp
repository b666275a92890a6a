#include "haerte/stoerung/welt.h"

#include <algorithm>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <set>
#include <sys/stat.h>

namespace liedwerk::haerte {
namespace {

namespace fs = std::filesystem;

// Files of the session and of the log hold what the run has met, and the real time.
bool Zählt(std::string_view Pfad) {
    return Pfad.substr(0, Pfad.find('/')) != "heim" && Pfad != "prog/log.txt";
}

const Eintrag* Finden(const Welt& Inhalt, const std::string& Pfad) {
    const auto Fund = Inhalt.find(Pfad);
    return Fund == Inhalt.end() ? nullptr : &Fund->second;
}

bool Gleich(const Eintrag* A, const Eintrag* B) {
    return A == nullptr || B == nullptr ? A == B : *A == *B;
}

std::set<std::string> AlleNamen(const Urteilsgrund& Grund) {
    std::set<std::string> Namen;
    for (const Welt* Einer : {&Grund.Vorher, &Grund.Nachher})
        for (const auto& [Pfad, Stand] : *Einer)
            if (Zählt(Pfad)) Namen.insert(Pfad);
    return Namen;
}

bool IstNebensache(const Urteilsgrund& Grund, const std::string& Pfad) {
    return std::ranges::find(Grund.Nebensachen, Pfad) != Grund.Nebensachen.end();
}

// The contents of all files but those that may be missing.
std::set<std::string_view> Inhalte(const Urteilsgrund& Grund, const Welt& Welche) {
    std::set<std::string_view> Alle;
    for (const auto& [Pfad, Stand] : Welche)
        if (Stand.Art == 'f' && !Stand.Inhalt.empty() && !IstNebensache(Grund, Pfad))
            Alle.insert(Stand.Inhalt);
    return Alle;
}

}  // namespace

Welt WeltAufnehmen(const std::string& Ordner) {
    Welt Inhalt;
    std::vector<std::string> Pfade;
    for (const auto& Fund : fs::recursive_directory_iterator(Ordner))
        Pfade.push_back(Fund.path().string());
    std::ranges::sort(Pfade);
    std::map<ino_t, std::string> Erste;
    for (const std::string& Pfad : Pfade) {
        const std::string Name = Pfad.substr(Ordner.size() + 1);
        struct stat Stand {};
        if (::lstat(Pfad.c_str(), &Stand) != 0) continue;
        Eintrag Neu;
        Neu.Zeit = Stand.st_mtime;
        Neu.Rechte = Stand.st_mode & 07777;
        if (S_ISDIR(Stand.st_mode)) {
            Neu.Art = 'd';
        } else if (S_ISLNK(Stand.st_mode)) {
            Neu.Art = 'l';
            Neu.Inhalt = fs::read_symlink(Pfad).string();
        } else {
            Neu.Inhalt.resize(static_cast<std::size_t>(Stand.st_size));
            std::ifstream(Pfad, std::ios::binary).read(Neu.Inhalt.data(), Stand.st_size);
            if (Stand.st_nlink > 1) {
                const auto [Platz, Erster] = Erste.emplace(Stand.st_ino, Name);
                if (!Erster) Neu.Gleiche = Platz->second;
            }
        }
        Inhalt.emplace(Name, std::move(Neu));
    }
    return Inhalt;
}

void WeltHerstellen(const std::string& Ordner, const Welt& Inhalt) {
    if (fs::exists(Ordner)) {
        for (const auto& Fund : fs::directory_iterator(Ordner))
            fs::remove_all(Fund.path());
    }
    fs::create_directories(Ordner);
    for (const auto& [Name, Stand] : Inhalt) {
        const std::string Pfad = Ordner + "/" + Name;
        if (Stand.Art == 'd') {
            fs::create_directory(Pfad);
            continue;
        }
        if (Stand.Art == 'l') {
            fs::create_symlink(Stand.Inhalt, Pfad);
            continue;
        }
        if (!Stand.Gleiche.empty()) {
            fs::create_hard_link(Ordner + "/" + Stand.Gleiche, Pfad);
            continue;
        }
        std::ofstream(Pfad, std::ios::binary) << Stand.Inhalt;
        ::chmod(Pfad.c_str(), Stand.Rechte);
        const timespec Zeiten[2] = {{0, UTIME_OMIT}, {Stand.Zeit, 0}};
        ::utimensat(AT_FDCWD, Pfad.c_str(), Zeiten, 0);
    }
}

std::vector<std::string> Beurteilen(const Urteilsgrund& Grund, const Welt& Jetzt, const Laufergebnis& Lauf) {
    std::vector<std::string> Funde;
    bool AllesNeu = true;
    for (const std::string& Pfad : AlleNamen(Grund)) {
        const Eintrag* Vorher = Finden(Grund.Vorher, Pfad);
        const Eintrag* Nachher = Finden(Grund.Nachher, Pfad);
        const Eintrag* Stand = Finden(Jetzt, Pfad);
        const bool Neu = Gleich(Stand, Nachher);
        const bool Zwischenstand = std::ranges::any_of(
            Grund.Zwischen, [&](const Welt& Eine) { return Gleich(Stand, Finden(Eine, Pfad)); });
        if (!Neu && !Zwischenstand && !Gleich(Stand, Vorher)) Funde.push_back("weder alt noch neu: " + Pfad);
        const bool Gesagt = Grund.Ausweichend || !Lauf.Meldungen.empty();
        if (!Neu && !(IstNebensache(Grund, Pfad) && Gesagt)) AllesNeu = false;
    }
    const auto Vorhandene = Inhalte(Grund, Jetzt);
    const auto Neue = Inhalte(Grund, Grund.Nachher);
    for (const std::string_view Inhalt : Inhalte(Grund, Grund.Vorher))
        if (Neue.contains(Inhalt) && !Vorhandene.contains(Inhalt))
            Funde.push_back("verloren: eine Datei von " + std::to_string(Inhalt.size()) + " Bytes");
    if (Lauf.Hängt) Funde.emplace_back("hängt");
    if (Lauf.Signal != 0 && Lauf.Signal != SIGKILL)
        Funde.push_back("abgestürzt: Signal " + std::to_string(Lauf.Signal));
    if (Lauf.Gelungen() && !AllesNeu) Funde.emplace_back("Erfolg für einen alten Stand");
    if (Lauf.Status > 0 && Lauf.Meldungen.empty()) Funde.emplace_back("gescheitert ohne Meldung");
    return Funde;
}

bool IstErgebnis(const Urteilsgrund& Grund, const Welt& Jetzt) {
    const auto Namen = AlleNamen(Grund);
    return Übrige(Grund, Jetzt).empty() && std::ranges::all_of(Namen, [&](const std::string& Pfad) {
               return Gleich(Finden(Jetzt, Pfad), Finden(Grund.Nachher, Pfad));
           });
}

std::vector<std::string> Übrige(const Urteilsgrund& Grund, const Welt& Jetzt) {
    std::vector<std::string> Namen;
    for (const auto& [Pfad, Stand] : Jetzt)
        if (Zählt(Pfad) && !Grund.Vorher.contains(Pfad) && !Grund.Nachher.contains(Pfad))
            Namen.push_back(Pfad);
    return Namen;
}

}  // namespace liedwerk::haerte
