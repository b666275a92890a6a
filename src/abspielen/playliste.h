// The hand-over file: a play list that is written for the player and handed to it on its command line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "basis/uhr.h"
#include "index/katalog.h"
#include "plattform/ordnerleser.h"

namespace liedwerk {

struct Playliste {
    bool Offen = false;
    std::string Inhalt;
    int Anzahl = 0;  // files in it
};

// The extended head of a record: "#EXTINF:" with seconds and "Interpret - Titel" of the ID3v1 tag; empty when
// it has no duration or no such tag.
std::string ExtInfZeile(const Katalog& Index, Satznummer Nummer);

// Where the file of the next hand-over lies: beside the player, or, where that is no folder to write to
// (what the system has installed is not), below Laufzeitordner under a new name each time, because players
// read the list when they come to it.
std::string PlaylistdateiWählen(std::string_view WinampPfad, std::string_view Laufzeitordner,
                                const Zeitpunkt& Jetzt);
// Removes the play lists that have lain in the folder for longer than players take to read them.
void AltePlaylistenLöschen(const Ordnerleser& Ordner, const Uhr& Zeit, std::string_view Laufzeitordner);

// Writes the content as a whole. Empty on success, else the German reason.
std::string PlaylisteSchreiben(std::string_view Datei, std::string_view Inhalt);

}  // namespace liedwerk
