#include "dateien/neulesen.h"

#include <algorithm>
#include <optional>
#include <set>
#include <variant>

#include "basis/datei.h"
#include "basis/datum.h"
#include "basis/text.h"
#include "basis/zahl.h"
#include "dateien/synchronisieren.h"
#include "dateien/vorleser.h"

namespace liedwerk {
namespace {

// A calendar time in seconds since 1970 UTC, or up to two hours earlier: calendar times repeat an hour when
// summer time ends. A file that is read once too often costs nothing.
std::int64_t Frühestens(const Zeitpunkt& Punkt, const Uhr& Zeit) {
    constexpr std::int64_t Stunde = 3600;
    const std::int64_t Kalender = Kalendersekunden(Punkt);
    const std::int64_t Versatz = Kalendersekunden(Zeit.Lokal(Kalender)) - Kalender;
    return Kalender - Versatz - Stunde;
}

// What the index knows of the last run: its time, and the media and drives that were away then. Nobody can
// tell what was changed there since.
struct Vorlauf {
    std::optional<std::int64_t> Zeit;
    std::set<std::string> Fehlten;
};
constexpr std::string_view Standtrenner = "|";

// A time that is still to come was a clock's mistake.
Vorlauf LetzterLauf(const Katalog& Index, std::int64_t Jetziger) {
    const auto Teile = Teilen(Index.Optionen.SyncStand, Standtrenner);
    const auto Zeit = Teile.empty() ? std::nullopt : GanzzahlLesen<std::int64_t>(Teile.front());
    if (!Zeit || *Zeit > Jetziger) return {};
    return {Zeit, {Teile.begin() + 1, Teile.end()}};
}

// Finds the records whose files are others by now.
class Änderungssuche {
  public:
    Änderungssuche(const Hinzufügeumgebung& Ziel, const Uhr& Uhrzeit, Vorlauf Davor)
        : Umgebung(Ziel), Zeit(Uhrzeit), Voriger(std::move(Davor)) {}

    // Looks at the first so many records. False when the person cancelled.
    bool Suchen(Satznummer Anzahl) {
        if (Umgebung.Werte.StartBildschirm == 1)
            Umgebung.Person.FortschrittStarten("Geänderte Dateien suchen", true, Anzahl);
        for (Satznummer Nummer = 1; Nummer <= Anzahl; ++Nummer) {
            if (!Umgebung.Person.FortschrittZeigen({}, Nummer)) return false;
            Ansehen(Nummer);
        }
        return true;
    }

    std::vector<Satznummer> Geänderte;
    std::set<std::string> Fehlen;  // media and drives whose files were not at hand

  private:
    void Ansehen(Satznummer Nummer) {
        const auto& Sätze = Umgebung.Index.Sätze;
        // What a record of a CD's track tells does not come from a file.
        if (Sätze.Zahl(Nummer, FeldDateityp) == DateiartCdTitel) return;
        const std::string Pfad = Sätze.Pfad(Nummer);
        const auto Datei = DateistandLesen(Pfad);
        if (!Datei) {
            if (DateiNachsehen(Pfad, Umgebung.Laufwerk) != Dateiverbleib::Fort)
                Fehlen.insert(Träger(Nummer, Pfad));
        } else if (Datei->IstDatei && IstAnders(Nummer, Pfad, *Datei)) {
            if (IstSeinMedium(Nummer, Pfad)) {
                Geänderte.push_back(Nummer);
            } else {
                Fehlen.insert(Träger(Nummer, Pfad));
            }
        }
    }

    // What a record's file lies on: its medium, or the drive of its path.
    std::string Träger(Satznummer Nummer, const std::string& Pfad) const {
        const std::string Medium = Umgebung.Index.Sätze.Text(Nummer, FeldWechselmedium);
        return Ersetzen(Medium.empty() ? LaufwerkDesPfades(Umgebung.Laufwerk, Pfad) : Medium, Standtrenner,
                        "/");
    }

    bool IstAnders(Satznummer Nummer, const std::string& Pfad, const Dateistand& Datei) const {
        const auto& Sätze = Umgebung.Index.Sätze;
        if (Sätze.Zahl(Nummer, FeldGröße) != static_cast<std::int64_t>(Datei.Größe)) return true;
        const bool Gesehen =
            Voriger.Zeit && (Voriger.Fehlten.empty() || !Voriger.Fehlten.contains(Träger(Nummer, Pfad)));
        if (Gesehen) return Datei.Änderungszeit >= *Voriger.Zeit;
        const auto Hinzugefügt = DatumLesen(Sätze.Text(Nummer, FeldHinzufügeDatum));
        return Hinzugefügt && Kalendertage(Zeit.Lokal(Datei.Änderungszeit)) > Kalendertage(*Hinzugefügt);
    }

    // On a removable drive another medium may hold a file of the same path.
    bool IstSeinMedium(Satznummer Nummer, const std::string& Pfad) const {
        const std::string Laufwerk = LaufwerkDesPfades(Umgebung.Laufwerk, Pfad);
        if (!LaufwerkIstWechsellaufwerk(Umgebung.Medium, Umgebung.Laufwerk, Laufwerk)) return true;
        std::string Aktuell;
        return WechselmediumVergleichen(Umgebung.Medium, Umgebung.Laufwerk, Laufwerk,
                                        Umgebung.Index.Sätze.Text(Nummer, FeldWechselmedium), Aktuell);
    }

    const Hinzufügeumgebung& Umgebung;
    const Uhr& Zeit;
    const Vorlauf Voriger;
};

bool ZwischenFeldern(int Feld, int Erstes, int Letztes) {
    return Feld >= Erstes && Feld <= Letztes;
}

// True for a field that keeps its value when the file is read with this code: it is the person's or the
// program's, or its part of the file was not read.
bool FeldBleibt(int Feld, bool IstMpeg, const Lesecode& Code) {
    switch (Feld) {
        case FeldWechselmedium:
        case FeldHinzufügeDatum:
        case FeldAbspielHäufigkeit:
        case FeldAbspielDatum:
        case FeldBenutzerDaten:
        case FeldQualität:
            return true;
        case FeldGröße:
        case FeldDateityp:
            return false;
        default:
            break;
    }
    if (IstMpeg && ZwischenFeldern(Feld, FeldAlbum, FeldJahr)) return !Code.Id3v1;
    if (IstMpeg && ZwischenFeldern(Feld, FeldV2AbspielZähler, FeldV2Qualität)) return !Code.Id3v2;
    return !Code.Datenstrom;
}

// Puts into a record fresh from its file what does not come from there.
void ÜbrigesÜbernehmen(const Datensatz& Alt, const Lesecode& Code, Datensatz& Neu) {
    const bool IstMpeg = Neu.Dateityp == DateiartMpeg;
    for (const Feldbeschreibung& Feld : Felder) {
        if (!FeldBleibt(Feld.Nummer, IstMpeg, Code)) continue;
        const auto Kopieren = [&](auto Ort) {
            if constexpr (!std::is_same_v<decltype(Ort), std::monostate>) Neu.*Ort = Alt.*Ort;
        };
        std::visit(Kopieren, Feld.Ort);
    }
    if (FeldBleibt(FeldTitel, IstMpeg, Code)) Neu.HatId3v1 = Alt.HatId3v1;
    if (FeldBleibt(FeldV2Titel, IstMpeg, Code)) Neu.HatId3v2 = Alt.HatId3v2;
}

bool SagtDasselbe(const Datensatz& Alt, const Datensatz& Neu) {
    return std::ranges::all_of(Felder, [&](const Feldbeschreibung& Feld) {
        // Without a tag these numbers are nothing but start values, which differ by the record's origin.
        const bool Startwert =
            Neu.HatId3v2 != TagVorhanden && (Feld.Nummer == FeldId3v2Größe || Feld.Nummer == FeldV2Qualität);
        const auto Gleich = [&](auto Ort) {
            if constexpr (std::is_same_v<decltype(Ort), std::monostate>) {
                return true;
            } else {
                return Neu.*Ort == Alt.*Ort;
            }
        };
        return Startwert || std::visit(Gleich, Feld.Ort);
    });
}

// True when a file whose reader asks the media player's port gave nothing: it is broken, or does not answer.
bool OhneAuskunft(const Datensatz& Neu, const Lesecode& Code) {
    const bool Gefragt = Neu.Dateityp == DateiartWindowsMedia || Neu.Dateityp == DateiartWeitere;
    return Gefragt && Code.Datenstrom && Neu.HatId3v1 != TagVorhanden && Neu.Dauer == 0 && Neu.Frequenz == 0;
}

class Neuleser {
  public:
    Neuleser(const Hinzufügeumgebung& Ziel, Neulesung& Bericht)
        : Umgebung(Ziel), Ergebnis(Bericht), Auftrag(HinzufügeLeseauftrag(Ziel.Werte.Mp3TagLesen)) {
        Auftrag.GrößeLesen = true;
        // The record knows its medium.
        Auftrag.WechselmediumLesen = false;
    }

    // False when the person cancelled.
    bool Lesen(const std::vector<Satznummer>& Nummern) {
        if (Nummern.empty()) return true;
        if (Umgebung.Werte.StartBildschirm == 1)
            Umgebung.Person.FortschrittStarten("Geänderte Dateien lesen", true,
                                               static_cast<std::int64_t>(Nummern.size()));
        Vorleser Leser(Umgebung.Leser, Lesefäden(Nummern.size()));
        std::size_t Aufgetragen = 0;
        for (std::size_t Fertig = 0; Fertig < Nummern.size(); ++Fertig) {
            while (Aufgetragen < Nummern.size() && !Leser.Voll())
                Leser.Auftragen(Umgebung.Index.Sätze.Pfad(Nummern[Aufgetragen++]), false, Auftrag);
            Leser.Losschicken();
            const auto Position = static_cast<std::int64_t>(Fertig) + 1;
            Leseposten* Posten = nullptr;
            do {
                if (!Umgebung.Person.FortschrittZeigen({}, Position)) return false;
                Posten = Leser.Abwarten(Lesewartezeit);
            } while (Posten == nullptr);
            Übernehmen(Nummern[Fertig], *Posten);
            Leser.Ablegen();
        }
        return true;
    }

  private:
    void Übernehmen(Satznummer Nummer, Leseposten& Posten) {
        Dateifehler Fehler;
        const bool Offen = Lesedatei::Öffnen(Posten.Pfad, &Fehler).Offen();
        const Lesecode Code = Auftrag.Code.value_or(Lesecode{});
        Datensatz& Neu = Posten.Satz;
        const bool Geleert = Neu.Größe == 0 && Umgebung.Index.Sätze.Zahl(Nummer, FeldGröße) > 0;
        if (!Offen || Geleert || !Posten.Vorhanden || !Posten.Fehler.empty() || OhneAuskunft(Neu, Code)) {
            const std::string Grund = !Offen ? Fehler.Text : Geleert ? "Die Datei ist leer" : Posten.Fehler;
            Umgebung.Log.Schreiben("Synchronisieren: '" + Posten.Pfad + "' konnte nicht neu gelesen werden" +
                                   (Grund.empty() ? "" : " - " + Grund));
            Ergebnis.Unlesbar.push_back(Posten.Pfad);
            return;
        }
        auto& Sätze = Umgebung.Index.Sätze;
        const Datensatz Alt = Sätze.Lesen(Nummer);
        if (Neu.Dateityp == DateiartSonstige) {
            // Settings and file types tell of no kind (any more): nothing but the size was read.
            const auto Größe = Neu.Größe;
            Neu = Alt;
            Neu.Größe = Größe;
        } else {
            ÜbrigesÜbernehmen(Alt, Code, Neu);
        }
        if (SagtDasselbe(Alt, Neu)) return;
        Sätze.Setzen(Nummer, Posten.Pfad, Neu);
        Umgebung.Index.IndexGeändert = true;
        ++Ergebnis.Geändert;
    }

    const Hinzufügeumgebung& Umgebung;
    Neulesung& Ergebnis;
    Leseauftrag Auftrag;
};

}  // namespace

Neulesung GeänderteNeuLesen(const Hinzufügeumgebung& Umgebung, const Uhr& Zeit,
                            const Neuleseauftrag& Auftrag) {
    Neulesung Ergebnis;
    const std::int64_t Beginn = Frühestens(Auftrag.Beginn, Zeit);
    Änderungssuche Suche(Umgebung, Zeit, LetzterLauf(Umgebung.Index, Beginn));
    Ergebnis.Abgebrochen =
        !Suche.Suchen(Auftrag.Letzter) || !Neuleser(Umgebung, Ergebnis).Lesen(Suche.Geänderte);
    // Saved with the next change of the index: until then the older time only lets more files be read.
    if (!Ergebnis.Abgebrochen && Ergebnis.Unlesbar.empty()) {
        std::string& Stand = Umgebung.Index.Optionen.SyncStand;
        Stand = std::to_string(Beginn);
        for (const std::string& Eines : Suche.Fehlen)
            Stand.append(Standtrenner).append(Eines);
    }
    return Ergebnis;
}

}  // namespace liedwerk
