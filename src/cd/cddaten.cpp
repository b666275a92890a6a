#include "cd/cddaten.h"

#include "basis/text.h"

namespace liedwerk {

void CDVergessen(CDStand& Stand) {
    Stand.CDDBZuletztID.clear();
    Stand.CDDBZuletztLaufwerk.clear();
}

bool CDIDGültig(std::string_view ID) {
    constexpr std::string_view Ziffern = "0123456789abcdefABCDEF";
    return ID.size() == 8 && ID.find_first_not_of(Ziffern) == std::string_view::npos;
}

std::string CDEinzeilig(std::string_view Text) {
    return CDOhneSteuerzeichen(Ersetzen(Ersetzen(Ersetzen(Text, "\r\n", " "), "\r", " "), "\n", " "));
}

std::string CDOhneSteuerzeichen(std::string_view Text) {
    std::string Sauber;
    Sauber.reserve(Text.size());
    for (std::size_t Stelle = 0; Stelle < Text.size();) {
        const char32_t Zeichen = ZeichenLesen(Text, Stelle);
        const bool Steuert = Zeichen < 0x20 || (Zeichen >= 0x7F && Zeichen < 0xA0);
        ZeichenAnhängen(Sauber, Steuert && Zeichen != '\r' && Zeichen != '\n' ? U' ' : Zeichen);
    }
    return Sauber;
}

void CDProtokollieren(CDDaten& Daten, std::string_view Zeile) {
    Daten.Protokoll.append(Zeile).append("\r\n");
}

}  // namespace liedwerk
