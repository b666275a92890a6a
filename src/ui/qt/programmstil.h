// The style of the windows: the desktop's own, with edges that can be seen in the program's own colours, and
// labels that show what they are given.
#pragma once

#include <QColor>
#include <QProxyStyle>

namespace liedwerk {

class Programmstil final : public QProxyStyle {
  public:
    // Grundstil: the name of the style that draws everything else.
    explicit Programmstil(const QString& Grundstil) : QProxyStyle(Grundstil) {}
    // The edges of controls in this colour; an invalid one leaves them to the desktop's style.
    void RahmenSetzen(const QColor& Farbe) { Rahmen = Farbe; }

    using QProxyStyle::polish;
    // Makes plain text of a label, also that of a tooltip, which would else guess whether it is markup: names
    // and tags stand in many of them.
    void polish(QWidget* Teil) override;

    void drawPrimitive(PrimitiveElement Was, const QStyleOption* Angaben, QPainter* Maler,
                       const QWidget* Teil) const override;
    void drawControl(ControlElement Was, const QStyleOption* Angaben, QPainter* Maler,
                     const QWidget* Teil) const override;
    void drawComplexControl(ComplexControl Was, const QStyleOptionComplex* Angaben, QPainter* Maler,
                            const QWidget* Teil) const override;

  private:
    void Umranden(QPainter& Maler, const QRect& Platz, const QStyleOption& Angaben, qreal Rundung) const;

    QColor Rahmen;
};

}  // namespace liedwerk
