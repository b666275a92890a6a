#include "plattform/httpleser.h"

#include <algorithm>
#include <charconv>

#include "basis/text.h"

namespace liedwerk {
namespace {

// A number made of digits alone; false for anything else, also for one beyond 64 bits.
bool Ziffern(std::string_view Text, int Basis, std::uint64_t& Wert) {
    const char* const Ende = Text.data() + Text.size();
    const auto [Bis, Fehler] = std::from_chars(Text.data(), Ende, Wert, Basis);
    return !Text.empty() && Fehler == std::errc() && Bis == Ende;
}

std::string_view OhneRand(std::string_view Text) {
    const auto Anfang = Text.find_first_not_of(" \t\r");
    if (Anfang == std::string_view::npos) return {};
    return Text.substr(Anfang, Text.find_last_not_of(" \t\r") + 1 - Anfang);
}

// Behind the empty line that ends a head; npos while it has not come.
std::size_t Kopfende(std::string_view Text) {
    const auto Lang = Text.find("\n\r\n");
    const auto Kurz = Text.find("\n\n");
    if (Lang == std::string_view::npos && Kurz == std::string_view::npos) return Lang;
    return Lang < Kurz ? Lang + 3 : Kurz + 2;
}

}  // namespace

bool Httpleser::Aufnehmen(std::string_view Bytes) {
    if (Jetzt == Lage::Fertig) return true;
    Empfangen += Bytes.size();
    Rest += Bytes;
    if (Jetzt == Lage::Kopf) KopfLesen();
    if (Jetzt != Lage::Kopf && Jetzt != Lage::Fertig) {
        while (Nehmen()) {
        }
        Rest.erase(0, Stelle);
        Stelle = 0;
        // What is complete within the bound counts, whatever came behind it.
        const bool Vollständig = Jetzt == Lage::Fertig;
        if (Vollständig ? Empfangen - Rest.size() > Grenzen.Gesamt : Platz() == 0)
            Scheitern(Httpfehler::Größe);
    }
    return Jetzt == Lage::Fertig;
}

void Httpleser::Enden() {
    if (Jetzt == Lage::Fertig) return;
    if (Jetzt == Lage::BisEnde) {
        Jetzt = Lage::Fertig;
    } else {
        Scheitern(Httpfehler::Verbindung);
    }
}

void Httpleser::Scheitern(Httpfehler Fehler) {
    Antwort.Fehler = Fehler;
    Antwort.Inhalt.clear();
    Jetzt = Lage::Fertig;
}

void Httpleser::KopfLesen() {
    std::size_t Ende = Kopfende(Rest);
    while (Jetzt == Lage::Kopf && Ende != std::string::npos) {
        Kopfgröße += Ende;
        if (Kopfgröße > Grenzen.Kopf) return Scheitern(Httpfehler::Größe);
        const std::string Kopf = Rest.substr(0, Ende);
        Rest.erase(0, Ende);
        LängeBekannt = Gestückelt = false;
        const std::vector<std::string> Zeilen = Teilen(Kopf, "\n");
        if (!StatusLesen(Zeilen.front())) return Scheitern(Httpfehler::Antwort);
        for (std::size_t i = 1; i < Zeilen.size(); ++i) {
            if (!FeldLesen(Zeilen[i])) return;
        }
        // "100 Continue" and its like announce the reply, they are none.
        if (Antwort.Status >= 200) InhaltBeginnen();
        Ende = Kopfende(Rest);
    }
    if (Jetzt == Lage::Kopf && Kopfgröße + Rest.size() > Grenzen.Kopf) Scheitern(Httpfehler::Größe);
}

bool Httpleser::StatusLesen(std::string_view Zeile) {
    std::uint64_t Zahl = 0;
    const auto Blank = Zeile.find(' ');
    if (!Zeile.starts_with("HTTP/1.") || Blank == std::string_view::npos ||
        !Ziffern(Zeile.substr(Blank + 1, 3), 10, Zahl) || Zahl < 100)
        return false;
    Antwort.Status = static_cast<int>(Zahl);
    return true;
}

bool Httpleser::FeldLesen(std::string_view Zeile) {
    const auto Trenner = Zeile.find(':');
    if (Trenner == std::string_view::npos) return true;
    const std::string_view Name = Zeile.substr(0, Trenner);
    const std::string_view Wert = OhneRand(Zeile.substr(Trenner + 1));
    if (GleichOhneGroß(Name, "Content-Length")) {
        const std::uint64_t Vorher = Fehlend;
        // Two lengths that differ leave open where the reply ends.
        if (!Ziffern(Wert, 10, Fehlend) || (LängeBekannt && Vorher != Fehlend)) {
            Scheitern(Httpfehler::Antwort);
            return false;
        }
        LängeBekannt = true;
    } else if (GleichOhneGroß(Name, "Transfer-Encoding") && !GleichOhneGroß(Wert, "identity")) {
        if (!GleichOhneGroß(Wert, "chunked")) {
            Scheitern(Httpfehler::Komprimiert);
            return false;
        }
        Gestückelt = true;
    } else if (GleichOhneGroß(Name, "Location") && Antwort.Status / 100 == 3) {
        Antwort.Umleitung = Wert;
    } else if (GleichOhneGroß(Name, "Content-Encoding") && !Wert.empty() &&
               !GleichOhneGroß(Wert, "identity")) {
        Scheitern(Httpfehler::Komprimiert);
        return false;
    }
    return true;
}

void Httpleser::InhaltBeginnen() {
    if (Antwort.Status == 204 || Antwort.Status == 304) {
        Jetzt = Lage::Fertig;
    } else if (Gestückelt) {
        Jetzt = Lage::Stückgröße;
    } else if (!LängeBekannt) {
        Jetzt = Lage::BisEnde;
    } else if (Kopfgröße > Grenzen.Gesamt || Fehlend > Grenzen.Gesamt - Kopfgröße) {
        Scheitern(Httpfehler::Größe);
    } else {
        Jetzt = Lage::Länge;
    }
}

// One step of the body; false when more bytes are needed or nothing more is wanted.
bool Httpleser::Nehmen() {
    std::string_view Zeile;
    switch (Jetzt) {
        case Lage::BisEnde:
            Antwort.Inhalt += Offen();
            Stelle = Rest.size();
            return false;
        case Lage::Länge:
        case Lage::Stück: {
            const std::string_view Teil =
                Offen().substr(0, static_cast<std::size_t>(std::min<std::uint64_t>(Fehlend, Rest.size())));
            Antwort.Inhalt += Teil;
            Stelle += Teil.size();
            Fehlend -= Teil.size();
            if (Fehlend > 0) return false;
            Jetzt = Jetzt == Lage::Länge ? Lage::Fertig : Lage::Stückende;
            return Jetzt != Lage::Fertig;
        }
        case Lage::Stückgröße:
            if (!ZeileNehmen(Zeile)) return false;
            StückgrößeLesen(Zeile);
            return Jetzt != Lage::Fertig;
        case Lage::Stückende:
            if (!ZeileNehmen(Zeile)) return false;
            if (Zeile.empty()) {
                Jetzt = Lage::Stückgröße;
                return true;
            }
            Scheitern(Httpfehler::Antwort);
            return false;
        case Lage::Nachspann:
            if (!ZeileNehmen(Zeile)) return false;
            if (Zeile.empty()) Jetzt = Lage::Fertig;
            return Jetzt != Lage::Fertig;
        case Lage::Kopf:
        case Lage::Fertig:
            return false;
    }
    return false;
}

// A line of the framing without its end; false while it has not come whole.
bool Httpleser::ZeileNehmen(std::string_view& Zeile) {
    const auto Ende = Offen().find('\n');
    if (Ende == std::string_view::npos) return false;
    Zeile = OhneRand(Offen().substr(0, Ende));
    Stelle += Ende + 1;
    return true;
}

void Httpleser::StückgrößeLesen(std::string_view Zeile) {
    if (!Ziffern(OhneRand(Zeile.substr(0, Zeile.find(';'))), 16, Fehlend)) {
        Scheitern(Httpfehler::Antwort);
    } else if (Fehlend > Grenzen.Gesamt) {
        Scheitern(Httpfehler::Größe);
    } else {
        Jetzt = Fehlend == 0 ? Lage::Nachspann : Lage::Stück;
    }
}

}  // namespace liedwerk
