#include "ui/qt/frmcddaten.h"

#include <QFileDialog>
#include <algorithm>

#include "basis/text.h"
#include "suche/feldwert.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/frmcddatencdwaehlen.h"
#include "ui/qt/qttext.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

// What a control of one line shows of a text, and the text that it gives back: the old one where the person
// has changed nothing.
QString Einzeilig(const std::string& Text) {
    return QtText(CDEinzeilig(Text));
}
void Nehmen(const QString& Anzeige, std::string& Text) {
    if (Anzeige != Einzeilig(Text)) Text = Utf8Text(Anzeige);
}

// Rows of the list: the titles that are known, and the tracks of the disc that have none yet.
int ZeilenVon(const CDDaten& Daten) {
    int Anzahl = Daten.AnzahlTitel;
    for (int i = Anzahl; i < static_cast<int>(CDHöchsteTitel); ++i) {
        if (Daten.Titel[static_cast<std::size_t>(i)].Offset > 0) Anzahl = i + 1;
    }
    return std::clamp(Anzahl, 0, static_cast<int>(CDHöchsteTitel));
}

QString Bannertext(const CDDaten& Daten) {
    if (Daten.ID.empty()) return u"Wählen Sie ein Laufwerk oder ein CD-Abbild und lesen Sie es ein."_s;
    QString Text = u"%1 Titel, Kennung %2"_s.arg(ZeilenVon(Daten)).arg(QtText(CDEinzeilig(Daten.ID)));
    if (Daten.Gesamtdauer > 0) Text += u", Dauer "_s + QtText(DauerFormatieren(Daten.Gesamtdauer, true));
    if (!Daten.Laufwerk.empty()) Text += u", in "_s + QtText(Daten.Laufwerk);
    return Text;
}

// The entry of a genre; that of none for a number that says nothing.
int Genrestelle(const QComboBox& Liste, std::int16_t Nummer) {
    return std::max(Liste.findData(static_cast<int>(Nummer)), 0);
}

// Selects the entry of this text; another text than the list's is added.
void Einstellen(QComboBox& Liste, const std::string& Text) {
    const int Stelle = Liste.findText(QtText(Text), Qt::MatchFixedString);
    if (Stelle < 0) Liste.addItem(QtText(Text));
    Liste.setCurrentIndex(Stelle < 0 ? Liste.count() - 1 : Stelle);
}

}  // namespace

void frmCDDaten::Zeigen(const CDDaten& Daten) {
    lblBannerText->setText(Bannertext(Daten));
    txtAlbum->setText(Einzeilig(Daten.Album));
    txtInterpret->setText(Einzeilig(Daten.Interpret));
    txtJahr->setText(Einzeilig(Daten.Jahr));
    cboGenre->setCurrentIndex(Genrestelle(*cboGenre, Daten.ID3Genre));
    Einstellen(*cboKategorie, CDEinzeilig(Daten.Kategorie.empty() ? "misc" : Daten.Kategorie));
    txtErweitert->setPlainText(QtText(Ersetzen(Daten.Erweitert, "\r\n", "\n")));
    TitelZeigen(Daten);
    Gezeigt = Daten;
    Gezeigt = Eingaben();
}

void frmCDDaten::TitelZeigen(const CDDaten& Daten) {
    lstTitel->setRowCount(ZeilenVon(Daten));
    for (int Zeile = 0; Zeile < lstTitel->rowCount(); ++Zeile) {
        const CDTitel& Titel = Daten.Titel[static_cast<std::size_t>(Zeile)];
        const auto Zelle = [&](int Spalte, const QString& Text, Qt::Alignment Lage, bool Änderbar) {
            auto* const Neu = new QTableWidgetItem(Text);
            Neu->setTextAlignment(Lage | Qt::AlignVCenter);
            if (!Änderbar) Neu->setFlags(Neu->flags() & ~Qt::ItemIsEditable);
            lstTitel->setItem(Zeile, Spalte, Neu);
        };
        Zelle(SpalteNummer, QString::number(Zeile + 1), Qt::AlignRight, false);
        Zelle(SpalteTitel, Einzeilig(Titel.Titel), Qt::AlignLeft, true);
        Zelle(SpalteDauer,
              Titel.Datenspur   ? u"Daten"_s
              : Titel.Dauer > 0 ? QtText(DauerFormatieren(Titel.Dauer, true))
                                : QString(),
              Qt::AlignRight, false);
    }
    lstTitel->resizeColumnToContents(SpalteNummer);
    lstTitel->resizeColumnToContents(SpalteDauer);
    if (lstTitel->rowCount() > 0) lstTitel->setCurrentCell(0, SpalteTitel);
}

CDDaten frmCDDaten::Eingaben() const {
    CDDaten Daten = Gezeigt;
    Nehmen(txtAlbum->text(), Daten.Album);
    Nehmen(txtInterpret->text(), Daten.Interpret);
    Nehmen(txtJahr->text(), Daten.Jahr);
    // A genre that is not known yet is none that the person has chosen: a server's reply decides it.
    if (cboGenre->currentIndex() != Genrestelle(*cboGenre, Daten.ID3Genre))
        Daten.ID3Genre = static_cast<std::int16_t>(cboGenre->currentData().toInt());
    Nehmen(cboKategorie->currentText(), Daten.Kategorie);
    const std::string Erweitert = Utf8Text(txtErweitert->toPlainText());
    if (Erweitert != Ersetzen(Daten.Erweitert, "\r\n", "\n"))
        Daten.Erweitert = Ersetzen(Erweitert, "\n", "\r\n");
    Daten.AnzahlTitel = static_cast<std::int16_t>(lstTitel->rowCount());
    for (int Zeile = 0; Zeile < lstTitel->rowCount(); ++Zeile)
        Nehmen(lstTitel->item(Zeile, SpalteTitel)->text(),
               Daten.Titel[static_cast<std::size_t>(Zeile)].Titel);
    return Daten;
}

bool frmCDDaten::Geändert() const {
    return Eingaben() != Gezeigt;
}

void frmCDDaten::HerkunftZeigen(CDDBHerkunft Herkunft) {
    if (Herkunft == CDDBHerkunft::Server) Ungespeichert = true;
    QString Text;
    switch (Herkunft) {
        case CDDBHerkunft::Keine:
            break;
        case CDDBHerkunft::Standard:
            Text = u"Von dieser CD ist noch nichts bekannt."_s;
            break;
        case CDDBHerkunft::Speicher:
            Text = u"Die Daten stammen aus der lokalen CD-Datenbank."_s;
            break;
        case CDDBHerkunft::Eingaben:
            Text = u"Es sind keine neuen Daten gekommen. Einzelheiten stehen im Protokoll."_s;
            break;
        case CDDBHerkunft::Server:
            Text = u"Die Daten stammen vom Server. Mit OK werden sie gespeichert."_s;
            break;
    }
    lblStatus->setText(Text);
}

void frmCDDaten::FreigabenSetzen() {
    const bool Da = !Gezeigt.ID.empty();
    fraDaten->setEnabled(Da);
    cmdFunktionen->setEnabled(Da);
    cmdOk->setEnabled(Da);
    // Server and disc go together: without the disc nobody knows its table of contents.
    cmdAbfragen->setEnabled(!Gezeigt.Laufwerk.empty());
    cmdSenden->setEnabled(!Gezeigt.Laufwerk.empty());
    cmdLog->setEnabled(!Programm.CD.Daten.Protokoll.empty());
}

bool frmCDDaten::VerwerfenErlaubt(std::string_view Frage) {
    return !Geändert() || Programm.Dienst.Person.JaNein(Symbol::Frage, Frage, Antwort::Nein) == Antwort::Ja;
}

std::size_t frmCDDaten::CDWählen(const std::vector<std::string>& Zeilen) {
    frmCDDatenCDWählen Form(Zeilen, Programm.Dienst.Person, this);
    Form.exec();
    return Form.Gewählt();
}

void frmCDDaten::FunktionAusführen(const std::function<bool(CDDaten&)>& Funktion) {
    CDDaten Daten = Eingaben();
    if (!Funktion(Daten)) {
        return Programm.Dienst.Person.Melden(
            Symbol::Information, "Die Titel dieser CD haben nicht die Form, die diese Funktion braucht.");
    }
    const CDDaten Vorher = Gezeigt;
    Zeigen(Daten);
    Gezeigt = Vorher;
}

void frmCDDaten::Einlesen(const QString& Laufwerk) {
    if (Laufwerk.trimmed().isEmpty()) {
        Programm.Dienst.Person.Melden(Symbol::Information,
                                      "Bitte wählen Sie ein Laufwerk oder ein CD-Abbild.");
        return cboLaufwerk->setFocus();
    }
    if (!VerwerfenErlaubt("Ihre Änderungen sind noch nicht gespeichert. Möchten Sie diese verwerfen?"))
        return;
    const CDDBHerkunft Herkunft =
        CDEinlesen(Programm, PfadAusQt(Laufwerk.trimmed()),
                   [this](const std::vector<std::string>& Zeilen) { return CDWählen(Zeilen); });
    Ungespeichert = false;
    Zeigen(Programm.CD.Daten);
    HerkunftZeigen(Herkunft);
    FreigabenSetzen();
    if (Herkunft != CDDBHerkunft::Keine) txtAlbum->setFocus();
}

void frmCDDaten::cmdAbbild_Click() {
    const QString Datei = QFileDialog::getOpenFileName(
        this, u"CD-Abbild öffnen"_s, {}, u"CD-Abbilder (*.cue *.toc *.CUE *.TOC);;Alle Dateien (*)"_s);
    if (Datei.isEmpty()) return;
    cboLaufwerk->setEditText(Datei);
    Einlesen(Datei);
}

void frmCDDaten::cmdAbfragen_Click() {
    if (!VerwerfenErlaubt(
            "Ihre Änderungen werden durch die Daten des Servers ersetzt, wenn dieser die CD kennt. "
            "Möchten Sie fortfahren?"))
        return;
    const CDDaten Vorher = Gezeigt;
    const CDDBHerkunft Herkunft = CDAbfragen(
        Programm, Eingaben(), [this](const std::vector<std::string>& Zeilen) { return CDWählen(Zeilen); });
    Zeigen(Programm.CD.Daten);
    // What the person had entered is still to be kept.
    if (Herkunft == CDDBHerkunft::Eingaben) Gezeigt = Vorher;
    HerkunftZeigen(Herkunft);
    FreigabenSetzen();
}

void frmCDDaten::cmdSenden_Click(bool Probe) {
    const std::string Frage =
        "Möchten Sie die Daten dieser CD auf dem Server '" + Programm.Werte.CDDBServer + "' veröffentlichen?";
    if (!Probe && Programm.Dienst.Person.JaNein(Symbol::Frage, Frage, Antwort::Nein) != Antwort::Ja) return;
    CDSenden(Programm, Eingaben(), Probe);
    FreigabenSetzen();
}

void frmCDDaten::cmdLog_Click() {
    QDialog Form(this);
    Form.setObjectName(u"frmCDDatenProtokoll"_s);
    Form.setWindowTitle(u"Protokoll"_s);
    QVBoxLayout* const Spalte = Formspalte(Form);
    auto* const txtProtokoll = new QPlainTextEdit(QtText(Programm.CD.Daten.Protokoll), &Form);
    txtProtokoll->setObjectName(u"txtProtokoll"_s);
    txtProtokoll->setAccessibleName(u"Protokoll"_s);
    txtProtokoll->setReadOnly(true);
    txtProtokoll->setTabChangesFocus(true);
    txtProtokoll->setMinimumSize(fontMetrics().averageCharWidth() * 100, fontMetrics().height() * 20);
    Spalte->addWidget(txtProtokoll, 1);
    KnöpfeHinzufügen(*Spalte, Form, {{u"cmdSchließen"_s, u"&Schließen"_s, Rejected}})[0]->setDefault(true);
    Form.exec();
}

void frmCDDaten::done(int Ergebnis) {
    if (Ergebnis != Accepted) {
        // What was not accepted must not come into records: the next reader looks into the cache.
        Programm.CD = {};
    } else if ((Ungespeichert || Geändert()) && !CDÜbernehmen(Programm, Eingaben())) {
        return;
    }
    QDialog::done(Ergebnis);
}

bool CDAssistentZeigen(Anwendung& Programm, std::string_view Laufwerk, QWidget* Eltern) {
    const CDDBHerkunft Herkunft = CDEinlesen(Programm, Laufwerk, [&](const std::vector<std::string>& Zeilen) {
        frmCDDatenCDWählen Form(Zeilen, Programm.Dienst.Person, Eltern);
        Form.exec();
        return Form.Gewählt();
    });
    return Herkunft != CDDBHerkunft::Keine &&
           frmCDDaten(Programm, frmCDDaten::Anlaß::Hinzufügen, Herkunft, Eltern).exec() ==
               QDialog::Accepted &&
           CDLiegtNoch(Programm, Laufwerk);
}

bool CDAusSpeicherÄndern(Anwendung& Programm, const std::string& ID, QWidget* Eltern) {
    if (!CDAusSpeicherLesen(Programm, ID)) return false;
    return frmCDDaten(Programm, frmCDDaten::Anlaß::Speicher, CDDBHerkunft::Speicher, Eltern).exec() ==
           QDialog::Accepted;
}

}  // namespace liedwerk
