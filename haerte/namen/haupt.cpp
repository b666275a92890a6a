// liedwerk-namen BAUORDNER [JEDER]: evil names through every function of liedwerk-cli; see
// docs/verlaesslichkeit.md. JEDER: of the names that are tried one at a time, every so many (1: all). The
// last line counts the cases.
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <stdexcept>

#include "haerte/namen/pruefstand.h"

namespace liedwerk::haerte {
namespace {

namespace fs = std::filesystem;

int Ausführen(const std::string& Bau, std::size_t Jeder) {
    std::string Ablage = (fs::canonical(fs::temp_directory_path()) / "namen-XXXXXX").string();
    if (::mkdtemp(Ablage.data()) == nullptr) throw std::runtime_error("kein Ordner in " + Ablage);
    Orte Wo{Bau + "/src/ui/text/liedwerk-cli",
            Bau + "/haerte/stoerung/liedwerk-handgriffe",
            Bau + "/haerte/namen/liedwerk-attrappe",
            Bau + "/haerte/stoerung/liedwerk_vorlader.so",
            Ablage,
            Ablage + "/welt"};
    Wo.Späher = Bau + "/haerte/namen/liedwerk_spaeher.so";
    Wo.Suchpfad = Wo.Welt + "/suchpfad";
    Bericht Wohin;
    const Prüfstand Stand(Wo, Wohin, Jeder);
    LesenPrüfen(Stand);
    ListenPrüfen(Stand);
    ÄndernPrüfen(Stand);
    DiscsPrüfen(Stand, Bau + "/werkzeuge/liedwerk-cddbserver");
    Stand.VollständigkeitPrüfen();
    FensterPrüfen(Stand, Bau + "/src/ui/qt/liedwerk");
    fs::remove_all(Ablage);
    return Wohin.Schluss() ? 0 : 1;
}

}  // namespace
}  // namespace liedwerk::haerte

int main(int Anzahl, char** Argumente) {
    if (Anzahl < 2) {
        std::cerr << "Aufruf: liedwerk-namen BAUORDNER [JEDER]\n";
        return 2;
    }
    try {
        const int Jeder = Anzahl > 2 ? std::atoi(Argumente[2]) : 1;
        return liedwerk::haerte::Ausführen(Argumente[1], Jeder < 1 ? 1U : static_cast<std::size_t>(Jeder));
    } catch (const std::exception& Fehler) {
        std::cerr << "Fehler: " << Fehler.what() << "\n";
        return 1;
    }
}
