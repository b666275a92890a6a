// The digest of a file, by which it is known again.
#pragma once

#include <string>
#include <string_view>

namespace liedwerk {

// SHA-256 (FIPS 180-4) of a file's content as 64 hexadecimal digits; empty when it cannot be read.
std::string DateiPrüfsumme(std::string_view Pfad);

}  // namespace liedwerk
