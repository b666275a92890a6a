#include "ui/qt/frmtag.h"

#include <QLineEdit>

#include "basis/pfad.h"
#include "ui/qt/beschreibung.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/frmtagautotagwaehlen.h"
#include "ui/qt/frmtagfeldfuellen.h"
#include "ui/qt/frmtaglieblingsgenre.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

frmTag::frmTag(Anwendung& Lauf, std::vector<Satznummer> Dateien, QWidget* Eltern)
    : QDialog(Eltern), Programm(Lauf) {
    setObjectName(u"frmTag"_s);
    setWindowTitle(u"Datei-Informationen"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    Spalte->setContentsMargins(16, 14, 16, 14);
    Spalte->setSpacing(9);
    KopfAnlegen(*Spalte);
    SeitenwahlAnlegen(*Spalte);
    SeitenAnlegen(*Spalte);
    GenrelistenFüllen();
    FunktionenAnlegen(*Spalte);
    FußAnlegen(*Spalte);
    FormgrößeSetzen(*this, 118, 32);

    TagEditorÖffnen(Editor, Programm, std::move(Dateien));
    BlattZeigen(0);
    optOptionen->button(SeiteInfos)->setChecked(true);
    DateiZeigen();
    connect(&tmrVorbereiten, &QTimer::timeout, this, [this] {
        if (AutoTagVorbereiten(Programm)) tmrVorbereiten.stop();
    });
    tmrVorbereiten.start();
}

void frmTag::DateiZeigen() {
    KopfZeigen();
    txtDateiInfo->setHtml(InfotextAlsHtml(Editor.Texte.Info, palette().color(QPalette::PlaceholderText)));
    const std::array<std::string*, 3> Texte = {&Editor.Texte.Id3v1, &Editor.Texte.Id3v2,
                                               &Editor.Texte.Lyrics};
    for (std::size_t Platz = 0; Platz < Texte.size(); ++Platz)
        lblTag[Platz]->setText(QtText(*Texte[Platz]));
    for (QWidget* const Blatt : Felderblätter)
        Blatt->setEnabled(Editor.Vorhanden);
    cmdVorheriger->setEnabled(Editor.Platz > 0);
    cmdNächster->setEnabled(Editor.Platz + 1 < Editor.Dateien.size());
    ArbeitZeigen();
}

void frmTag::KopfZeigen() {
    const std::string Pfad = Programm.Index.Sätze.Pfad(Editor.Nummer());
    lblSymbol->setPixmap(DateisymbolVon(Pfad).Bild.pixmap(QSize(32, 32), devicePixelRatioF()));
    const auto Zeigen = [](QLabel& Zeile, const QString& Text) {
        Zeile.setText(Zeile.fontMetrics().elidedText(Text, Qt::ElideMiddle, Zeile.width()));
        Zeile.setToolTip(Text);
    };
    Zeigen(*lblDatei, QtText(DateinameVon(Pfad)));
    Zeigen(*lblOrdner, QtText(PfadVon(Pfad)));
    lblPlatz->setText(u"%1 von %2"_s.arg(Editor.Platz + 1).arg(Editor.Dateien.size()));
}

void frmTag::resizeEvent(QResizeEvent* Ereignis) {
    QDialog::resizeEvent(Ereignis);
    KopfZeigen();
}

void frmTag::ArbeitZeigen() {
    for (const Feldbindung& Bindung : Felder)
        Bindung.Zeigen(QtText(Feldtext(Editor.Arbeit.Satz, *Bindung.Feld)));
    const int Genre = cboMusikrichtung->findData(int{Editor.Arbeit.Satz.Genre.value_or(KeinGenre)});
    cboMusikrichtung->setCurrentIndex(std::max(Genre, 0));
    hscrlv2Qualität->setValue(Editor.Arbeit.Satz.V2Qualität);
    hscrlv2Qualität_Change();
}

void frmTag::EingabeÜbernehmen() {
    for (const Feldbindung& Bindung : Felder)
        FeldEintragen(Editor.Arbeit.Satz, Editor.Gelesen, *Bindung.Feld, Utf8Text(Bindung.Lesen()));
    Editor.Arbeit.Satz.Genre = static_cast<std::uint8_t>(cboMusikrichtung->currentData().toInt());
    Editor.Arbeit.Satz.V2Qualität = static_cast<std::uint8_t>(hscrlv2Qualität->value());
}

void frmTag::SeiteZeigen(int Nummer) {
    Seiten->setCurrentIndex(Nummer);
    // Nearly always the tag that is looked at is meant; places of Funktionsauswahlen.
    constexpr std::array<int, 4> Auswahlen = {-1, 0, 1, 3};
    const int Vorschlag = Auswahlen[static_cast<std::size_t>(Nummer)];
    if (!AuswahlGewählt && Vorschlag >= 0) cboFunktionTAG->setCurrentIndex(Vorschlag);
}

void frmTag::BlattZeigen(int Nummer) {
    fraId3v2->setCurrentIndex(Nummer);
    cmdTAGv2Weitere->setVisible(Nummer == 0);
    cmdTAGv2ErsteFelderAnzeigen->setVisible(Nummer == 1);
    ErstesFeldFokussieren(*fraId3v2);
}

void frmTag::ErstesFeldFokussieren(QWidget& Blatt) {
    if (Blatt.focusPolicy() != Qt::NoFocus) return Blatt.setFocus();
    for (const Feldbindung& Bindung : Felder) {
        auto* const Eingabe = Blatt.findChild<QWidget*>(QtText(Bindung.Feld->Steuerelement));
        if (Eingabe == nullptr || !Eingabe->isVisible()) continue;
        Eingabe->setFocus(Qt::ShortcutFocusReason);
        if (auto* const Zeile = qobject_cast<QLineEdit*>(Eingabe)) Zeile->selectAll();
        return;
    }
}

void frmTag::hscrlv2Qualität_Change() {
    const int Wert = hscrlv2Qualität->value();
    lblv2Qualität->setText(Wert == KeineV2Qualität ? u"keine"_s : QString::number(Wert));
}

void frmTag::cmdWeiter_Click(int Richtung) {
    EingabeÜbernehmen();
    Weitergehen(Editor, Programm, Richtung);
    DateiZeigen();
    // The next file's entry is typed into the same field.
    if (auto* const Zeile = qobject_cast<QLineEdit*>(focusWidget())) Zeile->selectAll();
}

void frmTag::cmdTAGSpeichern_Click(Tagauswahl Welche) {
    EingabeÜbernehmen();
    EingabenSpeichern(Editor, Programm, Welche, false);
    DateiZeigen();
}

void frmTag::chkAutomatischSpeichern_Click(Tagblock Block, bool An) {
    AutomatikVon(Programm.Werte, Block) = An ? 1 : 0;
}

void frmTag::cmdLieblingsGenre_Click() {
    if (frmTagLieblingsGenre(Programm.Werte, Programm.Dienst.Person, this).exec() != Accepted) return;
    EingabeÜbernehmen();
    GenrelistenFüllen();
    ArbeitZeigen();
}

void frmTag::cmdFunktionAusführen_Click() {
    Oberfläche& Person = Programm.Dienst.Person;
    const Funktionszeile* const Funktion = TagfunktionFinden(Utf8Text(cboFunktion->currentText()));
    const Funktionsauswahl* const Auswahl = FunktionsauswahlFinden(Utf8Text(cboFunktionTAG->currentText()));
    const std::string Hindernis = FunktionPrüfen(Funktion, Auswahl);
    if (!Hindernis.empty()) return Person.Melden(Symbol::Information, Hindernis);
    EingabeÜbernehmen();
    if (Funktion->Funktion == Tagfunktion::AutoTagEinstellen) {
        frmTagAutoTagWählen(Programm.Werte, Editor.Arbeit.Pfad, Person, this).exec();
        return;
    }
    if (!FunktionBestätigen(Person, *Funktion, *Auswahl)) return;
    Feldvorgabe Feld;
    if (Funktion->Funktion == Tagfunktion::FelderKopieren) {
        frmTagFeldFüllen Form(Editor.Arbeit.Satz, *Auswahl, Person, this);
        if (Form.exec() != Accepted) return;
        Feld = Form.Vorgabe();
    }
    EditorFunktionAusführen(Editor, Programm, Funktion->Funktion, *Auswahl, Feld);
    DateiZeigen();
}

void frmTag::done(int Ergebnis) {
    EingabeÜbernehmen();
    const bool Verlassen = DateiVerlassen(Editor, Programm, Ergebnis == Accepted);
    if (Verlassen) return QDialog::done(Ergebnis);
    DateiZeigen();
}

}  // namespace liedwerk
