// The delay of a shutdown, against a session service of our own on a bus of our own: asked for at the start,
// told when the shutdown begins, withdrawn with the end; and nothing waits for a bus that is silent.
#include "plattform/abschaltaufschub.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QProcess>
#include <QThread>
#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

// Gives the writing end of a pipe away and sees on the other when the last copy of it is closed.
class Probedienst final : public QDBusVirtualObject {
  public:
    int Lesende = -1;
    QVariantList Gefordert;

    ~Probedienst() override { ::close(Lesende); }
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& Frage, const QDBusConnection& Bus) override {
        if (Frage.member() != "Inhibit"_L1) return false;
        Gefordert = Frage.arguments();
        int Enden[2];
        if (::pipe(Enden) != 0) return false;
        Lesende = Enden[0];
        const QDBusUnixFileDescriptor Griff(Enden[1]);
        ::close(Enden[1]);
        return Bus.send(Frage.createReply(QVariant::fromValue(Griff)));
    }
    bool Gehalten() const {
        pollfd Blick{Lesende, POLLIN, 0};
        return Lesende >= 0 && ::poll(&Blick, 1, 0) == 0;
    }
};

template <class Bedingung>
bool Warten(Bedingung&& Erfüllt) {
    QElapsedTimer Uhr;
    for (Uhr.start(); Uhr.elapsed() < 5000; QThread::msleep(5)) {
        QCoreApplication::processEvents();
        if (Erfüllt()) return true;
    }
    return false;
}

TEST(Abschaltaufschub, HältDieAbschaltungBisZumEnde) {
    int Anzahl = 1;
    char Name[] = "aufschub";
    char* Worte[] = {Name, nullptr};
    const QCoreApplication Schleife(Anzahl, Worte);
    int Abschaltungen = 0;
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nirgends/sockel");
    EXPECT_FALSE(SystemaufschubFordern([&] { ++Abschaltungen; })->Zugesagt()) << "no bus is no fault";
    QThread::msleep(50);

    QProcess Bus;
    Bus.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
    ASSERT_TRUE(Bus.waitForReadyRead(5000)) << "dbus-daemon fehlt";
    const QByteArray Adresse = Bus.readLine().trimmed();
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", Adresse);
    auto Verbindung = QDBusConnection::connectToBus(QString::fromLatin1(Adresse), u"probe"_s);
    Probedienst Dienst;
    ASSERT_TRUE(Verbindung.registerVirtualObject(u"/org/freedesktop/login1"_s, &Dienst));
    ASSERT_TRUE(Verbindung.registerService(u"org.freedesktop.login1"_s));

    auto Aufschub = SystemaufschubFordern([&] { ++Abschaltungen; });
    ASSERT_TRUE(Warten([&] { return Aufschub->Zugesagt(); }));
    EXPECT_EQ(Dienst.Gefordert.value(0), u"shutdown"_s);
    EXPECT_EQ(Dienst.Gefordert.value(3), u"delay"_s)
        << "a block would keep the machine from being switched off";
    EXPECT_TRUE(Dienst.Gehalten());

    const auto Ansagen = [&](bool Beginnt) {
        auto Signal = QDBusMessage::createSignal(
            u"/org/freedesktop/login1"_s, u"org.freedesktop.login1.Manager"_s, u"PrepareForShutdown"_s);
        Signal << Beginnt;
        Verbindung.send(Signal);
    };
    Ansagen(false);
    Ansagen(true);
    EXPECT_TRUE(Warten([&] { return Abschaltungen > 0; }));
    EXPECT_EQ(Abschaltungen, 1);
    EXPECT_TRUE(Dienst.Gehalten()) << "the program is still saving";
    Aufschub.reset();
    EXPECT_TRUE(Warten([&] { return !Dienst.Gehalten(); }));

    QDBusConnection::disconnectFromBus(u"probe"_s);
    Bus.kill();
    Bus.waitForFinished();
}

}  // namespace
}  // namespace liedwerk
