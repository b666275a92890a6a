#include "ui/text/ausgabe.h"

#include <algorithm>
#include <array>
#include <utility>

#include "basis/steuerzeichen.h"
#include "basis/text.h"

namespace liedwerk {
namespace {

constexpr std::size_t Stückgröße = 1 << 16;
constexpr std::size_t ZeilenVorschau = 1000;
constexpr std::size_t HöchsteBreite = 50;

struct Zeichenbereich {
    char32_t Von;
    char32_t Bis;
};

// Combining marks and other characters without a width (Unicode 15, the blocks that occur in names).
constexpr std::array<Zeichenbereich, 7> OhneBreite = {{{0x300, 0x36F},
                                                       {0x1AB0, 0x1AFF},
                                                       {0x1DC0, 0x1DFF},
                                                       {0x200B, 0x200D},
                                                       {0x20D0, 0x20FF},
                                                       {0xFE00, 0xFE0F},
                                                       {0xFE20, 0xFE2F}}};
// Characters of two columns (Unicode 15, East Asian Width W and F, as blocks).
constexpr std::array<Zeichenbereich, 10> Doppelbreit = {{{0x1100, 0x115F},
                                                         {0x2E80, 0x303E},
                                                         {0x3041, 0x4DBF},
                                                         {0x4E00, 0xA4CF},
                                                         {0xAC00, 0xD7A3},
                                                         {0xF900, 0xFAFF},
                                                         {0xFE30, 0xFE6F},
                                                         {0xFF00, 0xFF60},
                                                         {0x1F300, 0x1FAFF},
                                                         {0x20000, 0x3FFFD}}};
template <std::size_t Anzahl>
bool Enthält(const std::array<Zeichenbereich, Anzahl>& Bereiche, char32_t Zeichen) {
    return std::any_of(Bereiche.begin(), Bereiche.end(), [Zeichen](const Zeichenbereich& Bereich) {
        return Zeichen >= Bereich.Von && Zeichen <= Bereich.Bis;
    });
}

std::string Hexzahl(char32_t Zahl, int Stellen) {
    constexpr std::string_view Ziffern = "0123456789ABCDEF";
    std::string Text;
    for (int Stelle = Stellen - 1; Stelle >= 0; --Stelle)
        Text += Ziffern[(Zahl >> (4 * Stelle)) & 15];
    return Text;
}

void SichtbarAnhängen(std::string& Ziel, char32_t Zeichen) {
    if (Zeichen < 0x20) {
        ZeichenAnhängen(Ziel, 0x2400 + Zeichen);  // the pictures of the control characters
    } else if (Zeichen == 0x7F) {
        ZeichenAnhängen(Ziel, 0x2421);
    } else if ((Zeichen >= 0x80 && Zeichen < 0xA0) || IstBruchbyte(Zeichen)) {
        Ziel += "\\x" + Hexzahl(Zeichen & 0xFF, 2);
    } else if (IstSteuerzeichen(Zeichen)) {
        Ziel += "\\u" + Hexzahl(Zeichen, 4);
    } else {
        ZeichenAnhängen(Ziel, Zeichen);
    }
}

}  // namespace

void Ausgabe::Schreiben(std::string_view Bytes) {
    Puffer += Bytes;
    if (Puffer.size() >= Stückgröße) Fertig();
}

bool Ausgabe::Fertig() {
    if (!Puffer.empty() && std::fwrite(Puffer.data(), 1, Puffer.size(), Strom) != Puffer.size())
        Gelungen = false;
    Puffer.clear();
    if (std::fflush(Strom) != 0) Gelungen = false;
    return Gelungen;
}

std::string Sichtbar(std::string_view Text, bool MitZeilen) {
    std::string Ergebnis;
    Ergebnis.reserve(Text.size());
    for (std::size_t Stelle = 0; Stelle < Text.size();) {
        const char32_t Zeichen = ZeichenLesen(Text, Stelle);
        if (MitZeilen && Zeichen == '\n') {
            Ergebnis += '\n';
        } else {
            SichtbarAnhängen(Ergebnis, Zeichen);
        }
    }
    return Ergebnis;
}

std::size_t Anzeigebreite(std::string_view Text) {
    std::size_t Breite = 0;
    for (std::size_t Stelle = 0; Stelle < Text.size();) {
        const char32_t Zeichen = ZeichenLesen(Text, Stelle);
        if (Zeichen < 0x300) {
            ++Breite;
        } else if (!Enthält(OhneBreite, Zeichen)) {
            Breite += Enthält(Doppelbreit, Zeichen) ? 2 : 1;
        }
    }
    return Breite;
}

Tabelle::Tabelle(Ausgabe& Wohin, std::vector<std::string> Köpfe) : Ziel(Wohin), Breiten(Köpfe.size(), 0) {
    Zeile(std::move(Köpfe));
}

void Tabelle::Zeile(std::vector<std::string> Werte) {
    for (auto& Text : Werte)
        Text = Sichtbar(Text);
    if (Läuft) {
        ZeileSchreiben(Werte);
        return;
    }
    for (std::size_t i = 0; i < Breiten.size(); ++i)
        Breiten[i] = std::max(Breiten[i], std::min(Anzeigebreite(Werte[i]), HöchsteBreite));
    Wartende.push_back(std::move(Werte));
    if (Wartende.size() > ZeilenVorschau) Fertig();
}

void Tabelle::Fertig() {
    Läuft = true;
    for (const auto& Werte : Wartende)
        ZeileSchreiben(Werte);
    Wartende.clear();
}

void Tabelle::ZeileSchreiben(const std::vector<std::string>& Werte) {
    std::string Text;
    for (std::size_t i = 0; i < Werte.size(); ++i) {
        Text += Werte[i];
        const std::size_t Breite = Anzeigebreite(Werte[i]);
        // Nothing follows the last column, so it needs no padding.
        if (i + 1 < Werte.size()) Text.append((Breite < Breiten[i] ? Breiten[i] - Breite : 0) + 2, ' ');
    }
    Ziel.Schreiben(RechtsKürzen(Text));
    Ziel.Schreiben("\n");
}

}  // namespace liedwerk
