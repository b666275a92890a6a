#include "plattform/linux/programmstart.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

#include "basis/datei.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "plattform/linux/griff.h"
#include "plattform/linux/systemfehler.h"

namespace liedwerk {
namespace {

// What the started process tells through the pipe: its number, or the error that kept it from starting.
struct Startmeldung {
    pid_t Nummer = 0;
    int Fehler = 0;
};

void Mitteilen(int Griff, const Startmeldung& Meldung) {
    [[maybe_unused]] const auto Geschrieben = ::write(Griff, &Meldung, sizeof(Meldung));
}

// Runs in a copy of this process, where only system calls are allowed that are safe in one: a second copy in
// a session of its own becomes the program. Its outputs go nowhere: a reader of this program's output must
// not wait for the end of a player.
[[noreturn]] void AlsProgramm(const char* Pfad, char* const* Argumente, int Meldegriff) {
    ::setsid();
    const pid_t Enkel = ::fork();
    if (Enkel != 0) {
        if (Enkel < 0) Mitteilen(Meldegriff, {0, errno});
        ::_exit(0);
    }
    sigset_t Keine;
    ::sigemptyset(&Keine);
    ::sigprocmask(SIG_SETMASK, &Keine, nullptr);
    ::signal(SIGPIPE, SIG_DFL);
    const int Nichts = ::open("/dev/null", O_RDWR);
    for (int Griff = 0; Nichts >= 0 && Griff <= 2; ++Griff)
        ::dup2(Nichts, Griff);
    if (Nichts > 2) ::close(Nichts);
    // The number first: the pipe closes at the start of the program, and nothing behind it means success.
    Mitteilen(Meldegriff, {::getpid(), 0});
    ::execv(Pfad, Argumente);
    Mitteilen(Meldegriff, {0, errno});
    ::_exit(127);
}

Startmeldung MeldungLesen(int Griff) {
    Startmeldung Ergebnis;
    Startmeldung Gelesen;
    while (Beharrlich([&] { return ::read(Griff, &Gelesen, sizeof(Gelesen)); }) ==
           static_cast<ssize_t>(sizeof(Gelesen))) {
        if (Gelesen.Fehler != 0) return {0, Gelesen.Fehler};
        Ergebnis = Gelesen;
    }
    return Ergebnis;
}

}  // namespace

Programmlaufnummer Systemprogramme::Starten(std::string_view Programm,
                                            const std::vector<std::string>& Argumente) {
    std::vector<std::string> Worte{std::string(Programm)};
    Worte.insert(Worte.end(), Argumente.begin(), Argumente.end());
    std::vector<char*> Zeiger;
    Zeiger.reserve(Worte.size() + 1);
    for (std::string& Wort : Worte)
        Zeiger.push_back(Wort.data());
    Zeiger.push_back(nullptr);
    std::array<int, 2> Enden{};
    if (::pipe2(Enden.data(), O_CLOEXEC) != 0) return {0, Systemfehler(errno).Text};
    const Griffhalter Lesende(Enden[0]);
    Griffhalter Schreibende(Enden[1]);
    const pid_t Kind = ::fork();
    if (Kind == 0) AlsProgramm(Worte.front().c_str(), Zeiger.data(), Schreibende.Wert());
    if (Kind < 0) return {0, Systemfehler(errno).Text};
    Griffhalter().Tauschen(Schreibende);
    const Startmeldung Meldung = MeldungLesen(Lesende.Wert());
    Beharrlich([&] { return ::waitpid(Kind, nullptr, 0); });
    if (Meldung.Nummer == 0) return {0, Systemfehler(Meldung.Fehler).Text};
    return {Meldung.Nummer};
}

bool Systemprogramme::Läuft(const Programmlaufnummer& Gestartet) const {
    return Gestartet && (::kill(static_cast<pid_t>(Gestartet.Nummer), 0) == 0 || errno == EPERM);
}

Programmlaufnummer Systemprogramme::MitAnwendungÖffnen(std::string_view Pfad) {
    // Anything else would be taken for a switch, an address, or a file of the folder that this runs in.
    if (!IstPosixPfad(Pfad)) return {0, "Das ist auf diesem System kein Pfad einer Datei."};
    for (const auto& [Name, Befehl] : {std::pair{"xdg-open", ""}, std::pair{"gio", "open"}}) {
        const std::string Programm = Finden(Name);
        if (Programm.empty()) continue;
        std::vector<std::string> Argumente;
        if (*Befehl != '\0') Argumente.emplace_back(Befehl);
        Argumente.emplace_back(Pfad);
        return Starten(Programm, Argumente);
    }
    return {0, "Es ist kein Programm zum Öffnen von Dateien installiert (xdg-open)."};
}

std::string Systemprogramme::Finden(std::string_view Name) const {
    const char* const Suchpfad = std::getenv("PATH");
    for (const std::string& Ordner : Teilen(Suchpfad == nullptr ? "/usr/bin:/bin" : Suchpfad, ":")) {
        std::string Pfad = PfadVerbinden(Ordner, Name);
        if (IstPosixPfad(Pfad) && DateiExistiert(Pfad) && ::access(Pfad.c_str(), X_OK) == 0) return Pfad;
    }
    return {};
}

std::vector<std::string> SchalterZerlegen(std::string_view Zeile) {
    std::vector<std::string> Worte;
    std::string Wort;
    bool ImWort = false;
    bool Gehalten = false;  // within quotes
    for (std::size_t Stelle = 0; Stelle < Zeile.size();) {
        if (Zeile.substr(Stelle, 3) == R"(""")") {
            Wort += '"';
            ImWort = true;
            Stelle += 3;
            continue;
        }
        const char Zeichen = Zeile[Stelle++];
        if (Zeichen == '"') {
            Gehalten = !Gehalten;
            ImWort = true;
        } else if (Zeichen == ' ' && !Gehalten) {
            if (ImWort) Worte.push_back(std::exchange(Wort, {}));
            ImWort = false;
        } else {
            Wort += Zeichen;
            ImWort = true;
        }
    }
    if (ImWort) Worte.push_back(std::move(Wort));
    return Worte;
}

}  // namespace liedwerk
