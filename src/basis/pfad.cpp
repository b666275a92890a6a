#include "basis/pfad.h"

#include "basis/text.h"

namespace liedwerk {
namespace {

// Length of the part behind which the file name begins: up to and with the last separator, 0 when there is
// none.
std::size_t NamensAnfang(std::string_view Pfad) {
    // npos + 1 is 0.
    return Pfad.rfind(Trenner(Pfad)) + 1;
}

}  // namespace

bool IstPosixPfad(std::string_view Pfad) {
    return !Pfad.empty() && Pfad.front() == '/';
}

bool IstVollerPfad(std::string_view Pfad) {
    const bool Laufwerk = Pfad.size() > 2 && Pfad[1] == ':' && Pfad[2] == '\\';
    return IstPosixPfad(Pfad) || Laufwerk || Pfad.starts_with("\\\\");
}

char Trenner(std::string_view Pfad) {
    return IstPosixPfad(Pfad) ? '/' : '\\';
}

std::string_view EndungVon(std::string_view Pfad) {
    const std::size_t Punkt = Pfad.rfind('.');
    if (Punkt == std::string_view::npos || Punkt < NamensAnfang(Pfad)) return {};
    return Pfad.substr(Punkt);
}

std::string_view DateiOhneEndung(std::string_view Pfad) {
    return Pfad.substr(0, Pfad.size() - EndungVon(Pfad).size());
}

std::string_view PfadVon(std::string_view Pfad) {
    const std::size_t Anfang = NamensAnfang(Pfad);
    if (Anfang == 0) return {};
    // The root of POSIX paths is its separator.
    if (Anfang == 1 && IstPosixPfad(Pfad)) return Pfad.substr(0, 1);
    return Pfad.substr(0, Anfang - 1);
}

std::string_view DateinameVon(std::string_view Pfad) {
    return Pfad.substr(NamensAnfang(Pfad));
}

std::string PfadVerbinden(std::string_view Ordner, std::string_view Name) {
    const char Zeichen = Trenner(Ordner);
    while (!Name.empty() && Name.front() == Zeichen)
        Name.remove_prefix(1);
    std::string Pfad = MitTrenner(Ordner);
    Pfad += Name;
    return Pfad;
}

std::string MitTrenner(std::string_view Ordner) {
    std::string Ergebnis(Ordner);
    const char Zeichen = Trenner(Ordner);
    if (!Ergebnis.empty() && Ergebnis.back() != Zeichen) Ergebnis += Zeichen;
    return Ergebnis;
}

bool PfadeGleich(std::string_view A, std::string_view B) {
    if (IstPosixPfad(A) || IstPosixPfad(B)) return A == B;
    return GleichOhneGroß(A, B);
}

std::string PfadSchlüssel(std::string_view Pfad) {
    return IstPosixPfad(Pfad) ? std::string(Pfad) : Falten(Pfad);
}

bool HatZeilenende(std::string_view Text) {
    // Two searches for one byte are many times as fast as one for either.
    return Text.find('\n') != std::string_view::npos || Text.find('\r') != std::string_view::npos;
}

}  // namespace liedwerk
