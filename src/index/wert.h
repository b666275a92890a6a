// A value of the index file: text in memory, bytes in the file, lossless both ways.
//
// A value is Windows-1252. A text that this code page cannot hold (a path with other letters or with bytes
// that are no UTF-8) is stored as EF BB BF followed by its raw bytes. Bytes that begin with EF BB BF are read
// in that way exactly when writing the result would give them again; so every old file comes back byte for
// byte, whatever it holds.
#pragma once

#include <string>
#include <string_view>

namespace liedwerk {

// What stands in front of raw bytes.
inline constexpr std::string_view IndexwertRohmarke = "\xEF\xBB\xBF";

// Bytes of a text, and text of bytes; inverse to each other in both directions.
std::string IndexwertSchreiben(std::string_view Text);
std::string IndexwertLesen(std::string_view Bytes);
// The same, appended to Ziel; bytes of pure ASCII (nearly all) are copied at once.
void IndexwertLesenAnhängen(std::string& Ziel, std::string_view Bytes);

// The written form of a text for a line: CR and LF become one blank each.
std::string EinzeiligerIndexwert(std::string_view Text);
// The same for bytes that are a value already: blanks for line ends, and cut so that the value has at most
// Höchstens bytes and still reads as the beginning of its text.
std::string IndexwertEinpassen(std::string_view Bytes, std::size_t Höchstens);

}  // namespace liedwerk
