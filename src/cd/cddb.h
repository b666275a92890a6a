// The CD database: a disc's data from a server, or to it, over HTTP (CDDB protocol level 5, as CGI requests).
//
// CDDBStart is the whole assistant: table of contents, cache, then the server when it is wanted. The server's
// bounds are those of the port plattform/http.h; its bytes become text at once (xmcd.h). What happened stands
// in the record's log, how it ended in the error state of CDStand.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "basis/einstellungen.h"
#include "basis/oberflaeche.h"
#include "cd/cdbereiten.h"
#include "plattform/http.h"

namespace liedwerk {

// The categories that the servers of the database know.
inline constexpr std::array<std::string_view, 11> CDDBKategorien = {
    "blues", "classical", "country", "data", "folk",      "jazz",
    "misc",  "newage",    "reggae",  "rock", "soundtrack"};

struct CDDBUmgebung {
    CDUmgebung Disc;
    const Einstellungen& Werte;  // CDDBServer, CDDBEmail
    Http* Netz = nullptr;        // missing: every request fails
    Oberfläche& Person;
    // frmCDDatenCDWählen: the number of the chosen row, from 1; 0 for a cancel. Missing: nothing is chosen.
    std::function<std::size_t(const std::vector<std::string>& Zeilen)> Wählen{};
};

// What CDDBStart shall do beyond reading the disc and the cache.
struct CDDBWunsch {
    bool Speichern = false;  // what the server gave goes into the cache
    bool Senden = false;     // the disc's data goes to the server, nothing is asked
    bool NurLesen = false;   // no server is asked, even if the cache does not know the disc
    bool Abfragen = false;   // the server is asked even if the cache knows the disc
    bool Probe = true;       // a submission is one for trying: the server judges it and drops it
    // What the person has entered for the disc: it counts in place of the cache, as long as that disc is in.
    const CDDaten* Eingaben = nullptr;
};

// Where the record's data comes from at the end.
enum class CDDBHerkunft { Keine, Standard, Speicher, Eingaben, Server };

// Fills the record of Stand for the disc in a drive. Keine: the disc cannot be read, the record is empty.
// Whatever kept it from asking the server or from sending is shown and stands in CDDBFehler.
CDDBHerkunft CDDBStart(CDStand& Stand, const CDDBUmgebung& Umgebung, std::string_view Laufwerk,
                       const CDDBWunsch& Wunsch);

// Query and read by Befehl, Adresse and Hallo of the record; true when the record holds what was read.
bool CDDBAbfragen(CDStand& Stand, const CDDBUmgebung& Umgebung);

// One HTTP GET: the body as text; empty when it is empty or failed, which the record's log tells. A cancel
// and a redirection set the error state. Schritt is what the progress display shows meanwhile.
std::string CDDBAnfrage(CDStand& Stand, const CDDBUmgebung& Umgebung, const std::string& Url,
                        std::string_view Schritt = {});

// Judges the reply to the query: 0 it ends here, 1 read the disc ID of Kategorie, 2 nothing was chosen among
// several (the read is sent all the same). ID is the record's before the call.
int CDDBResultatVerarbeiten(CDStand& Stand, const CDDBUmgebung& Umgebung, std::string_view Antwort,
                            std::string& ID);

// Judges the reply to the read; true when its data is in the record now.
bool CDDBLeseResultatVerarbeiten(CDStand& Stand, const CDDBUmgebung& Umgebung, std::string_view Antwort);

// Sends the record's data to the server: Probe in mode "test", else "submit". True when it was taken, which
// has been told to the person then.
bool CDDBSenden(CDStand& Stand, const CDDBUmgebung& Umgebung, bool Probe);

// What a failed request is told as; "Unbekannter Fehler" where there is nothing to say.
std::string_view WinInetFehlerText(Httpfehler Fehler);

// "http://" and the server of the settings as it can stand in an address, without a path.
std::string CDDBServeradresse(std::string_view Server);

// Why a mail address cannot go to a server, as a German text; empty when it can.
std::string CDDBEmailPrüfen(std::string_view Adresse);

}  // namespace liedwerk
