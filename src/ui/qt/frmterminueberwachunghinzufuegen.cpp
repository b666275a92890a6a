#include "ui/qt/frmterminueberwachunghinzufuegen.h"

#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <limits>

#include "basis/datei.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

constexpr int HöchsteZahl = std::numeric_limits<std::int16_t>::max();

QDateTime QtZeit(const Zeitpunkt& Punkt) {
    return {QDate(Punkt.Jahr, Punkt.Monat, Punkt.Tag), QTime(Punkt.Stunde, Punkt.Minute, Punkt.Sekunde),
            Qt::UTC};
}

QDateTimeEdit* Zeitfeld(QWidget* Eltern, const QString& Name, const QString& Zugang) {
    // Calendar time as it is written down: no zone takes an hour out of it.
    auto* const Feld = new QDateTimeEdit(Eltern);
    Feld->setTimeSpec(Qt::UTC);
    Feld->setObjectName(Name);
    Feld->setAccessibleName(Zugang);
    Feld->setDisplayFormat(u"dd.MM.yyyy HH:mm:ss"_s);
    Feld->setCalendarPopup(true);
    return Feld;
}

QSpinBox* Zahlfeld(QWidget* Eltern, const QString& Name, const QString& Zugang, int Kleinste) {
    auto* const Feld = new QSpinBox(Eltern);
    Feld->setObjectName(Name);
    Feld->setAccessibleName(Zugang);
    Feld->setRange(Kleinste, HöchsteZahl);
    return Feld;
}

QFormLayout* Formular(QWidget* Träger) {
    auto* const Zeilen = new QFormLayout(Träger);
    Zeilen->setHorizontalSpacing(14);
    Zeilen->setVerticalSpacing(8);
    Zeilen->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    return Zeilen;
}

QHBoxLayout* Nebeneinander(QWidget* Links, QWidget* Rechts) {
    auto* const Zeile = new QHBoxLayout;
    Zeile->setSpacing(8);
    Zeile->addWidget(Links);
    Zeile->addWidget(Rechts, 1);
    return Zeile;
}

}  // namespace

frmTerminÜberwachungHinzufügen::frmTerminÜberwachungHinzufügen(const Termin* Vorhandener,
                                                               const Zeitpunkt& Jetzt, Oberfläche& Dialoge,
                                                               QWidget* Eltern)
    : QDialog(Eltern), Person(Dialoge) {
    setObjectName(u"frmTerminÜberwachungHinzufügen"_s);
    setWindowTitle(Vorhandener == nullptr ? u"Ereignis hinzufügen"_s : u"Ereignis ändern"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("termin"), u"Woran möchten Sie erinnert werden?"_s,
                     u"Hinweis: Eine Benachrichtigung erfolgt nur, wenn die Indexdatei geöffnet ist."_s);
    Spalte->addWidget(AngabenAnlegen());
    Spalte->addWidget(BenachrichtigungAnlegen());
    KnöpfeHinzufügen(*Spalte, *this,
                     {{u"cmdOk"_s, u"&OK"_s, Accepted}, {u"cmdAbbrechen"_s, u"Abb&rechen"_s, Rejected}})[0]
        ->setDefault(true);
    Füllen(Vorhandener == nullptr ? Termineingabe{} : TermineingabeVon(*Vorhandener), Jetzt);
    chkZurücksetzen->setVisible(Vorhandener != nullptr && chkWiederkehrend->isChecked());
    if (Vorhandener != nullptr)
        connect(chkWiederkehrend, &QCheckBox::toggled, chkZurücksetzen, &QWidget::setVisible);
    chkZurücksetzen->setChecked(Vorhandener == nullptr || Vorhandener->Erledigt.empty());
    txtBeschreibung->setFocus();
}

QWidget* frmTerminÜberwachungHinzufügen::AngabenAnlegen() {
    auto* const Angaben = new QWidget(this);
    QFormLayout* const Zeilen = Formular(Angaben);
    Zeilen->setContentsMargins(0, 0, 0, 0);
    txtBeschreibung = new QLineEdit(Angaben);
    txtBeschreibung->setObjectName(u"txtBeschreibung"_s);
    txtBeschreibung->setAccessibleName(u"Ereignis"_s);
    Zeilen->addRow(u"&Ereignis:"_s, txtBeschreibung);
    cboKategorie = new QComboBox(Angaben);
    cboKategorie->setObjectName(u"cboKategorie"_s);
    cboKategorie->setAccessibleName(u"Kategorie"_s);
    cboKategorie->setEditable(true);
    for (const std::string_view Kategorie : TerminKategorien)
        cboKategorie->addItem(QtText(Kategorie));
    Zeilen->addRow(u"&Kategorie:"_s, cboKategorie);
    chkDatum = new QCheckBox(u"&Termin:"_s, Angaben);
    chkDatum->setObjectName(u"chkDatum"_s);
    txtDatum = Zeitfeld(Angaben, u"txtDatum"_s, u"Termin"_s);
    connect(chkDatum, &QCheckBox::toggled, txtDatum, &QWidget::setEnabled);
    Zeilen->addRow(chkDatum, txtDatum);
    return Angaben;
}

QGroupBox* frmTerminÜberwachungHinzufügen::BenachrichtigungAnlegen() {
    fraBenachrichtigen = new QGroupBox(u"&Benachrichtigen"_s, this);
    fraBenachrichtigen->setObjectName(u"chkBenachrichtigen"_s);
    fraBenachrichtigen->setCheckable(true);
    QFormLayout* const Zeilen = Formular(fraBenachrichtigen);
    txtBenachrichtigenAm = Zeitfeld(fraBenachrichtigen, u"txtBenachrichtigenAm"_s, u"Benachrichtigen am"_s);
    Zeilen->addRow(u"&Am:"_s, txtBenachrichtigenAm);
    chkWiederkehrend = new QCheckBox(u"&Wiederkehrend:"_s, fraBenachrichtigen);
    chkWiederkehrend->setObjectName(u"chkWiederkehrend"_s);
    cboWiederkehrend = new QComboBox(fraBenachrichtigen);
    cboWiederkehrend->setObjectName(u"cboWiederkehrend"_s);
    cboWiederkehrend->setAccessibleName(u"Wiederkehrend"_s);
    for (const Wiederkehrart& Eine : Wiederkehrarten)
        cboWiederkehrend->addItem(QtText(Eine.Eintrag));
    txtIntervall = Zahlfeld(fraBenachrichtigen, u"txtIntervall"_s, u"Abstand der Wiederholungen"_s, 1);
    txtIntervall->setPrefix(u"alle "_s);
    for (QWidget* const Feld : std::initializer_list<QWidget*>{cboWiederkehrend, txtIntervall})
        connect(chkWiederkehrend, &QCheckBox::toggled, Feld, &QWidget::setEnabled);
    Zeilen->addRow(chkWiederkehrend, Nebeneinander(cboWiederkehrend, txtIntervall));
    chkZurücksetzen = new QCheckBox(u"Erneut benachr&ichtigen, auch wenn der Zeitpunkt vergangen ist"_s,
                                    fraBenachrichtigen);
    chkZurücksetzen->setObjectName(u"chkZurücksetzen"_s);
    Zeilen->addRow(QString(), chkZurücksetzen);
    txtAnzeigeDauer = Zahlfeld(fraBenachrichtigen, u"txtAnzeigeDauer"_s, u"Anzeigedauer in Sekunden"_s, 0);
    txtAnzeigeDauer->setSuffix(u" Sekunden"_s);
    txtAnzeigeDauer->setSpecialValueText(u"bis sie geschlossen wird"_s);
    Zeilen->addRow(u"Anzeige&dauer:"_s, txtAnzeigeDauer);
    txtMeldungstext = new QPlainTextEdit(fraBenachrichtigen);
    txtMeldungstext->setObjectName(u"txtMeldungstext"_s);
    txtMeldungstext->setAccessibleName(u"Meldungstext"_s);
    txtMeldungstext->setPlaceholderText(u"(Standardtext)"_s);
    txtMeldungstext->setTabChangesFocus(true);
    // An event is one line of the index file: a line end is the blank that it will be.
    connect(txtMeldungstext, &QPlainTextEdit::textChanged, this, [this] { ZeilenendenErsetzen(); });
    txtMeldungstext->setFixedHeight(txtMeldungstext->fontMetrics().lineSpacing() * 4);
    Zeilen->addRow(u"&Meldungstext:"_s, txtMeldungstext);
    txtAnwendung = new QLineEdit(fraBenachrichtigen);
    txtAnwendung->setObjectName(u"txtAnwendung"_s);
    txtAnwendung->setAccessibleName(u"Anwendung starten"_s);
    auto* const cmdDurchsuchen = new QPushButton(u"D&urchsuchen..."_s, fraBenachrichtigen);
    cmdDurchsuchen->setObjectName(u"cmdDurchsuchen"_s);
    cmdDurchsuchen->setAutoDefault(false);
    connect(cmdDurchsuchen, &QPushButton::clicked, this, [this] { cmdDurchsuchen_Click(); });
    auto* const Zeile = new QHBoxLayout;
    Zeile->setSpacing(8);
    Zeile->addWidget(txtAnwendung, 1);
    Zeile->addWidget(cmdDurchsuchen);
    Zeilen->addRow(u"Anwendung &starten:"_s, Zeile);
    static_cast<QLabel*>(Zeilen->labelForField(Zeile))->setBuddy(txtAnwendung);
    return fraBenachrichtigen;
}

void frmTerminÜberwachungHinzufügen::Füllen(const Termineingabe& Angaben, const Zeitpunkt& Jetzt) {
    const Zeitpunkt InEinerStunde = AusKalendersekunden(Kalendersekunden(Jetzt) + 3600 - Jetzt.Sekunde);
    txtBeschreibung->setText(QtText(Angaben.Beschreibung));
    if (!Angaben.Kategorie.empty()) cboKategorie->setEditText(QtText(Angaben.Kategorie));
    const auto Datum = DatumLesen(Angaben.Datum);
    chkDatum->setChecked(Datum.has_value());
    txtDatum->setDateTime(QtZeit(Datum.value_or(InEinerStunde)));
    txtDatum->setEnabled(Datum.has_value());
    const bool Neu = Angaben.Beschreibung.empty();
    fraBenachrichtigen->setChecked(Neu || Angaben.Benachrichtigen == 1);
    txtBenachrichtigenAm->setDateTime(QtZeit(DatumLesen(Angaben.BenachrichtigenAm).value_or(InEinerStunde)));
    const auto Art =
        std::ranges::find(Wiederkehrarten, Angaben.Einheitsnummer, &Wiederkehrart::Einheitsnummer);
    const bool Wiederkehrend = Art != Wiederkehrarten.end();
    chkWiederkehrend->setChecked(Wiederkehrend);
    constexpr int Tageweise = 2;
    cboWiederkehrend->setCurrentIndex(Wiederkehrend ? static_cast<int>(Art - Wiederkehrarten.begin())
                                                    : Tageweise);
    cboWiederkehrend->setEnabled(Wiederkehrend);
    txtIntervall->setValue(std::max<int>(Angaben.Intervall, 1));
    txtIntervall->setEnabled(Wiederkehrend);
    txtAnzeigeDauer->setValue(Angaben.AnzeigeDauer);
    txtMeldungstext->setPlainText(QtText(Angaben.Meldungstext));
    txtAnwendung->setText(QtText(Angaben.Anwendung));
}

Termineingabe frmTerminÜberwachungHinzufügen::Eingabe() const {
    Termineingabe Angaben;
    Angaben.Beschreibung = Utf8Text(txtBeschreibung->text());
    Angaben.Kategorie = Utf8Text(cboKategorie->currentText());
    if (chkDatum->isChecked()) Angaben.Datum = Utf8Text(txtDatum->text());
    Angaben.Benachrichtigen = fraBenachrichtigen->isChecked() ? 1 : 0;
    Angaben.BenachrichtigenAm = Utf8Text(txtBenachrichtigenAm->text());
    if (chkWiederkehrend->isChecked()) {
        Angaben.Einheitsnummer =
            Wiederkehrarten[static_cast<std::size_t>(cboWiederkehrend->currentIndex())].Einheitsnummer;
        Angaben.Intervall = static_cast<std::int16_t>(txtIntervall->value());
    }
    Angaben.AnzeigeDauer = static_cast<std::int16_t>(txtAnzeigeDauer->value());
    Angaben.Meldungstext = Utf8Text(txtMeldungstext->toPlainText());
    Angaben.Anwendung = PfadAusQt(txtAnwendung->text());
    Angaben.Zurücksetzen = chkZurücksetzen->isChecked();
    return Angaben;
}

void frmTerminÜberwachungHinzufügen::ZeilenendenErsetzen() {
    if (txtMeldungstext->blockCount() < 2) return;
    QTextCursor Marke = txtMeldungstext->textCursor();
    const int Stelle = Marke.position();
    Marke.select(QTextCursor::Document);
    Marke.insertText(txtMeldungstext->toPlainText().replace(u'\n', u' '));
    Marke.setPosition(Stelle);
    txtMeldungstext->setTextCursor(Marke);
}

void frmTerminÜberwachungHinzufügen::cmdDurchsuchen_Click() {
    const QString Datei = QFileDialog::getOpenFileName(this, u"Anwendung auswählen"_s, txtAnwendung->text());
    if (!Datei.isEmpty()) txtAnwendung->setText(Datei);
}

void frmTerminÜberwachungHinzufügen::done(int Ergebnis) {
    if (Ergebnis == Accepted) {
        const Termineingabe Angaben = Eingabe();
        if (Angaben.Beschreibung.empty()) {
            Person.Melden(Symbol::Information, "Bitte geben Sie eine Beschreibung des Ereignisses ein.");
            return txtBeschreibung->setFocus();
        }
        if (fraBenachrichtigen->isChecked() && !Angaben.Anwendung.empty() &&
            !DateiExistiert(Angaben.Anwendung)) {
            Person.Melden(Symbol::Ausrufezeichen,
                          "Das Programm '" + Angaben.Anwendung +
                              "' existiert nicht.\nBitte wählen Sie eine vorhandene Programmdatei oder "
                              "lassen Sie das Feld leer.");
            return txtAnwendung->setFocus();
        }
    }
    QDialog::done(Ergebnis);
}

}  // namespace liedwerk
