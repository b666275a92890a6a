// Writing one JSON document (RFC 8259), piece by piece, to a sink that takes bytes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "basis/jsontext.h"
#include "ui/text/ausgabe.h"

namespace liedwerk {

// The caller keeps the order: Name before each value inside an object, none inside a list.
class JsonSchreiber {
  public:
    explicit JsonSchreiber(Ausgabe& Wohin) : Ziel(Wohin) {}

    void ObjektAnfang() { Öffnen('{'); }
    void ObjektEnde() { Schließen('}'); }
    void ListeAnfang() { Öffnen('['); }
    void ListeEnde() { Schließen(']'); }
    void Name(std::string_view Schlüssel);
    void Text(std::string_view Inhalt);
    void Zahl(std::int64_t Inhalt);
    void Wahrheit(bool Inhalt);
    void Null();

    // The common pairs of a name and its value.
    void Text(std::string_view Schlüssel, std::string_view Inhalt);
    void Zahl(std::string_view Schlüssel, std::int64_t Inhalt);
    void Wahrheit(std::string_view Schlüssel, bool Inhalt);

  private:
    void Trennen();
    void Öffnen(char Klammer);
    void Schließen(char Klammer);

    Ausgabe& Ziel;
    int Tiefe = 0;
    bool KommaNötig = false;
};

}  // namespace liedwerk
