// The tips of the day: one sentence or two about what the program can do.
#pragma once

#include <span>
#include <string_view>

namespace liedwerk {

// In the order in which they are shown from start to start; the setting TippsAktueller counts them from 1.
std::span<const std::string_view> Tipps();

}  // namespace liedwerk
