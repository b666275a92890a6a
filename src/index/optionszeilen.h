// The "#OPT:" lines: the options of an index in its file. Reading and writing walk one table.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "index/katalog.h"

namespace liedwerk {

// Takes an option line over. What is wrong with it goes to Beanstanden (the kind of fault, German, as the log
// names it); whatever can be read is kept, the rest keeps its default.
void OptionszeileLesen(Indexoptionen& Optionen, std::string_view Zeile,
                       const std::function<void(std::string_view)>& Beanstanden);

// Appends all option lines in the order of the file, with line ends.
void OptionszeilenSchreiben(std::string& Ziel, const Indexoptionen& Optionen);

}  // namespace liedwerk
