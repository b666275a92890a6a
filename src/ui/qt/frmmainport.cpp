// The main window as the core sees it.
#include <QGuiApplication>
#include <QHeaderView>
#include <QMenuBar>
#include <QScreen>
#include <algorithm>

#include "basis/pfad.h"
#include "medien/medienlesen.h"
#include "suche/feldwert.h"
#include "ui/qt/erscheinung.h"
#include "ui/qt/frmbeenden.h"
#include "ui/qt/frmhinweise.h"
#include "ui/qt/frmmain.h"
#include "ui/qt/frmterminueberwachungtermin.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"
#include "ui/qt/tagaktionen.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
bool frmMain::SteuerelementeBereit(Steuerelemente Art) {
    switch (Art) {
        case Steuerelemente::Listen:
            return lstSongs->model() != nullptr;
        // Without Qt's drawing of SVG files every symbol would stay empty.
        case Steuerelemente::BildFelder:
            return !Symbolbild("suchen").pixmap(16, 16).isNull();
        case Steuerelemente::NeueBildFelder:
            return !DateisymbolVon("x.mp3").Bild.pixmap(16, 16).isNull();
        case Steuerelemente::TraySymbole:
            return !Programmsymbol().pixmap(16, 16).isNull();
        case Steuerelemente::GrafischeMenüs:
            return !menuBar()->actions().isEmpty();
    }
    return true;
}

void frmMain::ListeFreigeben(bool Frei) {
    ListeFrei = Frei;
    lstSongs->setEnabled(Frei);
    AktionenNachführen();
}

void frmMain::IndexnameZeigen(std::string_view Name) {
    const QString Text = QtText(Name);
    lblIndex->setText(lblIndex->fontMetrics().elidedText(Text, Qt::ElideMiddle, fraFunktionen->width() - 14));
    lblIndex->setToolTip(Text);
}

void frmMain::SpaltenZeigen() {
    const Indexoptionen& Optionen = Programm->Index.Optionen;
    for (const Ansichtsschalter& Einer : Schalter)
        Einer.Aktion->setChecked(Optionen.*Einer.Option == 1);
    lstSongs->SpaltenZeigen(Programm->Ansicht.Spalten, Optionen.SpaltenSymbole == 1);
    lstSongs->header()->setVisible(Optionen.SpaltenLeiste == 1);
    lstSongs->GitterZeigen(Optionen.SpaltenGitter == 1);
    lstSongs->ZeilenErneuern(Programm->Ansicht.Auswahl);
}

void frmMain::ListeZeigen() {
    lstSongs->ZeilenErneuern(Programm->Ansicht.Auswahl);
    lblAnzahl->setText(QtText(StatusText(Programm->Ansicht, Programm->Index)));
    const bool Leer = ListeFrei && Programm->Index.IndexAnzahl() == 0;
    Seiten->setCurrentWidget(Leer ? fraLeer : static_cast<QWidget*>(lstSongs));
    AktionenNachführen();
}

void frmMain::ZeilenAuswählen(std::size_t Letzte) {
    lstSongs->LetzteAuswählen(static_cast<int>(Letzte));
}

void frmMain::AuswahlZeigen() {
    const auto& Auswahl = Programm->Ansicht.Auswahl;
    AktionenNachführen();
    if (Auswahl.size() == 1 && Auswahl.front() <= Programm->Index.IndexAnzahl()) {
        DateiBeschreiben(Auswahl.front());
    } else {
        fraBeschreibung->HinweisZeigen(QtText(AuswahlText(Auswahl.size(), Programm->Index)));
    }
}

void frmMain::DateiBeschreiben(Satznummer Nummer) {
    const Katalog& Index = Programm->Index;
    const std::string Pfad = Index.Sätze.Pfad(Nummer);
    const auto Feld = [&](std::string_view Name) {
        std::string Wert;
        Feldtyp Typ{};
        FeldWert(Index, Nummer, Name, Wertform::Anzeigen, true, Wert, Typ);
        return QtText(Wert);
    };
    QStringList Untertitel = {Feld("Interpret"), Feld("Titel")};
    Untertitel.removeAll(QString());
    // What the thread uses is its own or outlives it; the medium is the record's, no drive is asked.
    auto Typen = std::make_shared<const std::vector<Dateityp>>(Index.Optionen.Dateitypen);
    Medienumgebung Umgebung;
    Umgebung.TAGsBytesSuchen = Programm->Werte.TAGsBytesSuchen;
    Umgebung.TAGsModern = Programm->Werte.TAGsModern == 1;
    Umgebung.Zeit = &Programm->Dienst.Zeit;
    Umgebung.Auskunft = Programm->Dienst.Auskunft;
    fraBeschreibung->DateiZeigen(QtText(DateinameVon(Pfad)), Untertitel.join(u" – "_s),
                                 [=, Satz = Index.Sätze.Lesen(Nummer)]() mutable {
                                     Umgebung.Dateitypen = Typen.get();
                                     const bool Vorhanden = DateiExistiert(Pfad);
                                     // The file manager lists folders among the files.
                                     if (!Vorhanden && OrdnerExistiert(Pfad)) {
                                         Dateiinformation Ordner;
                                         Ordner.Info = "Ordner: " + Pfad;
                                         return Ordner;
                                     }
                                     Leseauftrag Auftrag;
                                     Auftrag.Code = Lesecode{false, false, true, false};
                                     Auftrag.GrößeLesen = true;
                                     if (Vorhanden) Satz = MedienDatenLesen(Umgebung, Pfad, Satz, Auftrag);
                                     return DateiinformationBilden(Pfad, Satz, Vorhanden);
                                 });
}

void frmMain::ZuletztGeladenZeigen() {
    mnuZuletztGeladen->clear();
    int Nummer = 0;
    for (const std::string& Name : Programm->Werte.ZuletztGeladen) {
        ++Nummer;
        const QString Text = QtText(Name).replace(u'&', u"&&"_s);
        QAction* const Aktion = mnuZuletztGeladen->addAction(
            Nummer < 10 ? u"&%1  %2"_s.arg(QString::number(Nummer), Text) : Text);
        connect(Aktion, &QAction::triggered, this, [this, Name] { IndexLaden(Name); });
    }
    mnuZuletztGeladen->setEnabled(Nummer > 0);
}

Suchzeile frmMain::SuchzeileLesen() const {
    return Suche->Lesen();
}

void frmMain::SuchzeileLeeren() {
    Suche->Leeren();
    fraSuchVorschläge->hide();
}

void frmMain::VorschlägeZeigen(bool Gefunden, const std::vector<std::string>& Vorschläge) {
    // An empty index has its own page, which says more than "nothing found".
    fraSuchVorschläge->Zeigen(Gefunden || Programm->Index.IndexAnzahl() == 0, Vorschläge,
                              Programm->Werte.SucheVorschlägeErstellen == 1);
}

void frmMain::ErscheinungAnwenden() {
    const Einstellungen& Werte = Programm->Werte;
    PaletteAnwenden(Werte, Programm->Dienst.Desktop != nullptr && Programm->Dienst.Desktop->Dunkel());
    ListeFärben(*lstSongs, Werte);
    lstSongs->setFont(Listenschrift(Werte));
    FunktionenFärben(*fraFunktionen, Werte);
    BeschreibungFärben(*fraBeschreibung, Werte);
    mnuBeschreibungsleiste->setChecked(Werte.Beschreibungsleiste == 1);
    fraBeschreibung->setVisible(Werte.Beschreibungsleiste == 1);
    mnuSchnellsuche->setChecked(Werte.SchnellsucheZeigen == 1);
    fraBuchstaben->setVisible(Werte.SchnellsucheZeigen == 1);
    ZuletztGeladenZeigen();
}

void frmMain::ReglerStellen(int NeueLautstärke, int NeueBalance) {
    fraPlayer->ReglerStellen(NeueLautstärke, NeueBalance);
}

void frmMain::SymbolEinrichten() {
    Symbol->Einrichten(Symbolmenü.get());
}

void frmMain::SymbolEntfernen() {
    Symbol->Entfernen();
}

void frmMain::SymbolhinweisZeigen(std::string_view Titel, std::string_view Text) {
    Symbol->HinweisZeigen(QtText(Titel), QtText(Text));
}

void frmMain::LageSetzen(const Fensterlage& Lage) {
    const QRect Wunsch(Lage.Links, Lage.Oben, Lage.Breite, Lage.Höhe);
    // A screen that was unplugged since must not take the window with it, nor a smaller one (or a larger
    // scale) its edges.
    const QScreen* const Schirm = QGuiApplication::screenAt(Wunsch.center());
    const bool Passt = Schirm != nullptr && Wunsch.width() <= Schirm->availableVirtualGeometry().width() &&
                       Wunsch.height() <= Schirm->availableVirtualGeometry().height();
    if (!Lage.Zentriert && Passt) {
        setGeometry(Wunsch);
    } else {
        const QRect Schirmplatz = screen()->availableGeometry();
        const QSize Größe = (Lage.Zentriert ? size() : Wunsch.size()).boundedTo(Schirmplatz.size() * 0.96);
        setGeometry(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, Größe, Schirmplatz));
    }
    if (Lage.Maximiert) setWindowState(windowState() | Qt::WindowMaximized);
}

void frmMain::Zeigen(bool Sichtbar) {
    // Before anything can be seen; the password is asked for when the start has come so far.
    if (SperreGilt()) SperreSetzen(true);
    if (Sichtbar) {
        show();
        return;
    }
    // Only a symbol that is really there may stand for the window; a desktop that just starts gets a moment.
    NachSymbolVerborgen = !Symbol->Vorhanden();
}

void frmMain::EigentümerZeigen(std::string_view Name) {
    // Ahead of the password the index tells nothing of itself.
    if (Programm->Startet && SperreGilt()) {
        GemerkterEigentümer = Name;
        return;
    }
    frmEigentümer(Name, isVisible() ? this : nullptr).exec();
}

void frmMain::TagEditorZeigen() {
    TagEditorAusführen(*Programm, isVisible() ? this : nullptr, GewählteDateien(*Programm));
}

Terminantwort frmMain::TerminMelden(const Terminmeldung& Meldung) {
    QWidget* const Vorn = QApplication::activeModalWidget();
    frmTerminÜberwachungTermin Form(Meldung, Programm->Dienst.Person,
                                    Vorn != nullptr ? Vorn : (isVisible() ? this : nullptr));
    Form.exec();
    return Form.Antwort();
}

void frmMain::VerpassteTermineZeigen(const Terminliste& Verpasste) {
    QWidget* const Vorn = QApplication::activeModalWidget();
    frmTerminÜberwachungTerminVerpasst(Verpasste, Vorn != nullptr ? Vorn : (isVisible() ? this : nullptr))
        .exec();
}

void frmMain::SuchfeldFokussieren() {
    if (isVisible() && !isMinimized()) Suche->Fokussieren();
}

Fensterlage frmMain::LageLesen() {
    const QRect Lage = isMaximized() || isMinimized() ? normalGeometry() : geometry();
    return {false, Lage.x(), Lage.y(), Lage.width(), Lage.height(), isMaximized()};
}

void frmMain::Verbergen() {
    if (Symbol->Vorhanden()) {
        hide();
    } else {
        showMinimized();
    }
}

void frmMain::Wiederherstellen() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void frmMain::SpaltenÜbernehmen() {
    auto& Spalten = Programm->Ansicht.Spalten;
    auto Gelesen = lstSongs->SpaltenLesen(Spalten);
    const bool Umgestellt =
        !std::equal(Gelesen.begin(), Gelesen.end(), Spalten.begin(), Spalten.end(),
                    [](const Listenspalte& A, const Listenspalte& B) { return A.Nummer == B.Nummer; });
    Spalten = std::move(Gelesen);
    // The header still draws the old order in moved places; over the new one it would move it once more.
    if (Umgestellt) SpaltenZeigen();
}

int frmMain::BeendenFragen(bool& Immer) {
    frmBeenden Form(Symbol->Vorhanden(), isVisible() ? this : nullptr);
    const int Antwort = Form.exec();
    Immer = Form.Immer();
    return Antwort;
}

}  // namespace liedwerk
