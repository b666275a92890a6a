#include "ui/text/textoberflaeche.h"

#include <algorithm>
#include <cstdio>

#include "basis/text.h"
#include "plattform/endesignal.h"
#include "termine/termine.h"
#include "ui/text/ausgabe.h"

namespace liedwerk {
namespace {

// Progress appears late and rarely, in milliseconds: short work shows none, long work is not slowed down.
constexpr std::int64_t ErsteAnzeige = 300;
constexpr std::int64_t Abstand = 100;
constexpr std::size_t Zeilenbreite = 78;

void Fehlerzeile(std::string_view Text) {
    const std::string Zeile = Sichtbar(Text, true) + "\n";
    std::fwrite(Zeile.data(), 1, Zeile.size(), stderr);
}

}  // namespace

Textoberfläche::Textoberfläche(const Uhr& Laufzeit, bool Ja, bool MitFortschritt)
    : Zeit(Laufzeit), AllesJa(Ja), Zeigen(MitFortschritt) {}

Textoberfläche::~Textoberfläche() {
    ZeileLöschen();
}

bool Textoberfläche::Abbruch() const {
    return AbbruchErlaubt && EndeVerlangt();
}

void Textoberfläche::ZeileLöschen() {
    if (!ZeileSteht) return;
    std::fprintf(stderr, "\r%*s\r", static_cast<int>(Zeilenbreite), "");
    ZeileSteht = false;
}

void Textoberfläche::Melden(Symbol, std::string_view Text) {
    ZeileLöschen();
    Fehlerzeile(Text);
}

Antwort Textoberfläche::Fragen(Symbol, std::string_view Text, Knöpfe, Antwort) {
    ZeileLöschen();
    if (Abbruch()) {
        Fehlerzeile(std::string(Text) + "\n-> Abgebrochen");
        return Antwort::Abbrechen;
    }
    Fehlerzeile(std::string(Text) + (AllesJa ? "\n-> Ja" : "\n-> Nein (mit --ja wird jede Frage bejaht)"));
    return AllesJa ? Antwort::Ja : Antwort::Nein;
}

void Textoberfläche::StatusZeigen(std::string_view Text, int) {
    if (!Zeigen) return;
    ZeileLöschen();
    Fehlerzeile(Text);
}

Verfügbarkeitsantwort Textoberfläche::DateiNichtVerfügbarZeigen(const Verfügbarkeitsfrage& Frage) {
    if (Abbruch()) return Verfügbarkeitsantwort::Abbrechen;
    std::string Aktuell;
    if (Frage.Nachsehen && Frage.Nachsehen(Aktuell)) return Verfügbarkeitsantwort::Verfügbar;
    ZeileLöschen();
    // Once is enough: the same would be said of every file of the medium.
    Fehlerzeile(Frage.Text + "\n-> Übersprungen, ebenso alle weiteren nicht verfügbaren Dateien");
    return Verfügbarkeitsantwort::AlleÜberspringen;
}

bool Textoberfläche::DateiNichtVerfügbarSchreibenZeigen(const Schreibsperrfrage& Frage) {
    if (Frage.Nachsehen && Frage.Nachsehen()) return true;
    ZeileLöschen();
    Fehlerzeile(Frage.Text + "\n-> Übersprungen");
    return false;
}

void Textoberfläche::FortschrittStarten(std::string_view Titel, bool MitProzent, std::int64_t Höchstens) {
    if (!Offen) NächstesMal = Zeit.Millisekunden() + ErsteAnzeige;
    Offen = true;
    Prozent = MitProzent && Höchstens > 0;
    Obergrenze = Höchstens;
    LetztePosition = 0;
    Überschrift = Titel;
    LetzterText.clear();
}

bool Textoberfläche::FortschrittZeigen(std::string_view Text, std::int64_t Position) {
    // Also where nothing is shown: work without a display of its own can be cut short as well.
    if (Abbruch()) return false;
    if (!Zeigen || !Offen) return true;
    if (!Text.empty()) LetzterText = Text;
    if (Position >= 0) LetztePosition = Position;
    const std::int64_t Jetzt = Zeit.Millisekunden();
    if (Jetzt < NächstesMal) return true;
    NächstesMal = Jetzt + Abstand;
    std::string Zeile = Überschrift;
    if (Prozent)
        Zeile +=
            " " + std::to_string(std::clamp<std::int64_t>(LetztePosition * 100 / Obergrenze, 0, 100)) + " %";
    if (!LetzterText.empty()) Zeile += ": " + LetzterText;
    const std::string Gekürzt(LinkerTeil(Sichtbar(Zeile), Zeilenbreite));
    ZeileLöschen();
    std::fputs(Gekürzt.c_str(), stderr);
    std::fflush(stderr);
    ZeileSteht = true;
    return true;
}

void Textoberfläche::FortschrittSchließen() {
    Offen = false;
    ZeileLöschen();
}

void OhneFenster::VerpassteTermineZeigen(const Terminliste& Verpasste) {
    Fehlerzeile("Über folgende Ereignisse erfolgte keine rechtzeitige Benachrichtigung.");
    for (const Termin& Einer : Verpasste)
        Fehlerzeile("  " + TerminZelle(Einer, "Erinnern") + "  " + Einer.Beschreibung);
}

}  // namespace liedwerk
