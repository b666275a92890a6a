#include "ui/qt/tagfunktionenaktionen.h"

#include "ui/qt/frmtagautotagwaehlen.h"
#include "ui/qt/frmtaglieblingsgenre.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

void TagfunktionenaktionenAnlegen(Fensterplatz& Platz) {
    Anwendung& Programm = Platz.Programm;
    QWidget* const Fenster = &Platz.Fenster;
    Platz.Tags.addSeparator();
    Platz.Tags.addAction(FensteraktionAnlegen(
        Platz, u"mnuAutoTagEinstellen"_s, u"&AutoTAG einstellen..."_s, "", {}, [&Programm, Fenster] {
            const auto& Auswahl = Programm.Ansicht.Auswahl;
            frmTagAutoTagWählen(Programm.Werte,
                                Auswahl.empty() ? std::string() : Programm.Index.Sätze.Pfad(Auswahl.front()),
                                Programm.Dienst.Person, Fenster)
                .exec();
        }));
    Platz.Tags.addAction(FensteraktionAnlegen(
        Platz, u"mnuLieblingsGenre"_s, u"&Lieblings-Genres..."_s, "", {}, [&Programm, Fenster] {
            frmTagLieblingsGenre(Programm.Werte, Programm.Dienst.Person, Fenster).exec();
        }));
}

}  // namespace liedwerk
