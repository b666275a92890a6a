#include "core/protokolldatei.h"

#include <filesystem>
#include <fstream>

#include "basis/ansi.h"
#include "basis/datei.h"
#include "basis/pfad.h"

namespace liedwerk {

Protokolldatei::Protokolldatei(std::string Programmordner) : Ordner(std::move(Programmordner)) {}

std::string Protokolldatei::Datei() const {
    return PfadVerbinden(Ordner, "log.txt");
}

void Protokolldatei::Schreiben(std::string_view Zeile) {
    if (!Aktiv()) return;
    const std::lock_guard Halten(Sperre);
    const std::string Name = Datei();
    // A pipe or a device under this name would hold us up.
    if (const auto Stand = DateistandLesen(Name); Stand && !Stand->IstDatei) return;
    std::ofstream Ausgabe(std::filesystem::path(Name), std::ios::binary | std::ios::app);
    const auto Bytes = Utf8NachAnsi(Zeile);
    Ausgabe << (Bytes ? std::string_view(*Bytes) : Zeile) << "\r\n";
}

bool ProtokollSchreiben(Protokolldatei& Log, Oberfläche& Person, std::string_view Text, bool Neu) {
    if (Neu && DateiExistiert(Log.Datei())) {
        if (const auto Fehler = DateiLöschen(Log.Datei())) {
            Person.Melden(Symbol::Ausrufezeichen, "Eine Protokolldatei konnte nicht erstellt werden.\n" +
                                                      Fehler.Text + " (Fehler " +
                                                      std::to_string(Fehler.Nummer) + ").");
            return false;
        }
    }
    Log.Schreiben(Text);
    return true;
}

}  // namespace liedwerk
