#include "ui/qt/balkenbild.h"

#include <QHelpEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

constexpr int Abstand = 10;  // pixels between name, bar and value

}  // namespace

Balkenbild::Balkenbild(QWidget* Eltern) : QWidget(Eltern) {
    setObjectName(u"picBalken"_s);
    setAccessibleName(u"Bild der Statistik"_s);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void Balkenbild::Zeigen(std::vector<Balken> Neue) {
    Liste = std::move(Neue);
    Größter = 0;
    Namensbreite = 0;
    Textbreite = 0;
    QStringList Gesprochen;
    for (const Balken& Einer : Liste) {
        Größter = std::max(Größter, Einer.Wert);
        // The advance is rounded down, the cutting compares exactly.
        Namensbreite = std::max(Namensbreite, fontMetrics().horizontalAdvance(Einer.Name) + 1);
        Textbreite = std::max(Textbreite, fontMetrics().horizontalAdvance(Einer.Text));
        Gesprochen += Einer.Name + u": "_s + Einer.Text;
    }
    // Long names give way to the bars; the tool tip tells them whole.
    Namensbreite = std::min(Namensbreite, fontMetrics().averageCharWidth() * 32);
    setAccessibleDescription(Gesprochen.join(u"; "_s));
    updateGeometry();
    update();
}

int Balkenbild::Zeilenhöhe() const {
    return fontMetrics().height() + 8;
}

QSize Balkenbild::sizeHint() const {
    return {Namensbreite + Textbreite + fontMetrics().averageCharWidth() * 20,
            Zeilenhöhe() * static_cast<int>(Liste.size())};
}

void Balkenbild::paintEvent(QPaintEvent* Ereignis) {
    QPainter Pinsel(this);
    Pinsel.setRenderHint(QPainter::Antialiasing);
    const int Höhe = Zeilenhöhe();
    const int Links = Namensbreite + Abstand;
    const int Platz = std::max(1, width() - Links - Textbreite - 2 * Abstand);
    QColor Blasse = palette().color(QPalette::Highlight);
    Blasse.setAlphaF(0.4F);
    // Only the rows that are to be drawn: there may be many years.
    const int Erste = std::max(0, Ereignis->rect().top() / Höhe);
    const int Letzte = std::min(static_cast<int>(Liste.size()) - 1, Ereignis->rect().bottom() / Höhe);
    for (int Zeile = Erste; Zeile <= Letzte; ++Zeile) {
        const Balken& Einer = Liste[static_cast<std::size_t>(Zeile)];
        const QRect Reihe(0, Zeile * Höhe, width(), Höhe);
        Pinsel.setPen(palette().color(QPalette::WindowText));
        Pinsel.drawText(QRect(0, Reihe.top(), Namensbreite, Höhe), Qt::AlignRight | Qt::AlignVCenter,
                        fontMetrics().elidedText(Einer.Name, Qt::ElideRight, Namensbreite));
        const double Anteil =
            Größter > 0 ? static_cast<double>(Einer.Wert) / static_cast<double>(Größter) : 0.0;
        const int Breite = Einer.Wert > 0 ? std::max(2, static_cast<int>(Anteil * Platz)) : 0;
        Pinsel.setPen(Qt::NoPen);
        Pinsel.setBrush(Einer.Blass ? Blasse : palette().color(QPalette::Highlight));
        Pinsel.drawRoundedRect(QRect(Links, Reihe.top() + 4, Breite, Höhe - 8), 3, 3);
        Pinsel.setPen(palette().color(QPalette::WindowText));
        Pinsel.drawText(QRect(Links + Breite + Abstand, Reihe.top(), Textbreite + Abstand, Höhe),
                        Qt::AlignLeft | Qt::AlignVCenter, Einer.Text);
    }
}

bool Balkenbild::event(QEvent* Ereignis) {
    if (Ereignis->type() == QEvent::ToolTip) {
        const auto* const Hilfe = static_cast<QHelpEvent*>(Ereignis);
        const auto Zeile = static_cast<std::size_t>(std::max(0, Hilfe->pos().y() / Zeilenhöhe()));
        if (Zeile < Liste.size())
            QToolTip::showText(Hilfe->globalPos(), Liste[Zeile].Name + u": "_s + Liste[Zeile].Text, this);
        return true;
    }
    return QWidget::event(Ereignis);
}

}  // namespace liedwerk
