// Lists drawn from the statistics.
#include "abspielen/autodj.h"

#include <algorithm>

#include "welt.h"

namespace liedwerk {
namespace {

using Nummern = std::vector<Satznummer>;
const Zeitpunkt Jetzt{2026, 11, 21, 12, 0, 0};

struct Sammlung : Abspielwelt {
    void Stück(std::int32_t Gehört, const std::string& Datum, std::optional<std::uint8_t> Genre = 17,
               const std::string& V2Genre = "") {
        Datensatz Satz = Lied("A", "B");
        Satz.Genre = Genre;
        Satz.AbspielHäufigkeit = Gehört;
        Satz.AbspielDatum = Datum;
        if (!V2Genre.empty()) {
            Satz.HatId3v2 = TagVorhanden;
            Satz.V2Genre = V2Genre;
        }
        Anhängen("/m/" + std::to_string(Index.IndexAnzahl()) + ".mp3", Satz);
    }
    Nummern Ziehen(const AutoDjWahl& Wahl, std::vector<double> Zufall = {}) const {
        std::size_t Stelle = 0;
        return AutoDjZusammenstellen(Index, Wahl, Jetzt,
                                     [&] { return Zufall.empty() ? 0.0 : Zufall[Stelle++ % Zufall.size()]; });
    }
};

AutoDjWahl Wahl(AutoDjFunktion Funktion = AutoDjFunktion::Zufällig) {
    AutoDjWahl Neue;
    Neue.Funktion = Funktion;
    Neue.Genres = {"Rock", std::string(OhneGenre)};
    return Neue;
}

TEST(AutoDj, ToplisteNachHäufigkeitDannIndexfolge) {
    Sammlung W;
    W.Stück(2, "20.11.2026 10:00:00");
    W.Stück(5, "kein Datum");
    W.Stück(2, "21.11.2026 08:00:00");
    W.Stück(0, "21.11.2026 08:00:00");
    W.Stück(9, "21.11.2026 08:00:00", 0);          // Blues, was not ticked
    W.Stück(3, "01.01.2020 08:00:00", 0, "rOcK");  // the other tag's genre fits
    W.Stück(1, "21.11.2026 09:00:00", std::nullopt);
    auto Top = Wahl(AutoDjFunktion::Topliste);
    EXPECT_EQ(W.Ziehen(Top), (Nummern{5, 2, 6, 1, 3, 7}))
        << "Blues has no ID3v2 tag, so its genre there is empty and counts as none";
    Top.Genres = {"Rock"};
    EXPECT_EQ(W.Ziehen(Top), (Nummern{2, 6, 1, 3}));
    Top.Maximum = 2;
    EXPECT_EQ(W.Ziehen(Top), (Nummern{2, 6}));
    Top.Maximum = -1;
    Top.Zeit = 0;
    EXPECT_EQ(W.Ziehen(Top), (Nummern{3}));
    Top.Zeit = 1;
    EXPECT_EQ(W.Ziehen(Top), (Nummern{1, 3}));
    Top.Einheit = AutoDjEinheit::Stunden;
    Top.Zeit = 4;
    EXPECT_EQ(W.Ziehen(Top), (Nummern{3}));
}

TEST(AutoDj, ZufälligNurWasÜberDemDurchschnittUndAltGenugIst) {
    Sammlung W;
    W.Stück(1, "21.11.2026 08:00:00");
    W.Stück(3, "21.11.2026 08:00:00");  // 10 / 4 = 2.5 rounds to 2
    W.Stück(4, "");
    W.Stück(2, "20.11.2026 23:59:59");
    auto Eine = Wahl();
    Nummern Gezogen = W.Ziehen(Eine, {0.3, 0.9, 0.1});
    std::sort(Gezogen.begin(), Gezogen.end());
    EXPECT_EQ(Gezogen, (Nummern{2, 3, 4}));
    // j is always 1: (1 1), (2 1), (3 1) turn 2 3 4 into 4 2 3.
    EXPECT_EQ(W.Ziehen(Eine), (Nummern{4, 2, 3}));
    Eine.Maximum = 1;
    EXPECT_EQ(W.Ziehen(Eine), (Nummern{4}));
    Eine.Maximum = -1;
    Eine.Zeit = 0;
    EXPECT_EQ(W.Ziehen(Eine), (Nummern{4})) << "what was played today is left out, and what has no date";
}

TEST(AutoDj, GewichtungNachMonaten) {
    struct Fall {
        std::string Datum;
        bool Seltener, Häufiger;
        Nummern Erwartet;  // of five, the third being the one in question
    };
    // The shuffle's five numbers leave every entry where it is; then one number gives the factor.
    const std::vector<double> Vorn = {0.0, 0.2, 0.4, 0.6, 0.8, 0.99};
    for (const Fall& Einer : {
             Fall{"01.05.2026", true, true, {1, 2, 5, 4, 3}},  // six months: back, past the end
             Fall{"30.04.2026", true, true, {3, 2, 1, 4, 5}},  // seven months: 3 / 4 rounds to 1
             Fall{"01.11.2026", true, true, {1, 2, 3, 4, 5}},  // this month stays
             Fall{"01.05.2026", false, true, {1, 2, 3, 4, 5}},
             Fall{"30.04.2026", true, false, {1, 2, 3, 4, 5}},
             Fall{"unbekannt", true, true, {1, 2, 3, 4, 5}},
         }) {
        Sammlung W;
        for (int i = 1; i <= 5; ++i)
            W.Stück(i == 3 ? 7 : 6, i == 3 ? Einer.Datum : "01.11.2026");
        auto Eine = Wahl();
        Eine.AlteSeltener = Einer.Seltener;
        Eine.SehrAlteHäufiger = Einer.Häufiger;
        EXPECT_EQ(W.Ziehen(Eine, Vorn), Einer.Erwartet) << Einer.Datum;
    }
    Sammlung Einzeln;
    Einzeln.Stück(3, "01.05.2026");
    auto Eine = Wahl();
    Eine.AlteSeltener = true;
    EXPECT_EQ(Einzeln.Ziehen(Eine, {0.99}), (Nummern{1}));
}

TEST(AutoDj, EingabenWerdenInIhrerReihenfolgeGeprüft) {
    struct Fall {
        AutoDjFunktion Funktion;
        std::string Zeit, Maximum;
        bool Genre;
        std::string Feld;
    };
    for (const Fall& Einer : {
             Fall{AutoDjFunktion::Zufällig, "x", "y", false, "'Dateien auslassen...'"},
             Fall{AutoDjFunktion::Zufällig, "", "y", false, "'Finde so viele Dateien'"},
             Fall{AutoDjFunktion::Topliste, "x", "y", false, "'Zeige meine persönlichen Top...'"},
             Fall{AutoDjFunktion::Topliste, "x", "1", false, "'Charts der letzen...'"},
             Fall{AutoDjFunktion::Topliste, "1", "", false, "mindestens ein Genre"},
             Fall{AutoDjFunktion::Zufällig, "1,5", "", true, ""},
         }) {
        AutoDjEingabe Eingabe;
        Eingabe.Funktion = Einer.Funktion;
        Eingabe.Zeit = Einer.Zeit;
        Eingabe.Maximum = Einer.Maximum;
        if (Einer.Genre) Eingabe.Genres = {"Rock"};
        AutoDjWahl Geprüft;
        const std::string Meldung = AutoDjPrüfen(Eingabe, Geprüft);
        EXPECT_EQ(Meldung.empty(), Einer.Feld.empty());
        EXPECT_NE(Meldung.find(Einer.Feld), std::string::npos) << Meldung;
        if (Meldung.empty()) {
            EXPECT_EQ(Geprüft.Zeit, 1.5);
            EXPECT_EQ(Geprüft.Maximum, -1);
        }
    }
}

TEST(AutoDj, SaatLegtDieZahlenFest) {
    const auto Eins = ZufallszahlVon(7), Zwei = ZufallszahlVon(7), Andere = ZufallszahlVon(8);
    bool Verschieden = false;
    for (int i = 0; i < 1000; ++i) {
        const double Wert = Eins();
        EXPECT_EQ(Wert, Zwei());
        EXPECT_GE(Wert, 0.0);
        EXPECT_LT(Wert, 1.0);
        Verschieden = Verschieden || Wert != Andere();
    }
    EXPECT_TRUE(Verschieden);
}

}  // namespace
}  // namespace liedwerk
