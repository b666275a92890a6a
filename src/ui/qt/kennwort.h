// The password of the lock: what is stored of it, and the test. Stored is
// "pbkdf2-sha256$<rounds>$<salt>$<key>" (RFC 8018, salt and key in hexadecimal digits); the password itself
// cannot be got back from it.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace liedwerk {

// Takes some tenths of a second, and so does every guess. Equal passwords give different texts.
std::string KennwortAblegen(const QString& Kennwort);

enum class Kennwortprüfung {
    Richtig,
    Falsch,
    Unlesbar,  // not of this form (an old scrambled value, a damaged one): nothing can be tested against it
};
Kennwortprüfung KennwortPrüfen(std::string_view Abgelegt, const QString& Kennwort);
// True when KennwortPrüfen could answer with Richtig.
bool KennwortLesbar(std::string_view Abgelegt);

}  // namespace liedwerk
