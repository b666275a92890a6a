#include "ui/qt/erscheinung.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QTreeView>
#include <algorithm>

#include "core/farbprofile.h"
#include "ui/qt/programmstil.h"
#include "ui/qt/qttext.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

// A tenth-wise mixture: Anteil tenths of A, the rest of B.
QColor Mischung(const QColor& A, const QColor& B, int Anteil) {
    const auto Teil = [Anteil](int Eins, int Zwei) { return (Eins * Anteil + Zwei * (10 - Anteil)) / 10; };
    return {Teil(A.red(), B.red()), Teil(A.green(), B.green()), Teil(A.blue(), B.blue())};
}

bool IstDunkel(const QPalette& Palette) {
    return Palette.color(QPalette::Window).lightness() < Palette.color(QPalette::WindowText).lightness();
}

// The colour of the settings, or what stands in for it where the person left this one to the desktop.
QColor FarbeOder(std::int32_t Wert, const QColor& Sonst) {
    return Wert == DesktopFarbe ? Sonst : FarbeAusWert(Wert);
}

QColor SchriftAuf(const QColor& Grund) {
    return Grund.lightness() < 128 ? Qt::white : Qt::black;
}

// A colour of the settings put into a role; the desktop's own is left alone.
void FarbeSetzen(QPalette& Palette, QPalette::ColorRole Rolle, std::int32_t Farbe) {
    if (Farbe != DesktopFarbe) Palette.setColor(Rolle, FarbeAusWert(Farbe));
}

// Background and text of a part. With a background of the person's own and no text colour the text is one
// that can be read on it, whatever the desktop's is.
void PaarSetzen(QPalette& Palette, QPalette::ColorRole Hintergrund, std::int32_t Grund,
                std::initializer_list<QPalette::ColorRole> Texte, std::int32_t Schrift) {
    FarbeSetzen(Palette, Hintergrund, Grund);
    for (const auto Rolle : Texte) {
        if (Grund != DesktopFarbe) Palette.setColor(Rolle, SchriftAuf(FarbeAusWert(Grund)));
        FarbeSetzen(Palette, Rolle, Schrift);
    }
}

// The style that can draw edges, set once over the desktop's own.
Programmstil& Stil() {
    auto* Gesetzt = dynamic_cast<Programmstil*>(QApplication::style());
    if (Gesetzt == nullptr) {
        Gesetzt = new Programmstil(QApplication::style()->name());
        QApplication::setStyle(Gesetzt);
    }
    return *Gesetzt;
}

constexpr const char* Besucht = "besucht";

}  // namespace

QColor FarbeAusWert(std::int32_t Wert) {
    if (Wert == DesktopFarbe) return {};
    return {Wert & 0xFF, (Wert >> 8) & 0xFF, (Wert >> 16) & 0xFF};
}

std::int32_t WertAusFarbe(const QColor& Farbe) {
    if (!Farbe.isValid()) return DesktopFarbe;
    return Farbe.red() | Farbe.green() << 8 | Farbe.blue() << 16;
}

QPalette Programmpalette(const QPalette& Desktop, const Einstellungen& Werte) {
    if (Werte.FarbeFunktionenHintergrund == DesktopFarbe) return Desktop;
    const QColor Grund = FarbeAusWert(Werte.FarbeFunktionenHintergrund);
    const QColor Schrift = FarbeOder(Werte.FarbeFunktionen, SchriftAuf(Grund));
    const QColor Listengrund = FarbeOder(Werte.FarbeListenHintergrund, Grund);
    const QColor Listenschrift = FarbeOder(Werte.FarbeListen, SchriftAuf(Listengrund));
    const QColor Rahmen = FarbeOder(Werte.FarbeRahmen, Mischung(Schrift, Grund, 3));
    const QColor Wahl = FarbeOder(Werte.FarbeÜberschriftHintergrund, Desktop.color(QPalette::Highlight));
    const QColor Besuchtes = FarbeOder(Werte.FarbeFunktionenBesucht, Schrift);
    QPalette Palette(Schrift, Grund, Mischung(Grund, Qt::white, 8), Rahmen, Rahmen, Schrift, Listengrund);
    Palette.setColor(QPalette::Text, Listenschrift);
    Palette.setColor(QPalette::AlternateBase, Mischung(Listenschrift, Listengrund, 1));
    Palette.setColor(QPalette::PlaceholderText, Mischung(Listenschrift, Listengrund, 6));
    Palette.setColor(QPalette::ToolTipBase, Listengrund);
    Palette.setColor(QPalette::ToolTipText, Listenschrift);
    Palette.setColor(QPalette::Button, Grund);
    Palette.setColor(QPalette::ButtonText, Schrift);
    Palette.setColor(QPalette::BrightText, Schrift);
    Palette.setColor(QPalette::Midlight, Rahmen);
    Palette.setColor(QPalette::Shadow, Rahmen);
    Palette.setColor(QPalette::Highlight, Wahl);
    Palette.setColor(QPalette::HighlightedText, FarbeOder(Werte.FarbeÜberschrift, SchriftAuf(Wahl)));
    Palette.setColor(QPalette::Link, Besuchtes);
    Palette.setColor(QPalette::LinkVisited, Besuchtes);
    for (const auto Rolle : {QPalette::WindowText, QPalette::ButtonText})
        Palette.setColor(QPalette::Disabled, Rolle, Mischung(Schrift, Grund, 5));
    Palette.setColor(QPalette::Disabled, QPalette::Text, Mischung(Listenschrift, Listengrund, 5));
    return Palette;
}

void PaletteAnwenden(const Einstellungen& Werte, bool DesktopDunkel) {
    Stil();
    // The empty palette gives the desktop's own back.
    QApplication::setPalette(QPalette());
    Einstellungen Gewollt = Werte;
    if (DesktopDunkel && !IstDunkel(QApplication::palette()) && FarbprofilVon(Werte) == ProfilDesktop)
        FarbprofilNehmen(Gewollt, ProfilDunkel);
    const bool Eigene = Gewollt.FarbeFunktionenHintergrund != DesktopFarbe;
    if (!Eigene) return Stil().RahmenSetzen({});
    const QPalette Palette = Programmpalette(QApplication::palette(), Gewollt);
    Stil().RahmenSetzen(Palette.color(QPalette::Mid));
    QApplication::setPalette(Palette);
}

void ListeFärben(QWidget& Liste, const Einstellungen& Werte) {
    QPalette Farben;
    PaarSetzen(Farben, QPalette::Base, Werte.FarbeListenHintergrund, {QPalette::Text}, Werte.FarbeListen);
    const QColor Grund = Farben.color(QPalette::Base);
    if (Werte.FarbeListenHintergrund != DesktopFarbe)
        Farben.setColor(QPalette::AlternateBase, Mischung(Farben.color(QPalette::Text), Grund, 1));
    // The grid is quieter than the edges of controls.
    if (Werte.FarbeRahmen != DesktopFarbe)
        Farben.setColor(QPalette::Midlight, Mischung(FarbeAusWert(Werte.FarbeRahmen), Grund, 4));
    Liste.setPalette(Farben);
    if (auto* const Kopf = Liste.findChild<QHeaderView*>(QString(), Qt::FindDirectChildrenOnly)) {
        QPalette Kopffarben;
        PaarSetzen(Kopffarben, QPalette::Button, Werte.FarbeÜberschriftHintergrund, {QPalette::ButtonText},
                   Werte.FarbeÜberschrift);
        Kopf->setPalette(Kopffarben);
    }
}

void FunktionenFärben(QWidget& Leiste, const Einstellungen& Werte) {
    QPalette Farben;
    PaarSetzen(Farben, QPalette::Window, Werte.FarbeFunktionenHintergrund,
               {QPalette::ButtonText, QPalette::WindowText}, Werte.FarbeFunktionen);
    Leiste.setPalette(Farben);
    Leiste.setAutoFillBackground(Werte.FarbeFunktionenHintergrund != DesktopFarbe);
    QPalette Kopffarben;
    PaarSetzen(Kopffarben, QPalette::Window, Werte.FarbeÜberschriftHintergrund, {QPalette::WindowText},
               Werte.FarbeÜberschrift);
    for (auto* const Kopf : Leiste.findChildren<QLabel*>(u"lblÜberschrift"_s)) {
        Kopf->setPalette(Kopffarben);
        Kopf->setAutoFillBackground(Werte.FarbeÜberschriftHintergrund != DesktopFarbe);
    }
    for (auto* const Knopf : Leiste.findChildren<QToolButton*>()) {
        QFont Schrift = Knopf->font();
        Schrift.setUnderline(Werte.FunktionenUnterstreichen == 1);
        Knopf->setFont(Schrift);
        if (Knopf->property(Besucht).toBool()) BesuchtFärben(*Knopf, Werte);
    }
}

void BesuchtFärben(QToolButton& Knopf, const Einstellungen& Werte) {
    Knopf.setProperty(Besucht, true);
    QPalette Farben;
    FarbeSetzen(Farben, QPalette::ButtonText, Werte.FarbeFunktionenBesucht);
    Knopf.setPalette(Farben);
}

void BeschreibungFärben(QWidget& Leiste, const Einstellungen& Werte) {
    QPalette Farben;
    FarbeSetzen(Farben, QPalette::WindowText, Werte.FarbeBeschreibungen);
    Leiste.setPalette(Farben);
}

QFont Listenschrift(const Einstellungen& Werte) {
    QFont Schrift = QApplication::font();
    const Einstellungen Vorgabe;
    if (Werte.ListeFont != Vorgabe.ListeFont ||
        Werte.lngEinstellungenListeFontSize != Vorgabe.lngEinstellungenListeFontSize) {
        Schrift.setFamily(QtText(Werte.ListeFont));
        Schrift.setPointSize(std::clamp(Werte.lngEinstellungenListeFontSize, 4, 72));
    }
    Schrift.setBold(Werte.ListeFontBold == 1);
    Schrift.setItalic(Werte.ListeFontItalic == 1);
    Schrift.setUnderline(Werte.ListeFontUnderline == 1);
    Schrift.setStrikeOut(Werte.ListeFontStrikeThrough == 1);
    return Schrift;
}

}  // namespace liedwerk
