// The commands of liedwerk-cli: one sorted table, and the functions in it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ui/text/aufruf.h"

namespace liedwerk {

struct Befehl {
    std::string_view Name;
    std::string_view Aufruf;  // usage line without the program's name
    std::string_view Hilfe;   // lines of help
    std::vector<Optionsform> Optionen;
    std::size_t Mindestens = 0;  // number of arguments
    std::size_t Höchstens = 0;
    // Checks its values first (FalscherAufruf), then acts. Messages have been shown when it comes back.
    Ausgang (*Ausführen)(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
};

// All commands, sorted by name.
std::span<const Befehl> Befehle();
const Befehl* BefehlFinden(std::string_view Name);

// The text of "--hilfe", of a command's "--hilfe", and its usage line.
std::string Hilfetext();
std::string Hilfetext(const Befehl& Eintrag);
std::string Aufrufzeile(const Befehl& Eintrag);

// befehle_aufraeumen.cpp
Ausgang AufräumenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
// befehle_index.cpp
Ausgang IndexNeuAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
Ausgang IndexInfoAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
Ausgang IndexSpeichernAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
Ausgang SätzeAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
Ausgang SortierenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
// befehle_austausch.cpp
Ausgang ExportAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
Ausgang FelderSchreibenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
Ausgang FelderLesenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
// befehle_cddb.cpp
Ausgang CddbAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
// befehle_cd.cpp
Ausgang CdInfoAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
Ausgang CdCacheAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
Ausgang XmcdAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
// befehle_dateien.cpp
Ausgang DateiInfoAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
Ausgang DateiInfoTextAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
Ausgang HinzufügenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
Ausgang SynchronisierenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
// befehle_tags.cpp
Ausgang TagSchreibenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
Ausgang TagEntfernenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
// befehle_kopieren.cpp
Ausgang UmbenennenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
Ausgang KopierenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
// befehle_abspielen.cpp
Ausgang AbspielenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
Ausgang SpielerAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
Ausgang TitelErkennenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
Ausgang AutoDjAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
// befehle_suche.cpp
Ausgang SuchenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
Ausgang FeldwerteAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
Ausgang MehrfachsucheAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
Ausgang VorschlägeAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
// befehle_tagfunktionen.cpp
Ausgang AutotagAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
Ausgang TagAufräumenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
Ausgang TagFunktionAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
// befehle_termine.cpp
Ausgang TermineAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
Ausgang TerminNächsterAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);
Ausgang TerminePrüfenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe);

}  // namespace liedwerk
