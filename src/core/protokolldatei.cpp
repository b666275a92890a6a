#include "core/protokolldatei.h"

#include <algorithm>

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
    std::string Bytes = Utf8NachAnsi(Zeile).value_or(std::string(Zeile));
    // A line end in a file's name or a server's reply would make lines of its own.
    std::ranges::replace_if(
        Bytes, [](char Zeichen) { return Zeichen == '\r' || Zeichen == '\n'; }, ' ');
    const std::lock_guard Halten(Sperre);
    static_cast<void>(DateiAnhängen(Datei(), Bytes + "\r\n"));
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
