#include "medien/autotag.h"

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "basis/text.h"
#include "index/genres.h"

namespace liedwerk {
namespace {

struct Welt {
    Katalog Index;
    Einstellungen Werte;
    Tagverzeichnis Verzeichnis;
    Datensatz Ergebnis;

    void Aufnehmen(std::string_view Pfad, Datensatz Satz, bool MitTag = true) {
        Satz.HatId3v1 = MitTag ? TagVorhanden : TagFehlt;
        SatzAnhängen(Index, Pfad, Satz);
    }
    std::string Lauf(std::string_view Name, std::string_view Format, const Datensatz& Satz = {},
                     AutoTagZiel Ziel = AutoTagZiel::Beide) {
        return AutoTagAusführen({Index, Werte, Verzeichnis}, Name, Format, Ergebnis, Satz, Ziel);
    }
    // The fields that a run has filled in ID3v1, for comparing at one look.
    std::string Felder() const {
        return Ergebnis.Interpret + "|" + Ergebnis.Titel + "|" + Ergebnis.Album + "|" + Ergebnis.Titelnummer +
               "|" + Ergebnis.Jahr;
    }
};

Datensatz Satz(std::string_view Interpret, std::string_view Album = {}) {
    Datensatz Neu;
    Neu.Interpret = Interpret;
    Neu.Album = Album;
    return Neu;
}

TEST(AutoTag, FestesFormatZerlegtVonHinten) {
    struct Fall {
        std::string_view Name;
        std::string_view Format;
        std::string_view Felder;
    };
    const Fall Fälle[] = {
        {"/m/der künstler - DAS LIED.mp3", "%Interpret% - %Titel%", "Der Künstler|Das Lied|||"},
        {"/m/a - b - c.mp3", "%Interpret% - %Titel%", "A - B|C|||"},
        {"/m/ganz.a.mp3", "%TITEL%", "|Ganz.a|||"},
        {"/m/a_-_b.mp3", "%Interpret% - %Titel%", "A|B|||"},
        {"/m/01 - b (1999).mp3", "%Track% - %Titel% (%Jahr%)", "|B||01|1999"},
        {"/m/[x] a--b.mp3", "] %Interpret%--%Titel%", "A|B|||"},
        {"/m/rest [x] a.mp3", "] %Titel%", "|A|||"},
        {"/m/a - weg - b.mp3", "%Interpret% - %Müll% - %Titel%", "A|B|||"},
        {"/m/a - .mp3", "%Interpret% - %Titel%", "A||||"},
        {"c:\\m.1\\a - b", "%Interpret% - %Titel%", "A|B|||"},
        {"/m/a - - b.mp3", "%Interpret% - %Titel%", "A -|B|||"},
    };
    for (const Fall& f : Fälle) {
        Welt w;
        EXPECT_EQ(w.Lauf(f.Name, f.Format), "") << f.Name;
        EXPECT_EQ(w.Felder(), f.Felder) << f.Name;
    }
}

TEST(AutoTag, SagtWasAmFormatNichtGeht) {
    Welt w;
    const std::string Erste =
        "Das von Ihnen zu Erkennung des TAGs verwendete Format konnte nicht verarbeitet werden.\n";
    w.Ergebnis.Titel = "bleibt";
    EXPECT_EQ(w.Lauf("/a.mp3", ""),
              "Sie haben kein Erkennungs-Format ausgewählt.\nBitte wählen Sie eines im Fenster 'AutoTAG "
              "einstellen' aus.");
    for (const std::string_view Format : {"%Titel", "Titel", "%Titel% %"})
        EXPECT_EQ(w.Lauf("/a.mp3", Format),
                  "Das von Ihnen zu Erkennung des TAGs verwendete Format ('" + std::string(Format) +
                      "') konnte nicht verarbeitet werden.\nÜberprüfen Sie die Schreibweise der Variablen "
                      "('%'-Zeichen vergessen?).");
    EXPECT_EQ(w.Lauf("/a.mp3", "%Titel% (x)"),
              Erste + "Das letzte Trennzeichen ' (x)' existiert nicht, obwohl es im Format definiert wurde.");
    for (const std::string_view Format : {"%Interpret% - %Titel%", "%Interpret%%Titel%", "x%Titel%"})
        EXPECT_EQ(w.Lauf("/a.mp3", Format),
                  Erste +
                      "Der zu erkennende Dateiname enthält nicht gleich viele Elemente wie das Format (z.B. "
                      "Datei 'AB - CD.mp3' = 2 und Format '%AB% - %CD% - %EF%' = 3).");
    EXPECT_EQ(
        w.Lauf("/a.mp3", "%Automatik%%Titel%"),
        "Bei Verwendung der Erkennungs-Variable '%Automatik%' können keine weiteren Variablen verwendet "
        "werden. Bitte ändern Sie das Erkennungs-Format.\n\nDer Vorgang wird abgebrochen.\", "
        "vbInformation");
    EXPECT_EQ(w.Lauf("/m/ - .mp3", "%automatik%"),
              "Der Dateiname ' - .mp3' konnte nicht verarbeitet werden.");
    EXPECT_EQ(w.Ergebnis.Titel, "bleibt");
}

TEST(AutoTag, FülltNurDasZielUndVerliertKeineRahmen) {
    Datensatz Vorher;
    Vorher.HatId3v2 = TagVorhanden;
    Vorher.Kommentar = "alt";
    Vorher.V2Kommentar = "alt2";
    Vorher.V2Titel = "vorher";
    Vorher.Id3v2WeitereFelder = "APIC....";
    Vorher.Id3v2Größe = 500;
    Welt w;
    ASSERT_EQ(w.Lauf("/x/a.mp3", "%Titel%", Vorher, AutoTagZiel::Id3v1), "");
    EXPECT_EQ(w.Ergebnis.Titel + w.Ergebnis.V2Titel + w.Ergebnis.Kommentar, "Avorheralt");
    w.Werte.AutoTagFelderLöschen = 1;
    ASSERT_EQ(w.Lauf("/x/a.mp3", "%Titel%", Vorher, AutoTagZiel::Id3v2), "");
    EXPECT_EQ(w.Ergebnis.V2Titel + w.Ergebnis.V2Kommentar + w.Ergebnis.Kommentar, "Aalt");
    EXPECT_EQ(w.Ergebnis.Id3v2WeitereFelder, "APIC....");
    EXPECT_EQ(w.Ergebnis.Id3v2Größe, 500);
    EXPECT_EQ(w.Ergebnis.HatId3v2, TagVorhanden);
}

TEST(AutoTag, GenreIstNummerOderText) {
    Welt w;
    ASSERT_EQ(w.Lauf("/x/ROCK.mp3", "%Genre%"), "");
    EXPECT_EQ(w.Ergebnis.Genre, GenreNummer("rock"));
    EXPECT_EQ(w.Ergebnis.V2Genre, "Rock");
    ASSERT_EQ(w.Lauf("/x/eigenes.mp3", "%Genre%"), "");
    EXPECT_EQ(w.Ergebnis.Genre, KeinGenre);
    EXPECT_EQ(w.Ergebnis.V2Genre, "eigenes");
}

TEST(AutoTag, AusschlußZähltNurEingeschaltet) {
    Welt w;
    w.Werte.AutoTagAusschluß = {"Unbekannt"};
    ASSERT_EQ(w.Lauf("/x/UNBEKANNT - b.mp3", "%Interpret% - %Titel%", Satz("Alt")), "");
    EXPECT_EQ(w.Ergebnis.Interpret, "Unbekannt");
    w.Werte.AutoTagAusschlußLeer = 0;
    ASSERT_EQ(w.Lauf("/x/UNBEKANNT - b.mp3", "%Interpret% - %Titel%", Satz("Alt")), "");
    EXPECT_EQ(w.Ergebnis.Interpret, "Alt");
    EXPECT_EQ(w.Lauf("/x/unbekannt.mp3", "%automatik%"),
              "Der Dateiname 'unbekannt.mp3' konnte nicht verarbeitet werden.");
}

TEST(AutoTag, AutomatikOrdnetStückeZu) {
    struct Fall {
        std::string_view Name;
        std::string_view Felder;
    };
    const Fall Fälle[] = {
        {"/m/wer - was.mp3", "wer|was|||"},
        {"/m/01 - wort.mp3", "|wort||01|"},
        {"/m/1999 - wort.mp3", "|wort|||1999"},
        {"/m/256 - wort.mp3", "256|wort|||"},
        {"/m/neu - DIE BAND, 7.mp3", "Die Band|neu||7|"},
        // A piece taken as album may still become the title; with a known artist the album is one of his.
        {"/m/die band - das album.mp3", "Die Band|das album|Das Album||"},
        {"/m/das album - die band - lied.mp3", "Die Band|lied|Das Album||"},
        {"/m/fremdes - die band.mp3", "Die Band|fremdes|||"},
        {"/m/ohne tag - lied.mp3", "ohne tag|lied|||"},
        // The only file of its artist says nothing about itself.
        {"/M/selbst.mp3", "Selbst|x|||"},
    };
    for (const Fall& f : Fälle) {
        Welt w;
        w.Werte.AutoTagUnterstrichEntfernen = 0;
        w.Aufnehmen("/i/1.mp3", Satz("Die Band", "Das Album"));
        w.Aufnehmen("/i/2.mp3", Satz("Andere", "Fremdes"));
        w.Aufnehmen("/i/3.mp3", Satz("Ohne Tag"), false);
        w.Aufnehmen("/m/selbst_x.mp3", Satz("x"));
        if (f.Name == "/M/selbst.mp3") {
            w.Aufnehmen("/i/4.mp3", Satz("Selbst"));
            EXPECT_EQ(w.Lauf("/m/selbst_x.mp3", "%automatik%"), "");
        } else {
            EXPECT_EQ(w.Lauf(f.Name, "%Automatik%"), "") << f.Name;
        }
        EXPECT_EQ(w.Felder(), f.Felder) << f.Name;
    }
}

TEST(AutoTag, ErgänztGenreUndJahrVomLetztenSatzDesInterpreten) {
    Welt w;
    Datensatz Erster = Satz("Band");
    Erster.Genre = GenreNummer("Pop");
    Erster.Jahr = "1990";
    w.Aufnehmen("/i/1.mp3", Erster);
    Datensatz Zweiter;
    Zweiter.V2Interpret = "BAND";
    Zweiter.V2Genre = "(17)Rock";
    w.Aufnehmen("/i/2.mp3", Zweiter);
    ASSERT_EQ(w.Lauf("/m/band - lied.mp3", "%Interpret% - %Titel%"), "");
    EXPECT_EQ(w.Ergebnis.V2Genre, "(17)Rock");
    EXPECT_EQ(w.Ergebnis.Genre, 17);
    EXPECT_EQ(w.Ergebnis.Jahr + w.Ergebnis.V2Jahr, "19901990");
    // What is there is not replaced, and a tag that is no target stays as it is.
    Datensatz Eigener;
    Eigener.V2Genre = "Eigenes";
    ASSERT_EQ(w.Lauf("/m/band - lied.mp3", "%Interpret% - %Titel%", Eigener, AutoTagZiel::Id3v2), "");
    EXPECT_EQ(w.Ergebnis.V2Genre, "Eigenes");
    EXPECT_FALSE(w.Ergebnis.Genre.has_value());
    EXPECT_EQ(w.Ergebnis.Jahr, "");
    // The tags name two artists and the format none: the last file of either counts.
    for (const auto& [V1, V2] : {std::pair("Niemand", "band"), std::pair("BAND", "Niemand")}) {
        Datensatz Beide = Satz(V1);
        Beide.V2Interpret = V2;
        ASSERT_EQ(w.Lauf("/m/lied.mp3", "%Titel%", Beide), "");
        EXPECT_EQ(w.Ergebnis.V2Genre + w.Ergebnis.Jahr + w.Ergebnis.V2Jahr, "(17)Rock19901990");
        EXPECT_EQ(w.Ergebnis.Genre, 17);
    }
    // The file itself is left out.
    ASSERT_EQ(w.Lauf("/i/2.mp3", "%Titel%", Zweiter, AutoTagZiel::Id3v1), "");
    EXPECT_FALSE(w.Ergebnis.Genre.has_value());
}

// The directory against the plain walk, over a store that changes in between.
TEST(Tagverzeichnis, GibtDieselbenSätzeWieDerGangDurchDenIndex) {
    Katalog Index;
    Tagverzeichnis Verzeichnis;
    std::mt19937 Zufall(7);
    const std::vector<std::string> Namen = {"",
                                            "Émile",
                                            "émile",
                                            "EMILE",
                                            "ein langer Name",
                                            "Łukasz",
                                            "łUKASZ",
                                            "ein Langer name ",
                                            "ИРИНА",
                                            "Ирина",
                                            "Арина",
                                            "\u212Bke",
                                            "åke",
                                            "ÅKE"};
    const auto Irgendein = [&] { return Namen[Zufall() % Namen.size()]; };
    const auto Zufälliger = [&] {
        Datensatz Neu = Satz(Irgendein(), Irgendein());
        Neu.V2Interpret = Irgendein();
        Neu.V2Album = Irgendein();
        Neu.HatId3v1 = Zufall() % 2 ? TagVorhanden : TagFehlt;
        Neu.HatId3v2 = Zufall() % 2 ? TagVorhanden : TagFehlt;
        return Neu;
    };
    const auto GehörtDazu = [&](Satznummer Nummer, const std::string& Name) {
        const Datensatz Einer = Index.Sätze.Lesen(Nummer);
        return (Einer.HatId3v1 == TagVorhanden || Einer.HatId3v2 == TagVorhanden) &&
               (GleichOhneGroß(Einer.Album, Name) || GleichOhneGroß(Einer.V2Album, Name));
    };
    for (int Runde = 0; Runde < 4; ++Runde) {
        for (int i = 0; i < 50; ++i)
            SatzAnhängen(Index, "/x", Zufälliger());
        for (int i = 0; i < 10; ++i)
            Index.Sätze.Setzen(static_cast<Satznummer>(Zufall() % 50 + 1), "/y", Zufälliger());
        if (Runde % 3 == 2) DatensätzeEntfernen(Index, std::vector<Satznummer>{1, 5, 6});
        // Half of the new records are read ahead; some of these and of the others change once more.
        EXPECT_FALSE(Verzeichnis.Vorbereiten(Index.Sätze, 20));
        for (int i = 0; i < 20; ++i)
            Index.Sätze.Setzen(
                static_cast<Satznummer>(Zufall() % static_cast<unsigned>(Index.Sätze.Anzahl()) + 1), "/z",
                Zufälliger());
        const Satznummer Anzahl = Index.IndexAnzahl();
        for (const std::string& Name : Namen) {
            for (Satznummer Ab = 1; Ab <= Anzahl; ++Ab) {
                Satznummer Danach = Ab;
                while (Danach <= Anzahl && !GehörtDazu(Danach, Name))
                    ++Danach;
                Satznummer Davor = Ab;
                while (Davor > 0 && !GehörtDazu(Davor, Name))
                    --Davor;
                ASSERT_EQ(Verzeichnis.Nächster(Index.Sätze, Tagtext::Album, Name, Ab),
                          Danach > Anzahl ? 0 : Danach);
                ASSERT_EQ(Verzeichnis.Voriger(Index.Sätze, Tagtext::Album, Name, Ab), Davor);
            }
        }
    }
}

TEST(AutoTag, ListenKommenVomProgrammSolangeEsKeineEigenenGibt) {
    Einstellungen Werte;
    EXPECT_EQ(AutoTagListe(Werte).front(), "%Interpret% - %Titel%");
    EXPECT_FALSE(Ausschlußliste(Werte).empty());
    AutoTagFormatVorgeben(Werte);
    EXPECT_EQ(Werte.AutoTagAktuell, "");
    Werte.AutoTagLeer = 0;
    Werte.AutoTagAusschlußLeer = 0;
    EXPECT_TRUE(AutoTagListe(Werte).empty());
    EXPECT_TRUE(Ausschlußliste(Werte).empty());
    AutoTagFormatVorgeben(Werte);
    Werte.AutoTagFormate = {"%Titel%", "%Album%"};
    AutoTagFormatVorgeben(Werte);
    EXPECT_EQ(Werte.AutoTagAktuell, "%Titel%");
}

}  // namespace
}  // namespace liedwerk
