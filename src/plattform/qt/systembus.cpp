#include "plattform/qt/systembus.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QVariantMap>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <future>
#include <thread>

#include "basis/datei.h"

namespace liedwerk {
namespace {

constexpr std::chrono::seconds Geduld(1);
constexpr auto Standardsockel = "/run/dbus/system_bus_socket";
constexpr auto Verbindungsname = "liedwerk-laufwerke";

bool BusVorhanden() {
    return std::getenv("DBUS_SYSTEM_BUS_ADDRESS") != nullptr || DateistandLesen(Standardsockel).has_value();
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
    const auto Werte = qdbus_cast<QVariantMap>(Antwort.arguments().constFirst());
    return Blockgerät{Werte.value("IdLabel").toString().toStdString(),
                      Werte.value("HintSystem", true).toBool()};
}

}  // namespace

std::optional<Blockgerät> BlockgerätFragen(std::string_view Quelle) {
    static std::atomic<bool> Verstummt = false;
    if (Verstummt || !Quelle.starts_with("/dev/") || !BusVorhanden()) return std::nullopt;
    // Names like /dev/mapper/x are links to the device that the service knows.
    std::error_code Fehler;
    const auto Gerät = std::filesystem::canonical(std::string(Quelle), Fehler);
    if (Fehler) return std::nullopt;
    // The handshake with a bus knows no time-out of its own, so it runs in a thread that can be left behind.
    auto Zusage = std::make_shared<std::promise<std::optional<Blockgerät>>>();
    auto Ergebnis = Zusage->get_future();
    std::thread([Zusage, Name = Gerät.filename().string()] { Zusage->set_value(Fragen(Name)); }).detach();
    if (Ergebnis.wait_for(Geduld) != std::future_status::ready) {
        Verstummt = true;
        return std::nullopt;
    }
    return Ergebnis.get();
}

}  // namespace liedwerk
