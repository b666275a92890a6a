#include "plattform/qt/systembus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QVariantMap>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <future>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>

#include "plattform/linux/griff.h"
#include "plattform/qt/mpriswerte.h"

namespace liedwerk {
namespace {

constexpr std::chrono::seconds Geduld(1);
constexpr std::string_view Standardsockel = "/run/dbus/system_bus_socket";
constexpr auto Verbindungsname = "liedwerk-laufwerke";

// The socket of the system bus; empty when it is reached in another way, which no desktop does.
std::string Bussockel() {
    constexpr std::string_view Art = "unix:path=";
    const char* Gesetzt = std::getenv("DBUS_SYSTEM_BUS_ADDRESS");
    if (Gesetzt == nullptr) return std::string(Standardsockel);
    const std::string_view Adresse(Gesetzt);
    if (!Adresse.starts_with(Art)) return {};
    return std::string(Adresse.substr(Art.size(), Adresse.find_first_of(",;") - Art.size()));
}

// The name of a device's object: letters and digits stay, every other byte becomes "_" and its number.
QString Objektpfad(std::string_view Gerätename) {
    constexpr std::string_view Ziffern = "0123456789abcdef";
    std::string Pfad = "/org/freedesktop/UDisks2/block_devices/";
    for (const char Byte : Gerätename) {
        const auto Code = static_cast<unsigned char>(Byte);
        const bool Bleibt =
            (Byte >= '0' && Byte <= '9') || (Byte >= 'a' && Byte <= 'z') || (Byte >= 'A' && Byte <= 'Z');
        if (Bleibt) {
            Pfad += Byte;
        } else {
            Pfad += '_';
            Pfad += Ziffern[Code >> 4U];
            Pfad += Ziffern[Code & 0x0FU];
        }
    }
    return QString::fromStdString(Pfad);
}

std::optional<Blockgerät> Fragen(const std::string& Gerätename) {
    const auto Bus = QDBusConnection::connectToBus(QDBusConnection::SystemBus, Verbindungsname);
    if (!Bus.isConnected()) return std::nullopt;
    auto Frage = QDBusMessage::createMethodCall("org.freedesktop.UDisks2", Objektpfad(Gerätename),
                                                "org.freedesktop.DBus.Properties", "GetAll");
    Frage << QStringLiteral("org.freedesktop.UDisks2.Block");
    const auto Dauer = std::chrono::duration_cast<std::chrono::milliseconds>(Geduld).count();
    const auto Antwort = Bus.call(Frage, QDBus::Block, static_cast<int>(Dauer));
    if (Antwort.type() != QDBusMessage::ReplyMessage || Antwort.arguments().isEmpty()) return std::nullopt;
    const QVariantMap Werte = Busverzeichnis(Antwort.arguments().constFirst());
    return Blockgerät{Werte.value("IdLabel").toString().toStdString(),
                      Werte.value("HintSystem", true).toBool()};
}

}  // namespace

// True when the bus answers the beginning of the handshake (authentication protocol of D-Bus)
// within the time. Qt's own handshake knows no time-out: on a bus that hangs it would hold up even the end of
// the program.
bool SystembusAntwortet() {
    const std::string Pfad = Bussockel();
    sockaddr_un Adresse{};
    if (Pfad.empty() || Pfad.size() >= sizeof(Adresse.sun_path)) return false;
    Adresse.sun_family = AF_UNIX;
    Pfad.copy(Adresse.sun_path, Pfad.size());
    const Griffhalter Sockel(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!Sockel ||
        ::connect(Sockel.Wert(), reinterpret_cast<const sockaddr*>(&Adresse), sizeof(Adresse)) != 0)
        return false;
    constexpr std::string_view Gruß("\0AUTH\r\n", 7);
    if (::send(Sockel.Wert(), Gruß.data(), Gruß.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(Gruß.size()))
        return false;
    pollfd Frage{Sockel.Wert(), POLLIN, 0};
    const auto Dauer = std::chrono::milliseconds(Geduld).count();
    char Erstes = 0;
    // The answer lists the ways to log on: "REJECTED ...".
    return ::poll(&Frage, 1, static_cast<int>(Dauer)) > 0 && ::recv(Sockel.Wert(), &Erstes, 1, 0) == 1;
}

std::optional<Blockgerät> BlockgerätFragen(std::string_view Quelle) {
    static std::atomic<bool> Verstummt = false;
    if (Verstummt || !Quelle.starts_with("/dev/")) return std::nullopt;
    if (!SystembusAntwortet()) {
        Verstummt = true;
        return std::nullopt;
    }
    // Names like /dev/mapper/x are links to the device that the service knows.
    std::error_code Fehler;
    const auto Gerät = std::filesystem::canonical(std::string(Quelle), Fehler);
    if (Fehler) return std::nullopt;
    // The rest of the handshake has no time-out either, so it runs in a thread that can be left behind.
    auto Zusage = std::make_shared<std::promise<std::optional<Blockgerät>>>();
    auto Ergebnis = Zusage->get_future();
    try {
        std::thread([Zusage, Name = Gerät.filename().string()] {
            try {
                Zusage->set_value(Fragen(Name));
            } catch (const std::exception&) {
                Zusage->set_value(std::nullopt);
            }
        }).detach();
    } catch (const std::system_error&) {
        return std::nullopt;  // the system gives no thread
    }
    if (Ergebnis.wait_for(Geduld) != std::future_status::ready) {
        Verstummt = true;
        return std::nullopt;
    }
    return Ergebnis.get();
}

}  // namespace liedwerk
