// A run of the desktop program with real forms and files in a folder of its own, and a person that is a
// script.
#pragma once

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>

#include "core/hinzufuegelauf.h"
#include "core/start.h"
#include "plattform/linux/ordner.h"
#include "plattform/speicher/person.h"
#include "plattform/speicher/welt.h"
#include "ui/qt/frmmain.h"
#include "ui/qt/qttext.h"

namespace liedwerk::test {

// The control of this name; the test ends with a fault when there is none of this kind.
template <class Art>
Art& Teil(QObject& Form, const QString& Name) {
    auto* const Fund = Form.findChild<Art*>(Name);
    if (Fund == nullptr) throw std::runtime_error("kein Steuerelement " + Name.toStdString());
    return *Fund;
}

// Clicks the button of this name in the next modal form.
inline void ImDialogKlicken(const QString& Name, const std::function<void(QWidget&)>& Vorher = {}) {
    QTimer::singleShot(0, qApp, [Name, Vorher] {
        QWidget* const Form = QApplication::activeModalWidget();
        ASSERT_NE(Form, nullptr);
        if (Vorher) Vorher(*Form);
        QTest::mouseClick(&Teil<QAbstractButton>(*Form, Name), Qt::LeftButton);
    });
}

// An audio file without sound that carries a tag of 128 bytes.
inline void MusikdateiAnlegen(const std::string& Pfad, std::string Titel, std::string Interpret) {
    Titel.resize(30);
    Interpret.resize(30);
    std::ofstream Datei(Pfad, std::ios::binary);
    Datei << std::string(2000, 'x') << "TAG" << Titel << Interpret << std::string(64, '\0') << '\xff';
}

// What outlives a run: the program folder, the settings, clock and drives.
struct Umgebung {
    Umgebung() {
        // Not the first start, so that no welcome stands in the way.
        Werte.Schreiben("Start", std::int32_t{Versionszahl()});
        Werte.Schreiben("TippsAktueller", std::int32_t{0});
    }
    // Names that are no UTF-8 are beyond QTemporaryDir.
    ~Umgebung() { std::filesystem::remove_all(Ordner()); }
    Umgebung(const Umgebung&) = delete;
    Umgebung& operator=(const Umgebung&) = delete;
    std::string Ordner() const { return Verzeichnis.path().toStdString(); }
    // A folder with three files.
    std::string Musikordner() const {
        const std::string Pfad = Ordner() + "/Musik";
        QDir().mkpath(QtText(Pfad));
        MusikdateiAnlegen(Pfad + "/eins.mp3", "Morgenlicht", "Anna Berg");
        MusikdateiAnlegen(Pfad + "/zwei.mp3", "Sommerregen", "Anna Berg");
        MusikdateiAnlegen(Pfad + "/drei.mp3", "Stille Wasser", "Lea Sommer");
        return Pfad;
    }
    QTemporaryDir Verzeichnis;
    speicher::Werte Werte;
    speicher::StehendeUhr Zeit;
    speicher::Laufwerksliste Drives;
    Systemordnerleser Leser;
    // Without them nothing is played.
    Spielerkanal* Spieler = nullptr;
    Programmstart* Programme = nullptr;
    // Without them there are no audio CDs.
    const CDLaufwerke* CDs = nullptr;
    Http* Netz = nullptr;
    // Without it no folders are watched.
    Ordnerwacht* Wacht = nullptr;
};

struct Lauf {
    explicit Lauf(Umgebung& Welt)
        : Programm(Dienste{Person, Fenster, Welt.Zeit, Welt.Drives, Welt.Leser, nullptr, Welt.Werte, nullptr,
                           Welt.Ordner()}) {
        Programm.Dienst.Spieler = Welt.Spieler;
        Programm.Dienst.Programme = Welt.Programme;
        Programm.Dienst.CDs = Welt.CDs;
        Programm.Dienst.Netz = Welt.Netz;
        Programm.Dienst.Wacht = Welt.Wacht;
        Fenster.Anbinden(Programm);
        Fenster.Beendet = [this] { Beendet = true; };
        Main(Programm, Startauftrag{});
        QTest::qWait(1);
    }
    void OrdnerHinzufügen(const std::string& Pfad) {
        Ordnerauftrag Auftrag;
        Auftrag.Ordner = Pfad;
        OrdnerHinzufügenLauf(Programm, Auftrag, {});
    }
    QComboBox& Suchfeld() { return Teil<QComboBox>(Fenster, QStringLiteral("txtSongname")); }
    Listenansicht& Songs() {
        return static_cast<Listenansicht&>(Teil<QTreeView>(Fenster, QStringLiteral("lstSongs")));
    }
    QTimer& Listenuhr() { return Teil<QTimer>(Fenster, QStringLiteral("tmrListe")); }
    int Zeilen() { return Songs().model()->rowCount(); }
    QString Zelle(int Zeile, int Spalte) { return Songs().model()->index(Zeile, Spalte).data().toString(); }

    speicher::Person Person;
    frmMain Fenster;
    Anwendung Programm;
    bool Beendet = false;
};

}  // namespace liedwerk::test
