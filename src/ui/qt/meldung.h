// Message boxes as every form shows them: the program's title, German buttons whatever is installed.
#pragma once

#include <QWidget>
#include <string_view>

#include "basis/oberflaeche.h"

namespace liedwerk {

void MeldungZeigen(QWidget* Besitzer, Symbol Zeichen, std::string_view Text);
Antwort FrageZeigen(QWidget* Besitzer, Symbol Zeichen, std::string_view Text, Knöpfe Auswahl,
                    Antwort Vorgabe);

}  // namespace liedwerk
