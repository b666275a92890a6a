#include "ui/qt/wachtaktionen.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTimer>
#include <QToolButton>
#include <set>

#include "core/synchronwacht.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

class Angebotsleiste final : public QFrame {
  public:
    Angebotsleiste(Fensterplatz& Ganzes, QAction& Synchronisieren)
        : QFrame(&Ganzes.Fenster), Platz(Ganzes), Wacht(*Ganzes.Programm.Dienst.Wacht) {
        setObjectName(u"fraAngebot"_s);
        setFrameShape(StyledPanel);
        lblAngebot = new QLabel(this);
        lblAngebot->setObjectName(u"lblAngebot"_s);
        lblAngebot->setTextFormat(Qt::PlainText);
        lblAngebot->setWordWrap(true);
        auto* const cmdAngebot = new QPushButton(Symbolbild("synchronisieren"), u"Synchronisieren"_s, this);
        cmdAngebot->setObjectName(u"cmdAngebotSynchronisieren"_s);
        cmdAngebot->setAccessibleName(u"Index jetzt synchronisieren"_s);
        auto* const cmdSchließen = new QToolButton(this);
        cmdSchließen->setObjectName(u"cmdAngebotSchließen"_s);
        cmdSchließen->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
        cmdSchließen->setToolTip(u"Nicht synchronisieren"_s);
        cmdSchließen->setAccessibleName(u"Angebot schließen"_s);
        cmdSchließen->setAutoRaise(true);
        cmdSchließen->setFocusPolicy(Qt::StrongFocus);
        auto* const Reihe = new QHBoxLayout(this);
        Reihe->setContentsMargins(10, 4, 4, 4);
        Reihe->addWidget(lblAngebot, 1);
        Reihe->addWidget(cmdAngebot);
        Reihe->addWidget(cmdSchließen);
        connect(cmdAngebot, &QPushButton::clicked, &Synchronisieren, &QAction::trigger);
        connect(cmdSchließen, &QToolButton::clicked, this, [this] { Verwerfen(); });
        // Behind the run, however it was started.
        connect(&Synchronisieren, &QAction::triggered, this, [this] {
            if (!Platz.Bereit()) return;
            // What came in meanwhile may lie where the run had been already, and a run that did not come to
            // its end leaves things to do.
            Ungeprüft || !Platz.Programm.AbgleichGelungen ? Prüfen() : Verwerfen();
        });
        constexpr int Wartezeit = 1000;  // milliseconds until the next look whether the window is free
        Später.setSingleShot(true);
        Später.setInterval(Wartezeit);
        connect(&Später, &QTimer::timeout, this, [this] {
            if (Ungeprüft) Prüfen();
        });
        hide();
    }
    Angebotsleiste(const Angebotsleiste&) = delete;
    Angebotsleiste& operator=(const Angebotsleiste&) = delete;
    ~Angebotsleiste() override { Wacht.Beenden(); }

    // Index, rules or settings may be others now, or a run may have ended.
    void Nachführen() {
        Wachtvorgabe Neue = WachtvorgabeVon(Platz.Programm);
        if (!(Neue == Vorgabe)) {
            Vorgabe = std::move(Neue);
            ++Auftragsnummer;
            Verwerfen();
            Wacht.Beenden();
            if (!Vorgabe.Ordner.empty()) Beginnen();
        }
        if (Ungeprüft) Prüfen();
    }

  private:
    void Beginnen() {
        Wachtauftrag Auftrag;
        Auftrag.Ordner = Vorgabe.Ordner;
        Auftrag.Gesucht = [Eigene = Vorgabe](std::string_view Name) { return Eigene.Gesucht(Name); };
        Auftrag.Melden = [this, Nummer = Auftragsnummer](Wachtmeldung Meldung) {
            QMetaObject::invokeMethod(
                this,
                [this, Nummer, Nachricht = std::move(Meldung)] {
                    if (Nummer == Auftragsnummer) Annehmen(Nachricht);
                },
                Qt::QueuedConnection);
        };
        Wacht.Beginnen(std::move(Auftrag));
    }

    void Annehmen(const Wachtmeldung& Meldung) {
        if (Meldung.Unvollständig) {
            constexpr std::string_view Text =
                "Nicht alle Ordner können beobachtet werden, da das System keine weiteren Beobachtungen "
                "erlaubt. "
                "Synchronisieren Sie diese bei Bedarf selbst (F5).";
            Platz.Programm.Log.Schreiben(Text);
            Platz.Programm.Dienst.Person.StatusZeigen(Text);
        }
        if (Meldung.Pfade.empty() && !Meldung.Ungenau) return;
        Betroffen.insert(Meldung.Pfade.begin(), Meldung.Pfade.end());
        // More than anybody wants to have counted.
        constexpr std::size_t Höchstens = 1000;
        Ungenau = Ungenau || Meldung.Ungenau || Betroffen.size() > Höchstens;
        if (Ungenau) Betroffen.clear();
        Ungeprüft = true;
        Prüfen();
    }

    // Shows the offer when there is something to do. While a run is active, the index is none to look into.
    void Prüfen() {
        if (!Platz.Bereit()) return Später.start();
        Ungeprüft = false;
        const auto Bedarf =
            AbgleichbedarfPrüfen(Platz.Programm, Vorgabe, {Betroffen.begin(), Betroffen.end()});
        if (!Ungenau && !Bedarf.Besteht()) return Verwerfen();
        lblAngebot->setText(QtText(Abgleichangebot(Bedarf, Ungenau)));
        show();
    }

    void Verwerfen() {
        Betroffen.clear();
        Ungenau = Ungeprüft = false;
        hide();
    }

    Fensterplatz& Platz;
    Ordnerwacht& Wacht;
    QLabel* lblAngebot = nullptr;
    Wachtvorgabe Vorgabe;
    int Auftragsnummer = 0;
    std::set<std::string> Betroffen;
    QTimer Später;
    bool Ungenau = false;
    bool Ungeprüft = false;
};

}  // namespace

void WachtaktionenAnlegen(Fensterplatz& Platz) {
    auto* const Synchronisieren = Platz.Fenster.findChild<QAction*>(u"mnuListeAufräumen"_s);
    auto* const Leiste = new Angebotsleiste(Platz, *Synchronisieren);
    Platz.ÜberListe(Leiste);
    Platz.BeiÄnderung([Leiste](bool) { Leiste->Nachführen(); });
}

}  // namespace liedwerk
