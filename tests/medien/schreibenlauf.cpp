// TagsSpeichern and TagEntfernen: what is written at all, the questions, and the record of the index.
#include "basis/text.h"
#include "index/felder.h"
#include "medien/tagumschreiben.h"
#include "tests/medien/tagwelt.h"
#include "werkzeuge/tagbau.h"

namespace liedwerk {
namespace {

using namespace tagbau;

class Tagslauf : public Tagwelt {
  protected:
    Tagarbeit Beginnen(std::string_view Inhalt, std::string_view Name = "t.mp3") {
        const Satznummer Nummer = Aufnehmen(Name, Inhalt);
        Index.IndexGeändert = false;
        return TagarbeitBeginnen(Welt, Index.Sätze.Pfad(Nummer), Nummer);
    }
    static std::string Inhalt(const Tagarbeit& Arbeit) { return DateiLesen(Arbeit.Pfad).value_or("(fehlt)"); }
    // The question that was asked last; empty when none was.
    std::string Frage() {
        const std::string Letzte = Person.Gefragt.empty() ? "" : Person.Gefragt.back();
        Person.Gefragt.clear();
        return Letzte;
    }
};

TEST_F(Tagslauf, LeereBlöckeWerdenNurMitInhaltÜbergangen) {
    Tagarbeit Arbeit = Beginnen("Ton");
    auto Ergebnis = TagsSpeichern(Welt, Arbeit, Tagauswahl::Alle, true);
    EXPECT_TRUE(Ergebnis.Gespeichert && !Ergebnis.Gescheitert);
    EXPECT_EQ(Inhalt(Arbeit), "Ton");
    EXPECT_FALSE(Index.IndexGeändert);
    Arbeit.Satz.Titel = "da";
    TagsSpeichern(Welt, Arbeit, Tagauswahl::Id3v1, true);
    EXPECT_EQ(Inhalt(Arbeit).size(), 3U + 128U);
    EXPECT_TRUE(Index.IndexGeändert);
    // Written in this visit: now the emptied block goes into the file too.
    Arbeit.Satz.Titel.clear();
    TagsSpeichern(Welt, Arbeit, Tagauswahl::Id3v1, true);
    EXPECT_EQ(Inhalt(Arbeit).substr(3, 33), "TAG" + std::string(30, ' '));
    TagsSpeichern(Welt, Arbeit, Tagauswahl::Alle, false);
    EXPECT_EQ(Arbeit.Satz.HatId3v1 + Arbeit.Satz.HatId3v2 + Arbeit.Satz.HatLyrics, 3);
}

TEST_F(Tagslauf, SatzDesIndexFolgtDerDateiUndNichtDenEingaben) {
    Tagarbeit Arbeit = Beginnen("Ton");
    Datensatz Gespielt = Index.Sätze.Lesen(Arbeit.Nummer);
    Gespielt.AbspielHäufigkeit = 7;
    Index.Sätze.Setzen(Arbeit.Nummer, Arbeit.Pfad, Gespielt);
    Arbeit.Satz.Titel = "gespeichert";
    Arbeit.Satz.Kommentar = std::string(40, 'k');
    Arbeit.Satz.V2Titel = "nur getippt";
    TagsSpeichern(Welt, Arbeit, Tagauswahl::Id3v1, false);
    Datensatz Satz = Index.Sätze.Lesen(Arbeit.Nummer);
    EXPECT_EQ(Satz.Titel + Satz.V2Titel, "gespeichert");
    EXPECT_EQ(Satz.Kommentar, std::string(30, 'k'));
    EXPECT_EQ(Satz.AbspielHäufigkeit, 7);
    EXPECT_EQ(Satz.Größe, 3 + 128);
    EXPECT_TRUE(TagEntfernen(Welt, Arbeit, Tagblock::Id3v1, false));
    Satz = Index.Sätze.Lesen(Arbeit.Nummer);
    EXPECT_EQ(Satz.Titel + Arbeit.Satz.Titel, "");
    EXPECT_EQ(Satz.HatId3v1, TagFehlt);
    // A tag that is not there any more: the record learns what the file holds.
    Index.IndexGeändert = false;
    Anlegen("t.mp3", "Ton" + Id3v1Block({.Titel = "fremd"}));
    const Entfernergebnis Ergebnis = TagEntfernen(Welt, Arbeit, Tagblock::Lyrics, true);
    EXPECT_FALSE(Ergebnis);
    EXPECT_EQ(Index.Sätze.Lesen(Arbeit.Nummer).Titel + Arbeit.Satz.Titel, "fremdfremd");
    EXPECT_TRUE(Index.IndexGeändert);
    EXPECT_TRUE(Person.Meldungen.empty());
    EXPECT_FALSE(TagEntfernen(Welt, Arbeit, Tagblock::Lyrics, false));
    EXPECT_EQ(Person.Meldungen, std::vector<std::string>{Ergebnis.Meldung});
    // What another program has put into the other tags comes along, with a save and with a removal.
    const std::string Fremd = Id3v2Tag(3, Id3v2Textrahmen("TIT2", "fremd")) + "Ton";
    Anlegen("t.mp3", Fremd + Id3v1Block({}));
    Arbeit.Satz.Titel = "neu";
    TagsSpeichern(Welt, Arbeit, Tagauswahl::Id3v1, false);
    EXPECT_EQ(Index.Sätze.Lesen(Arbeit.Nummer).V2Titel, "fremd");
    Anlegen("t.mp3", Fremd + Id3v1Block({.Titel = "ganz neu"}));
    EXPECT_TRUE(TagEntfernen(Welt, Arbeit, Tagblock::Id3v2, true));
    EXPECT_EQ(Index.Sätze.Lesen(Arbeit.Nummer).Titel, "ganz neu");
}

TEST_F(Tagslauf, GenreBekommtSeineNummerUndDieSoftwareDenNamen) {
    struct Fall {
        std::string Genre, Software, NeuesGenre, NeueSoftware;
        std::int16_t OhneZahlen = 0;
        std::int32_t FeldSchreiben = 1;
    };
    const std::string Unsere = "Liedwerk 1.00 - www.liedwerk.invalid";
    for (const Fall& F : std::vector<Fall>{{"rock", "", "(17)rock", Unsere},
                                           {"eigenes", "Liedwerk 0.9 - x", "eigenes", Unsere},
                                           {"Rock", "ein anderes", "Rock", "ein anderes", 1},
                                           {"(17)Rock", "", "(17)Rock", "", 0, 0}}) {
        Tagarbeit Arbeit = Beginnen("Ton");
        Werte.ID3v2GenreZahlenEntfernen = F.OhneZahlen;
        Werte.TAGsSoftwareFeldSchreiben = F.FeldSchreiben;
        Arbeit.Satz.V2Genre = F.Genre;
        Arbeit.Satz.V2Software = F.Software;
        TagsSpeichern(Welt, Arbeit, Tagauswahl::Id3v2, true);
        EXPECT_EQ(Arbeit.Satz.V2Genre + "/" + Arbeit.Satz.V2Software, F.NeuesGenre + "/" + F.NeueSoftware);
    }
}

TEST_F(Tagslauf, FremdeDateiartUndFehlendeDateiSchreibenNichtsUngefragt) {
    Tagarbeit Arbeit = Beginnen("Ton", "t.ogg");
    Arbeit.Satz.Titel = "x";
    EXPECT_TRUE(TagsSpeichern(Welt, Arbeit, Tagauswahl::Id3v1, false).Gespeichert);  // preset: yes
    EXPECT_EQ(Frage(),
              "Sie sollten TAGs nur in Dateien des Typs 'MPEG Audio/AAC' speichern.\n"
              "Der Datei-Typ konnte anhand der Dateiendung nicht als passend erkannt werden.\n\n"
              "Möchten Sie trotzdem speichern (nicht empfohlen)?");
    Person.Antworten = {Antwort::Nein};
    const std::string Vorher = Inhalt(Arbeit);
    Arbeit.Satz.Titel = "y";
    EXPECT_FALSE(TagsSpeichern(Welt, Arbeit, Tagauswahl::Id3v1, false).Gespeichert);
    EXPECT_EQ(Inhalt(Arbeit), Vorher);

    // A further format that is switched on is never written.
    const auto Typen = Grundtypen(true);
    Umgebung.Dateitypen = &Typen;
    Umgebung.WeitereFormate = true;
    Arbeit = Beginnen("fLaC", "t.flac");
    Arbeit.Satz.Titel = "x";
    EXPECT_TRUE(TagsSpeichern(Welt, Arbeit, Tagauswahl::Alle, false).Gescheitert);
    EXPECT_FALSE(TagEntfernen(Welt, Arbeit, Tagblock::Id3v1, false));
    EXPECT_EQ(Inhalt(Arbeit), "fLaC");
    EXPECT_EQ(std::exchange(Person.Meldungen, {}).size(), 2U);

    Arbeit = Beginnen("Ton");
    std::filesystem::remove(Arbeit.Pfad);
    EXPECT_TRUE(TagsSpeichern(Welt, Arbeit, Tagauswahl::Alle, false).Gescheitert);
    EXPECT_EQ(Person.Meldungen.size(), 3U);
    EXPECT_FALSE(DateiExistiert(Arbeit.Pfad));
}

TEST_F(Tagslauf, AbbruchLässtDieDateiUndDieWeiterenTagsWieSieSind) {
    const std::string Alt = Id3v2Tag(3, Id3v2Textrahmen("TIT2", "alt")) + "Ton";
    Tagarbeit Arbeit = Beginnen(Alt);
    Arbeit.Satz.V2Titel = std::string(5000, 'n');
    Arbeit.Satz.LyricsText = "neu";
    Person.AbbruchBei = 1;
    const auto Ergebnis = TagsSpeichern(Welt, Arbeit, Tagauswahl::Alle, true);
    EXPECT_TRUE(Ergebnis.Abgebrochen && Ergebnis.Gescheitert);
    EXPECT_FALSE(TagEntfernen(Welt, Arbeit, Tagblock::Id3v2, false));
    ASSERT_EQ(Person.Meldungen.size(), 2U);
    EXPECT_EQ(Person.Meldungen[0], "Das Speichern des ID3v2-TAGs der Datei '" + Arbeit.Pfad +
                                       "' wurde abgebrochen. Die Datei ist unverändert.");
    EXPECT_EQ(Person.Meldungen[1].substr(0, 13), "Das Entfernen");
    EXPECT_EQ(Inhalt(Arbeit), Alt);
    EXPECT_FALSE(DateiExistiert(TagTemporärname(Arbeit.Pfad)));
}

// A file's ID3v2 tag, a change of the record, and what the question names (empty: there is none).
TEST_F(Tagslauf, FragtNurVorEchtemVerlustUndSchreibtOhneJaNichts) {
    const auto Titel = [](std::string_view Text) { return Id3v2Textrahmen("TIT2", Text); };
    const std::string Wertung = Id3v2Rahmen("POPM", std::string("wer@example\0\x80\0\0\0\x05", 17));
    struct Fall {
        std::string Tag;
        std::string NeuerTitel;
        std::vector<std::string> Genannt;
    };
    const std::vector<Fall> Fälle = {
        {"", "neu", {}},
        {Id3v2Tag(3, Titel("a") + Id3v2Rahmen("COMM", std::string("\0eng\0Text", 9)), 50), "neu", {}},
        {Id3v2Tag(3, Titel("a") + Id3v2Textrahmen("TIT2", "a")), "neu", {}},
        {Id3v2Tag(3,
                  Id3v2Rahmen("COMM", "\1eng" + Utf16Text("x") + std::string(2, '\0') + Utf16Text("Größe"))),
         "neu",
         {}},
        {Id3v2Tag(3, Titel("a") + Id3v2Rahmen("APIC", "Bild") + Id3v2Rahmen("PRIV", "x")),
         "neu",
         {"1 Bild(er)", "PRIV"}},
        {Id3v2Tag(3, Id3v2Rahmen("APIC", std::string(70000, 'b'))), "neu", {"1 Bild(er)", "70.020 Bytes"}},
        {Id3v2Tag(3, Titel("a") + Wertung), "neu", {"Bewertung"}},
        {Id3v2Tag(3, Id3v2Textrahmen("TPE1", "Виктор", true)), "neu", {"'Виктор' wird zu '?"}},
        {Id3v2Tag(3, Id3v2Textrahmen("TIT2", "Виктор", true)), "neu", {}},
        {Id3v2Tag(4,
                  Id3v2Textrahmen("TALB", std::string(300, 'a'), false, true) + Id3v2Textrahmen("TPE1", "b")),
         "neu",
         {"TALB, TPE1"}},
        {Id3v2Tag(2, Id3v2Rahmen("TT2", std::string("\0a", 2)) + Id3v2Rahmen("TP1", std::string("\0b", 2))),
         "neu",
         {"TP1"}},
        {Id3v2Tag(3, Titel("a") + "\x01\x02Ton im TAG"), "neu", {"unbekannter Art"}},
        {"", "Жук", {"'Жук' wird zu '?"}},
        {"", std::string(66000, 'x'), {"jenseits von 65.535 Bytes"}},
    };
    for (const Fall& F : Fälle) {
        Tagarbeit Arbeit = Beginnen(F.Tag + "Ton");
        const std::string Vorher = Inhalt(Arbeit);
        Arbeit.Satz.V2Titel = F.NeuerTitel;
        const auto Ergebnis = TagsSpeichern(Welt, Arbeit, Tagauswahl::Id3v2, false);
        const std::string Text = Frage();
        EXPECT_EQ(Ergebnis.Gespeichert, F.Genannt.empty()) << Text;
        EXPECT_EQ(Inhalt(Arbeit) == Vorher, !F.Genannt.empty());
        EXPECT_EQ(Text.empty(), F.Genannt.empty()) << Text;
        for (const std::string& Teil : F.Genannt)
            EXPECT_NE(Text.find(Teil), std::string::npos) << Teil << " in " << Text;
    }
}

TEST_F(Tagslauf, VerlustfrageGiltAuchDemEntfernenUndLässtSichAbschalten) {
    const std::string MitBild = Id3v2Tag(3, Id3v2Rahmen("APIC", "Bild"));
    Tagarbeit Arbeit = Beginnen(MitBild + "Ton");
    EXPECT_FALSE(TagEntfernen(Welt, Arbeit, Tagblock::Id3v2, true));
    EXPECT_NE(Frage().find("1 Bild(er)"), std::string::npos);
    EXPECT_EQ(Inhalt(Arbeit), MitBild + "Ton");
    Person.Antworten = {Antwort::Ja};
    EXPECT_TRUE(TagEntfernen(Welt, Arbeit, Tagblock::Id3v2, true));
    EXPECT_EQ(Inhalt(Arbeit), "Ton");
    for (const std::int16_t Modern : {std::int16_t{0}, std::int16_t{1}}) {
        Werte.TAGsModern = Modern;
        Arbeit = Beginnen(Id3v2Tag(3, Id3v2Textrahmen("TIT2", "Виктор", true)) + "Ton");
        EXPECT_TRUE(TagEntfernen(Welt, Arbeit, Tagblock::Id3v2, true)) << Frage();
    }
    Werte.TAGsModern = 0;
    // Of ID3v1: a genre without a name, and what follows a comment that does not fill its field.
    std::string Block = Id3v1Block({.Titel = "t", .Kommentar = "k", .Genre = 147});
    Block.replace(125, 2, "xy");
    Arbeit = Beginnen("Ton" + Block);
    EXPECT_TRUE(TagsSpeichern(Welt, Arbeit, Tagauswahl::Id3v1, false).Gescheitert);
    EXPECT_NE(Person.Gefragt.back().find("Nummer 147"), std::string::npos);
    EXPECT_NE(Frage().find("'xy'"), std::string::npos);
    EXPECT_FALSE(TagEntfernen(Welt, Arbeit, Tagblock::Id3v1, true));
    EXPECT_EQ(Inhalt(Arbeit), "Ton" + Block);
    Person.Gefragt.clear();
    Arbeit.Satz.Genre = 17;
    Arbeit.Satz.Kommentar = "neu";
    EXPECT_TRUE(TagsSpeichern(Welt, Arbeit, Tagauswahl::Id3v1, false).Gespeichert) << Frage();
    // A tag of version 1 is read without its first character.
    Arbeit = Beginnen("Ton" + LyricsV1("Text") + Id3v1Block({}));
    EXPECT_EQ(Arbeit.Satz.LyricsText, "ext");
    EXPECT_TRUE(TagsSpeichern(Welt, Arbeit, Tagauswahl::Lyrics, false).Gescheitert);
    EXPECT_NE(Frage().find("erste Zeichen"), std::string::npos);
    Arbeit.Satz.LyricsText = std::string(100000, 'l');
    EXPECT_TRUE(TagsSpeichern(Welt, Arbeit, Tagauswahl::Lyrics, false).Gescheitert);
    EXPECT_NE(Frage().find("99.999"), std::string::npos);
    Werte.TAGsVerlustFragen = 0;
    Arbeit.Satz.LyricsText = "Жук";
    EXPECT_TRUE(TagsSpeichern(Welt, Arbeit, Tagauswahl::Lyrics, false).Gespeichert);
    EXPECT_EQ(Arbeit.Satz.LyricsText, std::string(3, '?'));
    Werte.TAGsVerlustFragen = Werte.TAGsModern = 1;
    Arbeit = Beginnen(MitBild + "Ton");
    Arbeit.Satz.V2Titel = "Жук";
    EXPECT_TRUE(TagsSpeichern(Welt, Arbeit, Tagauswahl::Id3v2, false).Gespeichert);
    EXPECT_EQ(Frage() + Arbeit.Satz.V2Titel, "Жук");
}

}  // namespace
}  // namespace liedwerk
