// Writing and removing tags: what happens to the media file itself.
//
// The formats (id3v1, id3v2, lyrics) build bytes and say where they go; tagumschreiben.h brings them to the
// disk. Here the two meet, and whatever goes wrong gets its German text. Who asks the person, keeps the index
// true and shows the texts is tagspeichern.h. This is also the one place that chooses between the two ways of
// writing ID3v2.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "medien/medienlesen.h"
#include "medien/tagumschreiben.h"

namespace liedwerk {

// What messages call a tag: "ID3v1-TAG", "ID3v2-TAG", "Lyrics-TAG".
std::string TagName(Tagblock Block);

// The settings that writing and removing need.
struct Tagoptionen {
    std::int64_t TAGsBytesSuchen = 102400;    // bytes searched for an ID3v2 tag; 0 or below: all
    std::int32_t TAGsProzentHinzufügen = 25;  // padding of a new ID3v2 tag, per cent of its length
    bool TAGsModern = false;                  // the way of ID3v2: as other programs do
};

// Each writes one tag into the file; true, or false with the text for the person in Meldung. The file is then
// as it was. They look at the file's bytes only, not at its extension.
bool Id3v1Schreiben(std::string_view Pfad, std::string_view Block, std::string& Meldung);
bool Id3v2Schreiben(std::string_view Pfad, const Datensatz& Satz, const Tagoptionen& Optionen,
                    std::string& Meldung, const Schreibrahmen& Rahmen = {});
// The further fields of an old tag stay. Text is UTF-8.
bool LyricsSchreiben(std::string_view Pfad, std::string_view Text, std::string& Meldung,
                     const Schreibrahmen& Rahmen = {});

// Removes one tag from the file, through the temporary file. True, or false with the text in Meldung, also
// when the file has no such tag.
bool TagAusDateiEntfernen(std::string_view Pfad, Tagblock Block, const Tagoptionen& Optionen,
                          std::string& Meldung, const Schreibrahmen& Rahmen = {});

}  // namespace liedwerk
