// The port to a media player's knowledge of a file: for Windows Media files, for Wave files whose header does
// not tell enough, and for the further formats that a person can switch on.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace liedwerk {

struct Medienangaben {
    double Dauer = 0;  // seconds
    std::string Titel;
    std::string Interpret;
    std::string Kommentar;
    std::string Album{};
    std::string Genre{};
    unsigned Jahr = 0;         // 0: none
    unsigned Titelnummer = 0;  // 0: none
    int Bitrate = 0;           // kbit/s; 0: not known, as with the next two
    int Frequenz = 0;          // Hz
    int Kanäle = 0;
};

class Medienauskunft {
  public:
    virtual ~Medienauskunft() = default;
    // What the player control tells of the file; nothing when it cannot open it within 10 seconds, or once
    // Weiter, asked several times a second when given, says false. May be called from several threads.
    virtual std::optional<Medienangaben> Lesen(std::string_view Pfad,
                                               const std::function<bool()>& Weiter) const = 0;
};

}  // namespace liedwerk
