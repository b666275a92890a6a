// liedwerk-vergleich: the bare bounds against which benchmarks/messen.sh holds the program's figures.
//
// Each subcommand does the least that a job needs, without this project's code, and prints "name=value"
// lines; times are milliseconds. TagLib's reading of tags and audio properties is the peer for media files.
#include <algorithm>
#include <array>
#include <audioproperties.h>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <fileref.h>
#include <filesystem>
#include <functional>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <tag.h>
#include <unistd.h>
#include <vector>

namespace {

using Stoppuhr = std::chrono::steady_clock;

double MillisekundenSeit(Stoppuhr::time_point Anfang) {
    return std::chrono::duration<double, std::milli>(Stoppuhr::now() - Anfang).count();
}

struct Inhalt {
    std::unique_ptr<char[]> Bytes;  // not initialised: fresh memory is a part of the bound
    std::size_t Länge = 0;
};

// One file by as few read() calls as the system takes.
Inhalt Lesen(const char* Pfad) {
    Inhalt Ergebnis;
    const int Griff = open(Pfad, O_RDONLY | O_CLOEXEC);
    struct stat Stand {};
    if (Griff < 0 || fstat(Griff, &Stand) != 0) {
        std::perror(Pfad);
        std::exit(1);
    }
    const auto Größe = static_cast<std::size_t>(Stand.st_size);
    Ergebnis.Bytes = std::make_unique_for_overwrite<char[]>(Größe);
    while (Ergebnis.Länge < Größe) {
        const ssize_t Gelesen = read(Griff, Ergebnis.Bytes.get() + Ergebnis.Länge, Größe - Ergebnis.Länge);
        if (Gelesen <= 0) break;
        Ergebnis.Länge += static_cast<std::size_t>(Gelesen);
    }
    close(Griff);
    return Ergebnis;
}

// Reading an index: one read() plus memchr of the line ends.
int Zeilen(const std::vector<const char*>& Argumente) {
    const auto Anfang = Stoppuhr::now();
    const Inhalt Datei = Lesen(Argumente[0]);
    std::size_t Anzahl = 0;
    const char* Stelle = Datei.Bytes.get();
    const char* const Ende = Stelle + Datei.Länge;
    while (const void* Fund = std::memchr(Stelle, '\n', static_cast<std::size_t>(Ende - Stelle))) {
        ++Anzahl;
        Stelle = static_cast<const char*>(Fund) + 1;
    }
    std::cout << "ms=" << MillisekundenSeit(Anfang) << "\nzeilen=" << Anzahl << '\n';
    return 0;
}

// What a record is sorted by in three columns: eight folded bytes of two texts, and a number.
struct Rang {
    std::uint64_t Erster = 0;
    std::uint64_t Zweiter = 0;
    std::uint64_t Dritter = 0;
    std::uint32_t Zeile = 0;
    bool operator<(const Rang& Anderer) const {
        if (Erster != Anderer.Erster) return Erster < Anderer.Erster;
        if (Zweiter != Anderer.Zweiter) return Zweiter < Anderer.Zweiter;
        return Dritter < Anderer.Dritter;
    }
};

std::uint64_t GroßerAnfang(std::string_view Text) {
    std::uint64_t Zahl = 0;
    for (std::size_t i = 0; i < sizeof Zahl; ++i) {
        const char Zeichen = i < Text.size() ? Text[i] : '\0';
        Zahl = Zahl << 8U |
               static_cast<unsigned char>(Zeichen >= 'a' && Zeichen <= 'z' ? Zeichen - 32 : Zeichen);
    }
    return Zahl;
}

// The ranks of a record line: artist, album and track number stand in fields 3, 2 and 7 behind the lengths.
Rang RangLesen(std::string_view Zeile) {
    constexpr std::size_t Kopf = 5;  // "#TAG:"
    constexpr std::size_t Felder = 7;
    const std::size_t Strich = Zeile.find('|');
    Rang Ergebnis;
    if (!Zeile.starts_with("#TAG:") || Strich == std::string_view::npos) return Ergebnis;
    std::array<std::string_view, Felder> Werte;
    const char* Stelle = Zeile.data() + Kopf;
    std::size_t Ort = Strich + 1;
    for (std::string_view& Wert : Werte) {
        std::size_t Länge = 0;
        for (; *Stelle != '/'; ++Stelle)
            Länge = 10 * Länge + static_cast<std::size_t>(*Stelle - '0');
        ++Stelle;
        if (Ort + Länge > Zeile.size()) break;
        Wert = Zeile.substr(Ort, Länge);
        Ort += Länge;
    }
    Ergebnis.Erster = GroßerAnfang(Werte[2]);
    Ergebnis.Zweiter = GroßerAnfang(Werte[1]);
    for (const char Ziffer : Werte[6])
        Ergebnis.Dritter = 10 * Ergebnis.Dritter + static_cast<std::uint64_t>(Ziffer - '0');
    return Ergebnis;
}

// Sorting by artist, album and track number: 64-bit ranks of the beginnings and one sort of them, from the
// bytes of an index in memory.
int Ränge(const std::vector<const char*>& Argumente) {
    const Inhalt Datei = Lesen(Argumente[0]);
    const auto Anfang = Stoppuhr::now();
    std::vector<Rang> Sätze;
    std::string_view Rest(Datei.Bytes.get(), Datei.Länge);
    while (!Rest.empty()) {
        const std::size_t Ende = std::min(Rest.find('\n'), Rest.size() - 1);
        if (Rest.starts_with("#TAG:") && Rest.find('|') < Ende) {
            Sätze.push_back(RangLesen(Rest.substr(0, Ende)));
            Sätze.back().Zeile = static_cast<std::uint32_t>(Sätze.size());
        }
        Rest.remove_prefix(Ende + 1);
    }
    const auto Sortieranfang = Stoppuhr::now();
    std::ranges::sort(Sätze, std::less<>{});
    std::cout << "ms=" << MillisekundenSeit(Anfang) << "\nsortieren=" << MillisekundenSeit(Sortieranfang)
              << "\nzeilen=" << Sätze.size() << '\n';
    return 0;
}

// Searching: memmem over the folded text (one line a record), each line counted once; median of five.
int Memmem(const std::vector<const char*>& Argumente) {
    const Inhalt Datei = Lesen(Argumente[0]);
    const std::string_view Wort = Argumente[1];
    std::array<double, 5> Zeiten{};
    std::size_t Treffer = 0;
    for (double& Zeit : Zeiten) {
        Treffer = 0;
        const auto Anfang = Stoppuhr::now();
        const char* Stelle = Datei.Bytes.get();
        const char* const Ende = Stelle + Datei.Länge;
        while (const void* Fund =
                   memmem(Stelle, static_cast<std::size_t>(Ende - Stelle), Wort.data(), Wort.size())) {
            ++Treffer;
            const auto* Ort = static_cast<const char*>(Fund);
            const void* Zeilenende = std::memchr(Ort, '\n', static_cast<std::size_t>(Ende - Ort));
            if (Zeilenende == nullptr) break;
            Stelle = static_cast<const char*>(Zeilenende) + 1;
        }
        Zeit = MillisekundenSeit(Anfang);
    }
    std::ranges::sort(Zeiten);
    std::cout << "ms=" << Zeiten[2] << "\ntreffer=" << Treffer << "\nbytes=" << Datei.Länge << '\n';
    return 0;
}

// Saving: a sequential write of the same bytes to a new file, with fsync.
int Schreiben(const std::vector<const char*>& Argumente) {
    const Inhalt Datei = Lesen(Argumente[0]);
    unlink(Argumente[1]);
    const auto Anfang = Stoppuhr::now();
    const int Griff = open(Argumente[1], O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
    std::size_t Geschrieben = 0;
    while (Griff >= 0 && Geschrieben < Datei.Länge) {
        const ssize_t Stück = write(Griff, Datei.Bytes.get() + Geschrieben, Datei.Länge - Geschrieben);
        if (Stück <= 0) break;
        Geschrieben += static_cast<std::size_t>(Stück);
    }
    const bool Gelungen = Griff >= 0 && Geschrieben == Datei.Länge && fsync(Griff) == 0 && close(Griff) == 0;
    const double Zeit = MillisekundenSeit(Anfang);
    unlink(Argumente[1]);
    if (!Gelungen) {
        std::perror(Argumente[1]);
        return 1;
    }
    std::cout << "ms=" << Zeit << '\n';
    return 0;
}

std::vector<std::string> DateienUnter(const char* Ordner) {
    std::vector<std::string> Dateien;
    for (const auto& Eintrag : std::filesystem::recursive_directory_iterator(Ordner)) {
        if (Eintrag.is_regular_file()) Dateien.push_back(Eintrag.path().string());
    }
    std::ranges::sort(Dateien);
    return Dateien;
}

// Reads Länge bytes at Stelle into Puffer, behind Schon bytes that stay.
std::size_t Teil(int Griff, std::vector<char>& Puffer, std::size_t Schon, std::size_t Länge, off_t Stelle) {
    if (Puffer.size() < Schon + Länge) Puffer.resize(Schon + Länge);
    const ssize_t Gelesen = pread(Griff, Puffer.data() + Schon, Länge, Stelle);
    return Schon + (Gelesen < 0 ? 0 : static_cast<std::size_t>(Gelesen));
}

// True when "ID3" stands in the bytes.
bool EnthältId3(const char* Bytes, std::size_t Länge) {
    const char* Stelle = Bytes;
    while (const void* Fund = std::memchr(Stelle, 'I', Länge - static_cast<std::size_t>(Stelle - Bytes))) {
        Stelle = static_cast<const char*>(Fund);
        if (static_cast<std::size_t>(Stelle - Bytes) + 3 > Länge) return false;
        if (Stelle[1] == 'D' && Stelle[2] == '3') return true;
        ++Stelle;
    }
    return false;
}

// Position of the first frame header: a byte 255 followed by one with its three top bits set.
std::size_t Rahmenkopf(const char* Bytes, std::size_t Länge) {
    const char* Stelle = Bytes;
    while (const void* Fund = std::memchr(Stelle, 0xFF, Länge - static_cast<std::size_t>(Stelle - Bytes))) {
        Stelle = static_cast<const char*>(Fund);
        const auto Ort = static_cast<std::size_t>(Stelle - Bytes);
        if (Ort + 1 >= Länge) break;
        if ((static_cast<unsigned char>(Stelle[1]) & 0xE0U) == 0xE0U) return Ort;
        ++Stelle;
    }
    return Länge;
}

// The bytes of one MP3 file that have to be looked at: a tag in front with the frame header behind it or,
// without a tag, what the search for one covers; and the tags at the end.
std::size_t Ansehen(const char* Pfad, std::vector<char>& Puffer) {
    constexpr std::size_t ErstesStück = 4096;
    constexpr std::size_t Suchweite = 102400;
    constexpr std::size_t Endstück = 160;
    const int Griff = open(Pfad, O_RDONLY | O_CLOEXEC);
    struct stat Stand {};
    if (Griff < 0 || fstat(Griff, &Stand) != 0) return 0;
    const auto Nachlesen = [&](std::size_t Länge, std::size_t Bis) {
        return Teil(Griff, Puffer, Länge, Bis - Länge, static_cast<off_t>(Länge));
    };
    std::size_t Länge = Teil(Griff, Puffer, 0, ErstesStück, 0);
    std::size_t Gesehen = 0;
    if (Länge >= 10 && std::memcmp(Puffer.data(), "ID3", 3) == 0) {
        std::size_t Bis = 10 + 64;
        for (std::size_t i = 6; i < 10; ++i) {
            Bis += static_cast<std::size_t>(Puffer[i] & 0x7F) << (7 * (9 - i));
        }
        Bis = std::min(Bis, Suchweite);
        if (Bis > Länge) Länge = Nachlesen(Länge, Bis);
    } else if (Länge == ErstesStück) {
        Länge = Nachlesen(Länge, Suchweite);
        if (EnthältId3(Puffer.data(), Länge)) ++Gesehen;
    }
    Gesehen += Rahmenkopf(Puffer.data(), Länge);
    Gesehen +=
        Teil(Griff, Puffer, 0, Endstück, std::max<off_t>(0, Stand.st_size - static_cast<off_t>(Endstück)));
    close(Griff);
    return Gesehen;
}

int Schleife(const std::vector<const char*>& Argumente) {
    const std::vector<std::string> Dateien = DateienUnter(Argumente[0]);
    std::vector<char> Puffer;
    std::size_t Gesehen = 0;
    const auto Anfang = Stoppuhr::now();
    for (const std::string& Datei : Dateien)
        Gesehen += Ansehen(Datei.c_str(), Puffer);
    std::cout << "ms=" << MillisekundenSeit(Anfang) << "\ndateien=" << Dateien.size() << "\nbytes=" << Gesehen
              << '\n';
    return 0;
}

int Taglib(const std::vector<const char*>& Argumente) {
    const std::vector<std::string> Dateien = DateienUnter(Argumente[0]);
    std::size_t Zeichen = 0;
    const auto Anfang = Stoppuhr::now();
    for (const std::string& Datei : Dateien) {
        const TagLib::FileRef Fund(Datei.c_str(), true, TagLib::AudioProperties::Average);
        if (Fund.isNull() || Fund.tag() == nullptr) continue;
        const TagLib::Tag& Tag = *Fund.tag();
        Zeichen += Tag.title().size() + Tag.artist().size() + Tag.album().size() + Tag.comment().size();
        if (Fund.audioProperties() != nullptr) {
            Zeichen += static_cast<std::size_t>(Fund.audioProperties()->lengthInSeconds());
        }
    }
    std::cout << "ms=" << MillisekundenSeit(Anfang) << "\ndateien=" << Dateien.size()
              << "\nzeichen=" << Zeichen << '\n';
    return 0;
}

struct Befehl {
    std::string_view Name;
    std::size_t Argumente;
    std::string_view Aufruf;
    int (*Ausführen)(const std::vector<const char*>&);
};

constexpr std::array<Befehl, 6> Befehle = {{
    {"zeilen", 1, "DATEI", Zeilen},
    {"raenge", 1, "DATEI", Ränge},
    {"memmem", 2, "TEXT WORT", Memmem},
    {"schreiben", 2, "DATEI ZIEL", Schreiben},
    {"schleife", 1, "ORDNER", Schleife},
    {"taglib", 1, "ORDNER", Taglib},
}};

}  // namespace

int main(int Anzahl, char** Argumente) {
    for (const Befehl& Eintrag : Befehle) {
        if (Anzahl < 2 || Eintrag.Name != Argumente[1]) continue;
        if (static_cast<std::size_t>(Anzahl) != Eintrag.Argumente + 2) break;
        return Eintrag.Ausführen({Argumente + 2, Argumente + Anzahl});
    }
    for (const Befehl& Eintrag : Befehle) {
        std::cerr << "liedwerk-vergleich " << Eintrag.Name << ' ' << Eintrag.Aufruf << '\n';
    }
    return 2;
}
