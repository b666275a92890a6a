// What the operations on the files of an index take from their surroundings.
#pragma once

#include "basis/einstellungen.h"
#include "basis/oberflaeche.h"
#include "basis/protokoll.h"
#include "dateien/medium.h"
#include "index/katalog.h"
#include "plattform/ordnerleser.h"
#include "plattform/papierkorb.h"

namespace liedwerk {

struct Dateiumgebung {
    Katalog& Index;
    const Einstellungen& Werte;
    Oberfläche& Person;
    Protokoll& Log;
    const Ordnerleser& Ordner;
    Mediumspeicher& Medium;
    Mediumumgebung Laufwerk;
    Papierkorb* Eimer = nullptr;  // missing: nothing can be moved there
};

}  // namespace liedwerk
