// A record as the command line shows it.
#pragma once

#include <string_view>

#include "index/datensatz.h"
#include "ui/text/ausgabe.h"
#include "ui/text/json.h"

namespace liedwerk {

// The object of a record: "Nummer" when it is above 0, "Pfad", then the members by their names.
void SatzAlsJson(JsonSchreiber& Ziel, Satznummer Nummer, std::string_view Pfad, const Datensatz& Satz);
// The same for a person: one line a member, those without content left out.
void SatzAlsText(Ausgabe& Ziel, Satznummer Nummer, std::string_view Pfad, const Datensatz& Satz);

// An aligned line "name  value".
void AngabeSchreiben(Ausgabe& Ziel, std::string_view Name, std::string_view Inhalt);

}  // namespace liedwerk
