#include "core/wiedergabelauf.h"

#include <algorithm>

#include "core/suchlauf.h"

namespace liedwerk {
namespace {

constexpr int Statistikspaltenbreite = 2700;  // twips

void SpalteZeigen(std::vector<Listenspalte>& Spalten, std::string_view Name) {
    for (int Nummer = 1; Nummer <= SpaltenAnzahl; ++Nummer) {
        if (SpaltenNamen[static_cast<std::size_t>(Nummer - 1)].Name != Name) continue;
        const bool Gezeigt = std::any_of(Spalten.begin(), Spalten.end(),
                                         [&](const Listenspalte& Eine) { return Eine.Nummer == Nummer; });
        if (!Gezeigt) Spalten.push_back({Nummer, Statistikspaltenbreite});
    }
}

}  // namespace

Wiedergabe::Wiedergabe(Anwendung& Lauf)
    : Programm(Lauf),
      Steuerung{*Lauf.Dienst.Spieler, *Lauf.Dienst.Programme, Lauf.Werte, Lauf.Dienst.Person,
                Lauf.Dienst.Zeit} {}

Abspielumgebung AbspielumgebungVon(Wiedergabe& Lauf) {
    Anwendung& Programm = Lauf.Programm;
    return {Programm.Index,
            Programm.Medium,
            MediumumgebungVon(Programm),
            Lauf.Steuerung,
            Lauf.Erkennung,
            Programm.Log,
            Programm.Dienst.Ordner,
            Programm.Dienst.Laufzeitordner.empty() ? Programm.Dienst.Programmordner
                                                   : Programm.Dienst.Laufzeitordner,
            {},
            {}};
}

Spielerstand SpielerTakt(Wiedergabe& Lauf) {
    Spielerstand Stand = SpielerAblesen(Lauf.Steuerung);
    VorabPrüfen(Lauf.Erkennung.Vorab, Stand.Gefunden);
    if (!Stand.Gefunden || Stand.Zustand == PlayerZustand::Stopped) return Stand;
    TitelErkennen(Lauf.Erkennung, Lauf.Programm.Index, Lauf.Programm.Werte, Lauf.Programm.Dienst.Person,
                  {Stand.Titel, Stand.Lage.Dateien, Stand.Lage.Durchgang}, Lauf.Programm.Dienst.Zeit.Jetzt());
    return Stand;
}

bool SpielerBrauchtTakt(const Wiedergabe& Lauf, const Spielerstand& Stand) {
    if (!Stand.Gefunden || Stand.Zustand == PlayerZustand::Stopped) return false;
    const bool Wartet =
        Lauf.Programm.Werte.AbspielStatistikSpeichern == 1 && !Lauf.Erkennung.TitelVerarbeitet;
    return Stand.Zustand == PlayerZustand::Playing || Wartet;
}

void SpielerVorschlagen(Anwendung& Programm) {
    if (!Programm.Werte.WinampPfad.empty()) return;
    const auto Installierte = InstallierteSpieler(*Programm.Dienst.Programme);
    if (Installierte.empty()) return;
    const InstallierterSpieler& Erster = Installierte.front();
    if (Programm.Dienst.Person.JaNein(
            Symbol::Frage, "Es ist noch kein Audioplayer eingestellt.\nMöchten Sie '" +
                               std::string(Erster.Profil->Name) + "' (" + Erster.Pfad +
                               ") verwenden?\n\nSie können dies in den 'Optionen' jederzeit ändern.") ==
        Antwort::Ja)
        SpielerÜbernehmen(Programm.Werte, Erster);
}

AutoDjEingabe AutoDjAusEinstellungen(const Einstellungen& Werte, AutoDjFunktion Funktion) {
    AutoDjEingabe Eingabe;
    Eingabe.Funktion = Funktion;
    Eingabe.Genres = Werte.AutoDJGenre.empty() ? AlleAutoDjGenres() : Werte.AutoDJGenre;
    std::erase(Eingabe.Genres, "");
    if (Funktion == AutoDjFunktion::Topliste) {
        Eingabe.Maximum = Werte.AutoDJTopWieviel;
        Eingabe.Zeit = Werte.AutoDJTopZeitraum;
        Eingabe.Einheit = AutoDjEinheitLesen(Werte.AutoDJTopEinheit).value_or(AutoDjEinheit::Tage);
        return Eingabe;
    }
    Eingabe.Maximum = Werte.AutoDJFindeAnzahl;
    Eingabe.Zeit = Werte.AutoDJAuslassenZeit;
    Eingabe.Einheit = static_cast<AutoDjEinheit>(std::clamp<std::int16_t>(Werte.AutoDJAuslassenGröße, 0, 2));
    Eingabe.AlteSeltener = Werte.AutoDJAuslassenVorKurzem == 1;
    Eingabe.SehrAlteHäufiger = Werte.AutoDJFindenVorLängerem == 1;
    return Eingabe;
}

void AutoDjInEinstellungen(Einstellungen& Werte, const AutoDjEingabe& Eingabe) {
    // An empty list means that nothing was ever chosen, which ticks all; one empty name ticks none.
    Werte.AutoDJGenre = Eingabe.Genres.empty() ? std::vector<std::string>{""} : Eingabe.Genres;
    if (Eingabe.Funktion == AutoDjFunktion::Topliste) {
        Werte.AutoDJTopWieviel = Eingabe.Maximum;
        Werte.AutoDJTopZeitraum = Eingabe.Zeit;
        Werte.AutoDJTopEinheit = AutoDjEinheitBuchstabe(Eingabe.Einheit);
        return;
    }
    Werte.AutoDJFindeAnzahl = Eingabe.Maximum;
    Werte.AutoDJAuslassenZeit = Eingabe.Zeit;
    Werte.AutoDJAuslassenGröße = static_cast<std::int16_t>(Eingabe.Einheit);
    Werte.AutoDJAuslassenVorKurzem = Eingabe.AlteSeltener ? 1 : 0;
    Werte.AutoDJFindenVorLängerem = Eingabe.SehrAlteHäufiger ? 1 : 0;
}

void AutoDjZeigen(Anwendung& Programm, const std::vector<Satznummer>& Gefunden) {
    Katalog& Index = Programm.Index;
    Index.ErsterTreffer = -1;
    Index.LetzterTreffer = -1;
    std::fill(Index.IndexTreffer.begin(), Index.IndexTreffer.end(), std::int16_t{1});
    Programm.Dienst.Fenster.SpaltenÜbernehmen();
    SpalteZeigen(Programm.Ansicht.Spalten, "Abspiel-Datum");
    SpalteZeigen(Programm.Ansicht.Spalten, "Abspiel-Häufigkeit");
    Programm.Dienst.Fenster.SpaltenZeigen();
    SpaltenInIndex(Programm);
    DatensätzeZeigen(Programm, Gefunden);
}

}  // namespace liedwerk
