#include "plattform/qt/desktopfarben.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

// org.freedesktop.portal.Settings of XDG Desktop Portal.
constexpr const char* Dienstname = "org.freedesktop.portal.Desktop";
constexpr const char* Objekt = "/org/freedesktop/portal/desktop";
constexpr const char* Schnittstelle = "org.freedesktop.portal.Settings";
constexpr const char* Bereich = "org.freedesktop.appearance";
constexpr const char* Wertname = "color-scheme";
constexpr uint DunkelErbeten = 1;  // 0 no wish, 2 light
constexpr int Geduld = 5000;       // milliseconds; the portal may have to start first

}  // namespace

Portalfarben::Portalfarben(const QDBusConnection& Verbindung) : Bus(Verbindung) {
    if (!Bus.isConnected()) return;
    Empfang.Empfangen = [this](const QDBusMessage& Botschaft) {
        const auto Teile = Botschaft.arguments();
        if (Teile.size() == 3 && Teile[0] == QLatin1String(Bereich) && Teile[1] == QLatin1String(Wertname))
            Nehmen(Teile[2]);
    };
    Bus.connect(QLatin1String(Dienstname), QLatin1String(Objekt), QLatin1String(Schnittstelle),
                u"SettingChanged"_s, &Empfang, SLOT(nachricht(QDBusMessage)));
    Fragen();
}

void Portalfarben::Fragen() {
    auto Frage = QDBusMessage::createMethodCall(QLatin1String(Dienstname), QLatin1String(Objekt),
                                                QLatin1String(Schnittstelle), u"Read"_s);
    Frage << QLatin1String(Bereich) << QLatin1String(Wertname);
    auto* const Warten = new QDBusPendingCallWatcher(Bus.asyncCall(Frage, Geduld), this);
    connect(Warten, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* Fertiger) {
        const auto Teile = Fertiger->reply().arguments();
        if (!Fertiger->isError() && Teile.size() == 1) Nehmen(Teile[0]);
        Fertiger->deleteLater();
    });
}

void Portalfarben::Nehmen(const QVariant& Antwort) {
    // The answer to "Read" is a variant within a variant; the signal carries one only.
    QVariant Wert = Antwort;
    while (Wert.canConvert<QDBusVariant>())
        Wert = Wert.value<QDBusVariant>().variant();
    const bool Neu = Wert.toUInt() == DunkelErbeten;
    if (Neu == IstDunkel) return;
    IstDunkel = Neu;
    if (Geändert) Geändert();
}

}  // namespace liedwerk
