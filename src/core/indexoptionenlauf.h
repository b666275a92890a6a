// The options that belong to the loaded index: changing its file types and folders, checking and taking over.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "core/anwendung.h"

namespace liedwerk {

// The place of a flag in Dateityp::Schalter.
enum class Typschalter : std::uint8_t { Mpeg = 0, Player = 1, Bild = 2 };
bool TypVerwaltet(const Dateityp& Typ);
bool TypschalterLesen(const Dateityp& Typ, Typschalter Welcher);
void TypVerwaltetSetzen(Dateityp& Typ, bool Verwaltet);
void TypschalterSetzen(Dateityp& Typ, Typschalter Welcher, bool An);

// Adds an extension ("mp3", also "*.mp3" and ".mp3"), managed and for the player. Empty on success, else what
// is wrong with it.
std::string DateitypHinzufügen(Indexoptionen& Optionen, std::string_view Endung);
// The same for a new extension of an entry (0-based). MitWeiteren: the further formats are switched on, and
// so are among the defaults.
std::string DateitypUmbenennen(Indexoptionen& Optionen, std::size_t Platz, std::string_view Endung,
                               bool MitWeiteren = false);
// Removes an entry (0-based). One of the defaults comes back with every load, so that it can only be taken
// out of the management: it stays then, and the text says so. Empty when it is gone.
std::string DateitypEntfernen(Indexoptionen& Optionen, std::size_t Platz, bool MitWeiteren = false);

// What is wrong with a folder to synchronise, itself the entry Platz of the rules; empty when nothing is.
std::string SyncRegelPrüfen(const Indexoptionen& Optionen, std::size_t Platz);

struct Indexoptionenfehler {
    std::size_t Regel;  // 0-based
    std::string Meldung;
};
// The first rule that is wrong, among those that Alt does not have.
std::optional<Indexoptionenfehler> IndexoptionenPrüfen(const Indexoptionen& Neu, const Indexoptionen& Alt);

// Takes the options over and shows what changed; marks the index as changed when they differ.
void IndexoptionenÜbernehmen(Anwendung& Programm, Indexoptionen Neu);

}  // namespace liedwerk
