#include "ui/qt/vorschlagsrahmen.h"

#include <QVBoxLayout>

#include "ui/qt/qttext.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

Vorschlagsrahmen::Vorschlagsrahmen(QWidget* Eltern) : QFrame(Eltern) {
    setObjectName(u"fraSuchVorschläge"_s);
    setFrameShape(StyledPanel);
    lblSuchVorschläge = new QLabel(this);
    lblSuchVorschläge->setObjectName(u"lblSuchVorschläge"_s);
    lstSuchVorschläge = new QListView(this);
    lstSuchVorschläge->setObjectName(u"lstSuchVorschläge"_s);
    lstSuchVorschläge->setAccessibleName(u"Such-Vorschläge"_s);
    lstSuchVorschläge->setUniformItemSizes(true);
    lstSuchVorschläge->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lstSuchVorschläge->setModel(&Wörter);
    lstSuchVorschläge->setMaximumHeight(lstSuchVorschläge->fontMetrics().height() * 7);
    cmdSuchVorschlägeAnzeigen = new QPushButton(u"Klicken Sie hier, um Such-Vorschläge anzuzeigen"_s, this);
    cmdSuchVorschlägeAnzeigen->setObjectName(u"cmdSuchVorschlägeAnzeigen"_s);
    auto* const Spalte = new QVBoxLayout(this);
    Spalte->addWidget(lblSuchVorschläge);
    Spalte->addWidget(lstSuchVorschläge);
    Spalte->addWidget(cmdSuchVorschlägeAnzeigen, 0, Qt::AlignLeft);
    const auto Übernehmen = [this](const QModelIndex& Zeile) {
        const QString Wort = Zeile.data().toString();
        if (!Wort.isEmpty()) Gewählt(Wort);
    };
    connect(lstSuchVorschläge, &QListView::clicked, this, Übernehmen);
    // Enter and double click; a single click has taken the word before, and the frame is gone by then.
    connect(lstSuchVorschläge, &QListView::activated, this, [this, Übernehmen](const QModelIndex& Zeile) {
        if (isVisible()) Übernehmen(Zeile);
    });
    connect(cmdSuchVorschlägeAnzeigen, &QPushButton::clicked, this, [this] { Erbeten(); });
    hide();
}

void Vorschlagsrahmen::Zeigen(bool Gefunden, const std::vector<std::string>& Vorschläge, bool Eingeschaltet) {
    cmdSuchVorschlägeAnzeigen->setEnabled(!Gefunden);
    if (Gefunden) {
        hide();
        return;
    }
    QStringList Zeilen;
    Zeilen.reserve(static_cast<qsizetype>(Vorschläge.size()));
    for (const std::string& Wort : Vorschläge)
        Zeilen.append(QtText(Wort));
    Wörter.setStringList(Zeilen);
    const bool Keine = Vorschläge.empty();
    lblSuchVorschläge->setText(Keine ? u"Nichts gefunden. Bitte ändern Sie Ihre Eingabe."_s
                                     : u"Nichts gefunden. Meinten Sie vielleicht..."_s);
    lstSuchVorschläge->setVisible(!Keine);
    cmdSuchVorschlägeAnzeigen->setVisible(Keine && !Eingeschaltet);
    show();
}

}  // namespace liedwerk
