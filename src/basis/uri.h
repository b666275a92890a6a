// Addresses and their parts in bytes, those of local files above all ("file:///home/anna/Lied%201.mp3").
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace liedwerk {

// The scheme of an address ("file", "http"), as it is written; empty when the text is none. A drive letter is
// no scheme.
std::string_view UriSchema(std::string_view Text);

// The bytes behind "%41" and the like; a "%" without two hexadecimal digits behind it stays.
std::string ProzentAuflösen(std::string_view Text);

// The bytes as a part of an address: all but letters, digits, "-", ".", "_", "~" as "%41" and the like (RFC
// 3986).
std::string ProzentKodieren(std::string_view Bytes);

// The path of a "file:" address: a POSIX path, or a Windows path when a drive letter leads it. A host name is
// dropped. Nothing when the text is no such address or no path can be made of it.
std::optional<std::string> PfadAusUri(std::string_view Adresse);

}  // namespace liedwerk
