// The five ways of the dialog to add, and what follows them.
#pragma once

#include <string>
#include <vector>

#include "core/anwendung.h"

namespace liedwerk {

enum class Hinzufügeweg { Keiner, Dateien, Ordner, Playliste, Dateinamen, Zwischenablage };

// What the person has chosen in frmIndexHinzufügen.
struct Hinzufügewahl {
    Hinzufügeweg Weg = Hinzufügeweg::Keiner;
    std::vector<std::string> Dateien;  // Dateien: the files
    std::string Pfad;                  // Ordner, Playliste, Dateinamen: folder or list
    std::string Text;                  // Zwischenablage: what lies there
    bool Kopieren = false;             // optVerschieben: the files added are copied or moved afterwards
};

// Adds on the chosen way. Then, where that was chosen and records came in, copies or moves their files as the
// settings say.
void HinzufügewahlAusführen(Anwendung& Programm, const Hinzufügewahl& Wahl);

}  // namespace liedwerk
