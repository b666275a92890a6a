// What an interrupted save of tags has left behind is brought to its end: at the start of the program, and
// when the file is next read for the editor or saved.
//
// A file that is torn gets its whole new content. Unasked that goes only where it surely is: it has several
// names, and its time is the one that our overwriting gives it and the helper file "~lwineu". Any other time
// means that another program may have saved it since; then the person decides, "Nein" preset. A temporary
// file "~lwitmp" that lies beside a whole file is of no use to anybody and goes. tagumschreiben.h leaves what
// is found here.
#pragma once

#include <set>
#include <string>
#include <string_view>

#include "basis/oberflaeche.h"
#include "basis/uhr.h"
#include "medien/dateischritt.h"
#include "plattform/ordnerleser.h"

namespace liedwerk {

// What happens where the person would have to say which content is the right one.
enum class Zweifelsfall {
    Fragen,
    Melden,  // where an answer may have been given for something else; the file cannot be saved meanwhile
};

// What a run of the program takes from one look at a file to the next.
struct Rettung {
    const Uhr& Zeit;
    Zweifelsfall Regel = Zweifelsfall::Fragen;
    std::set<std::string> Erwähnt{};  // files, links resolved, about which the person was asked or told
};

// A file whose save was interrupted gets its whole new content, which lies beside it, and the person is told
// or asked; about each file once in a run. Ausführen runs the copying, which the person may stop and which
// then goes on the next time. A file that another run holds is left alone. Costs three looks at the disk
// where there is nothing to do.
void SpeichernVollenden(std::string_view Pfad, Oberfläche& Person, Rettung& Lauf,
                        const Schrittlauf& Ausführen);

// The same for a file that is to be saved; the question comes every time, since the save has to be refused
// while the content lies there. A missing file gets its temporary file back under its name where the person
// wants that.
void DateiZurückholen(std::string_view Pfad, Oberfläche& Person, Rettung& Lauf, const Schrittlauf& Ausführen);

// At the start: the same for all files that marks in the folder name. Marks of files that are not at hand, in
// use, or not finished stay for the next start, for 90 days.
void UnterbrocheneVollenden(const std::string& Merkordner, const Ordnerleser& Ordner, Oberfläche& Person,
                            Rettung& Lauf, const Schrittlauf& Ausführen);

}  // namespace liedwerk
