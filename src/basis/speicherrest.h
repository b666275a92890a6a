// What lies beside a media file while its tags are saved, and what an interruption of that leaves there: the
// names, and the question whether a file waits for its whole content.
//
// As long as it does, nothing but the end of that save (medien/tagrettung.h) may touch the file: under
// another name, in another place or gone it would part from its content, and nobody would put it right any
// more.
#pragma once

#include <string>
#include <string_view>

#include "basis/datei.h"

namespace liedwerk {

// What stands behind a media file's path while it is rewritten.
inline constexpr std::string_view TagTemporärEndung = VorläufigeEndung;

// The name under which the file's new content is prepared; a name that is too long for it is
// shortened and holds a number of the whole one.
std::string TagTemporärname(std::string_view Pfad);
// The name of the whole new content of a file with several names (hard links) while it is overwritten in
// place.
std::string TagGesichertname(std::string_view Pfad);

// The failure of a file beside which the whole new content of an interrupted save lies: what is written now
// would be lost when that save is finished. Empty where there is none.
Dateifehler UnterbrochenesSpeichern(std::string_view Pfad);

}  // namespace liedwerk
