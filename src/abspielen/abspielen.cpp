#include "abspielen/abspielen.h"

#include <algorithm>
#include <utility>

#include "abspielen/statistik.h"
#include "basis/datei.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "medien/cdtitel.h"

namespace liedwerk {
namespace {

constexpr std::size_t UngefragtHöchstens = 10;  // files for associated programs
constexpr std::int64_t Übernahmedauer = 5000;   // milliseconds that a player may take to read its list
constexpr std::int64_t Ladedauer = 400;         // milliseconds from the player's appearance to its list
constexpr std::int64_t Übernahmepause = 20;

bool GehörtDemSpieler(const Katalog& Index, Satznummer Nummer) {
    return DateiTypErlaubt(Index.Optionen.Dateitypen, Index.Sätze.Pfad(Nummer), false, false, true, false);
}

// One call of AbspielenMediaPlayer.
class Abspiellauf {
  public:
    Abspiellauf(Abspielumgebung& Ziel, const std::vector<Satznummer>& Sätze, bool NurAnhängen,
                bool ListeLeeren)
        : Umgebung(Ziel), Dateien(Sätze), Leeren(ListeLeeren), Spielen(!NurAnhängen) {
        const auto Wahl = SpielerVon(Umgebung.Spieler.Werte.WinampPfad);
        if (!Wahl) return;
        AusDerTabelle = Wahl->Art != Spielerart::Andere;
        Cdadresse = Wahl->Profil.Cdadresse;
        Beobachtet =
            (Wahl->HatProfil() && !Wahl->Profil.NurMitZusatz) || PlayerSuchen(Umgebung.Spieler, false);
        GanzeListe = KenntNurDateien(Umgebung.Spieler.Werte);
        // Where there is no command that clears the list, playing the first file takes its place.
        if (Leeren && !AusDerTabelle && !Wahl->Profil.Zweitschnittstelle) Spielen = true;
    }

    Abspielergebnis Ausführen(bool Standardanwendung, std::string_view Programm) {
        Ergebnis.Gelungen = true;
        for (Stelle = 0; Stelle < Dateien.size(); ++Stelle) {
            const Satznummer Nummer = Dateien[Stelle];
            // What a stranger's index calls a path may be an address or a switch. Neither reaches a program.
            if (const std::string Pfad = Umgebung.Index.Sätze.Pfad(Nummer); !IstVollerPfad(Pfad)) {
                Unvollständige.push_back(Pfad);
                Ergebnis.Gelungen = false;
                continue;
            }
            const auto Antwort =
                DateiNichtVerfügbarPrüfen(Umgebung.Index, Nummer, Umgebung.Medium, Umgebung.Datenträger,
                                          Umgebung.Spieler.Person, false);
            if (Antwort == Verfügbarkeit::Abbrechen) {
                Ergebnis.Gelungen = false;
                break;
            }
            if (Antwort == Verfügbarkeit::Überspringen) continue;
            Standardanwendung ? AnAnwendung(Nummer, Programm) : NachDateityp(Nummer);
        }
        Abschließen();
        return std::move(Ergebnis);
    }

  private:
    void Melden(std::string_view Pfad, std::string_view Wie) {
        if (Umgebung.Log.Aktiv())
            Umgebung.Log.Schreiben("AbspielenMediaPlayer: Führe Datei '" + std::string(Pfad) + "' " +
                                   std::string(Wie) + "...");
    }

    // Counts a play now. Where the watched player may turn out to be the one that plays it, the play is
    // remembered, so that the recognition does not count it a second time.
    void Vermerken(Satznummer Nummer, bool KannErkanntWerden) {
        if (Umgebung.Spieler.Werte.AbspielStatistikSpeichern != 1) return;
        AbspielenVermerken(Umgebung.Index, Nummer, DatumZeitText(Umgebung.Spieler.Zeit.Jetzt()));
        if (KannErkanntWerden)
            VorabVermerken(Umgebung.Erkennung.Vorab, Umgebung.Spieler.Werte,
                           Umgebung.Index.Sätze.Pfad(Nummer));
    }

    // The window tells nobody of a failed start but the log; the command line prints what is kept here.
    bool Gestartet(const Programmlaufnummer& Start, std::string_view Pfad) {
        if (Start) {
            ++Ergebnis.Anzahl;
            return true;
        }
        if (Umgebung.Log.Aktiv())
            Umgebung.Log.Schreiben("AbspielenMediaPlayer: Fehler - '" + std::string(Pfad) +
                                   "': " + Start.Fehler);
        Ergebnis.Gelungen = false;
        Ergebnis.Fehler.push_back("Die Datei '" + std::string(Pfad) +
                                  "' konnte nicht übergeben werden: " + Start.Fehler);
        return false;
    }

    void AnAnwendung(Satznummer Nummer, std::string_view Programm) {
        const std::string Pfad = Umgebung.Index.Sätze.Pfad(Nummer);
        Melden(Pfad, "mit Standard-Anwendung aus (gewünscht)");
        const bool Läuft = Gestartet(Programm.empty() ? Umgebung.Spieler.Programme.MitAnwendungÖffnen(Pfad)
                                                      : Umgebung.Spieler.Programme.Starten(Programm, {Pfad}),
                                     Pfad);
        // Kept: what did not start counts as well. The association may lead to the watched player.
        const bool VielleichtSpieler = Programm.empty() || Programm == Umgebung.Spieler.Werte.WinampPfad;
        Vermerken(Nummer, Läuft && VielleichtSpieler);
    }

    void NachDateityp(Satznummer Nummer) {
        const std::string Pfad = Umgebung.Index.Sätze.Pfad(Nummer);
        if (GehörtDemSpieler(Umgebung.Index, Nummer)) {
            Melden(Pfad, "über Playlisten-Funktion aus");
            AnSpieler(Nummer);
        } else if (DateiTypErlaubt(Umgebung.Index.Optionen.Dateitypen, Pfad, false, true, false, false)) {
            Melden(Pfad, "mit internem Bild-Anzeiger aus");
            const bool Gezeigt = BildAnzeigen(Umgebung, Pfad);
            Ergebnis.Anzahl += Gezeigt ? 1 : 0;
            Ergebnis.Gelungen = Ergebnis.Gelungen && Gezeigt;
        } else {
            Melden(Pfad, "mit Standard-Anwendung aus (lt. Einstellung)");
            Gestartet(Umgebung.Spieler.Programme.MitAnwendungÖffnen(Pfad), Pfad);
        }
    }

    void AnSpieler(Satznummer Nummer) {
        if (Gescheitert) return;
        if (Leeren && !Geleert) {
            Geleert = true;
            if (PlayerSuchen(Umgebung.Spieler, false))
                PlayerBefehl(Umgebung.Spieler, SpielerListeLeeren, true);
        }
        const bool ErsteDatei = Spielen && Übergebene == 0 && Eingetragen.empty();
        if (!Liste.Offen && !PlaylisteBeginnen(Umgebung, Liste)) {
            Gescheitert = true;
            Ergebnis.Gelungen = false;
            return;
        }
        if (!Eintragen(Nummer)) {
            Ergebnis.Gelungen = false;
            return;
        }
        Eingetragen.push_back(Nummer);
        // What is played now takes the place of the list before.
        if (ErsteDatei) Umgebung.Erkennung.Vorab.Pfade.clear();
        if (ErsteDatei && !GanzeListe) ErsteSpielen();
    }

    static bool LiegtInLaufwerk(std::string_view Pfad) { return Pfad.starts_with("/dev/"); }

    // A track of a CD is no file for the players of this system: it has an address, or cannot be handed over.
    bool Eintragen(Satznummer Nummer) {
        const std::string Pfad = Umgebung.Index.Sätze.Pfad(Nummer);
        if (AusDerTabelle || !EndetMitOhneGroß(Pfad, ".cda"))
            return PlaylisteEintrag(Umgebung, Liste, Nummer);
        const auto Titel = CDTitelnummer(Pfad);
        if (Cdadresse.empty() || !Titel || !LiegtInLaufwerk(Pfad)) {
            CdTitel.push_back(Pfad);
            return false;
        }
        Liste.Inhalt += std::string(Cdadresse) + std::to_string(*Titel) + "\n";
        ++Liste.Anzahl;
        return true;
    }

    static std::string Genannte(const std::vector<std::string>& Pfade) {
        constexpr std::size_t GenanntHöchstens = 10;
        std::string Text;
        for (std::size_t i = 0; i < std::min(Pfade.size(), GenanntHöchstens); ++i)
            Text += "\n" + Pfade[i];
        if (Pfade.size() > GenanntHöchstens)
            Text += "\n... und " + std::to_string(Pfade.size() - GenanntHöchstens) + " weitere";
        return Text;
    }

    void UnvollständigeMelden() {
        if (Unvollständige.empty()) return;
        Umgebung.Spieler.Person.Melden(
            Symbol::Ausrufezeichen,
            "Diese Dateien können nicht übergeben werden, weil der Index keinen vollständigen Pfad nennt:" +
                Genannte(Unvollständige) + "\n\nBitte fügen Sie die Dateien neu hinzu.");
    }

    void CdTitelMelden() {
        if (CdTitel.empty()) return;
        std::string Text = "Diese Titel einer Audio-CD können nicht an Ihren Audioplayer übergeben werden:" +
                           Genannte(CdTitel);
        if (std::ranges::any_of(CdTitel, LiegtInLaufwerk)) {
            Text +=
                "\n\n'" + std::string(DateinameVon(Umgebung.Spieler.Werte.WinampPfad)) +
                "' spielt einzelne Titel einer CD nicht aus einer Playliste. Bitte öffnen Sie dort die CD "
                "selbst.";
        }
        if (!std::ranges::all_of(CdTitel, LiegtInLaufwerk)) {
            Text +=
                "\n\nEinzelne Titel eines CD-Abbildes kann kein Audioplayer öffnen. Bitte öffnen Sie dort "
                "das "
                "Abbild selbst, oder nehmen Sie dessen Klangdateien in den Index auf.";
        }
        Umgebung.Spieler.Person.Melden(Symbol::Ausrufezeichen, Text);
    }

    // The first file starts at once; the others follow by "add", and must not reach the player before it.
    void ErsteSpielen() {
        const bool WeitereFolgt =
            std::any_of(Dateien.begin() + static_cast<std::ptrdiff_t>(Stelle) + 1, Dateien.end(),
                        [this](Satznummer Nummer) { return GehörtDemSpieler(Umgebung.Index, Nummer); });
        if (!Übergeben(AusDerTabelle, AusDerTabelle || WeitereFolgt) || !AusDerTabelle) return;
        if (!PlayerSuchen(Umgebung.Spieler, false)) return;
        PlayerBefehl(Umgebung.Spieler, SpielerListenanfang, false);
        PlayerBefehl(Umgebung.Spieler, SpielerSpielen, false);
    }

    bool Übergeben(bool Hinzufügen, bool Warten) {
        const bool Erreicht = PlaylisteÜbergeben(Umgebung, Liste, Hinzufügen, Warten, Ergebnis);
        Gescheitert = Gescheitert || !Erreicht;
        Ergebnis.Gelungen = Ergebnis.Gelungen && Erreicht;
        if (Erreicht) {
            Übergebene += static_cast<int>(Eingetragen.size());
            // The recognition counts what a watched player plays; only what goes to others is counted here.
            for (const Satznummer Nummer : Eingetragen) {
                if (!Beobachtet) Vermerken(Nummer, true);
            }
        }
        Eingetragen.clear();
        return Erreicht;
    }

    void Abschließen() {
        if (Liste.Offen && Liste.Anzahl > 0) {
            Umgebung.Log.Schreiben("AbspielenMediaPlayer: Übergabe der Playliste an Anwendung...");
            // Unlike other players, one that knows no switches gets all in one list: a second one would
            // take the place of the first.
            Übergeben(!(GanzeListe && Spielen), false);
        }
        Ergebnis.Anzahl += Übergebene;
        CdTitelMelden();
        UnvollständigeMelden();
        if (Übergebene > 0 && !Gescheitert && Umgebung.Spieler.Werte.AudioplayerNachrichtZeigen == 1 &&
            Umgebung.NachrichtZeigen)
            Umgebung.NachrichtZeigen();
    }

    Abspielumgebung& Umgebung;
    const std::vector<Satznummer>& Dateien;
    std::size_t Stelle = 0;  // in Dateien
    bool Leeren;
    bool Spielen;                // not only appending
    bool AusDerTabelle = false;  // "winamp.exe" or "studio.exe"
    bool Beobachtet = false;     // the recognition counts
    bool GanzeListe = false;
    std::string_view Cdadresse;  // as in the profile
    Playliste Liste;
    std::vector<Satznummer> Eingetragen;  // in the open list
    std::vector<std::string> CdTitel;     // that the player does not take
    std::vector<std::string> Unvollständige;
    Abspielergebnis Ergebnis;
    int Übergebene = 0;  // files that went the way of the play list
    bool Geleert = false;
    bool Gescheitert = false;  // no player: nothing more is tried in this call
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
        Umgebung.Warteschritt ? Umgebung.Warteschritt() : Umgebung.Spieler.Person.EreignisseVerarbeiten();
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
                        Abspielergebnis& Ergebnis) {
    const Spielersteuerung& Spieler = Umgebung.Spieler;
    const std::string& Pfad = Spieler.Werte.WinampPfad;
    const Playliste Fertige = std::exchange(Liste, {});
    AltePlaylistenLöschen(Umgebung.Ordner, Spieler.Zeit, Umgebung.Laufzeitordner);
    const std::string& Playlistdatei = Ergebnis.Playlistdatei =
        PlaylistdateiWählen(Pfad, Umgebung.Laufzeitordner, Spieler.Zeit.Jetzt());
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
        Ergebnis.Fehler.push_back("Der Audioplayer '" + Pfad +
                                  "' konnte nicht gestartet werden: " + Start.Fehler);
        return false;
    }
    if (Warten) ÜbernahmeAbwarten(Umgebung, Start);
    const std::string Name(DateinameVon(Pfad));
    Spieler.Person.StatusZeigen(Hinzufügen ? "Dateien hinzugefügt bei '" + Name + "'"
                                           : "Dateien abgespielt mit '" + Name + "'");
    return true;
}

bool BildAnzeigen(const Abspielumgebung& Umgebung, std::string_view Pfad) {
    if (!DateiExistiert(Pfad)) {
        // Kept: the quotes stay empty.
        Umgebung.Spieler.Person.Melden(Symbol::Information, "Die Datei '' existiert nicht.");
        return false;
    }
    return Umgebung.BildAnzeigen && Umgebung.BildAnzeigen(Pfad);
}

bool BrauchtAudioplayer(const Katalog& Index, const std::vector<Satznummer>& Dateien) {
    return std::any_of(Dateien.begin(), Dateien.end(),
                       [&](Satznummer Nummer) { return GehörtDemSpieler(Index, Nummer); });
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
