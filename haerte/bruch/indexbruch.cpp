// Broken index files: a sound one, damaged in the ways that disks, other programs and spite damage files. The
// same arguments give the same bytes everywhere.
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "werkzeuge/zufall.h"

namespace liedwerk::werkzeug {
namespace {

using Zeilen = std::vector<std::string>;

Zeilen ZeilenVon(std::string_view Inhalt) {
    Zeilen Ergebnis;
    while (!Inhalt.empty()) {
        const std::size_t Ende = std::min(Inhalt.find('\n'), Inhalt.size() - 1) + 1;
        Ergebnis.emplace_back(Inhalt.substr(0, Ende));
        Inhalt.remove_prefix(Ende);
    }
    return Ergebnis;
}

std::string Verbunden(const Zeilen& Alle) {
    std::string Inhalt;
    for (const std::string& Zeile : Alle)
        Inhalt += Zeile;
    return Inhalt;
}

std::size_t Stelle(Zufall& Würfel, std::size_t Länge) {
    return static_cast<std::size_t>(Würfel.Zahl(0, static_cast<int>(std::max<std::size_t>(Länge, 1)) - 1));
}

// Works on every second line or so behind the first.
template <class Änderung>
std::string JedeZeile(std::string_view Inhalt, Zufall& Würfel, Änderung&& Ändern) {
    Zeilen Alle = ZeilenVon(Inhalt);
    for (std::size_t i = 1; i < Alle.size(); ++i) {
        if (Würfel.Trifft(60)) Ändern(Alle[i]);
    }
    return Verbunden(Alle);
}

// One of the lengths in front of the "|" becomes another text.
void LängeErsetzen(std::string& Zeile, std::string_view Neu, Zufall& Würfel) {
    const std::size_t Strich = Zeile.find('|');
    const std::size_t Anfang = Zeile.find('/', Stelle(Würfel, std::min(Strich, Zeile.size())));
    if (Anfang == std::string::npos || Anfang + 1 >= Strich) return;
    const std::size_t Ende = std::min(Zeile.find('/', Anfang + 1), Strich);
    if (Ende != std::string::npos) Zeile.replace(Anfang + 1, Ende - Anfang - 1, Neu);
}

std::string GroßeLängen(std::string_view Inhalt, Zufall& Würfel) {
    constexpr std::array<std::string_view, 6> Längen = {"100000",     "100001", "16000000",
                                                        "2147483648", "99999",  "65536"};
    return JedeZeile(Inhalt, Würfel,
                     [&](std::string& Zeile) { LängeErsetzen(Zeile, Würfel.Aus(Längen), Würfel); });
}

// A value that is as long as its length says, up to 16 million bytes.
std::string GroßeWerte(std::string_view Inhalt, Zufall& Würfel) {
    constexpr std::array<int, 5> Längen = {99999, 100000, 100001, 1000000, 16000000};
    const int Länge = Würfel.Aus(Längen);
    return std::string(Inhalt) + "#TAG:" + std::to_string(Länge) + "//3//////4//////////|" +
           std::string(static_cast<std::size_t>(Länge), 'x') + "abc1234\r\n";
}

std::string VieleZeilen(std::string_view Inhalt, Zufall& Würfel) {
    constexpr std::array<std::string_view, 5> Stücke = {"\r\n", "#TAG:|\r\n", "#TAG:1|a\r\n", "x\r\n",
                                                        "#OPT:=\r\n"};
    const std::string_view Eines = Würfel.Aus(Stücke);
    std::string Alle(Inhalt);
    for (std::size_t i = 0; i < Inhalt.size() / 32; ++i)
        Alle += Eines;
    return Alle;
}

std::string OhneStrich(std::string_view Inhalt, Zufall& Würfel) {
    return JedeZeile(Inhalt, Würfel, [](std::string& Zeile) { std::erase(Zeile, '|'); });
}

std::string MitNull(std::string_view Inhalt, Zufall& Würfel) {
    return JedeZeile(Inhalt, Würfel, [&](std::string& Zeile) { Zeile[Stelle(Würfel, Zeile.size())] = '\0'; });
}

// A number that stands as a value: digits of the same count, so that the line keeps its sum.
std::string Zahlen(std::string_view Inhalt, Zufall& Würfel) {
    constexpr std::array<std::string_view, 10> Werte = {
        "-1", "2147483648", "9223372036854775808", "1e99", "1d9", "0,5", "NaN", "00000", "+7", " "};
    return JedeZeile(Inhalt, Würfel, [&](std::string& Zeile) {
        const std::size_t Ab = Zeile.find_first_of("0123456789", Stelle(Würfel, Zeile.size()));
        if (Ab == std::string::npos) return;
        const std::string_view Wert = Würfel.Aus(Werte).substr(0, Zeile.size() - Ab);
        if (Würfel.Trifft(50)) {
            Zeile.replace(Ab, Wert.size(), Wert);
        } else {
            Zeile.insert(Ab, Wert);
        }
    });
}

std::string Abgeschnitten(std::string_view Inhalt, Zufall& Würfel) {
    return std::string(Inhalt.substr(0, Stelle(Würfel, Inhalt.size())));
}

std::string Gemischt(std::string_view Inhalt, Zufall& Würfel) {
    Zeilen Alle = ZeilenVon(Inhalt);
    for (std::size_t i = Alle.size(); i > 1; --i)
        std::swap(Alle[i - 1], Alle[Stelle(Würfel, i)]);
    // Now and then blocks of bytes, as a disk that lost its order leaves them.
    std::string Ganz = Verbunden(Alle);
    if (Würfel.Trifft(50)) {
        for (int i = 0; i < 20; ++i)
            std::rotate(Ganz.begin(), Ganz.begin() + static_cast<std::ptrdiff_t>(Stelle(Würfel, Ganz.size())),
                        Ganz.end());
    }
    return Ganz;
}

std::string AndereKodierung(std::string_view Inhalt, Zufall& Würfel) {
    const int Art = Würfel.Zahl(0, 3);
    std::string Neu = Art == 0 ? "\xFF\xFE" : Art == 1 ? "\xFE\xFF" : "\xEF\xBB\xBF";
    for (const char Byte : Inhalt) {
        if (Art == 1) Neu += '\0';
        Neu += Art == 3 ? static_cast<char>(Byte ^ '\x80') : Byte;
        if (Art == 0) Neu += '\0';
    }
    return Neu;
}

std::string Zeilenenden(std::string_view Inhalt, Zufall& Würfel) {
    constexpr std::array<std::string_view, 5> Enden = {"\r", "\n", "", "\n\r", "\r\r\n"};
    const std::string_view Ende = Würfel.Aus(Enden);
    std::string Neu;
    for (const std::string& Zeile : ZeilenVon(Inhalt)) {
        Neu += Zeile.substr(0, Zeile.find_last_not_of("\r\n") + 1);
        Neu += Ende;
    }
    return Neu;
}

std::string Bytes(std::string_view Inhalt, Zufall& Würfel) {
    std::string Neu(Inhalt);
    const auto Anzahl = Neu.size() / static_cast<std::size_t>(Würfel.Zahl(50, 5000)) + 1;
    for (std::size_t i = 0; i < Anzahl && !Neu.empty(); ++i)
        Neu[Stelle(Würfel, Neu.size())] = static_cast<char>(Würfel.Zahl(0, 255));
    return Neu;
}

std::string Kopfzeilen(std::string_view Inhalt, Zufall& Würfel) {
    constexpr std::array<std::string_view, 7> Köpfe = {"#TAG:lw99999999999\r\n",
                                                       "#TAG:lw\r\n",
                                                       "\r\n",
                                                       "#TAG:lw103\r\n",
                                                       "#TAG:1|a\r\n",
                                                       "",
                                                       "#TAG:lw10x\n"};
    constexpr std::array<std::string_view, 6> Optionen = {
        "#OPT:SPALTEN=32=2147483648=-1,,,=\r\n", "#OPT:SYNC=,,,,,\r\n",
        "#OPT:VERWALTEN=*=9,99999\r\n",          "#OPT:SYNC_ENTFERNEN=99999\r\n",
        "#TERMIN:16000000/1/1|abc\r\n",          "#OPT:UNBEKANNT\r\n"};
    std::string Neu(Würfel.Aus(Köpfe));
    for (int i = 0; i < 50; ++i)
        Neu += Würfel.Aus(Optionen);
    return Neu.append(Inhalt.substr(std::min(Inhalt.find('\n') + 1, Inhalt.size())));
}

struct Schaden {
    std::string_view Name;
    std::string (*Anrichten)(std::string_view Inhalt, Zufall& Würfel);
};
constexpr std::array<Schaden, 12> Schäden = {{
    {"grosse_laengen", GroßeLängen},
    {"grosse_werte", GroßeWerte},
    {"viele_zeilen", VieleZeilen},
    {"ohne_strich", OhneStrich},
    {"null", MitNull},
    {"zahlen", Zahlen},
    {"abgeschnitten", Abgeschnitten},
    {"gemischt", Gemischt},
    {"kodierung", AndereKodierung},
    {"zeilenenden", Zeilenenden},
    {"bytes", Bytes},
    {"kopfzeilen", Kopfzeilen},
}};

void Schreiben(const std::string& Pfad, std::string_view Bytes) {
    std::ofstream Datei(Pfad, std::ios::binary);
    Datei.write(Bytes.data(), std::ssize(Bytes));
    if (!Datei.flush()) {
        std::cerr << "Die Datei '" << Pfad << "' konnte nicht geschrieben werden.\n";
        std::exit(1);
    }
}

// The lines of the template once more behind it.
std::string Verdoppelt(std::string_view Inhalt) {
    return std::string(Inhalt).append(Inhalt.substr(std::min(Inhalt.find("\n#TAG:") + 1, Inhalt.size())));
}

int Ausführen(const std::string& Ordner, const std::string& Vorlage, int Anzahl, std::uint64_t Saat,
              bool Paare) {
    std::ifstream Quelle(Vorlage, std::ios::binary);
    const std::string Inhalt{std::istreambuf_iterator<char>(Quelle), {}};
    if (Inhalt.empty()) {
        std::cerr << "Die Datei '" << Vorlage << "' ist leer oder nicht lesbar.\n";
        return 1;
    }
    for (int Nummer = 0; Nummer < Anzahl; ++Nummer) {
        const Schaden& Art = Schäden[static_cast<std::size_t>(Nummer) % Schäden.size()];
        char Zahl[16];
        std::snprintf(Zahl, sizeof Zahl, "%03d_", Nummer);
        const std::string Pfad = Ordner + "/" + Zahl + std::string(Art.Name);
        const std::uint64_t Eigene = Saat * 1000 + static_cast<std::uint64_t>(Nummer);
        Zufall Würfel(Eigene);
        Schreiben(Pfad + ".lwi", Art.Anrichten(Inhalt, Würfel));
        if (!Paare) continue;
        Zufall Wieder(Eigene);
        Schreiben(Pfad + ".doppelt.lwi", Art.Anrichten(Verdoppelt(Inhalt), Wieder));
    }
    return 0;
}

}  // namespace
}  // namespace liedwerk::werkzeug

int main(int Anzahl, char** Argumente) {
    const std::vector<std::string> Worte(Argumente + 1, Argumente + Anzahl);
    if (Worte.size() < 4 || Worte.size() > 5) {
        std::cerr << "Aufruf: liedwerk-indexbruch ORDNER VORLAGE ANZAHL SAAT [paare]\n";
        return 2;
    }
    return liedwerk::werkzeug::Ausführen(Worte[0], Worte[1], std::stoi(Worte[2]), std::stoull(Worte[3]),
                                         Worte.size() == 5);
}
