// The port to the web: one request, one reply, everything bounded, and the caller can stop it at any time.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace liedwerk {

// What a reply may cost. A server that goes beyond is left; nothing of its reply is used.
struct Httpgrenzen {
    std::size_t Gesamt = std::size_t{1} << 20;  // bytes of the whole reply, as they are sent
    std::size_t Kopf = std::size_t{64} << 10;   // bytes of these in status lines and header fields
    std::chrono::milliseconds Gesamtdauer{
        16'000};  // of each request; two of them answer a question about a CD
};

struct Httpanfrage {
    std::string Url;                                              // "http://..." in the encoded form, ASCII
    std::vector<std::pair<std::string, std::string>> Kopfzeilen;  // further header fields
    std::optional<std::string> Inhalt;                            // the body of a POST; nothing: a GET
};

enum class Httpfehler {
    Keiner,
    Adresse,      // no address that this port can ask
    Wirt,         // the server's name is unknown
    Verbindung,   // refused, unreachable, or cut off ahead of the end of the reply
    Antwort,      // no reply of HTTP
    Zeit,         // not complete within Gesamtdauer
    Größe,        // larger than Httpgrenzen allow
    Komprimiert,  // the body is encoded, which was not asked for
    Abgebrochen,  // Weiter said so
};

struct Httpantwort {
    Httpfehler Fehler = Httpfehler::Keiner;
    std::string Einzelheit;   // what the system says of a failure, in its own words; may be empty
    int Status = 0;           // of HTTP; 0 without a reply
    std::string Inhalt;       // the body as it was sent, whatever the status; empty after a failure
    std::string Umleitung{};  // where a redirection leads, in the server's words
};

class Http {
  public:
    virtual ~Http() = default;
    // Sends a request and waits for the reply. Weiter is called many times a second meanwhile, in the
    // caller's thread, so that it can keep a window alive; false ends the wait. A redirection is not
    // followed: its own body is the reply. Nothing is thrown.
    virtual Httpantwort Anfragen(const Httpanfrage& Anfrage, const std::function<bool()>& Weiter) = 0;
};

}  // namespace liedwerk
