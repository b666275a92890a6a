#include "medien/id3v2moderntext.h"

#include <algorithm>

#include "basis/ansi.h"
#include "basis/text.h"

namespace liedwerk {
namespace {

constexpr char32_t Ersatzzeichen = 0xFFFD;
constexpr char32_t Bytemarke = 0xFEFF;

bool IstHoch(char32_t Wert) {
    return Wert >= 0xD800 && Wert < 0xDC00;
}
bool IstTief(char32_t Wert) {
    return Wert >= 0xDC00 && Wert < 0xE000;
}

char32_t Einheit16(std::string_view Bytes, std::size_t Stelle, bool GroßesEnde) {
    const auto Erstes = static_cast<unsigned char>(Bytes[Stelle]);
    const auto Zweites = static_cast<unsigned char>(Bytes[Stelle + 1]);
    return GroßesEnde ? char32_t{Erstes} << 8U | Zweites : char32_t{Zweites} << 8U | Erstes;
}

std::string Utf16Lesen(std::string_view Bytes, bool GroßesEnde) {
    std::string Text;
    for (std::size_t Stelle = 0; Stelle + 1 < Bytes.size(); Stelle += 2) {
        char32_t Zeichen = Einheit16(Bytes, Stelle, GroßesEnde);
        if (IstHoch(Zeichen) && Stelle + 3 < Bytes.size() &&
            IstTief(Einheit16(Bytes, Stelle + 2, GroßesEnde))) {
            Stelle += 2;
            Zeichen =
                0x10000U + ((Zeichen & 0x3FFU) << 10U) + (Einheit16(Bytes, Stelle, GroßesEnde) & 0x3FFU);
        }
        ZeichenAnhängen(Text, IstHoch(Zeichen) || IstTief(Zeichen) ? Ersatzzeichen : Zeichen);
    }
    return Text;
}

void Einheit16Anhängen(std::string& Bytes, char32_t Einheit, bool GroßesEnde) {
    const auto Hoch = static_cast<char>(Einheit >> 8U & 0xFFU);
    const auto Tief = static_cast<char>(Einheit & 0xFFU);
    Bytes.push_back(GroßesEnde ? Hoch : Tief);
    Bytes.push_back(GroßesEnde ? Tief : Hoch);
}

void Utf16Anhängen(std::string& Bytes, char32_t Zeichen, bool GroßesEnde) {
    if (Zeichen > 0xFFFF) {
        Einheit16Anhängen(Bytes, 0xD800U + ((Zeichen - 0x10000U) >> 10U), GroßesEnde);
        Zeichen = 0xDC00U + (Zeichen & 0x3FFU);
    }
    Einheit16Anhängen(Bytes, Zeichen, GroßesEnde);
}

// Calls Folge with each character; bytes that are no UTF-8 are given as U+FFFD.
template <class Folge>
void ZeichenDurchlaufen(std::string_view Text, Folge&& Nimm) {
    for (std::size_t Stelle = 0; Stelle < Text.size();) {
        const char32_t Zeichen = ZeichenLesen(Text, Stelle);
        Nimm(IstTief(Zeichen) ? Ersatzzeichen : Zeichen);
    }
}

}  // namespace

std::optional<Id3v2Textleser> Id3v2Textleser::Öffnen(std::string_view Inhalt) {
    if (Inhalt.empty() || static_cast<unsigned char>(Inhalt[0]) > 3) return std::nullopt;
    Id3v2Textleser Leser;
    Leser.Kodierung = static_cast<Id3v2Kodierung>(Inhalt[0]);
    Leser.GroßesEnde = Leser.Kodierung == Id3v2Kodierung::Utf16Groß;
    Leser.Bytes = Inhalt.substr(1);
    return Leser;
}

std::size_t Id3v2Textleser::Einheit() const {
    return Id3v2Stringende(Kodierung).size();
}

std::size_t Id3v2Textleser::Stringende() const {
    if (Einheit() == 1) return Bytes.find('\0');
    for (std::size_t Stelle = 0; Stelle + 1 < Bytes.size(); Stelle += 2) {
        if (Bytes[Stelle] == '\0' && Bytes[Stelle + 1] == '\0') return Stelle;
    }
    return std::string_view::npos;
}

bool Id3v2Textleser::NächsterBegrenzt() const {
    return Stringende() != std::string_view::npos;
}

std::string_view Id3v2Textleser::Überspringen(std::size_t Anzahl) {
    const std::string_view Teil = Bytes.substr(0, Anzahl);
    Bytes.remove_prefix(Teil.size());
    return Teil;
}

std::string Id3v2Textleser::Nächster() {
    const std::size_t Ende = Stringende();
    std::string_view Teil = Überspringen(std::min(Ende, Bytes.size()));
    if (Ende != std::string_view::npos) Überspringen(Einheit());
    if (Einheit() == 1) {
        if (Kodierung == Id3v2Kodierung::Einzelbyte || !IstUtf8(Teil)) return AnsiNachUtf8(Teil);
        std::size_t Stelle = 0;
        if (!Teil.empty() && ZeichenLesen(Teil, Stelle) == Bytemarke) Teil.remove_prefix(Stelle);
        return std::string(Teil);
    }
    if (Teil.size() >= 2) {
        const bool Richtig = Einheit16(Teil, 0, GroßesEnde) == Bytemarke;
        const bool Verkehrt = Einheit16(Teil, 0, !GroßesEnde) == Bytemarke;
        if (Verkehrt) GroßesEnde = !GroßesEnde;
        if (Richtig || Verkehrt) Teil.remove_prefix(2);
    }
    return Utf16Lesen(Teil, GroßesEnde);
}

Id3v2Kodierung Id3v2KodierungWählen(std::string_view Text, unsigned Hauptversion) {
    if (IstAscii(Text)) return Id3v2Kodierung::Einzelbyte;
    if (Hauptversion >= 4) return Id3v2Kodierung::Utf8;
    bool Einzelbyte = true;
    // Readers do not agree on the bytes 80 to 9F: some take them for control characters.
    ZeichenDurchlaufen(Text, [&](char32_t Zeichen) {
        if (Zeichen > 0xFF || (Zeichen >= 0x80 && Zeichen < 0xA0)) Einzelbyte = false;
    });
    return Einzelbyte ? Id3v2Kodierung::Einzelbyte : Id3v2Kodierung::Utf16MitMarke;
}

std::string Id3v2TextKodieren(std::string_view Text, Id3v2Kodierung Kodierung) {
    if (Kodierung == Id3v2Kodierung::Einzelbyte) return Utf8NachAnsiErsatz(Text);
    std::string Bytes;
    if (Kodierung == Id3v2Kodierung::Utf16MitMarke) Utf16Anhängen(Bytes, Bytemarke, false);
    ZeichenDurchlaufen(Text, [&](char32_t Zeichen) {
        if (Kodierung == Id3v2Kodierung::Utf8) return ZeichenAnhängen(Bytes, Zeichen);
        Utf16Anhängen(Bytes, Zeichen, Kodierung == Id3v2Kodierung::Utf16Groß);
    });
    return Bytes;
}

std::string_view Id3v2Stringende(Id3v2Kodierung Kodierung) {
    using namespace std::string_view_literals;
    const bool Doppelt = Kodierung == Id3v2Kodierung::Utf16MitMarke || Kodierung == Id3v2Kodierung::Utf16Groß;
    return Doppelt ? "\0\0"sv : "\0"sv;
}

}  // namespace liedwerk
