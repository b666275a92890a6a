#include "ui/qt/suchablageaktionen.h"

#include <QInputDialog>
#include <algorithm>

#include "suche/suchablage.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

// What the name box offers: the words that are searched for.
QString Namensvorschlag(const Suchabfragen& Menge) {
    QStringList Wörter;
    for (const Suchabfrage& Eine : Menge.Liste) {
        if (!Eine.Begriff.empty()) Wörter.append(QtText(Eine.Begriff));
    }
    return Wörter.join(u", "_s);
}

void mnuSucheSpeichern_Click(Fensterplatz& Platz) {
    Anwendung& Programm = Platz.Programm;
    QInputDialog Form(&Platz.Fenster);
    Form.setObjectName(u"frmSucheSpeichern"_s);
    Form.setWindowTitle(u"Suche speichern"_s);
    Form.setLabelText(u"&Name der Suche:"_s);
    Form.setTextValue(Namensvorschlag(Programm.Abfragen));
    if (Form.exec() != QDialog::Accepted) return;
    const std::string Name = Utf8Text(Form.textValue().trimmed());
    if (Name.empty()) {
        Programm.Dienst.Person.Melden(Symbol::Information, "Bitte geben Sie der Suche einen Namen.");
        return;
    }
    SucheAblegen(Programm.Werte.GespeicherteSuche, {Name, Programm.Abfragen});
    Programm.Dienst.Person.StatusZeigen("Die Suche '" + Name + "' wurde gespeichert", 3000);
}

// One entry a stored query; those that cannot be read are left out, but kept in the settings.
void Auflisten(QMenu& Menü, const std::vector<std::string>& Zeilen,
               const std::function<void(const GespeicherteSuche&)>& Tun) {
    Menü.clear();
    for (const std::string& Zeile : Zeilen) {
        const auto Suche = SuchzeileZerlegen(Zeile);
        if (!Suche) continue;
        QAction* const Aktion = Menü.addAction(QtText(Suche->Name).replace(u'&', u"&&"_s));
        QObject::connect(Aktion, &QAction::triggered, &Menü, [Tun, Suche] { Tun(*Suche); });
    }
    if (!Menü.isEmpty()) return;
    Menü.addAction(u"(keine gespeichert)"_s)->setEnabled(false);
}

}  // namespace

void SuchablageaktionenAnlegen(Fensterplatz& Platz, std::function<void()> Vorbereiten,
                               std::function<void()> Suchen) {
    Anwendung& Programm = Platz.Programm;
    auto* const mnuSucheSpeichern =
        FensteraktionAnlegen(Platz, u"mnuSucheSpeichern"_s, u"Suche sp&eichern..."_s, "speichern",
                             {QKeySequence(u"Ctrl+Shift+S"_s)}, [&Platz, Vorbereiten] {
                                 Vorbereiten();
                                 mnuSucheSpeichern_Click(Platz);
                             });
    auto* const Laden = new QMenu(u"&Gespeicherte Suchen"_s, &Platz.Bearbeiten);
    Laden->setObjectName(u"mnuGespeicherteSuchen"_s);
    Laden->setIcon(Symbolbild("suchen"));
    auto* const Löschen = new QMenu(u"Gespeicherte Suche l&öschen"_s, &Platz.Bearbeiten);
    Löschen->setObjectName(u"mnuGespeicherteSucheLöschen"_s);
    QObject::connect(Laden, &QMenu::aboutToShow, Laden, [&Programm, &Platz, Laden, Suchen] {
        Auflisten(*Laden, Programm.Werte.GespeicherteSuche,
                  [&Programm, &Platz, Suchen](const GespeicherteSuche& Suche) {
                      if (!Platz.Bereit()) return;
                      Programm.Abfragen = Suche.Menge;
                      Suchen();
                  });
    });
    QObject::connect(Löschen, &QMenu::aboutToShow, Löschen, [&Programm, Löschen] {
        Auflisten(*Löschen, Programm.Werte.GespeicherteSuche, [&Programm](const GespeicherteSuche& Suche) {
            if (Programm.Dienst.Person.JaNein(
                    Symbol::Frage, "Möchten Sie die gespeicherte Suche '" + Suche.Name + "' löschen?",
                    Antwort::Ja) == Antwort::Ja)
                std::erase(Programm.Werte.GespeicherteSuche, SuchzeileBilden(Suche));
        });
    });
    // Behind the other entries of the search.
    const auto Einträge = Platz.Bearbeiten.actions();
    const auto Strich =
        std::ranges::find_if(Einträge, [](const QAction* Eine) { return Eine->isSeparator(); });
    QAction* const Vor = Strich == Einträge.end() ? nullptr : *Strich;
    Platz.Bearbeiten.insertAction(Vor, mnuSucheSpeichern);
    Platz.Bearbeiten.insertMenu(Vor, Laden);
    Platz.Bearbeiten.insertMenu(Vor, Löschen);
    Platz.BeiÄnderung([=](bool Geladen) {
        mnuSucheSpeichern->setEnabled(Geladen);
        Laden->setEnabled(Geladen);
    });
}

}  // namespace liedwerk
