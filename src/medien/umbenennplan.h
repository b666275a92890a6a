// New file names as plans: from the old path and what the person has chosen to the new path, without a look
// at the disk but where a free number is searched.
//
// "\" and "/" that the person has typed both make folders, and a text that begins with "/" or a drive names a
// full path. Separators that come out of a tag or stand in the old name make none: no tag decides where a
// file goes.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "index/katalog.h"

namespace liedwerk {

// The functions of frmUmbenennen; a function's number is its place in lstFunktionen.
enum class Umbenennfunktion {
    NachFeldern = 0,
    ZeichenErsetzen = 1,
    Fortlaufend = 2,
    Schreibweise = 3,
    Endung = 4,
    Manuell = 5,
    IndexZeichenErsetzen = 6,
    IndexManuell = 7,
    Attribute = 8,
    LeereDatei = 9,
};

// The ways to spell a name, in the order of their buttons.
enum class Namensschreibweise { Keine = 0, Groß = 1, Klein = 2, KleinErstenGroß = 3, KleinWörterGroß = 4 };

struct Umbenennauftrag {
    Umbenennfunktion Funktion = Umbenennfunktion::NachFeldern;
    std::string Format;
    std::string Ersetzen;  // the functions on files and on the index have inputs of their own for these
    std::string ErsetzenDurch;
    bool ErsetzenAuchPfad = false;
    std::string FortlaufendAnfang;
    std::string FortlaufendZahl;
    std::string FortlaufendEnde;
    Namensschreibweise Schreibweise = Namensschreibweise::Keine;
    std::string Endung;         // with or without its point
    bool VorherLeeren = false;  // the record is emptied before the data of the file are read again
    bool Schreibschutz = false;
};

// What is missing in the inputs of the chosen function; empty when it can start.
std::string UmbenennauftragPrüfen(const Umbenennauftrag& Auftrag);

struct Namensplan {
    std::string Neu;        // the new path; empty: there is none
    std::string Hindernis;  // then why, for the person
    std::string Frage;      // to be answered with yes before the plan is carried out; empty: nothing to ask
};

// By a format of index fields; the extension of the old path stays.
Namensplan NamePlanenNachFormat(const Katalog& Index, Satznummer Nummer, std::string_view Format);
// Every occurrence of a text in the name without extension, or in the whole path, replaced.
Namensplan NamePlanenErsetzt(std::string_view Pfad, std::string_view Alt, std::string_view Neu,
                             bool AuchPfad);
Namensplan NamePlanenInSchreibweise(std::string_view Pfad, Namensschreibweise Wahl);
Namensplan NamePlanenMitEndung(std::string_view Pfad, std::string_view Endung);
// What the person has typed as the new name or path.
Namensplan NamePlanenEingegeben(std::string_view Pfad, std::string_view Eingabe);

// FortlaufendenNamenBilden: the first path of beginning, counter and end that does not exist; tries 10,000
// more than the first. Zähler is the one that was taken; a counter that was increased loses leading zeros.
Namensplan FortlaufendenNamenBilden(std::string_view Pfad, std::string_view Anfang, std::string& Zähler,
                                    std::string_view Ende,
                                    const std::function<bool(std::string_view)>& Existiert);

}  // namespace liedwerk
