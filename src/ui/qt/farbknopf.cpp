#include "ui/qt/farbknopf.h"

#include <QColorDialog>
#include <QMenu>
#include <QPainter>

#include "ui/qt/erscheinung.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
Farbknopf::Farbknopf(QWidget* Eltern) : QPushButton(Eltern) {
    setAutoDefault(false);
    auto* const Menü = new QMenu(this);
    Menü->addAction(u"&Farbe wählen..."_s, this, [this] { FarbeWählen(); })->setObjectName(u"mnuWählen"_s);
    Menü->addAction(u"Wie der &Desktop"_s, this, [this] { Setzen(DesktopFarbe); })
        ->setObjectName(u"mnuDesktop"_s);
    setMenu(Menü);
    setMinimumWidth(fontMetrics().averageCharWidth() * 26);
    Zeigen(DesktopFarbe);
}

void Farbknopf::Zeigen(std::int32_t Neue) {
    Farbe = Neue;
    const bool Desktop = Farbe == DesktopFarbe;
    setText(Desktop ? u"Wie der Desktop"_s : FarbeAusWert(Farbe).name().toUpper());
    QPixmap Feld(iconSize() * devicePixelRatioF());
    Feld.setDevicePixelRatio(devicePixelRatioF());
    Feld.fill(Qt::transparent);
    QPainter Pinsel(&Feld);
    Pinsel.setPen(palette().color(QPalette::Mid));
    if (!Desktop) Pinsel.setBrush(FarbeAusWert(Farbe));
    Pinsel.drawRect(QRect(QPoint(0, 0), iconSize()).adjusted(1, 1, -2, -2));
    Pinsel.end();
    setIcon(Feld);
}

void Farbknopf::FarbeWählen() {
    const QColor Wahl =
        QColorDialog::getColor(Farbe == DesktopFarbe ? palette().color(QPalette::Base) : FarbeAusWert(Farbe),
                               this, accessibleName());
    if (Wahl.isValid()) Setzen(WertAusFarbe(Wahl));
}

void Farbknopf::Setzen(std::int32_t Neue) {
    Zeigen(Neue);
    if (Gewählt) Gewählt(Neue);
}

}  // namespace liedwerk
