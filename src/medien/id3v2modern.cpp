#include "medien/id3v2modern.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <vector>

#include "basis/text.h"
#include "medien/id3v2modernwerte.h"
#include "medien/tagtext.h"

namespace liedwerk {
namespace {

constexpr std::string_view WerteTrenner = "; ";
// The date of version 2.4; its year is that of "TYER".
constexpr std::string_view Jahrkennung = "TYER";
constexpr std::string_view Datumkennung = "TDRC";
// A frame that is larger is no text for a record; it stays in the file.
constexpr std::uint64_t HöchsteTextlänge = std::uint64_t{1} << 20U;
// A body that was unsynchronised as a whole must be read as a whole; a larger one is not looked into.
constexpr std::uint64_t HöchsteUmwandlung = std::uint64_t{64} << 20U;

// --- The body of a tag ---

// The window onto a body that lies in a file. Bytes near the file's beginning come out of what all readers
// share.
class Dateikörper {
  public:
    Dateikörper(Dateianfang& Anfang, std::uint64_t Stelle, std::uint64_t Länge)
        : Datei(Anfang),
          Ab(Stelle),
          Gesamt(std::min(Länge, Anfang.Dateigröße() - std::min(Stelle, Anfang.Dateigröße()))) {}
    std::uint64_t Länge() const { return Gesamt; }
    std::string_view operator()(std::uint64_t Stelle, std::uint64_t Anzahl) {
        constexpr std::uint64_t Stück = 16384;
        if (Stelle >= Gesamt) return {};
        Anzahl = std::min(Anzahl, Gesamt - Stelle);
        if (Ab + Stelle + Anzahl <= Stück) {
            const std::string_view Bytes = Datei.Bis(Ab + Stelle + Anzahl);
            return Bytes.substr(std::min<std::uint64_t>(Ab + Stelle, Bytes.size()));
        }
        if (Stelle < PufferAb || Stelle + Anzahl > PufferAb + Puffer.size()) {
            Puffer = Datei.Quelle().Lesen(Ab + Stelle, std::max(Anzahl, std::min(Stück, Gesamt - Stelle)));
            PufferAb = Stelle;
        }
        return std::string_view(Puffer).substr(Stelle - PufferAb, Anzahl);
    }

  private:
    Dateianfang& Datei;
    std::uint64_t Ab;
    std::uint64_t Gesamt;
    std::string Puffer;
    std::uint64_t PufferAb = 0;
};

// A body in memory; the bytes must outlive it.
Id3v2Bytes Speicherkörper(std::string_view Bytes) {
    return [Bytes](std::uint64_t Stelle, std::uint64_t Anzahl) {
        return Stelle < Bytes.size() ? Bytes.substr(Stelle, Anzahl) : std::string_view();
    };
}

// --- What of a tag the record shows ---

constexpr std::size_t Feldzahl = Id3v2Rahmenfelder.size();

// The field of a frame by its identifier of version 2.3 or 2.4; Feldzahl for none.
std::size_t FeldnummerVon(std::string_view Kennung) {
    if (Kennung == Datumkennung) Kennung = Jahrkennung;
    const auto* Fund = std::find_if(Id3v2Rahmenfelder.begin(), Id3v2Rahmenfelder.end(),
                                    [&](const Id3v2Rahmenfeld& Feld) { return Feld.Kennung == Kennung; });
    return static_cast<std::size_t>(Fund - Id3v2Rahmenfelder.begin());
}

// True for the frames that a tag may hold several of, told apart by their descriptions.
bool MitBeschreibung(std::string_view Kennung) {
    return Kennung == "COMM" || Kennung == "WXXX";
}

// True for texts that one frame should hold in several values, and that some programs spread over several
// frames.
bool Sammelbar(std::string_view Kennung) {
    return Kennung.starts_with('T') && Kennung != Jahrkennung && Kennung != Datumkennung;
}

// How well a frame stands for its field; 0 not at all. Of equal ones the first is shown.
int RangVon(std::string_view Kennung, const Id3v2Inhalt& Inhalt, unsigned Hauptversion) {
    if (Kennung == Jahrkennung) return Hauptversion < 4 ? 2 : 1;
    if (Kennung == Datumkennung) return Hauptversion < 4 ? 1 : 2;
    if (!MitBeschreibung(Kennung) || Inhalt.Beschreibung.empty()) return 2;
    // Loudness and gaps in hexadecimal, which a wide-spread player puts into comments.
    return Inhalt.Beschreibung.starts_with("iTun") ? 0 : 1;
}

// The frames of a field.
struct Feldfund {
    std::vector<std::size_t> Rahmen;  // all that can be read
    std::size_t Gezeigter = 0;
    int Rang = 0;  // of the one that is shown; 0: none is
    Id3v2Inhalt Inhalt;
};
struct Anzeige {
    std::array<Feldfund, Feldzahl> Felder;
    std::optional<Id3v2Bewertung> Bewertung;
    std::size_t Bewertungsrahmen = 0;
    bool WeitereFelder = false;
};

// A tag taken apart.
struct Taginhalt {
    Id3v2Kopf Kopf;
    Id3v2Gliederung Gliederung;
    Anzeige Gezeigt;
};

// Takes up a frame; false when the record does not know it.
bool RahmenAufnehmen(const Id3v2Kopf& Kopf, std::string_view Kennung, std::size_t Nummer,
                     std::string_view Bytes, unsigned Schalter, Anzeige& Gezeigt) {
    const auto Klar = Id3v2RahmeninhaltLesen(Kopf, Schalter, Bytes);
    if (!Klar) return false;
    if (Kennung == Id3v2QualitätKennung) {
        if (Gezeigt.Bewertung) return false;
        Gezeigt.Bewertung = Id3v2BewertungLesen(*Klar);
        Gezeigt.Bewertungsrahmen = Nummer;
        return Gezeigt.Bewertung.has_value();
    }
    auto Inhalt = Id3v2InhaltsformVon(Id3v2Rahmenfelder.at(FeldnummerVon(Kennung)).Kennung).Lesen(*Klar);
    if (!Inhalt) return false;
    Feldfund& Feld = Gezeigt.Felder.at(FeldnummerVon(Kennung));
    auto& Werte = Feld.Inhalt.Werte;
    const bool Sammeln = Feld.Rang > 0 && Sammelbar(Kennung);
    if (Sammeln && Werte.size() + Inhalt->Werte.size() > Id3v2HöchsteWertezahl) return false;
    Feld.Rahmen.push_back(Nummer);
    if (Sammeln) {
        std::copy_if(
            Inhalt->Werte.begin(), Inhalt->Werte.end(), std::back_inserter(Werte),
            [&](const auto& Wert) { return std::find(Werte.begin(), Werte.end(), Wert) == Werte.end(); });
        return true;
    }
    const int Rang = RangVon(Kennung, *Inhalt, Kopf.Hauptversion);
    const bool Erster = Feld.Rahmen.size() == 1;
    if (Rang > Feld.Rang) {
        Feld.Gezeigter = Nummer;
        Feld.Rang = Rang;
        Feld.Inhalt = std::move(*Inhalt);
    }
    return Erster && Rang > 0;
}

Taginhalt TagZerlegen(const Id3v2Kopf& Kopf, const Id3v2Bytes& Körper, std::uint64_t Körperlänge) {
    Taginhalt Tag{Kopf, Id3v2Gliedern(Kopf, Körper, Körperlänge), {}};
    for (std::size_t Nummer = 0; Nummer < Tag.Gliederung.Rahmen.size(); ++Nummer) {
        const Id3v2Rahmenort& Rahmen = Tag.Gliederung.Rahmen[Nummer];
        const std::string_view Kennung = Id3v2LangeKennung(Rahmen.Kennung);
        const bool Bekannt = Kennung == Id3v2QualitätKennung || FeldnummerVon(Kennung) < Feldzahl;
        const bool Gezeigt = Bekannt && Rahmen.Länge <= HöchsteTextlänge &&
                             RahmenAufnehmen(Kopf, Kennung, Nummer, Körper(Rahmen.Stelle, Rahmen.Länge),
                                             Rahmen.Schalter, Tag.Gezeigt);
        if (!Gezeigt) Tag.Gezeigt.WeitereFelder = true;
    }
    return Tag;
}

std::string Feldtext(std::size_t Nummer, const Feldfund& Fund) {
    const bool Kommentar = Id3v2Rahmenfelder.at(Nummer).Feld == &Datensatz::V2Kommentar;
    return TextBereinigen(Verbinden(Fund.Inhalt.Werte, WerteTrenner), !Kommentar);
}

std::uint8_t Qualität(const Anzeige& Gezeigt) {
    return Gezeigt.Bewertung ? Gezeigt.Bewertung->Qualität() : KeineV2Qualität;
}

// Opens a tag of a file and gives what Weiter makes of its body and the body's length.
template <class Folge>
auto MitKörper(Dateianfang& Anfang, const Id3v2Fundort& Ort, Folge&& Weiter) {
    Dateikörper Körper(Anfang, Ort.Stelle + Id3v2KopfLänge, Ort.Kopf.Körperlänge);
    if (!Ort.Kopf.KörperUnsynchronisiert()) return Weiter(Id3v2Bytes(std::ref(Körper)), Körper.Länge());
    if (Körper.Länge() > HöchsteUmwandlung) return Weiter(Speicherkörper({}), std::uint64_t{0});
    const std::string Klar = Id3v2UnsynchronisationAufheben(Körper(0, Körper.Länge()));
    return Weiter(Speicherkörper(Klar), std::uint64_t{Klar.size()});
}

// True when frames begin behind a header that need not be one.
bool HatRahmen(Dateianfang& Anfang, const Id3v2Fundort& Ort) {
    return MitKörper(Anfang, Ort, [&](const Id3v2Bytes& Körper, std::uint64_t Länge) {
        return !Id3v2Gliedern(Ort.Kopf, Körper, Länge).Rahmen.empty();
    });
}

// --- The new tag ---

struct Rahmenneu {
    std::string_view Kennung;
    std::string Inhalt;
};
struct Bauplan {
    std::vector<Rahmenneu> Neu;                                // fields that had no frame
    std::map<std::size_t, std::optional<Rahmenneu>> Geändert;  // old frames that go or are replaced
};

// 2.2 can become 2.3 when each of its frames can.
unsigned Zielversion(const Taginhalt& Alt, const Id3v2Bytes& Körper, bool MitRest) {
    if (Alt.Kopf.Hauptversion != 2) return Alt.Kopf.Hauptversion;
    const auto& Rahmen = Alt.Gliederung.Rahmen;
    const bool Alle = std::all_of(Rahmen.begin(), Rahmen.end(), [&](const Id3v2Rahmenort& Ort) {
        if (Ort.Kennung == "PIC") return Id3v2BildUmwandeln(Körper(Ort.Stelle, Ort.Länge)).has_value();
        return !Id3v2LangeKennung(Ort.Kennung).empty();
    });
    return Alle && !MitRest ? 3 : 2;
}

// Plans a field whose value differs from the file's; gives the reason why it cannot be written, or nothing.
std::string FeldPlanen(std::size_t Nummer, const Feldfund& Alt, const std::string& Wert,
                       unsigned Hauptversion, Bauplan& Plan) {
    std::string_view Kennung = Id3v2Rahmenfelder.at(Nummer).Kennung;
    const Id3v2Inhaltsform& Form = Id3v2InhaltsformVon(Kennung);
    std::optional<Rahmenneu> Ersatz;
    if (!Wert.empty()) {
        Id3v2Inhalt Inhalt = Alt.Inhalt;
        Inhalt.Werte = Alt.Inhalt.Werte.size() > 1 ? Teilen(Wert, WerteTrenner) : std::vector{Wert};
        auto Bytes = Form.Bilden(Inhalt, Hauptversion);
        if (!Bytes) return "Der Abspielzähler '" + Wert + "' ist keine ganze Zahl.";
        if (Kennung == Jahrkennung && Hauptversion == 4) Kennung = Datumkennung;
        Ersatz = Rahmenneu{Kennung, std::move(*Bytes)};
    }
    // A second frame of a field that has only one would come forth with an old value.
    if (!MitBeschreibung(Kennung)) {
        for (const std::size_t Rahmen : Alt.Rahmen) {
            Plan.Geändert[Rahmen] = std::nullopt;
        }
    }
    if (Alt.Rang > 0) {
        Plan.Geändert[Alt.Gezeigter] = std::move(Ersatz);
    } else if (Ersatz) {
        Plan.Neu.push_back(std::move(*Ersatz));
    }
    return {};
}

std::string TagPlanen(const Anzeige& Alt, const Datensatz& Satz, unsigned Hauptversion, Bauplan& Plan) {
    for (std::size_t Nummer = 0; Nummer < Feldzahl; ++Nummer) {
        const Feldfund& Feld = Alt.Felder.at(Nummer);
        const std::string& Wert = Satz.*Id3v2Rahmenfelder.at(Nummer).Feld;
        if (Wert == Feldtext(Nummer, Feld)) continue;
        std::string Hindernis = FeldPlanen(Nummer, Feld, Wert, Hauptversion, Plan);
        if (!Hindernis.empty()) return Hindernis;
    }
    if (Satz.V2Qualität == Qualität(Alt)) return {};
    std::string Inhalt = Id3v2QualitätBilden(Satz.V2Qualität, Alt.Bewertung);
    std::optional<Rahmenneu> Rahmen;
    if (!Inhalt.empty()) Rahmen = Rahmenneu{Id3v2QualitätKennung, std::move(Inhalt)};
    if (Alt.Bewertung) {
        Plan.Geändert[Alt.Bewertungsrahmen] = std::move(Rahmen);
    } else if (Rahmen) {
        Plan.Neu.push_back(std::move(*Rahmen));
    }
    return {};
}

void AltenRahmenAnhängen(std::string& Ziel, const Id3v2Kopf& Kopf, unsigned Altversion,
                         const Id3v2Rahmenort& Rahmen, std::string_view Bytes) {
    if (Kopf.Hauptversion == Altversion) {
        Id3v2RahmenAnhängen(Ziel, Altversion, Rahmen.Kennung, Rahmen.Schalter, Bytes);
        return;
    }
    const auto Bild = Rahmen.Kennung == "PIC" ? Id3v2BildUmwandeln(Bytes) : std::nullopt;
    Id3v2RahmenAnhängen(Ziel, Kopf.Hauptversion, Id3v2LangeKennung(Rahmen.Kennung), 0,
                        Bild ? std::string_view(*Bild) : Bytes);
}

// The reason why a tag cannot be rebuilt without a loss; empty when it can.
std::string_view HindernisVon(const std::optional<Id3v2Kopf>& Kopf, std::string_view Tag) {
    if (!Kopf || (!Tag.empty() && Kopf->Gesamtlänge() > Tag.size()))
        return "Der vorhandene ID3v2-TAG ist beschädigt, er endet nicht in der Datei.";
    if (Kopf->Verschlossen())
        return "Der vorhandene ID3v2-TAG ist als Ganzes komprimiert und kann nicht geändert werden.";
    if (Kopf->KörperUnsynchronisiert() && Kopf->Körperlänge > HöchsteUmwandlung)
        return "Der vorhandene ID3v2-TAG ist zu groß, um geändert zu werden.";
    return {};
}

// All frames: new ones first, where readers that stop early find them, then the old ones in their order.
std::string RahmenBilden(const Bauplan& Plan, const Id3v2Kopf& Kopf, const Taginhalt& Alt,
                         const Id3v2Bytes& Körper) {
    std::string Bytes;
    for (const Rahmenneu& Rahmen : Plan.Neu) {
        Id3v2NeuenRahmenAnhängen(Bytes, Kopf, Rahmen.Kennung, Rahmen.Inhalt);
    }
    for (std::size_t Nummer = 0; Nummer < Alt.Gliederung.Rahmen.size(); ++Nummer) {
        const auto Änderung = Plan.Geändert.find(Nummer);
        const Id3v2Rahmenort& Rahmen = Alt.Gliederung.Rahmen[Nummer];
        if (Änderung == Plan.Geändert.end()) {
            AltenRahmenAnhängen(Bytes, Kopf, Alt.Kopf.Hauptversion, Rahmen,
                                Körper(Rahmen.Stelle, Rahmen.Länge));
        } else if (const auto& Ersatz = Änderung->second) {
            Id3v2NeuenRahmenAnhängen(Bytes, Kopf, Ersatz->Kennung, Ersatz->Inhalt);
        }
    }
    // A tag has at least one frame, a frame at least one byte.
    if (Bytes.empty()) Id3v2NeuenRahmenAnhängen(Bytes, Kopf, "TIT2", std::string(1, '\0'));
    return Bytes;
}

}  // namespace

std::optional<Id3v2Fundort> Id3v2ModernFinden(Dateianfang& Anfang, std::int64_t BytesSuchen) {
    if (const auto Kopf = Id3v2KopfLesen(Anfang.Bis(Id3v2KopfLänge))) return Id3v2Fundort{0, *Kopf};
    const auto Stelle = Id3v2KennungSuchen(Anfang, BytesSuchen);
    if (!Stelle) return std::nullopt;
    const auto Kopf = Id3v2KopfLesen(Anfang.Quelle().Lesen(*Stelle, Id3v2KopfLänge));
    if (!Kopf || Kopf->HatFuß() || *Stelle + Kopf->Gesamtlänge() > Anfang.Dateigröße()) return std::nullopt;
    const Id3v2Fundort Ort{*Stelle, *Kopf};
    return HatRahmen(Anfang, Ort) ? std::optional(Ort) : std::nullopt;
}

Id3v2Ergebnis Id3v2ModernLesen(Dateianfang& Anfang, std::int64_t BytesSuchen, Datensatz& Satz) {
    Id3v2Leeren(Satz);
    if (!Anfang.Quelle().Offen()) return Id3v2Ergebnis::Abgelehnt;
    const auto Ort = Id3v2ModernFinden(Anfang, BytesSuchen);
    if (!Ort) return Id3v2Ergebnis::Gelesen;
    const Id3v2Kopf& Kopf = Ort->Kopf;
    Satz.Id3v2Version = "2." + std::to_string(Kopf.Hauptversion) + "." + std::to_string(Kopf.Nebenversion);
    Satz.Id3v2Größe = static_cast<std::int32_t>(Kopf.Gesamtlänge());
    Satz.Id3v2Position = static_cast<std::int64_t>(Ort->Stelle) + 1;
    MitKörper(Anfang, *Ort, [&](const Id3v2Bytes& Körper, std::uint64_t Länge) {
        const Taginhalt Tag = TagZerlegen(Kopf, Körper, Länge);
        for (std::size_t Nummer = 0; Nummer < Feldzahl; ++Nummer) {
            Satz.*Id3v2Rahmenfelder.at(Nummer).Feld = Feldtext(Nummer, Tag.Gezeigt.Felder.at(Nummer));
        }
        Satz.V2Qualität = Qualität(Tag.Gezeigt);
        if (Tag.Gezeigt.WeitereFelder) Satz.Id3v2WeitereFelder = " ";
        if (Tag.Gliederung.MitAuffüllung) {
            Satz.Id3v2Benutzt = Satz.Id3v2Größe - static_cast<std::int32_t>(Länge - Tag.Gliederung.Ende);
        }
    });
    Satz.HatId3v2 = TagVorhanden;
    return Id3v2Ergebnis::Gelesen;
}

Id3v2Ergebnis Id3v2Lesen(Dateianfang& Anfang, std::int64_t BytesSuchen, bool TAGsModern, Datensatz& Satz) {
    return TAGsModern ? Id3v2ModernLesen(Anfang, BytesSuchen, Satz)
                      : Mp3TAGLesenV2(Anfang, BytesSuchen, Satz);
}

Id3v2Neubau Id3v2ModernBilden(std::string_view AlterTag, const Datensatz& Satz) {
    const auto Altkopf = AlterTag.empty() ? Id3v2Kopf() : Id3v2KopfLesen(AlterTag);
    if (const std::string_view Hindernis = HindernisVon(Altkopf, AlterTag); !Hindernis.empty())
        return {{}, std::string(Hindernis)};
    const std::string_view Roh =
        AlterTag.substr(std::min(Id3v2KopfLänge, AlterTag.size()), Altkopf->Körperlänge);
    const bool Umwandeln = Altkopf->KörperUnsynchronisiert();
    const std::string Klar = Umwandeln ? Id3v2UnsynchronisationAufheben(Roh) : std::string();
    const std::string_view Bytes = Umwandeln ? std::string_view(Klar) : Roh;
    const Id3v2Bytes Körper = Speicherkörper(Bytes);
    const Taginhalt Alt = TagZerlegen(*Altkopf, Körper, Bytes.size());
    // What follows the frames and is no padding is not understood, and stays behind them.
    const std::string_view Hinten = Bytes.substr(Alt.Gliederung.Ende);
    const std::string_view Rest = Hinten.substr(0, Hinten.find_last_not_of('\0') + 1);

    Id3v2Kopf Kopf;
    Kopf.Hauptversion = Zielversion(Alt, Körper, !Rest.empty());
    if (Kopf.Hauptversion == Altkopf->Hauptversion) Kopf.Nebenversion = Altkopf->Nebenversion;
    Kopf.Schalter = Altkopf->Schalter & (Id3v2SchalterUnsynchronisiert | Id3v2SchalterErprobung);
    Bauplan Plan;
    if (std::string Hindernis = TagPlanen(Alt.Gezeigt, Satz, Kopf.Hauptversion, Plan); !Hindernis.empty())
        return {{}, std::move(Hindernis)};
    std::string Neu = RahmenBilden(Plan, Kopf, Alt, Körper);
    Neu += Rest;
    if (Umwandeln) Neu = Id3v2UnsynchronisationAnwenden(Neu);
    if (Neu.size() > Id3v2Höchstlänge) return {{}, "Ein ID3v2-TAG kann nicht größer als 256 MB sein."};
    Kopf.Körperlänge = Neu.size();
    return {Id3v2KopfBilden(Kopf) + Neu, {}};
}

}  // namespace liedwerk
