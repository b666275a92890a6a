// The channel to the desktop's players, against a player of our own on a bus of our own: how it finds one,
// what it reads, what it sends, and that nothing ever waits for a player that does not answer.
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <atomic>
#include <gtest/gtest.h>
#include <mutex>

#include "plattform/qt/mprisspieler.h"
#include "plattform/qt/mpriswerte.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

// Answers as an MPRIS player does, from a thread of its own.
class Probespieler final : public QDBusVirtualObject {
  public:
    std::mutex Riegel;
    QVariantMap Werte;
    QVariantMap Wurzel{{u"CanQuit"_s, true}};
    std::vector<QString> Rufe;  // members that were called, with their first argument
    std::atomic<bool> Schweigt = false;
    std::atomic<int> NochNichtBereit = 0;  // questions that are answered by an error

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& Frage, const QDBusConnection& Bus) override {
        if (Schweigt) {
            Frage.setDelayedReply(true);
            return true;
        }
        if (NochNichtBereit > 0) {
            --NochNichtBereit;
            return Bus.send(Frage.createErrorReply(QDBusError::UnknownObject, u"noch nicht"_s));
        }
        const std::lock_guard Halten(Riegel);
        if (Frage.member() == "GetAll"_L1) {
            const bool Player = Frage.arguments().value(0).toString().endsWith(u".Player"_s);
            return Bus.send(Frage.createReply(QVariant(Player ? Werte : Wurzel)));
        }
        if (Frage.member() == "Get"_L1)
            return Bus.send(Frage.createReply(QVariant::fromValue(QDBusVariant(Werte.value(u"Position"_s)))));
        QString Ruf = Frage.member();
        for (const QVariant& Eines : Frage.arguments()) {
            const QVariant Wert = Eines.metaType() == QMetaType::fromType<QDBusVariant>()
                                      ? Eines.value<QDBusVariant>().variant()
                                      : Eines;
            Ruf += u' ' + (Wert.metaType() == QMetaType::fromType<QDBusObjectPath>()
                               ? Wert.value<QDBusObjectPath>().path()
                               : Wert.toString());
        }
        Rufe.push_back(Ruf);
        return Bus.send(Frage.createReply());
    }
};

QVariantMap Spielend(const QString& Titel, qlonglong Mikrosekunden) {
    return {{u"PlaybackStatus"_s, u"Playing"_s},
            {u"Volume"_s, 0.5},
            {u"Position"_s, Mikrosekunden},
            {u"CanSeek"_s, true},
            {u"Metadata"_s, QVariantMap{{u"xesam:title"_s, Titel},
                                        {u"xesam:artist"_s, QStringList{u"Anna"_s, u"Lea"_s}},
                                        {u"xesam:url"_s, u"file:///m/%C3%84%20%23.mp3"_s},
                                        {u"mpris:trackid"_s, u"/titel/1"_s},
                                        {u"mpris:length"_s, 200e6}}}};
}

class Mpris : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        static int Anzahl = 1;
        static char Name[] = "mpris";
        static char* Worte[] = {Name, nullptr};
        if (QCoreApplication::instance() == nullptr) new QCoreApplication(Anzahl, Worte);
        Bus = new QProcess;
        Bus->start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
        ASSERT_TRUE(Bus->waitForReadyRead(5000)) << "dbus-daemon fehlt";
        qputenv("DBUS_SESSION_BUS_ADDRESS", Bus->readLine().trimmed());
    }
    static void TearDownTestSuite() {
        Bus->kill();
        Bus->waitForFinished();
        delete Bus;
    }
    ~Mpris() override { Gehen(); }

    void Kommen(const QString& Name = u"org.mpris.MediaPlayer2.probe"_s, int Fehlantworten = 0) {
        Verbindung = std::make_unique<QDBusConnection>(
            QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"probe"_s));
        Spieler = std::make_unique<Probespieler>();
        Spieler->Werte = Spielend(u"Morgen"_s, 5'000'000);
        Spieler->NochNichtBereit = Fehlantworten;
        // The player must answer while the test sleeps.
        Spieler->moveToThread(&Faden);
        Faden.start();
        ASSERT_TRUE(Verbindung->registerVirtualObject(u"/org/mpris/MediaPlayer2"_s, Spieler.get()));
        ASSERT_TRUE(Verbindung->registerService(Name));
    }
    void Gehen() {
        if (!Verbindung) return;
        QDBusConnection::disconnectFromBus(u"probe"_s);
        Verbindung.reset();
        Faden.quit();
        Faden.wait();
        Spieler.reset();
    }
    void Ändern(const QVariantMap& Neue) {
        {
            const std::lock_guard Halten(Spieler->Riegel);
            Spieler->Werte = Neue;
        }
        auto Signal = QDBusMessage::createSignal(
            u"/org/mpris/MediaPlayer2"_s, u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s);
        Signal << u"org.mpris.MediaPlayer2.Player"_s << QVariantMap() << QStringList();
        Verbindung->send(Signal);
    }
    Spielerfenster Finden() {
        Spielerprofil Profil;
        Profil.Klasse = "probe";
        return Kanal.Finden(Profil);
    }
    // Every question to the channel is answered at once, whatever the player does.
    template <class Bedingung>
    bool Warten(Bedingung&& Erfüllt, int Höchstens = 5000) {
        QElapsedTimer Ganz;
        for (Ganz.start(); Ganz.elapsed() < Höchstens; QThread::msleep(5)) {
            QElapsedTimer Einzeln;
            Einzeln.start();
            const bool Fertig = Erfüllt();
            EXPECT_LT(Einzeln.elapsed(), 200);
            if (Fertig) return true;
        }
        return false;
    }
    int Zustand() {
        return static_cast<int>(Kanal.Senden(Finden(), NachrichtBenutzer, 0, SpielerZustandFragen));
    }
    bool Gerufen(const QString& Ruf) {
        const std::lock_guard Halten(Spieler->Riegel);
        return std::find(Spieler->Rufe.begin(), Spieler->Rufe.end(), Ruf) != Spieler->Rufe.end();
    }

    static inline QProcess* Bus = nullptr;
    QThread Faden;
    std::unique_ptr<Probespieler> Spieler;
    std::unique_ptr<QDBusConnection> Verbindung;
    Mprisspieler Kanal;
};

TEST_F(Mpris, KommenGehenLesenUndBefehle) {
    EXPECT_EQ(Finden(), 0u);
    EXPECT_TRUE(Warten([&] { return Kanal.Umgesehen(); }));
    EXPECT_EQ(Finden(), 0u);
    Kommen(u"org.mpris.MediaPlayer2.probe.instance7"_s);
    ASSERT_TRUE(Warten([&] { return Finden() != 0; }));
    Spielerlage Lage = Kanal.Lage(Finden());
    EXPECT_EQ(Lage.Titel, "Anna, Lea - Morgen");
    EXPECT_EQ(Lage.Dateien, (std::vector<std::string>{"/m/Ä #.mp3", "/m/%C3%84%20%23.mp3"}));
    EXPECT_EQ(Lage.Lautstärke, 128);
    EXPECT_TRUE(Lage.KannSpringen);
    EXPECT_FALSE(Lage.KannBalance);
    EXPECT_EQ(Zustand(), 1);
    EXPECT_EQ(Kanal.Senden(Finden(), NachrichtBenutzer, 1, SpielerZeitFragen), 200);
    const auto Position = [&] { return Kanal.Senden(Finden(), NachrichtBenutzer, 0, SpielerZeitFragen); };
    EXPECT_GE(Position(), 5000);
    EXPECT_LT(Position(), 8000);

    for (const auto& [Nachricht, w, l, Ruf] : {
             std::tuple{NachrichtBefehl, int{SpielerPause}, 0, u"Pause"_s},
             std::tuple{NachrichtBefehl, int{SpielerNächster}, 0, u"Next"_s},
             std::tuple{NachrichtBefehl, int{SpielerSchließen}, 0, u"Quit"_s},
             std::tuple{NachrichtBenutzer, 255, int{SpielerLautstärke},
                        u"Set org.mpris.MediaPlayer2.Player Volume 1"_s},
             std::tuple{NachrichtBenutzer, 90000, int{SpielerSpringen}, u"SetPosition /titel/1 90000000"_s},
         }) {
        Kanal.Senden(Finden(), Nachricht, w, l);
        EXPECT_TRUE(Warten([&, Gesucht = Ruf] { return Gerufen(Gesucht); })) << Ruf.toStdString();
    }
    // The player tells its old place for a moment; a jump that it never makes is not believed for long.
    QThread::msleep(300);
    EXPECT_GE(Position(), 90000);
    EXPECT_TRUE(Warten([&] { return Position() < 10000; }));
    Kanal.Senden(Finden(), NachrichtBefehl, SpielerSpielen, 0);
    EXPECT_TRUE(Warten([&] { return Kanal.Lage(Finden()).Offen == 0; }));
    EXPECT_FALSE(Gerufen(u"Play"_s)) << "a title that plays would begin anew";

    // A new title, and the same one from its beginning, are new plays.
    const auto Erster = Kanal.Lage(Finden()).Durchgang;
    Ändern(Spielend(u"Abend"_s, 100'000'000));
    EXPECT_TRUE(Warten([&] { return Kanal.Lage(Finden()).Titel == "Anna, Lea - Abend"; }));
    const auto Zweiter = Kanal.Lage(Finden()).Durchgang;
    EXPECT_GT(Zweiter, Erster);
    // A slow player that gets to the beginning long after it was sent there makes no new play of it.
    Kanal.Senden(Finden(), NachrichtBenutzer, 0, SpielerSpringen);
    EXPECT_TRUE(Warten([&] { return Gerufen(u"SetPosition /titel/1 0"_s); }));
    EXPECT_TRUE(Warten([&] { return Position() >= 100000; }));
    Ändern(Spielend(u"Abend"_s, 0));
    EXPECT_TRUE(Warten([&] { return Position() < 50000; }));
    EXPECT_EQ(Kanal.Lage(Finden()).Durchgang, Zweiter);
    // One that goes back at once after a jump does.
    Kanal.Senden(Finden(), NachrichtBenutzer, 60000, SpielerSpringen);
    Kanal.Senden(Finden(), NachrichtBefehl, SpielerVorheriger, 0);
    EXPECT_TRUE(Warten([&] { return Kanal.Lage(Finden()).Durchgang > Zweiter; }));
    // Without the name of a track the title can only be moved in.
    QVariantMap Namenlos = Spielend(u"Nacht"_s, 100'000'000);
    Namenlos[u"Metadata"_s] = QVariantMap{
        {u"xesam:title"_s, u"Nacht"_s}, {u"mpris:trackid"_s, u"/org/mpris/MediaPlayer2/TrackList/NoTrack"_s}};
    Ändern(Namenlos);
    EXPECT_TRUE(Warten([&] { return Kanal.Lage(Finden()).Titel == "Nacht"; }));
    Kanal.Senden(Finden(), NachrichtBenutzer, 10000, SpielerSpringen);
    EXPECT_TRUE(Warten([&] {
        const std::lock_guard Halten(Spieler->Riegel);
        return Spieler->Rufe.back().startsWith(u"Seek -"_s);
    }));
    Gehen();
    EXPECT_TRUE(Warten([&] { return Finden() == 0; }));
    EXPECT_FALSE(Kanal.Schweigt());
    Kommen();
    EXPECT_TRUE(Warten([&] { return Finden() != 0; })) << "a player that comes back is found again";
}

TEST_F(Mpris, ZweiterSpielerDerArtVerdrängtDenErstenNicht) {
    Kommen(u"org.mpris.MediaPlayer2.probe.instance7"_s);
    ASSERT_TRUE(Warten([&] { return Finden() != 0; }));
    const Spielerfenster Erster = Finden();
    {
        // Its name is the plain one, which is taken first where nobody is watched yet.
        auto Zweiter = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"probe2"_s);
        ASSERT_TRUE(Zweiter.registerService(u"org.mpris.MediaPlayer2.probe"_s));
        QThread::msleep(300);
        EXPECT_EQ(Finden(), Erster);
        ASSERT_TRUE(Zweiter.unregisterService(u"org.mpris.MediaPlayer2.probe"_s));
    }
    QDBusConnection::disconnectFromBus(u"probe2"_s);
    QThread::msleep(100);
    EXPECT_EQ(Finden(), Erster) << "nor does its end";
}

TEST_F(Mpris, SpielerDerSeinenNamenZuFrühNimmtWirdDochGanzGelesen) {
    EXPECT_EQ(Finden(), 0u);
    EXPECT_TRUE(Warten([&] { return Kanal.Umgesehen(); }));
    Kommen(u"org.mpris.MediaPlayer2.probe"_s, 2);
    ASSERT_TRUE(Warten([&] { return Finden() != 0 && !Kanal.Lage(Finden()).KannEinstellungen; }));
    EXPECT_EQ(Kanal.Lage(Finden()).Titel, "Anna, Lea - Morgen");
    EXPECT_TRUE(Kanal.Lage(Finden()).KannSchließen);
}

TEST_F(Mpris, SchweigenderSpielerHältNichtsAufUndKommtWieder) {
    Kommen();
    ASSERT_TRUE(Warten([&] { return Finden() != 0; }));
    Spieler->Schweigt = true;
    for (int i = 0; i < 100; ++i)
        Kanal.Senden(Finden(), NachrichtBenutzer, i, SpielerLautstärke);
    EXPECT_LE(Kanal.Lage(Finden()).Offen, 32) << "commands do not pile up";
    EXPECT_TRUE(Warten([&] { return Finden() == 0; }, 12000));
    EXPECT_TRUE(Kanal.Schweigt());
    Spieler->Schweigt = false;
    EXPECT_TRUE(Warten([&] { return Finden() != 0; }, 15000));
}

// The command line says what a player, or the command, does not take, and sends nothing then.
TEST_F(Mpris, BefehlszeileNenntDieGrenzen) {
    Kommen();
    const QTemporaryDir Ordner;
    const QVariantMap Ganz = Spielend(u"Morgen"_s, 5'000'000);
    const auto Ohne = [&](const QString& Name) {
        QVariantMap Werte = Ganz;
        Werte.remove(Name);
        return Werte;
    };
    for (const auto& [Worte, Werte, Ausgang, Meldung] : {
             std::tuple{u"spieler lautstaerke 256"_s, Ganz, 1,
                        "Die Lautstärke 256 gibt es nicht: Möglich ist 0 bis 255."},
             {u"spieler lautstaerke 255"_s, Ganz, 0, ""},
             {u"spieler lautstaerke 1"_s, Ohne(u"Volume"_s), 1,
              "Der Audioplayer kann seine Lautstärke nicht ändern."},
             {u"spieler position 201"_s, Ganz, 1,
              "Die Position 201 gibt es nicht: Möglich ist 0 bis 200 Sekunden."},
             {u"spieler position 200"_s, Ganz, 0, ""},
             {u"spieler position 1"_s, Ohne(u"CanSeek"_s), 1,
              "Der Audioplayer kann in diesem Titel nicht springen."},
             {u"spieler position 1"_s, Ohne(u"PlaybackStatus"_s), 1,
              "Der Audioplayer spielt keinen Titel, dessen"},
             {u"spieler vor"_s, Ganz, 1, "Der Audioplayer kann hier nicht blättern."},
             {u"spieler lautstaerke"_s, Ganz, 2, "Der Befehl braucht eine Zahl."},
             {u"spieler lautstaerke laut"_s, Ganz, 2, "'laut' ist keine Zahl."},
             {u"spieler pause 3"_s, Ganz, 2, "Der Befehl hat keinen Wert."},
             {u"spieler tanzen"_s, Ganz, 2, "'tanzen' ist kein Befehl für den Audio-Player."},
             {u"abspielen eins"_s, Ganz, 2, "Eine NUMMER ist eine ganze Zahl."},
         }) {
        {
            const std::lock_guard Halten(Spieler->Riegel);
            Spieler->Werte = Werte;
            Spieler->Rufe.clear();
        }
        QProcess Lauf;
        Lauf.start(LIEDWERK_CLI,
                   QStringList{u"--programmordner"_s, Ordner.path(), u"--einstellungen"_s,
                               Ordner.filePath(u"e"_s), u"--setze"_s, u"WinampPfad=/x/probe"_s} +
                       Worte.split(u' '));
        ASSERT_TRUE(Lauf.waitForFinished(20000));
        const std::string Fehler = Lauf.readAllStandardError().toStdString();
        EXPECT_EQ(Lauf.exitCode(), Ausgang) << Worte.toStdString() << "\n" << Fehler;
        EXPECT_NE(Fehler.find(Meldung), std::string::npos) << Worte.toStdString() << "\n" << Fehler;
        const std::lock_guard Halten(Spieler->Riegel);
        EXPECT_EQ(Spieler->Rufe.size(), Ausgang == 0 ? 1U : 0U) << Worte.toStdString();
    }
}

TEST_F(Mpris, UnsinnWirdAlsNichtsGelesen) {
    Kommen();
    ASSERT_TRUE(Warten([&] { return Finden() != 0; }));
    Ändern({{u"PlaybackStatus"_s, 7},
            {u"Volume"_s, qQNaN()},
            {u"Position"_s, u"bald"_s},
            {u"CanSeek"_s, u"vielleicht"_s},
            {u"Metadata"_s, QStringList{u"x"_s}}});
    EXPECT_TRUE(Warten([&] { return Zustand() == 0; }));
    EXPECT_EQ(Kanal.Lage(Finden()).Titel, "");
    EXPECT_EQ(Kanal.Senden(Finden(), NachrichtBenutzer, 0, SpielerZeitFragen), -1);
    EXPECT_EQ(Kanal.Lage(Finden()).Lautstärke, std::nullopt);
    Ändern({{u"PlaybackStatus"_s, u"Playing"_s},
            {u"Position"_s, -5e300},
            {u"Metadata"_s, QVariantMap{{u"xesam:title"_s, u"x\x1b\r"_s + QString(1 << 20, u'x')},
                                        {u"xesam:url"_s, u"http://x/y"_s},
                                        {u"mpris:length"_s, 1e300}}}});
    EXPECT_TRUE(Warten([&] { return Zustand() == 1; }));
    EXPECT_EQ(Kanal.Lage(Finden()).Titel, "x  " + std::string(997, 'x'));
    EXPECT_TRUE(Kanal.Lage(Finden()).Dateien.empty());
}

TEST(Mpriswerte, AdressenWerdenZuPfaden) {
    using Pfade = std::vector<std::string>;
    for (const auto& [Adresse, Erwartet] : std::vector<std::pair<QString, Pfade>>{
             {u"file:///m/a%20b.mp3"_s, {"/m/a b.mp3", "/m/a%20b.mp3"}},
             {u"file:///m/100% #1?.mp3"_s, {"/m/100% #1?.mp3"}},
             {u"file://"_s + QSysInfo::machineHostName() + u"/m/caf%E9.mp3"_s,
              {"/m/caf\xe9.mp3", "/m/caf%E9.mp3"}},
             {u"file://anderer.rechner/m/a.mp3"_s, {}},
             {u"/"_s + QString(20000, u'x'), {}},
             {u"file:///m/ä %41.mp3"_s, {"/m/ä %41.mp3", "/m/ä A.mp3"}},
             {u"/m/a%20b.mp3"_s, {"/m/a%20b.mp3"}},
             {u"file:///m/%00"_s, {"/m/%00"}},
             {u"file:"_s, {}},
             {u"cdda://1"_s, {}},
         })
        EXPECT_EQ(PfadeZurAdresse(Adresse), Erwartet) << Adresse.toStdString();
}

}  // namespace
}  // namespace liedwerk
