// What servers of the CD database can do to the program.
#pragma once

#include "haerte/stoerung/pruefung.h"

namespace liedwerk::haerte {

// Every behaviour of a hostile server, all at once, each twice: until the program has ended by itself, and
// with a SIGINT that it has to obey. The program's real bounds hold. Prints a table.
void ServerPrüfen(const Orte& Wo, Bericht& Wohin);

}  // namespace liedwerk::haerte
