// The port to the main window: what the flows of the core tell it, in the words of its controls.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "termine/pruefen.h"

namespace liedwerk {

// The search row as it stands.
struct Suchzeile {
    std::string Begriff;  // txtSongname
    std::string Feld;     // text of the chosen entry of cboSuche
    bool Aktiv = true;    // cboSuche is enabled
};

// What a window needs to stand at its place.
struct Fensterlage {
    bool Zentriert = true;  // at its design size; otherwise the numbers below
    int Links = 0;
    int Oben = 0;
    int Breite = 0;
    int Höhe = 0;
    bool Maximiert = false;
};

// Kinds of interface components that the start looks at before it uses them.
enum class Steuerelemente { Listen, BildFelder, TraySymbole, GrafischeMenüs, NeueBildFelder };

class Hauptfenster {
  public:
    virtual ~Hauptfenster() = default;

    // Touches one object of this kind; false when the component behind it is missing or damaged.
    virtual bool SteuerelementeBereit(Steuerelemente Art) = 0;

    // List and labels.
    virtual void ListeFreigeben(bool Frei) = 0;               // the list can be used
    virtual void IndexnameZeigen(std::string_view Name) = 0;  // label of the index file
    virtual void SpaltenZeigen() = 0;                         // columns of the list were arranged anew
    virtual void ListeZeigen() = 0;                           // rows, selection and counts changed
    virtual void ZeilenAuswählen(std::size_t Letzte) = 0;     // select the last rows and show them
    virtual void AuswahlZeigen() = 0;                         // description and function pane
    virtual void ZuletztGeladenZeigen() = 0;                  // the recent files changed
    // Search row.
    virtual Suchzeile SuchzeileLesen() const = 0;
    virtual void SuchzeileLeeren() = 0;  // first entry, empty text, enabled, no search
    virtual void VorschlägeZeigen(bool Gefunden, const std::vector<std::string>& Vorschläge) = 0;
    // Stages of the start and the end.
    virtual void ErscheinungAnwenden() = 0;  // colours and fonts from the settings
    virtual void ReglerStellen(int Lautstärke, int Balance) = 0;
    virtual void SymbolEinrichten() = 0;  // tray symbol
    virtual void SymbolEntfernen() = 0;
    virtual void SymbolhinweisZeigen(std::string_view Titel, std::string_view Text) = 0;
    virtual void LageSetzen(const Fensterlage& Lage) = 0;
    virtual void Zeigen(bool Sichtbar) = 0;   // false: only the tray symbol stands for it
    virtual void WillkommenZeigen() = 0;      // information window of the first start, modal
    virtual void TippZeigen(int Nummer) = 0;  // tips window, modal
    virtual int TippAnzahl() const = 0;
    virtual void EigentümerZeigen(std::string_view Name) = 0;  // the owner's window, modal
    virtual void SperreZeigen() = 0;                           // lock window, modal
    virtual void SuchfeldFokussieren() = 0;                    // when visible, not minimised and enabled
    virtual void TagEditorZeigen() = 0;                        // on all records, modal
    virtual void ShellEinträgeAnmelden() = 0;
    virtual void EreignisuhrStarten() = 0;                                  // tmrEreignisse
    virtual Terminantwort TerminMelden(const Terminmeldung& Meldung) = 0;   // "Ereignis erreicht", modal
    virtual void VerpassteTermineZeigen(const Terminliste& Verpasste) = 0;  // modal
    virtual Fensterlage LageLesen() = 0;  // makes a maximised or minimised window normal
    virtual void Minimieren() = 0;
    virtual void Verbergen() = 0;  // to the tray
    virtual void Wiederherstellen() = 0;
    virtual int LautstärkeLesen() const = 0;  // hscrlVolume
    virtual int BalanceLesen() const = 0;     // hscrlBalance
    virtual void SpaltenÜbernehmen() = 0;     // widths and places into Liste::Spalten
    // frmBeenden: 0 cancel, 1 minimise, 2 end, 3 tray; Immer is its check box.
    virtual int BeendenFragen(bool& Immer) = 0;
};

}  // namespace liedwerk
