#include "werkzeuge/befehlsbild.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <sstream>

#include "basis/text.h"
#include "ui/text/befehle.h"

namespace liedwerk {
namespace {

constexpr std::string_view Optionskopf = "Globale Optionen:\n";
constexpr std::string_view Befehlskopf = "\nBefehle:\n";

// The words of a usage line without its brackets, quotes and dots.
std::vector<std::string> Wörter(std::string_view Zeile) {
    std::string Glatt;
    for (const char Zeichen : Zeile) {
        if (Zeichen != '[' && Zeichen != ']' && Zeichen != '"') Glatt += Zeichen;
    }
    std::vector<std::string> Ergebnis;
    std::istringstream Strom(Glatt);
    for (std::string Wort; Strom >> Wort;) {
        if (Wort.size() > 3 && Wort.ends_with("...")) Wort.resize(Wort.size() - 3);
        if (Wort != "...") Ergebnis.push_back(Wort);
    }
    return Ergebnis;
}

bool HatGroßbuchstaben(std::string_view Text) {
    return std::any_of(Text.begin(), Text.end(),
                       [](char Zeichen) { return std::isupper(static_cast<unsigned char>(Zeichen)) != 0; });
}

// "0..9" as its numbers; nothing for any other text.
std::vector<std::string> Zahlenbereich(std::string_view Text) {
    const std::size_t Punkte = Text.find("..");
    int Von = 0;
    int Bis = 0;
    if (Punkte == std::string_view::npos) return {};
    const auto Links = std::from_chars(Text.data(), Text.data() + Punkte, Von);
    const auto Rechts = std::from_chars(Text.data() + Punkte + 2, Text.data() + Text.size(), Bis);
    if (Links.ec != std::errc() || Rechts.ec != std::errc()) return {};
    std::vector<std::string> Zahlen;
    for (; Von <= Bis; ++Von)
        Zahlen.push_back(std::to_string(Von));
    return Zahlen;
}

// What a usage line calls a value by, as what may be typed there. Text may hold blanks ("position S|ende").
Wertbild WertDeuten(const std::string& Text) {
    Wertbild Bild{.Art = Wertart::Frei, .Name = Text, .Auswahl = Zahlenbereich(Text)};
    const bool Feststehend = Text.find('|') != std::string::npos && !HatGroßbuchstaben(Text.substr(0, 1));
    if (Feststehend) {
        for (const std::string& Teil : Teilen(Text, "|"))
            Bild.Auswahl.push_back(Teil.substr(0, Teil.find(' ')));
    }
    if (!Bild.Auswahl.empty()) Bild.Art = Wertart::Auswahl;
    if (Text == "DATEI" || Text == "PFAD" || Text == "ZIEL" || Text == "LAUFWERK") Bild.Art = Wertart::Datei;
    if (Text == "ORDNER") Bild.Art = Wertart::Ordner;
    if (Text == "FELD" || Text.starts_with("K1")) Bild.Art = Wertart::Feldname;
    return Bild;
}

Befehlsbild Lesen(const Befehl& Eintrag) {
    Befehlsbild Bild{.Name = std::string(Eintrag.Name),
                     .Hilfe = std::string(Eintrag.Hilfe),
                     .Optionen = {},
                     .Argument = {}};
    for (const Optionsform& Form : Eintrag.Optionen)
        Bild.Optionen.push_back({std::string(Form.Name), Form.MitWert, {}});
    std::string Argumente;
    Optionsbild* Offene = nullptr;
    auto Alle = Wörter(Eintrag.Aufruf);
    Alle.erase(Alle.begin());  // the command's own name
    for (const std::string& Wort : Alle) {
        const auto Option = std::find_if(Bild.Optionen.begin(), Bild.Optionen.end(),
                                         [&Wort](const Optionsbild& Eine) { return Eine.Name == Wort; });
        if (Offene != nullptr) {
            Offene->Wert = WertDeuten(Wort);
            const bool NenntFelder = Offene->Name.starts_with("--feld") || Offene->Name == "--spalten";
            if (NenntFelder) Offene->Wert.Art = Wertart::Feldname;
            Offene = nullptr;
        } else if (Option != Bild.Optionen.end()) {
            if (Option->MitWert) Offene = &*Option;
        } else {
            Argumente += (Argumente.empty() ? "" : " ") + Wort;
        }
    }
    // Words to choose from may have a value behind them, so they are read from the whole; else the first
    // argument tells.
    const bool Auswahl = Argumente.find('|') != std::string::npos;
    Bild.Argument = WertDeuten(Auswahl ? Argumente : Argumente.substr(0, Argumente.find(' ')));
    return Bild;
}

Befehlsbild GlobaleLesen() {
    const std::string Ganz = Hilfetext();
    const std::size_t Anfang = Ganz.find(Optionskopf) + Optionskopf.size();
    Befehlsbild Bild{.Name = {},
                     .Hilfe = Ganz.substr(Anfang, Ganz.find(Befehlskopf) - Anfang),
                     .Optionen = {},
                     .Argument = {}};
    for (const auto& [Begriff, Erklärung] : HilfeZerlegen(Bild.Hilfe)) {
        // "--ja, --nein" are two options, "--index DATEI" is one with a value, "--" is none.
        for (const std::string& Teil : Teilen(Begriff, ", ")) {
            const auto Stücke = Wörter(Teil);
            if (Stücke.empty() || Stücke.front() == "--") continue;
            const bool MitWert = Stücke.size() > 1;
            Bild.Optionen.push_back({Stücke.front(), MitWert, MitWert ? WertDeuten(Stücke[1]) : Wertbild{}});
        }
    }
    return Bild;
}

}  // namespace

std::vector<Befehlsbild> BefehlsbilderLesen() {
    std::vector<Befehlsbild> Bilder = {GlobaleLesen()};
    for (const Befehl& Eintrag : Befehle())
        Bilder.push_back(Lesen(Eintrag));
    return Bilder;
}

std::vector<std::pair<std::string, std::string>> HilfeZerlegen(std::string_view Hilfe) {
    // A line that begins farther right goes on with the explanation above.
    constexpr std::size_t Fortsetzung = 8;
    std::vector<std::pair<std::string, std::string>> Absätze;
    for (const std::string& Zeile : Teilen(Hilfe, "\n")) {
        const std::size_t Anfang = Zeile.find_first_not_of(' ');
        if (Anfang == std::string::npos) continue;
        if (Anfang == 0) {
            Absätze.emplace_back("", Zeile);
        } else if (Anfang >= Fortsetzung && !Absätze.empty()) {
            Absätze.back().second += " " + Zeile.substr(Anfang);
        } else {
            // The explanation stands behind two blanks, behind one where the name is long.
            std::size_t Lücke = Zeile.find("  ", Anfang);
            if (Lücke == std::string::npos) Lücke = Zeile.find(' ', Anfang);
            const std::size_t Text = Zeile.find_first_not_of(' ', Lücke);
            Absätze.emplace_back(Zeile.substr(Anfang, Lücke - Anfang),
                                 Text == std::string::npos ? "" : Zeile.substr(Text));
        }
    }
    return Absätze;
}

}  // namespace liedwerk
