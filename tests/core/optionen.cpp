// The options as a table and their taking over, the options of an index, and index files.
#include <algorithm>
#include <set>

#include "core/indexdateilauf.h"
#include "core/indexoptionenlauf.h"
#include "core/laden.h"
#include "core/optionenlauf.h"
#include "core/optionentabelle.h"
#include "core/suchlauf.h"
#include "suche/spaltenlayout.h"
#include "welt.h"

namespace liedwerk {
namespace {

// What the options do not offer, and whose memory it is.
const std::set<std::string_view> NichtInDenOptionen = {
    // the program: version, files, window, player panel
    "Start", "Dateiname", "FensterHeight", "FensterLeft", "FensterTop", "FensterWidth", "FensterMax",
    "WinampLautstärke", "WinampBalance", "TermineIndex", "TermineIndexPrüfsumme", "ZuletztGeladen",
    // the lock's own form
    "Sperre", "SperreAktiv",
    // AutoTAG, favourite genres
    "AutoTagFelderLöschen", "AutoTagLeer", "AutoTagAktuell", "AutoTagUnterstrichEntfernen",
    "AutoTagAusschlußLeer", "AutoTagAusschluß", "AutoTagFormate", "GenreBevorzugteLeer", "GenreBevorzugte",
    // copying and adding
    "KopierenOrdner", "KopierenModus", "KopierenÜberschreiben", "KopierenStrukturÜbernehmen",
    "HinzufügenKopieren",
    // export, renaming, opening with a program
    "ExportDatei", "ExportModus", "ExportUntermodus", "ExportStriche", "UmbenennenEingabeID3",
    "UmbenennenEingabeNeuAnfang", "UmbenennenEingabeNeuZahl", "UmbenennenEingabeNeuEnde",
    "UmbenennenEingabeErsetzenText", "UmbenennenEingabeErsetzenDurch", "UmbenennenEingabeSchreibweise",
    "UmbenennenEingabeDateiEndung", "UmbenennenEingabeErsetzenDateiEndung", "UmbenennenErsetzenPfadVerwenden",
    "UmbenennenAttributeA", "UmbenennenAttributeH", "UmbenennenAttributeR", "UmbenennenAttributeS",
    "AusführenPfad",
    // AutoDJ
    "AutoDJFindeAnzahl", "AutoDJAuslassenZeit", "AutoDJAuslassenGröße", "AutoDJAuslassenVorKurzem",
    "AutoDJFindenVorLängerem", "AutoDJID3v1Verwenden", "AutoDJID3v2Verwenden", "AutoDJTopWieviel",
    "AutoDJTopZeitraum", "AutoDJTopEinheit", "AutoDJGenre",
    // stored queries
    "GespeicherteSuche",
    // kept without effect
    "AutomtischSpeichernNurBeiEingaben"};

const Option& OptionVon(std::string_view Name) {
    return *std::ranges::find(Optionen(), Name, &Option::Name);
}

TEST(Optionentabelle, JedeEinstellungHatGenauEinenPlatz) {
    std::set<std::string_view> Angeboten;
    for (const Option& Eine : Optionen()) {
        EXPECT_TRUE(Angeboten.insert(Eine.Name).second || Eine.Art == Optionsart::Stelle) << Eine.Name;
        EXPECT_FALSE(NichtInDenOptionen.contains(Eine.Name)) << Eine.Name;
        // What a control needs to be understood and used.
        EXPECT_FALSE(Eine.Beschriftung.empty() || Eine.Gruppe.empty()) << Eine.Name;
        EXPECT_TRUE(Eine.Art != Optionsart::Zahl || Eine.Mindestens < Eine.Höchstens) << Eine.Name;
        EXPECT_EQ(Eine.Art == Optionsart::Wahl, !Eine.Auswahl.empty()) << Eine.Name;
        EXPECT_TRUE(Eine.Voraussetzung.empty() || OptionVon(Eine.Voraussetzung).Art == Optionsart::Schalter)
            << Eine.Name;
        EXPECT_LT(static_cast<std::size_t>(Eine.Seite), Optionsblätter().size());
    }
    Einstellungen Werte;
    const auto Prüfen = [&](std::string_view Name, const auto&) {
        EXPECT_TRUE(Angeboten.contains(Name) || NichtInDenOptionen.contains(Name))
            << Name << " kann niemand einstellen";
    };
    FürJedeEinstellung(Werte, Prüfen);
    FürJedeEinstellungsliste(Werte, Prüfen);
    for (std::size_t Platz = 0; Platz < Optionsblätter().size(); ++Platz)
        EXPECT_EQ(static_cast<std::size_t>(Optionsblätter()[Platz].Seite), Platz);
}

TEST(Optionentabelle, WerteGehenHinUndZurückUndVorgabenSindDieDesSpeichers) {
    const Einstellungen Vorgabe;
    for (const Option& Eine : Optionen()) {
        Einstellungen Werte;
        const bool Text =
            std::holds_alternative<std::string Einstellungen::*>(Eine.Ort) && Eine.Art != Optionsart::Stelle;
        if (Text) {
            OptionTextSetzen(Werte, Eine, "ä b");
            EXPECT_EQ(OptionText(Werte, Eine), "ä b");
        } else {
            // Its own range holds the default, and the other end is another value.
            const std::int32_t Anderer = OptionZahl(Werte, Eine) == 0 ? 1 : 0;
            OptionZahlSetzen(Werte, Eine, Anderer);
            EXPECT_EQ(OptionZahl(Werte, Eine), Anderer) << Eine.Name;
            if (Eine.Art == Optionsart::Zahl) {
                EXPECT_GE(OptionZahl(Vorgabe, Eine), Eine.Mindestens) << Eine.Name;
                EXPECT_LE(OptionZahl(Vorgabe, Eine), Eine.Höchstens) << Eine.Name;
            }
        }
        EXPECT_FALSE(OptionGleich(Werte, Vorgabe, Eine)) << Eine.Name;
        OptionVorgabe(Werte, Eine);
        EXPECT_EQ(Werte, Vorgabe) << Eine.Name;
    }
    Einstellungen Werte;
    Werte.TippsAktueller = 7;
    OptionZahlSetzen(Werte, OptionVon("TippsAktueller"), 1);
    EXPECT_EQ(Werte.TippsAktueller, 7) << "the tips go on where they stood";
    Werte.Mp3TagLesen = "1";
    OptionZahlSetzen(Werte, Optionen()[0], 0);
    for (const Option& Eine : Optionen())
        if (Eine.Art == Optionsart::Stelle && Eine.Mindestens == 2) OptionZahlSetzen(Werte, Eine, 1);
    EXPECT_EQ(Werte.Mp3TagLesen, "101") << "a text that is too short is filled";
}

TEST(Optionentabelle, FalscheEingabenWerdenGenanntUndUnberührtesNicht) {
    struct Fall {
        std::string Text;
        bool Richtig;
    };
    for (const auto& [Text, Richtig] : std::vector<Fall>{{"", true},
                                                         {"cddb.anbieter.invalid", true},
                                                         {"127.0.0.1:8880", true},
                                                         {"http://cddb.invalid", false},
                                                         {"cddb.invalid/~cddb", false},
                                                         {"zwei wörter", false},
                                                         {"-x.invalid", false},
                                                         {":", false},
                                                         {"x:", false},
                                                         {"x:65536", false},
                                                         {"x:0", false},
                                                         {"x:y:1", false},
                                                         {"a..b", false},
                                                         {"x.", false}})
        EXPECT_EQ(ServernamePrüfen(Text).empty(), Richtig) << Text;
    // The address that the query would refuse is refused here; none, and the one it came with, are no input.
    for (const auto& [Text, Richtig] : std::vector<Fall>{{"", true},
                                                         {Einstellungen().CDDBEmail, true},
                                                         {"name@anbieter.invalid", true},
                                                         {"a.b@c.de", false},
                                                         {"@anbieter.de", false}})
        EXPECT_EQ(OptionVon("CDDBEmail").Prüfen(Text).empty(), Richtig) << Text;
    // A choice shows what a stored number does.
    for (const auto& [Zahl, Platz] : {std::pair{0, 0U}, {1, 0U}, {3, 2U}, {5, 3U}, {-1, 3U}})
        EXPECT_EQ(Wahlplatz(OptionVon("BeiDoppelklick").Auswahl, Zahl), Platz) << Zahl;

    Einstellungen Alt;
    Alt.WinampPfad = "/gibt/es/nicht";
    Einstellungen Neu = Alt;
    EXPECT_FALSE(OptionenPrüfen(Neu, Alt));
    Neu.CDDBServer = "http://x";
    const auto Fehler = OptionenPrüfen(Neu, Alt);
    ASSERT_TRUE(Fehler);
    EXPECT_EQ(Fehler->Wo->Name, "CDDBServer");
    Neu.WinampPfad = "/auch/nicht";
    EXPECT_EQ(OptionenPrüfen(Neu, Alt)->Wo->Name, "WinampPfad");
}

using Optionentest = Kerntest;

TEST_F(Optionentest, NurWasGeändertWurdeWirdÜbernommenUndSteht) {
    const Einstellungen Alt = OptionenEntwurf(*P);
    Einstellungen Neu = Alt;
    Neu.RegelmäßigSpeichernAlle = 15;
    Neu.GenreBevorzugte = {"Klassik"};
    P->Werte.BackupsSpeichern = 1;  // by a load, while the form was open
    OptionenÜbernehmen(*P, Alt, Neu);
    EXPECT_EQ(P->Werte.RegelmäßigSpeichernAlle, 15);
    EXPECT_EQ(P->Werte.BackupsSpeichern, 1);
    EXPECT_TRUE(Fenster.Gerufen("Erscheinung"));
    EXPECT_EQ(EinstellungenLesen(Werte, nullptr).GenreBevorzugte, std::vector<std::string>{"Klassik"})
        << "a crash would take it back";
    Fenster.Rufe.clear();
    OptionenÜbernehmen(*P, Neu, Neu);
    EXPECT_TRUE(Fenster.Rufe.empty()) << "nothing changed";

    // The way of the TAG editor reads less for the run; neither the form nor the store must take that over.
    P->TagLesenNurLauf = true;
    P->TagLesenGemerkt = "111";
    P->Werte.Mp3TagLesen = "0010";
    const Einstellungen Gezeigt = OptionenEntwurf(*P);
    EXPECT_EQ(Gezeigt.Mp3TagLesen, "111");
    Neu = Gezeigt;
    Neu.Mp3TagLesen = "100";
    OptionenÜbernehmen(*P, Gezeigt, Neu);
    EXPECT_EQ(P->Werte.Mp3TagLesen, "0010");
    EXPECT_EQ(EinstellungenLesen(Werte, nullptr).Mp3TagLesen, "100");
}

TEST_F(Optionentest, StatistikWirdNurNachFrageGelöscht) {
    ASSERT_TRUE(StandardDateiLaden(*P, ModusNichtsGeladen, true));
    Datensatz Satz;
    Satz.AbspielHäufigkeit = 3;
    SatzAnhängen(P->Index, "/a.mp3", Satz);
    StatistikLöschenLauf(*P);
    EXPECT_EQ(P->Index.Sätze.Zahl(1, FeldAbspielHäufigkeit), 3);
    Person.Antworten = {Antwort::Ja};
    StatistikLöschenLauf(*P);
    EXPECT_EQ(P->Index.Sätze.Zahl(1, FeldAbspielHäufigkeit), 0);
}

TEST_F(Optionentest, WeitereFormateKommenInDenIndexUndBleibenAbwählbar) {
    const auto Einträge = [&](std::string_view Gesucht) {
        return std::ranges::count(P->Index.Optionen.Dateitypen, Gesucht, &Dateityp::Eintrag);
    };
    ASSERT_TRUE(StandardDateiLaden(*P, ModusNichtsGeladen, true));
    EXPECT_EQ(P->Index.Optionen.Dateitypen, DateitypenVorgabe());
    P->Index.IndexGeändert = false;
    Einstellungen Neu = P->Werte;
    Neu.WeitereFormate = 1;
    OptionenÜbernehmen(*P, P->Werte, Neu);
    EXPECT_EQ(Einträge("flac=1"), 1);
    EXPECT_TRUE(P->Index.IndexGeändert);
    // One that the person does not want stays away, and is not doubled by the next load.
    const auto Flac = std::ranges::find(P->Index.Optionen.Dateitypen, "flac=1", &Dateityp::Eintrag);
    EXPECT_NE(DateitypEntfernen(P->Index.Optionen,
                                static_cast<std::size_t>(Flac - P->Index.Optionen.Dateitypen.begin()), true),
              "");
    ASSERT_TRUE(AndereDateiLaden(*P, Standard()));
    EXPECT_EQ(Einträge("flac=0"), 1);
    EXPECT_EQ(Einträge("opus=1"), 1);
    EXPECT_EQ(P->Index.Optionen.Dateitypen.size(), Grundtypen(true).size());
    EXPECT_FALSE(P->Index.IndexGeändert);
}

TEST(IndexOptionen, DateitypenWerdenGeprüftUndVorgabenBleiben) {
    Indexoptionen Optionen;
    Optionen.Dateitypen = DateitypenVorgabe();
    const std::size_t Anzahl = Optionen.Dateitypen.size();
    for (const char* const Falsch : {"", " ", "a,b", "a=1", "mp3", ".MP3", "*", "x/y", "a b"})
        EXPECT_FALSE(DateitypHinzufügen(Optionen, Falsch).empty()) << Falsch;
    EXPECT_EQ(Optionen.Dateitypen.size(), Anzahl);
    EXPECT_EQ(DateitypHinzufügen(Optionen, " *.FLAC "), "");
    // Ahead of the entry for all others, managed and for the player.
    EXPECT_EQ(Optionen.Dateitypen[Anzahl - 1], (Dateityp{"flac=1", "010"}));
    EXPECT_EQ(EintragsEndung(Optionen.Dateitypen[Anzahl].Eintrag), "*");
    EXPECT_TRUE(DateiTypErlaubt(Optionen.Dateitypen, "/m/x.Flac", false, false, true, true));

    EXPECT_FALSE(DateitypUmbenennen(Optionen, 0, "mpx").empty()) << "mp3 would come back with the next load";
    EXPECT_EQ(DateitypUmbenennen(Optionen, Anzahl - 1, "opus"), "");
    EXPECT_EQ(Optionen.Dateitypen[Anzahl - 1].Eintrag, "opus=1");
    TypschalterSetzen(Optionen.Dateitypen[Anzahl - 1], Typschalter::Bild, true);
    EXPECT_EQ(Optionen.Dateitypen[Anzahl - 1].Schalter, "011");

    EXPECT_FALSE(DateitypEntfernen(Optionen, 0).empty());
    EXPECT_EQ(Optionen.Dateitypen[0].Eintrag, "mp3=0");
    EXPECT_EQ(DateitypEntfernen(Optionen, Anzahl - 1), "");
    EXPECT_EQ(Optionen.Dateitypen.size(), Anzahl);
}

TEST(IndexOptionen, OrdnerDieSichStörenOderNichtZurückkämenWerdenAbgewiesen) {
    struct Fall {
        SyncRegel Regel;
        bool Richtig;
    };
    const std::vector<Fall> Fälle = {{{"/m/neu", 1, ""}, true},
                                     {{"", 1, ""}, false},
                                     {{"/m/alt", 0, ""}, false},
                                     {{"/m/neu", 0, "/m/neu"}, false},
                                     {{"/m/neu", 1, "/m/neu/ziel"}, false},
                                     {{"/m/neu", 0, "/m/neu/ziel"}, true},
                                     {{"/m/neu", 1, "/m/neuer"}, true},
                                     {{"/m/a, b", 1, "/z,z"}, true},
                                     {{"/m/a,5,b", 1, ""}, false},
                                     {{"/m/zwei\nZeilen", 1, ""}, false},
                                     {{"/m/neu", 1, "ziel"}, false},
                                     {{"D:\\neu", 1, "D:\\ziel"}, true}};
    for (const Fall& Einer : Fälle) {
        Indexoptionen Optionen;
        Optionen.SyncOrdner = {{"/m/alt", 1, ""}, Einer.Regel};
        EXPECT_EQ(SyncRegelPrüfen(Optionen, 1).empty(), Einer.Richtig)
            << Einer.Regel.Ordner << " -> " << Einer.Regel.KopierenInOrdner;
    }
    // A rule that the index has already is no reason to refuse everything else.
    Indexoptionen Alt;
    Alt.SyncOrdner = {{"/m", 1, "/m/ziel"}};
    EXPECT_FALSE(IndexoptionenPrüfen(Alt, Alt));
    EXPECT_EQ(IndexoptionenPrüfen(Alt, Indexoptionen{})->Regel, 0U);
}

TEST_F(Optionentest, IndexoptionenStehenNachDemSpeichernInDerDatei) {
    ASSERT_TRUE(StandardDateiLaden(*P, ModusNichtsGeladen, true));
    P->Index.IndexGeändert = false;
    Indexoptionen Neu = P->Index.Optionen;
    IndexoptionenÜbernehmen(*P, Neu);
    EXPECT_FALSE(P->Index.IndexGeändert) << "nothing was changed";
    Neu.SyncOrdner = {{"/m/a, b", 1, "/z"}, {"/m/c", 0, ""}};
    Neu.SyncNichtBei = "teil";
    Neu.SpaltenGitter = 1;
    Neu.IndexEigentümer = "Äñna Щ";
    Neu.Spalten = SpaltenSpeichern({{5, 900}, {4, 1200}}, Neu.Spalten);
    ASSERT_EQ(DateitypHinzufügen(Neu, "flac"), "");
    DateitypEntfernen(Neu, 0);
    IndexoptionenÜbernehmen(*P, Neu);
    EXPECT_TRUE(P->Index.IndexGeändert);
    EXPECT_EQ(P->Ansicht.Spalten, (std::vector<Listenspalte>{{5, 900}, {4, 1200}}));
    const Indexoptionen Gesetzt = P->Index.Optionen;
    ASSERT_TRUE(IndexSpeichern(*P));
    NeuerLauf();
    ASSERT_TRUE(StandardDateiLaden(*P, ModusNichtsGeladen, false));
    EXPECT_EQ(P->Index.Optionen, Gesetzt);
    // Without any folder the file names none.
    Neu = Gesetzt;
    Neu.SyncOrdner.clear();
    IndexoptionenÜbernehmen(*P, Neu);
    EXPECT_EQ(P->Index.Optionen.SyncLeer, 1);
}

TEST_F(Optionentest, NeuerIndexUndSpeichernUnterVerlierenNichts) {
    ASSERT_TRUE(StandardDateiLaden(*P, ModusNichtsGeladen, true));
    SatzAnhängen(P->Index, "/m/a.mp3", {});
    ASSERT_TRUE(IndexSpeichern(*P));
    const std::string Zweite = Ordner + "/zweite.lwi";
    EXPECT_EQ(MitIndexendung(Ordner + "/zweite"), Zweite);
    SatzAnhängen(P->Index, "/m/b.mp3", {});
    P->Index.IndexGeändert = true;
    const std::string Alter = *DateiLesen(Standard());
    ASSERT_TRUE(IndexSpeichernUnter(*P, Zweite));
    EXPECT_EQ(DateiLesen(Standard()), Alter);
    EXPECT_EQ(P->Index.IndexDateiname, Zweite);
    EXPECT_FALSE(P->Index.IndexGeändert);
    EXPECT_EQ(P->Werte.ZuletztGeladen.front(), Zweite);
    EXPECT_TRUE(Fenster.Gerufen("Name zweite.lwi"));

    // Over another index only after a question; a place that takes no file leaves all as it was.
    const std::string Inhalt = *DateiLesen(Zweite);
    EXPECT_FALSE(IndexSpeichernUnter(*P, Standard()));
    EXPECT_EQ(DateiLesen(Standard()), Alter);
    EXPECT_FALSE(IndexSpeichernUnter(*P, Ordner + "/fehlt/x.lwi"));
    EXPECT_EQ(P->Index.IndexDateiname, Zweite);
    Person.Gefragt.clear();
    EXPECT_TRUE(IndexSpeichern(*P)) << "the own file is known as it was";
    EXPECT_TRUE(Person.Gefragt.empty());
    Person.Antworten = {Antwort::Ja};
    EXPECT_TRUE(IndexSpeichernUnter(*P, Standard()));
    EXPECT_EQ(DateiLesen(Standard()), Inhalt);
    EXPECT_EQ(Person.Gefragt.size(), 1U);

    // A new index never begins over a file that is there; unsaved changes are saved first.
    SatzAnhängen(P->Index, "/m/c.mp3", {});
    P->Index.IndexGeändert = true;
    Person.Antworten = {Antwort::Nein};
    EXPECT_FALSE(NeuenIndexAnlegen(*P, Zweite));
    EXPECT_EQ(P->Index.IndexAnzahl(), 3);
    EXPECT_FALSE(NeuenIndexAnlegen(*P, Ordner));
    EXPECT_FALSE(NeuenIndexAnlegen(*P, Ordner + "/fehlt/neu.lwi"));
    EXPECT_EQ(P->Index.IndexAnzahl(), 3) << "the index in use stays";
    EXPECT_TRUE(NeuenIndexAnlegen(*P, Ordner + "/dritte.lwi"));
    EXPECT_EQ(P->Index.IndexAnzahl(), 0);
    EXPECT_EQ(DateiLesen(Zweite), Inhalt);
    ASSERT_NE(DateiLesen(Standard()), Inhalt);

    const auto Zeilen = ZuletztGeladeneIndexe(*P);
    ASSERT_EQ(Zeilen.size(), 3U);
    EXPECT_TRUE(Zeilen[0].Geladen && Zeilen[0].Vorhanden);
    EXPECT_FALSE(Zeilen[1].Geladen);
    ZuletztGeladenVergessen(*P, Zweite);
    EXPECT_EQ(P->Werte.ZuletztGeladen.size(), 2U);
    EXPECT_TRUE(DateiExistiert(Zweite));
}

}  // namespace
}  // namespace liedwerk
