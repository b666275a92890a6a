// The ports of the real system, for those who may not see what they are made of.
#pragma once

#include <memory>
#include <string>

#include "plattform/cdlaufwerke.h"
#include "plattform/desktopfarben.h"
#include "plattform/http.h"
#include "plattform/laufwerke.h"
#include "plattform/medienauskunft.h"
#include "plattform/papierkorb.h"
#include "plattform/programmstart.h"
#include "plattform/spieler.h"

namespace liedwerk {

std::unique_ptr<Laufwerke> SystemlaufwerkeÖffnen();
std::unique_ptr<CDLaufwerke> SystemcdsÖffnen();
std::unique_ptr<Medienauskunft> SystemauskunftÖffnen();
std::unique_ptr<Papierkorb> SystempapierkorbÖffnen();
std::unique_ptr<Http> SystemnetzÖffnen();
// The running audio players, and other programs.
std::unique_ptr<Spielerkanal> SystemspielerÖffnen();
std::unique_ptr<Programmstart> SystemprogrammeÖffnen();
std::unique_ptr<Desktopfarben> SystemfarbenÖffnen();
// Name and version of the operating system and its kernel.
std::string Systemtext();

}  // namespace liedwerk
