// The web in memory: replies by script, the requests kept for the test to look at.
#pragma once

#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "plattform/http.h"

namespace liedwerk::speicher {

class Netz final : public Http {
  public:
    std::deque<std::string> Antworten;  // bodies to come, in order; without one the connection fails
    std::string Umleitung;              // not empty: every reply is a redirection there
    std::vector<Httpanfrage> Gestellt;

    Httpantwort Anfragen(const Httpanfrage& Anfrage, const std::function<bool()>& Weiter) override {
        Gestellt.push_back(Anfrage);
        if (!Weiter()) return {Httpfehler::Abgebrochen, {}, 0, {}};
        if (!Umleitung.empty()) return {Httpfehler::Keiner, {}, 302, "<html>", Umleitung};
        if (Antworten.empty()) return {Httpfehler::Verbindung, {}, 0, {}};
        Httpantwort Nächste{Httpfehler::Keiner, {}, 200, std::move(Antworten.front())};
        Antworten.pop_front();
        return Nächste;
    }
};

}  // namespace liedwerk::speicher
