// The ways to a CD's data: the assistant over a disc, and the cache.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "cd/cddb.h"
#include "core/anwendung.h"

namespace liedwerk {

// Chooses among several discs that the database offers; see CDDBUmgebung.
using CDWahl = std::function<std::size_t(const std::vector<std::string>& Zeilen)>;

// Needs the port to the CDs, as all that follows.
CDDBUmgebung CDDBUmgebungVon(Anwendung& Programm, CDWahl Wählen);

// CDDBStart over the run's record. A disc that cannot be read is told to the person.
CDDBHerkunft CDStarten(Anwendung& Programm, std::string_view Laufwerk, const CDWahl& Wählen,
                       const CDDBWunsch& Wunsch);

// The disc by the cache, or by the server when one is set: nobody who has set none is told about it unasked.
CDDBHerkunft CDEinlesen(Anwendung& Programm, std::string_view Laufwerk, const CDWahl& Wählen);

// Asks the server for the disc, or sends its data (Probe: for trying), whatever the cache knows. Eingaben is
// what the person has entered: it is the run's record again when nothing came of it, also because another
// disc is in the drive by now, of which then nothing is kept.
CDDBHerkunft CDAbfragen(Anwendung& Programm, const CDDaten& Eingaben, const CDWahl& Wählen);
void CDSenden(Anwendung& Programm, const CDDaten& Eingaben, bool Probe);

// Whether the disc whose data the person has accepted is still in the drive; otherwise she is told.
bool CDLiegtNoch(Anwendung& Programm, std::string_view Laufwerk);

// The run's record from the cache, with the table of contents that its file tells. False, told to the person,
// when there is no such file.
bool CDAusSpeicherLesen(Anwendung& Programm, std::string_view ID);

// Keeps the data in the cache and makes it the run's record as it reads from there. False, told to the
// person, when it could not be written.
bool CDÜbernehmen(Anwendung& Programm, const CDDaten& Daten);

}  // namespace liedwerk
