#include "core/start.h"

#include <exception>
#include <functional>
#include <new>
#include <numeric>
#include <system_error>
#include <utility>

#include "basis/datei.h"
#include "basis/pfad.h"
#include "core/beenden.h"
#include "core/einstellungsspeicher.h"
#include "core/farbprofile.h"
#include "core/hintergrund.h"
#include "core/laden.h"
#include "core/terminlauf.h"
#include "medien/tagrettung.h"

namespace liedwerk {
namespace {

const std::string Titel(Programmtitel);

// A run of Main: the program, what it was asked for, and what one stage leaves to a later one.
class Start {
  public:
    Start(Anwendung& P, const Startauftrag& A)
        : Programm(P), Auftrag(A), Fenster(P.Dienst.Fenster), Person(P.Dienst.Person) {}
    void Ausführen();

  private:
    // Runs a stage under the general handler, behind its log line.
    void Stufe(std::string_view Logzeile, const std::function<void()>& Schritt);
    void FehlerBehandeln(const std::string& Beschreibung, int Nummer);
    // The checks of the interface's components; false when one fails, which ends the process.
    bool KomponentenPrüfen();
    void KomponentenfehlerBehandeln(const std::string& Beschreibung, int Nummer);
    void UnvollständigMelden(std::string_view Grund);

    void EinstellungenHolen();
    void IndexHolen();
    void ReglerEinrichten();
    void LageEinrichten();
    void FensterZeigen();
    void WillkommenPrüfen();
    void WillkommenSagen();
    void TippsPrüfen();
    void FensterFreigeben();
    void EreignissePrüfen();
    void TagEditorAusführen();

    bool TagWeg() const { return Auftrag.Programmmodus == ModusTagEditor; }

    Anwendung& Programm;
    const Startauftrag& Auftrag;
    Hauptfenster& Fenster;
    Oberfläche& Person;
};

void Start::Stufe(std::string_view Logzeile, const std::function<void()>& Schritt) {
    if (Programm.Log.Aktiv() && !Logzeile.empty())
        Programm.Log.Schreiben(std::string(Logzeile) + Zeitstempel(Programm.Dienst.Zeit));
    try {
        if (Schritt) Schritt();
    } catch (const std::bad_alloc&) {
        FehlerBehandeln("Nicht genügend Arbeitsspeicher", ENOMEM);
    } catch (const std::system_error& Fehler) {
        FehlerBehandeln(Fehler.what(), Fehler.code().value());
    } catch (const std::exception& Fehler) {
        FehlerBehandeln(Fehler.what(), 0);
    }
}

void Start::UnvollständigMelden(std::string_view Grund) {
    Person.Melden(Symbol::Kritisch, "Das Programm konnte nicht vollständig geladen werden.\n" +
                                        std::string(Grund) +
                                        "\n\nStellen Sie sicher, dass das Programm durch das Setup korrekt "
                                        "installiert wurde.\nFühren Sie dieses "
                                        "evtl. erneut aus oder installieren Sie die neueste Version dieser "
                                        "Software sowie die 'Laufzeitdateien der "
                                        "Anwendung' von der Website.\n\nBitte wenden Sie sich an den "
                                        "Software-Autor, falls das Problem weiterhin "
                                        "besteht.");
}

// Kept: in spite of its wording the message ends nothing.
void Start::FehlerBehandeln(const std::string& Beschreibung, int Nummer) {
    UnvollständigMelden(Beschreibung + " (Fehler " + std::to_string(Nummer) + ").");
    Programm.Log.Schreiben("Main: Fehler - " + Beschreibung + " (" + std::to_string(Nummer) + ") " +
                           Zeitstempel(Programm.Dienst.Zeit));
}

void Start::KomponentenfehlerBehandeln(const std::string& Beschreibung, int Nummer) {
    UnvollständigMelden("Eine Komponente fehlt oder ist beschädigt.");
    Programm.Log.Schreiben("Main: Komponenten-Fehler - " + Beschreibung + " (" + std::to_string(Nummer) +
                           ") " + Zeitstempel(Programm.Dienst.Zeit));
}

bool Start::KomponentenPrüfen() {
    using enum Steuerelemente;
    constexpr std::pair<Steuerelemente, std::string_view> Bauteile[] = {
        {Listen, "Listen"},
        {BildFelder, "Bild-Felder"},
        {TraySymbole, "Tray-Symbole"},
        {GrafischeMenüs, "Grafische Menüs"},
        {NeueBildFelder, "Neue Bild-Felder"},
    };
    for (const auto& [Art, Name] : Bauteile) {
        if (Programm.Log.Aktiv()) {
            Programm.Log.Schreiben("Main: Steuerelemente prüfen - " + std::string(Name) + " " +
                                   Zeitstempel(Programm.Dienst.Zeit));
        }
        if (Fenster.SteuerelementeBereit(Art)) continue;
        KomponentenfehlerBehandeln(std::string(Name), static_cast<int>(Art));
        return false;
    }
    return true;
}

void Start::EinstellungenHolen() {
    Programm.Werte = EinstellungenLesen(Programm.Dienst.Nutzerwerte, Programm.Dienst.Rechnerwerte);
    Fenster.ErscheinungAnwenden();
}

void Start::IndexHolen() {
    Programm.Kommandozeile = Auftrag.Kommandozeile;
    const bool Übergeben = !Auftrag.Namen.empty() || Auftrag.Programmmodus != ModusNichtsGeladen;
    Programm.NameVonKommandozeile = Übergeben;
    Programm.Index.IndexDateiname = Programm.Werte.Dateiname;
    if (Übergeben)
        Programm.Index.IndexDateiname = Auftrag.Namen.empty() ? std::string() : Auftrag.Namen.front();
    // Without a switch one index file or one folder is meant.
    const auto Namen = Auftrag.Programmmodus == ModusNichtsGeladen && Übergeben
                           ? std::vector<std::string>{Auftrag.Namen.front()}
                           : Auftrag.Namen;
    StandardDateiLaden(Programm, Auftrag.Programmmodus, false, Namen);
}

void Start::ReglerEinrichten() {
    Einstellungen& Werte = Programm.Werte;
    if (Werte.WinampLautstärke > 255 || Werte.WinampLautstärke < 0) Werte.WinampLautstärke = 128;
    if (Werte.WinampBalance < -128 || Werte.WinampBalance > 128) Werte.WinampBalance = 0;
    Fenster.ReglerStellen(Werte.WinampLautstärke, Werte.WinampBalance);
}

void Start::LageEinrichten() {
    Einstellungen& Werte = Programm.Werte;
    Fensterlage Lage;
    Lage.Maximiert = Werte.FensterMax == 1;
    if (Werte.Start != Versionszahl()) {
        // The first start of this version. A new major version brings its colours.
        if (std::to_string(Werte.Start).substr(0, 1) != Version().Haupt) {
            FarbprofilNehmen(Werte, ProfilDesktop);
            Fenster.ErscheinungAnwenden();
        }
        Fenster.ShellEinträgeAnmelden();
    } else if (Werte.FensterWidth != 0 && Werte.FensterHeight != 0) {
        Lage.Zentriert = false;
        Lage.Links = Werte.FensterLeft;
        Lage.Oben = Werte.FensterTop;
        Lage.Breite = Werte.FensterWidth;
        Lage.Höhe = Werte.FensterHeight;
    }
    Fenster.LageSetzen(Lage);
    Programm.LageGesetzt = true;
}

void Start::FensterZeigen() {
    if (TagWeg()) return;
    const bool ImTray = Programm.Werte.StartInTray == 1;
    Fenster.Zeigen(!ImTray);
    if (ImTray)
        Fenster.SymbolhinweisZeigen(
            "Willkommen zurück zum " + Titel,
            "Über dieses kleine Startleisten-Symbol gelangen Sie zurück zum Programm.");
}

void Start::WillkommenPrüfen() {
    if (Programm.Werte.Start >= 1) return;
    Programm.ErsterStart = true;
    Fenster.WillkommenZeigen();
}

void Start::WillkommenSagen() {
    Person.StatusZeigen(Programm.Index.IndexAnzahl() > 0
                            ? "Willkommen! Bitte wählen Sie eine Datei oder suchen Sie"
                            : "Willkommen! Bitte fügen Sie Dateien zum Index hinzu");
}

void Start::TippsPrüfen() {
    std::int16_t& Aktueller = Programm.Werte.TippsAktueller;
    const int Anzahl = Fenster.TippAnzahl();
    // At the first start the welcome has said enough.
    if (Aktueller != 0 && Anzahl > 0 && !Programm.ErsterStart) {
        Aktueller = static_cast<std::int16_t>(Aktueller < 0 || Aktueller >= Anzahl ? 1 : Aktueller + 1);
        Fenster.TippZeigen(Aktueller);
    }
    if (Programm.ErsterStart)
        Fenster.SymbolhinweisZeigen(
            "Willkommen zum " + Titel,
            "Über dieses kleine Startleisten-Symbol können Sie auf wichtige Funktionen "
            "zugreifen. Klicken Sie einfach einmal mit der rechten Maustaste darauf.");
}

void Start::FensterFreigeben() {
    Programm.Werte.Start = Versionszahl();
    if (TagWeg()) return;
    Fenster.SuchfeldFokussieren();
    if (!Programm.Werte.Sperre.empty() && Programm.Werte.SperreAktiv == 1) Fenster.SperreZeigen();
}

void Start::EreignissePrüfen() {
    if (!Programm.TerminePrüfen) TerminePrüfenEinrichten(Programm);
    // A locked window tells nothing; the clock looks again behind the password.
    if (!Programm.Gesperrt) Programm.TerminePrüfen();
    Fenster.EreignisuhrStarten();
}

void Start::TagEditorAusführen() {
    if (Programm.Index.IndexAnzahl() == 0) {
        Person.Melden(
            Symbol::Information,
            "Der übergebene Parameter wurde nicht erkannt, ist nicht korrekt angegeben (bei mehreren Dateien "
            "müssen die Dateinamen von Anführungszeichen umschlossen sein) oder die angegebene(n) Datei(en) "
            "wurde(n) nicht gefunden.\n\nParameter: " +
                Programm.Kommandozeile + "\n\nDer TAG-Editor kann nicht angezeigt werden.");
    } else {
        auto& Auswahl = Programm.Ansicht.Auswahl;
        Auswahl.resize(static_cast<std::size_t>(Programm.Index.IndexAnzahl()));
        std::iota(Auswahl.begin(), Auswahl.end(), Satznummer{1});
        Fenster.TagEditorZeigen();
    }
    Programm.BeendenErbeten = true;
}

void Start::Ausführen() {
    Programm.Index.Programmmodus = ModusNichtsGeladen;
    Stufe("", [this] { ProtokollEinrichten(Programm, Auftrag.Kommandozeile); });
    Stufe("Main: Start vorbereiten ", {});
    Stufe("Main: Variablen vorbereiten ", [this] {
        Programm.Startet = true;
        Programm.StartZeit = Programm.LetzteSpeicherung = Programm.Dienst.Zeit.Jetzt();
    });
    if (!KomponentenPrüfen()) {
        // Nothing has been read yet, so there is nothing to save.
        Programm.BeendenErbeten = true;
        return;
    }
    Stufe("Main: Einstellungen lesen ", [this] { EinstellungenHolen(); });
    Stufe("Main: Parameter verarbeiten und Index laden ", [this] { IndexHolen(); });
    if (!Programm.BeendenErbeten) {
        Stufe("Main: Winamp vorbereiten und einstellen ", [this] { ReglerEinrichten(); });
        Stufe("Main: Start einleiten ", {});
        Stufe("Main: System-Symbol einrichten ", [this] {
            if (!TagWeg()) Fenster.SymbolEinrichten();
        });
        Stufe("", [this] { LageEinrichten(); });
        Stufe("Main: Fenster anzeigen ", [this] { FensterZeigen(); });
        if (!TagWeg()) {
            Stufe("Main: Fenster anpassen ", [this] { Fenster.AuswahlZeigen(); });
            Stufe("Main: Suche einrichten ", [this] { Fenster.SuchzeileLeeren(); });
            Stufe("Main: Wilkommensfenster überprüfen/anzeigen ", [this] { WillkommenPrüfen(); });
            Stufe("Main: Wilkommensbotschaft anzeigen ", [this] { WillkommenSagen(); });
            Stufe("Main: Tipps-Fenster überprüfen/anzeigen ", [this] { TippsPrüfen(); });
        }
        Stufe("Main: Fenster prüfen/freigeben ", [this] { FensterFreigeben(); });
        Stufe("", [this] {
            // A locked window tells nothing; what is left is found at the next start, or when the file is
            // read.
            if (Programm.Gesperrt) return;
            const Laufsperre Sperre(Programm);
            UnterbrocheneVollenden(Programm.Dienst.Programmordner, Programm.Dienst.Ordner, Person,
                                   Programm.Reste, [this](const Dateischritt& Schritt) {
                                       ImHintergrund(Person, "Unterbrochenes Speichern wird abgeschlossen",
                                                     Schritt);
                                   });
        });
        if (!TagWeg()) Stufe("Main: Ereignisse prüfen ", [this] { EreignissePrüfen(); });
        Stufe("Main: Start abschließen ", [this] {
            if (TagWeg()) TagEditorAusführen();
        });
    }
    if (Programm.BeendenErbeten) {
        Stufe("", [this] { Programm.BeendenErbeten = SofortBeenden(Programm); });
        if (Programm.BeendenErbeten) return;
        // The person keeps what could not be saved: the window stands for it.
        Fenster.Zeigen(true);
    }
    Stufe("Main: Start abgeschlossen ", [this] { Programm.Startet = false; });
}

}  // namespace

void ProtokollEinrichten(Anwendung& Programm, std::string_view Kommandozeile) {
    const Dienste& Dienst = Programm.Dienst;
    if (!DateiExistiert(PfadVerbinden(Dienst.Programmordner, "log.me"))) return;
    Dienst.Person.Melden(
        Symbol::Information,
        "Es wurde eine Datei mit dem Namen 'log.me' im Programm-Ordner gefunden.\n"
        "Programm-Aktionen werden nun in der Protokolldatei 'log.txt' im Programm-Ordner gespeichert.\n"
        "Versenden Sie diese Datei bei Fehlern zusammen mit einer Fehler-Beschreibung an den "
        "Programm-Autor.");
    Programm.Log.LogDatei = 1;

    const Programmversion& Nummern = Version();
    ProtokollSchreiben(Programm.Log, Dienst.Person, Titel + "-Protokolldatei vom " + Zeitstempel(Dienst.Zeit),
                       true);
    for (const auto& Zeile :
         {std::string(), std::string("Es folgen System-Informationen..."),
          "Betriebssystem: " + Dienst.Betriebssystem, "Anwendungs-Pfad: " + Dienst.Programmordner,
          "Anwendungs-Parameter: " + std::string(Kommandozeile),
          "Anwendungs-Version: " + Nummern.Haupt + "." + Nummern.Neben + "." + Nummern.Revision,
          std::string(), std::string("Es folgen Aktionen...")})
        Programm.Log.Schreiben(Zeile);
}

void Main(Anwendung& Programm, const Startauftrag& Auftrag) {
    Start(Programm, Auftrag).Ausführen();
}

}  // namespace liedwerk
