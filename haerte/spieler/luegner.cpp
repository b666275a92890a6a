// The player that lies.
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QTimer>

#include "haerte/spieler/luegen.h"

using namespace Qt::StringLiterals;

namespace liedwerk::haerte {
namespace {

const QString Name = u"org.mpris.MediaPlayer2.probe"_s;
const QString Objekt = u"/org/mpris/MediaPlayer2"_s;
const QString Eigenschaften = u"org.freedesktop.DBus.Properties"_s;
const QString Player = u"org.mpris.MediaPlayer2.Player"_s;

constexpr int Späte = 900;  // milliseconds; the program waits for a second
constexpr int ZuSpäte = 3000;

class Lügner final : public QDBusVirtualObject {
  public:
    Lügner(Lüge Welche, QDBusConnection Wohin) : Eine(std::move(Welche)), Bus(std::move(Wohin)) {
        connect(&Takt, &QTimer::timeout, this, [this] { Weitertreiben(); });
    }
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& Frage, const QDBusConnection&) override {
        const auto Später = [&](int Dauer, const QDBusMessage& Antwort) {
            Frage.setDelayedReply(true);
            QTimer::singleShot(Dauer, this, [this, Antwort] { Bus.send(Antwort); });
            return true;
        };
        switch (Eine.Antwort) {
            case Antwortart::Keine:
                Frage.setDelayedReply(true);
                return true;
            case Antwortart::Fehler:
                return Bus.send(Frage.createErrorReply(QDBusError::Failed, u"nein"_s));
            case Antwortart::SpäterFehler:
                return Später(Späte, Frage.createErrorReply(QDBusError::Failed, u"nein"_s));
            case Antwortart::ZuSpät:
                return Später(ZuSpäte, Antwort(Frage));
            case Antwortart::Leer:
                return Bus.send(Frage.createReply());
            case Antwortart::Text:
                return Bus.send(Frage.createReply(QVariant(u"org.mpris.MediaPlayer2.probe"_s)));
            case Antwortart::Zahl:
                return Bus.send(Frage.createReply(QVariant(-7)));
            case Antwortart::Liste:
                return Bus.send(Frage.createReply(QVariant(QStringList{u"x"_s})));
            case Antwortart::Werte:
                break;
        }
        return Bus.send(Antwort(Frage));
    }
    void Beginnen() {
        switch (Eine.Tun) {
            case Treiben::Nichts:
                return;
            case Treiben::Wechsel:
            case Treiben::Zurück:
                return Takt.start(200);
            case Treiben::Flackern:
                return Takt.start(100);
            case Treiben::Namenssturm:
            case Treiben::Besitzer:
                return Takt.start(50);
            case Treiben::Viele:
                for (int i = 0; i < 300; ++i)
                    Bus.registerService(Name + u".instance"_s + QString::number(i));
                return;
            default:
                Takt.setTimerType(Qt::PreciseTimer);
                return Takt.start(10);
        }
    }

  private:
    QDBusMessage Antwort(const QDBusMessage& Frage) {
        if (Frage.member() == "GetAll"_L1) return Frage.createReply(QVariant(Eine.Werte));
        if (Frage.member() == "Get"_L1)
            return Frage.createReply(QVariant::fromValue(QDBusVariant(Eine.Werte.value(u"Position"_s))));
        return Eine.Verweigert ? Frage.createErrorReply(QDBusError::NotSupported, u"doch nicht"_s)
                               : Frage.createReply();
    }
    void Senden(const QString& Schnittstelle, const QVariantMap& Was) {
        auto Signal = QDBusMessage::createSignal(Objekt, Eigenschaften, u"PropertiesChanged"_s);
        Signal << Schnittstelle << Was << QStringList();
        Bus.send(Signal);
    }
    void Stürmen() {
        for (int i = 0; i < 100; ++i) {
            if (Eine.Tun == Treiben::Sprungsturm) {
                auto Signal = QDBusMessage::createSignal(Objekt, Player, u"Seeked"_s);
                Bus.send(Signal << qlonglong{-7});
            } else if (Eine.Tun == Treiben::Unsinnssturm) {
                Bus.send(QDBusMessage::createSignal(Objekt, Eigenschaften, u"PropertiesChanged"_s));
            } else if (Eine.Tun == Treiben::FremderSturm) {
                Senden(u"org.example.Fremd"_s, {{u"x"_s, i}});
            } else if (Eine.Tun == Treiben::GroßerSturm) {
                Senden(Player, {{u"Metadata"_s, QVariantMap{{u"xesam:title"_s, QString(2048, u'x')}}}});
            } else {
                Senden(Player, {{u"Volume"_s, i / 100.0}});
            }
        }
    }
    void Weitertreiben() {
        ++Schritt;
        const bool Gerade = Schritt % 2 == 0;
        switch (Eine.Tun) {
            case Treiben::Wechsel:
                Eine.Werte[u"Metadata"_s] = QVariantMap{{u"xesam:title"_s, Gerade ? u"Morgen"_s : u"Abend"_s},
                                                        {u"xesam:artist"_s, u"Anna"_s}};
                return Senden(Player, {});
            case Treiben::Flackern:
                Eine.Werte[u"PlaybackStatus"_s] = Gerade ? u"Playing"_s : u"Stopped"_s;
                return Senden(Player, {});
            case Treiben::Zurück:
                Eine.Werte[u"Position"_s] = Gerade ? qlonglong{0} : qlonglong{100'000'000};
                return Senden(Player, {});
            case Treiben::Namenssturm:
                static_cast<void>(Gerade ? Bus.registerService(Name) : Bus.unregisterService(Name));
                return;
            case Treiben::Besitzer: {
                const auto Weise = QDBusConnectionInterface::ReplaceExistingService;
                const auto Erlaubt = QDBusConnectionInterface::AllowReplacement;
                (Gerade ? Bus : Zweiter).interface()->registerService(Name, Weise, Erlaubt);
                return;
            }
            default:
                return Stürmen();
        }
    }

    Lüge Eine;
    QDBusConnection Bus;
    QDBusConnection Zweiter = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"zweiter"_s);
    QTimer Takt;
    int Schritt = 0;
};

}  // namespace

int Lügen(int Nummer) {
    QDBusConnection Bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"luegner"_s);
    Lügner Einer(AlleLügen().at(static_cast<std::size_t>(Nummer)), Bus);
    if (!Bus.registerVirtualObject(Objekt, &Einer)) return 1;
    Bus.interface()->registerService(Name, QDBusConnectionInterface::ReplaceExistingService,
                                     QDBusConnectionInterface::AllowReplacement);
    Einer.Beginnen();
    return QCoreApplication::exec();
}

}  // namespace liedwerk::haerte
