// What a save or a removal would cost a file that the editor does not hold, so that the person can be asked
// before it is gone.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "medien/tagdatei.h"

namespace liedwerk {

// Each gives German phrases, one a loss; empty when nothing would be lost or the file cannot be read (then
// the change itself fails). A value that the person has replaced is no loss.
std::vector<std::string> SpeicherverlusteFinden(std::string_view Pfad, Tagblock Block, const Datensatz& Satz,
                                                const Tagoptionen& Optionen);
std::vector<std::string> EntfernverlusteFinden(std::string_view Pfad, Tagblock Block,
                                               const Tagoptionen& Optionen);

}  // namespace liedwerk
