// HTTP over a socket of Qt Network.
//
// Qt's own client of HTTP has no bound for the head of a reply: a server that sends header fields without
// end holds its thread and its memory. So the socket, the look-up of names and the proxies are Qt's, and the
// reply is read by plattform/httpleser.h.
#pragma once

#include "plattform/http.h"

namespace liedwerk {

// Each request runs in a thread of its own, so that neither a slow server nor a slow look-up of its name
// holds the caller. The desktop's proxy settings hold.
class Qthttp final : public Http {
  public:
    explicit Qthttp(const Httpgrenzen& Erlaubt = {}) : Grenzen(Erlaubt) {}
    Httpantwort Anfragen(const Httpanfrage& Anfrage, const std::function<bool()>& Weiter) override;

  private:
    Httpgrenzen Grenzen;
};

}  // namespace liedwerk
