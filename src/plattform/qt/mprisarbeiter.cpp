#include "plattform/qt/mprisarbeiter.h"

#include <QDBusConnectionInterface>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QFile>
#include <algorithm>
#include <cmath>
#include <tuple>

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

constexpr auto Verbindungsname = "liedwerk-spieler";
constexpr auto Objekt = "/org/mpris/MediaPlayer2";
constexpr auto Wurzel = "org.mpris.MediaPlayer2";
constexpr auto Player = "org.mpris.MediaPlayer2.Player";
constexpr auto Eigenschaften = "org.freedesktop.DBus.Properties";
constexpr auto Zweitdienst = "org.atheme.audacious";
constexpr auto Zweitobjekt = "/org/atheme/audacious";

constexpr auto KeinTitel = "/org/mpris/MediaPlayer2/TrackList/NoTrack";

constexpr int Geduld = 1000;         // milliseconds for an answer
constexpr int Positionstakt = 1000;  // milliseconds between two looks while a title plays
constexpr int Ruhetakt = 10000;      // the same while the player does not answer
constexpr int Sammeldauer = 60;      // milliseconds
constexpr int FehlschlägeHöchstens = 3;
constexpr std::int64_t LängsteSchätzung = 2500;                // milliseconds
constexpr auto Sprungdauer = std::chrono::milliseconds(1500);  // that a player may take for a jump
// A jump that was given up is still known for what it is so long.
constexpr auto Versuchsdauer = std::chrono::seconds(10);
constexpr std::int64_t Sprungweite = 3000;  // milliseconds around its aim in which the jump has been made
// A position that falls from beyond the first to below the second (milliseconds) is a new play.
constexpr std::int64_t Fallhöhe = 3000;
constexpr std::int64_t Neuanfang = 2000;

// Without an address Qt would start a bus of its own.
bool BusGenannt() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + u"/bus"_s);
}

int ZustandVon(const QString& Text) {
    return Text == "Playing"_L1 ? 1 : Text == "Paused"_L1 ? 3 : 0;
}

}  // namespace

std::int64_t Mprisbild::PositionJetzt() const {
    if (Zustand != 1 || Position < 0) return Position;
    const auto Vergangen =
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - Gemessen)
            .count();
    const std::int64_t Jetzt = Position + std::min<std::int64_t>(Vergangen, LängsteSchätzung);
    return Länge > 0 ? std::min(Jetzt, std::max(Position, Länge * 1000)) : Jetzt;
}

Mprisarbeiter::~Mprisarbeiter() {
    Wächter.reset();
    Bus.reset();
    QDBusConnection::disconnectFromBus(QLatin1String(Verbindungsname));
}

bool Mprisarbeiter::Verbinden() {
    if (Bus) return Bus->isConnected();
    if (!BusGenannt()) return false;
    Bus = std::make_unique<QDBusConnection>(
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QLatin1String(Verbindungsname)));
    Takt = std::make_unique<QTimer>();
    Takt->setSingleShot(true);
    connect(Takt.get(), &QTimer::timeout, this, [this] { PositionLesen(); });
    Sammelzeit = std::make_unique<QTimer>();
    Sammelzeit->setSingleShot(true);
    connect(Sammelzeit.get(), &QTimer::timeout, this, [this] { Nachlesen(); });
    Empfang.Empfangen = [this](const QDBusMessage&) {
        if (!Sammelzeit->isActive()) Sammelzeit->start(Sammeldauer);
    };
    return Bus->isConnected();
}

void Mprisarbeiter::Melden() {
    const std::lock_guard Halten(Bild->Riegel);
    if (Bild->Melden) Bild->Melden();
}

QDBusMessage Mprisarbeiter::Frage(const char* Schnittstelle, const char* Name) const {
    return QDBusMessage::createMethodCall(Dienst, QLatin1String(Objekt), QLatin1String(Schnittstelle),
                                          QLatin1String(Name));
}

// Calls without waiting. An answer that comes when another player is watched already is dropped.
void Mprisarbeiter::Rufen(QDBusMessage Frage, const Behandlung& Fertig) {
    // A player that has just gone must not be started by a question.
    Frage.setAutoStartService(false);
    auto* const Warten = new QDBusPendingCallWatcher(Bus->asyncCall(Frage, Geduld), this);
    connect(Warten, &QDBusPendingCallWatcher::finished, this,
            [this, Fertig, Stand = Folge](QDBusPendingCallWatcher* Fertiger) {
                const QDBusMessage Ergebnis = Fertiger->reply();
                Fertiger->deleteLater();
                if (Stand == Folge) Fertig(Ergebnis);
            });
}

void Mprisarbeiter::Beobachten(const std::string& Klasse, bool Zweitschnittstelle) {
    const bool Verbunden = Verbinden();
    if (Verbunden) Verlieren();
    Grundname = QLatin1String(Wurzel) + u'.' + QString::fromStdString(Klasse);
    Zweit = Zweitschnittstelle;
    if (!Verbunden) {
        const std::lock_guard Halten(Bild->Riegel);
        Bild->Umgesehen = true;
        return;
    }
    // The star stands for further parts: a second player of a kind has "instance" and a number there.
    Wächter = std::make_unique<QDBusServiceWatcher>(Grundname + u'*', *Bus,
                                                    QDBusServiceWatcher::WatchForOwnerChange);
    connect(Wächter.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString& Name, const QString&, const QString& Neuer) {
                // Who is watched stays so while it is there and answers: a second player of its kind does
                // not take its place.
                const bool Anderer = Name != Dienst;
                if (Anderer && (Neuer.isEmpty() || (!Dienst.isEmpty() && !Stumm()))) return;
                const QString Bevorzugt = Dienst.isEmpty() ? QString() : Name;
                Verlieren();
                Umsehen(Bevorzugt);
            });
    Umsehen({});
}

void Mprisarbeiter::Umsehen(const QString& Bevorzugt) {
    Rufen(QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/"_s, u"org.freedesktop.DBus"_s,
                                         u"ListNames"_s),
          [this, Bevorzugt](const QDBusMessage& Antwort) {
              const QStringList Namen = Antwort.arguments().value(0).toStringList();
              const auto Weiterer = std::find_if(Namen.begin(), Namen.end(), [this](const QString& Name) {
                  return Name.startsWith(Grundname + u'.');
              });
              const QString Gefunden = Namen.contains(Bevorzugt)   ? Bevorzugt
                                       : Namen.contains(Grundname) ? Grundname
                                       : Weiterer != Namen.end()   ? *Weiterer
                                                                   : QString();
              if (Gefunden.isEmpty()) {
                  const std::lock_guard Halten(Bild->Riegel);
                  Bild->Umgesehen = true;
              } else if (Gefunden != Dienst) {
                  Aufnehmen(Gefunden);
              }
          });
}

void Mprisarbeiter::Aufnehmen(const QString& Name) {
    Verlieren();
    Dienst = Name;
    {
        const std::lock_guard Halten(Bild->Riegel);
        Bild->Angemeldet = true;
    }
    auto Wer = QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/"_s, u"org.freedesktop.DBus"_s,
                                              u"GetNameOwner"_s);
    Wer << Name;
    Rufen(Wer, [this](const QDBusMessage& Antwort) {
        Hören(Antwort.arguments().value(0).toString(), true);
        Nachlesen();
    });
}

// Reads what the player can do beside playing.
void Mprisarbeiter::FähigkeitenLesen() {
    auto Fähigkeiten = Frage(Eigenschaften, "GetAll");
    Fähigkeiten << QString::fromLatin1(Wurzel);
    Rufen(Fähigkeiten, [this](const QDBusMessage& Antwort) {
        // A player that has just taken its name may not be ready to answer: it is asked again.
        if (Antwort.type() != QDBusMessage::ReplyMessage) return;
        FähigkeitenBekannt = true;
        const QVariantMap Werte = Busverzeichnis(Antwort.arguments().value(0));
        {
            const std::lock_guard Halten(Bild->Riegel);
            Bild->Lage.KannSchließen = Werte.value(u"CanQuit"_s).toBool();
            Bild->Lage.KannEinstellungen = Zweit || Werte.value(u"CanRaise"_s).toBool();
        }
        Melden();
    });
}

void Mprisarbeiter::Hören(const QString& Von, bool An) {
    if (Von.isEmpty()) return;
    // The bus keeps back changes of other interfaces, which a player may tell of without end.
    for (const auto& [Schnittstelle, Signal, Erstes] :
         {std::tuple{Eigenschaften, "PropertiesChanged", QStringList{QLatin1String(Player)}},
          {Player, "Seeked", QStringList()}}) {
        if (An) {
            Bus->connect(Von, QLatin1String(Objekt), QLatin1String(Schnittstelle), QLatin1String(Signal),
                         Erstes, {}, &Empfang, SLOT(nachricht(QDBusMessage)));
        } else {
            Bus->disconnect(Von, QLatin1String(Objekt), QLatin1String(Schnittstelle), QLatin1String(Signal),
                            Erstes, {}, &Empfang, SLOT(nachricht(QDBusMessage)));
        }
    }
    Eigner = An ? Von : QString();
}

void Mprisarbeiter::Verlieren() {
    ++Folge;
    Hören(Eigner, false);
    Dienst.clear();
    Titel = {};
    SprungVergessen();
    Fehlschläge = 0;
    LiestGerade = false;
    FähigkeitenBekannt = false;
    Takt->stop();
    Sammelzeit->stop();
    {
        const std::lock_guard Halten(Bild->Riegel);
        Bild->Angemeldet = false;
        Bild->Fenster = 0;
        Bild->Zustand = 0;
        Bild->Position = Bild->Länge = -1;
        const auto Durchgang = Bild->Lage.Durchgang;
        Bild->Lage = {};
        Bild->Lage.Durchgang = Durchgang;
    }
    Melden();
}

// Reads everything that the player tells of itself.
void Mprisarbeiter::Nachlesen() {
    if (Dienst.isEmpty()) return;
    NochEinmal = LiestGerade;
    if (LiestGerade) return;
    LiestGerade = true;
    if (!FähigkeitenBekannt) FähigkeitenLesen();
    auto Alles = Frage(Eigenschaften, "GetAll");
    Alles << QString::fromLatin1(Player);
    Rufen(Alles, [this](const QDBusMessage& Antwort) {
        LiestGerade = false;
        const bool Gelungen = Antwort.type() == QDBusMessage::ReplyMessage;
        if (Gelungen) GanzLesen(Busverzeichnis(Antwort.arguments().value(0)));
        Geantwortet(Gelungen);
        if (Gelungen && NochEinmal) Nachlesen();
    });
    if (!Zweit) return;
    Rufen(QDBusMessage::createMethodCall(QLatin1String(Zweitdienst), QLatin1String(Zweitobjekt),
                                         QLatin1String(Zweitdienst), u"Balance"_s),
          [this](const QDBusMessage& Antwort) {
              const auto Prozent = Buszahl(Antwort.arguments().value(0));
              if (!Prozent) return;
              const std::lock_guard Halten(Bild->Riegel);
              Bild->Lage.Balance = static_cast<int>(std::lround(std::clamp(*Prozent, -100.0, 100.0) * 1.27));
          });
}

void Mprisarbeiter::PositionLesen() {
    if (Dienst.isEmpty()) return;
    // A player that did not answer is asked for all it has: something may have been missed.
    if (Fehlschläge > 0) return Nachlesen();
    auto Wo = Frage(Eigenschaften, "Get");
    Wo << QString::fromLatin1(Player) << u"Position"_s;
    Rufen(Wo, [this](const QDBusMessage& Antwort) {
        const bool Gelungen = Antwort.type() == QDBusMessage::ReplyMessage;
        const bool Sprang = Sprungziel >= 0;
        if (Gelungen) PositionMerken(Antwort.arguments().value(0).value<QDBusVariant>().variant());
        Geantwortet(Gelungen);
        // Whoever shows a paused player does not look at its position again unasked.
        if (Sprang && Sprungziel < 0) Melden();
    });
}

bool Mprisarbeiter::Stumm() const {
    return Fehlschläge >= FehlschlägeHöchstens;
}

// What an answer, or none, means for the player and for the next look.
void Mprisarbeiter::Geantwortet(bool Gelungen) {
    Fehlschläge = Gelungen ? 0 : Fehlschläge + 1;
    bool Spielt = false;
    bool Neu = false;
    {
        const std::lock_guard Halten(Bild->Riegel);
        Bild->Umgesehen = true;
        const Spielerfenster Vorher = Bild->Fenster;
        if (Gelungen && Vorher == 0) Bild->Fenster = ++Bild->Erscheinungen;
        if (Stumm()) Bild->Fenster = 0;
        Neu = Bild->Fenster != Vorher;
        Spielt = Bild->Zustand == 1;
    }
    if (Stumm()) {
        Takt->start(Ruhetakt);
    } else if (Spielt || !Gelungen || Sprungziel >= 0) {
        Takt->start(Positionstakt);
    } else {
        Takt->stop();
    }
    if (Neu) Melden();
}

// A player that has taken a jump still tells for a moment where it was: shown, that would throw the slider
// back.
bool Mprisarbeiter::SpringtNoch(std::int64_t Position) {
    if (Sprungziel < 0) return false;
    const bool Angekommen = std::abs(Position - Sprungziel) <= Sprungweite;
    if (!Angekommen && std::chrono::steady_clock::now() < Sprungfrist) return true;
    if (!Angekommen) {
        // A jump that was not made is no way back to the beginning of the title.
        Bild->Position = -1;
        Versuchtesziel = Sprungziel;
        Versuchsfrist = std::chrono::steady_clock::now() + Versuchsdauer;
    }
    Sprungziel = -1;
    return false;
}

// True once, when a player gets to an aim that was given up already.
bool Mprisarbeiter::SpringtSpät(std::int64_t Position) {
    if (Versuchtesziel < 0) return false;
    const bool Angekommen = std::abs(Position - Versuchtesziel) <= Sprungweite;
    const bool Rechtzeitig = std::chrono::steady_clock::now() < Versuchsfrist;
    if (Angekommen || !Rechtzeitig) Versuchtesziel = -1;
    return Angekommen && Rechtzeitig;
}

void Mprisarbeiter::SprungVergessen() {
    Sprungziel = Versuchtesziel = -1;
}

void Mprisarbeiter::PositionMerken(const QVariant& Wert) {
    const auto Mikrosekunden = Buszahl(Wert);
    const std::lock_guard Halten(Bild->Riegel);
    const std::int64_t Jetzt =
        Mikrosekunden ? static_cast<std::int64_t>(std::clamp(*Mikrosekunden / 1000, 0.0, 1e10)) : -1;
    if (SpringtNoch(Jetzt)) return;
    const bool Gesprungen = SpringtSpät(Jetzt);
    const std::int64_t Vorher = Bild->PositionJetzt();
    if (!Gesprungen && Jetzt >= 0 && Jetzt < Neuanfang && Vorher - Jetzt > Fallhöhe) ++Bild->Lage.Durchgang;
    Bild->Position = Jetzt;
    Bild->Gemessen = std::chrono::steady_clock::now();
}

void Mprisarbeiter::GanzLesen(const QVariantMap& Werte) {
    Mpristitel Neuer = TitelLesen(Busverzeichnis(Werte.value(u"Metadata"_s)));
    const auto Laut = Buszahl(Werte.value(u"Volume"_s));
    const auto Kann = [&](QStringView Name) { return Werte.value(Name.toString()).toBool(); };
    const int Zustand = ZustandVon(Bustext(Werte.value(u"PlaybackStatus"_s)));
    {
        const std::lock_guard Halten(Bild->Riegel);
        Spielerlage& Lage = Bild->Lage;
        const bool AndererTitel =
            Neuer.Kennung != Titel.Kennung || Neuer.Adresse != Titel.Adresse || Neuer.Titel != Titel.Titel;
        if (AndererTitel || (Bild->Zustand == 0 && Zustand == 1)) {
            ++Lage.Durchgang;
            Bild->Position = -1;  // a position of the title before must not count as a fall
            SprungVergessen();
        }
        Bild->Zustand = Zustand;
        Bild->Länge = Neuer.Länge;
        Lage.Titel = Neuer.Titel;
        Lage.TitelIstFenstertext = false;
        Lage.Dateien = Neuer.Dateien;
        Lage.Lautstärke =
            Laut ? std::optional(static_cast<int>(std::lround(std::clamp(*Laut, 0.0, 1.0) * 255)))
                 : std::nullopt;
        Lage.KannSpringen = Kann(u"CanSeek");
        Lage.KannLautstärke = Laut.has_value();
        Lage.KannBalance = Zweit;
        Lage.KannBlättern = Kann(u"CanGoNext") || Kann(u"CanGoPrevious");
    }
    Titel = std::move(Neuer);
    PositionMerken(Werte.value(u"Position"_s));
    Melden();
}

void Mprisarbeiter::Erledigt() {
    const std::lock_guard Halten(Bild->Riegel);
    if (Bild->Lage.Offen > 0) --Bild->Lage.Offen;
}

// Sends a command; the look behind it does not rely on the player telling of its change.
void Mprisarbeiter::Befehl(QDBusMessage Nachricht) {
    Rufen(std::move(Nachricht), [this](const QDBusMessage&) {
        Erledigt();
        if (!Sammelzeit->isActive()) Sammelzeit->start(Sammeldauer);
    });
}

void Mprisarbeiter::Springen(std::int64_t Millisekunden) {
    std::int64_t Jetzt = 0;
    bool Kann = false;
    {
        const std::lock_guard Halten(Bild->Riegel);
        Kann = Bild->Lage.KannSpringen;
        Jetzt = std::max<std::int64_t>(0, Bild->PositionJetzt());
        if (Kann) {
            SprungVergessen();
            Bild->Position = Sprungziel = Millisekunden;
            Bild->Gemessen = std::chrono::steady_clock::now();
            Sprungfrist = Bild->Gemessen + Sprungdauer;
        }
    }
    if (!Kann) return Erledigt();
    // Some players give the track's name as a text; it is an object path all the same.
    // Where it names none, or is no path that the bus would carry, the title can only be moved in.
    const auto Kennung = Titel.Kennung.startsWith(u'/') ? QDBusObjectPath(Titel.Kennung) : QDBusObjectPath();
    if (!Kennung.path().isEmpty() && Kennung.path() != QLatin1String(KeinTitel)) {
        auto Setzen = Frage(Player, "SetPosition");
        Setzen << QVariant::fromValue(Kennung) << static_cast<qlonglong>(Millisekunden * 1000);
        return Befehl(Setzen);
    }
    auto Weiter = Frage(Player, "Seek");
    Weiter << static_cast<qlonglong>((Millisekunden - Jetzt) * 1000);
    Befehl(Weiter);
}

void Mprisarbeiter::BalanceSetzen(int Balance) {
    int Laut = 0;
    {
        const std::lock_guard Halten(Bild->Riegel);
        Laut = (Bild->Lage.Lautstärke.value_or(255) * 100 + 127) / 255;
    }
    const auto Seite = [Laut](int Gegen) { return Laut * (127 - std::max(0, Gegen)) / 127; };
    auto Setzen = QDBusMessage::createMethodCall(QLatin1String(Zweitdienst), QLatin1String(Zweitobjekt),
                                                 QLatin1String(Zweitdienst), u"SetVolume"_s);
    Setzen << Seite(Balance) << Seite(-Balance);
    Befehl(Setzen);
}

void Mprisarbeiter::Benutzerbefehl(int wParam, int lParam) {
    const auto Zweitbefehl = [](const QString& Name) {
        return QDBusMessage::createMethodCall(QLatin1String(Zweitdienst), QLatin1String(Zweitobjekt),
                                              QLatin1String(Zweitdienst), Name);
    };
    switch (lParam) {
        case SpielerListeLeeren:
            if (Zweit) return Befehl(Zweitbefehl(u"Clear"_s));
            break;
        case SpielerSpringen:
            return Springen(wParam);
        case SpielerLautstärke: {
            auto Setzen = Frage(Eigenschaften, "Set");
            Setzen << QString::fromLatin1(Player) << u"Volume"_s
                   << QVariant::fromValue(QDBusVariant(wParam / 255.0));
            return Befehl(Setzen);
        }
        case SpielerBalance:
            if (Zweit) return BalanceSetzen(wParam > 127 ? wParam - 255 : wParam);
            break;
        default:
            break;
    }
    Erledigt();
}

void Mprisarbeiter::Spielerbefehl(int Nummer) {
    // These move in their own way; what comes of them is no jump's doing.
    if (Nummer == SpielerVorheriger || Nummer == SpielerNächster || Nummer == SpielerStopp ||
        Nummer == SpielerListenanfang)
        SprungVergessen();
    const auto Zweitbefehl = [](const QString& Name, const QVariant& Wert) {
        auto Nachricht = QDBusMessage::createMethodCall(
            QLatin1String(Zweitdienst), QLatin1String(Zweitobjekt), QLatin1String(Zweitdienst), Name);
        Nachricht << Wert;
        return Nachricht;
    };
    switch (Nummer) {
        case SpielerSchließen:
            return Befehl(Frage(Wurzel, "Quit"));
        case SpielerEinstellungen:
            return Befehl(Zweit ? Zweitbefehl(u"ShowPrefsBox"_s, true) : Frage(Wurzel, "Raise"));
        case SpielerVorheriger:
            return Befehl(Frage(Player, "Previous"));
        case SpielerSpielen: {
            // Some players begin the title anew when they are told to play what plays already.
            std::unique_lock Halten(Bild->Riegel);
            const bool Spielt = Bild->Zustand == 1;
            Halten.unlock();
            return Spielt ? Erledigt() : Befehl(Frage(Player, "Play"));
        }
        case SpielerPause:
            return Befehl(Frage(Player, "Pause"));
        case SpielerStopp:
            return Befehl(Frage(Player, "Stop"));
        case SpielerNächster:
            return Befehl(Frage(Player, "Next"));
        case SpielerListenanfang:
            if (Zweit) return Befehl(Zweitbefehl(u"Jump"_s, 0U));
            return Erledigt();
        default:
            return Erledigt();
    }
}

void Mprisarbeiter::Ausführen(int Nachricht, int wParam, int lParam) {
    if (Dienst.isEmpty()) return Erledigt();
    Nachricht == NachrichtBenutzer ? Benutzerbefehl(wParam, lParam) : Spielerbefehl(wParam);
}

}  // namespace liedwerk
