// What the main window offers around tags: menu TAGs, its entries in the context menu and the function pane.
#pragma once

#include <vector>

#include "core/tageditor.h"
#include "ui/qt/fensterplatz.h"

namespace liedwerk {

void TagaktionenAnlegen(Fensterplatz& Platz);

// frmTag on the given records, modal; a message when there are none.
void TagEditorAusführen(Anwendung& Programm, QWidget* Eltern, std::vector<Satznummer> Dateien);

}  // namespace liedwerk
