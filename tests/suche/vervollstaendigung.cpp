#include "suche/vervollstaendigung.h"

#include <gtest/gtest.h>

#include "katalog_bauen.h"
#include "plattform/speicher/person.h"
#include "suche/mehrfachsuche.h"
#include "suche/suchmaschine.h"
#include "suche/wertebaum.h"

namespace liedwerk {
namespace {

using Texte = std::vector<std::string>;

// The walk as it is told: every value against all that were found.
Texte EinzelnFüllen(const Katalog& Index, const Texte& Felder) {
    Texte Werte;
    for (Satznummer i = 1; i <= Index.IndexAnzahl(); ++i) {
        for (const std::string& Feld : Felder) {
            std::string Wert = WertVon(Index, i, Feld);
            Wert = Wert.substr(0, Wert.find('\0'));
            bool Neu = !Wert.empty();
            for (const std::string& Bekannter : Werte)
                Neu = Neu && !Gleich(Wert, Bekannter);
            if (Neu) Werte.push_back(Wert);
        }
    }
    return Werte;
}

TEST(Vervollständigung, FülltDieListeWieEinzelnVerglichen) {
    std::mt19937 Zufall(4);
    Katalog Index = ZufälligerKatalog(Zufall, 11000);
    Datensatz Satz = Index.Sätze.Lesen(3);
    Satz.HatId3v1 = TagVorhanden;
    Satz.Titel = std::string("vor\0hinter", 10);
    Index.Sätze.Setzen(3, "x", Satz);
    speicher::Person Person;
    for (const char* Feld : {"Titel", "Titel-ID3v2", "Dauer", "Pfad+Dateiname", "Gibt es nicht"})
        EXPECT_EQ(AutoCompleteFüllen(Index, Feld, true, Person), EinzelnFüllen(Index, {Feld})) << Feld;
    EXPECT_EQ(AutoCompleteFüllen(Index, "Jahr", true, Person, "Titel-ID3v2"),
              EinzelnFüllen(Index, {"Jahr", "Titel-ID3v2"}));
    EXPECT_TRUE(AutoCompleteFüllen(Index, "Titel", false, Person).empty());
    EXPECT_TRUE(AutoCompleteFüllen(Index, Standardsuche, true, Person).empty());
    EXPECT_TRUE(AutoCompleteFüllen(Index, "", true, Person, "Titel").empty());
    Person.AbbruchBei = Person.Zeigungen + 2;
    EXPECT_TRUE(AutoCompleteFüllen(Index, "Titel", true, Person).empty());
    EXPECT_EQ(Person.Zeigungen, Person.AbbruchBei);
    EXPECT_EQ(Person.Offen, 0);
}

TEST(Vervollständigung, ErgänztDenErstenEintragUndMarkiertDenRest) {
    const Texte Einträge = {"Bach", "Ärger", "Ärgernis"};
    bool Überspringen = false;
    const auto Ergänzt = AutoCompleteAusführen("äR", Einträge, 2, true, Überspringen);
    ASSERT_TRUE(Ergänzt);
    EXPECT_EQ(Ergänzt->Eintrag, 1U);
    EXPECT_EQ(Ergänzt->SelStart, 2U);
    EXPECT_EQ(Ergänzt->SelLength, 3U);
    EXPECT_FALSE(AutoCompleteAusführen("", Einträge, 0, true, Überspringen));
    EXPECT_FALSE(AutoCompleteAusführen("ach", Einträge, 3, true, Überspringen));
    EXPECT_FALSE(AutoCompleteAusführen("ba", Einträge, 2, false, Überspringen));
    // A deleted tail is not put back, once.
    Überspringen = true;
    EXPECT_FALSE(AutoCompleteAusführen("ba", Einträge, 2, true, Überspringen));
    EXPECT_TRUE(AutoCompleteAusführen("ba", Einträge, 2, true, Überspringen));
}

TEST(Wertebaum, ZeigtWasDieWerteDarüberÜbriglassen) {
    std::mt19937 Zufall(6);
    const Katalog Index = ZufälligerKatalog(Zufall, 500);
    Suchpuffer Puffer;
    speicher::Person Person;
    EXPECT_EQ(WertebaumÖffnen(Index, Puffer, {}, Person)->size(), 10U);
    const Texte Pfad = {"Interpret", "Bach Bachmann", "Jahr"};
    Texte Erwartet;
    for (Satznummer i = 1; i <= Index.IndexAnzahl(); ++i) {
        const std::string Jahr = WertVon(Index, i, "Jahr", Wertform::Anzeigen, true);
        if (!Gleich(WertVon(Index, i, "Interpret", Wertform::Anzeigen, true), Pfad[1]) || Jahr.empty())
            continue;
        bool Neu = true;
        for (const auto& Bekannter : Erwartet)
            Neu = Neu && !Gleich(Bekannter, Jahr);
        if (Neu) Erwartet.push_back(Jahr);
    }
    Texte Gezeigt = WertebaumÖffnen(Index, Puffer, Pfad, Person).value();
    ASSERT_GT(Gezeigt.size(), 3U);
    EXPECT_TRUE(std::is_permutation(Gezeigt.begin(), Gezeigt.end(), Erwartet.begin(), Erwartet.end()));
    const Texte Unten = {"Interpret", "x", "Jahr", "1999"};
    EXPECT_EQ(WertebaumÖffnen(Index, Puffer, Unten, Person)->size(), 8U);
    Person.AbbruchBei = 1;
    EXPECT_FALSE(WertebaumÖffnen(Index, Puffer, Pfad, Person));
    EXPECT_EQ(Person.Offen, 0);

    Suchabfragen Menge;
    EXPECT_EQ(WertebaumÜbernehmen(Menge, Texte{}, true),
              "Die aktuelle Auswahl konnte nicht in eine Such-Abfrage umgewandelt werden.");
    EXPECT_EQ(WertebaumÜbernehmen(Menge, Texte{"Jahr"}, true),
              "Die aktuelle Auswahl kann nicht in eine Such-Abfrage umgewandelt werden.");
    EXPECT_EQ(WertebaumÜbernehmen(Menge, Texte{"Interpret", "AC\\DC", "Jahr"}, true), "");
    EXPECT_EQ(Menge.Liste, (std::vector<Suchabfrage>{{"Interpret", "AC\\DC", "0010"}}));
}

TEST(Mehrfachsuche, MachtAusZeilenAbfragen) {
    EXPECT_EQ(AbfragenZerlegen("Foo - Bar: Baz\r\n\r\n -,'/\na´b , c/d:e      f\rx"),
              (Texte{"Foo Bar Baz", "", "a b c d e f", "x"}));
    EXPECT_TRUE(AbfragenZerlegen("").empty());
    EXPECT_TRUE(AbfragenZerlegen("\r\n\n").empty());
}

TEST(Mehrfachsuche, FindetWasJedeSucheFürSichFindet) {
    std::mt19937 Zufall(8);
    Katalog Index = ZufälligerKatalog(Zufall, 70000);
    Suchpuffer Puffer;
    Texte Abfragen = {"Bach", "bachmann gold", "", "Жук abba", "fehlt", "7 ärger bachs", "a\xE4 x", "ẞ"};
    while (Abfragen.size() < 40)
        Abfragen.push_back(Abfragen[Zufall() % 8]);
    for (const char* Stand : {"frisch", "geändert"}) {
        speicher::Person Person;
        const auto Zeilen = MehrfachSuchen(Index, Puffer, Abfragen, Person);
        ASSERT_EQ(Zeilen.size(), Abfragen.size());
        for (std::size_t i = 0; i < Zeilen.size(); ++i) {
            std::vector<Satznummer> Erwartet;
            if (!Abfragen[i].empty()) {
                Suchabfragen Menge;
                SucheHinzufügen(Menge, Abfragen[i], "", "0000");
                IndexDurchsuchen(Index, Puffer, Menge, false);
                for (std::size_t k = 0; k < Index.IndexTreffer.size(); ++k) {
                    if (Index.IndexTreffer[k] > 0) Erwartet.push_back(static_cast<Satznummer>(k + 1));
                }
            }
            ASSERT_EQ(Zeilen[i].Nummern, Erwartet) << Stand << ": " << Abfragen[i];
            if (Erwartet.size() > 1) {
                EXPECT_EQ(Zeilen[i].Resultat, std::to_string(Erwartet.size()) + " Resultate");
            }
        }
        EXPECT_EQ(Zeilen[2].Resultat, "(Suche ist ungültig)");
        EXPECT_EQ(Zeilen[4].Resultat, Stand[0] == 'f' ? "(Nichts gefunden)" : "es fehlt.mp3");
        EXPECT_EQ(Person.Offen, 0);
        Index.Sätze.PfadSetzen(5000, "C:\\Bachmann\\es fehlt.mp3");
        Index.Sätze.PfadSetzen(69000, "C:\\nichts mehr");
    }
    speicher::Person Ungeduldig;
    Ungeduldig.AbbruchBei = 1;
    EXPECT_LT(MehrfachSuchen(Index, Puffer, Abfragen, Ungeduldig).size(), Abfragen.size());
}

}  // namespace
}  // namespace liedwerk
