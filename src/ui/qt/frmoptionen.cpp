#include "ui/qt/frmoptionen.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>
#include <QHBoxLayout>

#include "core/farbprofile.h"
#include "core/optionenlauf.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/frmausschlussliste.h"
#include "ui/qt/frmkopieren.h"
#include "ui/qt/frmtaglieblingsgenre.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

const Option& OptionVon(std::string_view Name) {
    return *std::ranges::find(Optionen(), Name, &Option::Name);
}

}  // namespace

frmOptionen::frmOptionen(Anwendung& Lauf, Optionswege Ziele, QWidget* Eltern)
    : QDialog(Eltern),
      Programm(Lauf),
      Wege(std::move(Ziele)),
      Anfang(OptionenEntwurf(Lauf)),
      Entwurf(Anfang),
      Felder(Entwurf, [this] { ÄnderungenNachführen(); }) {
    setObjectName(u"frmOptionen"_s);
    setWindowTitle(u"Optionen"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    SeitenAnlegen(*Spalte);
    ZusätzeAnlegen();
    FußAnlegen(*Spalte);
    EntwurfZeigen();
    FormgrößeSetzen(*this, 132, 43);
    lstSeiten->setFocus();
}

void frmOptionen::SeitenAnlegen(QVBoxLayout& Spalte) {
    auto* const Links = new QVBoxLayout;
    txtSuche = new QLineEdit(this);
    txtSuche->setObjectName(u"txtSuche"_s);
    txtSuche->setAccessibleName(u"Option suchen"_s);
    txtSuche->setPlaceholderText(u"Option suchen (Strg+F)"_s);
    txtSuche->setClearButtonEnabled(true);
    txtSuche->addAction(Symbolbild("suchen"), QLineEdit::LeadingPosition);
    lstSeiten = new QListWidget(this);
    lstSeiten->setObjectName(u"lstSeiten"_s);
    lstSeiten->setAccessibleName(u"Seiten der Optionen"_s);
    lstSeiten->setIconSize(QSize(22, 22));
    lstSeiten->setSpacing(2);
    lblNichtsGefunden = new QLabel(u"Keine Option gefunden"_s, this);
    lblNichtsGefunden->setObjectName(u"lblNichtsGefunden"_s);
    lblNichtsGefunden->hide();
    Links->addWidget(txtSuche);
    Links->addWidget(lblNichtsGefunden);
    Links->addWidget(lstSeiten, 1);
    Seiten = new QStackedWidget(this);
    Seiten->setObjectName(u"Seiten"_s);
    for (const Optionsblatt& Blatt : Optionsblätter()) {
        lstSeiten->addItem(new QListWidgetItem(Symbolbild(Blatt.Bild), QtText(Blatt.Name)));
        Seiten->addWidget(Felder.SeiteAnlegen(Blatt, Seiten));
    }
    const int Breite = fontMetrics().averageCharWidth() * 30;
    txtSuche->setFixedWidth(Breite);
    lstSeiten->setFixedWidth(Breite);
    auto* const Mitte = new QHBoxLayout;
    Mitte->setSpacing(18);
    Mitte->addLayout(Links);
    Mitte->addWidget(Seiten, 1);
    Spalte.addLayout(Mitte, 1);
    connect(lstSeiten, &QListWidget::currentRowChanged, Seiten, &QStackedWidget::setCurrentIndex);
    connect(txtSuche, &QLineEdit::textChanged, this, [this](const QString& Text) { txtSuche_Change(Text); });
    auto* const mnuSuche = new QAction(this);
    mnuSuche->setShortcut(QKeySequence::Find);
    connect(mnuSuche, &QAction::triggered, this, [this] {
        txtSuche->setFocus();
        txtSuche->selectAll();
    });
    addAction(mnuSuche);
    lstSeiten->setCurrentRow(0);
}

QPushButton* frmOptionen::KnopfAnlegen(QVBoxLayout& Spalte, const QString& Name, const QString& Text,
                                       std::function<void()> Handler) {
    auto* const Knopf = new QPushButton(Text, Spalte.parentWidget());
    Knopf->setObjectName(Name);
    Knopf->setAutoDefault(false);
    connect(Knopf, &QPushButton::clicked, this, std::move(Handler));
    auto* const Zeile = new QHBoxLayout;
    Zeile->addWidget(Knopf);
    Zeile->addStretch(1);
    Spalte.addLayout(Zeile);
    return Knopf;
}

void frmOptionen::ZusätzeAnlegen() {
    SchriftwahlAnlegen();
    FarbprofilwahlAnlegen();
    DarstellungOrdnen();
    KnopfAnlegen(Felder.Gruppe(Optionsseite::Wiedergabe, "Speicherung von Abspiel-Statistiken"),
                 u"cmdStatistikLöschen"_s, u"&Gesammelte Statistikdaten löschen"_s,
                 [this] { StatistikLöschenLauf(Programm); })
        ->setEnabled(Programm.Index.IndexAnzahl() > 0);
    // Kept: the told advice of the adding.
    auto& Lesen = Felder.Gruppe(Optionsseite::Dateien, "Aus den Dateien lesen");
    TextHinzufügen(Lesen, u"lblGeschwindigkeit"_s,
                   u"Sie können die Geschwindigkeit des Hinzufügens von Dateien verbessern, indem Sie "
                   u"Einstellungen deaktivieren!"_s);
    KnopfAnlegen(Felder.Gruppe(Optionsseite::Dateien, "Dateien kopieren/verschieben"),
                 u"cmdKopierenEinstellen"_s, u"&Zielordner und Vorgehen..."_s, [this] {
                     EntwurfBearbeiten([this](Einstellungen& Werte) {
                         frmKopieren(Werte, Programm.Dienst.Person, this).exec();
                     });
                 });
    auto& Listen = Felder.Gruppe(Optionsseite::Tags, "Listen");
    KnopfAnlegen(Listen, u"cmdAusschlußliste"_s, u"A&usschlußliste für AutoTAG..."_s, [this] {
        EntwurfBearbeiten([this](Einstellungen& Werte) { frmAusschlußliste(Werte, this).exec(); });
    });
    KnopfAnlegen(Listen, u"cmdLieblingsGenre"_s, u"Lie&blings-Genres..."_s, [this] {
        EntwurfBearbeiten([this](Einstellungen& Werte) {
            frmTagLieblingsGenre(Werte, Programm.Dienst.Person, this).exec();
        });
    });
    if (Wege.IndexOptionen) {
        auto& Ordner = Felder.Gruppe(Optionsseite::Medien, "Ordner des Index");
        TextHinzufügen(Ordner, u"lblIndexOptionen"_s,
                       u"Welche Ordner abgeglichen werden, gehört zum jeweiligen Index."_s);
        KnopfAnlegen(Ordner, u"cmdSynchronisation"_s, u"&Index-Optionen..."_s,
                     [this] { Wege.IndexOptionen(this); });
    }
    if (Wege.Sicherungskopien) {
        KnopfAnlegen(Felder.Gruppe(Optionsseite::Sicherheit, "Sicherungskopien"), u"cmdSicherungskopien"_s,
                     u"Sicherungskopie &wiederherstellen..."_s, [this] { Wege.Sicherungskopien(this); });
    }
    if (Wege.Passwort) {
        auto& Sperre = Felder.Gruppe(Optionsseite::Sicherheit, "Sperre");
        TextHinzufügen(Sperre, u"lblSperre"_s,
                       u"Ein Passwort verbirgt Ihre Sammlung, bis Sie es eingeben: auf Wunsch gleich beim "
                       u"Start."_s);
        KnopfAnlegen(Sperre, u"cmdPasswort"_s, u"&Passwort..."_s, [this] { cmdPasswort_Click(); });
    }
    KnopfAnlegen(Felder.Gruppe(Optionsseite::Hinweise, "Diese Fenster zeigen"), u"cmdAlleHinweise"_s,
                 u"Alle &wieder einschalten"_s, [this] { cmdAlleHinweise_Click(); });
}

void frmOptionen::SchriftwahlAnlegen() {
    auto& Spalte = Felder.Gruppe(Optionsseite::Darstellung, "Schrift der Liste");
    chkSchriftDesktop = new QCheckBox(u"Schrift des Desktops ver&wenden"_s, Spalte.parentWidget());
    chkSchriftDesktop->setObjectName(u"chkSchriftDesktop"_s);
    Spalte.insertWidget(0, chkSchriftDesktop);
    connect(chkSchriftDesktop, &QCheckBox::clicked, this, [this](bool An) { chkSchriftDesktop_Click(An); });
}

// The defaults name a font of another desktop and stand for this one's own.
void frmOptionen::chkSchriftDesktop_Click(bool An) {
    const Einstellungen Vorgabe;
    const QFontInfo Schrift(QGuiApplication::font());
    Entwurf.ListeFont = An ? Vorgabe.ListeFont : Utf8Text(Schrift.family());
    Entwurf.lngEinstellungenListeFontSize =
        An ? Vorgabe.lngEinstellungenListeFontSize : std::max(4, Schrift.pointSize());
    EntwurfZeigen();
}

void frmOptionen::SchriftwahlZeigen() {
    const Einstellungen Vorgabe;
    const bool Desktop = Entwurf.ListeFont == Vorgabe.ListeFont &&
                         Entwurf.lngEinstellungenListeFontSize == Vorgabe.lngEinstellungenListeFontSize;
    chkSchriftDesktop->setChecked(Desktop);
    for (const std::string_view Name : {"ListeFont", "lngEinstellungenListeFontSize"})
        Felder.Bedienung(OptionVon(Name))->setEnabled(!Desktop);
}

void frmOptionen::FarbprofilwahlAnlegen() {
    auto& Spalte = Felder.Gruppe(Optionsseite::Darstellung, "Farben");
    auto* const lblFarbprofil = new QLabel(u"Farb&profil:"_s, Spalte.parentWidget());
    cboFarbprofil = new QComboBox(Spalte.parentWidget());
    cboFarbprofil->setObjectName(u"cboFarbprofil"_s);
    cboFarbprofil->setAccessibleName(u"Farbprofil"_s);
    for (const Farbprofil& Eines : Farbprofile())
        cboFarbprofil->addItem(QtText(Eines.Name));
    cboFarbprofil->addItem(u"Eigene Farben"_s);
    lblFarbprofil->setBuddy(cboFarbprofil);
    Felder.ZeileEinfügen(Spalte, lblFarbprofil, cboFarbprofil);
    connect(cboFarbprofil, &QComboBox::activated, this, [this](int Platz) {
        // The last one stands for what the person mixed; to choose it changes nothing.
        FarbprofilNehmen(Entwurf, static_cast<std::size_t>(Platz) + 1);
        EntwurfZeigen();
    });
}

// What the table does not name was made last and stands first in its group; the tabulator follows the eye.
void frmOptionen::DarstellungOrdnen() {
    QWidget* Voriger = chkSchriftDesktop;
    const auto Dahinter = [&Voriger](QWidget* Nächster) {
        setTabOrder(Voriger, Nächster);
        Voriger = Nächster;
    };
    for (const Option& Eine : Optionen()) {
        if (Eine.Seite != Optionsseite::Darstellung) continue;
        if (Eine.Name == "FarbeListen") Dahinter(cboFarbprofil);
        Dahinter(Felder.Bedienung(Eine));
    }
}

void frmOptionen::FarbprofilZeigen() {
    const std::size_t Nummer = FarbprofilVon(Entwurf);
    cboFarbprofil->setCurrentIndex(Nummer == 0 ? cboFarbprofil->count() - 1 : static_cast<int>(Nummer) - 1);
}

void frmOptionen::FußAnlegen(QVBoxLayout& Spalte) {
    const auto Knöpfe = KnöpfeHinzufügen(
        Spalte, *this, {{u"cmdOk"_s, u"&OK"_s, Accepted}, {u"cmdAbbrechen"_s, u"Abbrec&hen"_s, Rejected}});
    Knöpfe[0]->setDefault(true);
    auto* const Fuß = static_cast<QHBoxLayout*>(Spalte.itemAt(Spalte.count() - 1)->layout());
    const auto Knopf = [&](const QString& Name, const QString& Text, int Platz,
                           std::function<void()> Handler) {
        auto* const Neu = new QPushButton(Text, this);
        Neu->setObjectName(Name);
        Neu->setAutoDefault(false);
        Neu->setMinimumHeight(Knöpfe[0]->minimumHeight());
        connect(Neu, &QPushButton::clicked, this, std::move(Handler));
        Fuß->insertWidget(Platz, Neu);
        return Neu;
    };
    cmdÜbernehmen =
        Knopf(u"cmdÜbernehmen"_s, u"Über&nehmen"_s, Fuß->count(), [this] { cmdÜbernehmen_Click(); });
    Knopf(u"cmdVorgaben"_s, u"&Vorgaben dieser Seite"_s, 0, [this] { cmdVorgaben_Click(); });
    if (Wege.IndexOptionen)
        Knopf(u"cmdIndexOptionen"_s, u"Inde&x-Optionen..."_s, 1, [this] { Wege.IndexOptionen(this); });
    // The tabulator goes from left to right, whichever was made first.
    QWidget* Voriger = nullptr;
    for (int Platz = 0; Platz < Fuß->count(); ++Platz) {
        QWidget* const Nächster = Fuß->itemAt(Platz)->widget();
        if (Nächster == nullptr) continue;
        if (Voriger != nullptr) setTabOrder(Voriger, Nächster);
        Voriger = Nächster;
    }
}

void frmOptionen::EntwurfZeigen() {
    Felder.Zeigen();
    ÄnderungenNachführen();
}

void frmOptionen::ÄnderungenNachführen() {
    SchriftwahlZeigen();
    FarbprofilZeigen();
    if (cmdÜbernehmen == nullptr) return;
    cmdÜbernehmen->setEnabled(!(Entwurf == Anfang));
}

const Optionsblatt& frmOptionen::Gezeigt() const {
    return Optionsblätter()[static_cast<std::size_t>(std::max(0, Seiten->currentIndex()))];
}

void frmOptionen::SeiteZeigen(Optionsseite Seite) {
    lstSeiten->setCurrentRow(static_cast<int>(Seite));
}

void frmOptionen::txtSuche_Change(const QString& Text) {
    const QString Gesucht = Text.trimmed();
    int Erste = -1;
    for (std::size_t Platz = 0; Platz < Optionsblätter().size(); ++Platz) {
        const int Zeile = static_cast<int>(Platz);
        const bool Passt = Felder.Hervorheben(Optionsblätter()[Platz], Gesucht);
        lstSeiten->item(Zeile)->setHidden(!Passt);
        if (Passt && Erste < 0) Erste = Zeile;
    }
    lblNichtsGefunden->setVisible(Erste < 0);
    txtSuche->setAccessibleDescription(Erste < 0 ? lblNichtsGefunden->text() : QString());
    if (Erste >= 0 && lstSeiten->item(lstSeiten->currentRow())->isHidden()) lstSeiten->setCurrentRow(Erste);
}

void frmOptionen::cmdVorgaben_Click() {
    const Optionsblatt& Blatt = Gezeigt();
    if (Programm.Dienst.Person.JaNein(Symbol::Frage,
                                      "Möchten Sie alle Einstellungen der Seite '" + std::string(Blatt.Name) +
                                          "' auf ihre Vorgaben zurücksetzen?",
                                      Antwort::Nein) != Antwort::Ja)
        return;
    for (const Option& Eine : Optionen())
        if (Eine.Seite == Blatt.Seite) OptionVorgabe(Entwurf, Eine);
    EntwurfZeigen();
}

void frmOptionen::cmdAlleHinweise_Click() {
    for (const Option& Eine : Optionen())
        if (Eine.Seite == Optionsseite::Hinweise) OptionZahlSetzen(Entwurf, Eine, 1);
    EntwurfZeigen();
}

// Its form has its own buttons: what was set there holds, whichever way the options are left.
void frmOptionen::cmdPasswort_Click() {
    Einstellungen Neu = Anfang;
    Wege.Passwort(Neu, this);
    OptionenÜbernehmen(Programm, Anfang, Neu);
    for (Einstellungen* const Stand : {&Anfang, &Entwurf}) {
        Stand->Sperre = Neu.Sperre;
        Stand->SperreAktiv = Neu.SperreAktiv;
    }
}

void frmOptionen::EntwurfBearbeiten(const std::function<void(Einstellungen&)>& Form) {
    Form(Entwurf);
    EntwurfZeigen();
}

std::optional<Optionsfehler> frmOptionen::Prüfen() const {
    // Which fonts there are is known to the desktop only.
    if (Entwurf.ListeFont != Anfang.ListeFont && Entwurf.ListeFont != Einstellungen().ListeFont &&
        !QFontDatabase::hasFamily(QtText(Entwurf.ListeFont)))
        return Optionsfehler{&OptionVon("ListeFont"),
                             "Die Schriftart '" + Entwurf.ListeFont +
                                 "' gibt es auf diesem Rechner nicht.\nBitte wählen Sie "
                                 "eine aus der Liste."};
    return OptionenPrüfen(Entwurf, Anfang);
}

bool frmOptionen::Übernehmen() {
    if (const auto Fehler = Prüfen()) {
        txtSuche->clear();
        SeiteZeigen(Fehler->Wo->Seite);
        Programm.Dienst.Person.Melden(Symbol::Information, Fehler->Meldung);
        Felder.Bedienung(*Fehler->Wo)->setFocus();
        return false;
    }
    OptionenÜbernehmen(Programm, Anfang, Entwurf);
    Anfang = OptionenEntwurf(Programm);
    Entwurf = Anfang;
    EntwurfZeigen();
    return true;
}

void frmOptionen::cmdÜbernehmen_Click() {
    Übernehmen();
}

void frmOptionen::done(int Ergebnis) {
    if (Ergebnis == Accepted && !Übernehmen()) return;
    QDialog::done(Ergebnis);
}

}  // namespace liedwerk
