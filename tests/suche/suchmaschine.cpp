#include "suche/suchmaschine.h"

#include <gtest/gtest.h>

#include "basis/text.h"
#include "basis/zahl.h"
#include "katalog_bauen.h"
#include "suche/suchablage.h"
#include "suche/vorschlaege.h"

namespace liedwerk {
namespace {

struct Stand {
    std::vector<std::int16_t> Markierung;
    Satznummer Erster = -1;
    Satznummer Letzter = 0;
    bool operator==(const Stand&) const = default;
};

// Whether one word passes on one record, read from the record alone.
bool Bestanden(const Katalog& Index, Satznummer Nummer, const Suchabfrage& Abfrage, const std::string& Wort) {
    const auto Code = SuchcodeLesen(Abfrage.Code);
    const std::string& Ganz = Abfrage.Begriff;
    std::string Wert;
    if (Abfrage.Feld != Standardsuche || !Wort.empty()) {
        Feldtyp Typ{};
        FeldWert(Index, Nummer, Abfrage.Feld, Wertform::Anzeigen, Code.BeideTags == 1, Wert, Typ);
        const bool Enthalten = Typ == Feldtyp::Text ? PositionOhneGroß(Wert, Wort) != std::string::npos
                                                    : Wert.find(Wort) != std::string::npos;
        if (Wert.empty() || (!Enthalten && Code.Wo != 5 && Code.Wo != 6)) return false;
    }
    const std::size_t Länge = ZeichenAnzahl(Ganz);
    switch (Code.Wo) {
        case 1:
            return Wert.empty() || Ganz.empty() || AlsWort(Ganz, Wert);
        case 2:
            return Wert.empty() || Gleich(LinkerTeil(Wert, Länge), Ganz);
        case 3:
            return Wert.empty() || Gleich(RechterTeil(Wert, Länge), Ganz);
        case 4:
            return Gleich(Wert, Ganz);
        case 5:
        case 6: {
            const auto A = Zahl(Wert);
            const auto B = Zahl(Ganz);
            if (!A || !B) return false;
            return Code.Wo == 5 ? std::nearbyint(*A) > std::nearbyint(*B)
                                : std::nearbyint(*A) < std::nearbyint(*B);
        }
        default:
            return true;
    }
}

// The search as a plain loop.
Stand Schlicht(const Katalog& Index, const Suchabfragen& Menge, Stand Lauf) {
    if (Lauf.Erster == -1) Lauf.Erster = 1;
    Satznummer Erster = 0;
    Satznummer Letzter = 0;
    for (const auto& Abfrage : Menge.Liste) {
        const auto Code = SuchcodeLesen(Abfrage.Code);
        for (const auto& Wort : Teilen(Abfrage.Begriff, " ")) {
            const Satznummer Von = Code.UndOder == 1 ? 1 : Lauf.Erster;
            const Satznummer Bis = Code.UndOder == 1 ? Index.IndexAnzahl() : Lauf.Letzter;
            for (Satznummer Nummer = Von; Nummer <= Bis; ++Nummer) {
                auto& Marke = Lauf.Markierung[static_cast<std::size_t>(Nummer - 1)];
                if (Marke < 1) continue;
                bool Bleibt = Bestanden(Index, Nummer, Abfrage, Wort);
                if (Code.MussDarfNicht != 0 && !Abfrage.Begriff.empty()) Bleibt = !Bleibt;
                Marke = Bleibt ? 1 : 0;
                if (!Bleibt) continue;
                if (Erster == 0) Erster = Nummer;
                Letzter = Nummer;
            }
            Lauf.Erster = Erster;
            Lauf.Letzter = Letzter;
            if (Erster == 0 || Letzter == 0) return Lauf;
        }
    }
    return Lauf;
}

TEST(SucheAusführen, GleichtDerSchlichtenSchleifeBeiAllenCodes) {
    std::mt19937 Zufall(2);
    const Katalog Index = ZufälligerKatalog(Zufall, 150);
    Suchpuffer Puffer;
    const std::vector<std::string> Felder = {"(Standardsuche)", "Interpret", "Titel-ID3v2",   "Jahr",
                                             "Jahr-ID3v2",      "Größe",     "Dauer",         "Bitrate",
                                             "Genre-ID3v2",     "Nix",       "%Titel% %Jahr%"};
    const std::vector<std::string> Begriffe = {
        "abba", "abba gold", "gold abba",     "bach",   "bach ", " bach", "",    " ",
        "1999", "ÄRGER",     "ärger bach",    "2.000",  "1.000", "k",     "жук", "\xE4",
        "ab",   "7 tage",    "bach bachmann", "straße", "3",     "00:0"};
    const auto Aus = [&](const auto& Liste) { return Liste[Zufall() % Liste.size()]; };
    for (int Runde = 0; Runde < 6000; ++Runde) {
        Suchabfragen Menge;
        for (std::size_t i = 0; i <= Zufall() % 2; ++i) {
            std::string Code;
            for (const unsigned Höchste : {2U, 2U, 8U, 2U})
                Code += static_cast<char>('0' + Zufall() % Höchste);
            SucheHinzufügen(Menge, Aus(Begriffe), Aus(Felder), Zufall() % 20 == 0 ? "041" : Code);
        }
        Stand Anfang{std::vector<std::int16_t>(150, 1), -1, 150};
        if (Runde % 5 == 0) Anfang = {Anfang.Markierung, 20, 90};
        for (int i = 0; i < 30; ++i)
            Anfang.Markierung[Zufall() % 150] = 0;
        Stand Lauf = Anfang;
        const auto Ergebnis =
            SucheAusführen(Index, Puffer, Menge, Lauf.Markierung, Lauf.Erster, Lauf.Letzter, false);
        ASSERT_TRUE(Ergebnis.Gelungen);
        ASSERT_EQ(Lauf, Schlicht(Index, Menge, Anfang))
            << Menge.Liste[0].Feld << " '" << Menge.Liste[0].Begriff << "' " << Menge.Liste[0].Code;
    }
}

TEST(SucheAusführen, LeererIndexUndLeereMenge) {
    Katalog Index;
    Suchpuffer Puffer;
    Suchabfragen Menge;
    SucheHinzufügen(Menge, "abba", "", "0000");
    EXPECT_TRUE(IndexDurchsuchen(Index, Puffer, Menge, true).Gelungen);
    EXPECT_EQ(Index.IndexTreffer, (std::vector<std::int16_t>{1}));
    EXPECT_EQ(Index.ErsterTreffer, 1);
    EXPECT_EQ(Index.LetzterTreffer, 0);
    SatzAnhängen(Index, "C:\\a.mp3", {});
    SucheZurücksetzen(Menge);
    IndexDurchsuchen(Index, Puffer, Menge, true);
    EXPECT_EQ(Index.LetzterTreffer, 1);
}

TEST(Textvergleich, AlsWortUndGleich) {
    EXPECT_TRUE(AlsWort("bachmann", "Bach Bachmann"));
    EXPECT_FALSE(AlsWort("bach", "Bachmann Bach"));
    EXPECT_TRUE(AlsWort("bach", "J.S.Bach-Chor"));
    EXPECT_FALSE(AlsWort("bach", "Bach2"));
    EXPECT_FALSE(AlsWort("bach", "äBach"));
    EXPECT_FALSE(AlsWort("bach", "Bach÷"));
    EXPECT_TRUE(AlsWort("bach", "ÿBach"));  // its capital lies outside of the range
    EXPECT_TRUE(AlsWort("k", "ÄÖ \u212A."));
    EXPECT_FALSE(AlsWort("", "Bach"));
    EXPECT_TRUE(Gleich("ÄRGER", "ärger"));
    EXPECT_TRUE(Gleich("", ""));
    EXPECT_FALSE(Gleich("ab", "a"));
}

TEST(ÄhnlicheWörter, Unterschiede) {
    struct Fall {
        std::string_view Wert, Text, Wort;
        Ähnlichkeit Art;
    };
    constexpr auto Keine = Ähnlichkeit::Keine;
    constexpr auto Stark = Ähnlichkeit::Stark;
    constexpr auto Schwach = Ähnlichkeit::Schwach;
    const Fall Fälle[] = {
        {"Die Beatles live", "beatles", "Beatles", Stark},
        {"Die Beatles live", "beetles", "Beatles", Schwach},
        {"Die Beatles live", "baetles", "", Keine},
        {"Die Beatles live", "beatle", "Beatles", Schwach},
        {"Die Beatles live", "eatles", "Beatles", Schwach},
        {"Die Beatles live", "beatlless", "", Keine},
        {"Die Beatles live", "beattles", "Beatles", Schwach},
        {"AC-DC", "dx", "DC", Schwach},
        {"a b", "c", "", Keine},
        {"x Gold y gild", "gold", "gild", Schwach},
        {"ÄRGER", "arger", "ÄRGER", Schwach},
        {"Ost Be atles da", "beatles", "Be atles da", Schwach},
        {"Be", "beatles", "", Keine},
        {"", "a", "", Keine},
        {"abc", " ", "", Keine},
        {"xay abxc", "abc", "abxc", Schwach},
        {"\u212Aurt Weill", "kort", "\u212Aurt", Schwach},
    };
    for (const auto& Fall : Fälle) {
        Ähnlichkeit Art{};
        EXPECT_EQ(ÄhnlicheWörter(Fall.Wert, Fall.Text, Art, false), Fall.Wort)
            << Fall.Wert << " / " << Fall.Text;
        EXPECT_EQ(Art, Fall.Art) << Fall.Wert << " / " << Fall.Text;
    }
    Ähnlichkeit Art{};
    EXPECT_EQ(ÄhnlicheWörter(" Gold", "gOLD ", Art, true), "");
}

TEST(Vorschläge, JedesWortEinmalInDerOrdnungDerSätze) {
    std::mt19937 Zufall(4);
    Katalog Index = ZufälligerKatalog(Zufall, 5000);
    Suchpuffer Puffer;
    for (const std::string_view Feld : {"(Standardsuche)", "Interpret", "Jahr"}) {
        for (const std::string_view Begriff :
             {"bachmenn", "bachh", "gxld", "Lx-8", "199", "ärgex", "жуx", "q-", "zz"}) {
            Suchabfragen Menge;
            SucheHinzufügen(Menge, Begriff, Feld, "0040");
            const auto Ergebnis = IndexDurchsuchen(Index, Puffer, Menge, true);
            ASSERT_EQ(Index.ErsterTreffer, 0);
            std::vector<std::string> Erwartet;
            for (Satznummer Nummer = 1; Nummer <= Index.IndexAnzahl(); ++Nummer) {
                Ähnlichkeit Art{};
                const auto Wort = ÄhnlicheWörter(WertVon(Index, Nummer, Feld), Begriff, Art, false);
                const bool Neu = std::none_of(Erwartet.begin(), Erwartet.end(),
                                              [&](const std::string& Altes) { return Gleich(Altes, Wort); });
                if (!Wort.empty() && Neu) Erwartet.push_back(Wort);
            }
            EXPECT_EQ(Ergebnis.Vorschläge, Erwartet) << Feld << " " << Begriff;
        }
    }
    Suchabfragen Menge;
    SucheHinzufügen(Menge, "bachmenn", "", "0040");
    EXPECT_TRUE(IndexDurchsuchen(Index, Puffer, Menge, false).Vorschläge.empty());
    SucheSetzen(Menge, 1, "bachmenn x", "", "0040");
    EXPECT_TRUE(IndexDurchsuchen(Index, Puffer, Menge, true).Vorschläge.empty());
}

// The switch adds hits and never takes one away.
TEST(SucheAusführen, UmlauteAufWunschGleich) {
    Katalog Index;
    for (const char* const Titel :
         {"Ärzte", "Aerzte", "Arzte", "Müllerstraße", "MUELLERSTRASSE", "Neue Wege", "Aue", "Quelle"}) {
        Datensatz Satz;
        Satz.HatId3v1 = TagVorhanden;
        Satz.Titel = Titel;
        SatzAnhängen(Index, "C:\\x.mp3", Satz);
    }
    Suchpuffer Puffer;
    const auto Treffer = [&](std::string_view Begriff, std::string_view Code, bool Gleich) {
        Suchabfragen Menge;
        SucheHinzufügen(Menge, Begriff, "Titel", Code);
        IndexDurchsuchen(Index, Puffer, Menge, false, Gleich);
        return Index.IndexTreffer;
    };
    using Marken = std::vector<std::int16_t>;
    EXPECT_EQ(Treffer("arzte", "0000", false), (Marken{0, 0, 1, 0, 0, 0, 0, 0}));
    for (const char* const Begriff : {"arzte", "aerzte", "ÄRZTE"})
        EXPECT_EQ(Treffer(Begriff, "0000", true), (Marken{1, 1, 1, 0, 0, 0, 0, 0})) << Begriff;
    EXPECT_EQ(Treffer("mullerstrass", "0020", true), (Marken{0, 0, 0, 1, 1, 0, 0, 0}));
    EXPECT_EQ(Treffer("Müllerstrasse", "0040", true), (Marken{0, 0, 0, 1, 1, 0, 0, 0}));
    // What is found without it stays, also where a letter would be swallowed.
    EXPECT_EQ(Treffer("e", "0000", true), Treffer("e", "0000", false));
    EXPECT_EQ(Treffer("ue", "0000", true), (Marken{0, 0, 0, 1, 1, 1, 1, 1}));
    EXPECT_EQ(Treffer("arzte", "1000", true), (Marken{0, 0, 0, 1, 1, 1, 1, 1}));
}

TEST(Suchablage, GehtVerlustfreiHinUndHer) {
    GespeicherteSuche Suche{"Lange\tTitel", {}};
    SucheHinzufügen(Suche.Menge, "abba gold", "Titel", "0010");
    SucheHinzufügen(Suche.Menge, "", "Jahr", "0041");
    std::vector<std::string> Zeilen;
    SucheAblegen(Zeilen, Suche);
    Suche.Name = "Lange Titel";
    ASSERT_TRUE(SuchzeileZerlegen(Zeilen[0]));
    EXPECT_EQ(*SuchzeileZerlegen(Zeilen[0]), Suche);
    Suche.Menge.Liste.pop_back();
    SucheAblegen(Zeilen, Suche);
    ASSERT_EQ(Zeilen.size(), 1u) << "the same name replaces";
    EXPECT_EQ(SuchzeileZerlegen(Zeilen[0])->Menge.Liste, Suche.Menge.Liste);
    for (const char* const Kaputt : {"", "nur Name", "\ta\t0000\tb", "n\ta\t0000", "n\ta\t0000\tb\tc"})
        EXPECT_FALSE(SuchzeileZerlegen(Kaputt)) << Kaputt;
}

TEST(Suchabfragen, DieSuchzeileGehtInDieMenge) {
    Suchabfragen Menge;
    EXPECT_FALSE(SucheEntfernen(Menge, {true}));
    EXPECT_FALSE(SucheSetzen(Menge, 1, "a", "Titel", "0000"));
    EXPECT_EQ(SuchzeileÜbernehmen(Menge, "abba", "", true, true), "");
    EXPECT_EQ(Menge.Liste.front(), (Suchabfrage{"(Standardsuche)", "abba", "0010"}));
    EXPECT_EQ(SuchzeileÜbernehmen(Menge, "gold", "Titel", true, false), "");
    EXPECT_EQ(Menge.Liste.front(), (Suchabfrage{"Titel", "gold", "0010"}));
    SuchzeileÜbernehmen(Menge, "(Mehrere Abfragen)", "", false, false);
    EXPECT_EQ(Menge.Liste.front().Begriff, "gold");
    SucheHinzufügen(Menge, "b", "Jahr", "0041");
    SucheHinzufügen(Menge, "c", "Jahr", "0041");
    EXPECT_TRUE(SucheEntfernen(Menge, {true, false, true}));
    ASSERT_EQ(Menge.SucheAnzahl(), 1U);
    EXPECT_EQ(Menge.Liste.front().Begriff, "b");
    EXPECT_EQ(SuchcodeLesen("1161").Wo, 6);
    EXPECT_EQ(SuchcodeLesen("116").Wo, 0);
    EXPECT_EQ(Suchverzögerung("äöü", true, 1, false), 600);
    EXPECT_EQ(Suchverzögerung("äö", true, 1, false), 1200);
    EXPECT_EQ(Suchverzögerung("abba", false, 1, false), 1200);
    EXPECT_EQ(Suchverzögerung("abba", true, 2, false), 0);
    EXPECT_EQ(Suchverzögerung("", true, 1, false) + Suchverzögerung("abba", true, 1, true), 0);
}

}  // namespace
}  // namespace liedwerk
