#include "core/tageditor.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "basis/datei.h"
#include "basis/pfad.h"
#include "core/hintergrund.h"
#include "core/suchlauf.h"
#include "core/tageditorfelder.h"

namespace liedwerk {
namespace {

// What reading and writing take from a run, both in the background.
Tagumgebung UmgebungVon(Anwendung& Programm) {
    Tagumgebung Umgebung = TagumgebungVon(Programm);
    Oberfläche& Person = Programm.Dienst.Person;
    // What the reader asks is the cancel of the reading that is under way.
    const auto Weiter = std::make_shared<Kopierfortschritt>();
    Umgebung.Leser = [Weiter, &Person, Lesen = MedienleserVon(Programm, [Weiter] { return (*Weiter)(0); })](
                         std::string_view Pfad, const Datensatz& Vorgabe, const Leseauftrag& Auftrag) {
        Datensatz Satz;
        ImHintergrund(Person, "Datei wird gelesen", [&](const Kopierfortschritt& Fortschritt) {
            *Weiter = Fortschritt;
            Satz = Lesen(Pfad, Vorgabe, Auftrag);
        });
        return Satz;
    };
    Umgebung.Ausführen = [&Person](const Dateischritt& Schritt) {
        ImHintergrund(Person, "Datei wird gespeichert", Schritt);
    };
    return Umgebung;
}

// The texts of the panes for the work record, which has just been read.
void TexteBilden(TagEditor& Editor) {
    const std::string& Pfad = Editor.Arbeit.Pfad;
    Editor.Texte = DateiinformationBilden(Pfad, Editor.Arbeit.Satz, Editor.Vorhanden && DateiExistiert(Pfad));
}

// The list behind the editor shows the record as it is now. Whether it is searched anew is the person's
// choice: a file whose tags no longer fit the search would vanish from it.
void ListeNachführen(Anwendung& Programm) {
    if (Programm.Werte.SucheNichtBeiTAGEditor != 1) return SucheAktualisieren(Programm);
    Programm.Dienst.Fenster.ListeZeigen();
    Programm.Dienst.Fenster.AuswahlZeigen();
}

constexpr Tagauswahl AuswahlVon(Tagblock Block) {
    return static_cast<Tagauswahl>(Block);
}

bool Geändert(const TagEditor& Editor, Tagblock Block) {
    return !BlockGleich(Editor.Arbeit.Satz, Editor.Gelesen, Block);
}

std::string Ungespeichertes(const TagEditor& Editor) {
    constexpr std::array<std::string_view, 3> Namen = {"ID3v1-TAG", "ID3v2-TAG", "Lyrics-TAG"};
    std::string Text = "Ihre Eingaben für die Datei '" + std::string(DateinameVon(Editor.Arbeit.Pfad)) +
                       "' sind noch nicht gespeichert:\n";
    for (const Tagblock Block : Tagblöcke) {
        if (Geändert(Editor, Block)) Text.append("\n").append(Namen[static_cast<std::size_t>(Block) - 1]);
    }
    return Text + "\n\nMöchten Sie diese jetzt speichern?";
}

// Whether a function writes or removes this tag.
bool Schreibt(Tagfunktion Funktion, const Funktionsauswahl& Auswahl, Tagblock Block) {
    const bool InAnderen = Funktion == Tagfunktion::TagKopieren;
    switch (Block) {
        case Tagblock::Id3v1:
            return InAnderen ? Auswahl.Id3v2 : Auswahl.Id3v1;
        case Tagblock::Id3v2:
            return InAnderen ? Auswahl.Id3v1 : Auswahl.Id3v2;
        case Tagblock::Lyrics:
            break;
    }
    return Auswahl.Lyrics;
}

}  // namespace

std::int16_t& AutomatikVon(Einstellungen& Werte, Tagblock Block) {
    switch (Block) {
        case Tagblock::Id3v1:
            return Werte.TAGAutomatischSpeichern;
        case Tagblock::Lyrics:
            return Werte.TAGAutomatischSpeichernLyrics;
        case Tagblock::Id3v2:
            break;
    }
    return Werte.TAGAutomatischSpeichernV2;
}

std::vector<Satznummer> GewählteDateien(const Anwendung& Programm) {
    std::vector<Satznummer> Nummern = Programm.Ansicht.Auswahl;
    if (Programm.Index.Programmmodus == ModusDateimanager) {
        std::erase_if(Nummern,
                      [&](Satznummer Nummer) { return OrdnerExistiert(Programm.Index.Sätze.Pfad(Nummer)); });
    }
    return Nummern;
}

void TagEditorÖffnen(TagEditor& Editor, Anwendung& Programm, std::vector<Satznummer> Dateien) {
    Editor = {};
    Editor.Dateien = std::move(Dateien);
    MediumVergessen(Programm.Medium);
    Programm.Medium.AlleÜberspringen = false;
    AutoTagFormatVorgeben(Programm.Werte);
    DateiInfoAnzeigen(Editor, Programm);
}

bool AutoTagVorbereiten(Anwendung& Programm) {
    constexpr std::size_t SätzeJeSchritt = 20000;
    return Programm.Tagtexte.Vorbereiten(Programm.Index.Sätze, SätzeJeSchritt);
}

void DateiInfoAnzeigen(TagEditor& Editor, Anwendung& Programm) {
    const Laufsperre Sperre(Programm);
    const Katalog& Index = Programm.Index;
    const Satznummer Nummer = Editor.Nummer();
    const std::string Pfad = Index.Sätze.Pfad(Nummer);
    const auto Zustand = DateiNichtVerfügbarPrüfen(
        Index, Nummer, Programm.Medium, MediumumgebungVon(Programm), Programm.Dienst.Person, false);
    Editor.Vorhanden = Zustand == Verfügbarkeit::Weiter && DateiExistiert(Pfad);
    if (Editor.Vorhanden) {
        Editor.Arbeit = TagarbeitBeginnen(UmgebungVon(Programm), Pfad, Nummer);
    } else {
        // What the index knows about it can be looked at all the same.
        Editor.Arbeit = {Pfad, Nummer, Index.Sätze.Lesen(Nummer), {}};
    }
    Editor.Gelesen = Editor.Arbeit.Satz;
    TexteBilden(Editor);
}

std::array<bool, 3> GeänderteBlöcke(const TagEditor& Editor) {
    return {Geändert(Editor, Tagblock::Id3v1), Geändert(Editor, Tagblock::Id3v2),
            Geändert(Editor, Tagblock::Lyrics)};
}

Tagsergebnis EingabenSpeichern(TagEditor& Editor, Anwendung& Programm, Tagauswahl Welche, bool NurMitInhalt) {
    const Laufsperre Sperre(Programm);
    const Datensatz Eingabe = Editor.Arbeit.Satz;
    const Datensatz Vorher = std::exchange(Editor.Gelesen, {});
    const auto Ergebnis = TagsSpeichern(UmgebungVon(Programm), Editor.Arbeit, Welche, NurMitInhalt);
    TexteBilden(Editor);
    Editor.Gelesen = Editor.Arbeit.Satz;
    for (const Tagblock Block : Tagblöcke) {
        const bool Dabei = Welche == Tagauswahl::Alle || Welche == AuswahlVon(Block);
        // What was not written is as open as before: entries of the person here, the file's there.
        if (Dabei && !Ergebnis.Gescheitert) continue;
        BlockÜbernehmen(Editor.Gelesen, Vorher, Block);
        BlockÜbernehmen(Editor.Arbeit.Satz, Eingabe, Block);
    }
    ListeNachführen(Programm);
    return Ergebnis;
}

bool DateiVerlassen(TagEditor& Editor, Anwendung& Programm, bool MitAutomatik) {
    for (const Tagblock Block : Tagblöcke) {
        // Going through files must not rewrite those that nobody touched.
        if (MitAutomatik && AutomatikVon(Programm.Werte, Block) == 1 && Geändert(Editor, Block) &&
            EingabenSpeichern(Editor, Programm, AuswahlVon(Block), true).Abgebrochen)
            return false;
    }
    const auto Offen = GeänderteBlöcke(Editor);
    if (std::none_of(Offen.begin(), Offen.end(), std::identity{})) return true;
    const Antwort Wahl = Programm.Dienst.Person.Fragen(Symbol::Frage, Ungespeichertes(Editor),
                                                       Knöpfe::JaNeinAbbrechen, Antwort::Ja);
    if (Wahl == Antwort::Abbrechen) return false;
    if (Wahl == Antwort::Nein) {
        Editor.Arbeit.Satz = Editor.Gelesen;
        return true;
    }
    bool Gelungen = true;
    for (const Tagblock Block : Tagblöcke) {
        if (!Geändert(Editor, Block)) continue;
        const Tagsergebnis Ergebnis = EingabenSpeichern(Editor, Programm, AuswahlVon(Block), false);
        if (Ergebnis.Abgebrochen) return false;
        Gelungen = Gelungen && !Ergebnis.Gescheitert;
    }
    return Gelungen;
}

bool Weitergehen(TagEditor& Editor, Anwendung& Programm, int Richtung) {
    if (Richtung < 0 ? Editor.Platz == 0 : Editor.Platz + 1 >= Editor.Dateien.size()) return false;
    if (!DateiVerlassen(Editor, Programm, true)) return false;
    Editor.Platz = Richtung < 0 ? Editor.Platz - 1 : Editor.Platz + 1;
    DateiInfoAnzeigen(Editor, Programm);
    return true;
}

void EditorFunktionAusführen(TagEditor& Editor, Anwendung& Programm, Tagfunktion Funktion,
                             const Funktionsauswahl& Auswahl, const Feldvorgabe& Feld) {
    // These look at the files alone, so what was entered has to go there first.
    const bool NurDateien = Auswahl.AlleDateien || Funktion == Tagfunktion::Aufräumen;
    if (NurDateien && !DateiVerlassen(Editor, Programm, true)) return;
    const Laufsperre Sperre(Programm);
    const Tagarbeit Vorher = Editor.Arbeit;
    Funktionsauftrag Auftrag;
    Auftrag.Funktion = Funktion;
    Auftrag.Auswahl = Auswahl;
    Auftrag.Feld = Feld;
    if (!NurDateien) Auftrag.Eingaben = Vorher.Satz;
    for (const Satznummer Nummer : Editor.Dateien) {
        if (Auswahl.AlleDateien || Nummer == Editor.Nummer())
            Auftrag.Dateien.push_back({Programm.Index.Sätze.Pfad(Nummer), Nummer});
    }
    const auto Ergebnis = TagfunktionAusführen(UmgebungVon(Programm), Programm.Tagtexte, Auftrag);
    DateiInfoAnzeigen(Editor, Programm);
    Editor.Arbeit.Geschrieben = Vorher.Geschrieben;
    for (const Tagblock Block : Tagblöcke) {
        if (!NurDateien && (Ergebnis.Gescheitert > 0 || !Schreibt(Funktion, Auswahl, Block)))
            BlockÜbernehmen(Editor.Arbeit.Satz, Vorher.Satz, Block);
    }
    ListeNachführen(Programm);
}

}  // namespace liedwerk
