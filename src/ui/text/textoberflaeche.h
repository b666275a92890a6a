// The person at a command line: messages and questions on standard error, answers given beforehand.
#pragma once

#include <cstdint>
#include <string>

#include "basis/oberflaeche.h"
#include "basis/uhr.h"
#include "core/hauptfenster.h"

namespace liedwerk {

class Textoberfläche final : public Oberfläche {
  public:
    // Ja answers every question; once a signal has asked for the end, every answer is to cancel.
    // MitFortschritt shows progress and status lines, overwritten in place.
    Textoberfläche(const Uhr& Zeit, bool Ja, bool MitFortschritt);
    ~Textoberfläche() override;
    Textoberfläche(const Textoberfläche&) = delete;
    Textoberfläche& operator=(const Textoberfläche&) = delete;

    void Melden(Symbol Zeichen, std::string_view Text) override;
    Antwort Fragen(Symbol Zeichen, std::string_view Text, Knöpfe Auswahl, Antwort Vorgabe) override;
    void StatusZeigen(std::string_view Text, int Dauer) override;
    // Looks once: nobody is there who could put the medium in.
    Verfügbarkeitsantwort DateiNichtVerfügbarZeigen(const Verfügbarkeitsfrage& Frage) override;
    bool DateiNichtVerfügbarSchreibenZeigen(const Schreibsperrfrage& Frage) override;
    void FortschrittStarten(std::string_view Titel, bool MitProzent, std::int64_t Höchstens) override;
    bool FortschrittZeigen(std::string_view Text, std::int64_t Position) override;
    void FortschrittSchließen() override;
    bool FortschrittOffen() const override { return Offen; }
    void EreignisseVerarbeiten() override {}
    // While false, a signal cancels nothing: what an interrupted run has done is still to be saved.
    void AbbruchErlauben(bool Erlaubt) { AbbruchErlaubt = Erlaubt; }

  private:
    // A signal has asked for the end of the run.
    bool Abbruch() const;
    void ZeileLöschen();

    const Uhr& Zeit;
    const bool AllesJa;
    const bool Zeigen;
    bool AbbruchErlaubt = true;
    bool Offen = false;
    bool Prozent = false;
    bool ZeileSteht = false;
    std::int64_t Obergrenze = 0;
    std::int64_t LetztePosition = 0;
    std::int64_t NächstesMal = 0;  // Millisekunden
    std::string Überschrift;
    std::string LetzterText;
};

// The main window where there is none.
class OhneFenster final : public Hauptfenster {
  public:
    bool SteuerelementeBereit(Steuerelemente) override { return true; }
    void ListeFreigeben(bool) override {}
    void IndexnameZeigen(std::string_view) override {}
    void SpaltenZeigen() override {}
    void ListeZeigen() override {}
    void ZeilenAuswählen(std::size_t) override {}
    void AuswahlZeigen() override {}
    void ZuletztGeladenZeigen() override {}
    Suchzeile SuchzeileLesen() const override { return {}; }
    void SuchzeileLeeren() override {}
    void VorschlägeZeigen(bool, const std::vector<std::string>&) override {}
    void ErscheinungAnwenden() override {}
    void ReglerStellen(int, int) override {}
    void SymbolEinrichten() override {}
    void SymbolEntfernen() override {}
    void SymbolhinweisZeigen(std::string_view, std::string_view) override {}
    void LageSetzen(const Fensterlage&) override {}
    void Zeigen(bool) override {}
    void WillkommenZeigen() override {}
    void TippZeigen(int) override {}
    int TippAnzahl() const override { return 0; }
    void EigentümerZeigen(std::string_view) override {}
    void SperreZeigen() override {}
    void SuchfeldFokussieren() override {}
    void TagEditorZeigen() override {}
    void ShellEinträgeAnmelden() override {}
    void EreignisuhrStarten() override {}
    Terminantwort TerminMelden(const Terminmeldung&) override { return {}; }
    void VerpassteTermineZeigen(const Terminliste& Verpasste) override;
    Fensterlage LageLesen() override { return {}; }
    void Minimieren() override {}
    void Verbergen() override {}
    void Wiederherstellen() override {}
    int LautstärkeLesen() const override { return 0; }
    int BalanceLesen() const override { return 0; }
    void SpaltenÜbernehmen() override {}
    int BeendenFragen(bool&) override { return 0; }
};

}  // namespace liedwerk
