#include "medien/tagspeichern.h"

#include <algorithm>
#include <span>

#include "basis/datei.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "index/genres.h"
#include "medien/id3v1.h"
#include "medien/id3v2.h"
#include "medien/tagdatei.h"
#include "medien/tagverlust.h"

namespace liedwerk {
namespace {

// What stands behind the program's name in the field of the software.
constexpr std::string_view Herstelleradresse = "www.liedwerk.invalid";

std::size_t Platz(Tagblock Block) {
    return static_cast<std::size_t>(Block) - 1;
}

Tagoptionen OptionenVon(const Einstellungen& Werte) {
    return {Werte.TAGsBytesSuchen, Werte.TAGsProzentHinzufügen, Werte.TAGsModern == 1};
}

constexpr std::array Id3v1Felder = {&Datensatz::Titel, &Datensatz::Interpret, &Datensatz::Album,
                                    &Datensatz::Jahr,  &Datensatz::Kommentar, &Datensatz::Titelnummer};

bool Gefüllt(const Datensatz& Satz, std::span<std::string Datensatz::*const> Felder) {
    return std::any_of(Felder.begin(), Felder.end(), [&](auto Feld) { return !(Satz.*Feld).empty(); });
}

std::int16_t DateiartLesen(const Tagumgebung& Umgebung, std::string_view Pfad) {
    const Leseauftrag NurTyp{Lesecode{}, false, false, false};
    return Umgebung.Leser(Pfad, {}, NurTyp).Dateityp;
}

constexpr std::string_view KeinMpeg =
    "Sie sollten TAGs nur in Dateien des Typs 'MPEG Audio/AAC' speichern.\n"
    "Der Datei-Typ konnte anhand der Dateiendung nicht als passend erkannt werden.\n\n";

// Files of the further formats are read only: a foreign tag at their ends could make them unreadable for
// other programs.
std::string NurLesbarText(std::string_view Pfad) {
    return std::string(KeinMpeg) + "Die Datei '" + std::string(Pfad) + "' wurde deshalb nicht geändert.";
}

// Asks before tags go into a file that is not made for them.
bool SchreibenErlaubt(const Tagumgebung& Umgebung, std::string_view Pfad) {
    const std::int16_t Art = DateiartLesen(Umgebung, Pfad);
    if (Art == DateiartMpeg) return true;
    if (Art == DateiartWeitere) {
        Umgebung.Person.Melden(Symbol::Ausrufezeichen, NurLesbarText(Pfad));
        return false;
    }
    return Umgebung.Person.JaNein(
               Symbol::Ausrufezeichen,
               std::string(KeinMpeg) + "Möchten Sie trotzdem speichern (nicht empfohlen)?") == Antwort::Ja;
}

// A genre of the list gets its number in front.
void GenreErgänzen(std::string& Genre) {
    if (const auto Nummer = GenreNummer(Genre)) Genre = "(" + std::to_string(*Nummer) + ")" + Genre;
}

void SoftwareErgänzen(const Tagumgebung& Umgebung, Datensatz& Satz) {
    if (Umgebung.Werte.TAGsSoftwareFeldSchreiben == 0 || !TagHatInhalt(Satz, Tagblock::Id3v2)) return;
    const bool Unseres = Satz.V2Software.starts_with(std::string(Programmtitel) + " ");
    if (!Satz.V2Software.empty() && !Unseres) return;
    Satz.V2Software = Umgebung.Programmname + " - " + std::string(Herstelleradresse);
}

// Brings the input into the form in which it is written.
void EingabeAufbereiten(const Tagumgebung& Umgebung, Tagauswahl Welche, Datensatz& Satz) {
    // The input field takes no more, wherever the text comes from.
    Satz.Kommentar = LinkerTeil(Satz.Kommentar, Id3v1KommentarHöchstens);
    if (Welche != Tagauswahl::Alle && Welche != Tagauswahl::Id3v2) return;
    if (Umgebung.Werte.ID3v2GenreZahlenEntfernen != 1) GenreErgänzen(Satz.V2Genre);
    SoftwareErgänzen(Umgebung, Satz);
}

// Changes the file where the surroundings want it to be done. Abgebrochen tells that the person stopped it.
bool DateiÄndern(const Tagumgebung& Umgebung, bool& Abgebrochen,
                 const std::function<bool(const Schreibrahmen&)>& Schritt) {
    bool Gelungen = false;
    const auto Ändern = [&](const Kopierfortschritt& Weiter) {
        const auto Fragen = [&](std::uint64_t Bytes) {
            Abgebrochen = !Weiter(Bytes);
            return !Abgebrochen;
        };
        Gelungen = Schritt({Fragen, Umgebung.Merkordner});
    };
    SchrittAusführen(Umgebung.Ausführen, Umgebung.Person, Ändern);
    return Gelungen;
}

bool BlockSchreiben(const Tagumgebung& Umgebung, const Tagarbeit& Arbeit, Tagblock Block,
                    std::string& Meldung, bool& Abgebrochen) {
    return DateiÄndern(Umgebung, Abgebrochen, [&](const Schreibrahmen& Rahmen) {
        switch (Block) {
            case Tagblock::Id3v1:
                return Id3v1Schreiben(Arbeit.Pfad, Id3v1BlockBilden(Arbeit.Satz), Meldung);
            case Tagblock::Id3v2:
                return Id3v2Schreiben(Arbeit.Pfad, Arbeit.Satz, OptionenVon(Umgebung.Werte), Meldung, Rahmen);
            case Tagblock::Lyrics:
                return LyricsSchreiben(Arbeit.Pfad, Arbeit.Satz.LyricsText, Meldung, Rahmen);
        }
        return false;
    });
}

// What a change of a tag is called in the question before it.
struct Vorgang {
    std::string_view Name;
    std::string_view Frage;
};
constexpr Vorgang Speichern{"Speichern", "Möchten Sie trotzdem speichern?"};
constexpr Vorgang Entfernen{"Entfernen", "Möchten Sie diesen trotzdem entfernen?"};

// True when nothing is lost, or the person takes the loss.
bool VerlustErlaubt(const Tagumgebung& Umgebung, const Tagarbeit& Arbeit, Tagblock Block, const Vorgang& Was,
                    const std::vector<std::string>& Verluste) {
    if (Verluste.empty()) return true;
    std::string Text = "Beim " + std::string(Was.Name) + " des " + TagName(Block) + "s der Datei '" +
                       Arbeit.Pfad + "' geht verloren:\n";
    for (const std::string& Verlust : Verluste)
        Text += "\n \xE2\x80\xA2 " + Verlust;
    Text.append("\n\n").append(Was.Frage);
    return Umgebung.Person.JaNein(Symbol::Ausrufezeichen, Text, Antwort::Nein) == Antwort::Ja;
}

bool SpeichernErlaubt(const Tagumgebung& Umgebung, const Tagarbeit& Arbeit, Tagblock Block) {
    return Umgebung.Werte.TAGsVerlustFragen != 1 ||
           VerlustErlaubt(
               Umgebung, Arbeit, Block, Speichern,
               SpeicherverlusteFinden(Arbeit.Pfad, Block, Arbeit.Satz, OptionenVon(Umgebung.Werte)));
}

bool EntfernenErlaubt(const Tagumgebung& Umgebung, const Tagarbeit& Arbeit, Tagblock Block) {
    return Umgebung.Werte.TAGsVerlustFragen != 1 ||
           VerlustErlaubt(Umgebung, Arbeit, Block, Entfernen,
                          EntfernverlusteFinden(Arbeit.Pfad, Block, OptionenVon(Umgebung.Werte)));
}

void BlockSpeichern(const Tagumgebung& Umgebung, Tagarbeit& Arbeit, Tagblock Block, Tagsergebnis& Ergebnis) {
    bool& Geschrieben = Arbeit.Geschrieben[Platz(Block)];
    if (!SpeichernErlaubt(Umgebung, Arbeit, Block)) {
        Ergebnis.Gescheitert = true;
        return;
    }
    std::string Meldung;
    if (BlockSchreiben(Umgebung, Arbeit, Block, Meldung, Ergebnis.Abgebrochen)) {
        Geschrieben = Ergebnis.Gespeichert = true;
        if (Arbeit.Nummer > 0) Umgebung.Index.IndexGeändert = true;
        return;
    }
    Ergebnis.Gescheitert = true;
    Umgebung.Person.Melden(Symbol::Ausrufezeichen, Meldung);
}

// True when the file can be worked on; asks for its medium, or for its return from an interrupted save.
bool IstVerfügbar(const Tagumgebung& Umgebung, const Tagarbeit& Arbeit) {
    DateiZurückholen(Arbeit.Pfad, Umgebung.Person, Umgebung.Reste, Umgebung.Ausführen);
    return Arbeit.Nummer == 0 ||
           DateiNichtVerfügbarPrüfen(Umgebung.Index, Arbeit.Nummer, Umgebung.Medium, Umgebung.Mediumfragen,
                                     Umgebung.Person, false) == Verfügbarkeit::Weiter;
}

// Reads the file again into the work record and, with a code of its own, into the record of the index. That
// one starts from what the index holds: input that was not saved stays out of it. What does not answer
// changes neither; its size least of all, by which a change of the file is known later.
void NeuLesen(const Tagumgebung& Umgebung, Tagarbeit& Arbeit, std::string_view Code,
              std::string_view Indexcode) {
    // A CD's track is there, but no file.
    const bool OhneBytes = Arbeit.Satz.Dateityp == DateiartCdTitel;
    if (!DateiExistiert(Arbeit.Pfad) || (!OhneBytes && !IstLesbar(Arbeit.Pfad))) return;
    const Leseauftrag Auftrag{Lesecode::Lesen(Code), false, true, false};
    Arbeit.Satz = Umgebung.Leser(Arbeit.Pfad, Arbeit.Satz, Auftrag);
    if (Arbeit.Nummer == 0) return;
    Satzspeicher& Sätze = Umgebung.Index.Sätze;
    const Leseauftrag FürIndex{Lesecode::Lesen(Indexcode), true, true, false};
    const Datensatz Bisher = Sätze.Lesen(Arbeit.Nummer);
    Sätze.Setzen(Arbeit.Nummer, Arbeit.Pfad, Umgebung.Leser(Arbeit.Pfad, Bisher, FürIndex));
    // The file may tell what the index did not know, also where nothing was written.
    if (Sätze.Lesen(Arbeit.Nummer) != Bisher) Umgebung.Index.IndexGeändert = true;
}

}  // namespace

bool TagHatInhalt(const Datensatz& Satz, Tagblock Block) {
    switch (Block) {
        case Tagblock::Id3v1:
            return Gefüllt(Satz, Id3v1Felder) || Satz.Genre.value_or(KeinGenre) != KeinGenre;
        case Tagblock::Id3v2:
            return Satz.V2Qualität != KeineV2Qualität ||
                   std::any_of(Id3v2Rahmenfelder.begin(), Id3v2Rahmenfelder.end(),
                               [&](const Id3v2Rahmenfeld& Feld) { return !(Satz.*Feld.Feld).empty(); });
        case Tagblock::Lyrics:
            return !Satz.LyricsText.empty();
    }
    return false;
}

bool BlockGleich(const Datensatz& A, const Datensatz& B, Tagblock Block) {
    switch (Block) {
        case Tagblock::Id3v1:
            return A.Genre.value_or(KeinGenre) == B.Genre.value_or(KeinGenre) &&
                   std::ranges::all_of(Id3v1Felder, [&](auto Feld) { return A.*Feld == B.*Feld; });
        case Tagblock::Id3v2:
            return A.V2Qualität == B.V2Qualität &&
                   std::ranges::all_of(Id3v2Rahmenfelder, [&](const Id3v2Rahmenfeld& Feld) {
                       return A.*Feld.Feld == B.*Feld.Feld;
                   });
        case Tagblock::Lyrics:
            break;
    }
    return A.LyricsText == B.LyricsText;
}

Tagarbeit TagarbeitBeginnen(const Tagumgebung& Umgebung, std::string_view Pfad, Satznummer Nummer) {
    Tagarbeit Arbeit{std::string(Pfad), Nummer, {}, {}};
    SpeichernVollenden(Pfad, Umgebung.Person, Umgebung.Reste, Umgebung.Ausführen);
    if (Nummer > 0) Arbeit.Satz = Umgebung.Index.Sätze.Lesen(Nummer);
    for (const Tagblock Block : Tagblöcke)
        TagBlockLeeren(Arbeit.Satz, Block);
    Arbeit.Satz = Umgebung.Leser(Pfad, Arbeit.Satz, {Lesecode::Lesen("1111"), false, true, true});
    Arbeit.Ungelesen = Arbeit.Satz.Lesegestört;
    return Arbeit;
}

std::string UngelesenText(const Tagarbeit& Arbeit) {
    return "Die Datei '" + Arbeit.Pfad +
           "' konnte nicht gelesen werden. Sie wurde nicht geändert, damit nichts verloren geht, was in ihr "
           "steht. Prüfen Sie Ihre Zugriffsrechte und das Laufwerk und öffnen Sie die Datei dann erneut.";
}

Tagsergebnis TagsSpeichern(const Tagumgebung& Umgebung, Tagarbeit& Arbeit, Tagauswahl Welche,
                           bool NurMitInhalt, const Datensatz* InDatei) {
    Tagsergebnis Ergebnis;
    EingabeAufbereiten(Umgebung, Welche, Arbeit.Satz);
    const auto Dabei = [&](Tagblock Block) {
        return Welche == Tagauswahl::Alle || static_cast<int>(Welche) == static_cast<int>(Block);
    };
    const auto ZuSchreiben = [&](Tagblock Block) {
        const bool Leer = !Arbeit.Geschrieben[Platz(Block)] && !TagHatInhalt(Arbeit.Satz, Block);
        return !(NurMitInhalt && Leer) && (InDatei == nullptr || !BlockGleich(*InDatei, Arbeit.Satz, Block));
    };
    const bool NichtsNeues = InDatei != nullptr && std::ranges::none_of(Tagblöcke, ZuSchreiben);
    if (!NichtsNeues && !SchreibenErlaubt(Umgebung, Arbeit.Pfad)) {
        Ergebnis.Gescheitert = true;
        return Ergebnis;
    }
    if (!IstVerfügbar(Umgebung, Arbeit)) {
        Ergebnis.Gescheitert = true;
    } else if (Arbeit.Ungelesen && DateiExistiert(Arbeit.Pfad)) {
        // It may answer again by now, and an empty field would take the place of a full one.
        Ergebnis.Gescheitert = true;
        Umgebung.Person.Melden(Symbol::Ausrufezeichen, UngelesenText(Arbeit));
    } else {
        for (const Tagblock Block : Tagblöcke) {
            if (!Dabei(Block) || Ergebnis.Abgebrochen) continue;
            if (ZuSchreiben(Block))
                BlockSpeichern(Umgebung, Arbeit, Block, Ergebnis);
            else
                Ergebnis.Gespeichert = true;
        }
    }
    if (Arbeit.Nummer > 0) {
        const Datensatz Vorher = Umgebung.Index.Sätze.Lesen(Arbeit.Nummer);
        const std::array<std::uint8_t, 3> Zustände = {Vorher.HatId3v1, Vorher.HatId3v2, Vorher.HatLyrics};
        for (const Tagblock Block : Tagblöcke) {
            if (Zustände[Platz(Block)] == TagFehlt) TagBlockLeeren(Arbeit.Satz, Block);
        }
    }
    static constexpr std::array<std::string_view, 4> Lesecodes = {"1111", "1010", "0110", "0011"};
    // The work record keeps the input for the other blocks; the record takes all that the file holds.
    NeuLesen(Umgebung, Arbeit, Lesecodes[static_cast<std::size_t>(Welche)], "1111");
    return Ergebnis;
}

Entfernergebnis TagEntfernen(const Tagumgebung& Umgebung, Tagarbeit& Arbeit, Tagblock Block, bool Still) {
    DateiZurückholen(Arbeit.Pfad, Umgebung.Person, Umgebung.Reste, Umgebung.Ausführen);
    Entfernergebnis Ergebnis;
    if (DateiartLesen(Umgebung, Arbeit.Pfad) == DateiartWeitere) {
        Ergebnis.Meldung = NurLesbarText(Arbeit.Pfad);
        if (!Still) Umgebung.Person.Melden(Symbol::Ausrufezeichen, Ergebnis.Meldung);
        return Ergebnis;
    }
    if (!EntfernenErlaubt(Umgebung, Arbeit, Block)) {
        Ergebnis.Meldung = "Der " + TagName(Block) + " wurde nicht entfernt.";
    } else {
        Ergebnis.Entfernt = DateiÄndern(Umgebung, Ergebnis.Abgebrochen, [&](const Schreibrahmen& Rahmen) {
            return TagAusDateiEntfernen(Arbeit.Pfad, Block, OptionenVon(Umgebung.Werte), Ergebnis.Meldung,
                                        Rahmen);
        });
        if (!Ergebnis.Entfernt && !Still) Umgebung.Person.Melden(Symbol::Ausrufezeichen, Ergebnis.Meldung);
    }
    // The duration depends on the tags, so the stream is read with every one of them. With the two others the
    // record learns all that the file holds, also where the tag stays.
    if (Block != Tagblock::Id3v1) {
        NeuLesen(Umgebung, Arbeit, "1111", "1111");
    } else if (Ergebnis.Entfernt) {
        NeuLesen(Umgebung, Arbeit, "1010", "1010");
    }
    if (Ergebnis.Entfernt && Arbeit.Nummer > 0) Umgebung.Index.IndexGeändert = true;
    return Ergebnis;
}

}  // namespace liedwerk
