// The identity of removable media: questions to drives, the cached current medium, and what happens when a
// file is not at hand.
//
// dateien/ brings files into the index and keeps it true. Mediumspeicher remembers the medium read last, so
// that an operation over many files asks the drive once; DateiNichtVerfügbarPrüfen stands in front of every
// operation on a file of the index. Drives come through the port plattform/laufwerke.h; folders through
// plattform/ordnerleser.h.
#pragma once

#include <string>
#include <string_view>

#include "basis/einstellungen.h"
#include "basis/oberflaeche.h"
#include "basis/protokoll.h"
#include "index/katalog.h"
#include "plattform/cdlaufwerke.h"
#include "plattform/laufwerke.h"

namespace liedwerk {

// The current medium cache and the run's answers.
struct Mediumspeicher {
    std::string AktuellesLaufwerk;       // the drive read last; empty: nothing is cached
    std::string AktuellesWechselmedium;  // its medium text
    std::string AktuelleCDID;            // disc id of the audio CD in it, else empty
    std::string GefragtesLaufwerk;       // last drive type question
    bool GefragtWechsel = false;         // and its answer
    bool AlleÜberspringen = false;       // "&Alle überspringen" was chosen; holds until a caller clears it
};

// What these procedures take from their surroundings.
struct Mediumumgebung {
    const Laufwerke& Drives;
    const Einstellungen& Werte;
    Protokoll& Log;
    const CDLaufwerke* CDs = nullptr;  // missing: no audio CD can be read
};

// Forgets the medium and the drive asked last, so that the next question looks at the drive again.
void MediumVergessen(Mediumspeicher& Speicher);

// The drive of a path: the first three characters of a Windows path, the port's answer for a POSIX path.
std::string LaufwerkDesPfades(const Mediumumgebung& Umgebung, std::string_view Pfad);

// True for a drive that is there: "D:" or "D:\", or the root of a POSIX drive with or without its final "/".
bool LaufwerkExistiert(const Mediumumgebung& Umgebung, std::string_view Laufwerk);
// True when the drive (not a path on it) holds an audio CD.
bool LaufwerkIstAudioCD(const Mediumumgebung& Umgebung, std::string_view Pfad);
// Removable, CD-ROM, RAM disk, and by the setting a network drive. The last answer is kept.
bool LaufwerkIstWechsellaufwerk(Mediumspeicher& Speicher, const Mediumumgebung& Umgebung,
                                std::string_view Laufwerk);
// The cleaned volume label of a removable drive, for an audio CD with its cached id if MitCDID; empty for
// other drives and without a medium.
std::string WechselmediumLesen(Mediumspeicher& Speicher, const Mediumumgebung& Umgebung,
                               std::string_view Laufwerk, bool MitCDID);
// Reads the medium now in the drive into the cache.
void WechselmediumVergleichenStarten(Mediumspeicher& Speicher, const Mediumumgebung& Umgebung,
                                     std::string_view Laufwerk);
// True when the medium now in the drive equals the stored text exactly; Aktuell receives the current one.
bool WechselmediumVergleichen(Mediumspeicher& Speicher, const Mediumumgebung& Umgebung,
                              std::string_view Laufwerk, std::string_view Gespeichert, std::string& Aktuell);

// True when a file that is missing may come back with its medium: its drive is a removable one, or its record
// tells of a medium (the drive may be unknown to the system while the medium is out).
bool KannWiederkommen(Mediumspeicher& Speicher, const Mediumumgebung& Umgebung, std::string_view Pfad,
                      std::string_view Wechselmedium, std::string_view Laufwerk);

enum class Verfügbarkeit { Weiter = 0, Überspringen = 1, Abbrechen = 2 };
// Asks for the medium of a record's file when it is not at hand, and watches for it. A missing file that can
// come back with no medium gives Weiter, or Überspringen with NichtLaufwerkÜberspringen.
Verfügbarkeit DateiNichtVerfügbarPrüfen(const Katalog& Index, Satznummer Nummer, Mediumspeicher& Speicher,
                                        const Mediumumgebung& Umgebung, Oberfläche& Person,
                                        bool NichtLaufwerkÜberspringen);

}  // namespace liedwerk
