// What the command table tells about the form of each command, taken apart for the documents that are made
// from it: the manual page and the completions of the shells.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace liedwerk {

// What may stand at a place of a call.
enum class Wertart { Frei, Datei, Ordner, Feldname, Auswahl };

struct Wertbild {
    Wertart Art = Wertart::Frei;
    std::string Name;                  // as in the usage line, for example "DATEI"
    std::vector<std::string> Auswahl;  // the words, when they are fixed
};

struct Optionsbild {
    std::string Name;  // with its "--"
    bool MitWert = false;
    Wertbild Wert;
};

struct Befehlsbild {
    std::string Name;   // empty: the options that stand with every command
    std::string Hilfe;  // its lines
    std::vector<Optionsbild> Optionen;
    Wertbild Argument;  // the first one behind the command
};

// The global options first, then every command in the order of the table.
std::vector<Befehlsbild> BefehlsbilderLesen();

// A text of help as paragraphs: first what is explained ("--index DATEI"; empty in plain prose), then the
// explanation.
std::vector<std::pair<std::string, std::string>> HilfeZerlegen(std::string_view Hilfe);

}  // namespace liedwerk
