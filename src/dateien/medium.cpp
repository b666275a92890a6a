#include "dateien/medium.h"

#include <algorithm>
#include <array>

#include "basis/datei.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "cd/inhaltsverzeichnis.h"

namespace liedwerk {
namespace {

// "D:" or "D:\"; everything longer is a path on a drive.
bool IstWindowsLaufwerk(std::string_view Pfad) {
    const std::size_t Länge = ZeichenAnzahl(Pfad);
    return !IstPosixPfad(Pfad) && (Länge == 2 || Länge == 3);
}

// The first track of an audio CD as a file of its drive.
constexpr std::string_view ErsterTitelWindows = "track01.cda";
// Of a disc of mixed mode the first track is data, and the sound begins with the second.
constexpr std::array<std::string_view, 2> ErsteTitelPosix = {"Track01.cda", "Track02.cda"};

std::string CdKennung(const Mediumumgebung& Umgebung, std::string_view Laufwerk) {
    clsCcd Disc;
    if (Umgebung.CDs != nullptr && !Disc.Init(*Umgebung.CDs, Laufwerk)) {
        Umgebung.Log.Schreiben("WechselmediumVergleichenStarten: Fehler bei CD-Initialisierung - " +
                               CDFehlertext(Disc));
    }
    return Disc.DiskID;
}

}  // namespace

void MediumVergessen(Mediumspeicher& Speicher) {
    const bool Überspringen = Speicher.AlleÜberspringen;
    Speicher = {};
    Speicher.AlleÜberspringen = Überspringen;
}

std::string LaufwerkDesPfades(const Mediumumgebung& Umgebung, std::string_view Pfad) {
    return IstPosixPfad(Pfad) ? Umgebung.Drives.LaufwerkVon(Pfad) : std::string(LinkerTeil(Pfad, 3));
}

bool LaufwerkExistiert(const Mediumumgebung& Umgebung, std::string_view Laufwerk) {
    if (IstPosixPfad(Laufwerk)) {
        const std::string Wurzel = MitTrenner(Laufwerk);
        return Umgebung.Drives.LaufwerkVon(Wurzel) == Wurzel && Umgebung.Drives.Vorhanden(Wurzel);
    }
    return IstWindowsLaufwerk(Laufwerk) && Umgebung.Drives.Vorhanden(MitTrenner(Laufwerk));
}

bool LaufwerkIstAudioCD(const Mediumumgebung& Umgebung, std::string_view Pfad) {
    if (!LaufwerkExistiert(Umgebung, Pfad)) return false;
    const std::string Wurzel = MitTrenner(Pfad);
    if (Umgebung.Drives.Art(Wurzel) != Laufwerksart::CdRom) return false;
    if (!IstPosixPfad(Pfad)) return DateiExistiert(Wurzel + std::string(ErsterTitelWindows));
    return std::ranges::any_of(
        ErsteTitelPosix, [&](std::string_view Name) { return DateiExistiert(Wurzel + std::string(Name)); });
}

bool LaufwerkIstWechsellaufwerk(Mediumspeicher& Speicher, const Mediumumgebung& Umgebung,
                                std::string_view Laufwerk) {
    if (Laufwerk.empty()) return false;
    if (Speicher.GefragtesLaufwerk == Laufwerk) return Speicher.GefragtWechsel;
    const auto Art = Umgebung.Drives.Art(Laufwerk);
    Speicher.GefragtesLaufwerk = Laufwerk;
    Speicher.GefragtWechsel =
        Art == Laufwerksart::Wechsel || Art == Laufwerksart::CdRom || Art == Laufwerksart::Speicher ||
        (Art == Laufwerksart::Netzwerk && Umgebung.Werte.NichtVerfügbarNetzwerkIstWechselmedium == 1);
    return Speicher.GefragtWechsel;
}

std::string WechselmediumLesen(Mediumspeicher& Speicher, const Mediumumgebung& Umgebung,
                               std::string_view Laufwerk, bool MitCDID) {
    if (!LaufwerkIstWechsellaufwerk(Speicher, Umgebung, Laufwerk)) return {};
    std::string Name = Umgebung.Drives.Datenträgername(Laufwerk);
    std::erase_if(Name, [](char Zeichen) {
        return Zeichen == '\0' || Zeichen == '\1' || Zeichen == '\n' || Zeichen == '\r';
    });
    Name.resize(RechtsKürzen(Name).size());
    if (MitCDID && LaufwerkIstAudioCD(Umgebung, Laufwerk)) Name += " " + Speicher.AktuelleCDID;
    return Name;
}

void WechselmediumVergleichenStarten(Mediumspeicher& Speicher, const Mediumumgebung& Umgebung,
                                     std::string_view Laufwerk) {
    Speicher.AktuellesLaufwerk.clear();
    Speicher.AktuellesWechselmedium.clear();
    if (LaufwerkIstWechsellaufwerk(Speicher, Umgebung, Laufwerk)) {
        const bool AudioCD = LaufwerkIstAudioCD(Umgebung, Laufwerk);
        Speicher.AktuelleCDID = AudioCD ? CdKennung(Umgebung, Laufwerk) : std::string();
        Speicher.AktuellesWechselmedium = WechselmediumLesen(Speicher, Umgebung, Laufwerk, AudioCD);
    }
    Speicher.AktuellesLaufwerk = Laufwerk;
}

bool WechselmediumVergleichen(Mediumspeicher& Speicher, const Mediumumgebung& Umgebung,
                              std::string_view Laufwerk, std::string_view Gespeichert, std::string& Aktuell) {
    if (!PfadeGleich(Laufwerk, Speicher.AktuellesLaufwerk)) {
        WechselmediumVergleichenStarten(Speicher, Umgebung, Laufwerk);
    }
    Aktuell = Speicher.AktuellesWechselmedium;
    return Aktuell == Gespeichert;
}

}  // namespace liedwerk
