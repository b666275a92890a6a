// Reminders: what a person stores, what a list shows of it, and (wiederkehr.h, pruefen.h) when they fire.
//
// A Termin (index/termin.h) is an event of the index, in messages "Ereignis": a dated note with an optional
// notice, which may come again. TerminHinzufügen and TerminÄndern turn what a form holds into one;
// TerminNächsterTermin tells when its notice is due; TerminePrüfen walks all events and gives the notices
// through the functions of its surroundings. Numbers of events are 1-based.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "basis/datum.h"
#include "index/termin.h"

namespace liedwerk {

// The proposals of the category, to which a person may write others.
inline constexpr std::array<std::string_view, 4> TerminKategorien = {"Erinnerung", "Termin",
                                                                     "Veröffentlichung", "Verliehene Dinge"};

// The entries of cboWiederkehrend with the numbers that they stand for.
struct Wiederkehrart {
    std::string_view Eintrag;
    int Einheitsnummer;
    std::string_view Einheit;
};
// Kept: there is no number 4.
inline constexpr std::array<Wiederkehrart, 5> Wiederkehrarten = {{{"Minutenweise", 1, "n"},
                                                                  {"Stundenweise", 2, "h"},
                                                                  {"Tageweise", 3, "d"},
                                                                  {"Monatsweise", 5, "m"},
                                                                  {"Jahrweise", 6, "y"}}};

// A text that reads as a date in the form "dd.mm.yyyy hh:nn:ss"; any other text as it stands.
std::string DatumNormalisieren(std::string_view Text);

// What the form of an event holds.
struct Termineingabe {
    std::string Beschreibung;
    std::string Datum;  // may be empty
    std::string Kategorie;
    std::int16_t Benachrichtigen = 0;
    std::string BenachrichtigenAm;
    int Einheitsnummer = 0;  // of Wiederkehrarten; any other: no recurrence
    std::int16_t Intervall = 0;
    std::int16_t AnzeigeDauer = 0;
    std::string Meldungstext;
    std::string Anwendung;
    bool Zurücksetzen = false;  // a recurring notice of the past shall come again
};
// The same back from an event.
Termineingabe TermineingabeVon(const Termin& Eintrag);

// An event may fire while its form is open. What the person left as the form showed it (Geöffnet) takes what
// the firing has made of it (Jetziger), so that storing does not put an old notice back.
void TermineingabeNachführen(Termineingabe& Eingabe, const Termin& Geöffnet, const Termin& Jetziger);

// Appends an event that was created at Jetzt; gives its number.
std::size_t TerminHinzufügen(Terminliste& Termine, const Termineingabe& Eingabe, const Zeitpunkt& Jetzt);
// Stores into event Nummer; nothing happens when there is none.
void TerminÄndern(Terminliste& Termine, std::size_t Nummer, const Termineingabe& Eingabe,
                  const Zeitpunkt& Jetzt);
void TerminEntfernen(Terminliste& Termine, std::size_t Nummer);

inline constexpr std::array<std::string_view, 7> TerminSpalten = {
    "Ereignis", "Termin", "Kategorie", "Erinnern", "Angelegt am", "Wiederkehrend", "Anwendung starten"};
// The columns of "Verpasste Ereignisse": the first ones.
inline constexpr std::size_t VerpasstSpalten = 5;

// The text of a column of TerminSpalten; empty for any other name.
std::string TerminZelle(const Termin& Eintrag, std::string_view Spalte);
// "3 Ereignis(se) eingerichtet".
std::string TerminBeschriftung(std::size_t TerminAnzahl);

}  // namespace liedwerk
