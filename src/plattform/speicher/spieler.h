// Player and programs in memory: everything that is sent or started is kept for the test to look at.
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "basis/datei.h"
#include "plattform/programmstart.h"
#include "plattform/spieler.h"

namespace liedwerk::speicher {

class Spieler final : public Spielerkanal {
  public:
    std::string Klasse;  // of the player that runs; empty: none
    int Zustand = 0;
    int Position = -1;  // milliseconds
    int Länge = -1;     // seconds
    Spielerlage Stand;
    std::vector<std::array<int, 3>> Gesendet;  // message, wParam, lParam of the commands
    std::vector<std::string> Gesucht;
    bool Stumm = false;

    Spielerfenster Finden(const Spielerprofil& Profil) override {
        Gesucht.emplace_back(Profil.Klasse);
        return !Klasse.empty() && Profil.Klasse == Klasse ? 7 : 0;
    }
    std::int64_t Senden(Spielerfenster, int Nachricht, int wParam, int lParam) override {
        if (Nachricht == NachrichtBenutzer && lParam == SpielerZustandFragen) return Zustand;
        if (Nachricht == NachrichtBenutzer && lParam == SpielerZeitFragen)
            return wParam == 0 ? Position : Länge;
        Gesendet.push_back({Nachricht, wParam, lParam});
        return 0;
    }
    Spielerlage Lage(Spielerfenster) const override { return Stand; }
    bool Umgesehen() const override { return true; }
    bool Schweigt() const override { return Stumm; }
};

class Programme final : public Programmstart {
  public:
    struct Start {
        std::string Programm;
        std::vector<std::string> Argumente;
        std::string Playliste;  // what the last argument held at the start, when it was a play list
    };
    std::vector<Start> Starts;
    std::vector<std::string> Geöffnet;
    std::map<std::string, std::string, std::less<>> Installiert;
    bool Scheitert = false;
    bool Laufend = false;

    Programmlaufnummer Starten(std::string_view Programm,
                               const std::vector<std::string>& Argumente) override {
        Start Neu{std::string(Programm), Argumente, {}};
        if (!Argumente.empty() && Argumente.back().ends_with(".m3u"))
            Neu.Playliste = DateiLesen(Argumente.back()).value_or("");
        Starts.push_back(Neu);
        if (Scheitert) return {0, "geht nicht"};
        return {1};
    }
    bool Läuft(const Programmlaufnummer&) const override { return Laufend; }
    Programmlaufnummer MitAnwendungÖffnen(std::string_view Pfad) override {
        Geöffnet.emplace_back(Pfad);
        if (Scheitert) return {0, "geht nicht"};
        return {1};
    }
    std::string Finden(std::string_view Name) const override {
        const auto Fund = Installiert.find(Name);
        return Fund == Installiert.end() ? std::string() : Fund->second;
    }
};

}  // namespace liedwerk::speicher
