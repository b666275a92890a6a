// Named values in a settings file.
//
// One value a line: Name=123 for a number, Name="text" for a text. The file is UTF-8; within the quotes a
// backslash stands before \ and ", \n and \r are line ends, and \xHH is any byte that could not stand there
// itself (control characters, bytes that are no UTF-8). Lines of another form are the person's: they stay
// where they are. Of several lines with one name the last counts.
#pragma once

#include <map>
#include <string>

#include "plattform/wertspeicher.h"

namespace liedwerk {

// Reads the file once. Several programs may share it: saving takes the file as it then is and puts only the
// values in that were changed here, so that of two writers the last one wins for a value that both changed,
// and nothing else is lost. A number outside of 32 bits is no value.
class Wertdatei final : public Wertspeicher {
  public:
    // A missing file is an empty one.
    explicit Wertdatei(std::string Pfad);
    std::optional<Speicherwert> Lesen(std::string_view Name) const override;
    // A name is not empty, holds no "=" and no control character, begins with none of # ; [ and with no
    // blank; another one is ignored.
    void Schreiben(std::string_view Name, const Speicherwert& Neu) override;
    void Löschen(std::string_view Name) override;
    std::string Sichern() override;

    // Why the file could not be read, in German; empty when it could or is missing. Its values then are the
    // defaults, and Sichern gives the reason again as long as it holds.
    const std::string& Lesefehler() const { return Ladefehler; }

  private:
    void Ändern(std::string_view Name, std::optional<Speicherwert> Neu);
    std::string Datei;
    std::string Ladefehler;
    std::map<std::string, Speicherwert, std::less<>> Bekannt;  // as read, and as changed here
    std::map<std::string, std::optional<Speicherwert>, std::less<>> Änderungen;  // nothing: deleted
};

}  // namespace liedwerk
