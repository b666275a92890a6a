#include "plattform/linux/wertdatei.h"

#include <cerrno>
#include <charconv>
#include <chrono>
#include <thread>
#include <utility>
#include <vector>

#include "basis/datei.h"
#include "basis/pfad.h"
#include "basis/text.h"

namespace liedwerk {
namespace {

// No settings come near this; a file beyond it is not ours.
constexpr std::uint64_t HöchsteGröße = 64U << 20U;

bool IstSteuerzeichen(char Byte) {
    const auto Code = static_cast<unsigned char>(Byte);
    return Code < 0x20 || Code == 0x7F;
}

bool IstName(std::string_view Name) {
    if (Name.empty() || std::string_view("#;[ ").find(Name.front()) != std::string_view::npos) return false;
    for (const char Byte : Name) {
        if (Byte == '=' || IstSteuerzeichen(Byte)) return false;
    }
    return Name.back() != ' ';
}

void HexAnhängen(std::string& Ziel, unsigned char Byte) {
    constexpr std::string_view Ziffern = "0123456789abcdef";
    Ziel += "\\x";
    Ziel += Ziffern[Byte >> 4U];
    Ziel += Ziffern[Byte & 0x0FU];
}

std::string TextSchreiben(std::string_view Text) {
    std::string Ziel = "\"";
    for (std::size_t Stelle = 0; Stelle < Text.size();) {
        const std::size_t Anfang = Stelle;
        const char32_t Zeichen = ZeichenLesen(Text, Stelle);
        const char Byte = Text[Anfang];
        const bool Gebrochen = IstBruchbyte(Zeichen);
        if (Byte == '\\' || Byte == '"') {
            Ziel += '\\';
            Ziel += Byte;
        } else if (Byte == '\n' || Byte == '\r') {
            Ziel += Byte == '\n' ? "\\n" : "\\r";
        } else if (Gebrochen || IstSteuerzeichen(Byte)) {
            HexAnhängen(Ziel, static_cast<unsigned char>(Byte));
        } else {
            Ziel += Text.substr(Anfang, Stelle - Anfang);
        }
    }
    return Ziel + '"';
}

// The byte behind "\x" at Stelle, which moves behind its two digits.
std::optional<char> HexLesen(std::string_view Text, std::size_t& Stelle) {
    if (Stelle + 2 > Text.size()) return std::nullopt;
    unsigned Code = 0;
    const char* Ende = Text.data() + Stelle + 2;
    const auto [Bis, Fehler] = std::from_chars(Text.data() + Stelle, Ende, Code, 16);
    if (Fehler != std::errc() || Bis != Ende) return std::nullopt;
    Stelle += 2;
    return static_cast<char>(Code);
}

// The text between two quotes; nothing when an escape is broken or a quote stands unescaped.
std::optional<std::string> TextLesen(std::string_view Roh) {
    std::string Text;
    for (std::size_t Stelle = 0; Stelle < Roh.size();) {
        const char Byte = Roh[Stelle++];
        if (Byte == '"') return std::nullopt;
        if (Byte != '\\') {
            Text += Byte;
            continue;
        }
        if (Stelle == Roh.size()) return std::nullopt;
        switch (const char Art = Roh[Stelle++]) {
            case '\\':
            case '"':
                Text += Art;
                break;
            case 'n':
                Text += '\n';
                break;
            case 'r':
                Text += '\r';
                break;
            case 'x': {
                const auto Hex = HexLesen(Roh, Stelle);
                if (!Hex) return std::nullopt;
                Text += *Hex;
                break;
            }
            default:
                return std::nullopt;
        }
    }
    return Text;
}

std::optional<Speicherwert> WertAusText(std::string_view Roh) {
    if (Roh.size() >= 2 && Roh.front() == '"' && Roh.back() == '"') {
        auto Text = TextLesen(Roh.substr(1, Roh.size() - 2));
        return Text ? std::optional<Speicherwert>(std::move(*Text)) : std::nullopt;
    }
    std::int32_t Zahl = 0;
    const char* Ende = Roh.data() + Roh.size();
    const auto [Bis, Fehler] = std::from_chars(Roh.data(), Ende, Zahl);
    if (Roh.empty() || Fehler != std::errc() || Bis != Ende) return std::nullopt;
    return Speicherwert(Zahl);
}

std::string WertZeile(std::string_view Name, const Speicherwert& Inhalt) {
    std::string Zeile(Name);
    Zeile += '=';
    if (const auto* Text = std::get_if<std::string>(&Inhalt)) return Zeile + TextSchreiben(*Text);
    return Zeile + std::to_string(std::get<std::int32_t>(Inhalt));
}

// The name of a line and its value; nothing for a line that is none of ours.
std::optional<std::pair<std::string_view, Speicherwert>> ZeileLesen(std::string_view Zeile) {
    if (!Zeile.empty() && Zeile.back() == '\r') Zeile.remove_suffix(1);
    const std::size_t Gleich = Zeile.find('=');
    if (Gleich == std::string_view::npos) return std::nullopt;
    const auto Name = Kürzen(Zeile.substr(0, Gleich));
    if (!IstName(Name)) return std::nullopt;
    auto Inhalt = WertAusText(Kürzen(Zeile.substr(Gleich + 1)));
    if (!Inhalt) return std::nullopt;
    return std::pair(Name, std::move(*Inhalt));
}

struct Inhalt {
    std::vector<std::string> Zeilen;
    std::string Fehler;
};

Inhalt DateiZeilenLesen(const std::string& Pfad) {
    Inhalt Ergebnis;
    Dateifehler Fehler;
    const Lesedatei Datei = Lesedatei::Öffnen(Pfad, &Fehler);
    if (!Datei.Offen()) {
        if (Fehler.Nummer != ENOENT) Ergebnis.Fehler = Fehler.Text;
        return Ergebnis;
    }
    if (Datei.Größe() > HöchsteGröße) {
        Ergebnis.Fehler = "Die Datei ist zu groß für eine Datei mit Einstellungen";
        return Ergebnis;
    }
    std::string Text = Datei.Lesen(0, Datei.Größe());
    if (Text.size() != Datei.Größe()) {
        Ergebnis.Fehler = "Die Datei kann nicht ganz gelesen werden";
        return Ergebnis;
    }
    if (Text.empty()) return Ergebnis;
    if (Text.back() == '\n') Text.pop_back();
    Ergebnis.Zeilen = Teilen(Text, "\n");
    return Ergebnis;
}

// Puts the changes into the lines: in place of the line that counts, else at the end.
void Einarbeiten(std::vector<std::string>& Zeilen,
                 const std::map<std::string, std::optional<Speicherwert>, std::less<>>& Änderungen) {
    std::map<std::string, std::size_t, std::less<>> Geltende;
    std::vector<bool> Entfällt(Zeilen.size(), false);
    for (std::size_t Nummer = 0; Nummer < Zeilen.size(); ++Nummer) {
        const auto Gelesen = ZeileLesen(Zeilen[Nummer]);
        if (!Gelesen) continue;
        const auto Änderung = Änderungen.find(Gelesen->first);
        if (Änderung == Änderungen.end()) continue;
        Entfällt[Nummer] = true;
        Geltende[Änderung->first] = Nummer;
    }
    std::vector<std::string> Hinten;
    for (const auto& [Name, Neu] : Änderungen) {
        if (!Neu) continue;
        const auto Fund = Geltende.find(Name);
        if (Fund == Geltende.end()) {
            Hinten.push_back(WertZeile(Name, *Neu));
        } else {
            Zeilen[Fund->second] = WertZeile(Name, *Neu);
            Entfällt[Fund->second] = false;
        }
    }
    std::vector<std::string> Ergebnis;
    for (std::size_t Nummer = 0; Nummer < Zeilen.size(); ++Nummer) {
        if (!Entfällt[Nummer]) Ergebnis.push_back(std::move(Zeilen[Nummer]));
    }
    Ergebnis.insert(Ergebnis.end(), Hinten.begin(), Hinten.end());
    Zeilen = std::move(Ergebnis);
}

// Takes the temporary file; another program's save is over in a moment, so it is worth a short wait.
Dateiersatz::Öffnung Sperren(Dateiersatz& Ersatz, const std::string& Pfad) {
    constexpr int Versuche = 40;
    constexpr std::chrono::milliseconds Pause(25);
    for (int Nummer = 1;; ++Nummer) {
        const auto Zustand = Ersatz.Öffnen(Pfad, VorläufigerName(Pfad), {}, Zugang::NurEigener);
        if (Zustand != Dateiersatz::Öffnung::Gesperrt || Nummer == Versuche) return Zustand;
        std::this_thread::sleep_for(Pause);
    }
}

}  // namespace

Wertdatei::Wertdatei(std::string Pfad) : Datei(std::move(Pfad)) {
    auto Gelesen = DateiZeilenLesen(Datei);
    Ladefehler = std::move(Gelesen.Fehler);
    for (const auto& Zeile : Gelesen.Zeilen) {
        if (auto Paar = ZeileLesen(Zeile)) Bekannt[std::string(Paar->first)] = std::move(Paar->second);
    }
}

std::optional<Speicherwert> Wertdatei::Lesen(std::string_view Name) const {
    const auto Fund = Bekannt.find(Name);
    return Fund == Bekannt.end() ? std::nullopt : std::optional<Speicherwert>(Fund->second);
}

void Wertdatei::Schreiben(std::string_view Name, const Speicherwert& Neu) {
    if (IstName(Name)) Ändern(Name, Neu);
}

void Wertdatei::Löschen(std::string_view Name) {
    Ändern(Name, std::nullopt);
}

void Wertdatei::Ändern(std::string_view Name, std::optional<Speicherwert> Neu) {
    // What stays as it was read here is no change of ours, though another program may have changed it since.
    if (Lesen(Name) == Neu) return;
    const std::string Schlüssel(Name);
    if (Neu) {
        Bekannt[Schlüssel] = *Neu;
    } else {
        Bekannt.erase(Schlüssel);
    }
    Änderungen[Schlüssel] = std::move(Neu);
}

std::string Wertdatei::Sichern() {
    if (Änderungen.empty()) return {};
    const auto Meldung = [&](std::string_view Grund) {
        return "Die Einstellungen konnten nicht in der Datei '" + Datei +
               "' gespeichert werden: " + std::string(Grund) + ".";
    };
    if (const auto Fehler = OrdnerAnlegen(PfadVon(Datei), Zugang::NurEigener)) return Meldung(Fehler.Text);
    Dateiersatz Ersatz;
    switch (Sperren(Ersatz, Datei)) {
        case Dateiersatz::Öffnung::Gesperrt:
            return Meldung("Sie wird gerade von einem anderen Programm geschrieben");
        case Dateiersatz::Öffnung::Fehler:
            return Meldung(Ersatz.Fehler().Text);
        case Dateiersatz::Öffnung::Bereit:
            break;
    }
    // Read under the lock, so that no other writer's values fall between reading and writing.
    auto Stand = DateiZeilenLesen(Datei);
    if (!Stand.Fehler.empty()) return Meldung(Stand.Fehler);
    Einarbeiten(Stand.Zeilen, Änderungen);
    for (const auto& Zeile : Stand.Zeilen) {
        Ersatz.Schreiben(Zeile);
        Ersatz.Schreiben("\n");
    }
    if (!Ersatz.Übernehmen()) return Meldung(Ersatz.Fehler().Text);
    Ladefehler.clear();
    Änderungen.clear();
    return {};
}

}  // namespace liedwerk
