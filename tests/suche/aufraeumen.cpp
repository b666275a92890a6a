// Clean-up: what is found, and what becomes of the choices.
#include "suche/aufraeumen.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "basis/pfad.h"
#include "basis/text.h"
#include "katalog_bauen.h"
#include "plattform/speicher/person.h"
#include "suche/aufraeumplan.h"

namespace liedwerk {
namespace {

using Funde = std::vector<Aufräumfund>;

// The plain double loop with a comparison of its own.
bool Gleich(const Katalog& Index, Satznummer A, Satznummer B, Aufräummethode Methode) {
    const auto Klein = [&](Satznummer Nummer, int Feld) {
        return Kleinbuchstaben(Index.Sätze.Text(Nummer, Feld));
    };
    const auto BeideFelder = [&](int Titel, int Interpret) {
        return Klein(A, Titel) == Klein(B, Titel) && Klein(A, Interpret) == Klein(B, Interpret);
    };
    switch (Methode) {
        case Aufräummethode::GleicherDateiname:
            return Kleinbuchstaben(DateinameVon(Index.Sätze.Pfad(A))) ==
                   Kleinbuchstaben(DateinameVon(Index.Sätze.Pfad(B)));
        case Aufräummethode::GleicherPfad:
            return Klein(A, FeldPfad) == Klein(B, FeldPfad);
        case Aufräummethode::GleicherTitelId3v1:
            return Index.Sätze.HatId3v1(A) == 1 && Index.Sätze.HatId3v1(B) == 1 &&
                   BeideFelder(FeldTitel, FeldInterpret);
        case Aufräummethode::GleicherTitelId3v2:
            return Index.Sätze.HatId3v2(A) == 1 && Index.Sätze.HatId3v2(B) == 1 &&
                   BeideFelder(FeldV2Titel, FeldV2Interpret);
        default:
            return Index.Sätze.Zahl(A, FeldGröße) == Index.Sätze.Zahl(B, FeldGröße);
    }
}

Funde DoppelteSchleife(const Katalog& Index, const std::vector<Satznummer>& Menge, Aufräummethode Methode) {
    Funde Gefunden;
    for (std::size_t i = 0; i < Menge.size(); ++i) {
        for (std::size_t j = i + 1; j < Menge.size(); ++j) {
            if (!Gleich(Index, Menge[i], Menge[j], Methode)) continue;
            Gefunden.push_back({Menge[i], Menge[j]});
            break;
        }
    }
    return Gefunden;
}

TEST(Aufräumen, FindetDiePaareDerDoppeltenSchleifeInDerenReihenfolge) {
    std::mt19937 Zufall(48);
    for (int Runde = 0; Runde < 30; ++Runde) {
        const Katalog Index = ZufälligerKatalog(Zufall, 60);
        // A selection in any order, not the whole index.
        std::vector<Satznummer> Menge;
        for (Satznummer Nummer = 1; Nummer <= Index.IndexAnzahl(); ++Nummer) {
            if (Zufall() % 4 != 0) Menge.push_back(Nummer);
        }
        std::shuffle(Menge.begin(), Menge.end(), Zufall);
        for (int Methode = 0; Methode <= 4; ++Methode) {
            const auto Art = static_cast<Aufräummethode>(Methode);
            speicher::Person Person;
            EXPECT_EQ(DurchsucheIndex(Index, Menge, Art, {}, Person), DoppelteSchleife(Index, Menge, Art))
                << Runde << "/" << Methode;
            EXPECT_EQ(Person.Titel, std::vector<std::string>{"Durchsuche Index"});
            EXPECT_EQ(Person.Offen, 0);
        }
    }
}

TEST(Aufräumen, DreiGleicheSindZweiPaareUndEinAbbruchBehältGefundenes) {
    Katalog Index;
    for (const char* Pfad : {"/a/X.mp3", "/b/x.MP3", "/c/y.mp3", "/d/x.mp3", "/e/y.mp3"}) {
        Datensatz Satz;
        Satz.HatId3v1 = Index.IndexAnzahl() == 1 ? TagVorhanden : TagFehlt;
        SatzAnhängen(Index, Pfad, Satz);
    }
    const std::vector<Satznummer> Alle = {1, 2, 3, 4, 5};
    speicher::Person Person;
    const Funde Paare = DurchsucheIndex(Index, Alle, Aufräummethode::GleicherDateiname, {}, Person);
    EXPECT_EQ(Paare, (Funde{{1, 2}, {2, 4}, {3, 5}}));
    EXPECT_EQ(FundText(Index, Paare[0]), "'X.mp3' und 'x.MP3'");
    EXPECT_EQ(FundText(Index, {3, 0}), "y.mp3");
    Person.Zeigungen = 0;
    Person.AbbruchBei = 4;
    EXPECT_EQ(DurchsucheIndex(Index, Alle, Aufräummethode::GleicherDateiname, {}, Person),
              (Funde{{1, 2}, {2, 4}}));
    EXPECT_EQ(Person.Offen, 0);

    // Single files: by the record, or by a look at the file.
    Person.AbbruchBei = 0;
    EXPECT_EQ(DurchsucheIndex(Index, Alle, Aufräummethode::OhneId3v1, {}, Person),
              (Funde{{1, 0}, {3, 0}, {4, 0}, {5, 0}}));
    const Dateiprüfung Prüfung = [](Satznummer Nummer) {
        return Nummer == 4   ? Dateibefund::Abbruch
               : Nummer == 2 ? Dateibefund::Unauffällig
                             : Dateibefund::Verdächtig;
    };
    EXPECT_EQ(DurchsucheIndex(Index, Alle, Aufräummethode::OhneId3v2Neu, Prüfung, Person),
              (Funde{{1, 0}, {3, 0}}));
}

TEST(Aufräumplan, JederSatzHatEineAktionUndDieFrageNenntSie) {
    using enum Aufräumaktion;
    EXPECT_TRUE(AufräumplanBilden({}).Leer());
    EXPECT_TRUE(AufräumplanBilden(std::vector<Aufräumzeile>{{{1, 2}}}).Leer());
    // 2 stands in two rows, to be deleted and to be binned; a single file has no second side.
    const std::vector<Aufräumzeile> Zeilen = {
        {{7, 2}, AusIndexEntfernen, Löschen}, {{2, 5}, Papierkorb, Löschen}, {{3, 0}, Ersetzen, Löschen}};
    const Aufräumplan Plan = AufräumplanBilden(Zeilen);
    EXPECT_EQ(Plan.Löschen, std::vector<Satznummer>{5});
    EXPECT_EQ(Plan.Papierkorb, std::vector<Satznummer>{2});
    EXPECT_EQ(Plan.AusIndexEntfernen, std::vector<Satznummer>{7});
    EXPECT_EQ(Plan.Ersetzen, std::vector<Satznummer>{3});
    EXPECT_EQ(AufräumFrage(Plan),
              "Sie haben folgende Aktionen gewählt:\n"
              "\n - 1 Datei(en) löschen und aus dem Index entfernen"
              "\n - 1 Datei(en) in den Papierkob verschieben und aus dem Index entfernen"
              "\n - 1 Datei(en) aus dem Index entfernen, ohne diese zu löschen"
              "\n - 1 Datei(en) durch eine leere Datei mit Endung '.inanderemordner' ersetzen und aus dem "
              "Index entfernen"
              "\n\nMöchten Sie diese Aktionen durchführen?");
}

}  // namespace
}  // namespace liedwerk
