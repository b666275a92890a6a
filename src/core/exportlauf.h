// The export as a flow: what stands around the writing of a list.
#pragma once

#include <functional>
#include <span>
#include <string>

#include "core/anwendung.h"
#include "export/exportieren.h"

namespace liedwerk {

// The message of the Dateimanager-Modus, which has no export; true when it was shown.
bool ExportGesperrt(Anwendung& Programm);

// Asks before an existing file is replaced; false: it stays.
bool ExportErlaubt(Oberfläche& Person, const std::string& Datei);

// True when the file is the loaded index or another one: nothing else may be written over it, which the
// person is told.
bool IndexdateiGeschützt(Anwendung& Programm, const std::string& Datei);

// Writes the list; false when that failed, which has been shown.
bool ExportierenLauf(Anwendung& Programm, std::span<const Satznummer> Sätze, const Exportauftrag& Auftrag);

// How a written file can be shown.
enum class Exportanzeige { Keine, Editor, Anwendung };
// Asks whether and how the file shall be shown, and sets the status text.
Exportanzeige ExportAnzeigeFragen(Oberfläche& Person, const std::string& Datei);

}  // namespace liedwerk
