#include "plattform/cdabbild.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

#include "basis/ansi.h"
#include "basis/datei.h"
#include "basis/pfad.h"
#include "basis/text.h"

namespace liedwerk {
namespace {

constexpr std::uint64_t HöchstesBlatt = 1 << 20;  // bytes; a sheet of 99 tracks has some ten thousand
constexpr std::size_t HöchsteSpuren = 99;         // IEC 60908
constexpr std::int32_t UngültigesAbbild = 1;      // Fehlernummer

std::uint32_t Zahl32(std::string_view Bytes, std::size_t Stelle) {
    std::uint32_t Wert = 0;
    for (std::size_t i = 4; i-- > 0;)
        Wert = (Wert << 8U) | static_cast<unsigned char>(Bytes[Stelle + i]);
    return Wert;
}

// The chunks of a RIFF file (Multimedia Programming Interface 1.0) up to the sound.
void WaveLesen(const Lesedatei& Datei, Abbilddatei& Ergebnis) {
    constexpr std::uint64_t Kopf = 12;
    constexpr int HöchsteStücke = 1000;
    const std::string Anfang = Datei.Lesen(0, Kopf);
    if (Anfang.size() < Kopf || !Anfang.starts_with("RIFF") || Anfang.substr(8) != "WAVE") return;
    std::uint64_t Stelle = Kopf;
    std::uint64_t BytesJeSekunde = 0;
    for (int Nummer = 0; Nummer < HöchsteStücke; ++Nummer) {
        const std::string Stück = Datei.Lesen(Stelle, 24);
        if (Stück.size() < 8) return;
        const std::uint64_t Länge = Zahl32(Stück, 4);
        Stelle += 8;
        if (Stück.starts_with("fmt ") && Stück.size() >= 20) BytesJeSekunde = Zahl32(Stück, 16);
        if (Stück.starts_with("data")) {
            Ergebnis.Klangbytes = std::min(Länge, Datei.Größe() - std::min(Stelle, Datei.Größe()));
            Ergebnis.BytesJeSekunde = BytesJeSekunde;
            return;
        }
        Stelle += Länge + Länge % 2;
    }
}

// The file of that name in the folder, its letters in another case if need be; empty when there is none.
std::string OhneGroßFinden(std::string_view Ordner, std::string_view Name) {
    std::error_code Fehler;
    const std::string Hier = Ordner.empty() ? std::string(".") : std::string(Ordner);
    for (std::filesystem::directory_iterator Eintrag(Hier, Fehler), Ende; !Fehler && Eintrag != Ende;
         Eintrag.increment(Fehler)) {
        const std::string Dateiname = Eintrag->path().filename().string();
        if (GleichOhneGroß(Dateiname, Name)) return PfadVerbinden(Hier, Dateiname);
    }
    return {};
}

// Where the file lies that a sheet names: as it says, seen from the sheet's folder; else beside the sheet. A
// name from another system has its own separators and may be in another code page.
std::string DateiFinden(std::string_view Blatt, std::string_view Genannt) {
    const std::string_view Ordner = PfadVon(Blatt);
    for (const std::string& Name : {std::string(Genannt), AnsiNachUtf8(Genannt)}) {
        const std::string Pfad = Ersetzen(Name, "\\", "/");
        for (const std::string& Versuch :
             {IstPosixPfad(Name) ? Name : PfadVerbinden(Ordner, Name), PfadVerbinden(Ordner, Pfad),
              PfadVerbinden(Ordner, Pfad.substr(Pfad.rfind('/') + 1))}) {
            if (DateiExistiert(Versuch)) return Versuch;
        }
        const std::string Fund = OhneGroßFinden(Ordner, Pfad.substr(Pfad.rfind('/') + 1));
        if (!Fund.empty()) return Fund;
    }
    return {};
}

struct Sektorart {
    std::string_view Modus;
    std::int64_t Bytes;
};
// The modes of both forms of sheets; raw sectors have 2352 bytes, with their sub-channel 2448.
constexpr std::array<Sektorart, 17> Sektorarten = {{{"AUDIO", 2352},
                                                    {"CDG", 2448},
                                                    {"MODE1/2048", 2048},
                                                    {"MODE1/2352", 2352},
                                                    {"MODE2/2048", 2048},
                                                    {"MODE2/2324", 2324},
                                                    {"MODE2/2336", 2336},
                                                    {"MODE2/2352", 2352},
                                                    {"CDI/2336", 2336},
                                                    {"CDI/2352", 2352},
                                                    {"MODE1", 2048},
                                                    {"MODE1_RAW", 2352},
                                                    {"MODE2", 2336},
                                                    {"MODE2_RAW", 2352},
                                                    {"MODE2_FORM1", 2048},
                                                    {"MODE2_FORM2", 2324},
                                                    {"MODE2_FORM_MIX", 2336}}};

}  // namespace

CDInhalt AbbildFehler(std::string Text) {
    CDInhalt Inhalt;
    Inhalt.Fehlernummer = UngültigesAbbild;
    // Names in a sheet may hold anything.
    std::ranges::replace_if(
        Text, [](unsigned char Byte) { return Byte < 0x20 || Byte == 0x7F; }, ' ');
    Inhalt.Fehlertext = std::move(Text);
    return Inhalt;
}

std::optional<std::int64_t> AbbildZahl(std::string_view Text) {
    constexpr std::size_t Stellen = 10;  // the bytes of a long disc need them
    if (Text.empty() || Text.size() > Stellen) return std::nullopt;
    std::int64_t Wert = 0;
    for (const char Ziffer : Text) {
        if (Ziffer < '0' || Ziffer > '9') return std::nullopt;
        Wert = Wert * 10 + (Ziffer - '0');
    }
    return Wert;
}

std::optional<std::int64_t> AbbildZeit(std::string_view Text) {
    const auto Teile = Teilen(Text, ":");
    if (Teile.size() != 3) return std::nullopt;
    const auto Minuten = AbbildZahl(Teile[0]);
    const auto Sekunden = AbbildZahl(Teile[1]);
    const auto Frames = AbbildZahl(Teile[2]);
    if (!Minuten || !Sekunden || !Frames || *Sekunden >= 60 || *Frames >= CDFramesJeSekunde)
        return std::nullopt;
    return (*Minuten * 60 + *Sekunden) * CDFramesJeSekunde + *Frames;
}

std::optional<std::int64_t> AbbildSektor(std::string_view Modus) {
    const auto* Fund = std::find_if(Sektorarten.begin(), Sektorarten.end(),
                                    [&](const Sektorart& Art) { return GleichOhneGroß(Art.Modus, Modus); });
    return Fund == Sektorarten.end() ? std::nullopt : std::optional(Fund->Bytes);
}

CDInhalt AbbildInhalt(const std::vector<Abbildspur>& Spuren, std::int64_t LeadOut) {
    if (Spuren.empty()) return AbbildFehler("Das CD-Abbild nennt keinen Titel.");
    if (Spuren.size() > HöchsteSpuren) return AbbildFehler("Das CD-Abbild nennt mehr als 99 Titel.");
    CDInhalt Inhalt;
    std::int64_t Vorher = -1;
    for (const Abbildspur& Spur : Spuren) {
        if (Spur.Anfang <= Vorher || Spur.Anfang >= LeadOut) {
            return AbbildFehler("Im CD-Abbild beginnt Titel " + std::to_string(Inhalt.Spuren.size() + 1) +
                                " nicht hinter dem vorigen und vor dem Ende der CD.");
        }
        Vorher = Spur.Anfang;
        Inhalt.Spuren.push_back({static_cast<std::int32_t>(Spur.Anfang), Spur.Daten});
    }
    if (LeadOut > INT32_MAX) return AbbildFehler("Das CD-Abbild ist länger, als eine CD sein kann.");
    Inhalt.LeadOut = static_cast<std::int32_t>(LeadOut);
    return Inhalt;
}

bool IstCDAbbild(std::string_view Pfad) {
    return EndetMitOhneGroß(Pfad, ".cue") || EndetMitOhneGroß(Pfad, ".toc");
}

CDInhalt CDAbbildLesen(std::string_view Pfad) {
    const auto Bytes = DateiLesen(Pfad, HöchstesBlatt);
    const std::string Name(Pfad);
    if (!Bytes) return AbbildFehler("Das CD-Abbild '" + Name + "' konnte nicht gelesen werden.");
    if (Bytes->find('\0') != std::string::npos) return AbbildFehler("'" + Name + "' ist kein CD-Abbild.");
    const auto Ansehen = [&](std::string_view Genannt) -> std::optional<Abbilddatei> {
        const Lesedatei Datei = Lesedatei::Öffnen(DateiFinden(Pfad, Genannt));
        if (!Datei.Offen()) return std::nullopt;
        Abbilddatei Ergebnis;
        Ergebnis.Größe = Datei.Größe();
        WaveLesen(Datei, Ergebnis);
        return Ergebnis;
    };
    std::string_view Text = *Bytes;
    constexpr std::string_view Bytemarke = "\xEF\xBB\xBF";
    if (Text.starts_with(Bytemarke)) Text.remove_prefix(Bytemarke.size());
    return EndetMitOhneGroß(Pfad, ".toc") ? TocAuswerten(Text, Ansehen) : CueAuswerten(Text, Ansehen);
}

}  // namespace liedwerk
