#include "ui/qt/schalteraktionen.h"

#include <QActionGroup>

#include "core/beenden.h"
#include "core/farbprofile.h"
#include "ui/qt/qttext.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

// An entry with a tick for a setting that is 0 or 1; Danach runs when the person has changed it.
QAction* SchalterAnlegen(Fensterplatz& Platz, const QString& Name, const QString& Text,
                         std::int16_t Einstellungen::*Wert, std::function<void()> Danach) {
    Anwendung& Programm = Platz.Programm;
    Einstellungen& Werte = Programm.Werte;
    QAction* const Schalter = FensteraktionAnlegen(Platz, Name, Text, "", {},
                                                   [&Programm, &Werte, Wert, Danach = std::move(Danach)] {
                                                       Werte.*Wert = Werte.*Wert == 1 ? 0 : 1;
                                                       Danach();
                                                       // As the options do: what was chosen stays, whatever
                                                       // happens to the run.
                                                       EinstellungenSichern(Programm, true);
                                                   });
    Schalter->setCheckable(true);
    // The options change it, too.
    Platz.BeiÄnderung([&Werte, Wert, Schalter](bool) { Schalter->setChecked(Werte.*Wert == 1); });
    return Schalter;
}

QMenu* FarbprofilmenüAnlegen(Fensterplatz& Platz) {
    auto* const Menü = new QMenu(u"&Farbprofil"_s, &Platz.Ansicht);
    Menü->setObjectName(u"mnuFarbprofil"_s);
    auto* const Wahl = new QActionGroup(Menü);
    std::size_t Nummer = 0;
    for (const Farbprofil& Profil : Farbprofile()) {
        ++Nummer;
        QAction* const Aktion = Menü->addAction(u"&%1  %2"_s.arg(Nummer).arg(QtText(Profil.Name)));
        Aktion->setCheckable(true);
        Wahl->addAction(Aktion);
        QObject::connect(Aktion, &QAction::triggered, Menü, [&Platz, Eigene = Nummer] {
            FarbprofilNehmen(Platz.Programm.Werte, Eigene);
            Platz.Programm.Dienst.Fenster.ErscheinungAnwenden();
            EinstellungenSichern(Platz.Programm, true);
        });
    }
    QObject::connect(Menü, &QMenu::aboutToShow, Menü, [&Platz, Wahl] {
        // Own colours are no profile: nothing is ticked then.
        Wahl->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
        const std::size_t Gilt = FarbprofilVon(Platz.Programm.Werte);
        std::size_t Stelle = 0;
        for (QAction* const Aktion : Wahl->actions())
            Aktion->setChecked(++Stelle == Gilt);
        Wahl->setExclusionPolicy(QActionGroup::ExclusionPolicy::Exclusive);
    });
    return Menü;
}

}  // namespace

void SchalteraktionenAnlegen(Fensterplatz& Platz, std::function<void()> Suchen) {
    Platz.Ansicht.addSeparator();
    Platz.Ansicht.addAction(SchalterAnlegen(
        Platz, u"mnuFehlendeMedien"_s, u"Fehlende &Datenträger kennzeichnen"_s,
        &Einstellungen::FehlendeMedienZeigen, [&Platz] { Platz.Programm.Dienst.Fenster.ListeZeigen(); }));
    Platz.Ansicht.addMenu(FarbprofilmenüAnlegen(Platz));
    QAction* const Umlaute = SchalterAnlegen(Platz, u"mnuUmlauteGleich"_s,
                                             u"\"ärzte\" auch &bei \"arzte\" und \"aerzte\" finden"_s,
                                             &Einstellungen::SucheUmlauteGleich, std::move(Suchen));
    Platz.Bearbeiten.addSeparator();
    Platz.Bearbeiten.addAction(Umlaute);
}

}  // namespace liedwerk
