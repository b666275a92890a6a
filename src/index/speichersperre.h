// The "~" file beside an index: a save that is running, or one that was cut off.
#pragma once

#include <string>

#include "index/leser.h"

namespace liedwerk {

// So long a load waits for a save to end, and a save for another one.
inline constexpr std::int64_t SperreHöchstens = 4000;  // milliseconds
inline constexpr std::int64_t SperreAbstand = 50;

// The temporary name of an index file. Through a symbolic link it is that of the real file, so that everybody
// who saves the index meets under one name.
std::string TemporärnameVon(const std::string& Datei);
// An error when under that name lies what no save of an index has begun, such as an editor's backup copy of
// something else: a save must not take it over.
Dateifehler TemporärnamePrüfen(const std::string& Datei);

// Waits for a "~" file of Datei to go, asks when it stays, and clears it away. False when the person does not
// want to load. A "~" that another program holds is left alone; one that a finished save has left behind
// takes the place of an index that is missing or broken.
bool SpeicherendeAbwarten(const std::string& Datei, bool MitFortschritt, const Indexumgebung& Umgebung);

}  // namespace liedwerk
