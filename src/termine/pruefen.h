// TerminePrüfen: gives the notices of the events that are due.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "basis/oberflaeche.h"
#include "basis/protokoll.h"
#include "basis/uhr.h"
#include "index/katalog.h"

namespace liedwerk {

// What the notice of a due event shows ("Ereignis erreicht").
struct Terminmeldung {
    std::size_t Nummer = 0;
    std::string Text;
    std::string Nächster;  // "dd.mm.yyyy hh:nn:ss" of a recurring event, otherwise empty
    std::int16_t AnzeigeDauer =
        0;  // seconds until it closes by itself, as if answered WieHinterlegt; 0: never
};

enum class Terminwahl {
    WieHinterlegt,   // "Ja, wie hinterlegt"
    Folgendermaßen,  // "Ja, folgendermaßen"
    Nein,            // "Nein"
};
struct Terminantwort {
    Terminwahl Wahl = Terminwahl::WieHinterlegt;
    std::string Zeit;  // txtZeit, which reads as a date; for Folgendermaßen
};

struct Terminumgebung {
    Oberfläche& Person;
    Protokoll& Log;
    const Uhr& Zeit;
    std::function<Terminantwort(const Terminmeldung&)> Melden;  // modal
    // Starts an event's program, which exists, without parameters.
    std::function<void(const Termin&)> ProgrammStarten;
    // "Verpasste Ereignisse": those without recurrence whose date has passed, and what was due beyond the
    // twenty notices of a round. Modal; not called for none.
    std::function<void(const Terminliste&)> VerpassteZeigen;
    // Event Nummer has changed: its row, if the list of events is open.
    std::function<void(std::size_t Nummer)> ZeileAuffrischen;
};

// Walks the events in order; a call during a run (Läuft) returns at once. What has become due marks the index
// as changed. Gives the notices that were shown.
std::vector<Terminmeldung> TerminePrüfen(Katalog& Index, const Terminumgebung& Umgebung, bool& Läuft);

}  // namespace liedwerk
