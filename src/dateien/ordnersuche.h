// DateienSuchenAPI: the recursive walk over a folder.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "basis/oberflaeche.h"
#include "plattform/ordnerleser.h"

namespace liedwerk {

struct Ordnersuche {
    std::vector<std::string> Endungen;  // suffixes, compared without regard to case; empty: every file
    bool Unterordner = false;
    bool OrdnerAuflisten = false;
};

// Appends what the walk finds to FundListe: the files of a folder in the system's order, then each sub-folder
// depth first, and at last what lies behind links to folders elsewhere. Hidden files are found, links to
// files followed, no folder is visited twice, unreadable folders yield nothing and are appended to Ungelesen.
// With Person the folder is shown in the progress display; false when the person cancelled.
bool DateienSuchenAPI(const Ordnerleser& Leser, std::string_view Ordner, const Ordnersuche& Suche,
                      Oberfläche* Person, std::vector<std::string>& FundListe,
                      std::vector<std::string>* Ungelesen = nullptr);

}  // namespace liedwerk
