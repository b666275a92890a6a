// Which records a title belongs to, and when it counts.
#include "abspielen/statistik.h"
#include "suche/feldwert.h"
#include "suche/suchmaschine.h"
#include "welt.h"

namespace liedwerk {
namespace {

using Nummern = std::vector<Satznummer>;

TEST(Titelerkennung, GanzeWörterInTagsDannNamen) {
    Abspielwelt W;
    W.Anhängen("/m/1.mp3", W.Lied("Foo", "Bar"));
    W.Anhängen("/m/2.mp3", W.Lied("Foo", "Barbara"));
    Datensatz Zwei;
    Zwei.HatId3v2 = TagVorhanden;
    Zwei.V2Interpret = "The FOO Band";
    Zwei.V2Titel = "Bar (live)";
    W.Anhängen("/m/3.mp3", Zwei);
    W.Anhängen("/m/Foo - Baz.mp3");
    W.Anhängen("/m/04 baz, von foo.ogg");
    W.Anhängen("/m/Solo.mp3", W.Lied("Solo", ""));
    W.Anhängen("/m/Ärger.mp3", W.Lied("K\xE2\x84\xAA", "\xC5\xBF"));  // KELVIN SIGN, long s
    struct Fall {
        std::string Titel;
        Nummern Erwartet;
    };
    for (const Fall& Einer : {
             Fall{"Foo - Bar", {1, 3}},
             Fall{" foo  -  bar ", {1, 3}},
             Fall{"Foo - Baz", {4, 5}},  // no tag fits, so names decide
             Fall{"solo", {6}},
             Fall{"Solo.mp3", {}},
             Fall{"ärger", {7}},
             Fall{"Foo - ", {}},
             Fall{" - ", {}},
             Fall{"Foo - Bar - Baz", {}},
             Fall{"kk - s", {7}},
             Fall{"", {}},
         })
        EXPECT_EQ(SätzeZumTitel(W.Index, Einer.Titel), Einer.Erwartet) << Einer.Titel;
}

// The quick way must find what the plain walk finds.
TEST(Titelerkennung, GleichDemEinfachenGang) {
    Abspielwelt W;
    const std::vector<std::string> Worte = {"Ski",   "SKÁ",   "Straße", "STRASSE", "o'k",    "Ä",
                                            "9",     "e",     "x-y",    "",        "Привет", "ПРИВЕТ",
                                            "ΣΟΦΟΣ", "σοφος", "東京",   "Ÿ",       "kſK"};
    for (std::size_t i = 0; i < 600; ++i) {
        const auto Wort = [&](std::size_t n) {
            return Worte[(i * 7 + i / 3 + n * 3 + i / 50) % Worte.size()];
        };
        Datensatz Satz = W.Lied(Wort(0) + " " + Wort(1), Wort(2));
        if (i % 3 == 0) Satz.HatId3v1 = TagFehlt;
        if (i % 4 == 0) {
            Satz.HatId3v2 = TagVorhanden;
            Satz.V2Interpret = Wort(3);
            Satz.V2Titel = Wort(1) + Wort(2);
        }
        W.Anhängen("/m/" + Wort(4) + " - " + Wort(5) + std::to_string(i % 9) + ".mp3", Satz);
    }
    const auto Feld = [&](Satznummer Nummer, std::string_view Name) {
        std::string Wert;
        Feldtyp Typ{};
        FeldWert(W.Index, Nummer, Name, Wertform::Anzeigen, false, Wert, Typ);
        return Wert;
    };
    std::size_t Treffer = 0;
    for (const auto& Interpret : Worte) {
        for (const auto& Titel : Worte) {
            Nummern Erwartet;
            for (Satznummer i = 1; i <= W.Index.IndexAnzahl(); ++i) {
                if ((AlsWort(Titel, Feld(i, "Titel")) && AlsWort(Interpret, Feld(i, "Interpret"))) ||
                    (AlsWort(Titel, Feld(i, "Titel-ID3v2")) &&
                     AlsWort(Interpret, Feld(i, "Interpret-ID3v2"))))
                    Erwartet.push_back(i);
            }
            Treffer += Erwartet.size();
            if (Erwartet.empty()) continue;
            EXPECT_EQ(SätzeZumTitel(W.Index, Interpret + " - " + Titel), Erwartet);
        }
    }
    EXPECT_GT(Treffer, 100u);
}

// Slices must find what one walk finds, also when records change, come and go between them.
TEST(Titelerkennung, InAbschnittenSuchenFolgtDemIndex) {
    Abspielwelt W;
    for (int i = 1; i <= 40; ++i)
        W.Anhängen("/m/" + std::to_string(i) + ".mp3", W.Lied(i % 10 == 0 ? "Foo" : "Goo", "Bar"));
    Titelsuche Suche("Foo - Bar", {"/m/fehlt.mp3"});
    const auto Bisher = [&](int Aufrufe) {
        while (Aufrufe-- > 0)
            EXPECT_FALSE(Suche.Weitersuchen(W.Index, 7));
    };
    Bisher(4);
    W.Index.Sätze.Setzen(3, "/m/3.mp3", W.Lied("Foo", "Bar"));  // walked past already
    Bisher(5);
    W.Anhängen("/m/41.mp3", W.Lied("Foo", "Bar"));
    EXPECT_TRUE(Suche.Weitersuchen(W.Index, 7));
    EXPECT_EQ(Suche.Gefundene(), (Nummern{3, 10, 20, 30, 40, 41}));

    // A path goes ahead of the tags, and the first of several that any record has ahead of the others.
    Titelsuche Pfade("Foo - Bar", {"/m/fehlt.mp3", "/m/9.mp3", "/m/2.mp3"});
    while (!Pfade.Weitersuchen(W.Index, 7)) {
    }
    EXPECT_EQ(Pfade.Gefundene(), (Nummern{9}));
    W.Index.Sätze.Entfernen(Nummern{1, 9});
    while (!Pfade.Weitersuchen(W.Index, 7)) {
    }
    EXPECT_EQ(Pfade.Gefundene(), (Nummern{1})) << "what moved up is found at its new place";
}

struct Gespielt : Abspielwelt {
    void Nach(int Sekunden, const GespielterTitel& Titel) {
        const Zeitpunkt Jetzt = AusKalendersekunden(Kalendersekunden(Zeit.Punkt) + Sekunden);
        EXPECT_TRUE(TitelErkennen(Erkennung, Index, Werte, Person, Titel, Jetzt));
    }
};

TEST(Titelerkennung, ZähltEinmalNachMehrAlsDreißigSekunden) {
    Gespielt W;
    W.Anhängen("/m/1.mp3", W.Lied("Foo", "Bar"));
    W.Anhängen("/m/2.mp3", W.Lied("Foo", "Bar"));
    W.Nach(0, {"Foo - Bar"});
    W.Nach(30, {"Foo - Bar"});
    EXPECT_EQ(W.Häufigkeit(1), 0);
    EXPECT_FALSE(W.Index.IndexGeändert);
    W.Nach(31, {"Foo - Bar"});
    W.Nach(90, {"Foo - Bar"});
    EXPECT_EQ(W.Häufigkeit(1), 1);
    EXPECT_EQ(W.Häufigkeit(2), 1);
    EXPECT_EQ(W.Index.Sätze.Text(2, FeldAbspielDatum), "21.11.2026 12:00:31");
    EXPECT_TRUE(W.Erkennung.TitelErkannt);
    EXPECT_EQ(W.Person.Status, std::vector<std::string>{"Die derzeit abgespielte Datei wurde 2 Mal erkannt"});
    W.Nach(100, {"Unbekannt"});
    EXPECT_FALSE(W.Erkennung.TitelErkannt);
    W.Nach(131, {"Unbekannt"});
    EXPECT_EQ(W.Person.Status.back(), "Die derzeit abgespielte Datei wurde nicht erkannt");
    W.Werte.AbspielStatistikSpeichern = 0;
    W.Nach(200, {"Foo - Bar"});
    W.Nach(300, {"Foo - Bar"});
    EXPECT_EQ(W.Häufigkeit(1), 1);
    EXPECT_FALSE(W.Erkennung.TitelErkannt);
    EXPECT_EQ(StatistikLöschen(W.Index), 2);
    EXPECT_EQ(W.Häufigkeit(1), 0);
    EXPECT_EQ(W.Index.Sätze.Text(1, FeldAbspielDatum), "");
}

TEST(Titelerkennung, GenannteDateiGehtVorUndNeuerDurchgangZähltNeu) {
    Gespielt W;
    W.Anhängen("/m/1.mp3", W.Lied("Foo", "Bar"));
    W.Anhängen("/m/a%20b.mp3", W.Lied("Foo", "Bar"));
    const GespielterTitel Erster{"Foo - Bar", {"/m/a b.mp3", "/m/a%20b.mp3"}, 1};
    W.Nach(0, Erster);
    W.Nach(40, Erster);
    EXPECT_EQ(W.Häufigkeit(1), 0);
    EXPECT_EQ(W.Häufigkeit(2), 1);
    GespielterTitel Wieder = Erster;
    Wieder.Durchgang = 2;
    W.Nach(50, Wieder);
    W.Nach(90, Wieder);
    EXPECT_EQ(W.Häufigkeit(2), 2);
    // A file that the index does not have is looked for by its title.
    W.Nach(100, {"Foo - Bar", {"/fremd.mp3"}, 3});
    W.Nach(140, {"Foo - Bar", {"/fremd.mp3"}, 3});
    EXPECT_EQ(W.Häufigkeit(1), 1);
    EXPECT_EQ(W.Häufigkeit(2), 3);
}

TEST(Titelerkennung, BeiDerÜbergabeGezähltesZähltNichtNocheinmal) {
    Gespielt W;
    W.Werte.WinampPfad = W.Datei("spieler");
    W.Anhängen(W.Datei("a.mp3"), W.Lied("Foo", "Bar"));
    W.Abspielen({1});
    EXPECT_EQ(W.Häufigkeit(1), 1);
    W.Nach(0, {"Foo - Bar", {}, 1});
    W.Nach(40, {"Foo - Bar", {}, 1});
    EXPECT_EQ(W.Häufigkeit(1), 1);
    EXPECT_TRUE(W.Erkennung.TitelErkannt);
    W.Nach(50, {"Foo - Bar", {}, 2});
    W.Nach(90, {"Foo - Bar", {}, 2});
    EXPECT_EQ(W.Häufigkeit(1), 2);
}

// What was handed over and never played must not swallow a later play.
TEST(Titelerkennung, VorabGezähltesEndetMitSeinerListe) {
    for (const auto& [Ende, Beschreibung, Erwartet] : {
             std::tuple{+[](Gespielt&) {}, "nothing happens", 1},
             std::tuple{+[](Gespielt& W) { W.Abspielen({2}); }, "a new list", 2},
             std::tuple{+[](Gespielt& W) { W.Abspielen({2}, true); }, "one more in the same list", 1},
             std::tuple{+[](Gespielt& W) { W.Werte.WinampPfad = W.Datei("anderer"); }, "another player", 2},
             std::tuple{+[](Gespielt& W) { VorabPrüfen(W.Erkennung.Vorab, false); }, "not there yet", 1},
             std::tuple{+[](Gespielt& W) {
                            VorabPrüfen(W.Erkennung.Vorab, true);
                            VorabPrüfen(W.Erkennung.Vorab, false);
                        },
                        "the player has ended", 2},
         }) {
        Gespielt W;
        W.Werte.WinampPfad = W.Datei("spieler");
        W.Anhängen(W.Datei("a.mp3"), W.Lied("Foo", "Bar"));
        W.Anhängen(W.Datei("b.mp3"));
        W.Abspielen({1});
        Ende(W);
        W.Nach(0, {"Foo - Bar"});
        W.Nach(40, {"Foo - Bar"});
        EXPECT_EQ(W.Häufigkeit(1), Erwartet) << Beschreibung;
    }
}

}  // namespace
}  // namespace liedwerk
