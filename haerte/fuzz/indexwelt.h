// A load or save of an index file with everything around it.
#pragma once

#include <string>

#include "fuzz/ziel.h"
#include "index/leser.h"
#include "index/schreiber.h"
#include "plattform/linux/ordner.h"
#include "plattform/speicher/person.h"
#include "plattform/speicher/welt.h"

namespace liedwerk::fuzz {

struct Indexwelt {
    Katalog Index;
    Einstellungen Werte;
    speicher::Person Person;
    speicher::Protokollliste Log;
    speicher::StehendeUhr Uhr;
    Systemordnerleser Ordner;
    Indexumgebung Umgebung{Person, Log, Uhr, Ordner, Ablage(), {}, {}};

    Indexwelt() { Werte.BackupsSpeichern = 0; }
    bool Laden(const std::string& Datei) {
        const auto Ergebnis = DateiLaden(Index, Werte, Umgebung, Datei, false, true, 1);
        Index.Programmmodus = static_cast<std::int16_t>(Ergebnis);
        Werte.BackupsSpeichern = 0;
        return Ergebnis == Ladeergebnis::Index;
    }
    std::string Speichern(const std::string& Datei) {
        Fordern(DateiSpeichern(Index, Werte, Umgebung, Datei, false) == Speicherergebnis::Gespeichert,
                "Ein geladener Index lässt sich speichern");
        return DateiInhalt(Datei);
    }
};

}  // namespace liedwerk::fuzz
