#include "haerte/namen/urteil.h"

#include <algorithm>
#include <cstdint>

namespace liedwerk::haerte {
namespace {

// The next character; nothing for broken bytes.
std::optional<std::uint32_t> Zeichen(std::string_view Text, std::size_t& Stelle) {
    const auto Erstes = static_cast<unsigned char>(Text[Stelle++]);
    if (Erstes < 0x80) return Erstes;
    const int Folgende = Erstes >= 0xF0 ? 3 : Erstes >= 0xE0 ? 2 : 1;
    if (Erstes < 0xC2 || Erstes > 0xF4) return std::nullopt;
    std::uint32_t Zahl = Erstes & (0x3FU >> Folgende);
    for (int Mal = 0; Mal < Folgende; ++Mal) {
        if (Stelle >= Text.size()) return std::nullopt;
        const auto Byte = static_cast<unsigned char>(Text[Stelle++]);
        if ((Byte & 0xC0U) != 0x80) return std::nullopt;
        Zahl = Zahl << 6U | (Byte & 0x3FU);
    }
    constexpr std::uint32_t Kleinste[] = {0, 0x80, 0x800, 0x10000};
    const bool Gut = Zahl >= Kleinste[Folgende] && Zahl <= 0x10FFFF && !(Zahl >= 0xD800 && Zahl <= 0xDFFF);
    return Gut ? std::optional(Zahl) : std::nullopt;
}

// A strict reader of JSON (RFC 8259) that keeps nothing but a count.
class Json {
  public:
    explicit Json(std::string_view Ganzes) : Text(Ganzes) {}
    std::optional<std::size_t> Lesen() {
        std::size_t Einträge = 0;
        if (!Wert(0, Einträge)) return std::nullopt;
        Blanks();
        return Stelle == Text.size() ? std::optional(Einträge) : std::nullopt;
    }

  private:
    static constexpr int Tiefste = 20;
    char Jetzt() const { return Stelle < Text.size() ? Text[Stelle] : '\0'; }
    void Blanks() {
        while (Jetzt() != '\0' && std::string_view(" \t\r\n").find(Jetzt()) != std::string_view::npos)
            ++Stelle;
    }
    bool Nimm(char Was) {
        Blanks();
        if (Jetzt() != Was) return false;
        ++Stelle;
        return true;
    }
    bool Ziffern() {
        const std::size_t Anfang = Stelle;
        while (Jetzt() >= '0' && Jetzt() <= '9')
            ++Stelle;
        return Stelle > Anfang;
    }
    bool Zahl() {
        if (Jetzt() == '-') ++Stelle;
        if (Jetzt() == '0') {
            ++Stelle;
        } else if (!Ziffern()) {
            return false;
        }
        if (Jetzt() == '.' && (++Stelle, !Ziffern())) return false;
        if (Jetzt() != 'e' && Jetzt() != 'E') return true;
        ++Stelle;
        if (Jetzt() == '+' || Jetzt() == '-') ++Stelle;
        return Ziffern();
    }
    bool Zeichenfolge() {
        if (!Nimm('"')) return false;
        while (Stelle < Text.size() && Text[Stelle] != '"') {
            const auto Byte = static_cast<unsigned char>(Text[Stelle++]);
            if (Byte < 0x20) return false;
            if (Byte != '\\') continue;
            const char Art = Jetzt();
            ++Stelle;
            if (Art == 'u') {
                for (int Mal = 0; Mal < 4; ++Mal, ++Stelle)
                    if (std::string_view("0123456789abcdefABCDEF").find(Jetzt()) == std::string_view::npos)
                        return false;
            } else if (Art == '\0' || std::string_view("\"\\/bfnrt").find(Art) == std::string_view::npos) {
                return false;
            }
        }
        return Nimm('"');
    }
    template <class Eintrag>
    bool Folge(char Ende, std::size_t& Einträge, Eintrag&& Einer) {
        ++Stelle;
        if (Nimm(Ende)) return true;
        do {
            if (!Einer()) return false;
            ++Einträge;
        } while (Nimm(','));
        return Nimm(Ende);
    }
    bool Wert(int Tiefe, std::size_t& Einträge) {
        Blanks();
        if (Tiefe > Tiefste) return false;
        std::size_t Innere = 0;
        if (Jetzt() == '[') return Folge(']', Einträge, [&] { return Wert(Tiefe + 1, Innere); });
        if (Jetzt() == '{')
            return Folge('}', Einträge,
                         [&] { return Zeichenfolge() && Nimm(':') && Wert(Tiefe + 1, Innere); });
        if (Jetzt() == '"') return Zeichenfolge();
        for (const std::string_view Wort : {"true", "false", "null"}) {
            if (!Text.substr(Stelle).starts_with(Wort)) continue;
            Stelle += Wort.size();
            return true;
        }
        return Zahl();
    }

    std::string_view Text;
    std::size_t Stelle = 0;
};

bool IstZahl(std::string_view Wert) {
    return Wert.size() > 1 && Wert.substr(1).find_first_not_of("0123456789.,") == std::string_view::npos;
}

}  // namespace

bool GültigesUtf8(std::string_view Text) {
    for (std::size_t Stelle = 0; Stelle < Text.size();)
        if (!Zeichen(Text, Stelle)) return false;
    return true;
}

std::string Terminalbefehl(std::string_view Text) {
    for (std::size_t Stelle = 0; Stelle < Text.size();) {
        const std::size_t Anfang = Stelle;
        const auto Eines = Zeichen(Text, Stelle);
        const std::string Wo = " an Stelle " + std::to_string(Anfang);
        if (!Eines) return "ungültiges UTF-8" + Wo;
        const bool Steuert = (*Eines < 0x20 && *Eines != '\n') || (*Eines >= 0x7F && *Eines < 0xA0) ||
                             (*Eines >= 0x200E && *Eines <= 0x200F) ||
                             (*Eines >= 0x2028 && *Eines <= 0x202E) || (*Eines >= 0x2066 && *Eines <= 0x2069);
        if (Steuert) return "Steuerzeichen " + std::to_string(*Eines) + Wo;
    }
    return {};
}

std::optional<std::size_t> JsonEinträge(std::string_view Text) {
    return GültigesUtf8(Text) ? Json(Text).Lesen() : std::nullopt;
}

std::optional<std::vector<std::vector<std::string>>> CsvLesen(std::string_view Text, char Trenner) {
    std::vector<std::vector<std::string>> Alle;
    while (!Text.empty()) {
        std::vector<std::string> Satz;
        for (bool Weiter = true; Weiter;) {
            std::string Feld;
            if (Text.starts_with('"')) {
                for (Text.remove_prefix(1);; Text.remove_prefix(1)) {
                    if (Text.empty()) return std::nullopt;
                    if (Text.starts_with('"')) {
                        Text.remove_prefix(1);
                        if (!Text.starts_with('"')) break;
                    }
                    Feld += Text.front();
                }
            } else {
                const std::size_t Ende =
                    std::min(Text.find_first_of("\"\r\n" + std::string(1, Trenner)), Text.size());
                Feld = Text.substr(0, Ende);
                Text.remove_prefix(Ende);
            }
            Satz.push_back(std::move(Feld));
            Weiter = Text.starts_with(Trenner);
            if (Weiter) Text.remove_prefix(1);
        }
        if (!Text.starts_with("\r\n")) return std::nullopt;
        Text.remove_prefix(2);
        Alle.push_back(std::move(Satz));
    }
    return Alle;
}

bool IstFormel(std::string_view Wert) {
    return !Wert.empty() && std::string_view("=+-@\t\r").find(Wert.front()) != std::string_view::npos &&
           !(Wert.front() != '=' && IstZahl(Wert));
}

std::vector<std::string> Zeilen(std::string_view Text) {
    std::vector<std::string> Alle;
    while (!Text.empty()) {
        const std::size_t Ende = std::min(Text.find_first_of("\r\n"), Text.size());
        Alle.emplace_back(Text.substr(0, Ende));
        const bool Beide = Text.substr(Ende).starts_with("\r\n");
        Text.remove_prefix(std::min(Ende + (Beide ? 2 : 1), Text.size()));
    }
    return Alle;
}

std::size_t Anzahl(std::string_view Text, std::string_view Was) {
    std::size_t Male = 0;
    for (std::size_t Stelle = Text.find(Was); Stelle != std::string_view::npos;
         Stelle = Text.find(Was, Stelle + 1))
        ++Male;
    return Male;
}

}  // namespace liedwerk::haerte
