// The part of the player channel that speaks to the session bus, in a thread of its own.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QTimer>
#include <chrono>
#include <functional>
#include <memory>
#include <mutex>

#include "plattform/qt/busempfang.h"
#include "plattform/qt/mpriswerte.h"
#include "plattform/spieler.h"

namespace liedwerk {

// What is known of the player, shared between the two threads under the lock.
struct Mprisbild {
    mutable std::mutex Riegel;
    std::string Klasse;  // what is watched
    bool Umgesehen = false;
    bool Angemeldet = false;     // its name is on the bus
    Spielerfenster Fenster = 0;  // another number for each appearance; 0: nobody there
    Spielerfenster Erscheinungen = 0;
    int Zustand = 0;             // as the message for it answers: 1, 3 or 0
    std::int64_t Position = -1;  // milliseconds, at Gemessen
    std::chrono::steady_clock::time_point Gemessen;
    std::int64_t Länge = -1;  // seconds
    Spielerlage Lage;
    std::function<void()> Melden;  // tells the owner of a change

    // Where the title is now: while it plays the time since the last answer counts, but not for long, since a
    // player that has stopped answering may have stopped playing.
    std::int64_t PositionJetzt() const;
};

class Mprisarbeiter final : public QObject {
  public:
    explicit Mprisarbeiter(std::shared_ptr<Mprisbild> Ziel) : Bild(std::move(Ziel)) {}
    ~Mprisarbeiter() override;

    // Watches the player of this name from now on.
    void Beobachten(const std::string& Klasse, bool Zweitschnittstelle);
    // Carries a message of the channel out. Counted in Spielerlage::Offen by the sender.
    void Ausführen(int Nachricht, int wParam, int lParam);

  private:
    using Behandlung = std::function<void(const QDBusMessage&)>;
    bool Verbinden();
    void Rufen(QDBusMessage Frage, const Behandlung& Fertig);
    QDBusMessage Frage(const char* Schnittstelle, const char* Name) const;
    // Looks who is there; of several players of a kind Bevorzugt is taken before all others.
    void Umsehen(const QString& Bevorzugt);
    void Aufnehmen(const QString& Name);
    void Hören(const QString& Eigner, bool An);
    void Verlieren();
    void FähigkeitenLesen();
    void Nachlesen();
    void PositionLesen();
    void GanzLesen(const QVariantMap& Werte);
    void PositionMerken(const QVariant& Wert);
    bool SpringtNoch(std::int64_t Position);
    bool SpringtSpät(std::int64_t Position);
    void SprungVergessen();
    void Geantwortet(bool Gelungen);
    bool Stumm() const;  // it has not answered several times
    void Befehl(QDBusMessage Nachricht);
    void Benutzerbefehl(int wParam, int lParam);
    void Spielerbefehl(int Nummer);
    void Springen(std::int64_t Millisekunden);
    void BalanceSetzen(int Balance);
    void Erledigt();
    void Melden();

    std::shared_ptr<Mprisbild> Bild;
    std::unique_ptr<QDBusConnection> Bus;
    std::unique_ptr<QDBusServiceWatcher> Wächter;
    std::unique_ptr<QTimer> Takt;        // the next look at the position
    std::unique_ptr<QTimer> Sammelzeit;  // signals that come together are answered by one look
    Busempfang Empfang{this};            // a child, so that it moves to the thread as well
    QString Grundname;                   // "org.mpris.MediaPlayer2.x"
    QString Dienst;                      // the name of the player that is there; empty: none
    QString Eigner;                      // its unique name
    Mpristitel Titel;
    bool Zweit = false;
    std::int64_t Sprungziel = -1;  // milliseconds; the player was sent there and has not told of it yet
    std::chrono::steady_clock::time_point Sprungfrist;
    std::int64_t Versuchtesziel = -1;  // an aim that was given up: a slow player may get there yet
    std::chrono::steady_clock::time_point Versuchsfrist;
    int Fehlschläge = 0;
    std::uint64_t Folge = 0;  // rises when another player is watched: late answers are dropped
    bool FähigkeitenBekannt = false;
    bool LiestGerade = false;
    bool NochEinmal = false;  // something changed while an answer was under way
};

}  // namespace liedwerk
