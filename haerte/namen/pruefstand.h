// Evil names through the functions of liedwerk-cli: the files and the index that they stand in, one run under
// watch, and what must hold for any run.
//
// spaeher.cpp is loaded into the program and notes what it starts, changes and connects to. Prüfstand runs a
// command and judges: no shell, only the programs that were to start; only paths in the folders that were to
// change; no port, no connection; an end in time with status 0 or 1, with a message when it failed; nothing
// on the terminal but text; the person's files byte for byte what they were, where they were not to change.
// lesen.cpp, listen.cpp, aendern.cpp and discs.cpp hold the functions, fenster.cpp starts the desktop
// program; urteil.h reads what they wrote.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "haerte/namen/namen.h"
#include "haerte/stoerung/bericht.h"
#include "haerte/stoerung/lauf.h"
#include "haerte/stoerung/welt.h"

namespace liedwerk::haerte {

using Worte = std::vector<std::string>;

// What a run may do besides changing the index, the settings and the program's own folder.
struct Erlaubnis {
    Worte Ordner{};           // below the world: "musik", "ziel"
    Worte Programme{};        // full paths
    bool Netz = false;        // a connection to 127.0.0.1
    bool Sperrname = false;   // a Unix name that only marks a folder as taken
    bool AuchFalsch = false;  // the call may be refused as a wrong one
};

class Prüfstand {
  public:
    // Jeder: every so many names go through the functions that take one at a time.
    Prüfstand(const Orte& Wo, Bericht& Wohin, std::size_t Jeder);

    // Puts the files back as they were before anything, or with the index of them.
    void Zurück() const { WeltHerstellen(Wo.Welt, MitIndex); }
    // One command with the index; its words stand behind the common options.
    Laufergebnis Befehl(const Worte& Was, const Erlaubnis& Darf = {}) const;
    // The same with --json, whose document is judged; gives the number of its entries.
    std::size_t Json(const Worte& Was, const Erlaubnis& Darf = {}) const;
    // One of liedwerk-handgriffe.
    Laufergebnis Handgriff(const std::string& Name, const Erlaubnis& Darf) const;
    // Any program in the surroundings of a run.
    Laufergebnis Programm(const Worte& Ganz, const Erlaubnis& Darf) const;

    // Every command that the program's help names has been run.
    void VollständigkeitPrüfen() const;

    void Bruch(const std::string& Text) const { Wohin.Bruch(Text); }
    void Prüfen(bool Gut, const std::string& Text) const {
        if (!Gut) Bruch(Text);
    }
    // The bytes of a file below the world; empty when it is missing.
    std::string Inhalt(const std::string& Name) const;
    void Schreiben(const std::string& Name, const std::string& Inhalt) const;
    std::string Pfad(const std::string& Name) const { return Wo.Welt + "/" + Name; }
    void Leeren(const std::string& Name) const;  // removes a folder
    const std::string& Ausgangsindex() const { return MitIndex.at("i.lwi").Inhalt; }
    const std::string& ProgrammPfad() const { return Wo.Programm; }
    // A copy of the stand-in program under this name; gives its full path.
    std::string Attrappe(const std::string& Name) const;
    // The arguments of each of its calls; waits a while for as many as are expected.
    std::vector<Worte> Aufrufe(const std::string& Name, std::size_t Erwartet) const;

    const Worte& Dateien() const { return ImIndex; }  // full paths of the files that can stand in a list
    const Worte& AlleDateien() const { return Alle; }
    // The names and values that are tried one at a time.
    std::vector<BöserName> Namen() const;
    std::vector<BöserName> Werte() const;
    // The files below a folder of the world still hold each sound of the collection once.
    void TönePrüfen(const Worte& Ordner) const;
    // The judgement of what a run has started, changed and connected to.
    void RufePrüfen(const Laufergebnis& Lauf, const Erlaubnis& Darf) const;
    const Orte& Plätze() const { return Wo; }
    void FallBeginnen(const std::string& Name) const { Wohin.FallBeginnen(Name); }
    void FallBeenden() const { Wohin.FallBeenden(); }

  private:
    void Urteilen(const Laufergebnis& Lauf, const Worte& Ganz, const Erlaubnis& Darf, const Welt& Vorher,
                  bool JsonAusgabe) const;
    void RufPrüfen(const Rufzeile& Ruf, const Erlaubnis& Darf) const;
    Laufergebnis Ausführen(const Worte& Ganz, const Erlaubnis& Darf, bool JsonAusgabe) const;
    Worte Anfang() const;

    const Orte& Wo;
    Bericht& Wohin;
    std::size_t Jeder;
    Welt MitIndex;
    Worte Alle;
    Worte ImIndex;
    Worte Töne;
    mutable std::set<std::string> Benutzte;  // words of all calls
};

// The functions, one case each.
void LesenPrüfen(const Prüfstand& Stand);                                 // lesen.cpp
void ListenPrüfen(const Prüfstand& Stand);                                // listen.cpp
void ÄndernPrüfen(const Prüfstand& Stand);                                // aendern.cpp
void DiscsPrüfen(const Prüfstand& Stand, const std::string& Server);      // discs.cpp
void FensterPrüfen(const Prüfstand& Stand, const std::string& Programm);  // fenster.cpp

}  // namespace liedwerk::haerte
