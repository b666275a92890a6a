// CDDaten, the record of the current CD, and what a run knows of the CD loaded last.
//
// cd/ is what the system knows about audio CDs: clsCcd (inhaltsverzeichnis.h) reads the table of contents
// through the port plattform/cdlaufwerke.h and makes the disc id of it; CDDBDatenBereiten (cdbereiten.h)
// fills a record for the disc in a drive; xmcd.h turns records into xmcd text and back, the form of the CD
// database and of the cache; cdspeicher.h keeps one small file for each disc in the folder "CDDB". The
// database itself is spoken to by the files cddb*. CDStand is the state of a run: the record, the error of
// the last request, and which CD's file is loaded. Text members are UTF-8; they may hold CR LF, but no other
// control character. Whoever shows one in a list takes CDEinzeilig.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace liedwerk {

// Places in the table of titles; a CD has up to 99.
inline constexpr std::size_t CDHöchsteTitel = 100;

// A track of the record.
struct CDTitel {
    std::string Titel;
    std::int32_t Dauer = 0;   // seconds
    std::int32_t Offset = 0;  // start in frames, absolute on the disc
    std::int32_t Frames = 0;  // the frames of that start, 0 to 74
    bool Datenspur = false;   // no sound: it has its number and its place, but is no title to play
    bool operator==(const CDTitel&) const = default;
};

// What a disc is called that nobody knows.
inline constexpr std::string_view CDStandardAlbum = "Unbekanntes Album";
inline constexpr std::string_view CDStandardInterpret = "Unbekannter Interpret";
// The number that stands for no genre: the highest that comes back from a file, above all names.
inline constexpr std::int16_t CDOhneGenre = 145;

struct CDDaten {
    std::string ID;  // disc id
    std::string Laufwerk;
    std::string Protokoll;  // the log that the dialog shows; every step appends to it
    // The three parts of a request.
    std::string Befehl;
    std::string Adresse;
    std::string Hallo;
    std::string Album;
    std::string Interpret;
    std::string Kategorie;         // genre of the CD database
    std::int16_t ID3Genre = -1;    // ID3v1 number; below 0: not known, above 144: none
    std::int32_t Gesamtdauer = 0;  // seconds, the two of the lead-in included
    std::string Jahr;
    std::string Erweitert;                      // free text, lines separated by CR LF
    std::int16_t AnzahlTitel = 0;               // of the places in Titel, 0 to 100
    std::array<CDTitel, CDHöchsteTitel> Titel;  // track 1 at place 0
    std::int32_t LeadOutOffset = 0;             // frames
    std::string Text;                           // the xmcd text that was read last, as it came
    bool operator==(const CDDaten&) const = default;
};

// What a run knows of CDs. The record survives until the next CDDBStart.
struct CDStand {
    CDDaten Daten;
    // The CD whose file is loaded; empty: none.
    std::string CDDBZuletztID;
    std::string CDDBZuletztLaufwerk;
    // Outcome of the last request: 0 none, 1 a normal end without a result, -1 a failure.
    std::int32_t CDDBFehler = 0;
    std::string CDDBFehlerText;
};

// No CD is loaded any more; the record stays.
void CDVergessen(CDStand& Stand);

// True for exactly eight hexadecimal digits: only such an id may become the name of a file.
bool CDIDGültig(std::string_view ID);

// The text as it may stand in a list: each line break and each other control character is a blank.
std::string CDEinzeilig(std::string_view Text);

// The text with each control character but CR and LF as a blank.
std::string CDOhneSteuerzeichen(std::string_view Text);

// Appends a line to the record's log.
void CDProtokollieren(CDDaten& Daten, std::string_view Zeile);

}  // namespace liedwerk
