// The world in memory: a clock that stands, drives whose media come and go, a store of values.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "basis/uhr.h"
#include "plattform/laufwerke.h"
#include "plattform/wertspeicher.h"

namespace liedwerk::speicher {

// Stands until it is set; waiting moves only its milliseconds. File times are shown as UTC.
class StehendeUhr final : public Uhr {
  public:
    Zeitpunkt Punkt{2026, 11, 21, 12, 0, 0};
    mutable std::int64_t Vergangen = 0;
    Zeitpunkt Jetzt() const override { return Punkt; }
    Zeitpunkt Lokal(std::int64_t Unixzeit) const override { return AusKalendersekunden(Unixzeit); }
    std::int64_t Millisekunden() const override { return Vergangen; }
    void Warten(std::int64_t Dauer) const override { Vergangen += Dauer; }
};

// Drives by their name; a path belongs to the longest drive that begins it (Windows style: its first 3
// characters).
class Laufwerksliste final : public Laufwerke {
  public:
    struct Laufwerk {
        Laufwerksart Art = Laufwerksart::Fest;
        std::string Datenträger;
        bool Vorhanden = true;
    };
    std::map<std::string, Laufwerk, std::less<>> Liste;
    mutable int Fragen = 0;

    std::string LaufwerkVon(std::string_view Pfad) const override {
        if (!Pfad.starts_with('/')) return std::string(Pfad.substr(0, 3));
        std::string Längstes = "/";
        for (const auto& [Name, Inhalt] : Liste) {
            if (Pfad.starts_with(Name) && Name.size() > Längstes.size()) Längstes = Name;
        }
        return Längstes;
    }
    Laufwerksart Art(std::string_view Name) const override {
        ++Fragen;
        const auto Fund = Liste.find(Name);
        return Fund == Liste.end() ? Laufwerksart::Fest : Fund->second.Art;
    }
    std::string Datenträgername(std::string_view Name) const override {
        ++Fragen;
        const auto Fund = Liste.find(Name);
        return Fund == Liste.end() || !Fund->second.Vorhanden ? std::string() : Fund->second.Datenträger;
    }
    bool Vorhanden(std::string_view Name) const override {
        const auto Fund = Liste.find(Name);
        return Fund == Liste.end() || Fund->second.Vorhanden;
    }
};

class Werte final : public Wertspeicher {
  public:
    std::map<std::string, Speicherwert, std::less<>> Inhalt;
    std::string Sicherungsfehler;  // what Sichern answers
    std::optional<Speicherwert> Lesen(std::string_view Name) const override {
        const auto Fund = Inhalt.find(Name);
        return Fund == Inhalt.end() ? std::nullopt : std::optional<Speicherwert>(Fund->second);
    }
    void Schreiben(std::string_view Name, const Speicherwert& Neu) override {
        Inhalt[std::string(Name)] = Neu;
    }
    void Löschen(std::string_view Name) override {
        const auto Fund = Inhalt.find(Name);
        if (Fund != Inhalt.end()) Inhalt.erase(Fund);
    }
    std::string Sichern() override { return Sicherungsfehler; }
};

}  // namespace liedwerk::speicher
