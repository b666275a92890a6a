// The TAG editor without its window: entries, leaving a file, what reaches file and index.
#include "core/tageditor.h"

#include <set>

#include "basis/text.h"
#include "core/tageditorfelder.h"
#include "tests/core/welt.h"

namespace liedwerk {
namespace {

class TagEditorTest : public Kerntest {
  protected:
    // A run with records for the given files in its index.
    void SetUp() override {
        Kerntest::SetUp();
        P->Index.Optionen.Dateitypen = DateitypenVorgabe();
    }
    Satznummer Aufnehmen(const std::string& Pfad) {
        const Datensatz Satz = MedienleserVon(*P)(Pfad, {}, {Lesecode::Lesen("1111"), true, true, false});
        return SatzAnhängen(P->Index, Pfad, Satz);
    }
    static std::string Inhalt(const std::string& Pfad) {
        std::ifstream Datei(Pfad, std::ios::binary);
        return {std::istreambuf_iterator<char>(Datei), {}};
    }
    std::string V2Lied(std::string_view Name, std::string_view Rahmen) {
        return Datei(Name, tagbau::Id3v2Tag(3, Rahmen, 100) + tagbau::MpegRahmen({}, 4));
    }
    Datensatz Gelesen(const std::string& Pfad) {
        return MedienleserVon(*P)(Pfad, {}, {Lesecode::Lesen("1111"), false, false, false});
    }
    TagEditor Editor;
};

const Tagfeld& FeldVon(std::string Datensatz::*Wert) {
    const auto Felder = Tagfelder();
    return *std::find_if(Felder.begin(), Felder.end(),
                         [&](const Tagfeld& Eins) { return Eins.Wert == Wert; });
}

TEST_F(TagEditorTest, JedesFeldKommtUnverändertDurchSeinSteuerelement) {
    std::set<std::string_view> Namen;
    Datensatz Alt;
    for (const Tagfeld& Feld : Tagfelder())
        Alt.*Feld.Wert = "(17)Rock\r\nzweite\n";
    Alt.V2Genre = "(17)";
    for (const Tagfeld& Feld : Tagfelder()) {
        SCOPED_TRACE(Feld.Steuerelement);
        EXPECT_TRUE(Namen.insert(Feld.Steuerelement).second);
        Datensatz Neu = Alt;
        FeldEintragen(Neu, Alt, Feld, Feldtext(Alt, Feld));
        EXPECT_EQ(Neu, Alt) << "shown and taken back";
        FeldEintragen(Neu, Alt, Feld, "anders");
        EXPECT_FALSE(BlockGleich(Neu, Alt, BlockVon(Feld.Blatt)));
        FeldEintragen(Neu, Alt, Feld, Feldtext(Alt, Feld));
        EXPECT_EQ(Neu, Alt) << "typed back by hand";
        FeldEintragen(Neu, Alt, Feld, "anders");
        BlockÜbernehmen(Neu, Alt, BlockVon(Feld.Blatt));
        EXPECT_EQ(Neu, Alt);
    }
    EXPECT_EQ(Feldtext(Alt, FeldVon(&Datensatz::V2Genre)), "Rock");
    FeldEintragen(Alt, Alt, FeldVon(&Datensatz::LyricsText), "a\nb");
    EXPECT_EQ(Alt.LyricsText, "a\r\nb") << "Lyrics3 ends its lines with CR LF";
}

TEST_F(TagEditorTest, GenrelistenZeigenBevorzugteZuerst) {
    P->Werte.GenreBevorzugte = {"Salsa", "Kammermusik"};
    EXPECT_EQ(Genrezeilen(P->Werte, true).front().Name, "A capella") << "the list is marked as empty";
    P->Werte.GenreBevorzugteLeer = 0;
    const auto Mit = Genrezeilen(P->Werte, true);
    const auto Ohne = Genrezeilen(P->Werte, false);
    EXPECT_EQ(Mit[0].Nummer, 143);
    EXPECT_EQ(Mit[1].Name, "Kammermusik");
    EXPECT_EQ(Ohne[1].Name, "A capella") << "ID3v1 has no number for a text of one's own";
    EXPECT_EQ(Mit.size(), 147u);
    EXPECT_EQ(Ohne.size(), 146u);
}

TEST_F(TagEditorTest, SpeichernEinesBlocksLässtDieAnderenEingabenOffen) {
    const std::string Pfad = Lied("a.mp3", "Alt");
    TagEditorÖffnen(Editor, *P, {Aufnehmen(Pfad)});
    ASSERT_TRUE(Editor.Vorhanden);
    Editor.Arbeit.Satz.Titel = "Neu";
    Editor.Arbeit.Satz.V2Titel = "Noch offen";
    EXPECT_FALSE(EingabenSpeichern(Editor, *P, Tagauswahl::Id3v1, false).Gescheitert);
    EXPECT_EQ(Gelesen(Pfad).Titel, "Neu");
    EXPECT_EQ(P->Index.Sätze.Lesen(1).Titel, "Neu");
    EXPECT_TRUE(P->Index.IndexGeändert);
    EXPECT_EQ(P->Index.Sätze.Lesen(1).V2Titel, "") << "an entry that is in no file is in no index";
    EXPECT_EQ(GeänderteBlöcke(Editor), (std::array{false, true, false}));
    EXPECT_FALSE(EingabenSpeichern(Editor, *P, Tagauswahl::Alle, false).Gescheitert);
    EXPECT_EQ(Gelesen(Pfad).V2Titel, "Noch offen");
    EXPECT_EQ(GeänderteBlöcke(Editor), (std::array{false, false, false}));
    EXPECT_TRUE(Fenster.Gerufen("Liste")) << "the list behind shows the record";
}

TEST_F(TagEditorTest, WeitergehenSpeichertVonSelbstNurWasEingegebenWurde) {
    const std::string Erste =
        V2Lied("a.mp3", tagbau::Id3v2Textrahmen("TIT2", "Eins") + tagbau::Id3v2Textrahmen("TBPM", "120"));
    const std::string Zweite = Lied("b.mp3", "Zwei");
    const std::string Vorher = Inhalt(Erste);
    P->Werte.TAGAutomatischSpeichern = P->Werte.TAGAutomatischSpeichernV2 = 1;
    TagEditorÖffnen(Editor, *P, {Aufnehmen(Erste), Aufnehmen(Zweite)});
    EXPECT_FALSE(Weitergehen(Editor, *P, -1)) << "there is none in front";
    ASSERT_TRUE(Weitergehen(Editor, *P, 1));
    EXPECT_EQ(Inhalt(Erste), Vorher) << "a file that was only looked at";
    Editor.Arbeit.Satz.Titel = "Zwei neu";
    ASSERT_TRUE(Weitergehen(Editor, *P, -1));
    EXPECT_EQ(Gelesen(Zweite).Titel, "Zwei neu");
    EXPECT_EQ(Editor.Arbeit.Satz.V2Titel, "Eins");
    EXPECT_TRUE(Person.Gefragt.empty());
}

TEST_F(TagEditorTest, OhneAutomatikEntscheidetDiePerson) {
    const std::string Pfad = Lied("a.mp3", "Alt");
    TagEditorÖffnen(Editor, *P, {Aufnehmen(Pfad), Aufnehmen(Lied("b.mp3", "Andere"))});
    Editor.Arbeit.Satz.Titel = "Neu";
    Person.Antworten = {Antwort::Abbrechen, Antwort::Nein};
    EXPECT_FALSE(Weitergehen(Editor, *P, 1));
    EXPECT_EQ(Editor.Arbeit.Satz.Titel, "Neu");
    EXPECT_EQ(Editor.Platz, 0u);
    EXPECT_TRUE(DateiVerlassen(Editor, *P, false));
    EXPECT_EQ(Gelesen(Pfad).Titel, "Alt") << "thrown away on the person's word";

    Editor.Arbeit.Satz.Titel = "Neu";
    Person.Antworten = {Antwort::Ja};
    EXPECT_TRUE(Weitergehen(Editor, *P, 1));
    EXPECT_EQ(Gelesen(Pfad).Titel, "Neu");
    EXPECT_EQ(Person.Gefragt.size(), 3u);
    EXPECT_NE(Person.Gefragt[0].find("a.mp3"), std::string::npos);
}

TEST_F(TagEditorTest, MisslungenesSpeichernBehältDieEingaben) {
    const std::string Pfad = Lied("a.mp3", "Alt");
    P->Werte.TAGAutomatischSpeichern = 1;
    TagEditorÖffnen(Editor, *P, {Aufnehmen(Pfad), Aufnehmen(Lied("b.mp3", "Andere"))});
    std::filesystem::remove(Pfad);
    Editor.Arbeit.Satz.Titel = "Neu";
    Person.Antworten = {Antwort::Abbrechen};
    EXPECT_FALSE(Weitergehen(Editor, *P, 1));
    EXPECT_EQ(Editor.Arbeit.Satz.Titel, "Neu");
    ASSERT_EQ(Person.Meldungen.size(), 1u);
    EXPECT_NE(Person.Meldungen[0].find(Pfad), std::string::npos);
    EXPECT_EQ(P->Index.Sätze.Lesen(1).Titel, "Alt");
}

TEST_F(TagEditorTest, FehlendeDateiZeigtDenIndexUndDieListeGehtWeiter) {
    const std::string Pfad = Lied("a.mp3", "Bekannt");
    const Satznummer Nummer = Aufnehmen(Pfad);
    std::filesystem::remove(Pfad);
    TagEditorÖffnen(Editor, *P, {Nummer, Aufnehmen(Lied("b.mp3", "Andere"))});
    EXPECT_FALSE(Editor.Vorhanden);
    EXPECT_EQ(Editor.Arbeit.Satz.Titel, "Bekannt");
    EXPECT_EQ(Editor.Texte.Info, "Diese Datei existiert nicht (mehr).");
    EXPECT_TRUE(Weitergehen(Editor, *P, 1));
    EXPECT_TRUE(Editor.Vorhanden);
    EXPECT_FALSE(Weitergehen(Editor, *P, 1));
}

TEST_F(TagEditorTest, FunktionNimmtDieEingabenUndLässtAndereTagsOffen) {
    const std::string Pfad = Lied("a.mp3", "Alt");
    TagEditorÖffnen(Editor, *P, {Aufnehmen(Pfad)});
    Editor.Arbeit.Satz.Interpret = "Eingegeben";
    Editor.Arbeit.Satz.V2Titel = "Noch offen";
    const Funktionsauswahl& Auswahl = *FunktionsauswahlFinden("Diesen ID3v1-TAG");
    EditorFunktionAusführen(Editor, *P, Tagfunktion::TitelInterpretTauschen, Auswahl, {});
    EXPECT_EQ(Gelesen(Pfad).Titel, "Eingegeben");
    EXPECT_EQ(Gelesen(Pfad).Interpret, "Alt");
    EXPECT_EQ(Editor.Arbeit.Satz.V2Titel, "Noch offen");
    EXPECT_EQ(GeänderteBlöcke(Editor), (std::array{false, true, false}));

    Editor.Arbeit.Satz.Kommentar = "Nummer 300";
    EditorFunktionAusführen(Editor, *P, Tagfunktion::ZahlAusKommentar, Auswahl, {});
    EXPECT_EQ(Person.Meldungen.size(), 1u);
    EXPECT_EQ(Editor.Arbeit.Satz.Kommentar, "Nummer 300") << "a function that fails takes no entry away";
}

TEST_F(TagEditorTest, AbbruchErreichtDasUmschreibenEinerGroßenDatei) {
    const std::string Pfad = Lied("a.mp3", "Alt");
    std::error_code Fehler;
    std::filesystem::resize_file(Pfad, std::uint64_t{2} << 30U, Fehler);
    if (Fehler) GTEST_SKIP() << "no sparse files here";
    TagEditorÖffnen(Editor, *P, {Aufnehmen(Pfad)});
    Editor.Arbeit.Satz.V2Titel = "Neu";
    Person.AbbruchBei = 1;
    Editor.Arbeit.Satz.LyricsText = "Neu";
    Person.Antworten = {Antwort::Ja};
    EXPECT_FALSE(DateiVerlassen(Editor, *P, false));
    ASSERT_EQ(Person.Meldungen.size(), 1u);
    EXPECT_EQ(GeänderteBlöcke(Editor), (std::array{false, true, true})) << "the stop holds for all tags";
    EXPECT_NE(Person.Meldungen[0].find("wurde abgebrochen"), std::string::npos);
    EXPECT_EQ(std::filesystem::file_size(Pfad), std::uint64_t{2} << 30U);
    EXPECT_FALSE(std::filesystem::exists(Pfad + "~lwitmp"));
    EXPECT_EQ(Editor.Arbeit.Satz.V2Titel, "Neu") << "the entries stay";
}

TEST_F(TagEditorTest, LaufÜberAlleDateienBeginntMitDemWasEingegebenIst) {
    const std::vector<std::string> Pfade = {Lied("a.mp3", "eins"), Lied("b.mp3", "zwei")};
    TagEditorÖffnen(Editor, *P, {Aufnehmen(Pfade[0]), Aufnehmen(Pfade[1])});
    Editor.Arbeit.Satz.Titel = "eins neu";
    Person.Antworten = {Antwort::Abbrechen, Antwort::Ja};
    const Funktionsauswahl& Alle = *FunktionsauswahlFinden("Alle ID3v1-TAGs");
    EditorFunktionAusführen(Editor, *P, Tagfunktion::Groß, Alle, {});
    EXPECT_EQ(Gelesen(Pfade[1]).Titel, "zwei") << "the person stays with the entries";
    EditorFunktionAusführen(Editor, *P, Tagfunktion::Groß, Alle, {});
    EXPECT_EQ(Gelesen(Pfade[0]).Titel, "EINS NEU");
    EXPECT_EQ(Gelesen(Pfade[1]).Titel, "ZWEI");
    EXPECT_EQ(Editor.Arbeit.Satz.Titel, "EINS NEU") << "the editor shows the current file again";
    EXPECT_EQ(P->Index.Sätze.Lesen(2).Titel, "ZWEI");
    EXPECT_EQ(Person.Titel, (std::vector<std::string>{"Bearbeite Dateien"}));
}

}  // namespace
}  // namespace liedwerk
