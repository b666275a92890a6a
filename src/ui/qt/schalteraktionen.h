// Switches of the settings that stand in the menus: how the list looks, and what a search takes for equal.
#pragma once

#include "ui/qt/fensterplatz.h"

namespace liedwerk {

// Suchen searches anew with the set as it is.
void SchalteraktionenAnlegen(Fensterplatz& Platz, std::function<void()> Suchen);

}  // namespace liedwerk
