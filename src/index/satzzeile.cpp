#include "index/satzzeile.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "basis/pfad.h"
#include "basis/text.h"
#include "index/indexformat.h"
#include "index/wert.h"

namespace liedwerk {
namespace {

// Nothing bounds a value in memory but this: 43 of them stay below the 32 bits of a line's length.
constexpr std::size_t HöchsteSpeicherlänge = 64U << 20;

std::size_t Platznummer(int Feld) {
    return static_cast<std::size_t>(Feld - 1);
}

// Reads a length of a well-formed line; Stelle moves onto the "/" or "|" behind it.
std::size_t LängeNehmen(const char*& Stelle) {
    std::size_t Länge = 0;
    for (; *Stelle >= '0' && *Stelle <= '9'; ++Stelle) {
        Länge = Länge * 10 + static_cast<std::size_t>(*Stelle - '0');
    }
    return Länge;
}

// Makes the raw value of a member; texts of pure ASCII are taken by view.
struct Rohform {
    std::string& Halter;
    const Datensatz& Satz;

    std::string_view Halten(std::string Neu) const {
        Halter = std::move(Neu);
        return Halter;
    }
    std::string_view operator()(std::monostate) const { return {}; }
    std::string_view operator()(std::string Datensatz::*Ort) const { return AusText(Satz.*Ort); }
    std::string_view AusText(std::string_view Text) const {
        Text = Text.substr(0, HöchsteSpeicherlänge);
        return IstAscii(Text) ? Text : Halten(IndexwertSchreiben(Text));
    }
    template <class Ganzzahl>
    std::string_view operator()(Ganzzahl Datensatz::*Ort) const {
        return Halten(std::to_string(Satz.*Ort));
    }
    std::string_view operator()(bool Datensatz::*Ort) const { return Satz.*Ort ? "1" : "0"; }
    std::string_view operator()(std::uint8_t Datensatz::*Ort) const {
        return Halten(std::string(1, static_cast<char>(Satz.*Ort)));
    }
    std::string_view operator()(std::optional<std::uint8_t> Datensatz::*Ort) const {
        const auto& Wert = Satz.*Ort;
        return Wert ? Halten(std::to_string(*Wert)) : std::string_view();
    }
};

// The way back; the values are known to be canonical.
struct Rückform {
    std::string_view Wert;
    int Feld;
    Datensatz& Satz;

    void operator()(std::monostate) const {}
    void operator()(std::string Datensatz::*Ort) const { IndexwertLesenAnhängen(Satz.*Ort, Wert); }
    template <class Ganzzahl>
    void operator()(Ganzzahl Datensatz::*Ort) const {
        Satz.*Ort = static_cast<Ganzzahl>(RohwertZahl(Wert, Feld));
    }
    void operator()(std::optional<std::uint8_t> Datensatz::*Ort) const {
        if (!Wert.empty()) Satz.*Ort = static_cast<std::uint8_t>(RohwertZahl(Wert, Feld));
    }
};

}  // namespace

Datensatz DatensatzVorZeile() {
    Datensatz Satz;
    Satz.HatId3v1 = TagFehlt;
    Satz.HatId3v2 = TagFehlt;
    Satz.Größe = -1;
    Satz.V2Qualität = KeineV2Qualität;
    return Satz;
}

int SatzzeileZerlegen(const char* Zeile, Rohwerte& Werte) {
    std::array<std::size_t, FeldAnzahl> Längen;
    const char* Stelle = Zeile + Datenzeile.size();
    std::size_t Anzahl = 0;
    do {
        Längen[Anzahl++] = LängeNehmen(Stelle);
    } while (*Stelle++ == '/');
    for (std::size_t i = 0; i < Anzahl; ++i) {
        Werte[i] = {Stelle, Längen[i]};
        Stelle += Längen[i];
    }
    std::fill(Werte.begin() + static_cast<std::ptrdiff_t>(Anzahl), Werte.end(), std::string_view());
    return static_cast<int>(Anzahl);
}

std::string_view SatzzeileFeld(const char* Zeile, int Feld) {
    const char* Stelle = Zeile + Datenzeile.size();
    std::size_t Davor = 0;
    for (int Nummer = 1; Nummer < Feld; ++Nummer) {
        Davor += LängeNehmen(Stelle);
        if (*Stelle++ == '|') return {};
    }
    const std::size_t Gesucht = LängeNehmen(Stelle);
    // Most fields that are asked for stand among the first: the lengths behind are passed over in one go.
    // There is a "|" behind them, and no NUL in front of it.
    return {std::strchr(Stelle, '|') + 1 + Davor, Gesucht};
}

void SatzzeileFelder(const char* Zeile, std::span<const int> Gesuchte, std::span<std::string_view> Werte) {
    // Until the "|" is found the values are told by their distance from it.
    std::array<std::size_t, FeldAnzahl> Davor{};
    const char* Stelle = Zeile + Datenzeile.size();
    std::size_t Summe = 0;
    std::size_t Gefunden = 0;
    bool Weiter = true;
    for (int Nummer = 1; Weiter && Gefunden < Gesuchte.size(); ++Nummer) {
        const std::size_t Länge = LängeNehmen(Stelle);
        Weiter = *Stelle++ == '/';
        if (Nummer == Gesuchte[Gefunden]) {
            Davor[Gefunden] = Summe;
            Werte[Gefunden++] = {Stelle, Länge};
        }
        Summe += Länge;
    }
    const char* const Anfang = Weiter ? std::strchr(Stelle, '|') + 1 : Stelle;
    for (std::size_t i = 0; i < Gesuchte.size(); ++i)
        Werte[i] = i < Gefunden ? std::string_view(Anfang + Davor[i], Werte[i].size()) : std::string_view();
}

void SatzzeileBilden(std::string& Zeile, const Rohwerte& Werte, int Anzahl) {
    const std::size_t Menge = static_cast<std::size_t>(Anzahl);
    Zeile = Datenzeile;
    for (std::size_t i = 0; i < Menge; ++i) {
        if (i > 0) Zeile += '/';
        if (Werte[i].empty()) continue;
        std::array<char, 24> Ziffern;
        const auto Ende = std::to_chars(Ziffern.data(), Ziffern.data() + Ziffern.size(), Werte[i].size()).ptr;
        Zeile.append(Ziffern.data(), Ende);
    }
    Zeile += '|';
    for (std::size_t i = 0; i < Menge; ++i)
        Zeile += Werte[i];
}

int ErweiterungVorgeben(Rohwerte& Werte) {
    static const Datensatz Leer = DatensatzVorZeile();
    static const Rohsatz Vorgabe({}, Leer);
    std::copy(Vorgabe.Werte.begin() + GrundfeldAnzahl, Vorgabe.Werte.end(), Werte.begin() + GrundfeldAnzahl);
    return FeldAnzahl;
}

bool ErweiterungWirdGeschrieben(const Rohwerte& Werte, std::uint8_t HatId3v2) {
    return HatId3v2 == TagVorhanden || !Werte[Platznummer(FeldBenutzerDaten)].empty() ||
           RohwertZahl(Werte[Platznummer(FeldQualität)], FeldQualität) > 0;
}

bool IstSpeicherform(const Rohwerte& Werte, int Anzahl, std::uint8_t HatId3v2) {
    if (ErweiterungWirdGeschrieben(Werte, HatId3v2) != (Anzahl == FeldAnzahl)) return false;
    for (int Feld = 1; Feld <= Anzahl; ++Feld) {
        const std::string_view Wert = Werte[Platznummer(Feld)];
        if (Wert.size() > static_cast<std::size_t>(HöchsteLänge)) return false;
        if (Feld != FeldV2Qualität && HatZeilenende(Wert)) return false;
    }
    return true;
}

std::string Rohwert(const Datensatz& Daten, int Feld) {
    std::string Halter;
    return std::string(std::visit(Rohform{Halter, Daten}, Felder[Platznummer(Feld)].Ort));
}

Rohsatz::Rohsatz(std::string_view Pfad, const Datensatz& Daten) {
    for (const auto& Feld : Felder) {
        const std::size_t i = Platznummer(Feld.Nummer);
        Werte[i] = std::visit(Rohform{Halter[i], Daten}, Feld.Ort);
    }
    Werte[0] = Rohform{Halter[0], Daten}.AusText(Pfad);
}

int Rohsatz::FeldAnzahlImSpeicher() const {
    for (int Feld = GrundfeldAnzahl + 1; Feld <= FeldAnzahl; ++Feld) {
        const std::string_view Wert = Werte[Platznummer(Feld)];
        switch (Felder[Platznummer(Feld)].Inhalt) {
            case Feldinhalt::Zahl:
            case Feldinhalt::Zeichen:
                if (RohwertZahl(Wert, Feld) != RohwertZahl({}, Feld)) return FeldAnzahl;
                break;
            default:
                if (!Wert.empty()) return FeldAnzahl;
        }
    }
    return GrundfeldAnzahl;
}

Datensatz DatensatzVonRohwerten(const Rohwerte& Werte, int Anzahl) {
    Datensatz Satz = DatensatzVorZeile();
    for (int Feld = 2; Feld <= Anzahl; ++Feld) {
        std::visit(Rückform{Werte[Platznummer(Feld)], Feld, Satz}, Felder[Platznummer(Feld)].Ort);
    }
    return Satz;
}

std::int64_t RohwertZahl(std::string_view Wert, int Feld) {
    if (Wert.empty()) {
        switch (Feld) {
            case FeldGröße:
                return -1;
            case FeldGenre:
                return KeinGenre;
            case FeldV2Qualität:
                return KeineV2Qualität;
            default:
                return 0;
        }
    }
    if (Feld == FeldV2Qualität) return static_cast<unsigned char>(Wert.front());
    std::int64_t Zahl = 0;
    std::from_chars(Wert.data(), Wert.data() + Wert.size(), Zahl);
    return Zahl;
}

}  // namespace liedwerk
