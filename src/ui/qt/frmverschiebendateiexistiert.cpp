#include "ui/qt/frmverschiebendateiexistiert.h"

#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

frmVerschiebenDateiExistiert::frmVerschiebenDateiExistiert(std::string_view Text, QWidget* Eltern)
    : QDialog(Eltern) {
    setObjectName(u"frmVerschiebenDateiExistiert"_s);
    setWindowTitle(u"Fehler beim Kopieren/Verschieben"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("kopieren"),
                     u"Es ist ein Fehler beim Kopieren/Verschieben aufgetreten."_s, {});
    TextHinzufügen(*Spalte, u"lblBeschreibung"_s, QtText(Text));
    const auto Nummer = [](Vorhandenantwort Antwort) { return static_cast<int>(Antwort); };
    const auto Knöpfe =
        KnöpfeHinzufügen(*Spalte, *this,
                         {{u"cmdUmbenennen"_s, u"&Umbenennen"_s, Nummer(Vorhandenantwort::Umbenennen)},
                          {u"cmdErsetzen"_s, u"&Ersetzen"_s, Nummer(Vorhandenantwort::Ersetzen)},
                          {u"cmdÜberspringen"_s, u"Ü&berspringen"_s, Nummer(Vorhandenantwort::Überspringen)},
                          {u"cmdAbbrechen"_s, u"&Abbrechen"_s, Nummer(Vorhandenantwort::Abbrechen)}});
    // The Enter key costs no file.
    Knöpfe[0]->setDefault(true);
    Knöpfe[0]->setFocus();
}

Vorhandenantwort frmVerschiebenDateiExistiert::Fragen() {
    const int Ergebnis = exec();
    return Ergebnis == Rejected ? Vorhandenantwort::Abbrechen : static_cast<Vorhandenantwort>(Ergebnis);
}

}  // namespace liedwerk
