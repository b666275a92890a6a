#include "ui/qt/buchstabenleiste.h"

#include <QHBoxLayout>
#include <QKeyEvent>

#include "index/spalten.h"
#include "ui/qt/qttext.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

const QString Buchstaben = u"ABCDEFGHIJKLMNOPQRSTUVWXYZ"_s;
constexpr std::string_view Vorgabefeld = "Interpret";

}  // namespace

Buchstabenleiste::Buchstabenleiste(QWidget* Eltern) : QWidget(Eltern) {
    auto* const Zeile = new QHBoxLayout(this);
    Zeile->setContentsMargins(0, 0, 0, 0);
    Zeile->setSpacing(1);
    for (const QChar Buchstabe : Buchstaben) {
        auto* const Knopf = new QToolButton(this);
        Knopf->setObjectName(u"cmdSucheBuchstabe(%1)"_s.arg(cmdSucheBuchstabe.size() + 1));
        Knopf->setText(Buchstabe);
        Knopf->setAccessibleName(u"Anfangsbuchstabe %1"_s.arg(Buchstabe));
        Knopf->setAutoRaise(true);
        Knopf->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        Knopf->setMinimumWidth(fontMetrics().averageCharWidth() * 2);
        // One stop of the tabulator for the whole row; the arrows go on from there.
        Knopf->setFocusPolicy(cmdSucheBuchstabe.isEmpty() ? Qt::TabFocus : Qt::NoFocus);
        Knopf->installEventFilter(this);
        connect(Knopf, &QToolButton::clicked, this, [this, Buchstabe] { Geklickt(Buchstabe); });
        Zeile->addWidget(Knopf);
        cmdSucheBuchstabe.append(Knopf);
    }
    mnuBuchstabensuche = new QMenu(this);
    mnuBuchstabensuche->setObjectName(u"mnuBuchstabensuche"_s);
    mnu_Buchstabensuche_Auswahl = new QActionGroup(this);
    // A click on the chosen field takes its tick away.
    mnu_Buchstabensuche_Auswahl->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    int Nummer = 0;
    for (const Spalte& Eine : SpaltenNamen) {
        QAction* const Aktion = mnuBuchstabensuche->addAction(QtText(Eine.Name));
        Aktion->setObjectName(u"mnu_Buchstabensuche_Auswahl(%1)"_s.arg(++Nummer));
        Aktion->setCheckable(true);
        Aktion->setChecked(Eine.Name == Vorgabefeld);
        mnu_Buchstabensuche_Auswahl->addAction(Aktion);
    }
    cmdSucheBuchstabeEinstellen = new QToolButton(this);
    cmdSucheBuchstabeEinstellen->setObjectName(u"cmdSucheBuchstabeEinstellen"_s);
    cmdSucheBuchstabeEinstellen->setAutoRaise(true);
    cmdSucheBuchstabeEinstellen->setPopupMode(QToolButton::InstantPopup);
    cmdSucheBuchstabeEinstellen->setFocusPolicy(Qt::TabFocus);
    cmdSucheBuchstabeEinstellen->setMenu(mnuBuchstabensuche);
    cmdSucheBuchstabeEinstellen->setToolTip(u"Feld für die Suche nach dem Anfangsbuchstaben"_s);
    Zeile->addSpacing(8);
    Zeile->addWidget(cmdSucheBuchstabeEinstellen);
    const auto Beschriften = [this] {
        const QString Name = Feld().isEmpty() ? u"(kein Feld)"_s : Feld();
        // Some room for the arrow of the menu.
        cmdSucheBuchstabeEinstellen->setText(Name + u"    "_s);
        cmdSucheBuchstabeEinstellen->setAccessibleName(u"Feld der Buchstaben: "_s + Name);
        for (QToolButton* const Knopf : cmdSucheBuchstabe)
            Knopf->setToolTip(u"%1 beginnt mit %2"_s.arg(Name, Knopf->text()));
    };
    connect(mnu_Buchstabensuche_Auswahl, &QActionGroup::triggered, this, Beschriften);
    Beschriften();
}

QString Buchstabenleiste::Feld() const {
    const QAction* const Gewählte = mnu_Buchstabensuche_Auswahl->checkedAction();
    return Gewählte == nullptr ? QString() : Gewählte->text();
}

void Buchstabenleiste::Ansteuern(qsizetype Platz) {
    if (Platz < 0 || Platz >= cmdSucheBuchstabe.size()) return;
    for (QToolButton* const Knopf : cmdSucheBuchstabe)
        Knopf->setFocusPolicy(Knopf == cmdSucheBuchstabe[Platz] ? Qt::TabFocus : Qt::NoFocus);
    cmdSucheBuchstabe[Platz]->setFocus(Qt::TabFocusReason);
}

bool Buchstabenleiste::eventFilter(QObject* Knopf, QEvent* Ereignis) {
    if (Ereignis->type() != QEvent::KeyPress) return false;
    const qsizetype Platz = cmdSucheBuchstabe.indexOf(static_cast<QToolButton*>(Knopf));
    switch (const auto* const Taste = static_cast<QKeyEvent*>(Ereignis); Taste->key()) {
        case Qt::Key_Left:
            Ansteuern(Platz - 1);
            return true;
        case Qt::Key_Right:
            Ansteuern(Platz + 1);
            return true;
        case Qt::Key_Home:
            Ansteuern(0);
            return true;
        case Qt::Key_End:
            Ansteuern(cmdSucheBuchstabe.size() - 1);
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            static_cast<QToolButton*>(Knopf)->click();
            return true;
        default:
            // A letter typed on the row goes to its button.
            if (const qsizetype Ziel = Buchstaben.indexOf(Taste->text().toUpper());
                Ziel >= 0 && Taste->text().size() == 1 && (Taste->modifiers() & ~Qt::ShiftModifier) == 0) {
                Ansteuern(Ziel);
                return true;
            }
            return false;
    }
}

}  // namespace liedwerk
