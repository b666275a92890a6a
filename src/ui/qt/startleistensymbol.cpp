#include "ui/qt/startleistensymbol.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QGuiApplication>

#include "basis/oberflaeche.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

constexpr int Wachtakt = 5000;   // milliseconds between two looks whether the X11 tray is still there
constexpr int Wartezeit = 3000;  // milliseconds that a desktop may take to bring up its tray after the login

QString Wirtsdienst() {
    return u"org.kde.StatusNotifierWatcher"_s;
}

}  // namespace

// Qt remembers its first answer to the question for a tray: asked before the desktop's tray is up, it stays
// "none" for the whole run. So the service is watched, and Qt is asked only when it is there.
void Startleistensymbol::Einrichten(QMenu* Kontextmenü) {
    Menü = Kontextmenü;
    WirtSuchen();
}

void Startleistensymbol::WirtSuchen() {
    const QDBusConnection Bus = QDBusConnection::sessionBus();
    if (Bus.isConnected()) {
        Wächter = std::make_unique<QDBusServiceWatcher>(Wirtsdienst(), Bus);
        connect(Wächter.get(), &QDBusServiceWatcher::serviceRegistered, this, [this] { Anlegen(); });
        connect(Wächter.get(), &QDBusServiceWatcher::serviceUnregistered, this, [this] {
            Symbol.reset();
            if (Verwaist) Verwaist();
        });
        if (Bus.interface()->isServiceRegistered(Wirtsdienst())) {
            Anlegen();
            if (Symbol) return;
        }
    }
    Geduld.setSingleShot(true);
    Geduld.callOnTimeout(this, [this] {
        if (Symbol) return;
        // An older kind of tray, known to X11 only, needs no service.
        if (QGuiApplication::platformName() == u"xcb") Anlegen();
        if (Symbol) {
            Wache.start(Wachtakt);
        } else if (OhneWirt) {
            OhneWirt();
        }
    });
    Geduld.start(Wartezeit);
    Wache.setTimerType(Qt::VeryCoarseTimer);
    Wache.callOnTimeout(this, [this] { WirtPrüfen(); });
}

// The older kind tells nobody when it goes: without a look now and then, a hidden window would be lost.
void Startleistensymbol::WirtPrüfen() {
    if (!QSystemTrayIcon::isSystemTrayAvailable()) {
        const bool War = Symbol != nullptr;
        Symbol.reset();
        if (War && Verwaist) Verwaist();
    } else {
        Anlegen();
    }
}

void Startleistensymbol::Anlegen() {
    if (Symbol || !QSystemTrayIcon::isSystemTrayAvailable()) return;
    Symbol = std::make_unique<QSystemTrayIcon>(Programmsymbol());
    Symbol->setObjectName(u"symTray"_s);
    Symbol->setToolTip(QtText(Programmtitel));
    Symbol->setContextMenu(Menü);
    connect(Symbol.get(), &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason Grund) {
        if (Grund == QSystemTrayIcon::Trigger && Geklickt) Geklickt();
    });
    Symbol->show();
    if (Angelegt) Angelegt();
}

void Startleistensymbol::Entfernen() {
    for (QTimer* const Uhr : {&Geduld, &Wache}) {
        Uhr->stop();
        Uhr->disconnect(this);
    }
    Wächter.reset();
    Symbol.reset();
}

void Startleistensymbol::HinweisZeigen(const QString& Titel, const QString& Text) {
    if (Symbol) Symbol->showMessage(Titel, Text, Programmsymbol());
}

}  // namespace liedwerk
