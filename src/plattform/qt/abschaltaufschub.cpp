#include "plattform/abschaltaufschub.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusUnixFileDescriptor>
#include <system_error>
#include <thread>

#include "plattform/qt/busempfang.h"
#include "plattform/qt/systembus.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

const auto Verbindungsname = QLatin1String("liedwerk-sitzung");
const auto Dienst = QLatin1String("org.freedesktop.login1");
const auto Objekt = QLatin1String("/org/freedesktop/login1");
const auto Schnittstelle = QLatin1String("org.freedesktop.login1.Manager");

class Sitzungsaufschub final : public Abschaltaufschub {
  public:
    explicit Sitzungsaufschub(std::function<void()> Handler) : BeimAbschalten(std::move(Handler)) {
        Empfang.Empfangen = [this](const QDBusMessage& Botschaft) {
            // False tells that the system is back after a shutdown that was called off.
            if (Botschaft.arguments().value(0).toBool()) BeimAbschalten();
        };
        // Connecting may take as long as the bus likes, so it happens in a thread that can be left behind.
        try {
            std::thread([Marke = std::weak_ptr<Sitzungsaufschub*>(Lebt)] { Verbinden(Marke); }).detach();
        } catch (const std::system_error&) {
            // The system gives no thread: the shutdown will not wait, as without the service.
        }
    }
    ~Sitzungsaufschub() override {
        Lebt.reset();
        QDBusConnection::disconnectFromBus(Verbindungsname);
    }
    Sitzungsaufschub(const Sitzungsaufschub&) = delete;
    Sitzungsaufschub& operator=(const Sitzungsaufschub&) = delete;
    bool Zugesagt() const override { return Griff.isValid(); }

  private:
    static void Verbinden(const std::weak_ptr<Sitzungsaufschub*>& Marke) {
        if (!SystembusAntwortet()) return;
        const auto Bus = QDBusConnection::connectToBus(QDBusConnection::SystemBus, Verbindungsname);
        QCoreApplication* const Schleife = QCoreApplication::instance();
        if (!Bus.isConnected() || Schleife == nullptr) return;
        QMetaObject::invokeMethod(Schleife, [Marke] {
            if (const auto Selbst = Marke.lock()) (*Selbst)->Fordern();
        });
    }
    void Fordern() {
        QDBusConnection Bus(Verbindungsname);
        Bus.connect(Dienst, Objekt, Schnittstelle, u"PrepareForShutdown"_s, &Empfang,
                    SLOT(nachricht(QDBusMessage)));
        auto Frage = QDBusMessage::createMethodCall(Dienst, Objekt, Schnittstelle, u"Inhibit"_s);
        Frage.setAutoStartService(false);
        Frage << u"shutdown"_s << u"Liedwerk"_s << u"Der Index wird gespeichert."_s << u"delay"_s;
        auto* const Warten = new QDBusPendingCallWatcher(Bus.asyncCall(Frage), &Empfang);
        QObject::connect(Warten, &QDBusPendingCallWatcher::finished, &Empfang,
                         [this](QDBusPendingCallWatcher* Fertiger) {
                             // The delay lasts as long as this descriptor is open somewhere.
                             Griff = Fertiger->reply().arguments().value(0).value<QDBusUnixFileDescriptor>();
                             Fertiger->deleteLater();
                         });
    }

    std::function<void()> BeimAbschalten;
    Busempfang Empfang;
    QDBusUnixFileDescriptor Griff;
    std::shared_ptr<Sitzungsaufschub*> Lebt = std::make_shared<Sitzungsaufschub*>(this);
};

}  // namespace

std::unique_ptr<Abschaltaufschub> SystemaufschubFordern(std::function<void()> BeimAbschalten) {
    return std::make_unique<Sitzungsaufschub>(std::move(BeimAbschalten));
}

}  // namespace liedwerk
