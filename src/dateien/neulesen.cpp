#include "dateien/neulesen.h"

#include <algorithm>
#include <optional>
#include <set>
#include <variant>

#include "basis/datei.h"
#include "basis/datum.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "basis/zahl.h"
#include "dateien/synchronisieren.h"
#include "dateien/vorleser.h"
#include "index/indexformat.h"

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

// What the index knows of the last run: its time, and the places that were out of reach then: media, drives
// and folders, and single files that could not be read. Nobody can tell what was changed there before.
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
    Vorlauf Letzter{Zeit, {Teile.begin() + 1, Teile.end()}};
    // It would stand for every place.
    Letzter.Fehlten.erase("");
    return Letzter;
}

// A name as it stands among those places.
std::string Standname(std::string_view Name) {
    return Ersetzen(Name, Standtrenner, "/");
}

// The option's text; nothing when there are more places than a line should hold.
std::optional<std::string> Standtext(std::int64_t Zeit, const std::set<std::string>& Fehlen) {
    std::string Text = std::to_string(Zeit);
    for (const std::string& Eines : Fehlen)
        Text.append(Standtrenner).append(Eines);
    return Text.size() > static_cast<std::size_t>(HöchsteLänge) ? std::nullopt : std::optional(Text);
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
    std::set<std::string> Fehlen;  // places that were out of reach

  private:
    // A record and where its file lies.
    struct Ort {
        Satznummer Nummer;
        std::string Pfad;
        std::string Medium;
        std::string Laufwerk;
    };

    void Ansehen(Satznummer Nummer) {
        const auto& Sätze = Umgebung.Index.Sätze;
        // What a record of a CD's track tells does not come from a file.
        if (Sätze.Zahl(Nummer, FeldDateityp) == DateiartCdTitel) return;
        const std::string Pfad = Sätze.Pfad(Nummer);
        const Ort Hier{Nummer, Pfad, Sätze.Text(Nummer, FeldWechselmedium),
                       LaufwerkDesPfades(Umgebung.Laufwerk, Pfad)};
        const auto Datei = DateistandLesen(Pfad);
        if (!Datei) {
            if (!IstSicherFort(Hier)) Vermissen(Hier);
        } else if (!IstSeinMedium(Hier)) {
            Vermissen(Hier);
        } else if (Datei->IstDatei && IstAnders(Hier, *Datei)) {
            Geänderte.push_back(Nummer);
        }
    }

    bool IstWechsel(const std::string& Laufwerk) const {
        return LaufwerkIstWechsellaufwerk(Umgebung.Medium, Umgebung.Laufwerk, Laufwerk);
    }

    bool MediumGleich(const Ort& Hier) const {
        std::string Aktuell;
        return WechselmediumVergleichen(Umgebung.Medium, Umgebung.Laufwerk, Hier.Laufwerk, Hier.Medium,
                                        Aktuell);
    }

    // On a removable drive another medium may hold a file of the same path, even of the same size and time.
    bool IstSeinMedium(const Ort& Hier) const { return !IstWechsel(Hier.Laufwerk) || MediumGleich(Hier); }

    // True for a file that is not on its medium. Where that cannot be told from its medium being away (one
    // without a name; an empty folder where a drive was), the file may come back with changes from elsewhere.
    bool IstSicherFort(const Ort& Hier) const {
        const bool MediumDa = Hier.Medium.empty() ? !KannWiederkommen(Umgebung.Medium, Umgebung.Laufwerk,
                                                                      Hier.Pfad, {}, Hier.Laufwerk)
                                                  : MediumGleich(Hier);
        return MediumDa && FehltGewiss(Hier.Pfad, Umgebung.Laufwerk);
    }

    void Vermissen(const Ort& Hier) {
        const bool Ganz = IstWechsel(Hier.Laufwerk) || !Umgebung.Laufwerk.Drives.Vorhanden(Hier.Laufwerk);
        Fehlen.insert(Standname(!Hier.Medium.empty() ? Hier.Medium
                                : Ganz               ? Hier.Laufwerk
                                                     : PfadVon(Hier.Pfad)));
    }

    // True when the last run could not look at this file. A drive's place has another name while nothing is
    // mounted there, a longer one or a shorter one; both begin the path behind its links.
    bool WarAußerReichweite(const Ort& Hier) const {
        if (Voriger.Fehlten.empty()) return false;
        const std::string Pfad = Standname(Hier.Pfad);
        const std::string Medium = Standname(Hier.Medium);
        const std::string Laufwerk = Standname(Hier.Laufwerk);
        const bool Wechsel = IstWechsel(Hier.Laufwerk);
        return std::ranges::any_of(Voriger.Fehlten, [&](const std::string& Einer) {
            return Einer == Medium || Pfad.starts_with(Einer) || Laufwerk.starts_with(Einer) ||
                   (Wechsel && Einer.starts_with(Laufwerk));
        });
    }

    bool IstAnders(const Ort& Hier, const Dateistand& Datei) const {
        const auto& Sätze = Umgebung.Index.Sätze;
        if (Sätze.Zahl(Hier.Nummer, FeldGröße) != static_cast<std::int64_t>(Datei.Größe)) return true;
        if (Voriger.Zeit && Datei.Änderungszeit >= *Voriger.Zeit) return true;
        if (Voriger.Zeit && !WarAußerReichweite(Hier)) return false;
        // It could not be read then: its day is no matter.
        if (Voriger.Fehlten.contains(Standname(Hier.Pfad))) return true;
        const auto Hinzugefügt = DatumLesen(Sätze.Text(Hier.Nummer, FeldHinzufügeDatum));
        return Hinzugefügt && Kalendertage(Zeit.Lokal(Datei.Änderungszeit)) > Kalendertage(*Hinzugefügt);
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

bool HatTags(const Datensatz& Satz) {
    return Satz.HatId3v1 == TagVorhanden || Satz.HatId3v2 == TagVorhanden || Satz.HatLyrics == TagVorhanden;
}

bool IstKlangart(std::int16_t Dateityp) {
    return Dateityp != DateiartSonstige && Dateityp != DateiartBild;
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
    // What is left of a file that was emptied, cut off or overwritten (by a broken download or a power cut)
    // tells nothing any more: the record may be the only thing that still knows.
    bool IstVerstummt(const std::string& Pfad, const Datensatz& Alt, const Datensatz& Neu) const {
        if (!IstKlangart(Neu.Dateityp) || HatTags(Neu)) return false;
        if (Neu.Dateityp == DateiartWindowsMedia || Neu.Dateityp == DateiartWeitere) {
            // Their reader asks the media player's port, which may not have answered.
            const bool Gefragt = Auftrag.Code && Auftrag.Code->Datenstrom;
            return Gefragt && Neu.Dauer == 0 && Neu.Frequenz == 0;
        }
        if (!HatTags(Alt) && Alt.Dauer == 0) return false;
        // By the settings not all of the file may have been read.
        Leseauftrag Alles;
        Alles.Code = Lesecode{true, true, true, true};
        const Datensatz Ganz = Umgebung.Leser(Pfad, Datensatz{}, Alles);
        return !HatTags(Ganz) && !Ganz.KopfGefunden;
    }

    // Why the record must not be renewed; nothing when the file tells what it holds.
    std::optional<std::string> Hindernis(const Datensatz& Alt, const Leseposten& Posten) const {
        Dateifehler Fehler;
        if (!Lesedatei::Öffnen(Posten.Pfad, &Fehler).Offen()) return Fehler.Text;
        if (!Posten.Vorhanden || !Posten.Fehler.empty()) return Posten.Fehler;
        if (Posten.Satz.Lesegestört || !IstLesbar(Posten.Pfad))
            return "Die Datei lässt sich nicht vollständig lesen";
        if (!IstVerstummt(Posten.Pfad, Alt, Posten.Satz)) return std::nullopt;
        return Posten.Satz.Größe == 0 ? "Die Datei ist leer"
                                      : "In der Datei wurden weder Klang noch TAGs gefunden";
    }

    void Übernehmen(Satznummer Nummer, Leseposten& Posten) {
        auto& Sätze = Umgebung.Index.Sätze;
        const Datensatz Alt = Sätze.Lesen(Nummer);
        if (const auto Grund = Hindernis(Alt, Posten)) {
            Umgebung.Log.Schreiben("Synchronisieren: '" + Posten.Pfad + "' konnte nicht neu gelesen werden" +
                                   (Grund->empty() ? "" : " - " + *Grund));
            Ergebnis.Unlesbar.push_back(Posten.Pfad);
            return;
        }
        Datensatz& Neu = Posten.Satz;
        if (IstKlangart(Neu.Dateityp)) {
            ÜbrigesÜbernehmen(Alt, Auftrag.Code.value_or(Lesecode{}), Neu);
        } else {
            // Of other files, and where settings and file types tell of no kind any more, nothing but the
            // size was read.
            const auto Größe = Neu.Größe;
            Neu = Alt;
            Neu.Größe = Größe;
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
    const auto Voriger = LetzterLauf(Umgebung.Index, Beginn);
    Änderungssuche Suche(Umgebung, Zeit, Voriger);
    Ergebnis.Abgebrochen =
        !Suche.Suchen(Auftrag.Letzter) || !Neuleser(Umgebung, Ergebnis).Lesen(Suche.Geänderte);
    if (Ergebnis.Abgebrochen) return Ergebnis;
    for (const std::string& Pfad : Ergebnis.Unlesbar)
        Suche.Fehlen.insert(Standname(Pfad));
    auto Stand = Standtext(Beginn, Suche.Fehlen);
    if (!Stand) {
        // The older time only lets more files be read.
        Umgebung.Log.Schreiben("Synchronisieren: " + std::to_string(Suche.Fehlen.size()) +
                               " Orte sind nicht erreichbar, zu viele zum Merken - die nächste "
                               "Synchronisation liest die seit der vorigen geänderten Dateien noch einmal");
        return Ergebnis;
    }
    auto& Index = Umgebung.Index;
    // Where files were read, the next run is to find them read, also when they told nothing new.
    const bool Gelesen = Suche.Geänderte.size() > Ergebnis.Unlesbar.size();
    Index.IndexGeändert = Index.IndexGeändert || Gelesen || Index.Optionen.SyncStand.empty();
    Index.Optionen.SyncStand = std::move(*Stand);
    // The person is told once of each; a message that comes every time is not read.
    std::erase_if(Ergebnis.Unlesbar,
                  [&](const std::string& Pfad) { return Voriger.Fehlten.contains(Standname(Pfad)); });
    return Ergebnis;
}

}  // namespace liedwerk
