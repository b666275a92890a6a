// xmcd text: the form in which the CD database and the cache hold a disc's data.
//
// One key, "=" and value per line; lines that begin with "#" tell the table of contents and are not read. A
// value that is too long stands in several lines of the same key, a line break in it as "\n".
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "basis/protokoll.h"
#include "cd/cddaten.h"

namespace liedwerk {

// More than a hundred titles of many lines need, in bytes: the most that is read from a file.
inline constexpr std::uint64_t XmcdHöchsteBytes = 1 << 20;

// The text of bytes that came from a server or a file: UTF-8 when they are valid UTF-8, else Windows-1252.
// Control characters other than CR and LF become blanks.
std::string XmcdTextVonBytes(std::string_view Bytes);
// The bytes of such a text for a file: Windows-1252 where XmcdTextVonBytes will take them as that, else
// UTF-8.
std::string XmcdBytesVonText(std::string_view Text);

// The lines of a text of the database, which end with CR LF or LF; a CR inside of a line is a blank. Where
// lone CRs outnumber the LFs, these are what ends its lines, and the rest came with a server's own lines.
std::vector<std::string> XmcdZeilen(std::string_view Text);

// Fills titles, album, artist, year, genres and free text of the record from the bytes of an xmcd text, a
// server's status line in front of it or not; what the text does not name stays. False, logged, for an empty
// text.
bool CDDBCDVerarbeiten(std::string_view Bytes, CDDaten& Daten, Protokoll& Log);

// The xmcd text of the record, lines separated by CR LF, none at the end. Programm is name and version, as
// "Liedwerk 1.00".
std::string CDDBTextErstellen(const CDDaten& Daten, std::string_view Programm);

}  // namespace liedwerk
