// What the tests of saving and of the editor's functions share: an index, a person and the surroundings that
// both take.
#pragma once

#include "medien/tagspeichern.h"
#include "plattform/speicher/person.h"
#include "tests/medien/umgebung.h"

namespace liedwerk {

class Tagwelt : public Medien {
  protected:
    Tagwelt() { Index.Optionen.Dateitypen = DateitypenVorgabe(); }
    // Makes a file and takes it into the index.
    Satznummer Aufnehmen(std::string_view Name, std::string_view Inhalt) {
        const std::string Pfad = Anlegen(Name, Inhalt);
        return SatzAnhängen(Index, Pfad, Welt.Leser(Pfad, {}, {Lesecode::Lesen("1111"), true, true, false}));
    }

    Katalog Index;
    Einstellungen Werte;
    Mediumspeicher Medium;
    speicher::Laufwerksliste Drives;
    speicher::Protokollliste Log;
    speicher::Person Person;
    Rettung Reste{Zeit};
    Tagumgebung Welt{Index,
                     Werte,
                     [this](std::string_view Pfad, const Datensatz& Satz, const Leseauftrag& Was) {
                         Medienumgebung Jetzige = Umgebung;
                         Jetzige.TAGsModern = Werte.TAGsModern == 1;
                         return MedienDatenLesen(Jetzige, Pfad, Satz, Was);
                     },
                     Medium,
                     {Drives, Werte, Log, {}},
                     Person,
                     Reste,
                     "Liedwerk 1.00"};
};

}  // namespace liedwerk
