// One run of a command: settings, ports and index opened, results put out, messages to standard error.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/anwendung.h"
#include "ui/text/aufruf.h"
#include "ui/text/ausgabe.h"
#include "ui/text/json.h"

namespace liedwerk {

class Programmlauf {
  public:
    // Opens settings and ports. Bereit is false, and the reason shown, when that failed.
    explicit Programmlauf(const Globaloptionen& Global);
    ~Programmlauf();
    Programmlauf(const Programmlauf&) = delete;
    Programmlauf& operator=(const Programmlauf&) = delete;
    bool Bereit() const { return IstBereit; }

    Anwendung& Programm();
    bool Json() const { return Optionen.Json; }
    JsonSchreiber& Dokument() { return Schreiber; }
    Ausgabe& Text() { return Standardausgabe; }

    // The index file of this run, a full path.
    std::string Indexname() const;
    // Loads it. A missing file is created only when Anlegen is set. False when it failed, which has been
    // shown.
    bool IndexLaden(bool Anlegen = false);
    // For commands on media files, which need no index: loads it when it was named or is there; else the file
    // types of a new index count. False when loading failed, which has been shown.
    bool IndexLadenFallsDa();
    // Saves a changed index, also behind a run that a signal has cut short: the files are where that run left
    // them. False, with a message, when it failed.
    bool GeändertesSpeichern();
    // The record of a file; 0 when the index does not hold it.
    Satznummer SatzFinden(std::string_view Pfad);
    // Numbers 1 to IndexAnzahl, all when none are given; nothing, with a message, when one lies outside.
    std::optional<std::vector<Satznummer>> Nummern(const std::vector<Satznummer>& Gewünschte);
    // The end of a command: puts out what is collected and gives the status.
    Ausgang Abschließen(bool Gelungen = true);

  private:
    struct Welt;
    Globaloptionen Optionen;
    Ausgabe Standardausgabe{stdout};
    JsonSchreiber Schreiber{Standardausgabe};
    std::unique_ptr<Welt> Alles;
    bool IstBereit = false;
};

// A message on standard error.
void Fehlermelden(std::string_view Text);
// The same, with the status of a wrong call or a failure.
Ausgang Falsch(std::string_view Text);
Ausgang Gescheitert(std::string_view Text);

// A name typed on the command line as a full path.
std::string EingabePfad(std::string_view Name);
std::vector<std::string> EingabePfade(const std::vector<std::string>& Namen);
// The content of a named file, "-" for the standard input, without a byte-order mark of UTF-8; nothing when
// it cannot be read or has more than Höchstens bytes.
std::optional<std::string> EingabeLesen(std::string_view Name, std::uint64_t Höchstens = UINT64_MAX);
// The record numbers of arguments, not yet compared with an index; nothing when one is no whole number.
std::optional<std::vector<Satznummer>> NummernLesen(const std::vector<std::string>& Argumente);

}  // namespace liedwerk
