// The refresh: search row into the query set, search, list.
#pragma once

#include "core/anwendung.h"

namespace liedwerk {

// What tmrListe runs at its expiry. With MitVorschlägen suggestions are made whatever the setting says.
void SucheAktualisieren(Anwendung& Programm, bool MitVorschlägen = false);
// The same when there is something to search for; what it finds may have changed.
void SucheErneuern(Anwendung& Programm);
// cmdSucheLöschen: empty row, empty set, whole index.
void SucheLöschen(Anwendung& Programm);
// Shows the given records in their order instead of a search's result.
void DatensätzeZeigen(Anwendung& Programm, const std::vector<Satznummer>& Datensätze);
// Columns of the list from the index's layout string.
void SpaltenAusIndex(Anwendung& Programm);
// The column as it comes into the list when the person switches it on.
Listenspalte NeueSpalte(int Nummer);
// The window's columns into the layout string; marks the index as changed when they differ.
void SpaltenInIndex(Anwendung& Programm);
// Saves the index as the person asks for it; status text on success. False when it was not saved.
// MitSicherungskopien false makes no backup and deletes none, whatever BackupsSpeichern says.
bool IndexSpeichern(Anwendung& Programm, bool MitSicherungskopien = true);

}  // namespace liedwerk
