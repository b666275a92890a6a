// The letters that are one letter without regard to case.
#pragma once

#include <vector>

namespace liedwerk {

// Every character that folds to the same one as this, itself among them: "k", "K" and the sign for Kelvin.
std::vector<char32_t> SchreibungenVon(char32_t Zeichen);

}  // namespace liedwerk
