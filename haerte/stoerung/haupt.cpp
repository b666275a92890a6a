// liedwerk-stoerer BAUORDNER TEIL...: disturbs the writers of liedwerk-cli and judges what is left.
//
//   rufe[=NAME]        every writing call of every writer (whose name holds NAME) fails or is the last one
//   rufe-kurz          the same for a few writers and faults
//   ungestoert         order of the calls of undisturbed runs, the sound, the same once more
//   toeten=ANZAHL      kills at random times
//   paare=ANZAHL       two programs save one index at once; and as often with one of them killed
//   platte             a really full disk at 36 fill levels (needs the right to mount)
//   eigenschaften      what a rewritten file keeps; strangers under temporary names
//   riesen             memory and time with huge files and lying lengths
//   server             servers of the CD database that mean harm
//
// The last line counts the cases. The seed is the environment's SAAT, else 1.
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <stdexcept>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <unistd.h>
#include <utility>

#include "haerte/stoerung/pruefung.h"
#include "haerte/stoerung/riesen.h"
#include "haerte/stoerung/server.h"

namespace liedwerk::haerte {
namespace {

namespace fs = std::filesystem;

std::uint64_t Saat() {
    const char* const Text = std::getenv("SAAT");
    return Text == nullptr ? 1 : std::strtoull(Text, nullptr, 10);
}

void JederRuf(const Orte& Wo, Bericht& Wohin, bool Alle, const std::string& Name) {
    for (const Schreiber& Wer : AlleSchreiber()) {
        if (Alle ? Wer.Name.find(Name) == std::string::npos : !Wer.Kurz) continue;
        Wohin.FallBeginnen(Wer.Name);
        Prüfung(Wo, Wer, Wohin).JederRuf(Alle);
        Wohin.FallBeenden();
    }
}

// One case for each writer.
void JederSchreiber(const Orte& Wo, Bericht& Wohin, const std::string& Was,
                    const std::function<void(Prüfung&)>& Tun) {
    for (const Schreiber& Wer : AlleSchreiber()) {
        Wohin.FallBeginnen(Was + ", " + Wer.Name);
        Prüfung Einer(Wo, Wer, Wohin);
        Tun(Einer);
        Wohin.FallBeenden();
    }
}

void Töten(const Orte& Wo, Bericht& Wohin, int Anzahl) {
    std::mt19937_64 Zufall(Saat());
    std::map<std::size_t, std::unique_ptr<Prüfung>> Bereite;
    Wohin.FallBeginnen("zufällig getötet, Saat " + std::to_string(Saat()));
    for (int Mal = 0; Mal < Anzahl; ++Mal) {
        const std::size_t Welcher = Zufall() % AlleSchreiber().size();
        auto& Einer = Bereite[Welcher];
        if (!Einer) Einer = std::make_unique<Prüfung>(Wo, AlleSchreiber()[Welcher], Wohin);
        Einer->ZufälligTöten(Zufall());
    }
    Wohin.FallBeenden();
}

// ---- Two programs, one index

struct Paarwelt {
    Welt Vorher;
    std::set<std::string> Erlaubte;  // contents of the index that whole saves can leave
    std::map<int, int> Gelungene;    // how often so many of the two have saved
};

Befehlszeile Hinzu(const std::string& Datei) {
    return {"--index", "@i.lwi", "hinzufuegen", "@" + Datei};
}

std::string Indexinhalt(const Orte& Wo) {
    return WeltAufnehmen(Wo.Welt).at("i.lwi").Inhalt;
}

Paarwelt PaarVorbereiten(const Orte& Wo) {
    Paarwelt Alles;
    const Schreiber& Vorbild = AlleSchreiber().front();
    WeltHerstellen(Wo.Welt, Vorbild.Anfang);
    const std::string Ton = Vorbild.Anfang.at("musik/c.mp3").Inhalt;
    for (const char* Name : {"x.mp3", "y.mp3"})
        std::ofstream(Wo.Welt + "/" + Name, std::ios::binary) << Ton;
    if (!Laufen(Wo, Aufruf(Wo, Vorbild.Befehl)).Gelungen()) throw std::runtime_error("kein Index");
    WeltHerstellen(Wo.Welt, WeltAufnehmen(Wo.Welt));
    Alles.Vorher = WeltAufnehmen(Wo.Welt);
    Alles.Erlaubte.insert(Alles.Vorher.at("i.lwi").Inhalt);
    for (const auto& [Erste, Zweite] : {std::pair("x.mp3", "y.mp3"), std::pair("y.mp3", "x.mp3")}) {
        WeltHerstellen(Wo.Welt, Alles.Vorher);
        for (const char* Name : {Erste, Zweite}) {
            if (!Laufen(Wo, Aufruf(Wo, Hinzu(Name))).Gelungen()) throw std::runtime_error("kein Satz");
            Alles.Erlaubte.insert(Indexinhalt(Wo));
        }
    }
    return Alles;
}

void Paarlauf(const Orte& Wo, Paarwelt& Alles, Bericht& Wohin, std::uint64_t Zahl, bool MitTöten) {
    std::mt19937_64 Zufall(Zahl);
    Störung Wie;
    Wie.Raffer = 10;
    Wie.Pause = 3000;
    WeltHerstellen(Wo.Welt, Alles.Vorher);
    Wie.Saat = Zufall();
    Störung Andere = Wie;
    Andere.Saat = Zufall();
    if (MitTöten) Andere.TötenNach = std::uniform_int_distribution<std::int64_t>(4'000, 40'000)(Zufall);
    Gestarteter Eine(Wo, Aufruf(Wo, Hinzu("x.mp3")), Wie, 1);
    Gestarteter Zweite(Wo, Aufruf(Wo, Hinzu("y.mp3")), Andere, 2);
    const auto LaufY = Zweite.Abwarten();
    const auto LaufX = Eine.Abwarten();
    Wohin.Eingriff();
    const std::string Welches = "Saat " + std::to_string(Zahl) + ": ";
    for (const Laufergebnis* Lauf : {&LaufX, &LaufY}) {
        if (Lauf->Hängt || (Lauf->Signal != 0 && !(MitTöten && Lauf == &LaufY)))
            Wohin.Bruch(Welches + "hängt oder stürzt ab");
        if (Lauf->Status > 0 && Lauf->Meldungen.empty()) Wohin.Bruch(Welches + "gescheitert ohne Meldung");
    }
    ++Alles.Gelungene[LaufX.Gelungen() + LaufY.Gelungen()];
    const std::string Inhalt = Indexinhalt(Wo);
    if (!Alles.Erlaubte.contains(Inhalt)) Wohin.Bruch(Welches + "zerrissener Index");
    const auto Danach = Laufen(Wo, Aufruf(Wo, {"--ja", "--index", "@i.lwi", "index-info"}));
    if (!Danach.Gelungen() || Indexinhalt(Wo) != Inhalt) Wohin.Bruch(Welches + "der nächste Start scheitert");
    if (LaufX.Gelungen() && Inhalt.find("x.mp3") == std::string::npos)
        Wohin.Bruch(Welches + "x ist verloren");
    if (LaufY.Gelungen() && Inhalt.find("y.mp3") == std::string::npos)
        Wohin.Bruch(Welches + "y ist verloren");
    for (const std::string& Name : Übrige({Alles.Vorher, Alles.Vorher, {}, {}}, WeltAufnehmen(Wo.Welt)))
        Wohin.Bruch(Welches + "Hilfsdatei bleibt: " + Name);
}

void Paare(const Orte& Wo, Bericht& Wohin, int Anzahl) {
    Paarwelt Alles = PaarVorbereiten(Wo);
    for (const bool MitTöten : {false, true}) {
        std::mt19937_64 Zufall(Saat());
        Wohin.FallBeginnen(std::string("zwei Programme, ein Index") + (MitTöten ? ", eines getötet" : "") +
                           ", Saat " + std::to_string(Saat()));
        for (int Mal = 0; Mal < Anzahl; ++Mal)
            Paarlauf(Wo, Alles, Wohin, Zufall(), MitTöten);
        for (const auto& [Wieviele, Male] : std::exchange(Alles.Gelungene, {}))
            std::cout << Male << "-mal haben " << Wieviele << " gespeichert\n";
        Wohin.FallBeenden();
    }
}

// ---- A full disk

// A small file system of its own under a folder.
class Platte {
  public:
    explicit Platte(std::string Wo) : Ordner(std::move(Wo)) {
        fs::create_directories(Ordner);
        Da = ::mount("tmpfs", Ordner.c_str(), "tmpfs", 0, "size=16m") == 0;
    }
    Platte(const Platte&) = delete;
    Platte& operator=(const Platte&) = delete;
    ~Platte() {
        if (Da) ::umount2(Ordner.c_str(), MNT_DETACH);
    }
    bool IstDa() const { return Da; }
    // Leaves so many bytes free; below 0: all of it.
    void Füllen(std::int64_t Frei) const {
        const std::string Last = Ordner + "/last";
        fs::remove(Last);
        if (Frei < 0) return;
        struct statvfs Stand {};
        ::statvfs(Ordner.c_str(), &Stand);
        const auto Bytes = static_cast<off_t>(Stand.f_bavail * Stand.f_bsize) - Frei;
        const int Griff = ::open(Last.c_str(), O_WRONLY | O_CREAT, 0600);
        if (Bytes > 0 && ::posix_fallocate(Griff, 0, Bytes) != 0)
            std::cout << "Die Platte ließ sich nicht füllen.\n";
        ::close(Griff);
    }

  private:
    std::string Ordner;
    bool Da = false;
};

void VollePlatte(Orte Wo, Bericht& Wohin) {
    const Platte Kleine(Wo.Ablage + "/platte");
    if (!Kleine.IstDa()) {
        std::cout << "Die volle Platte wurde nicht geprüft: hier darf nichts eingehängt werden.\n";
        return;
    }
    Wo.Welt = Wo.Ablage + "/platte/welt";
    Kleine.Füllen(-1);
    JederSchreiber(Wo, Wohin, "volle Platte", [&](Prüfung& Einer) {
        for (int Stufe = 0; Stufe < 36; ++Stufe)
            Einer.BeiVollerPlatte(Stufe, [&](std::int64_t Frei) { Kleine.Füllen(Frei); });
    });
}

bool Teil(const Orte& Wo, Bericht& Wohin, const std::string& Name, const std::string& Wert) {
    if (Name == "rufe") {
        JederRuf(Wo, Wohin, true, Wert);
    } else if (Name == "rufe-kurz") {
        JederRuf(Wo, Wohin, false, {});
    } else if (Name == "ungestoert") {
        JederSchreiber(Wo, Wohin, "ungestört", [](Prüfung& Einer) { Einer.Ungestörtes(); });
    } else if (Name == "toeten") {
        Töten(Wo, Wohin, std::stoi(Wert));
    } else if (Name == "paare") {
        Paare(Wo, Wohin, std::stoi(Wert));
    } else if (Name == "platte") {
        VollePlatte(Wo, Wohin);
    } else if (Name == "eigenschaften") {
        JederSchreiber(Wo, Wohin, "Eigenschaften", [](Prüfung& Einer) {
            Einer.Eigenschaften();
            Einer.Fremdes();
        });
    } else if (Name == "riesen") {
        RiesenPrüfen(Wo, Wohin);
    } else if (Name == "server") {
        ServerPrüfen(Wo, Wohin);
    } else {
        return false;
    }
    return true;
}

int Ausführen(const std::string& Bauordner, const std::vector<std::string>& Teile) {
    std::string Ablage = (fs::temp_directory_path() / "stoerer-XXXXXX").string();
    if (::mkdtemp(Ablage.data()) == nullptr) throw std::runtime_error("kein Ordner in " + Ablage);
    const std::string Hier = Bauordner + "/haerte/stoerung/";
    const Orte Wo{Bauordner + "/src/ui/text/liedwerk-cli",
                  Hier + "liedwerk-handgriffe",
                  Bauordner + "/werkzeuge/liedwerk-indexgenerator",
                  Hier + "liedwerk_vorlader.so",
                  Ablage,
                  Ablage + "/welt"};
    Bericht Wohin;
    for (const std::string& Eintrag : Teile) {
        const std::size_t Gleich = Eintrag.find('=');
        const std::string Wert = Gleich == std::string::npos ? "" : Eintrag.substr(Gleich + 1);
        if (!Teil(Wo, Wohin, Eintrag.substr(0, Gleich), Wert)) {
            std::cerr << "Unbekannter Teil: " << Eintrag << "\n";
            return 2;
        }
    }
    fs::remove_all(Ablage);
    return Wohin.Schluss() ? 0 : 1;
}

}  // namespace
}  // namespace liedwerk::haerte

int main(int Anzahl, char** Argumente) {
    if (Anzahl < 3) {
        std::cerr << "Aufruf: liedwerk-stoerer BAUORDNER TEIL[=WERT]...\n";
        return 2;
    }
    try {
        return liedwerk::haerte::Ausführen(Argumente[1], {Argumente + 2, Argumente + Anzahl});
    } catch (const std::exception& Fehler) {
        std::cerr << "Fehler: " << Fehler.what() << "\n";
        return 1;
    }
}
