#include "plattform/qt/mprisspieler.h"

#include <atomic>

#include "plattform/qt/anwendungsobjekt.h"
#include "plattform/qt/mprisarbeiter.h"

namespace liedwerk {
namespace {

constexpr unsigned long Endedauer = 1500;  // milliseconds that the thread may take to end

constexpr int OffenHöchstens = 32;

}  // namespace

Mprisspieler::Mprisspieler() : Bild(std::make_shared<Mprisbild>()) {
    auto Gemeldet = std::make_shared<std::atomic<bool>>(false);
    Bild->Melden = [this, Gemeldet] {
        // Changes that nobody has looked at yet need no second call.
        if (Gemeldet->exchange(true)) return;
        QMetaObject::invokeMethod(
            &Empfänger,
            [this, Gemeldet] {
                *Gemeldet = false;
                if (Geändert) Geändert();
            },
            Qt::QueuedConnection);
    };
}

Mprisspieler::~Mprisspieler() {
    {
        const std::lock_guard Halten(Bild->Riegel);
        Bild->Melden = nullptr;
    }
    if (Faden == nullptr) return;
    Faden->quit();
    // A thread that hangs on a bus that hangs is left behind with all it holds.
    if (Faden->wait(Endedauer)) delete Faden;
}

Spielerfenster Mprisspieler::Finden(const Spielerprofil& Profil) {
    {
        const std::lock_guard Halten(Bild->Riegel);
        if (Bild->Klasse == Profil.Klasse) return Bild->Fenster;
        Bild->Klasse = Profil.Klasse;
        Bild->Umgesehen = false;
        Bild->Fenster = 0;
    }
    if (Faden == nullptr) {
        AnwendungSicherstellen();
        Faden = new QThread;
        Arbeiter = new Mprisarbeiter(Bild);
        Arbeiter->moveToThread(Faden);
        QObject::connect(Faden, &QThread::finished, Arbeiter, &QObject::deleteLater);
        Faden->start(QThread::LowPriority);
    }
    QMetaObject::invokeMethod(Arbeiter, [Neue = std::string(Profil.Klasse), Zweit = Profil.Zweitschnittstelle,
                                         Wer = Arbeiter] { Wer->Beobachten(Neue, Zweit); });
    return 0;
}

std::int64_t Mprisspieler::Senden(Spielerfenster Fenster, int Nachricht, int wParam, int lParam) {
    {
        const std::lock_guard Halten(Bild->Riegel);
        if (Fenster == 0 || Fenster != Bild->Fenster) return 0;
        if (Nachricht == NachrichtBenutzer && lParam == SpielerZustandFragen) return Bild->Zustand;
        if (Nachricht == NachrichtBenutzer && lParam == SpielerZeitFragen)
            return wParam == 0 ? Bild->PositionJetzt() : Bild->Länge;
        // A player that does not take its commands gets no more of them.
        if (Bild->Lage.Offen >= OffenHöchstens) return 0;
        ++Bild->Lage.Offen;
    }
    QMetaObject::invokeMethod(
        Arbeiter, [Wer = Arbeiter, Nachricht, wParam, lParam] { Wer->Ausführen(Nachricht, wParam, lParam); });
    return 0;
}

Spielerlage Mprisspieler::Lage(Spielerfenster Fenster) const {
    const std::lock_guard Halten(Bild->Riegel);
    return Fenster != 0 && Fenster == Bild->Fenster ? Bild->Lage : Spielerlage();
}

bool Mprisspieler::Umgesehen() const {
    const std::lock_guard Halten(Bild->Riegel);
    return Bild->Umgesehen;
}

bool Mprisspieler::Schweigt() const {
    const std::lock_guard Halten(Bild->Riegel);
    return Bild->Umgesehen && Bild->Angemeldet && Bild->Fenster == 0;
}

}  // namespace liedwerk
