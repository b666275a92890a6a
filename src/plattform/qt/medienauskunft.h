// What TagLib knows of a media file.
#pragma once

#include <chrono>
#include <functional>

#include "plattform/medienauskunft.h"

namespace liedwerk {

// Windows Media, Wave and the further formats by their extensions, others by TagLib's own choice. Regular
// files only, nothing is ever written. Nothing comes back after 10 seconds, also from a drive that does not
// answer. May be called from several threads; see InFristLesen for that of the window.
class TaglibAuskunft final : public Medienauskunft {
  public:
    TaglibAuskunft();
    std::optional<Medienangaben> Lesen(std::string_view Pfad,
                                       const std::function<bool()>& Weiter) const override;
};

// What Arbeit gives, or nothing when that takes longer than Frist or Weiter says false: it goes on in a
// thread of its own then, so it must own what it uses. The application's thread lets the event loop run while
// it waits, but keeps input back for later; a second call from an event meanwhile gives nothing.
std::optional<Medienangaben> InFristLesen(std::function<std::optional<Medienangaben>()> Arbeit,
                                          std::chrono::milliseconds Frist,
                                          const std::function<bool()>& Weiter = {});

}  // namespace liedwerk
