// Renaming as the person sees it: the run over the selected files, then list and status in line.
#pragma once

#include <span>

#include "core/anwendung.h"
#include "medien/umbenennen.h"

namespace liedwerk {

// The inputs as they were left last, and back into the settings. Only what has a setting is kept.
Umbenennauftrag UmbenennauftragAus(const Einstellungen& Werte, Umbenennfunktion Funktion);
void UmbenennauftragMerken(Einstellungen& Werte, const Umbenennauftrag& Auftrag);

// Runs one function over files of the index; gives the number of files that were changed. The inputs have
// been checked (UmbenennauftragPrüfen).
Satznummer UmbenennenLauf(Anwendung& Programm, const Umbenennauftrag& Auftrag,
                          std::span<const Satznummer> Sätze, const Namensfrage& NamenErfragen);

}  // namespace liedwerk
