// Reading a reply of HTTP/1.x (RFC 9112) piece by piece, within bounds.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "plattform/http.h"

namespace liedwerk {

// Takes the bytes of a connection as they come. What it holds never grows beyond the bounds: bytes count as
// they are sent, with all heads and the framing of chunks.
class Httpleser {
  public:
    explicit Httpleser(const Httpgrenzen& Erlaubt) : Grenzen(Erlaubt) {}

    // True when nothing more is wanted: the reply is complete, or it has failed.
    bool Aufnehmen(std::string_view Bytes);
    // How many more bytes the reply may have; above 0 until Aufnehmen says true.
    std::size_t Platz() const { return Grenzen.Gesamt - std::min(Empfangen, Grenzen.Gesamt); }
    // The connection is at its end: a reply of unknown length is complete now, any other has failed.
    void Enden();

    // The reply, once Aufnehmen said true or after Enden.
    Httpantwort Antwort;

  private:
    enum class Lage { Kopf, Länge, BisEnde, Stückgröße, Stück, Stückende, Nachspann, Fertig };

    void Scheitern(Httpfehler Fehler);
    void KopfLesen();
    bool StatusLesen(std::string_view Zeile);
    bool FeldLesen(std::string_view Zeile);
    void InhaltBeginnen();
    std::string_view Offen() const { return std::string_view(Rest).substr(Stelle); }
    bool Nehmen();
    bool ZeileNehmen(std::string_view& Zeile);
    void StückgrößeLesen(std::string_view Zeile);

    Httpgrenzen Grenzen;
    Lage Jetzt = Lage::Kopf;
    std::string Rest;  // received; judged up to Stelle
    std::size_t Stelle = 0;
    std::size_t Empfangen = 0;  // bytes of the connection
    std::size_t Kopfgröße = 0;  // bytes of all heads: interim replies have one of their own
    std::uint64_t Fehlend = 0;  // bytes to come of the body or of the present chunk
    bool LängeBekannt = false;
    bool Gestückelt = false;
};

}  // namespace liedwerk
