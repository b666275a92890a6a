#include "haerte/stoerung/lauf.h"

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace liedwerk::haerte {
namespace {

std::int64_t Jetzt() {
    const auto Seitdem = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::microseconds>(Seitdem).count();
}

std::string Inhalt(const std::string& Datei) {
    std::ifstream Quelle(Datei, std::ios::binary);
    return {std::istreambuf_iterator<char>(Quelle), {}};
}

std::vector<Rufzeile> ProtokollLesen(const std::string& Datei) {
    std::vector<Rufzeile> Rufe;
    std::ifstream Quelle(Datei, std::ios::binary);
    for (std::string Zeile; std::getline(Quelle, Zeile);) {
        std::istringstream Felder(Zeile);
        std::string Nummer;
        std::string Ergebnis;
        Rufzeile Ruf;
        std::getline(Felder, Nummer, '\t');
        std::getline(Felder, Ruf.Name, '\t');
        std::getline(Felder, Ergebnis, '\t');
        std::getline(Felder, Ruf.Pfad, '\t');
        std::getline(Felder, Ruf.Neu, '\t');
        Ruf.Ergebnis = std::stol("0" + Ergebnis.substr(Ergebnis.starts_with('-') ? 1 : 0));
        if (Ergebnis.starts_with('-')) Ruf.Ergebnis = -Ruf.Ergebnis;
        Rufe.push_back(std::move(Ruf));
    }
    return Rufe;
}

// The program sees neither the person's files nor a session; only the disturbance stands in front of it.
std::vector<std::string> Umgebung(const Orte& Wo, const Störung& Wie, const std::string& Protokoll) {
    const std::string Heim = Wo.Welt + "/heim";
    const std::string Davor = Wo.Späher.empty() ? "" : Wo.Späher + ":";
    std::vector<std::string> Werte = {"PATH=" + Wo.Suchpfad,
                                      "LC_ALL=C.UTF-8",
                                      "TZ=UTC",
                                      "QT_QPA_PLATFORM=offscreen",
                                      "HOME=" + Heim,
                                      "XDG_DATA_HOME=" + Heim + "/data",
                                      "XDG_CONFIG_HOME=" + Heim + "/config",
                                      "XDG_CACHE_HOME=" + Heim + "/cache",
                                      "XDG_RUNTIME_DIR=" + Heim + "/lauf",
                                      "LD_PRELOAD=" + Davor + Wo.Vorlader,
                                      "STOERUNG_PROTOKOLL=" + Protokoll};
    if (Wo.Späher.empty()) Werte.push_back("STOERUNG_ORDNER=" + (Wie.Überall ? "/" : Wo.Welt));
    Werte.insert(Werte.end(), Wo.Umgebung.begin(), Wo.Umgebung.end());
    if (Wie.Ruf > 0) Werte.push_back("STOERUNG_RUF=" + std::to_string(Wie.Ruf));
    if (!Wie.Art.empty()) Werte.push_back("STOERUNG_ART=" + Wie.Art);
    if (Wie.Immer) Werte.emplace_back("STOERUNG_IMMER=1");
    if (!Wie.Grenze.empty()) Werte.push_back("STOERUNG_GRENZE=" + Wie.Grenze);
    if (Wie.Pause > 0) Werte.push_back("STOERUNG_PAUSE=" + std::to_string(Wie.Pause));
    if (Wie.Saat > 0) Werte.push_back("STOERUNG_SAAT=" + std::to_string(Wie.Saat % 1'000'000'007));
    if (Wie.Namensdauer > 0) Werte.push_back("STOERUNG_NAMEN=" + std::to_string(Wie.Namensdauer));
    if (Wie.Raffer > 0) Werte.push_back("STOERUNG_RAFFER=" + std::to_string(Wie.Raffer));
    return Werte;
}

std::vector<char*> Zeiger(std::vector<std::string>& Texte) {
    std::vector<char*> Alle;
    for (std::string& Text : Texte)
        Alle.push_back(Text.data());
    Alle.push_back(nullptr);
    return Alle;
}

void Umlenken(const std::string& Datei, int Griff) {
    const int Offen = ::open(Datei.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (Offen < 0 || ::dup2(Offen, Griff) < 0) ::_exit(126);
}

}  // namespace

Gestarteter::Gestarteter(const Orte& Wo, const std::vector<std::string>& Befehl, const Störung& Wie,
                         int Kennung)
    : Anfang(Wo.Ablage + "/" + std::to_string(Kennung)),
      Beginn(Jetzt()),
      TötenNach(Wie.TötenNach),
      AbbruchNach(Wie.AbbruchNach) {
    std::filesystem::remove(Anfang + ".rufe");
    std::vector<std::string> Worte = Befehl;
    std::vector<std::string> Werte = Umgebung(Wo, Wie, Anfang + ".rufe");
    const auto Argumente = Zeiger(Worte);
    const auto Umwelt = Zeiger(Werte);
    Prozess = ::fork();
    if (Prozess < 0) throw std::runtime_error("fork");
    if (Prozess > 0) return;
    const int Leer = ::open("/dev/null", O_RDONLY);
    ::dup2(Leer, STDIN_FILENO);
    Umlenken(Anfang + ".aus", STDOUT_FILENO);
    Umlenken(Anfang + ".meldungen", STDERR_FILENO);
    ::execve(Argumente[0], Argumente.data(), Umwelt.data());
    ::_exit(127);
}

Laufergebnis Gestarteter::Abwarten(std::int64_t Höchstens) {
    Laufergebnis Ergebnis;
    int Stand = 0;
    rusage Verbrauch{};
    while (::wait4(Prozess, &Stand, WNOHANG, &Verbrauch) == 0) {
        const std::int64_t Seitdem = Jetzt() - Beginn;
        if (AbbruchNach >= 0 && Seitdem >= AbbruchNach && Ergebnis.SeitAbbruch < 0) {
            ::kill(Prozess, SIGINT);
            Ergebnis.SeitAbbruch = Seitdem;
        }
        if (Seitdem > Höchstens) Ergebnis.Hängt = true;
        if (Ergebnis.Hängt || (TötenNach >= 0 && Seitdem >= TötenNach)) ::kill(Prozess, SIGKILL);
        // Long runs go side by side, and looking at them must not hold them up.
        std::this_thread::sleep_for(std::chrono::microseconds(Seitdem < 1'000'000 ? 200 : 5000));
    }
    Ergebnis.Dauer = Jetzt() - Beginn;
    if (Ergebnis.SeitAbbruch >= 0) Ergebnis.SeitAbbruch = Ergebnis.Dauer - Ergebnis.SeitAbbruch;
    if (WIFEXITED(Stand)) Ergebnis.Status = WEXITSTATUS(Stand);
    if (WIFSIGNALED(Stand)) Ergebnis.Signal = WTERMSIG(Stand);
    Ergebnis.Höchststand = Verbrauch.ru_maxrss;
    for (const timeval& Teil : {Verbrauch.ru_utime, Verbrauch.ru_stime})
        Ergebnis.Rechenzeit += Teil.tv_sec * 1'000'000 + Teil.tv_usec;
    Ergebnis.Ausgabe = Inhalt(Anfang + ".aus");
    Ergebnis.Meldungen = Inhalt(Anfang + ".meldungen");
    Ergebnis.Rufe = ProtokollLesen(Anfang + ".rufe");
    return Ergebnis;
}

Laufergebnis Laufen(const Orte& Wo, const std::vector<std::string>& Befehl, const Störung& Wie) {
    return Gestarteter(Wo, Befehl, Wie, 1).Abwarten();
}

}  // namespace liedwerk::haerte
