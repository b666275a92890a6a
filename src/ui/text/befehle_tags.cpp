// Writing and removing the tags of files.
#include <algorithm>
#include <array>
#include <map>
#include <optional>

#include "basis/ansi.h"
#include "basis/text.h"
#include "basis/zahl.h"
#include "core/anwendung.h"
#include "index/genres.h"
#include "medien/id3v1.h"
#include "medien/tagspeichern.h"
#include "plattform/endesignal.h"
#include "ui/text/befehle.h"
#include "ui/text/lauf.h"
#include "ui/text/satz.h"

namespace liedwerk {
namespace {

struct Textfeld {
    std::string_view Name;
    std::string Datensatz::*Feld;
};
#define LIEDWERK_TEXTFELD(Name) \
    { #Name, &Datensatz::Name }
constexpr std::array Id3v1Felder = std::to_array<Textfeld>(
    {LIEDWERK_TEXTFELD(Titel), LIEDWERK_TEXTFELD(Interpret), LIEDWERK_TEXTFELD(Album),
     LIEDWERK_TEXTFELD(Jahr), LIEDWERK_TEXTFELD(Kommentar), LIEDWERK_TEXTFELD(Titelnummer)});
constexpr std::array Id3v2Felder = std::to_array<Textfeld>(
    {LIEDWERK_TEXTFELD(V2AbspielZähler), LIEDWERK_TEXTFELD(V2Titelnummer), LIEDWERK_TEXTFELD(V2EncodiertVon),
     LIEDWERK_TEXTFELD(V2Link), LIEDWERK_TEXTFELD(V2Copyright), LIEDWERK_TEXTFELD(V2UrsprünglicherInterpret),
     LIEDWERK_TEXTFELD(V2Songschreiber), LIEDWERK_TEXTFELD(V2Genre), LIEDWERK_TEXTFELD(V2Kommentar),
     LIEDWERK_TEXTFELD(V2Jahr), LIEDWERK_TEXTFELD(V2Album), LIEDWERK_TEXTFELD(V2Interpret),
     LIEDWERK_TEXTFELD(V2Titel), LIEDWERK_TEXTFELD(V2Sprache), LIEDWERK_TEXTFELD(V2Länge),
     LIEDWERK_TEXTFELD(V2Medientyp), LIEDWERK_TEXTFELD(V2Herausgeber), LIEDWERK_TEXTFELD(V2Software)});
#undef LIEDWERK_TEXTFELD

bool TextfeldSetzen(std::span<const Textfeld> Felder, std::string_view Name, const std::string& Wert,
                    Datensatz& Satz) {
    const auto Fund =
        std::find_if(Felder.begin(), Felder.end(), [&](const Textfeld& Feld) { return Feld.Name == Name; });
    if (Fund == Felder.end()) return false;
    Satz.*Fund->Feld = Wert;
    return true;
}

// A number of one byte, or one that a name stands for; empty gives the value for "none".
bool BytefeldLesen(const std::string& Wert, std::optional<std::uint8_t> Benannt, std::uint8_t Keine,
                   std::uint8_t& Ziel) {
    const auto Zahl = Wert.empty() ? std::optional(Keine) : GanzzahlLesen<std::uint8_t>(Wert);
    if (!Zahl && !Benannt) return false;
    Ziel = Zahl ? *Zahl : *Benannt;
    return true;
}

// Sets one field of a block; what is wrong with it, or an empty text.
std::string FeldSetzen(Tagblock Block, std::string_view Angabe, Datensatz& Satz) {
    const std::size_t Trennung = Angabe.find('=');
    if (Trennung == std::string_view::npos) return "'" + std::string(Angabe) + "' ist nicht FELD=WERT.";
    const std::string Name(Angabe.substr(0, Trennung));
    const std::string Wert(Angabe.substr(Trennung + 1));
    const bool Eins = Block == Tagblock::Id3v1;
    if (Eins && Name == "Genre") {
        std::uint8_t Genre = KeinGenre;
        if (!BytefeldLesen(Wert, GenreNummer(Wert), KeinGenre, Genre) ||
            (Genre >= Id3v1GenreEnde && Genre != KeinGenre))
            return "'" + Wert + "' ist kein Genre des ID3v1-TAGs.";
        Satz.Genre = Genre;
        return {};
    }
    if (!Eins && Name == "V2Qualität") {
        if (BytefeldLesen(Wert, std::nullopt, KeineV2Qualität, Satz.V2Qualität)) return {};
        return "'" + Wert + "' ist keine Zahl von 0 bis 255.";
    }
    if (Eins ? TextfeldSetzen(Id3v1Felder, Name, Wert, Satz) : TextfeldSetzen(Id3v2Felder, Name, Wert, Satz))
        return {};
    return "Der " + std::string(Eins ? "ID3v1" : "ID3v2") + "-TAG hat kein Feld '" + Name + "'.";
}

// What is to be written, by blocks in the order of their writing.
struct Schreibauftrag {
    std::map<Tagblock, std::vector<std::string>> Felder;
    std::optional<std::string> Liedertext;
    std::string Fehler;
};
Schreibauftrag SchreibauftragLesen(const Befehlseingabe& Eingabe) {
    Schreibauftrag Auftrag;
    if (Eingabe.Hat("--v1")) Auftrag.Felder[Tagblock::Id3v1] = Eingabe.AlleWerte("--v1");
    if (Eingabe.Hat("--v2")) Auftrag.Felder[Tagblock::Id3v2] = Eingabe.AlleWerte("--v2");
    if (Eingabe.Hat("--liedertext")) Auftrag.Felder[Tagblock::Lyrics] = {};
    Datensatz Probe;
    for (const auto& [Block, Angaben] : Auftrag.Felder) {
        for (const auto& Angabe : Angaben) {
            if (Auftrag.Fehler.empty()) Auftrag.Fehler = FeldSetzen(Block, Angabe, Probe);
        }
    }
    if (Auftrag.Felder.empty())
        Auftrag.Fehler = "Nennen Sie mindestens ein Feld mit --v1 oder --v2 oder einen Liedertext.";
    return Auftrag;
}

// The input of each block is set just before its save: a save reads the file again, and what was typed for
// another block does not outlive that.
bool BlöckeSpeichern(const Tagumgebung& Umgebung, Tagarbeit& Arbeit, const Schreibauftrag& Auftrag) {
    bool Gelungen = true;
    for (const auto& [Block, Angaben] : Auftrag.Felder) {
        for (const auto& Angabe : Angaben)
            FeldSetzen(Block, Angabe, Arbeit.Satz);
        if (Block == Tagblock::Lyrics) Arbeit.Satz.LyricsText = *Auftrag.Liedertext;
        const auto Ergebnis = TagsSpeichern(Umgebung, Arbeit, static_cast<Tagauswahl>(Block), false);
        Gelungen = Gelungen && !Ergebnis.Gescheitert;
        if (Ergebnis.Abgebrochen) break;
    }
    return Gelungen;
}

// The blocks that a removal names.
std::vector<Tagblock> EntfernauftragLesen(const Befehlseingabe& Eingabe) {
    std::vector<Tagblock> Blöcke;
    if (Eingabe.Hat("--v1")) Blöcke.push_back(Tagblock::Id3v1);
    if (Eingabe.Hat("--v2")) Blöcke.push_back(Tagblock::Id3v2);
    if (Eingabe.Hat("--lyrics")) Blöcke.push_back(Tagblock::Lyrics);
    return Blöcke;
}

// Removes the tags of one file; the messages of what failed, joined, have been shown.
Entfernergebnis TagsEntfernen(const Tagumgebung& Umgebung, const std::string& Pfad, Satznummer Nummer,
                              const std::vector<Tagblock>& Blöcke) {
    Tagarbeit Arbeit = TagarbeitBeginnen(Umgebung, Pfad, Nummer);
    std::vector<std::string> Meldungen;
    bool Abgebrochen = false;
    for (const Tagblock Block : Blöcke) {
        const Entfernergebnis Ergebnis = TagEntfernen(Umgebung, Arbeit, Block, false);
        if (!Ergebnis) Meldungen.push_back(Ergebnis.Meldung);
        Abgebrochen = Ergebnis.Abgebrochen;
        if (Abgebrochen) break;
    }
    return {Meldungen.empty(), Abgebrochen, Verbinden(Meldungen, "\n\n")};
}

}  // namespace

Ausgang TagSchreibenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    Schreibauftrag Auftrag = SchreibauftragLesen(Eingabe);
    if (!Auftrag.Fehler.empty()) return Falsch(Auftrag.Fehler);
    if (const auto Name = Eingabe.Wert("--liedertext")) {
        Auftrag.Liedertext = EingabeLesen(*Name);
        if (!Auftrag.Liedertext) return Gescheitert("Die Datei '" + *Name + "' konnte nicht gelesen werden.");
        if (!IstUtf8(*Auftrag.Liedertext)) Auftrag.Liedertext = AnsiNachUtf8(*Auftrag.Liedertext);
    }
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLadenFallsDa()) return Ausgang::Fehlgeschlagen;
    const std::string Pfad = EingabePfad(Eingabe.Argumente[0]);
    const Satznummer Nummer = Lauf.SatzFinden(Pfad);
    const Tagumgebung Umgebung = TagumgebungVon(Lauf.Programm());
    Tagarbeit Arbeit = TagarbeitBeginnen(Umgebung, Pfad, Nummer);
    bool Gelungen = BlöckeSpeichern(Umgebung, Arbeit, Auftrag);
    Gelungen = Lauf.GeändertesSpeichern() && Gelungen;

    const Datensatz Gelesen = TagarbeitBeginnen(Umgebung, Pfad, Nummer).Satz;
    if (Lauf.Json()) {
        SatzAlsJson(Lauf.Dokument(), Nummer, Pfad, Gelesen);
    } else {
        SatzAlsText(Lauf.Text(), Nummer, Pfad, Gelesen);
    }
    return Lauf.Abschließen(Gelungen);
}

Ausgang TagEntfernenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    const auto Blöcke = EntfernauftragLesen(Eingabe);
    if (Blöcke.empty()) return Falsch("Nennen Sie mindestens einen TAG: --v1, --v2 oder --lyrics.");
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLadenFallsDa()) return Ausgang::Fehlgeschlagen;
    const Tagumgebung Umgebung = TagumgebungVon(Lauf.Programm());
    JsonSchreiber& Ziel = Lauf.Dokument();
    bool Gelungen = true;
    if (Lauf.Json()) Ziel.ListeAnfang();
    for (const auto& Pfad : EingabePfade(Eingabe.Argumente)) {
        if (EndeVerlangt()) break;
        const Entfernergebnis Ergebnis = TagsEntfernen(Umgebung, Pfad, Lauf.SatzFinden(Pfad), Blöcke);
        Gelungen = Gelungen && Ergebnis;
        if (Lauf.Json()) {
            Ziel.ObjektAnfang();
            Ziel.Text("Pfad", Pfad);
            Ziel.Wahrheit("Ergebnis", Ergebnis.Entfernt);
            Ziel.Text("Meldung", Ergebnis.Meldung);
            Ziel.ObjektEnde();
        } else if (Ergebnis) {
            Lauf.Text().Schreiben(Sichtbar(Pfad) + ": TAG entfernt\n");
        }
    }
    if (Lauf.Json()) Ziel.ListeEnde();
    Gelungen = Lauf.GeändertesSpeichern() && Gelungen;
    return Lauf.Abschließen(Gelungen);
}

}  // namespace liedwerk
