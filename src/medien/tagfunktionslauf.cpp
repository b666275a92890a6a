#include "medien/tagfunktionslauf.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

#include "basis/pfad.h"
#include "medien/id3v2.h"

namespace liedwerk {
namespace {

constexpr std::array<Tagblock, 3> AlleBlöcke = {Tagblock::Id3v1, Tagblock::Id3v2, Tagblock::Lyrics};

Tagauswahl AuswahlVon(Tagblock Block) {
    return static_cast<Tagauswahl>(Block);
}

// One run, file by file.
class Lauf {
  public:
    Lauf(const Tagumgebung& Umgebung, Tagverzeichnis& Verzeichnis, const Funktionsauftrag& Was)
        : Welt(Umgebung), AutoTagWelt{Umgebung.Index, Umgebung.Werte, Verzeichnis}, Auftrag(Was) {}
    Funktionsergebnis Ausführen();

  private:
    void DateiBearbeiten(Tagarbeit& Arbeit);
    void FelderBearbeiten(Tagarbeit& Arbeit, Tagblock Block);
    std::vector<Tagblock> BetroffeneBlöcke() const;
    void GeändertesSpeichern(Tagarbeit& Arbeit, const Datensatz& Vorher);
    void TagsEntfernen(Tagarbeit& Arbeit);
    void Entfernen(Tagarbeit& Arbeit, Tagblock Block, bool Still);
    void Aufräumen(Tagarbeit& Arbeit);
    void AutoTag(Tagarbeit& Arbeit, AutoTagZiel Ziel);
    void Speichern(Tagarbeit& Arbeit, Tagauswahl Welche, bool NurMitInhalt,
                   const Datensatz* InDatei = nullptr);
    void Melden(const Tagarbeit& Arbeit, const std::string& Meldung);
    void UngelesenesMerken(const Tagarbeit& Arbeit);
    void AmEndeMelden(const std::vector<std::string>& Texte, std::string_view Mehrere);

    const Tagumgebung& Welt;
    AutoTagUmgebung AutoTagWelt;
    const Funktionsauftrag& Auftrag;
    Funktionsergebnis Ergebnis;
    bool DateiGescheitert = false;
    std::set<std::string> Gemeldet;
    std::vector<std::string> NichtEntfernt;  // messages of removals that showed none
    std::vector<std::string> Ungelesene;     // the same of files that did not answer
};

// The texts do not name the file: shown again and again in one run they would tell nothing more.
void Lauf::Melden(const Tagarbeit& Arbeit, const std::string& Meldung) {
    if (Meldung.empty()) return;
    DateiGescheitert = true;
    Welt.Mediumfragen.Log.Schreiben("TagfunktionAusführen: '" + Arbeit.Pfad + "' - " + Meldung);
    if (Gemeldet.insert(Meldung).second) Welt.Person.Melden(Symbol::Information, Meldung);
}

void Lauf::Speichern(Tagarbeit& Arbeit, Tagauswahl Welche, bool NurMitInhalt, const Datensatz* InDatei) {
    const Tagsergebnis Gespeichert = TagsSpeichern(Welt, Arbeit, Welche, NurMitInhalt, InDatei);
    if (Gespeichert.Gescheitert) DateiGescheitert = true;
    if (Gespeichert.Abgebrochen) Ergebnis.Abgebrochen = true;
}

void Lauf::AutoTag(Tagarbeit& Arbeit, AutoTagZiel Ziel) {
    Melden(Arbeit, AutoTagAusführen(AutoTagWelt, Arbeit.Pfad, Welt.Werte.AutoTagAktuell, Arbeit.Satz,
                                    Datensatz(Arbeit.Satz), Ziel));
}

void Lauf::Entfernen(Tagarbeit& Arbeit, Tagblock Block, bool Still) {
    const Entfernergebnis Ausgang = TagEntfernen(Welt, Arbeit, Block, Still);
    if (Ausgang) return;
    DateiGescheitert = true;
    if (Ausgang.Abgebrochen) Ergebnis.Abgebrochen = true;
    if (Still) NichtEntfernt.push_back(Ausgang.Meldung);
}

void Lauf::TagsEntfernen(Tagarbeit& Arbeit) {
    const bool Still = Auftrag.Auswahl.AlleDateien;
    std::vector<Tagblock> Blöcke = Id3Blöcke(Auftrag.Auswahl);
    if (Auftrag.Auswahl.Lyrics) Blöcke.push_back(Tagblock::Lyrics);
    for (const Tagblock Block : Blöcke) {
        if (Ergebnis.Abgebrochen) return;
        // Among many files those without the tag are no failure.
        const std::array<std::uint8_t, 3> Zustände = {Arbeit.Satz.HatId3v1, Arbeit.Satz.HatId3v2,
                                                      Arbeit.Satz.HatLyrics};
        if (!Still || Zustände[static_cast<std::size_t>(Block) - 1] == TagVorhanden)
            Entfernen(Arbeit, Block, Still);
    }
}

void Lauf::Aufräumen(Tagarbeit& Arbeit) {
    for (const Tagblock Block : AlleBlöcke) {
        if (TagIstNichtssagend(Arbeit.Satz, Block)) Entfernen(Arbeit, Block, true);
        if (Ergebnis.Abgebrochen) return;
    }
    const Datensatz Vorher = Arbeit.Satz;
    if (TagBrauchtAutoTag(Arbeit.Satz, Tagblock::Id3v1)) AutoTag(Arbeit, AutoTagZiel::Id3v1);
    if (TagBrauchtAutoTag(Arbeit.Satz, Tagblock::Id3v2)) AutoTag(Arbeit, AutoTagZiel::Id3v2);
    LesbarMachen(Arbeit.Satz);
    // A block whose entries are tidy already is not written again: that could only lose what the editor does
    // not hold.
    Speichern(Arbeit, Tagauswahl::Alle, true, &Vorher);
}

void Lauf::FelderBearbeiten(Tagarbeit& Arbeit, Tagblock Block) {
    Datensatz& Satz = Arbeit.Satz;
    switch (Auftrag.Funktion) {
        case Tagfunktion::TitelInterpretTauschen:
            return FelderTauschen(Satz, Block, "Titel", "Interpret");
        case Tagfunktion::TitelAlbumTauschen:
            return FelderTauschen(Satz, Block, "Titel", "Album");
        case Tagfunktion::InterpretAlbumTauschen:
            return FelderTauschen(Satz, Block, "Interpret", "Album");
        case Tagfunktion::ZahlAusKommentar:
            return Melden(Arbeit, ZahlInTitelnummer(Satz, Block));
        case Tagfunktion::KleinErsterGroß:
        case Tagfunktion::KleinWörterGroß:
        case Tagfunktion::Klein:
        case Tagfunktion::Groß:
            return SchreibweiseÄndern(Satz, Block, Auftrag.Funktion);
        case Tagfunktion::TagKopieren:
            return InAnderenKopieren(Satz, Block);
        case Tagfunktion::FelderKopieren:
            // The person was told already that ID3v1 cannot take such a genre.
            if (Block == Tagblock::Id3v1 && !FeldvorgabePrüfen(Auftrag.Feld, Auftrag.Auswahl).empty()) return;
            return GrundfeldSetzen(Satz, *Auftrag.Feld.Feld, Block, Auftrag.Feld.Text);
        case Tagfunktion::AutoTag:
        case Tagfunktion::AutoTagEinstellen:
        case Tagfunktion::Aufräumen:
        case Tagfunktion::Entfernen:
            break;
    }
}

// The tags that the function fills.
std::vector<Tagblock> Lauf::BetroffeneBlöcke() const {
    if (Auftrag.Funktion != Tagfunktion::TagKopieren) return Id3Blöcke(Auftrag.Auswahl);
    return {Auftrag.Auswahl.Id3v1 ? Tagblock::Id3v2 : Tagblock::Id3v1};
}

// A save reads the file again and empties what it does not hold, so each block is saved from what was wanted.
void Lauf::GeändertesSpeichern(Tagarbeit& Arbeit, const Datensatz& Vorher) {
    const Datensatz Gewollt = Arbeit.Satz;
    for (const Tagblock Block : BetroffeneBlöcke()) {
        if (BlockGleich(Vorher, Gewollt, Block)) continue;
        Arbeit.Satz = Gewollt;
        Speichern(Arbeit, AuswahlVon(Block), false);
        if (Ergebnis.Abgebrochen) return;
    }
}

void Lauf::DateiBearbeiten(Tagarbeit& Arbeit) {
    if (Auftrag.Funktion == Tagfunktion::Entfernen) return TagsEntfernen(Arbeit);
    if (Auftrag.Funktion == Tagfunktion::Aufräumen) return Aufräumen(Arbeit);
    const Datensatz Vorher = Arbeit.Satz;
    if (Auftrag.Eingaben) Arbeit.Satz = *Auftrag.Eingaben;
    if (Auftrag.Funktion == Tagfunktion::AutoTag) {
        AutoTag(Arbeit, AutoTagZielVon(Auftrag.Auswahl));
    } else {
        for (const Tagblock Block : Id3Blöcke(Auftrag.Auswahl))
            FelderBearbeiten(Arbeit, Block);
    }
    GeändertesSpeichern(Arbeit, Vorher);
}

// A share that is away must not show a message for each of its files.
void Lauf::UngelesenesMerken(const Tagarbeit& Arbeit) {
    DateiGescheitert = true;
    Ungelesene.push_back(UngelesenText(Arbeit));
    Welt.Mediumfragen.Log.Schreiben("TagfunktionAusführen: '" + Arbeit.Pfad + "' - Nicht lesbar");
}

void Lauf::AmEndeMelden(const std::vector<std::string>& Texte, std::string_view Mehrere) {
    if (Texte.empty()) return;
    std::string Text = Texte.front();
    if (Texte.size() > 1) {
        Text = std::to_string(Texte.size()) + " ";
        Text.append(Mehrere).append(":\n\n").append(Texte.front());
    }
    Welt.Person.Melden(Symbol::Ausrufezeichen, Text);
}

Funktionsergebnis Lauf::Ausführen() {
    const bool MitFortschritt = Auftrag.Auswahl.AlleDateien && Welt.Werte.StartBildschirm == 1;
    if (MitFortschritt)
        Welt.Person.FortschrittStarten("Bearbeite Dateien", true,
                                       static_cast<std::int64_t>(Auftrag.Dateien.size()));
    for (std::size_t i = 0; i < Auftrag.Dateien.size(); ++i) {
        const Funktionsdatei& Datei = Auftrag.Dateien[i];
        if (!Welt.Person.FortschrittZeigen(DateinameVon(Datei.Pfad), static_cast<std::int64_t>(i))) {
            Ergebnis.Abgebrochen = true;
            break;
        }
        if (Datei.Nummer > 0) {
            const auto Zustand = DateiNichtVerfügbarPrüfen(Welt.Index, Datei.Nummer, Welt.Medium,
                                                           Welt.Mediumfragen, Welt.Person, false);
            if (Zustand == Verfügbarkeit::Überspringen) continue;
            if (Zustand == Verfügbarkeit::Abbrechen) {
                Ergebnis.Abgebrochen = true;
                break;
            }
        }
        DateiGescheitert = false;
        Tagarbeit Arbeit = TagarbeitBeginnen(Welt, Datei.Pfad, Datei.Nummer);
        if (Arbeit.Ungelesen && DateiExistiert(Arbeit.Pfad))
            UngelesenesMerken(Arbeit);
        else
            DateiBearbeiten(Arbeit);
        ++Ergebnis.Bearbeitet;
        if (DateiGescheitert) ++Ergebnis.Gescheitert;
        if (Auftrag.Bearbeitet) Auftrag.Bearbeitet(Arbeit);
        // The progress window of a single step may have been the one that was stopped.
        if (Ergebnis.Abgebrochen) break;
    }
    if (MitFortschritt) Welt.Person.FortschrittSchließen();
    AmEndeMelden(NichtEntfernt, "TAGs konnten nicht entfernt werden. Der erste Grund");
    AmEndeMelden(Ungelesene, "Dateien konnten nicht gelesen werden. Die erste");
    return Ergebnis;
}

}  // namespace

bool FunktionBestätigen(Oberfläche& Person, const Funktionszeile& Funktion, const Funktionsauswahl& Auswahl) {
    if (Auswahl.AlleDateien || Funktion.Funktion == Tagfunktion::Entfernen) {
        const std::string Worauf =
            Auswahl.AlleDateien ? "'" + std::string(Auswahl.Name) + "'" : std::string("die aktuelle Datei");
        if (Person.JaNein(Symbol::Ausrufezeichen,
                          "Möchten Sie die Funktion '" + std::string(Funktion.Name) + "' tatsächlich für " +
                              Worauf + " anwenden?",
                          Antwort::Nein) != Antwort::Ja)
            return false;
    }
    if (Funktion.Funktion != Tagfunktion::Aufräumen) return true;
    return Person.JaNein(
               Symbol::Frage,
               "Mit dieser Funktion können Sie das TAG-Chaos in Mediendateien schnell und automatisch "
               "aufräumen. Diese sucht nach unnötigen TAGs in den/der gewählten Datei(en), entfernt diese "
               "und "
               "verbessert die Lesbarkeit und Aussagekraft der enthaltenen Daten.\n\nMöchten Sie diese "
               "Funktion "
               "jetzt für die gewählte(n) Datei(en) ausführen?") == Antwort::Ja;
}

Funktionsergebnis TagfunktionAusführen(const Tagumgebung& Umgebung, Tagverzeichnis& Verzeichnis,
                                       const Funktionsauftrag& Auftrag) {
    return Lauf(Umgebung, Verzeichnis, Auftrag).Ausführen();
}

}  // namespace liedwerk
