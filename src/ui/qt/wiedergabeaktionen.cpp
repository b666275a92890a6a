#include "ui/qt/wiedergabeaktionen.h"

#include <QAbstractItemView>
#include <QApplication>
#include <algorithm>
#include <random>

#include "basis/datei.h"
#include "basis/pfad.h"
#include "ui/qt/frmaudioplayernachricht.h"
#include "ui/qt/frmausfuehrenmit.h"
#include "ui/qt/frmautodj.h"
#include "ui/qt/frmbildanzeige.h"
#include "ui/qt/mauszeiger.h"
#include "ui/qt/qttext.h"
#include "ui/qt/tagaktionen.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

constexpr int Spieltakt = 1000;  // milliseconds between two looks at a player that plays
constexpr int Suchtakt = 1;      // the same while its title is looked for in the index

// Values of BeiDoppelklick.
enum Doppelklick : std::int16_t { Abspielen0 = 0, Abspielen1 = 1, Anhängen2 = 2, TagEditor3 = 3 };

// A form within a run waits for the person: the timers go on meanwhile, and the pointer is the usual one.
struct Formpause {
    explicit Formpause(bool& Lauf) : Aktiv(Lauf), Vorher(Lauf) { Aktiv = false; }
    Formpause(const Formpause&) = delete;
    Formpause& operator=(const Formpause&) = delete;
    ~Formpause() { Aktiv = Vorher; }
    bool& Aktiv;
    bool Vorher;
    const Mauszeiger Zeiger{Qt::ArrowCursor};
};

// The form from which something is played, else the window.
QWidget* Besitzer(QWidget& Fenster) {
    QWidget* const Form = QApplication::activeModalWidget();
    return Form != nullptr ? Form : &Fenster;
}

// Date and count of playing may stand in the list, and stand in the description.
void ListeAuffrischen(QWidget& Fenster, Hauptfenster& Teile) {
    if (auto* const Songs = Fenster.findChild<QAbstractItemView*>(u"lstSongs"_s)) Songs->viewport()->update();
    Teile.AuswahlZeigen();
}

}  // namespace

Wiedergabeaktionen::Wiedergabeaktionen(Fensterplatz& Platz, Spielerleiste& Feld, std::function<void()> Takt)
    : Programm(Platz.Programm),
      Fenster(Platz.Fenster),
      fraPlayer(Feld),
      Kanal(*Platz.Programm.Dienst.Spieler),
      Lauf(Platz.Programm),
      BaldTakten(std::move(Takt)) {
    AktionenAnlegen(Platz);
    FeldVerbinden();
    Kanal.Geändert = [this] { BaldTakten(); };
}

Wiedergabeaktionen::~Wiedergabeaktionen() {
    Kanal.Geändert = nullptr;
}

void Wiedergabeaktionen::AktionenAnlegen(Fensterplatz& Platz) {
    const auto Anlegen = [&](const QString& Name, const QString& Text, const char* Bild,
                             const QString& Tasten, std::function<void()> Handler) {
        return FensteraktionAnlegen(Platz, Name, Text, Bild,
                                    Tasten.isEmpty() ? QList<QKeySequence>() : QList{QKeySequence(Tasten)},
                                    std::move(Handler));
    };
    const auto Gewählte = [this]() -> const auto& {
        return Programm.Ansicht.Auswahl;
    };
    auto* const mnuEintragAbspielen =
        Anlegen(u"mnuEintragAbspielen"_s, u"Ab&spielen"_s, "spielen", u"Ctrl+P"_s,
                [=, this] { Abspielen(Gewählte(), false, false, false, {}); });
    auto* const mnuAnhängen =
        Anlegen(u"mnuAnhängen"_s, u"An Playliste an&hängen"_s, "anhaengen", u"Ctrl+Shift+P"_s,
                [=, this] { Abspielen(Gewählte(), true, false, false, {}); });
    auto* const mnuAusführen = Anlegen(u"mnuAusführen"_s, u"A&usführen"_s, "ausfuehren", u"Ctrl+Shift+A"_s,
                                       [=, this] { Abspielen(Gewählte(), false, true, false, {}); });
    auto* const mnuAusführenMit =
        Anlegen(u"mnuAusführenMit"_s, u"Ausführen &mit..."_s, "", {}, [this] { mnuAusführenMit_Click(); });
    auto* const mnuAutoDJ =
        Anlegen(u"mnuAutoDJ"_s, u"Auto&DJ..."_s, "autodj", u"Ctrl+J"_s, [this] { mnuAutoDJ_Click(); });
    auto* const mnuAudioplayerStarten =
        Anlegen(u"mnuAudioplayerStarten"_s, u"Audio-Player s&tarten"_s, "player-start", {},
                [this] { mnuAudioplayerStarten_Click(); });
    mnuAnhängen->setIconText(u"Anhängen"_s);
    Platz.Wiedergabe.addActions({mnuEintragAbspielen, mnuAnhängen});
    Platz.Wiedergabe.addSeparator();
    Platz.Wiedergabe.addActions({mnuAusführen, mnuAusführenMit});
    Platz.Wiedergabe.addSeparator();
    Platz.Wiedergabe.addActions({mnuAutoDJ, mnuAudioplayerStarten});
    Platz.InKontextmenü({mnuEintragAbspielen, mnuAnhängen, mnuAusführen, mnuAusführenMit});
    Platz.InFunktionsleiste(u"Wiedergabe"_s, {mnuEintragAbspielen, mnuAnhängen, mnuAutoDJ});
    Platz.BeiÄnderung([=, this](bool Geladen) {
        const bool Gewählt = Geladen && !Programm.Ansicht.Auswahl.empty();
        for (QAction* const Aktion : {mnuEintragAbspielen, mnuAnhängen, mnuAusführen, mnuAusführenMit})
            Aktion->setEnabled(Gewählt);
        mnuAutoDJ->setEnabled(Geladen && Programm.Index.IndexAnzahl() > 0);
    });
    Platz.BeiDoppelklick([this](Satznummer Nummer) { return lstSongs_DblClick(Nummer); });
}

void Wiedergabeaktionen::FeldVerbinden() {
    fraPlayer.Befehl = [this](int Nummer) { BefehlSenden(Nummer); };
    fraPlayer.Springen = [this](int Sekunden) { PlayerSpringen(Lauf.Steuerung, Sekunden); };
    fraPlayer.LautstärkeGesetzt = [this](int Wert) { PlayerLautstärkeSetzen(Lauf.Steuerung, Wert); };
    fraPlayer.BalanceGesetzt = [this](int Wert) { PlayerBalanceSetzen(Lauf.Steuerung, Wert); };
}

void Wiedergabeaktionen::BefehlSenden(int Nummer) {
    PlayerBefehl(Lauf.Steuerung, Nummer, false);
}

int Wiedergabeaktionen::TaktAusführen() {
    // A run that walks the records must not have them changed under its feet.
    if (Programm.LaufAktiv || Programm.Startet) return Spieltakt;
    const bool Vorher = Lauf.Erkennung.TitelVerarbeitet;
    const Spielerstand Stand = SpielerTakt(Lauf);
    if (!Vorher && Lauf.Erkennung.TitelErkannt) ListeAuffrischen(Fenster, Programm.Dienst.Fenster);
    const bool Erkannt = Programm.Werte.AbspielStatistikSpeichern == 1 && Lauf.Erkennung.TitelErkannt;
    fraPlayer.Zeigen(Stand, Erkannt, Programm.Werte.AudioPlayerBlinken == 1);
    fraPlayer.setVisible(!(Stand.Gefunden && Stand.Zustand == PlayerZustand::Stopped &&
                           Programm.Werte.PlayerAusblendenBeiStopp == 1));
    if (!SpielerBrauchtTakt(Lauf, Stand)) return 0;
    return Lauf.Erkennung.Suche ? Suchtakt : Spieltakt;
}

Abspielumgebung Wiedergabeaktionen::UmgebungMitFormen() {
    Abspielumgebung Umgebung = AbspielumgebungVon(Lauf);
    Umgebung.BildAnzeigen = [this](std::string_view Pfad) {
        const Formpause Pause(Programm.LaufAktiv);
        frmBildAnzeige(Pfad, Besitzer(Fenster)).exec();
        return true;  // the form itself says what is wrong with a picture
    };
    // The actions are barred while the run goes on; the rest of the window can be used.
    Umgebung.Warteschritt = [] { QCoreApplication::processEvents(); };
    Umgebung.NachrichtZeigen = [this] {
        frmAudioplayerNachricht Form(QtText(DateinameVon(Programm.Werte.WinampPfad)), Besitzer(Fenster));
        const Formpause Pause(Programm.LaufAktiv);
        Form.exec();
        if (Form.NichtMehrZeigen()) Programm.Werte.AudioplayerNachrichtZeigen = 0;
    };
    return Umgebung;
}

void Wiedergabeaktionen::Abspielen(const std::vector<Satznummer>& Dateien, bool Anhängen,
                                   bool Standardanwendung, bool PlaylisteLeeren, std::string_view Befehl) {
    if (Dateien.empty()) return;
    const std::vector<Satznummer> Feste = Dateien;  // the selection may change while events are looked at
    // Pictures need no player.
    if (!Standardanwendung && BrauchtAudioplayer(Programm.Index, Feste)) SpielerVorschlagen(Programm);
    {
        const Laufsperre Sperre(Programm);
        // Work goes on, the window can be used.
        const Mauszeiger Zeiger(Qt::BusyCursor);
        Abspielumgebung Umgebung = UmgebungMitFormen();
        AbspielenMediaPlayer(Umgebung, Feste, Anhängen, Standardanwendung, PlaylisteLeeren, Befehl);
    }
    ListeAuffrischen(Fenster, Programm.Dienst.Fenster);
    BaldTakten();
}

bool Wiedergabeaktionen::lstSongs_DblClick(Satznummer Nummer) {
    const auto& Auswahl = Programm.Ansicht.Auswahl;
    const bool InAuswahl = std::find(Auswahl.begin(), Auswahl.end(), Nummer) != Auswahl.end();
    const std::vector<Satznummer> Dateien = InAuswahl ? Auswahl : std::vector{Nummer};
    const bool Leeren =
        (QGuiApplication::keyboardModifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) != 0;
    // The file manager lists folders among the files; these are opened, not played.
    if (Programm.Index.Programmmodus == ModusDateimanager &&
        OrdnerExistiert(Programm.Index.Sätze.Pfad(Nummer)))
        return false;
    switch (Programm.Werte.BeiDoppelklick) {
        case Abspielen0:
        case Abspielen1:
            Abspielen(Dateien, false, false, Leeren, {});
            return true;
        case Anhängen2:
            Abspielen(Dateien, true, false, Leeren, {});
            return true;
        case TagEditor3:
            TagEditorAusführen(Programm, &Fenster, Dateien);
            return true;
        default:
            Abspielen(Dateien, false, true, false, {});
            return true;
    }
}

void Wiedergabeaktionen::mnuAusführenMit_Click() {
    const std::vector<Satznummer> Dateien = Programm.Ansicht.Auswahl;
    frmAusführenMit Form(Dateien.size(), Programm.Werte.AusführenPfad, Programm.Dienst.Person, &Fenster);
    if (Form.exec() != QDialog::Accepted) return;
    Programm.Werte.AusführenPfad = Form.Programm();
    Abspielen(Dateien, false, true, false, Form.Programm());
}

void Wiedergabeaktionen::mnuAudioplayerStarten_Click() {
    SpielerVorschlagen(Programm);
    Abspielumgebung Umgebung = UmgebungMitFormen();
    AudioplayerStarten(Umgebung);
    BaldTakten();
}

void Wiedergabeaktionen::mnuAutoDJ_Click() {
    std::random_device Saat;
    frmAutoDJ Form(Programm.Index, Programm.Werte, Programm.Dienst.Zeit,
                   ZufallszahlVon((static_cast<std::uint64_t>(Saat()) << 32U) | Saat()),
                   Programm.Dienst.Person, &Fenster);
    if (Form.exec() == QDialog::Accepted) AutoDjZeigen(Programm, Form.Gefunden());
}

}  // namespace liedwerk
