// Text as JSON (RFC 8259) holds it.
#pragma once

#include <string>
#include <string_view>

namespace liedwerk {

// A text as a JSON string with its quotes. A byte that is no valid UTF-8 becomes its Windows-1252 character,
// so that nothing a file name may hold breaks the document. Characters that would command a terminal
// (basis/steuerzeichen.h) stand as "\uXXXX".
std::string JsonText(std::string_view Text);

}  // namespace liedwerk
