#include "suche/sortieren.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>

#include "basis/text.h"
#include "katalog_bauen.h"
#include "plattform/speicher/person.h"
#include "suche/quicksort.h"
#include "suche/sortierschluessel.h"

namespace liedwerk {
namespace {

// The sort as it is told, one comparison after the other on the records themselves.
struct Vorbild {
    Katalog Index;
    std::vector<std::uint8_t> Merker;

    struct Schlüssel {
        float Zahl = 0;
        std::string Text;
        auto operator<=>(const Schlüssel&) const = default;
    };
    Schlüssel Von(const std::string& Feld, Satznummer Nummer) const {
        std::string Wert;
        Feldtyp Typ{};
        FeldWert(Index, Nummer, Feld, Wertform::Sortieren, false, Wert, Typ);
        if (Typ == Feldtyp::Zahl) return {ZahlWert(Wert, 3), ""};
        return {0, Großbuchstaben(Wert)};
    }
    void Tauschen(Satznummer A, Satznummer B) {
        Index.Sätze.Vertauschen(A, B);
        std::swap(Index.IndexTreffer[static_cast<std::size_t>(A - 1)],
                  Index.IndexTreffer[static_cast<std::size_t>(B - 1)]);
        std::swap(Merker[static_cast<std::size_t>(A - 1)], Merker[static_cast<std::size_t>(B - 1)]);
    }
    void Quicksort(const std::string& Feld, Satznummer Erster, Satznummer Letzter) {
        if (Letzter <= Erster) return;
        const Schlüssel Angel = Von(Feld, (Erster + Letzter) / 2);
        Satznummer i = Erster;
        Satznummer j = Letzter;
        while (i <= j) {
            while (i < Letzter && Von(Feld, i) < Angel)
                ++i;
            while (j > Erster && Von(Feld, j) > Angel)
                --j;
            if (i <= j) Tauschen(i++, j--);
        }
        if (Erster < j) Quicksort(Feld, Erster, j);
        if (i < Letzter) Quicksort(Feld, i, Letzter);
    }
    void Sortieren(const std::vector<std::string>& Kriterien, bool Absteigend) {
        const Satznummer Anzahl = Index.IndexAnzahl();
        Quicksort(Kriterien[0], 1, Anzahl);
        for (std::size_t c = 1; c < Kriterien.size(); ++c) {
            Schlüssel Strecke;
            Satznummer Anfang = 1;
            for (Satznummer i = 1; i <= Anzahl; ++i) {
                const Schlüssel Eigener = Von(Kriterien[c - 1], i);
                if (i > 1 && Eigener == Strecke) continue;
                if (i - 1 > Anfang) Quicksort(Kriterien[c], Anfang, i - 1);
                Strecke = Eigener;
                Anfang = i;
            }
        }
        for (Satznummer i = 1; Absteigend && i < Anzahl + 1 - i; ++i)
            Tauschen(i, Anzahl + 1 - i);
    }
};

// A catalogue whose records carry their first number, with marks that tell it too.
Vorbild Bauen(unsigned Saat, int Anzahl) {
    std::mt19937 Zufall(Saat);
    Vorbild Ergebnis{ZufälligerKatalog(Zufall, Anzahl), {}};
    Katalog& Index = Ergebnis.Index;
    for (Satznummer i = 1; i <= Anzahl; ++i) {
        Datensatz Satz = Index.Sätze.Lesen(i);
        Satz.BenutzerDaten = std::to_string(i);
        Satz.Größe = 16777216 + static_cast<std::int64_t>(Zufall() % 3);  // two of the three are one float
        Index.Sätze.Setzen(i, Index.Sätze.Pfad(i), Satz);
        Index.IndexTreffer[static_cast<std::size_t>(i - 1)] = static_cast<std::int16_t>(i % 7);
        Ergebnis.Merker.push_back(static_cast<std::uint8_t>(i % 251));
    }
    Index.Optionen.SpaltenNutzerformat = "%Titel%-%nummer%";
    return Ergebnis;
}

std::vector<std::string> Reihenfolge(const Katalog& Index) {
    std::vector<std::string> Folge;
    for (Satznummer i = 1; i <= Index.IndexAnzahl(); ++i)
        Folge.push_back(WertVon(Index, i, "Benutzer-Daten"));
    return Folge;
}

TEST(Sortieren, GibtGenauDieBeschriebeneFolge) {
    const std::vector<std::vector<std::string>> Alle = {{"Interpret"},
                                                        {"Titel", "Jahr", "Größe"},
                                                        {"Jahr", "Titel-ID3v2"},
                                                        {"Track", "Genre", "Interpret-ID3v2"},
                                                        {"Größe", "Pfad+Dateiname"},
                                                        {"Hinzufüge-Datum", "Abspiel-Datum", "Dauer"},
                                                        {"Bitrate", "Nummer", "Titel"},
                                                        {"Nummer"},
                                                        {"Genre", "Benutzerdefiniert", "Titel"},
                                                        {"%Nummer%"},
                                                        {"%Jahr%x", "Gibt es nicht", "Dateiname"},
                                                        {"Benutzer-Daten", "Titel"}};
    unsigned Saat = 0;
    for (const int Anzahl : {1, 2, 3, 40, 700}) {
        for (const auto& Kriterien : Alle) {
            const bool Absteigend = ++Saat % 2 == 0;
            Vorbild Soll = Bauen(Saat, Anzahl);
            Vorbild Ist = Bauen(Saat, Anzahl);
            Soll.Sortieren(Kriterien, Absteigend);
            speicher::Person Person;
            IndexSortieren(Ist.Index, Kriterien, Absteigend, Ist.Merker, Person);
            ASSERT_EQ(Reihenfolge(Ist.Index), Reihenfolge(Soll.Index)) << Kriterien[0] << ' ' << Anzahl;
            ASSERT_EQ(Ist.Index.IndexTreffer, Soll.Index.IndexTreffer) << Kriterien[0];
            ASSERT_EQ(Ist.Merker, Soll.Merker) << Kriterien[0];
            EXPECT_EQ(Person.Titel.front(), "Sortiere Liste (Durchgang 1)");
        }
    }
}

TEST(Sortieren, EinAbbruchBehältJedenSatzMitSeinerMarke) {
    for (std::int64_t Bei = 1; Bei < 60; Bei += 4) {
        Vorbild Lauf = Bauen(5, 20000);
        speicher::Person Person;
        Person.AbbruchBei = Bei;
        const std::vector<std::string> Kriterien = {"Titel", Bei % 3 == 0 ? "Nummer" : "Dateiname"};
        IndexSortieren(Lauf.Index, Kriterien, Bei % 2 == 0, Lauf.Merker, Person);
        auto Folge = Reihenfolge(Lauf.Index);
        for (std::size_t i = 0; i < Folge.size(); ++i) {
            ASSERT_EQ(Lauf.Index.IndexTreffer[i], std::stoi(Folge[i]) % 7);
            ASSERT_EQ(Lauf.Merker[i], std::stoi(Folge[i]) % 251);
        }
        std::ranges::sort(Folge);
        EXPECT_EQ(std::ranges::adjacent_find(Folge), Folge.end());
        EXPECT_LE(Person.Zeigungen, Bei) << "asked again after a cancel";
    }
}

std::vector<Rangpaar> Einfach(std::vector<Rangpaar> Paare, std::ptrdiff_t Von, std::ptrdiff_t Bis) {
    std::vector<std::pair<std::ptrdiff_t, std::ptrdiff_t>> Offen = {{Von, Bis}};
    while (!Offen.empty()) {
        const auto [Erster, Letzter] = Offen.back();
        Offen.pop_back();
        if (Letzter <= Erster) continue;
        auto i = Erster;
        auto j = Letzter;
        const auto Angel = RangVon(Paare[static_cast<std::size_t>((i + j) / 2)]);
        const auto Rang = [&](std::ptrdiff_t k) { return RangVon(Paare[static_cast<std::size_t>(k)]); };
        while (i <= j) {
            while (Rang(i) < Angel)
                ++i;
            while (Rang(j) > Angel)
                --j;
            if (i <= j) std::swap(Paare[static_cast<std::size_t>(i++)], Paare[static_cast<std::size_t>(j--)]);
        }
        Offen.emplace_back(Erster, j);
        Offen.emplace_back(i, Letzter);
    }
    return Paare;
}

// Ranks that put the least key into the middle of every range that Quicksort will see.
std::vector<std::uint32_t> Gift(std::size_t Anzahl) {
    std::vector<std::uint32_t> Ränge(Anzahl);
    std::vector<std::size_t> Plätze(Anzahl);
    std::iota(Plätze.begin(), Plätze.end(), std::size_t{0});
    for (std::size_t Von = 0; Von < Anzahl; ++Von) {
        const std::size_t Mitte = (Von + Anzahl - 1) / 2;
        Ränge[Plätze[Mitte]] = static_cast<std::uint32_t>(Von);
        std::swap(Plätze[Von], Plätze[Mitte]);
    }
    return Ränge;
}

TEST(Quicksort, MachtDieselbenVertauschungenWieEinzelnVerglichen) {
    std::mt19937 Zufall(9);
    const auto Vergleichen = [](std::vector<Rangpaar> Paare, const std::string& Art) {
        const auto Soll = Einfach(Paare, 0, static_cast<std::ptrdiff_t>(Paare.size()) - 1);
        ASSERT_TRUE(BereicheSortieren(Paare, {{0, Paare.size() - 1}}, [](std::size_t) { return true; }));
        ASSERT_EQ(Paare, Soll) << Art;
    };
    for (const std::size_t Anzahl : {2U, 127U, 128U, 129U, 130U, 200U, 1000U, 5000U, 150000U}) {
        for (const std::uint32_t Verschiedene : {1U, 2U, 3U, 50U, 1000000U}) {
            std::vector<Rangpaar> Paare;
            for (std::uint32_t i = 0; i < Anzahl; ++i)
                Paare.push_back(RangpaarBilden(static_cast<std::uint32_t>(Zufall()) % Verschiedene, i));
            Vergleichen(Paare, std::to_string(Anzahl) + " " + std::to_string(Verschiedene));
        }
    }
    // Ranges that are divided badly all the way down, with and without equal keys.
    for (const std::uint32_t Teiler : {1U, 2U, 7U}) {
        const auto Böse = Gift(20000);
        std::vector<Rangpaar> Vergiftet;
        std::vector<Rangpaar> Hügel;
        for (std::uint32_t i = 0; i < Böse.size(); ++i) {
            Vergiftet.push_back(RangpaarBilden(Böse[i] / Teiler, i));
            Hügel.push_back(RangpaarBilden(std::min(i, 20000 - i) / Teiler, i));
        }
        Vergleichen(Vergiftet, "Gift " + std::to_string(Teiler));
        Vergleichen(Hügel, "Hügel " + std::to_string(Teiler));
    }
}

TEST(Quicksort, BleibtBeiBöswilligenFolgenSchnell) {
    constexpr std::uint32_t Anzahl = 1000000;
    const auto Prüfen = [](const char* Art, const auto& Rang) {
        std::vector<Rangpaar> Paare;
        for (std::uint32_t i = 0; i < Anzahl; ++i)
            Paare.push_back(RangpaarBilden(Rang(i), i));
        ASSERT_TRUE(BereicheSortieren(Paare, {{0, Anzahl - 1}}, [](std::size_t) { return true; })) << Art;
        ASSERT_TRUE(std::ranges::is_sorted(Paare, {}, RangVon)) << Art;
    };
    const auto Böse = Gift(Anzahl);
    Prüfen("sortiert", [](std::uint32_t i) { return i; });
    Prüfen("umgekehrt", [](std::uint32_t i) { return Anzahl - i; });
    Prüfen("gleich", [](std::uint32_t) { return 1U; });
    Prüfen("hinauf und hinab", [](std::uint32_t i) { return std::min(i, Anzahl - i); });
    Prüfen("gezähnt", [](std::uint32_t i) { return i % 1000; });
    Prüfen("Kleinstes in der Mitte", [&](std::uint32_t i) { return Böse[i]; });
    Prüfen("dasselbe doppelt", [&](std::uint32_t i) { return Böse[i] / 2; });
}

TEST(ZahlWert, LiestWasInTextenAlsZahlSteht) {
    EXPECT_EQ(ZahlWert("", 3), 0);
    EXPECT_EQ(ZahlWert("1.234.567", 3), 1234567);
    EXPECT_EQ(ZahlWert("3/12", 3), 3);
    EXPECT_EQ(ZahlWert("3/12", 1), 312);
    EXPECT_EQ(ZahlWert("x/12", 3), 12);
    EXPECT_EQ(ZahlWert("CD2 Track 5", 3), 25);
    EXPECT_EQ(ZahlWert("CD2 Track 5", 2), 0);
    EXPECT_EQ(ZahlWert("a", 3), 0);
    EXPECT_EQ(ZahlWert("7 Tage", 0), 0);
    EXPECT_EQ(ZahlWert("20011231235959", 3), ZahlWert("20011231235958", 3));
    EXPECT_GT(ZahlWert(std::string(500, '9'), 3), 3e38F);
}

TEST(Sortieren, DerDialogPrüftSeineWahl) {
    const std::string Aus(SortierspalteAus);
    const auto Prüfen = [](std::vector<std::string> Gewählte) { return SortierwahlPrüfen(Gewählte); };
    EXPECT_EQ(Prüfen({"Titel", "Jahr", Aus}).Sortierkriterien, (std::vector<std::string>{"Titel", "Jahr"}));
    EXPECT_EQ(Prüfen({"Titel", Aus, Aus}).Meldung, "");
    EXPECT_EQ(Prüfen({"Titel", Aus, "Titel"}).Meldung,
              "Bitte wählen Sie die Sortier-Kriterien nacheinander aus.");
    EXPECT_EQ(Prüfen({"Titel", "Titel", Aus}).Meldung, "Bitte wählen Sie jede Spalte nur einmal aus.");
    const auto Spalten = SortierspaltenVorgabe("Titel");
    ASSERT_EQ(Spalten.size(), 3U);
    EXPECT_EQ(Spalten[0].Einträge[Spalten[0].Gewählt], "Titel");
    EXPECT_EQ(Spalten[0].Einträge.size(), 32U);
    EXPECT_EQ(Spalten[2].Einträge[Spalten[2].Gewählt], Aus);
    EXPECT_EQ(SortierspaltenVorgabe("Gibt es nicht")[0].Gewählt, 0U);
}

}  // namespace
}  // namespace liedwerk
