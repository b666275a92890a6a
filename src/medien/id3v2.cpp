#include "medien/id3v2.h"

#include <algorithm>
#include <optional>

#include "basis/ansi.h"
#include "medien/tagtext.h"

namespace liedwerk {
namespace {

unsigned ByteBei(std::string_view Bytes, std::size_t Stelle) {
    return static_cast<unsigned char>(Bytes[Stelle]);
}

// 0-based place of "ID3" at or behind Ab; npos when absent. Most files have no tag, and then all of the
// search range is looked at: whole blocks are tested at once for the first two letters, in bytes, which the
// compiler turns into vector instructions.
std::size_t KennungSuchen(std::string_view Bytes, std::size_t Ab) {
    constexpr std::size_t Block = 256;
    for (; Ab + Block < Bytes.size(); Ab += Block) {
        const char* Stück = Bytes.data() + Ab;
        unsigned char Treffer = 0;
        for (std::size_t Stelle = 0; Stelle < Block; ++Stelle) {
            const auto Erster = static_cast<unsigned char>(Stück[Stelle] == Id3v2Kennung[0]);
            const auto Zweiter = static_cast<unsigned char>(Stück[Stelle + 1] == Id3v2Kennung[1]);
            Treffer = static_cast<unsigned char>(Treffer | (Erster & Zweiter));
        }
        if (Treffer == 0) continue;
        // The third letter of a match that begins in the block lies up to two bytes behind it.
        const std::size_t Fund = Bytes.substr(Ab, Block + 2).find(Id3v2Kennung);
        if (Fund != std::string_view::npos) return Ab + Fund;
    }
    return Bytes.find(Id3v2Kennung, Ab);
}

// What is kept in memory of a file's beginning. A search range beyond is read in pieces of this length.
constexpr std::uint64_t Vorrat = std::uint64_t{1} << 20;

std::uint64_t Suchbereich(std::int64_t BytesSuchen, std::uint64_t Dateigröße) {
    return BytesSuchen <= 0 ? Dateigröße : std::min(static_cast<std::uint64_t>(BytesSuchen), Dateigröße);
}

// The bytes at a place of the file, as far as it has them; Speicher holds those that lie far from its
// beginning.
std::string_view Ausschnitt(Dateianfang& Anfang, std::uint64_t Stelle, std::uint64_t Länge,
                            std::string& Speicher) {
    if (Stelle + Länge > Vorrat) return Speicher = Anfang.Quelle().Lesen(Stelle, Länge);
    const std::string_view Bytes = Anfang.Bis(Stelle + Länge);
    return Bytes.substr(std::min<std::uint64_t>(Stelle, Bytes.size()));
}

// What differs between the frames of version 2.2 and the later ones.
struct Rahmenform {
    std::size_t KennungLänge;
    std::size_t KopfLänge;
    std::size_t Mindestrest;  // fewer bytes end the walk
    std::string_view Id3v2Rahmenfeld::*Kennung;
};
constexpr Rahmenform Kurzform = {3, 6, 7, &Id3v2Rahmenfeld::KurzKennung};
constexpr Rahmenform Langform = {4, 10, 11, &Id3v2Rahmenfeld::Kennung};

const Id3v2Rahmenfeld* RahmenfeldFinden(std::string_view Kennung, const Rahmenform& Form) {
    const auto* Fund =
        std::find_if(Id3v2Rahmenfelder.begin(), Id3v2Rahmenfelder.end(),
                     [&](const Id3v2Rahmenfeld& Feld) { return Feld.*Form.Kennung == Kennung; });
    return Fund == Id3v2Rahmenfelder.end() ? nullptr : Fund;
}

// The rating is the byte behind the address. Kept: an address that is empty moves it.
void QualitätSetzen(std::string_view Wert, Datensatz& Satz) {
    const std::size_t Ende = Wert.find('\0');
    if (Ende != std::string_view::npos && Ende + 1 < Wert.size()) {
        Satz.V2Qualität = static_cast<std::uint8_t>(Wert[Ende + 1]);
    }
}

// Stores a frame. False when its identifier is padding, the end of all frames.
bool RahmenAuswerten(std::string_view Rahmen, const Rahmenform& Form, Datensatz& Satz) {
    const std::string_view Kennung = Rahmen.substr(0, Form.KennungLänge);
    std::string_view Wert = Rahmen.substr(Form.KopfLänge);
    if (Wert.starts_with('\0')) Wert.remove_prefix(1);

    if (const Id3v2Rahmenfeld* Feld = RahmenfeldFinden(Kennung, Form)) {
        const bool Kommentar = Feld->Feld == &Datensatz::V2Kommentar;
        Satz.*(Feld->Feld) = Id3v2RahmentextLesen(Rahmen.substr(Form.KopfLänge), !Kommentar);
        return true;
    }
    if (Kennung == Id3v2QualitätKennung) {
        QualitätSetzen(Wert, Satz);
        return true;
    }
    if (Kennung.find_first_not_of(Kennung[0]) == std::string_view::npos) return false;
    if (Kennung[0] >= 'A' && Kennung[0] <= 'z') {
        if (Form.KennungLänge == Langform.KennungLänge) {
            Satz.Id3v2WeitereFelder += Rahmen;
        } else {
            // A frame of 2.2 cannot be written back; the blank only says that there was one.
            Satz.Id3v2WeitereFelder = " ";
        }
    }
    return true;
}

// Walks the frames; Benutzt is the number of the tag's bytes in front of them.
void RahmenLesen(std::string_view Text, const Rahmenform& Form, std::int32_t Benutzt, Datensatz& Satz) {
    while (Text.size() >= Form.Mindestrest && !Text.starts_with(Id3v2FußKennung)) {
        // An identifier is as long as the size behind it.
        const std::string_view Größenfeld = Text.substr(Form.KennungLänge, Form.KennungLänge);
        const std::size_t Schritt =
            Form.KopfLänge + static_cast<std::size_t>(Id3v2GrößeLesen(Größenfeld, Id3v2Größenform::Einfach));
        if (!RahmenAuswerten(Text.substr(0, Schritt), Form, Satz)) {
            Satz.Id3v2Benutzt = Benutzt;
            return;
        }
        Benutzt += static_cast<std::int32_t>(Schritt);
        Text.remove_prefix(std::min(Schritt, Text.size()));
    }
}

// A size field of a header, four bytes. Nothing when it is refused: its first byte is above 0.
std::optional<std::int32_t> GrößenfeldLesen(std::string_view Bytes) {
    if (ByteBei(Bytes, 0) > 0) return std::nullopt;
    return Id3v2GrößeLesen(Bytes, Id3v2Größenform::SiebenBit);
}

}  // namespace

std::int32_t Id3v2GrößeLesen(std::string_view Bytes, Id3v2Größenform Form) {
    if (Bytes.size() < 3) return 0;
    // The bits of all bytes in a row, the last one lowest.
    const unsigned Breite = Form == Id3v2Größenform::Einfach ? 8 : 7;
    std::uint32_t Bits = 0;
    for (const char Byte : Bytes.substr(0, 4)) {
        Bits = Bits << Breite | (static_cast<unsigned char>(Byte) & ((1U << Breite) - 1U));
    }
    const auto Gruppe = [Bits](unsigned Nummer) {
        return static_cast<std::int32_t>(Bits >> (8 * Nummer) & 0xFFU);
    };
    if (Bytes.size() == 3) return Gruppe(1) * 2048 + Gruppe(0) * 256;
    return Gruppe(3) * 16384 + Gruppe(2) * 2048 + Gruppe(1) * 256 + Gruppe(0);
}

std::optional<std::uint64_t> Id3v2KennungSuchen(Dateianfang& Anfang, std::int64_t BytesSuchen) {
    const std::uint64_t Bereich = Suchbereich(BytesSuchen, Anfang.Dateigröße());
    // The first bytes before all of the range is read: a tag is nearly always there.
    constexpr std::uint64_t ErstesStück = 4096;
    constexpr std::uint64_t Überlappung = Id3v2Kennung.size() - 1;
    std::size_t Fund = KennungSuchen(Anfang.Bis(std::min(ErstesStück, Bereich)), 0);
    if (Fund == std::string_view::npos && Bereich > ErstesStück) {
        Fund = KennungSuchen(Anfang.Bis(std::min(Vorrat, Bereich)), ErstesStück - Überlappung);
    }
    if (Fund != std::string_view::npos) return Fund;
    for (std::uint64_t Stelle = Vorrat; Stelle < Bereich; Stelle += Vorrat) {
        const std::uint64_t Ab = Stelle - Überlappung;
        const std::uint64_t Länge = std::min(Vorrat + Überlappung, Bereich - Ab);
        Fund = KennungSuchen(Anfang.Quelle().Lesen(Ab, Länge), 0);
        if (Fund != std::string_view::npos) return Ab + Fund;
    }
    return std::nullopt;
}

std::string Id3v2RahmentextLesen(std::string_view Inhalt, bool ZeilenEntfernen) {
    // Meant for the language in front of a comment; counts for every frame.
    constexpr std::size_t SprachLänge = 3;
    if (Inhalt.starts_with('\0')) Inhalt.remove_prefix(1);
    if (Inhalt.size() > SprachLänge && Inhalt[SprachLänge] == '\0') Inhalt.remove_prefix(SprachLänge + 1);
    return AnsiNachUtf8(TextBereinigen(Inhalt, ZeilenEntfernen));
}

Id3v2Ergebnis Mp3TAGLesenV2(Dateianfang& Anfang, std::int64_t BytesSuchen, Datensatz& Satz) {
    Id3v2Leeren(Satz);
    if (!Anfang.Quelle().Offen()) return Id3v2Ergebnis::Abgelehnt;
    const std::uint64_t Bereich = Suchbereich(BytesSuchen, Anfang.Dateigröße());
    const auto Fund = Id3v2KennungSuchen(Anfang, BytesSuchen);
    if (!Fund) return Id3v2Ergebnis::Gelesen;

    // The header counts only as far as the search range reaches.
    std::string Speicher;
    const std::uint64_t KopfLänge = std::min<std::uint64_t>(Id3v2KopfLänge, Bereich - *Fund);
    const std::string_view Kopf = Ausschnitt(Anfang, *Fund, KopfLänge, Speicher);
    if (Kopf.size() <= Id3v2HauptversionStelle) return Id3v2Ergebnis::Abgebrochen;
    const unsigned Hauptversion = ByteBei(Kopf, Id3v2HauptversionStelle);
    if (Hauptversion < 2 || Hauptversion > 4) return Id3v2Ergebnis::Abgelehnt;
    if (Kopf.size() < Id3v2KopfLänge) return Id3v2Ergebnis::Abgebrochen;
    Satz.Id3v2Version =
        "2." + std::to_string(Hauptversion) + "." + std::to_string(ByteBei(Kopf, Id3v2NebenversionStelle));
    const unsigned Schalter = ByteBei(Kopf, Id3v2SchalterStelle);
    const auto Größe = GrößenfeldLesen(Kopf.substr(Id3v2GrößeStelle));
    if (!Größe) return Id3v2Ergebnis::Abgelehnt;
    Satz.Id3v2Größe = *Größe + static_cast<std::int32_t>(Id3v2KopfLänge);
    Satz.Id3v2Position = static_cast<std::int64_t>(*Fund) + 1;

    const bool Fuß = (Schalter & Id3v2SchalterFuß) != 0;
    if (Fuß) Satz.Id3v2Größe += static_cast<std::int32_t>(Id3v2FußLänge);
    auto Benutzt = static_cast<std::int32_t>(Id3v2KopfLänge + (Fuß ? Id3v2FußLänge : 0));
    std::size_t RahmenStelle = Id3v2KopfLänge;
    if ((Schalter & Id3v2SchalterErweitert) != 0) {
        // Kept: the size is read at the file's eleventh byte, wherever the tag begins.
        const std::string_view Feld = Ausschnitt(Anfang, Id3v2KopfLänge, 4, Speicher);
        if (Feld.size() < 4) return Id3v2Ergebnis::Abgebrochen;
        const auto Erweiterung = GrößenfeldLesen(Feld);
        if (!Erweiterung) return Id3v2Ergebnis::Abgelehnt;
        Benutzt += *Erweiterung;
        RahmenStelle += static_cast<std::size_t>(*Erweiterung);
    }
    const std::string_view Tag =
        Ausschnitt(Anfang, *Fund, static_cast<std::uint64_t>(Satz.Id3v2Größe), Speicher);
    RahmenLesen(Tag.substr(std::min(RahmenStelle, Tag.size())), Hauptversion == 2 ? Kurzform : Langform,
                Benutzt, Satz);
    Satz.HatId3v2 = TagVorhanden;
    return Id3v2Ergebnis::Gelesen;
}

void Id3v2Leeren(Datensatz& Satz) {
    for (const Id3v2Rahmenfeld& Feld : Id3v2Rahmenfelder) {
        (Satz.*Feld.Feld).clear();
    }
    Satz.HatId3v2 = TagFehlt;
    Satz.Id3v2WeitereFelder.clear();
    Satz.Id3v2Version.clear();
    Satz.Id3v2Größe = -1;
    Satz.Id3v2Position = -1;
    Satz.Id3v2Benutzt = 0;
    Satz.V2Qualität = KeineV2Qualität;
}

}  // namespace liedwerk
