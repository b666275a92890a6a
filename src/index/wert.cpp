#include "index/wert.h"

#include <optional>

#include "basis/ansi.h"
#include "basis/text.h"

namespace liedwerk {
namespace {

// The Windows-1252 bytes of a text when they would be read as that text again.
//
// Bytes that begin with the mark are read as raw exactly when what stands behind it is not written plainly;
// so the question for a text whose bytes begin with the mark is the same question for the rest of these
// bytes. Each round needs a text twice as long in front of it, so there are few.
std::optional<std::string> EinfacheForm(std::string_view Text) {
    auto Bytes = Utf8NachAnsi(Text);
    if (!Bytes) return std::nullopt;
    std::optional<std::string> Rest = Bytes;
    while (Rest->starts_with(IndexwertRohmarke)) {
        Rest = Utf8NachAnsi(std::string_view(*Rest).substr(IndexwertRohmarke.size()));
        if (!Rest) return std::nullopt;
    }
    return Bytes;
}

bool IstRoh(std::string_view Bytes) {
    return Bytes.starts_with(IndexwertRohmarke) && !EinfacheForm(Bytes.substr(IndexwertRohmarke.size()));
}

void ZeilenendenErsetzen(std::string& Bytes) {
    for (char& Byte : Bytes) {
        if (Byte == '\r' || Byte == '\n') Byte = ' ';
    }
}

}  // namespace

std::string IndexwertSchreiben(std::string_view Text) {
    if (IstAscii(Text)) return std::string(Text);
    if (auto Bytes = EinfacheForm(Text)) return *std::move(Bytes);
    std::string Roh(IndexwertRohmarke);
    Roh += Text;
    return Roh;
}

std::string IndexwertLesen(std::string_view Bytes) {
    std::string Text;
    IndexwertLesenAnhängen(Text, Bytes);
    return Text;
}

void IndexwertLesenAnhängen(std::string& Ziel, std::string_view Bytes) {
    if (IstAscii(Bytes)) {
        Ziel += Bytes;
    } else if (IstRoh(Bytes)) {
        Ziel += Bytes.substr(IndexwertRohmarke.size());
    } else {
        AnsiNachUtf8Anhängen(Ziel, Bytes);
    }
}

std::string EinzeiligerIndexwert(std::string_view Text) {
    std::string Bytes = IndexwertSchreiben(Text);
    ZeilenendenErsetzen(Bytes);
    return Bytes;
}

std::string IndexwertEinpassen(std::string_view Bytes, std::size_t Höchstens) {
    std::string Wert(Bytes);
    if (Bytes.size() > Höchstens) {
        if (IstRoh(Bytes)) {
            std::string_view Text =
                Bytes.substr(IndexwertRohmarke.size(), Höchstens - IndexwertRohmarke.size());
            // Not through the middle of a character.
            const auto IstFolgebyte = [](char Byte) { return (Byte & 0xC0) == 0x80; };
            if (IstFolgebyte(Bytes[Höchstens])) {
                while (!Text.empty() && IstFolgebyte(Text.back()))
                    Text.remove_suffix(1);
                if (!Text.empty()) Text.remove_suffix(1);
            }
            Wert = IndexwertSchreiben(Text);
        } else {
            Wert.resize(Höchstens);
            // The cut may have made it look like raw bytes: then it has to be told apart the other way.
            if (IstRoh(Wert)) return IndexwertEinpassen(IndexwertSchreiben(AnsiNachUtf8(Wert)), Höchstens);
        }
    }
    ZeilenendenErsetzen(Wert);
    return Wert;
}

}  // namespace liedwerk
