// Catalogues for the tests of this area.
#pragma once

#include <random>
#include <string>
#include <vector>

#include "index/katalog.h"
#include "suche/feldwert.h"

namespace liedwerk {

inline std::string WertVon(const Katalog& Index, Satznummer Nummer, std::string_view Feld,
                           Wertform Modus = Wertform::Anzeigen, bool AndererTag = false) {
    std::string Wert;
    Feldtyp Typ{};
    FeldWert(Index, Nummer, Feld, Modus, AndererTag, Wert, Typ);
    return Wert;
}

// Records whose values come from few words, so that everything matches something, with tags present, absent
// and empty, letters outside of ASCII and of the code page, and bytes that are no UTF-8.
inline Datensatz ZufälligerSatz(std::mt19937& Zufall) {
    static const std::vector<std::string> Worte = {
        "Abba",   "Gold", "Bach",          "Bachmann",  "bach",       "ÄRGER",    "ärger",   "Жук",
        "7 Tage", "a-b",  "Straße",        "",          "x",          "(17)Rock", "K\u212A", "ÿŸ",
        "1999",   "12",   "Bach Bachmann", "abbA gold", "Haus Bachs", "\u1E9E",   "AB",      "2 000"};
    const auto Würfel = [&](std::size_t Seiten) { return Zufall() % Seiten; };
    const auto Wort = [&] { return Worte[Würfel(Worte.size())]; };
    Datensatz Satz;
    Satz.HatId3v1 = Würfel(2) != 0 ? TagVorhanden : TagFehlt;
    Satz.HatId3v2 = Würfel(2) != 0 ? TagVorhanden : TagFehlt;
    Satz.Interpret = Wort();
    Satz.Titel = Wort();
    Satz.Jahr = Wort();
    Satz.Titelnummer = Wort();
    Satz.V2Interpret = Würfel(3) != 0 ? Satz.Interpret : Wort();
    Satz.V2Titel = Wort() + " " + Wort();
    Satz.V2Jahr = Wort();
    Satz.V2Genre = Wort();
    Satz.Genre = static_cast<std::uint8_t>(Würfel(256));
    Satz.Größe = static_cast<std::int64_t>(Würfel(5)) * 1000;
    Satz.Bitrate = static_cast<std::int32_t>(Würfel(3)) * 128;
    Satz.Dauer = static_cast<std::int32_t>(Würfel(5)) - 1;
    Satz.AbspielDatum = Würfel(2) != 0 ? "01.02.2003 04:05:06" : "";
    Satz.HinzufügeDatum = Würfel(2) != 0 ? "1.2.2003" : "";
    return Satz;
}

inline std::string ZufälligerPfad(std::mt19937& Zufall) {
    static const std::vector<std::string> Pfade = {"C:\\Musik\\Abba\\Gold.mp3", "/musik/\xE4rger/bach.ogg",
                                                   "D:\\Bachmann - x.MP3", "/Жук/ÄRGER", "tmp"};
    return Pfade[Zufall() % Pfade.size()];
}

inline Katalog ZufälligerKatalog(std::mt19937& Zufall, int Anzahl) {
    Katalog Index;
    for (int i = 0; i < Anzahl; ++i)
        SatzAnhängen(Index, ZufälligerPfad(Zufall), ZufälligerSatz(Zufall));
    return Index;
}

}  // namespace liedwerk
