#include "ui/qt/fensteroberflaeche.h"

#include <QApplication>
#include <QDialog>

#include "ui/qt/fensterprogramm.h"
#include "ui/qt/frmdateinichtverfuegbar.h"
#include "ui/qt/frmverschiebendateiexistiert.h"
#include "ui/qt/mauszeiger.h"
#include "ui/qt/meldung.h"
#include "ui/qt/qttext.h"

namespace liedwerk {
QWidget* Fensteroberfläche::BesitzerJetzt() const {
    if (QWidget* const Dialog = QApplication::activeModalWidget()) return Dialog;
    return Besitzer != nullptr && Besitzer->isVisible() ? Besitzer.data() : nullptr;
}

// A person who is asked something sees a normal pointer, whatever waits behind the question.
void Fensteroberfläche::Melden(Symbol Zeichen, std::string_view Text) {
    const Mauszeiger Zeiger(Qt::ArrowCursor);
    MeldungZeigen(BesitzerJetzt(), Zeichen, Text);
}

Antwort Fensteroberfläche::Fragen(Symbol Zeichen, std::string_view Text, Knöpfe Auswahl, Antwort Vorgabe) {
    const Mauszeiger Zeiger(Qt::ArrowCursor);
    return FrageZeigen(BesitzerJetzt(), Zeichen, Text, Auswahl, Vorgabe);
}

void Fensteroberfläche::StatusZeigen(std::string_view Text, int Dauer) {
    if (Status) Status(QtText(Text), Dauer);
}

Verfügbarkeitsantwort Fensteroberfläche::DateiNichtVerfügbarZeigen(const Verfügbarkeitsfrage& Frage) {
    const Mauszeiger Zeiger(Qt::ArrowCursor);
    frmDateiNichtVerfügbar Form(Frage, BesitzerJetzt());
    return static_cast<Verfügbarkeitsantwort>(Form.exec());
}

bool Fensteroberfläche::DateiNichtVerfügbarSchreibenZeigen(const Schreibsperrfrage& Frage) {
    const Mauszeiger Zeiger(Qt::ArrowCursor);
    return frmDateiNichtVerfügbarSchreiben(Frage, BesitzerJetzt()).exec() ==
           static_cast<int>(Verfügbarkeitsantwort::Verfügbar);
}

Vorhandenantwort Fensteroberfläche::DateiExistiertZeigen(std::string_view Text) {
    return frmVerschiebenDateiExistiert(Text, BesitzerJetzt()).Fragen();
}

void Fensteroberfläche::FortschrittStarten(std::string_view Titel, bool MitProzent, std::int64_t Höchstens) {
    if (Fenster == nullptr) {
        Fenster = new frmFortschritt(BesitzerJetzt());
        Starttiefe = Fensterprogramm::Tiefe();
    }
    Fenster->Starten(QtText(Titel), MitProzent, Höchstens);
}

void Fensteroberfläche::NetzfortschrittStarten(std::string_view Titel) {
    FortschrittStarten(Titel, false, 0);
    Fenster->AufNetzWarten();
}

bool Fensteroberfläche::FortschrittZeigen(std::string_view Text, std::int64_t Position) {
    if (Fenster == nullptr) return true;
    return Fenster->Zeigen(Text, Position, !FortschrittErwünscht || FortschrittErwünscht());
}

void Fensteroberfläche::FortschrittSchließen() {
    if (Fenster == nullptr) return;
    Fenster->Schließen();
    // Built anew for the next run: its owner may be another one then.
    delete Fenster.data();
}

void Fensteroberfläche::LaufGescheitert(int Tiefe) {
    if (Fenster != nullptr && Starttiefe >= Tiefe) FortschrittSchließen();
}

bool Fensteroberfläche::FortschrittOffen() const {
    return Fenster != nullptr;
}

void Fensteroberfläche::EreignisseVerarbeiten() {
    const bool Modal = QApplication::activeModalWidget() != nullptr;
    QCoreApplication::processEvents(Modal ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
}

void Fensteroberfläche::Drängen() {
    if (Fenster != nullptr) Fenster->Abbrechen();
    const QPointer<QDialog> Dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (Dialog == nullptr || Dialog == Fenster.data()) return;
    Dialog->reject();
    // A form that does not let go without an entry goes all the same: there is no time for one.
    if (Dialog != nullptr && Dialog->isVisible()) Dialog->hide();
}

}  // namespace liedwerk
