#include "plattform/qt/http.h"

#include <QEventLoop>
#include <QHostAddress>
#include <QHostInfo>
#include <QNetworkProxyFactory>
#include <QTcpSocket>
#include <QThread>
#include <QTimer>
#include <QUrl>
#include <algorithm>
#include <atomic>
#include <memory>

#include "plattform/httpleser.h"
#include "plattform/qt/anwendungsobjekt.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

constexpr std::string_view Agent = "Liedwerk";
constexpr int Takt = 25;                        // milliseconds between two looks at the wish to stop
constexpr qint64 Lesegröße = qint64{64} << 10;  // bytes that the socket may hold
constexpr int Webport = 80;
// How long a thread may take to end behind the time when it should have.
constexpr std::chrono::milliseconds Nachfrist{500};

// Where a request goes: the server itself, or a proxy that passes it on.
struct Ziel {
    QString Wirt;
    quint16 Port = Webport;
    QNetworkProxy Umweg = QNetworkProxy::NoProxy;  // of the socket
    QByteArray Vermittler;                         // further header lines for a proxy of HTTP
    bool Ganz = false;                             // that proxy wants the whole address
};

Ziel ZielVon(const QUrl& Adresse) {
    Ziel Weg;
    Weg.Wirt = Adresse.host();
    Weg.Port = static_cast<quint16>(Adresse.port(Webport));
    const QNetworkProxy Erster =
        QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(Adresse)).value(0);
    if (Erster.type() == QNetworkProxy::Socks5Proxy) {
        Weg.Umweg = Erster;
    } else if (Erster.type() == QNetworkProxy::HttpProxy ||
               Erster.type() == QNetworkProxy::HttpCachingProxy) {
        Weg.Wirt = Erster.hostName();
        Weg.Port = Erster.port();
        Weg.Ganz = true;
        const QByteArray Ausweis = (Erster.user() + u':' + Erster.password()).toUtf8().toBase64();
        if (!Erster.user().isEmpty()) Weg.Vermittler = "Proxy-Authorization: Basic " + Ausweis + "\r\n";
    }
    return Weg;
}

// A field of the head; line ends in it would begin another one.
QByteArray Feld(std::string_view Name, std::string_view Wert) {
    std::string Zeile = std::string(Name) + ": " + std::string(Wert);
    std::ranges::replace_if(
        Zeile, [](char Byte) { return static_cast<unsigned char>(Byte) < 32; }, ' ');
    return QByteArray::fromStdString(Zeile) + "\r\n";
}

QByteArray Sendung(const QUrl& Adresse, const Ziel& Weg, const Httpanfrage& Anfrage) {
    const QUrl Wurzel = Adresse.path().isEmpty() ? Adresse.resolved(QUrl(u"/"_s)) : Adresse;
    const QByteArray Stelle =
        (Weg.Ganz ? Wurzel : Wurzel.adjusted(QUrl::RemoveScheme | QUrl::RemoveAuthority))
            .toEncoded(QUrl::RemoveFragment);
    QByteArray Alles = (Anfrage.Inhalt ? "POST " : "GET ") + Stelle + " HTTP/1.1\r\n";
    Alles += Feld("Host", Adresse.authority(QUrl::FullyEncoded).toStdString());
    Alles += Feld("User-Agent", Agent);
    Alles += Feld("Accept", "*/*");
    // A body that is not compressed cannot grow behind the bound.
    Alles += Feld("Accept-Encoding", "identity");
    Alles += Feld("Cache-Control", "no-cache");
    Alles += Feld("Pragma", "no-cache");
    Alles += Feld("Connection", "close");
    Alles += Weg.Vermittler;
    for (const auto& [Name, Wert] : Anfrage.Kopfzeilen)
        Alles += Feld(Name, Wert);
    if (Anfrage.Inhalt) Alles += Feld("Content-Length", std::to_string(Anfrage.Inhalt->size()));
    return Alles + "\r\n" + QByteArray::fromStdString(Anfrage.Inhalt.value_or(""));
}

Httpantwort Gescheitert(Httpfehler Fehler, const QString& Einzelheit = {}) {
    return {Fehler, Einzelheit.toStdString(), 0, {}};
}

// What a request shares with its thread.
struct Auftrag {
    Auftrag(const Httpanfrage& Was, const Httpgrenzen& Erlaubt) : Anfrage(Was), Grenzen(Erlaubt) {}
    const Httpanfrage Anfrage;
    const Httpgrenzen Grenzen;
    std::atomic<bool> Abbruch = false;
    Httpantwort Antwort;  // once the thread has ended
};

// One exchange, within a thread that may wait.
Httpantwort Austauschen(const Auftrag& Ganzes) {
    const Httpanfrage& Anfrage = Ganzes.Anfrage;
    const QUrl Adresse = QUrl::fromEncoded(QByteArray::fromStdString(Anfrage.Url), QUrl::StrictMode);
    if (!Adresse.isValid() || Adresse.scheme() != "http"_L1 || Adresse.host().isEmpty() ||
        !Adresse.userInfo().isEmpty())
        return Gescheitert(Httpfehler::Adresse, Adresse.errorString());
    const Ziel Weg = ZielVon(Adresse);
    // The name is looked up here and not by the socket: Qt does that in threads whose end the whole program
    // waits for when it quits. A proxy looks for itself.
    QList<QHostAddress> Adressen;
    if (Weg.Umweg.type() == QNetworkProxy::NoProxy) {
        const QHostInfo Auskunft = QHostInfo::fromName(Weg.Wirt);
        Adressen = Auskunft.addresses();
        if (Adressen.isEmpty()) return Gescheitert(Httpfehler::Wirt, Auskunft.errorString());
    }
    Httpleser Leser(Ganzes.Grenzen);
    Httpfehler Unterbrochen = Httpfehler::Keiner;
    QEventLoop Schleife;
    QTcpSocket Verbindung;
    Verbindung.setProxy(Weg.Umweg);
    Verbindung.setReadBufferSize(Lesegröße);
    const auto Lesen = [&] {
        char Puffer[16384];
        for (qint64 Anzahl = 0; (Anzahl = Verbindung.read(Puffer, sizeof Puffer)) > 0;) {
            if (Leser.Aufnehmen({Puffer, static_cast<std::size_t>(Anzahl)})) return Schleife.quit();
        }
        // Nothing is taken that the reply may not have.
        Verbindung.setReadBufferSize(std::min(Lesegröße, static_cast<qint64>(Leser.Platz())));
    };
    qsizetype Versuchte = 0;
    bool Verbunden = false;
    const auto Verbinden = [&] {
        if (Adressen.isEmpty()) return Verbindung.connectToHost(Weg.Wirt, Weg.Port);
        Verbindung.connectToHost(Adressen[Versuchte++], Weg.Port);
    };
    QObject::connect(&Verbindung, &QTcpSocket::connected, [&] {
        Verbunden = true;
        Verbindung.setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption, Lesegröße);
        Verbindung.write(Sendung(Adresse, Weg, Anfrage));
    });
    QObject::connect(&Verbindung, &QTcpSocket::readyRead, Lesen);
    QObject::connect(&Verbindung, &QTcpSocket::errorOccurred, [&] {
        if (!Verbunden && Versuchte < Adressen.size()) {
            QTimer::singleShot(0, &Verbindung, Verbinden);
            return;
        }
        Lesen();
        Schleife.quit();
    });
    const auto Unterbrechen = [&](Httpfehler Grund) {
        Unterbrochen = Grund;
        Schleife.quit();
    };
    QTimer Uhr;
    QObject::connect(&Uhr, &QTimer::timeout, [&] {
        if (Ganzes.Abbruch) Unterbrechen(Httpfehler::Abgebrochen);
    });
    Uhr.start(Takt);
    QTimer Frist;
    QObject::connect(&Frist, &QTimer::timeout, [&] { Unterbrechen(Httpfehler::Zeit); });
    Frist.start(Ganzes.Grenzen.Gesamtdauer);
    // Within the loop: an address that cannot be reached may fail at once, and nobody would hear of it.
    QTimer::singleShot(0, &Verbindung, Verbinden);
    Schleife.exec();
    Verbindung.disconnect();
    if (Unterbrochen != Httpfehler::Keiner) return Gescheitert(Unterbrochen);
    const QAbstractSocket::SocketError Fehler = Verbindung.error();
    if (Fehler == QAbstractSocket::HostNotFoundError || Fehler == QAbstractSocket::ProxyNotFoundError)
        return Gescheitert(Httpfehler::Wirt, Verbindung.errorString());
    if (Fehler == QAbstractSocket::RemoteHostClosedError) Leser.Enden();
    // A reply that was complete ahead of the failure counts.
    if (!Leser.Aufnehmen({})) return Gescheitert(Httpfehler::Verbindung, Verbindung.errorString());
    return std::move(Leser.Antwort);
}

}  // namespace

Httpantwort Qthttp::Anfragen(const Httpanfrage& Anfrage, const std::function<bool()>& Weiter) {
    AnwendungSicherstellen();
    const auto Gemeinsam = std::make_shared<Auftrag>(Anfrage, Grenzen);
    std::unique_ptr<QThread> Faden(
        QThread::create([Gemeinsam] { Gemeinsam->Antwort = Austauschen(*Gemeinsam); }));
    QDeadlineTimer Spätestens(Grenzen.Gesamtdauer + Nachfrist);
    Faden->start();
    while (!Faden->wait(QDeadlineTimer(Takt))) {
        if (!Gemeinsam->Abbruch && !Weiter()) {
            Gemeinsam->Abbruch = true;
            Spätestens = QDeadlineTimer(Nachfrist);
        }
        if (Spätestens.hasExpired()) {
            // A thread that hangs in the system (looking for a proxy) is left behind with all it holds.
            static_cast<void>(Faden.release());
            return Gescheitert(Gemeinsam->Abbruch ? Httpfehler::Abgebrochen : Httpfehler::Zeit);
        }
    }
    return std::move(Gemeinsam->Antwort);
}

}  // namespace liedwerk
