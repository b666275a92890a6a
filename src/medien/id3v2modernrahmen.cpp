#include "medien/id3v2modernrahmen.h"

#include <algorithm>
#include <array>

#include "medien/id3v2.h"

namespace liedwerk {
namespace {

constexpr std::size_t HöchsteRahmenzahl = 65536;

unsigned ByteBei(std::string_view Bytes, std::size_t Stelle) {
    return static_cast<unsigned char>(Bytes[Stelle]);
}

// Sizes of bytes with eight or with seven bits each, the first byte uppermost.
enum class Zahlform : unsigned { Einfach = 8, SiebenBit = 7 };

// Nothing when a byte of a seven-bit size has its top bit set.
std::optional<std::uint64_t> ZahlLesen(std::string_view Bytes, Zahlform Form) {
    std::uint64_t Wert = 0;
    for (std::size_t Stelle = 0; Stelle < Bytes.size(); ++Stelle) {
        if (Form == Zahlform::SiebenBit && ByteBei(Bytes, Stelle) > 0x7F) return std::nullopt;
        Wert = Wert << static_cast<unsigned>(Form) | ByteBei(Bytes, Stelle);
    }
    return Wert;
}

void ZahlAnhängen(std::string& Ziel, std::uint64_t Wert, std::size_t Anzahl, Zahlform Form) {
    const auto Breite = static_cast<unsigned>(Form);
    for (auto Nummer = static_cast<unsigned>(Anzahl); Nummer-- > 0;) {
        Ziel.push_back(static_cast<char>(Wert >> (Breite * Nummer) & ((1U << Breite) - 1U)));
    }
}

// The lengths in a frame's header; the identifier is as long as the size behind it.
struct Rahmenkopf {
    std::size_t Kennung;
    std::size_t Gesamt;
};
constexpr Rahmenkopf KopfForm(unsigned Hauptversion) {
    return Hauptversion == 2 ? Rahmenkopf{3, 6} : Rahmenkopf{4, 10};
}

constexpr Zahlform Größenform(unsigned Hauptversion) {
    return Hauptversion == 4 ? Zahlform::SiebenBit : Zahlform::Einfach;
}

// The identifiers of version 2.2 and their successors, with those in use that no standard names. Not here is
// what a later version would have to hold in another way: links to frames, and encrypted frames.
struct Kennungspaar {
    std::string_view Kurz;
    std::string_view Lang;
};
constexpr std::array Kennungspaare = std::to_array<Kennungspaar>({
    {"BUF", "RBUF"}, {"CNT", "PCNT"}, {"COM", "COMM"}, {"CRA", "AENC"}, {"ETC", "ETCO"}, {"EQU", "EQUA"},
    {"GEO", "GEOB"}, {"IPL", "IPLS"}, {"MCI", "MCDI"}, {"MLL", "MLLT"}, {"PIC", "APIC"}, {"POP", "POPM"},
    {"REV", "RVRB"}, {"RVA", "RVAD"}, {"SLT", "SYLT"}, {"STC", "SYTC"}, {"TAL", "TALB"}, {"TBP", "TBPM"},
    {"TCM", "TCOM"}, {"TCO", "TCON"}, {"TCR", "TCOP"}, {"TDA", "TDAT"}, {"TDY", "TDLY"}, {"TEN", "TENC"},
    {"TFT", "TFLT"}, {"TIM", "TIME"}, {"TKE", "TKEY"}, {"TLA", "TLAN"}, {"TLE", "TLEN"}, {"TMT", "TMED"},
    {"TOA", "TOPE"}, {"TOF", "TOFN"}, {"TOL", "TOLY"}, {"TOR", "TORY"}, {"TOT", "TOAL"}, {"TP1", "TPE1"},
    {"TP2", "TPE2"}, {"TP3", "TPE3"}, {"TP4", "TPE4"}, {"TPA", "TPOS"}, {"TPB", "TPUB"}, {"TRC", "TSRC"},
    {"TRD", "TRDA"}, {"TRK", "TRCK"}, {"TSI", "TSIZ"}, {"TSS", "TSSE"}, {"TT1", "TIT1"}, {"TT2", "TIT2"},
    {"TT3", "TIT3"}, {"TXT", "TEXT"}, {"TXX", "TXXX"}, {"TYE", "TYER"}, {"UFI", "UFID"}, {"ULT", "USLT"},
    {"WAF", "WOAF"}, {"WAR", "WOAR"}, {"WAS", "WOAS"}, {"WCM", "WCOM"}, {"WCP", "WCOP"}, {"WPB", "WPUB"},
    {"WXX", "WXXX"}, {"GP1", "GRP1"}, {"MVI", "MVIN"}, {"MVN", "MVNM"}, {"PCS", "PCST"}, {"TCP", "TCMP"},
    {"TCT", "TCAT"}, {"TDR", "TDRL"}, {"TDS", "TDES"}, {"TID", "TGID"}, {"TKW", "TKWD"}, {"TS2", "TSO2"},
    {"TSA", "TSOA"}, {"TSC", "TSOC"}, {"TSP", "TSOP"}, {"TST", "TSOT"}, {"WFD", "WFED"},
});

// Capital letters and digits; small letters stand in the files of some programs.
bool IstKennung(std::string_view Text) {
    return std::all_of(Text.begin(), Text.end(), [](char Zeichen) {
        return (Zeichen >= 'A' && Zeichen <= 'Z') || (Zeichen >= 'a' && Zeichen <= 'z') ||
               (Zeichen >= '0' && Zeichen <= '9');
    });
}

bool IstVerlängert(std::string_view Kennung) {
    return Kennung.size() == 4 && (Kennung[3] == '\0' || Kennung[3] == ' ');
}

// Where the frames begin. An extended header that the flag promises and that is not there is none.
std::uint64_t Rahmenanfang(const Id3v2Kopf& Kopf, const Id3v2Bytes& Körper, std::uint64_t Körperlänge) {
    if (Kopf.Hauptversion == 2 || (Kopf.Schalter & Id3v2SchalterErweitert) == 0) return 0;
    const auto Größe = ZahlLesen(Körper(0, 4), Größenform(Kopf.Hauptversion));
    if (!Größe) return 0;
    // Version 2.3 does not count the size itself.
    const std::uint64_t Länge = *Größe + (Kopf.Hauptversion == 3 ? 4 : 0);
    return Länge >= 6 && Länge <= Körperlänge ? Länge : 0;
}

struct Gang {
    Id3v2Gliederung Gliederung;
    bool Sauber = false;  // ended at padding or at the end of the body
};

Gang RahmenDurchgehen(unsigned Hauptversion, Zahlform Form, const Id3v2Bytes& Körper, std::uint64_t Ab,
                      std::uint64_t Körperlänge) {
    const Rahmenkopf Kopf = KopfForm(Hauptversion);
    Gang Ergebnis;
    auto& [Rahmen, Ende, MitAuffüllung] = Ergebnis.Gliederung;
    Ende = Ab;
    while (Rahmen.size() < HöchsteRahmenzahl) {
        const std::string_view Bytes = Körper(Ende, Kopf.Gesamt);
        MitAuffüllung = Bytes.starts_with('\0');
        Ergebnis.Sauber = Bytes.empty() || MitAuffüllung;
        if (Ergebnis.Sauber || Bytes.size() < Kopf.Gesamt) break;
        const std::string_view Kennung = Bytes.substr(0, Kopf.Kennung);
        if (!IstKennung(Kennung.substr(0, 3)) || (!IstVerlängert(Kennung) && !IstKennung(Kennung))) break;
        const auto Länge = ZahlLesen(Bytes.substr(Kopf.Kennung, Kopf.Kennung), Form);
        const std::uint64_t Stelle = Ende + Kopf.Gesamt;
        if (!Länge || *Länge > Körperlänge - Stelle) break;
        const unsigned Schalter = Hauptversion == 2 ? 0 : ByteBei(Bytes, 8) << 8U | ByteBei(Bytes, 9);
        Rahmen.push_back({std::string(Kennung), Schalter, Stelle, *Länge});
        Ende = Stelle + *Länge;
    }
    return Ergebnis;
}

// True for what no unsynchronised bytes hold: the pattern that begins an MPEG audio frame.
bool HatSynchronisation(std::string_view Bytes) {
    for (std::size_t Stelle = 0; Stelle + 1 < Bytes.size(); ++Stelle) {
        if (Bytes[Stelle] == '\xFF' && ByteBei(Bytes, Stelle + 1) >= 0xE0) return true;
    }
    return false;
}

// What the flags of a frame's second flag byte mean in a version.
struct Rahmenschalter {
    unsigned Verschlossen;  // compression or encryption
    unsigned Gruppe;        // one byte in front
    unsigned Längenangabe;  // four bytes in front
    unsigned Unsynchronisiert;
};
constexpr Rahmenschalter SchalterFür(unsigned Hauptversion) {
    return Hauptversion == 4 ? Rahmenschalter{0x0C, 0x40, 0x01, 0x02} : Rahmenschalter{0xC0, 0x20, 0, 0};
}

}  // namespace

bool Id3v2Kopf::HatFuß() const {
    return Hauptversion == 4 && (Schalter & Id3v2SchalterFuß) != 0;
}

std::uint64_t Id3v2Kopf::Gesamtlänge() const {
    return Id3v2KopfLänge + Körperlänge + (HatFuß() ? Id3v2FußLänge : 0);
}

std::optional<Id3v2Kopf> Id3v2KopfLesen(std::string_view Bytes) {
    if (Bytes.size() < Id3v2KopfLänge || !Bytes.starts_with(Id3v2Kennung)) return std::nullopt;
    Id3v2Kopf Kopf;
    Kopf.Hauptversion = ByteBei(Bytes, Id3v2HauptversionStelle);
    Kopf.Nebenversion = ByteBei(Bytes, Id3v2NebenversionStelle);
    Kopf.Schalter = ByteBei(Bytes, Id3v2SchalterStelle);
    const auto Größe = ZahlLesen(Bytes.substr(Id3v2GrößeStelle, 4), Zahlform::SiebenBit);
    if (Kopf.Hauptversion < 2 || Kopf.Hauptversion > 4 || Kopf.Nebenversion == 0xFF || !Größe)
        return std::nullopt;
    Kopf.Körperlänge = *Größe;
    return Kopf;
}

std::string Id3v2KopfBilden(const Id3v2Kopf& Kopf) {
    std::string Bytes(Id3v2Kennung);
    for (const unsigned Wert : {Kopf.Hauptversion, Kopf.Nebenversion, Kopf.Schalter}) {
        Bytes.push_back(static_cast<char>(Wert));
    }
    ZahlAnhängen(Bytes, Kopf.Körperlänge, 4, Zahlform::SiebenBit);
    return Bytes;
}

std::string Id3v2UnsynchronisationAufheben(std::string_view Bytes) {
    std::string Klar;
    Klar.reserve(Bytes.size());
    for (std::size_t Stelle = 0; Stelle < Bytes.size(); ++Stelle) {
        Klar.push_back(Bytes[Stelle]);
        const bool Eingefügt =
            Bytes[Stelle] == '\xFF' && Stelle + 1 < Bytes.size() && Bytes[Stelle + 1] == '\0';
        if (Eingefügt) ++Stelle;
    }
    return Klar;
}

std::string Id3v2UnsynchronisationAnwenden(std::string_view Bytes) {
    std::string Sicher;
    Sicher.reserve(Bytes.size() + Bytes.size() / 64);
    for (std::size_t Stelle = 0; Stelle < Bytes.size(); ++Stelle) {
        Sicher.push_back(Bytes[Stelle]);
        if (Bytes[Stelle] != '\xFF') continue;
        // At the end too: what will follow is not known.
        const bool Letztes = Stelle + 1 == Bytes.size();
        if (Letztes || Bytes[Stelle + 1] == '\0' || ByteBei(Bytes, Stelle + 1) >= 0xE0)
            Sicher.push_back('\0');
    }
    return Sicher;
}

Id3v2Gliederung Id3v2Gliedern(const Id3v2Kopf& Kopf, const Id3v2Bytes& Körper, std::uint64_t Körperlänge) {
    if (Kopf.Verschlossen()) return {};
    const std::uint64_t Ab = Rahmenanfang(Kopf, Körper, Körperlänge);
    const Zahlform Form = Größenform(Kopf.Hauptversion);
    Gang Richtig = RahmenDurchgehen(Kopf.Hauptversion, Form, Körper, Ab, Körperlänge);
    if (Richtig.Sauber || Kopf.Hauptversion == 2) return std::move(Richtig.Gliederung);
    const Zahlform Andere = Form == Zahlform::Einfach ? Zahlform::SiebenBit : Zahlform::Einfach;
    Gang Falsch = RahmenDurchgehen(Kopf.Hauptversion, Andere, Körper, Ab, Körperlänge);
    return std::move(Falsch.Sauber ? Falsch.Gliederung : Richtig.Gliederung);
}

std::string_view Id3v2LangeKennung(std::string_view Kennung) {
    if (Kennung.size() == 4 && !IstVerlängert(Kennung)) return Kennung;
    const auto* Fund =
        std::find_if(Kennungspaare.begin(), Kennungspaare.end(),
                     [&](const Kennungspaar& Paar) { return Paar.Kurz == Kennung.substr(0, 3); });
    return Fund == Kennungspaare.end() ? std::string_view() : Fund->Lang;
}

std::string_view Id3v2KurzeKennung(std::string_view Kennung) {
    const auto* Fund = std::find_if(Kennungspaare.begin(), Kennungspaare.end(),
                                    [&](const Kennungspaar& Paar) { return Paar.Lang == Kennung; });
    return Fund == Kennungspaare.end() ? std::string_view() : Fund->Kurz;
}

std::optional<std::string> Id3v2RahmeninhaltLesen(const Id3v2Kopf& Kopf, unsigned Schalter,
                                                  std::string_view Bytes) {
    const Rahmenschalter Form = SchalterFür(Kopf.Hauptversion);
    if ((Schalter & Form.Verschlossen) != 0) return std::nullopt;
    const std::size_t Vorspann =
        ((Schalter & Form.Gruppe) != 0 ? 1U : 0U) + ((Schalter & Form.Längenangabe) != 0 ? 4U : 0U);
    if (Bytes.size() < Vorspann) return std::nullopt;
    Bytes.remove_prefix(Vorspann);
    const bool Unsynchronisiert =
        Kopf.Hauptversion == 4 && (Kopf.Unsynchronisiert() || (Schalter & Form.Unsynchronisiert) != 0);
    if (!Unsynchronisiert) return std::string(Bytes);
    // Some programs set the flag and leave the content as it is.
    return HatSynchronisation(Bytes) ? std::string(Bytes) : Id3v2UnsynchronisationAufheben(Bytes);
}

void Id3v2RahmenAnhängen(std::string& Ziel, unsigned Hauptversion, std::string_view Kennung,
                         unsigned Schalter, std::string_view Bytes) {
    const Rahmenkopf Kopf = KopfForm(Hauptversion);
    Ziel += Kennung.substr(0, Kopf.Kennung);
    ZahlAnhängen(Ziel, Bytes.size(), Kopf.Kennung, Größenform(Hauptversion));
    if (Hauptversion > 2) ZahlAnhängen(Ziel, Schalter, 2, Zahlform::Einfach);
    Ziel += Bytes;
}

void Id3v2NeuenRahmenAnhängen(std::string& Ziel, const Id3v2Kopf& Kopf, std::string_view Kennung,
                              std::string_view Inhalt) {
    if (Kopf.Hauptversion == 4 && Kopf.Unsynchronisiert()) {
        const std::string Sicher = Id3v2UnsynchronisationAnwenden(Inhalt);
        Id3v2RahmenAnhängen(Ziel, 4, Kennung, SchalterFür(4).Unsynchronisiert, Sicher);
    } else {
        Id3v2RahmenAnhängen(Ziel, Kopf.Hauptversion,
                            Kopf.Hauptversion == 2 ? Id3v2KurzeKennung(Kennung) : Kennung, 0, Inhalt);
    }
}

}  // namespace liedwerk
