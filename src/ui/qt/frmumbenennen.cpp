#include "ui/qt/frmumbenennen.h"

#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

std::string Eingabe(const QLineEdit* Feld) {
    return Utf8Text(Feld->text());
}

}  // namespace

frmUmbenennen::frmUmbenennen(const Einstellungen& Werte, std::size_t Anzahl, Oberfläche& Dialoge,
                             QWidget* Eltern)
    : QDialog(Eltern), Person(Dialoge), Dateien(Anzahl) {
    setObjectName(u"frmUmbenennen"_s);
    setWindowTitle(u"Dateinamen oder Indexeinträge ändern"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("umbenennen"),
                     u"Was soll mit den %1 ausgewählten Datei(en) geschehen?"_s.arg(Anzahl),
                     u"Der Index folgt jeder Änderung eines Namens."_s);
    lstFunktionen = new QListWidget(this);
    lstFunktionen->setObjectName(u"lstFunktionen"_s);
    lstFunktionen->setAccessibleName(u"Funktionen"_s);
    lstFunktionen->addItems(
        {u"Umbenennen: Nach Index-Feldern"_s, u"Umbenennen: Zeichen im Dateinamen ersetzen"_s,
         u"Umbenennen: Fortlaufende Dateinamen erstellen"_s,
         u"Umbenennen: Schreibweise des Dateinamens ändern"_s, u"Umbenennen: Datei-Endung ändern"_s,
         u"Umbenennen: Manuell"_s, u"Index-Eintrag ändern - nicht umbenennen: Zeichen ersetzen"_s,
         u"Index-Eintrag ändern - nicht umbenennen: Manuell"_s, u"Zusatzfunktion: Datei-Attribute ändern"_s,
         u"Zusatzfunktion: Datei durch leere Datei mit anderer Endung ersetzen"_s});
    lstFunktionen->setMinimumWidth(
        std::min(lstFunktionen->sizeHintForColumn(0) + 24, Zeichenbreite(*this, 76)));
    Seiten = new QStackedWidget(this);
    SeitenAnlegen(Werte);
    connect(lstFunktionen, &QListWidget::currentRowChanged, Seiten, &QStackedWidget::setCurrentIndex);
    lstFunktionen->setCurrentRow(0);
    auto* const Mitte = new QHBoxLayout;
    Mitte->setSpacing(18);
    Mitte->addWidget(lstFunktionen);
    Mitte->addWidget(Seiten, 1);
    Spalte->addLayout(Mitte, 1);
    const auto Knöpfe = KnöpfeHinzufügen(
        *Spalte, *this, {{u"cmdOk"_s, u"&OK"_s, Accepted}, {u"cmdAbbrechen"_s, u"Ab&brechen"_s, Rejected}});
    Knöpfe[0]->setDefault(true);
    lstFunktionen->setFocus();
}

QVBoxLayout* frmUmbenennen::SeiteAnlegen(const QString& Name, const QString& Erklärung) {
    auto* const Seite = new QWidget(Seiten);
    Seite->setObjectName(Name);
    auto* const Spalte = new QVBoxLayout(Seite);
    Spalte->setContentsMargins(0, 0, 0, 0);
    Spalte->setSpacing(6);
    auto* const lblErklärung = new QLabel(Erklärung, Seite);
    lblErklärung->setWordWrap(true);
    lblErklärung->setTextFormat(Qt::PlainText);
    lblErklärung->setMinimumWidth(Zeichenbreite(*this, 52));
    Spalte->addWidget(lblErklärung);
    Spalte->addSpacing(6);
    Spalte->setAlignment(Qt::AlignTop);
    Seiten->addWidget(Seite);
    return Spalte;
}

QLineEdit* frmUmbenennen::FeldAnlegen(QVBoxLayout& Seite, const QString& Name, const QString& Frage,
                                      const std::string& Text) {
    auto* const Feld = new QLineEdit(QtText(Text), Seite.parentWidget());
    Feld->setObjectName(Name);
    Feld->setAccessibleName(QString(Frage).remove(u'&').remove(u':'));
    auto* const lblFrage = new QLabel(Frage, Seite.parentWidget());
    lblFrage->setBuddy(Feld);
    Seite.addWidget(lblFrage);
    Seite.addWidget(Feld);
    return Feld;
}

QCheckBox* frmUmbenennen::HakenAnlegen(QVBoxLayout& Seite, const QString& Name, const QString& Text,
                                       bool Gesetzt) {
    auto* const Haken = new QCheckBox(Text, Seite.parentWidget());
    Haken->setObjectName(Name);
    Haken->setChecked(Gesetzt);
    Seite.addWidget(Haken);
    return Haken;
}

void frmUmbenennen::SeitenAnlegen(const Einstellungen& Werte) {
    QVBoxLayout* Seite = SeiteAnlegen(
        u"fraFormat"_s,
        u"Der neue Name besteht aus Text und Variablen; die Endung bleibt. \\ und / legen Ordner an.\n\n"
        "Variablen: %Titel% %Interpret% %Album% %Jahr% %Kommentar% %Track% %Dateiname% und jeder andere "
        "Name einer Spalte"_s);
    txtFormat = FeldAnlegen(*Seite, u"txtFormat"_s, u"&Format:"_s, Werte.UmbenennenEingabeID3);

    Seite =
        SeiteAnlegen(u"fraErsetzen"_s, u"Ersetzt jedes Vorkommen eines Textes im Dateinamen ohne Endung."_s);
    txtErsetzen = FeldAnlegen(*Seite, u"txtErsetzen"_s, u"&Ersetze:"_s, Werte.UmbenennenEingabeErsetzenText);
    txtErsetzenDurch =
        FeldAnlegen(*Seite, u"txtErsetzenDurch"_s, u"&durch:"_s, Werte.UmbenennenEingabeErsetzenDurch);
    chkErsetzenAuchPfad = HakenAnlegen(*Seite, u"chkErsetzenAuchPfad"_s, u"Auch im &Pfad ersetzen"_s,
                                       Werte.UmbenennenErsetzenPfadVerwenden == 1);

    Seite = SeiteAnlegen(u"fraFortlaufend"_s,
                         u"Der neue Name besteht aus Anfang, laufender Zahl und Ende; die Endung bleibt."_s);
    txtFortlaufendBasis1 =
        FeldAnlegen(*Seite, u"txtFortlaufendBasis1"_s, u"A&nfang:"_s, Werte.UmbenennenEingabeNeuAnfang);
    txtFortlaufendZählen1 =
        FeldAnlegen(*Seite, u"txtFortlaufendZählen1"_s, u"&Zählen ab:"_s, Werte.UmbenennenEingabeNeuZahl);
    txtFortlaufendBasis2 =
        FeldAnlegen(*Seite, u"txtFortlaufendBasis2"_s, u"&Ende:"_s, Werte.UmbenennenEingabeNeuEnde);

    SchreibweiseAnlegen(Werte);

    Seite = SeiteAnlegen(u"fraEndung"_s, u"Ändert die Endung, nicht den Inhalt der Dateien."_s);
    txtDateiendung =
        FeldAnlegen(*Seite, u"txtDateiendung"_s, u"Neue &Endung:"_s, Werte.UmbenennenEingabeDateiEndung);

    SeiteAnlegen(u"fraManuell"_s, u"Fragt für jede Datei nach dem neuen Namen."_s);

    Seite = SeiteAnlegen(u"fraIndexErsetzen"_s,
                         u"Ändert nur den Eintrag im Index, etwa wenn Dateien von Hand verschoben wurden. "
                         "Die Dateien selbst bleiben, wie sie sind."_s);
    txtIndexErsetzen = FeldAnlegen(*Seite, u"txtIndexErsetzen"_s, u"&Ersetze:"_s, {});
    txtIndexErsetzenDurch = FeldAnlegen(*Seite, u"txtIndexErsetzenDurch"_s, u"&durch:"_s, {});
    chkIndexErsetzenAuchPfad =
        HakenAnlegen(*Seite, u"chkIndexErsetzenAuchPfad"_s, u"Auch im &Pfad ersetzen"_s, true);
    const QString Leeren = u"Daten des Eintrags vor dem Lesen &leeren"_s;
    chkIndexErsetzenVorherLeeren = HakenAnlegen(*Seite, u"chkIndexErsetzenVorherLeeren"_s, Leeren, false);

    Seite =
        SeiteAnlegen(u"fraIndexÄndern"_s,
                     u"Fragt für jeden Eintrag nach dem neuen Pfad. Die Dateien bleiben, wie sie sind."_s);
    chkIndexÄndernVorherLeeren = HakenAnlegen(*Seite, u"chkIndexÄndernVorherLeeren"_s, Leeren, false);

    AttributeAnlegen(Werte);

    Seite = SeiteAnlegen(u"fraErsetzenEndung"_s,
                         u"Löscht jede Datei und legt an ihrer Stelle eine leere mit anderer Endung an. Der "
                         "Inhalt geht verloren."_s);
    txtErsetzenEndung = FeldAnlegen(*Seite, u"txtErsetzenEndung"_s, u"Neue &Endung:"_s,
                                    Werte.UmbenennenEingabeErsetzenDateiEndung);
}

void frmUmbenennen::SchreibweiseAnlegen(const Einstellungen& Werte) {
    QVBoxLayout* const Seite =
        SeiteAnlegen(u"fraSchreibweise"_s, u"Ändert den Dateinamen ohne Endung; der Ordner bleibt."_s);
    const std::array<std::pair<QString, QString>, 4> Wahlen = {
        {{u"optGrossschreibung"_s, u"&ALLES GROSS"_s},
         {u"optKleinschreibung"_s, u"alles &klein"_s},
         {u"optKleinErstenGross"_s, u"Klein, nur den &ersten Buchstaben groß"_s},
         {u"optKleinWörterGross"_s, u"Klein, &Wörter groß"_s}}};
    for (std::size_t Platz = 0; Platz < Wahlen.size(); ++Platz) {
        auto* const Knopf = new QRadioButton(Wahlen[Platz].second, Seite->parentWidget());
        Knopf->setObjectName(Wahlen[Platz].first);
        Knopf->setChecked(Werte.UmbenennenEingabeSchreibweise == static_cast<int>(Platz) + 1);
        Seite->addWidget(Knopf);
        optSchreibweise[Platz] = Knopf;
    }
}

void frmUmbenennen::AttributeAnlegen(const Einstellungen& Werte) {
    QVBoxLayout* const Seite =
        SeiteAnlegen(u"fraAttribute"_s, u"Setzt oder entfernt den Schreibschutz der Dateien."_s);
    chkAttributSchreibschutz = HakenAnlegen(*Seite, u"chkAttributSchreibschutz"_s, u"&Schreibgeschützt"_s,
                                            Werte.UmbenennenAttributeR == 1);
    const std::array<std::tuple<QString, QString, std::int16_t>, 3> Andere = {
        {{u"chkAttributArchiv"_s, u"Archiv"_s, Werte.UmbenennenAttributeA},
         {u"chkAttributSystem"_s, u"System"_s, Werte.UmbenennenAttributeS},
         {u"chkAttributVersteckt"_s, u"Versteckt"_s, Werte.UmbenennenAttributeH}}};
    for (const auto& [Name, Text, Wert] : Andere) {
        QCheckBox* const Haken = HakenAnlegen(*Seite, Name, Text, Wert == 1);
        Haken->setEnabled(false);
        Haken->setToolTip(u"Dieses Attribut gibt es auf diesem System nicht."_s);
    }
}

Umbenennauftrag frmUmbenennen::Auftrag() const {
    Umbenennauftrag Neu;
    Neu.Funktion = static_cast<Umbenennfunktion>(lstFunktionen->currentRow());
    Neu.Format = Eingabe(txtFormat);
    const bool ImIndex = Neu.Funktion == Umbenennfunktion::IndexZeichenErsetzen;
    Neu.Ersetzen = Eingabe(ImIndex ? txtIndexErsetzen : txtErsetzen);
    Neu.ErsetzenDurch = Eingabe(ImIndex ? txtIndexErsetzenDurch : txtErsetzenDurch);
    Neu.ErsetzenAuchPfad = (ImIndex ? chkIndexErsetzenAuchPfad : chkErsetzenAuchPfad)->isChecked();
    Neu.FortlaufendAnfang = Eingabe(txtFortlaufendBasis1);
    Neu.FortlaufendZahl = Eingabe(txtFortlaufendZählen1);
    Neu.FortlaufendEnde = Eingabe(txtFortlaufendBasis2);
    for (std::size_t Platz = 0; Platz < optSchreibweise.size(); ++Platz) {
        if (optSchreibweise[Platz]->isChecked())
            Neu.Schreibweise = static_cast<Namensschreibweise>(Platz + 1);
    }
    Neu.Endung = Eingabe(Neu.Funktion == Umbenennfunktion::LeereDatei ? txtErsetzenEndung : txtDateiendung);
    Neu.VorherLeeren = (ImIndex ? chkIndexErsetzenVorherLeeren : chkIndexÄndernVorherLeeren)->isChecked();
    Neu.Schreibschutz = chkAttributSchreibschutz->isChecked();
    return Neu;
}

void frmUmbenennen::done(int Ergebnis) {
    if (Ergebnis == Accepted) {
        const Umbenennauftrag Gewählt = Auftrag();
        if (const std::string Fehlt = UmbenennauftragPrüfen(Gewählt); !Fehlt.empty())
            return Person.Melden(Symbol::Information, Fehlt);
        // The only function here that costs content.
        if (Gewählt.Funktion == Umbenennfunktion::LeereDatei &&
            Person.JaNein(Symbol::Ausrufezeichen,
                          "Möchten Sie " + std::to_string(Dateien) +
                              " Datei(en) durch leere Dateien ersetzen?\nIhr Inhalt geht verloren.",
                          Antwort::Nein) != Antwort::Ja)
            return;
    }
    QDialog::done(Ergebnis);
}

}  // namespace liedwerk
