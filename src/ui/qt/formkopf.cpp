#include "ui/qt/formkopf.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QScreen>
#include <algorithm>

#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

namespace liedwerk {

int Zeichenbreite(const QWidget& Teil, int Zeichen) {
    const QScreen* const Schirm = QGuiApplication::primaryScreen();
    const int Platz = Schirm == nullptr ? QWIDGETSIZE_MAX : Schirm->availableGeometry().width() * 6 / 10;
    return std::min(Teil.fontMetrics().averageCharWidth() * Zeichen, Platz);
}

void FormgrößeSetzen(QDialog& Form, int Zeichen, int Zeilen) {
    constexpr double Anteil = 0.94;  // the rest is for the window's own frame
    const QSize Wunsch(Form.fontMetrics().averageCharWidth() * Zeichen, Form.fontMetrics().height() * Zeilen);
    Form.resize(Wunsch.boundedTo(Form.screen()->availableGeometry().size() * Anteil));
}

QString Umbrochen(std::string_view Text, int Zeilenlänge) {
    QString Zeilen = QtText(Text);
    for (qsizetype Anfang = 0; Zeilen.size() - Anfang > Zeilenlänge;) {
        const qsizetype Leer = Zeilen.lastIndexOf(u' ', Anfang + Zeilenlänge);
        if (Leer <= Anfang) break;
        Zeilen[Leer] = u'\n';
        Anfang = Leer + 1;
    }
    return Zeilen;
}

QVBoxLayout* Formspalte(QDialog& Form) {
    auto* const Spalte = new QVBoxLayout(&Form);
    Spalte->setContentsMargins(20, 18, 20, 16);
    Spalte->setSpacing(12);
    return Spalte;
}

void BannerHinzufügen(QVBoxLayout& Spalte, const QIcon& Bild, const QString& Zeile, const QString& Text) {
    QWidget* const Form = Spalte.parentWidget();
    auto* const Kopf = new QHBoxLayout;
    Kopf->setSpacing(14);
    Kopf->addWidget(new Symbolfeld(Bild, 40, QIcon::Normal, Form), 0, Qt::AlignTop);
    auto* const Worte = new QVBoxLayout;
    Worte->setSpacing(4);
    auto* const lblBanner = new QLabel(Zeile, Form);
    lblBanner->setObjectName(QStringLiteral("lblBanner"));
    lblBanner->setWordWrap(true);
    QFont Schrift = lblBanner->font();
    Schrift.setBold(true);
    Schrift.setPointSizeF(Schrift.pointSizeF() * 1.15);
    lblBanner->setFont(Schrift);
    Worte->addWidget(lblBanner);
    if (!Text.isEmpty()) TextHinzufügen(*Worte, QStringLiteral("lblBannerText"), Text);
    Kopf->addLayout(Worte, 1);
    Spalte.addLayout(Kopf);
}

QLabel* TextHinzufügen(QVBoxLayout& Spalte, const QString& Name, const QString& Text) {
    auto* const Zeile = new QLabel(Text);
    Zeile->setObjectName(Name);
    Zeile->setTextFormat(Qt::PlainText);
    Zeile->setWordWrap(true);
    // A wrapped label asks for the height of a narrow column unless it knows how wide it will be.
    Zeile->setMinimumWidth(Zeichenbreite(*Zeile, 66));
    Spalte.addWidget(Zeile);
    return Zeile;
}

QList<QPushButton*> KnöpfeHinzufügen(QVBoxLayout& Spalte, QDialog& Form, const QList<Formknopf>& Liste) {
    auto* const Fuß = new QHBoxLayout;
    Fuß->setContentsMargins(0, 6, 0, 0);
    Fuß->addStretch(1);
    QList<QPushButton*> Gemacht;
    for (const Formknopf& Einer : Liste) {
        auto* const Knopf = new QPushButton(Einer.Text, &Form);
        Knopf->setObjectName(Einer.Name);
        Knopf->setMinimumHeight(Knopf->fontMetrics().height() + 14);
        QObject::connect(Knopf, &QPushButton::clicked, &Form,
                         [&Form, Nummer = Einer.Nummer] { Form.done(Nummer); });
        Fuß->addWidget(Knopf);
        Gemacht.append(Knopf);
    }
    Spalte.addLayout(Fuß);
    return Gemacht;
}

}  // namespace liedwerk
