#include "ui/qt/fensterplatz.h"

#include "ui/qt/symbole.h"

namespace liedwerk {

QAction* FensteraktionAnlegen(Fensterplatz& Platz, const QString& Name, const QString& Text, const char* Bild,
                              const QList<QKeySequence>& Tasten, std::function<void()> Handler) {
    auto* const Aktion = new QAction(Text, &Platz.Fenster);
    Aktion->setObjectName(Name);
    if (*Bild != '\0') Aktion->setIcon(Symbolbild(Bild));
    Aktion->setShortcuts(Tasten);
    Platz.Fenster.addAction(Aktion);
    QObject::connect(Aktion, &QAction::triggered, &Platz.Fenster,
                     [Bereit = Platz.Bereit, Handler = std::move(Handler)] {
                         if (Bereit()) Handler();
                     });
    return Aktion;
}

}  // namespace liedwerk
