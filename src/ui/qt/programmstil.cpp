#include "ui/qt/programmstil.h"

#include <QLabel>
#include <QPainter>
#include <QStyleOption>

namespace liedwerk {
namespace {

constexpr qreal Ecke = 2;      // pixels, the rounding of an edge
constexpr int Merkstrich = 3;  // pixels, the line on the tab that is chosen

}  // namespace

void Programmstil::Umranden(QPainter& Maler, const QRect& Platz, const QStyleOption& Angaben,
                            qreal Rundung) const {
    QColor Farbe = Rahmen;
    if (!(Angaben.state & State_Enabled)) Farbe.setAlphaF(0.5F);
    // Where the keys go must stand out from its neighbours, also where these have the colour of the text.
    const bool Fokus = Angaben.state & State_HasFocus;
    const QColor Schrift = Angaben.palette.color(QPalette::WindowText);
    if (Fokus) Farbe = Schrift == Rahmen ? Angaben.palette.color(QPalette::Highlight) : Schrift;
    Maler.save();
    Maler.setRenderHint(QPainter::Antialiasing);
    // A curve needs more than a line of one pixel, which its smoothing would wash out.
    const qreal Breite = Fokus ? 2 : Rundung > Ecke ? 1.5 : 1;
    const qreal Halbe = Breite / 2;
    Maler.setPen(QPen(Farbe, Breite));
    Maler.setBrush(Qt::NoBrush);
    Maler.drawRoundedRect(QRectF(Platz).adjusted(Halbe, Halbe, -Halbe, -Halbe), Rundung, Rundung);
    Maler.restore();
}

void Programmstil::polish(QWidget* Teil) {
    QProxyStyle::polish(Teil);
    auto* const Zeile = qobject_cast<QLabel*>(Teil);
    if (Zeile != nullptr && Zeile->textFormat() == Qt::AutoText) Zeile->setTextFormat(Qt::PlainText);
}

void Programmstil::drawPrimitive(PrimitiveElement Was, const QStyleOption* Angaben, QPainter* Maler,
                                 const QWidget* Teil) const {
    // The status line is one text, not a row of fields.
    if (Was == PE_FrameStatusBarItem) return;
    QProxyStyle::drawPrimitive(Was, Angaben, Maler, Teil);
    if (!Rahmen.isValid()) return;
    switch (Was) {
        case PE_Frame:
        case PE_FrameLineEdit:
        case PE_FrameTabWidget:
        case PE_FrameMenu:
        case PE_IndicatorCheckBox:
            return Umranden(*Maler, Angaben->rect, *Angaben, Ecke);
        case PE_IndicatorRadioButton:
            return Umranden(*Maler, Angaben->rect, *Angaben, Angaben->rect.width() / 2.0);
        case PE_PanelButtonCommand: {
            const auto* const Knopf = qstyleoption_cast<const QStyleOptionButton*>(Angaben);
            if (Knopf == nullptr || !(Knopf->features & QStyleOptionButton::Flat))
                Umranden(*Maler, Angaben->rect, *Angaben, Ecke);
            return;
        }
        default:
            return;
    }
}

void Programmstil::drawControl(ControlElement Was, const QStyleOption* Angaben, QPainter* Maler,
                               const QWidget* Teil) const {
    // Between two panes there is room, no line.
    if (Was == CE_Splitter) return;
    QProxyStyle::drawControl(Was, Angaben, Maler, Teil);
    if (!Rahmen.isValid()) return;
    if (Was == CE_ProgressBarGroove) Umranden(*Maler, Angaben->rect, *Angaben, Ecke);
    if (Was != CE_TabBarTabShape) return;
    QStyleOption Ohne = *Angaben;
    Ohne.state &= ~State_HasFocus;
    Umranden(*Maler, Angaben->rect, Ohne, Ecke);
    if (Angaben->state & State_Selected) {
        QRect Strich = Angaben->rect.adjusted(2, 1, -2, 0);
        Strich.setHeight(Merkstrich);
        Maler->fillRect(Strich, Angaben->palette.color(QPalette::WindowText));
    }
}

void Programmstil::drawComplexControl(ComplexControl Was, const QStyleOptionComplex* Angaben, QPainter* Maler,
                                      const QWidget* Teil) const {
    QProxyStyle::drawComplexControl(Was, Angaben, Maler, Teil);
    if (!Rahmen.isValid()) return;
    const auto Stück = [&](SubControl Welches) {
        if (Angaben->subControls & Welches)
            Umranden(*Maler, subControlRect(Was, Angaben, Welches, Teil), *Angaben, Ecke);
    };
    switch (Was) {
        case CC_ComboBox:
            return Stück(SC_ComboBoxFrame);
        case CC_SpinBox:
            return Stück(SC_SpinBoxFrame);
        case CC_Slider:
            Stück(SC_SliderGroove);
            return Stück(SC_SliderHandle);
        case CC_ScrollBar:
            return Stück(SC_ScrollBarSlider);
        default:
            return;
    }
}

}  // namespace liedwerk
