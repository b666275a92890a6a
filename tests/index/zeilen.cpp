// Lines of the index file: sound ones, broken ones, and the parallel walk over them.
#include <random>

#include "index/indexzeilen.h"
#include "umgebung.h"

namespace liedwerk {
namespace {

class Zeilen : public Indextest {};

TEST_F(Zeilen, DasBeispielDesFormatsHatSeineWerte) {
    ASSERT_EQ(InhaltLaden(Kopf() + Beispielzeile + "\r\n"), Ladeergebnis::Index);
    ASSERT_EQ(Index.IndexAnzahl(), 1);
    EXPECT_EQ(Index.Sätze.Pfad(1), "C:\\mp3\\a.mp3");
    const Datensatz Satz = Index.Sätze.Lesen(1);
    EXPECT_EQ(Satz.Interpret, "ABBA");
    EXPECT_EQ(Satz.Größe, 1234);
    EXPECT_EQ(Satz.Bitrate, 128);
    EXPECT_EQ(Satz.Dauer, 75);
    EXPECT_EQ(Satz.Frequenz, 44100);
    EXPECT_EQ(Satz.HinzufügeDatum, "01.02.2003");
    EXPECT_EQ(Satz.Dateityp, DateiartMpeg);
    EXPECT_EQ(Satz.Modus, "Stereo");
    EXPECT_EQ(Satz.HatId3v1, TagVorhanden);
    EXPECT_EQ(Satz.HatId3v2, TagFehlt);
    EXPECT_EQ(Satz.Genre, std::nullopt);
    EXPECT_EQ(Satz.V2Qualität, KeineV2Qualität);
    EXPECT_FALSE(Index.IndexGeändert);
    EXPECT_TRUE(Index.Sätze.PlatzVon(1).Speicherform);
}

// The fast way and the patient way must see the same record. A lying length makes the line a patient one: it
// is longer than the line, so that only the sum is wrong.
TEST_F(Zeilen, SchnellerUndGeduldigerWegLesenDasselbe) {
    const std::vector<std::string> Proben = {
        ZeileMit({}),
        ZeileMit({{FeldKommentar, std::string(Programmadresse)}, {FeldInterpret, ""}}),
        ZeileMit({{FeldGenre, "255"}, {FeldInterpret, ""}}),
        ZeileMit({{FeldGenre, "17"}, {FeldInterpret, ""}}),
        ZeileMit({}, 43),
        ZeileMit({{FeldV2Kommentar, "nur"}, {FeldQualität, "7"}}, 43),
        ZeileMit({{FeldV2Qualität, "\n"}}, 43),
        ZeileMit({{FeldPfad, ""}, {FeldInterpret, ""}}),
        ZeileMit({{FeldAbspielDatum, "31.12.1999 23:59:59"}, {FeldGröße, "999999999999999"}}),
        ZeileMit({{FeldTitel, "\xEF\xBB\xBFЖ"}, {FeldDateityp, "-3"}})};
    for (const auto& Probe : Proben) {
        InhaltLaden(Kopf() + Probe + "\r\n");
        ASSERT_EQ(Index.IndexAnzahl(), 1);
        EXPECT_TRUE(Index.Sätze.PlatzVon(1).Speicherform) << Probe;
        const Datensatz Schnell = Index.Sätze.Lesen(1);
        const std::string Pfad = Index.Sätze.Pfad(1);
        std::string Geduldig = Probe;
        Geduldig.insert(Geduldig.find('|'), "/0");
        InhaltLaden(Kopf() + Geduldig + "\r\n");
        EXPECT_EQ(Index.Sätze.Lesen(1), Schnell) << Probe;
        EXPECT_EQ(Index.Sätze.Pfad(1), Pfad);
    }
}

struct Kaputt {
    std::string Zeile;
    int Sätze;
    std::string Log;  // "" for none
    int Feld;
    std::string Text;  // of this field
};

TEST_F(Zeilen, KaputteZeilenWerdenGelesenSoweitSieReichen) {
    const std::string Vierundvierzig = ZeileMit({{FeldQualität, "3"}}, 44);
    const std::vector<Kaputt> Fälle = {
        {Vierundvierzig, 1, "", FeldQualität, "3"},
        {Beispielzeile.substr(0, 60), 1, "Checksumme der Zeile ist 88 statt 60 (Lesen)", FeldInterpret,
         "ABBA"},
        {Beispielzeile + "x", 1, "Checksumme der Zeile ist 88 statt 90 (Lesen)", FeldModus, "Stereo"},
        {"#TAG:ohne Strich", 0, "Checksumme der Zeile ist -1 statt 16 (Lesen)", 0, ""},
        {"#TAG:|", 1, "", FeldGröße, "-1"},
        {"#TAG:3//100001|abc", 1, "", FeldPfad, "abc"},
        {"#TAG:3/-2/99999999999999999999|abc", 1, "", FeldPfad, "abc"},
        {"#TAG:100000|abc", 1, "Checksumme", FeldPfad, "abc"},
        {ZeileMit({{FeldGröße, "viel"}}), 1, "", FeldGröße, "-1"},
        {ZeileMit({{FeldBitrate, "99999999999"}}), 1, "", FeldBitrate, "0"},
        {ZeileMit({{FeldGröße, "1.234"}}), 1, "", FeldGröße, "1234"},
        {ZeileMit({{FeldGröße, "9223372036854775808"}}), 1, "", FeldGröße, "-1"},
        {ZeileMit({{FeldVBR, "7"}}), 1, "", FeldVBR, "1"},
        {ZeileMit({{FeldVBR, "-2"}}), 1, "", FeldVBR, "0"},
        {ZeileMit({{FeldGenre, "256"}}), 1, "", FeldGenre, ""},
        {ZeileMit({{FeldAbspielDatum, "31.02.2003"}}), 1, "", FeldAbspielDatum, ""},
        {ZeileMit({{FeldV2Qualität, "ab"}}, 43), 1, "", FeldV2Qualität, "€"},
        {ZeileMit({{FeldTitel, std::string("a\0b", 3)}}), 1, "", FeldTitel, std::string("a\0b", 3)},
        {ZeileMit({{FeldTitel, "|/#TAG:"}}), 1, "", FeldTitel, "|/#TAG:"},
        {"#TAG:" + std::string(1 << 20, '/') + "|x", 1, "Checksumme", FeldPfad, ""},
        {"#TAG:5|" + std::string(1 << 20, 'x'), 1, "Checksumme", FeldPfad, "xxxxx"},
    };
    for (const auto& Fall : Fälle) {
        Log.Zeilen.clear();
        ASSERT_EQ(InhaltLaden(Kopf() + Fall.Zeile + "\r\n"), Ladeergebnis::Index);
        ASSERT_EQ(Index.IndexAnzahl(), Fall.Sätze) << Fall.Zeile.substr(0, 80);
        EXPECT_EQ(Geloggt("Checksumme"), !Fall.Log.empty()) << Fall.Zeile.substr(0, 80);
        EXPECT_TRUE(Geloggt(Fall.Log)) << Fall.Log;
        if (Fall.Sätze == 1) {
            EXPECT_EQ(Index.Sätze.Text(1, Fall.Feld), Fall.Text) << Fall.Zeile.substr(0, 80);
        }
    }
}

TEST_F(Zeilen, LetzteZeileOhneEndeZähltUndBekommtEines) {
    InhaltLaden(Kopf() + Beispielzeile);
    EXPECT_EQ(Index.IndexAnzahl(), 1);
    EXPECT_EQ(Speichern(), Speicherergebnis::Gespeichert);
    EXPECT_EQ(Inhalt(Datei), Kopf() + Beispielzeile + "\r\n");
}

TEST_F(Zeilen, DateiMitLfAlsZeilenendeWirdGelesenUndBekommtCrLf) {
    std::string Unix = Kopf() + Beispielzeile + "\r\n" + Beispielzeile + "\r\n";
    std::erase(Unix, '\r');
    InhaltLaden(Unix);
    EXPECT_EQ(Index.IndexAnzahl(), 2);
    EXPECT_FALSE(Geloggt("Ung"));
    Speichern();
    EXPECT_EQ(Inhalt(Datei), Kopf() + Beispielzeile + "\r\n" + Beispielzeile + "\r\n");
}

// One entry per slot and per special line, in order.
std::vector<std::string> Durchgehen(std::string_view Text, unsigned Teile, bool NurLf,
                                    std::size_t& Übergaben) {
    std::vector<std::string> Folge;
    Zeilenauftrag Auftrag;
    Auftrag.Inhalt = Text;
    Auftrag.NurLf = NurLf;
    Auftrag.Teile = Teile;
    ZeilenDurchgehen(Auftrag, [&](Zeilenteil& Teil) {
        ++Übergaben;
        std::size_t Satz = 0;
        const auto Bis = [&](std::size_t Ende) {
            for (; Satz < Ende; ++Satz)
                Folge.emplace_back(Teil.Plätze[Satz].Zeile, Teil.Plätze[Satz].Länge);
        };
        for (const auto& Zeile : Teil.Sonderzeilen) {
            Bis(Zeile.Davor);
            Folge.push_back(std::to_string(Zeile.Nummer) + ":" + std::string(Zeile.Zeile));
        }
        Bis(Teil.Plätze.size());
    });
    return Folge;
}

TEST_F(Zeilen, JedeZahlVonTeilenGibtDieselbeFolge) {
    const std::vector<std::string> Stücke = {Beispielzeile,
                                             ZeileMit({}, 43),
                                             "",
                                             "\r",
                                             "#OPT:x",
                                             "#TAG:1|\n",
                                             ZeileMit({{FeldTitel, "a\nb\rc"}}),
                                             "#TAG:ohne",
                                             "\n"};
    std::mt19937 Zufall(3);
    for (int Runde = 0; Runde < 200; ++Runde) {
        const bool NurLf = Runde % 3 == 0;
        std::string Text;
        for (auto n = Zufall() % 30; n > 0; --n) {
            Text += Stücke[Zufall() % Stücke.size()] + (NurLf ? "\n" : "\r\n");
        }
        if (Runde % 2 == 0) Text += Beispielzeile;
        std::size_t Übergaben = 0;
        const auto Soll = Durchgehen(Text, 1, NurLf, Übergaben);
        for (unsigned Teile = 2; Teile < 8; ++Teile) {
            ASSERT_EQ(Durchgehen(Text, Teile, NurLf, Übergaben), Soll) << Runde << "/" << Teile;
        }
    }
}

TEST_F(Zeilen, LauterZeilenendenKommenStückweise) {
    std::string Text;
    for (int i = 0; i < 100000; ++i)
        Text += "\r\n";
    std::size_t Übergaben = 0;
    const auto Folge = Durchgehen(Text, 2, false, Übergaben);
    ASSERT_EQ(Folge.size(), 100000U);
    EXPECT_EQ(Folge.back(), "100001:");
    EXPECT_GT(Übergaben, 10U);
}

// Reading and writing an index of any bytes settles after the first write.
TEST_F(Zeilen, VerstümmelteDateienStürzenNichtAbUndBleibenNachDemErstenSpeichern) {
    std::mt19937 Zufall(11);
    const std::string Ganz = Kopf("#OPT:SYNC=C:\\a,1,\r\n") + "#TERMIN:3//1|abc1\r\n" + ZeileMit({}, 43) +
                             "\r\n" + Beispielzeile + "\r\n" + ZeileMit({{FeldTitel, "\xEF\xBB\xBFЖ"}}) +
                             "\r\n";
    for (int Runde = 0; Runde < 80; ++Runde) {
        std::string Text = Ganz;
        for (auto n = 1 + Zufall() % 6; n > 0; --n) {
            const std::size_t Stelle = 12 + Zufall() % (Text.size() - 12);
            switch (Zufall() % 4) {
                case 0:
                    Text[Stelle] = static_cast<char>(Zufall());
                    break;
                case 1:
                    Text.erase(Stelle, Zufall() % 20);
                    break;
                case 2:
                    Text.insert(Stelle, Text.substr(12 + Zufall() % (Text.size() - 12), Zufall() % 40));
                    break;
                default:
                    Text[Stelle] = "0123456789/|\r\n"[Zufall() % 14];
                    break;
            }
            if (Text.size() < 40) Text = Ganz;
        }
        ASSERT_EQ(InhaltLaden(Text), Ladeergebnis::Index);
        ASSERT_EQ(Speichern(), Speicherergebnis::Gespeichert);
        const std::string Erstes = Inhalt(Datei);
        ASSERT_EQ(Laden(Datei), Ladeergebnis::Index);
        ASSERT_EQ(Speichern(), Speicherergebnis::Gespeichert);
        ASSERT_EQ(Inhalt(Datei), Erstes) << Runde;
    }
}

}  // namespace
}  // namespace liedwerk
