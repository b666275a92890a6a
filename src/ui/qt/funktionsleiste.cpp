#include "ui/qt/funktionsleiste.h"

#include <QScrollArea>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace liedwerk {

Funktionsleiste::Funktionsleiste(QWidget* Eltern) : QWidget(Eltern) {
    setObjectName(u"fraFunktionen"_s);
    // The groups roll where they need more height than the window has; the foot stays in sight.
    auto* const Rollfeld = new QScrollArea(this);
    Rollfeld->setFrameShape(QFrame::NoFrame);
    Rollfeld->setWidgetResizable(true);
    Rollfeld->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Rollfeld->setFocusPolicy(Qt::NoFocus);
    auto* const Gruppen = new QWidget(Rollfeld);
    Spalte = new QVBoxLayout(Gruppen);
    Spalte->setContentsMargins(0, 0, 0, 0);
    Spalte->setSpacing(2);
    Spalte->addStretch(1);
    Rollfeld->setWidget(Gruppen);
    Rollfeld->viewport()->setAutoFillBackground(false);
    Gruppen->setAutoFillBackground(false);
    Ganz = new QVBoxLayout(this);
    Ganz->setContentsMargins(0, 0, 0, 0);
    Ganz->addWidget(Rollfeld, 1);
}

void Funktionsleiste::GruppeHinzufügen(const QString& Titel, const QList<QAction*>& Aktionen) {
    auto* const Gruppe = new QWidget(this);
    auto* const Zeilen = new QVBoxLayout(Gruppe);
    Zeilen->setContentsMargins(0, 0, 0, 12);
    Zeilen->setSpacing(1);
    auto* const Kopf = new QLabel(Titel, Gruppe);
    Kopf->setObjectName(u"lblÜberschrift"_s);
    QFont Schrift = Kopf->font();
    Schrift.setBold(true);
    Kopf->setFont(Schrift);
    Kopf->setContentsMargins(7, 0, 0, 3);
    Zeilen->addWidget(Kopf);
    for (QAction* const Aktion : Aktionen) {
        auto* const Knopf = new QToolButton(Gruppe);
        // "mnuSpeichern" in the menu, "cmdSpeichern" here.
        Knopf->setObjectName(u"cmd"_s + Aktion->objectName().mid(3));
        Knopf->setDefaultAction(Aktion);
        Knopf->setAccessibleName(Aktion->iconText());
        Knopf->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        Knopf->setAutoRaise(true);
        Knopf->setIconSize({18, 18});
        Knopf->setFocusPolicy(Qt::TabFocus);
        Knopf->setCursor(Qt::PointingHandCursor);
        Knopf->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        Knopf->setMinimumHeight(Knopf->fontMetrics().height() + 12);
        Zeilen->addWidget(Knopf);
        const auto Nachführen = [Aktion, Knopf, Gruppe, Aktionen] {
            // Some room between symbol and text; the button has just taken the bare text over again.
            Knopf->setText(u"  "_s + Aktion->iconText());
            Knopf->setVisible(Aktion->isEnabled());
            Gruppe->setVisible(std::any_of(Aktionen.begin(), Aktionen.end(),
                                           [](const QAction* Eine) { return Eine->isEnabled(); }));
        };
        connect(Aktion, &QAction::changed, Knopf, Nachführen);
        Nachführen();
    }
    Spalte->insertWidget(Spalte->count() - 1, Gruppe);
}

void Funktionsleiste::FußHinzufügen(QWidget* Fuß) {
    Ganz->addWidget(Fuß);
}

}  // namespace liedwerk
