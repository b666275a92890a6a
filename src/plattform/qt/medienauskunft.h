// What TagLib knows of a media file.
#pragma once

#include "plattform/medienauskunft.h"

namespace liedwerk {

// Windows Media and Wave files by their formats, others by TagLib's own choice. Regular files only, nothing
// is ever written. Reading ends after 10 seconds with what was found by then. May be called from several
// threads.
class TaglibAuskunft final : public Medienauskunft {
  public:
    TaglibAuskunft();
    std::optional<Medienangaben> Lesen(std::string_view Pfad) const override;
};

}  // namespace liedwerk
