// The repair pass of a load: records that lack data are read from their files again.
#pragma once

#include "index/leser.h"

namespace liedwerk {

// Walks over all records. MitFortschritt: a progress display may be opened. Sets IndexGeändert when a record
// was read.
void FehlendesNachlesen(Katalog& Index, const Einstellungen& Werte, const Indexumgebung& Umgebung,
                        bool MitFortschritt);

}  // namespace liedwerk
