#include "suche/suchpuffer.h"

#include <gtest/gtest.h>

#include "basis/text.h"
#include "katalog_bauen.h"
#include "suche/wortsucher.h"

namespace liedwerk {
namespace {

TEST(Wortsucher, FindetWasDieBibliothekFindet) {
    std::mt19937 Zufall(7);
    for (int Runde = 0; Runde < 400; ++Runde) {
        std::string Text(Zufall() % 400, ' ');
        for (char& Zeichen : Text)
            Zeichen = static_cast<char>('a' + Zufall() % 3);
        const std::string Wort = Text.substr(0, 1 + Zufall() % 8) + (Zufall() % 2 != 0 ? "b" : "");
        const Wortsucher Sucher(Wort);
        for (std::size_t Ab = 0; Ab <= Text.size(); ++Ab)
            ASSERT_EQ(Sucher.Suchen(Text, Ab), Text.find(Wort, Ab)) << Wort << " in " << Text;
    }
}

// What Treffer must give, read record by record.
std::vector<std::uint8_t> Einzeln(const Katalog& Index, const Feldwahl& Feld, bool AndererTag,
                                  std::string_view Wort, Satznummer Von, Satznummer Bis) {
    std::vector<std::uint8_t> Marken;
    std::string Wert;
    Feldtyp Typ{};
    for (Satznummer Nummer = Von; Nummer <= Bis; ++Nummer) {
        FeldWert(Index, Nummer, Feld, Wertform::Anzeigen, AndererTag, Wert, Typ);
        const bool Hält = Typ == Feldtyp::Text ? PositionOhneGroß(Wert, Wort) != std::string::npos
                                               : Wert.find(Wort) != std::string::npos;
        Marken.push_back(!Wert.empty() && Hält);
    }
    return Marken;
}

void Vergleichen(const Katalog& Index, Suchpuffer& Puffer, std::string_view Schritt) {
    const Satznummer Anzahl = Index.IndexAnzahl();
    for (const std::string_view Name : {"(Standardsuche)", "Interpret", "Titel-ID3v2", "Jahr", "Größe",
                                        "Genre", "Dateiname", "Abspiel-Datum", "Benutzerdefiniert"}) {
        const Feldwahl Feld = FeldFinden(Name);
        for (const std::string_view Wort :
             {"bach", "BACHMANN", "ärger", "жук", "a", "", "k", "ß", "0", "2003", "-"}) {
            for (const auto& [Von, Bis] : {std::pair{1, Anzahl}, std::pair{Anzahl / 3, Anzahl / 2}}) {
                ASSERT_TRUE(Suchpuffer::Geeignet(Feld, true, Wort));
                ASSERT_EQ(Puffer.Treffer(Index, Feld, true, Wort, Von, Bis),
                          Einzeln(Index, Feld, true, Wort, Von, Bis))
                    << Schritt << ": " << Name << " '" << Wort << "'";
            }
        }
    }
}

TEST(Suchpuffer, FolgtJederÄnderungDesIndex) {
    std::mt19937 Zufall(3);
    Katalog Index = ZufälligerKatalog(Zufall, 300);
    Suchpuffer Puffer;
    Vergleichen(Index, Puffer, "frisch");
    for (int Runde = 0; Runde < 4; ++Runde) {
        for (int i = 0; i < 20 + 100 * (Runde % 2); ++i) {
            const auto Nummer =
                static_cast<Satznummer>(1 + Zufall() % static_cast<unsigned>(Index.IndexAnzahl()));
            Index.Sätze.Setzen(Nummer, ZufälligerPfad(Zufall), ZufälligerSatz(Zufall));
        }
        Vergleichen(Index, Puffer, "geändert");
        SatzAnhängen(Index, "Z:\\neu " + std::to_string(Runde), ZufälligerSatz(Zufall));
        Index.Sätze.PfadSetzen(Index.IndexAnzahl(), "Z:\\bach");
        Vergleichen(Index, Puffer, "angehängt");
        DatensätzeEntfernen(Index, std::vector<Satznummer>{2, 5, Index.IndexAnzahl()});
        Index.Sätze.Vertauschen(1, 9);
        Vergleichen(Index, Puffer, "umgestellt");
    }
    Index.Optionen.SpaltenNutzerformat = "%Album%Bachmann";
    Vergleichen(Index, Puffer, "anderes Format");
    Index = ZufälligerKatalog(Zufall, Index.IndexAnzahl());
    Vergleichen(Index, Puffer, "anderer Index");
    EXPECT_GT(Puffer.Belegt(), 0U);
    Puffer.Leeren();
    EXPECT_EQ(Puffer.Belegt(), 0U);
}

TEST(Suchpuffer, MehrereFädenErgebenDasselbe) {
    std::mt19937 Zufall(5);
    const Katalog Index = ZufälligerKatalog(Zufall, 90000);
    Suchpuffer Puffer;
    const Feldwahl Feld = FeldFinden(Standardsuche);
    for (const std::string_view Wort : {"bachs", "жук", "7"}) {
        ASSERT_EQ(Puffer.Treffer(Index, Feld, false, Wort, 1, 90000),
                  Einzeln(Index, Feld, false, Wort, 1, 90000));
        ASSERT_EQ(Puffer.Treffer(Index, Feld, false, Wort, 30000, 60001),
                  Einzeln(Index, Feld, false, Wort, 30000, 60001));
    }
}

TEST(Suchpuffer, NimmtNurWasErBeantwortenKann) {
    EXPECT_FALSE(Suchpuffer::Geeignet(FeldFinden("Jahr-ID3v2"), true, "1999"));  // two ways of comparing
    EXPECT_TRUE(Suchpuffer::Geeignet(FeldFinden("Jahr-ID3v2"), false, "1999"));
    EXPECT_FALSE(Suchpuffer::Geeignet(FeldFinden("Nix"), false, "a"));
    EXPECT_FALSE(Suchpuffer::Geeignet(FeldFinden("Titel"), false, "a b"));
    EXPECT_FALSE(Suchpuffer::Geeignet(FeldFinden("Titel"), false, "\xE4"));
}

}  // namespace
}  // namespace liedwerk
