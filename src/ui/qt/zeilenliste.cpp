#include "ui/qt/zeilenliste.h"

#include <QHBoxLayout>
#include <QKeyEvent>

#include "basis/text.h"
#include "ui/qt/qttext.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

Zeilenliste::Zeilenliste(const QString& Name, const QString& Hörname, QWidget* Eltern) : QWidget(Eltern) {
    lstZeilen = new QListWidget(this);
    lstZeilen->setObjectName(Name);
    lstZeilen->setAccessibleName(Hörname);
    lstZeilen->setAlternatingRowColors(true);
    lstZeilen->setMinimumSize(fontMetrics().averageCharWidth() * 42, fontMetrics().height() * 9);
    setFocusProxy(lstZeilen);
    auto* const Reihe = new QHBoxLayout(this);
    Reihe->setContentsMargins(0, 0, 0, 0);
    Reihe->addWidget(lstZeilen, 1);
    Knöpfe = new QVBoxLayout;
    Knöpfe->addStretch(1);
    Reihe->addLayout(Knöpfe);
}

std::vector<std::string> Zeilenliste::Zeilen() const {
    std::vector<std::string> Texte;
    for (int Zeile = 0; Zeile < lstZeilen->count(); ++Zeile)
        Texte.push_back(Utf8Text(lstZeilen->item(Zeile)->text()));
    return Texte;
}

void Zeilenliste::ZeilenSetzen(const std::vector<std::string>& Texte) {
    lstZeilen->clear();
    for (const std::string& Text : Texte)
        lstZeilen->addItem(QtText(Text));
}

void Zeilenliste::Hinzufügen(const QString& Text) {
    const std::vector<std::string> Texte = Zeilen();
    int Zeile = 0;
    while (Zeile < lstZeilen->count() &&
           !GleichOhneGroß(Texte[static_cast<std::size_t>(Zeile)], Utf8Text(Text)))
        ++Zeile;
    if (Zeile == lstZeilen->count()) lstZeilen->addItem(Text);
    lstZeilen->setCurrentRow(Zeile);
}

void Zeilenliste::GewählteEntfernen() {
    qDeleteAll(lstZeilen->selectedItems());
}

bool Zeilenliste::eventFilter(QObject* Objekt, QEvent* Ereignis) {
    if (Ereignis->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(Ereignis)->key() == Qt::Key_Delete) {
        GewählteEntfernen();
        return true;
    }
    return QWidget::eventFilter(Objekt, Ereignis);
}

void Zeilenliste::Verschieben(int Richtung) {
    const int Von = lstZeilen->currentRow();
    const int Nach = Von + Richtung;
    if (Von < 0 || Nach < 0 || Nach >= lstZeilen->count()) return;
    lstZeilen->insertItem(Nach, lstZeilen->takeItem(Von));
    lstZeilen->setCurrentRow(Nach);
}

QPushButton* Zeilenliste::KnopfHinzufügen(const QString& Name, const QString& Text, bool BrauchtZeile,
                                          std::function<void()> Handler) {
    auto* const Knopf = new QPushButton(Text, this);
    Knopf->setObjectName(Name);
    Knopf->setAutoDefault(false);
    connect(Knopf, &QPushButton::clicked, this, std::move(Handler));
    Knöpfe->insertWidget(Knöpfe->count() - 1, Knopf);
    if (BrauchtZeile) {
        const auto Schalten = [Knopf, Liste = lstZeilen] {
            Knopf->setEnabled(!Liste->selectedItems().isEmpty());
        };
        Schalten();
        connect(lstZeilen, &QListWidget::itemSelectionChanged, Knopf, Schalten);
    }
    return Knopf;
}

void Zeilenliste::OrdnungsknöpfeHinzufügen() {
    KnopfHinzufügen(u"cmdEntfernen"_s, u"&Entfernen"_s, true, [this] { GewählteEntfernen(); });
    KnopfHinzufügen(u"cmdNachOben"_s, u"&Nach oben"_s, true, [this] { Verschieben(-1); });
    KnopfHinzufügen(u"cmdNachUnten"_s, u"Nach &unten"_s, true, [this] { Verschieben(1); });
    lstZeilen->installEventFilter(this);
}

}  // namespace liedwerk
