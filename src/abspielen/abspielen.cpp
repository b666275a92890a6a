#include "abspielen/abspielen.h"

#include <algorithm>
#include <utility>

#include "abspielen/statistik.h"
#include "basis/datei.h"
#include "basis/pfad.h"

namespace liedwerk {
namespace {

constexpr std::size_t UngefragtHöchstens = 10;  // files for associated programs
constexpr std::int64_t Übernahmedauer = 5000;   // milliseconds that a player may take to read its list
constexpr std::int64_t Ladedauer = 400;         // milliseconds from the player's appearance to its list
constexpr std::int64_t Übernahmepause = 20;

// One call of AbspielenMediaPlayer.
class Abspiellauf {
  public:
    Abspiellauf(Abspielumgebung& Ziel, const std::vector<Satznummer>& Sätze, bool NurAnhängen,
                bool ListeLeeren)
        : Umgebung(Ziel), Dateien(Sätze), Anhängen(NurAnhängen), Leeren(ListeLeeren) {
        const auto Wahl = SpielerVon(Umgebung.Spieler.Werte.WinampPfad);
        Art = Wahl ? Wahl->Art : Spielerart::Andere;
        Beobachtet = Wahl && (Wahl->HatProfil() || PlayerSuchen(Umgebung.Spieler, false));
    }

    Abspielergebnis Ausführen(bool Standardanwendung, std::string_view Programm) {
        for (const Satznummer Nummer : Dateien) {
            const auto Antwort =
                DateiNichtVerfügbarPrüfen(Umgebung.Index, Nummer, Umgebung.Medium, Umgebung.Datenträger,
                                          Umgebung.Spieler.Person, false);
            if (Antwort == Verfügbarkeit::Abbrechen) {
                Gelungen = false;
                break;
            }
            if (Antwort == Verfügbarkeit::Überspringen) continue;
            Standardanwendung ? AnAnwendung(Nummer, Programm) : NachDateityp(Nummer);
        }
        Abschließen();
        return {Gelungen, Playlistdatei, Anzahl};
    }

  private:
    void Melden(std::string_view Pfad, std::string_view Wie) {
        if (Umgebung.Log.Aktiv())
            Umgebung.Log.Schreiben("AbspielenMediaPlayer: Führe Datei '" + std::string(Pfad) + "' " +
                                   std::string(Wie) + "...");
    }

    void Vermerken(Satznummer Nummer) {
        if (Umgebung.Spieler.Werte.AbspielStatistikSpeichern != 1) return;
        AbspielenVermerken(Umgebung.Index, Nummer, DatumZeitText(Umgebung.Spieler.Zeit.Jetzt()));
    }

    void Gestartet(const Programmlaufnummer& Start, std::string_view Pfad) {
        if (Start) {
            ++Anzahl;
        } else if (Umgebung.Log.Aktiv()) {
            Umgebung.Log.Schreiben("AbspielenMediaPlayer: Fehler - '" + std::string(Pfad) +
                                   "': " + Start.Fehler);
        }
    }

    void AnAnwendung(Satznummer Nummer, std::string_view Programm) {
        const std::string Pfad = Umgebung.Index.Sätze.Pfad(Nummer);
        Melden(Pfad, "mit Standard-Anwendung aus (gewünscht)");
        Gestartet(Programm.empty() ? Umgebung.Spieler.Programme.MitAnwendungÖffnen(Pfad)
                                   : Umgebung.Spieler.Programme.Starten(Programm, {Pfad}),
                  Pfad);
        Vermerken(Nummer);
    }

    void NachDateityp(Satznummer Nummer) {
        const std::string Pfad = Umgebung.Index.Sätze.Pfad(Nummer);
        const auto& Typen = Umgebung.Index.Optionen.Dateitypen;
        if (DateiTypErlaubt(Typen, Pfad, false, false, true, false)) {
            Melden(Pfad, "über Playlisten-Funktion aus");
            AnSpieler(Nummer);
        } else if (DateiTypErlaubt(Typen, Pfad, false, true, false, false)) {
            Melden(Pfad, "mit internem Bild-Anzeiger aus");
            BildAnzeigen(Umgebung, Pfad);
            ++Anzahl;
        } else {
            Melden(Pfad, "mit Standard-Anwendung aus (lt. Einstellung)");
            Gestartet(Umgebung.Spieler.Programme.MitAnwendungÖffnen(Pfad), Pfad);
        }
    }

    // The recognition counts what a watched player plays; only what goes to others is counted here. A player
    // without profile may turn out later to be one that can be watched; what was counted by then is
    // remembered, so that nothing counts twice.
    void FürSpielerVermerken(Satznummer Nummer) {
        if (Beobachtet || Umgebung.Spieler.Werte.AbspielStatistikSpeichern != 1) return;
        Vermerken(Nummer);
        VorabVermerken(Umgebung.Erkennung.Vorab, Umgebung.Spieler.Werte, Umgebung.Index.Sätze.Pfad(Nummer));
    }

    void AnSpieler(Satznummer Nummer) {
        if (Gescheitert) return;
        if (Leeren && !Geleert) {
            Geleert = true;
            if (PlayerSuchen(Umgebung.Spieler, false))
                PlayerBefehl(Umgebung.Spieler, SpielerListeLeeren, true);
        }
        const bool ErsteDatei = !Anhängen && ÜberListe == 0;
        if (!Liste.Offen && !PlaylisteBeginnen(Umgebung, Liste)) {
            Gescheitert = true;
            Gelungen = false;
            return;
        }
        if (!PlaylisteEintrag(Umgebung, Liste, Nummer)) return;
        ++ÜberListe;
        ++Anzahl;
        Eingetragen.push_back(Nummer);
        if (ErsteDatei) ErsteSpielen();
    }

    // The first file starts at once; the others follow by "add".
    void ErsteSpielen() {
        const bool AusDerTabelle = Art != Spielerart::Andere;
        Umgebung.Erkennung.Vorab.Pfade.clear();  // what is played now takes the place of the list before
        if (!Übergeben(AusDerTabelle, AusDerTabelle || Dateien.size() > 1) || !AusDerTabelle) return;
        if (!PlayerSuchen(Umgebung.Spieler, false)) return;
        PlayerBefehl(Umgebung.Spieler, SpielerListenanfang, false);
        PlayerBefehl(Umgebung.Spieler, SpielerSpielen, false);
    }

    bool Übergeben(bool Hinzufügen, bool Warten) {
        const bool Erreicht = PlaylisteÜbergeben(Umgebung, Liste, Hinzufügen, Warten, Playlistdatei);
        if (!Erreicht) Gescheitert = true;
        Gelungen = Gelungen && Erreicht;
        if (Erreicht) {
            for (const Satznummer Nummer : Eingetragen)
                FürSpielerVermerken(Nummer);
        }
        Eingetragen.clear();
        return Erreicht;
    }

    void Abschließen() {
        if (Liste.Offen && Liste.Anzahl > 0) {
            Umgebung.Log.Schreiben("AbspielenMediaPlayer: Übergabe der Playliste an Anwendung...");
            Übergeben(true, false);
        }
        if (ÜberListe > 0 && !Gescheitert && Umgebung.Spieler.Werte.AudioplayerNachrichtZeigen == 1 &&
            Umgebung.NachrichtZeigen)
            Umgebung.NachrichtZeigen();
    }

    Abspielumgebung& Umgebung;
    const std::vector<Satznummer>& Dateien;
    bool Anhängen;
    bool Leeren;
    Spielerart Art;
    bool Beobachtet;
    Playliste Liste;
    std::vector<Satznummer> Eingetragen;  // in the open list
    std::string Playlistdatei;
    int ÜberListe = 0;  // files that went the way of the play list
    int Anzahl = 0;
    bool Geleert = false;
    bool Gescheitert = false;  // no player: nothing more is tried in this call
    bool Gelungen = true;
};

// Gives a started player the time to read its list: until the program that was started has done its errand,
// or the player has shown itself and a moment has passed.
void ÜbernahmeAbwarten(Abspielumgebung& Umgebung, const Programmlaufnummer& Start) {
    const Uhr& Zeit = Umgebung.Spieler.Zeit;
    const std::int64_t Beginn = Zeit.Millisekunden();
    std::int64_t Gesehen = -1;
    while (Zeit.Millisekunden() - Beginn < Übernahmedauer && Umgebung.Spieler.Programme.Läuft(Start)) {
        if (Gesehen < 0 && PlayerSuchen(Umgebung.Spieler, false)) Gesehen = Zeit.Millisekunden();
        if (Gesehen >= 0 && Zeit.Millisekunden() - Gesehen >= Ladedauer) return;
        Umgebung.Spieler.Person.EreignisseVerarbeiten();
        Zeit.Warten(Übernahmepause);
    }
}

}  // namespace

Abspielergebnis AbspielenMediaPlayer(Abspielumgebung& Umgebung, const std::vector<Satznummer>& Dateien,
                                     bool Anhängen, bool Standardanwendung, bool PlaylisteLeeren,
                                     std::string_view Programm) {
    Oberfläche& Person = Umgebung.Spieler.Person;
    Person.StatusZeigen("");
    MediumVergessen(Umgebung.Medium);
    Umgebung.Medium.AlleÜberspringen = false;
    if (Dateien.size() > UngefragtHöchstens && Standardanwendung &&
        Person.JaNein(Symbol::Frage, "Möchten Sie wirklich " + std::to_string(Dateien.size()) +
                                         " Dateien an die jeweilige Standard-Anwendung übergeben?\n"
                                         "Dieser Vorgang kann länger dauern.") != Antwort::Ja)
        return {};
    return Abspiellauf(Umgebung, Dateien, Anhängen, PlaylisteLeeren).Ausführen(Standardanwendung, Programm);
}

bool PlaylisteBeginnen(Abspielumgebung& Umgebung, Playliste& Liste) {
    if (!DateiExistiert(Umgebung.Spieler.Werte.WinampPfad)) {
        Umgebung.Spieler.Person.Melden(
            Symbol::Information,
            "Die gewählte(n) Datei(en) können nicht an Ihren Audioplayer übertragen werden.\n"
            "Sie benötigen einen Audioplayer (z.B. 'Winamp' von Herstellerseite) für diese Funktion.\n"
            "Bitte installieren Sie ein solches Programm und geben Sie den Programm-Pfad unter 'Optionen' "
            "an.");
        return false;
    }
    Liste = {};
    Liste.Offen = true;
    if (Umgebung.Spieler.Werte.PlaylistFürWinamp == 1) Liste.Inhalt = "#EXTM3U\n";
    return true;
}

bool PlaylisteEintrag(Abspielumgebung& Umgebung, Playliste& Liste, Satznummer Nummer) {
    if (DateiNichtVerfügbarPrüfen(Umgebung.Index, Nummer, Umgebung.Medium, Umgebung.Datenträger,
                                  Umgebung.Spieler.Person, false) != Verfügbarkeit::Weiter)
        return false;
    const std::string Pfad = Umgebung.Index.Sätze.Pfad(Nummer);
    if (HatZeilenende(Pfad)) {
        Umgebung.Spieler.Person.Melden(
            Symbol::Ausrufezeichen,
            "Die Datei '" + Pfad +
                "' kann nicht an Ihren Audioplayer übergeben werden, weil ihr Name einen Zeilenumbruch "
                "enthält.\nBitte benennen Sie die Datei um.");
        return false;
    }
    if (Umgebung.Spieler.Werte.PlaylistFürWinamp == 1) {
        const std::string Kopf = ExtInfZeile(Umgebung.Index, Nummer);
        if (!Kopf.empty()) Liste.Inhalt += Kopf + "\n";
    }
    Liste.Inhalt += Pfad + "\n";
    ++Liste.Anzahl;
    return true;
}

bool PlaylisteÜbergeben(Abspielumgebung& Umgebung, Playliste& Liste, bool Hinzufügen, bool Warten,
                        std::string& Playlistdatei) {
    const Spielersteuerung& Spieler = Umgebung.Spieler;
    const std::string& Pfad = Spieler.Werte.WinampPfad;
    const Playliste Fertige = std::exchange(Liste, {});
    AltePlaylistenLöschen(Umgebung.Ordner, Spieler.Zeit, Umgebung.Laufzeitordner);
    Playlistdatei = PlaylistdateiWählen(Pfad, Umgebung.Laufzeitordner, Spieler.Zeit.Jetzt());
    if (const std::string Fehler = PlaylisteSchreiben(Playlistdatei, Fertige.Inhalt); !Fehler.empty()) {
        Spieler.Person.Melden(Symbol::Ausrufezeichen, "Die Playliste '" + Playlistdatei +
                                                          "' konnte nicht geschrieben werden.\n" + Fehler +
                                                          "\n\n" + std::string(ZugriffsHinweis));
        return false;
    }
    std::vector<std::string> Argumente = SchalterZerlegen(SpielerSchalter(Spieler.Werte, Hinzufügen));
    Argumente.push_back(Playlistdatei);
    const Programmlaufnummer Start = Spieler.Programme.Starten(Pfad, Argumente);
    if (!Start) {
        Umgebung.Log.Schreiben("PlaylisteÜbergeben: Fehler - " + Start.Fehler);
        return false;
    }
    if (Warten) ÜbernahmeAbwarten(Umgebung, Start);
    const std::string Name(DateinameVon(Pfad));
    Spieler.Person.StatusZeigen(Hinzufügen ? "Dateien hinzugefügt bei '" + Name + "'"
                                           : "Dateien abgespielt mit '" + Name + "'");
    return true;
}

void BildAnzeigen(const Abspielumgebung& Umgebung, std::string_view Pfad) {
    if (!DateiExistiert(Pfad)) {
        // Kept: the quotes stay empty.
        Umgebung.Spieler.Person.Melden(Symbol::Information, "Die Datei '' existiert nicht.");
    } else if (Umgebung.BildAnzeigen) {
        Umgebung.BildAnzeigen(Pfad);
    }
}

bool BrauchtAudioplayer(const Katalog& Index, const std::vector<Satznummer>& Dateien) {
    return std::any_of(Dateien.begin(), Dateien.end(), [&](Satznummer Nummer) {
        return DateiTypErlaubt(Index.Optionen.Dateitypen, Index.Sätze.Pfad(Nummer), false, false, true,
                               false);
    });
}

bool AudioplayerStarten(Abspielumgebung& Umgebung) {
    const std::string& Pfad = Umgebung.Spieler.Werte.WinampPfad;
    if (!DateiExistiert(Pfad)) {
        Umgebung.Spieler.Person.Melden(
            Symbol::Information,
            "Sie benötigen einen Audioplayer (z.B. 'Winamp' von Herstellerseite) für diese Funktion.\n"
            "Bitte installieren Sie ein solches Programm und geben Sie den Programm-Pfad unter 'Optionen' "
            "an.");
        return false;
    }
    if (const auto Start = Umgebung.Spieler.Programme.Starten(Pfad, {}); !Start) {
        Umgebung.Log.Schreiben("cmdAudioplayerStarten: Fehler - " + Start.Fehler);
        return false;
    }
    if (Umgebung.Spieler.Werte.AudioplayerNachrichtZeigen == 1 && Umgebung.NachrichtZeigen)
        Umgebung.NachrichtZeigen();
    return true;
}

std::string ProgrammPrüfen(std::string_view Programm) {
    if (Programm.empty()) return "Bitte geben Sie ein Programm an.";
    if (!DateiExistiert(Programm))
        return "Die angegebene Datei '" + std::string(Programm) + "' existiert nicht.";
    return {};
}

}  // namespace liedwerk
