// The appearance that the settings ask for, in Qt's terms: palette of the program, colours of its parts, font
// of the list. The profiles themselves are plain data, see core/farbprofile.h.
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QToolButton>
#include <QWidget>

#include "basis/einstellungen.h"

namespace liedwerk {

// A colour of the settings (0xBBGGRR) and back; DesktopFarbe is the invalid colour.
QColor FarbeAusWert(std::int32_t Wert);
std::int32_t WertAusFarbe(const QColor& Farbe);

// The palette of all windows: the desktop's, or one made from the settings' colours when they name a
// background for the functions. Every group and role of it can be read on its background.
QPalette Programmpalette(const QPalette& Desktop, const Einstellungen& Werte);
// Sets it for the program, with edges of controls that can be seen on it. DesktopDunkel: the desktop asks for
// dark windows; where its own palette is light all the same, profile 1 looks like the dark one.
void PaletteAnwenden(const Einstellungen& Werte, bool DesktopDunkel);

// Colours of a single part over the program's; without own colours the part follows the program again.
void ListeFärben(QWidget& Liste, const Einstellungen& Werte);
void FunktionenFärben(QWidget& Leiste, const Einstellungen& Werte);
void BeschreibungFärben(QWidget& Leiste, const Einstellungen& Werte);
// A function of the pane that was used once takes the colour of the settings.
void BesuchtFärben(QToolButton& Knopf, const Einstellungen& Werte);

// The list's font. The stored default names a font of another desktop; as long as nothing was chosen, the
// list has this desktop's.
QFont Listenschrift(const Einstellungen& Werte);

}  // namespace liedwerk
