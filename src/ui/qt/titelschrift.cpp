#include "ui/qt/titelschrift.h"

namespace liedwerk {
namespace {

constexpr int Schritt = 15;          // milliseconds from letter to letter
constexpr int LängsterSchritt = 20;  // an interval below it is still the writing
constexpr int Verweildauer = 2500;   // milliseconds that the whole text stands

}  // namespace

Titelschrift::Titelschrift(QWidget& Ziel, QString Normal) : Fenster(Ziel), Normaltitel(std::move(Normal)) {
    tmrTimer1.callOnTimeout(&Fenster, [this] { tmrTimer1_Timer(); });
    Fenster.setWindowTitle(Normaltitel);
}

void Titelschrift::Zeigen(const QString& Text) {
    Schrift = Text;
    Länge = 0;
    if (!Text.isEmpty()) {
        tmrTimer1.start(Schritt);
        return;
    }
    tmrTimer1.stop();
    Fenster.setWindowTitle(Normaltitel);
}

void Titelschrift::tmrTimer1_Timer() {
    if (Länge < Schrift.size()) {
        ++Länge;
        // Both halves of a letter beyond the basic plane come at once.
        if (Länge < Schrift.size() && Schrift.at(Länge).isLowSurrogate()) ++Länge;
        Fenster.setWindowTitle(Schrift.left(Länge));
    } else if (tmrTimer1.interval() < LängsterSchritt) {
        tmrTimer1.start(Verweildauer);
    } else {
        tmrTimer1.stop();
        Fenster.setWindowTitle(Normaltitel);
    }
}

}  // namespace liedwerk
