#include "index/wert.h"

#include <optional>

#include "basis/ansi.h"
#include "basis/text.h"

namespace liedwerk {
namespace {

constexpr std::string_view Rohmarke = "\xEF\xBB\xBF";

// The Windows-1252 bytes of a text when they would be read as that text again.
//
// Bytes that begin with the mark are read as raw exactly when what stands behind it is not written plainly;
// so the question for a text whose bytes begin with the mark is the same question for the rest of these
// bytes. Each round needs a text twice as long in front of it, so there are few.
std::optional<std::string> EinfacheForm(std::string_view Text) {
    auto Bytes = Utf8NachAnsi(Text);
    if (!Bytes) return std::nullopt;
    std::optional<std::string> Rest = Bytes;
    while (Rest->starts_with(Rohmarke)) {
        Rest = Utf8NachAnsi(std::string_view(*Rest).substr(Rohmarke.size()));
        if (!Rest) return std::nullopt;
    }
    return Bytes;
}

bool IstRoh(std::string_view Bytes) {
    return Bytes.starts_with(Rohmarke) && !EinfacheForm(Bytes.substr(Rohmarke.size()));
}

}  // namespace

std::string IndexwertSchreiben(std::string_view Text) {
    if (IstAscii(Text)) return std::string(Text);
    if (auto Bytes = EinfacheForm(Text)) return *std::move(Bytes);
    std::string Roh(Rohmarke);
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
        Ziel += Bytes.substr(Rohmarke.size());
    } else {
        Ziel += AnsiNachUtf8(Bytes);
    }
}

}  // namespace liedwerk
