#include "ui/qt/meldung.h"

#include <QMessageBox>
#include <QPushButton>

#include "ui/qt/qttext.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

QMessageBox::Icon Bild(Symbol Zeichen) {
    switch (Zeichen) {
        case Symbol::Information:
            return QMessageBox::Information;
        case Symbol::Ausrufezeichen:
            return QMessageBox::Warning;
        case Symbol::Kritisch:
            return QMessageBox::Critical;
        case Symbol::Frage:
            return QMessageBox::Question;
    }
    return QMessageBox::NoIcon;
}

void Einrichten(QMessageBox& Fenster, Symbol Zeichen, std::string_view Text) {
    Fenster.setObjectName(u"frmMeldung"_s);
    Fenster.setWindowTitle(QtText(Programmtitel));
    Fenster.setIcon(Bild(Zeichen));
    // File names in messages are text, never markup.
    Fenster.setTextFormat(Qt::PlainText);
    Fenster.setText(QtText(Text));
    Fenster.setTextInteractionFlags(Qt::TextSelectableByMouse);
}

}  // namespace

void MeldungZeigen(QWidget* Besitzer, Symbol Zeichen, std::string_view Text) {
    QMessageBox Fenster(Besitzer);
    Einrichten(Fenster, Zeichen, Text);
    Fenster.setDefaultButton(Fenster.addButton(u"&OK"_s, QMessageBox::AcceptRole));
    Fenster.exec();
}

Antwort FrageZeigen(QWidget* Besitzer, Symbol Zeichen, std::string_view Text, Knöpfe Auswahl,
                    Antwort Vorgabe) {
    QMessageBox Fenster(Besitzer);
    Einrichten(Fenster, Zeichen, Text);
    QPushButton* const Ja = Fenster.addButton(u"&Ja"_s, QMessageBox::YesRole);
    QPushButton* const Nein = Fenster.addButton(u"&Nein"_s, QMessageBox::NoRole);
    QPushButton* Abbrechen = nullptr;
    if (Auswahl == Knöpfe::JaNeinAbbrechen)
        Abbrechen = Fenster.addButton(u"&Abbrechen"_s, QMessageBox::RejectRole);
    Fenster.setDefaultButton(Vorgabe == Antwort::Ja                   ? Ja
                             : Vorgabe == Antwort::Nein || !Abbrechen ? Nein
                                                                      : Abbrechen);
    // Closing the box without an answer never does more than the harmless button.
    Fenster.setEscapeButton(Abbrechen != nullptr ? Abbrechen : Nein);
    Fenster.exec();
    if (Fenster.clickedButton() == Ja) return Antwort::Ja;
    if (Abbrechen != nullptr && Fenster.clickedButton() != Nein) return Antwort::Abbrechen;
    return Antwort::Nein;
}

}  // namespace liedwerk
