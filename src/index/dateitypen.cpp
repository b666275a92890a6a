#include "index/dateitypen.h"

#include <algorithm>
#include <span>

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

// FLAC, Opus, MPEG-4 audio, Monkey's Audio and AIFF.
const std::vector<Dateityp>& WeitereTypen() {
    static const std::vector<Dateityp> Weitere = {
        {"flac=1", "010"}, {"opus=1", "010"}, {"m4a=1", "010"}, {"m4b=1", "010"},
        {"mp4=1", "010"},  {"ape=1", "010"},  {"aif=1", "010"}, {"aiff=1", "010"},
    };
    return Weitere;
}

// The first of the deciding entries that is meant.
template <typename Bedingung>
const Dateityp* ErsterTyp(std::span<const Dateityp> Typen, const Bedingung& Gemeint) {
    const auto Vorn = Typen.first(std::min(Typen.size(), HöchsteTypen / 2));
    const auto Rest = Typen.subspan(Vorn.size());
    for (const auto Teil : {Vorn, Rest.last(std::min(Rest.size(), HöchsteTypen / 2))}) {
        if (const auto Fund = std::ranges::find_if(Teil, Gemeint); Fund != Teil.end()) return &*Fund;
    }
    return nullptr;
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

std::vector<Dateityp> Grundtypen(bool MitWeiteren) {
    std::vector<Dateityp> Alle = DateitypenVorgabe();
    // Ahead of the entry for all others.
    if (MitWeiteren) Alle.insert(Alle.end() - 1, WeitereTypen().begin(), WeitereTypen().end());
    return Alle;
}

std::vector<Dateityp> FehlendeGrundtypen(const std::vector<Dateityp>& Dateitypen, bool MitWeiteren) {
    std::vector<Dateityp> Fehlende = Grundtypen(MitWeiteren);
    std::erase_if(Fehlende, [&](const Dateityp& Grundtyp) {
        return std::ranges::any_of(Dateitypen, [&](const Dateityp& Typ) {
            return GleichOhneGroß(EintragsEndung(Typ.Eintrag), EintragsEndung(Grundtyp.Eintrag));
        });
    });
    return Fehlende;
}

bool IstWeiteresFormat(std::string_view Endung) {
    return !Endung.empty() && std::ranges::any_of(WeitereTypen(), [&](const Dateityp& Typ) {
        return GleichOhneGroß(EintragsEndung(Typ.Eintrag), Endung.substr(1));
    });
}

std::string_view EintragsEndung(std::string_view Eintrag) {
    return Eintrag.substr(0, Eintrag.find('='));
}

const Dateityp* TypFinden(const std::vector<Dateityp>& Dateitypen, std::string_view Endung) {
    return ErsterTyp(
        Dateitypen, [&](const Dateityp& Typ) { return GleichOhneGroß(EintragsEndung(Typ.Eintrag), Endung); });
}

bool DateiTypErlaubt(const std::vector<Dateityp>& Dateitypen, std::string_view Pfad, bool NurMpeg,
                     bool NurBilder, bool NurAudio, bool NurVerwaltete) {
    std::string_view Endung = EndungVon(Pfad);
    const bool HatEndung = !Endung.empty();
    if (HatEndung) Endung.remove_prefix(1);
    if (const Dateityp* const Typ = HatEndung ? TypFinden(Dateitypen, Endung) : nullptr) {
        if (NurVerwaltete && Typ->Eintrag.ends_with('0')) return false;
        return SchalterErlauben(Typ->Schalter, NurMpeg, NurBilder, NurAudio);
    }
    return NurVerwaltete &&
           ErsterTyp(Dateitypen, [](const Dateityp& Typ) { return Typ.Eintrag == "*=1"; }) != nullptr;
}

}  // namespace liedwerk
