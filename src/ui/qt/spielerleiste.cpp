#include "ui/qt/spielerleiste.h"

#include <QFocusEvent>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QStyle>
#include <algorithm>

#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

constexpr int Blinktakt = 500;    // milliseconds
constexpr int Tastenpause = 350;  // milliseconds behind the last key until the title jumps

}  // namespace

Spielerregler::Spielerregler(QWidget* Eltern) : QSlider(Qt::Horizontal, Eltern) {
    tmrLosgelassen.setSingleShot(true);
    tmrLosgelassen.setInterval(Tastenpause);
    connect(&tmrLosgelassen, &QTimer::timeout, this, [this] { Loslassen(); });
    connect(this, &QSlider::sliderReleased, this, [this] { Loslassen(); });
    connect(this, &QSlider::actionTriggered, this, [this](int Handlung) {
        if (Handlung != SliderMove && !isSliderDown()) tmrLosgelassen.start();
    });
}

void Spielerregler::Loslassen() {
    tmrLosgelassen.stop();
    if (Losgelassen) Losgelassen();
}

void Spielerregler::mousePressEvent(QMouseEvent* Ereignis) {
    if (Ereignis->button() == Qt::LeftButton && isEnabled()) {
        const int Griff = style()->pixelMetric(QStyle::PM_SliderLength, nullptr, this);
        const int Stelle = static_cast<int>(Ereignis->position().x()) - Griff / 2;
        setValue(QStyle::sliderValueFromPosition(minimum(), maximum(), Stelle, width() - Griff,
                                                 layoutDirection() == Qt::RightToLeft));
    }
    QSlider::mousePressEvent(Ereignis);
}

void Spielerregler::focusOutEvent(QFocusEvent* Ereignis) {
    QSlider::focusOutEvent(Ereignis);
    if (Gehalten()) {
        setSliderDown(false);
        if (tmrLosgelassen.isActive()) Loslassen();
    }
}

Spielerleiste::Spielerleiste(QWidget* Eltern) : QWidget(Eltern) {
    setObjectName(u"fraPlayer"_s);
    auto* const Zeile = new QHBoxLayout(this);
    Zeile->setContentsMargins(0, 0, 0, 0);
    Zeile->setSpacing(3);
    cmdWinampVorheriger =
        KnopfAnlegen(u"cmdWinampVorheriger"_s, u"Vorheriger Titel"_s, "vorheriger", SpielerVorheriger);
    cmdAbspielen = KnopfAnlegen(u"cmdAbspielen"_s, u"Spielen"_s, "spielen", SpielerSpielen);
    cmdAbspielenStopp = KnopfAnlegen(u"cmdAbspielenStopp"_s, u"Stopp"_s, "stopp", SpielerStopp);
    cmdWinampNächster =
        KnopfAnlegen(u"cmdWinampNächster"_s, u"Nächster Titel"_s, "naechster", SpielerNächster);
    auto* const Mitte = new QVBoxLayout;
    Mitte->setSpacing(0);
    auto* const Worte = new QHBoxLayout;
    lblTitel = new QLabel(this);
    lblTitel->setObjectName(u"lblTitel"_s);
    lblTitel->setAccessibleName(u"Gespielter Titel"_s);
    lblTitel->setTextFormat(Qt::PlainText);
    // The label takes what room there is; its text is cut to fit.
    lblTitel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    QFont Schrift = lblTitel->font();
    Schrift.setBold(true);
    lblTitel->setFont(Schrift);
    lblTitelposition = new QLabel(this);
    lblTitelposition->setObjectName(u"lblTitelposition"_s);
    lblTitelposition->setAccessibleName(u"Titelposition"_s);
    lblTitelposition->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QSizePolicy Bleibt = lblTitelposition->sizePolicy();
    Bleibt.setRetainSizeWhenHidden(true);
    lblTitelposition->setSizePolicy(Bleibt);
    PlatzFestlegen();
    Worte->addWidget(lblTitel, 1);
    Worte->addWidget(lblTitelposition);
    hscrlTrackPos = ReglerAnlegen(u"hscrlTrackPos"_s, u"Titelposition"_s, 0, 100);
    hscrlTrackPos->setPageStep(10);
    hscrlTrackPos->Losgelassen = [this] {
        if (Springen) Springen(hscrlTrackPos->value());
    };
    Mitte->addLayout(Worte);
    Mitte->addWidget(hscrlTrackPos);
    Zeile->addSpacing(8);
    Zeile->addLayout(Mitte, 1);
    Zeile->addSpacing(8);

    hscrlVolume = ReglerAnlegen(u"hscrlVolume"_s, u"Lautstärke"_s, 0, 255);
    hscrlBalance = ReglerAnlegen(u"hscrlBalance"_s, u"Balance"_s, -127, 127);
    for (const auto& [Regler, Bild] :
         {std::pair{hscrlVolume, "lautstaerke"}, std::pair{hscrlBalance, "balance"}}) {
        auto* const lblBild = new Symbolfeld(Symbolbild(Bild), 16, QIcon::Normal, this);
        lblBild->setToolTip(Regler->accessibleName());
        Regler->setFixedWidth(fontMetrics().averageCharWidth() * 12);
        Regler->setPageStep(Regler->maximum() / 8);
        Zeile->addWidget(lblBild);
        Zeile->addWidget(Regler);
    }
    connect(hscrlVolume, &QSlider::valueChanged, this, [this](int Wert) {
        if (LautstärkeGesetzt) LautstärkeGesetzt(Wert);
    });
    connect(hscrlBalance, &QSlider::valueChanged, this, [this](int Wert) {
        // Near the middle the middle is meant.
        if (std::abs(Wert) < 6 && Wert != 0 && hscrlBalance->isSliderDown()) return hscrlBalance->setValue(0);
        if (BalanceGesetzt) BalanceGesetzt(Wert);
    });
    cmdWinampEinstellungen = KnopfAnlegen(u"cmdWinampEinstellungen"_s, u"Einstellungen des Audio-Players"_s,
                                          "einstellungen", SpielerEinstellungen);
    cmdWinampEnde =
        KnopfAnlegen(u"cmdWinampEnde"_s, u"Audio-Player beenden"_s, "player-ende", SpielerSchließen);

    tmrBlinken.setParent(this);
    tmrBlinken.setInterval(Blinktakt);
    connect(&tmrBlinken, &QTimer::timeout, this, [this] { tmrBlinken_Timer(); });
    tmrBlinken.setObjectName(u"tmrBlinken"_s);
    Zeigen({}, false, false);
}

QToolButton* Spielerleiste::KnopfAnlegen(const QString& Name, const QString& Text, const char* Bild,
                                         int Nummer) {
    auto* const Knopf = new QToolButton(this);
    Knopf->setObjectName(Name);
    Knopf->setText(Text);
    Knopf->setIcon(Symbolbild(Bild));
    Knopf->setIconSize({20, 20});
    Knopf->setAutoRaise(true);
    Knopf->setFocusPolicy(Qt::TabFocus);
    Knopf->setToolButtonStyle(Qt::ToolButtonIconOnly);
    Knopf->setAccessibleName(Text);
    Knopf->setToolTip(Text);
    connect(Knopf, &QToolButton::clicked, this, [this, Knopf, Nummer] {
        // One button plays and pauses; its text says which.
        const bool Pause = Nummer == SpielerSpielen && Knopf->text() == "Pause"_L1;
        if (Befehl) Befehl(Pause ? static_cast<int>(SpielerPause) : Nummer);
    });
    layout()->addWidget(Knopf);
    return Knopf;
}

Spielerregler* Spielerleiste::ReglerAnlegen(const QString& Name, const QString& Hörname, int Von, int Bis) {
    auto* const Regler = new Spielerregler(this);
    Regler->setObjectName(Name);
    Regler->setAccessibleName(Hörname);
    Regler->setToolTip(Hörname);
    Regler->setRange(Von, Bis);
    return Regler;
}

void Spielerleiste::ReglerStellen(int Lautstärke, int Balance) {
    for (const auto& [Regler, Wert] :
         {std::pair{hscrlVolume, Lautstärke}, std::pair{hscrlBalance, Balance}}) {
        const QSignalBlocker Still(Regler);
        Regler->setValue(Wert);
    }
}

// What the player cannot do is shown disabled, and says so.
void Spielerleiste::Freigeben(const Spielerstand& Stand) {
    const Spielerlage& Lage = Stand.Lage;
    const bool Da = Stand.Gefunden;
    const bool Läuft = Da && Stand.Zustand != PlayerZustand::Stopped;
    const auto Setzen = [Da](QWidget* Teil, bool Frei, bool Kann = true) {
        Teil->setEnabled(Da && Frei && Kann);
        const QString Name = Teil->accessibleName();
        Teil->setToolTip(Da && !Kann ? Name + u" – kann dieser Audio-Player nicht"_s : Name);
    };
    Setzen(hscrlTrackPos, Läuft && Stand.Länge > 0, Lage.KannSpringen || !Läuft);
    Setzen(hscrlVolume, true, Lage.KannLautstärke);
    Setzen(hscrlBalance, true, Lage.KannBalance);
    Setzen(cmdWinampVorheriger, true, Lage.KannBlättern);
    Setzen(cmdWinampNächster, true, Lage.KannBlättern);
    Setzen(cmdAbspielen, true);
    Setzen(cmdAbspielenStopp, Läuft);
    Setzen(cmdWinampEinstellungen, true, Lage.KannEinstellungen);
    Setzen(cmdWinampEnde, true, Lage.KannSchließen);
}

void Spielerleiste::Zeigen(const Spielerstand& Stand, bool Erkannt, bool Blinken) {
    Titel = QtText(Titeltext(Stand, Erkannt));
    TitelKürzen();
    lblTitelposition->setText(QtText(Positionstext(Stand)));
    const bool Spielt = Stand.Gefunden && Stand.Zustand == PlayerZustand::Playing;
    if (const QString Text = Spielt ? u"Pause"_s : u"Spielen"_s; cmdAbspielen->text() != Text) {
        cmdAbspielen->setText(Text);
        cmdAbspielen->setAccessibleName(Text);
        cmdAbspielen->setIcon(Symbolbild(Spielt ? "pause" : "spielen"));
    }
    if (!Stand.Gefunden) {
        const QSignalBlocker Still(hscrlTrackPos);
        hscrlTrackPos->setMaximum(100);
        hscrlTrackPos->setValue(1);
    } else if (!hscrlTrackPos->Gehalten()) {
        if (Stand.Länge > 0)
            hscrlTrackPos->setMaximum(static_cast<int>(std::min<std::int64_t>(Stand.Länge, INT_MAX)));
        if (Stand.Position >= 0 && Stand.Position <= hscrlTrackPos->maximum())
            hscrlTrackPos->setValue(static_cast<int>(Stand.Position));
    }
    if (Stand.Lage.Lautstärke && !hscrlVolume->Gehalten() && Stand.Lage.Offen == 0)
        ReglerStellen(*Stand.Lage.Lautstärke, hscrlBalance->value());
    if (Stand.Lage.Balance && !hscrlBalance->Gehalten() && Stand.Lage.Offen == 0)
        ReglerStellen(hscrlVolume->value(), *Stand.Lage.Balance);
    Freigeben(Stand);
    if (!Blinken || !TitelEndetBald(Stand)) {
        BlinkenBeenden();
    } else if (!tmrBlinken.isActive()) {
        tmrBlinken.start();
    }
}

// A label of fixed size that changes every second does not make the whole window look for its layout anew.
void Spielerleiste::PlatzFestlegen() {
    const QFontMetrics Maße = lblTitelposition->fontMetrics();
    lblTitelposition->setFixedSize(Maße.horizontalAdvance(u"Titelposition - 00:00:00/00:00:00"_s),
                                   Maße.height());
}

void Spielerleiste::TitelKürzen() {
    lblTitel->setText(lblTitel->fontMetrics().elidedText(Titel, Qt::ElideRight, lblTitel->width()));
    lblTitel->setToolTip(lblTitel->text() == Titel ? QString() : Titel);
}

void Spielerleiste::resizeEvent(QResizeEvent* Ereignis) {
    QWidget::resizeEvent(Ereignis);
    TitelKürzen();
}

void Spielerleiste::changeEvent(QEvent* Ereignis) {
    QWidget::changeEvent(Ereignis);
    if (Ereignis->type() != QEvent::FontChange || lblTitelposition == nullptr) return;
    PlatzFestlegen();
    TitelKürzen();
}

void Spielerleiste::tmrBlinken_Timer() {
    lblTitelposition->setVisible(!lblTitelposition->isVisible());
}

void Spielerleiste::BlinkenBeenden() {
    tmrBlinken.stop();
    lblTitelposition->show();
}

}  // namespace liedwerk
