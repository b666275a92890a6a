#include "termine/termine.h"

#include <algorithm>

namespace liedwerk {
namespace {

std::string EinheitVon(int Einheitsnummer) {
    for (const Wiederkehrart& Eine : Wiederkehrarten) {
        if (Eine.Einheitsnummer == Einheitsnummer) return std::string(Eine.Einheit);
    }
    return {};
}

void BenachrichtigungSpeichern(Termin& Eintrag, const Termineingabe& Eingabe, const Zeitpunkt& Jetzt) {
    Eintrag.BenachrichtigenAm = DatumNormalisieren(Eingabe.BenachrichtigenAm);
    Eintrag.Einheit = EinheitVon(Eingabe.Einheitsnummer);
    const bool Wiederkehrend = !Eintrag.Einheit.empty();
    const auto Am = DatumLesen(Eintrag.BenachrichtigenAm);
    if ((Am && *Am >= Jetzt) || (Wiederkehrend && Eingabe.Zurücksetzen)) {
        Eintrag.Erledigt.clear();
    } else if (!Wiederkehrend) {
        // What lies in the past and does not come again counts as done, so that it never fires.
        Eintrag.Erledigt = "1";
    }
    Eintrag.Intervall = Wiederkehrend ? Eingabe.Intervall : std::int16_t{0};
}

void EingabeSpeichern(Termin& Eintrag, const Termineingabe& Eingabe, const Zeitpunkt& Jetzt) {
    Eintrag.Beschreibung = Eingabe.Beschreibung;
    Eintrag.Kategorie = Eingabe.Kategorie;
    Eintrag.Datum = DatumNormalisieren(Eingabe.Datum);
    Eintrag.Benachrichtigen = Eingabe.Benachrichtigen;
    if (Eingabe.Benachrichtigen == 1) {
        BenachrichtigungSpeichern(Eintrag, Eingabe, Jetzt);
    } else {
        Eintrag.BenachrichtigenAm.clear();
        Eintrag.Erledigt.clear();
        Eintrag.Einheit.clear();
        Eintrag.Intervall = 0;
    }
    Eintrag.AnzeigeDauer = Eingabe.AnzeigeDauer;
    Eintrag.Anwendung = Eingabe.Anwendung;
    Eintrag.Meldungstext = Eingabe.Meldungstext;
}

std::string DatumOder(std::string_view Text, std::string_view Sonst) {
    const auto Datum = DatumLesen(Text);
    return Datum ? DatumZeitText(*Datum) : std::string(Sonst);
}

std::string WiederkehrText(const Termin& Eintrag) {
    struct Wortpaar {
        std::string_view Einheit;
        std::string_view Artikel;
        std::string_view Wort;
    };
    constexpr std::array<Wortpaar, 5> Worte = {{{"n", "Jede ", "Minute"},
                                                {"h", "Jede ", "Stunde"},
                                                {"d", "Jeden ", "Tag"},
                                                {"m", "Jeden ", "Monat"},
                                                {"y", "Jedes ", "Jahr"}}};
    const auto Fund = std::ranges::find(Worte, Eintrag.Einheit, &Wortpaar::Einheit);
    if (Fund == Worte.end()) return "Aus";
    const std::string Zahl = Eintrag.Intervall == 1 ? "" : std::to_string(Eintrag.Intervall) + ". ";
    return std::string(Fund->Artikel) + Zahl + std::string(Fund->Wort);
}

}  // namespace

std::string DatumNormalisieren(std::string_view Text) {
    return DatumOder(Text, Text);
}

Termineingabe TermineingabeVon(const Termin& Eintrag) {
    const auto Art = std::ranges::find(Wiederkehrarten, Eintrag.Einheit, &Wiederkehrart::Einheit);
    Termineingabe Eingabe;
    Eingabe.Beschreibung = Eintrag.Beschreibung;
    Eingabe.Datum = Eintrag.Datum;
    Eingabe.Kategorie = Eintrag.Kategorie;
    Eingabe.Benachrichtigen = Eintrag.Benachrichtigen;
    Eingabe.BenachrichtigenAm = Eintrag.BenachrichtigenAm;
    Eingabe.Einheitsnummer = Art == Wiederkehrarten.end() ? 0 : Art->Einheitsnummer;
    Eingabe.Intervall = Eintrag.Intervall;
    Eingabe.AnzeigeDauer = Eintrag.AnzeigeDauer;
    Eingabe.Meldungstext = Eintrag.Meldungstext;
    Eingabe.Anwendung = Eintrag.Anwendung;
    return Eingabe;
}

void TermineingabeNachführen(Termineingabe& Eingabe, const Termin& Geöffnet, const Termin& Jetziger) {
    if (DatumNormalisieren(Eingabe.BenachrichtigenAm) == DatumNormalisieren(Geöffnet.BenachrichtigenAm))
        Eingabe.BenachrichtigenAm = Jetziger.BenachrichtigenAm;
    if (Eingabe.Zurücksetzen == Geöffnet.Erledigt.empty()) Eingabe.Zurücksetzen = Jetziger.Erledigt.empty();
}

std::size_t TerminHinzufügen(Terminliste& Termine, const Termineingabe& Eingabe, const Zeitpunkt& Jetzt) {
    Termin Neuer;
    Neuer.AngelegtAm = DatumZeitText(Jetzt);
    EingabeSpeichern(Neuer, Eingabe, Jetzt);
    Termine.push_back(Neuer);
    return Termine.size();
}

void TerminÄndern(Terminliste& Termine, std::size_t Nummer, const Termineingabe& Eingabe,
                  const Zeitpunkt& Jetzt) {
    if (Nummer < 1 || Nummer > Termine.size()) return;
    Termin Eintrag = Termine[Nummer - 1];
    EingabeSpeichern(Eintrag, Eingabe, Jetzt);
    Termine.Setzen(Nummer - 1, Eintrag);
}

void TerminEntfernen(Terminliste& Termine, std::size_t Nummer) {
    if (Nummer >= 1 && Nummer <= Termine.size()) Termine.Entfernen(Nummer - 1);
}

std::string TerminZelle(const Termin& Eintrag, std::string_view Spalte) {
    constexpr std::string_view Fehler = "Fehler";
    if (Spalte == "Ereignis") return Eintrag.Beschreibung;
    if (Spalte == "Termin") return DatumOder(Eintrag.Datum, {});
    if (Spalte == "Kategorie") return Eintrag.Kategorie;
    if (Spalte == "Erinnern")
        return Eintrag.Benachrichtigen == 1 ? DatumOder(Eintrag.BenachrichtigenAm, Fehler) : "Aus";
    if (Spalte == "Angelegt am") return DatumOder(Eintrag.AngelegtAm, Fehler);
    if (Spalte == "Wiederkehrend") return WiederkehrText(Eintrag);
    if (Spalte == "Anwendung starten") return Eintrag.Anwendung;
    return {};
}

std::string TerminBeschriftung(std::size_t TerminAnzahl) {
    return std::to_string(TerminAnzahl) + " Ereignis(se) eingerichtet";
}

}  // namespace liedwerk
