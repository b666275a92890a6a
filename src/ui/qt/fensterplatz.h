// What the main window offers to the actions of a subject (tags, files, playing), so that each subject stands
// in a file pair of its own (tagaktionen, dateiaktionen ...) and frmMain only calls it once.
#pragma once

#include <QAction>
#include <QList>
#include <QMenu>
#include <functional>
#include <vector>

#include "core/anwendung.h"

namespace liedwerk {

struct Fensterplatz {
    Anwendung& Programm;
    QWidget& Fenster;  // parent of the actions and of the forms that they open
    // Menus of the bar in their order; a menu without entries is hidden.
    QMenu& Datei;
    QMenu& Bearbeiten;
    QMenu& Ansicht;
    QMenu& Wiedergabe;
    QMenu& Tags;
    QMenu& Extras;
    QMenu& Hilfe;
    // True while no run is active and the window does not end: handlers ask it first.
    std::function<bool()> Bereit;
    // Takes the actions into the context menu of the list, ahead of copying the path.
    std::function<void(const QList<QAction*>&)> InKontextmenü;
    // A heading of the function pane with a button for each action.
    std::function<void(const QString& Titel, const QList<QAction*>&)> InFunktionsleiste;
    // Called whenever selection, list or mode changed: the subject enables its actions. Geladen: an index is
    // loaded and the list can be used.
    std::function<void(std::function<void(bool Geladen)>)> BeiÄnderung;
    // Called at a double click or Enter on a row with its record. The subjects are asked in the order in
    // which they came until one says true: it has done what there was to do.
    std::function<void(std::function<bool(Satznummer)>)> BeiDoppelklick;
    // Plays the records in their order; empty where nothing can be played.
    std::function<void(const std::vector<Satznummer>&)> Abspielen{};
    // Puts a strip above the list, which takes it over.
    std::function<void(QWidget*)> ÜberListe{};
};

// An action of the window with its name, text, picture ("" for none) and keys, also reachable by its keys
// while no menu shows it. Handler runs when it is triggered and Bereit says yes.
QAction* FensteraktionAnlegen(Fensterplatz& Platz, const QString& Name, const QString& Text, const char* Bild,
                              const QList<QKeySequence>& Tasten, std::function<void()> Handler);

}  // namespace liedwerk
