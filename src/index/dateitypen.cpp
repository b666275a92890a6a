#include "index/dateitypen.h"

#include <algorithm>

#include "basis/pfad.h"
#include "basis/text.h"

namespace liedwerk {
namespace {

// What the flags of a matching entry say to the four wishes, in the order that decides.
bool SchalterErlauben(std::string_view Schalter, bool NurMpeg, bool NurBilder, bool NurAudio) {
    const auto Gesetzt = [&](std::size_t Stelle) {
        return Schalter.size() > Stelle && Schalter[Stelle] == '1';
    };
    const bool Mpeg = Gesetzt(0);
    const bool Medium = Gesetzt(1);
    const bool Bild = Gesetzt(2);
    if (Mpeg ? NurBilder : NurMpeg) return false;
    if (Medium ? NurBilder : NurAudio || NurMpeg) return false;
    return Bild ? !(NurAudio || NurMpeg) : !NurBilder;
}

}  // namespace

const std::vector<Dateityp>& DateitypenVorgabe() {
    static const std::vector<Dateityp> Vorgabe = {
        {"mp3=1", "110"}, {"mp2=1", "110"},  {"mp1=1", "110"}, {"wma=1", "010"}, {"wmf=1", "010"},
        {"wav=1", "010"}, {"gif=0", "001"},  {"jpg=0", "001"}, {"bmp=0", "001"}, {"aac=1", "110"},
        {"vqf=1", "010"}, {"jpeg=0", "001"}, {"cda=1", "010"}, {"ogg=1", "010"}, {"*=0", "000"},
    };
    return Vorgabe;
}

std::string_view EintragsEndung(std::string_view Eintrag) {
    return Eintrag.substr(0, Eintrag.find('='));
}

bool DateiTypErlaubt(const std::vector<Dateityp>& Dateitypen, std::string_view Pfad, bool NurMpeg,
                     bool NurBilder, bool NurAudio, bool NurVerwaltete) {
    std::string_view Endung = EndungVon(Pfad);
    const bool HatEndung = !Endung.empty();
    if (HatEndung) Endung.remove_prefix(1);
    bool AlleVerwaltet = false;
    for (const auto& [Eintrag, Schalter] : Dateitypen) {
        if (HatEndung && GleichOhneGroß(EintragsEndung(Eintrag), Endung)) {
            if (NurVerwaltete && Eintrag.ends_with('0')) return false;
            return SchalterErlauben(Schalter, NurMpeg, NurBilder, NurAudio);
        }
        if (Eintrag == "*=1") AlleVerwaltet = true;
    }
    return NurVerwaltete && AlleVerwaltet;
}

}  // namespace liedwerk
