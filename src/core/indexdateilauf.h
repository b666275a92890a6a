// The index files as a person handles them: the recent ones, a new one, the loaded one under another name.
#pragma once

#include <string>
#include <vector>

#include "core/anwendung.h"

namespace liedwerk {

// One of the recent files as it lies there now.
struct Indexdateizeile {
    std::string Pfad;
    bool Vorhanden = false;
    bool Geladen = false;     // it is the one in use
    std::uint64_t Größe = 0;  // bytes
    std::string Geändert;     // "dd.mm.yyyy hh:nn:ss"
};
std::vector<Indexdateizeile> ZuletztGeladeneIndexe(const Anwendung& Programm);
// Takes a file out of the list; the file itself stays.
void ZuletztGeladenVergessen(Anwendung& Programm, std::string_view Pfad);

// The name with the extension of index files when it has none.
std::string MitIndexendung(std::string Name);

// A new, empty index in place of the current one. A file that is there already is never touched: it is loaded
// when the person wants that. False when nothing came of it.
bool NeuenIndexAnlegen(Anwendung& Programm, const std::string& Name);
// Saves the index under another name and goes on with that one; the old file stays as it was saved last. An
// existing file is replaced after a question. On failure everything is as before.
bool IndexSpeichernUnter(Anwendung& Programm, const std::string& Name);

}  // namespace liedwerk
