#include "ui/qt/dateiaktionen.h"

#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "basis/datei.h"
#include "basis/text.h"
#include "core/dateilauf.h"
#include "core/hinzufuegelauf.h"
#include "core/umbenennlauf.h"
#include "ui/qt/frmdateiname.h"
#include "ui/qt/frmkopieren.h"
#include "ui/qt/frmloeschen.h"
#include "ui/qt/frmumbenennen.h"
#include "ui/qt/qttext.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

// What file managers say of files that shall move instead of being copied.
const QString GnomeAblage = u"x-special/gnome-copied-files"_s;
const QString KdeAblage = u"application/x-kde-cutselection"_s;

// The selection as it stands now: a run changes the list while it goes over it.
std::vector<Satznummer> Gewählte(const Fensterplatz& Platz) {
    return Platz.Programm.Ansicht.Auswahl;
}

void KopierenZeigen(Fensterplatz& Platz) {
    Anwendung& P = Platz.Programm;
    if (frmKopieren(P.Werte, P.Dienst.Person, &Platz.Fenster).exec() != QDialog::Accepted) return;
    KopierenLauf(P, Gewählte(Platz), KopierauftragAus(P.Werte));
}

void UmbenennenZeigen(Fensterplatz& Platz) {
    Anwendung& P = Platz.Programm;
    const auto Sätze = Gewählte(Platz);
    frmUmbenennen Form(P.Werte, Sätze.size(), P.Dienst.Person, &Platz.Fenster);
    if (Form.exec() != QDialog::Accepted) return;
    const Umbenennauftrag Auftrag = Form.Auftrag();
    UmbenennenLauf(P, Auftrag, Sätze, [&](std::string_view Vorgang, const std::string& Alter) {
        return frmDateiname(Vorgang, Alter, QApplication::activeWindow()).Erfragen();
    });
    UmbenennauftragMerken(P.Werte, Auftrag);
}

void LöschenZeigen(Fensterplatz& Platz) {
    const auto Sätze = Gewählte(Platz);
    const auto Wahl = frmLöschen(Sätze.size(), &Platz.Fenster).Fragen();
    if (Wahl == frmLöschen::Wahl::Abbrechen) return;
    LöschenLauf(Platz.Programm, Sätze, Wahl == frmLöschen::Wahl::Papierkorb, false);
}

void Ausschneiden(Fensterplatz& Platz) {
    std::vector<std::string> Pfade;
    for (const Satznummer Nummer : Gewählte(Platz)) {
        std::string Pfad = Platz.Programm.Index.Sätze.Pfad(Nummer);
        if (DateiExistiert(Pfad)) Pfade.push_back(std::move(Pfad));
    }
    if (Pfade.empty()) {
        Platz.Programm.Dienst.Person.StatusZeigen("Diese Datei existiert nicht (mehr).", 3000);
        return;
    }
    auto* const Daten = new QMimeData;
    const QByteArray Liste = UriListe(Pfade);
    Daten->setData(u"text/uri-list"_s, Liste);
    Daten->setData(GnomeAblage, "cut\n" + QByteArray(Liste).replace("\r\n", "\n").trimmed());
    Daten->setData(KdeAblage, "1");
    QGuiApplication::clipboard()->setMimeData(Daten);
}

void Einfügen(Fensterplatz& Platz) {
    const QMimeData* const Daten = QGuiApplication::clipboard()->mimeData();
    if (Daten == nullptr) return;
    const auto Pfade = PfadeAusUriListe(Daten->data(u"text/uri-list"_s));
    if (Pfade.empty()) {
        Platz.Programm.Dienst.Person.StatusZeigen("Die Zwischenablage enthält keine Dateien.", 3000);
        return;
    }
    if (Platz.Programm.Index.Programmmodus != ModusDateimanager) {
        DragDropVerarbeiten(Platz.Programm, Pfade);
        return;
    }
    const bool Verschieben = Daten->data(GnomeAblage).startsWith("cut") || Daten->data(KdeAblage) == "1";
    EinfügenLauf(Platz.Programm, Pfade, Verschieben);
    // What has moved cannot be moved a second time.
    if (Verschieben) QGuiApplication::clipboard()->clear();
}

}  // namespace

void DateiaktionenAnlegen(Fensterplatz& Platz) {
    // The actions live as long as the window, which keeps its place.
    const auto Aktion = [&Platz](const QString& Name, const QString& Text, const char* Bild,
                                 const QKeySequence& Taste, void (*Handler)(Fensterplatz&)) {
        return FensteraktionAnlegen(Platz, Name, Text, Bild, {Taste}, [&Platz, Handler] { Handler(Platz); });
    };
    QAction* const mnuKopieren = Aktion(u"mnuKopieren"_s, u"Dateien &kopieren/verschieben..."_s, "kopieren",
                                        QKeySequence(u"Ctrl+Shift+K"_s), KopierenZeigen);
    QAction* const mnuUmbenennen = Aktion(u"mnuUmbenennen"_s, u"&Umbenennen..."_s, "umbenennen",
                                          QKeySequence(u"F2"_s), UmbenennenZeigen);
    QAction* const mnuLöschen =
        Aktion(u"mnuLöschen"_s, u"&Dateien löschen..."_s, "loeschen", QKeySequence(u"Del"_s), LöschenZeigen);
    QAction* const mnuEntfernen =
        Aktion(u"mnuEntfernen"_s, u"Aus Inde&x entfernen..."_s, "entfernen", QKeySequence(u"Ctrl+Del"_s),
               [](Fensterplatz& Ort) { EntfernenLauf(Ort.Programm, Gewählte(Ort)); });
    QAction* const mnuAusschneiden = Aktion(u"mnuAusschneiden"_s, u"Auss&chneiden"_s, "ausschneiden",
                                            QKeySequence(u"Ctrl+X"_s), Ausschneiden);
    QAction* const mnuEinfügen =
        Aktion(u"mnuEinfügen"_s, u"Ein&fügen"_s, "einfuegen", QKeySequence(u"Ctrl+V"_s), Einfügen);
    mnuKopieren->setIconText(u"Kopieren/Verschieben"_s);

    const QList<QAction*> MitDateien = {mnuKopieren, mnuUmbenennen, mnuLöschen, mnuEntfernen};
    Platz.Bearbeiten.addSeparator();
    Platz.Bearbeiten.addActions({mnuAusschneiden, mnuEinfügen});
    Platz.Bearbeiten.addSeparator();
    Platz.Bearbeiten.addActions(MitDateien);
    Platz.InKontextmenü(MitDateien + QList<QAction*>{mnuAusschneiden, mnuEinfügen});
    Platz.InFunktionsleiste(u"Dateien"_s, {mnuUmbenennen, mnuKopieren, mnuLöschen});
    Platz.BeiÄnderung([=, &Platz](bool Geladen) {
        const bool Gewählt = Geladen && !Platz.Programm.Ansicht.Auswahl.empty();
        for (QAction* const Eine : MitDateien)
            Eine->setEnabled(Gewählt);
        mnuAusschneiden->setEnabled(Gewählt);
        mnuEinfügen->setEnabled(Geladen);
    });
}

}  // namespace liedwerk
