// The action log as a file: "log.txt" in the program folder, on only when "log.me" lies there at the start.
#pragma once

#include <mutex>
#include <string>
#include <string_view>

#include "basis/oberflaeche.h"
#include "basis/protokoll.h"

namespace liedwerk {

class Protokolldatei final : public Protokoll {
  public:
    explicit Protokolldatei(std::string Programmordner);
    // May be called from several threads; the file is opened and closed for each line, so that the log
    // survives a crash. A line is Windows-1252, or its own bytes when that cannot hold it; line ends within
    // it become blanks.
    void Schreiben(std::string_view Zeile) override;
    bool Aktiv() const override { return LogDatei > 0; }

    // LogDatei: 0 off, 1 on.
    int LogDatei = 0;
    std::string Datei() const;

  private:
    std::string Ordner;
    std::mutex Sperre;
};

// ProtokollSchreiben: appends a line; Neu starts the log afresh. False (and a message) when the old file
// cannot go.
bool ProtokollSchreiben(Protokolldatei& Log, Oberfläche& Person, std::string_view Text, bool Neu);

}  // namespace liedwerk
