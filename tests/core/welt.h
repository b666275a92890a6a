// A whole run of the core in a temporary folder: real files, a scripted person, a window that keeps what it
// was told.
#pragma once

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "basis/datei.h"
#include "core/anwendung.h"
#include "plattform/linux/ordner.h"
#include "plattform/speicher/person.h"
#include "plattform/speicher/welt.h"
#include "werkzeuge/tagbau.h"

namespace liedwerk {

// Writes every call that matters into Rufe, in order; answers from its members.
class Merkfenster final : public Hauptfenster {
  public:
    std::vector<std::string> Rufe;
    Suchzeile Zeile;
    Fensterlage Lage;
    int Lautstärke = 100;
    int Tipps = 0;
    int Beendenantwort = 0;
    bool Immer = false;
    std::function<void()> InListeFreigeben;  // a fault in the middle of a stage

    bool Gerufen(std::string_view Ruf) const {
        return std::find(Rufe.begin(), Rufe.end(), Ruf) != Rufe.end();
    }
    void Merken(std::string Ruf) { Rufe.push_back(std::move(Ruf)); }

    std::optional<Steuerelemente> FehlendesSteuerelement;  // a component that is damaged
    bool SteuerelementeBereit(Steuerelemente Art) override { return FehlendesSteuerelement != Art; }
    void ListeFreigeben(bool Frei) override {
        Merken(Frei ? "Liste frei" : "Liste gesperrt");
        if (InListeFreigeben) InListeFreigeben();
    }
    void IndexnameZeigen(std::string_view Name) override { Merken("Name " + std::string(Name)); }
    void SpaltenZeigen() override {}
    void ListeZeigen() override { Merken("Liste"); }
    void ZeilenAuswählen(std::size_t Letzte) override { Merken("Auswählen " + std::to_string(Letzte)); }
    void AuswahlZeigen() override {}
    void ZuletztGeladenZeigen() override {}
    Suchzeile SuchzeileLesen() const override { return Zeile; }
    void SuchzeileLeeren() override { Zeile = {}; }
    void VorschlägeZeigen(bool, const std::vector<std::string>&) override { Merken("Gesucht"); }
    void ErscheinungAnwenden() override { Merken("Erscheinung"); }
    void ReglerStellen(int Laut, int Balance) override {
        Merken("Regler " + std::to_string(Laut) + "/" + std::to_string(Balance));
    }
    void SymbolEinrichten() override { Merken("Symbol"); }
    void SymbolEntfernen() override { Merken("Symbol weg"); }
    void SymbolhinweisZeigen(std::string_view Titel, std::string_view) override {
        Merken("Hinweis " + std::string(Titel));
    }
    void LageSetzen(const Fensterlage& Neu) override {
        Merken(Neu.Zentriert ? "Zentriert"
                             : "Lage " + std::to_string(Neu.Links) + "," + std::to_string(Neu.Oben));
    }
    void Zeigen(bool Sichtbar) override { Merken(Sichtbar ? "Sichtbar" : "Versteckt"); }
    void WillkommenZeigen() override { Merken("Willkommen"); }
    void TippZeigen(int Nummer) override { Merken("Tipp " + std::to_string(Nummer)); }
    int TippAnzahl() const override { return Tipps; }
    void EigentümerZeigen(std::string_view Name) override { Merken("Eigentümer " + std::string(Name)); }
    void SperreZeigen() override { Merken("Sperre"); }
    void SuchfeldFokussieren() override { Merken("Fokus"); }
    void TagEditorZeigen() override { Merken("Editor"); }
    void ShellEinträgeAnmelden() override { Merken("Shell"); }
    void EreignisuhrStarten() override { Merken("Uhr"); }
    Terminantwort TerminMelden(const Terminmeldung& Meldung) override {
        Merken("Termin " + std::to_string(Meldung.Nummer));
        return {};
    }
    void VerpassteTermineZeigen(const Terminliste& Alle) override {
        Merken("Verpasst " + std::to_string(Alle.size()));
    }
    Fensterlage LageLesen() override { return Lage; }
    void Minimieren() override { Merken("Minimiert"); }
    void Verbergen() override { Merken("Verborgen"); }
    void Wiederherstellen() override { Merken("Zurück"); }
    int LautstärkeLesen() const override { return Lautstärke; }
    int BalanceLesen() const override { return 0; }
    void SpaltenÜbernehmen() override {}
    int BeendenFragen(bool& ImmerSo) override {
        Merken("Frage");
        ImmerSo = Immer;
        return Beendenantwort;
    }
};

class Kerntest : public ::testing::Test {
  protected:
    void SetUp() override {
        std::string Muster = (std::filesystem::temp_directory_path() / "liedwerk-kern-XXXXXX").string();
        ASSERT_NE(::mkdtemp(Muster.data()), nullptr);
        Ordner = Muster;
        std::filesystem::create_directory(Ordner + "/programm");
        NeuerLauf();
    }
    void TearDown() override {
        P.reset();
        std::filesystem::remove_all(Ordner);
    }
    // A fresh start of the program on the same settings and files.
    void NeuerLauf() {
        Person = {};
        Fenster = {};
        P = std::make_unique<Anwendung>(Dienste{Person, Fenster, Uhrzeit, Drives, Leser, nullptr, Werte,
                                                nullptr, Ordner + "/programm", "", "Testsystem 1"});
    }
    std::string Datei(std::string_view Name, std::string_view Inhalt) {
        const std::string Pfad = Ordner + "/" + std::string(Name);
        std::filesystem::create_directories(std::filesystem::path(Pfad).parent_path());
        std::ofstream(Pfad, std::ios::binary) << Inhalt;
        return Pfad;
    }
    std::string Lied(std::string_view Name, std::string_view Titel) {
        tagbau::Id3v1Angaben Angaben;
        Angaben.Titel = Titel;
        return Datei(Name, tagbau::MpegRahmen({}, 4) + tagbau::Id3v1Block(Angaben));
    }
    std::string Standard() const { return Ordner + "/programm/lwStamm.lwi"; }
    // The log's lines without their stamps.
    std::vector<std::string> Logzeilen() const {
        std::vector<std::string> Zeilen;
        std::ifstream Eingabe(Ordner + "/programm/log.txt", std::ios::binary);
        for (std::string Zeile; std::getline(Eingabe, Zeile);) {
            if (const auto Stelle = Zeile.find(" 21.11.2026"); Stelle != std::string::npos)
                Zeile.resize(Stelle);
            while (!Zeile.empty() && Zeile.back() == '\r')
                Zeile.pop_back();
            Zeilen.push_back(Zeile);
        }
        return Zeilen;
    }

    std::string Ordner;
    speicher::Person Person;
    speicher::StehendeUhr Uhrzeit;
    speicher::Laufwerksliste Drives;
    speicher::Werte Werte;
    Systemordnerleser Leser;
    Merkfenster Fenster;
    std::unique_ptr<Anwendung> P;
};

}  // namespace liedwerk
