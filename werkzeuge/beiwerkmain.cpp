// liedwerk-beiwerk VORLAGE ZIEL: fills a template of the manual page or of a shell's completion from the
// command table. Runs while the package is built.
#include <cstdio>
#include <filesystem>

#include "basis/datei.h"
#include "werkzeuge/beiwerk.h"

int main(int Anzahl, char** Argumente) {
    using namespace liedwerk;
    if (Anzahl != 3) {
        std::fputs("Aufruf: liedwerk-beiwerk VORLAGE ZIEL\n", stderr);
        return 2;
    }
    const auto Vorlage = DateiLesen(std::filesystem::absolute(Argumente[1]).string());
    std::FILE* const Ziel = Vorlage ? std::fopen(Argumente[2], "wb") : nullptr;
    if (Ziel == nullptr) {
        std::fprintf(stderr, "%s: nicht lesbar, oder %s: nicht schreibbar\n", Argumente[1], Argumente[2]);
        return 1;
    }
    const bool Geschrieben = std::fputs(VorlageFüllen(*Vorlage).c_str(), Ziel) >= 0;
    return std::fclose(Ziel) == 0 && Geschrieben ? 0 : 1;
}
