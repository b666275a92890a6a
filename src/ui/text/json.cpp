#include "ui/text/json.h"

namespace liedwerk {

// One entry of the outermost list a line: still one document, but a person and line tools can read it.
void JsonSchreiber::Trennen() {
    if (KommaNötig) Ziel.Schreiben(Tiefe == 1 ? ",\n" : ",");
    KommaNötig = true;
}

void JsonSchreiber::Öffnen(char Klammer) {
    Trennen();
    Ziel.Schreiben({&Klammer, 1});
    ++Tiefe;
    KommaNötig = false;
}

void JsonSchreiber::Schließen(char Klammer) {
    Ziel.Schreiben({&Klammer, 1});
    --Tiefe;
    KommaNötig = true;
    if (Tiefe == 0) Ziel.Schreiben("\n");
}

void JsonSchreiber::Name(std::string_view Schlüssel) {
    Trennen();
    Ziel.Schreiben(JsonText(Schlüssel));
    Ziel.Schreiben(":");
    KommaNötig = false;
}

void JsonSchreiber::Text(std::string_view Inhalt) {
    Trennen();
    Ziel.Schreiben(JsonText(Inhalt));
}

void JsonSchreiber::Zahl(std::int64_t Inhalt) {
    Trennen();
    Ziel.Schreiben(std::to_string(Inhalt));
}

void JsonSchreiber::Wahrheit(bool Inhalt) {
    Trennen();
    Ziel.Schreiben(Inhalt ? "true" : "false");
}

void JsonSchreiber::Null() {
    Trennen();
    Ziel.Schreiben("null");
}

void JsonSchreiber::Text(std::string_view Schlüssel, std::string_view Inhalt) {
    Name(Schlüssel);
    Text(Inhalt);
}

void JsonSchreiber::Zahl(std::string_view Schlüssel, std::int64_t Inhalt) {
    Name(Schlüssel);
    Zahl(Inhalt);
}

void JsonSchreiber::Wahrheit(std::string_view Schlüssel, bool Inhalt) {
    Name(Schlüssel);
    Wahrheit(Inhalt);
}

}  // namespace liedwerk
