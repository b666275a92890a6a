#include "suche/vorschlaege.h"

#include <algorithm>

#include "basis/text.h"

namespace liedwerk {
namespace {

// One difference moves a word by one character, of at most four bytes.
constexpr std::size_t HöchsterAbstand = 4;
constexpr int ZuViele = 2;

bool TrenntWörter(char Zeichen) {
    return Zeichen == ' ' || Zeichen == '-';
}

std::u32string ZeichenVon(std::string_view Text) {
    std::u32string Zeichen;
    for (std::size_t Stelle = 0; Stelle < Text.size();)
        Zeichen.push_back(ZeichenLesen(Text, Stelle));
    return Zeichen;
}

// Differences between two words of which the first may be one character longer; counts no further than
// ZuViele. In words of unequal length the longer one is walked, and each difference shifts the shorter one
// against it.
int Unterschiede(std::u32string_view Lang, std::u32string_view Kurz) {
    const bool Schiebt = Lang.size() != Kurz.size();
    std::size_t Versatz = 0;
    int Anzahl = 0;
    for (std::size_t i = 0; i < Lang.size() && Anzahl < ZuViele; ++i) {
        if (i - Versatz < Kurz.size() && Lang[i] == Kurz[i - Versatz]) continue;
        ++Anzahl;
        if (Schiebt) ++Versatz;
    }
    return Anzahl;
}

Ähnlichkeit WörterVergleichen(std::u32string_view Wort, std::u32string_view Gesucht) {
    const std::size_t Länger = std::max(Wort.size(), Gesucht.size());
    const std::size_t Kürzer = std::min(Wort.size(), Gesucht.size());
    if (Länger - Kürzer > 1) return Ähnlichkeit::Keine;
    const int Anzahl =
        Wort.size() >= Gesucht.size() ? Unterschiede(Wort, Gesucht) : Unterschiede(Gesucht, Wort);
    if (Anzahl == 0) return Ähnlichkeit::Stark;
    return Anzahl == 1 && Gesucht.size() > 1 ? Ähnlichkeit::Schwach : Ähnlichkeit::Keine;
}

// Calls Tun with begin and length of each word of a text, empty ones included.
template <class Funktion>
void FürJedesWort(std::string_view Text, Funktion Tun) {
    std::size_t Anfang = 0;
    for (std::size_t i = 0; i <= Text.size(); ++i) {
        if (i < Text.size() && !TrenntWörter(Text[i])) continue;
        Tun(Anfang, i - Anfang);
        Anfang = i + 1;
    }
}

}  // namespace

Ähnlichkeitsmuster::Ähnlichkeitsmuster(std::string_view Text) : Ganz(Falten(Kürzen(Text))) {
    // One difference leaves one half of a text whole.
    const auto HälftenAufnehmen = [this](std::string_view Wort) {
        const std::string_view Hälfte = LinkerTeil(Wort, ZeichenAnzahl(Wort) / 2);
        if (!Hälfte.empty()) Teile.emplace_back(Hälfte);
        Teile.emplace_back(Wort.substr(Hälfte.size()));
    };
    HälftenAufnehmen(Ganz);
    FürJedesWort(Ganz, [&](std::size_t Von, std::size_t Länge) {
        const std::string_view Wort = std::string_view(Ganz).substr(Von, Länge);
        Wörter.push_back(
            {ZeichenVon(Wort), Länge, Wort.empty() ? '\0' : Wort.front(), Wort.empty() ? '\0' : Wort.back()});
        if (Wort.size() < Ganz.size()) HälftenAufnehmen(Wort);
    });
    std::sort(Teile.begin(), Teile.end());
    Teile.erase(std::unique(Teile.begin(), Teile.end()), Teile.end());
    // An empty piece stands everywhere; a piece with a blank is not within a word.
    const auto SagtNichts = [](const std::string& Teil) {
        return Teil.empty() || Teil.find(' ') != std::string::npos;
    };
    if (std::any_of(Teile.begin(), Teile.end(), SagtNichts)) Teile.clear();
}

Ähnlichkeitsmuster::Fund Ähnlichkeitsmuster::WortSuchen(std::string_view Gefaltet) const {
    Fund Letzter;
    std::u32string Zeichen;
    FürJedesWort(Gefaltet, [&](std::size_t Von, std::size_t Länge) {
        const std::string_view Wort = Gefaltet.substr(Von, Länge);
        for (const auto& Gesucht : Wörter) {
            if (Länge > Gesucht.Bytes + HöchsterAbstand || Gesucht.Bytes > Länge + HöchsterAbstand) continue;
            // One difference leaves the first or the last character alone.
            if (Länge > 0 && Gesucht.Bytes > 0 && Wort.front() != Gesucht.Erstes &&
                Wort.back() != Gesucht.Letztes)
                continue;
            Zeichen = ZeichenVon(Wort);
            const Ähnlichkeit Art = WörterVergleichen(Zeichen, Gesucht.Zeichen);
            // Kept: a later word replaces an earlier one, also a weak match a strong one.
            if (Art != Ähnlichkeit::Keine) Letzter = {Art, Von, Länge};
        }
    });
    return Letzter;
}

Ähnlichkeitsmuster::Fund Ähnlichkeitsmuster::RestSuchen(std::string_view Gefaltet) const {
    const std::string_view Anfang = LinkerTeil(Ganz, 2);
    for (std::size_t Von = Gefaltet.find(Anfang); Von != std::string_view::npos;
         Von = Gefaltet.find(Anfang, Von + 1)) {
        std::size_t Stelle = Von;
        std::size_t Gegangen = 0;
        int Anzahl = 0;
        while (Gegangen < Ganz.size() && Anzahl < ZuViele) {
            if (Stelle >= Gefaltet.size()) return {};
            std::size_t Danach = Gegangen;
            if (ZeichenLesen(Gefaltet, Stelle) == ZeichenLesen(Ganz, Danach)) {
                Gegangen = Danach;
            } else {
                ++Anzahl;
            }
        }
        if (Anzahl < ZuViele) return {Ähnlichkeit::Schwach, Von, Gefaltet.size() - Von};
    }
    return {};
}

Ähnlichkeitsmuster::Fund Ähnlichkeitsmuster::Suchen(std::string_view Gefaltet) const {
    const std::string_view Wert = Kürzen(Gefaltet);
    if (Wert.empty() || Ganz.empty()) return {};
    Fund Gefunden = WortSuchen(Wert);
    if (Gefunden.Art == Ähnlichkeit::Keine) Gefunden = RestSuchen(Wert);
    Gefunden.Von += static_cast<std::size_t>(Wert.data() - Gefaltet.data());
    return Gefunden;
}

std::string ÄhnlicheWörter(std::string_view Wert, std::string_view Text, Ähnlichkeit& Art,
                           bool GleichesAusschließen) {
    Art = Ähnlichkeit::Keine;
    if (GleichesAusschließen && GleichOhneGroß(Kürzen(Wert), Kürzen(Text))) return {};
    const std::string Gefaltet = Falten(Wert);
    const auto Gefunden = Ähnlichkeitsmuster(Text).Suchen(Gefaltet);
    Art = Gefunden.Art;
    // Folding may change the bytes of a character, but not the number of characters.
    const std::string_view Form = Gefaltet;
    const std::size_t Von = LinkerTeil(Wert, ZeichenAnzahl(Form.substr(0, Gefunden.Von))).size();
    return std::string(
        LinkerTeil(Wert.substr(Von), ZeichenAnzahl(Form.substr(Gefunden.Von, Gefunden.Länge))));
}

}  // namespace liedwerk
