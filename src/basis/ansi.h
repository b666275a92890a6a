// The border between the bytes of a file and text in memory.
//
// A file's single-byte text is Windows-1252 on every platform; text in memory is UTF-8. The five bytes that
// Windows-1252 leaves free (81, 8D, 8F, 90, 9D hex) stand for U+0081, U+008D, U+008F, U+0090 and U+009D, so
// that every byte survives the way in and out. Whoever counts characters of a file counts bytes, before
// conversion.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace liedwerk {

// The code point of a Windows-1252 byte.
char32_t AnsiZeichen(unsigned char Byte);

// The Windows-1252 byte of a code point; nothing when the code page has none.
std::optional<unsigned char> AnsiByte(char32_t Zeichen);

// Text of the bytes of a file. Never fails: every byte has a character.
std::string AnsiNachUtf8(std::string_view Bytes);
void AnsiNachUtf8Anhängen(std::string& Ziel, std::string_view Bytes);

// Bytes of a text; nothing when the text is no valid UTF-8 or holds a character that Windows-1252 lacks.
std::optional<std::string> Utf8NachAnsi(std::string_view Text);

// Bytes of a text in which every character (or broken byte) without a place in the code page becomes "?".
std::string Utf8NachAnsiErsatz(std::string_view Text);

}  // namespace liedwerk
