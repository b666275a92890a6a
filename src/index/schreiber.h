// Writing an index file: change test, rolling backups, the "~" file and its rename.
#pragma once

#include <string_view>

#include "index/leser.h"

namespace liedwerk {

enum class Speicherergebnis { Fehlgeschlagen = -1, Abgebrochen = 0, Gespeichert = 1 };

// DateiSpeichern. Every failure has been shown and logged when it comes back; the index in memory and the old
// file are then as they were.
Speicherergebnis DateiSpeichern(Katalog& Index, const Einstellungen& Werte, const Indexumgebung& Umgebung,
                                std::string_view Dateiname, bool MitFortschritt);

}  // namespace liedwerk
