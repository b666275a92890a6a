// The person in memory: a script answers the questions, everything shown is kept for the test to look at.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "basis/oberflaeche.h"
#include "basis/protokoll.h"

namespace liedwerk::speicher {

class Person final : public Oberfläche {
  public:
    // Answers to come, in order; without one the preset button is pressed.
    std::deque<Antwort> Antworten;
    std::deque<Verfügbarkeitsantwort> Verfügbarkeiten;
    std::deque<Vorhandenantwort> Vorhandene;  // without one the file is skipped
    // FortschrittZeigen gives false from this call on (1-based); 0: never.
    std::int64_t AbbruchBei = 0;
    // Runs at every turn of the event loop.
    std::function<void()> Zwischendurch;
    // Runs while a question stands.
    std::function<void()> BeimFragen;

    std::vector<std::string> Meldungen;
    std::vector<std::string> Gefragt;
    std::vector<std::string> Status;
    std::vector<std::string> Titel;
    std::int64_t Zeigungen = 0;
    int Offen = 0;

    void Melden(Symbol, std::string_view Text) override { Meldungen.emplace_back(Text); }
    Antwort Fragen(Symbol, std::string_view Text, Knöpfe, Antwort Vorgabe) override {
        Gefragt.emplace_back(Text);
        if (BeimFragen) BeimFragen();
        if (Antworten.empty()) return Vorgabe;
        const Antwort Nächste = Antworten.front();
        Antworten.pop_front();
        return Nächste;
    }
    void StatusZeigen(std::string_view Text, int) override { Status.emplace_back(Text); }
    Verfügbarkeitsantwort DateiNichtVerfügbarZeigen(const Verfügbarkeitsfrage& Frage) override {
        Gefragt.push_back(Frage.Text);
        std::string Aktuell;
        if (Frage.Nachsehen && Frage.Nachsehen(Aktuell)) return Verfügbarkeitsantwort::Verfügbar;
        if (Verfügbarkeiten.empty()) return Verfügbarkeitsantwort::Überspringen;
        const auto Nächste = Verfügbarkeiten.front();
        Verfügbarkeiten.pop_front();
        return Nächste;
    }
    // Looks once, as the dialog's clock does; without success the person skips.
    bool DateiNichtVerfügbarSchreibenZeigen(const Schreibsperrfrage& Frage) override {
        Gefragt.push_back(Frage.Text);
        return Frage.Nachsehen && Frage.Nachsehen();
    }
    Vorhandenantwort DateiExistiertZeigen(std::string_view Text) override {
        Gefragt.emplace_back(Text);
        if (Vorhandene.empty()) return Vorhandenantwort::Überspringen;
        const auto Nächste = Vorhandene.front();
        Vorhandene.pop_front();
        return Nächste;
    }
    void FortschrittStarten(std::string_view Überschrift, bool, std::int64_t) override {
        Titel.emplace_back(Überschrift);
        Offen = 1;
    }
    bool FortschrittZeigen(std::string_view, std::int64_t) override {
        ++Zeigungen;
        if (Zwischendurch) Zwischendurch();
        return AbbruchBei == 0 || Zeigungen < AbbruchBei;
    }
    void FortschrittSchließen() override { Offen = 0; }
    bool FortschrittOffen() const override { return Offen != 0; }
    void EreignisseVerarbeiten() override {
        if (Zwischendurch) Zwischendurch();
    }
};

// A log that keeps its lines.
class Protokollliste final : public Protokoll {
  public:
    std::vector<std::string> Zeilen;
    void Schreiben(std::string_view Zeile) override { Zeilen.emplace_back(Zeile); }
    bool Aktiv() const override { return true; }
};

}  // namespace liedwerk::speicher
