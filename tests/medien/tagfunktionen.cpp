#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <utility>
#include <vector>

#include "medien/schreibweise.h"
#include "medien/tagfunktionslauf.h"
#include "tests/medien/tagwelt.h"
#include "werkzeuge/tagbau.h"

namespace liedwerk {
namespace {

using namespace tagbau;

TEST(Schreibweise, HebtWortanfängeUndLässtWebadressenKlein) {
    struct Fall {
        std::string_view Text;
        bool NurErster;
        std::string_view Erwartet;
    };
    const Fall Fälle[] = {
        {"", false, ""},
        {"DAS LIED", false, "Das Lied"},
        {"DAS LIED", true, "Das lied"},
        {"über die äpfel", false, "Über Die Äpfel"},
        {"a-b (live) [x]&y", true, "A-B (Live) [X]&Y"},
        {"(klammer zuerst)", true, "(Klammer zuerst)"},
        {"don't rock_it o;k a/c\\d §e", false, "Don't Rock_it O;k A/c\\d §e"},
        {"HTTP://WWW.X.DE www.y", false, "http://www.x.de www.y"},
        {"#1 HIT", true, "#1 hit"},
        {"groß\xFF klein", false, "Groß\xFF Klein"},
    };
    for (const Fall& f : Fälle)
        EXPECT_EQ(Schreibweise(f.Text, f.NurErster), f.Erwartet) << f.Text;
}

TEST(Tagfunktionen, StehenMitDenNamenDerListen) {
    std::string Namen;
    for (const auto& Zeile : Tagfunktionen)
        Namen += std::string(Zeile.Name) + "\n";
    EXPECT_EQ(Namen,
              "AutoTAG ausführen\nAutoTAG einstellen...\nTAGs aufräumen\nVertauschen: Titel <-> Interpret\n"
              "Vertauschen: Titel <-> Album\nVertauschen: Interpret <-> Album\nZahl aus Kommentar in "
              "Titelnummer\nSchreibweise: Klein, Erster groß\nSchreibweise: Klein, Wörter groß\n"
              "Schreibweise: Klein\nSchreibweise: Groß\nFelder kopieren...\nTAG in jeweils anderen kopieren\n"
              "TAG entfernen\n");
    for (std::size_t i = 0; i < Tagfunktionen.size(); ++i)
        EXPECT_EQ(static_cast<std::size_t>(Tagfunktionen[i].Funktion), i);
    for (const auto& Zeile : Funktionsauswahlen) {
        EXPECT_EQ(Zeile.AlleDateien, Zeile.Name.starts_with("Alle "));
        EXPECT_EQ(Zeile.Id3v1, Zeile.Name.find("ID3v1") != Zeile.Name.npos);
        EXPECT_EQ(Zeile.Id3v2, Zeile.Name.find("ID3v2") != Zeile.Name.npos);
        EXPECT_EQ(Zeile.Lyrics, Zeile.Name.find("Lyrics") != Zeile.Name.npos);
    }
    EXPECT_EQ(FunktionsauswahlFinden("Diesen ID3v1- und ID3v2-TAG"), &Funktionsauswahlen[2]);
    EXPECT_EQ(TagfunktionFinden("tag entfernen"), nullptr);
}

TEST(Tagfunktionen, LehntAbWasNichtGeht) {
    EXPECT_EQ(FunktionPrüfen(&Tagfunktionen[0], nullptr),
              "Bitte wählen Sie eine Funktion und auf welche TAGs Sie diese anwenden möchten.");
    for (const auto& Zeile : Tagfunktionen) {
        const bool Lyrics = Zeile.Name == "TAG entfernen" || Zeile.Name == "TAGs aufräumen" ||
                            Zeile.Name == "AutoTAG einstellen...";
        EXPECT_EQ(FunktionPrüfen(&Zeile, FunktionsauswahlFinden("Alle Lyrics-TAGs")),
                  Lyrics ? "" : "Die gewählte Funktion steht nicht für Lyrics-TAGs zur Verfügung.");
        EXPECT_EQ(FunktionPrüfen(&Zeile, FunktionsauswahlFinden("Alle ID3v1- und ID3v2-TAGs")),
                  Zeile.Name == "TAG in jeweils anderen kopieren"
                      ? "Die gewählte Funktion steht nicht für beide TAGs gleichzeitig zur Verfügung."
                      : "");
        EXPECT_EQ(FunktionPrüfen(&Zeile, FunktionsauswahlFinden("Diesen ID3v2-TAG")), "");
    }
}

TEST(Tagfunktionen, WirkenAufDenGewähltenTagAllein) {
    Datensatz Satz;
    Satz.Titel = "t";
    Satz.V2Titel = "ein LIED";
    Satz.V2Album = "WWW.X.DE";
    Satz.V2Jahr = "nur Text";
    FelderTauschen(Satz, Tagblock::Id3v2, "Titel", "Album");
    EXPECT_EQ(Satz.Titel + "|" + Satz.V2Titel + "|" + Satz.V2Album, "t|WWW.X.DE|ein LIED");
    SchreibweiseÄndern(Satz, Tagblock::Id3v2, Tagfunktion::Groß);
    EXPECT_EQ(Satz.V2Titel + "|" + Satz.V2Album + "|" + Satz.V2Jahr, "WWW.X.DE|EIN LIED|nur Text");
    SchreibweiseÄndern(Satz, Tagblock::Id3v2, Tagfunktion::KleinErsterGroß);
    EXPECT_EQ(Satz.V2Titel + "|" + Satz.V2Album, "www.x.de|Ein lied");
    SchreibweiseÄndern(Satz, Tagblock::Id3v2, Tagfunktion::KleinWörterGroß);
    EXPECT_EQ(Satz.V2Album, "Ein Lied");
    SchreibweiseÄndern(Satz, Tagblock::Id3v1, Tagfunktion::Klein);
    EXPECT_EQ(Satz.Titel, "t");
}

TEST(Tagfunktionen, ZahlAusKommentarPasstOderBleibtDraußen) {
    struct Fall {
        Tagblock Tag;
        std::string_view Kommentar;
        std::string_view Titelnummer;
        std::string_view Meldung;
    };
    const Fall Fälle[] = {
        {Tagblock::Id3v1, "Track 07 von 12", "7", ""},
        {Tagblock::Id3v1, "ohne", "alt", ""},
        {Tagblock::Id3v1, "x256", "alt",
         "Die gefundene Zahl im Kommentar-Feld des ID3v1-TAGs '256' ist zu groß (>255)."},
        {Tagblock::Id3v2, "x256", "256", ""},
        {Tagblock::Id3v2, "2147483648", "alt",
         "Die gefundene Zahl im Kommentar-Feld des ID3v2-TAGs '2147483648' ist zu groß."},
        {Tagblock::Id3v2, "99999999999999999999999", "alt",
         "Die gefundene Zahl im Kommentar-Feld des ID3v2-TAGs '99999999999999999999999' ist zu groß."},
    };
    for (const Fall& f : Fälle) {
        Datensatz Satz;
        const bool V1 = f.Tag == Tagblock::Id3v1;
        (V1 ? Satz.Kommentar : Satz.V2Kommentar) = f.Kommentar;
        Satz.Titelnummer = Satz.V2Titelnummer = "alt";
        EXPECT_EQ(ZahlInTitelnummer(Satz, f.Tag), f.Meldung);
        EXPECT_EQ(V1 ? Satz.Titelnummer : Satz.V2Titelnummer, f.Titelnummer) << f.Kommentar;
        EXPECT_EQ(V1 ? Satz.V2Titelnummer : Satz.Titelnummer, "alt");
    }
}

TEST(Tagfunktionen, KopiertSiebenFelderInDenAnderenTag) {
    Datensatz Satz;
    Satz.Titel = "t";
    Satz.Titelnummer = "3";
    Satz.Genre = 17;
    Satz.V2Kommentar = "weg";
    Satz.V2Link = "bleibt";
    InAnderenKopieren(Satz, Tagblock::Id3v1);
    EXPECT_EQ(Satz.V2Titel + Satz.V2Titelnummer + Satz.V2Genre + Satz.V2Kommentar + Satz.V2Link,
              "t3Rockbleibt");
    for (const auto& [Text, Genre] : std::vector<std::pair<std::string, std::uint8_t>>{
             {"(9)Metal", std::uint8_t{9}}, {"pop", std::uint8_t{13}}, {"eigenes", KeinGenre}}) {
        Satz.V2Genre = Text;
        InAnderenKopieren(Satz, Tagblock::Id3v2);
        EXPECT_EQ(Satz.Genre, Genre) << Text;
    }
    const Feldvorgabe Frei{GrundfeldFinden("Genre"), "eigenes"};
    EXPECT_NE(FeldvorgabePrüfen(Frei, Funktionsauswahlen[6]), "");
    EXPECT_EQ(FeldvorgabePrüfen(Frei, Funktionsauswahlen[5]), "");
    EXPECT_EQ(FeldvorgabePrüfen({GrundfeldFinden("Genre"), "ROCK"}, Funktionsauswahlen[4]), "");
}

// Runs over real files that stand in the index.
class Funktionslauf : public Tagwelt {
  protected:
    static std::string Ton() { return MpegRahmen({}, 10); }
    static std::string V1(std::string_view Interpret, std::string_view Titel,
                          std::string_view Kommentar = "") {
        return Id3v1Block({.Titel = std::string(Titel),
                           .Interpret = std::string(Interpret),
                           .Kommentar = std::string(Kommentar)});
    }
    Funktionsergebnis Laufen(Tagfunktion Funktion, std::size_t Auswahl,
                             std::optional<Datensatz> Eingaben = std::nullopt) {
        Funktionsauftrag Auftrag{Funktion, Funktionsauswahlen[Auswahl], {}, {}, std::move(Eingaben)};
        for (Satznummer Nummer = 1; Nummer <= Index.IndexAnzahl(); ++Nummer)
            Auftrag.Dateien.push_back({Index.Sätze.Pfad(Nummer), Nummer});
        Auftrag.Feld = Vorgabe;
        return TagfunktionAusführen(Welt, Verzeichnis, Auftrag);
    }
    Datensatz Gelesen(Satznummer Nummer) {
        return MedienDatenLesen(Umgebung, Index.Sätze.Pfad(Nummer), {}, {.Code = Lesecode::Lesen("1111")});
    }

    Tagverzeichnis Verzeichnis;
    Feldvorgabe Vorgabe;
};

TEST_F(Funktionslauf, SpeichertNurDenTagDenDieFunktionGeändertHat) {
    Aufnehmen("a.mp3", Ton() + V1("wer", "was"));
    Aufnehmen("b.mp3", Ton());
    const auto Ergebnis = Laufen(Tagfunktion::Groß, 6);
    EXPECT_EQ(Ergebnis.Bearbeitet, 2U);
    EXPECT_EQ(Ergebnis.Gescheitert, 0U);
    EXPECT_EQ(Gelesen(1).Titel + Gelesen(1).Interpret, "WASWER");
    EXPECT_EQ(Gelesen(1).HatId3v2, TagFehlt);
    EXPECT_EQ(Gelesen(2).HatId3v1, TagFehlt);
    EXPECT_EQ(Index.Sätze.Text(1, FeldTitel), "WAS");
    EXPECT_TRUE(Index.IndexGeändert);
    EXPECT_EQ(Person.Titel, std::vector<std::string>{"Bearbeite Dateien"});
    EXPECT_EQ(Person.Offen, 0);
}

TEST_F(Funktionslauf, FülltBeideTagsObwohlKeinerDaWar) {
    Aufnehmen("wer - was.mp3", Ton());
    Werte.AutoTagAktuell = "%Interpret% - %Titel%";
    Laufen(Tagfunktion::AutoTag, 2);
    const Datensatz Satz = Gelesen(1);
    EXPECT_EQ(Satz.Titel + Satz.V2Titel + Satz.Interpret + Satz.V2Interpret, "WasWasWerWer");
    Vorgabe = {GrundfeldFinden("Genre"), "eigenes"};
    Laufen(Tagfunktion::FelderKopieren, 2);
    EXPECT_EQ(Gelesen(1).V2Genre, "eigenes");
    EXPECT_EQ(Gelesen(1).Genre, KeinGenre);
    Laufen(Tagfunktion::TitelInterpretTauschen, 1);
    Laufen(Tagfunktion::TagKopieren, 1);
    EXPECT_EQ(Gelesen(1).Titel, "Wer");
}

TEST_F(Funktionslauf, NimmtEingabenStattDerDatei) {
    Aufnehmen("a.mp3", Ton() + V1("wer", "was"));
    Datensatz Eingaben = Gelesen(1);
    Eingaben.Titel = "getippt";
    Eingaben.V2Titel = "anderer tag";
    Laufen(Tagfunktion::Groß, 0, Eingaben);
    EXPECT_EQ(Gelesen(1).Titel, "GETIPPT");
    EXPECT_EQ(Gelesen(1).HatId3v2, TagFehlt);
}

TEST_F(Funktionslauf, AufräumenEntferntLeeresErkenntUndVerschönert) {
    // Only a comment: gone with its comment, and filled anew from the name.
    Aufnehmen("wer - was.mp3", Ton() + V1("", " ", "nur dies"));
    Aufnehmen("die band - lied.mp3", Ton() + LyricsV2(LyricsFeld("LYR", "  ")) + V1("DIE BAND", ""));
    Aufnehmen("x.mp3", Ton());
    Aufnehmen("lesbar.mp3", Id3v2Tag(3, Id3v2Textrahmen("TIT2", "Was") + Id3v2Textrahmen("TPE1", "Wer")) +
                                Ton() + V1("Wer", "Was"));
    Werte.AutoTagAktuell = "%Interpret% - %Titel%";
    const auto Ergebnis = Laufen(Tagfunktion::Aufräumen, 6);
    EXPECT_EQ(Gelesen(1).Titel + Gelesen(1).V2Interpret + Gelesen(1).Kommentar, "WasWer");
    EXPECT_EQ(Gelesen(2).Titel + Gelesen(2).Interpret, "LiedDie Band");
    EXPECT_EQ(Gelesen(2).HatLyrics, TagFehlt);
    // Nothing came out for the last one: it is as it was, and its message came once for both tags.
    EXPECT_EQ(Gelesen(3).HatId3v1, TagFehlt);
    EXPECT_EQ(Gelesen(3).HatId3v2, TagFehlt);
    EXPECT_EQ(Ergebnis.Gescheitert, 1U);
    EXPECT_EQ(Person.Meldungen.size(), 1U);
    // A file whose fields were readable is saved all the same, and what a save adds comes; where even that is
    // there the file is left alone, but the index learns what it holds.
    EXPECT_EQ(Gelesen(4).V2Software, "Liedwerk 1.00 - www.liedwerk.invalid");
    const std::filesystem::path Pfad = Index.Sätze.Pfad(4);
    std::filesystem::last_write_time(Pfad, std::filesystem::file_time_type{});
    Index.Sätze.RohwerteSetzen(4, std::array{Rohfeld{FeldTitel, "veraltet"}});
    Laufen(Tagfunktion::Aufräumen, 6);
    EXPECT_EQ(std::filesystem::last_write_time(Pfad), std::filesystem::file_time_type{});
    EXPECT_EQ(Index.Sätze.Text(4, FeldTitel), "Was");
}

TEST_F(Funktionslauf, EntfernenSchweigtInVielenUndSprichtBeiEiner) {
    Aufnehmen("a.mp3", Ton() + V1("wer", "was"));
    Aufnehmen("b.mp3", Ton());
    EXPECT_EQ(Laufen(Tagfunktion::Entfernen, 4).Gescheitert, 0U);
    EXPECT_EQ(Gelesen(1).HatId3v1, TagFehlt);
    EXPECT_TRUE(Person.Meldungen.empty());
    EXPECT_EQ(Laufen(Tagfunktion::Entfernen, 0).Gescheitert, 2U);
    EXPECT_EQ(Person.Meldungen.size(), 2U);
}

TEST_F(Funktionslauf, DateiDieNichtAntwortetBehältIhrenSatz) {
    const std::string Datei = Id3v2Tag(3, Id3v2Textrahmen("TIT2", "was")) + Ton() + V1("wer", "was");
    for (const char* Name : {"a.mp3", "b.mp3"})
        Aufnehmen(Name, Datei);
    const std::string Pfad = Index.Sätze.Pfad(1);
    const Datensatz Vorher = Index.Sätze.Lesen(1);
    std::filesystem::remove(Pfad);
    ASSERT_EQ(::mkfifo(Pfad.c_str(), 0600), 0);
    Index.IndexGeändert = false;
    for (const auto& [Funktion, Auswahl] : {std::pair(Tagfunktion::Aufräumen, 6),
                                            {Tagfunktion::Groß, 0},
                                            {Tagfunktion::Entfernen, 1},
                                            {Tagfunktion::AutoTag, 2}}) {
        Person.Meldungen.clear();
        Funktionsauftrag Auftrag{Funktion, Funktionsauswahlen[static_cast<std::size_t>(Auswahl)], {}, {}, {}};
        Auftrag.Dateien = {{Pfad, 1}, {Pfad, 1}};
        EXPECT_EQ(TagfunktionAusführen(Welt, Verzeichnis, Auftrag).Gescheitert, 2U);
        ASSERT_EQ(Person.Meldungen.size(), 1U) << "one for all of a share that is away";
        EXPECT_NE(Person.Meldungen[0].find("2 Dateien konnten nicht gelesen werden"), std::string::npos);
        EXPECT_NE(Person.Meldungen[0].find(Pfad), std::string::npos);
    }
    // It answers again before the save: the fields that could not be read would take the place of its own.
    Tagarbeit Arbeit = TagarbeitBeginnen(Welt, Pfad, 1);
    EXPECT_FALSE(TagEntfernen(Welt, Arbeit, Tagblock::Id3v2, true));
    EXPECT_EQ(Index.Sätze.Lesen(1), Vorher);
    EXPECT_FALSE(Index.IndexGeändert);
    Anlegen("a.mp3", Datei);
    Arbeit.Satz.V2Album = "neu";
    EXPECT_TRUE(TagsSpeichern(Welt, Arbeit, Tagauswahl::Alle, false).Gescheitert);
    EXPECT_EQ(DateiLesen(Pfad), Datei);
}

TEST_F(Funktionslauf, EndetMitDemFortschrittUndLässtFehlendeMedienAus) {
    Aufnehmen("a.mp3", Ton() + V1("wer", "was"));
    Aufnehmen("b.mp3", Ton() + V1("wer", "was"));
    Person.AbbruchBei = 2;
    const auto Ergebnis = Laufen(Tagfunktion::Groß, 4);
    EXPECT_TRUE(Ergebnis.Abgebrochen);
    EXPECT_EQ(Gelesen(1).Titel + Gelesen(2).Titel, "WASwas");

    // The progress of a single step ends the run as well.
    Welt.Ausführen = [](const Dateischritt& Schritt) { Schritt([](std::uint64_t) { return false; }); };
    Person.AbbruchBei = 0;
    const auto Entfernt = Laufen(Tagfunktion::Entfernen, 4);
    EXPECT_TRUE(Entfernt.Abgebrochen);
    EXPECT_EQ(Entfernt.Bearbeitet, 1U);
    EXPECT_EQ(Gelesen(2).HatId3v1, TagVorhanden);
    Welt.Ausführen = {};

    Datensatz Fern;
    Fern.Wechselmedium = "STICK";
    SatzAnhängen(Index, "/media/ich/STICK/c.mp3", Fern);
    Person.Verfügbarkeiten = {Verfügbarkeitsantwort::Überspringen, Verfügbarkeitsantwort::Abbrechen};
    EXPECT_EQ(Laufen(Tagfunktion::Klein, 4).Bearbeitet, 2U);
    EXPECT_TRUE(Laufen(Tagfunktion::Klein, 4).Abgebrochen);
}

TEST(Tagfunktionen, FragenVorDemLauf) {
    speicher::Person Person;
    const auto Fragen = [&](std::string_view Funktion, std::size_t Auswahl) {
        Person.Antworten = {Antwort::Ja, Antwort::Ja};
        Person.Gefragt.clear();
        EXPECT_TRUE(FunktionBestätigen(Person, *TagfunktionFinden(Funktion), Funktionsauswahlen[Auswahl]));
        return Person.Gefragt;
    };
    EXPECT_TRUE(Fragen("Schreibweise: Groß", 2).empty());
    EXPECT_EQ(Fragen("Schreibweise: Groß", 4),
              std::vector<std::string>{"Möchten Sie die Funktion 'Schreibweise: Groß' tatsächlich für 'Alle "
                                       "ID3v1-TAGs' anwenden?"});
    EXPECT_EQ(Fragen("TAG entfernen", 0),
              std::vector<std::string>{
                  "Möchten Sie die Funktion 'TAG entfernen' tatsächlich für die aktuelle Datei anwenden?"});
    EXPECT_EQ(Fragen("TAGs aufräumen", 1).size(), 1U);
    EXPECT_EQ(Fragen("TAGs aufräumen", 6).size(), 2U);
    Person.Antworten = {Antwort::Ja, Antwort::Nein};
    EXPECT_FALSE(FunktionBestätigen(Person, *TagfunktionFinden("TAGs aufräumen"), Funktionsauswahlen[6]));
}

}  // namespace
}  // namespace liedwerk
