// The compact store against a plain list of records, and what moves along with it.
#include <algorithm>
#include <gtest/gtest.h>
#include <random>

#include "index/katalog.h"
#include "index/satzzeile.h"

namespace liedwerk {
namespace {

using Satz = std::pair<std::string, Datensatz>;

std::string Zufallstext(std::mt19937& Zufall) {
    static const std::vector<std::string> Stücke = {"",
                                                    "",
                                                    "Abba",
                                                    "Müller",
                                                    "Ж",
                                                    "a\r\nb",
                                                    "|/",
                                                    "\xEF\xBB\xBF",
                                                    std::string(1, '\0'),
                                                    std::string(200, 'x')};
    return Stücke[Zufall() % Stücke.size()];
}

// A record in which every member that the store keeps can hold anything.
Satz Zufallssatz(std::mt19937& Zufall) {
    Datensatz Daten;
    const bool Erweitert = Zufall() % 2 == 0;
    for (const auto& Feld : Felder) {
        if (Feld.Nummer > GrundfeldAnzahl && !Erweitert) break;
        std::visit(
            [&]<class Ort>(Ort Mitglied) {
                if constexpr (std::is_same_v<Ort, std::string Datensatz::*>) {
                    Daten.*Mitglied = Zufallstext(Zufall);
                } else if constexpr (!std::is_same_v<Ort, std::monostate>) {
                    using Wert = std::remove_cvref_t<decltype(Daten.*Mitglied)>;
                    if constexpr (std::is_same_v<Wert, std::optional<std::uint8_t>>) {
                        if (Zufall() % 2 == 0) Daten.*Mitglied = static_cast<std::uint8_t>(Zufall());
                    } else {
                        Daten.*Mitglied = static_cast<Wert>(Zufall());
                    }
                }
            },
            Feld.Ort);
    }
    Daten.HatId3v1 = Zufall() % 4;
    Daten.HatId3v2 = Zufall() % 4;
    Daten.HatLyrics = Zufall() % 4;
    return {"/" + Zufallstext(Zufall), Daten};
}

TEST(Satzspeicher, GibtNachJederFolgeVonEingriffenAllesZurück) {
    std::mt19937 Zufall(7);
    Katalog Index;
    std::vector<Satz> Modell;
    std::vector<std::int16_t> Treffer;
    const auto Nummer = [&] { return static_cast<Satznummer>(Zufall() % Modell.size()) + 1; };
    const auto Stelle = [&](Satznummer i) -> Satz& { return Modell[static_cast<std::size_t>(i - 1)]; };
    for (int Schritt = 0; Schritt < 30000; ++Schritt) {
        const auto Was = Modell.size() < 20 ? 0 : Zufall() % 1000;
        if (Was < 300) {
            Modell.push_back(Zufallssatz(Zufall));
            const Satznummer Neu = SatzAnhängen(Index, Modell.back().first, Modell.back().second);
            ASSERT_EQ(Neu, static_cast<Satznummer>(Modell.size()));
            Index.IndexTreffer.back() = static_cast<std::int16_t>(Schritt);
            Treffer.push_back(static_cast<std::int16_t>(Schritt));
        } else if (Was < 900) {
            const Satznummer i = Nummer();
            Stelle(i) = Zufallssatz(Zufall);
            Index.Sätze.Setzen(i, Stelle(i).first, Stelle(i).second);
        } else if (Was < 950) {
            const Satznummer i = Nummer();
            Stelle(i).first = Zufallstext(Zufall);
            Index.Sätze.PfadSetzen(i, Stelle(i).first);
        } else if (Was < 990) {
            const Satznummer A = Nummer();
            const Satznummer B = Nummer();
            std::swap(Stelle(A), Stelle(B));
            Index.Sätze.Vertauschen(A, B);
        } else {
            std::vector<Satznummer> Weg;
            for (auto n = Modell.size() / 3; n > 0; --n)
                Weg.push_back(Nummer());
            DatensätzeEntfernen(Index, Weg);
            std::vector<Satz> Übrig;
            std::vector<std::int16_t> Marken;
            for (std::size_t i = 0; i < Modell.size(); ++i) {
                if (std::ranges::count(Weg, static_cast<Satznummer>(i + 1)) != 0) continue;
                Übrig.push_back(Modell[i]);
                Marken.push_back(Treffer[i]);
            }
            Modell = Übrig;
            Treffer = Marken;
        }
    }
    ASSERT_EQ(Index.IndexAnzahl(), static_cast<Satznummer>(Modell.size()));
    EXPECT_EQ(Index.IndexTreffer, Treffer);
    for (Satznummer i = 1; i <= Index.IndexAnzahl(); ++i) {
        ASSERT_EQ(Index.Sätze.Pfad(i), Stelle(i).first);
        ASSERT_EQ(Index.Sätze.Lesen(i), Stelle(i).second) << i;
        ASSERT_EQ(Index.Sätze.Text(i, FeldV2Titel), Stelle(i).second.V2Titel);
        ASSERT_EQ(Index.Sätze.Zahl(i, FeldGröße), Stelle(i).second.Größe);
    }
}

TEST(Satzspeicher, UmordnenSetztDieSätzeDerFolgeNach) {
    Satzspeicher Sätze;
    for (const char* Pfad : {"/a", "/b", "/c"})
        Sätze.Anhängen(Pfad, Datensatz());
    Sätze.Umordnen(std::vector<Satznummer>{3, 1, 2});
    EXPECT_EQ(Sätze.Pfad(1) + Sätze.Pfad(2) + Sätze.Pfad(3), "/c/a/b");
}

TEST(Satzspeicher, BehältWasEinSpeichernKürzenOderWeglassenWürde) {
    Satzspeicher Sätze;
    Datensatz Daten;
    Daten.V2Kommentar = "nur im Speicher";
    Daten.HatId3v2 = TagFehlt;
    Daten.Titel = std::string(150000, 't');
    Sätze.Anhängen("/a", Daten);
    EXPECT_EQ(Sätze.Lesen(1), Daten);
    EXPECT_FALSE(Sätze.PlatzVon(1).Speicherform);
}

// A cache that follows the store must never miss a change.
TEST(Satzspeicher, EinLeererWertStehtFürDenAnfangswert) {
    const Datensatz Anfang = DatensatzVorZeile();
    for (const auto& Feld : Felder) {
        if (Feld.Inhalt != Feldinhalt::Zahl && Feld.Nummer != FeldV2Qualität) continue;
        EXPECT_EQ(RohwertZahl({}, Feld.Nummer), RohwertZahl(Rohwert(Anfang, Feld.Nummer), Feld.Nummer))
            << Feld.Name;
    }
}

TEST(Satzspeicher, MeldetJedeÄnderungDenZwischenspeichern) {
    Satzspeicher Sätze;
    for (int i = 0; i < 4; ++i)
        Sätze.Anhängen("/a", Datensatz());
    const auto Anfang = Sätze.Generation();
    Sätze.PfadSetzen(2, "/b");
    Sätze.Setzen(4, "/c", Datensatz());
    EXPECT_EQ(Sätze.Generation(), Anfang);
    EXPECT_TRUE(std::ranges::equal(Sätze.GeänderteSätze(), std::vector<Satznummer>{2, 4}));
    for (int i = 0; i < 1000; ++i)
        Sätze.PfadSetzen(1, "/d");
    EXPECT_GT(Sätze.Generation(), Anfang);
    const auto Vorher = Sätze.Generation();
    Satzspeicher Neue;
    Sätze = std::move(Neue);
    EXPECT_GT(Sätze.Generation(), Vorher);
    EXPECT_EQ(Sätze.Anzahl(), 0);
}

TEST(Katalog, GrenzenDerListeSprechenNachDemEntfernenVonDenselbenSätzen) {
    Katalog Index;
    for (const char* Pfad : {"/1", "/2", "/3", "/4", "/5"})
        SatzAnhängen(Index, Pfad, Datensatz());
    TrefferZurücksetzen(Index);
    Index.ErsterTreffer = 2;
    Index.LetzterTreffer = 4;
    DatensätzeEntfernen(Index, std::vector<Satznummer>{4, 1, 4});
    EXPECT_EQ(Index.ErsterTreffer, 1);
    EXPECT_EQ(Index.LetzterTreffer, 2);
    DatensätzeEntfernen(Index, std::vector<Satznummer>{1, 2, 3});
    EXPECT_EQ(Index.IndexTreffer, std::vector<std::int16_t>{1});
    EXPECT_EQ(Index.LetzterTreffer, 0);
    SatzAnhängen(Index, "/6", Datensatz());
    EXPECT_EQ(Index.IndexTreffer, std::vector<std::int16_t>{0});
}

TEST(Dateitypen, DieErsteGleicheEndungEntscheidet) {
    const std::vector<Dateityp> Typen = {{"mp3=1", "110"}, {"wav=0", "010"}, {"JPG=1", "001"},
                                         {"txt=1", "000"}, {"mp3=0", "001"}, {"*=1", "000"}};
    // Path, then what is allowed for: nothing asked, MPEG, pictures, audio, managed.
    const std::vector<std::pair<std::string, std::string>> Fälle = {
        {"C:\\a.MP3", "11011"}, {"/a.wav", "10010"}, {"/a.jpg", "10101"},
        {"/a.txt", "10001"},    {"/a.xyz", "00001"}, {"/a.b/ohne", "00001"}};
    for (const auto& [Pfad, Soll] : Fälle) {
        std::string Ist;
        for (int Frage = 0; Frage < 5; ++Frage) {
            Ist += DateiTypErlaubt(Typen, Pfad, Frage == 1, Frage == 2, Frage == 3, Frage == 4) ? '1' : '0';
        }
        EXPECT_EQ(Ist, Soll) << Pfad;
    }
    // A table that nobody has made by hand: its ends decide, and a test costs the same for any length.
    std::vector<Dateityp> Viele(300'000, {"x=1", "010"});
    Viele[0].Eintrag = "vorn=1";
    Viele[150'000].Eintrag = "mitten=1";
    Viele.back().Eintrag = "hinten=1";
    for (const auto& [Endung, Soll] : {std::pair{"VORN", true}, {"mitten", false}, {"hinten", true}})
        EXPECT_EQ(TypFinden(Viele, Endung) != nullptr, Soll) << Endung;
}

}  // namespace
}  // namespace liedwerk
